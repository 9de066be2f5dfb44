// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/Conversion.h"

#include "platform/Trigonometry.h"

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

namespace qor {
namespace {

constexpr double DegreesPerRadian = 57.29577951308238; // 180 / 3.14159265358979

// What stands for a magnitude that no float can hold.
constexpr float ImpossibleMagnitude = 1.0E+34F;

struct Number {
    double value = 0;
    bool narrow = false; // 16-bit, true/false or float: a quotient of two such is a float
};

// Nothing where the variant holds a text.
std::optional<Number> NumberIn(const NumericVariant& variant)
{
    return std::visit(
        [](const auto& value) -> std::optional<Number> {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, std::u16string>) {
                return std::nullopt;
            } else if constexpr (std::is_same_v<T, std::monostate>) {
                return Number{};
            } else if constexpr (std::is_same_v<T, Bool16>) {
                return Number{static_cast<double>(value.value), true};
            } else {
                constexpr bool narrow = std::is_same_v<T, std::int16_t> || std::is_same_v<T, float>;
                return Number{static_cast<double>(value), narrow};
            }
        },
        variant);
}

double Quotient(Number dividend, Number divisor)
{
    if (dividend.narrow && divisor.narrow) {
        const float quotient = static_cast<float>(dividend.value) / static_cast<float>(divisor.value);
        if (std::isfinite(quotient)) return quotient;
    }
    return dividend.value / divisor.value;
}

float PhaseOf(Number real, Number imaginary, bool as360)
{
    if (!std::isfinite(real.value) || !std::isfinite(imaginary.value)) return 0;
    double degrees = 0;
    if (real.value == 0) {
        degrees = imaginary.value > 0 ? 90 : imaginary.value < 0 ? -90 : 0;
    } else if (imaginary.value == 0) {
        degrees = real.value > 0 ? 0 : 180;
    } else {
        const double quotient = Quotient(imaginary, real);
        if (!std::isfinite(quotient)) return 0;
        degrees = DegreesPerRadian * platform::ArcTangent(quotient);
        if (real.value < 0) degrees += imaginary.value > 0 ? 180 : -180;
    }
    const auto phase = static_cast<float>(degrees);
    return as360 && phase < 0 ? static_cast<float>(double{phase} + 360) : phase;
}

} // namespace

float MagnitudeOf(float real, float imaginary)
{
    const double re = real;
    const double im = imaginary;
    const double magnitude = std::sqrt(re * re + im * im);
    if (std::isnan(magnitude)) return std::numeric_limits<float>::quiet_NaN();
    const auto rounded = static_cast<float>(magnitude);
    return std::isfinite(rounded) ? rounded : ImpossibleMagnitude;
}

ComplexSample FromMagnitudePhase(float magnitude, float phase)
{
    if (!std::isfinite(magnitude) || !std::isfinite(phase)) return {};
    const platform::SineCosine angle = platform::SineAndCosineOfDegrees(phase);
    return {static_cast<float>(magnitude * angle.cosine), static_cast<float>(magnitude * angle.sine)};
}

float PhaseOf(float real, float imaginary, bool as360)
{
    return PhaseOf(Number{real, true}, Number{imaginary, true}, as360);
}

float PhaseOf(const NumericVariant& real, const NumericVariant& imaginary, bool as360)
{
    const auto re = NumberIn(real);
    const auto im = NumberIn(imaginary);
    return re && im ? PhaseOf(*re, *im, as360) : 0;
}

} // namespace qor
