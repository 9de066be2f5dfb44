// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The documents that are measured, and a checksum that tells whether what was read is what was written.
#pragma once

#include "datablock/DataBlock.h"

#include <QOR_File/QOR_File.h>

#include <cstdint>
#include <string>

namespace qor::bench {

struct Shape {
    const char* name;
    std::int32_t traces;
    std::int32_t samples;
    bool complex;
};

inline constexpr Shape LongTraces{"long_traces", 64, 1'000'000, true};   // 512 MB
inline constexpr Shape ShortTraces{"short_traces", 4'000, 1'024, false}; // 16 MB

// The text with the number behind it.
std::u16string Numbered(const char16_t* text, std::int32_t number);

std::uint64_t SampleBytes(const Shape& shape);

// A document of that shape, every trace with labels and with samples of its own.
DataBlock MakeDocument(const Shape& shape);

// Gives the calling thread's document that shape and the same content, by the published members.
void FillComponent(clsQOR_File& file, const Shape& shape);

// Of all samples with their places, and of one trace's. Absent samples make it another value.
std::uint64_t Checksum(const DataBlock& block);
std::uint64_t Checksum(const DataBlock& block, std::int32_t trace);

} // namespace qor::bench
