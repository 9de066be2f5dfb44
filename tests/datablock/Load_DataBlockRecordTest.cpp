// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The reader of the Data Block record: every field, what older versions need, and where it fails.
#include "support/FileFields.h"
#include "support/SameDocument.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

// ---- preamble and versions -------------------------------------------------------------------------------------

TEST(LoadDataBlock, ReadsAnEmptyRecordAsABlankDocument)
{
    const Loaded loaded = LoadBytes(DataBlockFile().Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.version, 12);
    EXPECT_TRUE(loaded.block.DataBlockFromFile);
    DataBlock blank;
    blank.DataBlockFromFile = true;
    EXPECT_EQ(Difference(loaded.block, blank), "");
}

TEST(LoadDataBlock, AcceptsAnyFirstLineWithTheKeyword)
{
    for (const char* const line : {"DUlmeerQOR Binary DataBlock File.", "DUlmeerQOR Binary Structure File.",
                                   "DU'lmeer Binary ShapeTable File.", "bInArY", "something binary of someone"}) {
        EXPECT_EQ(LoadBytes(SizedFile(0, 5).FirstLine(line).Build()).block.NumberOfSamples, 5) << line;
    }
}

TEST(LoadDataBlock, RefusesAFileWithoutTheKeyword)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 5).FirstLine("A text file").Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(Difference(loaded.block, DataBlock()), "");
}

TEST(LoadDataBlock, RefusesAFileWhoseFirstLineDoesNotEndInTime)
{
    const std::string line = "binary" + std::string(193, ' ');
    EXPECT_EQ(LoadBytes(SizedFile(0, 5).FirstLine(line.substr(1)).Build()).status, Failure) << "no keyword";
    EXPECT_EQ(LoadBytes(SizedFile(0, 5).FirstLine(line.substr(0, 198)).Build()).status, Success);

    const Loaded loaded = LoadBytes(SizedFile(0, 5).FirstLine(line).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

TEST(LoadDataBlock, RefusesAnEmptyFile)
{
    const Loaded loaded = LoadBytes({});

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

TEST(LoadDataBlock, AcceptsEveryVersionUpTo12)
{
    for (const int version : {12, 11, 9, 8, 1, 0, -1, -32768}) {
        const Loaded loaded = LoadBytes(SizedFile(0, 5).Version(version).Build());
        EXPECT_EQ(loaded.status, Success) << version;
        EXPECT_EQ(loaded.version, version);
        EXPECT_EQ(loaded.block.NumberOfSamples, 5) << version;
    }
}

TEST(LoadDataBlock, RefusesVersion13AndAbove)
{
    for (const int version : {13, 15, 32767}) {
        const Loaded loaded = LoadBytes(SizedFile(0, 5).Version(version).Build());
        EXPECT_EQ(loaded.status, Failure) << version;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << version;
        EXPECT_EQ(Difference(loaded.block, DataBlock()), "") << version;
    }
}

TEST(LoadDataBlock, TextsAreCountedFromVersion12On)
{
    EXPECT_EQ(LoadBytes(SizedFile(0, 5).Field(2, Text(u"new")).Build()).block.Label, u"new");
}

TEST(LoadDataBlock, TextsOfVersion11AreZeroTerminated)
{
    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .Version(11)
                                        .Field(2, OldText("old \x80"))
                                        .Field(13, OldText(""))
                                        .Field(3, Int16(1))
                                        .Field(4, Int32(2))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(2, OldText("trace")).Field(17, Floats({1, 2})))
                                        .Field(12)
                                        .Field(21, OldText("notes"))
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Label, u"old \u20AC");
    EXPECT_EQ(loaded.block.XaxisUnits, u"");
    EXPECT_EQ(loaded.block.Notes, u"notes");
    EXPECT_EQ(loaded.block.Traces[1].Label, u"trace");
}

TEST(LoadDataBlock, TextsOfNegativeVersionsAreZeroTerminated)
{
    EXPECT_EQ(LoadBytes(SizedFile(0, 5).Version(-3).Field(2, OldText("old")).Build()).block.Label, u"old");
}

TEST(LoadDataBlock, EmptiesTheDocumentThatItFills)
{
    DataBlock block;
    block.Label = u"earlier";
    block.DataBlockFromFile = true;
    block.NumberOfTraces = 3;
    ASSERT_EQ(ReallocateDataBlock(block), NoError);
    MemoryFile file;

    LoadDataBlock(file, block);

    EXPECT_EQ(Difference(block, DataBlock()), "");
}

// ---- fields ----------------------------------------------------------------------------------------------------

// Reads one field, and a label behind it, which shows that the field took its bytes and no more.
Loaded LoadField(int tag, const Bytes& value)
{
    Loaded loaded = LoadBytes(DataBlockFile().Field(tag, value).Field(2, Text(u"behind")).Build());
    EXPECT_EQ(loaded.status, Success) << "tag " << tag;
    EXPECT_EQ(loaded.error, NoError) << "tag " << tag;
    EXPECT_EQ(loaded.block.Label, u"behind") << "tag " << tag;
    return loaded;
}

// The one thing that differs from a document with nothing but that label.
std::string WhatChanged(const Loaded& loaded)
{
    DataBlock plain;
    plain.Label = u"behind";
    plain.DataBlockFromFile = true;
    return Difference(loaded.block, plain);
}

TEST(Load_DataBlockRecord, ReadsItsTexts)
{
    EXPECT_EQ(LoadBytes(DataBlockFile().Field(2, Text(u" L ")).Build()).block.Label, u" L ") << "as they stand";
    EXPECT_EQ(LoadField(13, Text(u"Hz")).block.XaxisUnits, u"Hz");
    EXPECT_EQ(LoadField(21, Text(u"N")).block.Notes, u"N");
    EXPECT_EQ(LoadField(59, Text(u"T")).block.KeptText, u"T");
}

TEST(Load_DataBlockRecord, ReadsItsNumbers)
{
    EXPECT_EQ(LoadField(3, Int16(7)).block.NumberOfTraces, 7);
    EXPECT_EQ(LoadField(4, Int32(70000)).block.NumberOfSamples, 70000);
    EXPECT_EQ(LoadField(20, Int16(2)).block.DataFormat, 2);
    EXPECT_EQ(LoadField(6, Int16(3)).block.XaxisSpacing, 3);
    EXPECT_EQ(LoadField(7, Float(-1.5F)).block.XaxisStart, -1.5F);
    EXPECT_EQ(LoadField(8, Float(0.5F)).block.XaxisIncrement, 0.5F);
    EXPECT_EQ(LoadField(76, Int16(1247)).block.PeakRMS, 1247);
    EXPECT_EQ(LoadField(100, Int16(7)).block.XaxisUnitsCode, 7);
    EXPECT_EQ(LoadField(123, Float(0.25F)).block.ExponentialWindowDampingInHz, 0.25F);
    EXPECT_EQ(LoadField(160, Float(3000)).block.RPM, 3000);
}

TEST(Load_DataBlockRecord, KeepsWhatNobodyInterprets)
{
    FieldWidths kept = DataBlockWidths();
    for (const int known : {1, 3, 4, 20, 6, 7, 8, 76, 100, 123, 160, 12, 72, 93}) kept.erase(known);
    for (const int dropped : {5, 9, 33, 34, 35, 66, 69, 70, 71, 98}) kept.erase(dropped);
    for (const auto& [tag, width] : kept) {
        if (width < 0) continue;
        const Loaded loaded = LoadField(tag, SomeValue(width));
        EXPECT_EQ(loaded.block.Kept.at(static_cast<std::size_t>(tag)), width == 2 ? 0x4241u : 0x44434241u) << tag;
        EXPECT_EQ(WhatChanged(loaded), "kept value " + std::to_string(tag));
    }
}

TEST(Load_DataBlockRecord, Tag72IsValueAAgainAnd93IsValueB)
{
    EXPECT_EQ(LoadField(72, Int32(5)).block.Kept[67], 5u);
    EXPECT_EQ(LoadField(93, Int32(6)).block.Kept[68], 6u);
}

TEST(Load_DataBlockRecord, DropsWhatOnlyOlderFilesHold)
{
    const FieldWidths widths = DataBlockWidths();
    for (const int tag : {5, 9, 33, 34, 35, 66, 69, 70, 71, 98}) {
        EXPECT_EQ(WhatChanged(LoadField(tag, SomeValue(widths.at(tag)))), "") << tag;
    }
}

TEST(Load_DataBlockRecord, IgnoresTagZeroAndAListEndWithoutAList)
{
    EXPECT_EQ(WhatChanged(LoadField(0, {})), "");
    EXPECT_EQ(WhatChanged(LoadField(12, {})), "");
}

TEST(Load_DataBlockRecord, TheLayoutMarkerChangesNothingByItself)
{
    EXPECT_EQ(WhatChanged(LoadField(1, Int16(1))), "");
}

TEST(Load_DataBlockRecord, ReadsXValues)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 3).Field(6, Int16(2)).Field(10, Floats({1, 10, 100})).Build());

    EXPECT_EQ(loaded.status, Success);
    ASSERT_EQ(loaded.block.Xaxis.Count(), 3);
    EXPECT_EQ(loaded.block.Xaxis[2], 10);
    EXPECT_EQ(loaded.firstX, 1);
    EXPECT_EQ(loaded.lastX, 100);
}

TEST(Load_DataBlockRecord, XValuesWithoutACountReadNothing)
{
    const Loaded loaded = LoadBytes(DataBlockFile().Field(10).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Label, u"behind");
    EXPECT_EQ(loaded.block.Xaxis.Count(), 0);
}

TEST(Load_DataBlockRecord, TheXRangeIsThatOfTheDocumentReadLast)
{
    const Bytes second = RecordBytes(DataBlockType).Field(4, Int32(2)).Build();

    const Loaded loaded =
        LoadBytes(SizedFile(0, 2).Field(6, Int16(2)).Field(10, Floats({5, 6})).Behind(second).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Xaxis.Count(), 0);
    EXPECT_EQ(loaded.firstX, 0);
    EXPECT_EQ(loaded.lastX, 0);
}

TEST(Load_DataBlockRecord, ReadsPastTheAuxiliaryTrace)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 2).Field(65, Floats({1, 2, 3, 4})).Field(94, Int32(9)).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Kept[94], 9u);
    EXPECT_FALSE(loaded.block.AuxiliaryTrace.has_value());
}

TEST(Load_DataBlockRecord, ReadsPastTheListOfAuxiliaryTraces)
{
    for (const int count : {0, 1, 3}) {
        const Bytes arrays(static_cast<std::size_t>(count) * 16, 0x41);
        const Loaded loaded = LoadBytes(SizedFile(0, 2).Field(99, Int16(count) + arrays).Field(94, Int32(9)).Build());
        EXPECT_EQ(loaded.status, Success) << count;
        EXPECT_EQ(loaded.block.Kept[94], 9u) << count;
        EXPECT_TRUE(loaded.block.AuxiliaryTraces.empty()) << count;
    }
}

TEST(Load_DataBlockRecord, ANegativeCountOfAuxiliaryTracesFailsTheRecord)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 2).Field(99, Int16(-3)).Field(94, Int32(9)).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Kept[94], 0u) << "the record was left";
}

// ---- counts ----------------------------------------------------------------------------------------------------

TEST(Load_DataBlockRecord, ASecondCountOfTracesReplacesTheFirst)
{
    EXPECT_EQ(LoadBytes(DataBlockFile().Field(3, Int16(2)).Field(3, Int16(3)).Build()).block.NumberOfTraces, 3);
}

TEST(Load_DataBlockRecord, BehindTheLayoutMarkerCountsOfTracesAdd)
{
    const Loaded loaded =
        LoadBytes(DataBlockFile().Field(3, Int16(2)).Field(1, Int16(1)).Field(3, Int16(3)).Field(3, Int16(4)).Build());

    EXPECT_EQ(loaded.block.NumberOfTraces, 9);
    EXPECT_EQ(loaded.block.Traces.Count(), 9);
}

TEST(Load_DataBlockRecord, AnyLayoutMarkerMakesCountsAdd)
{
    EXPECT_EQ(LoadBytes(DataBlockFile().Field(1, Int16(0)).Field(3, Int16(3)).Field(3, Int16(4)).Build())
                  .block.NumberOfTraces,
              7);
}

TEST(Load_DataBlockRecord, CountsThatAddKeepTheTracesBefore)
{
    const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                        .Field(1, Int16(1))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(2, Text(u"kept")).Field(17, Floats({1, 2})))
                                        .Field(12)
                                        .Field(3, Int16(1))
                                        .Build());

    EXPECT_EQ(loaded.block.NumberOfTraces, 2);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"kept");
}

TEST(Load_DataBlockRecord, CountsThatAddUpToTooManyFailButReadingGoesOn)
{
    const Loaded loaded = LoadBytes(
        DataBlockFile().Field(1, Int16(1)).Field(3, Int16(32767)).Field(3, Int16(1)).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfTraces, 32767);
    EXPECT_EQ(loaded.block.Label, u"behind");
    EXPECT_FALSE(loaded.block.DataBlockFromFile);
}

TEST(Load_DataBlockRecord, ANegativeCountOfTracesFailsButReadingGoesOn)
{
    const Loaded loaded = LoadBytes(DataBlockFile().Field(3, Int16(-1)).Field(2, Text(u"behind")).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfTraces, -1);
    EXPECT_EQ(loaded.block.Traces.Count(), 0);
    EXPECT_EQ(loaded.block.Label, u"behind");
}

TEST(Load_DataBlockRecord, FewerThanTwoSamplesEndTheReading)
{
    for (const int samples : {1, 0, -1, INT32_MIN}) {
        const Loaded loaded = LoadBytes(
            DataBlockFile().Field(13, Text(u"before")).Field(4, Int32(samples)).Field(2, Text(u"behind")).Build());
        EXPECT_EQ(loaded.status, Failure) << samples;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << samples;
        EXPECT_EQ(loaded.block.XaxisUnits, u"before") << samples;
        EXPECT_EQ(loaded.block.Label, u"") << samples;
        EXPECT_FALSE(loaded.block.DataBlockFromFile);
    }
}

TEST(Load_DataBlockRecord, TwoSamplesAreEnough) { EXPECT_EQ(LoadBytes(SizedFile(0, 2).Build()).status, Success); }

TEST(Load_DataBlockRecord, ACountFarLargerThanTheFileAllocatesNothing)
{
    const Loaded loaded = LoadBytes(SizedFile(1, INT32_MAX, 2)
                                        .Field(6, Int16(2))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(17, Floats({1, 2})))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.block.NumberOfSamples, INT32_MAX);
    EXPECT_EQ(loaded.block.Traces[1].ComplexSamples.Count(), 0);
}

TEST(Load_DataBlockRecord, XValuesThatTheFileCutsOffAreAbsent)
{
    const Loaded loaded =
        LoadBytes(SizedFile(0, 3).Field(6, Int16(2)).Field(10, Floats({1, 2})).WithoutEndMarker().Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.block.Xaxis.Count(), 0);
    EXPECT_EQ(loaded.lastX, 0);
}

TEST(Load_DataBlockRecord, XValuesThatAreCutOffReleaseTheEarlierOnes)
{
    const Loaded loaded =
        LoadBytes(SizedFile(0, 2).Field(10, Floats({1, 2})).Field(4, Int32(100)).Field(10, Floats({3, 4})).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.block.Xaxis.Count(), 0);
}

TEST(Load_DataBlockRecord, AnAuxiliaryArrayThatTheFileCutsOffIsTheEndOfTheFile)
{
    for (const DataBlockFile& file :
         {SizedFile(0, 100).Field(65, Floats({1, 2})), SizedFile(0, 100).Field(99, Int16(32767) + Floats({1, 2}))}) {
        const Loaded loaded = LoadBytes(file.Build());
        EXPECT_EQ(loaded.status, Failure);
        EXPECT_EQ(loaded.error, InputFile_ReadFail);
    }
}

// ---- unknown tags ----------------------------------------------------------------------------------------------

TEST(Load_DataBlockRecord, UnknownTagEndsTheRecordFromVersion9On)
{
    for (const int version : {9, 12}) {
        const Loaded loaded = LoadBytes(DataBlockFile()
                                            .Version(version)
                                            .Field(3, Int16(2))
                                            .Field(200, Hex("01 02 03 04"))
                                            .Field(3, Int16(9))
                                            .Build());
        EXPECT_EQ(loaded.status, Success) << version;
        EXPECT_EQ(loaded.error, NoError) << version;
        EXPECT_EQ(loaded.block.NumberOfTraces, 2) << version;
        EXPECT_TRUE(loaded.block.DataBlockFromFile) << version;
    }
}

TEST(Load_DataBlockRecord, BeforeVersion9AnUnknownTagIsOnlyPassedOver)
{
    const Loaded loaded = LoadBytes(DataBlockFile().Version(8).Field(200).Field(201).Field(3, Int16(9)).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfTraces, 9);
}

TEST(Load_DataBlockRecord, ALengthThatIsNotUsedMayBeAnything)
{
    for (const std::int64_t length : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{INT32_MAX}}) {
        EXPECT_EQ(LoadBytes(SizedFile(0, 2).ClaimLength(length).Build()).status, Success) << length;
    }
}

TEST(Load_DataBlockRecord, AnUnknownTagInARecordOfWrongLengthEndsTheReading)
{
    for (const std::int64_t length : {-1, 0, 1, INT32_MIN, INT32_MAX}) {
        const Loaded loaded = LoadBytes(SizedFile(0, 2).Field(200).ClaimLength(length).Build());
        EXPECT_EQ(loaded.status, Failure) << length;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << length;
        EXPECT_EQ(loaded.block.NumberOfSamples, 2) << length;
        EXPECT_FALSE(loaded.block.DataBlockFromFile) << length;
    }
}

TEST(Load_DataBlockRecord, AnUnknownTagInARecordLongerThanTheFileIsTheEndOfTheFile)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 2).Field(200).ClaimLength(100000).Build());

    EXPECT_EQ(loaded.status, Success) << "the record counts as read";
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

// ---- header values that traces bring ---------------------------------------------------------------------------

TEST(Load_DataBlockRecord, OlderTracesBringTheSizesThatTheHeaderLeftOut)
{
    const Loaded loaded =
        LoadBytes(DataBlockFile()
                      .Version(8)
                      .Field(3, Int16(1))
                      .Field(11)
                      .Nested(TraceBytes().Field(4, Int32(2)).Field(5, Int16(2)).Field(17, Floats({1, 2, 3, 4})))
                      .Field(12)
                      .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfSamples, 2);
    EXPECT_EQ(loaded.block.DataFormat, ComplexFormat);
    EXPECT_EQ(loaded.block.Traces[1].ComplexSamples.Count(), 2);
}

TEST(Load_DataBlockRecord, SizesOfTheHeaderStandAgainstThoseOfOlderTraces)
{
    const Loaded loaded =
        LoadBytes(SizedFile(1, 2, 2)
                      .Field(11)
                      .Nested(TraceBytes().Field(4, Int32(3)).Field(5, Int16(1)).Field(17, Floats({1, 2, 3, 4})))
                      .Field(12)
                      .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfSamples, 2);
    EXPECT_EQ(loaded.block.DataFormat, ComplexFormat);
    ASSERT_EQ(loaded.block.Traces[1].ComplexSamples.Count(), 2);
    EXPECT_EQ(loaded.block.Traces[1].ComplexSamples[2], (ComplexSample{3, 4}));
}

TEST(Load_DataBlockRecord, AFormatNobodyKnowsIsReadAsFloatsAndKept)
{
    const Loaded loaded =
        LoadBytes(SizedFile(1, 2, 3).Field(11).Nested(TraceBytes().Field(17, Floats({1, 2}))).Field(12).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.DataFormat, 3);
    ASSERT_EQ(loaded.block.Traces[1].RealSamples.Count(), 2);
    EXPECT_EQ(loaded.block.Traces[1].RealSamples[2], 2);
}

} // namespace
} // namespace qor::test
