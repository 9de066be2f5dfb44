// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The elements of the Structures that are measured, built by the published members.
#pragma once

#include "structure/Structure.h"

#include <QOR_File/QOR_File.h>

#include <cstdint>

namespace qor::bench {

inline constexpr std::int32_t MostElements = 1'000'000;

struct Counts {
    std::int32_t points = 0;
    std::int32_t lines = 0;
    std::int32_t triangles = 0;
    std::int32_t quads = 0;
};

constexpr Counts OfEachKind(std::int32_t count) { return {count, count, count, count}; }

// Adds these elements to the thread's Structure, which is empty: of a long row of elements, each unlike the others,
// those from that number on. False when one was refused.
bool Build(clsQOR_File& file, const Counts& counts, std::int32_t first = 1);

// Whether the Structure is what Build makes.
bool Holds(const Structure& structure, const Counts& counts, std::int32_t first = 1);

// The thread's Structure, which is empty then.
Structure TakeStructure();

} // namespace qor::bench
