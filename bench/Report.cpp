// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace qor::bench {
namespace {

constexpr double MiB = 1024 * 1024;

struct Spread {
    double lower; // quartiles
    double median;
    double upper;
};

Spread SpreadOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const auto at = [&](double part) {
        const double place = part * static_cast<double>(values.size() - 1);
        const auto below = static_cast<std::size_t>(place);
        const auto above = std::min(below + 1, values.size() - 1);
        return std::lerp(values[below], values[above], place - std::floor(place));
    };
    return {at(0.25), at(0.5), at(0.75)};
}

Spread RatiosOf(const Figure& figure, const ReferenceTimes& reference)
{
    std::vector<double> ratios;
    for (std::size_t run = 0; run < figure.seconds.size(); ++run)
        ratios.push_back(figure.seconds[run] / reference.seconds[run]);
    return SpreadOf(std::move(ratios));
}

// With three digits that tell, two behind the point at most for a number above 0.1.
std::string Digits(double value)
{
    const double size = std::abs(value);
    const int places = size >= 99.95 ? 0 : size >= 9.995 ? 1 : size >= 0.0995 ? 2 : 3;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f", places, value);
    return text.data();
}

// The median with half the distance of the quartiles.
std::string Time(const std::vector<double>& seconds)
{
    const Spread spread = SpreadOf(seconds);
    double value = spread.median;
    const char* unit = "s";
    for (const char* smaller : {"ms", "µs", "ns"}) {
        if (value >= 1) break;
        value *= 1000;
        unit = smaller;
    }
    const double percent = (spread.upper - spread.lower) / 2 / spread.median * 100;
    std::array<char, 32> around{};
    std::snprintf(around.data(), around.size(), " ±%.0f%%", percent);
    return Digits(value) + " " + unit + around.data();
}

std::string Ratio(const Spread& ratios)
{
    return Digits(ratios.median) + " (" + Digits(ratios.lower) + "-" + Digits(ratios.upper) + ")";
}

std::string Wanted(const ReferenceTimes& reference, double ratio)
{
    if (!reference.atMost) return {};
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3g ", *reference.atMost);
    return text.data() + std::string(ratio <= *reference.atMost ? "met" : "missed");
}

// Characters of a text in UTF-8.
std::size_t Width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char unit) { return (unit & 0xC0) != 0x80; }));
}

using Row = std::vector<std::string>;

// A table in Markdown. A column that says nothing is left out.
void PrintRows(const std::vector<Row>& rows)
{
    std::vector<std::size_t> widths(rows[0].size());
    for (std::size_t column = 0; column < widths.size(); ++column) {
        const bool says =
            std::any_of(rows.begin() + 1, rows.end(), [&](const Row& row) { return !row[column].empty(); });
        for (const Row& row : rows) widths[column] = says ? std::max(widths[column], Width(row[column])) : 0;
    }
    for (const Row& row : rows) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            if (widths[column] == 0) continue;
            std::printf("| %s%*s ", row[column].c_str(), static_cast<int>(widths[column] - Width(row[column])), "");
        }
        std::printf("|\n");
        if (&row != &rows[0]) continue;
        for (const std::size_t width : widths) {
            if (width > 0) std::printf("|%s", std::string(width + 2, '-').c_str());
        }
        std::printf("|\n");
    }
}

void PrintRatio(const std::string& name, double value) { std::printf("ratio %s %.3f\n", name.c_str(), value); }

double PerSecond(const std::string& unit) { return unit == "ms" ? 1e3 : unit == "us" ? 1e6 : 1e9; }

} // namespace

void Report::Begin(std::string title, std::string text) { tables_.push_back({std::move(title), std::move(text), {}}); }

Figure& Report::Add(Figure figure) { return tables_.back().figures.emplace_back(std::move(figure)); }

std::string Report::Peak(const std::string& name, double document) const
{
    const auto peak = peaks_.find(name);
    return peak == peaks_.end() ? std::string() : Digits((peak->second - document) / MiB);
}

void Report::Print(const Table& table) const
{
    std::vector<Row> rows{{"Figure", "Time", "MiB", "Beside", "Its time", "MiB", "Ratio (quartiles)", "At most"}};
    for (const Figure& figure : table.figures) {
        if (figure.seconds.empty()) continue;
        Row row{figure.name, Time(figure.seconds), Peak(figure.name, figure.document), "", "", "", "", ""};
        for (const ReferenceTimes& reference : figure.references) {
            const Spread ratios = RatiosOf(figure, reference);
            row[3] = reference.beside;
            row[4] = Time(reference.seconds);
            row[5] = reference.suffix.empty() ? "" : Peak(figure.name + reference.suffix, figure.document);
            row[6] = Ratio(ratios);
            row[7] = Wanted(reference, ratios.median);
            rows.push_back(std::exchange(row, Row(row.size())));
        }
        if (figure.references.empty()) rows.push_back(row);
    }
    if (rows.size() == 1) return;
    std::printf("### %s\n\n%s\n\n", table.title.c_str(), table.text.c_str());
    PrintRows(rows);
    std::printf("\n");
}

void Report::Print() const
{
    for (const Table& table : tables_) Print(table);

    int wanted = 0;
    std::string missed;
    const auto forEach = [&](auto work) {
        for (const Table& table : tables_) {
            for (const Figure& figure : table.figures) {
                if (!figure.seconds.empty()) work(figure);
            }
        }
    };
    forEach([&](const Figure& figure) {
        for (const ReferenceTimes& reference : figure.references) {
            if (!reference.atMost) continue;
            ++wanted;
            if (RatiosOf(figure, reference).median > *reference.atMost)
                missed += (missed.empty() ? "" : ", ") + figure.name + reference.suffix;
        }
    });
    if (wanted > 0)
        std::printf("Of %d figures with a limit, missed: %s.\n\n", wanted, missed.empty() ? "none" : missed.c_str());

    forEach([&](const Figure& figure) {
        for (const ReferenceTimes& reference : figure.references)
            PrintRatio(figure.name + reference.suffix, RatiosOf(figure, reference).median);
        if (!figure.unit.empty())
            PrintRatio(figure.name + "_" + figure.unit, SpreadOf(figure.seconds).median * PerSecond(figure.unit));
    });
    for (const auto& [name, value] : values_) PrintRatio(name, value);
}

} // namespace qor::bench
