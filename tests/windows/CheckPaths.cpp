// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Path names as the system knows them. Which short names it has, and whether it has any, is the system's choice: a
// short form is told by the file that it names.
#include "Check.h"

#include <QOR_File/QOR_File.h>

namespace qor::test {
namespace {

namespace fs = std::filesystem;

void CheckShortForms(const Folder& folder)
{
    const clsQOR_File file;
    const fs::path existing = folder / "A rather long name.measured";
    std::ofstream(existing).put('1');
    const std::u16string path = existing.u16string();

    const std::u16string shortForm = file.GetDOS_FilePathName(u" " + path + u" ");
    Check(!shortForm.empty() && fs::equivalent(shortForm, existing), "a short form names the same file");
    Check(shortForm.size() <= path.size() + 2, "and is no longer than there is room for");
    Check(file.PathNamesEqual(path, shortForm), "both names are equal");

    std::ofstream(folder / "A rather long name.other").put('2');
    Check(!file.PathNamesEqual(path, (folder / "A rather long name.other").u16string()), "names of two files are not");
}

#ifdef _WIN32
void CheckMissingFiles(const Folder& folder)
{
    const clsQOR_File file;
    const std::u16string in = (folder / "").u16string();
    const std::u16string shortFolder = file.GetDOS_FilePathName(in);

    Check(shortFolder.ends_with(u'\\'), "the short form of a folder keeps its backslash");
    Check(file.GetDOS_FilePathName(in + u"Not yet there.blk") == shortFolder + u"Not yet there.blk",
          "a new file's is the folder's, and its name as it is");
    Check(file.PathNamesEqual(in + u"new.blk", shortFolder + u"NEW.blk"), "it equals that of the same new file");
    Check(file.GetDOS_FilePathName(in + u"missing\\new.blk").empty(), "there is none in a missing folder");
    Check(file.PathNamesEqual(u"\u0416.blk", u"\u0436.blk"), "letters beyond Latin have a case");
}
#endif

} // namespace

void CheckPaths()
{
    // Within the code page of every system, or short names could not be asked for.
    const Folder folder(u"QOR_File paths ");
    CheckShortForms(folder);
#ifdef _WIN32
    CheckMissingFiles(folder);
#endif
}

} // namespace qor::test
