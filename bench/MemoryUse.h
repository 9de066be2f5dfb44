// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How much memory work takes at its peak, above what was in use before. Each in a process of its own, whose heap
// nothing has been in before: so this comes first, while this process is small.
#pragma once

#include "Report.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qor::bench {

// Work with what it needs, and how to look at what came of it.
struct MeasuredWork {
    std::function<bool()> work;
    std::function<bool()> holds = [] { return true; };
};

class PeakMeter
{
public:
    explicit PeakMeter(Report& report) : report_(report) {}

    // Does the work, which leaves files only, where one of these figures is wanted.
    void Prepare(const std::vector<std::string>& figures, const std::function<bool()>& work);
    // Gives the report the peak of work beside that reference, or of the figure's own. Nothing where the system does
    // not tell a process's peak memory, or a result was wrong, which is a failure; or where the figure is not wanted.
    std::optional<double> Measure(const std::string& figure, const std::string& suffix,
                                  const std::function<MeasuredWork()>& prepare);

    bool Failed() const { return failed_; }

private:
    Report& report_;
    bool failed_ = false;
};

} // namespace qor::bench
