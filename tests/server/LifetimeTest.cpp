// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How long documents and library live: threads end, the library goes, in either order, again and again.
#include "Threads.h"
#include "server/Library.h"

using namespace qor::test;

namespace {

// The system's library for automation, which clients have in their process. Where it goes with the library under test,
// it leaves something behind itself.
class Automation
{
public:
    Automation() : module_(LoadLibraryW(L"oleaut32.dll")) {}
    ~Automation() { FreeLibrary(module_); }
    Automation(const Automation&) = delete;
    Automation& operator=(const Automation&) = delete;

private:
    HMODULE module_;
};

// What a process has of the things that a library can forget to give back.
struct Resources {
    std::size_t memory = 0;
    DWORD threadSlot = 0;
    DWORD fiberSlot = 0;
    std::uintptr_t handle = 0;

    // Each slot and handle is the lowest that is free; handles count in fours.
    static Resources Now()
    {
        Resources now;
        MEMORY_BASIC_INFORMATION region{};
        for (auto* place = static_cast<char*>(nullptr); VirtualQuery(place, &region, sizeof region) != 0;
             place = static_cast<char*>(region.BaseAddress) + region.RegionSize)
            if (region.State == MEM_COMMIT) now.memory += region.RegionSize;
        TlsFree(now.threadSlot = TlsAlloc());
        FlsFree(now.fiberSlot = FlsAlloc(nullptr));
        const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
        now.handle = reinterpret_cast<std::uintptr_t>(event);
        CloseHandle(event);
        return now;
    }
};

// Does work that often and expects that it gives everything back. The first times fill caches that stay.
template <class Work>
void ExpectNoLeak(int times, Work work)
{
    constexpr std::size_t MostMemory = 1 << 20; // heaps grow in large steps
    constexpr std::uintptr_t MostHandles = 64;  // 16 of them; the system keeps some for itself
    const Automation automation;
    for (int time = 0; time < times / 10; ++time) work();
    const Resources before = Resources::Now();
    for (int time = 0; time < times; ++time) work();
    const Resources after = Resources::Now();

    std::printf("%d times: memory %zu to %zu KiB, slots %lu %lu to %lu %lu, handle %zu to %zu\n", times,
                before.memory / 1024, after.memory / 1024, before.threadSlot, before.fiberSlot, after.threadSlot,
                after.fiberSlot, static_cast<std::size_t>(before.handle), static_cast<std::size_t>(after.handle));
    EXPECT_LT(after.memory, before.memory + MostMemory);
    EXPECT_EQ(after.threadSlot, before.threadSlot);
    EXPECT_EQ(after.fiberSlot, before.fiberSlot);
    EXPECT_LT(after.handle, before.handle + MostHandles);
}

// Everything that may leave something behind: documents, a C++ exception, the type library.
void Use(const Library& library, int number)
{
    const auto file = library.Create<clsQOR_File, _clsQOR_File>();
    Fill(*file.Get(), number);
    EXPECT_TRUE(Holds(*file.Get(), number));
    EXPECT_EQ(CallThatThrows(*file.Get()), static_cast<HRESULT>(0x800A0009));
    VARIANT traces{};
    EXPECT_EQ(CallByName(*file.Get(), L"DataBlock_NumberOfTraces", traces), S_OK);
}

// Runs the program that ends in that way, which stands beside this one. Its exit code; -1 where it was still there
// after ten seconds.
int ExitCodeOf(const std::wstring& way)
{
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path = path.substr(0, path.find_last_of(L'\\') + 1) + L"server_ending_client.exe";
    std::wstring commandLine = L"client " + way;
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &process))
        return -1;
    if (WaitForSingleObject(process.hProcess, 10000) != WAIT_OBJECT_0)
        TerminateProcess(process.hProcess, static_cast<UINT>(-1));
    WaitForSingleObject(process.hProcess, 10000);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

} // namespace

TEST(Library, GivesEverythingBackWhenAThreadEndsBeforeItIsUnloaded)
{
    ExpectNoLeak(1000, [] {
        Library library;
        OnThread([&] { Use(library, 3); });
        EXPECT_TRUE(library.CanUnload());
        library.Free();
        EXPECT_FALSE(LibraryIsLoaded());
    });
}

TEST(Library, GivesEverythingBackWhenItIsUnloadedBeforeAThreadEnds)
{
    ExpectNoLeak(1000, [] {
        Meeting used(2);
        Meeting unloaded(2);
        Library library;
        std::thread thread([&] {
            Use(library, 3);
            used.Wait();
            unloaded.Wait();
        });
        used.Wait();
        EXPECT_FALSE(library.CanUnload());
        library.Free();
        EXPECT_FALSE(LibraryIsLoaded());
        unloaded.Wait();
        thread.join();
    });
}

TEST(Library, IsUnloadedWhileThreadsEnd)
{
    constexpr int Threads = 6;
    ExpectNoLeak(300, [] {
        Meeting used(Threads + 1);
        Library library;
        std::vector<std::thread> threads;
        for (int number = 1; number <= Threads; ++number)
            threads.emplace_back([&, number] {
                Use(library, number);
                used.Wait();
            });
        used.Wait();
        library.Free();
        EXPECT_FALSE(LibraryIsLoaded());
        for (std::thread& thread : threads) thread.join();
    });
}

TEST(Library, GivesEverythingBackOfThreadsThatComeAndGoWhileItStays)
{
    Library library;
    ExpectNoLeak(1000, [&] { OnThread([&] { Use(library, 3); }); });
    EXPECT_TRUE(library.CanUnload());
}

TEST(Library, IsReloadedByAThreadThatHeldDocumentsOfTheOneBefore)
{
    ExpectNoLeak(1000, [] {
        Library library;
        Use(library, 5);
    });
}

TEST(DllCanUnloadNow, SaysSoOfALibraryThatNobodyUses)
{
    const Library library;
    EXPECT_TRUE(library.CanUnload());
}

TEST(DllCanUnloadNow, CountsClassFactories)
{
    const Library library;
    {
        const auto factory = library.Factory<clsQOR_File>();
        EXPECT_FALSE(library.CanUnload());
    }
    EXPECT_TRUE(library.CanUnload());
}

TEST(DllCanUnloadNow, CountsLocks)
{
    const Library library;
    const auto lock = [&](BOOL locked) { library.Factory<ClassAdd_1>()->LockServer(locked); };
    lock(TRUE);
    lock(TRUE);
    lock(FALSE);
    EXPECT_FALSE(library.CanUnload());
    lock(FALSE);
    EXPECT_TRUE(library.CanUnload());
}

TEST(DllCanUnloadNow, CountsObjects)
{
    const Library library;
    OnThread([&] {
        const auto arrays = library.Create<QOR_FileArrays, IQOR_FileArrays>(); // it has touched no document yet
        EXPECT_FALSE(library.CanUnload());
    });
    EXPECT_TRUE(library.CanUnload());
}

TEST(DllCanUnloadNow, CountsThreadsThatHoldDocumentsWithoutAnObject)
{
    const Library library;
    OnThread([&] {
        Fill(*library.Create<clsQOR_File, _clsQOR_File>().Get(), 3);
        EXPECT_FALSE(library.CanUnload());
    });
    EXPECT_TRUE(library.CanUnload());
}

TEST(DllCanUnloadNow, CountsNoDescriptionThatAClientHolds)
{
    const Automation automation;
    Library library;
    Held<ITypeInfo> description;
    OnThread([&] {
        const auto file = library.Create<clsQOR_File, _clsQOR_File>();
        EXPECT_HRESULT_SUCCEEDED(file->GetTypeInfo(0, LOCALE_USER_DEFAULT, description.Out()));
    });
    EXPECT_TRUE(library.CanUnload()); // it is the system's, not the library's
    library.Free();

    TYPEATTR* attributes = nullptr;
    EXPECT_HRESULT_SUCCEEDED(description->GetTypeAttr(&attributes));
    EXPECT_EQ(attributes->guid, __uuidof(_clsQOR_File));
    description->ReleaseTypeAttr(attributes);
}

TEST(CoFreeUnusedLibraries, LeavesALibraryWhileAThreadHoldsDocuments)
{
    const Apartment apartment;
    Meeting released(2);
    Meeting freed(2);
    std::thread thread([&] {
        const Apartment own;
        Fill(*Create<clsQOR_File, _clsQOR_File>().Get(), 3); // and no object any more
        released.Wait();
        freed.Wait();
    });
    released.Wait();
    Create<ClassAdd_1, _ClassAdd_1>(); // one that touches no document, so that this apartment knows the library
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_TRUE(LibraryIsLoaded());
    freed.Wait();
    thread.join();
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(LibraryIsLoaded());
}

TEST(CoUninitialize, OfTheLastApartmentFreesALibraryWithoutDocuments)
{
    ExpectNoLeak(200, [] {
        {
            const Apartment apartment;
            Create<ClassAdd_1, _ClassAdd_1>();
            EXPECT_TRUE(LibraryIsLoaded());
        }
        EXPECT_FALSE(LibraryIsLoaded());
    });
}

TEST(CoUninitialize, LeavesALibraryThatItsThreadHoldsDocumentsOf)
{
    Library library;
    OnThread([&] {
        {
            const Apartment apartment;
            Fill(*Create<clsQOR_File, _clsQOR_File>().Get(), 3);
        }
        EXPECT_TRUE(LibraryIsLoaded());
        EXPECT_FALSE(library.CanUnload());
    });
    EXPECT_TRUE(library.CanUnload());
}

TEST(Process, EndsWhileThreadsHoldDocuments) { EXPECT_EQ(ExitCodeOf(L"holding"), 0); }

TEST(Process, EndsWhileThreadsChangeTheirDocuments)
{
    for (int time = 0; time < 20; ++time) ASSERT_EQ(ExitCodeOf(L"working"), 0);
}

TEST(Process, EndsWhileAKilledThreadHoldsDocuments) { EXPECT_EQ(ExitCodeOf(L"killed"), 0); }
