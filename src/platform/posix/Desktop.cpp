// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Desktop.h"

#include "platform/PerThread.h"

#include <exception>

namespace qor::platform {

PostedError& LastPostedError() { return PerThread<PostedError>(); }

void PostError(std::uint32_t number, std::u16string_view source, std::u16string_view description) noexcept
{
    try {
        LastPostedError() = {number, std::u16string(source), std::u16string(description)};
    } catch (const std::exception&) {
        // Without memory for its text the error stays unposted; its code is kept by the object all the same.
    }
}

BusyPointer::BusyPointer() = default;
BusyPointer::~BusyPointer() { previous_ = nullptr; }

} // namespace qor::platform
