// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The values of a Data Block as a table: X first, then a column a trace, or two of a complex one.
#pragma once

#include "datablock/DataBlock.h"
#include "tools/dump/ValueTable.h"

#include <span>

namespace qor::tool {

std::vector<std::int32_t> AllTraces(const DataBlock& block);

// Samples of the longest of those traces.
std::int32_t MostSamples(const DataBlock& block, std::span<const std::int32_t> traces);

// The traces of those numbers, in that order, with as many rows as the longest has samples. Refers to the Data Block.
ValueTable DataBlockTable(const DataBlock& block, std::span<const std::int32_t> traces);

// All values of those traces as CSV that qor import takes.
void WriteDataBlockCsv(const DataBlock& block, std::span<const std::int32_t> traces, Output& output);

} // namespace qor::tool
