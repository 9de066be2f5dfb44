// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Samples and X values of a Data Block as whole arrays: what is read and written, what is refused, and who sees what.
#include "component/ArrayAccess.h"
#include "component/modQOR_File.h"
#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <bit>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <string>

namespace qor::test {
namespace {

// ---- samples -----------------------------------------------------------------------------------------------------

TEST(TraceSamples, OfARealTraceAreReadWithZerosBeside)
{
    clsQOR_File file;
    Size(file, 2, 3);
    for (std::int32_t n = 1; n <= 3; ++n) file.WriteTraceSampleValue(2, n, static_cast<float>(10 * n), 0);

    EXPECT_EQ(ReadTrace(FileArrays(file), 2, 3, 3), Holds({10, 20, 30}, {0, 0, 0}));
    EXPECT_EQ(ReadTrace(FileArrays(file), 2, 3, 0), Holds({10, 20, 30}, {}));
    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 3, 0), Holds({0, 0, 0}, {}));
}

TEST(TraceSamples, OfARealTraceAreWrittenWhateverStandsBeside)
{
    clsQOR_File file;
    Size(file, 2, 3);

    EXPECT_EQ(FileArrays(file).WriteTraceSamples(2, Values{1, 2, 3}, Values{7, 8, 9}), Success);

    for (std::int32_t n = 1; n <= 3; ++n) EXPECT_EQ(Read(file, 2, n), Holds(static_cast<float>(n)));
    for (std::int32_t n = 1; n <= 3; ++n) EXPECT_EQ(Read(file, 1, n), Holds(0)) << "another trace";
}

TEST(TraceSamples, OfAComplexTraceAreReadAndWrittenInParts)
{
    clsQOR_File file;
    Size(file, 2, 3, DataFormat_RealImaginary);

    EXPECT_EQ(FileArrays(file).WriteTraceSamples(2, Values{1, 2, 3}, Values{-4, -5, -6}), Success);

    for (std::int32_t n = 1; n <= 3; ++n) {
        EXPECT_EQ(Read(file, 2, n), Holds(static_cast<float>(n), static_cast<float>(-3 - n)));
    }
    EXPECT_EQ(ReadTrace(FileArrays(file), 2, 3, 3), Holds({1, 2, 3}, {-4, -5, -6}));
}

TEST(TraceSamples, HaveImaginaryPartsOfZeroWhereNoneAreGiven)
{
    clsQOR_File file;
    Size(file, 1, 2, DataFormat_RealImaginary);
    FileArrays(file).WriteTraceSamples(1, Values{1, 2}, Values{3, 4});

    EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, Values{5, 6}, {}), Success);

    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 2, 2), Holds({5, 6}, {0, 0}));
    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 2, 0), Holds({5, 6}, {}));
}

TEST(TraceSamples, AreMagnitudesAndPhasesToAnObjectThatChoseThem)
{
    clsQOR_File file;
    Size(file, 1, 3, DataFormat_MgnitudePhase);

    EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, Values{2, 5, 0.5F}, Values{0, 270, 90}), Success);

    const ArrayRead seen = ReadTrace(FileArrays(file), 1, 3, 3);
    for (std::int32_t n = 1; n <= 3; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        EXPECT_EQ(Read(file, 1, n), Holds(seen.first[i], seen.second[i]));
    }
    EXPECT_EQ(seen, Holds({2, 5, 0.5F}, {0, 270, 90}));
    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 3, 0), Holds({2, 5, 0.5F}, {})) << "magnitudes alone";
}

TEST(TraceSamples, WithoutPhasesAreWrittenAtPhaseZero)
{
    clsQOR_File file;
    Size(file, 1, 2, DataFormat_MgnitudePhase);
    const float infinity = std::numeric_limits<float>::infinity();

    EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, Values{-3, infinity}, {}), Success);

    EXPECT_EQ(ReadTrace(FileArrays(), 1, 2, 2), Holds({-3, 0}, {-0.0F, 0})) << "an infinite magnitude is a fault";
}

TEST(TraceSamples, AreSeenByEachObjectInTheFormatOfItsOwn)
{
    clsQOR_File polar;
    clsQOR_File cartesian;
    Size(polar, 1, 2, DataFormat_MgnitudePhase);
    cartesian.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    FileArrays(cartesian).WriteTraceSamples(1, Values{3, 0}, Values{4, -1});

    EXPECT_EQ(ReadTrace(FileArrays(cartesian), 1, 2, 2), Holds({3, 0}, {4, -1}));
    EXPECT_EQ(ReadTrace(FileArrays(), 1, 2, 2), Holds({3, 0}, {4, -1})) << "as they are stored";
    const ArrayRead seen = ReadTrace(FileArrays(polar), 1, 2, 2);
    EXPECT_EQ(seen.first, (Values{5, 1}));
    EXPECT_EQ(Holds(seen.first[0], seen.second[0]), Read(polar, 1, 1));
    EXPECT_EQ(seen.second[1], 270);
}

TEST(TraceSamples, KeepTheBitsOfNaNsAndInfinities)
{
    using Limits = std::numeric_limits<float>;
    const Values odd = {std::bit_cast<float>(0x7F800001U),
                        std::bit_cast<float>(0xFFC12345U),
                        Limits::infinity(),
                        -Limits::infinity(),
                        -0.0F,
                        Limits::denorm_min()};
    const Values reversed(odd.rbegin(), odd.rend());
    clsQOR_File file;
    for (const auto format : {DataFormat_Real, DataFormat_RealImaginary}) {
        Size(file, 1, 6, format);

        EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, odd, reversed), Success);

        const ArrayRead seen = ReadTrace(FileArrays(file), 1, 6, 6);
        EXPECT_TRUE(SameBits(seen.first, odd));
        EXPECT_TRUE(SameBits(seen.second, format == DataFormat_Real ? Values(6, 0.0F) : reversed));
    }
}

// ---- refused samples -----------------------------------------------------------------------------------------------

struct RefusedTrace {
    const char* name;
    std::int32_t traces;
    std::int32_t samples;
    std::int32_t trace;
    std::size_t first;
    std::size_t second;
    ErrorStatusTypes error;
};

constexpr RefusedTrace RefusedTraces[] = {
    {"EmptyBlock", 0, 0, 1, 0, 0, TraceDataNotAllocated},
    {"NoTracesComesBeforeTheTraceNumber", 0, 3, 0, 3, 3, TraceDataNotAllocated},
    {"TraceZero", 2, 3, 0, 3, 3, TraceIndexError},
    {"TraceNegative", 2, 3, -1, 3, 3, TraceIndexError},
    {"TraceOneTooMany", 2, 3, 3, 3, 3, TraceIndexError},
    {"TraceNumberComesBeforeNoSamples", 2, 0, 3, 0, 0, TraceIndexError},
    {"TraceNumberComesBeforeTheLengths", 2, 3, 3, 2, 2, TraceIndexError},
    {"NoSamples", 2, 0, 1, 0, 0, TraceDataNotAllocated},
    {"NoSamplesComesBeforeTheLengths", 2, 0, 1, 1, 1, TraceDataNotAllocated},
    {"NoArrays", 2, 3, 1, 0, 0, SampleIndexError},
    {"FirstAbsent", 2, 3, 1, 0, 3, SampleIndexError},
    {"FirstTooShort", 2, 3, 1, 2, 3, SampleIndexError},
    {"FirstTooLong", 2, 3, 1, 4, 3, SampleIndexError},
    {"SecondTooShort", 2, 3, 1, 3, 2, SampleIndexError},
    {"SecondTooLong", 2, 3, 1, 3, 4, SampleIndexError},
    {"BothTooLong", 2, 3, 1, 4, 4, SampleIndexError},
};

class RefusedTraceSamples : public testing::TestWithParam<std::tuple<RefusedTrace, DataBlock_DataFormatTypes>>
{
protected:
    void SetUp() override
    {
        Size(file, access.traces, access.samples, std::get<1>(GetParam()));
        const Values twos(static_cast<std::size_t>(access.samples), 2);
        for (std::int32_t trace = 1; trace <= access.traces; ++trace) {
            FileArrays(file).WriteTraceSamples(trace, twos, {});
        }
        file.ErrorStatus();
    }
    // The index codes have texts, the codes of missing storage have none of their own.
    std::u16string Text() const
    {
        if (access.error == TraceIndexError) return u"Error (10): Trace Index error";
        return access.error == SampleIndexError ? u"Error (11): Sample Index error" : u"Error (13): Undefined error";
    }

    const RefusedTrace access = std::get<0>(GetParam());
    clsQOR_File file;
};

TEST_P(RefusedTraceSamples, AreReportedByAReadThatLeavesTheArrays)
{
    EXPECT_EQ(ReadTrace(FileArrays(file), access.trace, access.first, access.second),
              Untouched(access.first, access.second));
    EXPECT_EQ(file.GetLastErrorString(), Text());
    EXPECT_EQ(file.ErrorStatus(), access.error);
}

TEST_P(RefusedTraceSamples, AreReportedByAWriteThatChangesNothing)
{
    EXPECT_EQ(FileArrays(file).WriteTraceSamples(access.trace, Values(access.first, 9), Values(access.second, 9)),
              Failure);
    EXPECT_EQ(file.GetLastErrorString(), Text());
    EXPECT_EQ(file.ErrorStatus(), access.error);
    for (std::int32_t trace = 1; trace <= access.traces; ++trace) {
        for (std::int32_t n = 1; n <= access.samples; ++n) EXPECT_EQ(Read(file, trace, n), Holds(2));
    }
}

INSTANTIATE_TEST_SUITE_P(
    TraceSamples, RefusedTraceSamples,
    testing::Combine(testing::ValuesIn(RefusedTraces),
                     testing::Values(DataFormat_Real, DataFormat_RealImaginary, DataFormat_MgnitudePhase)),
    [](const auto& each) { return std::get<0>(each.param).name + std::to_string(std::get<1>(each.param)); });

// ---- damaged files
// ---------------------------------------------------------------------------------------------------

class TraceSamplesOfAFile : public testing::Test
{
protected:
    // A Data Block of that many samples, whose first trace brought three and whose second none.
    void Load(int format, const Bytes& samples, int claimed)
    {
        const Bytes bytes = SizedFile(2, 3, format)
                                .Field(11)
                                .Nested(TraceBytes().Field(17, samples))
                                .Nested(TraceBytes())
                                .Field(12)
                                .Field(4, Int32(claimed))
                                .Build();
        WriteBytes(folder / "damaged.blk", bytes);
        file.InputDataBlockFile(Utf16(folder / "damaged.blk"));
    }

    TemporaryFolder folder;
    clsQOR_File file;
    const float left = UntouchedFirst;
    const float beside = UntouchedSecond;
};

TEST_F(TraceSamplesOfAFile, LeaveWhatARealTraceLacksAsPassed)
{
    Load(1, Floats({1, 2, 3}), 5);

    EXPECT_EQ(FileArrays(file).NumberOfSamples(), 5);
    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 5, 5), Holds({1, 2, 3, left, left}, {0, 0, 0, 0, 0}));
    EXPECT_EQ(ReadTrace(FileArrays(file), 2, 5, 5), Holds(Values(5, left), Values(5, 0)));
}

TEST_F(TraceSamplesOfAFile, LeaveWhatAComplexTraceLacksAsPassed)
{
    Load(2, Floats({1, -1, 2, -2, 3, -3}), 4);

    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 4, 4), Holds({1, 2, 3, left}, {-1, -2, -3, beside}));
    EXPECT_EQ(ReadTrace(FileArrays(file), 2, 4, 4), Holds(Values(4, left), Values(4, beside)));
}

TEST_F(TraceSamplesOfAFile, StoreWhatTheTraceHasRoomFor)
{
    for (const int format : {1, 2}) {
        Load(format, format == 1 ? Floats({1, 2, 3}) : Floats({1, 1, 2, 2, 3, 3}), 4);

        EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, Values{6, 7, 8, 9}, {}), Success);
        EXPECT_EQ(FileArrays(file).WriteTraceSamples(2, Values{6, 7, 8, 9}, {}), Success);

        EXPECT_EQ(ReadTrace(FileArrays(file), 1, 4, 0), Holds({6, 7, 8, left}, {}));
        EXPECT_EQ(ReadTrace(FileArrays(file), 2, 4, 0), Holds(Values(4, left), {}));
    }
}

TEST_F(TraceSamplesOfAFile, BeyondTheCountAreOutOfReach)
{
    Load(1, Floats({1, 2, 3}), 2);

    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 2, 0), Holds({1, 2}, {}));
    EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, Values{8, 9}, {}), Success);
    EXPECT_EQ(modQOR_File().DataBlock.Traces[1].RealSamples[3], 3);
}

TEST_F(TraceSamplesOfAFile, InAFormatThatIsNoneFailWithoutACode)
{
    Load(4, Floats({1, 2, 3}), 3);
    file.ErrorStatus();

    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 3, 3), Untouched(3, 3));
    EXPECT_EQ(FileArrays(file).WriteTraceSamples(1, Values{7, 8, 9}, {}), Failure);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(modQOR_File().DataBlock.Traces[1].RealSamples[1], 1);

    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 2, 2), Untouched(2, 2));
    EXPECT_EQ(file.ErrorStatus(), SampleIndexError) << "the lengths come before the format";
}

TEST_F(TraceSamplesOfAFile, AreNoneWhereItsCountIsNegative)
{
    Load(1, Floats({1, 2, 3}), -2);

    EXPECT_EQ(FileArrays(file).NumberOfSamples(), 0);
    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 0, 0), Untouched(0, 0));
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    EXPECT_EQ(ReadXaxis(FileArrays(file), 0), Untouched(0, 0));
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
}

} // namespace
} // namespace qor::test
