// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A file on its way to its name. It is written under a temporary name in the same folder and gets its
// own only when it is whole, so that nobody ever meets half a file, and a failure leaves an older one as it was.
#pragma once

#include "platform/File.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qor::tool {

class OutputFile
{
public:
    // Makes the temporary file. Throws ToolError when the name cannot be written to, or stands for an existing file
    // that is not to be replaced.
    OutputFile(const std::string& path, bool replaceExisting);
    // Removes the temporary file, if it is still there. Being interrupted removes it too.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    ByteSink& Sink() { return *file_; }
    // Adds text at the end. Throws ToolError when the system refuses it.
    void Append(std::string_view text);
    std::uint64_t Size() const { return file_->Size(); }
    // Gives the file its name. Throws ToolError when the system could not complete it, or when a file of that name
    // has appeared meanwhile and is not to be replaced.
    void Commit();

private:
    std::string shownPath_;
    std::filesystem::path path_;
    std::filesystem::path temporary_;
    std::optional<platform::File> file_;
    bool replaceExisting_;
};

} // namespace qor::tool
