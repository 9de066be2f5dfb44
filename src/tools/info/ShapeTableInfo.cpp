// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Unicode.h"
#include "tools/console/Text.h"
#include "tools/console/TextTable.h"
#include "tools/documents/Names.h"
#include "tools/documents/ShapeStatistics.h"
#include "tools/info/InfoReport.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace qor::tool {
namespace {

// Groups of DOFs that are shown to people.
constexpr std::size_t MostGroups = 20;

// DOFs that hold the same in the same units.
struct DOFGroup {
    std::string type;
    std::u16string units;
    std::int32_t count = 0;
};

// The largest groups first, those of equal size in the order of the DOFs.
std::vector<DOFGroup> GroupsOf(const std::vector<DOF>& dofs)
{
    std::vector<DOFGroup> groups;
    std::map<std::pair<std::int32_t, std::u16string_view>, std::size_t> places;
    for (const DOF& dof : dofs) {
        const auto [place, isNew] = places.try_emplace({dof.MeasurementType, dof.MeasurementUnits}, groups.size());
        if (isNew) groups.push_back({ShapeMeasurementTypeName(dof.MeasurementType), dof.MeasurementUnits});
        ++groups[place->second].count;
    }
    std::ranges::stable_sort(groups, std::ranges::greater(), &DOFGroup::count);
    return groups;
}

// Rounding took away what the phase of a real value should be exactly.
std::string PhaseText(float phase) { return fmt::format("{:.6g}", std::round(double{phase} * 1e4) / 1e4 + 0.0); }

class ShapeTableInfo final : public InfoDetails
{
public:
    ShapeTableInfo(ShapeTableDocument document, bool statistics)
        : document_(std::move(document)), groups_(GroupsOf(document_.dofs))
    {
        for (std::size_t shape = 0; statistics && shape < document_.shapes.size(); ++shape) {
            statistics_.push_back(StatisticsOf(document_, shape));
        }
        document_.values = {};
    }

    void Print(Output& output) const override
    {
        PrintLine(output, "Shapes", Grouped(static_cast<long long>(document_.shapes.size())));
        PrintLine(output, "DOFs", Grouped(static_cast<long long>(document_.dofs.size())));
        if (!document_.shapes.empty()) PrintShapes(output);
        if (!groups_.empty()) PrintGroups(output);
        if (!statistics_.empty()) PrintStatistics(output);
    }

    void AddTo(Json& json) const override
    {
        json["shapes"] = Json::array();
        for (std::size_t i = 0; i < document_.shapes.size(); ++i) {
            const Shape& shape = document_.shapes[i];
            Json each;
            each["number"] = i + 1;
            each["label"] = platform::ToUtf8(shape.Label);
            each["ordinate"] = JsonNumber(shape.Ordinate);
            each["units"] = platform::ToUtf8(shape.OrdinateUnits);
            each["damping"] = JsonNumber(shape.Damping);
            each["dateAndTime"] = platform::ToUtf8(shape.DateAndTime);
            if (!statistics_.empty()) each["statistics"] = StatisticsAsJson(statistics_[i]);
            json["shapes"].push_back(std::move(each));
        }
        json["dofs"]["count"] = document_.dofs.size();
        json["dofs"]["groups"] = Json::array();
        for (const DOFGroup& group : groups_) {
            json["dofs"]["groups"].push_back(
                {{"type", group.type}, {"units", platform::ToUtf8(group.units)}, {"count", group.count}});
        }
    }

private:
    void PrintShapes(Output& output) const
    {
        TextTable table({{"No", Align::Right},
                         {"Label"},
                         {"Ordinate", Align::Right},
                         {"Units"},
                         {"Damping", Align::Right},
                         {"Date and time"}});
        for (std::size_t i = 0; i < document_.shapes.size(); ++i) {
            const Shape& shape = document_.shapes[i];
            table.AddRow({std::to_string(i + 1), Shown(shape.Label), fmt::format("{:.6g}", shape.Ordinate),
                          Shown(shape.OrdinateUnits), fmt::format("{:.6g}", shape.Damping), Shown(shape.DateAndTime)});
        }
        output.Write("\n");
        table.Print(output, Indent);
    }

    void PrintGroups(Output& output) const
    {
        TextTable table({{"DOFs", Align::Right}, {"Type"}, {"Units"}});
        for (const DOFGroup& group : groups_) {
            if (&group == groups_.data() + MostGroups) break;
            table.AddRow({Grouped(group.count), group.type, Shown(group.units)});
        }
        output.Write("\n");
        table.Print(output, Indent);
        if (groups_.size() <= MostGroups) return;
        output.Print("{}and {} more of other types and units\n", Indent, Counted(OthersCount(), "DOF"));
    }

    std::int32_t OthersCount() const
    {
        std::int32_t others = 0;
        for (std::size_t i = MostGroups; i < groups_.size(); ++i) others += groups_[i].count;
        return others;
    }

    void PrintStatistics(Output& output) const
    {
        TextTable table({{"No", Align::Right},
                         {"Label"},
                         {"Magnitude", Align::Right},
                         {"Units"},
                         {"Phase", Align::Right},
                         {"at DOF", Align::Right},
                         {"DOF label"},
                         {"NaN", Align::Right}});
        for (std::size_t i = 0; i < statistics_.size(); ++i) {
            const ShapeStatistics& values = statistics_[i];
            const std::string notNumbers = values.notNumbers > 0 ? Grouped(values.notNumbers) : "";
            std::vector<std::string> row{std::to_string(i + 1), Shown(document_.shapes[i].Label)};
            if (values.dof) {
                const DOF& dof = document_.dofs[*values.dof];
                row.insert(row.end(), {fmt::format("{:.6g}", values.magnitude), Shown(dof.MeasurementUnits),
                                       PhaseText(values.phase), std::to_string(*values.dof + 1), Shown(dof.Label)});
            } else {
                row.insert(row.end(), {"-", "", "-", "-", ""});
            }
            row.push_back(notNumbers);
            table.AddRow(std::move(row));
        }
        output.Print("\n{}Largest value of each shape, phase in degrees\n", Indent);
        table.Print(output, Indent);
    }

    Json StatisticsAsJson(const ShapeStatistics& values) const
    {
        Json json;
        json["nan"] = values.notNumbers;
        if (!values.dof) return json;
        json["magnitude"] = JsonNumber(values.magnitude);
        json["phase"] = JsonNumber(values.phase);
        json["dofNumber"] = *values.dof + 1;
        json["dofLabel"] = platform::ToUtf8(document_.dofs[*values.dof].Label);
        return json;
    }

    ShapeTableDocument document_; // without its values
    std::vector<DOFGroup> groups_;
    std::vector<ShapeStatistics> statistics_; // by shape; empty when not asked for
};

} // namespace

void InspectShapeTable(DocumentFile& file, bool statistics, InfoReport& report)
{
    ShapeTableDocument document = file.LoadShapeTable();
    report.label = document.texts.Label;
    report.notes = document.texts.Notes;
    report.details = std::make_unique<const ShapeTableInfo>(std::move(document), statistics);
}

} // namespace qor::tool
