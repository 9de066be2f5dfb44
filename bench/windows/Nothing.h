// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#pragma once

#include <unknwn.h>

namespace qor::bench {

struct INothing : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE DoNothing() = 0;
};

// An object whose class no caller sees, so that compilers cannot call it but through its vtable. It stays.
INothing& NewNothing();

} // namespace qor::bench
