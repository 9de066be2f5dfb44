// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/ShapeStatistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace qor::tool;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

ShapeStatistics OfOneShape(std::vector<ShapeTableDocument::Value> values)
{
    ShapeTableDocument document;
    document.shapes.resize(1);
    document.dofs.resize(values.size());
    document.values = std::move(values);
    return StatisticsOf(document, 0);
}

TEST(ShapeStatistics, FindTheLargestMagnitudeItsPhaseAndItsDOF)
{
    const ShapeStatistics statistics = OfOneShape({{1, 1}, {3, -4}, {-5, 0}, {4, 0}});

    EXPECT_EQ(statistics.magnitude, 5);
    EXPECT_EQ(statistics.dof, 1U); // the first of two that are equal
    EXPECT_FLOAT_EQ(statistics.phase, -53.130102F);
}

TEST(ShapeStatistics, LeaveOutWhatIsNotANumber)
{
    const ShapeStatistics statistics = OfOneShape({{NaN, 9}, {9, NaN}, {0, 2}});

    EXPECT_EQ(statistics.notNumbers, 2);
    EXPECT_EQ(statistics.dof, 2U);
    EXPECT_EQ(statistics.phase, 90);
}

TEST(ShapeStatistics, NameNoDOFWithoutAnyNumber)
{
    EXPECT_EQ(OfOneShape({{NaN, NaN}}).dof, std::nullopt);
    EXPECT_EQ(OfOneShape({}).dof, std::nullopt);
}

TEST(ShapeStatistics, OfZerosNameTheFirstDOF) { EXPECT_EQ(OfOneShape({{0, 0}, {0, 0}}).dof, 0U); }

TEST(ShapeStatistics, TakeAnInfiniteValueForTheLargest)
{
    const ShapeStatistics statistics = OfOneShape({{1, 0}, {-Infinity, 0}});

    EXPECT_EQ(statistics.magnitude, Infinity);
    EXPECT_EQ(statistics.dof, 1U);
}

TEST(ShapeStatistics, HoldMagnitudesBeyond32Bits)
{
    EXPECT_DOUBLE_EQ(OfOneShape({{3e38F, 3e38F}}).magnitude, std::sqrt(2.0) * double{3e38F});
}

} // namespace
