// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/info/InfoReport.h"

#include "datablock/DataBlockLayout.h"
#include "platform/Unicode.h"
#include "tools/console/Text.h"
#include "tools/console/TextTable.h"
#include "tools/documents/DocumentFile.h"
#include "tools/documents/Names.h"

namespace qor::tool {
namespace {

constexpr std::string_view Indent = "  ";

std::int32_t SamplesOfTrace(const FileInfo& info, std::int32_t number)
{
    return info.hasSamples[static_cast<std::size_t>(number - 1)] ? info.block.NumberOfSamples : 0;
}

// Rounded for reading, to what a 32-bit value holds.
std::string Rounded(double value) { return fmt::format("{}", static_cast<float>(value)); }

std::string AxisText(const FileInfo& info)
{
    const DataBlock& block = info.block;
    const std::string units = Shown(XaxisUnitsText(block));
    const std::string unitsBehind = units.empty() ? "" : fmt::format(" {}", units);
    std::string text = fmt::format("{}, {} to {}{}", SpacingName(block.XaxisSpacing), Rounded(info.firstX),
                                   Rounded(info.lastX), unitsBehind);
    if (HasUniformXaxis(block)) text += fmt::format(" in steps of {}{}", block.XaxisIncrement, unitsBehind);
    return text + ", " + Counted(block.NumberOfSamples, "sample");
}

// A text of several lines, the later ones under the first.
void PrintNamed(Output& output, std::string_view name, std::u16string_view text)
{
    std::string_view heading = name;
    while (!text.empty()) {
        const auto end = text.find_first_of(u"\r\n");
        output.Print("{}{}{}\n", Indent, Padded(heading, 9, Align::Left), Shown(text.substr(0, end)));
        if (end == std::u16string_view::npos) return;
        text.remove_prefix(end + (text.substr(end, 2) == u"\r\n" ? 2 : 1));
        heading = "";
    }
}

void PrintTraces(Output& output, const FileInfo& info)
{
    TextTable table(
        {{"No", Align::Right}, {"Label"}, {"DOF"}, {"Type"}, {"Units"}, {"Date and time"}, {"Samples", Align::Right}});
    for (std::int32_t number = 1; number <= info.block.Traces.Count(); ++number) {
        const Trace& trace = info.block.Traces[number];
        table.AddRow({std::to_string(number), Shown(trace.Label), Shown(trace.DegreesOfFreedom),
                      MeasurementTypeName(trace.MeasurementType), Shown(trace.MeasurementUnits),
                      Shown(trace.DateAndTime), Grouped(SamplesOfTrace(info, number))});
    }
    table.Print(output, Indent);
}

void PrintStatistics(Output& output, const FileInfo& info)
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
    for (const FileInfo::Statistics& statistics : info.statistics) {
        const TraceStatistics& values = statistics.values;
        const Trace& trace = info.block.Traces[++number];
        const auto cell = [&](double value) { return values.counted > 0 ? fmt::format("{:.6g}", value) : "-"; };
        table.AddRow({std::to_string(number), Shown(trace.Label), cell(values.minimum), cell(values.maximum),
                      cell(values.rms), cell(values.peak), statistics.peakX ? Rounded(*statistics.peakX) : "-",
                      Shown(trace.MeasurementUnits), values.notNumbers > 0 ? Grouped(values.notNumbers) : ""});
    }
    output.Print("\n{}{}\n", Indent,
                 info.block.DataFormat == ComplexFormat ? "Magnitude of the samples" : "Values of the samples");
    table.Print(output, Indent);
}

Json AxisAsJson(const FileInfo& info)
{
    const DataBlock& block = info.block;
    Json axis;
    axis["spacing"] = SpacingName(block.XaxisSpacing);
    if (HasUniformXaxis(block)) {
        axis["start"] = JsonNumber(block.XaxisStart);
        axis["increment"] = JsonNumber(block.XaxisIncrement);
    }
    axis["first"] = JsonNumber(info.firstX);
    axis["last"] = JsonNumber(info.lastX);
    axis["units"] = platform::ToUtf8(block.XaxisUnits);
    axis["unitsCode"] = block.XaxisUnitsCode;
    return axis;
}

Json StatisticsAsJson(const FileInfo::Statistics& statistics)
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
    if (peakX) json["peakX"] = JsonNumber(*peakX);
    return json;
}

} // namespace

void PrintInfo(Output& output, const FileInfo& info)
{
    const DataBlock& block = info.block;
    output.Print("{}\n", Shown(info.path));
    output.Print("{}Data Block file, version {}, {}\n", Indent, info.version,
                 Counted(static_cast<long long>(info.size), "byte"));
    PrintNamed(output, "Label", block.Label);
    PrintNamed(output, "Notes", block.Notes);
    output.Print("{}X axis   {}\n", Indent, AxisText(info));
    output.Print("{}Traces   {}, {}\n", Indent, Grouped(block.Traces.Count()), DataFormatName(block.DataFormat));
    if (block.Traces.Count() == 0) return;
    output.Write("\n");
    PrintTraces(output, info);
    if (!info.statistics.empty()) PrintStatistics(output, info);
}

Json InfoAsJson(const FileInfo& info)
{
    const DataBlock& block = info.block;
    Json json;
    json["file"] = Shown(info.path);
    json["kind"] = "Data Block";
    json["version"] = info.version;
    json["size"] = info.size;
    json["endMarkerMissing"] = info.endMarkerMissing;
    json["label"] = platform::ToUtf8(block.Label);
    json["notes"] = platform::ToUtf8(block.Notes);
    json["format"] = DataFormatName(block.DataFormat);
    json["samples"] = block.NumberOfSamples;
    json["xaxis"] = AxisAsJson(info);
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
        each["samples"] = SamplesOfTrace(info, number);
        if (!info.statistics.empty()) {
            each["statistics"] = StatisticsAsJson(info.statistics[static_cast<std::size_t>(number - 1)]);
        }
        json["traces"].push_back(std::move(each));
    }
    return json;
}

} // namespace qor::tool
