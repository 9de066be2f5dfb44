// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Creating objects of every class, by identifier and by name, and what each says of itself.
#include "server/Library.h"

using namespace qor::test;

namespace {

struct PublishedClass {
    const wchar_t* name;
    GUID id;
    GUID defaultInterface;
};

class EveryClass : public testing::TestWithParam<PublishedClass>
{
protected:
    Held<IUnknown> New() const
    {
        Held<IUnknown> object;
        EXPECT_HRESULT_SUCCEEDED(CoCreateInstance(GetParam().id, nullptr, CLSCTX_INPROC_SERVER,
                                                  GetParam().defaultInterface, object.OutAny()));
        return object;
    }

    const Apartment apartment_;
};

INSTANTIATE_TEST_SUITE_P(Published, EveryClass,
                         testing::Values(PublishedClass{L"clsQOR_File", __uuidof(clsQOR_File), __uuidof(_clsQOR_File)},
                                         PublishedClass{L"ClassAdd_1", __uuidof(ClassAdd_1), __uuidof(_ClassAdd_1)},
                                         PublishedClass{L"ClassAdd_2", __uuidof(ClassAdd_2), __uuidof(_ClassAdd_2)},
                                         PublishedClass{L"ClassAdd_3", __uuidof(ClassAdd_3), __uuidof(_ClassAdd_3)},
                                         PublishedClass{L"ClassAdd_4", __uuidof(ClassAdd_4), __uuidof(_ClassAdd_4)},
                                         PublishedClass{L"ClassAdd_5", __uuidof(ClassAdd_5), __uuidof(_ClassAdd_5)},
                                         PublishedClass{L"QOR_FileArrays", __uuidof(QOR_FileArrays),
                                                        __uuidof(IQOR_FileArrays)}),
                         [](const auto& each) {
                             std::string name;
                             for (const wchar_t* letter = each.param.name; *letter; ++letter)
                                 name += static_cast<char>(*letter);
                             return name;
                         });

// References that an object has, as its Release tells.
ULONG ReferencesOf(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

void* const SomePointer = reinterpret_cast<void*>(1);

} // namespace

TEST_P(EveryClass, HasAVersionIndependentAndAVersionedName)
{
    for (const std::wstring version : {L"", L".1"}) {
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID((std::wstring(L"QOR_File.") + GetParam().name + version).c_str(), &id), S_OK);
        EXPECT_TRUE(id == GetParam().id);
    }
    wchar_t* name = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(GetParam().id, &name), S_OK);
    EXPECT_EQ(name, std::wstring(L"QOR_File.") + GetParam().name + L".1");
    CoTaskMemFree(name);
}

TEST_P(EveryClass, CreatesAnObjectThatIsGoneWithItsLastReference)
{
    IUnknown* object = nullptr;
    ASSERT_EQ(CoCreateInstance(GetParam().id, nullptr, CLSCTX_INPROC_SERVER, GetParam().defaultInterface,
                               reinterpret_cast<void**>(&object)),
              S_OK);

    EXPECT_EQ(object->Release(), 0U);
}

TEST_P(EveryClass, RefusesAggregation)
{
    const auto outer = New();
    void* inner = SomePointer;

    EXPECT_EQ(CoCreateInstance(GetParam().id, outer.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &inner),
              CLASS_E_NOAGGREGATION);

    EXPECT_EQ(inner, nullptr);
}

TEST_P(EveryClass, QueryInterfaceCountsWhatItGives)
{
    const auto object = New();
    const ULONG before = ReferencesOf(object.Get());

    for (const IID& iid : {IID_IUnknown, IID_IDispatch, IID_ISupportErrorInfo, IID_IProvideClassInfo,
                           IID_IProvideClassInfo2, GetParam().defaultInterface}) {
        IUnknown* found = nullptr;
        EXPECT_EQ(object->QueryInterface(iid, reinterpret_cast<void**>(&found)), S_OK);
        ASSERT_TRUE(found);
        EXPECT_EQ(ReferencesOf(object.Get()), before + 1);
        found->Release();
        EXPECT_EQ(ReferencesOf(object.Get()), before);
    }
}

TEST_P(EveryClass, QueryInterfaceGivesNothingWhereItHasNone)
{
    const auto object = New();
    const ULONG before = ReferencesOf(object.Get());
    void* found = SomePointer;

    EXPECT_EQ(object->QueryInterface(IID_IStream, &found), E_NOINTERFACE);

    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(ReferencesOf(object.Get()), before);
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_P(EveryClass, IsNotCreatedWithAnInterfaceThatItHasNot)
{
    void* object = SomePointer;

    EXPECT_EQ(CoCreateInstance(GetParam().id, nullptr, CLSCTX_INPROC_SERVER, IID_IStream, &object), E_NOINTERFACE);

    EXPECT_EQ(object, nullptr);
}

TEST(FileClass, KeepsTheDocumentsWhereItIsNotCreated)
{
    const Apartment apartment;
    const auto file = Create<clsQOR_File, _clsQOR_File>();
    file->put_DataBlock_NumberOfTraces(3);
    Held<IStream> stream;
    EXPECT_EQ(CoCreateInstance(__uuidof(clsQOR_File), nullptr, CLSCTX_INPROC_SERVER, IID_IStream, stream.OutAny()),
              E_NOINTERFACE);

    LONG traces = 0;
    file->get_DataBlock_NumberOfTraces(&traces);
    EXPECT_EQ(traces, 3);
}

TEST_P(EveryClass, DescribesItself)
{
    const auto object = New();
    const auto describing = Ask<IProvideClassInfo2>(object);
    ASSERT_TRUE(describing);
    Held<ITypeInfo> description;
    TYPEATTR* attributes = nullptr;

    ASSERT_EQ(describing->GetClassInfo(description.Out()), S_OK);
    ASSERT_EQ(description->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(attributes->guid == GetParam().id);
    description->ReleaseTypeAttr(attributes);

    GUID events{};
    EXPECT_NE(describing->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK); // it has none
    EXPECT_EQ(describing->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID + 1, &events), E_INVALIDARG);
    EXPECT_EQ(describing->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
    EXPECT_EQ(describing->GetClassInfo(nullptr), E_POINTER);
}

TEST_P(EveryClass, GivesErrorInformationForItsOwnInterfaces)
{
    const auto object = New();
    const auto errors = Ask<ISupportErrorInfo>(object);
    ASSERT_TRUE(errors);

    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(GetParam().defaultInterface), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IStream), S_FALSE);
}

TEST_P(EveryClass, HasAFactoryThatRefusesWhatItCannotMake)
{
    const Library library;
    Held<IClassFactory> factory;
    ASSERT_EQ(library.GetClassObject(GetParam().id, IID_IClassFactory, factory.OutAny()), S_OK);
    void* made = SomePointer;

    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made, nullptr);
    made = SomePointer;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    made = SomePointer;
    EXPECT_EQ(library.GetClassObject(GetParam().id, IID_IStream, &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(library.GetClassObject(GetParam().id, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_P(EveryClass, HasAFactoryWithAnIdentity)
{
    const Library library;
    Held<IUnknown> unknown;
    Held<IUnknown> factory;

    EXPECT_EQ(library.GetClassObject(GetParam().id, IID_IUnknown, unknown.OutAny()), S_OK);
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->QueryInterface(IID_IClassFactory, factory.OutAny()), S_OK);

    EXPECT_EQ(Ask<IUnknown>(factory).Get(), unknown.Get());
    EXPECT_EQ(unknown->QueryInterface(IID_IClassFactory, nullptr), E_POINTER);
}

TEST(Classes, AreNoOthersThanThePublished)
{
    const Library library;
    void* factory = SomePointer;

    EXPECT_EQ(library.GetClassObject(IID_IStream, IID_IClassFactory, &factory), CLASS_E_CLASSNOTAVAILABLE);

    EXPECT_EQ(factory, nullptr);
}

TEST(Classes, FileGivesErrorInformationForEveryInterfaceItHas)
{
    const Apartment apartment;
    const auto errors = Ask<ISupportErrorInfo>(Create<clsQOR_File, _clsQOR_File>());

    for (const IID& iid : {__uuidof(_ClassAdd_1), __uuidof(_ClassAdd_2), __uuidof(_ClassAdd_3), __uuidof(_ClassAdd_4),
                           __uuidof(_ClassAdd_5), __uuidof(IQOR_FileArrays)})
        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(iid), S_OK);
}
