// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Shape Table members of clsQOR_File. Records and values are the thread's, counts the object's.
#include "component/ObjectState.h"
#include "component/WithoutMemory.h"
#include "component/modQOR_File.h"
#include "datablock/SampleAccess.h" // KnownDataSVT
#include "fileio/Framing.h"
#include "platform/File.h"
#include "shapetable/Save_ShapeTable.h"
#include "shapetable/ValueAccess.h"

#include <algorithm>

using namespace qor;

namespace {

ShapeTable& Table() { return modQOR_File().ShapeTable; }

// The record of that number, which the array may lack although the count covers it.
template <class Record>
Record* Find(std::vector<Record>& records, std::int32_t number)
{
    const auto place = static_cast<std::size_t>(number - 1);
    return place < records.size() ? &records[place] : nullptr;
}

template <class Record, class T>
T Get(clsQOR_File& object, ErrorStatusTypes error, std::vector<Record>& records, std::int32_t number, T Record::*field)
{
    if (error != NoError) object.ErrorStatus(error);
    Record* const record = error == NoError ? Find(records, number) : nullptr;
    return IfMemoryAllows([&] { return record ? record->*field : T{}; });
}

template <class Record, class T, class Value>
void Set(clsQOR_File& object, ErrorStatusTypes error, std::vector<Record>& records, std::int32_t number,
         T Record::*field, Value value)
{
    if (error != NoError) object.ErrorStatus(error);
    Record* const record = error == NoError ? Find(records, number) : nullptr;
    if (record) IfMemoryAllows([&] { record->*field = value; });
}

} // namespace

// ---- storage --------------------------------------------------------------------------------------------

void clsQOR_File::InitializeShapeTableStorage() { qor::InitializeShapeTableStorage(Table(), state_->ShapeCounts); }

void clsQOR_File::AllocateShapeTable()
{
    const ErrorStatusTypes error = qor::AllocateShapeTable(Table(), state_->ShapeCounts);
    modQOR_File().LastAllocationResult = error == NoError ? Success : Failure;
    ErrorStatus(error); // also NoError, which clears this object's status
}

std::u16string clsQOR_File::ShapeTable_Label() const
{
    return IfMemoryAllows([&] { return state_->ShapeTexts.Label; });
}
void clsQOR_File::ShapeTable_Label(std::u16string_view value)
{
    IfMemoryAllows([&] { state_->ShapeTexts.Label = value; });
}

std::u16string clsQOR_File::ShapeTable_Notes() const
{
    return IfMemoryAllows([&] { return state_->ShapeTexts.Notes; });
}
void clsQOR_File::ShapeTable_Notes(std::u16string_view value)
{
    IfMemoryAllows([&] { state_->ShapeTexts.Notes = value; });
}

std::int32_t clsQOR_File::ShapeTable_NumberOfShapes() const { return state_->ShapeCounts.NumberOfShapes; }
void clsQOR_File::ShapeTable_NumberOfShapes(std::int32_t value)
{
    state_->ShapeCounts.NumberOfShapes = std::max(value, 0);
    AllocateShapeTable();
}

std::int32_t clsQOR_File::ShapeTable_NumberOfDOFs() const { return state_->ShapeCounts.NumberOfDOFs; }
void clsQOR_File::ShapeTable_NumberOfDOFs(std::int32_t value)
{
    state_->ShapeCounts.NumberOfDOFs = std::max(value, 0);
    AllocateShapeTable();
}

// ---- shapes ---------------------------------------------------------------------------------------------

// The one per-shape member with the code of its own kind, as published.
std::u16string clsQOR_File::Shape_Label(std::int32_t ShapeNumber)
{
    return Get(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, ShapeIndexError), Table().Shapes,
               ShapeNumber, &Shape::Label);
}
void clsQOR_File::Shape_Label(std::int32_t ShapeNumber, std::u16string_view value)
{
    Set(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
        ShapeNumber, &Shape::Label, value);
}

float clsQOR_File::Shape_Ordinate(std::int32_t ShapeNumber)
{
    return Get(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
               ShapeNumber, &Shape::Ordinate);
}
void clsQOR_File::Shape_Ordinate(std::int32_t ShapeNumber, float value)
{
    Set(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
        ShapeNumber, &Shape::Ordinate, value);
}

float clsQOR_File::Shape_Damping(std::int32_t ShapeNumber)
{
    return Get(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
               ShapeNumber, &Shape::Damping);
}
void clsQOR_File::Shape_Damping(std::int32_t ShapeNumber, float value)
{
    Set(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
        ShapeNumber, &Shape::Damping, value);
}

std::u16string clsQOR_File::Shape_DateAndTime(std::int32_t ShapeNumber)
{
    return Get(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
               ShapeNumber, &Shape::DateAndTime);
}
void clsQOR_File::Shape_DateAndTime(std::int32_t ShapeNumber, std::u16string_view value)
{
    Set(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
        ShapeNumber, &Shape::DateAndTime, value);
}

std::u16string clsQOR_File::Shape_OrdinateUnits(std::int32_t ShapeNumber)
{
    return Get(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
               ShapeNumber, &Shape::OrdinateUnits);
}
void clsQOR_File::Shape_OrdinateUnits(std::int32_t ShapeNumber, std::u16string_view value)
{
    Set(*this, CheckShape(ShapeNumber, state_->ShapeCounts.NumberOfShapes, SampleIndexError), Table().Shapes,
        ShapeNumber, &Shape::OrdinateUnits, value);
}

// ---- DOFs -----------------------------------------------------------------------------------------------

std::u16string clsQOR_File::DOF_Label(std::int32_t DOFnumber)
{
    return Get(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::Label);
}
void clsQOR_File::DOF_Label(std::int32_t DOFnumber, std::u16string_view value)
{
    Set(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::Label, value);
}

std::u16string clsQOR_File::DOF_DegreesOfFreedom(std::int32_t DOFnumber)
{
    return Get(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber,
               &DOF::DegreesOfFreedom);
}
void clsQOR_File::DOF_DegreesOfFreedom(std::int32_t DOFnumber, std::u16string_view value)
{
    Set(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::DegreesOfFreedom,
        value);
}

SVTvalues clsQOR_File::DOF_DataSVT(std::int32_t DOFnumber)
{
    return static_cast<SVTvalues>(KnownDataSVT(
        Get(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::DataSVT)));
}
void clsQOR_File::DOF_DataSVT(std::int32_t DOFnumber, SVTvalues value)
{
    Set(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::DataSVT,
        KnownDataSVT(value));
}

ShapeTable_MeasurementTypes clsQOR_File::DOF_MeasurementType(std::int32_t DOFnumber)
{
    return static_cast<ShapeTable_MeasurementTypes>(Get(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs),
                                                        Table().DOFs, DOFnumber, &DOF::MeasurementType));
}
void clsQOR_File::DOF_MeasurementType(std::int32_t DOFnumber, ShapeTable_MeasurementTypes value)
{
    Set(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::MeasurementType,
        value);
}

std::u16string clsQOR_File::DOF_MeasurementUnits(std::int32_t DOFnumber)
{
    return Get(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber,
               &DOF::MeasurementUnits);
}
void clsQOR_File::DOF_MeasurementUnits(std::int32_t DOFnumber, std::u16string_view value)
{
    Set(*this, CheckDOF(DOFnumber, state_->ShapeCounts.NumberOfDOFs), Table().DOFs, DOFnumber, &DOF::MeasurementUnits,
        value);
}

// ---- values ---------------------------------------------------------------------------------------------

ReturnStatus clsQOR_File::ReadShapeDOFvalue(const std::int32_t& ShapeNumber, const std::int32_t& DOFnumber,
                                            float& MagnitudeValue, float& PhaseValue)
{
    const ErrorStatusTypes error =
        ReadShapeValue(Table(), state_->ShapeCounts, ShapeNumber, DOFnumber, MagnitudeValue, PhaseValue);
    return Report(error == NoError ? Success : Failure, error);
}

ReturnStatus clsQOR_File::WriteShapeDOFvalue(const std::int32_t& ShapeNumber, const std::int32_t& DOFnumber,
                                             const float& MagnitudeValue, const float& PhaseValue)
{
    const ErrorStatusTypes error =
        WriteShapeValue(Table(), state_->ShapeCounts, ShapeNumber, DOFnumber, MagnitudeValue, PhaseValue);
    return Report(error == NoError ? Success : Failure, error);
}

// ---- file -----------------------------------------------------------------------------------------------

ReturnStatus clsQOR_File::OutputShapeTableFile(std::u16string_view ShapeTable_FilePathName)
{
    if (Trimmed(ShapeTable_FilePathName).empty() || !IsWritable(state_->ShapeCounts)) return Failure;
    state_->RefusedFile.reset();
    auto file = platform::File::Replace(ShapeTable_FilePathName);
    if (!file) return Failure;
    const ReturnStatus status = SaveShapeTable(*file, Table(), state_->ShapeCounts, state_->ShapeTexts);
    return file->Close() ? status : Failure;
}
