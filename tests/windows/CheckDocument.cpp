// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Sizes, samples, texts and errors of a Data Block in memory.
#include "Check.h"

#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <string>

#ifdef _WIN32
#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>
#endif

namespace qor::test {
namespace {

// What the platform's error object says.
std::u16string PostedText()
{
#ifdef _WIN32
    IErrorInfo* posted = nullptr;
    if (GetErrorInfo(0, &posted) != S_OK) return {};
    BSTR description = nullptr;
    posted->GetDescription(&description);
    const std::u16string text(description, description + SysStringLen(description));
    SysFreeString(description);
    posted->Release();
    return text;
#else
    return platform::LastPostedError().description;
#endif
}

void CheckSizes()
{
    clsQOR_File file;
    Check(file.DLLversion() == 1.05F, "the version is 1.05");
    Check(file.DataBlock_NumberOfTraces() == 0 && file.DataBlock_NumberOfSamples() == 0, "a new document is empty");

    file.DataBlock_NumberOfTraces(40000);
    Check(file.DataBlock_NumberOfTraces() == 32000, "more traces than there may be are clamped");
    file.DataBlock_NumberOfTraces(2);
    file.DataBlock_NumberOfSamples(-5);
    Check(file.DataBlock_NumberOfSamples() == 0, "a negative number of samples counts as 0");

    file.DataBlock_NumberOfSamples(3);
    file.WriteTraceSampleValue(2, 3, 1.5F, 0);
    file.DataBlock_NumberOfSamples(1'000'000); // from a shared block to memory of its own
    float real = 0;
    float imaginary = -1;
    file.ReadTraceSampleValue(2, 3, real, imaginary);
    Check(real == 1.5F && imaginary == 0, "a sample survives the growth of its trace");
    file.ReadTraceSampleValue(2, 1'000'000, real, imaginary);
    Check(real == 0, "a new sample is 0");

    file.DataBlock_NumberOfTraces(32000); // 128 GB
    Check(file.ErrorStatus() == AllocationError, "more than the memory is an allocation error");
    Check(file.DataBlock_NumberOfTraces() == 0, "and empties the document");
}

void CheckSamples()
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    file.DataBlock_NumberOfSamples(4);
    float first = 0;
    float second = 0;

    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    file.WriteTraceSampleValue(1, 4, 3, -4);
    file.ReadTraceSampleValue(1, 4, first, second);
    Check(first == 3 && second == -4, "a real/imaginary sample is read as written");

    file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    file.ReadTraceSampleValue(1, 4, first, second);
    Check(first == 5 && second > 306.86F && second < 306.88F, "and seen as magnitude and phase");
    file.WriteTraceSampleValue(2, 1, 2, 90);
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    file.ReadTraceSampleValue(2, 1, first, second);
    Check(first > -1e-6F && first < 1e-6F && second == 2, "magnitude and phase are kept as real and imaginary");

    file.DataBlock_TraceDataFormat(DataFormat_Real);
    file.ReadTraceSampleValue(1, 4, first, second);
    Check(first == 0, "another storage format discards the samples");

    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.WriteDataBlockXaxisValue(2, 12.5F);
    float x = 0;
    Check(file.ReadDataBlockXaxisValue(2, x) == Success && x == 12.5F, "an X value is read as written");
}

void CheckTexts()
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    const std::u16string text = u"Beschleunigung \u00FC \u4E2D \U0001F50A";
    file.Trace_Label(1, text);
    file.DataBlock_Label(text);
    Check(file.Trace_Label(1) == text && file.DataBlock_Label() == text, "texts keep every character");
    ClassAdd_3().TraceZaxisLabel(1, text);
    Check(ClassAdd_3().TraceZaxisLabel(1) == text, "an added class works on the same document");
}

void CheckErrors()
{
    clsQOR_File file;
    float real = 7;
    float imaginary = 8;
    Check(file.ReadTraceSampleValue(1, 1, real, imaginary) == Failure, "a sample of an empty document is refused");
    Check(file.ErrorStatus() == TraceDataNotAllocated, "because nothing is allocated");

    file.DataBlock_NumberOfTraces(1);
    file.DataBlock_NumberOfSamples(2);
    file.ReadTraceSampleValue(2, 1, real, imaginary);
    Check(file.GetLastErrorString() == u"Error (10): Trace Index error", "an error has its text");
    Check(PostedText() == file.GetLastErrorString(), "which is posted too");
    Check(file.ErrorStatus() == TraceIndexError && file.ErrorStatus() == NoError, "a status is told once");
    file.ReadTraceSampleValue(1, 3, real, imaginary);
    Check(file.ErrorStatus() == SampleIndexError, "a sample behind the last is refused");
    Check(real == 7 && imaginary == 8, "a refused read leaves the values");
}

} // namespace

void CheckDocument()
{
    CheckSizes();
    CheckSamples();
    CheckTexts();
    CheckErrors();
}

} // namespace qor::test
