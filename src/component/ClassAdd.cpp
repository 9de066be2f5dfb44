// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The added classes. A failed check is left as the thread's shared error status, without a text.
#include "component/StructureElements.h"
#include "component/WithoutMemory.h"
#include "component/modQOR_File.h"
#include "datablock/SampleAccess.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>

using namespace qor;

namespace {

oReturnStatus Shared(ErrorStatusTypes error)
{
    ShareError(error);
    return error == NoError ? oReturnStatus::Success : oReturnStatus::Failure;
}

template <class T>
T Get(std::int32_t traceNumber, T Trace::*field)
{
    T value{};
    IfMemoryAllows([&] { ShareError(GetTraceField(modQOR_File().DataBlock, traceNumber, field, value)); });
    return value;
}

} // namespace

void ClassAdd_1::TraceLinPower(std::int32_t TraceNumber, TraceLinPowerFlags value)
{
    DataBlock& block = modQOR_File().DataBlock;
    ShareError(SetTraceNumber(block, TraceNumber, &Trace::LinPower, value));
    block.DataBlockFromFile = false; // also after a failed check
}
TraceLinPowerFlags ClassAdd_1::TraceLinPower(std::int32_t TraceNumber) const
{
    return static_cast<TraceLinPowerFlags>(Get(TraceNumber, &Trace::LinPower));
}

void ClassAdd_2::DataBlockPeakRMS(DataBlockPeakRMSFlags value)
{
    StoreNarrowed(value, modQOR_File().DataBlock.PeakRMS);
}
DataBlockPeakRMSFlags ClassAdd_2::DataBlockPeakRMS() const
{
    return static_cast<DataBlockPeakRMSFlags>(modQOR_File().DataBlock.PeakRMS);
}

void ClassAdd_3::TraceZaxisLabel(std::int32_t TraceNumber, std::u16string_view value)
{
    ShareError(SetTraceText(modQOR_File().DataBlock, TraceNumber, &Trace::ZaxisLabel, value));
}
std::u16string ClassAdd_3::TraceZaxisLabel(std::int32_t TraceNumber) const
{
    return Get(TraceNumber, &Trace::ZaxisLabel);
}

std::int32_t ClassAdd_4::StructureNumberOfQuadSurfaces() const { return modQOR_File().Structure.NumberOfQuadSurfaces; }
void ClassAdd_4::StructureNumberOfQuadSurfaces(std::int32_t value)
{
    modQOR_File().Structure.NumberOfQuadSurfaces = std::max(value, 0);
    AllocateSharedStructure();
}

oReturnStatus ClassAdd_4::ReadStructureQuadSurface(const std::int32_t& QuadSurfaceNumber,
                                                   std::int32_t& CornerVertex1Point, std::int32_t& CornerVertex2Point,
                                                   std::int32_t& CornerVertex3Point, std::int32_t& CornerVertex4Point,
                                                   std::int32_t& QuadSurfaceColor, Bool16& QuadSurfaceBold)
{
    modQOR_File().SharedErrorStatus = NoError;
    return Shared(FetchElement(modQOR_File().Structure.QuadSurfaces, QuadSurfaceNumber,
                               {&CornerVertex1Point, &CornerVertex2Point, &CornerVertex3Point, &CornerVertex4Point},
                               QuadSurfaceColor, QuadSurfaceBold, QuadSurfacesNotAllocated, QuadSurfaceIndexError));
}

oReturnStatus ClassAdd_4::WriteStructureQuadSurface(const std::int32_t& QuadSurfaceNumber,
                                                    const std::int32_t& CornerVertex1Point,
                                                    const std::int32_t& CornerVertex2Point,
                                                    const std::int32_t& CornerVertex3Point,
                                                    const std::int32_t& CornerVertex4Point,
                                                    const std::int32_t& QuadSurfaceColor, const Bool16& QuadSurfaceBold)
{
    Structure& structure = modQOR_File().Structure;
    modQOR_File().SharedErrorStatus = NoError;
    return Shared(StoreElement(structure.QuadSurfaces, structure.NumberOfQuadSurfaces, QuadSurfaceNumber,
                               {CornerVertex1Point, CornerVertex2Point, CornerVertex3Point, CornerVertex4Point},
                               QuadSurfaceColor, QuadSurfaceBold, QuadSurfacesNotAllocated, QuadSurfaceIndexError));
}

XaxisUnitsAre ClassAdd_5::XaxisUnits() const
{
    return static_cast<XaxisUnitsAre>(modQOR_File().DataBlock.XaxisUnitsCode);
}
void ClassAdd_5::XaxisUnits(XaxisUnitsAre value) { StoreNarrowed(value, modQOR_File().DataBlock.XaxisUnitsCode); }

float ClassAdd_5::DataBlockRPM() const { return modQOR_File().DataBlock.RPM; }
void ClassAdd_5::DataBlockRPM(float value) { modQOR_File().DataBlock.RPM = value; }

float ClassAdd_5::DataBlockExponentialWindowDampingInHz() const
{
    return modQOR_File().DataBlock.ExponentialWindowDampingInHz;
}
void ClassAdd_5::DataBlockExponentialWindowDampingInHz(float value)
{
    modQOR_File().DataBlock.ExponentialWindowDampingInHz = value;
}
