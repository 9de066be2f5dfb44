// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How much memory a repeated call leaves behind.
#pragma once

#include <cstddef>
#include <gtest/gtest.h>
#include <windows.h>

#include <psapi.h>

namespace qor::test {

inline std::size_t WorkingSet()
{
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    EXPECT_GT(counters.WorkingSetSize, 0U);
    return counters.WorkingSetSize;
}

// Bytes by which the process grows over the rounds, after some that it needs to get going.
template <class Round>
std::size_t GrowthOver(int rounds, Round&& round)
{
    for (int warmUp = 0; warmUp < 5; ++warmUp) round();
    const std::size_t before = WorkingSet();
    for (int number = 0; number < rounds; ++number) round();
    const std::size_t after = WorkingSet();
    return after > before ? after - before : 0;
}

} // namespace qor::test
