// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Whole arrays in one call, early and late bound: which arrays are taken, and which the client's variables get.
#include "server/Documents.h"
#include "server/LateClient.h"
#include "server/WorkingSet.h"

#include <functional>
#include <limits>
#include <optional>
#include <type_traits>

using namespace qor::test;

namespace {

using Floats = std::vector<float>;

template <class Element>
constexpr VARTYPE TypeOf = std::is_same_v<Element, float>           ? VARTYPE{VT_R4}
                           : std::is_same_v<Element, double>        ? VARTYPE{VT_R8}
                           : std::is_same_v<Element, short>         ? VARTYPE{VT_I2}
                           : std::is_same_v<Element, long>          ? VARTYPE{VT_I4}
                           : std::is_same_v<Element, long long>     ? VARTYPE{VT_I8}
                           : std::is_same_v<Element, unsigned char> ? VARTYPE{VT_UI1}
                                                                    : VARTYPE{VT_VARIANT};

// An array of count elements in all; bounds are those of its dimensions.
template <class Element>
SAFEARRAY* NewArray(std::vector<SAFEARRAYBOUND> bounds)
{
    return SafeArrayCreate(TypeOf<Element>, static_cast<UINT>(bounds.size()), bounds.data());
}

// start, start + 1, start + 2 ...
template <class Element>
Variant Counting(std::vector<SAFEARRAYBOUND> bounds, int start)
{
    SAFEARRAY* array = NewArray<Element>(bounds);
    std::size_t count = 1;
    for (const SAFEARRAYBOUND& bound : bounds) count *= bound.cElements;
    for (std::size_t i = 0; i < count; ++i) {
        const int number = start + static_cast<int>(i);
        if constexpr (std::is_same_v<Element, VARIANT>) {
            VARIANT& element = static_cast<VARIANT*>(array->pvData)[i];
            element = Variant(number).As(i % 2 == 0 ? VT_R8 : VT_I2).Raw();
        } else {
            static_cast<Element*>(array->pvData)[i] = static_cast<Element>(number);
        }
    }
    return Variant(TypeOf<Element>, array);
}
template <class Element>
Variant Counting(ULONG count, int start = 0)
{
    return Counting<Element>({{count, 0}}, start);
}

Floats CountingNumbers(int start = 0)
{
    Floats numbers;
    for (int i = 0; i < Length; ++i) numbers.push_back(static_cast<float>(start + i));
    return numbers;
}

// The numbers of an array of single, double or variants with one dimension and lower bound 0.
Floats NumbersOf(const SAFEARRAY* array)
{
    VARTYPE type = VT_EMPTY;
    if (!array || FAILED(SafeArrayGetVartype(const_cast<SAFEARRAY*>(array), &type))) return {};
    EXPECT_EQ(array->cDims, 1);
    EXPECT_EQ(array->rgsabound[0].lLbound, 0);
    EXPECT_EQ(array->cLocks, 0U);
    Floats numbers;
    for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i) {
        if (type == VT_R4) numbers.push_back(static_cast<const float*>(array->pvData)[i]);
        if (type == VT_R8) numbers.push_back(static_cast<float>(static_cast<const double*>(array->pvData)[i]));
        if (type == VT_VARIANT) {
            const VARIANT& element = static_cast<const VARIANT*>(array->pvData)[i];
            EXPECT_EQ(element.vt, VT_R4);
            numbers.push_back(element.fltVal);
        }
    }
    return numbers;
}
Floats NumbersOf(const Variant& variable)
{
    return (variable.Type() & VT_ARRAY) != 0 ? NumbersOf(variable.Raw().parray) : Floats();
}

class Arrays : public ::testing::Test
{
protected:
    Arrays() { documents.file.DataBlock_TraceDataFormat(DataFormat_RealImaginary); }

    Floats Real(std::int32_t trace) { return Sampled(trace, true); }
    Floats Imaginary(std::int32_t trace) { return Sampled(trace, false); }

    // Writes real values of trace 1, late bound and early bound, and expects them to be expected.
    void ExpectTaken(Variant values, const Floats& expected)
    {
        const auto zeroed = [&] { late({1, Variant(VT_R4, SafeArrayCreateVector(VT_R4, 0, Length))}); };
        zeroed();
        EXPECT_EQ(late({1, values}).value, Variant(int{Success}));
        EXPECT_EQ(Real(1), expected);
        zeroed();
        EXPECT_EQ(late({1, Ref(values)}).value, Variant(int{Success}));
        EXPECT_EQ(Real(1), expected);
        zeroed();
        EXPECT_EQ(Early(values), S_OK);
        EXPECT_EQ(Real(1), expected);
    }

    // The same three ways, refused by the member (S_OK), or for being no array of numbers, with nothing stored.
    void ExpectRefused(Variant values, HRESULT result)
    {
        const std::uint64_t before = CleanBits();
        for (const Variant& given : {values, Ref(values)}) {
            const Outcome outcome = late({1, given});
            EXPECT_EQ(outcome.result, result == S_OK ? S_OK : DISP_E_EXCEPTION);
            EXPECT_EQ(outcome.fault, result);
            EXPECT_NE(outcome.value, Variant(int{Success}));
        }
        EXPECT_EQ(Early(values), result);
        EXPECT_EQ(CleanBits(), before);
    }

    // Of the documents without the error that the calls left.
    std::uint64_t CleanBits()
    {
        documents.file.Structure_NumberOfVertexPoints(Length); // forgets the thread's error
        documents.file.ErrorStatus(NoError);
        return documents.Bits();
    }

    HRESULT Early(const Variant& values)
    {
        ReturnStatus status = Failure;
        return own->WriteTraceSamples(1, values.Raw(), Variant::LeftOut().Raw(), &status);
    }

    Outcome Read(Variant real, Variant imaginary = Variant::LeftOut())
    {
        return Invoke(arrays, L"ReadTraceSamples", {2, std::move(real), std::move(imaginary)});
    }
    void ExpectRead(Variant real, Variant imaginary = Variant::LeftOut())
    {
        const Outcome outcome = Read(std::move(real), std::move(imaginary));
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value, Variant(int{Success}));
    }

    Documents documents;
    IDispatch* arrays = documents.arrays.Get();
    // Of the object itself, which also knows its view of the samples.
    Held<IQOR_FileArrays> own = [this] {
        Held<IQOR_FileArrays> found;
        documents.file.Get()->QueryInterface(__uuidof(IQOR_FileArrays), found.OutAny());
        return found;
    }();

private:
    Outcome late(const Arguments& arguments) { return Invoke(arrays, L"WriteTraceSamples", arguments); }

    Floats Sampled(std::int32_t trace, bool isReal)
    {
        Floats numbers;
        for (std::int32_t sample = 1; sample <= Length; ++sample) {
            float re = 0;
            float im = 0;
            documents.file.ReadTraceSampleValue(trace, sample, re, im);
            numbers.push_back(isReal ? re : im);
        }
        return numbers;
    }
};

// ---- in --------------------------------------------------------------------------------------------------------

TEST_F(Arrays, OfEveryNumericTypeAreTaken)
{
    const Floats expected = CountingNumbers(3);
    ExpectTaken(Counting<float>(Length, 3), expected);
    ExpectTaken(Counting<double>(Length, 3), expected);
    ExpectTaken(Counting<short>(Length, 3), expected);
    ExpectTaken(Counting<long>(Length, 3), expected);
    ExpectTaken(Counting<long long>(Length, 3), expected);
    ExpectTaken(Counting<unsigned char>(Length, 3), expected);
    ExpectTaken(Counting<VARIANT>(Length, 3), expected);
}

TEST_F(Arrays, OfAnyLowerBoundAreTaken)
{
    for (const LONG lowest : {0L, 1L, -5L}) {
        ExpectTaken(Counting<double>({{Length, lowest}}, 7), CountingNumbers(7));
        ExpectTaken(Counting<VARIANT>({{Length, lowest}}, 7), CountingNumbers(7));
    }
}

// MATLAB's rows and columns, and Excel's ranges.
TEST_F(Arrays, OfOneRowOrOneColumnAreTaken)
{
    ExpectTaken(Counting<double>({{Length, 0}, {1, 0}}, 7), CountingNumbers(7));
    ExpectTaken(Counting<double>({{1, 0}, {Length, 0}}, 7), CountingNumbers(7));
    ExpectTaken(Counting<VARIANT>({{Length, 1}, {1, 1}}, 7), CountingNumbers(7));
    ExpectTaken(Counting<VARIANT>({{1, 1}, {Length, 1}}, 7), CountingNumbers(7));
}

TEST_F(Arrays, OfOneNumberMayBeANumber)
{
    documents.file.DataBlock_NumberOfSamples(1);
    float re = 0, im = 0;
    for (const Variant& number : {Variant(2.5), Variant(L"2.5"), Variant(2.5F)}) {
        documents.file.WriteTraceSampleValue(1, 1, 0, 0);
        EXPECT_EQ(Early(number), S_OK);
        documents.file.ReadTraceSampleValue(1, 1, re, im);
        EXPECT_EQ(re, 2.5F);
    }
}

TEST_F(Arrays, OfOtherLengthsAreRefused)
{
    ExpectRefused(Counting<float>(Length - 1), S_OK);
    ExpectRefused(Counting<double>(Length + 1), S_OK);
    ExpectRefused(Counting<VARIANT>(0), S_OK);
    ExpectRefused(Variant(), S_OK);
    ExpectRefused(Variant(1.0), S_OK);
    ExpectRefused(Variant(VT_R8, nullptr), S_OK);
    ExpectRefused(Counting<double>({{0, 0}, {0, 0}}, 0), S_OK); // MATLAB's []
    ExpectRefused(Counting<double>({{0, 0}, {3, 0}}, 0), S_OK);
}

TEST_F(Arrays, OfOtherThingsAreRefused)
{
    ExpectRefused(Counting<double>({{Length / 2, 0}, {2, 0}}, 0), DISP_E_TYPEMISMATCH);
    ExpectRefused(Counting<double>({{Length, 0}, {1, 0}, {1, 0}}, 0), DISP_E_TYPEMISMATCH);
    ExpectRefused(Variant(VT_BSTR, SafeArrayCreateVector(VT_BSTR, 0, Length)), DISP_E_TYPEMISMATCH);
    ExpectRefused(Variant(VT_DISPATCH, SafeArrayCreateVector(VT_DISPATCH, 0, Length)), DISP_E_TYPEMISMATCH);
    ExpectRefused(Variant(L"text"), DISP_E_TYPEMISMATCH);
    ExpectRefused(Variant::Null(), DISP_E_TYPEMISMATCH);

    Variant large = Counting<double>(Length);
    static_cast<double*>(large.Raw().parray->pvData)[Length - 1] = 1e300;
    ExpectRefused(large, DISP_E_TYPEMISMATCH);
    Variant mixed = Counting<VARIANT>(Length);
    static_cast<VARIANT*>(mixed.Raw().parray->pvData)[Length - 1].vt = VT_NULL;
    ExpectRefused(mixed, DISP_E_TYPEMISMATCH);
}

TEST_F(Arrays, WithoutElementsInMemoryAreRefused)
{
    SAFEARRAY* array = nullptr;
    for (const VARTYPE type : {VT_R4, VT_R8, VT_I4, VT_VARIANT}) {
        SafeArrayAllocDescriptorEx(type, 1, &array);
        array->rgsabound[0] = {Length, 0};
        const std::uint64_t before = CleanBits();
        const Outcome outcome = Invoke(arrays, L"WriteTraceSamples", {1, RefAs(VT_ARRAY | type, &array)});
        EXPECT_EQ(outcome.fault, DISP_E_TYPEMISMATCH) << type;
        EXPECT_EQ(CleanBits(), before);
        SafeArrayDestroyDescriptor(array);
    }
}

TEST_F(Arrays, OfTheLargestNumbersAreTaken)
{
    constexpr float largest = std::numeric_limits<float>::max();
    Variant doubles = Counting<double>(Length), variants = Counting<VARIANT>(Length);
    for (int number = 0; number < Length; ++number) {
        static_cast<double*>(doubles.Raw().parray->pvData)[number] = -double{largest};
        static_cast<VARIANT*>(variants.Raw().parray->pvData)[number] = Variant(double{largest}).Raw();
    }
    ExpectTaken(doubles, Floats(Length, -largest));
    ExpectTaken(variants, Floats(Length, largest));
}

TEST_F(Arrays, ThatAreInUseAreStillRead)
{
    Variant values = Counting<float>(Length, 3);
    SafeArrayLock(values.Raw().parray);
    EXPECT_EQ(Early(values), S_OK);
    EXPECT_EQ(values.Raw().parray->cLocks, 1U);
    SafeArrayUnlock(values.Raw().parray);
    EXPECT_EQ(Real(1), CountingNumbers(3));
}

TEST_F(Arrays, MayServeTwice)
{
    Variant values = Counting<VARIANT>(Length, 3);
    const Outcome outcome = Invoke(arrays, L"WriteTraceSamples", {1, Ref(values), Ref(values)});
    EXPECT_EQ(outcome.value, Variant(int{Success}));
    EXPECT_EQ(Real(1), CountingNumbers(3));
    EXPECT_EQ(Imaginary(1), CountingNumbers(3));
    EXPECT_EQ(values.Raw().parray->cLocks, 0U);
}

TEST_F(Arrays, ByReferenceAreTaken)
{
    Variant values = Counting<double>({{Length, 1}}, 3);
    SAFEARRAY* array = values.Raw().parray;
    const Outcome outcome = Invoke(arrays, L"WriteTraceSamples", {1, RefAs(VT_ARRAY | VT_R8, &array)});
    EXPECT_EQ(outcome.value, Variant(int{Success}));
    EXPECT_EQ(Real(1), CountingNumbers(3));
    EXPECT_EQ(Imaginary(1), Floats(Length, 0.0F));
}

// ---- out -------------------------------------------------------------------------------------------------------

TEST_F(Arrays, OfSingleFillVariablesOfAnyContent)
{
    for (const Variant& before : {Variant(), Variant(7), Variant(L"text"), Counting<long>(3), Counting<float>(3)}) {
        Variant real = before, imaginary = before;
        ExpectRead(Ref(real), Ref(imaginary));
        EXPECT_EQ(real.Type(), VT_ARRAY | VT_R4);
        EXPECT_EQ(NumbersOf(real), Real(2));
        EXPECT_EQ(NumbersOf(imaginary), Imaginary(2));
    }
}

TEST_F(Arrays, KeepTheElementTypeThatAVariableHas)
{
    Variant real = Counting<double>({{3, 1}, {4, 1}}, 0), imaginary = Counting<VARIANT>(0);
    ExpectRead(Ref(real), Ref(imaginary));
    EXPECT_EQ(real.Type(), VT_ARRAY | VT_R8);
    EXPECT_EQ(imaginary.Type(), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(NumbersOf(real), Real(2));
    EXPECT_EQ(NumbersOf(imaginary), Imaginary(2));
}

TEST_F(Arrays, FillDeclaredDynamicArrays)
{
    SAFEARRAY* real = nullptr;
    SAFEARRAY* imaginary = SafeArrayCreateVector(VT_R8, 1, 3);
    ExpectRead(RefAs(VT_ARRAY | VT_R4, &real), RefAs(VT_ARRAY | VT_R8, &imaginary));
    EXPECT_EQ(NumbersOf(real), Real(2));
    EXPECT_EQ(NumbersOf(imaginary), Imaginary(2));
    SafeArrayDestroy(real);
    SafeArrayDestroy(imaginary);
}

// As Dim values(1 To 64) As Double declares it.
struct FixedArray {
    explicit FixedArray(ULONG count, LONG lowest = 1)
    {
        SafeArrayAllocDescriptorEx(VT_R8, 1, &array);
        array->rgsabound[0] = {count, lowest};
        SafeArrayAllocData(array);
        array->fFeatures |= FADF_AUTO | FADF_FIXEDSIZE;
    }
    ~FixedArray()
    {
        array->fFeatures = static_cast<USHORT>(array->fFeatures & ~(FADF_AUTO | FADF_FIXEDSIZE));
        SafeArrayDestroy(array);
    }
    FixedArray(const FixedArray&) = delete;
    FixedArray& operator=(const FixedArray&) = delete;

    Variant Reference() { return RefAs(VT_ARRAY | VT_R8, &array); }
    double* Elements() const { return static_cast<double*>(array->pvData); }
    Floats Numbers() const { return {Elements(), Elements() + array->rgsabound[0].cElements}; }

    SAFEARRAY* array = nullptr;
};

TEST_F(Arrays, FillDeclaredArraysOfFixedSize)
{
    FixedArray real(Length), imaginary(Length);
    SAFEARRAY* const declared = real.array;
    ExpectRead(real.Reference(), imaginary.Reference());
    EXPECT_EQ(real.array, declared);
    EXPECT_EQ(real.array->rgsabound[0].lLbound, 1);
    EXPECT_EQ(real.Numbers(), Real(2));
    EXPECT_EQ(imaginary.Numbers(), Imaginary(2));
}

TEST_F(Arrays, OfFixedSizeAreNotFilledWithElementsOfAnotherType)
{
    FixedArray doubles(Length), none(Length);
    doubles.Elements()[0] = 42;
    void* const memory = std::exchange(none.array->pvData, nullptr);
    for (const Variant& given :
         {RefAs(VT_ARRAY | VT_VARIANT, &doubles.array), RefAs(VT_ARRAY | VT_R4, &doubles.array), none.Reference()}) {
        EXPECT_EQ(Read(given).fault, DISP_E_TYPEMISMATCH);
    }
    none.array->pvData = memory;
    EXPECT_EQ(doubles.Elements()[0], 42);
}

TEST_F(Arrays, ThatCannotAllBeDeliveredLeaveEveryVariable)
{
    FixedArray tooShort(Length - 1);
    tooShort.Elements()[0] = 42;
    Variant locked = Counting<float>(3, 5);
    SafeArrayLock(locked.Raw().parray);
    double scalar = 42;
    SAFEARRAY* integers = SafeArrayCreateVector(VT_I4, 0, 3);
    const std::function<Variant()> impossible[] = {[&] { return tooShort.Reference(); }, [&] { return Ref(locked); },
                                                   [&] { return Ref(scalar); },
                                                   [&] { return RefAs(VT_ARRAY | VT_I4, &integers); }};
    for (const auto& make : impossible) {
        for (const bool first : {true, false}) {
            Variant other = 7;
            const Outcome outcome = first ? Read(make(), Ref(other)) : Read(Ref(other), make());
            EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
            EXPECT_FALSE(outcome.description.empty());
            EXPECT_EQ(other, Variant(7));
        }
        Variant early = make();
        ReturnStatus status = Success;
        EXPECT_HRESULT_FAILED(own->ReadTraceSamples(2, &early.Raw(), nullptr, &status));
        EXPECT_EQ(status, Failure);
    }
    EXPECT_EQ(tooShort.Elements()[0], 42);
    EXPECT_EQ(locked.Raw().parray->cLocks, 1U);
    SafeArrayUnlock(locked.Raw().parray);
    EXPECT_EQ(NumbersOf(locked), (Floats{5, 6, 7}));
    EXPECT_EQ(scalar, 42);
    EXPECT_EQ(integers->rgsabound[0].cElements, 3U);
    SafeArrayDestroy(integers);
}

TEST_F(Arrays, OfAFailedReadLeaveEveryVariable)
{
    Variant real = Counting<double>(3, 5), imaginary = 7;
    const Outcome outcome = Invoke(arrays, L"ReadTraceSamples", {Traces + 1, Ref(real), Ref(imaginary)});
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value, Variant(int{Failure}));
    EXPECT_EQ(NumbersOf(real), (Floats{5, 6, 7}));
    EXPECT_EQ(imaginary, Variant(7));
}

TEST_F(Arrays, OfTwoResultsInOneVariableAreTheLast)
{
    Variant both;
    ExpectRead(Ref(both), Ref(both));
    EXPECT_EQ(NumbersOf(both), Imaginary(2));
    SAFEARRAY* declared = nullptr;
    ExpectRead(RefAs(VT_ARRAY | VT_R4, &declared), RefAs(VT_ARRAY | VT_R4, &declared));
    EXPECT_EQ(NumbersOf(declared), Imaginary(2));
    SafeArrayDestroy(declared);
}

TEST_F(Arrays, AreReadWithoutTheImaginaryOnes)
{
    Variant real;
    EXPECT_EQ(Invoke(arrays, L"ReadTraceSamples", {2, Ref(real)}).value, Variant(int{Success}));
    EXPECT_EQ(NumbersOf(real), Real(2));
    ReturnStatus status = Failure;
    Variant early;
    EXPECT_EQ(own->ReadTraceSamples(2, &early.Raw(), nullptr, &status), S_OK);
    EXPECT_EQ(NumbersOf(early), Real(2));
}

// ---- the same values as one by one -----------------------------------------------------------------------------

TEST_F(Arrays, HoldWhatEverySampleReads)
{
    for (const auto format : {DataFormat_RealImaginary, DataFormat_MgnitudePhase}) {
        documents.file.DataBlock_TraceDataFormat(format);
        for (LONG trace = 1; trace <= Traces; ++trace) {
            Variant first, second;
            ReturnStatus status = Failure;
            EXPECT_EQ(own->ReadTraceSamples(trace, &first.Raw(), &second.Raw(), &status), S_OK);
            EXPECT_EQ(status, Success);
            EXPECT_EQ(NumbersOf(first), Real(trace));
            EXPECT_EQ(NumbersOf(second), Imaginary(trace));
        }
    }
}

TEST_F(Arrays, HoldWhatEveryShapeValueReads)
{
    for (LONG shape = 1; shape <= Shapes; ++shape) {
        Variant magnitudes, phases;
        Floats expectedMagnitudes, expectedPhases;
        ReturnStatus status = Failure;
        EXPECT_EQ(own->ReadShapeDOFvalues(shape, &magnitudes.Raw(), &phases.Raw(), &status), S_OK);
        for (LONG dof = 1; dof <= Length; ++dof) {
            float magnitude = 0, phase = 0;
            documents.file.ReadShapeDOFvalue(shape, dof, magnitude, phase);
            expectedMagnitudes.push_back(magnitude);
            expectedPhases.push_back(phase);
        }
        EXPECT_EQ(NumbersOf(magnitudes), expectedMagnitudes);
        EXPECT_EQ(NumbersOf(phases), expectedPhases);
    }
}

TEST_F(Arrays, HoldWhatEveryXValueReads)
{
    Variant values;
    Floats expected;
    ReturnStatus status = Failure;
    EXPECT_EQ(own->ReadDataBlockXaxisValues(&values.Raw(), &status), S_OK);
    for (LONG sample = 1; sample <= Length; ++sample) {
        float x = 0;
        documents.file.ReadDataBlockXaxisValue(sample, x);
        expected.push_back(x);
    }
    EXPECT_EQ(NumbersOf(values), expected);
}

TEST_F(Arrays, HoldWhatEveryVertexPointReads)
{
    Variant x, y, z;
    Floats expected[3];
    ReturnStatus status = Failure;
    EXPECT_EQ(own->ReadStructureVertexPointCoordinates(&x.Raw(), &y.Raw(), &z.Raw(), &status), S_OK);
    for (LONG point = 1; point <= Length; ++point) {
        std::u16string label;
        float coordinates[3] = {};
        std::int32_t color = 0;
        VARIANT_BOOL bold = 0;
        documents.file.ReadStructureVertexPoint(point, label, coordinates[0], coordinates[1], coordinates[2], color,
                                                bold);
        for (int axis = 0; axis < 3; ++axis) expected[axis].push_back(coordinates[axis]);
    }
    EXPECT_EQ(NumbersOf(x), expected[0]);
    EXPECT_EQ(NumbersOf(y), expected[1]);
    EXPECT_EQ(NumbersOf(z), expected[2]);
}

TEST_F(Arrays, AreReadAsTheyWereWritten)
{
    Variant x = Counting<double>(Length, 1), y = Counting<short>(Length, 2), z = Counting<VARIANT>(Length, 3);
    EXPECT_EQ(Invoke(arrays, L"WriteStructureVertexPointCoordinates", {Ref(x), Ref(y), Ref(z)}).value,
              Variant(int{Success}));
    EXPECT_EQ(Invoke(arrays, L"WriteShapeDOFvalues", {1, Ref(x), Ref(y)}).value, Variant(int{Success}));
    // The object for late binding has no view of its own, so that the X axis is the document's.
    EXPECT_EQ(Invoke(arrays, L"WriteDataBlockXaxisValues", {Ref(z)}).value, Variant(int{Success}));

    Variant first, second, third;
    Invoke(arrays, L"ReadStructureVertexPointCoordinates", {Ref(first), Ref(second), Ref(third)});
    EXPECT_EQ(NumbersOf(first), CountingNumbers(1));
    EXPECT_EQ(NumbersOf(second), CountingNumbers(2));
    EXPECT_EQ(NumbersOf(third), CountingNumbers(3));
    Invoke(arrays, L"ReadShapeDOFvalues", {1, Ref(first), Ref(second)});
    EXPECT_EQ(NumbersOf(first), CountingNumbers(1));
    EXPECT_EQ(NumbersOf(second), CountingNumbers(2));
    Invoke(arrays, L"ReadDataBlockXaxisValues", {Ref(first)});
    EXPECT_EQ(NumbersOf(first), CountingNumbers(3));
}

// ---- memory ----------------------------------------------------------------------------------------------------

TEST_F(Arrays, OfManyCallsAreAllReleased)
{
    documents.file.DataBlock_NumberOfSamples(100'000);
    Variant real, doubles(VT_R8, SafeArrayCreateVector(VT_R8, 0, 1));
    Variant written(VT_R8, SafeArrayCreateVector(VT_R8, 0, 100'000));
    SAFEARRAY* declared = nullptr;
    const auto round = [&] {
        Read(Ref(real), Ref(doubles));
        Read(RefAs(VT_ARRAY | VT_R4, &declared));
        Read(real, doubles); // by value: what is read goes nowhere
        Invoke(arrays, L"ReadTraceSamples", {99, Ref(real), Ref(doubles)});
        Invoke(arrays, L"WriteTraceSamples", {1, Ref(written), Ref(real)});
        Early(written);
    };
    EXPECT_LT(GrowthOver(100, round), 10'000'000U); // a single lost array a round would be 40 MB
    SafeArrayDestroy(declared);
}

} // namespace
