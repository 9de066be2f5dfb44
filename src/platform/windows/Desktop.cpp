// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Desktop.h"

#include <exception>
#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

namespace qor::platform {

void PostError(std::uint32_t, std::u16string_view source, std::u16string_view description) noexcept
{
    // The error object carries texts only; its number travels in the failed call's own result.
    SetErrorInfo(0, nullptr); // no older text is to stand for this error, should there be no memory for its own
    try {
        std::wstring sourceText(source.begin(), source.end());
        std::wstring descriptionText(description.begin(), description.end());
        ICreateErrorInfo* fresh = nullptr;
        if (FAILED(CreateErrorInfo(&fresh))) return;
        fresh->SetSource(sourceText.data());
        fresh->SetDescription(descriptionText.data());
        IErrorInfo* posted = nullptr;
        if (SUCCEEDED(fresh->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&posted)))) {
            SetErrorInfo(0, posted);
            posted->Release();
        }
        fresh->Release();
    } catch (const std::exception&) {
        // Without memory for its text the error stays unposted; its code is kept by the object all the same.
    }
}

BusyPointer::BusyPointer() : previous_(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
BusyPointer::~BusyPointer() { SetCursor(static_cast<HCURSOR>(previous_)); }

} // namespace qor::platform
