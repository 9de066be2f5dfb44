// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A table for a terminal: aligned columns under a line of headings.
#pragma once

#include "tools/console/Console.h"

#include <vector>

namespace qor::tool {

enum class Align { Left, Right };

class TextTable
{
public:
    struct Column {
        std::string heading;
        Align align = Align::Left;
    };

    explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

    // One cell a column, ready to be shown.
    void AddRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    // Columns whose cells are all empty are left out. On a terminal, long texts are shortened.
    void Print(Output& output, std::string_view indent) const;

private:
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

// The text in a field of that width.
std::string Padded(std::string_view text, std::size_t width, Align align);

} // namespace qor::tool
