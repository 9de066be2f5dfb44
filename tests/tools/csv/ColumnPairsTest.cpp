// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/ColumnPairs.h"

#include <gtest/gtest.h>

namespace {

using namespace qor::tool;

using Traces = std::vector<TraceColumns>;

TEST(PairColumns, PairsNeighboursWhoseHeadingsSaySo)
{
    const std::vector<Heading> headings = {{"H1 re", "g/N"}, {"H1 im", "g/N"}, {"Coherence", ""}};

    const auto traces = PairColumns(headings, ComplexColumns::ByHeading);

    EXPECT_EQ(traces, (Traces{{0, 1, {"H1", "g/N"}}, {2, std::nullopt, {"Coherence", ""}}}));
}

TEST(PairColumns, KnowsTheWordsThatMeasuringProgramsWriteInAnyLetterCase)
{
    for (const auto& [real, imaginary] :
         {std::pair("H1 Re", "H1 Im"), std::pair("H1 real", "H1 imag"), std::pair("H1 Real", "H1 Imaginary")}) {
        const std::vector<Heading> headings = {{real, "g"}, {imaginary, "g"}};

        EXPECT_EQ(PairColumns(headings, ComplexColumns::ByHeading), (Traces{{0, 1, {"H1", "g"}}})) << real;
    }
}

TEST(PairColumns, LeavesColumnsApartThatDifferInLabelOrUnits)
{
    const std::vector<Heading> headings = {{"A re", "g"}, {"B im", "g"}, {"C re", "g"}, {"C im", "N"}};

    const auto traces = PairColumns(headings, ComplexColumns::ByHeading);

    ASSERT_TRUE(traces);
    EXPECT_EQ(traces->size(), 4U);
}

TEST(PairColumns, TakesTheLastWordOnly)
{
    const std::vector<Heading> headings = {{"Core", ""}, {"Coim", ""}};

    const auto traces = PairColumns(headings, ComplexColumns::ByHeading);

    ASSERT_TRUE(traces);
    EXPECT_EQ(traces->size(), 2U);
}

TEST(PairColumns, PairsAllWhereThatIsWanted)
{
    const std::vector<Heading> headings = {{"A", "g"}, {"B", ""}, {"C re", "N"}, {"C im", "N"}};

    const auto traces = PairColumns(headings, ComplexColumns::All);

    EXPECT_EQ(traces, (Traces{{0, 1, {"A", "g"}}, {2, 3, {"C", "N"}}}));
}

TEST(PairColumns, HasNoPairsWhenOneColumnIsLeftOver)
{
    const std::vector<Heading> headings(3);
    EXPECT_FALSE(PairColumns(headings, ComplexColumns::All));
}

TEST(PairColumns, PairsNoneWhereThatIsWanted)
{
    const std::vector<Heading> headings = {{"H re", ""}, {"H im", ""}};

    const auto traces = PairColumns(headings, ComplexColumns::None);

    EXPECT_EQ(traces, (Traces{{0, std::nullopt, {"H re", ""}}, {1, std::nullopt, {"H im", ""}}}));
}

TEST(PartHeadings, ArePairedAgain)
{
    for (const Heading& heading : {Heading{"H1", "g/N"}, Heading{"", ""}}) {
        const std::vector<Heading> both = {RealPartHeading(heading), ImaginaryPartHeading(heading)};
        EXPECT_EQ(PairColumns(both, ComplexColumns::ByHeading), (Traces{{0, 1, heading}}));
    }
}

} // namespace
