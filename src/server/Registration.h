// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The library's registry keys.
#pragma once

#include <windows.h>

namespace qor::server {

enum class RegisteredFor { Machine, User };

// Writes the keys for the library's file as it stands; what was written goes away again where one cannot be.
HRESULT Register(RegisteredFor whom);

// Removes them. Keys that the library of the other word size shares stay while that is registered.
HRESULT Unregister(RegisteredFor whom);

} // namespace qor::server
