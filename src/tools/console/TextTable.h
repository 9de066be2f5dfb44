// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A table for a terminal: aligned columns under a line of headings.
#pragma once

#include "tools/console/Console.h"

#include <functional>
#include <span>
#include <vector>

namespace qor::tool {

enum class Align { Left, Right };

struct TableColumn {
    std::string heading;
    Align align = Align::Left;
    std::string nothing = {}; // a column all of whose cells are this says nothing and is left out
};

// Prints a table of that many rows, from 1; columns count from 0. Cells are ready to be shown; each is asked for
// twice, so that none need be kept. On a terminal, long texts on the left are shortened.
void PrintTable(Output& output, std::string_view indent, std::span<const TableColumn> columns, std::int64_t rows,
                const std::function<std::string(std::size_t column, std::int64_t row)>& cell);

// A table whose rows are kept until it is printed.
class TextTable
{
public:
    explicit TextTable(std::vector<TableColumn> columns) : columns_(std::move(columns)) {}

    // One cell a column.
    void AddRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    void Print(Output& output, std::string_view indent) const;

private:
    std::vector<TableColumn> columns_;
    std::vector<std::vector<std::string>> rows_;
};

// The text in a field of that width.
std::string Padded(std::string_view text, std::size_t width, Align align);

} // namespace qor::tool
