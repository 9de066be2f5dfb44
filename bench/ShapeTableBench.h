// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving a large Shape Table beside the arithmetic and the plain write that it takes at least.
#pragma once

#include "PlainFile.h"

namespace qor::bench {

// Makes the table's file in the folder.
void RegisterShapeTableBenchmarks(const WorkFolder& folder);

} // namespace qor::bench
