// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/PerThread.h"

#include <windows.h>

// The system's, which its headers do not declare.
extern "C" BOOLEAN NTAPI RtlDllShutdownInProgress();
// Set by the linker to the start of the program or library that this is linked into.
extern "C" IMAGE_DOS_HEADER __ImageBase; // NOLINT(bugprone-reserved-identifier): its name

namespace qor::platform {

bool ProcessIsEnding() { return RtlDllShutdownInProgress() != FALSE; }

FiberLocalSlot::~FiberLocalSlot()
{
    // A program is never unloaded: its statics go while other threads may still be at work.
    const bool isProgram = GetModuleHandleW(nullptr) == reinterpret_cast<HMODULE>(&__ImageBase);
    const DWORD index = index_.exchange(None);
    if (index != None && !isProgram && !ProcessIsEnding()) FlsFree(index);
}

void* FiberLocalSlot::Get() const
{
    const DWORD index = index_;
    return index == None ? nullptr : FlsGetValue(index);
}

bool FiberLocalSlot::Set(void* value)
{
    if (index_ == None) {
        const DWORD fresh = FlsAlloc(destroy_);
        DWORD none = None;
        // Another thread may have been first.
        if (fresh != None && !index_.compare_exchange_strong(none, fresh)) FlsFree(fresh);
    }
    return FlsSetValue(index_, value) != FALSE;
}

} // namespace qor::platform
