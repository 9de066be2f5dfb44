// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Between real/imaginary and magnitude/phase. Angles are in degrees; pi is 3.14159265358979, a truncated value
// that results depend on and that therefore stays. Arithmetic is double, results are rounded to float once
// (phases before 360 is added, and again after).
#pragma once

#include "datablock/SampleArray.h"

#include <QOR_File/QOR_File.h>

namespace qor {

// sqrt(real^2 + imaginary^2); 1.0E+34 where that does not fit a float or an input is infinite; NaN where an
// input is NaN.
float MagnitudeOf(float real, float imaginary);

// magnitude * cos(phase) and magnitude * sin(phase); both 0 where magnitude or phase is not finite.
ComplexSample FromMagnitudePhase(float magnitude, float phase);

// Phase in degrees, -180 to 180, or 0 to 360; 0 where an input is not finite.
float PhaseOf(float real, float imaginary, bool as360);
// The same of any two numeric values; 0 where one is a text, or where their quotient does not fit a double.
// The quotient is formed as automation forms it: in float where both are 16-bit, true/false or float and it
// fits, in double elsewhere.
float PhaseOf(const NumericVariant& real, const NumericVariant& imaginary, bool as360);

} // namespace qor
