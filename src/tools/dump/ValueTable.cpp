// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/ValueTable.h"

#include "tools/console/Progress.h"

namespace qor::tool {
namespace {

void WriteCsvCell(std::string_view cell, Output& output)
{
    if (cell.find_first_of(",\"") == std::string_view::npos) return output.Write(cell);
    std::string quoted = "\"";
    for (const char letter : cell) quoted.append(letter == '"' ? 2 : 1, letter);
    output.Write(quoted + '"');
}

} // namespace

void ValueTable::Add(const std::string& heading, Align align, const CellText& cell, const std::string& nothing)
{
    columns.push_back({heading, align, cell, cell, nothing});
}

void PrintTable(const ValueTable& table, Output& output, std::string_view indent)
{
    std::vector<TableColumn> columns;
    std::vector<const CellText*> cells;
    for (const ValueColumn& column : table.columns) {
        if (!column.shown) continue;
        columns.push_back({column.heading, column.align, column.nothing});
        cells.push_back(&column.shown);
    }
    PrintTable(output, indent, columns, table.rows, [&cells](std::size_t column, std::int64_t row) {
        return (*cells[column])(static_cast<std::int32_t>(row));
    });
}

void WriteCsv(const ValueTable& table, Output& output)
{
    const auto writeLine = [&](const auto& textOf) {
        bool isFirst = true;
        for (const ValueColumn& column : table.columns) {
            if (!column.exact) continue;
            if (!isFirst) output.Write(",");
            WriteCsvCell(textOf(column), output);
            isFirst = false;
        }
        output.Write("\n");
    };
    Progress progress("Writing", output.IsTerminal() ? 0 : static_cast<std::uint64_t>(table.rows));
    writeLine([](const ValueColumn& column) { return std::string_view(column.heading); });
    for (std::int32_t row = 1; row <= table.rows; ++row) {
        writeLine([row](const ValueColumn& column) { return column.exact(row); });
        if (row % 4096 == 0) progress.Update(static_cast<std::uint64_t>(row));
    }
}

} // namespace qor::tool
