// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving and loading whole documents beside plain writes and reads of the same bytes; headers and single traces.
#pragma once

#include "PlainFile.h"

namespace qor::bench {

// Makes the documents and their files in the folder.
void RegisterFileBenchmarks(const WorkFolder& folder);

} // namespace qor::bench
