// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "shapetable/ShapeTable.h"

#include "platform/Memory.h"

#include <algorithm>
#include <new>

namespace qor {
namespace {

constexpr std::int64_t LargestArray = 2147483647;

bool FitsOneArray(std::int64_t elements, std::size_t width)
{
    const std::uint64_t most = std::min<std::uint64_t>(LargestArray, platform::UsableMemory());
    return static_cast<std::uint64_t>(elements) <= most / width;
}

template <class Record>
bool ResizeRecords(std::vector<Record>& records, std::int32_t count)
{
    if (!FitsOneArray(count, sizeof(Record))) return false;
    try {
        records.resize(static_cast<std::size_t>(count));
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool ReallocateValues(std::optional<ShapeMatrix>& values, const ShapeTableCounts& counts)
{
    if (counts.NumberOfShapes == 0 || counts.NumberOfDOFs == 0) {
        values.reset();
        return true;
    }
    // Crossed on purpose: each extent is compared with the count of the other, as published. A table whose
    // counts differ therefore gets fresh zeros whenever a count is set.
    const bool shapesDiffer = values && values->Shapes() != counts.NumberOfDOFs;
    const bool dofsDiffer = values && values->DOFs() != counts.NumberOfShapes;
    if (values && !shapesDiffer && !dofsDiffer) return true;
    if (values && !shapesDiffer) {
        return values->DOFs() == counts.NumberOfDOFs && values->ResizeShapes(counts.NumberOfShapes);
    }
    values.reset();
    values = ShapeMatrix::Zeros(counts.NumberOfShapes, counts.NumberOfDOFs);
    return values.has_value();
}

} // namespace

bool ShapeMatrix::Has(std::int32_t shape, std::int32_t dof) const
{
    return shape >= 1 && shape <= shapes_ && dof >= 1 && dof <= dofs_;
}

std::size_t ShapeMatrix::Place(std::int32_t shape, std::int32_t dof) const
{
    return static_cast<std::size_t>(shape - 1) * static_cast<std::size_t>(dofs_) + static_cast<std::size_t>(dof - 1);
}

std::optional<ShapeMatrix> ShapeMatrix::Zeros(std::int32_t shapes, std::int32_t dofs)
{
    ShapeMatrix matrix;
    matrix.dofs_ = dofs;
    if (!matrix.ResizeShapes(shapes)) return std::nullopt;
    return matrix;
}

bool ShapeMatrix::ResizeShapes(std::int32_t shapes)
{
    if (!FitsOneArray(std::int64_t{shapes} * dofs_, sizeof(ShapeValue))) return false;
    try {
        values_.resize(static_cast<std::size_t>(shapes) * static_cast<std::size_t>(dofs_));
    } catch (const std::bad_alloc&) {
        return false;
    }
    shapes_ = shapes;
    return true;
}

void InitializeShapeTableStorage(ShapeTable& table, ShapeTableCounts& counts)
{
    table = ShapeTable();
    counts = ShapeTableCounts();
}

ErrorStatusTypes AllocateShapeTable(ShapeTable& table, ShapeTableCounts& counts)
{
    const bool allocated = ResizeRecords(table.DOFs, counts.NumberOfDOFs) &&
                           ResizeRecords(table.Shapes, counts.NumberOfShapes) &&
                           ReallocateValues(table.ShapeValues, counts);
    if (!allocated) {
        InitializeShapeTableStorage(table, counts);
        return AllocationError;
    }
    counts.ShapeTableAllocated = counts.NumberOfDOFs > 0 || counts.NumberOfShapes > 0;
    return NoError;
}

} // namespace qor
