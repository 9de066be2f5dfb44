// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The registered library, loaded and freed by hand: the system's way to it decides for itself when to unload.
#pragma once

#include "Client.h"

#include <string>

namespace qor::test {

// Where the registered library is.
inline std::wstring LibraryPath()
{
    wchar_t id[39] = {};
    StringFromGUID2(__uuidof(clsQOR_File), id, 39);
    wchar_t path[MAX_PATH] = {};
    DWORD bytes = sizeof path;
    const std::wstring key = std::wstring(L"CLSID\\") + id + L"\\InprocServer32";
    EXPECT_EQ(RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &bytes), 0);
    return path;
}

inline bool LibraryIsLoaded() { return GetModuleHandleW(L"QOR_File.dll") != nullptr; }

// One reference to the loaded library.
class Library
{
public:
    Library() : module_(LoadLibraryW(LibraryPath().c_str())) { EXPECT_NE(module_, nullptr); }
    ~Library() { Free(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void Free()
    {
        if (module_) FreeLibrary(module_);
        module_ = nullptr;
    }

    bool CanUnload() const
    {
        const HRESULT answer = Entry<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")();
        EXPECT_TRUE(answer == S_OK || answer == S_FALSE);
        return answer == S_OK;
    }

    template <class Class>
    Held<IClassFactory> Factory() const
    {
        Held<IClassFactory> factory;
        const auto get = Entry<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
        EXPECT_HRESULT_SUCCEEDED(get(__uuidof(Class), IID_IClassFactory, factory.OutAny()));
        return factory;
    }

    template <class Class, class Interface>
    Held<Interface> Create() const
    {
        Held<Interface> object;
        EXPECT_HRESULT_SUCCEEDED(Factory<Class>()->CreateInstance(nullptr, __uuidof(Interface), object.OutAny()));
        return object;
    }

private:
    template <class Function>
    Function Entry(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    HMODULE module_;
};

} // namespace qor::test
