// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// qor dump: all values of a Data Block file.
#pragma once

#include "tools/console/Console.h"

#include <string>
#include <vector>

namespace qor::tool {

struct DumpOptions {
    std::string file;
    std::vector<int> traces;      // none stands for all
    std::string format = "table"; // or "csv", "json"
};

ExitCode RunDump(const DumpOptions& options, Output& output);

} // namespace qor::tool
