// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The type library that stands in this library's own file, so that objects describe themselves registered or not.
#pragma once

#include "server/dispatch/DispatchTable.h"

#include <map>
#include <memory>

namespace qor::server {

class TypeLibrary
{
public:
    // The one that some object uses, else a new one; it goes with its last user, because a type library in use holds
    // this library's file. Null where it cannot be read.
    static std::shared_ptr<const TypeLibrary> Shared();

    explicit TypeLibrary(ComPointer<ITypeLib> library);

    // How an interface is called late bound; null for one that is not described.
    const DispatchTable* Table(REFIID interfaceId) const;
    // The description of a creatable class; null where there is none.
    ComPointer<ITypeInfo> Class(REFCLSID classId) const;

private:
    struct Order {
        bool operator()(const GUID& left, const GUID& right) const;
    };

    ComPointer<ITypeLib> library_;
    std::map<GUID, DispatchTable, Order> tables_;
};

} // namespace qor::server
