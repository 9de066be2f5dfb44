// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A Data Block in a file of HDF5: a dataset a trace, and what the members tell of block and traces as attributes.
#pragma once

#include "datablock/DataBlock.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace qor::bench {

struct Hdf5Trace {
    std::string label;
    std::string dateAndTime;
    std::string degreesOfFreedom;
    std::string measurementUnits;
    std::string zAxisLabel;
    std::int16_t measurementType = 0;
    std::int16_t dataSVT = 0;
    std::int16_t linPower = 0;
    const std::byte* samples = nullptr; // not there where they were not asked for
};

struct Hdf5Block {
    std::string label;
    std::string notes;
    std::string xAxisUnits;
    std::int16_t dataFormat = 0;
    std::int16_t xAxisSpacing = 0;
    std::int16_t peakRMS = 0;
    std::int16_t xAxisUnitsCode = 0;
    std::int32_t numberOfSamples = 0;
    float xAxisStart = 0;
    float xAxisIncrement = 0;
    float rpm = 0;
    float damping = 0;
    std::int32_t numberOfTraces = 0;
    std::vector<Hdf5Trace> traces;
    std::unique_ptr<std::byte[]> loaded; // where samples from a file are

    std::size_t SampleWidth() const { return dataFormat == ComplexFormat ? sizeof(ComplexSample) : sizeof(float); }
    std::size_t TraceBytes() const { return static_cast<std::size_t>(numberOfSamples) * SampleWidth(); }
};

// The same Data Block, its samples where they are.
Hdf5Block Hdf5BlockOf(const DataBlock& block);

void SaveHdf5(const std::string& path, const Hdf5Block& block);

// Into memory that is asked for in one piece, or, where there is such, into samples as many as the whole block has.
Hdf5Block LoadHdf5(const std::string& path, std::byte* samples = nullptr);
Hdf5Block LoadHdf5Headers(const std::string& path);
// One trace, without the headers of the others, that a file of HDF5 need not read. It is the only one of the result.
Hdf5Block LoadHdf5Trace(const std::string& path, std::int32_t number);

// Whether attributes and samples are all the same.
bool AreSame(const Hdf5Block& block, const Hdf5Block& other);
bool AreSame(const Hdf5Trace& trace, const Hdf5Trace& other, std::size_t sampleBytes);

} // namespace qor::bench
