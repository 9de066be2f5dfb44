// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "shapetable/ShapeTable.h"

#include <new>

namespace qor {
namespace {

constexpr std::int64_t LargestArray = 2147483647;

// Whether each array that the counts ask for can be one, and all together fit the memory.
bool Fits(const ShapeTableCounts& counts, std::uint64_t memory)
{
    struct Array {
        std::int64_t elements;
        std::int64_t width;
    };
    const Array arrays[] = {{counts.NumberOfDOFs, sizeof(DOF)},
                            {counts.NumberOfShapes, sizeof(Shape)},
                            {std::int64_t{counts.NumberOfShapes} * counts.NumberOfDOFs, sizeof(ShapeValue)}};
    std::uint64_t bytes = 0;
    for (const auto& [elements, width] : arrays) {
        if (elements > LargestArray / width) return false;
        bytes += static_cast<std::uint64_t>(elements * width);
    }
    return bytes <= memory;
}

template <class T>
bool Resize(std::vector<T>& elements, std::size_t count)
{
    try {
        const bool shrinks = count < elements.size();
        elements.resize(count);
        if (shrinks) elements.shrink_to_fit();
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

std::span<const ShapeValue> ShapeMatrix::Row(std::int32_t shape) const
{
    if (!Has(shape, 1)) return {};
    return {&At(shape, 1), static_cast<std::size_t>(dofs_)};
}
std::span<ShapeValue> ShapeMatrix::Row(std::int32_t shape)
{
    if (!Has(shape, 1)) return {};
    return {&At(shape, 1), static_cast<std::size_t>(dofs_)};
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
    if (!Resize(values_, static_cast<std::size_t>(shapes) * static_cast<std::size_t>(dofs_))) return false;
    shapes_ = shapes;
    return true;
}

void InitializeShapeTableStorage(ShapeTable& table, ShapeTableCounts& counts)
{
    table = ShapeTable();
    counts = ShapeTableCounts();
}

ErrorStatusTypes AllocateShapeTable(ShapeTable& table, ShapeTableCounts& counts, std::uint64_t memory)
{
    const bool allocated = Fits(counts, memory) && Resize(table.DOFs, static_cast<std::size_t>(counts.NumberOfDOFs)) &&
                           Resize(table.Shapes, static_cast<std::size_t>(counts.NumberOfShapes)) &&
                           ReallocateValues(table.ShapeValues, counts);
    if (!allocated) {
        InitializeShapeTableStorage(table, counts);
        return AllocationError;
    }
    counts.ShapeTableAllocated = counts.NumberOfDOFs > 0 || counts.NumberOfShapes > 0;
    return NoError;
}

} // namespace qor
