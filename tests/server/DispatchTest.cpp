// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Late binding as clients use it: what VBScript, JScript, Excel and MATLAB send, and what they get.
#include "server/LateBinding.h"
#include "server/Members.h"

using namespace qor::test;

namespace {

// ---- VBScript: every variable by reference --------------------------------------------------------------------

TEST_F(LateBinding, FillsEmptyVariables)
{
    Variant re, im;
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {2, 3, Ref(re), Ref(im)}));
    EXPECT_EQ(re, Variant(1.5F));
    EXPECT_EQ(im, Variant(-2.5F));
}

TEST_F(LateBinding, TakesVariablesOfEveryNumericType)
{
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8, VT_UI8, VT_R4,
                               VT_R8, VT_CY, VT_DATE, VT_DECIMAL, VT_BSTR}) {
        Variant trace = Variant(2).As(type), sample = Variant(3).As(type), re = Variant(0).As(type), im = re;
        ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {Ref(trace), Ref(sample), Ref(re), Ref(im)}));
        EXPECT_EQ(re, Variant(1.5F)) << type;
        EXPECT_EQ(im, Variant(-2.5F)) << type;
        EXPECT_EQ(trace, Variant(2).As(type)) << "what does not change keeps its type";
        EXPECT_EQ(sample, Variant(3).As(type));
    }
}

TEST_F(LateBinding, LeavesVariablesOfAFailedCall)
{
    Variant trace = 9, sample(short{1}), re(L"12"), im(3.25);
    ExpectStatus(Failure, Invoke(file, L"ReadTraceSampleValue", {Ref(trace), Ref(sample), Ref(re), Ref(im)}));
    EXPECT_EQ(trace, Variant(9));
    EXPECT_EQ(sample, Variant(short{1}));
    EXPECT_EQ(re, Variant(L"12"));
    EXPECT_EQ(im, Variant(3.25));
}

TEST_F(LateBinding, FillsATextVariable)
{
    Variant label, x, y, z, color, bold;
    ExpectStatus(Success, Invoke(file, L"ReadStructureVertexPoint",
                                 {2, Ref(label), Ref(x), Ref(y), Ref(z), Ref(color), Ref(bold)}));
    EXPECT_EQ(label.Type(), VT_BSTR);
    EXPECT_EQ(std::wstring(label.Raw().bstrVal).substr(0, 2), L"P ");
    EXPECT_EQ(z, Variant(2e-20F));
    EXPECT_EQ(color, Variant(2 * 0x010203));
    EXPECT_EQ(bold, Variant(true));
}

TEST_F(LateBinding, TakesAVariableThatRefersToAnother)
{
    Variant re, im;
    Variant inner = Ref(re); // a variable passed on by reference once more
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {2, 3, Ref(inner), Ref(im)}));
    EXPECT_EQ(re, Variant(1.5F));
}

TEST_F(LateBinding, TakesOneVariableTwice)
{
    Variant both(2);
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {2, 3, Ref(both), Ref(both)}));
    EXPECT_EQ(both, Variant(-2.5F));
}

// ---- JScript: everything by value ------------------------------------------------------------------------------

TEST_F(LateBinding, TakesValuesForInOutParameters)
{
    ExpectStatus(Success, Invoke(file, L"WriteTraceSampleValue", {1, short{1}, 7.5, L"8"}));
    float re = 0, im = 0;
    documents.file.ReadTraceSampleValue(1, 1, re, im);
    EXPECT_EQ(re, 7.5F);
    EXPECT_EQ(im, 8.0F);
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {1.0, 1.0, 0.0, 0.0}));
}

TEST_F(LateBinding, LeavesAClientsOwnValuesWhenItSentThemByValue)
{
    const Variant text(L"mine");
    Arguments sent = {1, text, 0.0F, 0.0F, 0.0F, 0, false};
    ExpectStatus(Success, Invoke(file, L"ReadStructureVertexPoint", sent));
    EXPECT_EQ(sent[1], text);
    EXPECT_EQ(sent[2], Variant(0.0F));
}

// ---- MATLAB: every number a double -----------------------------------------------------------------------------

TEST_F(LateBinding, TakesDoublesForEveryNumber)
{
    double trace = 2, sample = 3, re = 0, im = 0;
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {Ref(trace), Ref(sample), Ref(re), Ref(im)}));
    EXPECT_EQ(re, 1.5);
    EXPECT_EQ(im, -2.5);
    EXPECT_EQ(Put(file, L"DataBlock_NumberOfTraces", {4.0}).result, S_OK);
    EXPECT_EQ(Invoke(file, L"DataBlock_NumberOfTraces").value, Variant(4));
}

TEST_F(LateBinding, TakesRoundedDoublesAsTheyAre)
{
    // 0.1 as a double is not 0.1 as a single: a variable that did not change must not lose its digits.
    Variant re(0.1), im(0.1);
    ExpectStatus(Success, Invoke(file, L"WriteTraceSampleValue", {1, 1, Ref(re), Ref(im)}));
    EXPECT_EQ(re, Variant(0.1));
    double typed = 0.1;
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {1, 1, Ref(typed), Ref(im)}));
    EXPECT_EQ(typed, 0.1) << "a single that is the double's own rounding is no change";
}

// ---- Excel: references of declared types -----------------------------------------------------------------------

TEST_F(LateBinding, FillsDeclaredVariables)
{
    long trace = 2, sample = 3;
    float re = 0, im = 0;
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {Ref(trace), Ref(sample), Ref(re), Ref(im)}));
    EXPECT_EQ(re, 1.5F);
    EXPECT_EQ(im, -2.5F);
}

TEST_F(LateBinding, FillsDeclaredVariablesOfOtherTypes)
{
    short trace = 2, sample = 3, color = 0;
    double x = 0;
    long z = 0;
    short bold = 0;
    BSTR label = nullptr;
    DECIMAL y{};
    ExpectStatus(Success, Invoke(file, L"WriteStructureVertexPoint", {1, L"A", 2.5, 3.25, 4.0, 5, true}));
    ExpectStatus(Success, Invoke(file, L"ReadStructureVertexPoint",
                                 {1, Ref(label), Ref(x), RefAs(VT_DECIMAL, &y), Ref(z), Ref(color), Ref(bold)}));
    EXPECT_EQ(Taken(label), L"A");
    EXPECT_EQ(x, 2.5);
    double asDouble = 0;
    VarR8FromDec(&y, &asDouble);
    EXPECT_EQ(asDouble, 3.25);
    EXPECT_EQ(z, 4);
    EXPECT_EQ(color, 5);
    EXPECT_EQ(bold, -1);
    double re = 0;
    ExpectStatus(Success, Invoke(file, L"ReadTraceSampleValue", {Ref(trace), Ref(sample), Ref(re), Ref(x)}));
    EXPECT_EQ(re, 1.5);
}

TEST_F(LateBinding, RefusesADeclaredVariableThatCannotHoldTheResult)
{
    ExpectStatus(Success, Invoke(file, L"WriteStructureVertexPoint", {1, L"A", 2.5, 3.25, 4.0, 70000, true}));
    short color = 0;
    Variant label, x, y, z, bold;
    const Outcome outcome =
        Invoke(file, L"ReadStructureVertexPoint", {1, Ref(label), Ref(x), Ref(y), Ref(z), Ref(color), Ref(bold)});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.wrongArgument, 1U);
    EXPECT_EQ(color, 0);
    EXPECT_EQ(label.Raw().vt, VT_EMPTY); // nor is any other variable written
    EXPECT_EQ(x.Raw().vt, VT_EMPTY);
}

// ---- arguments left out, and named -----------------------------------------------------------------------------

struct Edge {
    std::int32_t start = 0, end = 0, color = 0;
    VARIANT_BOOL bold = 0;
    bool operator==(const Edge&) const = default;
};

class LeftOut : public LateBinding
{
protected:
    Edge Written()
    {
        Edge edge;
        documents.file.ReadStructureEdgeLine(1, edge.start, edge.end, edge.color, edge.bold);
        return edge;
    }
};

TEST_F(LeftOut, ArgumentsAtTheEndAreZero)
{
    ExpectStatus(Success, Invoke(file, L"WriteStructureEdgeLine", {1, 2, 3}));
    EXPECT_EQ(Written(), (Edge{2, 3, 0, 0}));
    ExpectStatus(Success, Invoke(file, L"WriteStructureEdgeLine", {1, 2, 3, 4}));
    EXPECT_EQ(Written(), (Edge{2, 3, 4, 0}));
}

TEST_F(LeftOut, ArgumentsInTheMiddleAreZero)
{
    ExpectStatus(Success, Invoke(file, L"WriteStructureEdgeLine", {1, 2, 3, Variant::LeftOut(), true}));
    EXPECT_EQ(Written(), (Edge{2, 3, 0, -1}));
    Variant passedOn = Variant::LeftOut(); // an optional argument of the caller's own
    ExpectStatus(Success, Invoke(file, L"WriteStructureEdgeLine", {1, 4, 5, Ref(passedOn), true}));
    EXPECT_EQ(Written(), (Edge{4, 5, 0, -1}));
    EXPECT_EQ(passedOn.Type(), VT_ERROR);
}

TEST_F(LeftOut, RequiredArgumentsAreRefused)
{
    EXPECT_EQ(Invoke(file, L"WriteStructureEdgeLine", {1, 2}).result, DISP_E_PARAMNOTOPTIONAL);
    const Outcome outcome = Invoke(file, L"WriteStructureEdgeLine", {1, Variant::LeftOut(), 3});
    EXPECT_EQ(outcome.result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(outcome.wrongArgument, 1U);
    EXPECT_EQ(Invoke(file, L"Trace_Label").result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(LeftOut, NothingMayBeTooMuch)
{
    EXPECT_EQ(Invoke(file, L"WriteStructureEdgeLine", {1, 2, 3, 4, true, 6}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Invoke(file, L"DLLversion", {1}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Put(file, L"DataBlock_Label", {1, L"text"}).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(LeftOut, NamedArgumentsComeInAnyOrder)
{
    ExpectStatus(
        Success,
        InvokeNamed(
            file, L"WriteStructureEdgeLine", {},
            {{L"EdgeLineBold", true}, {L"EndVertexPoint", 3}, {L"EdgeLineNumber", 1}, {L"StartVertexPoint", 2}}));
    EXPECT_EQ(Written(), (Edge{2, 3, 0, -1}));
}

TEST_F(LeftOut, NamedArgumentsFollowPositionalOnes)
{
    ExpectStatus(Success, InvokeNamed(file, L"writestructureEDGELINE", {1, 2},
                                      {{L"edgelinecolor", 9.0}, {L"EndVertexPoint", 3}}));
    EXPECT_EQ(Written(), (Edge{2, 3, 9, 0}));
    Variant start, end, color, bold;
    ExpectStatus(Success, InvokeNamed(file, L"ReadStructureEdgeLine", {1},
                                      {{L"EdgeLineColor", Ref(color)},
                                       {L"StartVertexPoint", Ref(start)},
                                       {L"EdgeLineBold", Ref(bold)},
                                       {L"EndVertexPoint", Ref(end)}}));
    EXPECT_EQ(color, Variant(9));
    EXPECT_EQ(end, Variant(3));
}

TEST_F(LeftOut, NamedArgumentsMustNotBeGivenTwice)
{
    EXPECT_EQ(InvokeNamed(file, L"WriteStructureEdgeLine", {1, 2, 3}, {{L"EdgeLineNumber", 1}}).result,
              DISP_E_BADPARAMCOUNT);
    const DISPID id = IdOf(file, L"WriteStructureEdgeLine");
    const Outcome unknown = InvokeId(file, id, {1, 2, 3}, AsScriptsCall, {77}, {1});
    EXPECT_EQ(unknown.result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(unknown.wrongArgument, 0U);
}

// ---- properties ------------------------------------------------------------------------------------------------

TEST_F(LateBinding, SetsPropertiesWithParameters)
{
    EXPECT_EQ(Put(file, L"Trace_Label", {2, L"new \u4E2D"}).result, S_OK);
    EXPECT_EQ(Invoke(file, L"Trace_Label", {2}).value, Variant(L"new \u4E2D"));
    Variant number(short{2}), value(L"4");
    EXPECT_EQ(Put(file, L"Trace_DataSVT", {Ref(number), Ref(value)}).result, S_OK);
    EXPECT_EQ(Invoke(file, L"Trace_DataSVT", {2.0}).value, Variant(4));
    EXPECT_EQ(Put(file, L"Shape_Damping", {1, 0.125}).result, S_OK);
    EXPECT_EQ(Invoke(file, L"Shape_Damping", {1}).value, Variant(0.125F));
}

TEST_F(LateBinding, TakesEveryCombinationOfFlagsThatClientsSend)
{
    for (const WORD flags : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET}, AsScriptsCall}) {
        EXPECT_EQ(Invoke(file, L"DLLversion", {}, flags).value, Variant(1.05F));
        EXPECT_EQ(Invoke(file, L"GetFileName", {L"C:\\a.blk"}, flags).value, Variant(L"a.blk"));
    }
    const DISPID label = IdOf(file, L"DataBlock_Label");
    const WORD put = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    EXPECT_EQ(InvokeId(file, label, {}, put, {DISPID_PROPERTYPUT}, {L"x"}).result, S_OK);
    EXPECT_EQ(InvokeId(file, label, {}, DISPATCH_PROPERTYPUTREF, {DISPID_PROPERTYPUT}, {L"x"}).result,
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(InvokeId(file, label, {}, 0).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Put(file, L"DLLversion", {2.0F}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Put(file, L"GetFileName", {L"x", L"y"}).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBinding, NeedsNoPlaceForAResult)
{
    DISPPARAMS none{};
    UINT wrong = 0;
    for (const wchar_t* name : {L"DataBlock_Label", L"DLLversion", L"InitializeStructureStorage"})
        EXPECT_EQ(file->Invoke(IdOf(file, name), IID_NULL, 0, AsScriptsCall, &none, nullptr, nullptr, &wrong), S_OK);
    EXPECT_EQ(file->Invoke(IdOf(file, L"Initialize"), IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              S_OK);
}
// ---- the added interfaces --------------------------------------------------------------------------------------

// The members of an added interface of clsQOR_File, called late bound: each answers 0, and none does anything.
template <class Added>
void ExpectInert(Documents& documents)
{
    Held<Added> own;
    documents.file.Get()->QueryInterface(__uuidof(Added), own.OutAny());
    ASSERT_TRUE(own);
    documents.Fill();
    const std::uint64_t before = documents.Bits();
    for (const Member& member : MembersOf(own.Get())) {
        Arguments values = PlausibleArguments(member, Length, L"");
        Arguments variables = values;
        Arguments sent;
        for (Variant& variable : variables) sent.push_back(Ref(variable));
        const bool isPut = member.kind == INVOKE_PROPERTYPUT;
        const Outcome outcome =
            isPut ? Put(own.Get(), member.name.c_str(), sent) : Invoke(own.Get(), member.name.c_str(), sent);
        EXPECT_EQ(outcome.result, S_OK) << member;
        EXPECT_EQ(outcome.value, member.result == VT_BSTR ? Variant(L"") : Variant::Zero(member.result)) << member;
        EXPECT_EQ(variables, values) << member;
        const EarlyOutcome early = CallEarly(own.Get(), member, values);
        EXPECT_EQ(early.result, S_OK) << member;
        EXPECT_EQ(early.value, outcome.value) << member;
    }
    documents.Fill();
    EXPECT_EQ(documents.Bits(), before);
}

TEST_F(LateBinding, FindsTheAddedInterfacesOfTheFileInert)
{
    ExpectInert<_ClassAdd_1>(documents);
    ExpectInert<_ClassAdd_2>(documents);
    ExpectInert<_ClassAdd_3>(documents);
    ExpectInert<_ClassAdd_4>(documents);
    ExpectInert<_ClassAdd_5>(documents);
}

TEST_F(LateBinding, ReachesTheWorkingMembersOfTheAddedClasses)
{
    EXPECT_EQ(Put(documents.add1.Get(), L"TraceLinPower", {2, 0}).result, S_OK);
    EXPECT_EQ(documents.add1.TraceLinPower(2), MeasurementIsLinear);
    EXPECT_EQ(Put(documents.add2.Get(), L"DataBlockPeakRMS", {1249}).result, S_OK);
    EXPECT_EQ(documents.add2.DataBlockPeakRMS(), DisplayPkToPk);
    EXPECT_EQ(Put(documents.add3.Get(), L"TraceZaxisLabel", {1, L"Z"}).result, S_OK);
    EXPECT_EQ(documents.add3.TraceZaxisLabel(1), u"Z");
    EXPECT_EQ(Put(documents.add4.Get(), L"StructureNumberOfQuadSurfaces", {2}).result, S_OK);
    EXPECT_EQ(documents.add4.StructureNumberOfQuadSurfaces(), 2);
    EXPECT_EQ(Put(documents.add5.Get(), L"DataBlockRPM", {1500.5}).result, S_OK);
    EXPECT_EQ(documents.add5.DataBlockRPM(), 1500.5F);
    Variant values;
    ExpectStatus(Success, Invoke(documents.arrays.Get(), L"ReadDataBlockXaxisValues", {Ref(values)}));
    EXPECT_EQ(values.Type(), VT_ARRAY | VT_R4);
}

// ---- every member ----------------------------------------------------------------------------------------------

std::vector<float> NumbersOf(const Variant& value)
{
    if (value.Type() != (VT_ARRAY | VT_R4)) return {};
    const SAFEARRAY& array = *value.Raw().parray;
    const auto* first = static_cast<const float*>(array.pvData);
    return {first, first + array.rgsabound[0].cElements};
}

void ExpectSame(const Variant& late, const Variant& early, const Member& member)
{
    if ((early.Type() & VT_ARRAY) != 0) {
        EXPECT_EQ(late.Type(), early.Type()) << member;
        EXPECT_EQ(NumbersOf(late), NumbersOf(early)) << member;
    } else {
        EXPECT_EQ(late.As(early.Type()), early) << member;
    }
}

TEST(EveryMember, DoesTheSameLateBoundAsEarlyBound)
{
    Documents documents;
    int members = 0;
    for (IDispatch* object : documents.Objects()) {
        for (const Member& member : MembersOf(object)) {
            const bool isStructure = member.name.find(L"Structure") != std::wstring::npos;
            const std::wstring path = documents.WidePath(member.name.starts_with(L"Output") ? L"out.file"
                                                         : isStructure                      ? L"body.str"
                                                                                            : L"block.blk");
            documents.Fill();
            Arguments early = PlausibleArguments(member, Length, path);
            const EarlyOutcome called = CallEarly(object, member, early);
            const std::uint64_t earlyBits = documents.Bits();

            documents.Fill();
            Arguments late = PlausibleArguments(member, Length, path);
            Arguments sent;
            for (Variant& variable : late) sent.push_back(Ref(variable));
            const Outcome invoked = member.kind == INVOKE_PROPERTYPUT ? Put(object, member.name.c_str(), sent)
                                                                      : Invoke(object, member.name.c_str(), sent);

            EXPECT_EQ(called.result, S_OK) << member;
            EXPECT_EQ(invoked.result, S_OK) << member;
            EXPECT_EQ(invoked.value, called.value) << member;
            if (member.kind == INVOKE_FUNC && member.result == VT_I4) {
                EXPECT_EQ(called.value, Variant(0)) << member;
            }
            for (std::size_t i = 0; i < early.size(); ++i) ExpectSame(late[i], early[i], member);
            EXPECT_EQ(documents.Bits(), earlyBits) << member;
            ++members;
        }
    }
    EXPECT_EQ(members, 106 + 2 + 2 + 2 + 4 + 6 + 8);
}

} // namespace
