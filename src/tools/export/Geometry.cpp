// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/export/Geometry.h"

#include "fileio/Framing.h"
#include "structure/ElementAccess.h"
#include "tools/console/Console.h"
#include "tools/console/Text.h"

#include <cmath>

namespace qor::tool {
namespace {

// VTK reads titles of up to 255 bytes, and some readers lines of up to 1024.
constexpr std::size_t LongestLine = 250;

Color ColorOf(std::int32_t color)
{
    const auto bits = static_cast<std::uint32_t>(color);
    return {static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
            static_cast<std::uint8_t>(bits >> 16)};
}

// The text on one line, with a blank for each line break, and cut where it is too long.
std::string OneLine(std::u16string_view text)
{
    std::u16string joined;
    for (const char16_t unit : text) {
        if (unit == u'\n' && joined.ends_with(u' ')) continue; // of a pair
        joined += unit == u'\r' || unit == u'\n' || unit == u'\t' ? u' ' : unit;
    }
    std::string line = Shown(Trimmed(joined));
    if (line.size() <= LongestLine) return line;
    constexpr std::string_view dots = "…";
    std::size_t end = LongestLine - dots.size();
    while ((static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) --end; // inside a character
    return line.substr(0, end).append(dots);
}

class Converter
{
public:
    explicit Converter(const Structure& structure) : structure_(structure) {}

    Geometry Convert()
    {
        AddPoints();
        AddElements(structure_.EdgeLines, geometry_.lines);
        AddElements(structure_.SurfaceTriangles, geometry_.triangles);
        AddElements(structure_.QuadSurfaces, geometry_.quads);
        return std::move(geometry_);
    }

    void Warn(const std::string& path) const
    {
        const auto warn = [&](long long count, std::string_view before, std::string_view thing,
                              std::string_view after) {
            if (count > 0)
                PrintMessage(fmt::format("{}: warning: {} {} {}", path, before, Counted(count, thing), after));
        };
        warn(unjoined_, "left out", "element", "with numbers of points that do not exist");
        warn(pointsNowhere_, "wrote 0 for coordinates of", "point", "that are no finite numbers");
        warn(elementsNowhere_, "left out", "element", "at points without finite coordinates");
    }

private:
    void AddPoints()
    {
        const std::int32_t count = structure_.VertexPoints.Count();
        geometry_.points.reserve(static_cast<std::size_t>(count));
        bool labelled = false;
        for (std::int32_t number = 1; number <= count; ++number) {
            const VertexPoint& point = structure_.VertexPoints[number];
            Geometry::Point added{{point.Xcoord, point.Ycoord, point.Zcoord}, ColorOf(point.Color)};
            if (!HasPlace(point)) {
                ++pointsNowhere_;
                // Leaving the point out would give others its number, and VTK reads no file with a NaN in it.
                std::ranges::replace_if(
                    added.place, [](float value) { return !std::isfinite(value); }, 0.0F);
            }
            geometry_.points.push_back(added);
            geometry_.pointLabels.push_back(Shown(LabelOf(point)));
            labelled = labelled || !geometry_.pointLabels.back().empty();
        }
        if (!labelled) geometry_.pointLabels = {};
    }

    static bool HasPlace(const VertexPoint& point)
    {
        return std::isfinite(point.Xcoord) && std::isfinite(point.Ycoord) && std::isfinite(point.Zcoord);
    }

    template <std::size_t Corners>
    void AddElements(const ElementArray<JoiningElement<Corners>>& elements,
                     std::vector<Geometry::Element<Corners>>& added)
    {
        added.reserve(static_cast<std::size_t>(elements.Count()));
        for (std::int32_t number = 1; number <= elements.Count(); ++number) {
            const JoiningElement<Corners>& element = elements[number];
            if (!JoinsPresentPoints(element, structure_.VertexPoints)) {
                ++unjoined_;
                continue;
            }
            if (!std::ranges::all_of(element.VertexPoints,
                                     [this](std::int32_t point) { return HasPlace(structure_.VertexPoints[point]); })) {
                ++elementsNowhere_;
                continue;
            }
            Geometry::Element<Corners> fresh{element.VertexPoints, ColorOf(element.Color)};
            for (std::int32_t& point : fresh.points) --point;
            added.push_back(fresh);
        }
    }

    const Structure& structure_;
    Geometry geometry_;
    long long unjoined_ = 0;
    long long pointsNowhere_ = 0;
    long long elementsNowhere_ = 0;
};

} // namespace

Geometry GeometryOf(DocumentFile& file)
{
    const StructureDocument document = file.LoadStructure();
    if (document.endMarkerMissing) WarnOfMissingEndMarker(file.Path());
    if (document.structure.VertexPoints.Count() == 0) {
        throw FileError(file.Path(), "has no vertex points: there is nothing to export");
    }
    Converter converter(document.structure);
    Geometry geometry = converter.Convert();
    converter.Warn(file.Path());
    geometry.label = OneLine(document.texts.Label);
    geometry.notes = OneLine(document.texts.Notes);
    return geometry;
}

std::string CountsOf(const Geometry& geometry)
{
    std::string counts = Counted(static_cast<long long>(geometry.points.size()), "point");
    const auto add = [&](std::size_t count, std::string_view thing) {
        if (count > 0) counts += ", " + Counted(static_cast<long long>(count), thing);
    };
    add(geometry.lines.size(), "line");
    add(geometry.triangles.size(), "triangle");
    add(geometry.quads.size(), "quad");
    return counts;
}

} // namespace qor::tool
