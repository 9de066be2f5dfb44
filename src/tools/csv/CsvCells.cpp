// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/CsvCells.h"

#include <csv.h>

#include <new>
#include <utility>

namespace qor::tool {
namespace {

constexpr int LinesLookedAt = 20;
constexpr std::size_t BufferGrowth = 4096;

// Delimiters outside quotes on the first line of the text, which is taken off.
int CountOnLine(std::string_view& text, char delimiter)
{
    int count = 0;
    bool quoted = false;
    std::size_t place = 0;
    for (; place < text.size() && (quoted || (text[place] != '\n' && text[place] != '\r')); ++place) {
        if (text[place] == '"') quoted = !quoted;
        if (text[place] == delimiter && !quoted) ++count;
    }
    text.remove_prefix(place);
    const auto next = text.find_first_not_of("\r\n");
    text.remove_prefix(next == std::string_view::npos ? text.size() : next);
    return count;
}

// Whether the delimiter is on all of the first lines.
bool IsOnEveryLine(std::string_view text, char delimiter)
{
    for (int line = 0; line < LinesLookedAt && !text.empty(); ++line) {
        if (CountOnLine(text, delimiter) == 0) return false;
    }
    return true;
}

} // namespace

char DetectDelimiter(std::string_view firstBytes, bool decimalComma)
{
    const auto start = firstBytes.find_first_not_of("\r\n");
    if (start == std::string_view::npos) return ',';
    firstBytes.remove_prefix(start);
    for (const char delimiter : {'\t', ';', ','}) {
        if (delimiter == ',' && decimalComma) continue;
        if (IsOnEveryLine(firstBytes, delimiter)) return delimiter;
    }
    return decimalComma ? ';' : ',';
}

CsvCells::CsvCells(char delimiter, Listener& listener) : parser_(std::make_unique<csv_parser>()), listener_(listener)
{
    if (csv_init(parser_.get(), CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0) throw std::bad_alloc();
    csv_set_delim(parser_.get(), static_cast<unsigned char>(delimiter));
    csv_set_blk_size(parser_.get(), BufferGrowth);
}

CsvCells::~CsvCells() { csv_free(parser_.get()); }

bool CsvCells::Parse(std::string_view bytes)
{
    const std::size_t parsed = csv_parse(parser_.get(), bytes.data(), bytes.size(), &OnCell, &OnRow, this);
    if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
    if (parsed == bytes.size()) return true;
    if (csv_error(parser_.get()) == CSV_ENOMEM) throw std::bad_alloc();
    return false;
}

bool CsvCells::Finish()
{
    const int status = csv_fini(parser_.get(), &OnCell, &OnRow, this);
    if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
    return status == 0;
}

void CsvCells::OnCell(void* text, std::size_t length, void* self)
{
    auto& cells = *static_cast<CsvCells*>(self);
    if (cells.thrown_) return;
    cells.afterCarriageReturn_ = false;
    const std::string_view cell(static_cast<const char*>(text), length);
    try {
        cells.listener_.Cell(cell);
    } catch (...) {
        cells.thrown_ = std::current_exception();
        return;
    }
    ++cells.cells_;
    // Line ends inside quotes.
    for (std::size_t place = 0; place < cell.size(); ++place) {
        if (cell[place] == '\n' || (cell[place] == '\r' && cell.substr(place + 1, 1) != "\n")) ++cells.line_;
    }
}

void CsvCells::OnRow(int terminator, void* self)
{
    auto& cells = *static_cast<CsvCells*>(self);
    if (cells.thrown_) return;
    try {
        if (cells.cells_ > 0) cells.listener_.EndOfRow();
    } catch (...) {
        cells.thrown_ = std::current_exception();
        return;
    }
    cells.cells_ = 0;
    if (terminator == '\r' || (terminator == '\n' && !cells.afterCarriageReturn_)) ++cells.line_;
    cells.afterCarriageReturn_ = terminator == '\r';
}

} // namespace qor::tool
