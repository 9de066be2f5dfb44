// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/Console.h"

#include "tools/console/Text.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace qor::tool {
namespace {

void WriteTo(std::FILE* file, std::string_view text)
{
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0) return;
    if (errno == EPIPE) throw ReaderGone();
    throw FileError("standard output", LastSystemError("it cannot be written"));
}

} // namespace

ToolError FileError(std::string_view path, std::string_view reason)
{
    return ToolError(FileFailed, fmt::format("{}: {}", path, reason));
}

ToolError UsageError(std::string_view reason) { return ToolError(WrongUsage, std::string(reason)); }

std::string LastSystemError(std::string_view otherwise)
{
    return errno != 0 ? std::generic_category().message(errno) : std::string(otherwise);
}

Output::Output(std::FILE* file)
    : take_([file](std::string_view text) { WriteTo(file, text); }), isTerminal_(isatty(fileno(file)) == 1)
{}

void Output::Flush()
{
    const std::string text(buffer_.data(), buffer_.size());
    buffer_.clear();
    take_(text);
}

void PrintMessage(std::string_view text)
{
    const std::string line = fmt::format("qor: {}\n", Shown(text));
    static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr)); // there is nowhere left to tell
}

void PrepareProcess()
{
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    // Opening takes the lowest free number. Read-only, so that writing to it fails as it does to a closed stream.
    for (int descriptor = open("/dev/null", O_RDONLY); descriptor >= 0; descriptor = open("/dev/null", O_RDONLY)) {
        if (descriptor <= STDERR_FILENO) continue;
        close(descriptor);
        break;
    }
}

} // namespace qor::tool
