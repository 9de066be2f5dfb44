// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/ClassFactory.h"

namespace qor::server {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object)
{
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) ClassFactory::Release()
{
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object)
{
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return class_.create(iid, object);
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock)
{
    LockModule(lock != FALSE);
    return S_OK;
}

} // namespace qor::server
