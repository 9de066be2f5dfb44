// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Nothing is thrown to a client: what there is no memory for comes to nothing.
#pragma once

#include <new>

namespace qor {

// What work comes to; the default of that, such as an empty text, where there is no memory for it.
template <class Work>
auto IfMemoryAllows(Work work)
{
    using Result = decltype(work());
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return Result();
    }
}

} // namespace qor
