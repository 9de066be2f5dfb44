// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The library as a client has it, and late-bound calls.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <utility>
#include <vector>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wconversion"
#include <windows.h>

#include "QOR_FileInterfaces.h"
#pragma GCC diagnostic pop

namespace qor::bench {

// Ends the program, with exit code 1, where a result is wrong: a time of what went wrong tells nothing.
inline void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "wrong: %s\n", what);
    std::exit(1);
}

// An interface, released with this.
template <class Interface>
class Held
{
public:
    Held() = default;
    Held(Held&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~Held()
    {
        if (object_) object_->Release();
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    Interface* operator->() const { return object_; }
    Interface* Get() const { return object_; }
    Interface** Out() { return &object_; }
    void** OutAny() { return reinterpret_cast<void**>(&object_); }

private:
    Interface* object_ = nullptr;
};

// A class factory of the library beside this program.
Held<IClassFactory> FactoryOf(REFCLSID classId);

template <class Interface>
Held<Interface> Create(IClassFactory& factory)
{
    Held<Interface> object;
    Require(SUCCEEDED(factory.CreateInstance(nullptr, __uuidof(Interface), object.OutAny())), "no object");
    return object;
}

inline VARIANT Reference(LONG& value)
{
    VARIANT variant{};
    variant.vt = VT_BYREF | VT_I4;
    variant.plVal = &value;
    return variant;
}
inline VARIANT Reference(float& value)
{
    VARIANT variant{};
    variant.vt = VT_BYREF | VT_R4;
    variant.pfltVal = &value;
    return variant;
}
inline VARIANT Reference(VARIANT& value)
{
    VARIANT variant{};
    variant.vt = VT_BYREF | VT_VARIANT;
    variant.pvarVal = &value;
    return variant;
}
inline VARIANT Value(LONG value)
{
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}
inline VARIANT Value(double value)
{
    VARIANT variant{};
    variant.vt = VT_R8;
    variant.dblVal = value;
    return variant;
}

// A late-bound call with its arguments in order, made again and again, by the object or by the stock dispatcher.
class LateCall
{
public:
    LateCall(IDispatch& object, const wchar_t* member, WORD flags, std::initializer_list<VARIANT> arguments);

    void ByObject()
    {
        VARIANT result{};
        const HRESULT called =
            object_.Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, flags_, &parameters_, &result, nullptr, nullptr);
        Require(called == S_OK, "late-bound call");
        VariantClear(&result);
    }
    void ByStock()
    {
        VARIANT result{};
        const HRESULT called = description_->Invoke(&object_, id_, flags_, &parameters_, &result, nullptr, nullptr);
        Require(called == S_OK, "stock late-bound call");
        VariantClear(&result);
    }

private:
    IDispatch& object_;
    Held<ITypeInfo> description_;
    DISPID id_ = DISPID_UNKNOWN;
    WORD flags_;
    std::vector<VARIANT> arguments_; // the last first
    DISPPARAMS parameters_{};
};

} // namespace qor::bench
