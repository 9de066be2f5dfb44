// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/File.h"

#include "platform/Unicode.h"
#include "platform/posix/SystemPath.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace qor::platform {
namespace {

// One system call moves at most some 2 GiB; larger pieces go in turns.
constexpr std::size_t LargestPiece = std::size_t{1} << 30;

bool IsRegular(int descriptor)
{
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// True when nothing of that name is in the way any more.
bool DeleteExisting(const std::string& path)
{
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) return errno == ENOENT;
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) return false;
    return unlink(path.c_str()) == 0 || errno == ENOENT; // somebody else may have been faster
}

// Below 0 when the system refuses. A signal may interrupt the opening where files come over a network.
int OpenDescriptor(const std::string& path, int flags)
{
    int descriptor = -1;
    do descriptor = open(path.c_str(), flags | O_CLOEXEC, 0666);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

int Descriptor(std::intptr_t handle) { return static_cast<int>(handle); }

} // namespace

std::optional<std::string> SystemPath(std::u16string_view path)
{
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos) return std::nullopt;
    std::string bytes = ToUtf8(path);
    if (FromUtf8(bytes) != path) return std::nullopt;
    return bytes;
}

std::optional<File> File::OpenForReading(std::u16string_view path)
try {
    const auto name = SystemPath(path);
    if (!name) return std::nullopt;
    // Without O_NONBLOCK, opening a pipe would wait for its writer before it could be refused.
    const int descriptor = OpenDescriptor(*name, O_RDONLY | O_NONBLOCK);
    if (descriptor < 0) return std::nullopt;
    File file(descriptor);
    if (!IsRegular(descriptor)) return std::nullopt;
    return file;
} catch (const std::bad_alloc&) {
    return std::nullopt; // for the name
}

std::optional<File> File::Replace(std::u16string_view path)
try {
    const auto name = SystemPath(path);
    if (!name || !DeleteExisting(*name)) return std::nullopt;
    const int descriptor = OpenDescriptor(*name, O_RDWR | O_CREAT | O_EXCL);
    if (descriptor < 0) return std::nullopt;
    return File(descriptor);
} catch (const std::bad_alloc&) {
    return std::nullopt; // for the name
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, Closed)) {}

File::~File() { Close(); }

std::size_t File::ReadAt(std::uint64_t offset, std::span<std::byte> target)
{
    std::size_t done = 0;
    while (done < target.size()) {
        const std::size_t piece = std::min(target.size() - done, LargestPiece);
        const ssize_t got = pread(Descriptor(handle_), target.data() + done, piece, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool File::WriteAt(std::uint64_t offset, std::span<const std::byte> bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::size_t piece = std::min(bytes.size() - done, LargestPiece);
        const ssize_t put = pwrite(Descriptor(handle_), bytes.data() + done, piece, static_cast<off_t>(offset + done));
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        done += static_cast<std::size_t>(put);
    }
    return true;
}

std::uint64_t File::Size() const
{
    struct stat status {};
    return fstat(Descriptor(handle_), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool File::Close()
{
    const Handle handle = std::exchange(handle_, Closed);
    return handle == Closed || close(Descriptor(handle)) == 0;
}

} // namespace qor::platform
