// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Texts on their way between documents, CSV files and people. What comes from a file is not trusted: control
// characters could steer a terminal, so that they are never shown as they are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qor::tool {

// The text as UTF-8 that is safe to show on one line: control characters, those that reorder text, and bytes that
// are no UTF-8 become U+FFFD.
std::string Shown(std::u16string_view text);
std::string Shown(std::string_view bytes);

// Text from a file or the command line: UTF-8, or, where it is not that, Windows-1252.
std::u16string TextOf(std::string_view bytes);

// Columns that the UTF-8 text takes in a terminal with a fixed-width font.
std::size_t Width(std::string_view text);

// The text if it takes at most that many columns, else its beginning and "…".
std::string Shortened(std::string_view text, std::size_t width);

std::string_view TrimmedBlanks(std::string_view text);

// A label with its units, as a heading of a CSV file has them: "Accel 1 [g]".
struct Heading {
    std::string label;
    std::string units;

    friend bool operator==(const Heading&, const Heading&) = default;
};
// The brackets at the end are the units. Without any, all is the label.
Heading SplitHeading(std::string_view text);
// The opposite: what it returns splits into the same two again.
std::string JoinHeading(const Heading& heading);

// A number of things in words: "1 trace", "72,000 samples".
std::string Counted(long long count, std::string_view thing);
// 72000 as "72,000".
std::string Grouped(long long number);

} // namespace qor::tool
