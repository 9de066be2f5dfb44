// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Structures built, saved and loaded by the published members: a large one beside plain writes and reads of its
// bytes, and growing ones, time an element, beside small ones.
#pragma once

#include "PlainFile.h"

namespace qor::bench {

// Makes the Structures' files in the folder.
void RegisterStructureBenchmarks(const WorkFolder& folder);

} // namespace qor::bench
