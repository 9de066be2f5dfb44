// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reads a Shape Table file. The component only writes them, so that the reader is the tool's own.
#pragma once

#include "fileio/RecordReader.h"
#include "shapetable/ShapeTableLayout.h"

#include <vector>

namespace qor::tool {

// As the file has it: values are real and imaginary parts there, not magnitude and phase, and the units have no
// blanks around them.
struct ShapeTableDocument {
    struct Value {
        float real = 0;
        float imaginary = 0;
    };

    ShapeTableTexts texts;
    std::vector<Shape> shapes;
    std::vector<DOF> dofs;     // DataSVT is the kind of data that the file tells
    std::vector<Value> values; // all DOFs of shape 1 first

    // Both indices count from 0.
    const Value& At(std::size_t shape, std::size_t dof) const { return values[shape * dofs.size() + dof]; }
};

// Reads what stands behind the preamble's version. False when the file is too short for what it says it holds;
// memory is only taken for what the file has bytes for.
bool Load_ShapeTable(RecordReader& file, ShapeTableDocument& document);

} // namespace qor::tool
