// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Figures.h"

#include "Child.h"

#include <chrono>
#include <cstdio>
#include <optional>
#include <regex>
#include <stdexcept>

namespace qor::bench {

namespace {

// Nothing where the result is wrong.
std::optional<double> SecondsOf(const Party& party)
{
    bool right = party.work();
    party.clear();
    const auto start = std::chrono::steady_clock::now();
    right = party.work() && right;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    right = party.holds() && right;
    party.clear();
    return right ? std::optional(elapsed.count()) : std::nullopt;
}

} // namespace

void Time(benchmark::State& state, Figure& figure, const std::vector<Party>& parties, double calls)
{
    if (parties.size() != figure.references.size() + 1) throw std::logic_error(figure.name + ": parties");
    for (auto each : state) {
        (void)each;
        const std::size_t first = figure.seconds.size();
        std::vector<double> seconds(parties.size());
        bool right = true;
        for (std::size_t i = 0; i < parties.size(); ++i) {
            const std::size_t turn = (first + i) % parties.size();
            const std::optional<double> measured = InChild([&] { return SecondsOf(parties[turn]); });
            right = right && measured;
            seconds[turn] = measured.value_or(0) / calls;
        }
        state.SetIterationTime(seconds[0]);
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
