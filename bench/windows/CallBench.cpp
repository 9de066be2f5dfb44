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

void BenchEarly(Report& report, _clsQOR_File& file)
{
    report.Begin("Calls through the vtable, " WORD_SIZE, "A member called through its interface.");
    const auto compare = [&](const char* name, auto work) {
        Compare(report, name, Calls, work, "an empty call", doNothing);
    };
    LONG trace = 2;
    LONG sample = 500;
    float real = 1.5F;
    float imaginary = 0;
    ReturnStatus status = Failure;
    compare("vtable_read_sample", [&] { file.ReadTraceSampleValue(&trace, &sample, &real, &imaginary, &status); });
    compare("vtable_write_sample", [&] { file.WriteTraceSampleValue(&trace, &sample, &real, &imaginary, &status); });
    Require(status == Success, "early-bound call");
    compare("vtable_trace_label", [&] {
        BSTR label = nullptr;
        file.get_Trace_Label(2, &label);
        SysFreeString(label);
    });
    // What is not the library's in it: a text that is made and freed.
    compare("vtable_text_alone", [] { SysFreeString(SysAllocString(L"1Z:3Z")); });
    ErrorStatusTypes error = NoError;
    compare("vtable_error_status", [&] { file.get_ErrorStatus(&error); });
    Require(error == NoError, "error status");
}

void BenchLate(Report& report, _clsQOR_File& file)
{
    report.Begin("Calls late bound, " WORD_SIZE, "IDispatch::Invoke.");
    LONG trace = 2;
    LONG sample = 500;
    float real = 1.5F;
    float imaginary = 0;
    const auto compare = [&](const char* name, LateCall&& call) {
        Compare(
            report, name, LateCalls, [&] { call.ByObject(); }, "the stock dispatcher", [&] { call.ByStock(); }, 1);
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
            report, name, LateCalls, [&] { call.ByObject(); }, "stock, exact types", [&] { exactly.ByStock(); });
    };
    besideExact("late_variables_read_sample", L"ReadTraceSampleValue");
    besideExact("late_variables_write_sample", L"WriteTraceSampleValue");
}

void BenchCreation(Report& report, IClassFactory& factory)
{
    report.Begin("New objects, " WORD_SIZE, "Made, called late bound for the first time where told, and released.");
    const auto create = [&] { Create<_clsQOR_File>(factory); };
    Compare(report, "create", Objects, create, "an empty call", doNothing);
    LONG number = 0;
    const auto createAndCallLate = [&] {
        const auto file = Create<_clsQOR_File>(factory);
        LateCall(*file.Get(), L"DataBlock_NumberOfTraces", DISPATCH_PROPERTYGET, {}).ByObject();
    };
    Compare(report, "create_late_first", 5, createAndCallLate, "create",
            create); // the type library is read anew each time
    const auto other = Create<_clsQOR_File>(factory);
    LateCall(*other.Get(), L"DataBlock_NumberOfTraces", DISPATCH_PROPERTYGET, {}).ByObject();
    Compare(report, "create_late_again", Objects, createAndCallLate, "create", create); // another object has read it
    other->get_DataBlock_NumberOfTraces(&number);
    Require(number == 0, "new documents");
}

} // namespace

void BenchCalls(Report& report)
{
    const auto factory = FactoryOf(__uuidof(clsQOR_File));
    BenchCreation(report, *factory.Get());
    const auto file = Create<_clsQOR_File>(*factory.Get());
    Fill(*file.Get());
    BenchEarly(report, *file.Get());
    BenchLate(report, *file.Get());
}

} // namespace qor::bench
