// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/DataBlockLayout.h"
#include "platform/Unicode.h"
#include "tools/console/Progress.h"
#include "tools/console/Text.h"
#include "tools/console/TextTable.h"
#include "tools/documents/Names.h"
#include "tools/documents/TraceStatistics.h"
#include "tools/info/InfoReport.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace qor::tool {
namespace {

// Samples that are held at a time while statistics are made: those of one trace, or of as many as are not more
// than this. Every turn reads all headers anew, which thousands of short traces should not have to pay for.
constexpr std::int64_t BytesAtATime = std::int64_t{32} << 20;

struct Statistics {
    TraceStatistics values;
    std::optional<double> peakX;
};

// By trace number - 1.
std::vector<Statistics> StatisticsOfTraces(DocumentFile& file, const DataBlock& header)
{
    const std::int64_t width = header.DataFormat == ComplexFormat ? sizeof(ComplexSample) : sizeof(float);
    const std::int64_t bytes = std::max<std::int64_t>(1, header.NumberOfSamples * width);
    const auto atATime = static_cast<std::int32_t>(std::clamp<std::int64_t>(BytesAtATime / bytes, 1, 32767));
    const std::int32_t count = header.Traces.Count();
    std::vector<Statistics> statistics;
    Progress progress("Reading " + file.Path(), static_cast<std::uint64_t>(count));
    for (std::int32_t first = 1; first <= count; first += atATime) {
        const std::int32_t last = std::min(count, first + atATime - 1);
        DataBlock block;
        file.LoadDataBlock(block, {true, [=](std::int32_t number) { return number >= first && number <= last; }});
        for (std::int32_t number = first; number <= last; ++number) {
            const TraceStatistics values = StatisticsOf(block, block.Traces[number]);
            const bool hasPeak = values.counted > 0;
            statistics.push_back({values, hasPeak ? XValue(block, values.peakSample) : std::nullopt});
        }
        progress.Update(static_cast<std::uint64_t>(last));
    }
    return statistics;
}

// X values as 32-bit values.
std::string XText(double value) { return fmt::format("{}", static_cast<float>(value)); }
Json XNumber(double value) { return JsonNumber(static_cast<float>(value)); }

Json StatisticsAsJson(const Statistics& statistics)
{
    const auto& [values, peakX] = statistics;
    Json json;
    json["counted"] = values.counted;
    json["nan"] = values.notNumbers;
    if (values.counted == 0) return json;
    json["minimum"] = JsonNumber(values.minimum);
    json["maximum"] = JsonNumber(values.maximum);
    json["rms"] = JsonNumber(values.rms);
    json["peak"] = JsonNumber(values.peak);
    if (peakX) json["peakX"] = XNumber(*peakX);
    return json;
}

class DataBlockInfo final : public InfoDetails
{
public:
    DataBlock block; // without its samples
    double firstX = 0;
    double lastX = 0;
    std::vector<bool> hasSamples;       // by trace number - 1
    std::vector<Statistics> statistics; // by trace number - 1; empty when not asked for

    void Print(Output& output) const override
    {
        PrintLine(output, "X axis", AxisText());
        PrintLine(output, "Traces",
                  fmt::format("{}, {}", Grouped(block.Traces.Count()), DataFormatName(block.DataFormat)));
        if (block.Traces.Count() == 0) return;
        const std::string warning = EmptyTracesWarning(
            block.Traces.Count(), std::count(hasSamples.begin(), hasSamples.begin() + block.Traces.Count(), false));
        if (!warning.empty()) PrintLine(output, "Warning", warning);
        output.Write("\n");
        PrintTraces(output);
        if (!statistics.empty()) PrintStatistics(output);
    }

    void AddTo(Json& json) const override
    {
        json["format"] = DataFormatName(block.DataFormat);
        json["samples"] = block.NumberOfSamples;
        json["xaxis"] = AxisAsJson();
        json["traces"] = Json::array();
        for (std::int32_t number = 1; number <= block.Traces.Count(); ++number) {
            const Trace& trace = block.Traces[number];
            Json each;
            each["number"] = number;
            each["label"] = platform::ToUtf8(trace.Label);
            each["dof"] = platform::ToUtf8(trace.DegreesOfFreedom);
            each["type"] = MeasurementTypeName(trace.MeasurementType);
            each["units"] = platform::ToUtf8(trace.MeasurementUnits);
            each["dateAndTime"] = platform::ToUtf8(trace.DateAndTime);
            each["samples"] = SamplesOf(number);
            if (!statistics.empty()) {
                each["statistics"] = StatisticsAsJson(statistics[static_cast<std::size_t>(number - 1)]);
            }
            json["traces"].push_back(std::move(each));
        }
    }

private:
    std::int32_t SamplesOf(std::int32_t number) const
    {
        return hasSamples[static_cast<std::size_t>(number - 1)] ? block.NumberOfSamples : 0;
    }

    std::string AxisText() const
    {
        const std::string units = Shortened(Shown(XaxisUnitsText(block)), 36); // a damaged count may make it thousands
        const std::string unitsBehind = units.empty() ? "" : fmt::format(" {}", units);
        std::string text =
            fmt::format("{}, {} to {}{}", SpacingName(block.XaxisSpacing), XText(firstX), XText(lastX), unitsBehind);
        if (HasUniformXaxis(block)) text += fmt::format(" in steps of {}{}", block.XaxisIncrement, unitsBehind);
        return text + ", " + Counted(block.NumberOfSamples, "sample");
    }

    void PrintTraces(Output& output) const
    {
        TextTable table({{"No", Align::Right},
                         {"Label"},
                         {"DOF"},
                         {"Type"},
                         {"Units"},
                         {"Date and time"},
                         {"Samples", Align::Right}});
        for (std::int32_t number = 1; number <= block.Traces.Count(); ++number) {
            const Trace& trace = block.Traces[number];
            table.AddRow({std::to_string(number), Shown(trace.Label), Shown(trace.DegreesOfFreedom),
                          MeasurementTypeName(trace.MeasurementType), Shown(trace.MeasurementUnits),
                          Shown(trace.DateAndTime), Grouped(SamplesOf(number))});
        }
        table.Print(output, Indent);
    }

    void PrintStatistics(Output& output) const
    {
        TextTable table({{"No", Align::Right},
                         {"Label"},
                         {"Minimum", Align::Right},
                         {"Maximum", Align::Right},
                         {"RMS", Align::Right},
                         {"Peak", Align::Right},
                         {"at X", Align::Right},
                         {"Units"},
                         {"NaN", Align::Right}});
        std::int32_t number = 0;
        for (const auto& [values, peakX] : statistics) {
            const Trace& trace = block.Traces[++number];
            const bool hasNumbers = values.counted > 0;
            const auto cell = [&](double value) { return hasNumbers ? fmt::format("{:.6g}", value) : "-"; };
            table.AddRow({std::to_string(number), Shown(trace.Label), cell(values.minimum), cell(values.maximum),
                          cell(values.rms), cell(values.peak), peakX ? XText(*peakX) : "-",
                          Shown(trace.MeasurementUnits), values.notNumbers > 0 ? Grouped(values.notNumbers) : ""});
        }
        output.Print("\n{}{}\n", Indent,
                     block.DataFormat == ComplexFormat ? "Magnitude of the samples" : "Values of the samples");
        table.Print(output, Indent);
    }

    Json AxisAsJson() const
    {
        Json axis;
        axis["spacing"] = SpacingName(block.XaxisSpacing);
        if (HasUniformXaxis(block)) {
            axis["start"] = JsonNumber(block.XaxisStart);
            axis["increment"] = JsonNumber(block.XaxisIncrement);
        }
        axis["first"] = XNumber(firstX);
        axis["last"] = XNumber(lastX);
        axis["units"] = platform::ToUtf8(block.XaxisUnits);
        axis["unitsCode"] = block.XaxisUnitsCode;
        return axis;
    }
};

} // namespace

void InspectDataBlock(DocumentFile& file, bool statistics, InfoReport& report)
{
    auto info = std::make_unique<DataBlockInfo>();
    info->hasSamples.resize(32767);
    DataBlock& block = info->block;
    const LoadResult result = file.LoadDataBlock(block, {false, [&info](std::int32_t number) {
                                                             info->hasSamples[static_cast<std::size_t>(number - 1)] =
                                                                 true;
                                                             return false;
                                                         }});
    report.endMarkerMissing = result.error != NoError;
    report.label = block.Label;
    report.notes = block.Notes;
    if (HasUniformXaxis(block)) {
        info->firstX = XValue(block, 1).value_or(0);
        info->lastX = XValue(block, block.NumberOfSamples).value_or(0);
    } else {
        info->firstX = double{result.firstX};
        info->lastX = double{result.lastX};
    }
    if (statistics) info->statistics = StatisticsOfTraces(file, block);
    report.details = std::move(info);
}

} // namespace qor::tool
