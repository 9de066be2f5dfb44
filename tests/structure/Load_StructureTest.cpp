// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The reader of Structure files: preamble, the loop over records, and how a reading ends.
#include "structure/StructureFile.h"

#include <gtest/gtest.h>

#include <new>

namespace qor::test {
namespace {

Bytes Repeated(char letter, int count)
{
    return Bytes(static_cast<std::size_t>(count), static_cast<std::uint8_t>(letter));
}

// A vertex point of that colour and nothing else.
RecordBytes Colored(int color) { return VertexBytes().Field(4, Int32(color)); }

void ExpectOutcome(const LoadedStructure& loaded, ReturnStatus status, ErrorStatusTypes error)
{
    EXPECT_EQ(loaded.status, status);
    EXPECT_EQ(loaded.error, error);
}

// ---- preamble ------------------------------------------------------------------------------------------------------

TEST(Load_StructurePreamble, TakesTheKeywordInAnyLetterCase)
{
    for (const std::string_view line : {"a binary file", "BiNaRy", "xBINARYx", "DUlmeerQOR Binary DataBlock File."}) {
        const LoadedStructure loaded = LoadStructure(StructureFile().FirstLine(line).Record(Colored(1)));

        EXPECT_TRUE(loaded.accepted) << line;
        EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 1) << line;
    }
}

TEST(Load_StructurePreamble, RefusesAFileWithoutTheKeyword)
{
    const LoadedStructure loaded = LoadStructure(StructureFile().FirstLine("DUlmeerQOR Structure File."));

    EXPECT_FALSE(loaded.accepted);
    EXPECT_EQ(loaded.version, std::nullopt);
}

TEST(Load_StructurePreamble, LooksForKeywordAndLineEndBeforePosition200)
{
    const auto accepted = [](int keywordPosition, int lineEndPosition) {
        const Bytes bytes = Repeated('x', keywordPosition - 1) + Ascii("BINARY") +
                            Repeated('x', lineEndPosition - keywordPosition - 6) + Ascii("\r\n") + Int16(12) +
                            Bytes(14) + Hex("AA AA");
        return LoadStructure(bytes).accepted;
    };

    EXPECT_TRUE(accepted(1, 7));
    EXPECT_TRUE(accepted(1, 199));
    EXPECT_FALSE(accepted(1, 200));
    EXPECT_TRUE(accepted(193, 199));
    EXPECT_FALSE(accepted(194, 200));
    EXPECT_FALSE(accepted(199, 205));
    EXPECT_FALSE(accepted(200, 206));
}

TEST(Load_StructurePreamble, TakesTheFirstLineEndBehindTheKeyword)
{
    const Bytes bytes = Ascii("\r\nBINARY\n\r\r\n") + Int16(11) + Bytes(14) + Hex("AA AA");

    EXPECT_EQ(LoadStructure(bytes).version, 11);
}

TEST(Load_StructurePreamble, RefusesVersionsAbove15ButTellsThem)
{
    for (const int version : {16, 17, 32767}) {
        const LoadedStructure loaded = LoadStructure(StructureFile().Version(version));

        EXPECT_FALSE(loaded.accepted) << version;
        EXPECT_EQ(loaded.version, version);
    }
}

TEST(Load_StructurePreamble, AcceptsEveryVersionUpTo15)
{
    for (const int version : {-32768, -1, 0, 1, 8, 9, 10, 11, 12, 13, 14, 15}) {
        const LoadedStructure loaded = LoadStructure(StructureFile().Version(version));

        EXPECT_TRUE(loaded.accepted) << version;
        ExpectOutcome(loaded, Success, NoError);
    }
}

TEST(Load_StructurePreamble, VersionsFrom13OnAreLarge)
{
    const std::int16_t large[] = {13, 14, 15, 16};
    const std::int16_t small[] = {-32768, -1, 0, 11, 12};
    for (const std::int16_t version : large) EXPECT_TRUE(IsLargeVersion(version)) << version;
    for (const std::int16_t version : small) EXPECT_FALSE(IsLargeVersion(version)) << version;
}

TEST(Load_StructurePreamble, IgnoresWhatTheReservedWordsHold)
{
    const Bytes bytes = Ascii("BINARY\r\n") + Int16(12) + Bytes(14, 0xAA) + Colored(5).Build() + Hex("AA AA");

    const LoadedStructure loaded = LoadStructure(bytes);

    ExpectOutcome(loaded, Success, NoError);
    EXPECT_EQ(loaded.Point(1).Color, 5);
}

TEST(Load_StructurePreamble, AFileThatEndsBehindTheFirstLineIsAnEmptyStructureOfVersion0)
{
    const LoadedStructure loaded = LoadStructure(Ascii("BINARY\r\n"));

    EXPECT_TRUE(loaded.accepted);
    EXPECT_EQ(loaded.version, 0);
    ExpectOutcome(loaded, Success, NoError);
}

// ---- the record loop -----------------------------------------------------------------------------------------------

TEST(Load_Structure, ReadsAFileOfBothVariants)
{
    const Bytes elements = Colored(1).Build() + Colored(2).Build() + EdgeLineBytes().Field(3, Int32(3)).Build() +
                           TriangleBytes().Field(3, Int32(4)).Build() + QuadBytes().Field(3, Int32(5)).Build();
    for (const int version : {12, 15}) {
        const LoadedStructure loaded = LoadStructure(StructureFile()
                                                         .Version(version)
                                                         .Record(NotesBytes().Field(6, Text(u"notes")))
                                                         .Record(SubStructureOf(elements, u"label")));

        ExpectOutcome(loaded, Success, NoError);
        EXPECT_EQ(loaded.texts.Label, u"label");
        EXPECT_EQ(loaded.texts.Notes, u"notes");
        ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 2);
        EXPECT_EQ(loaded.Point(1).Color, 1);
        EXPECT_EQ(loaded.Point(2).Color, 2);
        ASSERT_EQ(loaded.structure.NumberOfEdgeLines, 1);
        EXPECT_EQ(loaded.structure.EdgeLines[1].Color, 3);
        ASSERT_EQ(loaded.structure.NumberOfSurfaceTriangles, 1);
        EXPECT_EQ(loaded.structure.SurfaceTriangles[1].Color, 4);
        ASSERT_EQ(loaded.structure.NumberOfQuadSurfaces, 1);
        EXPECT_EQ(loaded.structure.QuadSurfaces[1].Color, 5);
    }
}

TEST(Load_Structure, ElementRecordsAtTheTopLevelAreReadLikeNestedOnes)
{
    const LoadedStructure loaded = LoadStructure(StructureFile()
                                                     .Record(EdgeLineBytes().Field(2, Int16(1) + Int16(2)))
                                                     .Record(Colored(1))
                                                     .Record(SubStructureOf(Colored(2).Build()))
                                                     .Record(TriangleBytes())
                                                     .Record(QuadBytes())
                                                     .Record(Colored(3)));

    ExpectOutcome(loaded, Success, NoError);
    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 3) << "in the order of their records";
    for (const std::int32_t number : {1, 2, 3}) EXPECT_EQ(loaded.Point(number).Color, number);
    EXPECT_EQ(loaded.structure.EdgeLines[1].VertexPoints[1], 2);
    EXPECT_EQ(loaded.structure.NumberOfSurfaceTriangles, 1);
    EXPECT_EQ(loaded.structure.NumberOfQuadSurfaces, 1);
}

TEST(Load_Structure, WithoutTheEndMarkerItIsASuccessWithAnError)
{
    const StructureFile file = StructureFile().Record(SubStructureOf(Colored(1).Build())).WithoutEndMarker();

    const LoadedStructure loaded = LoadStructure(file);

    ExpectOutcome(loaded, Success, InputFile_ReadFail);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 1);
}

TEST(Load_Structure, HalfAnEndMarkerCountsAsNone)
{
    ExpectOutcome(LoadStructure(StructureFile().Raw({0xAA}).WithoutEndMarker()), Success, InputFile_ReadFail);
}

TEST(Load_Structure, OnlyAPreambleIsASuccessWithAnError)
{
    ExpectOutcome(LoadStructure(StructureFile().WithoutEndMarker()), Success, InputFile_ReadFail);
}

TEST(Load_Structure, AFileThatEndsInsideItsReservedWordsIsASuccessWithoutAnError)
{
    Bytes bytes = StructureFile().WithoutEndMarker().Build();
    bytes.pop_back();

    ExpectOutcome(LoadStructure(bytes), Success, NoError);
}

TEST(Load_Structure, AFileThatEndsInsideARecordIsAFailureAndKeepsWhatWasRead)
{
    Bytes bytes =
        StructureFile().Record(Colored(1)).Record(VertexBytes().Field(4, Int32(2))).WithoutEndMarker().Build();
    bytes.erase(bytes.end() - 2, bytes.end()); // the closing tag

    const LoadedStructure loaded = LoadStructure(bytes);

    ExpectOutcome(loaded, Failure, InputFile_ReadFail);
    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 2);
    EXPECT_EQ(loaded.Point(2).Color, 2);
}

TEST(Load_Structure, AFileThatEndsInsideTheElementsIsAFailure)
{
    const Bytes elements = Int16(0x0400) + Int32(0) + Int16(3) + Colored(1).Build();

    const LoadedStructure loaded = LoadStructure(StructureFile().Raw(elements).WithoutEndMarker());

    ExpectOutcome(loaded, Failure, InputFile_ReadFail);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 1);
}

TEST(Load_Structure, WhatStandsBehindTheEndMarkerIsNotRead)
{
    const LoadedStructure loaded = LoadStructure(StructureFile().Raw(Hex("AA AA")).Record(Colored(1)));

    ExpectOutcome(loaded, Success, NoError);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 0);
}

TEST(Load_Structure, Tags4And14EndTheTopLevelToo)
{
    for (const int tag : {4, 14}) {
        const LoadedStructure loaded =
            LoadStructure(StructureFile().Record(Colored(1)).Raw(Int16(tag)).Record(Colored(2)).WithoutEndMarker());

        ExpectOutcome(loaded, Success, NoError);
        EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 1) << tag;
    }
}

TEST(Load_Structure, ZeroWordsBetweenRecordsMeanNothing)
{
    const LoadedStructure loaded =
        LoadStructure(StructureFile().Raw(Bytes(6)).Record(Colored(1)).Raw(Bytes(2)).Record(Colored(2)));

    ExpectOutcome(loaded, Success, NoError);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 2);
}

TEST(Load_Structure, RecordsOfUnknownTypeAreSkippedFromVersion9On)
{
    for (const int version : {9, 12, 15}) {
        const LoadedStructure loaded = LoadStructure(StructureFile()
                                                         .Version(version)
                                                         .Record(RecordBytes(0x0600).Raw(Colored(9).Build()))
                                                         .Record(RecordBytes(-2).Raw(Bytes(3000)))
                                                         .Record(RecordBytes(255))
                                                         .Record(Colored(1)));

        ExpectOutcome(loaded, Success, NoError);
        ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 1) << version;
        EXPECT_EQ(loaded.Point(1).Color, 1) << version;
    }
}

TEST(Load_Structure, BelowVersion9UnknownTypesAreSingleWords)
{
    for (const int version : {8, 0, -1, -32768}) {
        const LoadedStructure loaded =
            LoadStructure(StructureFile().Version(version).Raw(Int16(0x0600)).Record(Colored(1)).Raw(Int16(77)));

        ExpectOutcome(loaded, Success, NoError);
        EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 1) << version;
    }
}

TEST(Load_Structure, AnUnknownRecordThatEndsBehindTheFileIsASuccessWithAnError)
{
    const RecordBytes record = RecordBytes(0x0600).ClaimLength(1000);

    ExpectOutcome(LoadStructure(StructureFile().Record(record)), Success, InputFile_ReadFail);
}

TEST(Load_Structure, AnUnknownRecordThatLeadsBackEndsTheReading)
{
    for (const std::int64_t length : {-1, -100, INT32_MIN, INT32_MAX}) {
        const LoadedStructure loaded =
            LoadStructure(StructureFile().Record(RecordBytes(0x0600).ClaimLength(length)).Record(Colored(1)));

        ExpectOutcome(loaded, Failure, InputFile_ReadFail);
        EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 0) << length;
    }
}

TEST(Load_Structure, ALengthThatLeadsBackInsideTheElementsEndsTheWholeReading)
{
    const Bytes elements = RecordBytes(0x0600).ClaimLength(-1).Build();

    const LoadedStructure loaded = LoadStructure(StructureFile().Record(SubStructureOf(elements)).Record(Colored(1)));

    ExpectOutcome(loaded, Failure, InputFile_ReadFail);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 0);
}

TEST(Load_Structure, TheOutcomeIsThatOfTheLastRecord)
{
    const Bytes cut = Int16(0x1100) + Int32(2);

    ExpectOutcome(LoadStructure(StructureFile().Record(Colored(1)).Raw(cut).WithoutEndMarker()), Failure,
                  InputFile_ReadFail);
}

// ---- runs inside vertex points -----------------------------------------------------------------------------------

const int RunTags[] = {9, 11, 13, 16, 18, 20, 28, 30, 32, 34, 36, 38, 40, 1280};

TEST(Load_Structure, EveryRunTagOfAVertexPointOpensRecordsUpToTag4Or14)
{
    for (const int tag : RunTags) {
        for (const int end : {4, 14}) {
            const RecordBytes outer =
                VertexBytes().Field(tag).Nested(EdgeLineBytes().Field(3, Int32(8))).Field(end).Field(4, Int32(9));

            const LoadedStructure loaded = LoadStructure(StructureFile().Record(outer));

            ExpectOutcome(loaded, Success, NoError);
            ASSERT_EQ(loaded.structure.NumberOfEdgeLines, 1) << tag;
            EXPECT_EQ(loaded.structure.EdgeLines[1].Color, 8) << tag;
            EXPECT_EQ(loaded.Point(1).Color, 9) << tag;
        }
    }
}

TEST(Load_Structure, FieldsBehindARunBelongToTheVertexPointWhoseRecordItIs)
{
    Bytes run;
    for (int color = 2; color <= 50; ++color) run += Colored(color).Build();
    const RecordBytes outer =
        VertexBytes().Field(67, Float(0.5F)).Field(9).Raw(run).Field(14).Field(4, Int32(1)).Field(7, Text(u"outer"));

    const LoadedStructure loaded = LoadStructure(StructureFile().Record(outer).Record(Colored(51)));

    ExpectOutcome(loaded, Success, NoError);
    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 51);
    for (std::int32_t number = 1; number <= 51; ++number) EXPECT_EQ(loaded.Point(number).Color, number);
    EXPECT_EQ(loaded.Point(1).Area, 0.5F);
    EXPECT_EQ(loaded.Label(1), u"outer               ");
    EXPECT_EQ(loaded.Label(50), std::u16string(20, u'\0'));
}

TEST(Load_Structure, AnEndMarkerEndsARunOnly)
{
    const RecordBytes outer = VertexBytes().Field(9).Raw(Hex("AA AA")).Field(4, Int32(1));

    const LoadedStructure loaded = LoadStructure(StructureFile().Record(outer).Record(Colored(2)));

    ExpectOutcome(loaded, Success, NoError);
    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 2);
    EXPECT_EQ(loaded.Point(1).Color, 1);
}

TEST(Load_Structure, AFileThatEndsInsideARunIsAFailure)
{
    const Bytes outer = Int16(0x0100) + Int32(0) + Int16(9) + Colored(2).Build();

    const LoadedStructure loaded = LoadStructure(StructureFile().Raw(outer).WithoutEndMarker());

    ExpectOutcome(loaded, Failure, InputFile_ReadFail);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 2);
}

// ---- no room ---------------------------------------------------------------------------------------------------

// A Structure whose edge lines fill the largest array there can be. None of them is touched.
void FillEdgeLines(Structure& structure)
{
    structure.NumberOfEdgeLines = static_cast<std::int32_t>(2147483647 / sizeof(EdgeLine));
    ASSERT_TRUE(structure.EdgeLines.Resize(structure.NumberOfEdgeLines));
}

Outcome LoadInto(Structure& structure, const Bytes& records)
{
    MemoryFile source(records);
    RecordReader file(source);
    StructureTexts texts;
    return Load_StructureRecords(file, 12, structure, texts);
}

TEST(Load_Structure, AnElementWithoutRoomIsAFailureBehindWhichNothingIsRead)
{
    Structure structure;
    FillEdgeLines(structure);
    const std::int32_t before = structure.NumberOfEdgeLines;

    const Outcome outcome = LoadInto(structure, EdgeLineBytes().Field(3, Int32(1)).Build() + Colored(2).Build());

    EXPECT_EQ(outcome.status, Failure);
    EXPECT_EQ(outcome.error, NoError);
    EXPECT_EQ(structure.NumberOfEdgeLines, before);
    EXPECT_EQ(structure.NumberOfVertexPoints, 0);
}

// Stands for a text that the machine's memory does not hold.
class FileBeyondMemory : public ByteSource
{
public:
    std::size_t ReadAt(std::uint64_t, std::span<std::byte>) override { throw std::bad_alloc(); }
    std::uint64_t Size() const override { return 100; }
};

TEST(Load_Structure, ATextWithoutRoomIsAFailureWithoutACode)
{
    FileBeyondMemory source;
    RecordReader file(source);
    Structure structure;
    StructureTexts texts;

    const Outcome outcome = Load_StructureRecords(file, 12, structure, texts);

    EXPECT_EQ(outcome.status, Failure);
    EXPECT_EQ(outcome.error, NoError);
}

TEST(Load_Structure, AnElementWithoutRoomAtTheEndOfTheFileIsAFailureWithoutACode)
{
    Structure structure;
    FillEdgeLines(structure);

    const Outcome outcome = LoadInto(structure, EdgeLineBytes().Build());

    EXPECT_EQ(outcome.status, Failure);
    EXPECT_EQ(outcome.error, NoError);
}

TEST(Load_Structure, AVertexPointWithoutRoomIsReadPastAndAFailure)
{
    Structure structure;
    structure.NumberOfVertexPoints = static_cast<std::int32_t>(2147483647 / sizeof(VertexPoint));
    ASSERT_TRUE(structure.VertexPoints.Resize(structure.NumberOfVertexPoints));
    const std::int32_t before = structure.NumberOfVertexPoints;

    const Outcome outcome =
        LoadInto(structure, VertexBytes().Field(4, Int32(2)).Field(9).Nested(EdgeLineBytes()).Field(14).Build());

    EXPECT_EQ(outcome.status, Failure);
    EXPECT_EQ(structure.NumberOfVertexPoints, before);
    EXPECT_EQ(structure.VertexPoints[before].Color, 0);
    EXPECT_EQ(structure.NumberOfEdgeLines, 1) << "the run inside its record is read";
}

TEST(Load_Structure, AFailedRunDoesNotEndTheRecordThatItStandsIn)
{
    Structure structure;
    FillEdgeLines(structure);

    const Outcome outcome =
        LoadInto(structure, VertexBytes().Field(9).Nested(EdgeLineBytes()).Field(14).Field(4, Int32(2)).Build());

    EXPECT_EQ(outcome.status, Failure);
    ASSERT_EQ(structure.NumberOfVertexPoints, 1);
    EXPECT_EQ(structure.VertexPoints[1].Color, 2);
}

TEST(Load_Structure, TheLastRunOfARecordDecidesItsResult)
{
    // Without room for its edge line the first run fails; it takes the next type code with it.
    const Bytes failing = EdgeLineBytes().Build() + Int16(0);
    const RecordBytes records[] = {VertexBytes().Field(9).Raw(failing).Field(11).Field(14),
                                   SubStructureBytes().Field(3).Raw(failing).Field(3).Field(4)};
    for (const RecordBytes& record : records) {
        Structure structure;
        FillEdgeLines(structure);
        EXPECT_EQ(LoadInto(structure, record.Build() + Hex("AA AA")).status, Success);
    }
}

} // namespace
} // namespace qor::test
