// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include <QOR_File/FileArrays.h>

#include "component/ObjectState.h"
#include "component/modQOR_File.h"
#include "shapetable/ValueAccess.h"
#include "structure/ElementAccess.h"

#include <algorithm>

using namespace qor;

// What is not the thread's, but goes by who looks at the documents.
struct FileArrays::View {
    ComplexView samples = ComplexView::RealImaginary;
    bool xaxisAllocated = HasXaxis(modQOR_File().DataBlock);
    ShapeTableCounts shapes = CountsOf(modQOR_File().ShapeTable);
};

FileArrays::FileArrays(clsQOR_File& file) : file_(&file) {}

FileArrays::View FileArrays::Seen() const
{
    if (!file_) return {};
    const clsQOR_File::State& state = *file_->state_;
    return {state.View(), state.XaxisAllocated, state.ShapeCounts};
}

ReturnStatus FileArrays::Report(ReturnStatus status, ErrorStatusTypes error)
{
    if (file_) return file_->Report(status, error);
    modQOR_File().SharedErrorStatus = error; // also none, so that an error does not outlive the next call
    return status;
}

ReturnStatus FileArrays::Report(ErrorStatusTypes error) { return Report(error == NoError ? Success : Failure, error); }

std::int32_t FileArrays::NumberOfSamples() const { return std::max(modQOR_File().DataBlock.NumberOfSamples, 0); }
std::int32_t FileArrays::NumberOfDOFs() const { return Seen().shapes.NumberOfDOFs; }
std::int32_t FileArrays::NumberOfVertexPoints() const { return modQOR_File().Structure.NumberOfVertexPoints; }

ReturnStatus FileArrays::ReadTraceSamples(std::int32_t TraceNumber, std::span<float> RealValues,
                                          std::span<float> ImaginaryValues)
{
    const auto [status, error] =
        qor::ReadTraceSamples(modQOR_File().DataBlock, Seen().samples, TraceNumber, RealValues, ImaginaryValues);
    return Report(status, error);
}

ReturnStatus FileArrays::WriteTraceSamples(std::int32_t TraceNumber, std::span<const float> RealValues,
                                           std::span<const float> ImaginaryValues)
{
    const auto [status, error] =
        qor::WriteTraceSamples(modQOR_File().DataBlock, Seen().samples, TraceNumber, RealValues, ImaginaryValues);
    return Report(status, error);
}

ReturnStatus FileArrays::ReadDataBlockXaxisValues(std::span<float> XaxisValues)
{
    const auto [status, error] = ReadXaxisValues(modQOR_File().DataBlock, Seen().xaxisAllocated, XaxisValues);
    return Report(status, error);
}

ReturnStatus FileArrays::WriteDataBlockXaxisValues(std::span<const float> XaxisValues)
{
    const auto [status, error] = WriteXaxisValues(modQOR_File().DataBlock, Seen().xaxisAllocated, XaxisValues);
    return Report(status, error);
}

ReturnStatus FileArrays::ReadShapeDOFvalues(std::int32_t ShapeNumber, std::span<float> MagnitudeValues,
                                            std::span<float> PhaseValues)
{
    return Report(ReadShapeValues(modQOR_File().ShapeTable, Seen().shapes, ShapeNumber, MagnitudeValues, PhaseValues));
}

ReturnStatus FileArrays::WriteShapeDOFvalues(std::int32_t ShapeNumber, std::span<const float> MagnitudeValues,
                                             std::span<const float> PhaseValues)
{
    return Report(WriteShapeValues(modQOR_File().ShapeTable, Seen().shapes, ShapeNumber, MagnitudeValues, PhaseValues));
}

ReturnStatus FileArrays::ReadStructureVertexPointCoordinates(std::span<float> X, std::span<float> Y, std::span<float> Z)
{
    return Report(ReadCoordinates(modQOR_File().Structure, X, Y, Z));
}

ReturnStatus FileArrays::WriteStructureVertexPointCoordinates(std::span<const float> X, std::span<const float> Y,
                                                              std::span<const float> Z)
{
    return Report(WriteCoordinates(modQOR_File().Structure, X, Y, Z));
}
