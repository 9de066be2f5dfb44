// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/export/VtkFile.h"

namespace qor::tool {
namespace {

// Cell types of the format.
constexpr int LineCell = 3;
constexpr int TriangleCell = 5;
constexpr int QuadCell = 9;

template <std::size_t Corners>
void WriteCells(const std::vector<Geometry::Element<Corners>>& elements, Output& output)
{
    for (const auto& element : elements) {
        output.Print("{}", Corners);
        for (const std::int32_t point : element.points) output.Print(" {}", point);
        output.Write("\n");
    }
}

void WriteCellTypes(std::size_t count, int type, Output& output)
{
    for (std::size_t i = 0; i < count; ++i) output.Print("{}\n", type);
}

// Not COLOR_SCALARS, which some readers misread.
void BeginColors(Output& output) { output.Write("SCALARS color unsigned_char 3\nLOOKUP_TABLE default\n"); }

template <class Colored>
void WriteColors(const std::vector<Colored>& all, Output& output)
{
    for (const Colored& each : all) output.Print("{} {} {}\n", each.color.red, each.color.green, each.color.blue);
}

// VTK takes texts up to the next blank, with everything but visible ASCII as %XX.
std::string Encoded(std::string_view text)
{
    std::string encoded;
    for (const char letter : text) {
        if (letter > ' ' && letter < '\x7F' && letter != '"' && letter != '%') {
            encoded += letter;
        } else {
            encoded += fmt::format("%{:02X}", static_cast<unsigned char>(letter));
        }
    }
    return encoded;
}

} // namespace

void WriteVtk(const Geometry& geometry, Output& output)
{
    const std::size_t points = geometry.points.size();
    const std::size_t cells = geometry.lines.size() + geometry.triangles.size() + geometry.quads.size();
    const std::size_t numbers = 3 * geometry.lines.size() + 4 * geometry.triangles.size() + 5 * geometry.quads.size();

    output.Print("# vtk DataFile Version 3.0\n{}\nASCII\nDATASET UNSTRUCTURED_GRID\n",
                 geometry.label.empty() ? "Structure" : geometry.label);
    output.Print("POINTS {} float\n", points);
    for (const auto& [place, color] : geometry.points) output.Print("{} {} {}\n", place[0], place[1], place[2]);
    output.Print("CELLS {} {}\n", cells, numbers);
    WriteCells(geometry.lines, output);
    WriteCells(geometry.triangles, output);
    WriteCells(geometry.quads, output);
    output.Print("CELL_TYPES {}\n", cells);
    WriteCellTypes(geometry.lines.size(), LineCell, output);
    WriteCellTypes(geometry.triangles.size(), TriangleCell, output);
    WriteCellTypes(geometry.quads.size(), QuadCell, output);

    if (HasColors(geometry.lines) || HasColors(geometry.triangles) || HasColors(geometry.quads)) {
        output.Print("CELL_DATA {}\n", cells);
        BeginColors(output);
        WriteColors(geometry.lines, output);
        WriteColors(geometry.triangles, output);
        WriteColors(geometry.quads, output);
    }
    const bool coloredPoints = HasColors(geometry.points);
    if (coloredPoints || !geometry.pointLabels.empty()) output.Print("POINT_DATA {}\n", points);
    if (coloredPoints) {
        BeginColors(output);
        WriteColors(geometry.points, output);
    }
    if (!geometry.pointLabels.empty()) {
        output.Print("FIELD FieldData 1\nlabel 1 {} string\n", points);
        for (const std::string& label : geometry.pointLabels) output.Print("{}\n", Encoded(label));
    }
}

} // namespace qor::tool
