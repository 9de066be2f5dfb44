// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Client.h"

#include <algorithm>
#include <string>

namespace qor::bench {

Held<IClassFactory> FactoryOf(REFCLSID classId)
{
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path = path.substr(0, path.find_last_of(L'\\') + 1) + L"QOR_File.dll";
    const HMODULE library = LoadLibraryW(path.c_str());
    Require(library != nullptr, "no library");
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get =
        reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    Held<IClassFactory> factory;
    Require(SUCCEEDED(get(classId, IID_IClassFactory, factory.OutAny())), "no class factory");
    return factory;
}

LateCall::LateCall(IDispatch& object, const wchar_t* member, WORD flags, std::initializer_list<VARIANT> arguments)
    : object_(object), flags_(flags), arguments_(arguments)
{
    std::wstring name = member;
    LPOLESTR text = name.data();
    Require(SUCCEEDED(object_.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id_)), "no such member");
    Require(SUCCEEDED(object_.GetTypeInfo(0, LOCALE_USER_DEFAULT, description_.Out())), "no description");
    std::reverse(arguments_.begin(), arguments_.end());
    parameters_.rgvarg = arguments_.data();
    parameters_.cArgs = static_cast<UINT>(arguments_.size());
}

} // namespace qor::bench
