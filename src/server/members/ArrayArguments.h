// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A client's arrays of numbers. They come in as whatever the client has: arrays of any numeric type or of variants,
// with any lower bound, in two dimensions where one of them is 1, a single number for an array of one. They go out as
// arrays of single with lower bound 0, unless the client's variable already holds an array of another type that it
// wants.
#pragma once

#include <oaidl.h>
#include <span>
#include <vector>

namespace qor::server {

// The numbers of an array that a client passes.
class ArrayArgument
{
public:
    ArrayArgument() = default;
    ~ArrayArgument();
    ArrayArgument(const ArrayArgument&) = delete;
    ArrayArgument& operator=(const ArrayArgument&) = delete;

    // DISP_E_TYPEMISMATCH where value is no such array, or a number does not fit. An argument that was left out, or is
    // empty, is an array of none.
    HRESULT Take(const VARIANT& value);

    // Valid as long as this object and the client's array.
    std::span<const float> Values() const { return values_; }

private:
    HRESULT TakeArray(SAFEARRAY* array);

    SAFEARRAY* opened_ = nullptr;
    std::vector<float> converted_;
    std::span<const float> values_;
};

// An array that a client gets.
class ArrayResult
{
public:
    ArrayResult() = default;
    ~ArrayResult();
    ArrayResult(const ArrayResult&) = delete;
    ArrayResult& operator=(const ArrayResult&) = delete;

    // Makes room for count numbers that are meant for variable. DISP_E_TYPEMISMATCH where it cannot hold an array,
    // E_OUTOFMEMORY. Where the client left it out, there is no room and nothing is delivered.
    HRESULT Prepare(VARIANT* variable, std::size_t count);

    std::span<float> Values() const { return values_; }

    // Once the values are there: whatever can go wrong with the delivery, so that a call delivers all its arrays or
    // none. DISP_E_ARRAYISLOCKED, DISP_E_TYPEMISMATCH where an array of fixed size has another one, E_OUTOFMEMORY.
    HRESULT MakeReady();
    // Puts the array into the client's variable, in place of what was there.
    void Deliver();

private:
    bool IsReference() const;
    SAFEARRAY* Present() const; // what the variable holds
    bool IsFilledInPlace(const SAFEARRAY* present) const;

    VARIANT* variable_ = nullptr; // not a reference to a variant any more
    VARTYPE type_ = VT_R4;        // of the elements that the variable gets
    SAFEARRAY* array_ = nullptr;
    std::span<float> values_;
};

} // namespace qor::server
