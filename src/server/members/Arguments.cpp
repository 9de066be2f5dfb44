// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/members/Arguments.h"

#include "server/dispatch/VariantConversion.h"

#include <limits>
#include <new>

namespace qor::server {
namespace {

// What stands for a value that is no number: a text.
NumericVariant NotANumber() { return std::u16string(); }

NumericVariant AsDouble(const VARIANT& value)
{
    VARIANT number;
    VariantInit(&number);
    if (FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_R8))) return NotANumber();
    return number.dblVal;
}

} // namespace

BSTR NewText(std::u16string_view text)
{
    if (text.size() > std::numeric_limits<UINT>::max() / sizeof(OLECHAR)) throw std::bad_alloc();
    const BSTR result =
        SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()), static_cast<UINT>(text.size()));
    if (!result) throw std::bad_alloc();
    return result;
}

NumericVariant NumericOf(const VARIANT& value)
{
    if ((value.vt & VT_BYREF) != 0) {
        VARIANT direct;
        VariantInit(&direct);
        if (!Dereference(direct, value)) return NotANumber();
        NumericVariant number = NumericOf(direct);
        VariantClear(&direct);
        return number;
    }
    switch (value.vt) {
    case VT_EMPTY: return std::monostate();
    case VT_UI1: return value.bVal;
    case VT_I1: return std::int32_t{static_cast<signed char>(value.cVal)}; // wide, as VT_UI1
    case VT_I2: return value.iVal;
    case VT_BOOL: return Bool16::Raw(value.boolVal);
    case VT_UI2: return std::int32_t{value.uiVal};
    case VT_I4: return std::int32_t{value.lVal};
    case VT_INT: return std::int32_t{value.intVal};
    case VT_UI4: return std::int64_t{value.ulVal};
    case VT_UINT: return std::int64_t{value.uintVal};
    case VT_I8: return std::int64_t{value.llVal};
    case VT_R4: return value.fltVal;
    case VT_R8: return value.dblVal;
    case VT_UI8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
    case VT_DISPATCH: return AsDouble(value); // an object stands for its default value
    default: return NotANumber();
    }
}

} // namespace qor::server
