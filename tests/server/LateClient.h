// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What a late-bound client has: values that tell their type, references to variables, and calls by name.
#pragma once

#include "server/Client.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qor::test {

// A value of any type, which it owns; a reference if it was made by Ref.
class Variant
{
    struct Typed {
        VARTYPE type;
    };

public:
    Variant() { VariantInit(&value_); }
    Variant(short value) : Variant(Typed{VT_I2}) { value_.iVal = value; }
    Variant(int value) : Variant(Typed{VT_I4}) { value_.lVal = value; }
    Variant(long value) : Variant(Typed{VT_I4}) { value_.lVal = value; }
    Variant(float value) : Variant(Typed{VT_R4}) { value_.fltVal = value; }
    Variant(double value) : Variant(Typed{VT_R8}) { value_.dblVal = value; }
    Variant(bool value) : Variant(Typed{VT_BOOL}) { value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
    Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    Variant(std::wstring_view text) : Variant(Typed{VT_BSTR})
    {
        value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    explicit Variant(const VARIANT& value) : Variant() { VariantCopy(&value_, const_cast<VARIANT*>(&value)); }
    // An array, which this owns from now on.
    Variant(VARTYPE elements, SAFEARRAY* array) : Variant(Typed{static_cast<VARTYPE>(VT_ARRAY | elements)})
    {
        value_.parray = array;
    }
    Variant(const Variant& other) : Variant(other.value_) {}
    Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
    Variant& operator=(Variant other) noexcept
    {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { VariantClear(&value_); }

    // 0, or nothing, of a type.
    static Variant Zero(VARTYPE type) { return Variant(Typed{type}); }
    static Variant Null() { return Variant(Typed{VT_NULL}); }
    // What stands for an argument that is left out.
    static Variant LeftOut()
    {
        Variant value(Typed{VT_ERROR});
        value.value_.scode = DISP_E_PARAMNOTFOUND;
        return value;
    }

    VARTYPE Type() const { return value_.vt; }
    VARIANT& Raw() { return value_; }
    const VARIANT& Raw() const { return value_; }

    std::wstring_view Text() const { return {value_.bstrVal, SysStringLen(value_.bstrVal)}; }
    // As another type; empty where it cannot be.
    Variant As(VARTYPE type) const
    {
        Variant converted;
        VariantChangeType(&converted.value_, const_cast<VARIANT*>(&value_), 0, type);
        return converted;
    }

    friend bool operator==(const Variant& left, const Variant& right)
    {
        if (left.Type() != right.Type()) return false;
        if (left.Type() == VT_EMPTY || left.Type() == VT_NULL) return true;
        if (left.Type() == VT_R4) return left.value_.lVal == right.value_.lVal; // bits
        if (left.Type() == VT_R8) return left.value_.llVal == right.value_.llVal;
        const Variant leftText = left.As(VT_BSTR);
        const Variant rightText = right.As(VT_BSTR);
        return leftText.Type() == VT_BSTR && rightText.Type() == VT_BSTR && leftText.Text() == rightText.Text();
    }
    friend std::ostream& operator<<(std::ostream& out, const Variant& value)
    {
        const Variant text = value.As(VT_BSTR);
        out << "type " << value.Type();
        if (text.Type() != VT_BSTR) return out;
        return out << " '" << std::string(text.Text().begin(), text.Text().end()) << '\'';
    }

private:
    explicit Variant(Typed typed)
    {
        value_ = {};
        value_.vt = typed.type;
    }

    VARIANT value_;
};

// A reference of type to what stands at place.
inline Variant RefAs(VARTYPE type, void* place)
{
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference.byref = place;
    return Variant(reference);
}
// How script clients pass a variable.
inline Variant Ref(Variant& variable) { return RefAs(VT_VARIANT, &variable.Raw()); }
// How compiled clients pass a declared one.
inline Variant Ref(short& variable) { return RefAs(VT_I2, &variable); }
inline Variant Ref(long& variable) { return RefAs(VT_I4, &variable); }
inline Variant Ref(float& variable) { return RefAs(VT_R4, &variable); }
inline Variant Ref(double& variable) { return RefAs(VT_R8, &variable); }
inline Variant Ref(BSTR& variable) { return RefAs(VT_BSTR, &variable); }

// What came of a late-bound call.
struct Outcome {
    HRESULT result = E_UNEXPECTED;
    Variant value;
    UINT wrongArgument = 99; // counted from the last one, as the platform does
    HRESULT fault = S_OK;
    std::wstring source;
    std::wstring description;
};

inline std::wstring Taken(BSTR text)
{
    std::wstring taken(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return taken;
}

inline DISPID IdOf(IDispatch* object, const wchar_t* name)
{
    DISPID id = DISPID_UNKNOWN;
    auto* given = const_cast<wchar_t*>(name);
    EXPECT_HRESULT_SUCCEEDED(object->GetIDsOfNames(IID_NULL, &given, 1, LOCALE_USER_DEFAULT, &id)) << name;
    return id;
}

using Arguments = std::vector<Variant>;
using NamedArguments = std::vector<std::pair<std::wstring, Variant>>;

constexpr WORD AsScriptsCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Calls by dispatch number; arguments stand in the order of the parameters, those with an id of their own first.
inline Outcome InvokeId(IDispatch* object, DISPID id, const Arguments& arguments, WORD flags = AsScriptsCall,
                        std::vector<DISPID> named = {}, const Arguments& namedValues = {})
{
    std::vector<VARIANTARG> sent; // not owned
    for (const Variant& value : namedValues) sent.push_back(value.Raw());
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) sent.push_back(argument->Raw());
    DISPPARAMS parameters{sent.data(), named.data(), static_cast<UINT>(sent.size()), static_cast<UINT>(named.size())};
    Outcome outcome;
    EXCEPINFO exception{};
    outcome.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &outcome.value.Raw(),
                                    &exception, &outcome.wrongArgument);
    outcome.fault = exception.scode;
    outcome.source = Taken(exception.bstrSource);
    outcome.description = Taken(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

inline Outcome Invoke(IDispatch* object, const wchar_t* name, const Arguments& arguments = {},
                      WORD flags = AsScriptsCall)
{
    return InvokeId(object, IdOf(object, name), arguments, flags);
}

// A property; what comes last is its value.
inline Outcome Put(IDispatch* object, const wchar_t* name, Arguments arguments)
{
    const Variant value = arguments.back();
    arguments.pop_back();
    return InvokeId(object, IdOf(object, name), arguments, DISPATCH_PROPERTYPUT, {DISPID_PROPERTYPUT}, {value});
}

inline Outcome InvokeNamed(IDispatch* object, const wchar_t* name, const Arguments& arguments,
                           const NamedArguments& named)
{
    std::vector<wchar_t*> names = {const_cast<wchar_t*>(name)};
    Arguments values;
    for (const auto& [parameter, value] : named) {
        names.push_back(const_cast<wchar_t*>(parameter.c_str()));
        values.push_back(value);
    }
    std::vector<DISPID> ids(names.size());
    EXPECT_HRESULT_SUCCEEDED(object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                                   LOCALE_USER_DEFAULT, ids.data()));
    const DISPID member = ids.front();
    ids.erase(ids.begin());
    return InvokeId(object, member, arguments, AsScriptsCall, ids, values);
}

} // namespace qor::test
