// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of an interface as the type library lists them, and early-bound calls of any of them: through the
// vtable, with exactly typed arguments. So a test can treat all members alike.
#pragma once

#include "server/LateClient.h"

#include <optional>
#include <string>
#include <vector>

namespace qor::test {

struct Parameter {
    std::wstring name;
    VARTYPE type = VT_EMPTY; // an enumeration is VT_I4
    bool byReference = false;
    bool optional = false;
};

struct Member {
    std::wstring name;
    DISPID id = DISPID_UNKNOWN;
    INVOKEKIND kind = INVOKE_FUNC;
    ULONG_PTR vtableOffset = 0;
    std::vector<Parameter> parameters; // without the result
    VARTYPE result = VT_EMPTY;

    friend std::ostream& operator<<(std::ostream& out, const Member& member)
    {
        return out << (member.kind == INVOKE_PROPERTYPUT ? "put " : "")
                   << std::string(member.name.begin(), member.name.end());
    }
};

namespace detail {

inline Parameter Described(const ELEMDESC& element, const wchar_t* name)
{
    Parameter parameter{name, element.tdesc.vt, element.tdesc.vt == VT_PTR,
                        (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0};
    const TYPEDESC& own = parameter.byReference ? *element.tdesc.lptdesc : element.tdesc;
    parameter.type = own.vt == VT_USERDEFINED ? VARTYPE{VT_I4} : own.vt; // the library has enumerations only
    return parameter;
}

} // namespace detail

// Of the interface that object points to.
inline std::vector<Member> MembersOf(IDispatch* object)
{
    std::vector<Member> members;
    Held<ITypeInfo> dispatch;
    EXPECT_HRESULT_SUCCEEDED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, dispatch.Out()));
    HREFTYPE reference = 0;
    EXPECT_HRESULT_SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    Held<ITypeInfo> type;
    EXPECT_HRESULT_SUCCEEDED(dispatch->GetRefTypeInfo(reference, type.Out()));
    FUNCDESC* function = nullptr;
    for (UINT number = 0; SUCCEEDED(type->GetFuncDesc(number, &function)); ++number) {
        BSTR names[9] = {};
        UINT count = 0;
        type->GetNames(function->memid, names, 9, &count);
        Member member{names[0], function->memid, function->invkind, static_cast<ULONG_PTR>(function->oVft), {}, {}};
        for (int i = 0; i < function->cParams; ++i) {
            const ELEMDESC& element = function->lprgelemdescParam[i];
            const auto place = static_cast<UINT>(i + 1);
            Parameter parameter = detail::Described(element, place < count ? names[place] : L"value");
            if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
                member.result = parameter.type;
            } else {
                member.parameters.push_back(std::move(parameter));
            }
        }
        for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
        type->ReleaseFuncDesc(function);
        members.push_back(std::move(member));
    }
    return members;
}

struct EarlyOutcome {
    HRESULT result = E_UNEXPECTED;
    Variant value;
};

// values are of exactly the declared types, those of parameters of any type excepted; what is passed by reference is
// changed in place. nullPointer is the number of a parameter that gets a null pointer, the result being the last.
inline EarlyOutcome CallEarly(IUnknown* object, const Member& member, Arguments& values,
                              std::optional<std::size_t> nullPointer = {})
{
    std::vector<VARIANT> passed;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter& parameter = member.parameters[i];
        VARIANT argument = values[i].Raw();
        if (parameter.byReference) {
            argument.vt = static_cast<VARTYPE>(VT_BYREF | parameter.type);
            argument.byref =
                parameter.type == VT_VARIANT ? static_cast<void*>(&values[i].Raw()) : &values[i].Raw().lVal;
            if (nullPointer == i) argument.byref = nullptr;
        }
        passed.push_back(argument);
    }
    EarlyOutcome outcome;
    outcome.value = Variant::Zero(member.result);
    if (member.result != VT_EMPTY) {
        VARIANT place{};
        place.vt = static_cast<VARTYPE>(VT_BYREF | member.result);
        place.byref = nullPointer == values.size() ? nullptr : &outcome.value.Raw().lVal;
        passed.push_back(place);
    }
    std::vector<VARTYPE> types;
    std::vector<VARIANT*> places;
    for (std::size_t i = 0; i < passed.size(); ++i) {
        const bool isWhole =
            i < values.size() && member.parameters[i].type == VT_VARIANT && !member.parameters[i].byReference;
        types.push_back(isWhole ? VARTYPE{VT_VARIANT} : passed[i].vt);
        places.push_back(&passed[i]);
    }
    VARIANT returned{};
    EXPECT_HRESULT_SUCCEEDED(DispCallFunc(object, member.vtableOffset, CC_STDCALL, VT_ERROR,
                                          static_cast<UINT>(passed.size()), types.data(), places.data(), &returned));
    outcome.result = returned.scode;
    return outcome;
}

// ---- arguments that every member takes -------------------------------------------------------------------------

// Element numbers 1, other numbers different from one another, texts, truth, arrays of length numbers.
inline Variant PlausibleArgument(const Member& member, std::size_t place, int length, std::wstring_view path)
{
    const Parameter& parameter = member.parameters[place];
    const bool isFile = member.name.find(L"File") != std::wstring::npos;
    switch (parameter.type) {
    case VT_I4:
        return place == 0 && member.parameters.size() > 1 ? Variant(1) : Variant(static_cast<int>(place + 1) % 3);
    case VT_R4: return Variant(1.5F + static_cast<float>(place));
    case VT_BOOL: return Variant(true);
    case VT_BSTR: return isFile ? Variant(path) : Variant(L"some text");
    default: break;
    }
    if (member.name == L"GetPhaseValueFrom") return Variant(place == 0 ? -3.0 : 4.0);
    SAFEARRAY* array = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(length));
    for (int i = 0; i < length; ++i) static_cast<double*>(array->pvData)[i] = (i + 1) * 0.75;
    return Variant(VT_R8, array);
}

inline Arguments PlausibleArguments(const Member& member, int length, std::wstring_view path)
{
    Arguments arguments;
    for (std::size_t place = 0; place < member.parameters.size(); ++place)
        arguments.push_back(PlausibleArgument(member, place, length, path));
    return arguments;
}

} // namespace qor::test
