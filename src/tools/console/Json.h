// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// JSON as the tool prints it.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace qor::tool {

using Json = nlohmann::ordered_json;

// A value as JSON has it: the shortest number that reads back as the same 32-bit or 64-bit value, or one of the
// texts "NaN", "Infinity" and "-Infinity".
Json JsonNumber(float value);
Json JsonNumber(double value);
// The JSON text of a value, in which no character can steer a terminal.
std::string JsonText(const Json& value, int indent);

} // namespace qor::tool
