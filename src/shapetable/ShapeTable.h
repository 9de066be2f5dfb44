// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Shape Table document: mode shapes or operating shapes, one magnitude and phase per shape and DOF. The
// arrays are a thread's, the counts an object's: two objects may size the same arrays differently, so every
// access looks at the arrays too. What stands in its file: docs/formats/shapetable.md.
#pragma once

#include "platform/Memory.h"

#include <QOR_File/Enumerations.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qor {

struct Shape {
    std::u16string Label;
    float Ordinate = 0; // the shape's place on the ordinate axis, as its frequency
    float Damping = 0;
    std::u16string DateAndTime;
    std::u16string OrdinateUnits;
};

struct DOF {
    std::u16string Label;
    std::u16string DegreesOfFreedom;
    std::int32_t DataSVT = 0;         // SVTvalues; 0 in a DOF that was never written
    std::int32_t MeasurementType = 0; // ShapeTable_MeasurementTypes
    std::u16string MeasurementUnits;
};

struct ShapeValue {
    float Magnitude = 0;
    float Phase = 0; // degrees
};

// One value per shape and DOF, all DOFs of shape 1 first. Numbers count from 1.
class ShapeMatrix
{
public:
    std::int32_t Shapes() const { return shapes_; }
    std::int32_t DOFs() const { return dofs_; }
    bool Has(std::int32_t shape, std::int32_t dof) const;
    const ShapeValue& At(std::int32_t shape, std::int32_t dof) const { return values_[Place(shape, dof)]; }
    ShapeValue& At(std::int32_t shape, std::int32_t dof) { return values_[Place(shape, dof)]; }
    // All values of a shape, empty where it has none.
    std::span<const ShapeValue> Row(std::int32_t shape) const;
    std::span<ShapeValue> Row(std::int32_t shape);

    // A matrix of zeros. Nothing when memory is refused.
    [[nodiscard]] static std::optional<ShapeMatrix> Zeros(std::int32_t shapes, std::int32_t dofs);
    // Changes the number of shapes, values that fit kept. False, the matrix as it was, as above.
    [[nodiscard]] bool ResizeShapes(std::int32_t shapes);

private:
    std::size_t Place(std::int32_t shape, std::int32_t dof) const;

    std::int32_t shapes_ = 0;
    std::int32_t dofs_ = 0;
    std::vector<ShapeValue> values_;
};

// The arrays, shared by the objects of a thread. An empty one is absent.
struct ShapeTable {
    std::vector<Shape> Shapes;
    std::vector<DOF> DOFs;
    std::optional<ShapeMatrix> ShapeValues;
};

// What an object has of its own.
struct ShapeTableCounts {
    std::int32_t NumberOfShapes = 0;
    std::int32_t NumberOfDOFs = 0;
    bool ShapeTableAllocated = false;
};

// Empties arrays and counts.
void InitializeShapeTableStorage(ShapeTable& table, ShapeTableCounts& counts);

// Brings the arrays in line with the counts. Records that fit are kept. Values are kept only in the odd case
// that the published, crossed comparison of extents allows. AllocationError, and the table emptied, when an array
// would be too large, all of them more than the memory, in bytes, or when the system refuses.
ErrorStatusTypes AllocateShapeTable(ShapeTable& table, ShapeTableCounts& counts,
                                    std::uint64_t memory = platform::UsableMemory());

} // namespace qor
