// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "MemoryUse.h"

#include "Figures.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace qor::bench {
namespace {

constexpr double NotMeasured = -1;

// Bytes that a line of the process's status tells.
double StatusBytes(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field)) return std::stod(line.substr(field.size() + 1)) * 1024;
    }
    throw std::runtime_error("no process status");
}

// The peak of the memory that the work takes above what the process has already.
template <class Work>
double PeakAbove(Work work)
{
    {
        std::ofstream peak("/proc/self/clear_refs");
        peak << "5"; // sets the peak back to the present use
    }
    const double before = StatusBytes("VmRSS");
    constexpr double Inexact = 1024 * 1024; // processors count pages for themselves for a while
    if (StatusBytes("VmHWM") - before > Inexact) return NotMeasured; // was not set back
    if (!work()) return NotMeasured;
    return StatusBytes("VmHWM") - before;
}

// Runs the measurement in a child, whose heap nothing has been in before.
template <class Measurement>
double InChild(Measurement measurement)
{
    int channel[2];
    if (pipe(channel) != 0) return NotMeasured;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        double result = NotMeasured;
        try {
            result = measurement();
        } catch (const std::exception& fault) {
            std::fprintf(stderr, "%s\n", fault.what());
        }
        const bool told = write(channel[1], &result, sizeof result) == static_cast<ssize_t>(sizeof result);
        _exit(told ? 0 : 1);
    }
    close(channel[1]);
    double result = NotMeasured;
    if (child > 0) {
        if (read(channel[0], &result, sizeof result) != static_cast<ssize_t>(sizeof result)) result = NotMeasured;
        waitpid(child, nullptr, 0);
    }
    close(channel[0]);
    return result;
}

} // namespace

void PeakMeter::Prepare(const std::vector<std::string>& figures, const std::function<bool()>& work)
{
    if (std::none_of(figures.begin(), figures.end(), IsChosen)) return;
    const double done = InChild([&] { return work() ? 1 : NotMeasured; });
    if (done == NotMeasured) throw std::runtime_error("files for the memory figures cannot be made");
}

std::optional<double> PeakMeter::Measure(const std::string& figure, const std::string& suffix,
                                         const std::function<MeasuredWork()>& prepare)
{
    if (!IsChosen(figure)) return std::nullopt;
    const double peak = InChild([&] {
        const MeasuredWork measured = prepare();
        const double above = PeakAbove(measured.work);
        return measured.holds() ? above : NotMeasured;
    });
    if (peak == NotMeasured) {
        std::fprintf(stderr, "%s%s: memory could not be measured, or a result was wrong\n", figure.c_str(),
                     suffix.c_str());
        failed_ = true;
        return std::nullopt;
    }
    report_.SetPeak(figure + suffix, peak);
    return peak;
}

} // namespace qor::bench
