// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/ColumnPairs.h"

#include <algorithm>

namespace qor::tool {
namespace {

constexpr std::string_view RealWord = "re";
constexpr std::string_view ImaginaryWord = "im";

// The label without the word at its end; nothing when it ends otherwise.
std::optional<std::string_view> WithoutLastWord(std::string_view label, std::string_view word)
{
    if (label == word) return "";
    if (label.size() <= word.size() || !label.ends_with(word)) return std::nullopt;
    label.remove_suffix(word.size());
    if (!label.ends_with(' ')) return std::nullopt;
    return TrimmedBlanks(label);
}

bool IsPair(const Heading& first, const Heading& second)
{
    const auto real = WithoutLastWord(first.label, RealWord);
    return real && real == WithoutLastWord(second.label, ImaginaryWord) && first.units == second.units;
}

Heading PairHeading(const Heading& first)
{
    return {std::string(WithoutLastWord(first.label, RealWord).value_or(first.label)), first.units};
}

Heading WithLastWord(const Heading& heading, std::string_view word)
{
    std::string label = heading.label;
    if (!label.empty()) label += ' ';
    label += word;
    return {label, heading.units};
}

} // namespace

std::optional<std::vector<TraceColumns>> PairColumns(std::span<const Heading> headings, ComplexColumns complexColumns)
{
    if (complexColumns == ComplexColumns::All && headings.size() % 2 != 0) return std::nullopt;
    std::vector<TraceColumns> traces;
    for (std::size_t i = 0; i < headings.size(); ++i) {
        const bool pair =
            complexColumns == ComplexColumns::All || (complexColumns == ComplexColumns::ByHeading &&
                                                      i + 1 < headings.size() && IsPair(headings[i], headings[i + 1]));
        if (pair) {
            traces.push_back({i, i + 1, PairHeading(headings[i])});
            ++i;
        } else {
            traces.push_back({i, std::nullopt, headings[i]});
        }
    }
    return traces;
}

Heading RealPartHeading(const Heading& heading) { return WithLastWord(heading, RealWord); }
Heading ImaginaryPartHeading(const Heading& heading) { return WithLastWord(heading, ImaginaryWord); }

} // namespace qor::tool
