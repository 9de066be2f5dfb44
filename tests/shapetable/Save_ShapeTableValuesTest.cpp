// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The values of a Shape Table file: their bits, their order, and values that no file can hold.
#include "shapetable/Saving.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace qor::test {
namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Largest = std::numeric_limits<float>::max();

// A table of one shape, its values these.
Document OneShape(const std::vector<ShapeValue>& values)
{
    Document document = Sized(1, static_cast<std::int32_t>(values.size()));
    std::int32_t dof = 0;
    for (const ShapeValue& value : values) document.Value(1, ++dof) = value;
    return document;
}

// The bits of the floats behind everything else.
std::vector<std::uint32_t> SavedValues(const Document& document)
{
    const Saved saved = Save(document);
    EXPECT_EQ(saved.status, Success);
    const auto values = 2 * static_cast<std::size_t>(document.counts.NumberOfShapes * document.counts.NumberOfDOFs);
    std::vector<std::uint32_t> bits(values);
    for (std::size_t i = 0; i < 4 * values; ++i) {
        bits[i / 4] |= std::uint32_t{saved.bytes.at(saved.bytes.size() - 4 * values + i)} << (8 * (i % 4));
    }
    return bits;
}

float AsFloat(std::uint32_t bits) { return std::bit_cast<float>(bits); }

// ---- bits -----------------------------------------------------------------------------------------------------

TEST(ShapeTableValues, AreRealAndImaginaryPartOfMagnitudeAndDegrees)
{
    struct Case {
        float phase;
        std::uint32_t real;
        std::uint32_t imaginary;
    };
    // Of magnitude 2. The cut pi shows where a part of 0 would be expected.
    const Case cases[] = {
        {0, 0x40000000, 0x00000000},   {30, 0x3FDDB3D7, 0x3F800000},  {45, 0x3FB504F3, 0x3FB504F3},
        {60, 0x3F800000, 0x3FDDB3D7},  {90, 0x2768D313, 0x40000000},  {180, 0xC0000000, 0x27E8D313},
        {270, 0xA8269E4E, 0xC0000000}, {360, 0x40000000, 0xA868D313}, {3600, 0x40000000, 0xAA1583EC},
        {-90, 0x2768D313, 0xC0000000},
    };
    for (const auto& [phase, real, imaginary] : cases) {
        EXPECT_EQ(SavedValues(OneShape({{2, phase}})), (std::vector{real, imaginary})) << phase;
    }
}

TEST(ShapeTableValues, AMagnitudeAt90DegreesHasARealPartThatIsNotQuite0)
{
    const auto values = SavedValues(OneShape({{2, 90}}));

    EXPECT_GT(AsFloat(values[0]), 0);
    EXPECT_LT(AsFloat(values[0]), 1e-14F);
    EXPECT_EQ(AsFloat(values[1]), 2);
}

// The parts by way of long double; one multiplication in double makes the radians.
void ExpectExact(const std::vector<ShapeValue>& values)
{
    const auto saved = SavedValues(OneShape(values));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto [magnitude, phase] = values[i];
        const long double radians = double{phase} * 0.017453292519943278;
        const auto real = static_cast<float>(magnitude * std::cos(radians));
        const auto imaginary = static_cast<float>(magnitude * std::sin(radians));
        ASSERT_EQ(saved[2 * i], std::bit_cast<std::uint32_t>(real)) << magnitude << " at " << phase;
        ASSERT_EQ(saved[2 * i + 1], std::bit_cast<std::uint32_t>(imaginary)) << magnitude << " at " << phase;
    }
}

TEST(ShapeTableValues, AreExactWithinSomeTurns)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> magnitude(-1000, 1000);
    std::uniform_real_distribution<float> phase(-3600, 3600);
    std::vector<ShapeValue> values(50'000);
    for (ShapeValue& value : values) value = {magnitude(random), phase(random)};
    ExpectExact(values);
}

TEST(ShapeTableValues, AreExactAtEveryMultipleOf15Degrees)
{
    std::vector<ShapeValue> values;
    for (int degrees = -36'000; degrees <= 36'000; degrees += 15) values.push_back({1.5F, static_cast<float>(degrees)});
    ExpectExact(values);
}

TEST(ShapeTableValues, AreExactForFloatsOfAnySize)
{
    std::mt19937 random(2);
    const auto anyFloat = [&] {
        float value = NaN;
        while (!std::isfinite(value)) value = AsFloat(static_cast<std::uint32_t>(random()));
        return value;
    };
    std::vector<ShapeValue> values(50'000);
    for (ShapeValue& value : values) value = {anyFloat(), anyFloat()};
    ExpectExact(values);
}

TEST(ShapeTableValues, AreExactAtTheEndsOfTheRange)
{
    const float smallest = std::numeric_limits<float>::denorm_min();
    std::vector<ShapeValue> values;
    for (const float magnitude : {0.0F, -0.0F, smallest, -smallest, 1.0F, Largest, -Largest}) {
        for (const float phase : {0.0F, -0.0F, smallest, 45.0F, 180.0F, Largest, -Largest}) {
            values.push_back({magnitude, phase});
        }
    }
    ExpectExact(values);
}

// ---- order ----------------------------------------------------------------------------------------------------

TEST(ShapeTableValues, StandShapeByShapeAndWithinAShapeDOFByDOF)
{
    Document document = Sized(2, 3);
    for (std::int32_t shape = 1; shape <= 2; ++shape) {
        for (std::int32_t dof = 1; dof <= 3; ++dof) {
            document.Value(shape, dof).Magnitude = static_cast<float>(10 * shape + dof);
        }
    }

    const Saved saved = Save(document);

    EXPECT_EQ(saved.status, Success);
    EXPECT_EQ(saved.bytes, NewTableBytes(2, 3) + Floats({11, 0, 12, 0, 13, 0, 21, 0, 22, 0, 23, 0}));
}

// ---- what is no number ----------------------------------------------------------------------------------------

TEST(ShapeTableValues, NotANumberStaysNotANumberInBothParts)
{
    for (const ShapeValue value : {ShapeValue{NaN, 45}, ShapeValue{2, NaN}, ShapeValue{NaN, NaN}, ShapeValue{0, NaN}}) {
        const auto values = SavedValues(OneShape({{1, 0}, value, {3, 0}}));

        EXPECT_EQ(AsFloat(values[0]), 1);
        EXPECT_TRUE(std::isnan(AsFloat(values[2])) && std::isnan(AsFloat(values[3])));
        EXPECT_EQ(AsFloat(values[4]), 3);
    }
}

TEST(ShapeTableValues, AnInfiniteMagnitudeOrPhaseLeavesAFileWithoutValues)
{
    for (const ShapeValue value : {ShapeValue{Infinity, 0}, ShapeValue{-Infinity, 0}, ShapeValue{1, Infinity},
                                   ShapeValue{0, -Infinity}, ShapeValue{Infinity, Infinity}}) {
        const Saved saved = Save(OneShape({{1, 0}, {2, 0}, value}));

        EXPECT_EQ(saved.status, Failure) << value.Magnitude << " at " << value.Phase;
        EXPECT_EQ(saved.bytes, NewTableBytes(1, 3)) << value.Magnitude << " at " << value.Phase;
    }
}

TEST(ShapeTableValues, AnInfinityBesideANaNIsAFaultToo)
{
    for (const ShapeValue value : {ShapeValue{Infinity, NaN}, ShapeValue{NaN, -Infinity}}) {
        const Saved saved = Save(OneShape({value}));

        EXPECT_EQ(saved.status, Failure);
        EXPECT_EQ(saved.bytes, NewTableBytes(1, 1));
    }
}

TEST(ShapeTableValues, AnInfinityBeyondTheCountsIsNotLookedAt)
{
    Document document = Sized(2, 2);
    document.Value(1, 2).Magnitude = Infinity;
    document.Value(2, 1).Phase = Infinity;
    document.counts.NumberOfShapes = 1;
    document.counts.NumberOfDOFs = 1;

    EXPECT_EQ(Save(document).status, Success);
}

} // namespace
} // namespace qor::test
