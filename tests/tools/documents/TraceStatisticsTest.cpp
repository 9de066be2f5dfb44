// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/TraceStatistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>

namespace {

using namespace qor;
using namespace qor::tool;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

TraceStatistics OfReal(std::initializer_list<float> values)
{
    DataBlock block;
    Trace trace;
    EXPECT_TRUE(trace.RealSamples.AllocateZeros(block.Memory, static_cast<std::int64_t>(values.size())));
    std::copy(values.begin(), values.end(), trace.RealSamples.Values().begin());
    return StatisticsOf(block, trace);
}

TEST(TraceStatistics, FindsExtremesRmsAndThePeakWithItsSign)
{
    const TraceStatistics statistics = OfReal({1, -7, 5, 7});

    EXPECT_EQ(statistics.minimum, -7);
    EXPECT_EQ(statistics.maximum, 7);
    EXPECT_DOUBLE_EQ(statistics.rms, std::sqrt(31.0));
    EXPECT_EQ(statistics.peak, -7);
    EXPECT_EQ(statistics.peakSample, 2);
}

TEST(TraceStatistics, LeavesOutWhatIsNotANumber)
{
    const TraceStatistics statistics = OfReal({NaN, 2, NaN, 2});

    EXPECT_EQ(statistics.notNumbers, 2);
    EXPECT_EQ(statistics.counted, 2);
    EXPECT_EQ(statistics.rms, 2);
    EXPECT_EQ(statistics.peakSample, 2);
}

TEST(TraceStatistics, OfNoNumberAtAllCountsNone)
{
    const TraceStatistics statistics = OfReal({NaN, NaN});

    EXPECT_EQ(statistics.counted, 0);
    EXPECT_EQ(statistics.rms, 0);
}

TEST(TraceStatistics, OfSmallValuesDoNotVanish) { EXPECT_DOUBLE_EQ(OfReal({1e-30F, 1e-30F}).rms, double{1e-30F}); }

TEST(TraceStatistics, AreOfTheMagnitudeWhereSamplesAreComplex)
{
    DataBlock block;
    block.DataFormat = 2;
    Trace trace;
    ASSERT_TRUE(trace.ComplexSamples.AllocateZeros(block.Memory, 2));
    trace.ComplexSamples[1] = {3, -4};
    trace.ComplexSamples[2] = {0, 1};

    const TraceStatistics statistics = StatisticsOf(block, trace);

    EXPECT_EQ(statistics.minimum, 1);
    EXPECT_EQ(statistics.peak, 5);
    EXPECT_EQ(statistics.peakSample, 1);
}

TEST(TraceStatistics, OfATraceWithoutSamplesCountNone)
{
    const DataBlock block;
    EXPECT_EQ(StatisticsOf(block, Trace()).counted, 0);
}

} // namespace
