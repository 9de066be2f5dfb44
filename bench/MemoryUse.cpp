// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "MemoryUse.h"

#include "Child.h"
#include "Figures.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace qor::bench {
namespace {

// Bytes that a line of the process's status tells.
double StatusBytes(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field)) return std::stod(line.substr(field.size() + 1)) * 1024;
    }
    throw std::runtime_error("no process status");
}

// The peak of the memory that the work takes above what the process has already. Nothing where the system does not tell
// it, or the work fails.
std::optional<double> PeakAbove(const std::function<bool()>& work)
{
    {
        std::ofstream peak("/proc/self/clear_refs");
        peak << "5"; // sets the peak back to the present use
    }
    const double before = StatusBytes("VmRSS");
    constexpr double Inexact = 1024 * 1024; // processors count pages for themselves for a while
    if (StatusBytes("VmHWM") - before > Inexact) return std::nullopt; // was not set back
    if (!work()) return std::nullopt;
    return StatusBytes("VmHWM") - before;
}

} // namespace

void PeakMeter::Prepare(const std::vector<std::string>& figures, const std::function<bool()>& work)
{
    if (std::none_of(figures.begin(), figures.end(), IsChosen)) return;
    DoInChild("files for the memory figures", work);
}

std::optional<double> PeakMeter::Measure(const std::string& figure, const std::string& suffix,
                                         const std::function<MeasuredWork()>& prepare)
{
    if (!IsChosen(figure)) return std::nullopt;
    const std::optional<double> peak = InChild([&] {
        const MeasuredWork measured = prepare();
        const std::optional<double> above = PeakAbove(measured.work);
        return measured.holds() ? above : std::nullopt;
    });
    if (!peak) {
        std::fprintf(stderr, "%s%s: memory could not be measured, or a result was wrong\n", figure.c_str(),
                     suffix.c_str());
        failed_ = true;
        return std::nullopt;
    }
    report_.SetPeak(figure + suffix, *peak);
    return peak;
}

} // namespace qor::bench
