// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Every thread has documents of its own, and threads at work at once do not meet.
#include "Threads.h"

#include <atomic>

using namespace qor::test;

namespace {

constexpr int Threads = 8;

} // namespace

TEST(Threads, EachHasDocumentsOfItsOwn)
{
    Meeting filled(Threads);
    std::atomic<int> untouched = 0;

    OnThreads(Threads, [&](int number) {
        const auto file = Create<clsQOR_File, _clsQOR_File>();
        Fill(*file.Get(), number);
        filled.Wait(); // all documents are there at once
        if (Holds(*file.Get(), number)) ++untouched;
    });

    EXPECT_EQ(untouched, Threads);
}

TEST(Threads, AddedClassesWorkOnTheDocumentsOfTheirThread)
{
    Meeting written(Threads);
    std::atomic<int> right = 0;

    OnThreads(Threads, [&](int number) {
        const auto file = Create<clsQOR_File, _clsQOR_File>();
        const auto added = Create<ClassAdd_5, _ClassAdd_5>();
        added->put_DataBlockRPM(static_cast<float>(number));
        written.Wait();
        float speed = 0;
        Create<ClassAdd_5, _ClassAdd_5>()->get_DataBlockRPM(&speed);
        if (speed == static_cast<float>(number)) ++right;
    });

    EXPECT_EQ(right, Threads);
}

TEST(Threads, ANewThreadFindsEmptyDocuments)
{
    const Apartment apartment;
    const auto kept = Create<clsQOR_File, _clsQOR_File>(); // the library stays
    Fill(*kept.Get(), 3);

    LONG traces = -1;
    OnThreads(1, [&](int) {
        const auto arrays = Create<QOR_FileArrays, IQOR_FileArrays>(); // which empties nothing itself
        const auto file = Create<clsQOR_File, _clsQOR_File>();
        file->get_DataBlock_NumberOfTraces(&traces);
    });

    EXPECT_EQ(traces, 0);
    EXPECT_TRUE(Holds(*kept.Get(), 3));
}

TEST(Threads, WorkAtOnceEarlyAndLateBound)
{
    constexpr int Rounds = 200;
    Meeting start(Threads);
    std::atomic<int> right = 0;

    OnThreads(Threads, [&](int number) {
        start.Wait();
        for (int round = 0; round < Rounds; ++round) {
            const auto file = Create<clsQOR_File, _clsQOR_File>(); // late bound, it reads the type library anew
            Fill(*file.Get(), number);
            VARIANT traces{};
            const HRESULT called = CallByName(*file.Get(), L"DataBlock_NumberOfTraces", traces);
            if (called == S_OK && traces.vt == VT_I4 && traces.lVal == number && Holds(*file.Get(), number)) ++right;
        }
    });

    EXPECT_EQ(right, Threads * Rounds);
}
