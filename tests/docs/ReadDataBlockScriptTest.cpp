// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Runs examples/read_datablock.py, a reader written from the pages alone, on files that the library wrote and on
// the pages' own examples. Where it reads them, the pages suffice.
#include "datablock/Save_DataBlock.h"
#include "docs/Page.h"
#include "shapetable/ShapeTableLayout.h"
#include "structure/StructureLayout.h"
#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sys/wait.h>

namespace qor::test {
namespace {

struct ScriptRun {
    int exitStatus = -1;
    std::string output; // both streams
};

ScriptRun RunReader(const std::filesystem::path& path)
{
    const std::string command =
        "'" QOR_PYTHON "' '" QOR_SOURCE_DIR "/examples/read_datablock.py' '" + path.string() + "' 2>&1";
    ScriptRun run;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return run;
    std::array<char, 4096> piece;
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe)) {
        run.output.append(piece.data(), count);
    }
    const int status = pclose(pipe);
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

ScriptRun RunReaderOn(const Bytes& bytes)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "file", bytes);
    return RunReader(folder / "file");
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) text += line + '\n';
    return text;
}

TEST(ReadDataBlockScript, PrintsTheExampleAsThePageShowsIt)
{
    const Page page("datablock.md");

    const ScriptRun run = RunReaderOn(page.HexBlock("hex example"));

    EXPECT_EQ(run.output, Joined(page.Block("text example")));
    EXPECT_EQ(run.exitStatus, 0);
}

TEST(ReadDataBlockScript, PrintsTheOlderExampleAsThePageShowsIt)
{
    const Page page("datablock.md");

    const ScriptRun run = RunReaderOn(page.HexBlock("hex older"));

    EXPECT_EQ(run.output, Joined(page.Block("text older")));
    EXPECT_EQ(run.exitStatus, 0);
}

TEST(ReadDataBlockScript, PrintsAFileOfTheComponentWithAnExplicitXaxis)
{
    const TemporaryFolder folder;
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.DataBlock_NumberOfSamples(3);
    file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);
    for (std::int32_t i = 1; i <= 3; ++i) {
        file.WriteDataBlockXaxisValue(i, 31.5F * static_cast<float>(i));
        file.WriteTraceSampleValue(1, i, -0.5F * static_cast<float>(i), 0.0F);
    }
    file.Trace_Label(1, u"\u00C4 \U0001F50A");
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(folder / "octave")), Success);

    const ScriptRun run = RunReader(folder / "octave");

    EXPECT_EQ(run.output, "Data Block \"\", version 12\n"
                          "notes: Data Block history\n"
                          "X axis: 31.5 63 94.5\n"
                          "trace 1 \"\u00C4 \U0001F50A\", type 0\n"
                          "    -0.5 -1 -1.5\n");
    EXPECT_EQ(run.exitStatus, 0);
}

TEST(ReadDataBlockScript, GetsPastEverythingThatAWriterMayPut)
{
    DataBlock block;
    block.NumberOfSamples = 2;
    block.NumberOfTraces = 1;
    block.DataBlockFromFile = true;
    block.KeptText = u"kept";
    block.RPM = 60;
    block.ExponentialWindowDampingInHz = 1;
    ASSERT_TRUE(block.AuxiliaryTrace.emplace().AllocateZeros(block.Memory, 2));
    ASSERT_TRUE(block.AuxiliaryTraces.emplace_back().AllocateZeros(block.Memory, 2));
    ASSERT_TRUE(block.AuxiliaryTraces.emplace_back().AllocateZeros(block.Memory, 2));
    block.Traces.Resize(1);
    Trace& trace = block.Traces.Edit(1);
    trace.MeasurementType = 4;
    trace.SubRecords.resize(2);
    trace.KeptText1 = u"one";
    trace.KeptText2 = u"two";
    ASSERT_TRUE(trace.SecondComplexSamples.AllocateZeros(block.Memory, 2));
    MemoryFile memory;
    ASSERT_EQ(SaveDataBlock(memory, block).status, Success);

    const ScriptRun run = RunReaderOn(memory.Content());

    EXPECT_EQ(run.output, "Data Block \"\", version 12\n"
                          "notes: Data Block history\n"
                          "X axis: 0 0\n"
                          "RPM: 60\n"
                          "trace 1 \"\", type 4\n"
                          "    0 0\n");
}

TEST(ReadDataBlockScript, ReadsAFileWithoutItsEndMarker)
{
    const Page page("datablock.md");
    Bytes bytes = page.HexBlock("hex example");
    bytes.resize(bytes.size() - 2);

    const ScriptRun run = RunReaderOn(bytes);

    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_NE(run.output.find("the end marker is missing"), std::string::npos);
    EXPECT_NE(run.output.find("trace 2"), std::string::npos);
}

TEST(ReadDataBlockScript, RefusesTheOtherKindsOfDocuments)
{
    for (const std::string_view line : {Structure_Identification, ShapeTable_Identification}) {
        const ScriptRun run = RunReaderOn(DataBlockFile().FirstLine(line).Build());
        EXPECT_EQ(run.exitStatus, 1);
        EXPECT_TRUE(run.output.ends_with("/file: a document of another kind\n")) << run.output;
    }
}

TEST(ReadDataBlockScript, FailsOnAFileThatEndsInsideItsRecord)
{
    const Bytes whole = Page("datablock.md").HexBlock("hex example");
    // Each run starts an interpreter, so a spread of lengths stands for all.
    for (const std::size_t size : {std::size_t{54}, std::size_t{66}, std::size_t{400}, whole.size() - 3}) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const ScriptRun run = RunReaderOn(cut);
        EXPECT_EQ(run.exitStatus, 1) << "size " << size;
        EXPECT_TRUE(run.output.ends_with("/file: the file ends too early\n")) << run.output;
    }
}

TEST(ReadDataBlockScript, RefusesTheSmallestFileAsTheLibraryDoes)
{
    const ScriptRun run = RunReaderOn(Page("datablock.md").HexBlock("hex smallest"));

    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.output.ends_with("/file: a size that no reader takes\n")) << run.output;
}

// Whether the script, and the library, read the file.
void ExpectRefusedByBoth(const Bytes& bytes, const std::string& message)
{
    MemoryFile memory(bytes);
    DataBlock block;
    EXPECT_EQ(LoadDataBlock(memory, block).status, Failure) << message;
    const ScriptRun run = RunReaderOn(bytes);
    EXPECT_EQ(run.exitStatus, 1) << message;
    EXPECT_TRUE(run.output.ends_with("/file: " + message + '\n')) << run.output;
}

TEST(ReadDataBlockScript, FailsOnArraysWhoseNumberOfSamplesIsBelowZero)
{
    const auto file = [](const Bytes& inTrace, const Bytes& behindTheList) {
        return DataBlockFile()
            .Field(3, Int16(1))
            .Field(11)
            .Nested(TraceBytes().Field(4, Int32(-2)).Raw(inTrace))
            .Field(12)
            .Raw(behindTheList)
            .Build();
    };
    ExpectRefusedByBoth(file(Int16(17), {}), "a size that no reader takes");
    ExpectRefusedByBoth(file(Int16(41), {}), "a size that no reader takes");
    for (const Bytes& field : {Int16(10), Int16(65), Int16(99) + Int16(0), Int16(99) + Int16(-3)}) {
        ExpectRefusedByBoth(file({}, field), "a size that no reader takes");
    }
    EXPECT_EQ(RunReaderOn(file({}, {})).exitStatus, 0) << "no array goes by it";
}

TEST(ReadDataBlockScript, FailsOnANegativeCountOfAuxiliaryTraces)
{
    ExpectRefusedByBoth(SizedFile(0, 2).Field(99, Int16(-3)).Build(), "a size that no reader takes");
    ExpectRefusedByBoth(DataBlockFile().Field(99, Int16(-1)).Build(), "a size that no reader takes");
}

TEST(ReadDataBlockScript, TakesHalfAVersionForAWholeOne)
{
    const Bytes whole = DataBlockFile().Build();
    const Bytes firstLine(whole.begin(), whole.begin() + 35);

    ExpectRefusedByBoth(firstLine + Hex("0D"), "version 13 is too new");
    EXPECT_EQ(RunReaderOn(firstLine + Hex("0C")).exitStatus, 0);
}

} // namespace
} // namespace qor::test
