// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// qor dump: all values of a document file.
#pragma once

#include "tools/console/Console.h"

#include <string>
#include <vector>

namespace qor::tool {

struct DumpOptions {
    std::string file;
    // Of a Data Block, a Shape Table and a Structure; none stands for all.
    std::vector<std::int32_t> traces;
    std::vector<std::int32_t> shapes;
    std::vector<std::string> elements;
    std::string format = "table"; // or "csv", "json"
};

// The kinds of elements of a Structure, as the command line names them.
std::vector<std::string> ElementKindNames();

ExitCode RunDump(const DumpOptions& options, Output& output);

} // namespace qor::tool
