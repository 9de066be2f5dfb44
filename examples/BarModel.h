// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The bar that is tested: its measures, its natural frequencies and mode shapes, and how it answers a strike.
#pragma once

#include <array>

// Bending of a slender uniform bar, both ends free. Eigenvalues and mode shapes: R. D. Blevins, Formulas for Natural
// Frequency and Mode Shape, table 8-1. With these shapes every mode has the bar's own mass as its modal mass.
namespace Bar {
inline constexpr double Length = 1.05, Width = 0.040, Thickness = 0.008; // m
inline constexpr double YoungsModulus = 210e9, Density = 7850;           // steel, N/m^2 and kg/m^3
inline constexpr double Mass = Density * Length * Width * Thickness;
inline constexpr double DampingRatio = 0.01;
inline constexpr std::array Eigenvalues = {4.73004074, 7.85320462, 10.9956078, 14.1371655};
inline constexpr std::array Points = {0.0, 0.25, 0.5, 0.75, 1.0}; // of the length; numbered from 1, struck at the first

// In Hz, undamped.
double NaturalFrequency(double eigenvalue);
// At a point, as a part of the length.
double ModeShape(double eigenvalue, double point);

// A half-sine pulse of 1 N at the first point, and what it does at a point: its acceleration in m/s^2. Time in
// seconds since the strike; at rest before.
inline constexpr double PulseTime = 0.0025;
double PulseForce(double time);
double UnitAcceleration(double point, double time);

} // namespace Bar
