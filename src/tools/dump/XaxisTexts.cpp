// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/XaxisTexts.h"

#include "datablock/DataBlockLayout.h"
#include "tools/console/Text.h"
#include "tools/csv/XaxisDetection.h"
#include "tools/documents/DocumentFile.h"
#include "tools/dump/JsonParts.h"
#include "tools/dump/ValueTable.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace qor::tool {
namespace {

// 32-bit values cannot count further.
constexpr std::int32_t MostDistinct = 1 << 24;

// Digits with which neighbours on a uniform axis differ in the last but one; 9 tell any two 32-bit values apart.
int DigitsToRead(const DataBlock& block, std::int32_t samples)
{
    if (!HasUniformXaxis(block)) return 9;
    const double largest =
        std::max(std::abs(XValue(block, 1).value_or(0)), std::abs(XValue(block, samples).value_or(0)));
    const double steps = largest / std::abs(double{block.XaxisIncrement});
    return std::isfinite(steps) && steps > 1 ? std::clamp(static_cast<int>(std::log10(steps)) + 3, 6, 15) : 6;
}

// Whether qor import finds the very start and increment again in X values of 32 bits.
bool Are32BitsEnough(const DataBlock& block, std::int32_t samples)
{
    if (!HasUniformXaxis(block) || samples < 2 || !(block.XaxisIncrement > 0)) return true; // no axis to be found
    if (samples > MostDistinct) return false;
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(samples));
    TextPrecision precision;
    for (std::int32_t sample = 1; sample <= samples; ++sample) {
        const std::string text = ExactText(static_cast<float>(*XValue(block, sample)));
        precision.Add(text);
        values.push_back(std::strtod(text.c_str(), nullptr));
    }
    const auto axis = DetectUniform(values, precision);
    return axis && static_cast<float>(axis->start) == block.XaxisStart &&
           static_cast<float>(axis->increment) == block.XaxisIncrement;
}

} // namespace

XaxisTexts::XaxisTexts(const DataBlock& block, std::int32_t samples)
    : block_(block), digits_(DigitsToRead(block, samples)), is64Bit_(!Are32BitsEnough(block, samples))
{}

std::string XaxisTexts::Heading() const { return JoinHeading({"X", Shown(XaxisUnitsText(block_))}); }

std::optional<std::string> XaxisTexts::Exact(std::int32_t sample) const
{
    const auto x = XValue(block_, sample);
    if (!x) return std::nullopt;
    return is64Bit_ ? ExactText(*x) : ExactText(static_cast<float>(*x));
}

std::optional<std::string> XaxisTexts::AsJson(std::int32_t sample) const
{
    const auto x = XValue(block_, sample);
    if (!x) return std::nullopt;
    return is64Bit_ ? JsonValue(*x) : JsonValue(static_cast<float>(*x));
}

std::optional<std::string> XaxisTexts::Rounded(std::int32_t sample) const
{
    const auto x = XValue(block_, sample);
    if (!x) return std::nullopt;
    return fmt::format("{:.{}g}", *x, digits_);
}

} // namespace qor::tool
