// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Texts are UTF-16 code units inside and UTF-8 where a system or a person meets them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qor::platform {

// The text as UTF-8; an unpaired surrogate becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

// The text as UTF-16; nothing when the bytes are not valid UTF-8.
std::optional<std::u16string> FromUtf8(std::string_view bytes);

} // namespace qor::platform
