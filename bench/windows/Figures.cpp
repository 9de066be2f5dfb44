// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Figures.h"

#include <algorithm>
#include <cstdio>

namespace qor::bench {
namespace {

constexpr double NanosecondsPerSecond = 1e9;

double Median(std::vector<double> values) // of an odd number
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

void Print(const std::string& name, const Times& times)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < times.work.size(); ++round)
        ratios.push_back(times.work[round] / times.reference[round]);
    const double ratio = Median(ratios);
    std::printf("%-34s %12.1f ns %12.1f ns %9.3f\n", name.c_str(), Median(times.work) * NanosecondsPerSecond,
                Median(times.reference) * NanosecondsPerSecond, ratio);
    std::printf("ratio %s %.3f\n", name.c_str(), ratio);
}

} // namespace qor::bench
