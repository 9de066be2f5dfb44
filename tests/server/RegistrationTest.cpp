// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What registering writes, and that unregistering takes away that and no more. For the time of these tests the library
// is not registered.
#include <initguid.h> // the identifiers are defined here

#include "server/Library.h"
#include "server/RegistryKeys.h"

using namespace qor::test;

namespace {

constexpr bool Is64Bit = sizeof(void*) == 8;

std::wstring Braced(const GUID& id)
{
    wchar_t text[39] = {};
    StringFromGUID2(id, text, 39);
    return text;
}

const std::wstring FileKey = L"CLSID\\" + Braced(__uuidof(clsQOR_File));

Keys ExpectedKeys(const std::wstring& path)
{
    Keys keys;
    const auto add = [&](const std::wstring& key, const wchar_t* value = nullptr) {
        keys[key];
        if (value) keys[key + L"@"] = value;
    };
    const std::wstring library = Braced(LIBID_QOR_File);

    const auto addClass = [&](const GUID& id, const std::wstring& name, const wchar_t* title) {
        const std::wstring key = L"CLSID\\" + Braced(id);
        add(key, title);
        add(key + L"\\InprocServer32", path.c_str());
        keys[key + L"\\InprocServer32@ThreadingModel"] = L"Apartment";
        add(key + L"\\ProgID", (name + L".1").c_str());
        add(key + L"\\VersionIndependentProgID", name.c_str());
        add(key + L"\\TypeLib", library.c_str());
        add(key + L"\\Version", L"1.5");
        add(key + L"\\Programmable");
        add(name, title);
        add(name + L"\\CLSID", Braced(id).c_str());
        add(name + L"\\CurVer", (name + L".1").c_str());
        add(name + L".1", title);
        add(name + L".1\\CLSID", Braced(id).c_str());
    };
    addClass(__uuidof(clsQOR_File), L"QOR_File.clsQOR_File", L"Data Block, Shape Table and Structure files");
    addClass(__uuidof(ClassAdd_1), L"QOR_File.ClassAdd_1", L"Linear or power quantity of a trace");
    addClass(__uuidof(ClassAdd_2), L"QOR_File.ClassAdd_2", L"Peak or RMS display of a Data Block");
    addClass(__uuidof(ClassAdd_3), L"QOR_File.ClassAdd_3", L"Z-axis label of a trace");
    addClass(__uuidof(ClassAdd_4), L"QOR_File.ClassAdd_4", L"Quad surfaces of a Structure");
    addClass(__uuidof(ClassAdd_5), L"QOR_File.ClassAdd_5", L"X-axis units, shaft speed and window of a Data Block");
    addClass(__uuidof(QOR_FileArrays), L"QOR_File.QOR_FileArrays", L"Whole arrays of the documents");

    const auto addInterface = [&](const GUID& id, const wchar_t* name) {
        const std::wstring key = L"Interface\\" + Braced(id);
        add(key, name);
        add(key + L"\\ProxyStubClsid32", L"{00020424-0000-0000-C000-000000000046}"); // the system's marshaler
        add(key + L"\\TypeLib", library.c_str());
        keys[key + L"\\TypeLib@Version"] = L"1.5";
    };
    addInterface(__uuidof(_clsQOR_File), L"_clsQOR_File");
    addInterface(__uuidof(_ClassAdd_1), L"_ClassAdd_1");
    addInterface(__uuidof(_ClassAdd_2), L"_ClassAdd_2");
    addInterface(__uuidof(_ClassAdd_3), L"_ClassAdd_3");
    addInterface(__uuidof(_ClassAdd_4), L"_ClassAdd_4");
    addInterface(__uuidof(_ClassAdd_5), L"_ClassAdd_5");
    addInterface(__uuidof(IQOR_FileArrays), L"IQOR_FileArrays");

    const std::wstring version = L"TypeLib\\" + library + L"\\1.5";
    add(L"TypeLib\\" + library);
    add(version, L"QOR_File");
    add(version + L"\\FLAGS", L"0");
    add(version + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')).c_str());
    add(version + L"\\0");
    add(version + (Is64Bit ? L"\\0\\win64" : L"\\0\\win32"), path.c_str());
    return keys;
}

// Runs a program that stands beside this one.
DWORD ExitCodeOf(std::wstring commandLine)
{
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process = {};
    EXPECT_TRUE(
        CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 30000), WAIT_OBJECT_0);
    DWORD code = ~DWORD{0};
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

// A key of somebody else's in the machine's classes, for as long as this lives.
class ForeignKey
{
public:
    explicit ForeignKey(const std::wstring& name, REGSAM view = 0, DWORD options = REG_OPTION_NON_VOLATILE)
        : name_(L"Software\\Classes\\" + name), view_(view)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, name_.c_str(), 0, nullptr, options, KEY_ALL_ACCESS | view_,
                                  nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
    ~ForeignKey() { Remove(); }
    ForeignKey(const ForeignKey&) = delete;
    ForeignKey& operator=(const ForeignKey&) = delete;

    void Remove() const { RegDeleteKeyExW(HKEY_LOCAL_MACHINE, name_.c_str(), view_, 0); }

private:
    std::wstring name_;
    REGSAM view_;
};

class Registration : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const Library library;
        wasForMachine_ = HasKey(HKEY_LOCAL_MACHINE, FileKey);
        wasForUser_ = HasKey(HKEY_CURRENT_USER, FileKey);
        // Once registered, so that the keys in which all such keys stand are there.
        EXPECT_EQ(library.Install(true, L"user"), S_OK);
        EXPECT_EQ(library.Install(false, L"user"), S_OK);
        EXPECT_EQ(library.Unregister(), S_OK);
        machine_ = ClassesOf(HKEY_LOCAL_MACHINE);
        user_ = ClassesOf(HKEY_CURRENT_USER);
        EXPECT_FALSE(machine_.count(FileKey));
        EXPECT_FALSE(user_.count(FileKey));
    }
    static void TearDownTestSuite()
    {
        const Library library;
        if (wasForMachine_) library.Register();
        if (wasForUser_) library.Install(true, L"user");
    }
    ~Registration() override
    {
        library_.Unregister();
        library_.Install(false, L"user");
    }

    // What register or unregister did to the keys, beside what it was to add.
    static std::string Unexpected(HKEY root, const Keys& expected = {})
    {
        return Difference((root == HKEY_LOCAL_MACHINE ? machine_ : user_) + expected, ClassesOf(root));
    }

    const Library library_;

private:
    inline static Keys machine_; // when nothing is registered
    inline static Keys user_;
    inline static bool wasForMachine_ = false;
    inline static bool wasForUser_ = false;
};

} // namespace

TEST_F(Registration, WritesTheKeysOfTheLibraryAndNoOther)
{
    EXPECT_EQ(library_.Register(), S_OK);

    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE, ExpectedKeys(library_.Path())), "");
    EXPECT_EQ(Unexpected(HKEY_CURRENT_USER), "");
}

TEST_F(Registration, LeavesNoKeyBehind)
{
    EXPECT_EQ(library_.Register(), S_OK);
    EXPECT_EQ(library_.Unregister(), S_OK);

    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, ForAUserWritesTheSameKeysToTheUsersClasses)
{
    EXPECT_EQ(library_.Install(true, L"user"), S_OK);

    EXPECT_EQ(Unexpected(HKEY_CURRENT_USER, ExpectedKeys(library_.Path())), "");
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, ForAUserLeavesNoKeyBehind)
{
    EXPECT_EQ(library_.Install(true, L"user"), S_OK);
    EXPECT_EQ(library_.Install(false, L"user"), S_OK);

    EXPECT_EQ(Unexpected(HKEY_CURRENT_USER), "");
}

TEST_F(Registration, IsNeededByAProgramWithoutAManifest)
{
    const Apartment apartment;
    Held<IUnknown> file;

    EXPECT_EQ(CoCreateInstance(__uuidof(clsQOR_File), nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, file.OutAny()),
              REGDB_E_CLASSNOTREG);
}

TEST_F(Registration, IsNotNeededByAProgramWhoseManifestNamesTheLibrary)
{
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring saved = std::wstring(folder) + L"registration_free.blk";
    DeleteFileW(saved.c_str());

    EXPECT_EQ(ExitCodeOf(L"registration_free.exe \"" + saved + L"\""), 0U);

    EXPECT_TRUE(DeleteFileW(saved.c_str())); // it was there
}

TEST_F(Registration, ThatFailsHalfWayLeavesNoKeyBehind)
{
    // A key that goes with the system's end takes none that would stay.
    const ForeignKey obstacle(L"QOR_File.ClassAdd_5", 0, REG_OPTION_VOLATILE);

    EXPECT_EQ(library_.Register(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));

    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, TwiceIsAsGoodAsOnce)
{
    EXPECT_EQ(library_.Register(), S_OK);
    EXPECT_EQ(library_.Register(), S_OK);
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE, ExpectedKeys(library_.Path())), "");

    EXPECT_EQ(library_.Unregister(), S_OK);
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, UnregisteringWhatIsNotRegisteredSucceeds)
{
    EXPECT_EQ(library_.Unregister(), S_OK);
    EXPECT_EQ(library_.Install(false, L"user"), S_OK);
}

TEST_F(Registration, InstallWithoutWordsIsForTheMachine)
{
    EXPECT_EQ(library_.Install(true, nullptr), S_OK);
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE, ExpectedKeys(library_.Path())), "");

    EXPECT_EQ(library_.Install(false, L""), S_OK);
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, InstallRefusesWordsThatItDoesNotKnow)
{
    EXPECT_EQ(library_.Install(true, L"everybody"), E_INVALIDARG);
    EXPECT_EQ(library_.Install(false, L"user machine"), E_INVALIDARG);

    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
    EXPECT_EQ(Unexpected(HKEY_CURRENT_USER), "");
}

TEST_F(Registration, LeavesKeysOfOthersBelowItsOwn)
{
    EXPECT_EQ(library_.Register(), S_OK);
    const std::wstring name = FileKey + L"\\SomebodyElses";
    const ForeignKey foreign(name);
    const std::wstring server = FileKey + L"\\InprocServer32"; // which also has a value with a name
    const ForeignKey deeper(server + L"\\SomebodyElses");

    EXPECT_EQ(library_.Unregister(), S_OK);

    // The keys that hold the foreign ones stay, but say nothing any more.
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE,
                         {{FileKey, L""}, {name, L""}, {server, L""}, {server + L"\\SomebodyElses", L""}}),
              "");
    foreign.Remove();
    deeper.Remove();
    EXPECT_EQ(library_.Unregister(), S_OK);
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

#ifdef _WIN64

TEST_F(Registration, LeavesWhatTheOtherWordSizeSharesWhileThatIsRegistered)
{
    EXPECT_EQ(library_.Register(), S_OK);
    Keys left;
    {
        const ForeignKey other(FileKey, KEY_WOW64_32KEY);
        const ForeignKey server(FileKey + L"\\InprocServer32", KEY_WOW64_32KEY);
        EXPECT_EQ(library_.Unregister(), S_OK);
        left = ClassesOf(HKEY_LOCAL_MACHINE);
    }
    EXPECT_TRUE(left.count(L"QOR_File.clsQOR_File\\CLSID"));
    EXPECT_TRUE(left.count(L"QOR_File.QOR_FileArrays.1\\CLSID"));
    EXPECT_TRUE(left.count(L"TypeLib\\" + Braced(LIBID_QOR_File) + L"\\1.5\\HELPDIR"));
    EXPECT_FALSE(left.count(L"TypeLib\\" + Braced(LIBID_QOR_File) + L"\\1.5\\0\\win64"));
    EXPECT_FALSE(left.count(FileKey));

    EXPECT_EQ(library_.Unregister(), S_OK);
    EXPECT_EQ(Unexpected(HKEY_LOCAL_MACHINE), "");
}

#endif
