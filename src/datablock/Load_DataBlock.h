// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reads a Data Block file, as a whole, its headers only, or with the samples of chosen traces. Whatever the
// bytes, reading ends, in time linear in the file's size, and takes memory for the arrays and records that the
// file holds, never for those that it only claims.
#pragma once

#include "datablock/DataBlock.h"
#include "fileio/Outcome.h"

#include <functional>
#include <optional>

namespace qor {

// What to read of the arrays; everything else is always read. The reader moves past what is not wanted.
struct ArraySelection {
    bool xaxis = true;
    std::function<bool(std::int32_t traceNumber)> trace = [](std::int32_t) { return true; };

    static ArraySelection Everything() { return {}; }
    static ArraySelection HeadersOnly()
    {
        return {false, [](std::int32_t) { return false; }};
    }
    // The X axis, and the samples of that trace.
    static ArraySelection OneTrace(std::int32_t number)
    {
        return {true, [number](std::int32_t each) { return each == number; }};
    }
};

struct LoadResult : Outcome {
    std::optional<std::int16_t> version; // also of a file that was refused for it
    // First and last explicit X value, also where the X axis was not wanted; 0 without one.
    float firstX = 0;
    float lastX = 0;
};

// Empties the block and fills it from the file. Errors: InputFile_ReadFail for what is wrong in the file (beside
// Success where only the end marker is missing), AllocationError. What was read before a failure stays.
LoadResult LoadDataBlock(ByteSource& source, DataBlock& block,
                         const ArraySelection& selection = ArraySelection::Everything());

} // namespace qor
