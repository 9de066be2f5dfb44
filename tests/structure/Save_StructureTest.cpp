// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The writer of Structure files: exact bytes, typed field by field or put together by the builder.
#include "structure/StructureFile.h"

#include <gtest/gtest.h>

#include <limits>

namespace qor::test {
namespace {

constexpr std::int32_t TooWide = 65537; // 1 in its low 16 bits

// A Structure of so many elements, all as new.
Structure Sized(std::int32_t points, std::int32_t lines = 0, std::int32_t triangles = 0, std::int32_t quads = 0)
{
    Structure structure;
    structure.NumberOfVertexPoints = points;
    structure.NumberOfEdgeLines = lines;
    structure.NumberOfSurfaceTriangles = triangles;
    structure.NumberOfQuadSurfaces = quads;
    EXPECT_EQ(AllocateStructure(structure), NoError);
    return structure;
}

// What the fields of a vertex point that tests change become; all others are those of a new one.
struct VertexFields {
    Bytes label = {};
    Bytes center = {};
    int pointType = 0;
    int normalAxis = 0;
};

RecordBytes WrittenVertex(const Bytes& numbers, const VertexFields& fields)
{
    return VertexBytes()
        .Raw(numbers)
        .Field(2, Floats({0, 0, 0}))
        .Field(4, Int32(0))
        .Field(5, Int16(0))
        .Raw(fields.label)
        .Raw(fields.center)
        .Field(22, Int16(fields.pointType))
        .Field(23, Bytes(36))
        .Field(67, Float(0))
        .Field(68, Int16(fields.normalAxis));
}
Bytes SmallVertex(int number, const VertexFields& fields = {})
{
    return WrittenVertex(Int16(1) + Int16(number), fields).Build();
}
Bytes LargeVertex(int number, const VertexFields& fields = {})
{
    return WrittenVertex(Int16(85) + Int32(number) + Int16(83) + Int32(0), fields).Build();
}

Bytes SmallFile(const Bytes& elements) { return StructureFile().Record(SubStructureOf(elements)).Build(); }
Bytes LargeFile(const Bytes& elements) { return StructureFile().Version(15).Record(SubStructureOf(elements)).Build(); }

int VersionIn(const Bytes& file) { return file.at(35) | file.at(36) << 8; }

// ---- exact bytes -------------------------------------------------------------------------------------------------

TEST(SaveStructure, AnEmptyStructureIsThese65Bytes)
{
    Structure structure;

    const Bytes bytes = SavedBytes(structure);

    EXPECT_EQ(bytes, Hex(R"(
    44 55 6C 6D 65 65 72 51 4F 52 20 42 69 6E 61 72 // DUlmeerQOR Binar
    79 20 53 74 72 75 63 74 75 72 65 20 46 69 6C 65 // y Structure File
    2E 0D 0A // . and the line end
    0C 00 // version 12
    00 00  00 00  00 00  00 00  00 00  00 00  00 00 // reserved
    00 04  06 00 00 00 // substructure record, 6 bytes
    01 00  01 00 // tag 1
    FF 00 // closing tag
    AA AA // end marker
)"));
    EXPECT_EQ(bytes.size(), 65u);
}

// One element of each kind, every field with a value of its own.
Structure OneOfEach()
{
    Structure structure = Sized(1, 1, 1, 1);
    VertexPoint& point = structure.VertexPoints[1];
    point.Label = PaddedLabel(u"P 1");
    point.Xcoord = 1;
    point.Ycoord = 2;
    point.Zcoord = -1;
    point.Bold = true;
    point.Color = 0x00112233;
    point.CenterPoint = 1;
    point.PointType = Machine;
    point.AxisEnd = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    point.Area = 0.5F;
    point.NormalAxis = Yaxis;
    point.FileExtraValue = 0x01020304;
    structure.EdgeLines[1] = {{1, 2}, true, 0x21, 0x22};
    structure.SurfaceTriangles[1] = {{1, 2, 3}, false, 0x31, 0x32};
    structure.QuadSurfaces[1] = {{1, 2, 3, -4}, true, 0x41, 0x42};
    return structure;
}

TEST(SaveStructure, ASmallStructureHasItsFieldsInTheOrderOfExistingFiles)
{
    Structure structure = OneOfEach();

    const Bytes bytes = SavedBytes(structure, {u"Label", u"n"});

    const Bytes expected = StructureFile().WithoutEndMarker().Build() + Hex(R"(
    00 11  0A 00 00 00 // notes record, 10 bytes
    06 00  01 00 00 00  6E 00 // tag 6
    FF 00
    00 04  D0 00 00 00 // substructure record, 208 bytes
    01 00  01 00 // tag 1
    02 00  05 00 00 00  4C 00  61 00  62 00  65 00  6C 00 // tag 2
    03 00 // the elements follow
    00 01  62 00 00 00 // vertex-point record, 98 bytes
    01 00  01 00 // tag 1: number
    02 00  00 00 80 3F  00 00 00 40  00 00 80 BF // tag 2: place
    04 00  33 22 11 00 // tag 4: colour
    05 00  FF FF // tag 5: bold
    07 00  03 00 00 00  50 00  20 00  31 00 // tag 7: label
    03 00  01 00 // tag 3: center
    16 00  03 00 // tag 22: point type
    17 00  00 00 80 3F  00 00 00 40  00 00 40 40 // tag 23: X of the three axes,
           00 00 80 40  00 00 A0 40  00 00 C0 40 // their Y
           00 00 E0 40  00 00 00 41  00 00 10 41 // and their Z
    43 00  00 00 00 3F // tag 67: area
    44 00  01 00 // tag 68: normal axis
    FF 00
    00 02  12 00 00 00 // edge-line record, 18 bytes
    02 00  01 00  02 00
    03 00  21 00 00 00
    04 00  FF FF
    FF 00
    00 03  14 00 00 00 // surface-triangle record, 20 bytes
    02 00  01 00  02 00  03 00
    03 00  31 00 00 00
    04 00  00 00
    FF 00
    00 1E  16 00 00 00 // quad-surface record, 22 bytes
    02 00  01 00  02 00  03 00  FC FF
    03 00  41 00 00 00
    04 00  FF FF
    FF 00
    04 00 // end of the elements
    FF 00
    AA AA
)");
    EXPECT_EQ(bytes, expected);
}

TEST(SaveStructure, ALargeStructureHasWideNumbersAndOneValueMoreAnElement)
{
    Structure structure = OneOfEach();
    structure.LargeStructureFormat = true;

    const Bytes bytes = SavedBytes(structure, {u"Label", u"n"});

    const Bytes expected = StructureFile().Version(15).WithoutEndMarker().Build() + Hex(R"(
    00 11  0A 00 00 00 // notes record, 10 bytes
    06 00  01 00 00 00  6E 00
    FF 00
    00 04  FE 00 00 00 // substructure record, 254 bytes
    01 00  01 00
    02 00  05 00 00 00  4C 00  61 00  62 00  65 00  6C 00
    03 00
    00 01  6C 00 00 00 // vertex-point record, 108 bytes
    55 00  01 00 00 00 // tag 85: number
    53 00  04 03 02 01 // tag 83: extra value
    02 00  00 00 80 3F  00 00 00 40  00 00 80 BF
    04 00  33 22 11 00
    05 00  FF FF
    07 00  03 00 00 00  50 00  20 00  31 00
    54 00  01 00 00 00 // tag 84: center
    16 00  03 00
    17 00  00 00 80 3F  00 00 00 40  00 00 40 40
           00 00 80 40  00 00 A0 40  00 00 C0 40
           00 00 E0 40  00 00 00 41  00 00 10 41
    43 00  00 00 00 3F
    44 00  01 00
    FF 00
    00 02  1C 00 00 00 // edge-line record, 28 bytes
    07 00  01 00 00 00  02 00 00 00 // tag 7: from, to
    06 00  22 00 00 00 // tag 6: extra value
    03 00  21 00 00 00
    04 00  FF FF
    FF 00
    00 03  20 00 00 00 // surface-triangle record, 32 bytes
    08 00  01 00 00 00  02 00 00 00  03 00 00 00 // tag 8: corners
    07 00  32 00 00 00 // tag 7: extra value
    03 00  31 00 00 00
    04 00  00 00
    FF 00
    00 1E  24 00 00 00 // quad-surface record, 36 bytes
    08 00  01 00 00 00  02 00 00 00  03 00 00 00  FC FF FF FF
    07 00  42 00 00 00
    03 00  41 00 00 00
    04 00  FF FF
    FF 00
    04 00
    FF 00
    AA AA
)");
    EXPECT_EQ(bytes, expected);
}

TEST(SaveStructure, ElementsStandByKindAndThenByNumber)
{
    Structure structure = Sized(3, 2, 2, 2);
    for (const std::int32_t number : {1, 2}) {
        structure.EdgeLines[number].Color = number;
        structure.SurfaceTriangles[number].Color = number + 10;
        structure.QuadSurfaces[number].Color = number + 20;
    }
    const auto element = [](RecordBytes record, int corners, int color) {
        return record.Field(2, Bytes(static_cast<std::size_t>(2 * corners)))
            .Field(3, Int32(color))
            .Field(4, Int16(0))
            .Build();
    };

    EXPECT_EQ(SavedBytes(structure),
              SmallFile(SmallVertex(1) + SmallVertex(2) + SmallVertex(3) + element(EdgeLineBytes(), 2, 1) +
                        element(EdgeLineBytes(), 2, 2) + element(TriangleBytes(), 3, 11) +
                        element(TriangleBytes(), 3, 12) + element(QuadBytes(), 4, 21) + element(QuadBytes(), 4, 22)));
}

// ---- what is left out ----------------------------------------------------------------------------------------------

TEST(SaveStructure, WithoutVertexPointsNoElementIsWritten)
{
    Structure structure = Sized(0, 2, 1, 1);

    EXPECT_EQ(SavedBytes(structure), StructureFile().Record(SubStructureBytes().Field(1, Int16(1))).Build());
}

TEST(SaveStructure, WithoutVertexPointsTheLabelIsStillWritten)
{
    Structure structure;

    EXPECT_EQ(SavedBytes(structure, {u"L", u""}),
              StructureFile().Record(SubStructureBytes().Field(1, Int16(1)).Field(2, Text(u"L"))).Build());
}

TEST(SaveStructure, LabelAndNotesAreTrimmedAtBothEnds)
{
    Structure structure;

    EXPECT_EQ(SavedBytes(structure, {u"  a label ", u" some  notes\r\n "}),
              StructureFile()
                  .Record(NotesBytes().Field(6, Text(u"some  notes\r\n")))
                  .Record(SubStructureBytes().Field(1, Int16(1)).Field(2, Text(u"a label")))
                  .Build());
}

TEST(SaveStructure, BlankLabelAndBlankNotesAreNotWritten)
{
    Structure structure;

    EXPECT_EQ(SavedBytes(structure, {u"   ", u"  "}), SavedBytes(structure));
}

TEST(SaveStructure, ABlankVertexLabelIsNotWritten)
{
    Structure structure = Sized(1);

    EXPECT_EQ(SavedBytes(structure), SmallFile(SmallVertex(1)));
}

TEST(SaveStructure, AVertexLabelIsTrimmedAtBothEnds)
{
    Structure structure = Sized(2);
    structure.VertexPoints[1].Label = PaddedLabel(u"  in ner");
    structure.VertexPoints[2].Label = PaddedLabel(u"twenty characters ok");

    EXPECT_EQ(SavedBytes(structure), SmallFile(SmallVertex(1, {.label = Int16(7) + Text(u"in ner")}) +
                                               SmallVertex(2, {.label = Int16(7) + Text(u"twenty characters ok")})));
}

TEST(SaveStructure, AVertexLabelOfZeroCharactersIsWrittenBecauseTheyAreNoBlanks)
{
    Structure structure = Sized(1);
    structure.VertexPoints[1].Label = FixedLabel{};

    EXPECT_EQ(SavedBytes(structure), SmallFile(SmallVertex(1, {.label = Int16(7) + Text(std::u16string(20, u'\0'))})));
}

// ---- center points -------------------------------------------------------------------------------------------------

TEST(SaveStructure, ACenterPointIsWrittenWhenItIsAVertexPointOfTheStructure)
{
    for (const bool large : {false, true}) {
        for (const std::int32_t center : {INT32_MIN, -1, 0, 1, 2, 3, 32768, TooWide, INT32_MAX}) {
            Structure structure = Sized(2);
            structure.LargeStructureFormat = large;
            structure.VertexPoints[1].CenterPoint = center;
            Bytes field;
            if (center == 1 || center == 2) field = large ? Int16(84) + Int32(center) : Int16(3) + Int16(center);

            const Bytes bytes = SavedBytes(structure);

            EXPECT_EQ(bytes, large ? LargeFile(LargeVertex(1, {.center = field}) + LargeVertex(2))
                                   : SmallFile(SmallVertex(1, {.center = field}) + SmallVertex(2)))
                << center << (large ? ", large" : ", small");
        }
    }
}

TEST(SaveStructure, ALargeStructureHasCenterPointsBeyond16Bits)
{
    Structure structure = Sized(40000);
    structure.VertexPoints[1].CenterPoint = 40000;

    const Bytes bytes = SavedBytes(structure);

    const Bytes first = LargeVertex(1, {.center = Int16(84) + Int32(40000)});
    ASSERT_GT(bytes.size(), 63 + first.size());
    EXPECT_EQ(Bytes(bytes.begin() + 63, bytes.begin() + 63 + std::ssize(first)), first);
}

// ---- the two variants
// ------------------------------------------------------------------------------------------------

TEST(SaveStructure, UpTo32000VertexPointsTheStructureIsSmall)
{
    Structure structure = Sized(32000);
    Bytes elements;
    for (int number = 1; number <= 32000; ++number) elements += SmallVertex(number);

    const Bytes bytes = SavedBytes(structure);

    EXPECT_TRUE(bytes == SmallFile(elements));
    EXPECT_FALSE(structure.LargeStructureFormat);
}

TEST(SaveStructure, From32001VertexPointsOnTheStructureIsLarge)
{
    Structure structure = Sized(32001);
    Bytes elements;
    for (int number = 1; number <= 32001; ++number) elements += LargeVertex(number);

    const Bytes bytes = SavedBytes(structure);

    EXPECT_TRUE(bytes == LargeFile(elements));
    EXPECT_TRUE(structure.LargeStructureFormat);
}

TEST(SaveStructure, OnceLargeAStructureStaysLargeWithFewerVertexPoints)
{
    Structure structure = Sized(32001);
    SavedBytes(structure);
    structure.NumberOfVertexPoints = 1;
    ASSERT_EQ(AllocateStructure(structure), NoError);

    EXPECT_EQ(SavedBytes(structure), LargeFile(LargeVertex(1)));
    EXPECT_EQ(VersionIn(SavedBytes(structure)), 15);
}

TEST(SaveStructure, ManyElementsOfOtherKindsDoNotMakeAStructureLarge)
{
    Structure structure = Sized(1, 32001, 32001, 32001);

    EXPECT_EQ(VersionIn(SavedBytes(structure)), 12);
}

// ---- values that do not fit -----------------------------------------------------------------------------------------

TEST(SaveStructure, ASmallStructureHasZeroForVertexNumbersBeyond16Bits)
{
    Structure structure = Sized(1, 2, 1, 1);
    structure.EdgeLines[1].VertexPoints = {32767, -32768};
    structure.EdgeLines[2].VertexPoints = {32768, -32769};
    structure.SurfaceTriangles[1].VertexPoints = {TooWide, 5, INT32_MIN};
    structure.QuadSurfaces[1].VertexPoints = {INT32_MAX, 6, 7, TooWide};
    const Bytes rest = Int16(3) + Int32(0) + Int16(4) + Int16(0);

    EXPECT_EQ(SavedBytes(structure),
              SmallFile(SmallVertex(1) + EdgeLineBytes().Field(2, Int16(32767) + Int16(-32768)).Raw(rest).Build() +
                        EdgeLineBytes().Field(2, Bytes(4)).Raw(rest).Build() +
                        TriangleBytes().Field(2, Int16(0) + Int16(5) + Int16(0)).Raw(rest).Build() +
                        QuadBytes().Field(2, Int16(0) + Int16(6) + Int16(7) + Int16(0)).Raw(rest).Build()));
}

TEST(SaveStructure, ALargeStructureHasEveryVertexNumberAsItIs)
{
    Structure structure = Sized(1, 1);
    structure.LargeStructureFormat = true;
    structure.EdgeLines[1].VertexPoints = {INT32_MAX, INT32_MIN};

    EXPECT_EQ(SavedBytes(structure), LargeFile(LargeVertex(1) + EdgeLineBytes()
                                                                    .Field(7, Int32(INT32_MAX) + Int32(INT32_MIN))
                                                                    .Field(6, Int32(0))
                                                                    .Field(3, Int32(0))
                                                                    .Field(4, Int16(0))
                                                                    .Build()));
}

TEST(SaveStructure, PointTypeAndNormalAxisAreWrittenUncheckedAndAsZeroBeyond16Bits)
{
    Structure structure = Sized(3);
    structure.VertexPoints[1].PointType = 77;
    structure.VertexPoints[1].NormalAxis = -32768;
    structure.VertexPoints[2].PointType = TooWide;
    structure.VertexPoints[2].NormalAxis = 32768;
    structure.VertexPoints[3].PointType = 32767;
    structure.VertexPoints[3].NormalAxis = INT32_MIN;

    EXPECT_EQ(SavedBytes(structure), SmallFile(SmallVertex(1, {.pointType = 77, .normalAxis = -32768}) +
                                               SmallVertex(2) + SmallVertex(3, {.pointType = 32767})));
}

TEST(SaveStructure, BoldIsWrittenAsItWasGiven)
{
    Structure structure = Sized(1, 1);
    structure.EdgeLines[1].Bold = Bool16::Raw(7);

    const Bytes bytes = SavedBytes(structure);

    EXPECT_EQ(bytes, SmallFile(SmallVertex(1) +
                               EdgeLineBytes().Field(2, Bytes(4)).Field(3, Int32(0)).Field(4, Int16(7)).Build()));
}

TEST(SaveStructure, FloatsKeepTheirBits)
{
    Structure structure = Sized(1);
    structure.VertexPoints[1].Area = std::numeric_limits<float>::quiet_NaN();
    structure.VertexPoints[1].Xcoord = -0.0F;

    const Bytes bytes = SavedBytes(structure);

    const LoadedStructure loaded = LoadStructure(bytes);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(loaded.Point(1).Area), 0x7FC00000u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(loaded.Point(1).Xcoord), 0x80000000u);
}

// ---- faults of the file
// -----------------------------------------------------------------------------------------------

TEST(SaveStructure, AFileThatTakesNoBytesIsNoFaultOfTheCaller)
{
    Structure structure = Sized(40000);
    MemoryFile full;
    full.FailBeyond(0);

    EXPECT_NO_THROW(SaveStructure(full, structure, {u"L", u"N"}));

    EXPECT_TRUE(full.Content().empty());
    EXPECT_TRUE(structure.LargeStructureFormat);
}

} // namespace
} // namespace qor::test
