// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Runs commands of the tool inside a fuzz target: messages go nowhere, output is caught up to a limit, and what may
// not come out of a command is told.
#pragma once

#include "tools/console/Console.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace qor::test {

// A file may count far more elements than it has bytes; showing them all would take for ever.
inline constexpr std::size_t MostShownText = std::size_t{1} << 18;

struct Shown {
    tool::ExitCode code = tool::Done;
    std::string text;
    bool whole = true;
};

// The process's standard error stays as it is, as the fuzzer writes to it; what the tool prints goes elsewhere.
class NoMessages
{
public:
    NoMessages() : kept_(stderr)
    {
        static std::FILE* const nowhere = std::fopen("/dev/null", "w");
        if (!nowhere) std::abort();
        stderr = nowhere;
    }
    ~NoMessages() { stderr = kept_; }
    NoMessages(const NoMessages&) = delete;
    NoMessages& operator=(const NoMessages&) = delete;

private:
    std::FILE* kept_;
};

// What a command, given an Output, shows. Only what main() expects may be thrown; anything else ends the process.
template <class Command>
Shown Run(Command&& command)
{
    Shown shown;
    const NoMessages silence;
    tool::Output output([&](std::string_view piece) {
        shown.text += piece;
        if (shown.text.size() > MostShownText) throw tool::ReaderGone();
    });
    try {
        shown.code = command(output);
        output.Flush();
    } catch (const tool::ReaderGone&) {
        shown.whole = false;
    } catch (const tool::ToolError& error) {
        shown.code = error.Code();
        shown.whole = false;
    }
    return shown;
}

} // namespace qor::test
