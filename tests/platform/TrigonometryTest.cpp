// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Sine, cosine and arctangent against the C library's long double functions: the same float, and within three units
// in the last place of a double.
#include "platform/Trigonometry.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace qor::platform {
namespace {

constexpr double RadiansPerDegree = 3.14159265358979 / 180;

// The distance in units of the last place that a double of the expected size has.
long double Distance(double value, long double expected)
{
    const auto rounded = std::fabs(static_cast<double>(expected));
    const long double unit = std::nextafter(rounded, std::numeric_limits<double>::infinity()) - rounded;
    return std::fabs(value - expected) / unit;
}

testing::AssertionResult IsExact(const char* function, double argument, double value, long double expected)
{
    if (std::bit_cast<std::uint32_t>(static_cast<float>(value)) !=
        std::bit_cast<std::uint32_t>(static_cast<float>(expected))) {
        return testing::AssertionFailure() << function << "(" << argument << ") is another float";
    }
    if (Distance(value, expected) > 3) {
        return testing::AssertionFailure()
               << function << "(" << argument << ") is off by " << Distance(value, expected) << " units";
    }
    return testing::AssertionSuccess();
}

void ExpectExactSineAndCosine(double radians)
{
    const auto [sine, cosine] = SineAndCosine(radians);
    ASSERT_TRUE(IsExact("sin", radians, sine, std::sin(static_cast<long double>(radians))));
    ASSERT_TRUE(IsExact("cos", radians, cosine, std::cos(static_cast<long double>(radians))));
}

void ExpectExactArcTangent(double value)
{
    ASSERT_TRUE(IsExact("atan", value, ArcTangent(value), std::atan(static_cast<long double>(value))));
}

// A finite float of any bits: half of them are below 1e-19 or above 1e19.
float AnyFiniteFloat(std::mt19937& random)
{
    for (;;) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(value)) return value;
    }
}

TEST(SineAndCosine, AreExactForFloatsOfAnySizeInDegrees)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300'000; ++i) {
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(AnyFiniteFloat(random) * RadiansPerDegree));
    }
}

TEST(SineAndCosine, AreExactWithinSomeTurns)
{
    std::mt19937 random(2);
    std::uniform_real_distribution<float> degrees(-3600, 3600);
    for (int i = 0; i < 300'000; ++i) {
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(degrees(random) * RadiansPerDegree));
    }
}

TEST(SineAndCosine, AreExactAtMultiplesOf45Degrees)
{
    for (int multiple = -100'000; multiple <= 100'000; ++multiple) {
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(static_cast<float>(45 * multiple) * RadiansPerDegree));
    }
}

// Where the argument is nearest to a multiple of pi/2, most bits cancel.
TEST(SineAndCosine, AreExactBesideMultiplesOfARightAngle)
{
    for (int multiple = -20'000; multiple <= 20'000; ++multiple) {
        double radians = static_cast<double>(1.5707963267948966192313216916398L * multiple);
        for (int step = 0; step < 3; ++step) {
            ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(radians));
            radians = std::nextafter(radians, 1e300);
        }
    }
}

// Found by continued fractions: up to 60 bits cancel.
TEST(SineAndCosine, AreExactForTheDoublesNearestToMultiplesOfARightAngle)
{
    for (const double radians :
         {0x1.39c6fd67805a7p+19, 0x1.93c05c9ed3cbcp+18, 0x1.bf9b3c6059d24p+17, 0x1.b951f1572eba5p+23,
          0x1.b951f1572eba5p+24, 0x1.782b7a20df6d4p+67, 0x1.66bd5424e5655p+90, 0x1.99caa5236feeap+76,
          0x1.e0664dbedfec5p+81, 0x1.065c829d68730p+39, 0x1.ae04fdb542be8p+113}) {
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(radians));
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(-radians));
    }
}

TEST(SineAndCosine, AreExactAroundTheChangeOfReduction)
{
    std::mt19937 random(3);
    for (const double around : {0.785398163397448, 1048576.0, -0.785398163397448, -1048576.0}) {
        std::uniform_real_distribution<double> near(around * (1 - 1e-6), around * (1 + 1e-6));
        for (int i = 0; i < 20'000; ++i) ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(near(random)));
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(around));
        ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(std::nextafter(around, 0)));
    }
}

TEST(SineAndCosine, AreExactForEveryPowerOfTwo)
{
    for (int exponent = -149; exponent < 123; ++exponent) {
        for (const double mantissa : {1.0, 1.25, 1.9999999, 0x1.fffffffffffffp+0}) {
            const double radians = std::ldexp(mantissa, exponent);
            if (radians >= 0x1p123) continue;
            ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(radians));
            ASSERT_NO_FATAL_FAILURE(ExpectExactSineAndCosine(-radians));
        }
    }
}

TEST(SineAndCosine, OfZeroAreZeroAndOne)
{
    EXPECT_EQ(SineAndCosine(0).sine, 0);
    EXPECT_EQ(SineAndCosine(0).cosine, 1);
    EXPECT_TRUE(std::signbit(SineAndCosine(-0.0).sine));
}

TEST(ArcTangent, IsExactForQuotientsOfAnySize)
{
    std::mt19937 random(4);
    for (int i = 0; i < 300'000; ++i) {
        ASSERT_NO_FATAL_FAILURE(ExpectExactArcTangent(double{AnyFiniteFloat(random)}));
    }
}

TEST(ArcTangent, IsExactForQuotientsAroundOne)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> near(-4, 4);
    for (int i = 0; i < 300'000; ++i) ASSERT_NO_FATAL_FAILURE(ExpectExactArcTangent(near(random)));
}

TEST(ArcTangent, IsExactWhereItsSeriesChange)
{
    // The tangents of 1, 2 and 3 sixteenths of pi, of a quarter of pi, and their reciprocals.
    for (const double x : {0.198912367379658, 0.414213562373095, 0.668178637919299, 1.0, 1.49660576266549,
                           2.41421356237310, 5.02733949212585}) {
        double value = x * (1 - 1e-13);
        for (int step = 0; step < 5000; ++step, value = std::nextafter(value, 100)) {
            ASSERT_NO_FATAL_FAILURE(ExpectExactArcTangent(value));
            ASSERT_NO_FATAL_FAILURE(ExpectExactArcTangent(-value));
        }
    }
}

TEST(ArcTangent, OfInfinityIsARightAngle)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(ArcTangent(infinity), 0x1.921fb54442d18p+0);
    EXPECT_EQ(ArcTangent(-infinity), -0x1.921fb54442d18p+0);
    EXPECT_EQ(ArcTangent(1e300), 0x1.921fb54442d18p+0);
}

TEST(ArcTangent, OfZeroKeepsTheSign)
{
    EXPECT_EQ(ArcTangent(0), 0);
    EXPECT_FALSE(std::signbit(ArcTangent(0.0)));
    EXPECT_TRUE(std::signbit(ArcTangent(-0.0)));
}

// Its sine lies half a unit in the last place of a double from the middle between two floats.
TEST(SineAndCosineOfDegrees, IsRightToTheLastBitBesideTheMiddleBetweenTwoFloats)
{
    EXPECT_EQ(static_cast<float>(SineAndCosineOfDegrees(0x1.786dep+6F).sine), 0x1.feaf5ep-1F);
}

} // namespace
} // namespace qor::platform
