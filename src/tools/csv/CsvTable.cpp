// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/CsvTable.h"

#include "fileio/RecordReader.h"
#include "tools/console/Console.h"
#include "tools/console/Progress.h"
#include "tools/csv/CsvCells.h"
#include "tools/csv/TimeStamps.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>

namespace qor::tool {
namespace {

// An X axis, and 32,000 traces of two columns.
constexpr std::size_t MostColumns = 1 + 2 * 32000;
constexpr std::size_t PieceSize = std::size_t{1} << 20;
constexpr std::size_t LongestShownCell = 40;

enum class Parsed { Number, NoNumber, TooLarge };

// What the number is beyond the type's range; the general function knows too small from too large.
template <class Value>
Parsed ParseBeyondRange(std::string_view text, Value& value)
{
    const double wide = std::strtod(std::string(text).c_str(), nullptr);
    if (std::abs(wide) > double{std::numeric_limits<Value>::max()}) return Parsed::TooLarge;
    value = static_cast<Value>(wide);
    return Parsed::Number;
}

template <class Value>
Parsed ParseNumber(std::string_view text, Value& value)
{
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    const auto [behind, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc::invalid_argument || behind != end) return Parsed::NoNumber;
    if (error == std::errc::result_out_of_range) return ParseBeyondRange(text, value);
    const bool saysInfinity = text.find_first_of("iI") != std::string_view::npos;
    return std::isinf(value) && !saysInfinity ? Parsed::TooLarge : Parsed::Number;
}

class CsvTableReader final : public CsvCells::Listener
{
public:
    CsvTableReader(const std::string& path, const CsvOptions& options) : path_(path), options_(options) {}

    CsvTable Read()
    {
        errno = 0;
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path_.c_str(), "rb"), &std::fclose);
        if (!file) throw FileError(path_, LastSystemError("cannot be read"));
        std::error_code noSize;
        const auto size = std::filesystem::file_size(path_, noSize);
        Progress progress("Reading " + path_, noSize ? 0 : size);

        const auto piece = std::make_unique<char[]>(PieceSize);
        std::uint64_t done = 0;
        for (bool atEnd = false; !atEnd;) {
            const std::size_t got = std::fread(piece.get(), 1, PieceSize, file.get());
            if (std::ferror(file.get())) throw FileError(path_, LastSystemError("cannot be read"));
            atEnd = got < PieceSize;
            std::string_view bytes(piece.get(), got);
            if (done == 0) Begin(bytes);
            done += got;
            if (!cells_->Parse(bytes)) {
                Fail(cells_->CellsInRow() + 1, "a quote stands where none belongs, or a double one is missing");
            }
            progress.Update(done);
        }
        if (!cells_->Finish()) Fail(cells_->CellsInRow() + 1, "the quote that begins here has no end");
        Finish();
        return std::move(table_);
    }

    void Cell(std::string_view text) override
    {
        if (!sawFirstRow_) {
            firstRow_.emplace_back(text);
            return;
        }
        TakeCell(text);
    }

    void EndOfRow() override
    {
        if (!sawFirstRow_) {
            TakeFirstRow();
        } else {
            FinishRow();
        }
    }

private:
    [[noreturn]] void Fail(std::int64_t column, std::string_view reason) const
    {
        throw FileError(fmt::format("{}:{}:{}", path_, cells_->Line(), column), reason);
    }

    [[noreturn]] void FailCell(std::string_view text, std::string_view reason) const
    {
        Fail(static_cast<std::int64_t>(column_) + 1,
             fmt::format("\"{}\" {}", Shortened(Shown(text), LongestShownCell), reason));
    }

    // Sees the file's first bytes.
    void Begin(std::string_view& bytes)
    {
        if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
            throw FileError(path_, "is UTF-16 text; save it as UTF-8");
        }
        if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
        const char delimiter = options_.delimiter.value_or(DetectDelimiter(bytes, options_.decimalComma));
        cells_.emplace(delimiter, *this);
    }

    // The number in the form in which it is parsed.
    std::string_view WithPoint(std::string_view text)
    {
        if (!options_.decimalComma || text.find(',') == std::string_view::npos) return text;
        scratch_ = text;
        std::ranges::replace(scratch_, ',', '.');
        return scratch_;
    }

    bool IsNumber(std::string_view cell)
    {
        double ignored = 0;
        return ParseNumber(WithPoint(cell), ignored) != Parsed::NoNumber;
    }

    bool IsValue(std::string_view cell) { return IsNumber(cell) || ParseTimeStamp(cell); }

    // A first cell that is no value and has no letter, before values only, is a damaged X value rather than a header.
    void RefuseDamagedX()
    {
        const std::string_view x = firstRow_.front();
        const bool hasLetter = std::ranges::any_of(x, [](char each) {
            return (each >= 'A' && each <= 'Z') || (each >= 'a' && each <= 'z') || (each & 0x80) != 0;
        });
        const bool othersAreValues = std::all_of(firstRow_.begin() + 1, firstRow_.end(),
                                                 [this](const auto& cell) { return cell.empty() || IsNumber(cell); });
        if (!hasLetter && othersAreValues) {
            FailCell(x, "is neither a number nor a date and time; --header takes this row for a header row");
        }
    }

    // A first row is a header when its first cell, or, where that is empty, any other one, is not a value. A later
    // cell alone does not make it one: a row with a damaged value must not be lost silently.
    bool FirstRowIsHeader()
    {
        if (options_.header) return *options_.header;
        if (!firstRow_.front().empty()) {
            if (IsValue(firstRow_.front())) return false;
            RefuseDamagedX();
            return true;
        }
        return std::ranges::any_of(firstRow_, [this](const auto& cell) { return !cell.empty() && !IsValue(cell); });
    }

    void TakeFirstRow()
    {
        while (!firstRow_.empty() && firstRow_.back().empty()) firstRow_.pop_back();
        if (firstRow_.empty()) return; // nothing but delimiters
        const std::size_t columns = firstRow_.size();
        if (columns < 2) Fail(2, "there is only one column; traces stand to the right of the X axis");
        if (columns > MostColumns) Fail(MostColumns + 1, "a Data Block holds at most 32,000 traces");
        sawFirstRow_ = true;
        table_.firstLine = cells_->Line();
        table_.columns.resize(columns - 1);
        table_.headings.resize(columns);
        if (FirstRowIsHeader()) {
            std::ranges::transform(firstRow_, table_.headings.begin(), SplitHeading);
        } else {
            for (const std::string& cell : firstRow_) TakeCell(cell);
            FinishRow();
        }
        firstRow_.clear();
    }

    // Empty cells wait: a row that has no others is a blank line.
    void TakeCell(std::string_view text)
    {
        if (text.empty()) {
            ++emptyCells_;
            return;
        }
        TakeEmptyCells();
        if (column_ > table_.columns.size()) FailCell(text, "stands to the right of the last column");
        if (column_ == 0) {
            TakeX(text);
        } else {
            table_.columns[column_ - 1].push_back(Value(text));
        }
        ++column_;
    }

    void TakeEmptyCells()
    {
        for (; emptyCells_ > 0; --emptyCells_, ++column_) {
            if (column_ > table_.columns.size()) continue; // behind a trailing delimiter
            const auto number = static_cast<std::int64_t>(column_) + 1;
            if (column_ == 0) Fail(number, "the X value is missing");
            if (!options_.missing) Fail(number, "the value is missing; --missing gives one for empty cells");
            table_.columns[column_ - 1].push_back(*options_.missing);
        }
    }

    void FinishRow()
    {
        if (column_ > 0) {
            const std::size_t columns = table_.columns.size() + 1;
            const std::size_t seen = column_ + emptyCells_;
            if (seen < columns) {
                if (!options_.missing) {
                    Fail(static_cast<std::int64_t>(seen) + 1,
                         fmt::format("the row ends after {} of {} cells", seen, columns));
                }
                emptyCells_ += columns - seen;
            }
            TakeEmptyCells();
            const auto bytes = table_.x.size() * table_.columns.size() * sizeof(float);
            if (bytes > static_cast<std::size_t>(LastPosition)) {
                Fail(1, "the values up to here fill more than the 2 GiB that a Data Block file may have");
            }
        }
        column_ = 0;
        emptyCells_ = 0;
    }

    template <class Number>
    Number NumberIn(std::string_view text)
    {
        if (options_.decimalComma && text.find('.') != std::string_view::npos) {
            FailCell(text, "has a decimal point, but decimal commas were announced");
        }
        Number number = 0;
        const Parsed parsed = ParseNumber(WithPoint(text), number);
        if (parsed == Parsed::TooLarge) FailCell(text, "is beyond the range of 32-bit values");
        if (parsed == Parsed::Number) return number;
        const bool needsOption = !options_.decimalComma && text.find(',') != std::string_view::npos;
        FailCell(text, needsOption ? "is not a number; --decimal-comma takes a comma for the decimal point"
                                   : "is not a number");
    }

    float Value(std::string_view text) { return NumberIn<float>(text); }

    void TakeX(std::string_view text)
    {
        if (table_.x.empty()) {
            firstStamp_ = ParseTimeStamp(text);
            if (firstStamp_) table_.firstTimeStamp = text;
            if (!firstStamp_ && !IsNumber(text)) {
                const bool hasComma = !options_.decimalComma && text.find(',') != std::string::npos;
                FailCell(text, hasComma ? "is neither a number nor a date and time; --decimal-comma takes a comma for "
                                          "the decimal point"
                                        : "is neither a number nor a date and time");
            }
        }
        const double value = firstStamp_ ? SecondsAt(text) : XNumber(text);
        if (!table_.x.empty() && value < table_.x.back()) {
            FailCell(text, "is less than the X value before it");
        }
        table_.x.push_back(value);
    }

    double SecondsAt(std::string_view text)
    {
        const auto stamp = ParseTimeStamp(text);
        if (!stamp) FailCell(text, "is not a date and time");
        table_.xPrecision.decimals = std::max(table_.xPrecision.decimals, stamp->fractionDigits);
        return SecondsBetween(*firstStamp_, *stamp);
    }

    double XNumber(std::string_view text)
    {
        const auto value = NumberIn<double>(text);
        if (std::isnan(value) || std::isinf(value)) FailCell(text, "cannot stand on the X axis");
        if (std::abs(value) > double{std::numeric_limits<float>::max()}) {
            FailCell(text, "is beyond the range of 32-bit values");
        }
        table_.xPrecision.Add(WithPoint(text));
        return value;
    }

    void Finish()
    {
        if (!sawFirstRow_) throw FileError(path_, "holds no table");
        if (table_.x.size() < 2) {
            Fail(1, fmt::format("there {} of values; a Data Block needs 2 or more",
                                table_.x.empty() ? "is no row" : "is only 1 row"));
        }
        if (!(table_.x.back() > table_.x.front())) Fail(1, "all X values are the same");
    }

    const std::string& path_;
    const CsvOptions& options_;
    CsvTable table_;
    std::optional<CsvCells> cells_;
    std::vector<std::string> firstRow_;
    bool sawFirstRow_ = false;
    std::size_t column_ = 0;     // cells of the present row that were taken
    std::size_t emptyCells_ = 0; // cells behind them that were empty
    std::optional<TimeStamp> firstStamp_;
    std::string scratch_;
};

} // namespace

CsvTable ReadCsvTable(const std::string& path, const CsvOptions& options)
{
    return CsvTableReader(path, options).Read();
}

} // namespace qor::tool
