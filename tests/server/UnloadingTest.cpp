// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// When the library may go. Each test has a thread of its own, since a thread's documents keep the library.
#include "server/Library.h"

#include <thread>

using namespace qor::test;

namespace {

template <class Body>
void OnAThread(Body&& body)
{
    std::thread([&] {
        const Apartment apartment;
        body();
    }).join();
}

} // namespace

TEST(Unloading, IsAllowedBeforeAnythingIsCreated) { EXPECT_EQ(Library().CanUnloadNow(), S_OK); }

TEST(Unloading, WaitsForAClassFactory)
{
    const Library library;
    {
        Held<IClassFactory> factory;
        ASSERT_EQ(library.GetClassObject(__uuidof(clsQOR_File), IID_IClassFactory, factory.OutAny()), S_OK);
        EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}

TEST(Unloading, WaitsForEveryLock)
{
    const Library library;
    const auto lock = [&](BOOL wanted) {
        Held<IClassFactory> factory;
        ASSERT_EQ(library.GetClassObject(__uuidof(clsQOR_File), IID_IClassFactory, factory.OutAny()), S_OK);
        EXPECT_EQ(factory->LockServer(wanted), S_OK);
    };

    lock(TRUE);
    lock(TRUE);
    EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    lock(FALSE);
    EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    lock(FALSE);
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}

TEST(Unloading, WaitsForAnObjectWithoutDocuments)
{
    const Library library;
    OnAThread([&] {
        {
            const auto arrays = Create<QOR_FileArrays, IQOR_FileArrays>();
            EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
        }
        EXPECT_EQ(library.CanUnloadNow(), S_OK);
    });
}

TEST(Unloading, WaitsForTheDocumentsOfAThreadUntilItEnds)
{
    const Library library;
    OnAThread([&] {
        Create<clsQOR_File, _clsQOR_File>();
        EXPECT_EQ(library.CanUnloadNow(), S_FALSE); // the object is gone, the documents are not
    });
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}

TEST(Unloading, WaitsForTheLastOfSeveralThreads)
{
    const Library library;
    OnAThread([&] {
        Create<clsQOR_File, _clsQOR_File>();
        OnAThread([] { Create<clsQOR_File, _clsQOR_File>(); });
        EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    });
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}
