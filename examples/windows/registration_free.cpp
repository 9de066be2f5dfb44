// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Uses the library from the program's own folder, without registration: the program's manifest names the assembly
// QOR_File, whose manifest says which classes are in QOR_File.dll. Put QOR_File.dll and QOR_File.manifest beside it.
//   registration_free FILE    saves a Data Block of one cycle of a sine
#include <cmath>
#include <cstdio>
#include <utility>

// Of the system and of the interface compiler, not written for these warnings.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wconversion"
#include <windows.h>

#include <QOR_FileInterfaces.h>
#pragma GCC diagnostic pop

namespace {

constexpr long Samples = 64;
constexpr float SecondsPerSample = 0.001F;

// A text as the library takes it.
class Text
{
public:
    explicit Text(const wchar_t* text) : text_(SysAllocString(text)) {}
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    operator BSTR() const { return text_; }

private:
    BSTR text_;
};

ReturnStatus SaveSine(_clsQOR_File& file, const wchar_t* path)
{
    file.put_DataBlock_Label(Text(L"One cycle"));
    file.put_DataBlock_TraceDataFormat(DataFormat_Real); // first: changing it later would discard samples
    file.put_DataBlock_NumberOfTraces(1);
    file.put_DataBlock_NumberOfSamples(Samples);
    file.put_DataBlock_XaxisUnits(Text(L"Sec"));
    file.put_DataBlock_XaxisIncrement(SecondsPerSample);
    file.put_Trace_Label(1, Text(L"Sine"));
    file.put_Trace_MeasurementType(1, DB_MeasurementIsTimeResponse);

    ReturnStatus status = Success;
    for (long sample = 1; sample <= Samples && status == Success; ++sample) { // counted from 1
        long trace = 1;
        float value = static_cast<float>(std::sin(6.283185307 * static_cast<double>(sample - 1) / Samples));
        float none = 0;
        if (FAILED(file.WriteTraceSampleValue(&trace, &sample, &value, &none, &status))) return Failure;
    }
    if (status == Success && FAILED(file.OutputDataBlockFile(Text(path), &status))) return Failure;
    return status;
}

} // namespace

int wmain(int count, wchar_t** words)
{
    if (count != 2) {
        std::puts("usage: registration_free FILE");
        return 2;
    }
    if (FAILED(CoInitialize(nullptr))) return 1;

    _clsQOR_File* file = nullptr;
    const HRESULT created = CoCreateInstance(__uuidof(clsQOR_File), nullptr, CLSCTX_INPROC_SERVER,
                                             __uuidof(_clsQOR_File), reinterpret_cast<void**>(&file));
    ReturnStatus saved = Failure;
    if (FAILED(created)) {
        std::printf("No clsQOR_File: error 0x%08lX\n", static_cast<unsigned long>(created));
    } else {
        float version = 0;
        file->get_DLLversion(&version);
        saved = SaveSine(*file, words[1]);
        std::printf("Version %.2f %s one trace of %ld samples to %ls\n", static_cast<double>(version),
                    saved == Success ? "saved" : "could not save", Samples, words[1]);
        file->Release();
    }
    CoUninitialize();
    return saved == Success ? 0 : 1;
}
