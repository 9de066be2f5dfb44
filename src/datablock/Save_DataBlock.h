// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Writes a Data Block as a file.
#pragma once

#include "datablock/DataBlock.h"
#include "fileio/Outcome.h"

namespace qor {

// Writes preamble, Data Block record and end marker. Failure when a trace has no samples or no format
// (InputFile_ReadFail is then the error, and the file is whole but for that trace and those behind it), and
// when a write failed (the file then lacks its end marker).
Outcome SaveDataBlock(ByteSink& sink, const DataBlock& block);

} // namespace qor
