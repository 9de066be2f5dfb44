// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "PlainFile.h"

#include "platform/Unicode.h"

#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace qor::bench {
namespace {

class Descriptor
{
public:
    Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC, 0666))
    {
        if (number_ < 0) throw std::runtime_error(path + ": cannot be opened");
    }
    ~Descriptor() { close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    operator int() const { return number_; }

private:
    int number_;
};

} // namespace

WorkFolder::WorkFolder()
{
    const std::filesystem::path memory = "/dev/shm";
    const auto parent = std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    path_ = parent / "qor_bench_XXXXXX";
    if (!mkdtemp(path_.data())) throw std::runtime_error(path_ + ": cannot be made");
}

WorkFolder::~WorkFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string WorkFolder::operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

void WritePlain(const std::string& path, std::span<const std::byte> bytes)
{
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL);
    while (!bytes.empty()) {
        const ssize_t put = write(file, bytes.data(), bytes.size());
        if (put <= 0) throw std::runtime_error(path + ": cannot be written");
        bytes = bytes.subspan(static_cast<std::size_t>(put));
    }
}

void ReadPlain(const std::string& path, std::span<std::byte> target)
{
    const Descriptor file(path, O_RDONLY);
    while (!target.empty()) {
        const ssize_t got = read(file, target.data(), target.size());
        if (got <= 0) throw std::runtime_error(path + ": too short");
        target = target.subspan(static_cast<std::size_t>(got));
    }
}

void ReadPlainPieces(const std::string& path, std::size_t pieces, std::size_t apart, std::span<std::byte> target)
{
    const Descriptor file(path, O_RDONLY);
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        const auto got = pread(file, target.data(), target.size(), static_cast<off_t>(piece * apart));
        if (got != static_cast<ssize_t>(target.size())) throw std::runtime_error(path + ": too short");
    }
}

std::vector<std::byte> BytesOf(const std::string& path)
{
    std::vector<std::byte> bytes(std::filesystem::file_size(path));
    ReadPlain(path, bytes);
    return bytes;
}

void Delete(const std::string& path) { std::filesystem::remove(path); }

std::u16string Utf16(const std::string& path) { return platform::FromUtf8(path).value(); }

} // namespace qor::bench
