// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the system knows of path names.
#pragma once

#include <string>
#include <string_view>

namespace qor::platform {

// The short form of an existing path, cut at room characters; empty where there is nothing of that name. Where
// the system has no short forms, the path itself.
std::u16string ShortPath(std::u16string_view path, std::size_t room);

// Whether two texts are equal but for letter case: by the system's rule on Windows, elsewhere for ASCII and
// Latin-1 letters.
bool EqualIgnoringCase(std::u16string_view text1, std::u16string_view text2);

} // namespace qor::platform
