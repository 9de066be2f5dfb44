// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Benches.h"
#include "Client.h"
#include "Figures.h"
#include "Nothing.h"

namespace qor::bench {
namespace {

constexpr LONG Traces = 3;
constexpr LONG Samples = 1000;
constexpr int Calls = 20'000;
constexpr int LateCalls = 2'000;
constexpr int Objects = 200;

// The least that a call through a vtable can cost.
INothing& nothing = NewNothing();
const auto doNothing = [] { nothing.DoNothing(); };

void Fill(_clsQOR_File& file)
{
    file.put_DataBlock_NumberOfTraces(Traces);
    file.put_DataBlock_NumberOfSamples(Samples);
    const BSTR label = SysAllocString(L"1Z:3Z");
    file.put_Trace_Label(2, label);
    SysFreeString(label);
}

void BenchEarly(_clsQOR_File& file)
{
    LONG trace = 2;
    LONG sample = 500;
    float real = 1.5F;
    float imaginary = 0;
    ReturnStatus status = Failure;
    Compare(
        "vtable_read_sample", Calls, [&] { file.ReadTraceSampleValue(&trace, &sample, &real, &imaginary, &status); },
        doNothing);
    Compare(
        "vtable_write_sample", Calls, [&] { file.WriteTraceSampleValue(&trace, &sample, &real, &imaginary, &status); },
        doNothing);
    Require(status == Success, "early-bound call");
    Compare(
        "vtable_trace_label", Calls,
        [&] {
            BSTR label = nullptr;
            file.get_Trace_Label(2, &label);
            SysFreeString(label);
        },
        doNothing);
    // What is not the library's in it: a text that is made and freed.
    Compare(
        "vtable_text_alone", Calls, [] { SysFreeString(SysAllocString(L"1Z:3Z")); }, doNothing);
    ErrorStatusTypes error = NoError;
    Compare(
        "vtable_error_status", Calls, [&] { file.get_ErrorStatus(&error); }, doNothing);
    Require(error == NoError, "error status");
}

void BenchLate(_clsQOR_File& file)
{
    LONG trace = 2;
    LONG sample = 500;
    float real = 1.5F;
    float imaginary = 0;
    const auto compare = [](const char* name, LateCall&& call) {
        Compare(
            name, LateCalls, [&] { call.ByObject(); }, [&] { call.ByStock(); });
    };
    const auto exact = {Reference(trace), Reference(sample), Reference(real), Reference(imaginary)};
    compare("late_read_sample", {file, L"ReadTraceSampleValue", DISPATCH_METHOD, exact});
    compare("late_write_sample", {file, L"WriteTraceSampleValue", DISPATCH_METHOD, exact});
    compare("late_trace_label", {file, L"Trace_Label", DISPATCH_PROPERTYGET, {Value(LONG{2})}});
    compare("late_error_status", {file, L"ErrorStatus", DISPATCH_PROPERTYGET, {}});

    // A script's variables, which the stock dispatcher refuses, beside the same call with exact types.
    VARIANT variables[] = {Value(LONG{2}), Value(LONG{500}), Value(1.5), Value(0.0)};
    const auto inVariables = {Reference(variables[0]), Reference(variables[1]), Reference(variables[2]),
                              Reference(variables[3])};
    const auto besideExact = [&](const char* name, const wchar_t* member) {
        LateCall call(file, member, DISPATCH_METHOD, inVariables);
        LateCall exactly(file, member, DISPATCH_METHOD, exact);
        Compare(
            name, LateCalls, [&] { call.ByObject(); }, [&] { exactly.ByStock(); });
    };
    besideExact("late_variables_read_sample", L"ReadTraceSampleValue");
    besideExact("late_variables_write_sample", L"WriteTraceSampleValue");
}

void BenchCreation(IClassFactory& factory)
{
    const auto create = [&] { Create<_clsQOR_File>(factory); };
    Compare("create", Objects, create, doNothing);
    LONG number = 0;
    const auto createAndCallLate = [&] {
        const auto file = Create<_clsQOR_File>(factory);
        LateCall(*file.Get(), L"DataBlock_NumberOfTraces", DISPATCH_PROPERTYGET, {}).ByObject();
    };
    Compare("create_late_first", 5, createAndCallLate, create); // the type library is read anew each time
    const auto other = Create<_clsQOR_File>(factory);
    LateCall(*other.Get(), L"DataBlock_NumberOfTraces", DISPATCH_PROPERTYGET, {}).ByObject();
    Compare("create_late_again", Objects, createAndCallLate, create); // another object has read it
    other->get_DataBlock_NumberOfTraces(&number);
    Require(number == 0, "new documents");
}

} // namespace

void BenchCalls()
{
    const auto factory = FactoryOf(__uuidof(clsQOR_File));
    BenchCreation(*factory.Get());
    const auto file = Create<_clsQOR_File>(*factory.Get());
    Fill(*file.Get());
    BenchEarly(*file.Get());
    BenchLate(*file.Get());
}

} // namespace qor::bench
