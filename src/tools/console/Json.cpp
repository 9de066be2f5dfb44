// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/Json.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

namespace qor::tool {
namespace {

template <class Value>
Json ShortestJsonNumber(Value value)
{
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
    return std::strtod(fmt::format("{}", value).c_str(), nullptr);
}

} // namespace

Json JsonNumber(float value) { return ShortestJsonNumber(value); }
Json JsonNumber(double value) { return ShortestJsonNumber(value); }

std::string JsonText(const Json& value, int indent)
{
    const std::string text = value.dump(indent, ' ', false, Json::error_handler_t::replace);
    // Controls beyond the first 32 may stand in JSON as they are, but a terminal obeys them.
    std::string safe;
    safe.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0U;
        if (byte == 0x7F) {
            safe += "\\u007f";
        } else if (byte == 0xC2 && next < 0xA0) {
            safe += fmt::format("\\u{:04x}", next);
            ++i;
        } else {
            safe += text[i];
        }
    }
    return safe;
}

} // namespace qor::tool
