// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#pragma once

#include "server/Classes.h"
#include "server/Module.h"

#include <atomic>
#include <unknwn.h>

namespace qor::server {

// Makes objects of one class. Aggregation is refused.
class ClassFactory final : public IClassFactory
{
public:
    explicit ClassFactory(const CreatableClass& made) : class_(made) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

private:
    ~ClassFactory() = default;

    HoldsModule holder_;
    const CreatableClass& class_;
    std::atomic<ULONG> references_ = 1;
};

} // namespace qor::server
