// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The two file members of the component: paths, what a read or a write does to the component's state, and what
// they report.
#include "support/FileFields.h"
#include "support/SeedFiles.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

namespace qor::test {
namespace {

class DataBlockFiles : public testing::Test
{
protected:
    // A file of these bytes, and its path as the interface takes it.
    std::u16string Put(const Bytes& bytes)
    {
        WriteBytes(folder / "input.blk", bytes);
        return Utf16(folder / "input.blk");
    }

    TemporaryFolder folder;
    clsQOR_File component;
};

Bytes ComplexFile()
{
    return SizedFile(1, 2, 2)
        .Field(2, Text(u"complex"))
        .Field(6, Int16(2))
        .Field(10, Floats({1, 10}))
        .Field(11)
        .Nested(TraceBytes().Field(17, Floats({3, 4, 0, 1})))
        .Field(12)
        .Build();
}

Bytes RealFile() { return SizedFile(1, 2).Field(11).Nested(TraceBytes().Field(17, Floats({8, 9}))).Field(12).Build(); }

// ---- InputDataBlockFile ------------------------------------------------------------------------------------------

TEST_F(DataBlockFiles, InputReadsAFile)
{
    EXPECT_EQ(component.InputDataBlockFile(Put(ComplexFile())), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(component.DataBlock_Label(), u"complex");
    float real = 0;
    float imaginary = 0;
    EXPECT_EQ(component.ReadTraceSampleValue(1, 1, real, imaginary), Success);
    EXPECT_EQ(real, 3);
    EXPECT_EQ(imaginary, 4);
}

TEST_F(DataBlockFiles, InputTakesThePathWithoutTheBlanksAroundIt)
{
    EXPECT_EQ(component.InputDataBlockFile(u"  " + Put(ComplexFile()) + u" "), Success);
    EXPECT_EQ(component.DataBlock_Label(), u"complex");
}

TEST_F(DataBlockFiles, InputReplacesTheEarlierDocument)
{
    component.DataBlock_Notes(u"earlier");
    component.DataBlock_NumberOfTraces(3);

    EXPECT_EQ(component.InputDataBlockFile(Put(RealFile())), Success);

    EXPECT_EQ(component.DataBlock_Notes(), u"Data Block history");
    EXPECT_EQ(component.DataBlock_NumberOfTraces(), 1);
}

TEST_F(DataBlockFiles, InputOfAnEmptyPathChangesNothing)
{
    component.DataBlock_Label(u"stays");

    EXPECT_EQ(component.InputDataBlockFile(u""), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(component.DataBlock_Label(), u"stays");
}

TEST_F(DataBlockFiles, InputOfAFileThatCannotBeOpenedLeavesAnEmptyDocumentAndNoCode)
{
    std::filesystem::create_directory(folder / "directory");
    for (const std::u16string& path :
         {std::u16string(u"   "), Utf16(folder / "missing.blk"), Utf16(folder / "directory")}) {
        component.DataBlock_Label(u"goes");
        component.DataBlock_NumberOfTraces(2);
        EXPECT_EQ(component.InputDataBlockFile(path), Failure);
        EXPECT_EQ(component.ErrorStatus(), NoError);
        EXPECT_EQ(component.GetLastErrorString(), u"");
        EXPECT_EQ(component.DataBlock_Label(), u"");
        EXPECT_EQ(component.DataBlock_NumberOfTraces(), 0);
    }
}

TEST_F(DataBlockFiles, InputNeverCreatesAFile)
{
    component.InputDataBlockFile(Utf16(folder / "missing.blk"));

    EXPECT_FALSE(std::filesystem::exists(folder / "missing.blk"));
}

TEST_F(DataBlockFiles, InputReportsWhatIsWrongInAFile)
{
    EXPECT_EQ(component.InputDataBlockFile(Put(SizedFile(0, 5).Version(13).Build())), Failure);

    EXPECT_EQ(component.GetLastErrorString(), u"Error (9): Output file read error");
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
}

TEST_F(DataBlockFiles, InputReportsAMissingEndMarkerBesideSuccess)
{
    EXPECT_EQ(component.InputDataBlockFile(Put(SizedFile(0, 5).WithoutEndMarker().Build())), Success);

    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.DataBlock_NumberOfSamples(), 5);
}

TEST_F(DataBlockFiles, AFailedInputLeavesWhatWasReadBefore)
{
    component.DataBlock_XaxisUnits(u"earlier");

    const Bytes bytes = DataBlockFile().Field(2, Text(u"read")).Field(4, Int32(1)).Field(13, Text(u"not read")).Build();
    EXPECT_EQ(component.InputDataBlockFile(Put(bytes)), Failure);

    EXPECT_EQ(component.DataBlock_Label(), u"read");
    EXPECT_EQ(component.DataBlock_XaxisUnits(), u"");
}

TEST_F(DataBlockFiles, InputOfAComplexFileShowsItAsRealAndImaginaryParts)
{
    component.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);

    component.InputDataBlockFile(Put(ComplexFile()));

    EXPECT_EQ(component.DataBlock_TraceDataFormat(), DataFormat_RealImaginary);
    float real = 0;
    float imaginary = 0;
    component.ReadTraceSampleValue(1, 1, real, imaginary);
    EXPECT_EQ(real, 3) << "no magnitude";
}

TEST_F(DataBlockFiles, InputOfARealFileShowsItAsReal)
{
    component.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);

    component.InputDataBlockFile(Put(RealFile()));

    EXPECT_EQ(component.DataBlock_TraceDataFormat(), DataFormat_Real);
}

TEST_F(DataBlockFiles, AFailedInputLeavesTheViewAsItWas)
{
    component.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);

    component.InputDataBlockFile(Put(DataBlockFile().Field(20, Int16(2)).Field(4, Int32(1)).Build()));

    EXPECT_EQ(component.DataBlock_TraceDataFormat(), DataFormat_MgnitudePhase);
}

TEST_F(DataBlockFiles, ExplicitXValuesCanBeReadAfterInput)
{
    component.InputDataBlockFile(Put(ComplexFile()));

    float x = 0;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(2, x), Success);
    EXPECT_EQ(x, 10);
}

TEST_F(DataBlockFiles, UniformXValuesCannotBeReadAfterInput)
{
    component.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    component.DataBlock_NumberOfSamples(2);

    component.InputDataBlockFile(Put(RealFile()));

    float x = 0;
    EXPECT_EQ(component.ReadDataBlockXaxisValue(1, x), Failure);
    EXPECT_EQ(component.ErrorStatus(), XaxisNotAllocated);
}

TEST_F(DataBlockFiles, InputReadsEveryVersionUpTo12)
{
    const Bytes old = DataBlockFile().Version(8).Field(2, OldText("old")).Field(4, Int32(2)).Build();

    EXPECT_EQ(component.InputDataBlockFile(Put(old)), Success);
    EXPECT_EQ(component.DataBlock_Label(), u"old");
}

// ---- OutputDataBlockFile -----------------------------------------------------------------------------------------

TEST_F(DataBlockFiles, OutputWritesAFileThatInputReads)
{
    component.DataBlock_Label(u"written");
    component.DataBlock_NumberOfTraces(1);
    component.DataBlock_NumberOfSamples(2);
    component.WriteTraceSampleValue(1, 2, 5.5F, 0);
    const std::u16string path = Utf16(folder / "output.blk");

    EXPECT_EQ(component.OutputDataBlockFile(path), Success);

    clsQOR_File reader; // empties the thread's document
    EXPECT_EQ(reader.InputDataBlockFile(path), Success);
    EXPECT_EQ(reader.ErrorStatus(), NoError);
    EXPECT_EQ(reader.DataBlock_Label(), u"written");
    float real = 0;
    float imaginary = 0;
    reader.ReadTraceSampleValue(1, 2, real, imaginary);
    EXPECT_EQ(real, 5.5F);
}

TEST_F(DataBlockFiles, OutputOfAnEmptyDocumentIsAFrameOnly)
{
    EXPECT_EQ(component.OutputDataBlockFile(Utf16(folder / "output.blk")), Success);

    const Bytes bytes = BytesOf(folder / "output.blk");
    EXPECT_EQ(bytes.size(), 51u + 6 + 356 + 2) << "preamble, record, end marker";
    EXPECT_EQ(FileFields::Of(bytes).type, DataBlockType);
}

TEST_F(DataBlockFiles, OutputReplacesALongerFileCompletely)
{
    const std::u16string path = Utf16(folder / "output.blk");
    component.DataBlock_NumberOfTraces(2);
    component.DataBlock_NumberOfSamples(1000);
    ASSERT_EQ(component.OutputDataBlockFile(path), Success);
    component.DataBlock_NumberOfTraces(0);
    component.DataBlock_NumberOfSamples(0);

    EXPECT_EQ(component.OutputDataBlockFile(path), Success);

    EXPECT_EQ(BytesOf(folder / "output.blk").size(), 51u + 6 + 356 + 2);
}

TEST_F(DataBlockFiles, OutputThatCannotOpenItsFileFailsWithoutACode)
{
    std::filesystem::create_directory(folder / "directory");
    for (const std::u16string& path :
         {std::u16string(), Utf16(folder / "missing" / "output.blk"), Utf16(folder / "directory")}) {
        EXPECT_EQ(component.OutputDataBlockFile(path), Failure);
        EXPECT_EQ(component.ErrorStatus(), NoError);
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder / "directory"));
}

TEST_F(DataBlockFiles, OutputReportsTracesWithoutSamples)
{
    component.DataBlock_NumberOfTraces(1);

    EXPECT_EQ(component.OutputDataBlockFile(Utf16(folder / "output.blk")), Failure);

    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_TRUE(FileFields::Of(BytesOf(folder / "output.blk")).Has(11)) << "the frame is whole";
}

bool HasReferenceValues(const Bytes& file)
{
    const FileRecord record = FileFields::Of(file);
    const bool has = record.Has(67);
    for (const int tag : {68, 72, 93}) EXPECT_EQ(record.Has(tag), has) << tag;
    return has;
}

TEST_F(DataBlockFiles, TheFirstOutputAfterAnInputHoldsTheReferenceValuesAndTheSecondDoesNot)
{
    const std::u16string path = Utf16(folder / "output.blk");
    component.InputDataBlockFile(Put(RealFile()));

    component.OutputDataBlockFile(path);
    EXPECT_TRUE(HasReferenceValues(BytesOf(folder / "output.blk")));

    component.OutputDataBlockFile(path);
    EXPECT_FALSE(HasReferenceValues(BytesOf(folder / "output.blk")));
}

TEST_F(DataBlockFiles, AnOutputThatCannotOpenItsFileKeepsTheReferenceValuesForTheNext)
{
    component.InputDataBlockFile(Put(RealFile()));

    component.OutputDataBlockFile(u"");
    component.OutputDataBlockFile(Utf16(folder / "output.blk"));

    EXPECT_TRUE(HasReferenceValues(BytesOf(folder / "output.blk")));
}

TEST_F(DataBlockFiles, EmptyingTheDocumentDropsTheReferenceValues)
{
    component.InputDataBlockFile(Put(RealFile()));

    component.InitializeDataBlockStorage();
    component.OutputDataBlockFile(Utf16(folder / "output.blk"));

    EXPECT_FALSE(HasReferenceValues(BytesOf(folder / "output.blk")));
}

TEST_F(DataBlockFiles, AFailedInputBringsNoReferenceValues)
{
    component.InputDataBlockFile(Put(DataBlockFile().Field(67, Int32(1)).Field(4, Int32(1)).Build()));

    component.OutputDataBlockFile(Utf16(folder / "output.blk"));

    EXPECT_FALSE(HasReferenceValues(BytesOf(folder / "output.blk")));
}

TEST_F(DataBlockFiles, KeptValuesGoFromFileToFile)
{
    const Bytes trace = FullTrace(Floats({1, 2, 3, 4})).Build();
    DataBlockFile file = SizedFile(1, 2, 2);
    for (const int tag : {23, 14, 15, 48, 95}) file.Field(tag, SomeValue(4));
    for (const int tag : {19, 22, 36, 58, 73, 92, 97}) file.Field(tag, SomeValue(2));
    component.InputDataBlockFile(
        Put(file.Field(67, Int32(1)).Field(93, Int32(2)).Field(11).Raw(trace).Field(12).Build()));

    ASSERT_EQ(component.OutputDataBlockFile(Utf16(folder / "output.blk")), Success);

    const FileRecord record = FileFields::Of(BytesOf(folder / "output.blk"));
    for (const int tag : {23, 14, 15, 48, 95}) EXPECT_EQ(record.Value(tag), SomeValue(4)) << tag;
    for (const int tag : {19, 22, 36, 58, 73, 92, 97}) EXPECT_EQ(record.Value(tag), SomeValue(2)) << tag;
    EXPECT_EQ(record.Value(72), Int32(1));
    EXPECT_EQ(record.Value(68), Int32(2));
    const FileRecord written = record.Records(11).at(0);
    EXPECT_EQ(written.Value(25), Int32(25));
    EXPECT_EQ(written.Value(33), Int32(33));
    EXPECT_EQ(written.Value(41), Floats({1, 2, 3, 4}));
    EXPECT_EQ(written.Value(42), Text(u"kept"));
    EXPECT_EQ(written.Value(45), Int16(45));
    EXPECT_FALSE(written.Has(27)) << "sub-records are not kept";
}

} // namespace
} // namespace qor::test
