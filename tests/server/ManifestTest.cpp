// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The manifest names classes and interfaces once more; the type library says what is right.
#include <initguid.h> // the identifiers are defined here

#include "server/Library.h"

#include <fstream>
#include <functional>
#include <iterator>

using namespace qor::test;

namespace {

std::string Narrow(const wchar_t* text)
{
    const std::wstring wide(text);
    return {wide.begin(), wide.end()}; // of plain letters
}

std::string Braced(const GUID& id)
{
    wchar_t text[39] = {};
    StringFromGUID2(id, text, 39);
    return Narrow(text);
}

std::string Beside(const Library& library)
{
    std::wstring path = library.Path();
    path.replace(path.size() - 4, 4, L".manifest");
    std::ifstream file(Narrow(path.c_str()), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string Inside(const Library& library)
{
    HRSRC const found = FindResourceW(library.Module(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
    if (!found) return "";
    return {static_cast<const char*>(LockResource(LoadResource(library.Module(), found))),
            SizeofResource(library.Module(), found)};
}

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

// Name and identifier of everything of one kind in the type library.
void ForEach(const Library& library, TYPEKIND kind, const std::function<void(const std::string&, const GUID&)>& use)
{
    Held<ITypeLib> described;
    ASSERT_HRESULT_SUCCEEDED(LoadTypeLibEx(library.Path().c_str(), REGKIND_NONE, described.Out()));
    for (UINT number = 0; number < described->GetTypeInfoCount(); ++number) {
        Held<ITypeInfo> info;
        TYPEATTR* attributes = nullptr;
        BSTR name = nullptr;
        ASSERT_HRESULT_SUCCEEDED(described->GetTypeInfo(number, info.Out()));
        ASSERT_HRESULT_SUCCEEDED(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
        ASSERT_HRESULT_SUCCEEDED(info->GetTypeAttr(&attributes));
        if (attributes->typekind == kind) use(Narrow(name), attributes->guid);
        info->ReleaseTypeAttr(attributes);
        SysFreeString(name);
    }
}

} // namespace

TEST(Manifest, IsTheSameInTheLibraryAndBesideIt)
{
    const Library library;

    EXPECT_NE(Inside(library), "");
    EXPECT_EQ(Inside(library), Beside(library));
}

TEST(Manifest, IsThatOfThisVersionAndWordSize)
{
    const std::string manifest = Beside(Library());

    EXPECT_EQ(Count(manifest, "name=\"QOR_File\" version=\"1.5.0.3\""), 1U);
    EXPECT_EQ(Count(manifest, sizeof(void*) == 8 ? "processorArchitecture=\"amd64\"" : "processorArchitecture=\"x86\""),
              1U);
}

TEST(Manifest, NamesEveryClass)
{
    const Library library;
    const std::string manifest = Beside(library);
    std::size_t classes = 0;
    ForEach(library, TKIND_COCLASS, [&](const std::string& name, const GUID& id) {
        const std::string program = "QOR_File." + name;
        EXPECT_EQ(Count(manifest, "<comClass clsid=\"" + Braced(id) + "\" progid=\"" + program +
                                      "\" threadingModel=\"Apartment\""),
                  1U)
            << name;
        EXPECT_EQ(Count(manifest, "<progid>" + program + ".1</progid>"), 1U) << name;
        ++classes;
    });

    EXPECT_EQ(classes, 7U);
    EXPECT_EQ(Count(manifest, "<comClass "), classes);
}

TEST(Manifest, NamesEveryInterface)
{
    const Library library;
    const std::string manifest = Beside(library);
    std::size_t interfaces = 0;
    ForEach(library, TKIND_DISPATCH, [&](const std::string& name, const GUID& id) {
        EXPECT_EQ(Count(manifest, "<comInterfaceExternalProxyStub name=\"" + name + "\" iid=\"" + Braced(id) + "\""),
                  1U)
            << name;
        ++interfaces;
    });

    EXPECT_EQ(interfaces, 7U);
    EXPECT_EQ(Count(manifest, "<comInterfaceExternalProxyStub "), interfaces);
    EXPECT_EQ(Count(manifest, "proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\""), interfaces);
}

TEST(Manifest, NamesTheTypeLibraryForAllOfThem)
{
    const std::string manifest = Beside(Library());
    const std::string library = "tlbid=\"" + Braced(LIBID_QOR_File) + "\"";

    EXPECT_EQ(Count(manifest, "<typelib " + library + " version=\"1.5\""), 1U);
    EXPECT_EQ(Count(manifest, library), 1U + 7U + 7U); // and each class and interface
}
