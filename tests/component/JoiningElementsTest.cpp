// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Edge lines, surface triangles and quad surfaces: one set of rules for the three kinds.
#include "component/StructureAccess.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <limits>
#include <optional>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

struct Kind {
    const char* name;
    std::size_t corners;
    ErrorStatusTypes notAllocated;
    ErrorStatusTypes indexError;
    std::int32_t most; // what an array of 2,147,483,647 bytes holds
    std::int32_t Structure::*storedCount;
    std::int32_t (*count)(clsQOR_File& file);
    void (*setCount)(clsQOR_File& file, std::int32_t value);
    JoiningRead (*read)(clsQOR_File& file, std::int32_t number);
    ReturnStatus (*write)(clsQOR_File& file, std::int32_t number, const Joining& element);
    // Leaves color and boldness out; the corners are 1, 2, 3, 4.
    ReturnStatus (*writeCorners)(clsQOR_File& file, std::int32_t number);
    std::int32_t& (*fileExtraValue)(std::int32_t number);
};

const Kind EdgeLines = {
    "EdgeLines",
    2,
    EdgeLinesNotAllocated,
    EdgeLineIndexError,
    107'374'182,
    &Structure::NumberOfEdgeLines,
    [](clsQOR_File& file) { return file.Structure_NumberOfEdgeLines(); },
    [](clsQOR_File& file, std::int32_t value) { file.Structure_NumberOfEdgeLines(value); },
    ReadEdgeLine,
    WriteEdgeLine,
    [](clsQOR_File& file, std::int32_t number) { return file.WriteStructureEdgeLine(number, 1, 2); },
    [](std::int32_t number) -> std::int32_t& { return modQOR_File().Structure.EdgeLines[number].FileExtraValue; },
};
const Kind SurfaceTriangles = {
    "SurfaceTriangles",
    3,
    SurfaceTrianglesNotAllocated,
    SurfaceTriangleIndexError,
    89'478'485,
    &Structure::NumberOfSurfaceTriangles,
    [](clsQOR_File& file) { return file.Structure_NumberOfSurfaceTriangles(); },
    [](clsQOR_File& file, std::int32_t value) { file.Structure_NumberOfSurfaceTriangles(value); },
    ReadTriangle,
    WriteTriangle,
    [](clsQOR_File& file, std::int32_t number) { return file.WriteStructureSurfaceTriangle(number, 1, 2, 3); },
    [](std::int32_t number) -> std::int32_t& {
        return modQOR_File().Structure.SurfaceTriangles[number].FileExtraValue;
    },
};
const Kind QuadSurfaces = {
    "QuadSurfaces",
    4,
    QuadSurfacesNotAllocated,
    QuadSurfaceIndexError,
    76'695'844,
    &Structure::NumberOfQuadSurfaces,
    [](clsQOR_File&) { return ClassAdd_4().StructureNumberOfQuadSurfaces(); },
    [](clsQOR_File&, std::int32_t value) { ClassAdd_4().StructureNumberOfQuadSurfaces(value); },
    [](clsQOR_File&, std::int32_t number) { return ReadQuad(number); },
    [](clsQOR_File&, std::int32_t number, const Joining& element) { return WriteQuad(number, element); },
    [](clsQOR_File&, std::int32_t number) {
        return static_cast<ReturnStatus>(ClassAdd_4().WriteStructureQuadSurface(number, 1, 2, 3, 4));
    },
    [](std::int32_t number) -> std::int32_t& { return modQOR_File().Structure.QuadSurfaces[number].FileExtraValue; },
};

class JoiningElements : public StructureTest, public testing::WithParamInterface<Kind>
{
protected:
    std::int32_t Count() { return GetParam().count(file); }
    void SetCount(std::int32_t value) { GetParam().setCount(file, value); }
    JoiningRead Read(std::int32_t number) { return GetParam().read(file, number); }
    ReturnStatus Write(std::int32_t number, const Joining& element) { return GetParam().write(file, number, element); }

    // A read that succeeded with this element, the corners that the kind does not have as they were.
    JoiningRead Holds(Joining element) const
    {
        for (std::size_t i = GetParam().corners; i < 4; ++i) element.corners[i] = UntouchedNumber;
        return {Success, element};
    }
    static Joining Numbered(std::int32_t number)
    {
        const std::int32_t first = number * 10;
        return {{first + 1, first + 2, first + 3, first + 4}, first + 5, true};
    }
    void WriteNumbered(std::int32_t count)
    {
        SetCount(count);
        for (std::int32_t number = 1; number <= count; ++number) Write(number, Numbered(number));
    }
    void ExpectNumbered(std::int32_t count)
    {
        for (std::int32_t number = 1; number <= count; ++number) EXPECT_EQ(Read(number), Holds(Numbered(number)));
    }
};

// ---- storage -------------------------------------------------------------------------------------------------

TEST_P(JoiningElements, AreReleasedByANegativeCount)
{
    for (const std::int32_t value : {-5, -1, 0, SmallestInt32}) {
        file.Structure_NumberOfVertexPoints(1);
        WriteNumbered(2);
        SetCount(value);
        EXPECT_EQ(Count(), 0) << value;
        EXPECT_EQ(file.ErrorStatus(), NoError) << value;
        EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 1) << "the other lists stay";
        EXPECT_EQ(Read(1), JoiningRead{}) << value;
        EXPECT_EQ(file.ErrorStatus(), GetParam().notAllocated) << value;
    }
}

TEST_P(JoiningElements, AreKeptWhenTheListGrowsAndNewOnesAreZero)
{
    WriteNumbered(3);
    SetCount(5);
    ExpectNumbered(3);
    EXPECT_EQ(Read(4), Holds({}));
    EXPECT_EQ(Read(5), Holds({}));
}

TEST_P(JoiningElements, ThatWereDroppedDoNotComeBack)
{
    WriteNumbered(5);
    GetParam().fileExtraValue(3) = 99;
    SetCount(2);
    SetCount(3);
    ExpectNumbered(2);
    EXPECT_EQ(Read(3), Holds({}));
    EXPECT_EQ(GetParam().fileExtraValue(3), 0);
}

TEST_P(JoiningElements, AreCountedApartFromTheOtherLists)
{
    file.Structure_NumberOfVertexPoints(1);
    file.Structure_NumberOfEdgeLines(2);
    file.Structure_NumberOfSurfaceTriangles(3);
    ClassAdd_4().StructureNumberOfQuadSurfaces(4);
    SetCount(7);
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 1);
    EXPECT_EQ(file.Structure_NumberOfEdgeLines(), GetParam().corners == 2 ? 7 : 2);
    EXPECT_EQ(file.Structure_NumberOfSurfaceTriangles(), GetParam().corners == 3 ? 7 : 3);
    EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), GetParam().corners == 4 ? 7 : 4);
}

// ---- reading and writing -------------------------------------------------------------------------------------

TEST_P(JoiningElements, AreReadAsTheyWereWritten)
{
    SetCount(3);
    const Joining elements[] = {
        {{1, 2, 3, 4}, 0xFF00FF, true},
        // Vertex points that do not exist: nothing checks that.
        {{0, -1, LargestInt32, SmallestInt32}, LargestInt32, false},
        {{7, 7, 7, 7}, SmallestInt32, Bool16::Raw(5)},
    };
    for (const Joining& element : elements) {
        EXPECT_EQ(Write(2, element), Success);
        EXPECT_EQ(Read(2), Holds(element));
    }
    EXPECT_EQ(Read(1), Holds({}));
    EXPECT_EQ(Read(3), Holds({}));
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_P(JoiningElements, TakeColorZeroAndNotBoldWhereTheCallLeavesThemOut)
{
    WriteNumbered(1);
    EXPECT_EQ(GetParam().writeCorners(file, 1), Success);
    EXPECT_EQ(Read(1), Holds({{1, 2, 3, 4}, 0, false}));
}

TEST_P(JoiningElements, WrittenAnewKeepWhatOnlyFilesCarry)
{
    WriteNumbered(1);
    GetParam().fileExtraValue(1) = 99;
    Write(1, Numbered(2));
    EXPECT_EQ(GetParam().fileExtraValue(1), 99);
}

// ---- failed checks -------------------------------------------------------------------------------------------

TEST_P(JoiningElements, AreNotReadFromAnEmptyListWhateverTheNumber)
{
    for (const std::int32_t number : {1, 0, -1, 2, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(Read(number), JoiningRead{}) << number;
        EXPECT_EQ(file.ErrorStatus(), GetParam().notAllocated) << number;
    }
}

TEST_P(JoiningElements, AreNotReadOutsideTheList)
{
    WriteNumbered(2);
    for (const std::int32_t number : {0, -1, 3, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(Read(number), JoiningRead{}) << number;
        EXPECT_EQ(file.ErrorStatus(), GetParam().indexError) << number;
    }
}

TEST_P(JoiningElements, AreNotWrittenOutsideTheList)
{
    WriteNumbered(2);
    for (const std::int32_t number : {0, -2, 3, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(Write(number, {{9, 9, 9, 9}, 9, true}), Failure) << number;
        EXPECT_EQ(file.ErrorStatus(), GetParam().indexError) << number;
    }
    EXPECT_EQ(Count(), 2);
    ExpectNumbered(2);
}

TEST_P(JoiningElements, WrittenToAnEmptyListFailWithTheIndexCode)
{
    for (const std::int32_t number : {1, 0, 2}) {
        EXPECT_EQ(Write(number, {}), Failure) << number;
        EXPECT_EQ(file.ErrorStatus(), GetParam().indexError) << number;
    }
    EXPECT_EQ(Count(), 0);
}

// ---- appending -----------------------------------------------------------------------------------------------

TEST_P(JoiningElements, AppendedToAnEmptyListBecomeElementOne)
{
    EXPECT_EQ(Write(-1, Numbered(1)), Success);
    EXPECT_EQ(Count(), 1);
    ExpectNumbered(1);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_P(JoiningElements, AppendedStandBehindTheOthers)
{
    WriteNumbered(2);
    for (std::int32_t number = 3; number <= 200; ++number) EXPECT_EQ(Write(-1, Numbered(number)), Success);
    EXPECT_EQ(Count(), 200);
    ExpectNumbered(200);
}

TEST_P(JoiningElements, AppendedAfterTheListShrankAreZeroWhereNotWritten)
{
    WriteNumbered(3);
    GetParam().fileExtraValue(3) = 99;
    SetCount(2);
    EXPECT_EQ(GetParam().writeCorners(file, -1), Success);
    EXPECT_EQ(Read(3), Holds({{1, 2, 3, 4}, 0, false}));
    EXPECT_EQ(GetParam().fileExtraValue(3), 0);
}

TEST_P(JoiningElements, AppendedLeaveTheOtherLists)
{
    file.Structure_NumberOfVertexPoints(1);
    WriteVertex(file, 1, {u"stays", 1, 2, 3, 4, true});
    Write(-1, Numbered(1));
    EXPECT_EQ(ReadVertex(file, 1), (VertexRead{Success, {u"stays", 1, 2, 3, 4, true}}));
}

TEST_P(JoiningElements, AppendedBeyondWhatTheCountHoldsRaiseOverflow)
{
    modQOR_File().Structure.*GetParam().storedCount = LargestInt32;

    std::optional<int> fault;
    try {
        Write(-1, Numbered(1));
    } catch (const RuntimeFault& raised) {
        fault = raised.Number();
    }

    EXPECT_EQ(fault, RuntimeFault::Overflow);
    EXPECT_EQ(Count(), LargestInt32);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

// ---- memory --------------------------------------------------------------------------------------------------

// Pages that nothing writes to take no memory.
TEST_P(JoiningElements, FillAnArrayToItsLastByte)
{
    SetCount(GetParam().most);
    EXPECT_EQ(Count(), GetParam().most);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(Write(GetParam().most, Numbered(1)), Success);
    EXPECT_EQ(Read(GetParam().most), Holds(Numbered(1)));
    EXPECT_EQ(Read(GetParam().most - 1), Holds({}));
}

TEST_P(JoiningElements, TooManyForAnArrayEmptyTheStructure)
{
    for (const std::int32_t value : {GetParam().most + 1, LargestInt32}) {
        file.Structure_NumberOfVertexPoints(1);
        file.Structure_NumberOfEdgeLines(1);
        file.Structure_NumberOfSurfaceTriangles(1);
        ClassAdd_4().StructureNumberOfQuadSurfaces(1);

        SetCount(value);

        EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 0);
        EXPECT_EQ(file.Structure_NumberOfEdgeLines(), 0);
        EXPECT_EQ(file.Structure_NumberOfSurfaceTriangles(), 0);
        EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 0);
        EXPECT_EQ(file.ErrorStatus(), AllocationError);
        EXPECT_EQ(file.GetLastErrorString(), u"") << "a code without a text";
    }
}

TEST_P(JoiningElements, AppendedToAFullArrayEmptyTheStructure)
{
    file.Structure_NumberOfVertexPoints(1);
    SetCount(GetParam().most);

    EXPECT_EQ(Write(-1, Numbered(1)), Failure);

    EXPECT_EQ(file.ErrorStatus(), GetParam().notAllocated);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, JoiningElements, testing::Values(EdgeLines, SurfaceTriangles, QuadSurfaces),
                         [](const auto& tested) { return tested.param.name; });

// ---- error texts of the kinds that have them -----------------------------------------------------------------

using JoiningElementErrors = StructureTest;

TEST_F(JoiningElementErrors, OfEdgeLinesAndTrianglesHaveATextForABadNumberOnly)
{
    EXPECT_EQ(WriteEdgeLine(file, 1, {}), Failure);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (32): EdgeLine Index error");
    EXPECT_EQ(ReadEdgeLine(file, 1), JoiningRead{});
    EXPECT_EQ(file.GetLastErrorString(), u"Error (33): Undefined error");
    EXPECT_EQ(WriteTriangle(file, 1, {}), Failure);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (34): SurfaceTriangle Index error");
    EXPECT_EQ(ReadTriangle(file, 1), JoiningRead{});
    EXPECT_EQ(file.GetLastErrorString(), u"Error (35): Undefined error");
}

TEST_F(JoiningElementErrors, OfAnAppendWithoutMemoryLeaveTheAllocationErrorBehindThem)
{
    file.Structure_NumberOfEdgeLines(107'374'182);
    EXPECT_EQ(WriteEdgeLine(file, -1, {}), Failure);
    EXPECT_EQ(file.ErrorStatus(), EdgeLinesNotAllocated);
    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    EXPECT_EQ(file.ErrorStatus(), AllocationError) << "it stays on the thread";
}

} // namespace
} // namespace qor::test
