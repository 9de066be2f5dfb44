// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/TextTable.h"

#include "tools/console/Text.h"

#include <algorithm>

namespace qor::tool {
namespace {

constexpr std::size_t WidestText = 36;
constexpr std::string_view Gap = "  ";

// A column that is shown.
struct Field {
    std::size_t column;
    std::size_t width;
};

} // namespace

std::string Padded(std::string_view text, std::size_t width, Align align)
{
    const std::size_t taken = Width(text);
    const std::string blanks(width > taken ? width - taken : 0, ' ');
    return align == Align::Left ? std::string(text) + blanks : blanks + std::string(text);
}

void PrintTable(Output& output, std::string_view indent, std::span<const TableColumn> columns, std::int64_t rows,
                const std::function<std::string(std::size_t column, std::int64_t row)>& cell)
{
    const bool shortens = output.IsTerminal();
    const auto fitted = [&](std::size_t column, std::string text) {
        return shortens && columns[column].align == Align::Left ? Shortened(text, WidestText) : std::move(text);
    };
    std::vector<Field> fields;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        std::size_t width = Width(fitted(column, columns[column].heading));
        bool saysSomething = false;
        for (std::int64_t row = 1; row <= rows; ++row) {
            const std::string text = cell(column, row);
            saysSomething = saysSomething || text != columns[column].nothing;
            width = std::max(width, Width(fitted(column, text)));
        }
        if (saysSomething) fields.push_back({column, width});
    }
    const auto printLine = [&](const auto& textOf) {
        std::string line(indent);
        for (const auto [column, width] : fields) {
            line += Padded(fitted(column, textOf(column)), width, columns[column].align);
            line += Gap;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        output.Print("{}\n", line);
    };
    printLine([&](std::size_t column) { return columns[column].heading; });
    for (std::int64_t row = 1; row <= rows; ++row) {
        printLine([&](std::size_t column) { return cell(column, row); });
    }
}

void TextTable::Print(Output& output, std::string_view indent) const
{
    PrintTable(
        output, indent, columns_, static_cast<std::int64_t>(rows_.size()),
        [this](std::size_t column, std::int64_t row) { return rows_[static_cast<std::size_t>(row - 1)][column]; });
}

} // namespace qor::tool
