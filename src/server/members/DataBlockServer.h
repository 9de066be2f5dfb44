// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of _clsQOR_File on Data Blocks.
#pragma once

#include "server/Interfaces.h"
#include "server/dispatch/Dispatched.h"
#include "server/members/Arguments.h"

namespace qor::server {

class DataBlockServer : public Dispatched<_clsQOR_File>
{
public:
    STDMETHODIMP InitializeDataBlockStorage() override
    {
        return Do([&] { file_.InitializeDataBlockStorage(); });
    }

    STDMETHODIMP InitializeDataBlockData() override
    {
        return Do([&] { file_.InitializeDataBlockData(); });
    }

    STDMETHODIMP OutputDataBlockFile(BSTR DataBlock_FilePathName, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::OutputDataBlockFile, result, DataBlock_FilePathName);
    }

    STDMETHODIMP InputDataBlockFile(BSTR* FilePathName, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::InputDataBlockFile, result, FilePathName);
    }

    STDMETHODIMP ReadDataBlockXaxisValue(LONG* SampleNumber, float* XaxisValue, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadDataBlockXaxisValue, result, SampleNumber, XaxisValue);
    }

    STDMETHODIMP ReadTraceSampleValue(LONG* TraceNumber, LONG* SampleNumber, float* RealValue, float* ImaginaryValue,
                                      ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadTraceSampleValue, result, TraceNumber, SampleNumber, RealValue,
                    ImaginaryValue);
    }

    STDMETHODIMP get_Trace_DataSVT(LONG TraceNumber, SVTvalues* value) override
    {
        return Get(value, [&] { return file_.Trace_DataSVT(TraceNumber); });
    }

    STDMETHODIMP get_DataBlock_Label(BSTR* value) override
    {
        return Get(value, [&] { return file_.DataBlock_Label(); });
    }

    STDMETHODIMP put_DataBlock_Label(BSTR value) override
    {
        return Do([&] { file_.DataBlock_Label(TextOf(value)); });
    }

    STDMETHODIMP get_DataBlock_Notes(BSTR* value) override
    {
        return Get(value, [&] { return file_.DataBlock_Notes(); });
    }

    STDMETHODIMP put_DataBlock_Notes(BSTR value) override
    {
        return Do([&] { file_.DataBlock_Notes(TextOf(value)); });
    }

    STDMETHODIMP get_DataBlock_NumberOfSamples(LONG* value) override
    {
        return Get(value, [&] { return file_.DataBlock_NumberOfSamples(); });
    }

    STDMETHODIMP put_DataBlock_NumberOfSamples(LONG value) override
    {
        return Do([&] { file_.DataBlock_NumberOfSamples(value); });
    }

    STDMETHODIMP get_DataBlock_NumberOfTraces(LONG* value) override
    {
        return Get(value, [&] { return file_.DataBlock_NumberOfTraces(); });
    }

    STDMETHODIMP put_DataBlock_NumberOfTraces(LONG value) override
    {
        return Do([&] { file_.DataBlock_NumberOfTraces(value); });
    }

    STDMETHODIMP get_DataBlock_TraceDataFormat(DataBlock_DataFormatTypes* value) override
    {
        return Get(value, [&] { return file_.DataBlock_TraceDataFormat(); });
    }

    STDMETHODIMP put_DataBlock_TraceDataFormat(DataBlock_DataFormatTypes value) override
    {
        return Do([&] { file_.DataBlock_TraceDataFormat(value); });
    }

    STDMETHODIMP get_DataBlock_XaxisIncrement(float* value) override
    {
        return Get(value, [&] { return file_.DataBlock_XaxisIncrement(); });
    }

    STDMETHODIMP put_DataBlock_XaxisIncrement(float value) override
    {
        return Do([&] { file_.DataBlock_XaxisIncrement(value); });
    }

    STDMETHODIMP get_DataBlock_XaxisSpacing(DataBlock_XaxisSpacingTypes* value) override
    {
        return Get(value, [&] { return file_.DataBlock_XaxisSpacing(); });
    }

    STDMETHODIMP put_DataBlock_XaxisSpacing(DataBlock_XaxisSpacingTypes value) override
    {
        return Do([&] { file_.DataBlock_XaxisSpacing(value); });
    }

    STDMETHODIMP get_DataBlock_XaxisStart(float* value) override
    {
        return Get(value, [&] { return file_.DataBlock_XaxisStart(); });
    }

    STDMETHODIMP put_DataBlock_XaxisStart(float value) override
    {
        return Do([&] { file_.DataBlock_XaxisStart(value); });
    }

    STDMETHODIMP get_DataBlock_XaxisUnits(BSTR* value) override
    {
        return Get(value, [&] { return file_.DataBlock_XaxisUnits(); });
    }

    STDMETHODIMP put_DataBlock_XaxisUnits(BSTR value) override
    {
        return Do([&] { file_.DataBlock_XaxisUnits(TextOf(value)); });
    }

    STDMETHODIMP get_Trace_DateAndTime(LONG TraceNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Trace_DateAndTime(TraceNumber); });
    }

    STDMETHODIMP put_Trace_DateAndTime(LONG TraceNumber, BSTR value) override
    {
        return Do([&] { file_.Trace_DateAndTime(TraceNumber, TextOf(value)); });
    }

    STDMETHODIMP get_Trace_DegreesOfFreedom(LONG TraceNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Trace_DegreesOfFreedom(TraceNumber); });
    }

    STDMETHODIMP put_Trace_DegreesOfFreedom(LONG TraceNumber, BSTR value) override
    {
        return Do([&] { file_.Trace_DegreesOfFreedom(TraceNumber, TextOf(value)); });
    }

    STDMETHODIMP get_Trace_Label(LONG TraceNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Trace_Label(TraceNumber); });
    }

    STDMETHODIMP put_Trace_Label(LONG TraceNumber, BSTR value) override
    {
        return Do([&] { file_.Trace_Label(TraceNumber, TextOf(value)); });
    }

    STDMETHODIMP get_Trace_MeasurementType(LONG TraceNumber, DataBlock_MeasurementTypes* value) override
    {
        return Get(value, [&] { return file_.Trace_MeasurementType(TraceNumber); });
    }

    STDMETHODIMP put_Trace_MeasurementType(LONG TraceNumber, DataBlock_MeasurementTypes value) override
    {
        return Do([&] { file_.Trace_MeasurementType(TraceNumber, value); });
    }

    STDMETHODIMP get_Trace_MeasurementUnits(LONG TraceNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Trace_MeasurementUnits(TraceNumber); });
    }

    STDMETHODIMP put_Trace_MeasurementUnits(LONG TraceNumber, BSTR value) override
    {
        return Do([&] { file_.Trace_MeasurementUnits(TraceNumber, TextOf(value)); });
    }

    STDMETHODIMP put_Trace_DataSVT(LONG TraceNumber, SVTvalues value) override
    {
        return Do([&] { file_.Trace_DataSVT(TraceNumber, value); });
    }

    STDMETHODIMP WriteDataBlockXaxisValue(LONG* SampleNumber, float* XaxisValue, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteDataBlockXaxisValue, result, SampleNumber, XaxisValue);
    }

    STDMETHODIMP WriteTraceSampleValue(LONG* TraceNumber, LONG* SampleNumber, float* RealValue, float* ImaginaryValue,
                                       ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteTraceSampleValue, result, TraceNumber, SampleNumber, RealValue,
                    ImaginaryValue);
    }

    STDMETHODIMP GetMagnitudeValueFrom(float* RealValue, float* ImaginaryValue, float* result) override
    {
        return Call(file_, &clsQOR_File::GetMagnitudeValueFrom, result, RealValue, ImaginaryValue);
    }

    STDMETHODIMP GetRealValueFrom(float* MagnitudeValue, float* PhaseValue, float* result) override
    {
        return Call(file_, &clsQOR_File::GetRealValueFrom, result, MagnitudeValue, PhaseValue);
    }

    STDMETHODIMP GetImaginaryValueFrom(float* MagnitudeValue, float* PhaseValue, float* result) override
    {
        return Call(file_, &clsQOR_File::GetImaginaryValueFrom, result, MagnitudeValue, PhaseValue);
    }

    STDMETHODIMP GetPhaseValueFrom(VARIANT* RealValue, VARIANT* ImaginaryValue, VARIANT_BOOL* DisplayAs360,
                                   float* result) override
    {
        return Call(file_, &clsQOR_File::GetPhaseValueFrom, result, RealValue, ImaginaryValue, DisplayAs360);
    }

protected:
    // NOLINTNEXTLINE(misc-non-private-member-variables-in-classes): the layers above serve their members of the same
    clsQOR_File file_;
};

} // namespace qor::server
