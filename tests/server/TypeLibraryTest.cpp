// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The type library that stands in the registered library's file, against what is published. An interface is described
// twice, for late-bound callers (dispatch half) and for early-bound ones (vtable half); both must say the same.
#include <initguid.h> // the identifiers are defined here

#include "server/Client.h"
#include "server/PublishedInterface.h"

#include <functional>
#include <string>
#include <vector>

using namespace qor::test;

namespace {

constexpr UINT InheritedSlots = 7; // of IUnknown and IDispatch

std::string Narrow(const wchar_t* text)
{
    std::string narrow;
    for (; text && *text; ++text) narrow += *text < 128 ? static_cast<char>(*text) : '?';
    return narrow;
}

std::string Take(BSTR text)
{
    const std::string taken = Narrow(text);
    SysFreeString(text);
    return taken;
}

// A published table with its continued lines joined.
std::string Joined(std::string_view table)
{
    std::string joined;
    for (std::size_t at = 1; at < table.size(); ++at) {
        if (table[at] == '\n' && at + 1 < table.size() && table[at + 1] == ' ') {
            joined += ' ';
            while (table[at + 1] == ' ') ++at;
        } else {
            joined += table[at];
        }
    }
    return joined;
}

Held<ITypeLib> Library()
{
    BSTR path = nullptr;
    EXPECT_HRESULT_SUCCEEDED(QueryPathOfRegTypeLib(LIBID_QOR_File, 1, 5, 0, &path));
    Held<ITypeLib> library;
    EXPECT_HRESULT_SUCCEEDED(LoadTypeLibEx(path, REGKIND_NONE, library.Out()));
    SysFreeString(path);
    return library;
}

// One entry of the library: an enumeration, one half of an interface, or a class.
class Description
{
public:
    explicit Description(Held<ITypeInfo> info) : info_(std::move(info)) { info_->GetTypeAttr(&attributes_); }
    Description(Description&& other) noexcept
        : info_(std::move(other.info_)), attributes_(std::exchange(other.attributes_, nullptr))
    {}
    ~Description()
    {
        if (attributes_) info_->ReleaseTypeAttr(attributes_);
    }

    ITypeInfo* operator->() const { return info_.Get(); }
    const TYPEATTR& Attributes() const { return *attributes_; }

    std::string Name(MEMBERID member = MEMBERID_NIL) const
    {
        BSTR name = nullptr;
        info_->GetDocumentation(member, &name, nullptr, nullptr, nullptr);
        return Take(name);
    }
    std::string Help(MEMBERID member = MEMBERID_NIL) const
    {
        BSTR help = nullptr;
        info_->GetDocumentation(member, nullptr, &help, nullptr, nullptr);
        return Take(help);
    }
    Description Referred(HREFTYPE reference) const
    {
        Held<ITypeInfo> referred;
        EXPECT_HRESULT_SUCCEEDED(info_->GetRefTypeInfo(reference, referred.Out()));
        return Description(std::move(referred));
    }
    Description Implemented(UINT number) const
    {
        HREFTYPE reference = 0;
        EXPECT_HRESULT_SUCCEEDED(info_->GetRefTypeOfImplType(number, &reference));
        return Referred(reference);
    }
    // The vtable half of a dual interface whose dispatch half this is.
    Description VtableHalf() const { return Implemented(~UINT{0}); }

private:
    Held<ITypeInfo> info_;
    TYPEATTR* attributes_ = nullptr;
};

std::vector<Description> All(TYPEKIND kind)
{
    const auto library = Library();
    std::vector<Description> found;
    for (UINT number = 0; number < library->GetTypeInfoCount(); ++number) {
        Held<ITypeInfo> info;
        EXPECT_HRESULT_SUCCEEDED(library->GetTypeInfo(number, info.Out()));
        Description description(std::move(info));
        if (description.Attributes().typekind == kind) found.push_back(std::move(description));
    }
    return found;
}

std::string NameOf(const Description& user, const TYPEDESC& type)
{
    switch (type.vt) {
    case VT_PTR: return NameOf(user, *type.lptdesc) + "*";
    case VT_I4: return "long";
    case VT_R4: return "float";
    case VT_BSTR: return "BSTR";
    case VT_BOOL: return "VARIANT_BOOL";
    case VT_VARIANT: return "VARIANT";
    case VT_VOID: return "void";
    case VT_HRESULT: return "HRESULT";
    case VT_USERDEFINED: {
        const Description named = user.Referred(type.hreftype);
        return (named.Attributes().typekind == TKIND_ENUM ? "" : "not an enumeration: ") + named.Name();
    }
    default: return "type " + std::to_string(type.vt);
    }
}

bool IsByReference(const ELEMDESC& parameter) { return parameter.tdesc.vt == VT_PTR; }

// A default is declared as a value of the parameter's own type.
std::string DefaultOf(const Description& user, const ELEMDESC& parameter)
{
    const VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
    const TYPEDESC& type = IsByReference(parameter) ? *parameter.tdesc.lptdesc : parameter.tdesc;
    const VARTYPE own = type.vt == VT_USERDEFINED ? VARTYPE{VT_I4} : type.vt;
    if (value.vt != own) return "a default of type " + std::to_string(value.vt) + " for " + NameOf(user, type);
    switch (own) {
    case VT_I4: return std::to_string(value.lVal);
    case VT_R4: return value.fltVal == 0.0F ? "0" : std::to_string(value.fltVal);
    case VT_BOOL: return std::to_string(value.boolVal);
    default: return "a default that is not known here";
    }
}

std::string TextOf(const Description& user, const ELEMDESC& parameter, const std::string& name)
{
    const USHORT flags = parameter.paramdesc.wParamFlags;
    const USHORT direction = flags & (PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FRETVAL | PARAMFLAG_FLCID);
    const USHORT expected = IsByReference(parameter) ? PARAMFLAG_FIN | PARAMFLAG_FOUT : PARAMFLAG_FIN;
    std::string text = direction == expected ? "" : "(direction " + std::to_string(direction) + ") ";
    const bool hasDefault = (flags & PARAMFLAG_FHASDEFAULT) != 0;
    const bool isOptional = (flags & PARAMFLAG_FOPT) != 0;
    if (isOptional && !hasDefault) text += "optional ";
    text += NameOf(user, parameter.tdesc) + " " + name;
    if (hasDefault) text += (isOptional ? " = " : " (not optional) = ") + DefaultOf(user, parameter);
    return text;
}

// A member as the published table has it. The vtable half returns an HRESULT, and the result by a last parameter.
std::string TextOf(const Description& half, const FUNCDESC& member)
{
    std::string text = member.invkind == INVOKE_PROPERTYGET   ? "get "
                       : member.invkind == INVOKE_PROPERTYPUT ? "put "
                       : member.invkind == INVOKE_FUNC        ? ""
                                                              : "put by reference ";
    const UINT parameters = static_cast<UINT>(member.cParams);
    std::vector<BSTR> names(parameters + 1);
    UINT count = 0;
    half->GetNames(member.memid, names.data(), parameters + 1, &count);
    std::vector<std::string> name;
    for (UINT number = 0; number < names.size(); ++number)
        name.push_back(number < count ? Take(names[number]) : "value"); // a put's last parameter need not have a name

    std::string result;
    if (member.funckind == FUNC_DISPATCH) {
        result = NameOf(half, member.elemdescFunc.tdesc);
    } else if (member.elemdescFunc.tdesc.vt != VT_HRESULT) {
        result = "no HRESULT";
    }
    std::string between;
    text += name[0] + "(";
    for (UINT number = 0; number < parameters; ++number) {
        const ELEMDESC& parameter = member.lprgelemdescParam[number];
        if (member.funckind == FUNC_PUREVIRTUAL && IsByReference(parameter) && number + 1 == parameters &&
            parameter.paramdesc.wParamFlags == (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) {
            result = NameOf(half, *parameter.tdesc.lptdesc);
        } else {
            text += between + TextOf(half, parameter, name[number + 1]);
            between = ", ";
        }
    }
    return text + ")" + (result.empty() || result == "void" ? "" : " -> " + result);
}

// The interface's own members in the order of the description.
void ForEachMember(const Description& half, const std::function<void(const FUNCDESC&)>& use)
{
    for (UINT number = 0; number < half.Attributes().cFuncs; ++number) {
        FUNCDESC* member = nullptr;
        ASSERT_HRESULT_SUCCEEDED(half->GetFuncDesc(number, &member));
        // The dispatch half of a dual interface also lists what every interface inherits.
        if (member->oVft >= static_cast<SHORT>(InheritedSlots * sizeof(void*))) use(*member);
        half->ReleaseFuncDesc(member);
    }
}

std::string TextOfMembers(const Description& half)
{
    std::string text;
    ForEachMember(half, [&](const FUNCDESC& member) { text += TextOf(half, member) + "\n"; });
    return text;
}

struct Halves {
    const char* name;
    FUNCKIND members;
    TYPEKIND kind;
    WORD flags; // beside those that only say what browsers show
};

class TypeLibraryHalf : public testing::TestWithParam<Halves>
{
protected:
    void ForEachInterface(const std::function<void(const Description&)>& use)
    {
        for (const Description& dispatch : All(TKIND_DISPATCH)) {
            if (GetParam().kind == TKIND_DISPATCH) {
                use(dispatch);
            } else {
                use(dispatch.VtableHalf());
            }
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Both, TypeLibraryHalf,
                         testing::Values(Halves{"Dispatch", FUNC_DISPATCH, TKIND_DISPATCH,
                                                TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE},
                                         Halves{"Vtable", FUNC_PUREVIRTUAL, TKIND_INTERFACE,
                                                TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE |
                                                    TYPEFLAG_FOLEAUTOMATION}),
                         [](const auto& half) { return std::string(half.param.name); });

} // namespace

TEST(TypeLibrary, IsThatOfThisVersion)
{
    const auto library = Library();
    TLIBATTR* attributes = nullptr;
    ASSERT_HRESULT_SUCCEEDED(library->GetLibAttr(&attributes));
    BSTR name = nullptr;
    BSTR help = nullptr;
    ASSERT_HRESULT_SUCCEEDED(library->GetDocumentation(MEMBERID_NIL, &name, &help, nullptr, nullptr));

    EXPECT_EQ(Take(name), "QOR_File");
    EXPECT_EQ(Take(help), "DU'lmeerQOR File Creation DLL");
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 5);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, LIBID_QOR_File));
    library->ReleaseTLibAttr(attributes);
}

TEST(TypeLibrary, HasNothingButEnumerationsInterfacesAndClasses)
{
    EXPECT_EQ(All(TKIND_ENUM).size() + All(TKIND_DISPATCH).size() + All(TKIND_COCLASS).size(),
              Library()->GetTypeInfoCount());
}

TEST(TypeLibrary, DeclaresEveryEnumerationWithItsValuesInOrder)
{
    std::string text;
    for (const Description& each : All(TKIND_ENUM)) {
        text += "enum " + each.Name();
        for (UINT number = 0; number < each.Attributes().cVars; ++number) {
            VARDESC* value = nullptr;
            ASSERT_HRESULT_SUCCEEDED(each->GetVarDesc(number, &value));
            ASSERT_EQ(value->varkind, VAR_CONST);
            ASSERT_EQ(value->lpvarValue->vt, VT_I4);
            text +=
                (number == 0 ? ": " : ", ") + each.Name(value->memid) + " = " + std::to_string(value->lpvarValue->lVal);
            each->ReleaseVarDesc(value);
        }
        text += "\n";
    }
    EXPECT_EQ(text, Joined(PublishedEnumerations));
}

TEST(TypeLibrary, EnumerationsAre32BitsWide)
{
    for (const Description& each : All(TKIND_ENUM)) EXPECT_EQ(each.Attributes().cbSizeInstance, 4U) << each.Name();
}

TEST(TypeLibrary, DeclaresEveryClassWithItsInterfaces)
{
    std::string text;
    for (const Description& each : All(TKIND_COCLASS)) {
        text += "class " + each.Name();
        for (UINT number = 0; number < each.Attributes().cImplTypes; ++number) {
            INT flags = 0;
            ASSERT_HRESULT_SUCCEEDED(each->GetImplTypeFlags(number, &flags));
            EXPECT_EQ(flags, number == 0 ? IMPLTYPEFLAG_FDEFAULT : 0) << each.Name();
            text += (number == 0 ? ": " : ", ") + each.Implemented(number).Name();
        }
        text += "\n";
    }
    EXPECT_EQ(text, Joined(PublishedClasses));
}

TEST(TypeLibrary, EveryClassIsCreatable)
{
    for (const Description& each : All(TKIND_COCLASS))
        EXPECT_TRUE(each.Attributes().wTypeFlags & TYPEFLAG_FCANCREATE) << each.Name();
}

TEST(TypeLibrary, SaysWhatEnumerationsAndClassesAreFor)
{
    for (const Description& each : All(TKIND_ENUM)) EXPECT_NE(each.Help(), "") << each.Name();
    for (const Description& each : All(TKIND_COCLASS)) EXPECT_NE(each.Help(), "") << each.Name();
}

TEST_P(TypeLibraryHalf, DeclaresEveryMemberInSlotOrder)
{
    std::string text;
    ForEachInterface([&](const Description& half) { text += "interface " + half.Name() + "\n" + TextOfMembers(half); });
    EXPECT_EQ(text, Joined(PublishedInterfaces));
}

TEST_P(TypeLibraryHalf, SaysWhatItIs)
{
    ForEachInterface([&](const Description& half) {
        EXPECT_EQ(half.Attributes().typekind, GetParam().kind) << half.Name();
        EXPECT_EQ(half.Attributes().wTypeFlags & ~TYPEFLAG_FHIDDEN, GetParam().flags) << half.Name();
    });
}

TEST_P(TypeLibraryHalf, NumbersTheSlotsWithoutAGap)
{
    ForEachInterface([](const Description& half) {
        std::size_t slot = InheritedSlots;
        ForEachMember(half, [&](const FUNCDESC& member) {
            EXPECT_EQ(static_cast<std::size_t>(member.oVft), slot * sizeof(void*)) << half.Name(member.memid);
            ++slot;
        });
        EXPECT_EQ(half.VtableHalf().Name(), half.Name());
    });
}

TEST_P(TypeLibraryHalf, MembersAreCalledAsAutomationCallsThem)
{
    ForEachInterface([&](const Description& half) {
        ForEachMember(half, [&](const FUNCDESC& member) {
            EXPECT_EQ(member.funckind, GetParam().members) << half.Name(member.memid);
            EXPECT_EQ(member.callconv, CC_STDCALL) << half.Name(member.memid);
            EXPECT_EQ(member.wFuncFlags, 0) << half.Name(member.memid); // none is hidden or restricted
        });
    });
}

TEST_P(TypeLibraryHalf, GetAndPutOfAPropertyShareTheirNumberAndNothingElseDoes)
{
    ForEachInterface([](const Description& half) {
        std::vector<std::pair<std::string, MEMBERID>> numbers;
        ForEachMember(half, [&](const FUNCDESC& member) {
            const std::string name = half.Name(member.memid);
            for (const auto& [otherName, otherNumber] : numbers)
                EXPECT_EQ(otherNumber == member.memid, otherName == name) << otherName << ", " << name;
            EXPECT_GT(member.memid, 0) << name; // 0 and less mean more than a name
            numbers.emplace_back(name, member.memid);
        });
    });
}

TEST_P(TypeLibraryHalf, SaysWhatItsMembersAreFor)
{
    ForEachInterface([](const Description& half) {
        EXPECT_NE(half.Help(), "") << half.Name();
        ForEachMember(
            half, [&](const FUNCDESC& member) { EXPECT_NE(half.Help(member.memid), "") << half.Name(member.memid); });
    });
}

TEST_P(TypeLibraryHalf, SaysHowTheNumbersOfElementsCount)
{
    ForEachInterface([](const Description& half) {
        ForEachMember(half, [&](const FUNCDESC& member) {
            BSTR names[2] = {};
            UINT count = 0;
            ASSERT_HRESULT_SUCCEEDED(half->GetNames(member.memid, names, 2, &count));
            const std::string name = Take(names[0]);
            const std::string first = Take(names[1]);
            if (!first.ends_with("Number") && !first.ends_with("number")) return;
            EXPECT_NE(half.Help(member.memid).find("from 1"), std::string::npos) << name;
        });
    });
}
