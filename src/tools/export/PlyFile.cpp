// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/export/PlyFile.h"

namespace qor::tool {
namespace {

constexpr std::string_view ColorProperties = "property uchar red\nproperty uchar green\nproperty uchar blue\n";

void EndLine(bool colored, const Color& color, Output& output)
{
    if (colored) output.Print(" {} {} {}", color.red, color.green, color.blue);
    output.Write("\n");
}

template <std::size_t Corners>
void WriteFaces(const std::vector<Geometry::Element<Corners>>& faces, bool colored, Output& output)
{
    for (const auto& [points, color] : faces) {
        output.Print("{}", Corners);
        for (const std::int32_t point : points) output.Print(" {}", point);
        EndLine(colored, color, output);
    }
}

} // namespace

void WritePly(const Geometry& geometry, Output& output)
{
    const std::size_t faces = geometry.triangles.size() + geometry.quads.size();
    const bool coloredPoints = HasColors(geometry.points);
    const bool coloredFaces = HasColors(geometry.triangles) || HasColors(geometry.quads);
    const bool coloredLines = HasColors(geometry.lines);

    output.Write("ply\nformat ascii 1.0\n");
    if (!geometry.label.empty()) output.Print("comment label {}\n", geometry.label);
    if (!geometry.notes.empty()) output.Print("comment notes {}\n", geometry.notes);
    output.Print("element vertex {}\nproperty float x\nproperty float y\nproperty float z\n", geometry.points.size());
    if (coloredPoints) output.Write(ColorProperties);
    if (faces > 0) output.Print("element face {}\nproperty list uchar int vertex_indices\n", faces);
    if (coloredFaces) output.Write(ColorProperties);
    // Last, so that readers that do not know lines can stop before them.
    if (!geometry.lines.empty()) {
        output.Print("element edge {}\nproperty int vertex1\nproperty int vertex2\n", geometry.lines.size());
    }
    if (coloredLines) output.Write(ColorProperties);
    output.Write("end_header\n");

    for (const auto& [place, color] : geometry.points) {
        output.Print("{} {} {}", place[0], place[1], place[2]);
        EndLine(coloredPoints, color, output);
    }
    WriteFaces(geometry.triangles, coloredFaces, output);
    WriteFaces(geometry.quads, coloredFaces, output);
    for (const auto& [points, color] : geometry.lines) {
        output.Print("{} {}", points[0], points[1]);
        EndLine(coloredLines, color, output);
    }
}

} // namespace qor::tool
