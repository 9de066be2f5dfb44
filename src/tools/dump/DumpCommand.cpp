// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/DumpCommand.h"

#include "datablock/DataBlockLayout.h"
#include "platform/Unicode.h"
#include "tools/console/Json.h"
#include "tools/console/Progress.h"
#include "tools/console/Text.h"
#include "tools/console/TextTable.h"
#include "tools/csv/ColumnPairs.h"
#include "tools/documents/DocumentFile.h"
#include "tools/documents/Names.h"
#include "tools/dump/DataBlockCsv.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace qor::tool {
namespace {

// A column of values behind the X column: a real trace, or one of the two parts of a complex one.
struct ValueColumn {
    std::string heading;
    std::int32_t count = 0;
    std::function<float(std::int32_t sampleNumber)> value;
};

std::vector<ValueColumn> ColumnsOf(const DataBlock& block, const std::vector<int>& traces)
{
    std::vector<ValueColumn> columns;
    for (const std::int32_t number : traces) {
        const Trace& trace = block.Traces[number];
        Heading heading{Shown(Trimmed(trace.Label)), Shown(Trimmed(trace.MeasurementUnits))};
        if (heading.label.empty()) heading.label = fmt::format("Trace {}", number);
        if (block.DataFormat == ComplexFormat) {
            const auto* samples = &trace.ComplexSamples;
            columns.push_back({JoinHeading(RealPartHeading(heading)), samples->Count(),
                               [samples](std::int32_t sample) { return (*samples)[sample].real; }});
            columns.push_back({JoinHeading(ImaginaryPartHeading(heading)), samples->Count(),
                               [samples](std::int32_t sample) { return (*samples)[sample].imaginary; }});
        } else {
            const auto* samples = &trace.RealSamples;
            columns.push_back({JoinHeading(heading), samples->Count(),
                               [samples](std::int32_t sample) { return (*samples)[sample]; }});
        }
    }
    return columns;
}

std::string XHeading(const DataBlock& block) { return JoinHeading({"X", Shown(XaxisUnitsText(block))}); }

// The shortest text that reads back as the same value. A NaN has no sign.
template <class Value>
std::string Exact(Value value)
{
    return std::isnan(value) ? "nan" : fmt::format("{}", value);
}

std::string QuotedWhereNeeded(const std::string& cell)
{
    if (cell.find_first_of(",\"") == std::string::npos) return cell;
    std::string quoted = "\"";
    for (const char letter : cell) quoted.append(letter == '"' ? 2 : 1, letter);
    return quoted + '"';
}

class Dump
{
public:
    Dump(const DocumentFile& file, const DataBlock& block, std::vector<int> traces, Output& output)
        : file_(file), block_(block), traces_(std::move(traces)), columns_(ColumnsOf(block, traces_)), output_(output)
    {
        for (const ValueColumn& column : columns_) rows_ = std::max(rows_, column.count);
        if (rows_ == 0) throw FileError(file.Path(), "holds no samples");
    }

    void AsCsv()
    {
        output_.Write(QuotedWhereNeeded(XHeading(block_)));
        for (const ValueColumn& column : columns_) output_.Print(",{}", QuotedWhereNeeded(column.heading));
        output_.Write("\n");
        Progress progress("Writing", output_.IsTerminal() ? 0 : static_cast<std::uint64_t>(rows_));
        for (std::int32_t row = 1; row <= rows_; ++row) {
            if (const auto x = XCell(row)) output_.Write(*x);
            for (const ValueColumn& column : columns_) {
                output_.Write(",");
                if (row <= column.count) output_.Write(Exact(column.value(row)));
            }
            output_.Write("\n");
            if (row % 4096 == 0) progress.Update(static_cast<std::uint64_t>(row));
        }
    }

    void AsTable()
    {
        const std::string xHeading = XHeading(block_);
        const std::string format = fmt::format("{{:.{}g}}", XDigits());
        const auto xCell = [&](std::int32_t row) {
            const auto x = XValue(block_, row);
            return x ? fmt::format(fmt::runtime(format), *x) : "-";
        };
        const auto cell = [](const ValueColumn& column, std::int32_t row) {
            return row <= column.count ? Exact(column.value(row)) : "-";
        };

        std::size_t xWidth = Width(xHeading);
        std::vector<std::size_t> widths;
        for (const ValueColumn& column : columns_) widths.push_back(Width(column.heading));
        for (std::int32_t row = 1; row <= rows_; ++row) {
            xWidth = std::max(xWidth, xCell(row).size());
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                widths[i] = std::max(widths[i], cell(columns_[i], row).size());
            }
        }
        output_.Write(Padded(xHeading, xWidth, Align::Right));
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            output_.Print("  {}", Padded(columns_[i].heading, widths[i], Align::Right));
        }
        for (std::int32_t row = 1; row <= rows_; ++row) {
            output_.Print("\n{:>{}}", xCell(row), xWidth);
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                output_.Print("  {:>{}}", cell(columns_[i], row), widths[i]);
            }
        }
        output_.Write("\n");
    }

    void AsJson()
    {
        output_.Print("{{\n  \"file\": {},\n", Quoted(Shown(file_.Path())));
        output_.Print("  \"label\": {},\n", Quoted(platform::ToUtf8(block_.Label)));
        output_.Print("  \"format\": {},\n", Quoted(DataFormatName(block_.DataFormat)));
        output_.Print("  \"xaxis\": {{\n    \"spacing\": {},\n", Quoted(SpacingName(block_.XaxisSpacing)));
        if (HasUniformXaxis(block_)) {
            output_.Print("    \"start\": {},\n", JsonText(JsonNumber(block_.XaxisStart), -1));
            output_.Print("    \"increment\": {},\n", JsonText(JsonNumber(block_.XaxisIncrement), -1));
        }
        output_.Print("    \"units\": {},\n", Quoted(platform::ToUtf8(XaxisUnitsText(block_))));
        WriteArray("    ", "values", rows_, [this](std::int32_t row) {
            const auto x = XValue(block_, row);
            if (!x) return std::string("null");
            // Explicit X values are 32-bit values.
            return HasUniformXaxis(block_) ? JsonValue(*x) : JsonValue(static_cast<float>(*x));
        });
        output_.Write("\n  },\n  \"traces\": [");
        const std::size_t columnsPerTrace = block_.DataFormat == ComplexFormat ? 2 : 1;
        for (std::size_t i = 0; i < traces_.size(); ++i) {
            const Trace& trace = block_.Traces[traces_[i]];
            output_.Print("{}\n    {{\n      \"number\": {},\n", i == 0 ? "" : ",", traces_[i]);
            output_.Print("      \"label\": {},\n", Quoted(platform::ToUtf8(trace.Label)));
            output_.Print("      \"units\": {},\n", Quoted(platform::ToUtf8(trace.MeasurementUnits)));
            const auto writeColumn = [this](std::string_view name, const ValueColumn& column) {
                WriteArray("      ", name, column.count,
                           [&](std::int32_t row) { return JsonValue(column.value(row)); });
            };
            if (columnsPerTrace == 2) {
                writeColumn("real", columns_[2 * i]);
                output_.Write(",\n");
                writeColumn("imaginary", columns_[2 * i + 1]);
            } else {
                writeColumn("values", columns_[i]);
            }
            output_.Write("\n    }");
        }
        output_.Write("\n  ]\n}\n");
    }

private:
    static std::string Quoted(const std::string& text) { return JsonText(text, -1); }

    // JsonNumber is for a few values; this is the same for millions.
    template <class Value>
    static std::string JsonValue(Value value)
    {
        if (std::isfinite(value)) return fmt::format("{}", value);
        return JsonText(JsonNumber(value), -1);
    }

    template <class ValueOf>
    void WriteArray(std::string_view indent, std::string_view name, std::int32_t count, ValueOf valueOf)
    {
        output_.Print("{}\"{}\": [", indent, name);
        for (std::int32_t row = 1; row <= count; ++row) {
            if (row > 1) output_.Write(row % 8 == 1 ? "," : ", ");
            if (row % 8 == 1 && row > 1) output_.Print("\n{}  ", indent);
            output_.Write(valueOf(row));
        }
        output_.Write("]");
    }

    // The X value in full; nothing where there is none.
    std::optional<std::string> XCell(std::int32_t row) const
    {
        const auto x = XValue(block_, row);
        if (!x) return std::nullopt;
        // Explicit X values are 32-bit values.
        return HasUniformXaxis(block_) ? Exact(*x) : Exact(static_cast<float>(*x));
    }

    // Digits with which neighbours on a uniform axis differ in the last but one; 9 tell any two 32-bit values apart.
    int XDigits() const
    {
        if (!HasUniformXaxis(block_)) return 9;
        const double largest =
            std::max(std::abs(XValue(block_, 1).value_or(0)), std::abs(XValue(block_, rows_).value_or(0)));
        const double steps = largest / std::abs(double{block_.XaxisIncrement});
        return std::isfinite(steps) && steps > 1 ? std::clamp(static_cast<int>(std::log10(steps)) + 3, 6, 15) : 6;
    }

    const DocumentFile& file_;
    const DataBlock& block_;
    std::vector<int> traces_;
    std::vector<ValueColumn> columns_;
    Output& output_;
    std::int32_t rows_ = 0;
};

} // namespace

void WriteDataBlockCsv(const DocumentFile& file, const DataBlock& block, std::vector<int> traces, Output& output)
{
    Dump(file, block, std::move(traces), output).AsCsv();
}

ExitCode RunDump(const DumpOptions& options, Output& output)
{
    DocumentFile file(options.file);
    DataBlock block;
    const auto isWanted = [&](std::int32_t number) {
        return options.traces.empty() || std::ranges::find(options.traces, number) != options.traces.end();
    };
    const LoadResult result = file.LoadDataBlock(block, {true, isWanted});
    if (result.error != NoError) WarnOfMissingEndMarker(options.file);
    std::vector<int> traces = options.traces;
    for (const int number : traces) {
        if (block.Traces.Has(number)) continue;
        throw UsageError(
            fmt::format("{} has no trace {}; it has {}", options.file, number, Counted(block.Traces.Count(), "trace")));
    }
    for (std::int32_t number = 1; options.traces.empty() && number <= block.Traces.Count(); ++number) {
        traces.push_back(number);
    }
    Dump dump(file, block, std::move(traces), output);
    if (options.format == "csv") {
        dump.AsCsv();
    } else if (options.format == "json") {
        dump.AsJson();
    } else {
        dump.AsTable();
    }
    return Done;
}

} // namespace qor::tool
