// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Memory.h"

#include <algorithm>
#include <cstdarg>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

bool pagesCanMove = true;

}

// The linker puts it in the place of the system's.
extern "C" {
void* __real_mremap(void*, std::size_t, std::size_t, int, ...);
void* __wrap_mremap(void* from, std::size_t bytes, std::size_t newBytes, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    void* const to = va_arg(arguments, void*);
    va_end(arguments);
    return pagesCanMove ? __real_mremap(from, bytes, newBytes, flags, to) : MAP_FAILED;
}
}

namespace qor::platform {
namespace {

constexpr std::size_t HugePage = std::size_t{2} << 20;

// On both sides of the size from which memory is mapped, and sizes that are no multiple of a page.
constexpr std::size_t Sizes[] = {1,
                                 17,
                                 4096,
                                 100'003,
                                 HugePage - 1,
                                 HugePage,
                                 HugePage + 1,
                                 2 * HugePage,
                                 3 * HugePage - 4096,
                                 5 * HugePage + 12'345};

TEST(AllocateZeroed, GivesZeros)
{
    for (const std::size_t size : Sizes) {
        auto* const memory = static_cast<unsigned char*>(AllocateZeroed(size));
        ASSERT_NE(memory, nullptr) << size;
        EXPECT_EQ(std::count(memory, memory + size, 0), static_cast<std::ptrdiff_t>(size)) << size;
        FreeZeroed(memory, size);
    }
}

TEST(AllocateZeroed, GivesZerosAgainAfterTheMemoryWasUsed)
{
    for (const std::size_t size : Sizes) {
        for (int turn = 0; turn < 3; ++turn) {
            auto* const memory = static_cast<unsigned char*>(AllocateZeroed(size));
            ASSERT_NE(memory, nullptr) << size;
            EXPECT_EQ(std::count(memory, memory + size, 0), static_cast<std::ptrdiff_t>(size)) << size;
            std::fill_n(memory, size, static_cast<unsigned char>(0xFF));
            FreeZeroed(memory, size);
        }
    }
}

void ExpectGrowth()
{
    for (const std::size_t size : Sizes) {
        for (const std::size_t larger : Sizes) {
            if (larger <= size) continue;
            auto* const memory = static_cast<unsigned char*>(AllocateZeroed(size));
            ASSERT_NE(memory, nullptr) << size;
            for (std::size_t i = 0; i < size; ++i) memory[i] = static_cast<unsigned char>(i % 251 + 1);
            auto* const grown = static_cast<unsigned char*>(GrowZeroed(memory, size, larger));
            ASSERT_NE(grown, nullptr) << size << " to " << larger;
            std::size_t same = 0;
            while (same < size && grown[same] == same % 251 + 1) ++same;
            EXPECT_EQ(same, size) << "to " << larger;
            EXPECT_EQ(std::count(grown + size, grown + larger, 0), static_cast<std::ptrdiff_t>(larger - size)) << size;
            std::fill_n(grown, larger, static_cast<unsigned char>(0xFF));
            FreeZeroed(grown, larger);
        }
    }
}

TEST(GrowZeroed, KeepsWhatThereWasAndGivesZerosBehindIt) { ExpectGrowth(); }

TEST(GrowZeroed, CopiesWhereThePagesCannotMove)
{
    pagesCanMove = false;
    ExpectGrowth();
    pagesCanMove = true;
}

TEST(GrowZeroed, OfNoMemoryIsNew)
{
    auto* const memory = static_cast<unsigned char*>(GrowZeroed(nullptr, 0, 100));
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(std::count(memory, memory + 100, 0), 100);
    FreeZeroed(memory, 100);
}

TEST(GrowZeroed, LeavesTheMemoryWhereThereIsNoMore)
{
    for (const std::size_t size : {std::size_t{100}, 2 * HugePage}) {
        auto* const memory = static_cast<unsigned char*>(AllocateZeroed(size));
        ASSERT_NE(memory, nullptr);
        memory[size - 1] = 7;
        EXPECT_EQ(GrowZeroed(memory, size, SIZE_MAX / 2), nullptr);
        EXPECT_EQ(memory[size - 1], 7);
        FreeZeroed(memory, size);
    }
}

TEST(AllocateZeroed, GivesPiecesThatDoNotOverlap)
{
    for (const std::size_t size : Sizes) {
        auto* const first = static_cast<unsigned char*>(AllocateZeroed(size));
        auto* const second = static_cast<unsigned char*>(AllocateZeroed(size));
        ASSERT_NE(first, nullptr);
        ASSERT_NE(second, nullptr);
        std::fill_n(first, size, static_cast<unsigned char>(1));
        std::fill_n(second, size, static_cast<unsigned char>(2));
        EXPECT_EQ(std::count(first, first + size, 1), static_cast<std::ptrdiff_t>(size)) << size;
        FreeZeroed(first, size);
        EXPECT_EQ(std::count(second, second + size, 2), static_cast<std::ptrdiff_t>(size)) << size;
        FreeZeroed(second, size);
    }
}

TEST(AllocateZeroed, IsAlignedForAnyTypeAndLargePiecesToHugePages)
{
    for (const std::size_t size : Sizes) {
        void* const memory = AllocateZeroed(size);
        const std::size_t alignment = size >= HugePage ? HugePage : alignof(std::max_align_t);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignment, 0U) << size;
        FreeZeroed(memory, size);
    }
}

TEST(AllocateZeroed, IsNullWhereTheSystemRefuses)
{
    EXPECT_EQ(AllocateZeroed(SIZE_MAX), nullptr);
    EXPECT_EQ(AllocateZeroed(SIZE_MAX - HugePage), nullptr);
    EXPECT_EQ(AllocateZeroed(SIZE_MAX / 2), nullptr);
}

TEST(FreeZeroed, TakesNull)
{
    FreeZeroed(nullptr, 1);
    FreeZeroed(nullptr, HugePage);
    void* const memory = AllocateZeroed(1);
    EXPECT_NE(memory, nullptr) << "and memory can be had afterwards";
    FreeZeroed(memory, 1);
}

// Address space of this process, in pages.
std::int64_t MappedPages()
{
    std::int64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
}

// Large pieces are cut out of a larger mapping; what lies before and behind must not stay mapped, but for a
// twentieth that makes the last huge page whole.
TEST(AllocateZeroed, MapsLittleMoreThanThePieceItself)
{
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    MappedPages(); // its own memory is mapped once
    for (const std::size_t pages : {512, 513, 777, 972, 976, 1024, 1454, 1535}) {
        const std::int64_t before = MappedPages();
        void* const memory = AllocateZeroed(page * pages);
        EXPECT_GE(MappedPages() - before, static_cast<std::int64_t>(pages)) << pages;
        EXPECT_LE(MappedPages() - before, static_cast<std::int64_t>(pages + pages / 20)) << pages;
        FreeZeroed(memory, page * pages);
        EXPECT_EQ(MappedPages(), before);
    }
}

TEST(UsableMemory, LiesBetweenTheProcessAndItsAddressSpace)
{
    EXPECT_GT(UsableMemory(), std::uint64_t{64} << 20);
    EXPECT_LT(UsableMemory(), std::uint64_t{1} << 48);
}

} // namespace
} // namespace qor::platform
