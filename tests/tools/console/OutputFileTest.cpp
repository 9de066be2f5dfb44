// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/OutputFile.h"

#include "support/TemporaryFolder.h"
#include "tools/console/Console.h"

#include <gtest/gtest.h>

namespace {

using namespace qor;
using namespace qor::test;
using namespace qor::tool;
namespace fs = std::filesystem;

const std::vector<std::uint8_t> OldBytes = {'o', 'l', 'd'};
const std::vector<std::uint8_t> NewBytes = {'n', 'e', 'w', '!'};

std::ptrdiff_t FilesIn(const TemporaryFolder& folder)
{
    return std::distance(fs::directory_iterator(folder / ""), fs::directory_iterator());
}

void WriteNewBytes(OutputFile& file) { ASSERT_TRUE(file.Sink().WriteAt(0, std::as_bytes(std::span(NewBytes)))); }

TEST(OutputFile, HasItsNameOnlyOnceItIsCommitted)
{
    const TemporaryFolder folder;
    {
        OutputFile file((folder / "a.blk").string(), false);
        WriteNewBytes(file);
        EXPECT_FALSE(fs::exists(folder / "a.blk"));
        file.Commit();
        EXPECT_EQ(BytesOf(folder / "a.blk"), NewBytes);
    }
    EXPECT_EQ(FilesIn(folder), 1);
}

TEST(OutputFile, LeavesNothingWhenItIsNotCommitted)
{
    const TemporaryFolder folder;
    {
        OutputFile file((folder / "a.blk").string(), false);
        WriteNewBytes(file);
    }
    EXPECT_EQ(FilesIn(folder), 0);
}

TEST(OutputFile, TakesTextAPieceAtATime)
{
    const TemporaryFolder folder;
    OutputFile file((folder / "a.csv").string(), false);
    Output text([&](std::string_view piece) { file.Append(piece); });

    text.Write(std::string(100000, 'a')); // more than one piece
    text.Write("b");
    text.Flush();
    file.Commit();

    const auto bytes = BytesOf(folder / "a.csv");
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), std::string(100000, 'a') + "b");
}

TEST(OutputFile, RefusesAnExistingFile)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "a.blk", OldBytes);

    EXPECT_THROW(OutputFile((folder / "a.blk").string(), false), ToolError);

    EXPECT_EQ(BytesOf(folder / "a.blk"), OldBytes);
    EXPECT_EQ(FilesIn(folder), 1);
}

TEST(OutputFile, RefusesAFileThatAppearsMeanwhile)
{
    const TemporaryFolder folder;
    {
        OutputFile file((folder / "a.blk").string(), false);
        WriteBytes(folder / "a.blk", OldBytes);
        EXPECT_THROW(file.Commit(), ToolError);
    }
    EXPECT_EQ(BytesOf(folder / "a.blk"), OldBytes);
    EXPECT_EQ(FilesIn(folder), 1);
}

TEST(OutputFile, KeepsTheOldFileUntilItIsCommitted)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "a.blk", OldBytes);
    {
        OutputFile file((folder / "a.blk").string(), true);
        WriteNewBytes(file);
        EXPECT_EQ(BytesOf(folder / "a.blk"), OldBytes);
    }
    EXPECT_EQ(BytesOf(folder / "a.blk"), OldBytes);
}

TEST(OutputFile, ReplacesTheOldFileWithItsPermissions)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "a.blk", OldBytes);
    fs::permissions(folder / "a.blk", fs::perms::owner_read | fs::perms::owner_write);

    OutputFile file((folder / "a.blk").string(), true);
    WriteNewBytes(file);
    file.Commit();

    EXPECT_EQ(BytesOf(folder / "a.blk"), NewBytes);
    EXPECT_EQ(fs::status(folder / "a.blk").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(OutputFile, ReplacesWhatALinkLeadsTo)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "real.blk", OldBytes);
    fs::create_symlink(folder / "real.blk", folder / "link.blk");

    OutputFile file((folder / "link.blk").string(), true);
    WriteNewBytes(file);
    file.Commit();

    EXPECT_TRUE(fs::is_symlink(folder / "link.blk"));
    EXPECT_EQ(BytesOf(folder / "real.blk"), NewBytes);
}

TEST(OutputFile, RefusesFoldersDevicesAndMissingFolders)
{
    const TemporaryFolder folder;
    EXPECT_THROW(OutputFile((folder / "").string(), true), ToolError);
    EXPECT_THROW(OutputFile("/dev/null", true), ToolError);
    EXPECT_THROW(OutputFile((folder / "none" / "a.blk").string(), false), ToolError);
    EXPECT_THROW(OutputFile("", false), ToolError);
}

} // namespace
