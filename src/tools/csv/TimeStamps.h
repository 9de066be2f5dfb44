// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Date-time stamps as data loggers write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qor::tool {

struct TimeStamp {
    std::int64_t seconds = 0; // since 1970-01-01 00:00:00, in the stamp's own zone unless it names an offset
    std::int32_t nanoseconds = 0;
    int fractionDigits = 0;
};

// "2022-11-04 08:36:24.897": year first, - or / between the numbers of the date, a blank or T before the time;
// seconds and their fraction (point or comma, 9 digits count) may be missing; Z or an offset as +01:00 may
// follow. Nothing for any other text, and for days and times that do not exist. A leap second (:60) is taken
// for the second that follows it.
std::optional<TimeStamp> ParseTimeStamp(std::string_view text);

// From first to later, in seconds.
double SecondsBetween(const TimeStamp& first, const TimeStamp& later);

} // namespace qor::tool
