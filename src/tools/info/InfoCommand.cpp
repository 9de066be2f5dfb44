// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/info/InfoCommand.h"

#include "tools/info/InfoReport.h"

namespace qor::tool {

ExitCode RunInfo(const InfoOptions& options, Output& output)
{
    const bool asJson = options.format == "json";
    ExitCode code = Done;
    bool isFirst = true;
    for (const std::string& path : options.files) {
        try {
            const InfoReport report = Inspect(path, options.statistics);
            if (report.endMarkerMissing) {
                output.Flush();
                WarnOfMissingEndMarker(path);
            }
            if (asJson) {
                output.Print("{}{}", isFirst ? "[\n" : ",\n", JsonText(InfoAsJson(report), 2));
            } else {
                if (!isFirst) output.Write("\n");
                PrintInfo(output, report);
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
