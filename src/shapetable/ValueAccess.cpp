// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "shapetable/ValueAccess.h"

#include <algorithm>
#include <utility>

namespace qor {
namespace {

bool InRange(std::int32_t number, std::int32_t count) { return number >= 1 && number <= count; }

ErrorStatusTypes CheckValue(const ShapeTableCounts& counts, std::int32_t shape, std::int32_t dof,
                            ErrorStatusTypes shapeError)
{
    const ErrorStatusTypes error = CheckShape(shape, counts.NumberOfShapes, shapeError);
    if (error != NoError) return error;
    if (counts.NumberOfDOFs < 1) return DOFsNotAllocated;
    return CheckDOF(dof, counts.NumberOfDOFs);
}

ErrorStatusTypes CheckRead(const ShapeTableCounts& counts, std::int32_t shape, std::int32_t dof)
{
    return CheckValue(counts, shape, dof, SampleIndexError);
}
ErrorStatusTypes CheckWrite(const ShapeTableCounts& counts, std::int32_t shape, std::int32_t dof)
{
    return counts.ShapeTableAllocated ? CheckValue(counts, shape, dof, ShapeIndexError) : ShapeDataNotAllocated;
}

// Arrays for all DOFs are refused like the number behind the last one, after what the first one's number meets.
ErrorStatusTypes CheckLengths(const ShapeTableCounts& counts, std::size_t magnitudes, std::size_t phases)
{
    const bool whole = std::cmp_equal(magnitudes, counts.NumberOfDOFs) && (phases == 0 || phases == magnitudes);
    return whole ? NoError : DOFIndexError;
}

// The values that the matrix holds of those that the count asks for.
template <class Table>
auto Held(Table& table, std::int32_t shape, std::size_t count)
{
    using Row = decltype(table.ShapeValues->Row(shape));
    const Row row = table.ShapeValues ? table.ShapeValues->Row(shape) : Row{};
    return row.first(std::min(row.size(), count));
}

} // namespace

ErrorStatusTypes CheckShape(std::int32_t number, std::int32_t count, ErrorStatusTypes indexError)
{
    if (count < 1) return ShapeDataNotAllocated;
    return InRange(number, count) ? NoError : indexError;
}

ErrorStatusTypes CheckDOF(std::int32_t number, std::int32_t count)
{
    return InRange(number, count) ? NoError : DOFIndexError;
}

ShapeTableCounts CountsOf(const ShapeTable& table)
{
    ShapeTableCounts counts;
    counts.NumberOfShapes = static_cast<std::int32_t>(table.Shapes.size());
    counts.NumberOfDOFs = static_cast<std::int32_t>(table.DOFs.size());
    counts.ShapeTableAllocated = counts.NumberOfShapes > 0 || counts.NumberOfDOFs > 0;
    return counts;
}

ErrorStatusTypes ReadShapeValue(const ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                std::int32_t dof, float& magnitude, float& phase)
{
    const ErrorStatusTypes error = CheckRead(counts, shape, dof);
    if (error != NoError) return error;
    if (table.ShapeValues && table.ShapeValues->Has(shape, dof)) {
        const ShapeValue& value = table.ShapeValues->At(shape, dof);
        magnitude = value.Magnitude;
        phase = value.Phase;
    }
    return NoError;
}

ErrorStatusTypes WriteShapeValue(ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                 std::int32_t dof, float magnitude, float phase)
{
    const ErrorStatusTypes error = CheckWrite(counts, shape, dof);
    if (error != NoError) return error;
    if (table.ShapeValues && table.ShapeValues->Has(shape, dof)) table.ShapeValues->At(shape, dof) = {magnitude, phase};
    return NoError;
}

ErrorStatusTypes ReadShapeValues(const ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                 std::span<float> magnitudes, std::span<float> phases)
{
    ErrorStatusTypes error = CheckRead(counts, shape, 1);
    if (error == NoError) error = CheckLengths(counts, magnitudes.size(), phases.size());
    if (error != NoError) return error;
    const std::span<const ShapeValue> values = Held(table, shape, magnitudes.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        magnitudes[i] = values[i].Magnitude;
        if (!phases.empty()) phases[i] = values[i].Phase;
    }
    return NoError;
}

ErrorStatusTypes WriteShapeValues(ShapeTable& table, const ShapeTableCounts& counts, std::int32_t shape,
                                  std::span<const float> magnitudes, std::span<const float> phases)
{
    ErrorStatusTypes error = CheckWrite(counts, shape, 1);
    if (error == NoError) error = CheckLengths(counts, magnitudes.size(), phases.size());
    if (error != NoError) return error;
    const std::span<ShapeValue> values = Held(table, shape, magnitudes.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = {magnitudes[i], phases.empty() ? 0.0F : phases[i]};
    }
    return NoError;
}

} // namespace qor
