// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The reader on sequences of records that no writer makes: records and tags at the very edge, files of another kind,
// and what is remembered from one record to the next.
#include "support/DataBlockFile.h"
#include "support/SameDocument.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

namespace qor::test {
namespace {

RecordBytes Numbered(int number) { return TraceBytes().Field(6, Int16(number)); }

TEST(Load_OddRecords, TheCounterOfTopLevelTracesGoesOnAcrossADataBlockRecord)
{
    const Bytes second = RecordBytes(DataBlockType).Field(3, Int16(3)).Build();

    const Loaded loaded = LoadBytes(
        SizedFile(3, 2).Behind(Numbered(7).Build() + second + Numbered(8).Build() + Numbered(9).Build()).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 0) << "reset with the document";
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 8);
    EXPECT_EQ(loaded.block.Traces[3].MeasurementType, 9);
}

TEST(Load_OddRecords, BeforeVersion9ATraceBeforeAnyDataBlockIsAFailureWithoutACode)
{
    const Loaded loaded = LoadBytes(SizedFile(1, 2).Version(8).Before(Numbered(7).Build()).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(Difference(loaded.block, DataBlock()), "") << "the record behind it is not read";
}

TEST(Load_OddRecords, FromVersion9OnATraceBeforeAnyDataBlockIsSkipped)
{
    const Bytes behind = Numbered(8).Build();

    const Loaded loaded = LoadBytes(SizedFile(2, 2).Version(9).Before(Numbered(7).Build()).Behind(behind).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 0);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 8) << "the skipped one was counted";
}

TEST(Load_OddRecords, AppendModeEndsWithItsRecord)
{
    const Bytes second = RecordBytes(DataBlockType).Field(3, Int16(3)).Field(3, Int16(4)).Build();

    const Loaded loaded = LoadBytes(DataBlockFile().Field(1, Int16(1)).Field(3, Int16(2)).Behind(second).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfTraces, 4);
    EXPECT_EQ(loaded.block.Traces.Count(), 4);
}

TEST(Load_OddRecords, AppendModeOfARecordInAListDoesNotReachTheRecordAround)
{
    const RecordBytes inner = RecordBytes(DataBlockType).Field(1, Int16(1)).Field(3, Int16(5));

    const Loaded loaded =
        LoadBytes(DataBlockFile().Field(3, Int16(2)).Field(11).Nested(inner).Field(12).Field(3, Int16(3)).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfTraces, 3);
}

TEST(Load_OddRecords, CountsThatAddUpToTooFewFailButReadingGoesOn)
{
    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .Field(1, Int16(1))
                                        .Field(3, Int16(-32768))
                                        .Field(3, Int16(-1))
                                        .Field(2, Text(u"behind"))
                                        .Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfTraces, -32768);
    EXPECT_EQ(loaded.block.Label, u"behind");
}

TEST(Load_OddRecords, AnUnknownTagMayBeTheLastOfItsRecord)
{
    const Bytes fields = Int16(4) + Int32(5) + Int16(200);
    const Bytes record = Int16(DataBlockType) + Int32(static_cast<std::int64_t>(fields.size())) + fields;

    const Loaded loaded = LoadBytes(DataBlockFile().WithoutRecord().Behind(record).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfSamples, 5);
    EXPECT_TRUE(loaded.block.DataBlockFromFile);
}

TEST(Load_OddRecords, AnUnknownTagMayBeTheLastOfItsTrace)
{
    const Bytes fields = Int16(6) + Int16(7) + Int16(250);
    const Bytes trace = Int16(TraceType) + Int32(static_cast<std::int64_t>(fields.size())) + fields;

    const Loaded loaded = LoadBytes(SizedFile(2, 2).Field(11).Raw(trace).Nested(Numbered(8)).Field(12).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 8);
}

TEST(Load_OddRecords, AnUnknownRecordMayHaveLengthZero)
{
    const Bytes nothing = Int16(4096) + Int32(0);

    const Loaded loaded = LoadBytes(
        SizedFile(1, 2).Before(nothing).Field(11).Raw(nothing).Nested(Numbered(7)).Raw(nothing).Field(12).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7);
}

TEST(Load_OddRecords, ASubRecordMayHaveLengthZero)
{
    const Bytes nothing = Int16(SubRecordType) + Int32(0);
    for (const int version : {8, 12}) {
        const Loaded loaded =
            LoadBytes(SizedFile(1, 2)
                          .Version(version)
                          .Field(11)
                          .Nested(TraceBytes().Field(27).Raw(nothing + nothing).Field(28).Field(6, Int16(7)))
                          .Field(12)
                          .Build());
        EXPECT_EQ(loaded.status, Success) << version;
        EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7) << version;
    }
}

// A Shape Table file that holds so many DOFs of two shapes.
Bytes ShapeTableFile(int dofs)
{
    const TemporaryFolder folder;
    clsQOR_File component;
    component.ShapeTable_NumberOfShapes(2);
    component.ShapeTable_NumberOfDOFs(dofs);
    EXPECT_EQ(component.OutputShapeTableFile(Utf16(folder / "shapes")), Success);
    return BytesOf(folder / "shapes");
}

// Its first word is taken for a type code and the number of shapes for part of a length, which leads behind the end.
TEST(Load_OddRecords, AShapeTableFileLeavesTheDocumentEmptyAndHasNoEndMarker)
{
    for (const int dofs : {1, 3, 500, TraceType, SubRecordType}) {
        const Loaded loaded = LoadBytes(ShapeTableFile(dofs));
        EXPECT_EQ(loaded.status, Success) << dofs;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << dofs;
        EXPECT_EQ(Difference(loaded.block, DataBlock()), "") << dofs;
    }
}

TEST(Load_OddRecords, AShapeTableFileWhoseFirstWordIsAListEndHasEndedThere)
{
    for (const int dofs : {12, 28, 255}) {
        const Loaded loaded = LoadBytes(ShapeTableFile(dofs));
        EXPECT_EQ(loaded.status, Success) << dofs;
        EXPECT_EQ(loaded.error, NoError) << dofs;
        EXPECT_EQ(Difference(loaded.block, DataBlock()), "") << dofs;
    }
}

} // namespace
} // namespace qor::test
