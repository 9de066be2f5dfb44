// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A measurement as a client's own data, and its way through the component: one function fills the thread's Data
// Block and writes the file, the other reads a file and takes everything out again. A pattern to copy from.
#pragma once

#include <QOR_File/QOR_File.h>

#include <complex>
#include <filesystem>
#include <string>
#include <vector>

struct MeasuredTrace {
    std::u16string label;
    std::u16string degreesOfFreedom; // "3Z", or response and reference as "3Z:1Z"
    std::u16string units;
    std::u16string dateAndTime;
    DataBlock_MeasurementTypes type = DB_MeasurementIsUndefined;
    std::vector<std::complex<float>> samples; // real measurements: imaginary 0

    bool operator==(const MeasuredTrace&) const = default;
};

// All traces of one document share format, length and X axis; so a real and a complex result are two documents.
struct Measurement {
    std::u16string label;
    std::u16string notes;
    std::u16string xUnits;
    XaxisUnitsAre xUnitsCode = NullX_AxisLabel;
    float xStart = 0;
    float xIncrement = 1;
    DataBlock_DataFormatTypes format = DataFormat_Real;
    float exponentialWindowDampingInHz = 0;
    std::vector<MeasuredTrace> traces;

    bool operator==(const Measurement&) const = default;
};

// Both throw std::runtime_error with the path and what the component reported.
void SaveMeasurement(const Measurement& measurement, const std::filesystem::path& path);
Measurement LoadMeasurement(const std::filesystem::path& path);
