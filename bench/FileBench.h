// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving and loading whole documents, headers and single traces, beside the same by HDF5 and beside plain writes, reads
// and copies.
#pragma once

#include "MemoryUse.h"
#include "PlainFile.h"

namespace qor::bench {

void MeasureFileMemory(PeakMeter& meter, Report& report, const WorkFolder& folder);

// Makes the documents and their files in the folder.
void RegisterFileBenchmarks(Report& report, const WorkFolder& folder);

} // namespace qor::bench
