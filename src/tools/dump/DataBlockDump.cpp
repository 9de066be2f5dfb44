// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/DataBlockLayout.h"
#include "tools/documents/Names.h"
#include "tools/dump/DataBlockTable.h"
#include "tools/dump/DocumentDumps.h"
#include "tools/dump/JsonParts.h"
#include "tools/dump/XaxisTexts.h"

#include <algorithm>
#include <utility>

namespace qor::tool {
namespace {

void WriteXaxis(const DataBlock& block, std::int32_t rows, Output& output)
{
    const XaxisTexts x(block, rows);
    output.Print("  \"xaxis\": {{\n    \"spacing\": {},\n", JsonQuoted(SpacingName(block.XaxisSpacing)));
    if (HasUniformXaxis(block)) {
        output.Print("    \"start\": {},\n", JsonText(JsonNumber(block.XaxisStart), -1));
        output.Print("    \"increment\": {},\n", JsonText(JsonNumber(block.XaxisIncrement), -1));
    }
    output.Print("    \"units\": {},\n", JsonQuoted(XaxisUnitsText(block)));
    WriteJsonArray(output, "    ", "values", rows, [&](std::int32_t row) { return x.AsJson(row).value_or("null"); });
    output.Write("\n  }");
}

void WriteTrace(const DataBlock& block, std::int32_t number, Output& output)
{
    const Trace& trace = block.Traces[number];
    output.Print("    {{\n      \"number\": {},\n", number);
    output.Print("      \"label\": {},\n", JsonQuoted(trace.Label));
    output.Print("      \"units\": {},\n", JsonQuoted(trace.MeasurementUnits));
    const auto writeArray = [&](std::string_view name, const auto& valueOf) {
        WriteJsonArray(output, "      ", name, SampleCount(block, trace),
                       [&](std::int32_t row) { return JsonValue(valueOf(row)); });
    };
    if (block.DataFormat == ComplexFormat) {
        writeArray("real", [&](std::int32_t row) { return trace.ComplexSamples[row].real; });
        output.Write(",\n");
        writeArray("imaginary", [&](std::int32_t row) { return trace.ComplexSamples[row].imaginary; });
    } else {
        writeArray("values", [&](std::int32_t row) { return trace.RealSamples[row]; });
    }
    output.Write("\n    }");
}

void WriteJson(const DocumentFile& file, const DataBlock& block, const std::vector<std::int32_t>& traces,
               Output& output)
{
    const std::int32_t rows = MostSamples(file, block, traces);
    WriteJsonHead(output, file, block.Label);
    output.Print("  \"format\": {},\n", JsonQuoted(DataFormatName(block.DataFormat)));
    WriteXaxis(block, rows, output);
    output.Write(",\n  \"traces\": [");
    const char* separator = "\n";
    for (const std::int32_t number : traces) {
        output.Write(std::exchange(separator, ",\n"));
        WriteTrace(block, number, output);
    }
    output.Write("\n  ]\n}\n");
}

} // namespace

void DumpDataBlock(DocumentFile& file, const DumpOptions& options, Output& output)
{
    DataBlock block;
    const auto isWanted = [&](std::int32_t number) {
        return options.traces.empty() || std::ranges::find(options.traces, number) != options.traces.end();
    };
    const LoadResult result = file.LoadDataBlock(block, {true, isWanted});
    if (result.error != NoError) WarnOfMissingEndMarker(file.Path());
    CheckNumbers(options.traces, block.Traces.Count(), file, "trace");
    const std::vector<std::int32_t> traces = options.traces.empty() ? AllTraces(block) : options.traces;
    WarnOfEmptyTraces(file.Path(), block, traces);

    if (options.format == "csv") {
        WriteDataBlockCsv(file, block, traces, output);
    } else if (options.format == "json") {
        WriteJson(file, block, traces, output);
    } else {
        PrintTable(DataBlockTable(file, block, traces), output, "");
    }
}

} // namespace qor::tool
