// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Sizing and emptying a Structure document, and its labels of fixed width.
#include "structure/Structure.h"

#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

constexpr std::int32_t Impossible = std::numeric_limits<std::int32_t>::max();

// ---- labels --------------------------------------------------------------------------------------------------

TEST(PaddedLabel, FillsTwentyCharactersWithBlanks)
{
    EXPECT_EQ(TextOf(PaddedLabel(u"")), u"                    ");
    EXPECT_EQ(TextOf(PaddedLabel(u"ab")), u"ab                  ");
    EXPECT_EQ(TextOf(PaddedLabel(u" ab")), u" ab                 ");
    EXPECT_EQ(TextOf(PaddedLabel(u"ABCDEFGHIJKLMNOPQRST")), u"ABCDEFGHIJKLMNOPQRST");
}

TEST(PaddedLabel, CutsWhatDoesNotFit)
{
    EXPECT_EQ(TextOf(PaddedLabel(u"ABCDEFGHIJKLMNOPQRSTU")), u"ABCDEFGHIJKLMNOPQRST");
}

TEST(AxisEndIndex, LetsTheAxisVaryFastest)
{
    EXPECT_EQ(AxisEndIndex(0, 0), 0U);
    EXPECT_EQ(AxisEndIndex(2, 0), 2U);
    EXPECT_EQ(AxisEndIndex(0, 1), 3U);
    EXPECT_EQ(AxisEndIndex(1, 2), 7U);
}

// ---- sizing --------------------------------------------------------------------------------------------------

TEST(AllocateStructure, OfNoCountsLeavesEveryListAbsent)
{
    Structure structure;
    EXPECT_EQ(AllocateStructure(structure), NoError);
    EXPECT_EQ(structure.VertexPoints.Count(), 0);
    EXPECT_EQ(structure.QuadSurfaces.Count(), 0);
}

TEST(AllocateStructure, BringsEveryListToItsCount)
{
    Structure structure;
    structure.NumberOfVertexPoints = 1;
    structure.NumberOfEdgeLines = 2;
    structure.NumberOfSurfaceTriangles = 3;
    structure.NumberOfQuadSurfaces = 4;

    EXPECT_EQ(AllocateStructure(structure), NoError);

    EXPECT_EQ(structure.VertexPoints.Count(), 1);
    EXPECT_EQ(structure.EdgeLines.Count(), 2);
    EXPECT_EQ(structure.SurfaceTriangles.Count(), 3);
    EXPECT_EQ(structure.QuadSurfaces.Count(), 4);
}

TEST(AllocateStructure, ReleasesOnlyTheListWhoseCountIsZero)
{
    Structure structure;
    structure.NumberOfVertexPoints = 1;
    structure.NumberOfEdgeLines = 2;
    AllocateStructure(structure);
    structure.EdgeLines[2].Color = 5;

    structure.NumberOfVertexPoints = 0;
    EXPECT_EQ(AllocateStructure(structure), NoError);

    EXPECT_EQ(structure.VertexPoints.Count(), 0);
    EXPECT_EQ(structure.EdgeLines[2].Color, 5);
}

TEST(AllocateStructure, BlanksOnlyTheLabelsOfNewVertexPoints)
{
    Structure structure;
    structure.NumberOfVertexPoints = 2;
    AllocateStructure(structure);
    structure.VertexPoints[1].Label = PaddedLabel(u"first");
    structure.VertexPoints[2].Label = FixedLabel{}; // as a file leaves one that it does not name

    structure.NumberOfVertexPoints = 3;
    EXPECT_EQ(AllocateStructure(structure), NoError);

    EXPECT_EQ(structure.VertexPoints[1].Label, PaddedLabel(u"first"));
    EXPECT_EQ(structure.VertexPoints[2].Label, FixedLabel{});
    EXPECT_EQ(structure.VertexPoints[3].Label, PaddedLabel(u""));
}

TEST(AllocateStructure, EmptiesEverythingWhereAnyListFails)
{
    for (const auto count : {&Structure::NumberOfVertexPoints, &Structure::NumberOfEdgeLines,
                             &Structure::NumberOfSurfaceTriangles, &Structure::NumberOfQuadSurfaces}) {
        Structure structure;
        structure.NumberOfVertexPoints = 1;
        structure.NumberOfEdgeLines = 2;
        structure.NumberOfSurfaceTriangles = 3;
        structure.NumberOfQuadSurfaces = 4;
        structure.LargeStructureFormat = true;
        AllocateStructure(structure);
        for (const std::int32_t refused : {Impossible, -1}) {
            structure.*count = refused;
            EXPECT_EQ(AllocateStructure(structure), AllocationError);

            EXPECT_EQ(structure.NumberOfVertexPoints, 0);
            EXPECT_EQ(structure.NumberOfEdgeLines, 0);
            EXPECT_EQ(structure.NumberOfSurfaceTriangles, 0);
            EXPECT_EQ(structure.NumberOfQuadSurfaces, 0);
            EXPECT_EQ(structure.VertexPoints.Count(), 0);
            EXPECT_EQ(structure.EdgeLines.Count(), 0);
            EXPECT_EQ(structure.SurfaceTriangles.Count(), 0);
            EXPECT_EQ(structure.QuadSurfaces.Count(), 0);
            EXPECT_FALSE(structure.LargeStructureFormat);
        }
    }
}

// The sizes of all elements together, each list far below what an array holds.
TEST(AllocateStructure, RefusesListsThatDoNotFitTheMemoryTogether)
{
    constexpr std::uint64_t bytes =
        2 * sizeof(VertexPoint) + 3 * sizeof(EdgeLine) + 4 * sizeof(SurfaceTriangle) + 5 * sizeof(QuadSurface);
    const auto allocate = [](std::uint64_t usableMemory) {
        Structure structure;
        structure.NumberOfVertexPoints = 2;
        structure.NumberOfEdgeLines = 3;
        structure.NumberOfSurfaceTriangles = 4;
        structure.NumberOfQuadSurfaces = 5;
        const ErrorStatusTypes error = AllocateStructure(structure, usableMemory);
        EXPECT_EQ(structure.NumberOfVertexPoints, error == NoError ? 2 : 0);
        EXPECT_EQ(structure.QuadSurfaces.Count(), structure.NumberOfQuadSurfaces);
        return error;
    };
    EXPECT_EQ(allocate(bytes), NoError);
    EXPECT_EQ(allocate(bytes - 1), AllocationError);
    EXPECT_EQ(allocate(UINT64_MAX), NoError);
}

TEST(AllocateStructure, CountsWhatIsThereAlreadyToTheMemoryThatItNeeds)
{
    Structure structure;
    structure.NumberOfEdgeLines = 3;
    ASSERT_EQ(AllocateStructure(structure, 3 * sizeof(EdgeLine)), NoError);
    structure.NumberOfVertexPoints = 1;
    EXPECT_EQ(AllocateStructure(structure, sizeof(VertexPoint)), AllocationError);
    EXPECT_EQ(structure.NumberOfEdgeLines, 0);
}

TEST(ReleaseStructureStorage, EmptiesEverything)
{
    Structure structure;
    structure.NumberOfQuadSurfaces = 4;
    structure.LargeStructureFormat = true;
    AllocateStructure(structure);

    ReleaseStructureStorage(structure);

    EXPECT_EQ(structure.NumberOfQuadSurfaces, 0);
    EXPECT_EQ(structure.QuadSurfaces.Count(), 0);
    EXPECT_FALSE(structure.LargeStructureFormat);
}

} // namespace
} // namespace qor::test
