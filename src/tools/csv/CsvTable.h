// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The columns of a CSV file: X values or time stamps first, then measured values. Rules and errors: docs/qor.md.
#pragma once

#include "tools/console/Text.h"
#include "tools/csv/XaxisDetection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qor::tool {

struct CsvOptions {
    std::optional<char> delimiter = {}; // detected otherwise
    bool decimalComma = false;
    std::optional<bool> header = {};   // detected otherwise
    std::optional<float> missing = {}; // stands for empty cells, which are refused otherwise
};

struct CsvTable {
    std::vector<Heading> headings; // of all columns, the X axis first; blank without a header row
    std::int64_t firstLine = 1;    // of the header row, or the first row of values
    // X values do not fall. Time stamps are seconds since the first.
    std::vector<double> x;
    TextPrecision xPrecision;
    std::string firstTimeStamp; // as it was written; empty when X is numbers
    std::vector<std::vector<float>> columns;
};

// Reads the file at once into memory, value by value. Throws ToolError, as "FILE:LINE:CELL: reason", for whatever
// is not a table of at least two rows and two columns.
CsvTable ReadCsvTable(const std::string& path, const CsvOptions& options);

} // namespace qor::tool
