// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/dispatch/DispatchTable.h"

#include <array>
#include <oleauto.h>

namespace qor::server {
namespace {

constexpr std::size_t MostParameters = 8; // a member has 7 at most, and its result
constexpr UINT NotGiven = ~UINT{0};

// What the caller learns of a member's failed call.
HRESULT Explain(HRESULT failure, EXCEPINFO* exception)
{
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = failure;
    IErrorInfo* found = nullptr;
    if (GetErrorInfo(0, &found) == S_OK) { // the member left it just now
        const ComPointer<IErrorInfo> information(found);
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
    }
    return DISP_E_EXCEPTION;
}

// An enumeration, or another name of a type, as what it is made of.
VARTYPE BaseType(ITypeInfo& description, const TYPEDESC& type)
{
    if (type.vt != VT_USERDEFINED) return type.vt;
    ITypeInfo* found = nullptr;
    if (FAILED(description.GetRefTypeInfo(type.hreftype, &found))) return VT_EMPTY;
    const ComPointer<ITypeInfo> named(found);
    TYPEATTR* attributes = nullptr;
    if (FAILED(named->GetTypeAttr(&attributes))) return VT_EMPTY;
    const VARTYPE base = attributes->typekind == TKIND_ENUM    ? VARTYPE{VT_I4}
                         : attributes->typekind == TKIND_ALIAS ? BaseType(*named, attributes->tdescAlias)
                                                               : VARTYPE{VT_EMPTY};
    named->ReleaseTypeAttr(attributes);
    return base;
}

// Which argument goes to which parameter: its place in DISPPARAMS::rgvarg.
class Placement
{
public:
    explicit Placement(std::size_t parameters) : parameters_(parameters) { places_.fill(NotGiven); }

    HRESULT Place(const DISPPARAMS& given, bool isPut, UINT* wrongArgument)
    {
        if (given.cNamedArgs > given.cArgs || given.cArgs > parameters_) return DISP_E_BADPARAMCOUNT;
        if ((given.cArgs > 0 && !given.rgvarg) || (given.cNamedArgs > 0 && !given.rgdispidNamedArgs))
            return E_INVALIDARG;
        for (UINT named = 0; named < given.cNamedArgs; ++named) {
            const DISPID id = given.rgdispidNamedArgs[named];
            const bool isValue = isPut && id == DISPID_PROPERTYPUT;
            const std::size_t parameter = isValue ? parameters_ - 1 : static_cast<std::size_t>(id);
            if ((id < 0 && !isValue) || parameter >= parameters_) {
                if (wrongArgument) *wrongArgument = named;
                return DISP_E_PARAMNOTFOUND;
            }
            if (!Set(parameter, named)) return DISP_E_BADPARAMCOUNT;
        }
        const UINT unnamed = given.cArgs - given.cNamedArgs;
        for (UINT position = 0; position < unnamed; ++position)
            if (!Set(position, given.cArgs - 1 - position)) return DISP_E_BADPARAMCOUNT;
        return S_OK;
    }

    UINT operator[](std::size_t parameter) const { return places_[parameter]; }

private:
    bool Set(std::size_t parameter, UINT place)
    {
        if (parameter >= parameters_ || places_[parameter] != NotGiven) return false;
        places_[parameter] = place;
        return true;
    }

    std::size_t parameters_;
    std::array<UINT, MostParameters> places_;
};

} // namespace

DispatchTable::DispatchTable(ComPointer<ITypeInfo> description) : description_(std::move(description))
{
    // The other half of the dual interface tells the vtable, and the parameters as they are passed there.
    HREFTYPE reference = 0;
    ITypeInfo* found = nullptr;
    if (FAILED(description_->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(description_->GetRefTypeInfo(reference, &found)))
        return;
    const ComPointer<ITypeInfo> vtable(found);
    FUNCDESC* function = nullptr;
    for (UINT number = 0; SUCCEEDED(vtable->GetFuncDesc(number, &function)); ++number) {
        const auto id = static_cast<std::size_t>(function->memid);
        if (function->memid > 0 && static_cast<std::size_t>(function->cParams) <= MostParameters) {
            if (members_.size() <= id) members_.resize(id + 1);
            (function->invkind == INVOKE_PROPERTYPUT ? members_[id].put : members_[id].call) =
                Describe(*vtable, *function);
        }
        vtable->ReleaseFuncDesc(function);
    }
}

DispatchTable::Member DispatchTable::Describe(ITypeInfo& interfaceDescription, const FUNCDESC& function)
{
    Member member;
    member.vtableOffset = static_cast<ULONG_PTR>(function.oVft);
    for (int number = 0; number < function.cParams; ++number) {
        const ELEMDESC& element = function.lprgelemdescParam[number];
        DispatchParameter parameter;
        parameter.byReference = element.tdesc.vt == VT_PTR;
        parameter.type = BaseType(interfaceDescription, parameter.byReference ? *element.tdesc.lptdesc : element.tdesc);
        parameter.optional = (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
        if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
            member.result = parameter.type;
        } else {
            member.parameters.push_back(parameter);
        }
    }
    return member;
}

const DispatchTable::Member* DispatchTable::Find(DISPID id, WORD flags) const
{
    if (id < 0 || static_cast<std::size_t>(id) >= members_.size()) return nullptr;
    const Access& access = members_[static_cast<std::size_t>(id)];
    const auto& member = (flags & DISPATCH_PROPERTYPUT) != 0 ? access.put : access.call;
    const bool isCall = (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT)) != 0;
    return isCall && member ? &*member : nullptr;
}

HRESULT DispatchTable::Invoke(void* object, DISPID id, LCID locale, WORD flags, const DISPPARAMS& given,
                              VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) const
{
    const Member* member = Find(id, flags);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    const std::size_t count = member->parameters.size();
    Placement placement(count);
    if (const HRESULT placed = placement.Place(given, (flags & DISPATCH_PROPERTYPUT) != 0, wrongArgument);
        FAILED(placed))
        return placed;
    const auto refuse = [&](std::size_t parameter, HRESULT reason) {
        if (wrongArgument) *wrongArgument = placement[parameter] == NotGiven ? 0 : placement[parameter];
        return reason;
    };

    std::array<DispatchArgument, MostParameters> arguments;
    std::array<VARTYPE, MostParameters> types{};
    std::array<VARIANTARG*, MostParameters> passed{};
    for (std::size_t number = 0; number < count; ++number) {
        VARIANTARG* argument = placement[number] == NotGiven ? nullptr : &given.rgvarg[placement[number]];
        const HRESULT taken = arguments[number].Take(member->parameters[number], argument, locale);
        if (FAILED(taken)) return refuse(number, taken);
        passed[number] = arguments[number].Passed();
        types[number] = arguments[number].PassedType();
    }

    std::size_t all = count;
    VARIANT value{};
    VARIANTARG valuePlace{};
    if (member->result != VT_EMPTY) {
        valuePlace.vt = static_cast<VARTYPE>(VT_BYREF | member->result);
        valuePlace.byref = &value.lVal; // where every type of a union's members starts
        passed[all] = &valuePlace;
        types[all] = valuePlace.vt;
        ++all;
    }
    VARIANT returned{};
    const HRESULT called = DispCallFunc(object, member->vtableOffset, CC_STDCALL, VT_ERROR, static_cast<UINT>(all),
                                        types.data(), passed.data(), &returned);
    if (FAILED(called)) return called;
    if (FAILED(returned.scode)) return Explain(returned.scode, exception);

    value.vt = member->result;
    for (std::size_t number = 0; number < count; ++number) {
        if (const HRESULT ready = arguments[number].MakeReady(locale); FAILED(ready)) {
            VariantClear(&value);
            return refuse(number, ready);
        }
    }
    for (DispatchArgument& argument : arguments) argument.GiveBack();
    if (result) {
        *result = value;
    } else {
        VariantClear(&value);
    }
    return S_OK;
}

} // namespace qor::server
