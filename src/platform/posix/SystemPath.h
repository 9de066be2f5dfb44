// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qor::platform {

// The path in the system's bytes. Nothing for a name that UTF-8 cannot carry, or that the system would cut at
// an embedded zero: it names no file.
std::optional<std::string> SystemPath(std::u16string_view path);

} // namespace qor::platform
