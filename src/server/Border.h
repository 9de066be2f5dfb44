// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What every call of a client passes on its way in and out: no exception crosses it, a failed call carries error
// information, and the arithmetic is the library's own.
#pragma once

#include <string_view>
#include <utility>
#include <windows.h>

namespace qor::server {

// Leaves description as the thread's error information, in place of what stood there, and returns result.
HRESULT Failed(HRESULT result, std::u16string_view description) noexcept;
// The same for the exception that is being handled.
HRESULT FailedByException() noexcept;
// For a required argument that is a null pointer.
HRESULT MissingArgument() noexcept;

// Clients may have their own rounding, or flush small numbers to zero, or trap on invalid ones; results must not
// depend on it.
class OwnArithmetic
{
public:
    OwnArithmetic() noexcept;
    ~OwnArithmetic();
    OwnArithmetic(const OwnArithmetic&) = delete;
    OwnArithmetic& operator=(const OwnArithmetic&) = delete;

private:
    unsigned vector_;
    unsigned short stack_;
};

template <class Body>
HRESULT Guarded(Body&& body) noexcept
{
    const OwnArithmetic arithmetic;
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return FailedByException();
    }
}

} // namespace qor::server
