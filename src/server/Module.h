// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The loaded library: where its file is, and what keeps it in memory.
#pragma once

#include <string>
#include <windows.h>

namespace qor::server {

// Counts as one object of the library for as long as it lives.
class HoldsModule
{
public:
    HoldsModule() noexcept;
    ~HoldsModule();
    HoldsModule(const HoldsModule&) = delete;
    HoldsModule& operator=(const HoldsModule&) = delete;
};

// A client's wish to keep the library, as IClassFactory::LockServer.
void LockModule(bool lock) noexcept;

// No object, no lock, and no thread that holds documents: these would go with the library.
bool CanUnload() noexcept;

// The full name of the library's file.
std::wstring ModulePath();

} // namespace qor::server
