// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reading and writing single samples and explicit X values: the checks in their order, the three formats, and
// sample number 0, which the checks let pass.
#include "component/DataBlockAccess.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

// ---- checks ------------------------------------------------------------------------------------------------

struct RefusedAccess {
    const char* name;
    std::int32_t traces;
    std::int32_t samples;
    std::int32_t trace;
    std::int32_t sample;
    ErrorStatusTypes error;
};

constexpr RefusedAccess RefusedAccesses[] = {
    {"EmptyBlock", 0, 0, 1, 1, TraceDataNotAllocated},
    {"NoTracesComesBeforeTheTraceNumber", 0, 5, 0, 1, TraceDataNotAllocated},
    {"SamplesButNoTraces", 0, 5, 1, 1, TraceDataNotAllocated},
    {"TraceZero", 2, 3, 0, 1, TraceIndexError},
    {"TraceNegative", 2, 3, -1, 1, TraceIndexError},
    {"TraceSmallest", 2, 3, SmallestInt32, 1, TraceIndexError},
    {"TraceOneTooMany", 2, 3, 3, 1, TraceIndexError},
    {"TraceLargest", 2, 3, LargestInt32, 1, TraceIndexError},
    {"TraceNumberComesBeforeNoSamples", 2, 0, 3, 1, TraceIndexError},
    {"TraceNumberComesBeforeSampleNumber", 2, 3, 3, 4, TraceIndexError},
    {"NoSamples", 2, 0, 1, 1, TraceDataNotAllocated},
    {"NoSamplesComesBeforeTheSampleNumber", 2, 0, 1, -1, TraceDataNotAllocated},
    {"NoSamplesSampleZero", 2, 0, 1, 0, TraceDataNotAllocated},
    {"SampleNegative", 2, 3, 1, -1, SampleIndexError},
    {"SampleSmallest", 2, 3, 1, SmallestInt32, SampleIndexError},
    {"SampleOneTooMany", 2, 3, 1, 4, SampleIndexError},
    {"SampleLargest", 2, 3, 1, LargestInt32, SampleIndexError},
};

class RefusedSample : public testing::TestWithParam<std::tuple<RefusedAccess, DataBlock_DataFormatTypes>>
{
protected:
    void SetUp() override
    {
        Size(file, access.traces, access.samples, std::get<1>(GetParam()));
        for (std::int32_t trace = 1; trace <= access.traces; ++trace) {
            for (std::int32_t sample = 1; sample <= access.samples; ++sample) {
                file.WriteTraceSampleValue(trace, sample, 2, 0);
            }
        }
    }

    const RefusedAccess access = std::get<0>(GetParam());
    clsQOR_File file;
};

TEST_P(RefusedSample, IsReportedByARead)
{
    EXPECT_EQ(Read(file, access.trace, access.sample), Refused());
    EXPECT_EQ(file.ErrorStatus(), access.error);
}

TEST_P(RefusedSample, IsReportedByAWrite)
{
    EXPECT_EQ(file.WriteTraceSampleValue(access.trace, access.sample, 9, 9), Failure);
    EXPECT_EQ(file.ErrorStatus(), access.error);
}

TEST_P(RefusedSample, IsNotWrittenAnywhereElse)
{
    file.WriteTraceSampleValue(access.trace, access.sample, 9, 9);
    for (std::int32_t trace = 1; trace <= access.traces; ++trace) {
        for (std::int32_t sample = 1; sample <= access.samples; ++sample) {
            EXPECT_EQ(Read(file, trace, sample), Holds(2, 0));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    SampleAccess, RefusedSample,
    testing::Combine(testing::ValuesIn(RefusedAccesses),
                     testing::Values(DataFormat_Real, DataFormat_RealImaginary, DataFormat_MgnitudePhase)),
    [](const auto& each) { return std::get<0>(each.param).name + std::to_string(std::get<1>(each.param)); });

// ---- formats -------------------------------------------------------------------------------------------------

TEST(SampleAccess, EverySampleIsAPlaceOfItsOwn)
{
    for (const auto format : {DataFormat_Real, DataFormat_RealImaginary}) {
        clsQOR_File file;
        Size(file, 3, 4, format);
        for (std::int32_t trace = 1; trace <= 3; ++trace) {
            for (std::int32_t sample = 1; sample <= 4; ++sample) {
                EXPECT_EQ(file.WriteTraceSampleValue(trace, sample, static_cast<float>(10 * trace + sample),
                                                     static_cast<float>(-sample)),
                          Success);
            }
        }
        for (std::int32_t trace = 1; trace <= 3; ++trace) {
            for (std::int32_t sample = 1; sample <= 4; ++sample) {
                const float imaginary = format == DataFormat_Real ? 0.0F : static_cast<float>(-sample);
                EXPECT_EQ(Read(file, trace, sample), Holds(static_cast<float>(10 * trace + sample), imaginary));
            }
        }
    }
}

TEST(SampleAccess, ARealSampleHasNoImaginaryPart)
{
    clsQOR_File file;
    Size(file, 1, 1);
    EXPECT_EQ(file.WriteTraceSampleValue(1, 1, 2.5F, 99), Success);
    EXPECT_EQ(Read(file, 1, 1), Holds(2.5F, 0));
}

TEST(SampleAccess, ValuesPassBitByBit)
{
    clsQOR_File file;
    const float odd[] = {-0.0F, 1e-45F, 3.4028235e38F, std::numeric_limits<float>::infinity(),
                         std::bit_cast<float>(0x7FC12345U)};
    for (const float value : odd) {
        Size(file, 1, 1, DataFormat_Real);
        file.WriteTraceSampleValue(1, 1, value, 0);
        EXPECT_EQ(Read(file, 1, 1), Holds(value));
        Size(file, 1, 1, DataFormat_RealImaginary);
        file.WriteTraceSampleValue(1, 1, value, value);
        EXPECT_EQ(Read(file, 1, 1), Holds(value, value));
    }
}

TEST(SampleAccess, MagnitudeAndPhaseAreStoredAsRealAndImaginary)
{
    clsQOR_File file;
    Size(file, 1, 1, DataFormat_MgnitudePhase);
    EXPECT_EQ(file.WriteTraceSampleValue(1, 1, 2, 90), Success);
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    // Not 0: pi is cut behind its fourteenth decimal.
    EXPECT_EQ(Read(file, 1, 1), Holds(std::bit_cast<float>(0x2768D313U), 2));
}

struct SeenAsMagnitudePhase {
    float real, imaginary, magnitude, phase;
};

TEST(SampleAccess, RealAndImaginaryAreSeenAsMagnitudeAndPhaseOf0To360)
{
    constexpr SeenAsMagnitudePhase table[] = {
        {-1, 0, 1, 180},
        {0, -1, 1, 270},
        {0, 1, 1, 90},
        {0, 0, 0, 0},
        {2, 0, 2, 0},
        {3, 4, 5, std::bit_cast<float>(0x4254853AU)}, // 53.130104
        {1, -1, std::bit_cast<float>(0x3FB504F3U), 315},
        {-1, -1, std::bit_cast<float>(0x3FB504F3U), 225},
        {-1, 1, std::bit_cast<float>(0x3FB504F3U), 135},
    };
    clsQOR_File file;
    for (const auto& [real, imaginary, magnitude, phase] : table) {
        Size(file, 1, 1, DataFormat_RealImaginary);
        file.WriteTraceSampleValue(1, 1, real, imaginary);
        file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
        EXPECT_EQ(Read(file, 1, 1), Holds(magnitude, phase)) << real << " " << imaginary;
    }
}

TEST(SampleAccess, AWrittenMagnitudeOrPhaseThatIsNotFiniteStoresZero)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    clsQOR_File file;
    const std::pair<float, float> magnitudeAndPhase[] = {
        {infinity, 0}, {1, infinity}, {nan, 0}, {1, nan}, {1, -infinity}};
    for (const auto& [magnitude, phase] : magnitudeAndPhase) {
        Size(file, 1, 1, DataFormat_RealImaginary);
        file.WriteTraceSampleValue(1, 1, 5, 5);
        file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
        EXPECT_EQ(file.WriteTraceSampleValue(1, 1, magnitude, phase), Success);
        EXPECT_EQ(Read(file, 1, 1), Holds(0, 0)) << magnitude << " " << phase;
    }
}

TEST(SampleAccess, TheViewIsTheObjectsOwn)
{
    clsQOR_File polar;
    clsQOR_File cartesian;
    Size(polar, 1, 1, DataFormat_MgnitudePhase);
    polar.WriteTraceSampleValue(1, 1, 5, 180);
    EXPECT_EQ(Read(polar, 1, 1).first, 5);
    EXPECT_EQ(Read(cartesian, 1, 1).first, -5) << "it never chose magnitude and phase";
}

// Only a get of the format looks at what another object made of the block; a sample's read or write does not.
TEST(SampleAccess, OfABlockThatIsRealForAWhileKeepsTheView)
{
    clsQOR_File polar;
    clsQOR_File other;
    Size(polar, 1, 1, DataFormat_MgnitudePhase);
    other.DataBlock_TraceDataFormat(DataFormat_Real);
    EXPECT_EQ(polar.WriteTraceSampleValue(1, 1, 7, 0), Success);
    EXPECT_EQ(Read(polar, 1, 1), Holds(7));
    other.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    other.WriteTraceSampleValue(1, 1, 0, -2);
    EXPECT_EQ(Read(polar, 1, 1), Holds(2, 270));
}

// ---- sample number 0 -----------------------------------------------------------------------------------------

TEST(SampleZero, ReadOfARealTraceSetsTheImaginaryValueOnly)
{
    clsQOR_File file;
    Size(file, 2, 3);
    EXPECT_EQ(Read(file, 2, 0), Holds(UntouchedFirst, 0));
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(SampleZero, ReadOfAComplexTraceLeavesBothValues)
{
    clsQOR_File file;
    for (const auto format : {DataFormat_RealImaginary, DataFormat_MgnitudePhase}) {
        Size(file, 2, 3, format);
        EXPECT_EQ(Read(file, 2, 0), Holds(UntouchedFirst, UntouchedSecond));
        EXPECT_EQ(file.ErrorStatus(), NoError);
    }
}

TEST(SampleZero, WriteStoresNothingAndSucceeds)
{
    for (const auto format : {DataFormat_Real, DataFormat_RealImaginary, DataFormat_MgnitudePhase}) {
        clsQOR_File file;
        Size(file, 2, 3, format);
        EXPECT_EQ(file.WriteTraceSampleValue(2, 0, 9, 9), Success);
        EXPECT_EQ(file.ErrorStatus(), NoError);
        for (const std::int32_t trace : {1, 2}) {
            for (const std::int32_t sample : {1, 2, 3}) EXPECT_EQ(Read(file, trace, sample), Holds(0, 0));
        }
    }
}

// ---- X axis --------------------------------------------------------------------------------------------------

TEST(XaxisAccess, FailsForUniformSpacingAlthoughThereAreSamples)
{
    clsQOR_File file;
    Size(file, 1, 5);
    EXPECT_EQ(ReadX(file, 1), XaxisRead{});
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
    EXPECT_EQ(file.WriteDataBlockXaxisValue(1, 2), Failure);
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
}

TEST(XaxisAccess, FailsWithoutSamples)
{
    clsQOR_File file;
    file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);
    EXPECT_EQ(ReadX(file, 1), XaxisRead{});
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
    EXPECT_EQ(file.WriteDataBlockXaxisValue(1, 2), Failure);
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
}

TEST(XaxisAccess, AMissingXaxisComesBeforeTheSampleNumber)
{
    clsQOR_File file;
    EXPECT_EQ(ReadX(file, 0), XaxisRead{});
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
}

TEST(XaxisAccess, RefusesSampleNumbersOutside1ToTheNumberOfSamples)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(3);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    for (const std::int32_t sample : {0, -1, 4, LargestInt32, SmallestInt32}) {
        EXPECT_EQ(ReadX(file, sample), XaxisRead{}) << sample;
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError) << sample;
        EXPECT_EQ(file.WriteDataBlockXaxisValue(sample, 9), Failure) << sample;
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError) << sample;
    }
    for (const std::int32_t sample : {1, 2, 3}) EXPECT_EQ(ReadX(file, sample), (XaxisRead{Success, 0}));
}

TEST(XaxisAccess, NeedsNoTraces)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    EXPECT_EQ(file.WriteDataBlockXaxisValue(1, 3), Success);
    EXPECT_EQ(file.WriteDataBlockXaxisValue(2, -0.0F), Success);
    EXPECT_EQ(ReadX(file, 1), (XaxisRead{Success, 3}));
    EXPECT_EQ(ReadX(file, 2), (XaxisRead{Success, -0.0F}));
}

TEST(XaxisAccess, IsRefusedToAnObjectThatDoesNotKnowOfTheXaxis)
{
    clsQOR_File builds;
    clsQOR_File looksOn;
    builds.DataBlock_NumberOfSamples(2);
    builds.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    EXPECT_EQ(ReadX(looksOn, 1), XaxisRead{});
    EXPECT_EQ(looksOn.ErrorStatus(), XaxisNotAllocated);
}

TEST(XaxisAccess, OfAnObjectThatStillBelievesInAReleasedXaxisLeavesTheValue)
{
    clsQOR_File believes;
    clsQOR_File releases;
    believes.DataBlock_NumberOfSamples(2);
    believes.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    releases.DataBlock_XaxisSpacing(XaxisSpacing_Uniform);
    EXPECT_EQ(ReadX(believes, 1), (XaxisRead{Success, UntouchedFirst}));
    EXPECT_EQ(believes.WriteDataBlockXaxisValue(1, 5), Success);
    EXPECT_EQ(believes.ErrorStatus(), NoError);
}

} // namespace
} // namespace qor::test
