// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Late-bound calls that cannot be made, or fail: what clients are told, and what is left behind.
#include "server/LateBinding.h"
#include "server/WorkingSet.h"

#include <cmath>
#include <limits>

using namespace qor::test;

namespace {

// ---- what does not fit -----------------------------------------------------------------------------------------

TEST_F(LateBinding, TellsWhichArgumentCannotBeConverted)
{
    SAFEARRAY* numbers = SafeArrayCreateVector(VT_R8, 0, 2);
    Variant object;
    object.Raw().vt = VT_UNKNOWN;
    object.Raw().punkVal = file;
    file->AddRef();
    const Variant wrong[] = {4e9,
                             -3e9,
                             L"1x",
                             L"",
                             Variant::Null(),
                             Variant(VT_R8, numbers),
                             object,
                             std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<float>::quiet_NaN()};
    for (const Variant& value : wrong) {
        for (std::size_t place = 0; place < 2; ++place) {
            Variant variable = value, re(7), im(8);
            for (const Variant& given : {value, Ref(variable)}) {
                Arguments arguments = {1, 1, Ref(re), Ref(im)};
                arguments[place] = given;
                const Outcome outcome = Invoke(file, L"ReadTraceSampleValue", arguments);
                EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH) << value;
                EXPECT_EQ(outcome.wrongArgument, 3 - place) << value;
            }
            EXPECT_EQ(re, Variant(7));
            EXPECT_EQ(im, Variant(8));
        }
    }
}

TEST_F(LateBinding, TellsWhichPropertyValueCannotBeConverted)
{
    const Outcome number = Put(file, L"Trace_Label", {L"none", L"text"});
    EXPECT_EQ(number.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(number.wrongArgument, 1U);
    const Outcome value = Put(file, L"Shape_Damping", {1, 1e300});
    EXPECT_EQ(value.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(value.wrongArgument, 0U);
    EXPECT_EQ(Put(file, L"DataBlock_Label", {Variant::Null()}).result, DISP_E_TYPEMISMATCH);
    const Variant bytes(VT_UI1, SafeArrayCreateVector(VT_UI1, 0, 4));
    EXPECT_EQ(Put(file, L"DataBlock_Label", {bytes}).result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBinding, PassesInfiniteAndUndefinedNumbers)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    ExpectStatus(Success, Invoke(file, L"WriteTraceSampleValue", {1, 1, infinity, std::nan("")}));
    Variant re, im(-1.0);
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {1, 1, Ref(re), Ref(im)}));
    EXPECT_EQ(re, Variant(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(im.Type(), VT_R4);
    EXPECT_TRUE(std::isnan(im.Raw().fltVal));
    double typed = 0;
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {1, 1, Ref(typed), 0}));
    EXPECT_EQ(typed, infinity);
}

TEST_F(LateBinding, TakesTheLargestNumbersAndNoLargerOnes)
{
    constexpr double largest = std::numeric_limits<float>::max();
    const double larger = std::nextafter(largest, std::numeric_limits<double>::infinity());
    ExpectStatus(Success, Invoke(file, L"WriteTraceSampleValue", {1, 1, largest, -largest}));
    float re = 0, im = 0;
    documents.file.ReadTraceSampleValue(1, 1, re, im);
    EXPECT_EQ(re, std::numeric_limits<float>::max());
    EXPECT_EQ(im, std::numeric_limits<float>::lowest());
    EXPECT_EQ(Invoke(file, L"WriteTraceSampleValue", {1, 1, larger, 0}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Invoke(file, L"WriteTraceSampleValue", {1, 1, 0, -larger}).result, DISP_E_TYPEMISMATCH);

    EXPECT_EQ(Put(file, L"Structure_NumberOfEdgeLines", {32768.0}).result, S_OK);
    EXPECT_EQ(Put(file, L"Structure_NumberOfEdgeLines", {-2147483648.0}).result, S_OK);
    EXPECT_EQ(Put(file, L"Structure_NumberOfEdgeLines", {-2147483649.0}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Put(file, L"Structure_NumberOfEdgeLines", {2147483648.0}).result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBinding, TakesAnyNumberForTruth)
{
    for (const auto& [given, expected] :
         {std::pair<Variant, int>{true, -1}, {1, -1}, {0.0, 0}, {L"True", -1}, {L"0", 0}}) {
        ExpectStatus(Success, Invoke(file, L"WriteStructureEdgeLine", {1, 2, 3, 4, given}));
        Variant start, end, color, bold;
        Invoke(file, L"ReadStructureEdgeLine", {1, Ref(start), Ref(end), Ref(color), Ref(bold)});
        EXPECT_EQ(bold, Variant(expected != 0)) << given;
    }
}

TEST_F(LateBinding, TellsThePhaseOfNumbersOfAnyType)
{
    for (const VARTYPE type : {VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_I8}) {
        Variant re = Variant(1).As(type), im = Variant(-1).As(type);
        EXPECT_EQ(Invoke(file, L"GetPhaseValueFrom", {re, im, false}).value, Variant(-45.0F)) << type;
        EXPECT_EQ(Invoke(file, L"GetPhaseValueFrom", {Ref(re), Ref(im), true}).value, Variant(315.0F)) << type;
    }
    double re = 1, im = -1;
    EXPECT_EQ(Invoke(file, L"GetPhaseValueFrom", {Ref(re), Ref(im), false}).value, Variant(-45.0F));
    for (const Variant& none : {Variant(L"1"), Variant::Null(), Variant()})
        EXPECT_EQ(Invoke(file, L"GetPhaseValueFrom", {none, none, false}).value, Variant(0.0F)) << none;
}

// ---- names and identifiers -------------------------------------------------------------------------------------

TEST_F(LateBinding, RefusesUnknownNamesAndMembers)
{
    wchar_t name[] = L"NoSuchMember";
    wchar_t* names = name;
    DISPID id = 5;
    EXPECT_EQ(file->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(file->GetIDsOfNames(IID_IDispatch, &names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
    DISPPARAMS none{};
    EXPECT_EQ(file->Invoke(1, IID_IDispatch, 0, AsScriptsCall, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    for (const DISPID unknown : {0L, -1L, -3L, 2L, 107L, 100000L, LONG_MIN, LONG_MAX})
        EXPECT_EQ(InvokeId(file, unknown, {}).result, DISP_E_MEMBERNOTFOUND) << unknown;
}

// ---- faults ----------------------------------------------------------------------------------------------------

struct Posted {
    std::wstring source;
    std::wstring description;
};

// The thread's error object, which is empty afterwards.
std::optional<Posted> TakePosted()
{
    Held<IErrorInfo> information;
    if (GetErrorInfo(0, information.Out()) != S_OK) return {};
    BSTR source = nullptr, description = nullptr;
    information->GetSource(&source);
    information->GetDescription(&description);
    return Posted{Taken(source), Taken(description)};
}

constexpr HRESULT SubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);

TEST_F(LateBinding, TellsARaisedFaultInItsOwnWords)
{
    documents.file.ErrorStatus(TraceIndexError); // posts an error, which must not be taken for that of the call
    const Outcome outcome = Invoke(file, L"WriteStructureVertexPoint", {-1, L"A", 1, 2, 3});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.fault, SubscriptOutOfRange);
    EXPECT_EQ(outcome.source, L"QOR_File");
    EXPECT_EQ(outcome.description, L"Subscript out of range");
    EXPECT_EQ(documents.file.Structure_NumberOfVertexPoints(), Length + 1);
}

TEST_F(LateBinding, LeavesARaisedFaultOnTheThreadForClientsWithoutExceptionInformation)
{
    documents.file.ErrorStatus(TraceIndexError);
    Arguments arguments = {3.0F, 2.0F, 1.0F, L"A", -1};
    std::vector<VARIANTARG> sent;
    for (const Variant& argument : arguments) sent.push_back(argument.Raw());
    DISPPARAMS parameters{sent.data(), nullptr, 5, 0};
    EXPECT_EQ(file->Invoke(IdOf(file, L"WriteStructureVertexPoint"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                           nullptr, nullptr),
              DISP_E_EXCEPTION);
    const auto posted = TakePosted();
    ASSERT_TRUE(posted);
    EXPECT_EQ(posted->source, L"QOR_File");
    EXPECT_EQ(posted->description, L"Subscript out of range");
}

TEST_F(LateBinding, RaisesTheSameFaultEarlyBound)
{
    documents.file.ErrorStatus(TraceIndexError);
    LONG number = -1, color = 0;
    BSTR label = nullptr;
    float x = 0;
    VARIANT_BOOL bold = 0;
    ReturnStatus status = Success;
    EXPECT_EQ(documents.file.Get()->WriteStructureVertexPoint(&number, &label, &x, &x, &x, &color, &bold, &status),
              SubscriptOutOfRange);
    const auto posted = TakePosted();
    ASSERT_TRUE(posted);
    EXPECT_EQ(posted->description, L"Subscript out of range");
}

TEST_F(LateBinding, PostsAnErrorStatusOnTheThreadAndSucceeds)
{
    TakePosted();
    EXPECT_EQ(Put(file, L"ErrorStatus", {10}).result, S_OK);
    const auto posted = TakePosted();
    ASSERT_TRUE(posted);
    EXPECT_EQ(posted->source, L"QORshell");
    EXPECT_EQ(posted->description, L"Error (10): Trace Index error");
    EXPECT_EQ(Invoke(file, L"GetLastErrorString").value, Variant(L"Error (10): Trace Index error"));
    EXPECT_EQ(Invoke(file, L"ErrorStatus").value, Variant(10));
    EXPECT_EQ(Put(file, L"ErrorStatus", {0}).result, S_OK);
    EXPECT_FALSE(TakePosted());
}

TEST_F(LateBinding, PostsTheErrorOfAFailingMember)
{
    TakePosted();
    ExpectStatus(Failure, Invoke(file, L"ReadTraceSampleValue", {9, 1, 0, 0}));
    const auto posted = TakePosted();
    ASSERT_TRUE(posted);
    EXPECT_EQ(posted->source, L"QORshell");
    EXPECT_EQ(posted->description, L"Error (10): Trace Index error");
}

// ---- memory ----------------------------------------------------------------------------------------------------

TEST_F(LateBinding, ReleasesTheTextsOfManyCalls)
{
    documents.file.DataBlock_Label(u"a text that the call makes for its caller");
    const DISPID label = IdOf(file, L"DataBlock_Label");
    const auto round = [&] {
        for (int call = 0; call < 1000; ++call) {
            DISPPARAMS none{};
            file->Invoke(label, IID_NULL, 0, AsScriptsCall, &none, nullptr, nullptr, nullptr); // nobody wants it
            Variant number(12345.5), text(L"1.25000000000000000000");
            Invoke(file, L"GetFileName", {Ref(number)});
            BSTR own = SysAllocString(L"a label that gives way to the one of the point");
            BSTR digits = SysAllocString(L"2.25000000000000000000");
            Invoke(file, L"ReadStructureVertexPoint", {2, Ref(own), Ref(text), RefAs(VT_BSTR, &digits), 0, 0, false});
            SysFreeString(own);
            SysFreeString(digits);
        }
    };
    EXPECT_LT(GrowthOver(20, round), 300'000U); // a single lost text a call would be 800 KB
}

} // namespace
