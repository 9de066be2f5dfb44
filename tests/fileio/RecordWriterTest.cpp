// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Writing of single items and records: lengths that are patched wherever the buffer stands, arrays that pass it
// by, sinks that fail, and the last 32-bit position.
#include "fileio/RecordWriter.h"

#include "support/DataBlockFile.h"
#include "support/WatchedFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

void Put(RecordWriter& file, const Bytes& bytes) { file.PutBytes(std::as_bytes(std::span(bytes))); }

// How many bytes the writer takes before it hands any on.
std::size_t MeasureBuffer()
{
    FailingOnce sink(0);
    RecordWriter file(sink);
    std::size_t taken = 0;
    for (; sink.Writes() == 0; ++taken) Put(file, Bytes(1));
    return taken - 1;
}

const std::size_t BufferSize = MeasureBuffer();

TEST(RecordWriter, WritesItemsInLittleEndianOrder)
{
    MemoryFile sink;
    RecordWriter file(sink);

    file.PutInt16(-2);
    file.PutInt32(0x01020304);
    file.PutRaw32(0xFFFFFFFE);
    file.PutFloat(1.0F);

    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.Content(), Hex("FE FF  04 03 02 01  FE FF FF FF  00 00 80 3F"));
    EXPECT_EQ(file.Position(), 15);
}

TEST(RecordWriter, ARecordWithoutFieldsHasBodyLengthTwo)
{
    MemoryFile sink;
    RecordWriter file(sink);

    const FilePosition length = file.BeginRecord(2048);
    file.PutInt16(255);
    file.PatchRecordLength(length);

    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.Content(), Hex("00 08  02 00 00 00  FF 00"));
}

TEST(RecordWriter, AnOpenRecordHoldsThePositionOfItsLength)
{
    MemoryFile sink;
    RecordWriter file(sink);

    const FilePosition length = file.BeginRecord(2048);

    EXPECT_EQ(length, 3);
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.Content(), Hex("00 08  03 00 00 00"));
}

TEST(RecordWriter, ALengthCountsNestedRecordsInFull)
{
    MemoryFile sink;
    RecordWriter file(sink);

    const FilePosition outer = file.BeginRecord(2048);
    const FilePosition inner = file.BeginRecord(2304);
    file.PutInt16(255);
    file.PatchRecordLength(inner);
    file.PutInt16(255);
    file.PatchRecordLength(outer);

    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.Content(), Hex("00 08  0A 00 00 00   00 09  02 00 00 00  FF 00   FF 00"));
}

// The record starts so that its length lies before, across and behind the end of the first buffer, and its body
// stays inside a buffer, fills it, or passes it by.
TEST(RecordWriter, LengthsArePatchedWhereverTheBufferStands)
{
    for (std::size_t start = BufferSize - 8; start <= BufferSize + 1; ++start) {
        for (const std::size_t body : {std::size_t{0}, std::size_t{10}, BufferSize - 6, BufferSize, BufferSize + 1}) {
            MemoryFile sink;
            RecordWriter file(sink);
            const Bytes before(start, 0x11);
            const Bytes content(body, 0x22);

            Put(file, Bytes(1, 0x11));
            Put(file, Bytes(start - 1, 0x11));
            const FilePosition length = file.BeginRecord(0x0800);
            Put(file, content);
            file.PatchRecordLength(length);
            file.PutInt16(0x3333);

            EXPECT_TRUE(file.Flush());
            const Bytes expected =
                before + Int16(0x0800) + Int32(static_cast<std::int64_t>(body)) + content + Int16(0x3333);
            EXPECT_TRUE(sink.Content() == expected) << "start " << start << ", body " << body;
        }
    }
}

TEST(RecordWriter, ManySmallItemsCrossTheBufferUnharmed)
{
    MemoryFile sink;
    RecordWriter file(sink);
    Bytes expected;

    file.PutBytes(std::as_bytes(std::span("x", 1))); // so that an item lies across the end of the buffer
    expected.push_back('x');
    for (std::size_t i = 0; i < BufferSize; ++i) {
        file.PutInt16(static_cast<std::int16_t>(i & 0x7FFF));
        expected.push_back(static_cast<std::uint8_t>(i));
        expected.push_back(static_cast<std::uint8_t>((i & 0x7FFF) >> 8));
    }

    EXPECT_TRUE(file.Flush());
    EXPECT_TRUE(sink.Content() == expected);
}

TEST(RecordWriter, WritesAsManyZerosAsItIsTold)
{
    MemoryFile sink;
    RecordWriter file(sink);

    file.PutZeros(10000);
    file.PutZeros(0);
    file.PutZeros(-5);

    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.Content(), Bytes(10000));
}

TEST(RecordWriter, AWriteThatFailsIsReported)
{
    MemoryFile sink;
    sink.FailBeyond(3);
    RecordWriter file(sink);
    file.PutInt32(1);

    EXPECT_FALSE(file.Flush());
    EXPECT_TRUE(file.Failed());
}

TEST(RecordWriter, NothingIsWrittenBehindAFailedWrite)
{
    FailingOnce sink(2);
    RecordWriter file(sink);
    file.PutInt16(1);
    EXPECT_TRUE(file.Flush());
    file.PutInt16(2);
    EXPECT_FALSE(file.Flush());

    file.PutInt16(3);

    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(sink.Content(), Int16(1));
}

TEST(RecordWriter, AnArrayThatFailsIsReported)
{
    FailingOnce sink(2); // the first write brings what was buffered
    RecordWriter file(sink);
    file.PutInt16(1);

    Put(file, Bytes(BufferSize + 1));

    EXPECT_TRUE(file.Failed());
    EXPECT_EQ(sink.Content(), Int16(1));
}

TEST(RecordWriter, APatchThatFailsIsReported)
{
    FailingOnce sink(3); // behind the buffered record head and the array
    RecordWriter file(sink);
    const FilePosition length = file.BeginRecord(2048);
    Put(file, Bytes(BufferSize + 1));

    file.PatchRecordLength(length);

    EXPECT_TRUE(file.Failed());
}

TEST(RecordWriter, AFileMayReachTheLast32BitPosition)
{
    BottomlessSink sink;
    RecordWriter file(sink);
    const Bytes piece(std::size_t{1} << 20);

    for (int i = 0; i < 2047; ++i) Put(file, piece);
    Put(file, Bytes((std::size_t{1} << 20) - 1));

    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.End(), 2147483647u);
}

TEST(RecordWriter, OneByteBeyondTheLast32BitPositionFails)
{
    BottomlessSink sink;
    RecordWriter file(sink);
    const Bytes piece(std::size_t{1} << 20);
    for (int i = 0; i < 2047; ++i) Put(file, piece);
    Put(file, Bytes((std::size_t{1} << 20) - 1));

    Put(file, Bytes(1));

    EXPECT_TRUE(file.Failed());
    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(sink.End(), 2147483647u) << "what came before is written";
}

TEST(RecordWriter, TellsWhetherAPieceFitsAndFailsWhereItDoesNot)
{
    BottomlessSink sink;
    RecordWriter file(sink);
    Put(file, Bytes(7));

    EXPECT_TRUE(file.FitsPositions(2147483647u - 7));
    EXPECT_FALSE(file.Failed());
    EXPECT_FALSE(file.FitsPositions(2147483647u - 6));
    EXPECT_TRUE(file.Failed());
    EXPECT_EQ(sink.End(), 7u) << "what came before is written";
}

} // namespace
} // namespace qor::test
