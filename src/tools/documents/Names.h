// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Names for the codes of a Data Block, as they are shown and as they are taken from the command line.
#pragma once

#include <QOR_File/Enumerations.h>

#include <optional>
#include <string>
#include <string_view>

namespace qor::tool {

// "FRF", "TimeResponse"; "code 99" for one that has no name.
std::string MeasurementTypeName(std::int32_t type);
// Letter case, blanks, - and _ do not count: "time response" is TimeResponse.
std::optional<DataBlock_MeasurementTypes> MeasurementTypeOf(std::string_view name);
// All names, separated by commas.
std::string MeasurementTypeNames();

std::string SpacingName(std::int32_t spacing);
// "real", "complex"; "real (code 7)" for others, whose samples are kept as real values.
std::string DataFormatName(std::int32_t format);

// The code of well-known X-axis units ("s", "ms", "Hz", "RPM", ...); NullX_AxisLabel for all others.
XaxisUnitsAre XaxisUnitsCodeOf(std::string_view units);
// The units of a code, empty for NullX_AxisLabel and unknown codes.
std::string_view XaxisUnitsName(std::int32_t code);

} // namespace qor::tool
