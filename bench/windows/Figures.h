// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Times work beside its reference, for the report.
#pragma once

#include "../Report.h"

#include <windows.h>

#ifdef _WIN64
#define WORD_SIZE "64 bits"
#else
#define WORD_SIZE "32 bits"
#endif

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

// One figure: both are run that many times a round, one right after the other, so that what else the machine does meets
// both alike; every other round the reference goes first.
template <class Work, class Reference>
void Compare(Report& report, const char* name, int timesARound, Work work, const char* beside, Reference reference,
             std::optional<double> atMost = {})
{
    constexpr int Rounds = 101;
    Figure& figure = report.Add({.name = name, .references = {{beside, "", atMost}}});
    for (int round = 0; round <= Rounds; ++round) {
        const bool referenceFirst = round % 2 == 1;
        double referenceSeconds = referenceFirst ? SecondsOf(reference, timesARound) : 0;
        const double workSeconds = SecondsOf(work, timesARound);
        if (!referenceFirst) referenceSeconds = SecondsOf(reference, timesARound);
        if (round == 0) continue; // fills caches
        figure.seconds.push_back(workSeconds / timesARound);
        figure.references[0].seconds.push_back(referenceSeconds / timesARound);
    }
}

} // namespace qor::bench
