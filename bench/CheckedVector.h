// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The references of the members for one sample: traces of samples in vectors, with bounds checked.
#pragma once

#include <QOR_File/Enumerations.h>

#include <cmath>
#include <complex>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace qor::bench {

using Format = DataBlock_DataFormatTypes;

template <Format format>
using SampleOf = std::conditional_t<format == DataFormat_Real, float, std::complex<float>>;
template <Format format>
using Traces = std::vector<std::vector<SampleOf<format>>>;

inline constexpr double DegreesPerRadian = 57.29577951308232;

// A sample of its two parts, with the arithmetic of a magnitude/phase view where the format is one.
template <Format format>
SampleOf<format> Joined(float first, float second)
{
    if constexpr (format == DataFormat_Real) {
        (void)second;
        return first;
    } else if constexpr (format == DataFormat_MgnitudePhase) {
        const double angle = second / DegreesPerRadian;
        return {static_cast<float>(first * std::cos(angle)), static_cast<float>(first * std::sin(angle))};
    } else {
        return {first, second};
    }
}

template <Format format>
void Part(const SampleOf<format>& sample, float& first, float& second)
{
    if constexpr (format == DataFormat_Real) {
        first = sample;
        second = 0;
    } else if constexpr (format == DataFormat_MgnitudePhase) {
        const double real = sample.real();
        const double imaginary = sample.imag();
        first = static_cast<float>(std::sqrt(real * real + imaginary * imaginary));
        second = static_cast<float>(std::atan2(imaginary, real) * DegreesPerRadian);
    } else {
        first = sample.real();
        second = sample.imag();
    }
}

// Compiled by themselves, as a library's members are, so that each call is one. Numbers count from 1; one that is out
// of bounds is a Failure.
template <Format format>
ReturnStatus ReadChecked(const Traces<format>& traces, std::int32_t trace, std::int32_t sample, float& first,
                         float& second);
template <Format format>
ReturnStatus WriteChecked(Traces<format>& traces, std::int32_t trace, std::int32_t sample, float first, float second);

} // namespace qor::bench
