// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/Registration.h"

#include "server/Classes.h"
#include "server/Module.h"
#include <initguid.h> // the library's identifier is defined here
// After it, and only here.
#include "server/Interfaces.h"

#include <optional>
#include <string>
#include <vector>

namespace qor::server {
namespace {

using Text = std::wstring;

constexpr wchar_t TypeLibraryVersion[] = L"1.5";
constexpr wchar_t ClassVersion[] = L".1"; // of the versioned program identifiers
constexpr bool Is64Bit = sizeof(void*) == 8;

// One key below Software\Classes, after the keys that it stands in.
struct Entry {
    Text key;
    std::optional<Text> value = {};      // its default value
    std::optional<Text> namedValue = {}; // a value beside it, with its name
    const wchar_t* name = nullptr;
    // Used by the 32-bit and the 64-bit library alike; the system keeps all other keys once for each of them.
    bool shared = false;
};

Text Braced(const GUID& id)
{
    wchar_t text[39] = {};
    StringFromGUID2(id, text, 39);
    return text;
}

std::vector<Entry> Entries()
{
    const Text path = ModulePath();
    const Text library = Braced(LIBID_QOR_File);
    std::vector<Entry> entries;
    const auto add = [&](const Text& key, std::optional<Text> value = {}) {
        entries.push_back({.key = key, .value = std::move(value)});
    };
    const auto share = [&](const Text& key, std::optional<Text> value = {}) {
        entries.push_back({.key = key, .value = std::move(value), .shared = true});
    };

    for (const CreatableClass& each : Classes()) {
        const Text id = Braced(each.id);
        const Text key = L"CLSID\\" + id;
        const Text program = Text(L"QOR_File.") + each.name;
        add(key, each.title);
        add(key + L"\\InprocServer32", path);
        entries.back().name = L"ThreadingModel";
        entries.back().namedValue = L"Apartment";
        add(key + L"\\ProgID", program + ClassVersion);
        add(key + L"\\VersionIndependentProgID", program);
        add(key + L"\\TypeLib", library);
        add(key + L"\\Version", TypeLibraryVersion);
        add(key + L"\\Programmable");
        share(program, each.title);
        share(program + L"\\CLSID", id);
        share(program + L"\\CurVer", program + ClassVersion);
        share(program + ClassVersion, each.title);
        share(program + ClassVersion + L"\\CLSID", id);
    }
    for (const DescribedInterface& each : Interfaces()) {
        const Text key = L"Interface\\" + Braced(each.id);
        add(key, each.name);
        // Calls from other apartments go through the system's marshaler, which reads the type library.
        add(key + L"\\ProxyStubClsid32", L"{00020424-0000-0000-C000-000000000046}");
        add(key + L"\\TypeLib", library);
        entries.back().name = L"Version";
        entries.back().namedValue = TypeLibraryVersion;
    }
    const Text key = L"TypeLib\\" + library;
    const Text version = key + L"\\" + TypeLibraryVersion;
    share(key);
    share(version, L"QOR_File");
    share(version + L"\\FLAGS", L"0");
    share(version + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
    share(version + L"\\0");
    add(version + L"\\0\\" + (Is64Bit ? L"win64" : L"win32"), path);
    return entries;
}

// A key that is open, or could not be.
class Key
{
public:
    Key() = default;
    ~Key()
    {
        if (key_) RegCloseKey(key_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    LSTATUS Open(HKEY parent, const Text& name, REGSAM access)
    {
        return RegOpenKeyExW(parent, name.c_str(), 0, access, &key_);
    }
    LSTATUS Create(HKEY parent, const Text& name)
    {
        return RegCreateKeyExW(parent, name.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_, nullptr);
    }
    LSTATUS Set(const wchar_t* name, const Text& value)
    {
        return RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                              static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }
    LSTATUS Unset(const wchar_t* name)
    {
        const LSTATUS removed = RegDeleteValueW(key_, name);
        return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
    }
    HKEY Handle() const { return key_; }

private:
    HKEY key_ = nullptr;
};

HKEY Root(RegisteredFor whom) { return whom == RegisteredFor::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

LSTATUS Write(const Key& classes, const Entry& entry)
{
    Key key;
    LSTATUS status = key.Create(classes.Handle(), entry.key);
    if (status == ERROR_SUCCESS && entry.value) status = key.Set(nullptr, *entry.value);
    if (status == ERROR_SUCCESS && entry.name) status = key.Set(entry.name, *entry.namedValue);
    return status;
}

LSTATUS Remove(const Key& classes, const Entry& entry)
{
    const LSTATUS removed = RegDeleteKeyW(classes.Handle(), entry.key.c_str());
    if (removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    // A key that holds one of somebody else's stays, without what is ours.
    Key key;
    LSTATUS status = key.Open(classes.Handle(), entry.key, KEY_SET_VALUE);
    if (status == ERROR_SUCCESS && entry.value) status = key.Unset(nullptr);
    if (status == ERROR_SUCCESS && entry.name) status = key.Unset(entry.name);
    return status;
}

// The library of the other word size, on a system that has two. To be asked when this one's own keys are gone: not
// every system keeps a user's twice.
bool OtherIsRegistered(RegisteredFor whom)
{
    BOOL twoWordSizes = Is64Bit;
    if (!Is64Bit) IsWow64Process(GetCurrentProcess(), &twoWordSizes);
    if (!twoWordSizes) return false;
    Key other;
    const Text name = L"Software\\Classes\\CLSID\\" + Braced(Classes().front().id) + L"\\InprocServer32";
    return other.Open(Root(whom), name, KEY_READ | (Is64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY)) == ERROR_SUCCESS;
}

} // namespace

HRESULT Register(RegisteredFor whom)
{
    Key classes;
    LSTATUS status = classes.Create(Root(whom), L"Software\\Classes");
    if (status == ERROR_SUCCESS) {
        for (const Entry& entry : Entries()) {
            status = Write(classes, entry);
            if (status != ERROR_SUCCESS) break;
        }
        if (status != ERROR_SUCCESS) Unregister(whom);
    }
    return HRESULT_FROM_WIN32(status);
}

HRESULT Unregister(RegisteredFor whom)
{
    Key classes;
    LSTATUS status = classes.Open(Root(whom), L"Software\\Classes", KEY_READ | KEY_WRITE);
    if (status == ERROR_FILE_NOT_FOUND) return S_OK;
    if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
    const std::vector<Entry> entries = Entries();
    const auto removeAll = [&](bool shared) {
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            if (entry->shared != shared) continue;
            const LSTATUS removed = Remove(classes, *entry);
            if (status == ERROR_SUCCESS) status = removed;
        }
    };
    removeAll(false);
    if (!OtherIsRegistered(whom)) removeAll(true);
    return HRESULT_FROM_WIN32(status);
}

} // namespace qor::server
