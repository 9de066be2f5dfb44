// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A table of the values of a document, which may be millions: its cells are made when they are written.
#pragma once

#include "tools/console/TextTable.h"

#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace qor::tool {

// The text of a cell; rows count from 1. It refers to the document, which has to outlive the table.
using CellText = std::function<std::string(std::int32_t row)>;

struct ValueColumn {
    std::string heading;
    Align align = Align::Right;
    CellText exact = {};      // for programs; a column without it is for people only
    CellText shown = {};      // for people; a column without it is for programs only
    std::string nothing = {}; // see TableColumn
};

struct ValueTable {
    std::vector<ValueColumn> columns;
    std::int32_t rows = 0;

    // A column that programs and people see alike.
    void Add(const std::string& heading, Align align, const CellText& cell, const std::string& nothing = {});
};

void PrintTable(const ValueTable& table, Output& output, std::string_view indent);
// A header row, then all values in full.
void WriteCsv(const ValueTable& table, Output& output);

// The shortest text that reads back as the same value. A NaN has no sign.
template <class Value>
std::string ExactText(Value value)
{
    return std::isnan(value) ? "nan" : fmt::format("{}", value);
}

} // namespace qor::tool
