// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Arguments that no sound client passes. Every call must come back with a result, and leave the component usable.
#include "server/Documents.h"
#include "server/LateClient.h"
#include "server/Members.h"
#include "server/WorkingSet.h"

#include <optional>
#include <random>
#include <set>

using namespace qor::test;

namespace {

// What a call of Invoke may come back with.
bool IsAnswer(HRESULT result)
{
    static const std::set<HRESULT> answers = {S_OK,
                                              E_POINTER,
                                              E_INVALIDARG,
                                              E_OUTOFMEMORY,
                                              DISP_E_EXCEPTION,
                                              DISP_E_TYPEMISMATCH,
                                              DISP_E_BADPARAMCOUNT,
                                              DISP_E_PARAMNOTFOUND,
                                              DISP_E_PARAMNOTOPTIONAL,
                                              DISP_E_MEMBERNOTFOUND};
    return answers.count(result) != 0;
}

bool WritesFiles(const Member& member) { return member.name.starts_with(L"Output"); }

std::wstring TakePosted()
{
    Held<IErrorInfo> information;
    if (GetErrorInfo(0, information.Out()) != S_OK) return {};
    BSTR description = nullptr;
    information->GetDescription(&description);
    return Taken(description);
}

// ---- null pointers ---------------------------------------------------------------------------------------------

TEST(NullPointers, ForRequiredArgumentsAreRefusedAndChangeNothing)
{
    Documents documents;
    const std::uint64_t before = documents.Bits();
    int pointers = 0;
    for (IDispatch* object : documents.Objects()) {
        for (const Member& member : MembersOf(object)) {
            const std::size_t count = member.parameters.size();
            for (std::size_t place = 0; place <= count; ++place) {
                const bool isPointer = place < count ? member.parameters[place].byReference : member.result != VT_EMPTY;
                if (!isPointer || (place < count && member.parameters[place].optional)) continue;
                TakePosted();
                Arguments arguments = PlausibleArguments(member, Length, documents.WidePath(L"none"));
                EXPECT_EQ(CallEarly(object, member, arguments, place).result, E_POINTER) << member << place;
                EXPECT_EQ(TakePosted(), L"An argument is a null pointer") << member << place;
                ++pointers;
            }
            EXPECT_EQ(documents.Bits(), before) << member;
        }
    }
    EXPECT_GT(pointers, 150);
}

TEST(NullPointers, ForOptionalArgumentsAreTheirDefaults)
{
    Documents documents;
    int pointers = 0;
    for (IDispatch* object : documents.Objects()) {
        for (const Member& member : MembersOf(object)) {
            for (std::size_t place = 0; place < member.parameters.size(); ++place) {
                const Parameter& parameter = member.parameters[place];
                if (!parameter.byReference || !parameter.optional || parameter.type == VT_VARIANT) continue;
                documents.Fill();
                Arguments arguments = PlausibleArguments(member, Length, L"");
                arguments[place] = Variant::Zero(parameter.type);
                EXPECT_EQ(CallEarly(object, member, arguments).result, S_OK);
                const std::uint64_t expected = documents.Bits();

                documents.Fill();
                arguments = PlausibleArguments(member, Length, L"");
                const EarlyOutcome called = CallEarly(object, member, arguments, place);
                EXPECT_EQ(called.result, S_OK) << member << place;
                EXPECT_EQ(called.value, Variant(0)) << member << place;
                EXPECT_EQ(documents.Bits(), expected) << member << place;
                ++pointers;
            }
        }
    }
    EXPECT_EQ(pointers, 3 + 3 + 2 + 2 + 2 + 2);
}

TEST(NullPointers, InPlaceOfTextsAreEmptyTexts)
{
    Documents documents;
    EXPECT_EQ(documents.file.Get()->put_DataBlock_Label(nullptr), S_OK);
    EXPECT_EQ(documents.file.DataBlock_Label(), u"");
    EXPECT_EQ(Put(documents.file.Get(), L"Trace_Label", {1, Variant::Zero(VT_BSTR)}).result, S_OK);
    EXPECT_EQ(documents.file.Trace_Label(1), u"");
}

TEST(NullPointers, OfReferencesAreRefused)
{
    Documents documents;
    const std::uint64_t before = documents.Bits();
    for (IDispatch* object : documents.Objects()) {
        for (const Member& member : MembersOf(object)) {
            if (WritesFiles(member)) continue;
            for (std::size_t place = 0; place < member.parameters.size(); ++place) {
                const bool isPhase = member.name == L"GetPhaseValueFrom" && place < 2; // 0 for what is no number
                for (const VARTYPE type :
                     {VT_VARIANT, VT_I2, VT_I4, VT_R4, VT_R8, VT_BOOL, VT_BSTR, VT_DISPATCH, VT_DECIMAL, VT_RECORD}) {
                    Variant inner = RefAs(type, nullptr);
                    for (const Variant& given : {RefAs(type, nullptr), Ref(inner)}) {
                        Arguments arguments = PlausibleArguments(member, Length, documents.WidePath(L"none"));
                        arguments[place] = given;
                        const Outcome outcome = member.kind == INVOKE_PROPERTYPUT
                                                    ? Put(object, member.name.c_str(), arguments)
                                                    : Invoke(object, member.name.c_str(), arguments);
                        const HRESULT reason = outcome.result == DISP_E_EXCEPTION ? outcome.fault : outcome.result;
                        // Declared of any type, and 0 for what is no number.
                        const bool isZero = isPhase && reason == S_OK && outcome.value == Variant(0.0F);
                        EXPECT_TRUE(isZero || reason == DISP_E_TYPEMISMATCH) << member << place << " type " << type;
                    }
                }
            }
        }
    }
    EXPECT_EQ(documents.Bits(), before);
}

TEST(NullPointers, OfReferencesAreNoNumbersToEarlyBoundCallers)
{
    Documents documents;
    VARIANT_BOOL as360 = 0;
    for (const VARTYPE type : {VT_VARIANT, VT_R8, VT_BSTR, VT_RECORD}) {
        Variant odd = RefAs(type, nullptr), one = 1.0;
        float phase = 7;
        EXPECT_EQ(documents.file.Get()->GetPhaseValueFrom(&one.Raw(), &odd.Raw(), &as360, &phase), S_OK);
        EXPECT_EQ(phase, 0.0F);

        Variant array(VT_VARIANT, SafeArrayCreateVector(VT_VARIANT, 0, Length)), nothing;
        static_cast<VARIANT*>(array.Raw().parray->pvData)[3] = odd.Raw();
        ReturnStatus status = Success;
        for (const VARIANT* values : {&odd.Raw(), &array.Raw()}) {
            EXPECT_EQ(documents.arrays->WriteTraceSamples(1, *values, nothing.Raw(), &status), DISP_E_TYPEMISMATCH);
            EXPECT_EQ(status, Failure);
        }
        EXPECT_EQ(documents.arrays->ReadTraceSamples(1, &odd.Raw(), nullptr, &status), DISP_E_TYPEMISMATCH);
    }
}

TEST(NullPointers, InsideCallsAreRefused)
{
    Documents documents;
    IDispatch* file = documents.file.Get();
    const DISPID id = IdOf(file, L"GetFileName");
    DISPID name = 0;
    VARIANTARG text{};
    text.vt = VT_BSTR;
    for (DISPPARAMS given : {DISPPARAMS{nullptr, nullptr, 1, 0}, DISPPARAMS{&text, nullptr, 1, 1},
                             DISPPARAMS{&text, &name, 1, 2}, DISPPARAMS{nullptr, &name, 0, 1},
                             DISPPARAMS{&text, &name, 0xFFFFFFFF, 0}, DISPPARAMS{&text, &name, 0xFFFFFFFF, 0xFFFFFFFF},
                             DISPPARAMS{&text, &name, 0x10000, 0x10000}, DISPPARAMS{nullptr, nullptr, 0xFFFFFFFF, 7}}) {
        const HRESULT result = file->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &given, nullptr, nullptr, nullptr);
        EXPECT_TRUE(FAILED(result) && IsAnswer(result)) << result;
    }
    DISPPARAMS none{};
    EXPECT_EQ(file->Invoke(IdOf(file, L"DLLversion"), IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(file->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_POINTER);

    wchar_t known[] = L"GetFileName";
    wchar_t* names[] = {known, nullptr};
    DISPID ids[2] = {};
    EXPECT_EQ(file->GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids), E_POINTER);
    EXPECT_EQ(file->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_POINTER);
    EXPECT_HRESULT_FAILED(file->GetIDsOfNames(IID_NULL, names, 2, 0, ids));
    EXPECT_HRESULT_FAILED(file->GetIDsOfNames(IID_NULL, names + 1, 1, 0, ids));
    EXPECT_HRESULT_FAILED(file->GetIDsOfNames(IID_NULL, names, 0, 0, ids));
    EXPECT_EQ(file->GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(file->GetTypeInfoCount(nullptr), E_POINTER);
    Held<ITypeInfo> description;
    EXPECT_EQ(file->GetTypeInfo(1, 0, description.Out()), DISP_E_BADINDEX);
}

// ---- odd variants ----------------------------------------------------------------------------------------------

TEST(OddVariants, ThatReferToThemselvesAreRefused)
{
    Documents documents;
    VARIANT circle{};
    circle.vt = VT_BYREF | VT_VARIANT;
    circle.pvarVal = &circle;
    VARIANT one{}, other{};
    one.vt = other.vt = VT_BYREF | VT_VARIANT;
    one.pvarVal = &other;
    other.pvarVal = &one;
    for (IDispatch* object : documents.Objects()) {
        for (const Member& member : MembersOf(object)) {
            for (std::size_t place = 0; place < member.parameters.size(); ++place) {
                for (const VARIANT* odd : {&circle, &one}) {
                    Arguments arguments = PlausibleArguments(member, Length, documents.WidePath(L"none"));
                    arguments[place] = RefAs(VT_VARIANT, const_cast<VARIANT*>(odd));
                    const Outcome outcome = member.kind == INVOKE_PROPERTYPUT
                                                ? Put(object, member.name.c_str(), arguments)
                                                : Invoke(object, member.name.c_str(), arguments);
                    const bool isPhase = member.name == L"GetPhaseValueFrom" && place < 2;
                    const HRESULT reason = outcome.result == DISP_E_EXCEPTION ? outcome.fault : outcome.result;
                    EXPECT_TRUE(isPhase ? reason == S_OK : reason == DISP_E_TYPEMISMATCH) << member << place;
                }
            }
        }
    }
}

// A variant of any type number, with content that such a type has.
class OddVariant
{
public:
    OddVariant(VARTYPE type, IDispatch* object, bool isEmpty) : type_(type)
    {
        value_.vt = type;
        text_ = SysAllocString(L"1");
        array_ = SafeArrayCreateVector(VT_R8, 0, 3);
        object_ = isEmpty ? nullptr : object;
        inner_.vt = isEmpty ? VT_EMPTY : VT_I2;
        const VARTYPE base = type & VT_TYPEMASK;
        if ((type & VT_ARRAY) != 0) {
            if ((type & VT_BYREF) != 0) {
                value_.pparray = &array_;
            } else {
                value_.parray = array_;
            }
        } else if ((type & VT_BYREF) != 0) {
            switch (base) {
            case VT_BSTR: value_.pbstrVal = &text_; break;
            case VT_DISPATCH:
            case VT_UNKNOWN: value_.ppdispVal = &object_; break;
            case VT_VARIANT: value_.pvarVal = &inner_; break;
            default: value_.byref = room_;
            }
        } else if (base == VT_BSTR) {
            value_.bstrVal = text_;
        } else if (base == VT_DISPATCH || base == VT_UNKNOWN) {
            value_.pdispVal = object_;
            if (object_) object_->AddRef();
        } else if (base == VT_R8) {
            value_.dblVal = isEmpty ? 0 : 1;
        } else if (base <= VT_UINT && base != VT_EMPTY) { // the others are pointers
            value_.llVal = isEmpty ? 0 : 1;
        }
    }
    ~OddVariant()
    {
        const bool holdsArray = (type_ & (VT_ARRAY | VT_BYREF)) == VT_ARRAY;
        if (holdsArray && value_.vt == type_) {
            SafeArrayDestroy(value_.parray);
        } else {
            if (value_.vt != type_ || type_ == VT_BSTR || type_ == VT_DISPATCH || type_ == VT_UNKNOWN)
                VariantClear(&value_);
            if (!holdsArray) SafeArrayDestroy(array_);
        }
        if (type_ != VT_BSTR) SysFreeString(text_);
        VariantClear(&inner_);
    }
    OddVariant(const OddVariant&) = delete;
    OddVariant& operator=(const OddVariant&) = delete;

    VARIANT* Get() { return &value_; }

private:
    VARTYPE type_;
    VARIANT value_{};
    BSTR text_;
    SAFEARRAY* array_;
    IDispatch* object_;
    VARIANT inner_{};
    char room_[32] = {};
};

TEST(OddVariants, OfEveryTypeGetAnAnswer)
{
    Documents documents;
    for (IDispatch* object : documents.Objects()) {
        for (const Member& member : MembersOf(object)) {
            if (WritesFiles(member)) continue;
            for (std::size_t place = 0; place < member.parameters.size(); ++place) {
                for (int base = 0; base <= 72; ++base) {
                    for (const int modifiers : {0, int{VT_BYREF}, int{VT_ARRAY}, VT_BYREF | VT_ARRAY}) {
                        for (const bool isVariable : {false, true}) {
                            OddVariant odd(static_cast<VARTYPE>(base | modifiers), object, isVariable);
                            Arguments arguments = PlausibleArguments(member, Length, documents.WidePath(L"none"));
                            std::vector<VARIANTARG> sent;
                            for (auto each = arguments.rbegin(); each != arguments.rend(); ++each)
                                sent.push_back(each->Raw());
                            const Variant reference = RefAs(VT_VARIANT, odd.Get());
                            sent[sent.size() - 1 - place] = isVariable ? reference.Raw() : *odd.Get();
                            DISPID named = DISPID_PROPERTYPUT;
                            const bool isPut = member.kind == INVOKE_PROPERTYPUT;
                            DISPPARAMS given{sent.data(), &named, static_cast<UINT>(sent.size()), isPut ? 1U : 0U};
                            Variant value;
                            const HRESULT result =
                                object->Invoke(member.id, IID_NULL, 0, static_cast<WORD>(member.kind), &given,
                                               &value.Raw(), nullptr, nullptr);
                            EXPECT_TRUE(IsAnswer(result)) << member << place << " type " << (base | modifiers);
                        }
                    }
                }
            }
        }
    }
    documents.Fill();
    EXPECT_EQ(documents.file.DataBlock_NumberOfTraces(), Traces);
}

// ---- texts -----------------------------------------------------------------------------------------------------

TEST(OddTexts, WithZerosAndHalvesOfPairsStayAsTheyAre)
{
    Documents documents;
    const std::u16string odd(u"a\0b \xD83D c \xDD0A\xD83D", 10);
    documents.file.DataBlock_Label(odd);
    documents.file.Trace_Label(1, odd);
    documents.add3.TraceZaxisLabel(1, odd);
    documents.file.WriteStructureVertexPoint(1, odd, 1, 2, 3, 4, true);
    EXPECT_EQ(documents.file.DataBlock_Label(), odd);
    EXPECT_EQ(documents.file.OutputDataBlockFile(documents.Path(u"odd.blk")), Success);
    EXPECT_EQ(documents.file.OutputStructureFile(documents.Path(u"odd.str")), Success);

    EXPECT_EQ(documents.file.InputDataBlockFile(documents.Path(u"odd.blk")), Success);
    EXPECT_EQ(documents.file.InputStructureFile(documents.Path(u"odd.str")), Success);
    EXPECT_EQ(documents.file.DataBlock_Label(), odd);
    EXPECT_EQ(documents.file.Trace_Label(1), odd);
    EXPECT_EQ(documents.add3.TraceZaxisLabel(1), odd);
    const Variant label = Variant(std::wstring_view(reinterpret_cast<const wchar_t*>(odd.data()), odd.size()));
    Variant read, x, y, z, color, bold;
    Invoke(documents.file.Get(), L"ReadStructureVertexPoint",
           {1, Ref(read), Ref(x), Ref(y), Ref(z), Ref(color), Ref(bold)});
    EXPECT_EQ(read, label);
}

TEST(OddTexts, AsNamesOfFilesAreRefused)
{
    Documents documents;
    for (const std::u16string& path : {std::u16string(u"a\0b", 3), std::u16string(u"\xD83D"), std::u16string(u"<>|*?"),
                                       std::u16string(40'000, u'x'), std::u16string(u"Q:\\none\\of.it")}) {
        const std::u16string inFolder = documents.Path(u"none\\") + path;
        EXPECT_EQ(documents.file.OutputDataBlockFile(inFolder), Failure);
        EXPECT_EQ(documents.file.OutputShapeTableFile(inFolder), Failure);
        EXPECT_EQ(documents.file.OutputStructureFile(inFolder), Failure);
        EXPECT_EQ(documents.file.InputDataBlockFile(inFolder), Failure);
        documents.Fill();
    }
}

// As large as there is room for in 32 bits.
TEST(OddTexts, AreStoredOrOutOfMemory)
{
    Documents documents;
    _clsQOR_File* const file = documents.file.Get();
    const auto isAnswer = [](HRESULT result) { return result == S_OK || result == E_OUTOFMEMORY; };
    UINT largest = 0;
    for (UINT length = 1U << 22; length <= 1U << 29; length *= 2) {
        const BSTR text = SysAllocStringLen(nullptr, length); // zeros, most of which take no memory
        if (!text || (sizeof(void*) == 8 && length > 1U << 24)) {
            SysFreeString(text);
            break;
        }
        largest = length;
        BSTR given = text, result = nullptr;
        EXPECT_TRUE(isAnswer(file->put_DataBlock_Label(text)));
        EXPECT_TRUE(isAnswer(file->get_DataBlock_Label(&result)));
        SysFreeString(std::exchange(result, nullptr));
        EXPECT_TRUE(isAnswer(file->put_Trace_Label(1, text)));
        EXPECT_TRUE(isAnswer(file->get_Trace_Label(1, &result)));
        SysFreeString(std::exchange(result, nullptr));
        EXPECT_TRUE(isAnswer(file->put_Structure_Notes(text)));
        EXPECT_TRUE(isAnswer(file->GetFileName(&given, &result)));
        SysFreeString(std::exchange(result, nullptr));
        EXPECT_TRUE(isAnswer(file->GetFilePath(&given, &result)));
        SysFreeString(std::exchange(result, nullptr));
        EXPECT_TRUE(isAnswer(file->GetDOS_FilePathName(text, &result)));
        SysFreeString(std::exchange(result, nullptr));
        VARIANT_BOOL equal = 0;
        EXPECT_TRUE(isAnswer(file->PathNamesEqual(text, text, &equal)));
        ReturnStatus status = Success;
        EXPECT_TRUE(isAnswer(file->OutputDataBlockFile(text, &status)));
        EXPECT_TRUE(isAnswer(file->OutputShapeTableFile(text, &status)));
        EXPECT_TRUE(isAnswer(file->OutputStructureFile(text, &status)));
        EXPECT_TRUE(isAnswer(file->InputDataBlockFile(&given, &status)));
        EXPECT_TRUE(isAnswer(file->InputStructureFile(&given, &status)));
        LONG number = 1, color = 0;
        float x = 0;
        VARIANT_BOOL bold = 0;
        EXPECT_TRUE(isAnswer(file->put_Structure_NumberOfVertexPoints(1)));
        EXPECT_TRUE(isAnswer(file->WriteStructureVertexPoint(&number, &given, &x, &x, &x, &color, &bold, &status)));
        EXPECT_EQ(given, text);
        SysFreeString(text);
        documents.file.Structure_Notes(u"");
        documents.Fill();
    }
    EXPECT_GE(largest, 1U << 24);
    RecordProperty("LargestText", static_cast<int>(largest));
}

// ---- at random -------------------------------------------------------------------------------------------------

class RandomCalls
{
    Documents& documents_;

public:
    explicit RandomCalls(Documents& documents) : documents_(documents)
    {
        for (IDispatch* object : documents.Objects())
            for (Member& member : MembersOf(object))
                if (!WritesFiles(member)) members_.emplace_back(object, std::move(member));
    }

    HRESULT Next()
    {
        const auto& [object, member] = members_[Below(members_.size())];
        const std::size_t count = Below(8) == 0 ? Below(10) : member.parameters.size();
        std::vector<Variant> variables(count);
        std::vector<std::unique_ptr<OddVariant>> odd;
        std::vector<VARIANTARG> sent(count);
        for (std::size_t i = 0; i < count; ++i) {
            variables[i] = Value();
            sent[i] = variables[i].Raw();
            switch (Below(6)) {
            case 0: break;
            case 1:
                odd.push_back(std::make_unique<OddVariant>(OddType(), object, Below(2) == 0));
                sent[i] = *odd.back()->Get();
                break;
            case 2:
                odd.push_back(std::make_unique<OddVariant>(OddType(), object, Below(2) == 0));
                sent[i] = RefAs(VT_VARIANT, odd.back()->Get()).Raw();
                break;
            default: sent[i] = Ref(variables[i]).Raw();
            }
        }
        std::vector<DISPID> named(Below(4) == 0 ? Below(4) : 0);
        for (DISPID& id : named) id = Below(3) == 0 ? DISPID_PROPERTYPUT : static_cast<DISPID>(Below(9));
        const bool isPut = member.kind == INVOKE_PROPERTYPUT && Below(8) != 0;
        if (isPut) named = {DISPID_PROPERTYPUT};
        DISPPARAMS given{sent.data(), named.data(), static_cast<UINT>(count), static_cast<UINT>(named.size())};
        const WORD flags = Below(8) == 0 ? static_cast<WORD>(Below(16)) : static_cast<WORD>(member.kind);
        const DISPID unknown = static_cast<DISPID>(Below(2) == 0 ? 107 + Below(20) : 0 - Below(6));
        const DISPID id = Below(50) == 0 ? unknown : member.id;
        Variant value;
        EXCEPINFO exception{};
        UINT wrong = 0;
        const HRESULT result = object->Invoke(id, IID_NULL, 0, flags, &given, Below(4) == 0 ? nullptr : &value.Raw(),
                                              Below(4) == 0 ? nullptr : &exception, Below(4) == 0 ? nullptr : &wrong);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        return result;
    }

private:
    std::size_t Below(std::size_t limit) { return random_() % limit; }
    VARTYPE OddType()
    {
        constexpr int modifiers[] = {0, VT_BYREF, VT_ARRAY, VT_BYREF | VT_ARRAY};
        return static_cast<VARTYPE>(static_cast<int>(Below(73)) | modifiers[Below(4)]);
    }
    Variant Value()
    {
        // No large counts: those are slow, and tested elsewhere.
        constexpr int numbers[] = {-1, 0, 1, 1, 1, 2, 3, 4, 5, 64, 65, 300};
        const int number = numbers[Below(std::size(numbers))];
        switch (Below(9)) {
        case 0: return static_cast<short>(number);
        case 1: return number + 0.5;
        case 2: return static_cast<float>(number);
        case 3: return number > 0;
        case 4: return Variant(number).As(VT_BSTR);
        case 5: return std::wstring_view(paths_[Below(2)]);
        case 6: return Variant(VT_R8, SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(Below(2) * 64)));
        case 7: return Below(2) == 0 ? Variant() : Variant::LeftOut();
        default: return number;
        }
    }

    const std::wstring paths_[2] = {documents_.WidePath(L"block.blk"), documents_.WidePath(L"body.str")};
    std::vector<std::pair<IDispatch*, Member>> members_;

public:
    static constexpr unsigned Seed = 20261121;

private:
    std::mt19937 random_{Seed};
};

TEST(RandomCalls, AreAllAnsweredAndLeaveTheComponentUsable)
{
    Documents documents;
    documents.Fill();
    documents.file.Structure_Label(u"");
    RandomCalls calls(documents);
    int done = 0;
    int succeeded = 0;
    const auto round = [&] {
        for (int call = 0; call < 1000; ++call, ++done) {
            const HRESULT result = calls.Next();
            ASSERT_TRUE(IsAnswer(result)) << "seed " << RandomCalls::Seed << ", call " << done << ": " << result;
            if (result == S_OK) ++succeeded;
        }
        documents.file.Initialize();
        documents.Fill();
        EXPECT_EQ(documents.file.OutputDataBlockFile(documents.Path(u"is.blk")), Success);
        EXPECT_EQ(ChecksumOf(documents.Path(u"is.blk")), DataBlockFileBits) << "after call " << done;
    };
    EXPECT_LT(GrowthOver(100, round), 150'000U);
    EXPECT_EQ(done, 105'000);
    EXPECT_GT(succeeded, done / 4) << "too few calls that mean something";
}

} // namespace
