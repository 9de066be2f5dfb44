// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Path names: their parts as text, their short forms, and which of them name the same file. The system of these
// tests has no short forms: that of an existing path is the path itself. A backslash is an ordinary character
// there, so a folder part exists where a folder's own name ends in one.
#include "paths/Paths.h"

#include "platform/ShortPath.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace qor::test {
namespace {

// ---- parts ----------------------------------------------------------------------------------------------------

struct Part {
    std::u16string path;
    std::u16string part;
};

TEST(FileName, IsWhatFollowsTheLastBackslash)
{
    const Part cases[] = {
        {u"C:\\a\\b.txt", u"b.txt"},
        {u"C:\\a\\", u""},
        {u"b.txt", u"b.txt"},
        {u"C:\\a\\ b.txt", u"b.txt"},
        {u"C:\\a\\b.txt  ", u"b.txt"},
        {u"  b.txt ", u"b.txt"},
        {u"", u""},
        {u"   ", u""},
        {u"\\", u""},
        {u"\\\\", u""},
        {u"\\b", u"b"},
        {u"\\\\server\\share\\x y.blk", u"x y.blk"},
        {u"C:\\a\\  ", u""},
        {u"C:b.txt", u"C:b.txt"},
        {u"/tmp/b.txt", u"/tmp/b.txt"},
        {u"a\\b/c", u"b/c"},
        {u"a\\\tb", u"\tb"},
    };
    for (const auto& [path, name] : cases) EXPECT_EQ(FileNameOf(path), name) << platform::ToUtf8(path);
}

TEST(FilePath, IsWhatEndsInTheLastBackslashThatAnotherCharacterFollows)
{
    const Part cases[] = {
        {u"C:\\a\\b.txt", u"C:\\a\\"},
        {u"C:\\a\\b\\", u"C:\\a\\"},
        {u"C:\\", u""},
        {u"C:\\b.txt", u"C:\\"},
        {u"b.txt", u""},
        {u"b\\", u""},
        {u"", u""},
        {u"   ", u""},
        {u"\\", u""},
        {u"\\\\", u"\\"},
        {u"\\b", u"\\"},
        {u"a\\\\", u"a\\"},
        {u"a\\b\\\\", u"a\\b\\"},
        {u"  C:\\a\\b ", u"C:\\a\\"},
        {u"C:\\a\\ ", u"C:\\a\\"},
        {u"C:\\a b\\c", u"C:\\a b\\"},
        {u"/tmp/b.txt", u""},
        {u"a/b\\c", u"a/b\\"},
        {u" \\b", u"\\"},
        {u"\\\\server\\share\\", u"\\\\server\\"},
    };
    for (const auto& [path, folder] : cases) EXPECT_EQ(FilePathOf(path), folder) << platform::ToUtf8(path);
}

TEST(PathParts, KeepUnitsOfEveryKind)
{
    const std::u16string folder = {0xD83D, u'\0', u'\\'};
    const std::u16string name = {0xDC00, u'\0', 0x00E4};

    EXPECT_EQ(FilePathOf(folder + name), folder);
    EXPECT_EQ(FileNameOf(folder + name), name);
}

// ---- short forms ----------------------------------------------------------------------------------------------

class ShortPaths : public testing::Test
{
protected:
    // An existing file or folder of that name in the test's folder.
    std::u16string File(std::string_view name)
    {
        WriteBytes(folder / name, {1});
        return Utf16(folder / name);
    }
    std::u16string Folder(std::string_view name)
    {
        std::filesystem::create_directory(folder / name);
        return Utf16(folder / name);
    }

    TemporaryFolder folder;
};

TEST_F(ShortPaths, OfAnExistingFileIsThatPath)
{
    const std::u16string path = File("A long name.blk");

    EXPECT_EQ(ShortPathOf(path), path);
}

TEST_F(ShortPaths, OfAnExistingFolderIsThatPath)
{
    const std::u16string path = Folder("folder");

    EXPECT_EQ(ShortPathOf(path), path);
}

TEST_F(ShortPaths, LeaveOutTheBlanksAroundThePath)
{
    const std::u16string path = File("x.blk");

    EXPECT_EQ(ShortPathOf(u"  " + path + u" "), path);
}

TEST_F(ShortPaths, OfAMissingFileInAnExistingFolderIsTheFolderAndTheFileName)
{
    const std::u16string path = Folder("folder\\") + u"new file.blk";

    EXPECT_EQ(ShortPathOf(path), path);
}

TEST_F(ShortPaths, OfAMissingFileTrimTheFileName)
{
    const std::u16string existing = Folder("folder\\");

    EXPECT_EQ(ShortPathOf(existing + u"  new.blk"), existing + u"new.blk");
}

TEST_F(ShortPaths, OfAMissingFolderNameItsParentOnly)
{
    const std::u16string existing = Folder("folder\\");

    EXPECT_EQ(ShortPathOf(existing + u"missing\\"), existing) << "there is no file name behind the last backslash";
    EXPECT_EQ(ShortPathOf(existing + u"missing\\ "), existing) << "nor is a blank one";
}

TEST_F(ShortPaths, AreEmptyWhereNeitherFileNorFolderExists)
{
    EXPECT_EQ(ShortPathOf(Utf16(folder / "missing\\new.blk")), u"");
    EXPECT_EQ(ShortPathOf(Utf16(folder / "missing.blk")), u"") << "no backslash, so no folder";
    EXPECT_EQ(ShortPathOf(u"Z:\\missing\\"), u"");
    EXPECT_EQ(ShortPathOf(u"\\"), u"");
}

TEST_F(ShortPaths, OfABlankPathAreEmpty)
{
    EXPECT_EQ(ShortPathOf(u""), u"");
    EXPECT_EQ(ShortPathOf(u"    "), u"");
}

TEST_F(ShortPaths, OfATextThatNoFileCanHaveAsNameAreEmpty)
{
    const std::u16string existing = File("x");

    EXPECT_EQ(ShortPathOf(existing + std::u16string(1, u'\0')), u"");
    EXPECT_EQ(ShortPathOf(existing + std::u16string(1, 0xDC00)), u"");
}

TEST_F(ShortPaths, OfNamesBeyondAsciiAreThatPath)
{
    const std::u16string path = File("\xC3\xA4\xE4\xB8\xAD.blk");

    EXPECT_EQ(ShortPathOf(path), path);
}

TEST_F(ShortPaths, AreCutAtTheRoomThereIs)
{
    const std::u16string path = File("x.blk");

    EXPECT_EQ(platform::ShortPath(path, path.size()), path);
    EXPECT_EQ(platform::ShortPath(path, path.size() - 1), path.substr(0, path.size() - 1));
}

// ---- the same file --------------------------------------------------------------------------------------------

TEST(SamePath, IsToldFromTheTextWhateverTheCase)
{
    EXPECT_TRUE(SamePath(u"c:\\DATA\\x.blk", u"C:\\data\\X.BLK"));
    EXPECT_TRUE(SamePath(u"  a.blk", u"A.BLK "));
    EXPECT_TRUE(SamePath(u"\u00C4\u00D6\u00DC\u00C0\u00DE", u"\u00E4\u00F6\u00FC\u00E0\u00FE"));
}

TEST(SamePath, IsNotThatOfOtherNames)
{
    EXPECT_FALSE(SamePath(u"c:\\data\\x.blk", u"c:\\data\\y.blk"));
    EXPECT_FALSE(SamePath(u"x.blk", u"x.bl"));
    EXPECT_FALSE(SamePath(u"x[.blk", u"x{.blk")) << "letters have a case, other characters have not";
    EXPECT_FALSE(SamePath(u"x@.blk", u"x`.blk"));
    EXPECT_FALSE(SamePath(u"\u00D7", u"\u00F7")) << "multiplication and division sign";
    EXPECT_FALSE(SamePath(u"\u00DF", u"\u00FF")) << "sharp s and y with diaeresis";
}

TEST(SamePath, IsNeverThatOfABlankName)
{
    for (const std::u16string_view blank : {u"", u"   "}) {
        EXPECT_FALSE(SamePath(blank, u"x.blk"));
        EXPECT_FALSE(SamePath(u"x.blk", blank));
        EXPECT_FALSE(SamePath(blank, blank));
        EXPECT_FALSE(SamePath(blank, u" "));
    }
}

TEST_F(ShortPaths, ThatAreEqualNameTheSameFile)
{
    const std::u16string existing = Folder("folder\\");

    EXPECT_TRUE(SamePath(existing + u"NEW.blk", existing + u" new.blk"));
    EXPECT_TRUE(SamePath(existing + u" new.blk", existing + u"NEW.blk"));
}

TEST_F(ShortPaths, ThatDifferNameDifferentFiles) { EXPECT_FALSE(SamePath(File("x.blk"), File("y.blk"))); }

TEST_F(ShortPaths, ThatAreMissingNameNoFile)
{
    const std::u16string existing = File("x.blk");
    const std::u16string missing = Utf16(folder / "y.blk");

    EXPECT_FALSE(SamePath(existing, missing));
    EXPECT_FALSE(SamePath(missing, existing));
    EXPECT_FALSE(SamePath(missing, missing + u"2"));
    EXPECT_TRUE(SamePath(missing, missing)) << "equal as text";
}

} // namespace
} // namespace qor::test
