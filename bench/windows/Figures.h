// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Times work beside its reference and prints the medians: a line of a table, and one line "ratio NAME VALUE" a figure.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace qor::bench {

inline double Now()
{
    LARGE_INTEGER ticks{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(ticks.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

template <class Work>
double SecondsOf(Work& work, int times)
{
    const double start = Now();
    for (int time = 0; time < times; ++time) work();
    return Now() - start;
}

struct Times {
    std::vector<double> work;
    std::vector<double> reference;
};

// Prints the figures of work that took that long, in seconds.
void Print(const std::string& name, const Times& times);

// One figure: both are run that many times a round, one right after the other, so that what else the machine does meets
// both alike; every other round the reference goes first.
template <class Work, class Reference>
void Compare(const std::string& name, int timesARound, Work work, Reference reference)
{
    constexpr int Rounds = 101;
    Times times;
    for (int round = 0; round <= Rounds; ++round) {
        const bool referenceFirst = round % 2 == 1;
        double referenceSeconds = referenceFirst ? SecondsOf(reference, timesARound) : 0;
        const double workSeconds = SecondsOf(work, timesARound);
        if (!referenceFirst) referenceSeconds = SecondsOf(reference, timesARound);
        if (round == 0) continue; // fills caches
        times.work.push_back(workSeconds / timesARound);
        times.reference.push_back(referenceSeconds / timesARound);
    }
    Print(name, times);
}

} // namespace qor::bench
