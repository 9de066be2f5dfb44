// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/XaxisDetection.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace {

using namespace qor::tool;

// The axis of values that were written in that format and read again.
std::optional<UniformAxis> Detect(const char* format, const std::vector<double>& values)
{
    TextPrecision precision;
    std::vector<double> read;
    for (const double value : values) {
        const std::string text = fmt::format(fmt::runtime(format), value);
        precision.Add(text);
        read.push_back(std::strtod(text.c_str(), nullptr));
    }
    return DetectUniform(read, precision);
}

std::vector<double> Steps(double start, double increment, int count)
{
    std::vector<double> values;
    for (int i = 0; i < count; ++i) values.push_back(start + i * increment);
    return values;
}

TEST(TextPrecision, CountsDecimalsAndSignificantDigits)
{
    TextPrecision precision;
    precision.Add("-012.340");
    EXPECT_EQ(precision.decimals, 3);
    EXPECT_EQ(precision.significantDigits, 5);
}

TEST(TextPrecision, ShiftsDecimalsByTheExponent)
{
    TextPrecision precision;
    precision.Add("1.5E-3");
    EXPECT_EQ(precision.decimals, 4);
    TextPrecision large;
    large.Add("1.5e+03");
    EXPECT_EQ(large.decimals, -2);
}

TEST(DetectUniform, FindsStartAndIncrement)
{
    const auto axis = Detect("{}", {1, 1.5, 2, 2.5});
    ASSERT_TRUE(axis);
    EXPECT_EQ(axis->start, 1);
    EXPECT_EQ(axis->increment, 0.5);
}

TEST(DetectUniform, SeesThroughRoundingToAFixedNumberOfDecimals)
{
    const auto axis = Detect("{:.3f}", Steps(0, 1.0 / 30, 18000));
    ASSERT_TRUE(axis);
    EXPECT_NEAR(axis->increment, 1.0 / 30, 1e-7);
}

TEST(DetectUniform, SeesThroughRoundingToSixDigits)
{
    const auto axis = Detect("{:.6g}", Steps(0, 0.000977, 10000));
    ASSERT_TRUE(axis);
    EXPECT_EQ(static_cast<float>(axis->increment), 0.000977F);
}

TEST(DetectUniform, FindsTheVery32BitIncrementOfALongAxis)
{
    const double increment = double{0.01F};
    const auto axis = Detect("{}", Steps(0, increment, 1000000));
    ASSERT_TRUE(axis);
    EXPECT_EQ(static_cast<float>(axis->increment), 0.01F);
}

TEST(DetectUniform, TakesAnAxisThatStartsBelowZero)
{
    const auto axis = Detect("{:.2f}", Steps(-5, 0.25, 41));
    ASSERT_TRUE(axis);
    EXPECT_EQ(axis->start, -5);
    EXPECT_EQ(axis->increment, 0.25);
}

TEST(DetectUniform, RefusesRoundingByMoreThanATwentiethOfAStep)
{
    EXPECT_FALSE(Detect("{:.3f}", Steps(0, 0.0015, 100)));
}

TEST(DetectUniform, RefusesAStepThatIsMissing) { EXPECT_FALSE(Detect("{}", {0, 1, 2, 4, 5})); }

TEST(DetectUniform, RefusesAStepThatIsMissingFarBehind)
{
    auto values = Steps(0, 0.01, 10000);
    values.erase(values.begin() + 9000);
    EXPECT_FALSE(Detect("{:.2f}", values));
}

TEST(DetectUniform, RefusesJitterThatTheDigitsShow) { EXPECT_FALSE(Detect("{:.6f}", {0, 0.1, 0.2001, 0.3})); }

TEST(DetectUniform, RefusesLogarithmicSpacing) { EXPECT_FALSE(Detect("{}", {1, 2, 4, 8})); }

TEST(DetectUniform, RefusesLargeNumbersWhoseStepsA32BitValueCannotTell)
{
    EXPECT_FALSE(Detect("{:.2f}", {1.7e9, 1.7e9 + 0.1, 1.7e9 + 0.25, 1.7e9 + 0.3}));
}

TEST(DetectUniform, RefusesValuesThatDoNotRise)
{
    EXPECT_FALSE(Detect("{}", {1, 1, 1}));
    EXPECT_FALSE(Detect("{}", {3, 2, 1}));
    EXPECT_FALSE(Detect("{}", {3}));
}

} // namespace
