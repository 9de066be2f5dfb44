// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The conversions once more, by the C library's long double functions, to compare with.
#pragma once

#include <cmath>
#include <limits>

namespace qor::test {

inline constexpr double Pi = 3.14159265358979; // cut on purpose
static_assert(Pi / 180 == 0.017453292519943278);
static_assert(180 / Pi == 57.29577951308238);

inline float ReferenceMagnitude(float real, float imaginary)
{
    if (std::isnan(real) || std::isnan(imaginary)) return std::numeric_limits<float>::quiet_NaN();
    const long double root = std::hypot(static_cast<long double>(real), static_cast<long double>(imaginary));
    // Half a unit in the last place above the largest float: from there on nothing rounds to it.
    return root < 0x1.ffffffp+127L ? static_cast<float>(root) : 1.0E+34F;
}

inline float ReferenceReal(float magnitude, float phase)
{
    if (!std::isfinite(magnitude) || !std::isfinite(phase)) return 0;
    const auto cosine = static_cast<double>(std::cos(static_cast<long double>(phase * (Pi / 180))));
    return static_cast<float>(magnitude * cosine);
}

inline float ReferenceImaginary(float magnitude, float phase)
{
    if (!std::isfinite(magnitude) || !std::isfinite(phase)) return 0;
    const auto sine = static_cast<double>(std::sin(static_cast<long double>(phase * (Pi / 180))));
    return static_cast<float>(magnitude * sine);
}

// With the quotient given, as its precision depends on what the two values are.
inline float ReferencePhase(double real, double imaginary, double quotient, bool as360)
{
    if (!std::isfinite(real) || !std::isfinite(imaginary)) return 0;
    long double degrees = 0;
    if (real == 0 && imaginary != 0) degrees = imaginary > 0 ? 90 : -90;
    if (real < 0 && imaginary == 0) degrees = 180;
    if (real != 0 && imaginary != 0) degrees = (180 / Pi) * std::atan(static_cast<long double>(quotient));
    if (real < 0 && imaginary > 0) degrees += 180;
    if (real < 0 && imaginary < 0) degrees -= 180;
    const auto phase = static_cast<float>(degrees);
    return as360 && phase < 0 ? static_cast<float>(phase + 360.0) : phase;
}

inline float ReferencePhase(float real, float imaginary, bool as360)
{
    const float quotient = imaginary / real;
    return ReferencePhase(real, imaginary, std::isfinite(quotient) ? quotient : double{imaginary} / real, as360);
}

} // namespace qor::test
