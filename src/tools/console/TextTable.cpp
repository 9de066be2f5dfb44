// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/TextTable.h"

#include "tools/console/Text.h"

#include <algorithm>

namespace qor::tool {
namespace {

constexpr std::size_t WidestOnTerminal = 36;
constexpr std::string_view Gap = "  ";

} // namespace

std::string Padded(std::string_view text, std::size_t width, Align align)
{
    const std::size_t taken = Width(text);
    const std::string blanks(width > taken ? width - taken : 0, ' ');
    return align == Align::Left ? std::string(text) + blanks : blanks + std::string(text);
}

void TextTable::Print(Output& output, std::string_view indent) const
{
    const std::size_t limit = output.IsTerminal() ? WidestOnTerminal : SIZE_MAX;
    std::vector<std::size_t> widths(columns_.size(), 0); // 0 leaves a column out
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], std::min(Width(row[i]), limit));
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (widths[i] > 0) widths[i] = std::max(widths[i], Width(columns_[i].heading));
    }
    const auto printLine = [&](auto cellOf) {
        std::string line(indent);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (widths[i] == 0) continue;
            line += Padded(Shortened(cellOf(i), limit), widths[i], columns_[i].align);
            line += Gap;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        output.Print("{}\n", line);
    };
    printLine([&](std::size_t i) { return columns_[i].heading; });
    for (const auto& row : rows_) printLine([&](std::size_t i) { return row[i]; });
}

} // namespace qor::tool
