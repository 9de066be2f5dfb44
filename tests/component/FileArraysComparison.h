// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Calls with whole arrays beside the members for one element.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

namespace qor::test {

// ---- preparation -----------------------------------------------------------------------------------------------

enum class Step {
    Traces,
    Samples,
    Format,
    Spacing,
    Axis,
    WriteSample,
    WriteX,
    Shapes,
    DOFs,
    WriteValue,
    Points,
    WritePoint,
    WriteTransform,
    LoadDataBlock,
    LoadStructure,
};

struct Preparation {
    Step step = Step::Traces;
    std::size_t object = 0;
    std::int32_t a = 0;
    std::int32_t b = 0;
    float x = 0;
    float y = 0;
};

inline constexpr float PreparedFloats[] = {0.0F,
                                           -0.0F,
                                           1.0F,
                                           -1.0F,
                                           2.5F,
                                           3.0F,
                                           90.0F,
                                           359.75F,
                                           -1e-20F,
                                           1e-45F,
                                           1e30F,
                                           3.4e38F,
                                           std::numeric_limits<float>::infinity(),
                                           -std::numeric_limits<float>::infinity(),
                                           std::numeric_limits<float>::quiet_NaN(),
                                           -std::numeric_limits<float>::quiet_NaN()};

// ---- calls -----------------------------------------------------------------------------------------------------

enum class ArraysMember { ReadSamples, WriteSamples, ReadPoints, WritePoints, ReadX, WriteX, ReadValues, WriteValues };

struct ArraysCall {
    ArraysMember member = ArraysMember::ReadSamples;
    std::int32_t object = 0; // 2: by arrays of no object, samples and points only
    std::int32_t number = 1;
    std::array<std::int32_t, 3> offBy{}; // what the lengths differ by
    bool withoutSecond = false;
    std::vector<float> values;
};

// Prepares documents that most calls find something in, takes the steps, and calls: with whole arrays, and, on a thread
// of its own, element by element. True when both show and leave the same.
bool ArraysShowTheSame(const std::vector<Preparation>& preparations, const ArraysCall& call);

} // namespace qor::test
