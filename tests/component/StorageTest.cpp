// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Sizes, format and spacing of a Data Block: what the setters make of their values, and what a change of size
// keeps.
#include "component/DataBlockAccess.h"
#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

// ---- clamps and replaced values ----------------------------------------------------------------------------

TEST(DataBlock_NumberOfTraces, IsClampedTo0To32000)
{
    clsQOR_File file;
    const std::pair<std::int32_t, std::int32_t> setAndRead[] = {
        {1, 1},         {0, 0},  {32000, 32000}, {31999, 31999},        {32001, 32000},     {40000, 32000},
        {65536, 32000}, {-5, 0}, {-1, 0},        {LargestInt32, 32000}, {SmallestInt32, 0},
    };
    for (const auto& [set, read] : setAndRead) {
        file.DataBlock_NumberOfTraces(set);
        EXPECT_EQ(file.DataBlock_NumberOfTraces(), read) << set;
        EXPECT_EQ(file.ErrorStatus(), NoError) << set;
    }
}

TEST(DataBlock_NumberOfSamples, CountsANegativeValueAsZero)
{
    clsQOR_File file;
    const std::pair<std::int32_t, std::int32_t> setAndRead[] = {{5, 5}, {-1, 0}, {7, 7}, {SmallestInt32, 0}, {0, 0}};
    for (const auto& [set, read] : setAndRead) {
        file.DataBlock_NumberOfSamples(set);
        EXPECT_EQ(file.DataBlock_NumberOfSamples(), read) << set;
        EXPECT_EQ(file.ErrorStatus(), NoError) << set;
    }
}

TEST(DataBlock_NumberOfSamples, IsNotClampedWhileThereIsNothingToAllocate)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(LargestInt32);
    EXPECT_EQ(file.DataBlock_NumberOfSamples(), LargestInt32);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(DataBlock_TraceDataFormat, TakesAnUndeclaredValueForReal)
{
    clsQOR_File file;
    for (const std::int32_t undeclared : {0, 4, 7, -1, LargestInt32, SmallestInt32, 65538}) {
        file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
        file.DataBlock_TraceDataFormat(static_cast<DataBlock_DataFormatTypes>(undeclared));
        EXPECT_EQ(file.DataBlock_TraceDataFormat(), DataFormat_Real) << undeclared;
    }
}

TEST(DataBlock_TraceDataFormat, ReadsBackEachDeclaredFormat)
{
    clsQOR_File file;
    for (const auto format : {DataFormat_Real, DataFormat_RealImaginary, DataFormat_MgnitudePhase}) {
        file.DataBlock_TraceDataFormat(format);
        EXPECT_EQ(file.DataBlock_TraceDataFormat(), format);
    }
}

TEST(DataBlock_TraceDataFormat, OfAComplexBlockIsReadAsWhatThisObjectLastChose)
{
    clsQOR_File chooses;
    clsQOR_File looksOn;
    chooses.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    EXPECT_EQ(looksOn.DataBlock_TraceDataFormat(), DataFormat_Undefined) << "it never chose one";
    EXPECT_EQ(chooses.DataBlock_TraceDataFormat(), DataFormat_MgnitudePhase);
}

TEST(DataBlock_TraceDataFormat, TurnsFromRealToComplexWhenAnotherObjectMadeTheBlockComplex)
{
    clsQOR_File first;
    clsQOR_File second;
    first.DataBlock_TraceDataFormat(DataFormat_Real);
    second.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    EXPECT_EQ(first.DataBlock_TraceDataFormat(), DataFormat_RealImaginary);
}

TEST(DataBlock_TraceDataFormat, OfARealBlockIsRealWhateverThisObjectChose)
{
    clsQOR_File first;
    clsQOR_File second;
    first.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    second.DataBlock_TraceDataFormat(DataFormat_Real);
    EXPECT_EQ(first.DataBlock_TraceDataFormat(), DataFormat_Real);
    // Reading it was enough to forget the earlier choice.
    second.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    EXPECT_EQ(first.DataBlock_TraceDataFormat(), DataFormat_RealImaginary);
}

TEST(DataBlock_XaxisSpacing, TakesAnUndeclaredValueForUniform)
{
    clsQOR_File file;
    for (const std::int32_t undeclared : {0, 4, -1, LargestInt32, SmallestInt32, 65538}) {
        file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);
        file.DataBlock_XaxisSpacing(static_cast<DataBlock_XaxisSpacingTypes>(undeclared));
        EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform) << undeclared;
    }
}

TEST(DataBlock_XaxisSpacing, ReadsBackEachDeclaredSpacing)
{
    clsQOR_File file;
    for (const auto spacing : {XaxisSpacing_NonUniform, XaxisSpacing_Octave, XaxisSpacing_Uniform}) {
        file.DataBlock_XaxisSpacing(spacing);
        EXPECT_EQ(file.DataBlock_XaxisSpacing(), spacing);
    }
}

TEST(DataBlock_XaxisStart, KeepsAnyValue)
{
    clsQOR_File file;
    for (const float value : {1.5F, -2.5F, 0.0F, -0.0F, 1e-45F, std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN()}) {
        file.DataBlock_XaxisStart(value);
        EXPECT_EQ(Bits(file.DataBlock_XaxisStart()), Bits(value)) << value;
    }
}

TEST(DataBlock_XaxisIncrement, StoresOneForWhatIsNotAboveZero)
{
    clsQOR_File file;
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const float value : {0.0F, -0.0F, -2.5F, -1e-45F, -infinity, std::numeric_limits<float>::quiet_NaN()}) {
        file.DataBlock_XaxisIncrement(2);
        file.DataBlock_XaxisIncrement(value);
        EXPECT_EQ(Bits(file.DataBlock_XaxisIncrement()), Bits(1)) << value;
    }
}

TEST(DataBlock_XaxisIncrement, KeepsEveryPositiveValue)
{
    clsQOR_File file;
    for (const float value : {1e-45F, 0.25F, 1.0F, 3e38F, std::numeric_limits<float>::infinity()}) {
        file.DataBlock_XaxisIncrement(value);
        EXPECT_EQ(Bits(file.DataBlock_XaxisIncrement()), Bits(value)) << value;
    }
}

TEST(DataBlock_Texts, AreKeptAsGiven)
{
    clsQOR_File file;
    const std::u16string texts[] = {u"plain", u"", u"  blanks around  ", {u'a', u'\0', u'b'}, {0xD800, u'x', 0x00E4}};
    for (const std::u16string& text : texts) {
        file.DataBlock_Label(text);
        file.DataBlock_Notes(text + u"1");
        file.DataBlock_XaxisUnits(text + u"2");
        EXPECT_EQ(file.DataBlock_Label(), text);
        EXPECT_EQ(file.DataBlock_Notes(), text + u"1");
        EXPECT_EQ(file.DataBlock_XaxisUnits(), text + u"2");
    }
}

// ---- what a change of size keeps -----------------------------------------------------------------------------

TEST(Reallocation, NewSamplesAreZeroInEveryFormat)
{
    clsQOR_File file;
    for (const auto format : {DataFormat_Real, DataFormat_RealImaginary, DataFormat_MgnitudePhase}) {
        file.InitializeDataBlockStorage();
        Size(file, 2, 3, format);
        for (const std::int32_t trace : {1, 2}) {
            for (const std::int32_t sample : {1, 2, 3}) EXPECT_EQ(Read(file, trace, sample), Holds(0, 0));
        }
    }
}

TEST(Reallocation, MoreTracesKeepTheOnesThatWere)
{
    clsQOR_File file;
    Size(file, 2, 10);
    file.WriteTraceSampleValue(1, 1, 11, 0);
    file.WriteTraceSampleValue(2, 10, 210, 0);
    file.Trace_Label(2, u"second");

    file.DataBlock_NumberOfTraces(3);

    EXPECT_EQ(Read(file, 1, 1), Holds(11));
    EXPECT_EQ(Read(file, 2, 10), Holds(210));
    EXPECT_EQ(file.Trace_Label(2), u"second");
}

TEST(Reallocation, AnAddedTraceIsBlankWithSamplesOfZero)
{
    clsQOR_File file;
    Size(file, 2, 10);

    file.DataBlock_NumberOfTraces(3);

    for (std::int32_t sample = 1; sample <= 10; ++sample) EXPECT_EQ(Read(file, 3, sample), Holds(0));
    EXPECT_EQ(file.Trace_Label(3), u"");
    EXPECT_EQ(file.Trace_DateAndTime(3), u"");
    EXPECT_EQ(file.Trace_DegreesOfFreedom(3), u"");
    EXPECT_EQ(file.Trace_MeasurementUnits(3), u"");
    EXPECT_EQ(file.Trace_MeasurementType(3), DB_MeasurementIsUndefined);
    EXPECT_EQ(file.Trace_DataSVT(3), DataIsVector);
    EXPECT_EQ(ClassAdd_1().TraceLinPower(3), MeasurementIsLinear);
    EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(3), u"");
}

TEST(Reallocation, FewerTracesDropTheLastOnesForGood)
{
    clsQOR_File file;
    Size(file, 3, 2);
    for (const std::int32_t trace : {1, 2, 3}) {
        file.WriteTraceSampleValue(trace, 1, static_cast<float>(trace), 0);
        file.Trace_Label(trace, u"label");
    }

    file.DataBlock_NumberOfTraces(2);
    file.DataBlock_NumberOfTraces(3);

    EXPECT_EQ(Read(file, 2, 1), Holds(2));
    EXPECT_EQ(file.Trace_Label(2), u"label");
    EXPECT_EQ(Read(file, 3, 1), Holds(0));
    EXPECT_EQ(file.Trace_Label(3), u"");
}

TEST(Reallocation, NoTracesDropThemAll)
{
    clsQOR_File file;
    Size(file, 1, 2);
    file.WriteTraceSampleValue(1, 1, 5, 0);

    file.DataBlock_NumberOfTraces(0);
    file.DataBlock_NumberOfTraces(1);

    EXPECT_EQ(Read(file, 1, 1), Holds(0));
    EXPECT_EQ(file.DataBlock_NumberOfSamples(), 2);
}

TEST(Reallocation, MoreSamplesKeepTheOnesThatWereAndAddZeros)
{
    clsQOR_File file;
    Size(file, 2, 3, DataFormat_RealImaginary);
    file.WriteTraceSampleValue(1, 1, 1, 2);
    file.WriteTraceSampleValue(2, 3, 3, 4);

    file.DataBlock_NumberOfSamples(5);

    EXPECT_EQ(Read(file, 1, 1), Holds(1, 2));
    EXPECT_EQ(Read(file, 2, 3), Holds(3, 4));
    EXPECT_EQ(Read(file, 2, 4), Holds(0, 0));
    EXPECT_EQ(Read(file, 1, 5), Holds(0, 0));
}

TEST(Reallocation, FewerSamplesDropTheLastOnesForGood)
{
    clsQOR_File file;
    Size(file, 1, 3);
    for (const std::int32_t sample : {1, 2, 3}) file.WriteTraceSampleValue(1, sample, 7, 0);

    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_NumberOfSamples(3);

    EXPECT_EQ(Read(file, 1, 2), Holds(7));
    EXPECT_EQ(Read(file, 1, 3), Holds(0));
}

// Small arrays lie close together in memory.
TEST(Reallocation, ArraysOfAnySizeStayApart)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(40);
    for (const std::int32_t samples : {1, 2, 3, 5, 100, 1000, 9'999, 10'001, 30'000}) {
        file.DataBlock_NumberOfSamples(samples);
        const auto valueOf = [](std::int32_t trace, std::int32_t sample) {
            return static_cast<float>(trace * 100'000 + sample);
        };
        for (std::int32_t trace = 1; trace <= 40; ++trace) {
            for (std::int32_t i = 1; i <= samples; ++i) file.WriteTraceSampleValue(trace, i, valueOf(trace, i), 0);
        }
        bool apart = true;
        for (std::int32_t trace = 1; trace <= 40; ++trace) {
            for (std::int32_t i = 1; i <= samples; ++i) apart &= Read(file, trace, i) == Holds(valueOf(trace, i));
        }
        EXPECT_TRUE(apart) << samples;
    }
}

// Arrays of this size are held apart from small ones.
TEST(Reallocation, LargeArraysKeepTheirSamplesToo)
{
    clsQOR_File file;
    Size(file, 1, 1'000'000);
    file.WriteTraceSampleValue(1, 1, 1, 0);
    file.WriteTraceSampleValue(1, 999'999, 2, 0);

    file.DataBlock_NumberOfSamples(2'000'000);
    EXPECT_EQ(Read(file, 1, 999'999), Holds(2));
    EXPECT_EQ(Read(file, 1, 2'000'000), Holds(0));

    file.DataBlock_NumberOfSamples(3);
    EXPECT_EQ(Read(file, 1, 1), Holds(1));
    EXPECT_EQ(Read(file, 1, 3), Holds(0));
}

TEST(Reallocation, NegativeNumberOfSamplesReleasesSamplesAndKeepsTraces)
{
    clsQOR_File file;
    Size(file, 2, 4);
    file.WriteTraceSampleValue(2, 4, 9, 0);
    file.Trace_Label(2, u"stays");

    file.DataBlock_NumberOfSamples(-1);

    EXPECT_EQ(file.DataBlock_NumberOfSamples(), 0);
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 2);
    EXPECT_EQ(file.Trace_Label(2), u"stays");
    EXPECT_EQ(Read(file, 2, 4), Refused());
    file.DataBlock_NumberOfSamples(4);
    EXPECT_EQ(Read(file, 2, 4), Holds(0));
}

TEST(Reallocation, SettingASizeToItsValueKeepsEverything)
{
    clsQOR_File file;
    Size(file, 2, 3, DataFormat_RealImaginary);
    file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);
    file.WriteTraceSampleValue(2, 3, 5, 6);
    file.WriteDataBlockXaxisValue(3, 7);

    Size(file, 2, 3, DataFormat_RealImaginary);
    file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);

    EXPECT_EQ(Read(file, 2, 3), Holds(5, 6));
    EXPECT_EQ(ReadX(file, 3), (XaxisRead{Success, 7}));
}

TEST(Reallocation, AChangeOfFormatDiscardsTheSamples)
{
    clsQOR_File file;
    Size(file, 1, 2);
    file.WriteTraceSampleValue(1, 1, 5, 0);
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    EXPECT_EQ(Read(file, 1, 1), Holds(0, 0));

    file.WriteTraceSampleValue(1, 1, 6, 7);
    file.DataBlock_TraceDataFormat(DataFormat_Real);
    EXPECT_EQ(Read(file, 1, 1), Holds(0)) << "neither the complex sample nor the real one from before";

    file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    EXPECT_EQ(Read(file, 1, 1), Holds(0, 0));
}

TEST(Reallocation, RealImaginaryAndMagnitudePhaseAreTheSameSamples)
{
    clsQOR_File file;
    Size(file, 1, 1, DataFormat_RealImaginary);
    file.WriteTraceSampleValue(1, 1, 3, 4);
    file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    EXPECT_EQ(Read(file, 1, 1).first, 5);
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    EXPECT_EQ(Read(file, 1, 1), Holds(3, 4));
}

TEST(Reallocation, AChangeOfFormatKeepsTraceFieldsAndXaxis)
{
    clsQOR_File file;
    Size(file, 1, 2);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.WriteDataBlockXaxisValue(2, 8);
    file.Trace_Label(1, u"label");
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    EXPECT_EQ(file.Trace_Label(1), u"label");
    EXPECT_EQ(ReadX(file, 2), (XaxisRead{Success, 8}));
}

// ---- X axis ----------------------------------------------------------------------------------------------

TEST(Reallocation, ExplicitXValuesAppearAsZerosWithTheSpacing)
{
    for (const auto spacing : {XaxisSpacing_NonUniform, XaxisSpacing_Octave}) {
        clsQOR_File file;
        file.DataBlock_NumberOfSamples(8);
        file.DataBlock_XaxisSpacing(spacing);
        for (std::int32_t sample = 1; sample <= 8; ++sample) EXPECT_EQ(ReadX(file, sample), (XaxisRead{Success, 0}));
    }
}

TEST(Reallocation, ExplicitXValuesAppearWithTheSamples)
{
    clsQOR_File file;
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    EXPECT_EQ(ReadX(file, 1), XaxisRead{});
    file.DataBlock_NumberOfSamples(2);
    EXPECT_EQ(ReadX(file, 2), (XaxisRead{Success, 0}));
}

TEST(Reallocation, UniformSpacingReleasesTheXValues)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(8);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.WriteDataBlockXaxisValue(1, 5);

    file.DataBlock_XaxisSpacing(XaxisSpacing_Uniform);
    EXPECT_EQ(ReadX(file, 1), XaxisRead{});
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);

    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    EXPECT_EQ(ReadX(file, 1), (XaxisRead{Success, 0}));
}

TEST(Reallocation, NoSamplesReleaseTheXValues)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.WriteDataBlockXaxisValue(1, 5);

    file.DataBlock_NumberOfSamples(0);
    EXPECT_EQ(ReadX(file, 1), XaxisRead{});
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);

    file.DataBlock_NumberOfSamples(2);
    EXPECT_EQ(ReadX(file, 1), (XaxisRead{Success, 0}));
}

TEST(Reallocation, XValuesThatFitAreKept)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(3);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    for (const std::int32_t sample : {1, 2, 3}) file.WriteDataBlockXaxisValue(sample, static_cast<float>(sample));

    file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_NumberOfSamples(4);

    EXPECT_EQ(ReadX(file, 1), (XaxisRead{Success, 1}));
    EXPECT_EQ(ReadX(file, 2), (XaxisRead{Success, 2}));
    EXPECT_EQ(ReadX(file, 3), (XaxisRead{Success, 0}));
    EXPECT_EQ(ReadX(file, 4), (XaxisRead{Success, 0}));
}

// ---- order of the setters --------------------------------------------------------------------------------

TEST(Reallocation, TheOrderOfTheSettersDoesNotMatter)
{
    std::array<int, 4> order = {0, 1, 2, 3};
    do {
        clsQOR_File file;
        for (const int step : order) {
            switch (step) {
            case 0: file.DataBlock_NumberOfTraces(3); break;
            case 1: file.DataBlock_NumberOfSamples(4); break;
            case 2: file.DataBlock_TraceDataFormat(DataFormat_RealImaginary); break;
            default: file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform); break;
            }
        }
        for (std::int32_t sample = 1; sample <= 4; ++sample) {
            EXPECT_EQ(file.WriteDataBlockXaxisValue(sample, 0.5F), Success);
            EXPECT_EQ(ReadX(file, sample), (XaxisRead{Success, 0.5F}));
            for (std::int32_t trace = 1; trace <= 3; ++trace) {
                const auto value = static_cast<float>(10 * trace + sample);
                EXPECT_EQ(file.WriteTraceSampleValue(trace, sample, value, -value), Success);
                EXPECT_EQ(Read(file, trace, sample), Holds(value, -value));
            }
        }
        EXPECT_EQ(Read(file, 3, 5), Refused());
        EXPECT_EQ(Read(file, 4, 4), Refused());
    } while (std::next_permutation(order.begin(), order.end()));
}

// ---- counts of a damaged file -------------------------------------------------------------------------------

TEST(NegativeNumberOfTraces, OfAFileIsShownAndNoTraceIsThere)
{
    OnAThreadOfItsOwn([] {
        const TemporaryFolder folder;
        WriteBytes(folder / "damaged.blk", DataBlockFile().Field(4, Int32(5)).Field(3, Int16(-3)).Build());
        clsQOR_File file;
        EXPECT_EQ(file.InputDataBlockFile(Utf16(folder / "damaged.blk")), Failure);

        EXPECT_EQ(file.DataBlock_NumberOfTraces(), -3);
        EXPECT_EQ(Read(file, 1, 1), Refused());
        EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
        EXPECT_EQ(file.WriteTraceSampleValue(-3, 1, 1, 1), Failure);
        EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
        file.DataBlock_NumberOfTraces(1);
        EXPECT_EQ(Read(file, 1, 5), Holds(0, 0));
    });
}

} // namespace
} // namespace qor::test
