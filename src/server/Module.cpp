// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/Module.h"

#include "component/modQOR_File.h"

#include <atomic>

// Set by the linker to the start of this library.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace qor::server {
namespace {

std::atomic<long> holders = 0;

} // namespace

HoldsModule::HoldsModule() noexcept { ++holders; }
HoldsModule::~HoldsModule() { --holders; }

void LockModule(bool lock) noexcept { holders += lock ? 1 : -1; }

bool CanUnload() noexcept { return holders <= 0 && ThreadsWithDocuments() == 0; }

std::wstring ModulePath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(reinterpret_cast<HMODULE>(&__ImageBase), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace qor::server
