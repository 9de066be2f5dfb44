// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Arguments on their way between a client and the component: pointers are checked, values copied in, and those that
// the component may change copied back after the call.
#pragma once

#include "server/Border.h"

#include <QOR_File/QOR_File.h>

#include <cstdint>
#include <functional>
#include <oleauto.h>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace qor::server {

// A null BSTR is the empty text.
inline std::u16string_view TextOf(BSTR text) { return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)}; }

// Throws std::bad_alloc where there is no memory.
BSTR NewText(std::u16string_view text);

// What a client passes as a value of any type; references in it are followed.
NumericVariant NumericOf(const VARIANT& value);

// How a type of the component is told apart from that of the interface where the two differ.
inline std::int32_t FromClient(LONG value) { return value; }
inline float FromClient(float value) { return value; }
inline Bool16 FromClient(VARIANT_BOOL value) { return Bool16::Raw(value); }
template <class Enumeration>
requires std::is_enum_v<Enumeration> Enumeration FromClient(Enumeration value) { return value; }

inline void ToClient(std::int32_t value, LONG& target) { target = value; }
inline void ToClient(float value, float& target) { target = value; }
inline void ToClient(Bool16 value, VARIANT_BOOL& target) { target = value.value; }
template <class Enumeration>
requires std::is_enum_v<Enumeration>
void ToClient(Enumeration value, Enumeration& target) { target = value; }
inline void ToClient(std::u16string_view value, BSTR& target) { target = NewText(value); }

// An argument that a client may leave out, which reaches the member as a null pointer; it is 0 then.
template <class Passed>
struct Optional {
    Passed* pointer;
};
template <class Passed>
Optional(Passed*) -> Optional<Passed>;

// One argument of a call: what the component takes (Parameter) of what the client passes (Passed).
template <class Parameter, class Passed>
class Argument;

template <class Value, class Passed>
class Argument<const Value&, Passed*>
{
public:
    explicit Argument(Passed* passed) : missing_(!passed), value_(passed ? FromClient(*passed) : Value{}) {}
    bool Missing() const { return missing_; }
    const Value& Get() { return value_; }
    void GiveBack() {}

private:
    bool missing_;
    Value value_;
};

template <class Value, class Passed>
class Argument<const Value&, Optional<Passed>>
{
public:
    explicit Argument(Optional<Passed> passed) : value_(passed.pointer ? FromClient(*passed.pointer) : Value{}) {}
    bool Missing() const { return false; }
    const Value& Get() { return value_; }
    void GiveBack() {}

private:
    Value value_;
};

template <class Value, class Passed>
class Argument<Value&, Passed*>
{
public:
    explicit Argument(Passed* passed) : passed_(passed), value_(passed ? FromClient(*passed) : Value{}) {}
    bool Missing() const { return !passed_; }
    Value& Get() { return value_; }
    void GiveBack() { ToClient(value_, *passed_); }

private:
    Passed* passed_;
    Value value_;
};

template <>
class Argument<std::u16string_view, BSTR>
{
public:
    explicit Argument(BSTR passed) : text_(TextOf(passed)) {}
    bool Missing() const { return false; }
    std::u16string_view Get() { return text_; }
    void GiveBack() {}

private:
    std::u16string_view text_;
};

template <>
class Argument<std::u16string_view, BSTR*>
{
public:
    explicit Argument(const BSTR* passed) : missing_(!passed), text_(passed ? TextOf(*passed) : std::u16string_view())
    {}
    bool Missing() const { return missing_; }
    std::u16string_view Get() { return text_; }
    void GiveBack() {}

private:
    bool missing_;
    std::u16string_view text_;
};

template <>
class Argument<std::u16string&, BSTR*>
{
public:
    explicit Argument(BSTR* passed) : passed_(passed), text_(passed ? TextOf(*passed) : std::u16string_view()) {}
    bool Missing() const { return !passed_; }
    std::u16string& Get() { return text_; }
    void GiveBack()
    {
        if (text_ == TextOf(*passed_)) return;
        const BSTR fresh = NewText(text_);
        SysFreeString(*passed_);
        *passed_ = fresh;
    }

private:
    BSTR* passed_;
    std::u16string text_;
};

template <>
class Argument<const NumericVariant&, VARIANT*>
{
public:
    explicit Argument(const VARIANT* passed) : missing_(!passed), value_(passed ? NumericOf(*passed) : NumericVariant())
    {}
    bool Missing() const { return missing_; }
    const NumericVariant& Get() { return value_; }
    void GiveBack() {}

private:
    bool missing_;
    NumericVariant value_;
};

// Calls a method of the component with a client's arguments, and gives the client its result.
template <class... Parameters, class Method, class Target, class... Passed>
HRESULT CallWith(std::type_identity<std::tuple<Parameters...>>, Method&& method, Target* result,
                 Passed... passed) noexcept
{
    return Guarded([&] {
        if (!result) return MissingArgument();
        std::tuple<Argument<Parameters, Passed>...> arguments(passed...);
        *result = Target{};
        return std::apply(
            [&](auto&... argument) {
                if ((argument.Missing() || ...)) return MissingArgument();
                const auto value = method(argument.Get()...);
                (argument.GiveBack(), ...);
                ToClient(value, *result);
                return S_OK;
            },
            arguments);
    });
}
template <class Object, class Result, class... Parameters, class Target, class... Passed>
HRESULT Call(Object& object, Result (Object::*method)(Parameters...), Target* result, Passed... passed) noexcept
{
    return CallWith(std::type_identity<std::tuple<Parameters...>>(), std::bind_front(method, &object), result,
                    passed...);
}
template <class Object, class Result, class... Parameters, class Target, class... Passed>
HRESULT Call(const Object& object, Result (Object::*method)(Parameters...) const, Target* result,
             Passed... passed) noexcept
{
    return CallWith(std::type_identity<std::tuple<Parameters...>>(), std::bind_front(method, &object), result,
                    passed...);
}

// Gives a client the value of a property; read computes it.
template <class Target, class Read>
HRESULT Get(Target* value, Read&& read) noexcept
{
    return Guarded([&] {
        if (!value) return MissingArgument();
        *value = Target{};
        ToClient(read(), *value);
        return S_OK;
    });
}

// Sets a property, or does what has no result.
template <class Change>
HRESULT Do(Change&& change) noexcept
{
    return Guarded([&] {
        change();
        return S_OK;
    });
}

} // namespace qor::server
