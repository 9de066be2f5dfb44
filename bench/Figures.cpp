// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Figures.h"

#include <chrono>
#include <cstdio>
#include <regex>
#include <stdexcept>

namespace qor::bench {

void Time(benchmark::State& state, Figure& figure, const std::vector<Party>& parties, double calls)
{
    if (parties.size() != figure.references.size() + 1) throw std::logic_error(figure.name + ": parties");
    for (auto each : state) {
        (void)each;
        bool right = true;
        for (const Party& party : parties) right = party.work() && right;
        for (const Party& party : parties) party.clear();

        const std::size_t first = figure.seconds.size();
        std::vector<double> seconds(parties.size());
        for (std::size_t i = 0; i < parties.size(); ++i) {
            const std::size_t turn = (first + i) % parties.size();
            const auto start = std::chrono::steady_clock::now();
            right = parties[turn].work() && right;
            seconds[turn] = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / calls;
        }
        state.SetIterationTime(seconds[0]);

        for (const Party& party : parties) right = party.holds() && right;
        for (const Party& party : parties) party.clear();
        if (!right) {
            state.SkipWithError("wrong result");
            continue;
        }
        figure.seconds.push_back(seconds[0]);
        for (std::size_t i = 1; i < parties.size(); ++i) figure.references[i - 1].seconds.push_back(seconds[i]);
    }
}

bool IsChosen(const std::string& name)
{
    std::string filter = benchmark::GetBenchmarkFilter();
    if (filter.empty() || filter == "all") return true;
    const bool excludes = filter[0] == '-';
    if (excludes) filter.erase(0, 1);
    return std::regex_search(name, std::regex(filter, std::regex::extended)) != excludes;
}

void Failures::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        ran_ = true;
        if (!run.error_occurred) continue;
        std::fprintf(stderr, "%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
        failed_ = true;
    }
}

} // namespace qor::bench
