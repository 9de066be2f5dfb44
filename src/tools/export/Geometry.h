// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A Structure as the formats of other programs see it: points, and elements that join them by index. What holds for
// all these formats is settled here: which elements can be drawn, what a colour is, which texts are safe.
#pragma once

#include "tools/documents/DocumentFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace qor::tool {

// Black is what an element has that was never given a colour.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

struct Geometry {
    struct Point {
        std::array<float, 3> place; // finite
        Color color;
    };
    template <std::size_t Corners>
    struct Element {
        std::array<std::int32_t, Corners> points; // indices from 0, of points that there are
        Color color;
    };

    // Short enough for every reader, without line breaks; empty where the Structure has none.
    std::string label;
    std::string notes;
    std::vector<Point> points;            // at least one
    std::vector<std::string> pointLabels; // one for each point; none at all when no point has a label
    std::vector<Element<2>> lines;
    std::vector<Element<3>> triangles;
    std::vector<Element<4>> quads;
};

// The Structure in the file. What formats cannot express, and readers would stumble over, is left out with a
// warning. Throws ToolError when the file is damaged or has no vertex points.
Geometry GeometryOf(DocumentFile& file);

// "4 points, 5 lines, 1 quad".
std::string CountsOf(const Geometry& geometry);

// Whether any of them was given a colour.
template <class Colored>
bool HasColors(const std::vector<Colored>& all)
{
    return std::ranges::any_of(all, [](const Colored& each) { return each.color != Color(); });
}

} // namespace qor::tool
