// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#pragma once

#include <memory>
#include <unknwn.h>

namespace qor::server {

struct ReleasesInterface {
    void operator()(IUnknown* object) const { object->Release(); }
};

// Owns one reference to an interface.
template <class Interface>
using ComPointer = std::unique_ptr<Interface, ReleasesInterface>;

} // namespace qor::server
