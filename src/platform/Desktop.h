// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the component shows beside its results: the posted error and the busy mouse pointer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor::platform {

// Puts an error on the calling thread's error object, in place of an earlier one. Cannot fail visibly.
void PostError(std::uint32_t number, std::u16string_view source, std::u16string_view description) noexcept;

#ifndef _WIN32
// Where there is no error object of the system, the last posted error of the calling thread is kept here.
struct PostedError {
    std::uint32_t number = 0;
    std::u16string source;
    std::u16string description;
};
PostedError& LastPostedError();
#endif

// Shows the busy pointer for its lifetime; without a screen it does nothing.
class BusyPointer
{
public:
    BusyPointer();
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    void* previous_ = nullptr;
};

} // namespace qor::platform
