// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/Module.h"

#include "component/modQOR_File.h"

#include <atomic>

namespace qor::server {
namespace {

std::atomic<long> objects = 0;
std::atomic<long> locks = 0;

} // namespace

HoldsModule::HoldsModule() noexcept { ++objects; }
HoldsModule::~HoldsModule() { --objects; }

void LockModule(bool lock) noexcept { locks += lock ? 1 : -1; }

bool CanUnload() noexcept { return objects == 0 && locks <= 0 && ThreadsWithDocuments() == 0; }

std::wstring ModulePath()
{
    HMODULE module = nullptr; // that of this function, and no reference to it
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ModulePath), &module);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace qor::server
