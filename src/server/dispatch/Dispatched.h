// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The IDispatch members of one dual interface. An object with several interfaces has them once for each, since a late
// call means that interface through which it comes.
#pragma once

#include "server/Border.h"
#include "server/dispatch/TypeLibrary.h"

#include <algorithm>
#include <memory>

namespace qor::server {

template <class Interface>
class Dispatched : public Interface
{
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT number, LCID, ITypeInfo** description) override
    {
        if (!description) return E_POINTER;
        *description = nullptr;
        if (number != 0) return DISP_E_BADINDEX;
        return WithTable([&](const DispatchTable& table) {
            *description = &table.Description();
            (*description)->AddRef();
            return S_OK;
        });
    }

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override
    {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        if (!names || !ids) return E_POINTER;
        if (count == 0 || std::find(names, names + count, nullptr) != names + count) return E_INVALIDARG;
        return WithTable(
            [&](const DispatchTable& table) { return table.Description().GetIDsOfNames(names, count, ids); });
    }

    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) override
    {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        if (!arguments) return E_POINTER;
        return WithTable([&](const DispatchTable& table) {
            return table.Invoke(static_cast<Interface*>(this), id, locale, flags, *arguments, result, exception,
                                wrongArgument);
        });
    }

private:
    template <class Use>
    HRESULT WithTable(Use&& use)
    {
        return Guarded([&] {
            if (!library_) library_ = TypeLibrary::Shared(); // objects that are only bound early do without
            if (!table_ && library_) table_ = library_->Table(__uuidof(Interface));
            return table_ ? use(*table_) : Failed(TYPE_E_CANTLOADLIBRARY, u"The type library cannot be read");
        });
    }

    std::shared_ptr<const TypeLibrary> library_;
    const DispatchTable* table_ = nullptr;
};

} // namespace qor::server
