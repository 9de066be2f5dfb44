// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Times work beside its references, as benchmarks that can be chosen by name.
#pragma once

#include "Report.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qor::bench {

// Something that is timed, and how to look at what came of it. Only the work is needed. Between them they leave nothing
// behind but files.
struct Party {
    std::function<bool()> work; // false, or not holds(): the result is wrong
    std::function<bool()> holds = [] { return true; };
    std::function<void()> clear = [] {}; // gives back what the work made
};

// Times all parties, one right after the other, so that what else the machine does meets all alike; each time another
// one goes first. The first is the figure's own, the others are its references in their order. Times are divided by
// the number of calls that the work consists of.
//
// Each has a process of its own, as it has where it is used: what one leaves in the heap would cost the next one dear.
// There it works once before it is timed, and clears. That makes the process's pages its own, and memory that was just
// given back is warm: a virtual machine may have to ask its host for memory that lay idle, which takes longer than all
// that is measured.
void Time(benchmark::State& state, Figure& figure, const std::vector<Party>& parties, double calls = 1);

// Runs the function that often. The figure is one of the report.
template <class Function>
void Register(Figure& figure, int runs, Function function)
{
    benchmark::RegisterBenchmark(figure.name.c_str(),
                                 [&figure, function](benchmark::State& state) { function(state, figure); })
        ->Iterations(1)
        ->Repetitions(runs)
        ->UseManualTime();
}

// What benchmarks share, made when the first of them needs it: the user's choice may leave them all out.
template <class Made, class... Arguments>
std::function<Made&()> OnDemand(Arguments... arguments)
{
    return [made = std::make_shared<std::unique_ptr<Made>>(), arguments...]() -> Made& {
        if (!*made) *made = std::make_unique<Made>(arguments...);
        return **made;
    };
}

// Whether the user's choice of benchmarks has that one in it.
bool IsChosen(const std::string& name);

// Only looks whether benchmarks have failed: their times are in the figures.
class Failures : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    // True when a benchmark found its results wrong.
    bool Any() const { return failed_; }
    // True when any benchmark has run.
    bool Ran() const { return ran_; }

private:
    bool failed_ = false;
    bool ran_ = false;
};

} // namespace qor::bench
