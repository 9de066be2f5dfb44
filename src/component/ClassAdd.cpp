// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The added classes. A failed check is left as the thread's shared error status, without a text.
#include "component/modQOR_File.h"
#include "datablock/SampleAccess.h"

#include <QOR_File/QOR_File.h>

using namespace qor;

namespace {

void Share(ErrorStatusTypes error)
{
    if (error != NoError) modQOR_File().SharedErrorStatus = error;
}

template <class T>
T Get(std::int32_t traceNumber, T Trace::*field)
{
    T value{};
    Share(GetTraceField(modQOR_File().DataBlock, traceNumber, field, value));
    return value;
}

} // namespace

void ClassAdd_1::TraceLinPower(std::int32_t TraceNumber, TraceLinPowerFlags value)
{
    DataBlock& block = modQOR_File().DataBlock;
    Share(SetTraceNarrowed(block, TraceNumber, &Trace::LinPower, value));
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
    Share(SetTraceField(modQOR_File().DataBlock, TraceNumber, &Trace::ZaxisLabel, std::u16string(value)));
}
std::u16string ClassAdd_3::TraceZaxisLabel(std::int32_t TraceNumber) const
{
    return Get(TraceNumber, &Trace::ZaxisLabel);
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
