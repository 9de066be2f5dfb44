// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Figures side by side with what they are timed beside: tables of a page, then one line "ratio NAME VALUE" each.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qor::bench {

// What work is timed beside. The times stand in the order of the work's own, so that those that were taken one right
// after the other make a pair.
struct ReferenceTimes {
    std::string beside;
    std::string suffix = {};           // behind the figure's name, makes the name of this ratio
    std::optional<double> atMost = {}; // the ratio that is wanted
    std::vector<double> seconds = {};
};

struct Figure {
    std::string name;
    std::vector<ReferenceTimes> references = {};
    std::string unit = {}; // "ms", "us" or "ns" where the time itself is printed as a figure too, as NAME_unit
    std::vector<double> seconds = {};
    // Bytes of the values themselves, where the work makes them anew: peak memory is told above them.
    double document = 0;
};

class Report
{
public:
    // Begins a table. The text tells what the work is about.
    void Begin(std::string title, std::string text);
    // Adds a row to the table begun last. Rows without times are left out. The figure stays where it is.
    Figure& Add(Figure figure);
    // The most memory, in bytes above what was in use before, that the work took, or that of its reference with that
    // suffix.
    void SetPeak(const std::string& name, double bytes) { peaks_[name] = bytes; }
    // A figure that is no time.
    void AddValue(const std::string& name, double value) { values_.emplace_back(name, value); }

    // The tables; what is wanted and was missed; the lines of the ratios.
    void Print() const;

private:
    struct Table {
        std::string title;
        std::string text;
        std::deque<Figure> figures;
    };

    void Print(const Table& table) const;
    std::string Peak(const std::string& name, double document) const;

    std::deque<Table> tables_;
    std::map<std::string, double> peaks_;
    std::vector<std::pair<std::string, double>> values_;
};

} // namespace qor::bench
