// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What all commands share: help, versions, exit codes, standard output.
#include "tools/Workshop.h"

#include <gmock/gmock.h>

namespace {

using namespace qor::test;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

TEST(CommandLine, WithoutACommandShowsHelp)
{
    const Ran ran = Workshop().Qor("");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_THAT(ran.output, HasSubstr("Usage: qor"));
    EXPECT_EQ(ran.errors, "");
}

TEST(CommandLine, EveryCommandHasHelpThatTellsTheExitCodes)
{
    for (const char* command : {"", "info", "dump", "export", "import"}) {
        const Ran ran = Workshop().Qor(std::string(command) + " --help");
        EXPECT_EQ(ran.exitCode, 0) << command;
        EXPECT_THAT(ran.output, HasSubstr("Usage: qor " + std::string(command))) << command;
        EXPECT_THAT(ran.output,
                    HasSubstr("0 done; 1 a file could not be read or written, or is damaged; 2 wrong usage"));
    }
}

TEST(CommandLine, EveryCommandTellsTheVersion)
{
    for (const char* command : {"", "info", "dump", "export", "import"}) {
        const Ran ran = Workshop().Qor(std::string(command) + " --version");
        EXPECT_EQ(ran.exitCode, 0) << command;
        EXPECT_THAT(ran.output, MatchesRegex("qor [0-9]+\\.[0-9]+\\.[0-9]+\n")) << command;
    }
}

TEST(CommandLine, WrongUsageIsOneLineAndExitCode2)
{
    for (const char* arguments :
         {"bogus", "--bogus", "info", "info a --format xml", "dump", "dump a b", "dump a --trace x", "dump a --shape",
          "dump a --elements edges", "export a", "export a b c", "import a", "import a b --type Foo",
          "import a b --real --complex", "import a b --delimiter xy", "import a b --delimiter , --decimal-comma",
          "import a b --missing few"}) {
        const Ran ran = Workshop().Qor(arguments);
        EXPECT_EQ(ran.exitCode, 2) << arguments;
        EXPECT_THAT(ran.errors, MatchesRegex("qor: [^\n]+\n")) << arguments;
        EXPECT_EQ(ran.output, "") << arguments;
    }
}

TEST(StandardOutput, ThatIsFullIsReported)
{
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Qor("dump a.blk >/dev/full");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, StartsWith("qor: standard output: "));
}

TEST(StandardOutput, ThatIsClosedIsReported)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Qor("info a.blk >&-");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, StartsWith("qor: standard output: "));
}

TEST(StandardOutput, ThatIsClosedNeverEndsUpInTheDocument)
{
    const Workshop workshop;
    workshop.Write("a.csv", "0,1\n1,2\n");
    ASSERT_EQ(workshop.Qor("import a.csv a.blk").exitCode, 0);

    workshop.Qor("import a.csv b.blk --label a >&- 2>&-");

    EXPECT_EQ(workshop.Read("b.blk"), workshop.Read("a.blk"));
}

TEST(StandardOutput, ThatItsReaderClosesEndsTheCommandQuietly)
{
    const Workshop workshop;
    std::string rows;
    for (int row = 0; row < 100000; ++row) rows += std::to_string(row) + ",1\n";
    workshop.Write("a.csv", rows);
    ASSERT_EQ(workshop.Qor("import a.csv a.blk").exitCode, 0);

    const Ran ran = workshop.Shell("{ \"$QOR\" dump a.blk; echo $? >code; } | head -n 1");

    EXPECT_EQ(ran.output, "    X  Trace 1\n");
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(workshop.Read("code"), "0\n");
}

} // namespace
