// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The reader of Structure files: the fields of each record, its texts, and what happens to what it does not know.
#include "structure/StructureFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

LoadedStructure LoadRecord(const RecordBytes& record, int version = 12)
{
    LoadedStructure loaded = LoadStructure(StructureFile().Version(version).Record(record));
    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    return loaded;
}

// ---- vertex point
// ----------------------------------------------------------------------------------------------------

TEST(Load_VertexRecord, ReadsEveryField)
{
    const RecordBytes record = VertexBytes()
                                   .Field(1, Int16(99))
                                   .Field(85, Int32(98))
                                   .Field(83, Int32(-7))
                                   .Field(2, Floats({1, 2, 3}))
                                   .Field(4, Int32(0x112233))
                                   .Field(5, Int16(-1))
                                   .Field(7, Text(u"P1"))
                                   .Field(3, Int16(6))
                                   .Field(22, Int16(2))
                                   .Field(23, Floats({1, 2, 3, 4, 5, 6, 7, 8, 9}))
                                   .Field(67, Float(0.25F))
                                   .Field(68, Int16(1));

    const LoadedStructure loaded = LoadRecord(record);

    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 1) << "whatever number the record says";
    const VertexPoint& point = loaded.Point(1);
    EXPECT_EQ(point.FileExtraValue, -7);
    EXPECT_EQ(point.Xcoord, 1);
    EXPECT_EQ(point.Ycoord, 2);
    EXPECT_EQ(point.Zcoord, 3);
    EXPECT_EQ(point.Color, 0x112233);
    EXPECT_EQ(point.Bold.value, -1);
    EXPECT_EQ(loaded.Label(1), u"P1                  ");
    EXPECT_EQ(point.CenterPoint, 6);
    EXPECT_EQ(point.PointType, Spherical);
    EXPECT_EQ(point.AxisEnd, (AxisEnds{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(point.Area, 0.25F);
    EXPECT_EQ(point.NormalAxis, Yaxis);
}

TEST(Load_VertexRecord, FieldsThatAreMissingAreZero)
{
    const LoadedStructure loaded = LoadRecord(VertexBytes());

    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 1);
    const VertexPoint& point = loaded.Point(1);
    EXPECT_EQ(loaded.Label(1), std::u16string(20, u'\0')) << "zero characters, not blanks";
    EXPECT_EQ(point.Xcoord, 0);
    EXPECT_EQ(point.Bold.value, 0);
    EXPECT_EQ(point.Color, 0);
    EXPECT_EQ(point.CenterPoint, 0);
    EXPECT_EQ(point.AxisEnd, AxisEnds{});
    EXPECT_EQ(point.NormalAxis, Xaxis);
    EXPECT_EQ(point.FileExtraValue, 0);
}

TEST(Load_VertexRecord, ALabelIsCutOrPaddedTo20Characters)
{
    const LoadedStructure loaded =
        LoadStructure(StructureFile()
                          .Record(VertexBytes().Field(7, Text(u"more than twenty characters")))
                          .Record(VertexBytes().Field(7, Text(u" \U0001F600")))
                          .Record(VertexBytes().Field(7, Text(u""))));

    EXPECT_EQ(loaded.Label(1), u"more than twenty cha");
    EXPECT_EQ(loaded.Label(2), u" \U0001F600" + std::u16string(17, u' '));
    EXPECT_EQ(loaded.Label(3), std::u16string(20, u' '));
}

TEST(Load_VertexRecord, APointTypeThatDoesNotExistIsRectangular)
{
    const std::pair<int, int> cases[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 0}, {7, 0}, {-1, 0}, {-32768, 0}};
    for (const auto& [inFile, read] : cases) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(22, Int16(inFile))).Point(1).PointType, read) << inFile;
    }
}

TEST(Load_VertexRecord, ANormalAxisThatDoesNotExistIsTheZAxis)
{
    const std::pair<int, int> cases[] = {{0, Xaxis}, {1, Yaxis},  {2, Zaxis},     {3, Zaxis},
                                         {7, Zaxis}, {-1, Zaxis}, {-32768, Zaxis}};
    for (const auto& [inFile, read] : cases) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(68, Int16(inFile))).Point(1).NormalAxis, read) << inFile;
    }
}

TEST(Load_VertexRecord, CenterPointsAreTakenAsTheyStand)
{
    for (const int center : {-32768, -1, 0, 500, 32767}) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(3, Int16(center))).Point(1).CenterPoint, center);
    }
    for (const std::int32_t center : {INT32_MIN, -1, 40000, INT32_MAX}) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(84, Int32(center)), 15).Point(1).CenterPoint, center);
    }
}

TEST(Load_VertexRecord, AnyBoldButZeroIsTrue)
{
    for (const int bold : {1, 5, -1, 256}) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(5, Int16(bold))).Point(1).Bold.value, -1) << bold;
    }
    EXPECT_EQ(LoadRecord(VertexBytes().Field(5, Int16(0))).Point(1).Bold.value, 0);
}

TEST(Load_VertexRecord, TheTagsOfBothVariantsAreReadInEveryVersion)
{
    for (const int version : {12, 15}) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(84, Int32(70000)), version).Point(1).CenterPoint, 70000);
        EXPECT_EQ(LoadRecord(VertexBytes().Field(3, Int16(7)), version).Point(1).CenterPoint, 7);
        EXPECT_EQ(LoadRecord(VertexBytes().Field(83, Int32(8)), version).Point(1).FileExtraValue, 8);
    }
}

TEST(Load_VertexRecord, AFieldThatStandsTwiceCountsTheSecondTime)
{
    EXPECT_EQ(LoadRecord(VertexBytes().Field(4, Int32(1)).Field(22, Int16(1)).Field(4, Int32(2))).Point(1).Color, 2);
}

// ---- values of older files -----------------------------------------------------------------------------------------

// Reads a record with the tag, a value of that width that would be read as fields if the width were another, and a
// colour behind it.
template <class Colour>
void ExpectReadPast(RecordBytes (*record)(), int tag, std::size_t width, int colorTag, Colour colorOf)
{
    const LoadedStructure loaded = LoadRecord(record().Field(tag, Bytes(width, 0xFF)).Field(colorTag, Int32(0x123456)));
    EXPECT_EQ(colorOf(loaded.structure), 0x123456) << "tag " << tag;
}

TEST(Load_VertexRecord, ValuesOfOlderFilesAreReadPast)
{
    const auto color = [](const Structure& structure) { return structure.VertexPoints[1].Color; };
    for (const int tag : {1, 6, 21, 25, 69, 70, 71, 72, 8, 10, 12, 15, 17, 19, 27, 29, 31, 33, 35, 37, 39}) {
        ExpectReadPast(VertexBytes, tag, 2, 4, color);
    }
    for (const int tag : {85, 24, 26, 82}) ExpectReadPast(VertexBytes, tag, 4, 4, color);
}

TEST(Load_EdgeLineRecord, ValuesOfOlderFilesAreReadPast)
{
    const auto color = [](const Structure& structure) { return structure.EdgeLines[1].Color; };
    for (const int tag : {1, 5}) ExpectReadPast(EdgeLineBytes, tag, 2, 3, color);
}

TEST(Load_SurfaceRecords, ValuesOfOlderFilesAreReadPast)
{
    for (const int tag : {1, 5, 6}) {
        ExpectReadPast(TriangleBytes, tag, 2, 3,
                       [](const Structure& structure) { return structure.SurfaceTriangles[1].Color; });
        ExpectReadPast(QuadBytes, tag, 2, 3,
                       [](const Structure& structure) { return structure.QuadSurfaces[1].Color; });
    }
}

// ---- joining elements ----------------------------------------------------------------------------------------------

template <std::size_t Corners>
void ExpectElement(const JoiningElement<Corners>& element, const std::array<std::int32_t, Corners>& points)
{
    EXPECT_EQ(element.VertexPoints, points);
    EXPECT_EQ(element.Color, 0x445566);
    EXPECT_EQ(element.Bold.value, -1);
    EXPECT_EQ(element.FileExtraValue, 77);
}

TEST(Load_EdgeLineRecord, ReadsEveryFieldOfBothVariants)
{
    const Bytes rest = Int16(6) + Int32(77) + Int16(3) + Int32(0x445566) + Int16(4) + Int16(9);

    const LoadedStructure loaded =
        LoadStructure(StructureFile()
                          .Record(EdgeLineBytes().Field(2, Int16(1) + Int16(-2)).Raw(rest))
                          .Record(EdgeLineBytes().Field(7, Int32(70000) + Int32(INT32_MIN)).Raw(rest)));

    ASSERT_EQ(loaded.structure.NumberOfEdgeLines, 2);
    ExpectElement(loaded.structure.EdgeLines[1], {1, -2});
    ExpectElement(loaded.structure.EdgeLines[2], {70000, INT32_MIN});
}

TEST(Load_SurfaceTriangleRecord, ReadsEveryFieldOfBothVariants)
{
    const Bytes rest = Int16(7) + Int32(77) + Int16(3) + Int32(0x445566) + Int16(4) + Int16(1);

    const LoadedStructure loaded =
        LoadStructure(StructureFile()
                          .Record(TriangleBytes().Field(2, Int16(1) + Int16(-2) + Int16(3)).Raw(rest))
                          .Record(TriangleBytes().Field(8, Int32(70000) + Int32(-1) + Int32(5)).Raw(rest)));

    ASSERT_EQ(loaded.structure.NumberOfSurfaceTriangles, 2);
    ExpectElement(loaded.structure.SurfaceTriangles[1], {1, -2, 3});
    ExpectElement(loaded.structure.SurfaceTriangles[2], {70000, -1, 5});
}

TEST(Load_QuadSurfaceRecord, ReadsEveryFieldOfBothVariants)
{
    const Bytes rest = Int16(7) + Int32(77) + Int16(3) + Int32(0x445566) + Int16(4) + Int16(-1);

    const LoadedStructure loaded =
        LoadStructure(StructureFile()
                          .Record(QuadBytes().Field(2, Int16(1) + Int16(-2) + Int16(3) + Int16(4)).Raw(rest))
                          .Record(QuadBytes().Field(8, Int32(70000) + Int32(-1) + Int32(5) + Int32(6)).Raw(rest)));

    ASSERT_EQ(loaded.structure.NumberOfQuadSurfaces, 2);
    ExpectElement(loaded.structure.QuadSurfaces[1], {1, -2, 3, 4});
    ExpectElement(loaded.structure.QuadSurfaces[2], {70000, -1, 5, 6});
}

// ---- substructure, notes and the discarded record ------------------------------------------------------------------

TEST(Load_SubStructureRecord, ItsLabelIsTakenOnlyWhereThereIsNone)
{
    const StructureFile file =
        StructureFile().Record(SubStructureOf({}, u"first")).Record(SubStructureOf({}, u"second"));

    EXPECT_EQ(LoadStructure(file).texts.Label, u"first");
    EXPECT_EQ(LoadStructure(file, {u"own", u""}).texts.Label, u"own");
    EXPECT_EQ(LoadStructure(file, {u" ", u""}).texts.Label, u" ") << "a blank is a label";
}

TEST(Load_SubStructureRecord, AnEmptyLabelIsNone)
{
    const RecordBytes record = SubStructureBytes().Field(2, Text(u"")).Field(2, Text(u" kept as it is "));

    EXPECT_EQ(LoadRecord(record).texts.Label, u" kept as it is ");
}

TEST(Load_SubStructureRecord, ValuesOfOlderFilesAreReadPast)
{
    for (const int tag : {1, 5, 6}) {
        EXPECT_EQ(LoadRecord(SubStructureBytes().Field(tag, Int16(-1)).Field(2, Text(u"L"))).texts.Label, u"L") << tag;
    }
}

TEST(Load_SubStructureRecord, ALabelBehindTheElementsIsReadToo)
{
    const LoadedStructure loaded = LoadRecord(SubStructureOf(VertexBytes().Build()).Field(2, Text(u"L")));

    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 1);
    EXPECT_EQ(loaded.texts.Label, u"L");
}

TEST(Load_NotesRecord, ReplacesEarlierNotes)
{
    const StructureFile file =
        StructureFile().Record(NotesBytes().Field(6, Text(u"one"))).Record(NotesBytes().Field(6, Text(u" two ")));

    EXPECT_EQ(LoadStructure(file, {u"", u"own"}).texts.Notes, u" two ");
}

TEST(Load_NotesRecord, WithoutATextItChangesNothing)
{
    EXPECT_EQ(LoadStructure(StructureFile().Record(NotesBytes()), {u"", u"own"}).texts.Notes, u"own");
}

TEST(Load_DiscardedRecord, IsReadPastAtEveryLevel)
{
    const RecordBytes discarded = DiscardedBytes().Field(1, Int16(255)).Field(2, Int32(255));
    const LoadedStructure loaded = LoadStructure(StructureFile().Record(discarded).Record(
        SubStructureOf(discarded.Build() + VertexBytes().Field(4, Int32(1)).Build())));

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.Point(1).Color, 1);
}

TEST(Load_DiscardedRecord, HasValuesOf16And32Bits)
{
    // Each value holds a closing tag where one of another width would end.
    const RecordBytes discarded = DiscardedBytes().Field(2, Hex("34 12 FF 00")).Field(1, Int16(255)).Field(1, Int16(7));

    const LoadedStructure loaded =
        LoadStructure(StructureFile().Record(discarded).Record(VertexBytes().Field(4, Int32(1))));

    EXPECT_EQ(loaded.error, NoError);
    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 1);
    EXPECT_EQ(loaded.Point(1).Color, 1);
}

TEST(Load_DiscardedRecord, ThatTheFileCutsOffIsNoFailure)
{
    const Bytes cut = Int16(0x0500) + Int32(100) + Int16(1);

    const LoadedStructure loaded = LoadStructure(StructureFile().Raw(cut).WithoutEndMarker());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

// ---- what a record does not know
// -------------------------------------------------------------------------------------

const int UnknownTags[] = {-1, -32768, 200, 254, 256, 1279, 1281, 32767};

TEST(Load_StructureRecords, AnUnknownTagSkipsTheRestOfItsRecordOnly)
{
    for (const int tag : UnknownTags) {
        const Bytes cutShort = VertexBytes().Field(4, Int32(1)).Field(tag, Int32(0)).Field(67, Float(9)).Build();
        const Bytes next = VertexBytes().Field(4, Int32(2)).Build();

        const LoadedStructure loaded = LoadRecord(SubStructureOf(cutShort + next, u"L"));

        ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 2) << tag;
        EXPECT_EQ(loaded.Point(1).Color, 1) << tag;
        EXPECT_EQ(loaded.Point(1).Area, 0) << tag;
        EXPECT_EQ(loaded.Point(2).Color, 2) << tag;
    }
}

TEST(Load_StructureRecords, EveryRecordIsLeftAtAnUnknownTag)
{
    using Maker = RecordBytes (*)();
    for (const Maker maker : {Maker(VertexBytes), Maker(EdgeLineBytes), Maker(TriangleBytes), Maker(QuadBytes),
                              Maker(SubStructureBytes), Maker(DiscardedBytes), Maker(NotesBytes)}) {
        for (const int version : {9, 12, 15}) {
            const LoadedStructure loaded = LoadStructure(StructureFile()
                                                             .Version(version)
                                                             .Record(maker().Field(200, Bytes(7, 0x55)))
                                                             .Record(VertexBytes().Field(4, Int32(5))));

            EXPECT_EQ(loaded.status, Success);
            EXPECT_EQ(loaded.error, NoError);
            EXPECT_EQ(loaded.Point(loaded.structure.NumberOfVertexPoints).Color, 5);
        }
    }
}

TEST(Load_StructureRecords, BelowVersion9AnUnknownTagIsASingleWord)
{
    for (const int tag : UnknownTags) {
        const RecordBytes record = VertexBytes().Field(tag).Field(4, Int32(3)).ClaimLength(-5);

        EXPECT_EQ(LoadRecord(record, 8).Point(1).Color, 3) << tag;
        EXPECT_EQ(LoadRecord(record, -32768).Point(1).Color, 3) << tag;
    }
}

TEST(Load_StructureRecords, Tag0InsideARecordMeansNothing)
{
    EXPECT_EQ(LoadRecord(VertexBytes().Field(0).Field(4, Int32(3)).Field(0)).Point(1).Color, 3);
    EXPECT_EQ(LoadRecord(SubStructureBytes().Field(0).Field(2, Text(u"L"))).texts.Label, u"L");
}

TEST(Load_StructureRecords, ALengthThatIsNotUsedIsNotLookedAt)
{
    for (const std::int64_t length : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
        EXPECT_EQ(LoadRecord(VertexBytes().Field(4, Int32(3)).ClaimLength(length)).Point(1).Color, 3) << length;
    }
}

TEST(Load_StructureRecords, ALengthThatLeadsBackFromAnUnknownTagEndsTheReading)
{
    using Maker = RecordBytes (*)();
    for (const Maker maker : {Maker(VertexBytes), Maker(EdgeLineBytes), Maker(TriangleBytes), Maker(QuadBytes),
                              Maker(SubStructureBytes), Maker(DiscardedBytes), Maker(NotesBytes)}) {
        for (const std::int64_t length : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
            const LoadedStructure loaded = LoadStructure(StructureFile()
                                                             .Record(maker().Field(200).ClaimLength(length))
                                                             .Record(EdgeLineBytes())
                                                             .Record(EdgeLineBytes()));

            EXPECT_EQ(loaded.status, Failure) << length;
            EXPECT_EQ(loaded.error, InputFile_ReadFail) << length;
            EXPECT_LE(loaded.structure.NumberOfEdgeLines, 1) << "nothing more is read";
        }
    }
}

TEST(Load_StructureRecords, ARecordThatEndsBehindTheFileIsLeftThere)
{
    const LoadedStructure loaded =
        LoadStructure(StructureFile().Record(VertexBytes().Field(4, Int32(3)).Field(200).ClaimLength(1000)));

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.Point(1).Color, 3);
}

// ---- texts
// -------------------------------------------------------------------------------------------------------------

TEST(Load_StructureTexts, BelowVersion11TheyAreZeroTerminated)
{
    for (const int version : {10, 9, 8, 0, -32768}) {
        const LoadedStructure loaded =
            LoadStructure(StructureFile()
                              .Version(version)
                              .Record(NotesBytes().Field(6, OldText("n\x80\xC4\x81")))
                              .Record(SubStructureOf(VertexBytes().Field(7, OldText("point")).Build()))
                              .Record(SubStructureBytes().Field(2, OldText("label"))));

        EXPECT_EQ(loaded.error, NoError) << version;
        EXPECT_EQ(loaded.texts.Notes, u"n\u20AC\u00C4\u0081") << version;
        EXPECT_EQ(loaded.texts.Label, u"label") << version;
        EXPECT_EQ(loaded.Label(1), u"point               ") << version;
    }
}

TEST(Load_StructureTexts, FromVersion11OnTheyAreCounted)
{
    for (const int version : {11, 12, 15}) {
        const std::u16string text = {u'a', 0, 0xD800, u'\u20AC'};
        EXPECT_EQ(LoadRecord(NotesBytes().Field(6, Text(text)), version).texts.Notes, text) << version;
    }
}

TEST(Load_StructureTexts, ANegativeCountIsAnEmptyText)
{
    const RecordBytes record = VertexBytes().Field(7, Int32(-1)).Field(4, Int32(3));

    const LoadedStructure loaded = LoadRecord(record);

    EXPECT_EQ(loaded.Label(1), std::u16string(20, u' '));
    EXPECT_EQ(loaded.Point(1).Color, 3);
}

TEST(Load_StructureTexts, OfATextThatTheFileCutsOffTheWholeCharactersAreKept)
{
    const Bytes cut = Int16(0x1100) + Int32(0) + Int16(6) + Int32(INT32_MAX) + Int16(u'a') + Int16(u'b') + Bytes{1};

    const LoadedStructure loaded = LoadStructure(StructureFile().Raw(cut).WithoutEndMarker());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.texts.Notes, u"ab");
}

} // namespace
} // namespace qor::test
