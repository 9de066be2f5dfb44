// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A client that ends, with exit code 0, while its threads still use the library.
//   server_ending_client holding|working|killed
#include "Threads.h"
#include "server/Library.h"

using namespace qor::test;

namespace {

constexpr int Threads = 4;

// Memory is asked for and given back all the time.
void Work(_clsQOR_File& file)
{
    for (LONG round = 0;; ++round) {
        file.put_Structure_NumberOfVertexPoints(1 + round % 5000);
        file.put_DataBlock_NumberOfTraces(1 + round % 300);
        file.put_DataBlock_NumberOfSamples(1 + round % 100);
        CallThatThrows(file);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::string way = argc > 1 ? argv[1] : "";
    auto* const library = new Library; // stays until the end
    auto* const started = new Meeting(Threads + 1);
    std::vector<std::thread> threads;
    for (int number = 1; number <= Threads; ++number) {
        threads.emplace_back([=] {
            const auto file = library->Create<clsQOR_File, _clsQOR_File>();
            Fill(*file.Get(), number);
            started->Wait();
            if (way == "working") Work(*file.Get());
            Sleep(INFINITE);
        });
    }
    started->Wait();
    Sleep(20);
    if (way == "killed") {
        TerminateThread(reinterpret_cast<HANDLE>(pthread_gethandle(threads.front().native_handle())), 0);
        library->Free();
    }
    for (std::thread& thread : threads) thread.detach();
    return 0;
}
