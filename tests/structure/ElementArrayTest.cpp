// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The array behind each list of a Structure.
#include "structure/ElementArray.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace qor::test {
namespace {

struct Element {
    std::int32_t value = 0;
    std::array<std::int32_t, 4> rest{};
};
constexpr std::int32_t MostElements = 107'374'182; // of 20 bytes in 2,147,483,647

using Array = ElementArray<Element>;

Array Filled(std::int32_t count)
{
    Array array;
    EXPECT_TRUE(array.Resize(count));
    for (std::int32_t i = 1; i <= count; ++i) array[i] = {i * 10, {1, 2, 3, i}};
    return array;
}

// Elements first to last are as Filled made them.
bool AreFilled(const Array& array, std::int32_t first, std::int32_t last)
{
    bool filled = true;
    for (std::int32_t i = first; i <= last; ++i) filled &= array[i].value == i * 10 && array[i].rest[3] == i;
    return filled;
}

bool AreZero(const Array& array, std::int32_t first, std::int32_t last)
{
    bool zero = true;
    for (std::int32_t i = first; i <= last; ++i) zero &= array[i].value == 0 && array[i].rest[3] == 0;
    return zero;
}

TEST(ElementArray, BeginsEmpty)
{
    const Array array;
    EXPECT_EQ(array.Count(), 0);
    EXPECT_FALSE(array.Has(0));
    EXPECT_FALSE(array.Has(1));
}

TEST(ElementArray, CountsFromOne)
{
    const Array array = Filled(3);
    EXPECT_TRUE(array.Has(1));
    EXPECT_TRUE(array.Has(3));
    for (const std::int32_t index : {0, -1, 4, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_FALSE(array.Has(index)) << index;
    }
}

TEST(ElementArray, HoldsItsElementsSideBySide)
{
    const Array array = Filled(3);
    EXPECT_EQ(&array[2], &array[1] + 1);
    EXPECT_EQ(&array[3], &array[1] + 2);
}

TEST(ElementArray, GrowsByZerosAndKeepsWhatItHeld)
{
    Array array = Filled(3);
    for (const std::int32_t count : {4, 5, 100, 5'000, 200'000}) {
        ASSERT_TRUE(array.Resize(count));
        EXPECT_EQ(array.Count(), count);
        EXPECT_TRUE(AreFilled(array, 1, 3)) << count;
        EXPECT_TRUE(AreZero(array, 4, count)) << count;
    }
}

TEST(ElementArray, KeepsWhatRemainsWhenItShrinks)
{
    Array array = Filled(200'000);
    for (const std::int32_t count : {199'999, 1'000, 1}) {
        ASSERT_TRUE(array.Resize(count));
        EXPECT_EQ(array.Count(), count);
        EXPECT_TRUE(AreFilled(array, 1, count)) << count;
        EXPECT_FALSE(array.Has(count + 1));
    }
}

TEST(ElementArray, GrowsByZerosAlsoWhereItHeldElementsBefore)
{
    Array array = Filled(10);
    ASSERT_TRUE(array.Resize(4));
    for (const std::int32_t count : {5, 8, 10, 11}) {
        ASSERT_TRUE(array.Resize(count));
        EXPECT_TRUE(AreFilled(array, 1, 4)) << count;
        EXPECT_TRUE(AreZero(array, 5, count)) << count;
    }
}

TEST(ElementArray, StaysWhereItIsForTheCountThatItHas)
{
    Array array = Filled(3);
    const Element* const before = &array[1];
    EXPECT_TRUE(array.Resize(3));
    EXPECT_EQ(&array[1], before);
    EXPECT_TRUE(AreFilled(array, 1, 3));
}

TEST(ElementArray, MovesSeldomWhenItGrowsByOne)
{
    Array array;
    int moves = 0;
    const Element* place = nullptr;
    for (std::int32_t count = 1; count <= 300'000; ++count) {
        ASSERT_TRUE(array.Resize(count));
        array[count] = {count * 10, {1, 2, 3, count}};
        if (&array[1] != place) ++moves;
        place = &array[1];
    }
    EXPECT_TRUE(AreFilled(array, 1, 300'000));
    EXPECT_LE(moves, 20);
}

TEST(ElementArray, IsReleasedByACountOfZero)
{
    Array array = Filled(3);
    EXPECT_TRUE(array.Resize(0));
    EXPECT_EQ(array.Count(), 0);
    ASSERT_TRUE(array.Resize(3));
    EXPECT_TRUE(AreZero(array, 1, 3));
}

TEST(ElementArray, IsReleasedOnRequest)
{
    Array array = Filled(3);
    array.Release();
    EXPECT_EQ(array.Count(), 0);
    array.Release();
    EXPECT_EQ(array.Count(), 0);
}

TEST(ElementArray, StaysAsItWasWhereACountIsRefused)
{
    Array array = Filled(3);
    for (const std::int32_t count :
         {-1, std::numeric_limits<std::int32_t>::min(), MostElements + 1, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_FALSE(array.Resize(count)) << count;
        EXPECT_EQ(array.Count(), 3);
        EXPECT_TRUE(AreFilled(array, 1, 3)) << count;
    }
}

// Pages that nothing writes to take no memory.
TEST(ElementArray, HoldsWhatFitsTheLargestArrayAndNoMore)
{
    Array array = Filled(3);
    ASSERT_TRUE(array.Resize(MostElements));
    array[MostElements].value = 5;
    EXPECT_EQ(array[MostElements].value, 5);
    EXPECT_EQ(array[MostElements - 1].value, 0);
    EXPECT_TRUE(AreFilled(array, 1, 3));
    EXPECT_FALSE(array.Resize(MostElements + 1));
    EXPECT_EQ(array.Count(), MostElements);
}

TEST(ElementArray, MovedLeavesAnEmptyOne)
{
    Array first = Filled(3);
    Array second(std::move(first));
    EXPECT_EQ(first.Count(), 0); // NOLINT(bugprone-use-after-move): that it is empty is promised
    EXPECT_TRUE(AreFilled(second, 1, 3));

    Array third = Filled(7);
    third = std::move(second);
    EXPECT_EQ(second.Count(), 0); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(third.Count(), 3);
    EXPECT_TRUE(AreFilled(third, 1, 3));
    ASSERT_TRUE(second.Resize(2));
    EXPECT_TRUE(AreZero(second, 1, 2));
}

TEST(ElementArray, MovedToItselfStaysAsItWas)
{
    Array array = Filled(3);
    Array& same = array;
    array = std::move(same);
    EXPECT_EQ(array.Count(), 3);
    EXPECT_TRUE(AreFilled(array, 1, 3));
}

} // namespace
} // namespace qor::test
