// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Values of any type to a declared one, by the platform's rules, but that infinite and undefined numbers pass.
#pragma once

#include <oaidl.h>

namespace qor::server {

// The variant at the end of references to variants; null where a reference is null or they do not end.
VARIANT* FollowedVariant(VARIANT* variant);

// Sets direct, which is empty, to a copy of what source refers to. False where it refers to nothing, or to
// what is neither number nor text.
bool Dereference(VARIANT& direct, const VARIANT& source);

// An optional argument that the client left out, or was left without itself and passes on.
bool IsLeftOut(VARIANT* variant);

// The width of a simple type as it stands in memory, 0 for every other.
std::size_t WidthOf(VARTYPE type);

bool TextsEqual(BSTR left, BSTR right);

// Sets target, which is cleared first, to source as type. DISP_E_TYPEMISMATCH where there is no such value.
HRESULT Convert(VARIANT& target, const VARIANT& source, VARTYPE type, LCID locale);

// Whether a VT_BYREF of this type can be written by MoveInto: simple types and texts.
bool CanReferTo(VARTYPE type);

// Stores value in what target, a VT_BYREF of the same type, refers to; value gives its text up.
void MoveInto(const VARIANT& target, VARIANT& value);

} // namespace qor::server
