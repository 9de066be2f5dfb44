// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A 32-bit client may call with the stack at any multiple of 4. This file is compiled so that it keeps no more than
// that, and every test body runs at all places between two multiples of 16.
#include "server/Client.h"

#include <cstdint>
#include <malloc.h>
#include <set>
#include <string>

using namespace qor::test;

namespace {

// Where the calls from one frame further down would find the stack.
std::set<std::uintptr_t> places;

template <class Body>
__attribute__((noinline)) void WithMoreStack(std::size_t more, Body&& body)
{
    volatile char* const taken = static_cast<char*>(_alloca(more + sizeof(void*)));
    taken[0] = 0;
    body();
}

template <class Body>
__attribute__((noinline)) void Note(Body&& body)
{
    std::uintptr_t place = 0;
#ifdef __i386__
    __asm__ volatile("movl %%esp, %0" : "=r"(place));
#else
    __asm__ volatile("movq %%rsp, %0" : "=r"(place));
#endif
    places.insert(place % 16);
    body();
}

template <class Body>
void AtEveryPlace(Body&& body)
{
    for (std::size_t more = 0; more < 16; more += 4) WithMoreStack(more, [&] { Note(body); });
}

} // namespace

TEST(Stack, IsMetAtEveryPlaceThatTheWordSizeAllows)
{
    places.clear();
    AtEveryPlace([] {});

    EXPECT_EQ(places.size(), sizeof(void*) == 4 ? 4U : 1U);
}

TEST(Stack, MayStandAnywhereWhenObjectsAreCreatedAndReleased)
{
    const Apartment apartment;
    AtEveryPlace([] {
        const auto file = Create<clsQOR_File, _clsQOR_File>();
        EXPECT_TRUE(Ask<IDispatch>(file));
    });
}

TEST(Stack, MayStandAnywhereWhenValuesAreConverted)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();
    AtEveryPlace([&] {
        float magnitude = 2.0F;
        float phase = 90.0F;
        float result = 0;
        EXPECT_EQ(file->GetImaginaryValueFrom(&magnitude, &phase, &result), S_OK);
        EXPECT_EQ(result, 2.0F);
        phase = 0.0F;
        EXPECT_EQ(file->GetRealValueFrom(&magnitude, &phase, &result), S_OK);
        EXPECT_EQ(result, 2.0F);
        float real = 3.0F;
        float imaginary = 4.0F;
        EXPECT_EQ(file->GetMagnitudeValueFrom(&real, &imaginary, &result), S_OK);
        EXPECT_EQ(result, 5.0F);
    });
}

TEST(Stack, MayStandAnywhereWhenMembersAreCalledByName)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();
    AtEveryPlace([&] {
        wchar_t name[] = L"DLLversion";
        wchar_t* names = name;
        DISPID id = 0;
        DISPPARAMS none = {};
        VARIANT version{};
        EXPECT_EQ(file->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
        EXPECT_EQ(file->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &version, nullptr, nullptr), S_OK);
        EXPECT_EQ(version.vt, VT_R4);
        EXPECT_EQ(version.fltVal, 1.05F);
    });
}

TEST(Stack, MayStandAnywhereWhenFilesAreWrittenAndRead)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    BSTR path = SysAllocString((std::wstring(folder) + L"stack.blk").c_str());
    BSTR structurePath = SysAllocString((std::wstring(folder) + L"stack.str").c_str());
    AtEveryPlace([&] {
        ReturnStatus status = Failure;
        long traces = 0;
        file->Initialize();
        file->put_DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
        file->put_DataBlock_NumberOfTraces(3);
        file->put_DataBlock_NumberOfSamples(5);
        EXPECT_EQ(file->OutputDataBlockFile(path, &status), S_OK);
        EXPECT_EQ(status, Success);
        file->Initialize();
        EXPECT_EQ(file->InputDataBlockFile(&path, &status), S_OK);
        EXPECT_EQ(status, Success);
        file->get_DataBlock_NumberOfTraces(&traces);
        EXPECT_EQ(traces, 3);

        long points = 0;
        file->put_Structure_NumberOfVertexPoints(7);
        EXPECT_EQ(file->OutputStructureFile(structurePath, &status), S_OK);
        EXPECT_EQ(status, Success);
        file->Initialize();
        EXPECT_EQ(file->InputStructureFile(&structurePath, &status), S_OK);
        EXPECT_EQ(status, Success);
        file->get_Structure_NumberOfVertexPoints(&points);
        EXPECT_EQ(points, 7);
    });
    EXPECT_TRUE(DeleteFileW(path));
    EXPECT_TRUE(DeleteFileW(structurePath));
    SysFreeString(path);
    SysFreeString(structurePath);
}
