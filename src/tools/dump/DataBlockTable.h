// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The values of a Data Block as a table: X first, then a column a trace, or two of a complex one.
#pragma once

#include "tools/documents/DocumentFile.h"
#include "tools/dump/ValueTable.h"

#include <span>

namespace qor::tool {

std::vector<std::int32_t> AllTraces(const DataBlock& block);

// Samples of the longest of those traces. Throws ToolError when there are none.
std::int32_t MostSamples(const DocumentFile& file, const DataBlock& block, std::span<const std::int32_t> traces);

// The traces of those numbers, in that order; throws ToolError when they hold no samples. Refers to the Data Block.
ValueTable DataBlockTable(const DocumentFile& file, const DataBlock& block, std::span<const std::int32_t> traces);

// The same as CSV that qor import takes.
void WriteDataBlockCsv(const DocumentFile& file, const DataBlock& block, std::span<const std::int32_t> traces,
                       Output& output);

} // namespace qor::tool
