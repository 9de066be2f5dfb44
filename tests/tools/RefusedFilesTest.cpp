// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The tool where the system refuses: full and read-only disks, and names that stand for no file. Always exit code 1 and
// one line that tells why, no half file, and no waiting.
#include "support/SmallDisk.h"
#include "tools/Workshop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qor::test {
namespace {

using testing::EndsWith;
using testing::StartsWith;

class RefusedFiles : public testing::Test
{
protected:
    Workshop workshop;

    void SetUp() override
    {
        SaveThreeTraces(workshop / "a.blk");
        SaveRoof(workshop / "a.str");
        std::string rows;
        for (int row = 0; row < 30'000; ++row) rows += std::to_string(row) + ",1\n";
        workshop.Write("a.csv", rows);
        ASSERT_EQ(workshop.Qor("import a.csv large.blk").exitCode, 0);
    }

    // A pipe that nobody writes to would be waited for.
    Ran Qor(const std::string& arguments) const { return workshop.Shell("timeout 20 \"$QOR\" " + arguments); }

    void ExpectRefused(const std::string& arguments, const std::string& reason = "") const
    {
        const Ran ran = Qor(arguments);
        EXPECT_EQ(ran.exitCode, 1) << arguments;
        EXPECT_THAT(ran.errors, StartsWith("qor: ")) << arguments;
        EXPECT_THAT(ran.errors, EndsWith(reason + "\n")) << arguments;
        EXPECT_EQ(std::count(ran.errors.begin(), ran.errors.end(), '\n'), 1) << arguments << ": " << ran.errors;
        EXPECT_EQ(ran.output, "") << arguments;
    }
};

std::string Quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

TEST_F(RefusedFiles, OnAFullDiskAreNotLeftHalf)
{
    SmallDisk disk("size=512k");
    if (!disk.Mounted()) GTEST_SKIP() << "this system lets nobody mount a disk";
    const auto left = [&] {
        std::ptrdiff_t files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(disk / "")) {
            files += entry.path().filename() != "filler";
        }
        return files;
    };
    for (const std::size_t room : {std::size_t{0}, std::size_t{4096}, std::size_t{65'536}}) {
        disk.FillUpTo(room);
        ExpectRefused("import a.csv " + Quoted(disk / "new.blk"), "No space left on device");
        ExpectRefused("export large.blk " + Quoted(disk / "new.csv"), "No space left on device");
        EXPECT_EQ(left(), 0) << room;
    }
    disk.Clear();
    EXPECT_EQ(Qor("import a.csv " + Quoted(disk / "new.blk")).exitCode, 0);
    EXPECT_EQ(left(), 1);
}

TEST_F(RefusedFiles, OnAReadOnlyDiskAreNotMade)
{
    SmallDisk disk("size=512k");
    if (!disk.Mounted()) GTEST_SKIP() << "this system lets nobody mount a disk";
    WriteBytes(disk / "old.blk", {'o', 'l', 'd'});
    ASSERT_TRUE(disk.MakeReadOnly());

    ExpectRefused("import a.csv " + Quoted(disk / "new.blk"), "Read-only file system");
    ExpectRefused("import --force a.csv " + Quoted(disk / "old.blk"), "Read-only file system");
    ExpectRefused("export a.str " + Quoted(disk / "new.obj"), "Read-only file system");

    EXPECT_EQ(BytesOf(disk / "old.blk").size(), 3U);
}

TEST_F(RefusedFiles, UnderOddNamesAreNeitherReadNorMade)
{
    workshop.Shell("mkdir folder; mkfifo pipe; ln -s loop loop; ln -s missing dangling");
    std::string tooLong;
    while (tooLong.size() < 5000) tooLong += "folder/../";
    for (const std::string& name :
         {std::string("folder"), std::string("pipe"), std::string("loop"), std::string("dangling"),
          std::string("/dev/full"), std::string("/dev/zero"), std::string(300, 'n'), tooLong + "a"}) {
        ExpectRefused("info " + name);
        ExpectRefused("dump " + name);
        ExpectRefused("export " + name + " new.obj");
    }
    for (const std::string& name : {std::string("folder"), std::string("pipe"), std::string("/dev/full"),
                                    std::string("/dev/null"), std::string(300, 'n'), tooLong + "a"}) {
        ExpectRefused("import --force a.csv " + name);
    }
    EXPECT_FALSE(workshop.Has("new.obj"));
}

TEST_F(RefusedFiles, AsStandardOutputFailEveryCommand)
{
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    for (const char* arguments : {"--help", "--version", "info a.blk", "info a.str --format json", "dump a.str",
                                  "dump large.blk --format csv", "import a.csv new.blk --force"}) {
        for (const char* nowhere : {" >/dev/full", " >&-"}) ExpectRefused(std::string(arguments) + nowhere);
    }
}

} // namespace
} // namespace qor::test
