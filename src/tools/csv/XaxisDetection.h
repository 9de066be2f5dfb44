// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Finds out whether X values that were written as text are evenly spaced.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace qor::tool {

// How finely the texts of a column were written.
struct TextPrecision {
    int decimals = -400;       // the most places behind the point; of 1.5E-3 it is 4
    int significantDigits = 0; // the most digits in one number

    // Takes one more number of the column into account.
    void Add(std::string_view number);
};

struct UniformAxis {
    double start = 0;
    double increment = 0;
};

// Start and increment when every value lies where even spacing puts it. It may be off by what writing it as text
// takes away (one unit of its last written place), or by what a 32-bit value cannot hold, but never by more than
// a twentieth of the increment. Nothing for fewer than 2 values, and for values that do not rise.
std::optional<UniformAxis> DetectUniform(std::span<const double> values, const TextPrecision& precision);

} // namespace qor::tool
