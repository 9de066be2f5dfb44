// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What every object of the library is beside its own members: counted references, one identity, error information,
// and a description of its class.
#pragma once

#include "server/Border.h"
#include "server/Module.h"
#include "server/dispatch/TypeLibrary.h"

#include <atomic>
#include <ocidl.h>

namespace qor::server {

// Members implements the dual interfaces named, the first being the default one of the creatable class Class.
template <class Class, class Members, class Default, class... Others>
class ComObject final : public Members, public ISupportErrorInfo, public IProvideClassInfo2
{
public:
    // A new object's interface iid; nothing is made where it has none such.
    static HRESULT Create(REFIID iid, void** object)
    {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (!Has(iid)) return E_NOINTERFACE; // before anything is made: a new clsQOR_File empties the documents
        return Guarded([&] {
            auto* made = new ComObject;
            const HRESULT found = made->QueryInterface(iid, object);
            made->Release();
            return found;
        });
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IDispatch) {
            *object = static_cast<Default*>(this); // one and the same pointer, whichever interface is asked
        } else if (iid == IID_ISupportErrorInfo) {
            *object = static_cast<ISupportErrorInfo*>(this);
        } else if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) {
            *object = static_cast<IProvideClassInfo2*>(this);
        } else {
            Find<Default>(iid, object);
            (Find<Others>(iid, object), ...);
        }
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override { return IsDual(iid) ? S_OK : S_FALSE; }

    STDMETHODIMP GetClassInfo(ITypeInfo** description) override
    {
        if (!description) return E_POINTER;
        *description = nullptr;
        return Guarded([&] {
            const auto library = TypeLibrary::Shared();
            if (library) *description = library->Class(__uuidof(Class)).release();
            return *description ? S_OK : Failed(TYPE_E_CANTLOADLIBRARY, u"The type library cannot be read");
        });
    }

    STDMETHODIMP GetGUID(DWORD kind, GUID* id) override
    {
        if (!id) return E_POINTER;
        *id = GUID_NULL;
        return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_FALSE : E_INVALIDARG; // the classes have no events
    }

private:
    ComObject() = default;

    static bool IsDual(REFIID iid) { return iid == __uuidof(Default) || ((iid == __uuidof(Others)) || ...); }
    static bool Has(REFIID iid)
    {
        return iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_ISupportErrorInfo ||
               iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2 || IsDual(iid);
    }

    template <class Interface>
    void Find(REFIID iid, void** object)
    {
        if (iid == __uuidof(Interface)) *object = static_cast<Interface*>(this);
    }

    HoldsModule holder_;
    std::atomic<ULONG> references_ = 1;
};

} // namespace qor::server
