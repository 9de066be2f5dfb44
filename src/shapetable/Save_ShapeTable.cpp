// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "shapetable/Save_ShapeTable.h"

#include "fileio/Framing.h"
#include "platform/Trigonometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace qor {
namespace {

// Writes what the layout names. A value that the file cannot hold is a fault, after which nothing is written.
class FlatWriter
{
public:
    explicit FlatWriter(RecordWriter& file) : file_(file) {}

    bool Faulted() const { return faulted_ || file_.Failed(); }

    void Int32(std::int32_t value)
    {
        if (!faulted_) file_.PutInt32(value);
    }
    void Float(float value)
    {
        if (!faulted_) file_.PutFloat(value);
    }
    void Text(std::u16string_view text)
    {
        if (!faulted_) SaveString(file_, text);
    }
    void TrimmedText(std::u16string_view text) { Text(Trimmed(text)); }
    void Constant16(std::int16_t value, int times)
    {
        for (int i = 0; i < times && !faulted_; ++i) file_.PutInt16(value);
    }
    void ConstantFloat(float value) { Float(value); }
    void ConstantText(std::u16string_view text) { Text(text); }

    void MeasurementType(const DOF& dof)
    {
        using Limits = std::numeric_limits<std::int16_t>;
        const std::int32_t type = dof.MeasurementType == 0 ? ST_MeasurementIsODS : dof.MeasurementType;
        if (type < Limits::min() || type > Limits::max()) {
            faulted_ = true;
            return;
        }
        file_.PutInt16(static_cast<std::int16_t>(type));
        // The kind of data follows the measurement type, not DataSVT, on purpose.
        const bool isKind = type == DataIsScalar || type == DataIsTensor;
        file_.PutInt16(static_cast<std::int16_t>(isKind ? type : DataIsVector));
    }

private:
    RecordWriter& file_;
    bool faulted_ = false;
};

bool IsInfinite(const ShapeValue& value) { return std::isinf(value.Magnitude) || std::isinf(value.Phase); }

struct RealImaginary {
    float real;
    float imaginary;
};

RealImaginary Converted(const ShapeValue& value)
{
    if (std::isnan(value.Magnitude) || std::isnan(value.Phase)) {
        return {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::quiet_NaN()};
    }
    const platform::SineCosine angle = platform::SineAndCosineOfDegrees(value.Phase);
    return {static_cast<float>(value.Magnitude * angle.cosine), static_cast<float>(value.Magnitude * angle.sine)};
}

ReturnStatus Save_Values(RecordWriter& file, const ShapeTable& table, const ShapeTableCounts& counts)
{
    if (!table.ShapeValues || !table.ShapeValues->Has(counts.NumberOfShapes, counts.NumberOfDOFs)) return Failure;
    // No value is written unless all can be: they are one piece.
    const auto dofs = static_cast<std::size_t>(counts.NumberOfDOFs);
    for (std::int32_t shape = 1; shape <= counts.NumberOfShapes; ++shape) {
        if (std::ranges::any_of(table.ShapeValues->Row(shape).first(dofs), IsInfinite)) return Failure;
    }
    const std::size_t values = static_cast<std::size_t>(counts.NumberOfShapes) * dofs;
    if (!file.FitsPositions(2 * sizeof(float) * values)) return Failure;
    for (std::int32_t shape = 1; shape <= counts.NumberOfShapes && !file.Failed(); ++shape) {
        ItemWriter items(file);
        for (const ShapeValue& value : table.ShapeValues->Row(shape).first(dofs)) {
            const RealImaginary pair = Converted(value);
            items.PutAll(pair.real, pair.imaginary);
        }
    }
    return file.Failed() ? Failure : Success;
}

ReturnStatus Save(RecordWriter& file, const ShapeTable& table, const ShapeTableCounts& counts,
                  const ShapeTableTexts& texts)
{
    FlatWriter writer(file);
    SavePreamble(file, ShapeTable_Identification, ShapeTable_Version);
    Visit_Header(writer, counts, texts);
    for (std::size_t i = 0; i < static_cast<std::size_t>(counts.NumberOfShapes); ++i) {
        if (i >= table.Shapes.size()) return Failure;
        Visit_Shape(writer, table.Shapes[i]);
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(counts.NumberOfDOFs); ++i) {
        if (i >= table.DOFs.size()) return Failure;
        Visit_DOF(writer, table.DOFs[i]);
        if (writer.Faulted()) return Failure;
    }
    return Save_Values(file, table, counts);
}

} // namespace

bool IsWritable(const ShapeTableCounts& counts)
{
    const std::int64_t values = std::int64_t{counts.NumberOfShapes} * counts.NumberOfDOFs;
    return values > 0 && values <= std::numeric_limits<std::int32_t>::max();
}

ReturnStatus SaveShapeTable(ByteSink& sink, const ShapeTable& table, const ShapeTableCounts& counts,
                            const ShapeTableTexts& texts)
{
    try {
        RecordWriter file(sink);
        const ReturnStatus status = Save(file, table, counts, texts);
        return file.Flush() ? status : Failure;
    } catch (const std::bad_alloc&) {
        return Failure;
    }
}

} // namespace qor
