// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Elements.h"

#include "Documents.h"
#include "component/modQOR_File.h"

#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace qor::bench {
namespace {

// Any values will do that differ from one to the next.

const std::u16string& Label(std::int32_t number)
{
    static const auto labels = [] {
        std::vector<std::u16string> made;
        for (std::int32_t each = 0; each <= MostElements; ++each) made.push_back(Numbered(u"P", each));
        return made;
    }();
    return labels[static_cast<std::size_t>(number)];
}

VertexPoint Point(std::int32_t number)
{
    const auto place = static_cast<float>(number);
    return {.Label = PaddedLabel(Label(number)),
            .Xcoord = place * 0.25F,
            .Ycoord = -place,
            .Zcoord = 1 / place,
            .Bold = number % 2 == 0,
            .Color = number % 256,
            .AxisEnd = {1, 0, 0, 0, 1, 0, 0, 0, 1}};
}

// Joins the vertex points that follow one another from that number on.
template <class Element>
Element Joining(std::int32_t number)
{
    Element element{.VertexPoints = {}, .Bold = number % 3 == 0, .Color = number % 255};
    for (std::int32_t& each : element.VertexPoints) each = number++;
    return element;
}

auto Values(const VertexPoint& of)
{
    return std::tuple(of.Label, of.Xcoord, of.Ycoord, of.Zcoord, of.Bold.value, of.Color, of.CenterPoint, of.PointType,
                      of.AxisEnd, of.Area, of.NormalAxis, of.FileExtraValue);
}

template <std::size_t Corners>
auto Values(const JoiningElement<Corners>& of)
{
    return std::tuple(of.VertexPoints, of.Bold.value, of.Color, of.FileExtraValue);
}

template <class Element>
bool AreAll(const ElementArray<Element>& elements, std::int32_t count, std::int32_t first,
            Element (*expected)(std::int32_t))
{
    if (elements.Count() != count) return false;
    for (std::int32_t number = 1; number <= count; ++number) {
        if (Values(elements[number]) != Values(expected(first + number - 1))) return false;
    }
    return true;
}

// Points can only be counted first and written by number; what joins them is appended.
bool WritePoints(clsQOR_File& file, std::int32_t count, std::int32_t first)
{
    if (count > 0) file.Structure_NumberOfVertexPoints(count);
    bool good = true;
    for (std::int32_t number = 1; number <= count; ++number) {
        const std::int32_t each = first + number - 1;
        const auto place = static_cast<float>(each);
        good = good && file.WriteStructureVertexPoint(number, Label(each), place * 0.25F, -place, 1 / place, each % 256,
                                                      each % 2 == 0) == Success;
    }
    return good;
}

template <class Append>
bool AppendAll(std::int32_t count, std::int32_t first, Append append)
{
    bool good = true;
    for (std::int32_t number = first; number < first + count; ++number)
        good = good && append(number, number % 255, number % 3 == 0);
    return good;
}

} // namespace

bool Build(clsQOR_File& file, const Counts& counts, std::int32_t first)
{
    ClassAdd_4 quads;
    return WritePoints(file, counts.points, first) &&
           AppendAll(counts.lines, first,
                     [&](std::int32_t number, std::int32_t color, bool bold) {
                         return file.WriteStructureEdgeLine(-1, number, number + 1, color, bold) == Success;
                     }) &&
           AppendAll(counts.triangles, first,
                     [&](std::int32_t number, std::int32_t color, bool bold) {
                         return file.WriteStructureSurfaceTriangle(-1, number, number + 1, number + 2, color, bold) ==
                                Success;
                     }) &&
           AppendAll(counts.quads, first, [&](std::int32_t number, std::int32_t color, bool bold) {
               return quads.WriteStructureQuadSurface(-1, number, number + 1, number + 2, number + 3, color, bold) ==
                      oReturnStatus::Success;
           });
}

bool Holds(const Structure& structure, const Counts& counts, std::int32_t first)
{
    return AreAll(structure.VertexPoints, counts.points, first, Point) &&
           AreAll(structure.EdgeLines, counts.lines, first, Joining<EdgeLine>) &&
           AreAll(structure.SurfaceTriangles, counts.triangles, first, Joining<SurfaceTriangle>) &&
           AreAll(structure.QuadSurfaces, counts.quads, first, Joining<QuadSurface>);
}

Structure TakeStructure() { return std::exchange(modQOR_File().Structure, Structure()); }

} // namespace qor::bench
