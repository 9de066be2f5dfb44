// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Benches.h"
#include "Client.h"
#include "Figures.h"

#include <cstring>

namespace qor::bench {
namespace {

constexpr LONG Samples = 100'000;

float Number(LONG sample) { return static_cast<float>(sample) * 0.25F; }

// A client's array of all samples.
class Array
{
public:
    Array()
    {
        variant_.vt = VT_ARRAY | VT_R4;
        variant_.parray = SafeArrayCreateVector(VT_R4, 0, Samples);
        Require(variant_.parray != nullptr, "no array");
        for (LONG sample = 0; sample < Samples; ++sample) Numbers()[sample] = Number(sample);
    }
    ~Array() { VariantClear(&variant_); }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;

    float* Numbers() const { return static_cast<float*>(variant_.parray->pvData); }
    VARIANT& Variant() { return variant_; }

private:
    VARIANT variant_{};
};

VARIANT LeftOut()
{
    VARIANT variant{};
    variant.vt = VT_ERROR;
    variant.scode = DISP_E_PARAMNOTFOUND;
    return variant;
}

// One trace, and the ways to its samples.
struct Trace {
    Trace(IClassFactory& factory) : file(Create<_clsQOR_File>(factory))
    {
        Require(SUCCEEDED(file->QueryInterface(__uuidof(IQOR_FileArrays), arrays.OutAny())), "no arrays");
        file->put_DataBlock_NumberOfTraces(1);
        file->put_DataBlock_NumberOfSamples(Samples);
        copy.resize(Samples);
    }

    void ReadAll()
    {
        VARIANT none = LeftOut();
        ReturnStatus status = Failure;
        arrays->ReadTraceSamples(1, &array.Variant(), &none, &status);
        Require(status == Success, "whole trace read");
    }
    void WriteAll()
    {
        ReturnStatus status = Failure;
        arrays->WriteTraceSamples(1, array.Variant(), LeftOut(), &status);
        Require(status == Success, "whole trace written");
    }
    void ReadEach()
    {
        LONG trace = 1;
        float imaginary = 0;
        ReturnStatus status = Failure;
        for (LONG sample = 1; sample <= Samples; ++sample)
            file->ReadTraceSampleValue(&trace, &sample, &array.Numbers()[sample - 1], &imaginary, &status);
        Require(status == Success, "samples read");
    }
    void WriteEach()
    {
        LONG trace = 1;
        float imaginary = 0;
        ReturnStatus status = Failure;
        for (LONG sample = 1; sample <= Samples; ++sample)
            file->WriteTraceSampleValue(&trace, &sample, &array.Numbers()[sample - 1], &imaginary, &status);
        Require(status == Success, "samples written");
    }
    // The same by late-bound calls with a script's variables; sample by sample only where it is told.
    void LateEach(const wchar_t* member)
    {
        VARIANT trace = Value(LONG{1});
        VARIANT sample = Value(LONG{1});
        VARIANT real = Value(1.0);
        VARIANT imaginary = Value(0.0);
        LateCall call(*file.Get(), member, DISPATCH_METHOD,
                      {Reference(trace), Reference(sample), Reference(real), Reference(imaginary)});
        for (LONG number = 1; number <= Samples; ++number) {
            sample.lVal = number;
            call.ByObject();
        }
    }
    void LateAll(const wchar_t* member)
    {
        LateCall(*arrays.Get(), member, DISPATCH_METHOD, {Value(LONG{1}), Reference(array.Variant())}).ByObject();
    }
    // What a client's new array costs by itself.
    void CopyToNewArray()
    {
        SAFEARRAY* fresh = SafeArrayCreateVector(VT_R4, 0, Samples);
        Require(fresh != nullptr, "no array");
        std::memcpy(fresh->pvData, array.Numbers(), copy.size() * sizeof(float));
        SafeArrayDestroy(fresh);
    }
    void Copy() { std::memcpy(copy.data(), array.Numbers(), copy.size() * sizeof(float)); }

    // Whether one call reads what was written.
    bool Holds()
    {
        ReadAll();
        for (LONG sample = 0; sample < Samples; ++sample)
            if (array.Numbers()[sample] != Number(sample)) return false;
        return true;
    }

    Held<_clsQOR_File> file;
    Held<IQOR_FileArrays> arrays;
    Array array;
    std::vector<float> copy;
};

} // namespace

void BenchArrays(Report& report)
{
    report.Begin("Calls in bulk, " WORD_SIZE,
                 "100,000 real samples in one call, early and late bound, and by a call each.");
    const auto factory = FactoryOf(__uuidof(clsQOR_File));
    Trace trace(*factory.Get());
    const auto copy = [&] { trace.Copy(); };
    const auto readAll = [&] { trace.ReadAll(); };
    const auto writeAll = [&] { trace.WriteAll(); };
    const auto besideCopy = [&](const char* name, auto work) { Compare(report, name, 5, work, "memcpy", copy); };
    const auto besideOneCall = [&](const char* name, auto work, auto oneCall) {
        Compare(report, name, 1, work, "the one call", oneCall);
    };
    besideCopy("trace_write", writeAll);
    besideCopy("trace_read", readAll);
    Compare(report, "trace_read_to_new_array", 5, readAll, "copy to a new one", [&] { trace.CopyToNewArray(); });
    besideOneCall(
        "one_by_one_write", [&] { trace.WriteEach(); }, writeAll);
    besideOneCall(
        "one_by_one_read", [&] { trace.ReadEach(); }, readAll);
    Require(trace.Holds(), "samples");
    const auto lateRead = [&] { trace.LateAll(L"ReadTraceSamples"); };
    const auto lateWrite = [&] { trace.LateAll(L"WriteTraceSamples"); };
    besideCopy("late_trace_write", lateWrite);
    besideCopy("late_trace_read", lateRead);
    Require(trace.Holds(), "samples late bound");
    besideOneCall(
        "late_one_by_one_read", [&] { trace.LateEach(L"ReadTraceSampleValue"); }, lateRead);
    besideOneCall(
        "late_one_by_one_write", [&] { trace.LateEach(L"WriteTraceSampleValue"); }, lateWrite);
}

} // namespace qor::bench
