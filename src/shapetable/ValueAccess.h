// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The rules by which shapes, DOFs and their values are reached. Nothing outside an array is ever touched: where a count
// allows what the arrays do not hold, as it may after another object sized them, the access is skipped and succeeds.
#pragma once

#include "shapetable/ShapeTable.h"

#include <span>

namespace qor {

ErrorStatusTypes CheckShape(std::int32_t number, std::int32_t count, ErrorStatusTypes indexError);
ErrorStatusTypes CheckDOF(std::int32_t number, std::int32_t count);

// The counts of one who has sized nothing: those of the records.
ShapeTableCounts CountsOf(const ShapeTable& table);

// One value. A bad shape number is a SampleIndexError when reading, a ShapeIndexError when writing, as published.
ErrorStatusTypes ReadShapeValue(const ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                std::int32_t dof, float& magnitude, float& phase);
ErrorStatusTypes WriteShapeValue(ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                 std::int32_t dof, float magnitude, float phase);

// All values of a shape at once. Each array has one element a DOF, else DOFIndexError; phases may also be empty: not
// wanted when read, zeros when written.
ErrorStatusTypes ReadShapeValues(const ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                 std::span<float> magnitudes, std::span<float> phases);
ErrorStatusTypes WriteShapeValues(ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                  std::span<const float> magnitudes, std::span<const float> phases);

} // namespace qor
