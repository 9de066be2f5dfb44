// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What is particular to the quad surfaces: they are reached through the added class only, and their errors are left as
// the thread's shared error status. The rules that they share with the other elements: JoiningElementsTest.cpp.
#include "component/StructureAccess.h"
#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

namespace qor::test {
namespace {

using SharedQuadSurfaces = StructureTest;

TEST_F(SharedQuadSurfaces, AreTheSameForEveryAddedObjectOfAThread)
{
    ClassAdd_4 first;
    first.StructureNumberOfQuadSurfaces(2);
    EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 2);
    EXPECT_EQ(first.WriteStructureQuadSurface(2, 1, 2, 3, 4, 5, true), oReturnStatus::Success);
    EXPECT_EQ(ReadQuad(2), (JoiningRead{Success, {{1, 2, 3, 4}, 5, true}}));
}

TEST_F(SharedQuadSurfaces, NeedNoComponentObject)
{
    OnAThreadOfItsOwn([] {
        EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 0);
        EXPECT_EQ(WriteQuad(-1, {{1, 2, 3, 4}, 5, true}), Success);
        EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 1);
    });
    EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 0) << "another thread has its own";
}

TEST_F(SharedQuadSurfaces, AreEmptiedByTheComponent)
{
    for (void (clsQOR_File::*empty)() : {&clsQOR_File::InitializeStructureStorage, &clsQOR_File::Initialize}) {
        ClassAdd_4().StructureNumberOfQuadSurfaces(2);
        (file.*empty)();
        EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 0);
    }
}

TEST_F(SharedQuadSurfaces, LeaveTheResultOfTheLastAllocation)
{
    modQOR_File().LastAllocationResult = 5;
    ClassAdd_4().StructureNumberOfQuadSurfaces(2);
    EXPECT_EQ(modQOR_File().LastAllocationResult, 5);
    ClassAdd_4().StructureNumberOfQuadSurfaces(2147483647);
    EXPECT_EQ(modQOR_File().LastAllocationResult, 5);
}

// ---- errors --------------------------------------------------------------------------------------------------

TEST_F(SharedQuadSurfaces, ReportToEveryObjectOfTheThreadAgainAndAgain)
{
    clsQOR_File other;
    EXPECT_EQ(ReadQuad(1), JoiningRead{});
    EXPECT_EQ(file.ErrorStatus(), QuadSurfacesNotAllocated);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfacesNotAllocated);
    EXPECT_EQ(other.ErrorStatus(), QuadSurfacesNotAllocated);
}

TEST_F(SharedQuadSurfaces, ReportBehindAnObjectsOwnError)
{
    file.ErrorStatus(AxisNumberError);
    EXPECT_EQ(WriteQuad(1, {}), Failure);
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfaceIndexError);
}

TEST_F(SharedQuadSurfaces, ReportWithoutTextAndPost)
{
    file.ErrorStatus(SampleIndexError);
    platform::LastPostedError() = {};
    ReadQuad(1);
    WriteQuad(1, {});
    EXPECT_EQ(file.GetLastErrorString(), u"Error (11): Sample Index error");
    EXPECT_EQ(platform::LastPostedError().number, 0U);
}

TEST_F(SharedQuadSurfaces, AppendedWithoutMemoryReportTheirOwnCodeInPlaceOfTheAllocationError)
{
    ClassAdd_4().StructureNumberOfQuadSurfaces(76'695'844);
    EXPECT_EQ(WriteQuad(-1, {}), Failure);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfacesNotAllocated);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfacesNotAllocated);
}

TEST_F(SharedQuadSurfaces, ReadOrWrittenWellClearAnEarlierSharedError)
{
    ClassAdd_4().StructureNumberOfQuadSurfaces(1);
    ReadQuad(2);
    EXPECT_EQ(ReadQuad(1).status, Success);
    EXPECT_EQ(file.ErrorStatus(), NoError);

    ReadQuad(2);
    EXPECT_EQ(WriteQuad(1, {}), Success);
    EXPECT_EQ(file.ErrorStatus(), NoError);

    ReadQuad(2);
    EXPECT_EQ(WriteQuad(-1, {}), Success);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_F(SharedQuadSurfaces, ClearTheErrorOfAnotherAddedClassToo)
{
    ClassAdd_4().StructureNumberOfQuadSurfaces(1);
    ClassAdd_1().TraceLinPower(1, MeasurementIsPower);
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    ReadQuad(1);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_F(SharedQuadSurfaces, LeaveTheSharedErrorWhenTheyAreOnlyCounted)
{
    ReadQuad(1);
    EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 0);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfacesNotAllocated);
}

// Their result is a type of its own with the same numbers.
static_assert(static_cast<std::int32_t>(oReturnStatus::Failure) == Failure);
static_assert(static_cast<std::int32_t>(oReturnStatus::Success) == Success);

} // namespace
} // namespace qor::test
