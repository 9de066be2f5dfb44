// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Shape Table through the published members: sizes, the properties of shapes and DOFs, and values.
#include "component/ShapeTableAccess.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <thread>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

// ---- table ----------------------------------------------------------------------------------------------------

TEST(ShapeTable, IsEmptyInANewObject)
{
    clsQOR_File file;
    EXPECT_EQ(file.ShapeTable_Label(), u"");
    EXPECT_EQ(file.ShapeTable_Notes(), u"");
    EXPECT_EQ(file.ShapeTable_NumberOfShapes(), 0);
    EXPECT_EQ(file.ShapeTable_NumberOfDOFs(), 0);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(ShapeTable, LabelAndNotesAreKeptAsPassed)
{
    clsQOR_File file;
    const std::u16string texts[] = {u"  a text ", u"", {u'a', u'\0', u'b'}, {0xDC00, 0x00E4, 0x4E2D}};
    for (const std::u16string& text : texts) {
        file.ShapeTable_Label(text);
        file.ShapeTable_Notes(text + u"2");
        EXPECT_EQ(file.ShapeTable_Label(), text);
        EXPECT_EQ(file.ShapeTable_Notes(), text + u"2");
    }
}

TEST(ShapeTable, LabelNotesAndCountsBelongToTheObject)
{
    clsQOR_File first;
    clsQOR_File second;
    first.ShapeTable_Label(u"first");
    first.ShapeTable_Notes(u"notes");
    SizeShapes(first, 3, 4);

    EXPECT_EQ(second.ShapeTable_Label(), u"");
    EXPECT_EQ(second.ShapeTable_Notes(), u"");
    EXPECT_EQ(second.ShapeTable_NumberOfShapes(), 0);
    EXPECT_EQ(second.ShapeTable_NumberOfDOFs(), 0);
}

TEST(ShapeTable, NegativeCountsAre0)
{
    clsQOR_File file;
    for (const std::int32_t count : {-1, -3, SmallestInt32}) {
        SizeShapes(file, 2, 2);
        file.ShapeTable_NumberOfShapes(count);
        file.ShapeTable_NumberOfDOFs(count);
        EXPECT_EQ(file.ShapeTable_NumberOfShapes(), 0);
        EXPECT_EQ(file.ShapeTable_NumberOfDOFs(), 0);
        EXPECT_EQ(file.ErrorStatus(), NoError);
    }
}

TEST(ShapeTable, WithANegativeNumberOfShapesHasNoValuesToRead)
{
    clsQOR_File file;
    file.ShapeTable_NumberOfShapes(-3);

    EXPECT_EQ(file.ShapeTable_NumberOfShapes(), 0);
    EXPECT_EQ(ReadShape(file, 1, 1), Refused());
    EXPECT_EQ(file.ErrorStatus(), ShapeDataNotAllocated);
}

TEST(InitializeShapeTableStorage, EmptiesTheTableAndKeepsLabelAndNotes)
{
    clsQOR_File file;
    file.ShapeTable_Label(u"label");
    file.ShapeTable_Notes(u"notes");
    SizeShapes(file, 2, 2);
    file.Shape_Label(1, u"gone");
    file.DOF_Label(1, u"gone");
    file.WriteShapeDOFvalue(1, 1, 5, 6);

    file.InitializeShapeTableStorage();

    EXPECT_EQ(file.ShapeTable_NumberOfShapes(), 0);
    EXPECT_EQ(file.ShapeTable_NumberOfDOFs(), 0);
    EXPECT_EQ(file.ShapeTable_Label(), u"label");
    EXPECT_EQ(file.ShapeTable_Notes(), u"notes");
    EXPECT_EQ(ReadShape(file, 1, 1), Refused());
    SizeShapes(file, 2, 2);
    EXPECT_EQ(file.Shape_Label(1), u"");
    EXPECT_EQ(file.DOF_Label(1), u"");
    EXPECT_EQ(ReadShape(file, 1, 1), Holds(0));
}

TEST(InitializeShapeTableStorage, LeavesTheErrorStatus)
{
    clsQOR_File file;
    file.ErrorStatus(AxisNumberError);
    file.InitializeShapeTableStorage();
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
}

// ---- sizing ---------------------------------------------------------------------------------------------------

TEST(ShapeTableCounts, KeepTheRecordsThatRemain)
{
    clsQOR_File file;
    SizeShapes(file, 2, 3);
    file.Shape_Label(1, u"S1");
    file.Shape_Label(2, u"S2");
    file.DOF_Label(1, u"D1");
    file.DOF_Label(3, u"D3");

    file.ShapeTable_NumberOfShapes(1);
    file.ShapeTable_NumberOfShapes(3);
    file.ShapeTable_NumberOfDOFs(4);

    EXPECT_EQ(file.Shape_Label(1), u"S1");
    EXPECT_EQ(file.Shape_Label(2), u"") << "it was cut off";
    EXPECT_EQ(file.DOF_Label(1), u"D1");
    EXPECT_EQ(file.DOF_Label(3), u"D3");
    EXPECT_EQ(file.DOF_Label(4), u"");
}

TEST(ShapeTableCounts, OfZeroReleaseTheirRecordsAndTheValues)
{
    clsQOR_File file;
    SizeShapes(file, 2, 2);
    file.Shape_Label(1, u"kept");
    file.DOF_Label(1, u"gone");
    file.WriteShapeDOFvalue(1, 1, 5, 6);

    file.ShapeTable_NumberOfDOFs(0);
    file.ShapeTable_NumberOfDOFs(2);

    EXPECT_EQ(file.Shape_Label(1), u"kept");
    EXPECT_EQ(file.DOF_Label(1), u"");
    EXPECT_EQ(ReadShape(file, 1, 1), Holds(0));
}

TEST(ShapeTableCounts, SetAgainToTheSameZeroTheValuesOfATableThatIsNotSquare)
{
    for (const bool shapes : {true, false}) {
        clsQOR_File file;
        SizeShapes(file, 3, 10);
        NumberValues(file);

        if (shapes) file.ShapeTable_NumberOfShapes(3);
        if (!shapes) file.ShapeTable_NumberOfDOFs(10);

        for (std::int32_t shape = 1; shape <= 3; ++shape) {
            for (std::int32_t dof = 1; dof <= 10; ++dof) EXPECT_EQ(ReadShape(file, shape, dof), Holds(0));
        }
        EXPECT_EQ(file.ErrorStatus(), NoError);
    }
}

TEST(ShapeTableCounts, SetAgainToTheSameKeepTheValuesOfASquareTable)
{
    clsQOR_File file;
    SizeShapes(file, 3, 3);
    NumberValues(file);

    file.ShapeTable_NumberOfShapes(3);
    file.ShapeTable_NumberOfDOFs(3);

    for (std::int32_t shape = 1; shape <= 3; ++shape) {
        for (std::int32_t dof = 1; dof <= 3; ++dof) EXPECT_EQ(ReadShape(file, shape, dof), Numbered(shape, dof));
    }
}

TEST(ShapeTableCounts, ChangingTheShapesOfASquareTableKeepsTheValuesThatRemain)
{
    for (const std::int32_t shapes : {1, 2, 4, 7}) {
        clsQOR_File file;
        SizeShapes(file, 3, 3);
        NumberValues(file);

        file.ShapeTable_NumberOfShapes(shapes);

        EXPECT_EQ(file.ErrorStatus(), NoError);
        for (std::int32_t shape = 1; shape <= shapes; ++shape) {
            for (std::int32_t dof = 1; dof <= 3; ++dof) {
                EXPECT_EQ(ReadShape(file, shape, dof), shape <= 3 ? Numbered(shape, dof) : Holds(0));
            }
        }
    }
}

TEST(ShapeTableCounts, ChangingTheDOFsOfASquareTableZeroesTheValues)
{
    for (const std::int32_t dofs : {2, 4}) {
        clsQOR_File file;
        SizeShapes(file, 3, 3);
        NumberValues(file);

        file.ShapeTable_NumberOfDOFs(dofs);

        EXPECT_EQ(file.ErrorStatus(), NoError);
        for (std::int32_t dof = 1; dof <= dofs; ++dof) EXPECT_EQ(ReadShape(file, 1, dof), Holds(0));
    }
}

TEST(ShapeTableCounts, ChangingTheShapesOfATableThatIsNotSquareZeroesTheValues)
{
    clsQOR_File file;
    SizeShapes(file, 3, 10);
    NumberValues(file);

    file.ShapeTable_NumberOfShapes(10);

    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(ReadShape(file, 1, 1), Holds(0));
    EXPECT_EQ(ReadShape(file, 10, 10), Holds(0));
}

// The comparison with the count of the other extent asks for a resize that cannot keep the values.
TEST(ShapeTableCounts, SettingTheDOFsToTheNumberOfShapesEmptiesATableThatIsNotSquare)
{
    clsQOR_File file;
    file.ShapeTable_Label(u"kept");
    SizeShapes(file, 3, 10);
    file.Shape_Label(1, u"gone");

    file.ShapeTable_NumberOfDOFs(3);

    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    EXPECT_EQ(file.ShapeTable_NumberOfShapes(), 0);
    EXPECT_EQ(file.ShapeTable_NumberOfDOFs(), 0);
    EXPECT_EQ(file.ShapeTable_Label(), u"kept");
    EXPECT_EQ(modQOR_File().LastAllocationResult, Failure);
    EXPECT_EQ(file.WriteShapeDOFvalue(1, 1, 0, 0), Failure);
    EXPECT_EQ(file.ErrorStatus(), ShapeDataNotAllocated);
}

TEST(ShapeTableCounts, ClearAnEarlierErrorOfTheirObject)
{
    clsQOR_File file;
    clsQOR_File other;
    file.ErrorStatus(AxisNumberError);
    other.ErrorStatus(AxisNumberError);
    file.ShapeTable_NumberOfShapes(1);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (14): Axis Number error") << "the text stays";
    EXPECT_EQ(other.ErrorStatus(), AxisNumberError);
    EXPECT_EQ(modQOR_File().LastAllocationResult, Success);
}

TEST(ShapeTableCounts, BeyondOneArrayEmptyTheTableAndTellWhy)
{
    struct Case {
        std::int32_t shapes;
        std::int32_t dofs;
    };
    for (const auto& [shapes, dofs] : {Case{LargestInt32, 1}, Case{1, LargestInt32}, Case{100'000, 100'000}}) {
        clsQOR_File file;
        file.ShapeTable_Notes(u"kept");
        SizeShapes(file, 1, 1);
        platform::LastPostedError() = {};

        if (shapes > 1) file.ShapeTable_NumberOfShapes(shapes);
        if (dofs > 1) file.ShapeTable_NumberOfDOFs(dofs);

        EXPECT_EQ(file.GetLastErrorString().substr(0, 9), u"Error (1)") << shapes << " x " << dofs;
        EXPECT_NE(platform::LastPostedError().number, 0U);
        EXPECT_EQ(file.ErrorStatus(), AllocationError);
        EXPECT_EQ(file.ShapeTable_NumberOfShapes(), 0);
        EXPECT_EQ(file.ShapeTable_NumberOfDOFs(), 0);
        EXPECT_EQ(file.ShapeTable_Notes(), u"kept");
        EXPECT_TRUE(modQOR_File().ShapeTable.Shapes.empty() && modQOR_File().ShapeTable.DOFs.empty());

        SizeShapes(file, 2, 2);
        EXPECT_EQ(file.ErrorStatus(), NoError) << "the table can be built anew";
        EXPECT_EQ(ReadShape(file, 2, 2), Holds(0));
    }
}

// ---- values ---------------------------------------------------------------------------------------------------

TEST(ShapeDOFvalue, IsKeptAsPassed)
{
    clsQOR_File file;
    SizeShapes(file, 2, 3);
    const float values[] = {0,
                            -0.0F,
                            -1.5F,
                            1e-45F,
                            std::numeric_limits<float>::max(),
                            std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN()};
    for (const float magnitude : values) {
        for (const float phase : values) {
            EXPECT_EQ(file.WriteShapeDOFvalue(2, 3, magnitude, phase), Success);
            EXPECT_EQ(ReadShape(file, 2, 3), Holds(magnitude, phase));
        }
    }
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(ShapeDOFvalue, HasAPlaceOfItsOwn)
{
    clsQOR_File file;
    SizeShapes(file, 4, 3);
    NumberValues(file);
    for (std::int32_t shape = 1; shape <= 4; ++shape) {
        for (std::int32_t dof = 1; dof <= 3; ++dof) EXPECT_EQ(ReadShape(file, shape, dof), Numbered(shape, dof));
    }
}

struct ValueCheck {
    std::int32_t shapes, dofs, shape, dof;
    ErrorStatusTypes writeError, readError;
};

TEST(ShapeDOFvalue, IsCheckedForShapesThenShapeNumberThenDOFsThenDOFNumber)
{
    const ValueCheck cases[] = {
        {0, 0, 1, 1, ShapeDataNotAllocated, ShapeDataNotAllocated},
        {0, 3, 0, 0, ShapeDataNotAllocated, ShapeDataNotAllocated},
        {4, 0, 5, 1, ShapeIndexError, SampleIndexError},
        {4, 0, 0, 1, ShapeIndexError, SampleIndexError},
        {4, 0, 2, 1, DOFsNotAllocated, DOFsNotAllocated},
        {4, 0, 2, 0, DOFsNotAllocated, DOFsNotAllocated},
        {4, 3, 5, 4, ShapeIndexError, SampleIndexError},
        {4, 3, -1, 1, ShapeIndexError, SampleIndexError},
        {4, 3, SmallestInt32, 1, ShapeIndexError, SampleIndexError},
        {4, 3, LargestInt32, 1, ShapeIndexError, SampleIndexError},
        {4, 3, 4, 4, DOFIndexError, DOFIndexError},
        {4, 3, 1, 0, DOFIndexError, DOFIndexError},
        {4, 3, 1, SmallestInt32, DOFIndexError, DOFIndexError},
        {4, 3, 1, LargestInt32, DOFIndexError, DOFIndexError},
    };
    for (const auto& [shapes, dofs, shape, dof, writeError, readError] : cases) {
        clsQOR_File file;
        SizeShapes(file, shapes, dofs);
        EXPECT_EQ(file.WriteShapeDOFvalue(shape, dof, 1, 2), Failure);
        EXPECT_EQ(file.ErrorStatus(), writeError) << shape << " of " << shapes << ", " << dof << " of " << dofs;
        EXPECT_EQ(ReadShape(file, shape, dof), Refused());
        EXPECT_EQ(file.ErrorStatus(), readError) << shape << " of " << shapes << ", " << dof << " of " << dofs;
    }
}

TEST(ShapeDOFvalue, OfASuccessLeavesTheErrorStatus)
{
    clsQOR_File file;
    SizeShapes(file, 1, 1);
    file.ErrorStatus(AxisNumberError);
    EXPECT_EQ(file.WriteShapeDOFvalue(1, 1, 1, 2), Success);
    EXPECT_EQ(ReadShape(file, 1, 1), Holds(1, 2));
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
}

// ---- objects of one thread ------------------------------------------------------------------------------------

TEST(ShapeTablesOfOneThread, ShareRecordsAndValues)
{
    clsQOR_File first;
    clsQOR_File second;
    SizeShapes(first, 2, 2);
    SizeShapes(second, 2, 2);
    first.Shape_Label(2, u"shared");
    first.DOF_Label(1, u"shared");
    first.WriteShapeDOFvalue(2, 1, 3, 4);

    EXPECT_EQ(second.Shape_Label(2), u"shared");
    EXPECT_EQ(second.DOF_Label(1), u"shared");
    EXPECT_EQ(ReadShape(second, 2, 1), Holds(3, 4));
}

TEST(ShapeTablesOfOneThread, SkipAccessesThatTheSharedArraysDoNotHold)
{
    clsQOR_File large;
    clsQOR_File small;
    SizeShapes(large, 5, 6);
    SizeShapes(small, 1, 2);

    EXPECT_EQ(large.WriteShapeDOFvalue(5, 6, 1, 2), Success);
    SampleRead skipped = Refused();
    skipped.status = Success;
    EXPECT_EQ(ReadShape(large, 5, 6), skipped) << "the caller's values stay";
    EXPECT_EQ(ReadShape(large, 1, 3), skipped);
    EXPECT_EQ(ReadShape(large, 2, 1), skipped);
    large.Shape_Label(5, u"skipped");
    large.Shape_Ordinate(5, 1);
    large.DOF_Label(6, u"skipped");
    large.DOF_DataSVT(6, DataIsTensor);
    EXPECT_EQ(large.Shape_Label(5), u"");
    EXPECT_EQ(large.Shape_Ordinate(5), 0);
    EXPECT_EQ(large.DOF_Label(6), u"");
    EXPECT_EQ(large.DOF_DataSVT(6), DataIsVector);
    EXPECT_EQ(large.DOF_MeasurementType(6), ST_MeasurementIsUndefined);
    EXPECT_EQ(large.ErrorStatus(), NoError);
}

TEST(ShapeTablesOfOneThread, AreEmptiedByANewObjectWhileCountsStay)
{
    clsQOR_File first;
    SizeShapes(first, 2, 2);
    first.Shape_Label(1, u"gone");
    first.WriteShapeDOFvalue(1, 1, 3, 4);

    const clsQOR_File second;

    EXPECT_EQ(first.ShapeTable_NumberOfShapes(), 2);
    EXPECT_EQ(first.Shape_Label(1), u"");
    EXPECT_EQ(first.WriteShapeDOFvalue(1, 1, 3, 4), Success);
    EXPECT_EQ(ReadShape(first, 1, 1).first, UntouchedFirst);
    EXPECT_EQ(first.ErrorStatus(), NoError);
}

// Counts that cross those of the matrix pass the comparison, which leaves the other object's matrix in place.
TEST(ShapeTablesOfOneThread, KeepAMatrixOfCrossedCounts)
{
    clsQOR_File first;
    clsQOR_File second;
    SizeShapes(second, 3, 2);
    SizeShapes(first, 2, 3);
    NumberValues(first);

    second.ShapeTable_NumberOfShapes(3);

    EXPECT_EQ(second.ErrorStatus(), NoError);
    EXPECT_EQ(ReadShape(second, 2, 2), Numbered(2, 2));
    EXPECT_EQ(ReadShape(second, 3, 1).first, UntouchedFirst) << "beyond the matrix of 2 by 3";
}

TEST(ShapeTablesOfTwoThreads, ShareNothing)
{
    clsQOR_File file;
    SizeShapes(file, 1, 1);
    file.WriteShapeDOFvalue(1, 1, 3, 4);

    std::thread([] {
        clsQOR_File other;
        SizeShapes(other, 1, 1);
        EXPECT_EQ(ReadShape(other, 1, 1), Holds(0));
    }).join();

    EXPECT_EQ(ReadShape(file, 1, 1), Holds(3, 4));
}

} // namespace
} // namespace qor::test
