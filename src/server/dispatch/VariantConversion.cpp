// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/dispatch/VariantConversion.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <oleauto.h>
#include <string_view>
#include <utility>

namespace qor::server {
namespace {

constexpr int MostReferences = 16; // to references; a variant that refers to itself must not hang the call

HRESULT ChangeType(VARIANT& target, const VARIANT& source, VARTYPE type, LCID locale)
{
    const HRESULT changed = VariantChangeTypeEx(&target, const_cast<VARIANT*>(&source), locale, 0, type);
    return changed == S_OK || changed == E_OUTOFMEMORY ? changed : DISP_E_TYPEMISMATCH;
}

bool IsNotANumber(const VARIANT& value)
{
    return (value.vt == VT_R4 && std::isnan(value.fltVal)) || (value.vt == VT_R8 && std::isnan(value.dblVal));
}

} // namespace

VARIANT* FollowedVariant(VARIANT* variant)
{
    for (int step = 0; variant && step < MostReferences; ++step) {
        if (variant->vt != (VT_BYREF | VT_VARIANT)) return variant;
        variant = variant->pvarVal;
    }
    return nullptr;
}

bool Dereference(VARIANT& direct, const VARIANT& source)
{
    VARIANT* const reference = FollowedVariant(const_cast<VARIANT*>(&source)); // which it only looks at
    if (!reference || ((reference->vt & VT_BYREF) != 0 && !reference->byref)) return false;
    // Neither number nor text; of an array whose type there is not, the platform would make a copy that stays.
    if (reference->vt == (VT_BYREF | VT_RECORD) || (reference->vt & VT_ARRAY) != 0) return false;
    return SUCCEEDED(VariantCopyInd(&direct, reference));
}

std::size_t WidthOf(VARTYPE type)
{
    switch (type) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE: return 8;
    default: return 0;
    }
}

bool TextsEqual(BSTR left, BSTR right)
{
    return std::wstring_view(left, SysStringLen(left)) == std::wstring_view(right, SysStringLen(right));
}

bool IsLeftOut(VARIANT* variant)
{
    const VARIANT* value = FollowedVariant(variant);
    return !variant || (value && value->vt == VT_ERROR && value->scode == DISP_E_PARAMNOTFOUND);
}

HRESULT Convert(VARIANT& target, const VARIANT& source, VARTYPE type, LCID locale)
{
    if ((source.vt & VT_ARRAY) != 0) return DISP_E_TYPEMISMATCH; // the platform takes bytes for a text
    if ((source.vt & VT_BYREF) != 0) {
        VARIANT direct;
        VariantInit(&direct);
        if (!Dereference(direct, source)) return DISP_E_TYPEMISMATCH;
        const HRESULT converted = Convert(target, direct, type, locale);
        VariantClear(&direct);
        return converted;
    }
    if (type == VT_R4 && source.vt == VT_R8) {
        // The platform's own conversion takes an infinite number for one that does not fit.
        if (std::isfinite(source.dblVal) && std::abs(source.dblVal) > std::numeric_limits<float>::max())
            return DISP_E_TYPEMISMATCH;
        VariantClear(&target);
        target.vt = VT_R4;
        target.fltVal = static_cast<float>(source.dblVal);
        return S_OK;
    }
    if (type == VT_R8 && source.vt == VT_R4) {
        VariantClear(&target);
        target.vt = VT_R8;
        target.dblVal = source.fltVal;
        return S_OK;
    }
    // Not every platform's conversion to an integer looks at this.
    if (IsNotANumber(source) && type != source.vt && type != VT_BSTR) return DISP_E_TYPEMISMATCH;
    return ChangeType(target, source, type, locale);
}

bool CanReferTo(VARTYPE type) { return type == VT_BSTR || type == VT_DECIMAL || WidthOf(type) != 0; }

void MoveInto(const VARIANT& target, VARIANT& value)
{
    if (value.vt == VT_BSTR) {
        SysFreeString(std::exchange(*target.pbstrVal, value.bstrVal));
        VariantInit(&value);
    } else if (value.vt == VT_DECIMAL) { // stands in a variant beside its type
        *target.pdecVal = value.decVal;
        target.pdecVal->wReserved = 0;
    } else {
        std::memcpy(target.byref, &value.lVal, WidthOf(value.vt));
    }
}

} // namespace qor::server
