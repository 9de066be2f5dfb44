// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Mode shapes as a client's own data, and their way through the component into a Shape Table file. The component
// does not read such files.
#pragma once

#include <QOR_File/QOR_File.h>

#include <complex>
#include <filesystem>
#include <string>
#include <vector>

struct ModeShapes {
    struct Shape {
        std::u16string label;
        float frequency = 0; // Hz
        float damping = 0;   // percent of critical
        std::vector<std::complex<float>> values;
    };
    std::u16string label;
    std::u16string notes;
    std::u16string dateAndTime;
    std::vector<std::u16string> degreesOfFreedom; // one for each value of a shape, as "3Z"
    std::u16string units;
    ShapeTable_MeasurementTypes type = ST_MeasurementIsODS;
    std::vector<Shape> shapes;
};

// Throws std::runtime_error with the path and what the component reported.
void SaveModeShapes(const ModeShapes& modes, const std::filesystem::path& path);
