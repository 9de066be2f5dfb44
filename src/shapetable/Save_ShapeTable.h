// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Writes a Shape Table as a file.
#pragma once

#include "platform/ByteStream.h"
#include "shapetable/ShapeTableLayout.h"

namespace qor {

// Whether there is anything to write: shapes times DOFs is above 0 and fits 32 bits.
bool IsWritable(const ShapeTableCounts& counts);

// Writes the whole table. Failure, with what came before left written, when a write fails, when the counts go
// beyond the arrays, when a measurement type does not fit 16 bits, when a magnitude or phase is infinite, and when
// there is no memory to write with.
ReturnStatus SaveShapeTable(ByteSink& sink, const ShapeTable& table, const ShapeTableCounts& counts,
                            const ShapeTableTexts& texts);

} // namespace qor
