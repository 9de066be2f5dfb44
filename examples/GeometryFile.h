// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A geometry as a client's own data, and its way through the component, as MeasurementFile shows it for traces.
#pragma once

#include <QOR_File/QOR_File.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

// Points are numbered from 1, as they stand; lines and quads name them by number. Lengths in m, but the file does not
// say so. A colour has red in its low byte, then green, then blue.
struct Geometry {
    struct Point {
        std::u16string label; // 20 characters at most
        std::array<float, 3> place{};
        std::int32_t color = 0;

        bool operator==(const Point&) const = default;
    };
    std::u16string label;
    std::u16string notes;
    std::vector<Point> points;
    std::vector<std::array<std::int32_t, 2>> lines;
    std::vector<std::array<std::int32_t, 4>> quads;

    bool operator==(const Geometry&) const = default;
};

// Both throw std::runtime_error with the path and what the component reported.
void SaveGeometry(const Geometry& geometry, const std::filesystem::path& path);
Geometry LoadGeometry(const std::filesystem::path& path);
