// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/ElementAccess.h"
#include "tools/console/Text.h"
#include "tools/console/TextTable.h"
#include "tools/documents/Names.h"
#include "tools/info/InfoReport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace qor::tool {
namespace {

struct Extent {
    float minimum = 0;
    float maximum = 0;

    double Size() const { return double{maximum} - double{minimum}; }
};

// Nothing without any number; a NaN is none.
std::optional<Extent> ExtentOf(const ElementArray<VertexPoint>& points, float VertexPoint::*coordinate)
{
    std::optional<Extent> extent;
    for (std::int32_t number = 1; number <= points.Count(); ++number) {
        const float value = points[number].*coordinate;
        if (std::isnan(value)) continue;
        if (!extent) extent = Extent{value, value};
        extent->minimum = std::min(extent->minimum, value);
        extent->maximum = std::max(extent->maximum, value);
    }
    return extent;
}

std::int32_t CountIf(const auto& elements, const auto& condition)
{
    std::int32_t count = 0;
    for (std::int32_t number = 1; number <= elements.Count(); ++number) count += condition(elements[number]) ? 1 : 0;
    return count;
}

// Of one kind of elements: how many there are, and how many name points that are not there.
struct ElementCount {
    std::string_view name; // of one
    std::int32_t count = 0;
    std::int32_t astray = 0;
};

class StructureInfo final : public InfoDetails
{
public:
    explicit StructureInfo(const Structure& structure) : variant_(VariantName(structure))
    {
        const ElementArray<VertexPoint>& points = structure.VertexPoints;
        const auto isAstray = [&points](const auto& element) { return !JoinsPresentPoints(element, points); };
        const auto hasCenterAstray = [&points](const VertexPoint& point) {
            return point.CenterPoint != 0 && !points.Has(point.CenterPoint);
        };
        counts_ = {{{"point", points.Count(), CountIf(points, hasCenterAstray)},
                    {"line", structure.EdgeLines.Count(), CountIf(structure.EdgeLines, isAstray)},
                    {"triangle", structure.SurfaceTriangles.Count(), CountIf(structure.SurfaceTriangles, isAstray)},
                    {"quad", structure.QuadSurfaces.Count(), CountIf(structure.QuadSurfaces, isAstray)}}};
        labels_ = CountIf(points, [](const VertexPoint& point) { return !LabelOf(point).empty(); });
        box_ = {ExtentOf(points, &VertexPoint::Xcoord), ExtentOf(points, &VertexPoint::Ycoord),
                ExtentOf(points, &VertexPoint::Zcoord)};
    }

    void Print(Output& output) const override
    {
        PrintLine(output, "Variant", variant_);
        std::string elements;
        std::string astray;
        for (const ElementCount& each : counts_) {
            elements += (elements.empty() ? "" : ", ") + Counted(each.count, each.name);
            if (each.astray > 0) astray += (astray.empty() ? "" : ", ") + Counted(each.astray, each.name);
        }
        PrintLine(output, "Elements", elements);
        if (labels_ > 0)
            PrintLine(output, "Labels", fmt::format("{} of {}", Grouped(labels_), Counted(counts_[0].count, "point")));
        if (!astray.empty()) PrintLine(output, "Warning", "points that are not there are named by " + astray);
        if (counts_[0].count > 0) PrintBox(output);
    }

    void AddTo(Json& json) const override
    {
        json["variant"] = variant_;
        for (const ElementCount& each : counts_) json[fmt::format("{}s", each.name)] = each.count;
        json["labelledPoints"] = labels_;
        Json& astray = json["namingMissingPoints"];
        for (const ElementCount& each : counts_) astray[fmt::format("{}s", each.name)] = each.astray;
        Json& box = json["boundingBox"];
        if (counts_[0].count == 0) return;
        for (const auto& [axis, name] : {std::pair(0U, "x"), {1U, "y"}, {2U, "z"}}) {
            const auto& extent = box_[axis];
            Json& each = box[name];
            if (!extent) continue;
            each["minimum"] = JsonNumber(extent->minimum);
            each["maximum"] = JsonNumber(extent->maximum);
            each["size"] = JsonNumber(static_cast<float>(extent->Size()));
        }
    }

private:
    void PrintBox(Output& output) const
    {
        TextTable table({{"Axis"}, {"Minimum", Align::Right}, {"Maximum", Align::Right}, {"Size", Align::Right}});
        for (std::int32_t axis = 0; axis < 3; ++axis) {
            const auto& extent = box_[static_cast<std::size_t>(axis)];
            const auto cell = [&](double value) { return extent ? fmt::format("{:.6g}", value) : "-"; };
            const Extent shown = extent.value_or(Extent{});
            table.AddRow(
                {AxisName(axis), cell(double{shown.minimum}), cell(double{shown.maximum}), cell(shown.Size())});
        }
        output.Print("\n{}Bounding box\n", Indent);
        table.Print(output, Indent);
    }

    std::string_view variant_;
    std::array<ElementCount, 4> counts_;
    std::int32_t labels_ = 0;
    std::array<std::optional<Extent>, 3> box_; // X, Y, Z
};

} // namespace

void InspectStructure(DocumentFile& file, InfoReport& report)
{
    const StructureDocument document = file.LoadStructure();
    report.endMarkerMissing = document.endMarkerMissing;
    report.label = document.texts.Label;
    report.notes = document.texts.Notes;
    report.details = std::make_unique<const StructureInfo>(document.structure);
}

} // namespace qor::tool
