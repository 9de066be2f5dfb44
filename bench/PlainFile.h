// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The references of the file figures: a file's bytes moved with the system's own calls and nothing else.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor::bench {

// A folder in memory where the system has one, so that no disk is measured; removed with all its files.
class WorkFolder
{
public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    std::string operator/(std::string_view name) const;

private:
    std::string path_;
};

// Faults throw std::runtime_error: without a reference there is nothing to measure.

// Writes the bytes to a new file.
void WritePlain(const std::string& path, std::span<const std::byte> bytes);
// Fills target with the file's bytes, of which there must be as many.
void ReadPlain(const std::string& path, std::span<std::byte> target);
// Fills target that often, from places in the file that are so far apart.
void ReadPlainPieces(const std::string& path, std::size_t pieces, std::size_t apart, std::span<std::byte> target);

std::vector<std::byte> BytesOf(const std::string& path);
void Delete(const std::string& path);
std::u16string Utf16(const std::string& path);

} // namespace qor::bench
