// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What an impact test is made for: frequency response functions and coherences of the strikes, and the modes that
// stand in them.
#pragma once

#include <complex>
#include <cstddef>
#include <vector>

using Complex = std::complex<double>;
using Record = std::vector<double>; // one channel over the whole recording

inline constexpr double SamplesPerSecond = 1024;
inline constexpr std::size_t FrameLength = 2048; // 2 s a strike, spectral lines 0.5 Hz apart
inline constexpr double LineSpacing = SamplesPerSecond / FrameLength;
inline constexpr std::size_t UsedLines = 801; // up to 400 Hz, the sampling rate over 2.56
inline constexpr double PretriggerTime = 32 / SamplesPerSecond;
inline constexpr double WindowDampingInHz = 0.5;

// One frame a strike. The force acts at the first point.
struct Recording {
    Record force;                      // N
    std::vector<Record> accelerations; // m/s^2, by point
};

struct Analysis {
    std::vector<std::vector<Complex>> responses;  // H1 by point
    std::vector<std::vector<Complex>> coherences; // by point, imaginary 0
};
Analysis Analyse(const Recording& recording);

struct Mode {
    double frequency = 0;       // Hz, undamped
    double dampingRatio = 0;    // of the bar alone: what the window adds is taken off
    std::size_t line = 0;       // the spectral line of the peak
    std::vector<Complex> shape; // by point, scaled to unit modal mass: kg^-1/2
};
// One for each peak of the frequency responses, in their order.
std::vector<Mode> FindModes(const Analysis& analysis);
