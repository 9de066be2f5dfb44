// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "BarModel.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace Bar {
namespace {

using Complex = std::complex<double>;

} // namespace

double NaturalFrequency(double eigenvalue)
{
    const double stiffnessOverMass = std::sqrt(YoungsModulus * Thickness * Thickness / (12 * Density));
    return eigenvalue * eigenvalue * stiffnessOverMass / (2 * std::numbers::pi * Length * Length);
}

double ModeShape(double eigenvalue, double point)
{
    const double ratio =
        (std::cosh(eigenvalue) - std::cos(eigenvalue)) / (std::sinh(eigenvalue) - std::sin(eigenvalue));
    const double x = eigenvalue * point;
    return std::cosh(x) + std::cos(x) - ratio * (std::sinh(x) + std::sin(x));
}

double PulseForce(double time)
{
    return time < 0 || time > PulseTime ? 0 : std::sin(std::numbers::pi * time / PulseTime);
}

// Closed form: with the pole s
// a mode's state z follows z' = s z + force, and its displacement is Im(z) / (mass * damped angular frequency).
double UnitAcceleration(double point, double time)
{
    if (time < 0) return 0;
    const double force = PulseForce(time);
    const double rate = std::numbers::pi / PulseTime;
    const double struckAt = Points.front();
    double sum = force * (1 + 12 * (point - 0.5) * (struckAt - 0.5)) / Mass; // the bar as a rigid body
    for (const double eigenvalue : Eigenvalues) {
        const double angular = 2 * std::numbers::pi * NaturalFrequency(eigenvalue);
        const double damped = angular * std::sqrt(1 - DampingRatio * DampingRatio);
        const Complex pole(-DampingRatio * angular, damped);
        const double inside = std::min(time, PulseTime);
        const Complex atPulse =
            (rate * std::exp(pole * inside) - rate * std::cos(rate * inside) - pole * std::sin(rate * inside)) /
            (pole * pole + rate * rate);
        const Complex state = atPulse * std::exp(pole * (time - inside));
        const double shapes = ModeShape(eigenvalue, point) * ModeShape(eigenvalue, struckAt);
        sum += shapes * (pole * (pole * state + force)).imag() / (Mass * damped);
    }
    return sum;
}

} // namespace Bar
