// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// One object is one object, through whichever of its interfaces it is reached.
#include "server/Client.h"

using namespace qor::test;

TEST(Identity, EveryInterfaceLeadsToTheSameObject)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();
    const auto unknown = Ask<IUnknown>(file);

    EXPECT_EQ(Ask<IUnknown>(Ask<_ClassAdd_1>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<_ClassAdd_2>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<_ClassAdd_3>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<_ClassAdd_4>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<_ClassAdd_5>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<IQOR_FileArrays>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<ISupportErrorInfo>(file)).Get(), unknown.Get());
    EXPECT_EQ(Ask<IUnknown>(Ask<IProvideClassInfo2>(file)).Get(), unknown.Get());
}

// A script that has an added interface of the file and asks for late binding gets that of the file, which works.
TEST(Identity, LateBindingIsThatOfTheDefaultInterface)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();

    EXPECT_EQ(Ask<IDispatch>(file).Get(), static_cast<IDispatch*>(file.Get()));
    EXPECT_EQ(Ask<IDispatch>(Ask<_ClassAdd_4>(file)).Get(), static_cast<IDispatch*>(file.Get()));
    EXPECT_EQ(Ask<IDispatch>(Ask<IQOR_FileArrays>(file)).Get(), static_cast<IDispatch*>(file.Get()));
}

TEST(Identity, EveryInterfaceIsReachedFromEveryOther)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();

    EXPECT_EQ(Ask<_clsQOR_File>(Ask<_ClassAdd_5>(file)).Get(), file.Get());
    EXPECT_EQ(Ask<_clsQOR_File>(Ask<IQOR_FileArrays>(file)).Get(), file.Get());
    EXPECT_EQ(Ask<_clsQOR_File>(Ask<ISupportErrorInfo>(file)).Get(), file.Get());
    EXPECT_EQ(Ask<_ClassAdd_2>(Ask<IProvideClassInfo2>(file)).Get(), Ask<_ClassAdd_2>(file).Get());
}
