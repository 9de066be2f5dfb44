// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Each thread has documents of its own, from its first use of the component to its end.
#include "Check.h"
#include "Meeting.h"

#include "component/modQOR_File.h"

#include <QOR_File/QOR_File.h>

#include <atomic>
#include <thread>
#include <vector>

namespace qor::test {

void CheckThreads()
{
    constexpr int Threads = 8;
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(3);
    const int before = ThreadsWithDocuments();
    Check(before == 1, "only this thread holds documents");

    Meeting filled(Threads + 1);
    Meeting counted(Threads + 1);
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int number = 1; number <= Threads; ++number) {
        threads.emplace_back([&, number] {
            clsQOR_File own;
            const bool wasEmpty = own.DataBlock_NumberOfTraces() == 0;
            own.DataBlock_NumberOfTraces(number);
            own.DataBlock_NumberOfSamples(100'000);
            own.WriteTraceSampleValue(number, 100'000, static_cast<float>(number), 0);
            float unused = 0;
            own.ReadTraceSampleValue(number + 1, 1, unused, unused); // leaves an error
            filled.Wait();                                           // all documents are there at once
            counted.Wait();
            float real = 0;
            float imaginary = 0;
            own.ReadTraceSampleValue(number, 100'000, real, imaginary);
            if (wasEmpty && own.DataBlock_NumberOfTraces() == number && real == static_cast<float>(number) &&
                own.ErrorStatus() == TraceIndexError)
                ++right;
        });
    }
    filled.Wait();
    Check(ThreadsWithDocuments() == before + Threads, "every thread holds documents of its own");
    counted.Wait();
    for (std::thread& thread : threads) thread.join();
    Check(right == Threads, "and finds in them what it put there");
    Check(ThreadsWithDocuments() == before, "they are released when the threads end");
    Check(file.DataBlock_NumberOfTraces() == 3, "no thread touched this thread's document");

    for (int turn = 0; turn < 200; ++turn) std::thread([] { clsQOR_File().DataBlock_NumberOfTraces(5); }).join();
    Check(ThreadsWithDocuments() == before, "two hundred threads one after the other leave nothing behind");
}

} // namespace qor::test
