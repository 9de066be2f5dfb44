// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The version record of the library's file, and what the file needs of others.
#include "server/Library.h"

#include <algorithm>
#include <set>
#include <vector>

using namespace qor::test;

namespace {

// The version record as its file has it.
class VersionRecord
{
public:
    VersionRecord()
    {
        const std::wstring path = Library().Path();
        DWORD ignored = 0;
        record_.resize(GetFileVersionInfoSizeW(path.c_str(), &ignored));
        EXPECT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(record_.size()), record_.data()));
    }

    VS_FIXEDFILEINFO Numbers() const
    {
        VS_FIXEDFILEINFO* numbers = nullptr;
        UINT size = 0;
        EXPECT_TRUE(VerQueryValueW(record_.data(), L"\\", reinterpret_cast<void**>(&numbers), &size));
        return numbers ? *numbers : VS_FIXEDFILEINFO{};
    }
    std::wstring Text(const wchar_t* name) const
    {
        wchar_t* text = nullptr;
        UINT length = 0;
        const std::wstring place = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        EXPECT_TRUE(VerQueryValueW(record_.data(), place.c_str(), reinterpret_cast<void**>(&text), &length));
        return text ? text : L"";
    }

private:
    std::vector<BYTE> record_;
};

std::set<std::string> ImportsOf(HMODULE module)
{
    const auto* base = reinterpret_cast<const BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    std::set<std::string> names;
    for (const auto* each = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress); each->Name;
         ++each) {
        std::string name = reinterpret_cast<const char*>(base + each->Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](char letter) { return letter >= 'A' && letter <= 'Z' ? char(letter + 'a' - 'A') : letter; });
        names.insert(name);
    }
    return names;
}

} // namespace

TEST(Version, NumbersAreThoseOfTheFileVersion)
{
    const VS_FIXEDFILEINFO numbers = VersionRecord().Numbers();

    EXPECT_EQ(numbers.dwFileVersionMS, DWORD{0x00010005});
    EXPECT_EQ(numbers.dwFileVersionLS, DWORD{0x00000003});
    EXPECT_EQ(numbers.dwFileType, DWORD{VFT_DLL});
}

TEST(Version, TextsAreThePublishedOnes)
{
    const VersionRecord record;

    EXPECT_EQ(record.Text(L"FileVersion"), L"1.05.0003");
    EXPECT_EQ(record.Text(L"FileDescription"), L"DU'lmeerQOR File Creation DLL");
    EXPECT_EQ(record.Text(L"Comments"), L"A DLL to access DUlmeer files");
}

TEST(Version, IsWhatTheObjectSays)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();
    const VS_FIXEDFILEINFO numbers = VersionRecord().Numbers();
    float version = 0;

    EXPECT_EQ(file->get_DLLversion(&version), S_OK);

    EXPECT_EQ(version, 1.05F);
    EXPECT_EQ(version, static_cast<float>(HIWORD(numbers.dwFileVersionMS) + LOWORD(numbers.dwFileVersionMS) / 100.0));
}

TEST(Imports, AreOfTheSystemOnly)
{
    const Library library;
    const std::set<std::string> ofTheSystem = {"kernel32.dll", "advapi32.dll", "ole32.dll", "oleaut32.dll",
                                               "user32.dll",   "msvcrt.dll",   "ntdll.dll"};

    const std::set<std::string> imports = ImportsOf(library.Module());

    EXPECT_TRUE(imports.count("kernel32.dll")); // the table was found
    for (const std::string& name : imports) EXPECT_TRUE(ofTheSystem.count(name)) << name;
}
