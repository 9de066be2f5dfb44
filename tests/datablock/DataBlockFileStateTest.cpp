// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What a read or a write of a file leaves behind it: what may be accessed, which fields the next save writes, the
// name of the file, and no open handle.
#include "support/FileFields.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace qor::test {
namespace {

class DataBlockFileState : public testing::Test
{
protected:
    std::u16string Put(const Bytes& bytes)
    {
        WriteBytes(folder / "input.blk", bytes);
        return Utf16(folder / "input.blk");
    }

    std::u16string Output() const { return Utf16(folder / "output.blk"); }

    TemporaryFolder folder;
    clsQOR_File component;
};

// Two explicit X values and one trace.
DataBlockFile ExplicitFile()
{
    return SizedFile(1, 2)
        .Field(6, Int16(2))
        .Field(10, Floats({1, 10}))
        .Field(11)
        .Nested(TraceBytes().Field(17, Floats({8, 9})))
        .Field(12);
}

Bytes CutOff(const Bytes& whole) { return Bytes(whole.begin(), whole.end() - 4); } // closing tag and end marker

// ---- access after a read -----------------------------------------------------------------------------------------

TEST_F(DataBlockFileState, AfterAReadExplicitXValuesAndSamplesAreThere)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().Build())), Success);

    float x = 0;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(2, x), Success);
    EXPECT_EQ(x, 10);
}

TEST_F(DataBlockFileState, AfterAFileThatIsCutOffXValuesAreNotThere)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(CutOff(ExplicitFile().Build()))), Failure);
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.DataBlock_XaxisSpacing(), XaxisSpacing_NonUniform) << "it was read";

    float x = 5;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(2, x), Failure);
    EXPECT_EQ(component.ErrorStatus(), XaxisNotAllocated);
}

TEST_F(DataBlockFileState, AfterAFailedOpenTheXValuesBeforeItAreGone)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().Build())), Success);

    ASSERT_EQ(component.InputDataBlockFile(Utf16(folder / "missing.blk")), Failure);

    float x = 5;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(2, x), Failure);
    EXPECT_EQ(component.ErrorStatus(), XaxisNotAllocated);
    EXPECT_EQ(component.WriteDataBlockXaxisValue(1, 5), Failure);
    EXPECT_EQ(component.ErrorStatus(), XaxisNotAllocated);
}

TEST_F(DataBlockFileState, AfterARefusedFileTheXValuesBeforeItAreGone)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().Build())), Success);

    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().Version(13).Build())), Failure);

    component.ErrorStatus();
    float x = 5;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(2, x), Failure);
    EXPECT_EQ(component.ErrorStatus(), XaxisNotAllocated);
}

TEST_F(DataBlockFileState, AMissingEndMarkerIsNoFailureAndLeavesXValuesThere)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().WithoutEndMarker().Build())), Success);
    component.ErrorStatus();

    float x = 0;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(2, x), Success);
    EXPECT_EQ(x, 10);
}

// ---- fields of a document that came from a file --------------------------------------------------------------------

bool HasFileFields(const Bytes& file)
{
    const FileRecord record = FileFields::Of(file);
    const bool has = record.Has(67);
    for (const int tag : {68, 72, 93}) EXPECT_EQ(record.Has(tag), has) << tag;
    return has;
}

// No file may grow beyond that many bytes, as on a full disk.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        static_cast<void>(std::signal(SIGXFSZ, handler_));
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    void (*handler_)(int);
    rlimit before_{};
};

TEST_F(DataBlockFileState, AnOutputThatRunsOutOfDiskIsAFailureWithoutACode)
{
    component.DataBlock_NumberOfTraces(1);
    component.DataBlock_NumberOfSamples(100000);
    for (const rlim_t bytes : {0, 1, 50, 51, 300, 4096, 399999}) {
        const SmallDisk disk(bytes);
        EXPECT_EQ(component.OutputDataBlockFile(Output()), Failure) << bytes;
        EXPECT_EQ(component.ErrorStatus(), NoError) << bytes;
        EXPECT_EQ(component.GetLastErrorString(), u"") << bytes;
        EXPECT_LE(std::filesystem::file_size(folder / "output.blk"), bytes);
    }
    EXPECT_EQ(component.DataBlock_NumberOfSamples(), 100000) << "the document is as it was";
}

TEST_F(DataBlockFileState, AnOutputThatRunsOutOfDiskDropsTheReferenceValues)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().Build())), Success);
    {
        const SmallDisk disk(100);
        ASSERT_EQ(component.OutputDataBlockFile(Output()), Failure);
    }

    ASSERT_EQ(component.OutputDataBlockFile(Output()), Success);

    EXPECT_FALSE(HasFileFields(BytesOf(folder / "output.blk")));
}

TEST_F(DataBlockFileState, AnOutputOfTracesWithoutSamplesDropsTheReferenceValues)
{
    ASSERT_EQ(component.InputDataBlockFile(Put(ExplicitFile().Build())), Success);
    component.DataBlock_NumberOfSamples(0);
    ASSERT_EQ(component.OutputDataBlockFile(Output()), Failure);
    ASSERT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_TRUE(HasFileFields(BytesOf(folder / "output.blk"))) << "that file still has them";
    component.DataBlock_NumberOfSamples(2);

    ASSERT_EQ(component.OutputDataBlockFile(Output()), Success);

    EXPECT_FALSE(HasFileFields(BytesOf(folder / "output.blk")));
}

// ---- names -------------------------------------------------------------------------------------------------------

// The names that a folder holds, in no order.
std::vector<std::string> Names(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

class CurrentFolder
{
public:
    explicit CurrentFolder(const std::filesystem::path& folder) : before_(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~CurrentFolder()
    {
        std::error_code error;
        std::filesystem::current_path(before_, error);
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::filesystem::path before_;
};

TEST_F(DataBlockFileState, OutputKeepsTheBlanksOfItsPath)
{
    const CurrentFolder current(folder / "");

    EXPECT_EQ(component.OutputDataBlockFile(u" out .blk "), Success);

    EXPECT_EQ(Names(folder / ""), std::vector<std::string>{" out .blk "});
}

TEST_F(DataBlockFileState, OutputToAPathOfBlanksMakesThatFile)
{
    const CurrentFolder current(folder / "");

    EXPECT_EQ(component.OutputDataBlockFile(u"   "), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(Names(folder / ""), std::vector<std::string>{"   "});
}

TEST_F(DataBlockFileState, InputDoesNotFindAFileWhoseNameIsOnlyBlanks)
{
    const CurrentFolder current(folder / "");
    WriteBytes("   ", ExplicitFile().Build());

    EXPECT_EQ(component.InputDataBlockFile(u"   "), Failure);

    EXPECT_EQ(component.ErrorStatus(), NoError);
}

// ---- handles -----------------------------------------------------------------------------------------------------

std::size_t OpenHandles() { return Names("/proc/self/fd").size(); }

TEST_F(DataBlockFileState, NoReadLeavesItsFileOpen)
{
    const std::size_t before = OpenHandles();
    std::filesystem::create_directory(folder / "directory");
    const Bytes good = ExplicitFile().Build();

    for (const Bytes& bytes : {good, CutOff(good), ExplicitFile().Version(13).Build(), Ascii("A text file"), Bytes{},
                               SizedFile(1, 1).Build(), ExplicitFile().WithoutEndMarker().Build()}) {
        component.InputDataBlockFile(Put(bytes));
        EXPECT_EQ(OpenHandles(), before) << bytes.size();
    }
    for (const char* const name : {"missing.blk", "directory"}) {
        EXPECT_EQ(component.InputDataBlockFile(Utf16(folder / name)), Failure);
        EXPECT_EQ(OpenHandles(), before) << name;
    }
}

TEST_F(DataBlockFileState, NoWriteLeavesItsFileOpen)
{
    const std::size_t before = OpenHandles();
    std::filesystem::create_directory(folder / "directory");

    EXPECT_EQ(component.OutputDataBlockFile(Output()), Success);
    EXPECT_EQ(OpenHandles(), before);
    {
        const SmallDisk disk(100);
        EXPECT_EQ(component.OutputDataBlockFile(Output()), Failure);
        EXPECT_EQ(OpenHandles(), before) << "no space";
    }
    component.DataBlock_NumberOfTraces(1);
    EXPECT_EQ(component.OutputDataBlockFile(Output()), Failure);
    EXPECT_EQ(OpenHandles(), before) << "no samples";
    for (const char* const name : {"directory", "missing/output.blk"}) {
        EXPECT_EQ(component.OutputDataBlockFile(Utf16(folder / name)), Failure);
        EXPECT_EQ(OpenHandles(), before) << name;
    }
}

} // namespace
} // namespace qor::test
