// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "docs/Page.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace qor::test {
namespace {

constexpr std::string_view Fence = "```";

[[noreturn]] void Lacks(std::string_view what) { throw std::runtime_error("the page lacks: " + std::string(what)); }

Page::Row Cells(std::string_view line)
{
    Page::Row cells;
    std::istringstream text{std::string(line.substr(1))};
    for (std::string cell; std::getline(text, cell, '|');) {
        const auto first = cell.find_first_not_of(' ');
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
    }
    return cells;
}

} // namespace

Page::Page(std::string_view name)
{
    std::ifstream file(std::string(QOR_SOURCE_DIR "/docs/formats/").append(name));
    for (std::string line; std::getline(file, line);) lines_.push_back(line);
    if (lines_.empty()) Lacks(name);
}

std::vector<std::string> Page::Block(std::string_view fence) const
{
    const auto opening = std::string(Fence).append(fence);
    const auto first = std::find(lines_.begin(), lines_.end(), opening);
    if (first == lines_.end() || std::find(std::next(first), lines_.end(), opening) != lines_.end()) Lacks(fence);
    return {std::next(first), std::find(std::next(first), lines_.end(), Fence)};
}

Bytes Page::HexBlock(std::string_view fence) const
{
    Bytes bytes;
    for (const std::string& line : Block(fence)) {
        std::istringstream text(line.substr(0, line.find('#')));
        std::size_t offset = 0;
        char colon = 0;
        text >> std::hex >> offset >> colon;
        if (!text || colon != ':' || offset != bytes.size()) throw std::runtime_error("wrong offset: " + line);
        for (unsigned byte = 0; text >> byte;) {
            if (byte > 0xFF) throw std::runtime_error("more than a byte: " + line);
            bytes.push_back(static_cast<std::uint8_t>(byte));
        }
        if (!text.eof()) throw std::runtime_error("not hexadecimal: " + line);
    }
    return bytes;
}

std::vector<Page::Row> Page::Rows(std::string_view heading) const
{
    auto line = std::find(lines_.begin(), lines_.end(), heading);
    if (line == lines_.end()) Lacks(heading);
    std::vector<Row> rows;
    bool inTable = false;
    for (++line; line != lines_.end() && !line->starts_with('#'); ++line) {
        const bool isRow = line->starts_with('|');
        if (isRow && !inTable) {
            ++line; // the head, and then the rule below it
        } else if (isRow) {
            rows.push_back(Cells(*line));
        }
        inTable = isRow;
    }
    if (rows.empty()) Lacks(heading);
    return rows;
}

std::vector<Page::Row> Page::RowsBehind(std::string_view lineStart) const
{
    const auto isRow = [](const std::string& line) { return line.starts_with('|'); };
    const auto start = std::find_if(lines_.begin(), lines_.end(),
                                    [&](const std::string& line) { return line.starts_with(lineStart); });
    const auto head = std::find_if(start, lines_.end(), isRow);
    const auto end = std::find_if_not(head, lines_.end(), isRow);
    if (std::distance(head, end) < 3) Lacks(lineStart);
    std::vector<Row> rows;
    std::transform(head + 2, end, std::back_inserter(rows), Cells);
    return rows;
}

} // namespace qor::test
