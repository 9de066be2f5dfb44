// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/dispatch/TypeLibrary.h"

#include "server/Module.h"

#include <cstring>
#include <oleauto.h>

namespace qor::server {
namespace {

// The system's lock, as the standard one leaves memory behind when the library is unloaded.
class Lock
{
public:
    explicit Lock(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    ~Lock() { ReleaseSRWLockExclusive(&lock_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    SRWLOCK& lock_;
};

SRWLOCK sharing = SRWLOCK_INIT;
std::weak_ptr<const TypeLibrary> shared;

} // namespace

std::shared_ptr<const TypeLibrary> TypeLibrary::Shared()
{
    const Lock lock(sharing);
    if (auto present = shared.lock()) return present;
    ITypeLib* found = nullptr;
    if (FAILED(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &found))) return nullptr;
    auto made = std::make_shared<const TypeLibrary>(ComPointer<ITypeLib>(found));
    shared = made;
    return made;
}

TypeLibrary::TypeLibrary(ComPointer<ITypeLib> library) : library_(std::move(library))
{
    for (UINT number = 0; number < library_->GetTypeInfoCount(); ++number) {
        ITypeInfo* found = nullptr;
        if (FAILED(library_->GetTypeInfo(number, &found))) continue;
        ComPointer<ITypeInfo> description(found);
        TYPEATTR* attributes = nullptr;
        if (FAILED(description->GetTypeAttr(&attributes))) continue;
        const GUID id = attributes->guid;
        const bool isInterface = attributes->typekind == TKIND_DISPATCH;
        description->ReleaseTypeAttr(attributes);
        if (isInterface) tables_.try_emplace(id, std::move(description));
    }
}

const DispatchTable* TypeLibrary::Table(REFIID interfaceId) const
{
    const auto found = tables_.find(interfaceId);
    return found == tables_.end() ? nullptr : &found->second;
}

ComPointer<ITypeInfo> TypeLibrary::Class(REFCLSID classId) const
{
    ITypeInfo* found = nullptr;
    if (FAILED(library_->GetTypeInfoOfGuid(classId, &found))) return nullptr;
    return ComPointer<ITypeInfo>(found);
}

bool TypeLibrary::Order::operator()(const GUID& left, const GUID& right) const
{
    return std::memcmp(&left, &right, sizeof(GUID)) < 0;
}

} // namespace qor::server
