// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Path names of documents, as text: the only separator is the backslash, and outer blanks are no part of a
// path.
#pragma once

#include <string>
#include <string_view>

namespace qor {

// What follows the last backslash, trimmed: "b.txt" of "C:\a\b.txt", nothing of "C:\a\".
std::u16string FileNameOf(std::u16string_view path);

// Up to and with the last backslash, one at the very end not counted, trimmed: "C:\a\" of "C:\a\b.txt" and of
// "C:\a\b\", nothing of "C:\".
std::u16string FilePathOf(std::u16string_view path);

// The short form that the system has for the path; where the file does not exist, that of its folder and the
// file name as it is. Empty where there is neither.
std::u16string ShortPathOf(std::u16string_view path);

// Whether both name the same file: as text but for letter case, or by their short forms. A blank name equals
// nothing.
bool SamePath(std::u16string_view path1, std::u16string_view path2);

} // namespace qor
