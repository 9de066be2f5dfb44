// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Late binding of one interface. A call is checked against the description in the type library, its arguments are
// brought to the declared types, and what the member changed is written back to the client's variables. The system's
// own dispatcher refuses most of what script clients send, and is slower.
#pragma once

#include "server/dispatch/ComPointer.h"
#include "server/dispatch/DispatchArgument.h"

#include <oaidl.h>
#include <optional>
#include <vector>

namespace qor::server {

// Never changes once it is made, so that all threads may share it.
class DispatchTable
{
public:
    // description is the dispatch half of a dual interface. Throws std::bad_alloc.
    explicit DispatchTable(ComPointer<ITypeInfo> description);

    ITypeInfo& Description() const { return *description_; }

    // IDispatch::Invoke on an object with this interface. Beyond what that promises: a method answers to a property
    // get and the other way round; numbers of any type are taken by value or by reference where they fit; optional
    // arguments may be missing anywhere. An argument that cannot be converted is DISP_E_TYPEMISMATCH.
    HRESULT Invoke(void* object, DISPID id, LCID locale, WORD flags, const DISPPARAMS& given, VARIANT* result,
                   EXCEPINFO* exception, UINT* wrongArgument) const;

private:
    struct Member {
        ULONG_PTR vtableOffset = 0;
        std::vector<DispatchParameter> parameters; // without the result
        VARTYPE result = VT_EMPTY;
    };
    struct Access {
        std::optional<Member> call; // a method or a property get
        std::optional<Member> put;
    };
    static Member Describe(ITypeInfo& interfaceDescription, const FUNCDESC& function);
    const Member* Find(DISPID id, WORD flags) const;

    ComPointer<ITypeInfo> description_;
    std::vector<Access> members_; // by dispatch number
};

} // namespace qor::server
