// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Documents to save, and what saving them gives.
#pragma once

#include "datablock/Save_DataBlock.h"
#include "support/FileFields.h"

#include <gtest/gtest.h>

namespace qor::test {

struct Saved : Outcome {
    Bytes bytes;
};

inline Saved Save(const DataBlock& block)
{
    MemoryFile sink;
    Saved saved;
    static_cast<Outcome&>(saved) = SaveDataBlock(sink, block);
    saved.bytes = sink.Content();
    return saved;
}

inline FileRecord SavedFields(const DataBlock& block) { return FileFields::Of(Save(block).bytes); }

inline void Fill(DataBlock& block, SampleArray<float>& array, std::initializer_list<float> values)
{
    ASSERT_TRUE(array.Resize(block.Memory, static_cast<std::int64_t>(values.size())));
    std::copy(values.begin(), values.end(), array.Values().begin());
}

inline void Fill(DataBlock& block, SampleArray<ComplexSample>& array, std::initializer_list<ComplexSample> values)
{
    ASSERT_TRUE(array.Resize(block.Memory, static_cast<std::int64_t>(values.size())));
    std::copy(values.begin(), values.end(), array.Values().begin());
}

// A document of that size, its samples 0.
inline void SetSizes(DataBlock& block, std::int16_t traces, std::int32_t samples, std::int16_t format = RealFormat)
{
    block.NumberOfTraces = traces;
    block.NumberOfSamples = samples;
    block.DataFormat = format;
    ASSERT_EQ(ReallocateDataBlock(block), NoError);
}

} // namespace qor::test
