// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A Data Block as CSV: a column of X values, then the columns of its traces.
#pragma once

#include "tools/console/Console.h"
#include "tools/documents/DocumentFile.h"

#include <vector>

namespace qor::tool {

// The traces with these numbers, in this order. Throws ToolError when they hold no samples.
void WriteDataBlockCsv(const DocumentFile& file, const DataBlock& block, std::vector<int> traces, Output& output);

} // namespace qor::tool
