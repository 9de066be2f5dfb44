// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/File.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>
#include <windows.h>

namespace qor::platform {
namespace {

constexpr std::size_t LargestPiece = std::size_t{1} << 30;

std::optional<std::wstring> SystemPath(std::u16string_view path)
{
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos) return std::nullopt;
    return std::wstring(path.begin(), path.end());
}

// NOLINTNEXTLINE(performance-no-int-to-ptr): a handle is a number that the system declares as a pointer
HANDLE SystemHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

// True when nothing of that name is in the way any more.
bool DeleteExisting(const std::wstring& path)
{
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return true;
    return DeleteFileW(path.c_str()) != 0 ||
           GetLastError() == ERROR_FILE_NOT_FOUND; // somebody else may have been faster
}

OVERLAPPED At(std::uint64_t offset)
{
    OVERLAPPED position{};
    position.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
    position.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return position;
}

} // namespace

std::optional<File> File::OpenForReading(std::u16string_view path)
try {
    const auto name = SystemPath(path);
    if (!name) return std::nullopt;
    const HANDLE handle =
        CreateFileW(name->c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    File file(reinterpret_cast<Handle>(handle));
    if (GetFileType(handle) != FILE_TYPE_DISK) return std::nullopt;
    return file;
} catch (const std::bad_alloc&) {
    return std::nullopt; // for the name
}

std::optional<File> File::Replace(std::u16string_view path)
try {
    const auto name = SystemPath(path);
    if (!name || !DeleteExisting(*name)) return std::nullopt;
    const HANDLE handle = CreateFileW(name->c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    File file(reinterpret_cast<Handle>(handle));
    if (GetFileType(handle) != FILE_TYPE_DISK) return std::nullopt;
    return file;
} catch (const std::bad_alloc&) {
    return std::nullopt; // for the name
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, Closed)) {}

File::~File() { Close(); }

std::size_t File::ReadAt(std::uint64_t offset, std::span<std::byte> target)
{
    std::size_t done = 0;
    while (done < target.size()) {
        const auto piece = static_cast<DWORD>(std::min(target.size() - done, LargestPiece));
        OVERLAPPED position = At(offset + done);
        DWORD got = 0;
        if (!ReadFile(SystemHandle(handle_), target.data() + done, piece, &got, &position) || got == 0) break;
        done += got;
    }
    return done;
}

bool File::WriteAt(std::uint64_t offset, std::span<const std::byte> bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto piece = static_cast<DWORD>(std::min(bytes.size() - done, LargestPiece));
        OVERLAPPED position = At(offset + done);
        DWORD put = 0;
        if (!WriteFile(SystemHandle(handle_), bytes.data() + done, piece, &put, &position) || put == 0) return false;
        done += put;
    }
    return true;
}

std::uint64_t File::Size() const
{
    LARGE_INTEGER size{};
    return GetFileSizeEx(SystemHandle(handle_), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

bool File::Close()
{
    const Handle handle = std::exchange(handle_, Closed);
    return handle == Closed || CloseHandle(SystemHandle(handle)) != 0;
}

} // namespace qor::platform
