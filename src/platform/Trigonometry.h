// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Sine, cosine and arctangent with the same bits on every platform. The C libraries differ: some use the x87
// instructions, which miss many bits near multiples of 90 degrees. Errors stay below 3 units in the last place
// of a double, and below 1 for angles of less than 2^20, so that a result rounded to float is right to its last bit.
#pragma once

namespace qor::platform {

struct SineCosine {
    double sine;
    double cosine;
};

// Of an angle in radians, finite and below 2^123 (which covers every float in degrees).
SineCosine SineAndCosine(double radians);

// Of an angle in degrees, with pi = 3.14159265358979: documents depend on that truncated value.
SineCosine SineAndCosineOfDegrees(double degrees);

// In radians, -pi/2 to pi/2; of any number but NaN.
double ArcTangent(double value);

} // namespace qor::platform
