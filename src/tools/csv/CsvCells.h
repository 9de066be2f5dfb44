// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Takes the bytes of a CSV file apart into rows and cells, and keeps count of the lines.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string_view>

struct csv_parser;

namespace qor::tool {

// The delimiter that the first lines of a file agree on: tab, semicolon or comma, looked for in that order, because
// a comma may also stand in a number or a label. A comma when there is none.
char DetectDelimiter(std::string_view firstBytes, bool decimalComma);

class CsvCells
{
public:
    // Hears of every cell, without quotes and outer blanks, and of every row's end; not of blank lines.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void Cell(std::string_view text) = 0;
        virtual void EndOfRow() = 0;
    };

    CsvCells(char delimiter, Listener& listener);
    ~CsvCells();
    CsvCells(const CsvCells&) = delete;
    CsvCells& operator=(const CsvCells&) = delete;

    // False when a quote stands where none may, or when the last one is missing; Line and CellsInRow then tell
    // where. What the listener throws comes out of here.
    bool Parse(std::string_view bytes);
    bool Finish();

    // The line, from 1, on which the cell that is being read began.
    std::int64_t Line() const { return line_; }
    // Cells of the present row that are complete.
    std::int64_t CellsInRow() const { return cells_; }

private:
    static void OnCell(void* text, std::size_t length, void* self);
    static void OnRow(int terminator, void* self);

    std::unique_ptr<csv_parser> parser_;
    Listener& listener_;
    std::int64_t line_ = 1;
    std::int64_t cells_ = 0;
    bool afterCarriageReturn_ = false;
    std::exception_ptr thrown_; // must not travel through the parser, which is C
};

} // namespace qor::tool
