// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/XaxisTexts.h"

#include "tools/csv/XaxisDetection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

using namespace qor;
using namespace qor::tool;

void SetAxis(DataBlock& block, float start, float increment)
{
    block.XaxisStart = start;
    block.XaxisIncrement = increment;
}

TEST(XaxisTexts, AreTheShortestNumbersOf32Bits)
{
    DataBlock block;
    SetAxis(block, 0, 0.1F);
    const XaxisTexts x(block, 4);

    EXPECT_EQ(x.Exact(2), "0.1");
    EXPECT_EQ(x.Exact(4), "0.3");
    EXPECT_EQ(x.AsJson(4), "0.3");
}

TEST(XaxisTexts, ReadBackAsTheSame32BitValue)
{
    DataBlock block;
    SetAxis(block, 20, 0.01F);
    const XaxisTexts x(block, 100000);

    for (std::int32_t sample = 1; sample <= 100000; ++sample) {
        const double value = 20.0 + (sample - 1) * double{0.01F};
        ASSERT_EQ(std::strtof(x.Exact(sample)->c_str(), nullptr), static_cast<float>(value)) << sample;
    }
}

TEST(XaxisTexts, HaveMoreDigitsWhereNeighboursAreTheSame32BitValue)
{
    DataBlock block;
    SetAxis(block, 1000000, 0.001F);
    const XaxisTexts x(block, 3);

    EXPECT_EQ(x.Exact(1), "1000000");
    EXPECT_EQ(x.Exact(2), "1000000.001");
    EXPECT_EQ(x.AsJson(3), "1000000.0020000001");
}

TEST(XaxisTexts, HoldTheVeryAxisThatImportFinds)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<float> exponent(-6, 3);
    std::uniform_real_distribution<float> startSteps(-500, 500);
    std::uniform_int_distribution<std::int32_t> count(2, 3000);
    for (int i = 0; i < 300; ++i) {
        DataBlock block;
        const float increment = std::pow(10.0F, exponent(random));
        SetAxis(block, i % 3 == 0 ? 0.0F : increment * startSteps(random), increment);
        const std::int32_t samples = count(random);
        const XaxisTexts x(block, samples);
        std::vector<double> values;
        TextPrecision precision;
        for (std::int32_t sample = 1; sample <= samples; ++sample) {
            const std::string text = *x.Exact(sample);
            precision.Add(text);
            values.push_back(std::strtod(text.c_str(), nullptr));
        }

        const auto axis = DetectUniform(values, precision);

        ASSERT_TRUE(axis) << i;
        ASSERT_EQ(static_cast<float>(axis->start), block.XaxisStart) << i;
        ASSERT_EQ(static_cast<float>(axis->increment), block.XaxisIncrement) << i;
    }
}

TEST(XaxisTexts, OfAnAxisThatDoesNotRiseAreShortToo)
{
    DataBlock block;
    SetAxis(block, 0.1F, 0);
    EXPECT_EQ(XaxisTexts(block, 3).Exact(3), "0.1");
    SetAxis(block, 0, -0.1F);
    EXPECT_EQ(XaxisTexts(block, 3).Exact(3), "-0.2");
}

TEST(XaxisTexts, OfAnExplicitAxisThatIsTooShortEnd)
{
    DataBlock block;
    block.XaxisSpacing = XaxisSpacing_Octave;
    ASSERT_TRUE(block.Xaxis.AllocateZeros(block.Memory, 1));
    block.Xaxis[1] = 0.1F;
    const XaxisTexts x(block, 2);

    EXPECT_EQ(x.Exact(1), "0.1");
    EXPECT_EQ(x.Exact(2), std::nullopt);
    EXPECT_EQ(x.AsJson(2), std::nullopt);
    EXPECT_EQ(x.Rounded(2), std::nullopt);
}

} // namespace
