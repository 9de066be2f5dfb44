// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The conversions between real/imaginary and magnitude/phase, compared bit by bit.
#include "component/ConversionReference.h"
#include "component/DataBlockAccess.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <random>

namespace qor::test {
namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float LargestFloat = std::numeric_limits<float>::max();
constexpr float TinyFloat = std::numeric_limits<float>::denorm_min();

// A float of any bits, so that all sizes, infinities and NaNs come up.
float AnyFloat(std::mt19937& random) { return std::bit_cast<float>(static_cast<std::uint32_t>(random())); }

class Conversion : public testing::Test
{
protected:
    float Phase(const NumericVariant& real, const NumericVariant& imaginary, Bool16 as360 = false) const
    {
        return file.GetPhaseValueFrom(real, imaginary, as360);
    }
    clsQOR_File file;
};
using GetMagnitudeValueFrom = Conversion;
using GetRealValueFrom = Conversion;
using GetImaginaryValueFrom = Conversion;
using GetPhaseValueFrom = Conversion;

// ---- magnitude ---------------------------------------------------------------------------------------------

TEST_F(GetMagnitudeValueFrom, IsTheRootOfTheSumOfSquares)
{
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(3, 4)), Bits(5));
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(-3, -4)), Bits(5));
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(0, -2)), Bits(2));
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(-0.0F, -0.0F)), Bits(0));
}

TEST_F(GetMagnitudeValueFrom, GoesThroughDoublesForValuesWhoseSquaresAreNoFloats)
{
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(3e30F, 0)), Bits(3e30F));
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(LargestFloat, 0)), Bits(LargestFloat));
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(0, TinyFloat)), Bits(TinyFloat));
}

TEST_F(GetMagnitudeValueFrom, IsTheImpossibleMagnitudeWhereTheRootIsNoFloat)
{
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(LargestFloat, LargestFloat)), 0x77F684DFU);
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(-LargestFloat, 1e38F)), 0x77F684DFU);
}

TEST_F(GetMagnitudeValueFrom, IsTheImpossibleMagnitudeOfAnInfiniteValue)
{
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(Infinity, 0)), 0x77F684DFU);
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(1, -Infinity)), 0x77F684DFU);
    EXPECT_EQ(Bits(file.GetMagnitudeValueFrom(Infinity, Infinity)), 0x77F684DFU);
}

TEST_F(GetMagnitudeValueFrom, IsNaNWhereAValueIs)
{
    EXPECT_TRUE(std::isnan(file.GetMagnitudeValueFrom(NaN, 0)));
    EXPECT_TRUE(std::isnan(file.GetMagnitudeValueFrom(1, NaN)));
    EXPECT_TRUE(std::isnan(file.GetMagnitudeValueFrom(Infinity, NaN)));
    EXPECT_TRUE(std::isnan(file.GetMagnitudeValueFrom(NaN, Infinity)));
}

TEST_F(GetMagnitudeValueFrom, AgreesWithTheReferenceToTheLastBit)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300'000; ++i) {
        const float real = AnyFloat(random);
        const float imaginary = AnyFloat(random);
        const float expected = ReferenceMagnitude(real, imaginary);
        const float magnitude = file.GetMagnitudeValueFrom(real, imaginary);
        if (std::isnan(expected)) {
            ASSERT_TRUE(std::isnan(magnitude)) << real << " " << imaginary;
        } else {
            ASSERT_EQ(Bits(magnitude), Bits(expected)) << real << " " << imaginary;
        }
    }
}

// ---- real and imaginary part ---------------------------------------------------------------------------------

TEST_F(GetRealValueFrom, IsMagnitudeTimesCosineWithTheCutPi)
{
    EXPECT_EQ(Bits(file.GetRealValueFrom(2, 0)), Bits(2));
    EXPECT_EQ(Bits(file.GetRealValueFrom(2, 90)), 0x2768D313U) << "tiny, and not 0";
    EXPECT_EQ(Bits(file.GetRealValueFrom(2, 180)), Bits(-2));
    EXPECT_EQ(Bits(file.GetRealValueFrom(2, -180)), Bits(-2));
    EXPECT_EQ(Bits(file.GetRealValueFrom(2, 60)), Bits(1));
}

TEST_F(GetImaginaryValueFrom, IsMagnitudeTimesSine)
{
    EXPECT_EQ(Bits(file.GetImaginaryValueFrom(2, 0)), Bits(0));
    EXPECT_EQ(Bits(file.GetImaginaryValueFrom(2, 90)), Bits(2));
    EXPECT_EQ(Bits(file.GetImaginaryValueFrom(2, -90)), Bits(-2));
    EXPECT_EQ(Bits(file.GetImaginaryValueFrom(2, 30)), Bits(1));
    EXPECT_EQ(Bits(file.GetImaginaryValueFrom(2, -0.0F)), Bits(-0.0F));
    EXPECT_EQ(Bits(file.GetImaginaryValueFrom(-2, 0)), Bits(-0.0F));
}

TEST_F(GetRealValueFrom, IsZeroWhereAnInputIsNotFinite)
{
    for (const auto& [magnitude, phase] :
         {std::pair{NaN, 1.0F}, {1.0F, NaN}, {Infinity, 1.0F}, {1.0F, Infinity}, {-Infinity, 90.0F}, {NaN, Infinity}}) {
        EXPECT_EQ(Bits(file.GetRealValueFrom(magnitude, phase)), Bits(0)) << magnitude << " " << phase;
    }
}

TEST_F(GetImaginaryValueFrom, IsZeroWhereAnInputIsNotFinite)
{
    for (const auto& [magnitude, phase] :
         {std::pair{NaN, 1.0F}, {1.0F, NaN}, {Infinity, 1.0F}, {1.0F, Infinity}, {-Infinity, 90.0F}, {NaN, Infinity}}) {
        EXPECT_EQ(Bits(file.GetImaginaryValueFrom(magnitude, phase)), Bits(0)) << magnitude << " " << phase;
    }
}

TEST_F(Conversion, RealAndImaginaryAgreeWithTheReferenceForPhasesOfAnySize)
{
    std::mt19937 random(2);
    for (int i = 0; i < 300'000; ++i) {
        const float magnitude = AnyFloat(random);
        const float phase = AnyFloat(random);
        ASSERT_EQ(Bits(file.GetRealValueFrom(magnitude, phase)), Bits(ReferenceReal(magnitude, phase)))
            << magnitude << " " << phase;
        ASSERT_EQ(Bits(file.GetImaginaryValueFrom(magnitude, phase)), Bits(ReferenceImaginary(magnitude, phase)))
            << magnitude << " " << phase;
    }
}

TEST_F(Conversion, RealAndImaginaryAgreeWithTheReferenceForCommonPhases)
{
    for (int quarterDegree = -2880; quarterDegree <= 2880; ++quarterDegree) {
        const float phase = static_cast<float>(quarterDegree) / 4;
        ASSERT_EQ(Bits(file.GetRealValueFrom(3, phase)), Bits(ReferenceReal(3, phase))) << phase;
        ASSERT_EQ(Bits(file.GetImaginaryValueFrom(3, phase)), Bits(ReferenceImaginary(3, phase))) << phase;
    }
}

// ---- phase -------------------------------------------------------------------------------------------------

TEST_F(GetPhaseValueFrom, FollowsTheQuadrants)
{
    struct {
        float real, imaginary, phase, as360;
    } const table[] = {
        {0, 0, 0, 0},          {0, 5, 90, 90},    {0, -5, -90, 270},    {5, 0, 0, 0},        {-5, 0, 180, 180},
        {1, 1, 45, 45},        {1, -1, -45, 315}, {-1, 1, 135, 135},    {-1, -1, -135, 225}, {-0.0F, 1, 90, 90},
        {-1, -0.0F, 180, 180}, {1, -0.0F, 0, 0},  {-0.0F, -0.0F, 0, 0},
    };
    for (const auto& [real, imaginary, phase, as360] : table) {
        EXPECT_EQ(Bits(Phase(real, imaginary)), Bits(phase)) << real << " " << imaginary;
        EXPECT_EQ(Bits(Phase(real, imaginary, true)), Bits(as360)) << real << " " << imaginary;
    }
}

TEST_F(GetPhaseValueFrom, AgreesWithTheReferenceToTheLastBit)
{
    std::mt19937 random(3);
    for (int i = 0; i < 300'000; ++i) {
        const float real = AnyFloat(random);
        const float imaginary = AnyFloat(random);
        ASSERT_EQ(Bits(Phase(real, imaginary)), Bits(ReferencePhase(real, imaginary, false)))
            << real << " " << imaginary;
        ASSERT_EQ(Bits(Phase(real, imaginary, true)), Bits(ReferencePhase(real, imaginary, true)))
            << real << " " << imaginary;
    }
}

TEST_F(GetPhaseValueFrom, TakesAnyNonZeroBoolForDisplayAs360)
{
    EXPECT_EQ(Phase(0.0F, -1.0F, Bool16::Raw(1)), 270);
    EXPECT_EQ(Phase(0.0F, -1.0F, Bool16::Raw(-32768)), 270);
    EXPECT_EQ(Phase(0.0F, -1.0F, Bool16::Raw(0)), -90);
}

TEST_F(GetPhaseValueFrom, IsRoundedToFloatBefore360IsAdded)
{
    EXPECT_EQ(Bits(Phase(25.0F, -91.0F, true)), Bits(285.36163F)) << "285.3616 if it were rounded once";
    EXPECT_EQ(Bits(Phase(169.0F, -161.0F, true)), Bits(316.38873F)) << "316.3887 if it were rounded once";
}

// Two of the few values where a float still shows the cut: with all decimals of pi it is the float below.
TEST_F(GetPhaseValueFrom, UsesTheCutPi)
{
    EXPECT_EQ(Bits(Phase(1.0F, 0x1.3146cep-10F)), Bits(0x1.114c36p-4F));
    EXPECT_EQ(Bits(Phase(1.0F, 0x1.0ddadp-3F)), Bits(0x1.e067d2p+2F));
}

TEST_F(GetPhaseValueFrom, JustBelowZeroBecomes360) { EXPECT_EQ(Bits(Phase(1.0F, -1e-20F, true)), Bits(360)); }

TEST_F(GetPhaseValueFrom, TakesEveryNumericType)
{
    const NumericVariant twos[] = {std::uint8_t{2}, std::int16_t{2}, std::int32_t{2}, std::int64_t{2}, 2.0F, 2.0};
    for (const NumericVariant& real : twos) {
        for (const NumericVariant& imaginary : twos) {
            EXPECT_EQ(Bits(Phase(real, imaginary)), Bits(45)) << real.index() << " " << imaginary.index();
        }
    }
}

TEST_F(GetPhaseValueFrom, TakesATrueForMinusOne)
{
    EXPECT_EQ(Phase(Bool16(true), 0.0F), 180);
    EXPECT_EQ(Phase(1.0F, Bool16(true)), -45);
    EXPECT_EQ(Phase(Bool16(false), 1.0F), 90);
    EXPECT_EQ(Phase(Bool16(true), Bool16(true)), -135);
    EXPECT_EQ(Phase(Bool16::Raw(5), 5.0), 45);
}

TEST_F(GetPhaseValueFrom, TakesAnEmptyVariantForZero)
{
    EXPECT_EQ(Phase(std::monostate{}, 3.0), 90);
    EXPECT_EQ(Phase(-3.0, std::monostate{}), 180);
    EXPECT_EQ(Phase(std::monostate{}, std::monostate{}), 0);
}

TEST_F(GetPhaseValueFrom, IsZeroForATextEvenOneThatLooksLikeANumber)
{
    EXPECT_EQ(Bits(Phase(std::u16string(u"1"), 1.0F)), Bits(0));
    EXPECT_EQ(Bits(Phase(0.0F, std::u16string(u"-1"), true)), Bits(0));
    EXPECT_EQ(Bits(Phase(-1.0F, std::u16string())), Bits(0));
    EXPECT_EQ(Bits(Phase(std::u16string(u"-1"), 0.0F)), Bits(0));
}

// 1/3 as a float and as a double leads to neighbouring phases.
TEST_F(GetPhaseValueFrom, DividesIn32BitsWhereBothValuesAre16BitBooleanOrFloat)
{
    const NumericVariant narrowThrees[] = {std::int16_t{3}, 3.0F, Bool16::Raw(3)};
    const NumericVariant narrowOnes[] = {std::int16_t{1}, 1.0F, Bool16::Raw(1)};
    for (const NumericVariant& real : narrowThrees) {
        for (const NumericVariant& imaginary : narrowOnes) {
            EXPECT_EQ(Bits(Phase(real, imaginary)), 0x41937AC7U) << real.index() << " " << imaginary.index();
        }
    }
}

TEST_F(GetPhaseValueFrom, DividesIn64BitsWhereAValueIsOfAnotherType)
{
    const NumericVariant wideThrees[] = {std::uint8_t{3}, std::int32_t{3}, std::int64_t{3}, 3.0};
    const NumericVariant wideOnes[] = {std::uint8_t{1}, std::int32_t{1}, std::int64_t{1}, 1.0};
    for (const NumericVariant& three : wideThrees) EXPECT_EQ(Bits(Phase(three, std::int16_t{1})), 0x41937AC6U);
    for (const NumericVariant& one : wideOnes) EXPECT_EQ(Bits(Phase(3.0F, one)), 0x41937AC6U);
    for (const NumericVariant& three : wideThrees) {
        for (const NumericVariant& one : wideOnes) EXPECT_EQ(Bits(Phase(three, one)), 0x41937AC6U);
    }
}

TEST_F(GetPhaseValueFrom, DividesIn64BitsWhereTheFloatQuotientOverflows)
{
    EXPECT_EQ(Bits(Phase(1e-30F, 1e30F)), Bits(90));
    EXPECT_EQ(Bits(Phase(-1e-30F, 1e30F)), Bits(90));
    EXPECT_EQ(Bits(Phase(-1e-30F, -1e30F)), Bits(-90));
}

TEST_F(GetPhaseValueFrom, IsZeroWhereTheDoubleQuotientOverflows)
{
    EXPECT_EQ(Bits(Phase(1e-300, 1e300)), Bits(0));
    EXPECT_EQ(Bits(Phase(-1e-300, -1e300, true)), Bits(0));
}

TEST_F(GetPhaseValueFrom, ComparesWithZeroBeforeItRounds)
{
    EXPECT_EQ(Bits(Phase(-1e-300, 0.0)), Bits(180)) << "as a float it would be 0";
    EXPECT_EQ(Bits(Phase(0.0, -1e-300)), Bits(-90));
}

TEST_F(GetPhaseValueFrom, IsZeroWhereAValueIsNotFinite)
{
    const NumericVariant notFinite[] = {Infinity, -Infinity, NaN, std::numeric_limits<double>::infinity(),
                                        std::numeric_limits<double>::quiet_NaN()};
    for (const NumericVariant& value : notFinite) {
        EXPECT_EQ(Bits(Phase(value, -1.0F, true)), Bits(0)) << value.index();
        EXPECT_EQ(Bits(Phase(0.0F, value, true)), Bits(0)) << value.index();
        EXPECT_EQ(Bits(Phase(-1.0F, value)), Bits(0)) << value.index();
        EXPECT_EQ(Bits(Phase(value, value)), Bits(0)) << value.index();
    }
}

TEST_F(GetPhaseValueFrom, TakesTheWholeRangeOfTheIntegers)
{
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(Bits(Phase(smallest, smallest)), Bits(-135));
    EXPECT_EQ(Bits(Phase(std::int16_t{-32768}, std::int16_t{32767})), Bits(ReferencePhase(-32768.0F, 32767.0F, false)));
    EXPECT_EQ(Bits(Phase(std::int32_t{2147483647}, std::int32_t{-2147483647})), Bits(-45));
    EXPECT_EQ(Bits(Phase(std::uint8_t{255}, std::uint8_t{255})), Bits(45));
}

// ---- all -----------------------------------------------------------------------------------------------------

TEST_F(Conversion, ReportsNothing)
{
    file.ErrorStatus(AxisNumberError);
    file.GetMagnitudeValueFrom(LargestFloat, LargestFloat);
    file.GetRealValueFrom(NaN, NaN);
    file.GetImaginaryValueFrom(NaN, NaN);
    Phase(std::u16string(u"text"), NaN);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (14): Axis Number error");
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
}

TEST_F(Conversion, OfASampleIsThatOfTheMembers)
{
    Size(file, 1, 1, DataFormat_MgnitudePhase);
    std::mt19937 random(4);
    for (int i = 0; i < 10'000; ++i) {
        const float magnitude = AnyFloat(random);
        const float phase = AnyFloat(random);
        file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
        ASSERT_EQ(file.WriteTraceSampleValue(1, 1, magnitude, phase), Success);
        const SampleRead polar = Read(file, 1, 1);
        file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
        const SampleRead cartesian = Read(file, 1, 1);
        ASSERT_EQ(cartesian, Holds(ReferenceReal(magnitude, phase), ReferenceImaginary(magnitude, phase)));
        ASSERT_EQ(polar, Holds(ReferenceMagnitude(cartesian.first, cartesian.second),
                               ReferencePhase(cartesian.first, cartesian.second, true)));
    }
}

} // namespace
} // namespace qor::test
