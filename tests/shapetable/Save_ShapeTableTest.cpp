// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The writer of Shape Table files: exact bytes of everything before the values, and what a fault leaves.
#include "shapetable/Saving.h"

#include <limits>
#include <new>
#include <utility>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

// ---- the whole file -------------------------------------------------------------------------------------------

TEST(SaveShapeTable, TwoShapesOfTwoDOFsAreTheseBytes)
{
    const Bytes expected = Hex(R"(
    44 55 27 6C 6D 65 65 72 20 42 69 6E 61 72 79 20 // DU'lmeer Binary
    53 68 61 70 65 54 61 62 6C 65 20 46 69 6C 65 2E // ShapeTable File.
    0D 0A // the line end
    0C 00 // version 12
    00 00  00 00  00 00  00 00  00 00  00 00  00 00 // reserved
    02 00 00 00 // DOFs
    02 00 00 00 // shapes
    02 00 00 00  54 00  31 00 // label, T1
    01 00 00 00  4E 00 // notes, N
    01 00
    00 00 07 43 // 135
    00 00  00 00
    06 00 00 00  53 00  79 00  73 00  74 00  65 00  6D 00 // System
    00 00 20 41 // 10
    00 00  00 00  00 00  00 00
    FF FF  FF FF  FF FF  FF FF  FF FF  FF FF  FF FF  FF FF
    00 00  00 00  00 00  00 00  00 00  00 00  00 00  00 00
    01 00 00 00  41 00 // shape 1: label, A
    00 00 48 41 // ordinate, 12.5
    02 00 00 00  48 00  7A 00 // units of the ordinate, Hz
    00 00 80 3E // damping, 0.25
    01 00 00 00  44 00 // date and time, D
    00 00 00 00
    00 00 00 00 // shape 2: no label
    00 00 00 C0 // ordinate, -2
    00 00 00 00
    00 00 00 00
    00 00 00 00
    00 00 00 00
    01 00 00 00  61 00 // DOF 1: label, a
    05 00  05 00 // measurement type, kind of data
    02 00 00 00  31 00  5A 00 // degree of freedom, 1Z
    01 00 00 00  67 00 // units, g
    00 00 00 00
    00 00 00 00  00 00 00 00 // two empty texts
    00 00 00 00 // DOF 2: no label
    14 00  03 00 // measurement type, kind of data
    00 00 00 00
    00 00 00 00
    00 00 00 00
    00 00 00 00  00 00 00 00
    00 00 80 3F  00 00 00 00 // shape 1, DOF 1: 1
    00 00 00 40  00 00 00 00 // shape 1, DOF 2: 2
    00 00 40 40  00 00 00 00 // shape 2, DOF 1: 3
    00 00 80 40  00 00 00 00 // shape 2, DOF 2: 4
)");
    Document document = Sized(2, 2);
    document.texts = {u"T1", u"N"};
    document.table.Shapes[0] = {u"A", 12.5F, 0.25F, u"D", u"Hz"};
    document.table.Shapes[1].Ordinate = -2;
    document.table.DOFs[0] = {u"a", u"1Z", DataIsVector, ST_MeasurementIsTransmissibility, u"g"};
    document.Value(1, 1).Magnitude = 1;
    document.Value(1, 2).Magnitude = 2;
    document.Value(2, 1).Magnitude = 3;
    document.Value(2, 2).Magnitude = 4;

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Success);
    EXPECT_EQ(saved.bytes, expected);
}

TEST(SaveShapeTable, NothingStandsBehindTheValues)
{
    const Saved saved = Save(Sized(3, 2));

    EXPECT_EQ(saved.status, Success);
    EXPECT_EQ(saved.bytes, NewTableBytes(3, 2) + Bytes(3 * 2 * 8));
}

TEST(SaveShapeTable, TheIdentificationIsInBytesAndEveryTextBehindItInUnits)
{
    Document document = Sized(1, 1);
    document.texts.Label = u"DU";

    const Bytes bytes = Save(document).bytes;

    const Bytes identification = Ascii("DU'lmeer Binary ShapeTable File.\r\n");
    EXPECT_EQ(identification.size(), 34U);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 34), identification);
    EXPECT_EQ(Bytes(bytes.begin() + 58, bytes.begin() + 66), Hex("02 00 00 00 44 00 55 00"));
}

// ---- texts ----------------------------------------------------------------------------------------------------

TEST(SaveShapeTable, TextsButUnitsKeepTheBlanksAroundThem)
{
    Document document = Sized(1, 1);
    document.texts = {u" l ", u"  "};
    document.table.Shapes[0].Label = u" s ";
    document.table.Shapes[0].DateAndTime = u" t ";
    document.table.DOFs[0].Label = u" d ";
    document.table.DOFs[0].DegreesOfFreedom = u" 1Z ";
    const Bytes shape = Text(u" s ") + Float(0) + Text(u"") + Float(0) + Text(u" t ") + Bytes(4);
    const Bytes dof = Text(u" d ") + Int16(20) + Int16(3) + Text(u" 1Z ") + Text(u"") + Bytes(12);

    EXPECT_EQ(Save(document).bytes, HeaderBytes(1, 1, u" l ", u"  ") + shape + dof + Bytes(8));
}

TEST(SaveShapeTable, UnitsAreWrittenWithoutTheBlanksAroundThem)
{
    struct Case {
        const char16_t* units;
        const char16_t* written;
    };
    const Case cases[] = {
        {u"   g  ", u"g"}, {u"m/s  s", u"m/s  s"}, {u" ", u""}, {u"    ", u""}, {u"\tg\u00A0", u"\tg\u00A0"}};
    for (const auto& [units, written] : cases) {
        Document document = Sized(1, 1);
        document.table.Shapes[0].OrdinateUnits = units;
        document.table.DOFs[0].MeasurementUnits = units;
        const Bytes shape = Text(u"") + Float(0) + Text(written) + Float(0) + Bytes(8);
        const Bytes dof = Text(u"") + Int16(20) + Int16(3) + Text(u"") + Text(written) + Bytes(12);

        EXPECT_EQ(Save(document).bytes, HeaderBytes(1, 1) + shape + dof + Bytes(8));
    }
}

TEST(SaveShapeTable, TextsKeepEveryUnit)
{
    const std::u16string text = {u'a', u'\0', 0x00E4, 0x4E2D, 0xDC00, 0xD83D, 0xFFFF};
    Document document = Sized(1, 1);
    document.texts.Notes = text;
    const Bytes units = Hex("07 00 00 00  61 00  00 00  E4 00  2D 4E  00 DC  3D D8  FF FF");

    const Bytes bytes = Save(document).bytes;

    EXPECT_EQ(Bytes(bytes.begin() + 62, bytes.begin() + 80), units);
}

// ---- measurement type -----------------------------------------------------------------------------------------

TEST(SaveShapeTable, TheMeasurementTypeDecidesTheKindOfData)
{
    struct Case {
        std::int32_t type;
        int written;
        int kind;
    };
    const Case cases[] = {
        {0, 20, 3},  {1, 1, 3},   {3, 3, 3},   {4, 4, 4},   {5, 5, 5},         {6, 6, 3},
        {20, 20, 3}, {35, 35, 3}, {99, 99, 3}, {-1, -1, 3}, {32767, 32767, 3}, {-32768, -32768, 3},
    };
    for (const auto& [type, written, kind] : cases) {
        Document document = Sized(1, 1);
        document.table.DOFs[0].MeasurementType = type;
        const Bytes dof = Text(u"") + Int16(written) + Int16(kind) + Bytes(20);

        const Saved saved = Save(document);

        EXPECT_EQ(saved.status, Success) << type;
        EXPECT_EQ(saved.bytes, HeaderBytes(1, 1) + NewShapeBytes() + dof + Bytes(8)) << type;
    }
}

TEST(SaveShapeTable, TheDataSVTOfADOFIsNotWritten)
{
    for (const std::int32_t kind : {0, 3, 4, 5, 6}) {
        Document document = Sized(1, 1);
        document.table.DOFs[0].DataSVT = kind;

        EXPECT_EQ(Save(document).bytes, NewTableBytes(1, 1) + Bytes(8)) << kind;
    }
}

TEST(SaveShapeTable, AMeasurementTypeBeyond16BitsEndsTheFileBehindTheLabelOfItsDOF)
{
    for (const std::int32_t type : {32768, -32769, 65536, LargestInt32, SmallestInt32}) {
        Document document = Sized(1, 3);
        document.table.DOFs[1] = {u"two", u"2Z", DataIsVector, type, u"g"};

        const Saved saved = Save(document);

        EXPECT_EQ(saved.status, Failure) << type;
        EXPECT_EQ(saved.bytes, HeaderBytes(3, 1) + NewShapeBytes() + NewDOFBytes() + Text(u"two")) << type;
    }
}

// ---- counts and arrays that differ ----------------------------------------------------------------------------

TEST(SaveShapeTable, FewerShapesThanTheCountEndTheFileBehindThem)
{
    Document document = Sized(2, 2);
    document.counts.NumberOfShapes = 3;

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Failure);
    EXPECT_EQ(saved.bytes, HeaderBytes(2, 3) + Times(2, NewShapeBytes()));
}

TEST(SaveShapeTable, FewerDOFsThanTheCountEndTheFileBehindThem)
{
    Document document = Sized(2, 2);
    document.counts.NumberOfDOFs = 3;

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Failure);
    EXPECT_EQ(saved.bytes, HeaderBytes(3, 2) + Times(2, NewShapeBytes()) + Times(2, NewDOFBytes()));
}

TEST(SaveShapeTable, AbsentArraysLeaveTheHeaderOnly)
{
    Document document;
    document.counts = {2, 3, true};

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Failure);
    EXPECT_EQ(saved.bytes, HeaderBytes(3, 2));
}

TEST(SaveShapeTable, AbsentValuesLeaveAFileWithoutValues)
{
    Document document = Sized(2, 3);
    document.table.ShapeValues.reset();

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Failure);
    EXPECT_EQ(saved.bytes, NewTableBytes(2, 3));
}

// Two objects whose counts cross leave each other's values in place, but not the records.
TEST(SaveShapeTable, NoValuesStandBehindRecordsThatAreMissing)
{
    Document fewerShapes = Sized(3, 2);
    fewerShapes.table.Shapes.resize(2);
    Document fewerDOFs = Sized(2, 3);
    fewerDOFs.table.DOFs.resize(2);

    const Saved withoutShape = Save(fewerShapes);
    const Saved withoutDOF = Save(fewerDOFs);

    EXPECT_EQ(withoutShape.status, Failure);
    EXPECT_EQ(withoutShape.bytes, HeaderBytes(2, 3) + Times(2, NewShapeBytes()));
    EXPECT_EQ(withoutDOF.status, Failure);
    EXPECT_EQ(withoutDOF.bytes, HeaderBytes(3, 2) + Times(2, NewShapeBytes()) + Times(2, NewDOFBytes()));
}

TEST(SaveShapeTable, TooFewValuesAreNotWrittenInPart)
{
    for (const auto& [shapes, dofs] : {std::pair{1, 3}, std::pair{2, 2}, std::pair{3, 2}}) {
        Document document = Sized(2, 3);
        document.table.ShapeValues = ShapeMatrix::Zeros(shapes, dofs);

        const Saved saved = Save(document);

        EXPECT_EQ(saved.status, Failure) << shapes << " x " << dofs;
        EXPECT_EQ(saved.bytes, NewTableBytes(2, 3)) << shapes << " x " << dofs;
    }
}

TEST(SaveShapeTable, ArraysBeyondTheCountsAreWrittenAsFarAsTheCountsGo)
{
    Document document = Sized(3, 4);
    float magnitude = 0;
    for (std::int32_t shape = 1; shape <= 3; ++shape) {
        for (std::int32_t dof = 1; dof <= 4; ++dof) document.Value(shape, dof).Magnitude = ++magnitude;
    }
    document.counts.NumberOfShapes = 2;
    document.counts.NumberOfDOFs = 3;

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Success);
    EXPECT_EQ(saved.bytes, NewTableBytes(2, 3) + Floats({1, 0, 2, 0, 3, 0, 5, 0, 6, 0, 7, 0}));
}

// ---- a full disk ----------------------------------------------------------------------------------------------

TEST(SaveShapeTable, FailsWhereverTheDiskIsFull)
{
    const Document document = Sized(2, 2);
    const std::size_t whole = Save(document).bytes.size();
    for (std::size_t room = 0; room <= whole; ++room) {
        MemoryFile file;
        file.FailBeyond(room);
        const ReturnStatus status = SaveShapeTable(file, document.table, document.counts, document.texts);
        EXPECT_EQ(status, room < whole ? Failure : Success) << room;
    }
}

TEST(SaveShapeTable, AFullDiskKeepsTheBeginningOfALargeFile)
{
    const Document document = Sized(1000, 1000);
    const Bytes whole = Save(document).bytes;
    MemoryFile file;
    file.FailBeyond(whole.size() / 2);

    EXPECT_EQ(SaveShapeTable(file, document.table, document.counts, document.texts), Failure);

    const Bytes& kept = file.Content();
    ASSERT_GT(kept.size(), 0U);
    EXPECT_EQ(kept, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(kept.size())));
}

TEST(SaveShapeTable, WithoutMemoryToWriteWithFails)
{
    struct SinkWithoutMemory : ByteSink {
        bool WriteAt(std::uint64_t, std::span<const std::byte>) override { throw std::bad_alloc(); }
    };
    SinkWithoutMemory sink;
    const Document document = Sized(1, 1);

    EXPECT_EQ(SaveShapeTable(sink, document.table, document.counts, document.texts), Failure);
}

// ---- whether there is anything to write -----------------------------------------------------------------------

TEST(IsWritable, NeedsShapesAndDOFsWhoseProductFits32Bits)
{
    struct Case {
        std::int32_t shapes;
        std::int32_t dofs;
        bool writable;
    };
    const Case cases[] = {
        {0, 0, false},           {2, 0, false},
        {0, 2, false},           {1, 1, true},
        {LargestInt32, 1, true}, {1, LargestInt32, true},
        {46340, 46341, true},    {46341, 46341, false},
        {65536, 65536, false},   {LargestInt32, LargestInt32, false},
    };
    for (const auto& [shapes, dofs, writable] : cases) {
        EXPECT_EQ(IsWritable({shapes, dofs, true}), writable) << shapes << " x " << dofs;
    }
}

} // namespace
} // namespace qor::test
