// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/info/InfoCommand.h"

#include "datablock/DataBlockLayout.h"
#include "tools/console/Progress.h"
#include "tools/documents/DocumentFile.h"
#include "tools/info/InfoReport.h"

#include <algorithm>

namespace qor::tool {
namespace {

// Samples that are held at a time while statistics are made: those of one trace, or of as many as are not more
// than this. Every turn reads all headers anew, which thousands of short traces should not have to pay for.
constexpr std::int64_t BytesAtATime = std::int64_t{32} << 20;

void AddStatistics(DocumentFile& file, FileInfo& info)
{
    const std::int64_t width = info.block.DataFormat == ComplexFormat ? sizeof(ComplexSample) : sizeof(float);
    const std::int64_t bytes = std::max<std::int64_t>(1, info.block.NumberOfSamples * width);
    const auto atATime = static_cast<std::int32_t>(std::clamp<std::int64_t>(BytesAtATime / bytes, 1, 32767));
    const std::int32_t count = info.block.Traces.Count();
    Progress progress("Reading " + info.path, static_cast<std::uint64_t>(count));
    for (std::int32_t first = 1; first <= count; first += atATime) {
        const std::int32_t last = std::min(count, first + atATime - 1);
        DataBlock block;
        file.LoadDataBlock(block, {true, [=](std::int32_t number) { return number >= first && number <= last; }});
        for (std::int32_t number = first; number <= last; ++number) {
            const TraceStatistics values = StatisticsOf(block, block.Traces[number]);
            const bool hasPeak = values.counted > 0;
            info.statistics.push_back({values, hasPeak ? XValue(block, values.peakSample) : std::nullopt});
        }
        progress.Update(static_cast<std::uint64_t>(last));
    }
}

FileInfo Inspect(const std::string& path, bool statistics)
{
    DocumentFile file(path);
    FileInfo info;
    info.path = path;
    info.size = file.Size();
    info.hasSamples.resize(32767);
    const LoadResult result =
        file.LoadDataBlock(info.block, {false, [&info](std::int32_t number) {
                                            info.hasSamples[static_cast<std::size_t>(number - 1)] = true;
                                            return false;
                                        }});
    info.version = file.Version();
    info.endMarkerMissing = result.error != NoError;
    if (HasUniformXaxis(info.block)) {
        info.firstX = XValue(info.block, 1).value_or(0);
        info.lastX = XValue(info.block, info.block.NumberOfSamples).value_or(0);
    } else {
        info.firstX = double{result.firstX};
        info.lastX = double{result.lastX};
    }
    if (statistics) AddStatistics(file, info);
    return info;
}

} // namespace

ExitCode RunInfo(const InfoOptions& options, Output& output)
{
    const bool asJson = options.format == "json";
    ExitCode code = Done;
    bool isFirst = true;
    for (const std::string& path : options.files) {
        try {
            const FileInfo info = Inspect(path, options.statistics);
            if (info.endMarkerMissing) {
                output.Flush();
                WarnOfMissingEndMarker(path);
            }
            if (asJson) {
                output.Print("{}{}", isFirst ? "[\n" : ",\n", JsonText(InfoAsJson(info), 2));
            } else {
                if (!isFirst) output.Write("\n");
                PrintInfo(output, info);
            }
            isFirst = false;
        } catch (const ToolError& error) {
            if (std::string_view(error.what()).starts_with("standard output:")) throw;
            output.Flush();
            PrintMessage(error.what());
            code = error.Code();
        }
    }
    if (asJson) output.Write(isFirst ? "[]\n" : "\n]\n");
    return code;
}

} // namespace qor::tool
