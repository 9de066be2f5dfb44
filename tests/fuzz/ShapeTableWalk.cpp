// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of the Shape Table. Its counts are each object's own, its values the thread's.
#include "fuzz/MemberWalk.h"

#include <algorithm>

namespace qor::test {
namespace {

std::int32_t AnyShape(MemberWalk& walk) { return walk.in.Number(walk.File().ShapeTable_NumberOfShapes()); }
std::int32_t AnyDOF(MemberWalk& walk) { return walk.in.Number(walk.File().ShapeTable_NumberOfDOFs()); }

ErrorStatusTypes ShapeError(const clsQOR_File& file, std::int32_t shape, ErrorStatusTypes indexError)
{
    const std::int32_t shapes = file.ShapeTable_NumberOfShapes();
    if (shapes < 1) return ShapeDataNotAllocated;
    return shape >= 1 && shape <= shapes ? NoError : indexError;
}

ErrorStatusTypes DOFError(const clsQOR_File& file, std::int32_t dof)
{
    return dof >= 1 && dof <= file.ShapeTable_NumberOfDOFs() ? NoError : DOFIndexError;
}

ErrorStatusTypes ValueError(const clsQOR_File& file, std::int32_t shape, std::int32_t dof, ErrorStatusTypes indexError)
{
    const ErrorStatusTypes error = ShapeError(file, shape, indexError);
    if (error != NoError) return error;
    return file.ShapeTable_NumberOfDOFs() < 1 ? DOFsNotAllocated : DOFError(file, dof);
}

bool HoldsShape(std::int32_t number) { return std::cmp_less_equal(number, modQOR_File().ShapeTable.Shapes.size()); }
bool HoldsDOF(std::int32_t number) { return std::cmp_less_equal(number, modQOR_File().ShapeTable.DOFs.size()); }
bool HoldsValue(std::int32_t shape, std::int32_t dof)
{
    const auto& values = modQOR_File().ShapeTable.ShapeValues;
    return values && values->Has(shape, dof);
}

// ---- sizes -----------------------------------------------------------------------------------------------------

void SetCounts(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const bool ofShapes = walk.in.Byte() % 2 == 0;
    const std::int32_t other = ofShapes ? file.ShapeTable_NumberOfDOFs() : file.ShapeTable_NumberOfShapes();
    std::int32_t count = walk.in.Number(other);
    if (!IsQuick(std::max(other, 1), count)) count %= 16;
    if (!IsQuick(other, count)) return;
    ofShapes ? file.ShapeTable_NumberOfShapes(count) : file.ShapeTable_NumberOfDOFs(count);
    const std::int32_t now = ofShapes ? file.ShapeTable_NumberOfShapes() : file.ShapeTable_NumberOfDOFs();
    const ErrorStatusTypes error = file.ErrorStatus();
    const bool empty = file.ShapeTable_NumberOfShapes() == 0 && file.ShapeTable_NumberOfDOFs() == 0;
    walk.Expect(error == AllocationError ? empty : error == NoError && now == std::max(count, 0), "a count");
}

void InitializeStorage(MemberWalk& walk)
{
    walk.File().InitializeShapeTableStorage();
    walk.Expect(walk.File().ShapeTable_NumberOfShapes() == 0 && walk.File().ShapeTable_NumberOfDOFs() == 0, "counts");
    walk.ExpectError(NoError);
}

// ---- records ---------------------------------------------------------------------------------------------------

void SetTexts(MemberWalk& walk)
{
    const std::u16string text = walk.in.Text();
    walk.File().ShapeTable_Label(text);
    walk.File().ShapeTable_Notes(text);
    walk.Expect(walk.File().ShapeTable_Label() == text && walk.File().ShapeTable_Notes() == text, "label or notes");
    walk.ExpectError(NoError);
}

void SetShape(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::int32_t shape = AnyShape(walk);
    const std::u16string text = walk.in.Text();
    const float number = walk.in.Float();
    const ErrorStatusTypes error = ShapeError(file, shape, SampleIndexError);
    const bool kept = error == NoError && HoldsShape(shape);
    const std::u16string read = kept ? text : u"";
    file.Shape_Label(shape, text);
    walk.ExpectError(error);
    walk.Expect(file.Shape_Label(shape) == read, "the label");
    walk.ExpectError(ShapeError(file, shape, ShapeIndexError));
    file.Shape_DateAndTime(shape, text);
    walk.ExpectError(error);
    walk.Expect(file.Shape_DateAndTime(shape) == read, "date and time");
    walk.ExpectError(error);
    file.Shape_OrdinateUnits(shape, text);
    walk.ExpectError(error);
    walk.Expect(file.Shape_OrdinateUnits(shape) == read, "the units");
    walk.ExpectError(error);
    file.Shape_Ordinate(shape, number);
    file.Shape_Damping(shape, number);
    walk.ExpectError(error);
    walk.Expect(SameFloat(file.Shape_Ordinate(shape), kept ? number : 0), "the ordinate");
    walk.Expect(SameFloat(file.Shape_Damping(shape), kept ? number : 0), "the damping");
    walk.ExpectError(error);
}

void SetDOF(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::int32_t dof = AnyDOF(walk);
    const std::u16string text = walk.in.Text();
    const std::int32_t code = walk.in.Number(20);
    const ErrorStatusTypes error = DOFError(file, dof);
    const bool kept = error == NoError && HoldsDOF(dof);
    const std::u16string read = kept ? text : u"";
    file.DOF_Label(dof, text);
    walk.ExpectError(error);
    file.DOF_DegreesOfFreedom(dof, text);
    walk.ExpectError(error);
    file.DOF_MeasurementUnits(dof, text);
    walk.ExpectError(error);
    walk.Expect(file.DOF_Label(dof) == read && file.DOF_DegreesOfFreedom(dof) == read, "label or degrees of freedom");
    walk.Expect(file.DOF_MeasurementUnits(dof) == read, "the units");
    file.DOF_DataSVT(dof, static_cast<SVTvalues>(code));
    file.DOF_MeasurementType(dof, static_cast<ShapeTable_MeasurementTypes>(code));
    walk.ExpectError(error);
    const bool known = kept && (code == DataIsScalar || code == DataIsTensor);
    walk.Expect(file.DOF_DataSVT(dof) == (known ? code : DataIsVector), "the kind of data");
    walk.Expect(file.DOF_MeasurementType(dof) == (kept ? code : 0), "the measurement type");
    walk.ExpectError(error);
}

// ---- values ----------------------------------------------------------------------------------------------------

void AccessValue(MemberWalk& walk)
{
    const std::int32_t shape = AnyShape(walk);
    const std::int32_t dof = AnyDOF(walk);
    const float values[] = {walk.in.Float(), walk.in.Float()};
    const ReturnStatus written = walk.File().WriteShapeDOFvalue(shape, dof, values[0], values[1]);
    // A table of DOFs alone is one that has no values yet.
    walk.ExpectStatus(written, ValueError(walk.File(), shape, dof, ShapeIndexError));
    float first = 7;
    float second = 8;
    const ErrorStatusTypes error = ValueError(walk.File(), shape, dof, SampleIndexError);
    walk.ExpectStatus(walk.File().ReadShapeDOFvalue(shape, dof, first, second), error);
    const bool held = error == NoError && HoldsValue(shape, dof);
    walk.Expect(SameFloat(first, held ? values[0] : 7) && SameFloat(second, held ? values[1] : 8), "a value");
}

void AccessArrays(MemberWalk& walk)
{
    const std::int32_t shape = AnyShape(walk);
    FileArrays arrays(walk.File());
    const std::int32_t count = std::max(arrays.NumberOfDOFs() + walk.in.Byte() / 128 - walk.in.Byte() / 128, 0);
    std::vector<float> first(static_cast<std::size_t>(count), walk.in.Float());
    std::vector<float> second(first.size(), walk.in.Float());
    const bool whole = count == arrays.NumberOfDOFs();
    const auto expected = [&](ErrorStatusTypes indexError) {
        const ErrorStatusTypes error = ValueError(walk.File(), shape, 1, indexError);
        return error == NoError && !whole ? DOFIndexError : error;
    };
    walk.ExpectStatus(arrays.WriteShapeDOFvalues(shape, first, second), expected(ShapeIndexError));
    const std::vector<float> written = first;
    walk.ExpectStatus(arrays.ReadShapeDOFvalues(shape, first, second), expected(SampleIndexError));
    walk.Expect(std::ranges::equal(first, written, SameFloat), "values");
}

// ---- file ------------------------------------------------------------------------------------------------------

void Save(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const auto path = walk.Path("a.shp");
    std::filesystem::remove(path);
    const ReturnStatus status = file.OutputShapeTableFile(Utf16(path));
    walk.ExpectError(NoError);
    const bool hasValues = file.ShapeTable_NumberOfShapes() > 0 && file.ShapeTable_NumberOfDOFs() > 0;
    walk.Expect(hasValues || status == Failure, "a file without values");
    walk.Expect(std::filesystem::exists(path) == hasValues, "whether there is a file");
    if (status == Failure) return;
    const Bytes bytes = BytesOf(path);
    const auto values = std::size_t{8} * static_cast<std::size_t>(file.ShapeTable_NumberOfShapes()) *
                        static_cast<std::size_t>(file.ShapeTable_NumberOfDOFs());
    walk.Expect(bytes.size() > values, "a file that is too short for its values");
    walk.Expect(file.OutputShapeTableFile(Utf16(path)) == Success && BytesOf(path) == bytes, "saved again");
}

void SaveNowhere(MemberWalk& walk)
{
    const bool blank = walk.in.Byte() % 2 == 0;
    walk.Expect(walk.File().OutputShapeTableFile(blank ? u"  " : u"/no such folder/a") == Failure, "the result");
    walk.ExpectError(NoError);
}

constexpr Operation Operations[] = {
    {"counts of the Shape Table", SetCounts},
    {"InitializeShapeTableStorage", InitializeStorage},
    {"texts of the Shape Table", SetTexts},
    {"values of a shape", SetShape},
    {"values of a DOF", SetDOF},
    {"shape values", AccessValue},
    {"arrays of shape values", AccessArrays},
    {"OutputShapeTableFile", Save},
    {"OutputShapeTableFile to nowhere", SaveNowhere},
};

} // namespace

std::span<const Operation> ShapeTableOperations() { return Operations; }

} // namespace qor::test
