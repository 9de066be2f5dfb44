// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/export/ObjFile.h"

namespace qor::tool {
namespace {

template <std::size_t Corners>
void WriteElements(char keyword, const std::vector<Geometry::Element<Corners>>& elements, Output& output)
{
    for (const auto& element : elements) {
        output.Write({&keyword, 1});
        for (const std::int32_t point : element.points) output.Print(" {}", std::int64_t{point} + 1);
        output.Write("\n");
    }
}

// A backslash at the end would join the next line.
std::string ObjectName(std::string label)
{
    std::ranges::replace(label, '\\', '/');
    return label;
}

} // namespace

void WriteObj(const Geometry& geometry, Output& output)
{
    if (!geometry.label.empty()) output.Print("o {}\n", ObjectName(geometry.label));
    const bool colored = HasColors(geometry.points);
    for (const auto& [place, color] : geometry.points) {
        output.Print("v {} {} {}", place[0], place[1], place[2]);
        if (colored) {
            const auto part = [](std::uint8_t value) { return static_cast<float>(value) / 255; };
            output.Print(" {} {} {}", part(color.red), part(color.green), part(color.blue));
        }
        output.Write("\n");
    }
    WriteElements('l', geometry.lines, output);
    WriteElements('f', geometry.triangles, output);
    WriteElements('f', geometry.quads, output);
}

} // namespace qor::tool
