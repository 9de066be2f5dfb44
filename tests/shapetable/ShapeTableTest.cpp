// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The arrays of a Shape Table: what sizes they can have, and what a size that they cannot have leaves.
#include "shapetable/ShapeTable.h"

#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t AnyMemory = std::numeric_limits<std::uint64_t>::max();

void ExpectEmpty(const ShapeTable& table, const ShapeTableCounts& counts)
{
    EXPECT_TRUE(table.Shapes.empty() && table.DOFs.empty());
    EXPECT_FALSE(table.ShapeValues.has_value());
    EXPECT_EQ(counts.NumberOfShapes, 0);
    EXPECT_EQ(counts.NumberOfDOFs, 0);
    EXPECT_FALSE(counts.ShapeTableAllocated);
}

TEST(AllocateShapeTable, NeedsMemoryForAllItsArraysTogether)
{
    constexpr std::uint64_t needed = 30 * sizeof(Shape) + 20 * sizeof(DOF) + 30 * 20 * sizeof(ShapeValue);
    ShapeTable table;
    ShapeTableCounts counts = {30, 20, false};

    EXPECT_EQ(AllocateShapeTable(table, counts, needed), NoError);
    EXPECT_TRUE(table.ShapeValues.value().Has(30, 20));
    EXPECT_TRUE(counts.ShapeTableAllocated);

    EXPECT_EQ(AllocateShapeTable(table, counts, needed - 1), AllocationError);
    ExpectEmpty(table, counts);
}

TEST(AllocateShapeTable, RefusesAnArrayBeyond31BitsWhateverTheMemory)
{
    struct Case {
        std::int32_t shapes;
        std::int32_t dofs;
    };
    const Case cases[] = {{static_cast<std::int32_t>(LargestInt32 / sizeof(Shape)) + 1, 0},
                          {0, static_cast<std::int32_t>(LargestInt32 / sizeof(DOF)) + 1},
                          {16384, 16384},
                          {LargestInt32, LargestInt32}};
    for (const auto& [shapes, dofs] : cases) {
        ShapeTable table;
        ShapeTableCounts counts = {shapes, dofs, true};

        EXPECT_EQ(AllocateShapeTable(table, counts, AnyMemory), AllocationError) << shapes << " x " << dofs;
        ExpectEmpty(table, counts);
    }
}

TEST(AllocateShapeTable, OfNothingLeavesNothingAllocated)
{
    ShapeTable table;
    ShapeTableCounts counts = {0, 0, true};

    EXPECT_EQ(AllocateShapeTable(table, counts, 0), NoError);
    ExpectEmpty(table, counts);
}

TEST(AllocateShapeTable, GivesTheMemoryOfWhatIsCutOffBack)
{
    ShapeTable table;
    ShapeTableCounts counts = {1000, 1000, false};
    ASSERT_EQ(AllocateShapeTable(table, counts), NoError);

    counts.NumberOfShapes = 1;
    counts.NumberOfDOFs = 0;
    ASSERT_EQ(AllocateShapeTable(table, counts), NoError);

    EXPECT_EQ(table.Shapes.capacity(), 1U);
    EXPECT_EQ(table.DOFs.capacity(), 0U);
    EXPECT_FALSE(table.ShapeValues.has_value());
}

TEST(ShapeMatrix, HasItsShapesAndDOFsFrom1On)
{
    const ShapeMatrix matrix = ShapeMatrix::Zeros(2, 3).value();

    EXPECT_TRUE(matrix.Has(1, 1) && matrix.Has(2, 3));
    for (const std::int32_t shape : {0, -1, 3, LargestInt32}) EXPECT_FALSE(matrix.Has(shape, 1)) << shape;
    for (const std::int32_t dof : {0, -1, 4, LargestInt32}) EXPECT_FALSE(matrix.Has(1, dof)) << dof;
}

} // namespace
} // namespace qor::test
