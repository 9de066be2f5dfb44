// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the system calls in the library.
#include "server/Border.h"
#include "server/ClassFactory.h"
#include "server/Module.h"
#include "server/Registration.h"

#include <algorithm>
#include <olectl.h>
#include <string_view>

using namespace qor::server;

// The compiler's own entry point, which makes and destroys what is static.
extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE library, DWORD reason, LPVOID reserved);

// Called when the library comes, or goes; reserved is set where it goes with the process.
extern "C" BOOL WINAPI LibraryEntry(HINSTANCE library, DWORD reason, LPVOID reserved)
{
    // The other threads of the process were stopped wherever they were, so that a lock may never be free again. What
    // they held goes with the process.
    if (reason == DLL_PROCESS_DETACH && reserved) return TRUE;
    return DllMainCRTStartup(library, reason, reserved);
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object)
{
    if (!object) return E_POINTER;
    *object = nullptr;
    return Guarded([&]() -> HRESULT {
        const auto classes = Classes();
        const auto found = std::find_if(classes.begin(), classes.end(),
                                        [&](const CreatableClass& each) { return each.id == classId; });
        if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
        auto* factory = new ClassFactory(*found);
        const HRESULT queried = factory->QueryInterface(iid, object);
        factory->Release();
        return queried;
    });
}

STDAPI DllCanUnloadNow() { return CanUnload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer()
{
    return Guarded([] { return Register(RegisteredFor::Machine); });
}

STDAPI DllUnregisterServer()
{
    return Guarded([] { return Unregister(RegisteredFor::Machine); });
}

// regsvr32 /n /i:user: for the user who calls, which takes no administrator.
STDAPI DllInstall(BOOL install, PCWSTR commandLine)
{
    const std::wstring_view words(commandLine ? commandLine : L"");
    if (!words.empty() && words != L"user") return E_INVALIDARG;
    const RegisteredFor whom = words.empty() ? RegisteredFor::Machine : RegisteredFor::User;
    return Guarded([&] { return install ? Register(whom) : Unregister(whom); });
}
