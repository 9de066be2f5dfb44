// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How much memory loading and saving take at their peak.
#pragma once

#include "Documents.h"

#include <optional>
#include <string>

namespace qor::bench {

struct MemoryUse {
    double save = 0; // bytes above the document, while it is saved
    double load = 0; // bytes in all, while it is loaded
};

// Saves and loads the document, each in a process of its own. Nothing where the system does not tell a process's
// peak memory, or a result was wrong.
std::optional<MemoryUse> PeakMemory(const Shape& shape, const std::string& path);

} // namespace qor::bench
