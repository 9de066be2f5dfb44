// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Files three traces as a Data Block, then reads them back and shows their peaks: measurement [FILE]
#include <comdef.h>
#include <windows.h>

#include "QOR_FileInterfaces.h" // made of the interface definition; in the package beside the libraries

#include <cmath>
#include <cstdio>
#include <string>

_COM_SMARTPTR_TYPEDEF(_clsQOR_File, __uuidof(_clsQOR_File));
_COM_SMARTPTR_TYPEDEF(IQOR_FileArrays, __uuidof(IQOR_FileArrays));

namespace {

constexpr long TraceCount = 3;
constexpr long SampleCount = 1000;

// A failed call, such as a fault that the component raises: Failure is no such thing, but a result.
void Require(HRESULT called)
{
    if (FAILED(called)) _com_raise_error(called);
}

// What a member reported: its status and, for properties, which have none, the code alone.
void Require(_clsQOR_FilePtr& file, const _bstr_t& what, ReturnStatus status)
{
    ErrorStatusTypes code = NoError;
    Require(file->get_ErrorStatus(&code)); // once: reading clears it
    if (status != Failure && code == NoError) return;
    _bstr_t text = L"cannot be opened or made";
    if (code != NoError) Require(file->GetLastErrorString(text.GetAddress()));
    throw what + L": " + text;
}

// An array of single that frees itself.
_variant_t DecayingWave(long trace)
{
    _variant_t wave;
    wave.parray = SafeArrayCreateVector(VT_R4, 0, SampleCount);
    if (!wave.parray) _com_raise_error(E_OUTOFMEMORY);
    wave.vt = VT_ARRAY | VT_R4;
    float* values = nullptr;
    Require(SafeArrayAccessData(wave.parray, reinterpret_cast<void**>(&values)));
    for (long sample = 0; sample < SampleCount; ++sample) {
        values[sample] = static_cast<float>(trace * std::exp(-0.005 * sample) * std::sin(0.05 * sample));
    }
    SafeArrayUnaccessData(wave.parray);
    return wave;
}

float Peak(const _variant_t& wave)
{
    float* values = nullptr;
    float peak = 0;
    Require(SafeArrayAccessData(wave.parray, reinterpret_cast<void**>(&values)));
    for (unsigned long sample = 0; sample < wave.parray->rgsabound[0].cElements; ++sample) {
        if (std::fabs(values[sample]) > std::fabs(peak)) peak = values[sample];
    }
    SafeArrayUnaccessData(wave.parray);
    return peak;
}

void Save(_clsQOR_FilePtr& file, IQOR_FileArraysPtr& arrays, const _bstr_t& path)
{
    ReturnStatus status = Failure;
    Require(file->put_DataBlock_Label(_bstr_t(L"Tap on a beam")));
    Require(file->put_DataBlock_XaxisUnits(_bstr_t(L"s")));
    Require(file->put_DataBlock_XaxisIncrement(0.001F));
    Require(file->put_DataBlock_NumberOfTraces(TraceCount));
    Require(file->put_DataBlock_NumberOfSamples(SampleCount));
    for (long trace = 1; trace <= TraceCount; ++trace) { // everything counts from 1
        const _bstr_t number = std::to_wstring(trace).c_str();
        Require(file->put_Trace_Label(trace, L"Accelerometer " + number));
        Require(file->put_Trace_DegreesOfFreedom(trace, number + L"Z"));
        Require(file->put_Trace_MeasurementUnits(trace, _bstr_t(L"m/s^2")));
        Require(file->put_Trace_MeasurementType(trace, DB_MeasurementIsTimeResponse));
        Require(arrays->WriteTraceSamples(trace, DecayingWave(trace), _variant_t(), &status)); // no imaginary parts
        Require(file, L"Trace " + number, status);
    }
    Require(file->OutputDataBlockFile(path, &status));
    Require(file, path, status);
}

void Show(_clsQOR_FilePtr& file, IQOR_FileArraysPtr& arrays, _bstr_t path)
{
    ReturnStatus status = Failure;
    Require(file->InputDataBlockFile(&path.GetBSTR(), &status)); // in/out parameters are passed by reference
    Require(file, path, status);
    _bstr_t title;
    long traces = 0;
    long samples = 0;
    Require(file->get_DataBlock_Label(title.GetAddress()));
    Require(file->get_DataBlock_NumberOfTraces(&traces));
    Require(file->get_DataBlock_NumberOfSamples(&samples));
    std::printf("%ls: %ld traces of %ld samples\n", static_cast<const wchar_t*>(title), traces, samples);
    for (long trace = 1; trace <= traces; ++trace) {
        _bstr_t label;
        _bstr_t units;
        _variant_t values;
        _variant_t notWanted(DISP_E_PARAMNOTFOUND, VT_ERROR); // not null, which cannot leave the apartment
        Require(file->get_Trace_Label(trace, label.GetAddress()));
        Require(file->get_Trace_MeasurementUnits(trace, units.GetAddress()));
        Require(arrays->ReadTraceSamples(trace, &values, &notWanted, &status));
        Require(file, label, status);
        std::printf("%ls: peak %.3f %ls\n", static_cast<const wchar_t*>(label), Peak(values),
                    static_cast<const wchar_t*>(units));
    }
}

} // namespace

int wmain(int count, wchar_t* arguments[])
{
    int exitStatus = 1;
    if (FAILED(CoInitialize(nullptr))) return exitStatus;
    try {
        const _bstr_t path = count > 1 ? arguments[1] : L"measurement.blk";
        _clsQOR_FilePtr file; // objects stay on the thread that made them
        Require(file.CreateInstance(__uuidof(clsQOR_File)));
        IQOR_FileArraysPtr arrays = file; // the same object's interface for whole arrays
        Save(file, arrays, path);
        Show(file, arrays, path);
        exitStatus = 0;
    } catch (const _bstr_t& message) {
        std::fprintf(stderr, "%ls\n", static_cast<const wchar_t*>(message));
    } catch (const _com_error& error) {
        std::fprintf(stderr, "error 0x%08lX\n", static_cast<unsigned long>(error.Error()));
    }
    CoUninitialize();
    return exitStatus;
}
