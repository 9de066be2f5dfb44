// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Figures.h"

#include <algorithm>
#include <cstdio>

namespace qor::bench {
namespace {

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double Fastest(const std::vector<double>& values) { return *std::min_element(values.begin(), values.end()); }

// A time with the unit in which it has one to three digits before the point.
std::string Readable(double seconds)
{
    const char* unit = "s ";
    for (const char* smaller : {"ms", "us", "ns"}) {
        if (seconds >= 1) break;
        seconds *= 1000;
        unit = smaller;
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.2f %s", seconds, unit);
    return text;
}

} // namespace

void TimeTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred) {
            std::fprintf(stderr, "%s: %s\n", name.c_str(), run.error_message.c_str());
            failed_ = true;
        } else if (run.run_type == Run::RT_Iteration) {
            Times& times = benchmarks_[name];
            times.measured.push_back(run.real_accumulated_time);
            if (const auto reference = run.counters.find("reference"); reference != run.counters.end()) {
                times.reference.push_back(reference->second);
                times.ratios.push_back(times.measured.back() / times.reference.back());
            }
        }
    }
}

void TimeTable::Print() const
{
    std::printf("%-32s %11s %11s %11s %11s %6s %5s\n", "", "median", "fastest", "reference", "fastest", "ratio",
                "runs");
    for (const auto& [name, times] : benchmarks_) {
        std::printf("%-32s %11s %11s", name.c_str(), Readable(Median(times.measured)).c_str(),
                    Readable(Fastest(times.measured)).c_str());
        if (times.ratios.empty()) {
            std::printf(" %11s %11s %6s", "", "", "");
        } else {
            std::printf(" %11s %11s %6.2f", Readable(Median(times.reference)).c_str(),
                        Readable(Fastest(times.reference)).c_str(), Median(times.ratios));
        }
        std::printf(" %5zu\n", times.measured.size());
    }
    std::printf("\n");
    for (const auto& [name, times] : benchmarks_) {
        if (!times.ratios.empty()) PrintFigure(name, Median(times.ratios));
        if (name.ends_with("_ms")) PrintFigure(name, Median(times.measured) * 1e3);
        if (name.starts_with("sample_")) PrintFigure(name + "_ns", Median(times.measured) * 1e9);
    }
}

void PrintFigure(const std::string& name, double value) { std::printf("ratio %s %.3f\n", name.c_str(), value); }

} // namespace qor::bench
