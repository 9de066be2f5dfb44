// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Whether the time an element grows with the size of a Structure: so many elements in large Structures beside as many
// in small ones.
#pragma once

#include "PlainFile.h"
#include "Report.h"

namespace qor::bench {

// Makes the Structures and their files in the folder.
void RegisterGrowthBenchmarks(Report& report, const WorkFolder& folder);

} // namespace qor::bench
