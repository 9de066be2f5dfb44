// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Threads share nothing: documents, error status and posted error are each thread's own, and go with it.
#include "component/DataBlockAccess.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <barrier>
#include <gtest/gtest.h>
#include <vector>

namespace qor::test {
namespace {

TEST(Threads, NeverShareDocuments)
{
    clsQOR_File here;
    Size(here, 1, 2);
    here.WriteTraceSampleValue(1, 2, 3, 0);
    OnAThreadOfItsOwn([] {
        clsQOR_File there;
        EXPECT_EQ(there.DataBlock_NumberOfTraces(), 0);
        Size(there, 5, 6);
        there.WriteTraceSampleValue(1, 2, 30, 0);
    });
    EXPECT_EQ(here.DataBlock_NumberOfTraces(), 1);
    EXPECT_EQ(Read(here, 1, 2), Holds(3));
}

TEST(Threads, NeverShareTheErrorStatusOfAddedClasses)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File here;
        OnAThreadOfItsOwn([] { ClassAdd_1().TraceLinPower(1); });
        EXPECT_EQ(here.ErrorStatus(), NoError);
        ClassAdd_1().TraceLinPower(1);
        EXPECT_EQ(here.ErrorStatus(), TraceDataNotAllocated);
    });
}

TEST(Threads, PostErrorsForThemselves)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File here;
        here.ErrorStatus(TraceIndexError);
        OnAThreadOfItsOwn([] {
            EXPECT_EQ(platform::LastPostedError().number, 0U);
            clsQOR_File().ErrorStatus(SampleIndexError);
        });
        EXPECT_EQ(platform::LastPostedError().description, u"Error (10): Trace Index error");
    });
}

TEST(Threads, ReleaseTheirDocumentsAtTheirEnd)
{
    const int before = ThreadsWithDocuments();
    OnAThreadOfItsOwn([&] {
        EXPECT_EQ(ThreadsWithDocuments(), before) << "a thread that asks for nothing holds nothing";
        clsQOR_File file;
        Size(file, 3, 1000);
        EXPECT_EQ(ThreadsWithDocuments(), before + 1);
    });
    EXPECT_EQ(ThreadsWithDocuments(), before);
}

TEST(Threads, HoldDocumentsOnceHoweverManyObjectsTheyMake)
{
    const int before = ThreadsWithDocuments();
    OnAThreadOfItsOwn([&] {
        clsQOR_File first;
        clsQOR_File second;
        ClassAdd_5().DataBlockRPM(1);
        EXPECT_EQ(ThreadsWithDocuments(), before + 1);
    });
}

TEST(Threads, KeepTheirDocumentsWhenTheLastObjectGoes)
{
    const int before = ThreadsWithDocuments();
    OnAThreadOfItsOwn([&] {
        {
            clsQOR_File file;
            file.DataBlock_NumberOfTraces(3);
        }
        EXPECT_EQ(ThreadsWithDocuments(), before + 1);
        ClassAdd_3().TraceZaxisLabel(3, u"kept");
        EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(3), u"kept");
    });
}

constexpr int Workers = 8;
constexpr std::int32_t TracesOfEach = 12;
constexpr std::int32_t SamplesOfEach = 64;

float ValueOf(int worker, std::int32_t trace, std::int32_t sample)
{
    return static_cast<float>(worker * 10000 + trace * 100 + sample);
}

// True when the thread's Data Block holds what the worker wrote.
bool HoldsAllOf(clsQOR_File& file, int worker)
{
    bool all = file.DataBlock_NumberOfTraces() == TracesOfEach && file.DataBlock_NumberOfSamples() == SamplesOfEach;
    for (std::int32_t trace = 1; trace <= TracesOfEach; ++trace) {
        for (std::int32_t sample = 1; sample <= SamplesOfEach; ++sample) {
            const float value = ValueOf(worker, trace, sample);
            all = all && Read(file, trace, sample) == Holds(value, -value);
        }
    }
    return all;
}

TEST(Threads, WorkAtOnceOnDocumentsOfTheirOwn)
{
    const TemporaryFolder folder;
    std::barrier together(Workers);
    std::vector<char> kept(Workers);
    std::vector<char> loaded(Workers);
    std::vector<std::thread> threads;

    for (int worker = 0; worker < Workers; ++worker) {
        threads.emplace_back([&, worker] {
            clsQOR_File file;
            Size(file, TracesOfEach, SamplesOfEach, DataFormat_RealImaginary);
            together.arrive_and_wait();
            for (std::int32_t trace = 1; trace <= TracesOfEach; ++trace) {
                for (std::int32_t sample = 1; sample <= SamplesOfEach; ++sample) {
                    const float value = ValueOf(worker, trace, sample);
                    file.WriteTraceSampleValue(trace, sample, value, -value);
                }
            }
            together.arrive_and_wait();
            kept[static_cast<std::size_t>(worker)] = HoldsAllOf(file, worker);

            const std::u16string path = Utf16(folder / ("worker" + std::to_string(worker)));
            const bool saved = file.OutputDataBlockFile(path) == Success;
            together.arrive_and_wait();
            file.Initialize();
            loaded[static_cast<std::size_t>(worker)] =
                saved && file.InputDataBlockFile(path) == Success && HoldsAllOf(file, worker);
        });
    }
    for (std::thread& thread : threads) thread.join();

    EXPECT_EQ(kept, std::vector<char>(Workers, true));
    EXPECT_EQ(loaded, std::vector<char>(Workers, true));
}

TEST(Threads, ManyOneAfterAnotherLeaveNothing)
{
    const int before = ThreadsWithDocuments();
    for (int turn = 0; turn < 50; ++turn) {
        OnAThreadOfItsOwn([] {
            clsQOR_File file;
            Size(file, 10, 100);
        });
    }
    EXPECT_EQ(ThreadsWithDocuments(), before);
}

TEST(Threads, FailAtOnceEachWithItsOwnStatus)
{
    std::barrier together(Workers);
    std::vector<char> right(Workers);
    std::vector<std::thread> threads;
    for (int worker = 0; worker < Workers; ++worker) {
        threads.emplace_back([&, worker] {
            const bool withTraces = worker % 2 == 0;
            const ErrorStatusTypes expected = withTraces ? TraceIndexError : TraceDataNotAllocated;
            clsQOR_File file;
            file.DataBlock_NumberOfTraces(withTraces ? 1 : 0);
            bool all = true;
            together.arrive_and_wait();
            for (int turn = 0; turn < 200; ++turn) {
                ClassAdd_3().TraceZaxisLabel(9, u"nowhere");
                all = all && file.ErrorStatus() == expected;
                file.Trace_Label(9, u"nowhere");
                all = all && file.ErrorStatus() == expected;
            }
            right[static_cast<std::size_t>(worker)] = all;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, std::vector<char>(Workers, true));
}

} // namespace
} // namespace qor::test
