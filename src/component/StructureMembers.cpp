// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Structure members of clsQOR_File. The elements are the thread's, label and notes the object's.
#include "component/ObjectState.h"
#include "component/StructureElements.h"
#include "component/WithoutMemory.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"
#include "structure/Load_Structure.h"
#include "structure/Save_Structure.h"

#include <algorithm>
#include <limits>
#include <new>

using namespace qor;

namespace {

Structure& Geometry() { return modQOR_File().Structure; }

bool Fits16(std::int32_t value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return value >= Limits::min() && value <= Limits::max();
}

// The file, ready to be read. Null where it cannot be opened, or where there is no memory to read it with.
std::unique_ptr<OpenRecordFile> Open(std::u16string_view path)
{
    auto file = platform::File::OpenForReading(path);
    if (!file) return nullptr;
    try {
        return std::make_unique<OpenRecordFile>(std::move(*file));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

// ---- storage --------------------------------------------------------------------------------------------

void clsQOR_File::InitializeStructureStorage() { ReleaseStructureStorage(Geometry()); }

void clsQOR_File::AllocateStructure()
{
    modQOR_File().LastAllocationResult = AllocateSharedStructure() ? Success : Failure;
}

std::u16string clsQOR_File::Structure_Label() const
{
    return IfMemoryAllows([&] { return state_->StructureTexts.Label; });
}
void clsQOR_File::Structure_Label(std::u16string_view value)
{
    IfMemoryAllows([&] { state_->StructureTexts.Label = value; });
}

std::u16string clsQOR_File::Structure_Notes() const
{
    return IfMemoryAllows([&] { return state_->StructureTexts.Notes; });
}
void clsQOR_File::Structure_Notes(std::u16string_view value)
{
    IfMemoryAllows([&] { state_->StructureTexts.Notes = value; });
}

std::int32_t clsQOR_File::Structure_NumberOfVertexPoints() const { return Geometry().NumberOfVertexPoints; }
void clsQOR_File::Structure_NumberOfVertexPoints(std::int32_t value)
{
    Geometry().NumberOfVertexPoints = std::max(value, 0);
    AllocateStructure();
}

std::int32_t clsQOR_File::Structure_NumberOfEdgeLines() const { return Geometry().NumberOfEdgeLines; }
void clsQOR_File::Structure_NumberOfEdgeLines(std::int32_t value)
{
    Geometry().NumberOfEdgeLines = std::max(value, 0);
    AllocateStructure();
}

std::int32_t clsQOR_File::Structure_NumberOfSurfaceTriangles() const { return Geometry().NumberOfSurfaceTriangles; }
void clsQOR_File::Structure_NumberOfSurfaceTriangles(std::int32_t value)
{
    Geometry().NumberOfSurfaceTriangles = std::max(value, 0);
    AllocateStructure();
}

// ---- vertex points --------------------------------------------------------------------------------------

ReturnStatus clsQOR_File::ReadStructureVertexPoint(const std::int32_t& VertexPointNumber,
                                                   std::u16string& VertexPointLabel, float& VertexPointXcoord,
                                                   float& VertexPointYcoord, float& VertexPointZcoord,
                                                   std::int32_t& VertexPointColor, Bool16& VertexPointBold)
{
    const ErrorStatusTypes error = CheckVertexPoint(Geometry(), VertexPointNumber);
    if (error != NoError) return Report(Failure, error);
    const VertexPoint& point = Geometry().VertexPoints[VertexPointNumber];
    const bool labelled = IfMemoryAllows([&] {
        VertexPointLabel = Trimmed(TextOf(point.Label));
        return true;
    });
    if (!labelled) return Failure;
    VertexPointXcoord = point.Xcoord;
    VertexPointYcoord = point.Ycoord;
    VertexPointZcoord = point.Zcoord;
    VertexPointColor = point.Color;
    VertexPointBold = point.Bold;
    return Success;
}

ReturnStatus clsQOR_File::WriteStructureVertexPoint(const std::int32_t& VertexPointNumber,
                                                    std::u16string_view VertexPointLabel,
                                                    const float& VertexPointXcoord, const float& VertexPointYcoord,
                                                    const float& VertexPointZcoord,
                                                    const std::int32_t& VertexPointColor, const Bool16& VertexPointBold)
{
    Structure& structure = Geometry();
    if (VertexPointNumber == AppendElement) {
        if (!RaiseCount(structure.NumberOfVertexPoints)) return Report(Failure, VertexPointsNotAllocated);
        // The published member then writes to element -1: clients see the fault, and the new element stays
        // blank.
        throw RuntimeFault(RuntimeFault::SubscriptOutOfRange);
    }
    if (VertexPointNumber < 1 || VertexPointNumber > structure.NumberOfVertexPoints) {
        return Report(Failure, VertexPointIndexError);
    }
    StoreVertexPoint(structure.VertexPoints[VertexPointNumber], VertexPointLabel, VertexPointXcoord, VertexPointYcoord,
                     VertexPointZcoord, VertexPointColor, VertexPointBold);
    return Success;
}

ReturnStatus clsQOR_File::WriteStructureVertexPointInformation(const std::int32_t& VertexPointNumber,
                                                               const std::int32_t& CenterPointNumber,
                                                               const PointTypes& PointType,
                                                               const AxisNumbers& NormalAxis, const float& Area)
{
    const ErrorStatusTypes error = CheckVertexPoint(Geometry(), VertexPointNumber);
    if (error != NoError) return Report(Failure, error);
    VertexPoint& point = Geometry().VertexPoints[VertexPointNumber];
    point.PointType = PointType;
    point.NormalAxis = NormalAxis;
    point.Area = Area;
    if (!Fits16(CenterPointNumber) || CenterPointNumber < 0) return Report(Failure, CenterPointOverflow);
    point.CenterPoint = CenterPointNumber;
    return Success;
}

// A read by name only: it stores, as published.
ReturnStatus clsQOR_File::ReadStructureVertexPointInformation(const std::int32_t& VertexPointNumber,
                                                              const std::int32_t& CenterPointNumber,
                                                              const PointTypes& TransformType,
                                                              const AxisNumbers& NormalAxis, const float& Area)
{
    const ErrorStatusTypes error = CheckVertexPoint(Geometry(), VertexPointNumber);
    if (error != NoError) return Report(Failure, error);
    VertexPoint& point = Geometry().VertexPoints[VertexPointNumber];
    if (Fits16(CenterPointNumber)) point.CenterPoint = CenterPointNumber;
    point.PointType = TransformType;
    point.NormalAxis = NormalAxis;
    point.Area = Area;
    return Success;
}

namespace {

ErrorStatusTypes CheckTransform(std::int32_t vertexPoint, AxisNumbers axis)
{
    const ErrorStatusTypes error = CheckVertexPoint(Geometry(), vertexPoint);
    if (error != NoError) return error;
    return axis < Xaxis || axis > Zaxis ? AxisNumberError : NoError;
}

float& AxisEndOf(VertexPoint& point, AxisNumbers axis, std::size_t component)
{
    return point.AxisEnd[AxisEndIndex(static_cast<std::size_t>(axis), component)];
}

} // namespace

ReturnStatus clsQOR_File::WriteStructureVertexPointTransform(const std::int32_t& VertexPointNumber,
                                                             const AxisNumbers& AxisNumber, const float& AxisEnd_X,
                                                             const float& AxisEnd_Y, const float& AxisEnd_Z)
{
    const ErrorStatusTypes error = CheckTransform(VertexPointNumber, AxisNumber);
    if (error != NoError) return Report(Failure, error);
    VertexPoint& point = Geometry().VertexPoints[VertexPointNumber];
    AxisEndOf(point, AxisNumber, 0) = AxisEnd_X;
    AxisEndOf(point, AxisNumber, 1) = AxisEnd_Y;
    AxisEndOf(point, AxisNumber, 2) = AxisEnd_Z;
    return Success;
}

ReturnStatus clsQOR_File::ReadStructureVertexPointTransform(const std::int32_t& VertexPointNumber,
                                                            const AxisNumbers& AxisNumber, float& AxisEnd_X,
                                                            float& AxisEnd_Y, float& AxisEnd_Z)
{
    const ErrorStatusTypes error = CheckTransform(VertexPointNumber, AxisNumber);
    if (error != NoError) return Report(Failure, error);
    VertexPoint& point = Geometry().VertexPoints[VertexPointNumber];
    AxisEnd_X = AxisEndOf(point, AxisNumber, 0);
    AxisEnd_Y = AxisEndOf(point, AxisNumber, 1);
    AxisEnd_Z = AxisEndOf(point, AxisNumber, 2);
    return Success;
}

// ---- edge lines and surface triangles -------------------------------------------------------------------

ReturnStatus clsQOR_File::ReadStructureEdgeLine(const std::int32_t& EdgeLineNumber, std::int32_t& StartVertexPoint,
                                                std::int32_t& EndVertexPoint, std::int32_t& EdgeLineColor,
                                                Bool16& EdgeLineBold)
{
    const ErrorStatusTypes error =
        FetchElement(Geometry().EdgeLines, EdgeLineNumber, {&StartVertexPoint, &EndVertexPoint}, EdgeLineColor,
                     EdgeLineBold, EdgeLinesNotAllocated, EdgeLineIndexError);
    return Report(error == NoError ? Success : Failure, error);
}

ReturnStatus clsQOR_File::WriteStructureEdgeLine(const std::int32_t& EdgeLineNumber,
                                                 const std::int32_t& StartVertexPoint,
                                                 const std::int32_t& EndVertexPoint, const std::int32_t& EdgeLineColor,
                                                 const Bool16& EdgeLineBold)
{
    const ErrorStatusTypes error = StoreElement(Geometry().EdgeLines, Geometry().NumberOfEdgeLines, EdgeLineNumber,
                                                {StartVertexPoint, EndVertexPoint}, EdgeLineColor, EdgeLineBold,
                                                EdgeLinesNotAllocated, EdgeLineIndexError);
    return Report(error == NoError ? Success : Failure, error);
}

ReturnStatus clsQOR_File::ReadStructureSurfaceTriangle(const std::int32_t& SurfaceTriangleNumber,
                                                       std::int32_t& StartVertexPoint, std::int32_t& MiddleVertexPoint,
                                                       std::int32_t& EndVertexPoint, std::int32_t& SurfaceTriangleColor,
                                                       Bool16& SurfaceTriangleBold)
{
    const ErrorStatusTypes error = FetchElement(
        Geometry().SurfaceTriangles, SurfaceTriangleNumber, {&StartVertexPoint, &MiddleVertexPoint, &EndVertexPoint},
        SurfaceTriangleColor, SurfaceTriangleBold, SurfaceTrianglesNotAllocated, SurfaceTriangleIndexError);
    return Report(error == NoError ? Success : Failure, error);
}

ReturnStatus clsQOR_File::WriteStructureSurfaceTriangle(const std::int32_t& SurfaceTriangleNumber,
                                                        const std::int32_t& StartVertexPoint,
                                                        const std::int32_t& MiddleVertexPoint,
                                                        const std::int32_t& EndVertexPoint,
                                                        const std::int32_t& SurfaceTriangleColor,
                                                        const Bool16& SurfaceTriangleBold)
{
    const ErrorStatusTypes error =
        StoreElement(Geometry().SurfaceTriangles, Geometry().NumberOfSurfaceTriangles, SurfaceTriangleNumber,
                     {StartVertexPoint, MiddleVertexPoint, EndVertexPoint}, SurfaceTriangleColor, SurfaceTriangleBold,
                     SurfaceTrianglesNotAllocated, SurfaceTriangleIndexError);
    return Report(error == NoError ? Success : Failure, error);
}

// ---- files ----------------------------------------------------------------------------------------------

ReturnStatus clsQOR_File::OutputStructureFile(std::u16string_view Structure_FilePathName)
{
    const platform::BusyPointer busy;
    if (Structure_FilePathName.empty()) return Failure;
    state_->RefusedFile.reset();
    auto file = platform::File::Replace(Structure_FilePathName);
    if (!file) return Failure;
    SaveStructure(*file, Geometry(), state_->StructureTexts);
    file->Close();
    return Success;
}

ReturnStatus clsQOR_File::InputStructureFile(std::u16string_view FilePathName)
{
    if (FilePathName.empty()) {
        // Reads on in a file that was refused before, if there is one.
        if (!state_->RefusedFile) return Success;
        const auto [status, error] = Load_StructureRecords(state_->RefusedFile->records, state_->FileVersion,
                                                           Geometry(), state_->StructureTexts);
        return Report(status, error);
    }
    InitializeStructureStorage();
    state_->RefusedFile.reset();
    auto file = Open(Trimmed(FilePathName));
    if (!file) return Success; // as published: the Structure is empty then
    const StructurePreamble preamble = Load_StructurePreamble(file->records);
    if (preamble.version) state_->FileVersion = *preamble.version;
    if (!preamble.accepted) {
        state_->RefusedFile = std::move(file);
        return Report(Failure, InputFile_ReadFail);
    }
    Geometry().LargeStructureFormat = IsLargeVersion(state_->FileVersion);
    const auto [status, error] =
        Load_StructureRecords(file->records, state_->FileVersion, Geometry(), state_->StructureTexts);
    return Report(status, error);
}
