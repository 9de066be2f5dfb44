// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/TraceStatistics.h"

#include <cmath>

namespace qor::tool {
namespace {

template <class Samples, class ValueOf>
TraceStatistics Collect(const Samples& samples, ValueOf valueOf)
{
    TraceStatistics result;
    double squares = 0;
    std::int32_t number = 0;
    for (const auto& sample : samples) {
        ++number;
        const double value = valueOf(sample);
        if (std::isnan(value)) {
            ++result.notNumbers;
            continue;
        }
        const bool first = result.counted++ == 0;
        if (first || value < result.minimum) result.minimum = value;
        if (first || value > result.maximum) result.maximum = value;
        if (first || std::abs(value) > std::abs(result.peak)) {
            result.peak = value;
            result.peakSample = number;
        }
        squares += value * value;
    }
    if (result.counted > 0) result.rms = std::sqrt(squares / result.counted);
    return result;
}

} // namespace

TraceStatistics StatisticsOf(const DataBlock& block, const Trace& trace)
{
    if (block.DataFormat == ComplexFormat) {
        return Collect(trace.ComplexSamples.Values(), [](const ComplexSample& sample) {
            return std::sqrt(double{sample.real} * sample.real + double{sample.imaginary} * sample.imaginary);
        });
    }
    return Collect(trace.RealSamples.Values(), [](float sample) { return double{sample}; });
}

} // namespace qor::tool
