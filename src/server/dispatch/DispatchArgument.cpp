// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/dispatch/DispatchArgument.h"

#include "server/dispatch/VariantConversion.h"

#include <oleauto.h>

namespace qor::server {
namespace {

// Same type, same bits; texts by their characters.
bool SameValue(const VARIANT& left, const VARIANT& right)
{
    switch (left.vt) {
    case VT_I4:
    case VT_R4: return left.lVal == right.lVal; // bits: a NaN is the same as itself
    case VT_BOOL: return left.boolVal == right.boolVal;
    case VT_BSTR: return TextsEqual(left.bstrVal, right.bstrVal);
    default: return false;
    }
}

} // namespace

DispatchArgument::~DispatchArgument()
{
    VariantClear(&copy_);
    VariantClear(&before_);
}

void DispatchArgument::PassReference(VARTYPE type, void* place)
{
    reference_.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference_.byref = place;
    passed_ = &reference_;
}

HRESULT DispatchArgument::Take(const DispatchParameter& parameter, VARIANTARG* given, LCID locale)
{
    isWhole_ = parameter.type == VT_VARIANT && !parameter.byReference;
    if (IsLeftOut(given)) return parameter.optional ? TakeNothing(parameter) : DISP_E_PARAMNOTOPTIONAL;
    return parameter.type == VT_VARIANT ? TakeVariant(parameter.byReference, given)
                                        : TakeTyped(parameter, given, locale);
}

HRESULT DispatchArgument::TakeNothing(const DispatchParameter& parameter)
{
    passed_ = &copy_;
    if (parameter.type == VT_VARIANT) {
        copy_.vt = VT_ERROR;
        copy_.scode = DISP_E_PARAMNOTFOUND;
        if (parameter.byReference) PassReference(VT_VARIANT, &copy_);
    } else {
        copy_.vt = parameter.type; // its value is 0
        if (parameter.byReference) PassReference(parameter.type, &copy_.lVal);
    }
    return S_OK;
}

HRESULT DispatchArgument::TakeVariant(bool byReference, VARIANTARG* given)
{
    passed_ = given;
    if (!byReference) return S_OK; // the member gets these bits, does not free them, and follows references itself
    if (given->vt == (VT_BYREF | VT_VARIANT)) return given->pvarVal ? S_OK : DISP_E_TYPEMISMATCH;
    if ((given->vt & VT_BYREF) != 0) {
        PassReference(VT_VARIANT, given);
        return S_OK;
    }
    // A value of the client's is not the member's to change.
    PassReference(VT_VARIANT, &copy_);
    const HRESULT copied = VariantCopy(&copy_, given);
    return SUCCEEDED(copied) || copied == E_OUTOFMEMORY ? copied : DISP_E_TYPEMISMATCH;
}

HRESULT DispatchArgument::TakeTyped(const DispatchParameter& parameter, VARIANTARG* given, LCID locale)
{
    VARIANT* variable = FollowedVariant(given);
    if (!variable) return DISP_E_TYPEMISMATCH;
    const auto type = parameter.type;
    if (variable->vt == type) {
        passed_ = variable;
        if (parameter.byReference && variable != given) PassReference(type, &variable->lVal);
        if (!parameter.byReference || variable != given) return S_OK;
    } else if (variable->vt == (VT_BYREF | type) && parameter.byReference) {
        passed_ = variable;
        return variable->byref ? S_OK : DISP_E_TYPEMISMATCH;
    }
    if (const HRESULT converted = Convert(copy_, *variable, type, locale); FAILED(converted)) return converted;
    passed_ = &copy_;
    if (!parameter.byReference) return S_OK;
    PassReference(type, &copy_.lVal);
    const bool canChange = variable != given || (given->vt & VT_BYREF) != 0;
    if (canChange) variable_ = variable;
    return canChange ? VariantCopy(&before_, &copy_) : S_OK;
}

HRESULT DispatchArgument::MakeReady(LCID locale)
{
    if (variable_ && variable_->vt != VT_EMPTY && SameValue(copy_, before_)) variable_ = nullptr;
    if (!variable_ || (variable_->vt & VT_BYREF) == 0) return S_OK;
    const auto type = static_cast<VARTYPE>(variable_->vt & ~VT_BYREF);
    return CanReferTo(type) ? Convert(before_, copy_, type, locale) : DISP_E_TYPEMISMATCH;
}

void DispatchArgument::GiveBack()
{
    if (!variable_) return;
    if ((variable_->vt & VT_BYREF) != 0) {
        MoveInto(*variable_, before_);
    } else {
        VariantClear(variable_);
        *variable_ = copy_;
        VariantInit(&copy_);
    }
}

} // namespace qor::server
