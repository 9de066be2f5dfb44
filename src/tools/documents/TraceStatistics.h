// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Extremes, RMS and peak of a trace; of the magnitude where samples are complex.
#pragma once

#include "datablock/DataBlock.h"

#include <cstdint>

namespace qor::tool {

struct TraceStatistics {
    std::int32_t counted = 0;    // samples that are numbers; all values below are 0 without any
    std::int32_t notNumbers = 0; // NaN samples, which are left out
    double minimum = 0;
    double maximum = 0;
    double rms = 0;
    double peak = 0;             // the value farthest from 0, with its sign; the first of equal ones
    std::int32_t peakSample = 0; // its sample number
};

TraceStatistics StatisticsOf(const DataBlock& block, const Trace& trace);

} // namespace qor::tool
