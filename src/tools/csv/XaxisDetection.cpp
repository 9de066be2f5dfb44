// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/XaxisDetection.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace qor::tool {
namespace {

constexpr double LargestShareOfIncrement = 0.05;

// Largest distance of a value from its place; infinite when one is beyond the limits.
double LargestDeviation(std::span<const double> values, UniformAxis axis, const TextPrecision& precision)
{
    const double largest = std::max(std::abs(values.front()), std::abs(values.back()));
    const double lastPlace = std::pow(10.0, -precision.decimals);
    const double everywhere = std::max(lastPlace, largest * std::numeric_limits<float>::epsilon());
    const double most = LargestShareOfIncrement * axis.increment;
    double deviation = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double off = std::abs(values[i] - (axis.start + static_cast<double>(i) * axis.increment));
        if (!(off <= most)) return std::numeric_limits<double>::infinity();
        if (off > everywhere) {
            // Numbers of 6 digits, say, have fewer decimals the larger they are.
            const double digitsBeforePoint = std::floor(std::log10(std::abs(values[i]))) + 1;
            if (off > std::pow(10.0, digitsBeforePoint - precision.significantDigits)) {
                return std::numeric_limits<double>::infinity();
            }
        }
        deviation = std::max(deviation, off);
    }
    return deviation;
}

} // namespace

void TextPrecision::Add(std::string_view number)
{
    int exponent = 0;
    const auto mark = number.find_first_of("eE");
    if (mark != std::string_view::npos) {
        std::string_view digits = number.substr(mark + 1);
        if (digits.starts_with('+')) digits.remove_prefix(1);
        std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        exponent = std::clamp(exponent, -400, 400);
        number = number.substr(0, mark);
    }
    int digits = 0;
    int behindPoint = 0;
    bool seesPoint = false;
    for (const char letter : number) {
        if (letter == '.') seesPoint = true;
        if (letter < '0' || letter > '9') continue;
        if (seesPoint) ++behindPoint;
        if (digits > 0 || letter != '0') ++digits;
    }
    decimals = std::max(decimals, behindPoint - exponent);
    significantDigits = std::max(significantDigits, digits);
}

std::optional<UniformAxis> DetectUniform(std::span<const double> values, const TextPrecision& precision)
{
    if (values.size() < 2) return std::nullopt;
    const UniformAxis average{values.front(),
                              (values.back() - values.front()) / static_cast<double>(values.size() - 1)};
    // Where the last value was rounded more than the first ones, the first step is the better one.
    const UniformAxis firstStep{values.front(), values[1] - values[0]};
    if (!(average.increment > 0)) return std::nullopt;
    const double offAverage = LargestDeviation(values, average, precision);
    const double offFirstStep = LargestDeviation(values, firstStep, precision);
    if (!std::isfinite(std::min(offAverage, offFirstStep))) return std::nullopt;
    const UniformAxis axis = offFirstStep < offAverage ? firstStep : average;
    // The document holds both as 32-bit values.
    if (!(static_cast<float>(axis.increment) > 0) || !std::isfinite(static_cast<float>(axis.increment))) {
        return std::nullopt;
    }
    return axis;
}

} // namespace qor::tool
