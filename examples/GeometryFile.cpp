// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "GeometryFile.h"

#include "ComponentErrors.h"

namespace {

std::int32_t CountOf(const auto& list) { return static_cast<std::int32_t>(list.size()); }

} // namespace

void SaveGeometry(const Geometry& geometry, const std::filesystem::path& path)
{
    clsQOR_File file; // empties this thread's documents
    ClassAdd_4 quads; // works on the same Structure
    file.Structure_Label(geometry.label);
    file.Structure_Notes(geometry.notes);
    file.Structure_NumberOfVertexPoints(CountOf(geometry.points)); // vertex points cannot be appended one by one
    Check(file, path, "not enough memory for its points");

    std::int32_t number = 0;
    for (const auto& [label, place, color] : geometry.points) {
        file.WriteStructureVertexPoint(++number, label, place[0], place[1], place[2], color);
    }
    for (const auto& line : geometry.lines) {
        if (file.WriteStructureEdgeLine(-1, line[0], line[1]) == Failure) ThrowFor(file, path, "line not stored");
    }
    for (const auto& quad : geometry.quads) {
        if (quads.WriteStructureQuadSurface(-1, quad[0], quad[1], quad[2], quad[3]) == oReturnStatus::Failure) {
            ThrowFor(file, path, "quad not stored");
        }
    }
    if (file.OutputStructureFile(path.u16string()) == Failure) ThrowFor(file, path, "cannot be written");
}

Geometry LoadGeometry(const std::filesystem::path& path)
{
    clsQOR_File file;
    // A file that is not there reads with Success as an empty Structure.
    if (!std::filesystem::exists(path)) throw std::runtime_error(path.string() + ": is not there");
    if (file.InputStructureFile(path.u16string()) == Failure) ThrowFor(file, path, "cannot be read");
    Check(file, path, "is damaged");

    Geometry geometry;
    geometry.label = file.Structure_Label();
    geometry.notes = file.Structure_Notes();
    Bool16 bold;
    std::int32_t color = 0;
    geometry.points.resize(static_cast<std::size_t>(file.Structure_NumberOfVertexPoints()));
    std::int32_t number = 0;
    for (auto& [label, place, pointColor] : geometry.points) {
        file.ReadStructureVertexPoint(++number, label, place[0], place[1], place[2], pointColor, bold);
    }
    geometry.lines.resize(static_cast<std::size_t>(file.Structure_NumberOfEdgeLines()));
    number = 0;
    for (auto& line : geometry.lines) file.ReadStructureEdgeLine(++number, line[0], line[1], color, bold);
    ClassAdd_4 quads;
    geometry.quads.resize(static_cast<std::size_t>(quads.StructureNumberOfQuadSurfaces()));
    number = 0;
    for (auto& quad : geometry.quads) {
        quads.ReadStructureQuadSurface(++number, quad[0], quad[1], quad[2], quad[3], color, bold);
    }
    Check(file, path, "is damaged");
    return geometry;
}
