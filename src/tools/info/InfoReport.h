// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What qor info shows of a file, and its two forms: for people and as JSON.
#pragma once

#include "datablock/DataBlock.h"
#include "tools/console/Console.h"
#include "tools/console/Json.h"
#include "tools/documents/TraceStatistics.h"

#include <optional>
#include <vector>

namespace qor::tool {

struct FileInfo {
    std::string path;
    std::uint64_t size = 0;
    std::int16_t version = 0;
    bool endMarkerMissing = false;
    DataBlock block; // without its samples
    double firstX = 0;
    double lastX = 0;
    std::vector<bool> hasSamples; // by trace number - 1

    struct Statistics {
        TraceStatistics values;
        std::optional<double> peakX;
    };
    std::vector<Statistics> statistics; // by trace number - 1; empty when not asked for
};

void PrintInfo(Output& output, const FileInfo& info);
Json InfoAsJson(const FileInfo& info);

} // namespace qor::tool
