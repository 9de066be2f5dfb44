// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A temporary folder in which the built program is run as in a shell.
#pragma once

#include "tools/SampleDocuments.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace qor::test {

struct Ran {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

class Workshop
{
public:
    std::filesystem::path operator/(std::string_view name) const { return folder_ / name; }

    void Write(std::string_view name, std::string_view text) const
    {
        WriteBytes(folder_ / name, {text.begin(), text.end()});
    }
    std::string Read(std::string_view name) const
    {
        const auto bytes = BytesOf(folder_ / name);
        return {bytes.begin(), bytes.end()};
    }
    bool Has(std::string_view name) const { return std::filesystem::exists(folder_ / name); }
    // Names of all files, in order.
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_ / "")) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    // Runs "qor ARGUMENTS".
    Ran Qor(const std::string& arguments) const { return Shell("\"$QOR\" " + arguments); }
    // Runs a line of shell in the folder; the program is $QOR.
    Ran Shell(const std::string& line) const
    {
        const std::string out = (outside_ / "out").string();
        const std::string err = (outside_ / "err").string();
        const std::string command = "cd '" + (folder_ / "").string() + "' && QOR='" QOR_TOOL "' && { " + line +
                                    "\n} >'" + out + "' 2>'" + err + "'";
        const int status = std::system(command.c_str());
        Ran ran;
        ran.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        const auto output = BytesOf(out);
        const auto errors = BytesOf(err);
        ran.output.assign(output.begin(), output.end());
        ran.errors.assign(errors.begin(), errors.end());
        return ran;
    }

private:
    TemporaryFolder folder_;
    TemporaryFolder outside_; // so that a test sees only its own files
};

} // namespace qor::test
