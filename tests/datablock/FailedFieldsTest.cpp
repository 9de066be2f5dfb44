// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fields that fail their record, and what the bytes behind such a field still decide: one tag or type code is
// read behind it in every record and list that it ends, and a file that ends there is reported as one that is cut off.
#include "support/DataBlockFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

// The one way to a number of samples below 0: a trace of an older file brings it, the header having none.
DataBlockFile NegativeSamples(const RecordBytes& trace)
{
    return DataBlockFile().Field(3, Int16(1)).Field(11).Nested(trace).Field(12);
}
DataBlockFile NegativeSamples() { return NegativeSamples(TraceBytes().Field(4, Int32(-2))); }

// ---- numbers of samples below 0 ----------------------------------------------------------------------------------

TEST(NegativeNumberOfSamples, IsTakenOverWhereNoArrayGoesByIt)
{
    const Loaded loaded = LoadBytes(NegativeSamples().Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfSamples, -2);
}

TEST(NegativeNumberOfSamples, FailsTheAuxiliaryTraceWithoutACode)
{
    const Loaded loaded = LoadBytes(NegativeSamples().Field(65).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Label, u"") << "the record was left";
}

TEST(NegativeNumberOfSamples, FailsAuxiliaryTracesOfAnyCountWithoutACode)
{
    for (const int count : {-32768, -1, 0, 1, 32767}) {
        const Loaded loaded = LoadBytes(NegativeSamples().Field(99, Int16(count)).Field(2, Text(u"behind")).Build());
        EXPECT_EQ(loaded.status, Failure) << count;
        EXPECT_EQ(loaded.error, NoError) << count;
        EXPECT_EQ(loaded.block.Label, u"") << count;
    }
}

TEST(NegativeNumberOfSamples, FailsXValuesWithoutACode)
{
    const Loaded loaded = LoadBytes(NegativeSamples().Field(10).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Label, u"");
    EXPECT_EQ(loaded.block.Xaxis.Count(), 0);
}

TEST(NegativeNumberOfSamples, FailsTheSamplesOfATraceWithACode)
{
    const RecordBytes trace = TraceBytes().Field(4, Int32(-2)).Field(17).Field(2, Text(u"behind"));

    const Loaded loaded = LoadBytes(NegativeSamples(trace).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, AllocationError);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"");
    EXPECT_EQ(loaded.block.Label, u"");
}

TEST(NegativeNumberOfSamples, SpoilsSecondSamplesWithoutACodeAndTheTraceIsReadOn)
{
    const RecordBytes trace = TraceBytes().Field(4, Int32(-2)).Field(41).Field(2, Text(u"behind"));

    const Loaded loaded = LoadBytes(NegativeSamples(trace).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"behind");
    EXPECT_EQ(loaded.block.Label, u"") << "what follows the trace is not read";
}

TEST(ANegativeCountOfAuxiliaryTraces, FailsWithoutSamplesToo)
{
    const Loaded loaded = LoadBytes(DataBlockFile().Field(99, Int16(-1)).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Label, u"");
}

// ---- where the file ends behind a failed field -------------------------------------------------------------------

// That file without end marker and whatever stood behind its first so many bytes, and so many zeros instead.
Bytes EndingIn(const Bytes& upToTheFault, int more)
{
    Bytes bytes = upToTheFault;
    bytes.resize(bytes.size() + static_cast<std::size_t>(more));
    return bytes;
}

// Preamble, and a record 2048 whose length nothing uses.
Bytes RecordWith(int version, const Bytes& fields)
{
    return DataBlockFile().Version(version).WithoutRecord().WithoutEndMarker().Build() + Int16(DataBlockType) +
           Int32(1000) + fields;
}

Bytes OpenTrace(const Bytes& fields) { return Int16(TraceType) + Int32(1000) + fields; }

TEST(BehindAFailedField, ATraceTooManyNeedsTheWordsOfItsListAndRecord)
{
    const Bytes bytes = RecordWith(8, Int16(11) + Int16(TraceType));
    for (int more = 0; more <= 7; ++more) {
        const Loaded loaded = LoadBytes(EndingIn(bytes, more));
        EXPECT_EQ(loaded.status, Failure) << more;
        EXPECT_EQ(loaded.error, more < 4 ? InputFile_ReadFail : NoError) << more;
    }
}

TEST(BehindAFailedField, SamplesThatCannotBeNeedTheWordsOfTraceListAndRecord)
{
    const Bytes trace = OpenTrace(Int16(4) + Int32(-2) + Int16(17));
    const Bytes bytes = RecordWith(12, Int16(3) + Int16(1) + Int16(11) + trace);
    for (int more = 0; more <= 7; ++more) {
        const Loaded loaded = LoadBytes(EndingIn(bytes, more));
        EXPECT_EQ(loaded.status, Failure) << more;
        EXPECT_EQ(loaded.error, more < 6 ? InputFile_ReadFail : AllocationError) << more;
    }
}

TEST(BehindAFailedField, SamplesOfATopLevelTraceNeedTheWordOfTheTraceOnly)
{
    const Bytes block = RecordBytes(DataBlockType)
                            .Field(3, Int16(2))
                            .Field(11)
                            .Nested(TraceBytes().Field(4, Int32(-2)))
                            .Field(12)
                            .Build();
    const Bytes bytes = DataBlockFile().WithoutRecord().WithoutEndMarker().Build() + block +
                        OpenTrace(Int16(17)); // the number of samples is still that of the trace before
    for (int more = 0; more <= 4; ++more) {
        const Loaded loaded = LoadBytes(EndingIn(bytes, more));
        EXPECT_EQ(loaded.status, Failure) << more;
        EXPECT_EQ(loaded.error, more < 2 ? InputFile_ReadFail : AllocationError) << more;
        EXPECT_TRUE(loaded.block.DataBlockFromFile) << "the Data Block record was read";
    }
}

TEST(BehindAFailedField, XValuesAndAuxiliaryTracesNeedTheWordOfTheRecord)
{
    const Bytes traces = Int16(3) + Int16(1) + Int16(11) + TraceBytes().Field(4, Int32(-2)).Build() + Int16(12);
    for (const Bytes& field : {Int16(10), Int16(65), Int16(99) + Int16(1), Int16(99) + Int16(-1)}) {
        const Bytes bytes = RecordWith(12, traces + field);
        for (int more = 0; more <= 4; ++more) {
            const Loaded loaded = LoadBytes(EndingIn(bytes, more));
            EXPECT_EQ(loaded.status, Failure) << more;
            EXPECT_EQ(loaded.error, more < 2 ? InputFile_ReadFail : NoError) << more << " behind tag " << int{field[0]};
        }
    }
}

TEST(BehindAFailedField, TheCountOfAuxiliaryTracesMayItselfBeCutOff)
{
    for (const Bytes& count : {Bytes{}, Hex("FF")}) {
        const Loaded loaded = LoadBytes(RecordWith(12, Int16(4) + Int32(2) + Int16(99) + count));
        EXPECT_EQ(loaded.status, Failure);
        EXPECT_EQ(loaded.error, InputFile_ReadFail);
    }
}

TEST(BehindAFailedField, TooFewSamplesAreAReadErrorWhateverFollows)
{
    const Bytes bytes = RecordWith(12, Int16(4) + Int32(1));
    for (int more = 0; more <= 7; ++more) {
        const Loaded loaded = LoadBytes(EndingIn(bytes, more));
        EXPECT_EQ(loaded.status, Failure) << more;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << more;
        EXPECT_EQ(loaded.block.NumberOfSamples, 1) << more;
    }
}

// ---- the version ends the file -----------------------------------------------------------------------------------

TEST(HalfAVersion, AboveTheHighestIsRefusedAndAnyOtherIsAnEmptyDocument)
{
    const Bytes whole = DataBlockFile().Build();
    const Bytes firstLine(whole.begin(), whole.begin() + 35);

    for (const int byte : {0x00, 0x0B, 0x0C}) {
        const Loaded loaded = LoadBytes(firstLine + Bytes{static_cast<std::uint8_t>(byte)});
        EXPECT_EQ(loaded.status, Success) << byte;
        EXPECT_EQ(loaded.error, NoError) << byte;
    }
    for (const int byte : {0x0D, 0x80, 0xFF}) {
        const Loaded loaded = LoadBytes(firstLine + Bytes{static_cast<std::uint8_t>(byte)});
        EXPECT_EQ(loaded.status, Failure) << byte;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << byte;
    }
}

} // namespace
} // namespace qor::test
