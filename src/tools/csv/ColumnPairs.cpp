// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/ColumnPairs.h"

#include <algorithm>
#include <utility>

namespace qor::tool {
namespace {

// What a dump writes, and what measuring programs write. Letter case does not count.
constexpr std::string_view RealWord = "re";
constexpr std::string_view ImaginaryWord = "im";
constexpr std::pair<std::string_view, std::string_view> PairWords[] = {
    {RealWord, ImaginaryWord}, {"real", "imag"}, {"real", "imaginary"}};

char LowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

bool EndsWithWord(std::string_view label, std::string_view word)
{
    return label.size() >= word.size() &&
           std::ranges::equal(label.substr(label.size() - word.size()), word, {}, LowerCase) &&
           (label.size() == word.size() || label[label.size() - word.size() - 1] == ' ');
}

// The label without the word at its end; nothing when it ends otherwise.
std::optional<std::string_view> WithoutLastWord(std::string_view label, std::string_view word)
{
    if (!EndsWithWord(label, word)) return std::nullopt;
    return TrimmedBlanks(label.substr(0, label.size() - word.size()));
}

bool IsPair(const Heading& first, const Heading& second)
{
    return first.units == second.units && std::ranges::any_of(PairWords, [&](const auto& words) {
               const auto real = WithoutLastWord(first.label, words.first);
               return real && real == WithoutLastWord(second.label, words.second);
           });
}

Heading PairHeading(const Heading& first)
{
    for (const auto& words : PairWords) {
        if (const auto label = WithoutLastWord(first.label, words.first)) return {std::string(*label), first.units};
    }
    return first;
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
