// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The library's file beside the test program, loaded and freed by hand, and what the system calls in it.
#pragma once

#include "server/Client.h"

#include <string>
#include <utility>

namespace qor::test {

inline bool LibraryIsLoaded() { return GetModuleHandleW(L"QOR_File.dll") != nullptr; }

// One reference to the loaded library.
class Library
{
public:
    Library() : module_(LoadLibraryW(L"QOR_File.dll")) { EXPECT_TRUE(module_); }
    ~Library() { Free(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void Free()
    {
        if (module_) FreeLibrary(module_);
        module_ = nullptr;
    }

    HMODULE Module() const { return module_; }
    std::wstring Path() const
    {
        wchar_t path[1024] = {};
        GetModuleFileNameW(module_, path, 1024);
        return path;
    }

    HRESULT Register() const { return Call<HRESULT()>("DllRegisterServer"); }
    HRESULT Unregister() const { return Call<HRESULT()>("DllUnregisterServer"); }
    HRESULT Install(bool install, const wchar_t* words) const
    {
        return Call<HRESULT(BOOL, const wchar_t*)>("DllInstall", install, words);
    }
    bool CanUnload() const
    {
        const HRESULT answer = Call<HRESULT()>("DllCanUnloadNow");
        EXPECT_TRUE(answer == S_OK || answer == S_FALSE);
        return answer == S_OK;
    }
    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) const
    {
        return Call<HRESULT(REFCLSID, REFIID, void**)>("DllGetClassObject", classId, iid, object);
    }

    template <class Class>
    Held<IClassFactory> Factory() const
    {
        Held<IClassFactory> factory;
        EXPECT_HRESULT_SUCCEEDED(GetClassObject(__uuidof(Class), IID_IClassFactory, factory.OutAny()));
        return factory;
    }

    // A new object, made without the system's help.
    template <class Class, class Interface>
    Held<Interface> Create() const
    {
        Held<Interface> object;
        EXPECT_HRESULT_SUCCEEDED(Factory<Class>()->CreateInstance(nullptr, __uuidof(Interface), object.OutAny()));
        return object;
    }

private:
    template <class Signature>
    struct EntryPoint;
    template <class Result, class... Parameters>
    struct EntryPoint<Result(Parameters...)> {
        using Type = Result(WINAPI*)(Parameters...);
    };

    template <class Signature, class... Arguments>
    HRESULT Call(const char* name, Arguments&&... arguments) const
    {
        const FARPROC found = GetProcAddress(module_, name);
        EXPECT_TRUE(found) << name;
        if (!found) return E_NOTIMPL;
        const auto entry = reinterpret_cast<typename EntryPoint<Signature>::Type>(reinterpret_cast<void*>(found));
        return entry(std::forward<Arguments>(arguments)...);
    }

    HMODULE module_;
};

} // namespace qor::test
