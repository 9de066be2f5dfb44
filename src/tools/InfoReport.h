// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What qor info shows of a file, and its two forms: for people and as JSON.
#pragma once

#include "datablock/DataBlock.h"
#include "tools/Console.h"
#include "tools/TraceStatistics.h"

#include <nlohmann/json.hpp>

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
nlohmann::ordered_json InfoAsJson(const FileInfo& info);

// A value as JSON has it: the shortest number that reads back as the same 32-bit or 64-bit value, or one of the
// texts "NaN", "Infinity" and "-Infinity".
nlohmann::ordered_json JsonNumber(float value);
nlohmann::ordered_json JsonNumber(double value);
// The JSON text of a value, in which no character can steer a terminal.
std::string JsonText(const nlohmann::ordered_json& value, int indent);

} // namespace qor::tool
