// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// One argument of a late-bound call, between what the client sent and what the member declares.
#pragma once

#include <oaidl.h>

namespace qor::server {

struct DispatchParameter {
    VARTYPE type = VT_EMPTY; // without VT_BYREF; an enumeration is VT_I4
    bool byReference = false;
    bool optional = false; // 0, or nothing, where it is left out
};

class DispatchArgument
{
public:
    DispatchArgument() = default;
    ~DispatchArgument();
    DispatchArgument(const DispatchArgument&) = delete;
    DispatchArgument& operator=(const DispatchArgument&) = delete;

    // Brings what the client sent (null: nothing) to the declared type. DISP_E_PARAMNOTOPTIONAL where it must not be
    // left out, DISP_E_TYPEMISMATCH where it cannot be converted or does not fit. The client's value is used where it
    // stands if its type is right; otherwise a converted copy is passed.
    HRESULT Take(const DispatchParameter& parameter, VARIANTARG* given, LCID locale);

    // What the member is called with; valid as long as this object.
    VARIANTARG* Passed() { return passed_; }
    VARTYPE PassedType() const { return isWhole_ ? VARTYPE{VT_VARIANT} : passed_->vt; }

    // Writes a copy that the member changed back to the client's variable. A variable that was empty always gets its
    // value; one that holds a value that did not change keeps it, and its type.
    // In two steps, so that a call writes back all variables or none: DISP_E_TYPEMISMATCH where a declared variable
    // cannot hold the value.
    HRESULT MakeReady(LCID locale);
    void GiveBack();

private:
    HRESULT TakeNothing(const DispatchParameter& parameter);
    HRESULT TakeVariant(bool byReference, VARIANTARG* given);
    HRESULT TakeTyped(const DispatchParameter& parameter, VARIANTARG* given, LCID locale);
    void PassReference(VARTYPE type, void* place);

    VARIANTARG* passed_ = nullptr;
    bool isWhole_ = false;        // a parameter of any type, by value: all of the variant is passed
    VARIANTARG reference_{};      // VT_BYREF to what is passed by reference
    VARIANT copy_{};              // the converted value; 0 in full, which VariantInit leaves to newer systems
    VARIANT before_{};            // the same before the call, later what goes back into a declared variable
    VARIANT* variable_ = nullptr; // the client's, that copy_ was made of and may go back to
};

} // namespace qor::server
