// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How a client tells what the component reports.
#pragma once

#include <QOR_File/QOR_File.h>

#include <filesystem>
#include <stdexcept>
#include <string>

// A Failure may come without a text, as for a file that cannot be opened.
[[noreturn]] inline void ThrowFor(const clsQOR_File& file, const std::filesystem::path& path, const char* what)
{
    const std::u16string text = file.GetLastErrorString();
    const std::string reason = text.empty() ? what : std::filesystem::path(text).string();
    throw std::runtime_error(path.string() + ": " + reason);
}

// Members without a result report through ErrorStatus, which forgets the error once it was asked for.
inline void Check(clsQOR_File& file, const std::filesystem::path& path, const char* what)
{
    if (file.ErrorStatus() != NoError) ThrowFor(file, path, what);
}
