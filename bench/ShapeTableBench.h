// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving a large Shape Table beside the arithmetic and the plain write that it takes at least, and beside HDF5.
#pragma once

#include "MemoryUse.h"
#include "PlainFile.h"

namespace qor::bench {

void MeasureShapeTableMemory(PeakMeter& meter, const WorkFolder& folder);

// Makes the table's file in the folder.
void RegisterShapeTableBenchmarks(Report& report, const WorkFolder& folder);

} // namespace qor::bench
