// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "paths/Paths.h"

#include "fileio/Framing.h"
#include "platform/ShortPath.h"

namespace qor {

std::u16string FileNameOf(std::u16string_view path)
{
    const auto last = path.rfind(u'\\');
    return std::u16string(Trimmed(last == std::u16string_view::npos ? path : path.substr(last + 1)));
}

std::u16string FilePathOf(std::u16string_view path)
{
    std::u16string_view searched = path;
    if (searched.ends_with(u'\\')) searched.remove_suffix(1);
    const auto last = searched.rfind(u'\\');
    if (last == std::u16string_view::npos) return {};
    return std::u16string(Trimmed(path.substr(0, last + 1)));
}

std::u16string ShortPathOf(std::u16string_view path)
{
    const std::u16string_view trimmed = Trimmed(path);
    if (trimmed.empty()) return {};
    // The buffer is the path's length and 2 in both queries; what does not fit is cut, as published.
    const std::size_t room = trimmed.size() + 2;
    std::u16string whole = platform::ShortPath(trimmed, room);
    if (!whole.empty()) return whole;
    std::u16string folder = platform::ShortPath(FilePathOf(trimmed), room);
    if (!folder.empty()) folder += FileNameOf(trimmed);
    return folder;
}

bool SamePath(std::u16string_view path1, std::u16string_view path2)
{
    const std::u16string_view first = Trimmed(path1);
    const std::u16string_view second = Trimmed(path2);
    if (first.empty() || second.empty()) return false;
    if (platform::EqualIgnoringCase(first, second)) return true;
    const std::u16string shortFirst = ShortPathOf(first);
    const std::u16string shortSecond = ShortPathOf(second);
    return !shortFirst.empty() && !shortSecond.empty() && platform::EqualIgnoringCase(shortFirst, shortSecond);
}

} // namespace qor
