// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// qor info: what stands in document files.
#pragma once

#include "tools/console/Console.h"

#include <string>
#include <vector>

namespace qor::tool {

struct InfoOptions {
    std::vector<std::string> files;
    bool statistics = false;
    std::string format = "table"; // or "json"
};

// Shows all files that can be read; a message tells of every other one.
ExitCode RunInfo(const InfoOptions& options, Output& output);

} // namespace qor::tool
