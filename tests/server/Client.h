// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What a client of the registered library has: the generated declarations, an apartment, and objects.
#pragma once

#include <gtest/gtest.h>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wconversion"
#include <comdef.h>
#include <windows.h>

#include "QOR_FileInterfaces.h"
#pragma GCC diagnostic pop

namespace qor::test {

// A thread's apartment, for as long as this lives.
class Apartment
{
public:
    Apartment() { EXPECT_HRESULT_SUCCEEDED(CoInitialize(nullptr)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

// An interface that is released with this; comdef.h's pointers throw, which a test does not want.
template <class Interface>
class Held
{
public:
    Held() = default;
    explicit Held(Interface* owned) : object_(owned) {}
    Held(Held&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
    ~Held()
    {
        if (object_) object_->Release();
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    Interface* operator->() const { return object_; }
    Interface* Get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    // Where a call is to leave a new reference.
    Interface** Out() { return &object_; }
    void** OutAny() { return reinterpret_cast<void**>(&object_); }

private:
    Interface* object_ = nullptr;
};

// A new object of a registered class; null, and a failed test, where there is none.
template <class Class, class Interface>
Held<Interface> Create()
{
    Held<Interface> object;
    EXPECT_HRESULT_SUCCEEDED(
        CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.OutAny()));
    return object;
}

// Another interface of an object; null where it has none such.
template <class Interface, class Object>
Held<Interface> Ask(const Held<Object>& object)
{
    Held<Interface> other;
    object->QueryInterface(__uuidof(Interface), other.OutAny());
    return other;
}

} // namespace qor::test
