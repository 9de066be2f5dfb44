// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Names for the codes in documents, as they are shown and as they are taken from the command line. A code that has no
// name is shown as "code 99".
#pragma once

#include <QOR_File/Enumerations.h>

#include <optional>
#include <string>
#include <string_view>

namespace qor::tool {

// Of a trace: "FRF", "TimeResponse".
std::string MeasurementTypeName(std::int32_t type);
// Letter case, blanks, - and _ do not count: "time response" is TimeResponse.
std::optional<DataBlock_MeasurementTypes> MeasurementTypeOf(std::string_view name);
// All names, separated by commas.
std::string MeasurementTypeNames();

// Of a DOF of a Shape Table: "UnitModalMass", or one of those of a trace.
std::string ShapeMeasurementTypeName(std::int32_t type);
// "Vector", "Scalar", "Tensor", ... of SVTvalues.
std::string DataSVTName(std::int32_t kind);
// "Rectangular", "Cylindrical", ... of PointTypes.
std::string PointTypeName(std::int32_t type);
// "X", "Y", "Z" of AxisNumbers.
std::string AxisName(std::int32_t axis);

std::string SpacingName(std::int32_t spacing);
// "real", "complex"; "real (code 7)" for others, whose samples are kept as real values.
std::string DataFormatName(std::int32_t format);

// The code of well-known X-axis units ("s", "ms", "Hz", "RPM", ...); NullX_AxisLabel for all others.
XaxisUnitsAre XaxisUnitsCodeOf(std::string_view units);
// The units of a code, empty for NullX_AxisLabel and unknown codes.
std::string_view XaxisUnitsName(std::int32_t code);

} // namespace qor::tool
