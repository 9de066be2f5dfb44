// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What qor dump does with each kind of document.
#pragma once

#include "tools/documents/DocumentFile.h"
#include "tools/dump/DumpCommand.h"

namespace qor::tool {

// Each for a file of that kind, with options that fit it.
void DumpDataBlock(DocumentFile& file, const DumpOptions& options, Output& output);
void DumpStructure(DocumentFile& file, const DumpOptions& options, Output& output);
void DumpShapeTable(DocumentFile& file, const DumpOptions& options, Output& output);

// Throws ToolError unless all numbers are there; things are "trace" or "shape".
void CheckNumbers(const std::vector<std::int32_t>& numbers, std::int32_t count, const DocumentFile& file,
                  std::string_view thing);

} // namespace qor::tool
