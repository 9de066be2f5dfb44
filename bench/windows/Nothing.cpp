// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Nothing.h"

namespace qor::bench {
namespace {

class Nothing final : public INothing
{
public:
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP DoNothing() override { return S_OK; }
};

} // namespace

INothing& NewNothing()
{
    static Nothing nothing;
    return nothing;
}

} // namespace qor::bench
