// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Where a shape is largest.
#pragma once

#include "tools/documents/ShapeTableFile.h"

#include <optional>

namespace qor::tool {

struct ShapeStatistics {
    std::int32_t notNumbers = 0;      // values with a NaN in them, which are left out
    std::optional<std::size_t> dof{}; // of the largest value, from 0, the first of equal ones; nothing without numbers
    double magnitude = 0;
    float phase = 0; // degrees, -180 to 180
};

// The shape counts from 0.
ShapeStatistics StatisticsOf(const ShapeTableDocument& document, std::size_t shape);

} // namespace qor::tool
