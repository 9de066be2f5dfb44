// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The creatable classes and the interfaces of the library: what is registered, and what the class factory makes.
#pragma once

#include <span>
#include <windows.h>

namespace qor::server {

struct CreatableClass {
    GUID id;
    const wchar_t* name; // the program identifier is "QOR_File." and this
    const wchar_t* title;
    HRESULT (*create)(REFIID iid, void** object);
};

struct DescribedInterface {
    GUID id;
    const wchar_t* name;
};

std::span<const CreatableClass> Classes();
std::span<const DescribedInterface> Interfaces();

} // namespace qor::server
