// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/StructureTables.h"

#include "tools/console/Text.h"
#include "tools/documents/DocumentFile.h"
#include "tools/documents/Names.h"

namespace qor::tool {
namespace {

constexpr AxisEnds AxesOfStructure = {1, 0, 0, 0, 1, 0, 0, 0, 1};
constexpr AxisEnds NoAxes{};

// The byte for red is the lowest, that for blue the highest of three.
std::string ColorText(std::int32_t color)
{
    const auto bits = static_cast<std::uint32_t>(color);
    if (bits > 0xFFFFFF) return std::to_string(color); // no color by these rules
    return fmt::format("#{:02X}{:02X}{:02X}", bits & 0xFF, bits >> 8 & 0xFF, bits >> 16);
}

// "(0 1 0) (-1 0 0) (0 0 1)"; empty where they tell nothing.
std::string AxesText(const AxisEnds& ends)
{
    if (ends == AxesOfStructure || ends == NoAxes) return "";
    std::string text;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        text += fmt::format("{}({} {} {})", axis == 0 ? "" : " ", ExactText(ends[AxisEndIndex(axis, 0)]),
                            ExactText(ends[AxisEndIndex(axis, 1)]), ExactText(ends[AxisEndIndex(axis, 2)]));
    }
    return text;
}

// Columns of one kind of elements.
template <class Element>
class Columns
{
public:
    explicit Columns(const ElementArray<Element>& elements) : elements_(elements)
    {
        table_.rows = elements.Count();
        table_.Add("No", Align::Right, [](std::int32_t row) { return std::to_string(row); });
    }

    // textOf takes an element.
    template <class TextOf>
    void Add(const std::string& heading, Align align, TextOf textOf, const std::string& nothing = {})
    {
        table_.Add(heading, align, Cell(textOf), nothing);
    }
    template <class ExactOf, class ShownOf>
    void Add(const std::string& heading, Align align, ExactOf exactOf, ShownOf shownOf, const std::string& nothing)
    {
        table_.columns.push_back({heading, align, Cell(exactOf), Cell(shownOf), nothing});
    }
    template <class ExactOf>
    void AddForPrograms(const std::string& heading, ExactOf exactOf)
    {
        table_.columns.push_back({heading, Align::Right, Cell(exactOf)});
    }
    template <class ShownOf>
    void AddForPeople(const std::string& heading, ShownOf shownOf)
    {
        table_.columns.push_back({heading, Align::Left, {}, Cell(shownOf)});
    }

    // What all kinds have.
    void AddColorAndBold()
    {
        Add(
            "Color", Align::Left, [](const Element& each) { return std::to_string(each.Color); },
            [](const Element& each) { return ColorText(each.Color); }, ColorText(0));
        Add(
            "Bold", Align::Left, [](const Element& each) { return std::string(each.Bold ? "true" : "false"); },
            [](const Element& each) { return std::string(each.Bold ? "bold" : ""); }, "");
    }
    void AddExtraValue()
    {
        Add(
            "Extra", Align::Right, [](const Element& each) { return std::to_string(each.FileExtraValue); }, "0");
    }

    ValueTable Take() { return std::move(table_); }

private:
    template <class TextOf>
    CellText Cell(TextOf textOf) const
    {
        return [&elements = elements_, textOf](std::int32_t row) { return textOf(elements[row]); };
    }

    const ElementArray<Element>& elements_;
    ValueTable table_;
};

ValueTable PointTable(const ElementArray<VertexPoint>& points)
{
    Columns columns(points);
    columns.Add("Label", Align::Left, [](const VertexPoint& point) { return Shown(LabelOf(point)); });
    columns.Add("X", Align::Right, [](const VertexPoint& point) { return ExactText(point.Xcoord); });
    columns.Add("Y", Align::Right, [](const VertexPoint& point) { return ExactText(point.Ycoord); });
    columns.Add("Z", Align::Right, [](const VertexPoint& point) { return ExactText(point.Zcoord); });
    columns.AddColorAndBold();
    columns.Add(
        "Center", Align::Right, [](const VertexPoint& point) { return std::to_string(point.CenterPoint); }, "0");
    columns.Add(
        "Type", Align::Left, [](const VertexPoint& point) { return PointTypeName(point.PointType); },
        PointTypeName(Rectangular));
    columns.Add(
        "Normal", Align::Left, [](const VertexPoint& point) { return AxisName(point.NormalAxis); }, AxisName(Xaxis));
    columns.Add(
        "Area", Align::Right, [](const VertexPoint& point) { return ExactText(point.Area); }, "0");
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (std::size_t component = 0; component < 3; ++component) {
            columns.AddForPrograms(fmt::format("Axis {} {}", axis + 1, "XYZ"[component]),
                                   [end = AxisEndIndex(axis, component)](const VertexPoint& point) {
                                       return ExactText(point.AxisEnd[end]);
                                   });
        }
    }
    columns.AddForPeople("Local axes", [](const VertexPoint& point) { return AxesText(point.AxisEnd); });
    columns.AddExtraValue();
    return columns.Take();
}

template <std::size_t Corners>
ValueTable JoiningTable(const ElementArray<JoiningElement<Corners>>& elements)
{
    Columns columns(elements);
    for (std::size_t corner = 0; corner < Corners; ++corner) {
        columns.Add(fmt::format("Point {}", corner + 1), Align::Right,
                    [corner](const auto& each) { return std::to_string(each.VertexPoints[corner]); });
    }
    columns.AddColorAndBold();
    columns.AddExtraValue();
    return columns.Take();
}

} // namespace

std::string_view NameOf(ElementKind kind)
{
    switch (kind) {
    case ElementKind::Points: return "points";
    case ElementKind::Lines: return "lines";
    case ElementKind::Triangles: return "triangles";
    case ElementKind::Quads: break;
    }
    return "quads";
}

ValueTable ElementTable(const Structure& structure, ElementKind kind)
{
    switch (kind) {
    case ElementKind::Points: return PointTable(structure.VertexPoints);
    case ElementKind::Lines: return JoiningTable(structure.EdgeLines);
    case ElementKind::Triangles: return JoiningTable(structure.SurfaceTriangles);
    case ElementKind::Quads: break;
    }
    return JoiningTable(structure.QuadSurfaces);
}

} // namespace qor::tool
