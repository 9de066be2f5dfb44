// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/PerThread.h"

#include <atomic>
#include <barrier>
#include <gtest/gtest.h>
#include <set>
#include <thread>
#include <vector>

namespace qor::platform {
namespace {

std::atomic<int> living = 0;

struct Counted {
    Counted() { ++living; }
    ~Counted() { --living; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    int value = 7;
};

TEST(PerThreadThreads, EachFindItsOwnValueAgain)
{
    std::thread([] {
        EXPECT_EQ(PerThread<Counted>().value, 7);
        PerThread<Counted>().value = 8;
        EXPECT_EQ(PerThread<Counted>().value, 8);
        std::thread([] { EXPECT_EQ(PerThread<Counted>().value, 7); }).join();
        EXPECT_EQ(PerThread<Counted>().value, 8);
    }).join();
}

TEST(PerThreadThreads, DestroyTheirValueAtTheirEnd)
{
    const int before = living;
    std::thread([&] {
        EXPECT_EQ(living, before) << "nothing is made before the first use";
        PerThread<Counted>();
        PerThread<Counted>();
        EXPECT_EQ(living, before + 1);
    }).join();
    EXPECT_EQ(living, before);
}

TEST(PerThreadThreads, AtOnceHaveAValueEach)
{
    constexpr int count = 8;
    std::barrier together(count);
    std::vector<Counted*> values(count);
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            values[static_cast<std::size_t>(i)] = &PerThread<Counted>();
            together.arrive_and_wait(); // all are alive at this moment
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(std::set<Counted*>(values.begin(), values.end()).size(), values.size());
}

TEST(PerThreadThreads, HaveOneValueOfEachType)
{
    struct Other {
        int value = 9;
    };
    std::thread([] {
        PerThread<Counted>().value = 1;
        EXPECT_EQ(PerThread<Other>().value, 9);
    }).join();
}

} // namespace
} // namespace qor::platform
