// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Standard output, error lines and exit codes of the tool.
#pragma once

#include <fmt/format.h>

#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace qor::tool {

enum ExitCode { Done = 0, FileFailed = 1, WrongUsage = 2 };

// What ends a command. The text is one line that names the file or the option.
class ToolError : public std::runtime_error
{
public:
    ToolError(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
    ExitCode Code() const { return code_; }

private:
    ExitCode code_;
};

ToolError FileError(std::string_view path, std::string_view reason);
ToolError UsageError(std::string_view reason);
// What errno tells; the text where it is 0.
std::string LastSystemError(std::string_view otherwise);

// Thrown when whoever reads our output has closed it, as head does: nothing is wrong, there is just no more to do.
struct ReaderGone {};

// Buffered text output. When it cannot be written, nothing is written any more from then on.
class Output
{
public:
    // To a stream: throws ReaderGone or ToolError when it cannot be written.
    explicit Output(std::FILE* file);
    // To whatever takes the text, a piece at a time, or throws.
    explicit Output(std::function<void(std::string_view)> take) : take_(std::move(take)) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(std::string_view text)
    {
        buffer_.append(text);
        if (buffer_.size() >= FlushAt) Flush();
    }
    template <class... Arguments>
    void Print(fmt::format_string<Arguments...> format, Arguments&&... arguments)
    {
        fmt::format_to(fmt::appender(buffer_), format, std::forward<Arguments>(arguments)...);
        if (buffer_.size() >= FlushAt) Flush();
    }
    void Flush();
    bool IsTerminal() const { return isTerminal_; }

private:
    static constexpr std::size_t FlushAt = 1 << 16;

    std::function<void(std::string_view)> take_;
    bool isTerminal_ = false;
    fmt::memory_buffer buffer_;
};

// One line on standard error, as "qor: text". Control characters in the text are shown as U+FFFD.
void PrintMessage(std::string_view text);

// To be called first: writing to a closed pipe, or beyond a limit on file sizes, becomes an error that can be
// reported, and a file opened later cannot take the number of a standard stream that was closed.
void PrepareProcess();

} // namespace qor::tool
