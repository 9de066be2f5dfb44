// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// qor import: a Data Block file of the columns of a CSV file.
#pragma once

#include "tools/console/Console.h"
#include "tools/csv/ColumnPairs.h"
#include "tools/csv/CsvTable.h"

#include <string>
#include <vector>

namespace qor::tool {

struct ImportOptions {
    std::string csvFile;
    std::string outputFile;
    CsvOptions csv;
    ComplexColumns complexColumns = ComplexColumns::ByHeading;
    bool keepXValues = false;         // explicit X values even where they are evenly spaced
    std::vector<std::string> types;   // by name; one for all traces, or one each
    std::vector<std::string> dofs;    // the same
    std::optional<std::string> label; // otherwise the CSV file's name without its ending
    std::optional<std::string> notes;
    std::optional<std::string> xaxisUnits; // otherwise from the heading
    bool replaceExisting = false;
};

ExitCode RunImport(const ImportOptions& options, Output& output);

} // namespace qor::tool
