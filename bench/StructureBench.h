// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A large Structure built, saved and loaded by the published members, beside HDF5 and plain writes and reads.
#pragma once

#include "MemoryUse.h"
#include "PlainFile.h"

namespace qor::bench {

void MeasureStructureMemory(PeakMeter& meter, const WorkFolder& folder);

// Makes the Structure's files in the folder.
void RegisterStructureBenchmarks(Report& report, const WorkFolder& folder);

} // namespace qor::bench
