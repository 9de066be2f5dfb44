// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Shows and dumps, in all forms, every beginning of a good file and the file with each of its bytes damaged. What is
// refused is refused in words; nothing else may come out.
#include "support/MemoryFile.h"
#include "tools/SampleDocuments.h"
#include "tools/dump/DumpCommand.h"
#include "tools/info/InfoReport.h"

namespace {

using namespace qor::test;
using namespace qor::tool;

// How many files were shown, and how many refused.
struct Tally {
    int shown = 0;
    int refused = 0;

    void Count(const auto& command)
    {
        try {
            command();
            ++shown;
        } catch (const ToolError& error) {
            EXPECT_EQ(error.Code(), FileFailed);
            ++refused;
        }
    }
};

class DamagedFiles : public testing::Test
{
protected:
    DamagedFiles() { testing::internal::CaptureStderr(); } // of warnings there are many
    ~DamagedFiles() override { testing::internal::GetCapturedStderr(); }

    std::string Path() const { return (folder_ / "file").string(); }

    Tally ShowAll(const std::vector<Bytes>& contents)
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> nowhere(std::fopen("/dev/null", "w"), &std::fclose);
        Output output(nowhere.get());
        Tally tally;
        for (const Bytes& content : contents) {
            WriteBytes(Path(), content);
            for (const char* format : {"table", "csv", "json"}) {
                tally.Count([&] {
                    DumpOptions options;
                    options.file = Path();
                    options.format = format;
                    RunDump(options, output);
                });
            }
            tally.Count([&] {
                const InfoReport report = Inspect(Path(), true);
                PrintInfo(output, report);
                output.Write(JsonText(InfoAsJson(report), 2));
            });
        }
        return tally;
    }
    Tally ShowEveryPrefix()
    {
        const Bytes whole = BytesOf(Path());
        std::vector<Bytes> contents;
        for (std::size_t size = 0; size < whole.size(); ++size)
            contents.emplace_back(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        return ShowAll(contents);
    }
    Tally ShowEveryDamagedByte()
    {
        const Bytes whole = BytesOf(Path());
        std::vector<Bytes> contents(whole.size(), whole);
        for (std::size_t place = 0; place < contents.size(); ++place) {
            contents[place][place] = static_cast<std::uint8_t>(~whole[place]);
        }
        return ShowAll(contents);
    }

private:
    TemporaryFolder folder_;
};

TEST_F(DamagedFiles, OfADataBlockAreSurvived)
{
    SaveThreeTraces(Path());
    const Tally prefixes = ShowEveryPrefix();
    EXPECT_EQ(prefixes.shown, 4 * 2); // those that only lack their end marker
    SaveThreeTraces(Path());
    const Tally damaged = ShowEveryDamagedByte();
    EXPECT_GT(damaged.shown, damaged.refused);
    EXPECT_GT(damaged.refused, 0);
}

TEST_F(DamagedFiles, OfAStructureAreSurvived)
{
    SaveRoof(Path());
    const Tally prefixes = ShowEveryPrefix();
    EXPECT_GT(prefixes.refused, prefixes.shown);
    SaveRoof(Path());
    const Tally damaged = ShowEveryDamagedByte();
    EXPECT_GT(damaged.shown, damaged.refused);
    EXPECT_GT(damaged.refused, 0);
}

TEST_F(DamagedFiles, OfAShapeTableAreSurvived)
{
    SaveModes(Path());
    const Tally prefixes = ShowEveryPrefix();
    EXPECT_EQ(prefixes.shown, 0);
    SaveModes(Path());
    const Tally damaged = ShowEveryDamagedByte();
    EXPECT_GT(damaged.shown, damaged.refused);
    EXPECT_GT(damaged.refused, 0);
}

} // namespace
