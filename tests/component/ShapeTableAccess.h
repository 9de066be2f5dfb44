// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Short forms of the Shape Table members for tests.
#pragma once

#include "component/DataBlockAccess.h"

namespace qor::test {

inline SampleRead ReadShape(clsQOR_File& file, std::int32_t shape, std::int32_t dof)
{
    SampleRead read;
    read.status = file.ReadShapeDOFvalue(shape, dof, read.first, read.second);
    return read;
}

inline void SizeShapes(clsQOR_File& file, std::int32_t shapes, std::int32_t dofs)
{
    file.InitializeShapeTableStorage();
    file.ShapeTable_NumberOfShapes(shapes);
    file.ShapeTable_NumberOfDOFs(dofs);
}

// What NumberValues stores there.
inline SampleRead Numbered(std::int32_t shape, std::int32_t dof)
{
    return Holds(static_cast<float>(100 * shape + dof), static_cast<float>(-dof));
}

// Gives every value of the table a number of its own.
inline void NumberValues(clsQOR_File& file)
{
    for (std::int32_t shape = 1; shape <= file.ShapeTable_NumberOfShapes(); ++shape) {
        for (std::int32_t dof = 1; dof <= file.ShapeTable_NumberOfDOFs(); ++dof) {
            const SampleRead value = Numbered(shape, dof);
            file.WriteShapeDOFvalue(shape, dof, value.first, value.second);
        }
    }
}

} // namespace qor::test
