// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// qor export: documents in formats that other programs read.
#pragma once

#include "tools/console/Console.h"

#include <string>

namespace qor::tool {

struct ExportOptions {
    std::string file;
    std::string outputFile; // its ending tells the format
    bool replaceExisting = false;
    bool withoutPointLabels = false;
};

ExitCode RunExport(const ExportOptions& options, Output& output);

} // namespace qor::tool
