// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members for path names. What they make of a path is tested with the paths; here, that each does its own.
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <filesystem>
#include <gtest/gtest.h>

namespace qor::test {
namespace {

TEST(GetFileName, IsTheNamePart)
{
    const clsQOR_File file;
    EXPECT_EQ(file.GetFileName(u"C:\\a\\b.txt"), u"b.txt");
    EXPECT_EQ(file.GetFileName(u"C:\\a\\"), u"");
    EXPECT_EQ(file.GetFileName(u"b.txt"), u"b.txt");
    EXPECT_EQ(file.GetFileName(u"C:\\a\\ b.txt"), u"b.txt");
}

TEST(GetFilePath, IsTheFolderPart)
{
    const clsQOR_File file;
    EXPECT_EQ(file.GetFilePath(u"C:\\a\\b.txt"), u"C:\\a\\");
    EXPECT_EQ(file.GetFilePath(u"C:\\a\\b\\"), u"C:\\a\\");
    EXPECT_EQ(file.GetFilePath(u"C:\\"), u"");
    EXPECT_EQ(file.GetFilePath(u"b.txt"), u"");
}

TEST(GetDOS_FilePathName, OfANewFileInAnExistingFolderIsTheFoldersAndTheNameAsItIs)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder\\"); // the name ends in a backslash
    const std::u16string path = Utf16(folder / "folder\\");
    const clsQOR_File file;

    EXPECT_EQ(file.GetDOS_FilePathName(u" " + path + u" A new name.blk"), path + u"A new name.blk");
    EXPECT_EQ(file.GetDOS_FilePathName(path), path);
    EXPECT_EQ(file.GetDOS_FilePathName(path + u"missing\\x"), u"");
}

TEST(PathNamesEqual, IsTrueAsMinus1AndFalseAs0)
{
    const clsQOR_File file;
    EXPECT_EQ(file.PathNamesEqual(u"c:\\DATA\\x.blk", u"C:\\data\\X.BLK").value, -1);
    EXPECT_EQ(file.PathNamesEqual(u"c:\\DATA\\x.blk", u"C:\\data\\Y.BLK").value, 0);
    EXPECT_EQ(file.PathNamesEqual(u" ", u"x.blk").value, 0);
}

TEST(PathMembers, LeaveTheErrorStatus)
{
    clsQOR_File file;
    file.ErrorStatus(AxisNumberError);

    file.GetFileName(u"");
    file.GetFilePath(u"");
    file.GetDOS_FilePathName(u"Z:\\missing\\x");
    file.PathNamesEqual(u"", u"x");

    EXPECT_EQ(file.GetLastErrorString(), u"Error (14): Axis Number error");
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(PathMembers, LeaveTheDocuments)
{
    clsQOR_File file;
    file.ShapeTable_NumberOfShapes(2);
    file.Shape_Label(2, u"kept");

    file.GetDOS_FilePathName(u"Z:\\missing\\x");
    file.PathNamesEqual(u"Z:\\missing\\x", u"Z:\\missing\\y");

    EXPECT_EQ(file.Shape_Label(2), u"kept");
}

} // namespace
} // namespace qor::test
