// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/WithoutMemory.h"
#include "paths/Paths.h"

#include <QOR_File/QOR_File.h>

std::u16string clsQOR_File::GetDOS_FilePathName(std::u16string_view FilePathName) const
{
    return qor::IfMemoryAllows([&] { return qor::ShortPathOf(FilePathName); });
}
std::u16string clsQOR_File::GetFileName(std::u16string_view FilePathName) const
{
    return qor::IfMemoryAllows([&] { return qor::FileNameOf(FilePathName); });
}
std::u16string clsQOR_File::GetFilePath(std::u16string_view FilePathName) const
{
    return qor::IfMemoryAllows([&] { return qor::FilePathOf(FilePathName); });
}

Bool16 clsQOR_File::PathNamesEqual(std::u16string_view FilePathName1, std::u16string_view FilePathName2) const
{
    return qor::IfMemoryAllows([&] { return qor::SamePath(FilePathName1, FilePathName2); });
}
