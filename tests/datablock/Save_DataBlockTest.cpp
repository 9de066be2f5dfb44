// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The writer of Data Block files: what is written when, and what a failure leaves behind.
#include "datablock/Saving.h"
#include "support/WatchedFile.h"

namespace qor::test {
namespace {

// ---- what is written when ------------------------------------------------------------------------------------

TEST(Save_DataBlockRecord, AnEmptyDocumentHasNeitherTraceListNorXValues)
{
    const FileRecord record = SavedFields(DataBlock());

    for (const int tag : {10, 11, 12}) EXPECT_FALSE(record.Has(tag)) << tag;
}

TEST(Save_DataBlockRecord, KeptValuesHaveTheDefaultsOfANewDocument)
{
    DataBlock block;
    block.KeptText = u"T";
    block.DataBlockFromFile = true;
    const FileRecord record = SavedFields(block);

    std::map<int, std::int64_t> defaults = {
        {28, 1211},     {29, 4},        {32, 1317}, {36, 1},    {37, 1},        {38, 1},        {39, 1211},
        {40, 4},        {41, -1},       {42, -1},   {43, -1},   {44, -1},       {45, -1},       {46, -1},
        {14, 0xFFFFFF}, {15, 0xFFFFFF}, {16, 0xFF}, {48, 0xFF}, {17, 0xFF0000}, {18, 0xE0E0E0}, {51, 1},
        {52, 1},        {53, -1},       {54, 1},    {55, 1},    {56, 1}};
    for (const int zero : {19, 22, 23, 24, 25, 26, 27, 49, 50, 57, 58, 60, 61, 62, 63, 64, 73, 74, 75, 94, 95, 96, 97})
        defaults[zero] = 0;
    for (int zero = 77; zero <= 92; ++zero) defaults[zero] = 0;
    for (const auto& [tag, value] : defaults) EXPECT_EQ(NumberIn(record.Value(tag)), value) << "tag " << tag;
    EXPECT_EQ(record.Value(30), Float(20));
    EXPECT_EQ(record.Value(67), Float(2e-5F));
    EXPECT_EQ(record.Value(72), Float(2e-5F));
    EXPECT_EQ(record.Value(68), Float(1e-12F));
    EXPECT_EQ(record.Value(93), Float(1e-12F));
}

TEST(Save_DataBlockRecord, UniformSpacingWritesStartAndIncrementAndNoXValues)
{
    DataBlock block;
    SetSizes(block, 1, 2);
    block.XaxisStart = 1.5F;
    block.XaxisIncrement = 0.5F;
    Fill(block, block.Xaxis, {1, 2}); // as a damaged file may leave it

    const FileRecord record = SavedFields(block);

    EXPECT_EQ(record.Value(7), Float(1.5F));
    EXPECT_EQ(record.Value(8), Float(0.5F));
    EXPECT_FALSE(record.Has(10));
}

TEST(Save_DataBlockRecord, EveryOtherSpacingWritesXValuesAndNoStart)
{
    for (const int spacing : {0, 2, 3, 99}) {
        DataBlock block;
        SetSizes(block, 1, 2);
        block.XaxisSpacing = static_cast<std::int16_t>(spacing);
        Fill(block, block.Xaxis, {1, 10});

        const FileRecord record = SavedFields(block);

        EXPECT_EQ(record.Value(10), Floats({1, 10})) << spacing;
        EXPECT_FALSE(record.Has(7) || record.Has(8)) << spacing;
    }
}

TEST(Save_DataBlockRecord, WithoutSamplesThereAreNoXValuesToWrite)
{
    DataBlock block;
    block.XaxisSpacing = XaxisSpacing_NonUniform;

    const FileRecord record = SavedFields(block);

    EXPECT_FALSE(record.Has(7) || record.Has(8) || record.Has(10));
}

TEST(Save_DataBlockRecord, ABlankLabelIsNotWritten)
{
    DataBlock block;
    block.Label = u"    ";

    EXPECT_FALSE(SavedFields(block).Has(2));
}

TEST(Save_DataBlockRecord, TextsAreWrittenWithoutTheBlanksAroundThem)
{
    DataBlock block;
    block.Label = u"  a label ";
    block.XaxisUnits = u" Hz";
    block.Notes = u"notes ";

    const FileRecord record = SavedFields(block);

    EXPECT_EQ(record.Value(2), Text(u"a label"));
    EXPECT_EQ(record.Value(13), Text(u"Hz"));
    EXPECT_EQ(record.Value(21), Text(u"notes"));
}

TEST(Save_DataBlockRecord, TheKeptTextBringsItsFiveValues)
{
    DataBlock block;
    block.KeptText = u" T ";
    block.Kept[60] = 0x12345678;

    const FileRecord record = SavedFields(block);

    EXPECT_EQ(record.Value(59), Text(u"T"));
    EXPECT_EQ(record.Value(60), Int32(0x12345678));
    for (const int tag : {61, 63, 62, 64}) EXPECT_TRUE(record.Has(tag)) << tag;
}

TEST(Save_DataBlockRecord, ABlankKeptTextTakesItsFiveValuesWithIt)
{
    DataBlock block;
    block.KeptText = u"  ";
    block.Kept[60] = 1;

    const FileRecord record = SavedFields(block);

    for (int tag = 59; tag <= 64; ++tag) EXPECT_FALSE(record.Has(tag)) << tag;
}

TEST(Save_DataBlockRecord, ReferenceValuesAreWrittenOnlyAfterARead)
{
    DataBlock block;
    EXPECT_FALSE(SavedFields(block).Has(67));

    block.DataBlockFromFile = true;

    const FileRecord record = SavedFields(block);
    for (const int tag : {67, 68, 72, 93}) EXPECT_TRUE(record.Has(tag)) << tag;
}

TEST(Save_DataBlockRecord, ValuesOfZeroAreLeftOutWhereOlderReadersDoNotKnowThem)
{
    const FileRecord record = SavedFields(DataBlock());

    for (const int tag : {100, 123, 160}) EXPECT_FALSE(record.Has(tag)) << tag;
}

TEST(Save_DataBlockRecord, ANaNIsNotZero)
{
    DataBlock block;
    block.RPM = std::numeric_limits<float>::quiet_NaN();
    block.ExponentialWindowDampingInHz = std::numeric_limits<float>::quiet_NaN();

    const FileRecord record = SavedFields(block);

    EXPECT_EQ(record.Value(160), Float(block.RPM));
    EXPECT_EQ(record.Value(123), Float(block.ExponentialWindowDampingInHz));
}

TEST(Save_DataBlockRecord, AnAuxiliaryTraceWithoutSamplesIsStillMarked)
{
    DataBlock block;
    block.AuxiliaryTrace.emplace();

    EXPECT_EQ(SavedFields(block).Value(65), Bytes{});
}

TEST(Save_TraceRecord, ABlankTraceHasItsAlwaysWrittenFieldsOnly)
{
    DataBlock block;
    SetSizes(block, 1, 2);

    const FileRecord trace = SavedFields(block).Records(11).at(0);

    EXPECT_EQ(trace.type, TraceType);
    EXPECT_EQ(trace.Tags(), (std::vector{17, 25, 26, 22, 30, 6, 31, 33, 34, 35, 36, 37, 38, 39, 40, 32, 44, 45}));
    EXPECT_EQ(trace.Value(30), Int16(0)) << "as stored, whatever the member reads";
}

TEST(Save_TraceRecord, TracesStandInTheirOrder)
{
    DataBlock block;
    SetSizes(block, 3, 2);
    for (std::int16_t number = 1; number <= 3; ++number) block.Traces.Edit(number).MeasurementType = number;

    const std::vector<FileRecord> traces = SavedFields(block).Records(11);

    ASSERT_EQ(traces.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(NumberIn(traces[i].Value(6)), static_cast<std::int64_t>(i + 1));
}

TEST(Save_TraceRecord, TextsAreWrittenWithoutTheBlanksAroundThem)
{
    DataBlock block;
    SetSizes(block, 1, 2);
    Trace& trace = block.Traces.Edit(1);
    trace.Label = u" a b ";
    trace.DateAndTime = u"   ";

    const FileRecord record = SavedFields(block).Records(11).at(0);

    EXPECT_EQ(record.Value(2), Text(u"a b"));
    EXPECT_FALSE(record.Has(3));
}

TEST(Save_TraceRecord, FormatsOtherThanComplexAreWrittenAsFloats)
{
    for (const int format : {1, 3, 77}) {
        DataBlock block;
        SetSizes(block, 1, 2);
        block.DataFormat = static_cast<std::int16_t>(format);
        Fill(block, block.Traces.Edit(1).RealSamples, {1, 2});

        EXPECT_EQ(SavedFields(block).Records(11).at(0).Value(17), Floats({1, 2})) << format;
    }
}

TEST(Save_TraceRecord, ArraysThatAreShorterThanTheirCountEndInZeros)
{
    DataBlock block;
    SetSizes(block, 2, 2);
    Fill(block, block.Traces.Edit(1).RealSamples, {1, 2});
    Fill(block, block.Traces.Edit(1).SecondComplexSamples, {{1, 2}});
    block.Traces.Edit(2).RealSamples.Release();
    block.NumberOfSamples = 4;
    block.XaxisSpacing = XaxisSpacing_NonUniform;
    Fill(block, block.Xaxis, {5});

    const FileRecord record = SavedFields(block);

    EXPECT_EQ(record.Value(10), Floats({5, 0, 0, 0}));
    EXPECT_EQ(record.Records(11).at(0).Value(17), Floats({1, 2, 0, 0}));
    EXPECT_EQ(record.Records(11).at(0).Value(41), Floats({1, 2, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(record.Records(11).at(1).Value(17), Floats({0, 0, 0, 0}));
}

TEST(Save_TraceRecord, ArraysThatAreLongerThanTheirCountAreCut)
{
    DataBlock block;
    SetSizes(block, 1, 2);
    Fill(block, block.Traces.Edit(1).RealSamples, {1, 2, 3, 4});

    EXPECT_EQ(SavedFields(block).Records(11).at(0).Value(17), Floats({1, 2}));
}

// ---- failures ------------------------------------------------------------------------------------------------

bool EndsWithMarker(const Bytes& bytes)
{
    return bytes.size() >= 2 && bytes[bytes.size() - 1] == 0xAA && bytes[bytes.size() - 2] == 0xAA;
}

TEST(SaveDataBlock, TracesWithoutSamplesFailAndLeaveACompleteFrame)
{
    DataBlock block;
    SetSizes(block, 2, 0);
    block.Label = u"readable";

    const Saved saved = Save(block);

    EXPECT_EQ(saved.status, Failure);
    EXPECT_EQ(saved.error, InputFile_ReadFail);
    const FileRecord record = FileFields::Of(saved.bytes);
    EXPECT_EQ(record.Records(11).size(), 0u);
    EXPECT_EQ(record.Value(2), Text(u"readable"));
    EXPECT_TRUE(record.Has(12));
    EXPECT_TRUE(record.Has(97)) << "the fields behind the list follow";
}

TEST(SaveDataBlock, TracesWithoutAFormatFailAndLeaveACompleteFrame)
{
    DataBlock block;
    SetSizes(block, 1, 2);
    block.DataFormat = 0;

    const Saved saved = Save(block);

    EXPECT_EQ(saved.status, Failure);
    EXPECT_EQ(saved.error, InputFile_ReadFail);
    EXPECT_EQ(FileFields::Of(saved.bytes).Records(11).size(), 0u);
}

TEST(SaveDataBlock, AFullDiskAtAnyByteIsAFailureWithoutAnEndMarker)
{
    DataBlock block;
    SetSizes(block, 2, 2);
    const std::size_t whole = Save(block).bytes.size();

    for (std::size_t limit = 0; limit < whole; ++limit) {
        MemoryFile disk;
        disk.FailBeyond(limit);
        const Outcome outcome = SaveDataBlock(disk, block);
        EXPECT_EQ(outcome.status, Failure) << limit;
        EXPECT_EQ(outcome.error, NoError) << limit;
        EXPECT_FALSE(EndsWithMarker(disk.Content())) << limit;
    }
    MemoryFile disk;
    disk.FailBeyond(whole);
    EXPECT_EQ(SaveDataBlock(disk, block).status, Success);
}

// Larger than the writer's buffer, so that the file goes out in several pieces.
TEST(SaveDataBlock, AFullDiskInsideALargeFileIsAFailureWithoutAnEndMarker)
{
    DataBlock block;
    SetSizes(block, 3, 100000);
    const std::size_t whole = Save(block).bytes.size();

    for (std::size_t limit = 0; limit < whole; limit += limit + 200 < whole ? 9973 : 1) {
        MemoryFile disk;
        disk.FailBeyond(limit);
        EXPECT_EQ(SaveDataBlock(disk, block).status, Failure) << limit;
        EXPECT_FALSE(EndsWithMarker(disk.Content())) << limit;
        EXPECT_LE(disk.Content().size(), limit);
    }
}

TEST(SaveDataBlock, AnySingleWriteThatFailsIsAFailureWithoutAnEndMarker)
{
    DataBlock block;
    SetSizes(block, 3, 100000);
    FailingOnce good(0);
    ASSERT_EQ(SaveDataBlock(good, block).status, Success);
    ASSERT_GT(good.Writes(), 6);

    for (int refused = 1; refused <= good.Writes(); ++refused) {
        FailingOnce disk(refused);
        EXPECT_EQ(SaveDataBlock(disk, block).status, Failure) << refused;
        EXPECT_FALSE(EndsWithMarker(disk.Content())) << refused;
    }
}

// What no 32-bit position can reach; nothing of it is kept.
TEST(SaveDataBlock, AFileBeyondTheLast32BitPositionIsAFailure)
{
    BottomlessSink sink;
    DataBlock block;
    block.NumberOfTraces = 2;
    block.Traces.Resize(2);
    block.NumberOfSamples = 300'000'000; // 1.2 GB of zeros each

    EXPECT_EQ(SaveDataBlock(sink, block).status, Failure);
    EXPECT_LE(sink.End(), 2147483647u);
}

} // namespace
} // namespace qor::test
