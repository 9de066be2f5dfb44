// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How a client tells what the component reports.
#pragma once

#include <QOR_File/QOR_File.h>

#include <filesystem>
#include <stdexcept>
#include <string>

// A Failure may come without a code, as for a file that cannot be opened; the text is then that of an older error. So
// it is the code that counts, and one left from before must have been asked for: see Check.
[[noreturn]] inline void ThrowFor(clsQOR_File& file, const std::filesystem::path& path, const char* what)
{
    const bool hasText = file.ErrorStatus() != NoError;
    const std::string reason = hasText ? std::filesystem::path(file.GetLastErrorString()).string() : what;
    throw std::runtime_error(path.string() + ": " + reason);
}

// Members without a result report through ErrorStatus, which forgets the error once it was asked for.
inline void Check(clsQOR_File& file, const std::filesystem::path& path, const char* what)
{
    if (file.ErrorStatus() != NoError) throw std::runtime_error(path.string() + ": " + what);
}
