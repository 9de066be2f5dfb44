// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Data Block members of clsQOR_File: look the thread's document up, call its module, report.
#include "component/ObjectState.h"
#include "component/WithoutMemory.h"
#include "component/modQOR_File.h"
#include "datablock/Conversion.h"
#include "datablock/Load_DataBlock.h"
#include "datablock/SampleAccess.h"
#include "datablock/Save_DataBlock.h"
#include "platform/Desktop.h"
#include "platform/File.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>

using namespace qor;

namespace {

constexpr std::int32_t MostTraces = 32000;

DataBlock& Block() { return modQOR_File().DataBlock; }

// A trace's field; fallback, and the error reported, where the check fails.
template <class T>
T Get(clsQOR_File& object, std::int32_t traceNumber, T Trace::*field, T fallback = T{})
{
    IfMemoryAllows([&] {
        const ErrorStatusTypes error = GetTraceField(Block(), traceNumber, field, fallback);
        if (error != NoError) object.ErrorStatus(error);
    });
    return fallback;
}

void SetText(clsQOR_File& object, std::int32_t traceNumber, std::u16string Trace::*field, std::u16string_view value)
{
    const ErrorStatusTypes error = SetTraceText(Block(), traceNumber, field, value);
    if (error != NoError) object.ErrorStatus(error);
}

} // namespace

// ---- storage --------------------------------------------------------------------------------------------

void clsQOR_File::InitializeDataBlockStorage()
{
    InitializeDataBlockData();
    qor::InitializeDataBlockStorage(Block());
    state_->TraceDataAllocated = false;
    state_->XaxisAllocated = false;
}

// The defaults are constants of the record types, so that there is never anything to restore.
void clsQOR_File::InitializeDataBlockData() {}

void clsQOR_File::UpdateAllocationFlags()
{
    const DataBlock& block = Block();
    state_->TraceDataAllocated = block.NumberOfSamples > 0 || block.NumberOfTraces > 0; // either suffices, on purpose
    state_->XaxisAllocated = HasXaxis(block);
}

void clsQOR_File::ReallocateDataBlock()
{
    // The code is set without text and post: a size setter reports nothing.
    state_->OwnErrorStatus = qor::ReallocateDataBlock(Block());
    modQOR_File().LastAllocationResult = state_->OwnErrorStatus == NoError ? Success : Failure;
    UpdateAllocationFlags();
}

std::u16string clsQOR_File::DataBlock_Label() const
{
    return IfMemoryAllows([&] { return Block().Label; });
}
void clsQOR_File::DataBlock_Label(std::u16string_view value)
{
    IfMemoryAllows([&] { Block().Label = value; });
}

std::u16string clsQOR_File::DataBlock_Notes() const
{
    return IfMemoryAllows([&] { return Block().Notes; });
}
void clsQOR_File::DataBlock_Notes(std::u16string_view value)
{
    IfMemoryAllows([&] { Block().Notes = value; });
}

std::u16string clsQOR_File::DataBlock_XaxisUnits() const
{
    return IfMemoryAllows([&] { return Block().XaxisUnits; });
}
void clsQOR_File::DataBlock_XaxisUnits(std::u16string_view value)
{
    IfMemoryAllows([&] { Block().XaxisUnits = value; });
}

std::int32_t clsQOR_File::DataBlock_NumberOfSamples() const { return Block().NumberOfSamples; }
void clsQOR_File::DataBlock_NumberOfSamples(std::int32_t value)
{
    Block().NumberOfSamples = std::max(value, 0);
    ReallocateDataBlock();
}

std::int32_t clsQOR_File::DataBlock_NumberOfTraces() const { return Block().NumberOfTraces; }
void clsQOR_File::DataBlock_NumberOfTraces(std::int32_t value)
{
    Block().NumberOfTraces = static_cast<std::int16_t>(std::clamp(value, 0, MostTraces));
    ReallocateDataBlock();
}

DataBlock_DataFormatTypes clsQOR_File::DataBlock_TraceDataFormat()
{
    if (Block().DataFormat == RealFormat) {
        state_->PublicDataFormat = DataFormat_Real;
    } else if (state_->PublicDataFormat == DataFormat_Real) {
        state_->PublicDataFormat = DataFormat_RealImaginary;
    }
    return state_->PublicDataFormat;
}
void clsQOR_File::DataBlock_TraceDataFormat(DataBlock_DataFormatTypes value)
{
    const bool declared = value >= DataFormat_Real && value <= DataFormat_MgnitudePhase;
    state_->PublicDataFormat = declared ? value : DataFormat_Real;
    Block().DataFormat = state_->PublicDataFormat == DataFormat_Real ? RealFormat : ComplexFormat;
    ReallocateDataBlock();
}

DataBlock_XaxisSpacingTypes clsQOR_File::DataBlock_XaxisSpacing() const
{
    return static_cast<DataBlock_XaxisSpacingTypes>(Block().XaxisSpacing);
}
void clsQOR_File::DataBlock_XaxisSpacing(DataBlock_XaxisSpacingTypes value)
{
    const bool declared = value >= XaxisSpacing_Uniform && value <= XaxisSpacing_Octave;
    Block().XaxisSpacing = static_cast<std::int16_t>(declared ? value : XaxisSpacing_Uniform);
    ReallocateDataBlock();
}

float clsQOR_File::DataBlock_XaxisStart() const { return Block().XaxisStart; }
void clsQOR_File::DataBlock_XaxisStart(float value) { Block().XaxisStart = value; }

float clsQOR_File::DataBlock_XaxisIncrement() const { return Block().XaxisIncrement; }
void clsQOR_File::DataBlock_XaxisIncrement(float value)
{
    Block().XaxisIncrement = value > 0 ? value : 1; // NaN too becomes 1
}

// ---- samples --------------------------------------------------------------------------------------------

ReturnStatus clsQOR_File::ReadTraceSampleValue(const std::int32_t& TraceNumber, const std::int32_t& SampleNumber,
                                               float& RealValue, float& ImaginaryValue)
{
    const auto [status, error] =
        ReadTraceSample(Block(), state_->View(), TraceNumber, SampleNumber, RealValue, ImaginaryValue);
    return Report(status, error);
}

ReturnStatus clsQOR_File::WriteTraceSampleValue(const std::int32_t& TraceNumber, const std::int32_t& SampleNumber,
                                                const float& RealValue, const float& ImaginaryValue)
{
    const auto [status, error] =
        WriteTraceSample(Block(), state_->View(), TraceNumber, SampleNumber, RealValue, ImaginaryValue);
    return Report(status, error);
}

ReturnStatus clsQOR_File::ReadDataBlockXaxisValue(const std::int32_t& SampleNumber, float& XaxisValue)
{
    const auto [status, error] = ReadXaxis(Block(), state_->XaxisAllocated, SampleNumber, XaxisValue);
    return Report(status, error);
}

ReturnStatus clsQOR_File::WriteDataBlockXaxisValue(const std::int32_t& SampleNumber, const float& XaxisValue)
{
    const auto [status, error] = WriteXaxis(Block(), state_->XaxisAllocated, SampleNumber, XaxisValue);
    return Report(status, error);
}

float clsQOR_File::GetMagnitudeValueFrom(const float& RealValue, const float& ImaginaryValue) const
{
    return MagnitudeOf(RealValue, ImaginaryValue);
}

float clsQOR_File::GetRealValueFrom(const float& MagnitudeValue, const float& PhaseValue) const
{
    return FromMagnitudePhase(MagnitudeValue, PhaseValue).real;
}

float clsQOR_File::GetImaginaryValueFrom(const float& MagnitudeValue, const float& PhaseValue) const
{
    return FromMagnitudePhase(MagnitudeValue, PhaseValue).imaginary;
}

float clsQOR_File::GetPhaseValueFrom(const NumericVariant& RealValue, const NumericVariant& ImaginaryValue,
                                     const Bool16& DisplayAs360) const
{
    return PhaseOf(RealValue, ImaginaryValue, DisplayAs360);
}

// ---- trace properties -----------------------------------------------------------------------------------

std::u16string clsQOR_File::Trace_Label(std::int32_t TraceNumber) { return Get(*this, TraceNumber, &Trace::Label); }
void clsQOR_File::Trace_Label(std::int32_t TraceNumber, std::u16string_view value)
{
    SetText(*this, TraceNumber, &Trace::Label, value);
}

std::u16string clsQOR_File::Trace_DateAndTime(std::int32_t TraceNumber)
{
    return Get(*this, TraceNumber, &Trace::DateAndTime);
}
void clsQOR_File::Trace_DateAndTime(std::int32_t TraceNumber, std::u16string_view value)
{
    SetText(*this, TraceNumber, &Trace::DateAndTime, value);
}

std::u16string clsQOR_File::Trace_DegreesOfFreedom(std::int32_t TraceNumber)
{
    return Get(*this, TraceNumber, &Trace::DegreesOfFreedom);
}
void clsQOR_File::Trace_DegreesOfFreedom(std::int32_t TraceNumber, std::u16string_view value)
{
    SetText(*this, TraceNumber, &Trace::DegreesOfFreedom, value);
}

std::u16string clsQOR_File::Trace_MeasurementUnits(std::int32_t TraceNumber)
{
    return Get(*this, TraceNumber, &Trace::MeasurementUnits);
}
void clsQOR_File::Trace_MeasurementUnits(std::int32_t TraceNumber, std::u16string_view value)
{
    SetText(*this, TraceNumber, &Trace::MeasurementUnits, value);
}

DataBlock_MeasurementTypes clsQOR_File::Trace_MeasurementType(std::int32_t TraceNumber)
{
    return static_cast<DataBlock_MeasurementTypes>(Get(*this, TraceNumber, &Trace::MeasurementType));
}
void clsQOR_File::Trace_MeasurementType(std::int32_t TraceNumber, DataBlock_MeasurementTypes value)
{
    Report(Success, SetTraceNumber(Block(), TraceNumber, &Trace::MeasurementType, value));
}

SVTvalues clsQOR_File::Trace_DataSVT(std::int32_t TraceNumber)
{
    return static_cast<SVTvalues>(KnownDataSVT(Get(*this, TraceNumber, &Trace::DataSVT)));
}
void clsQOR_File::Trace_DataSVT(std::int32_t TraceNumber, SVTvalues value)
{
    Report(Success, SetTraceNumber(Block(), TraceNumber, &Trace::DataSVT, KnownDataSVT(value)));
}

// ---- files ----------------------------------------------------------------------------------------------

ReturnStatus clsQOR_File::OutputDataBlockFile(std::u16string_view DataBlock_FilePathName)
{
    const platform::BusyPointer busy;
    state_->RefusedFile.reset();
    auto file = platform::File::Replace(DataBlock_FilePathName);
    if (!file) return Failure;
    DataBlock& block = Block();
    const auto [status, error] = SaveDataBlock(*file, block);
    const bool closed = file->Close();
    block.DataBlockFromFile = false;
    return Report(closed ? status : Failure, error);
}

ReturnStatus clsQOR_File::InputDataBlockFile(std::u16string_view FilePathName)
{
    // An empty path means the file that is open already; between calls there is none, so nothing happens.
    if (FilePathName.empty()) return Success;
    InitializeDataBlockStorage();
    state_->RefusedFile.reset();
    auto file = platform::File::OpenForReading(Trimmed(FilePathName));
    if (!file) return Failure;
    DataBlock& block = Block();
    const LoadResult result = LoadDataBlock(*file, block);
    if (result.version) state_->FileVersion = *result.version;
    if (result.status == Success) {
        state_->PublicDataFormat = block.DataFormat == RealFormat ? DataFormat_Real : DataFormat_RealImaginary;
        UpdateAllocationFlags();
    }
    return Report(result.status, result.error);
}
