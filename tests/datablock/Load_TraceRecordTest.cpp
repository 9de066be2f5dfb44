// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The reader of the trace record: every field, samples of each format, and where it fails.
#include "support/FileFields.h"
#include "support/SameDocument.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

Loaded LoadTrace(const RecordBytes& trace, int format = 1, int version = 12)
{
    return LoadBytes(SizedFile(1, 2, format).Version(version).Field(11).Nested(trace).Field(12).Build());
}

// Reads one field, and a label behind it, which shows that the field took its bytes and no more.
Loaded LoadField(int tag, const Bytes& value)
{
    Loaded loaded = LoadTrace(TraceBytes().Field(tag, value).Field(2, Text(u"behind")));
    EXPECT_EQ(loaded.status, Success) << "tag " << tag;
    EXPECT_EQ(loaded.error, NoError) << "tag " << tag;
    EXPECT_EQ(loaded.block.Traces[1].Label, u"behind") << "tag " << tag;
    return loaded;
}

std::string WhatChanged(const Loaded& loaded)
{
    Trace plain = InitialTraceRecord();
    plain.Label = u"behind";
    return TraceHeaderDifference(loaded.block.Traces[1], plain) + TraceArrayDifference(loaded.block.Traces[1], plain);
}

TEST(Load_TraceRecord, ATraceWithoutFieldsIsVectorData)
{
    const Loaded loaded = LoadTrace(TraceBytes());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(TraceHeaderDifference(loaded.block.Traces[1], InitialTraceRecord()), "");
    EXPECT_EQ(loaded.block.Traces[1].DataSVT, DataIsVector);
}

TEST(Load_TraceRecord, ReadsItsTexts)
{
    EXPECT_EQ(LoadTrace(TraceBytes().Field(2, Text(u" L "))).block.Traces[1].Label, u" L ");
    EXPECT_EQ(LoadField(3, Text(u"D")).block.Traces[1].DateAndTime, u"D");
    EXPECT_EQ(LoadField(23, Text(u"1Z")).block.Traces[1].DegreesOfFreedom, u"1Z");
    EXPECT_EQ(LoadField(24, Text(u"g")).block.Traces[1].MeasurementUnits, u"g");
    EXPECT_EQ(LoadField(29, Text(u"z")).block.Traces[1].ZaxisLabel, u"z");
    EXPECT_EQ(LoadField(42, Text(u"1")).block.Traces[1].KeptText1, u"1");
    EXPECT_EQ(LoadField(43, Text(u"2")).block.Traces[1].KeptText2, u"2");
}

TEST(Load_TraceRecord, ReadsItsNumbers)
{
    EXPECT_EQ(LoadField(30, Int16(8)).block.Traces[1].DataSVT, 8);
    EXPECT_EQ(LoadField(6, Int16(35)).block.Traces[1].MeasurementType, 35);
    EXPECT_EQ(LoadField(44, Int16(1)).block.Traces[1].LinPower, 1);
}

TEST(Load_TraceRecord, KeepsWhatNobodyInterprets)
{
    FieldWidths kept = TraceWidths();
    for (const int known : {30, 6, 44, 28, 32}) kept.erase(known);
    for (const int dropped : {1, 4, 5, 7, 8, 9, 10, 15, 16, 18}) kept.erase(dropped);
    for (const auto& [tag, width] : kept) {
        if (width < 0) continue;
        const Loaded loaded = LoadField(tag, SomeValue(width));
        EXPECT_EQ(loaded.block.Traces[1].Kept.at(static_cast<std::size_t>(tag)), width == 2 ? 0x4241u : 0x44434241u);
        EXPECT_EQ(WhatChanged(loaded), "kept value " + std::to_string(tag));
    }
}

TEST(Load_TraceRecord, DropsWhatOnlyOlderFilesHold)
{
    const FieldWidths widths = TraceWidths();
    for (const int tag : {1, 7, 8, 9, 10, 15, 16, 18, 28, 4, 5}) {
        EXPECT_EQ(WhatChanged(LoadField(tag, SomeValue(widths.at(tag)))), "") << tag;
    }
}

TEST(Load_TraceRecord, ReadsItsArrayOfSevenKeptValues)
{
    const Bytes values = Int32(1) + Int32(2) + Int32(3) + Int32(4) + Int32(5) + Int32(6) + Int32(-1);

    EXPECT_EQ(LoadField(32, values).block.Traces[1].KeptArray,
              (std::array<std::uint32_t, 7>{1, 2, 3, 4, 5, 6, 0xFFFFFFFF}));
}

TEST(Load_TraceRecord, ReadsRealSamples)
{
    const Loaded loaded = LoadField(17, Floats({1.5F, -2}));

    const Trace& trace = loaded.block.Traces[1];
    ASSERT_EQ(trace.RealSamples.Count(), 2);
    EXPECT_EQ(trace.RealSamples[1], 1.5F);
    EXPECT_EQ(trace.RealSamples[2], -2);
    EXPECT_EQ(trace.ComplexSamples.Count(), 0);
}

TEST(Load_TraceRecord, ReadsComplexSamples)
{
    const Loaded loaded = LoadTrace(TraceBytes().Field(17, Floats({1, 2, 3, 4})), 2);

    const Trace& trace = loaded.block.Traces[1];
    EXPECT_EQ(loaded.status, Success);
    ASSERT_EQ(trace.ComplexSamples.Count(), 2);
    EXPECT_EQ(trace.ComplexSamples[1], (ComplexSample{1, 2}));
    EXPECT_EQ(trace.ComplexSamples[2], (ComplexSample{3, 4}));
    EXPECT_EQ(trace.RealSamples.Count(), 0);
}

TEST(Load_TraceRecord, ReadsTheSecondComplexArrayWhateverTheFormat)
{
    const Loaded loaded = LoadField(41, Floats({1, 2, 3, 4}));
    const Trace& trace = loaded.block.Traces[1];

    ASSERT_EQ(trace.SecondComplexSamples.Count(), 2);
    EXPECT_EQ(trace.SecondComplexSamples[2], (ComplexSample{3, 4}));
}

TEST(Load_TraceRecord, KeepsTheBitsOfEverySample)
{
    const Bytes odd = Hex("01 00 A0 7F  FF FF FF FF"); // a signalling and a quiet NaN with payloads

    const Loaded loaded = LoadField(17, odd);

    EXPECT_EQ(std::memcmp(&loaded.block.Traces[1].RealSamples[1], odd.data(), 8), 0);
}

TEST(Load_TraceRecord, WithoutACountOfSamplesArraysReadNothing)
{
    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .Field(3, Int16(1))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(17).Field(41).Field(2, Text(u"behind")))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"behind");
}

TEST(Load_TraceRecord, ReadsPastItsSubRecords)
{
    const RecordBytes subRecord = RecordBytes(SubRecordType).Field(1, Int32(1)).Field(2, Int32(2));

    const Loaded loaded =
        LoadTrace(TraceBytes().Field(27).Nested(subRecord).Nested(subRecord).Field(28).Field(2, Text(u"behind")));

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"behind");
    EXPECT_TRUE(loaded.block.Traces[1].SubRecords.empty());
}

TEST(Load_TraceRecord, UnknownTagEndsTheRecordFromVersion9On)
{
    for (const int version : {9, 12}) {
        const Loaded loaded = LoadBytes(SizedFile(2, 2)
                                            .Version(version)
                                            .Field(11)
                                            .Nested(TraceBytes().Field(6, Int16(1)).Field(250).Field(6, Int16(2)))
                                            .Nested(TraceBytes().Field(6, Int16(3)))
                                            .Field(12)
                                            .Build());
        EXPECT_EQ(loaded.status, Success) << version;
        EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 1) << version;
        EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 3) << version;
    }
}

TEST(Load_TraceRecord, BeforeVersion9AnUnknownTagIsOnlyPassedOver)
{
    const Loaded loaded = LoadTrace(TraceBytes().Field(250).Field(6, Int16(2)), 1, 8);

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 2);
}

TEST(Load_TraceRecord, AnUnknownTagInATraceOfWrongLengthEndsTheReading)
{
    const Loaded loaded = LoadTrace(TraceBytes().Field(6, Int16(1)).Field(250).ClaimLength(3));

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 1);
}

TEST(Load_TraceRecord, TheSameTraceReadAgainStartsBlank)
{
    const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                        .Field(11)
                                        .Nested(TraceBytes().Field(3, Text(u"first")).Field(17, Floats({1, 2})))
                                        .Field(12)
                                        .Field(11)
                                        .Nested(TraceBytes().Field(2, Text(u"second")))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"second");
    EXPECT_EQ(loaded.block.Traces[1].DateAndTime, u"");
    EXPECT_EQ(loaded.block.Traces[1].RealSamples.Count(), 0);
}

TEST(Load_TraceRecord, ANegativeCountFromAnOlderTraceIsAFailedAllocation)
{
    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .Field(3, Int16(1))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(4, Int32(-2)).Field(17, Floats({1, 2})))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, AllocationError);
}

TEST(Load_TraceRecord, ANegativeCountSpoilsTheSecondArrayWithoutACode)
{
    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .Field(3, Int16(1))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(4, Int32(-2)).Field(41).Field(2, Text(u"behind")))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"behind");
}

TEST(Load_TraceRecord, SamplesThatTheFileCutsOffAreAbsent)
{
    for (const int tag : {17, 41}) {
        const Bytes whole = SizedFile(1, 2, 2).Field(11).Nested(TraceBytes().Field(tag, Floats({1, 2, 3, 4}))).Build();
        // The tail of the array, the closing tags of both records, and the end marker go.
        const Loaded loaded = LoadBytes(Bytes(whole.begin(), whole.end() - 7));
        EXPECT_EQ(loaded.status, Failure) << tag;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << tag;
        EXPECT_EQ(loaded.block.Traces[1].ComplexSamples.Count(), 0) << tag;
        EXPECT_EQ(loaded.block.Traces[1].SecondComplexSamples.Count(), 0) << tag;
    }
}

TEST(Load_TraceRecord, SamplesThatAreCutOffReleaseTheEarlierOnes)
{
    const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                        .Field(11)
                                        .Nested(TraceBytes().Field(17, Floats({1, 2})).Field(17, Bytes(1)))
                                        .WithoutEndMarker()
                                        .Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.block.Traces[1].RealSamples.Count(), 0);
}

} // namespace
} // namespace qor::test
