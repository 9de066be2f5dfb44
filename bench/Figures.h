// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Times work beside its reference, collects the times, and prints them: a table, then one line a figure.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace qor::bench {

template <class Work>
double SecondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Times both, one right after the other, so that what else the machine does meets both alike; every other time
// the reference goes first. Times are divided by the number of calls that the work consists of.
template <class Work, class Reference>
void TimeBeside(benchmark::State& state, Work work, Reference reference, double calls = 1)
{
    static bool referenceFirst = false;
    referenceFirst = !referenceFirst;
    double referenceSeconds = referenceFirst ? SecondsOf(reference) : 0;
    state.SetIterationTime(SecondsOf(work) / calls);
    if (!referenceFirst) referenceSeconds = SecondsOf(reference);
    state.counters["reference"] = referenceSeconds / calls;
}

template <class Work>
void TimeAlone(benchmark::State& state, Work work)
{
    state.SetIterationTime(SecondsOf(work));
}

// Runs the function that often, one iteration a time.
template <class Function>
void Register(const std::string& name, int runs, Function function)
{
    benchmark::RegisterBenchmark(name.c_str(), function)->Iterations(1)->Repetitions(runs)->UseManualTime();
}

class TimeTable : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    // A table of all times, and one line "ratio NAME VALUE" a figure: the median of the ratios to the reference
    // for each benchmark that has one; the median time for a name that ends in _ms, and, as NAME_ns, for a sample.
    void Print() const;
    // True while no benchmark has run.
    bool Empty() const { return benchmarks_.empty() && !failed_; }
    // True when a benchmark found its results wrong.
    bool Failed() const { return failed_; }

private:
    struct Times {
        std::vector<double> measured;
        std::vector<double> reference;
        std::vector<double> ratios;
    };

    std::map<std::string, Times> benchmarks_;
    bool failed_ = false;
};

void PrintFigure(const std::string& name, double value);

} // namespace qor::bench
