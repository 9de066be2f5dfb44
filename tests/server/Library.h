// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The library's file beside the test program, and what the system calls in it.
#pragma once

#include "server/Client.h"

#include <string>

namespace qor::test {

class Library
{
public:
    Library() : module_(LoadLibraryW(L"QOR_File.dll")) { EXPECT_TRUE(module_); }
    ~Library() { FreeLibrary(module_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

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
    HRESULT CanUnloadNow() const { return Call<HRESULT()>("DllCanUnloadNow"); }
    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) const
    {
        return Call<HRESULT(REFCLSID, REFIID, void**)>("DllGetClassObject", classId, iid, object);
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
