// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reading of single items: what a read beyond the end delivers, the end-of-file condition, moves and jumps, and
// that buffering never shows.
#include "fileio/RecordReader.h"

#include "support/DataBlockFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

// Bytes that differ from all their neighbours, whatever the alignment.
Bytes Pattern(std::size_t size)
{
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 251);
    return bytes;
}

Bytes ReadAll(RecordReader& file, std::size_t count)
{
    Bytes bytes(count, 0xEE);
    file.GetBytes(std::as_writable_bytes(std::span(bytes)));
    return bytes;
}

Bytes Slice(const Bytes& bytes, std::size_t start, std::size_t count)
{
    const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(start);
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}

TEST(RecordReader, ReadsItemsInLittleEndianOrder)
{
    MemoryFile source(Hex("FE FF  04 03 02 01  FF FF FF FF  00 00 80 3F"));
    RecordReader file(source);

    EXPECT_EQ(file.GetInt16(), -2);
    EXPECT_EQ(file.GetInt32(), 0x01020304);
    EXPECT_EQ(file.GetRaw32(), 0xFFFFFFFFu);
    EXPECT_EQ(file.GetFloat(), 1.0F);
    EXPECT_EQ(file.Position(), 15);
    EXPECT_FALSE(file.AtEnd());
}

TEST(RecordReader, StartsAtPositionOne)
{
    MemoryFile source(Hex("01 02 03"));
    const RecordReader file(source);

    EXPECT_EQ(file.Position(), 1);
    EXPECT_EQ(file.BytesLeft(), 3);
}

TEST(RecordReader, DeliversZerosForTheBytesThatAreMissing)
{
    MemoryFile source(Hex("11 22 33"));
    RecordReader file(source);

    EXPECT_EQ(file.GetInt32(), 0x00332211);
    EXPECT_TRUE(file.AtEnd());
    EXPECT_EQ(file.Position(), 4) << "only what was there is read past";
}

TEST(RecordReader, DeliversZerosInAnEmptyFile)
{
    MemoryFile source;
    RecordReader file(source);

    EXPECT_EQ(file.GetInt16(), 0);
    EXPECT_TRUE(file.AtEnd());
}

TEST(RecordReader, StandingAtTheEndIsNotTheEndOfFileCondition)
{
    MemoryFile source(Hex("01 00"));
    RecordReader file(source);

    file.GetInt16();

    EXPECT_FALSE(file.AtEnd());
    EXPECT_EQ(file.BytesLeft(), 0);
}

TEST(RecordReader, ACompletedReadClearsTheEndOfFileCondition)
{
    MemoryFile source(Hex("01 00 02"));
    RecordReader file(source);
    file.GetInt32();
    file.MoveTo(1);

    EXPECT_EQ(file.GetInt16(), 1);
    EXPECT_FALSE(file.AtEnd());
}

TEST(RecordReader, AMoveLeavesTheEndOfFileConditionSet)
{
    MemoryFile source(Hex("01 00 02"));
    RecordReader file(source);
    file.GetInt32();

    file.MoveTo(1);

    EXPECT_TRUE(file.AtEnd());
}

TEST(RecordReader, AMoveBehindTheEndDoesNotSetTheEndOfFileCondition)
{
    MemoryFile source(Hex("01 00"));
    RecordReader file(source);

    file.MoveTo(1000);

    EXPECT_FALSE(file.AtEnd());
    EXPECT_EQ(file.BytesLeft(), 0);
    EXPECT_EQ(file.GetInt16(), 0);
    EXPECT_TRUE(file.AtEnd());
}

TEST(RecordReader, ATagThatTheFileCutsOffIsNone)
{
    MemoryFile source(Hex("0B"));
    RecordReader file(source);
    std::int16_t tag = 0;

    EXPECT_FALSE(file.GetTag(tag));
    EXPECT_TRUE(file.AtEnd());
}

TEST(RecordReader, AWholeTagIsRead)
{
    MemoryFile source(Hex("0B 00"));
    RecordReader file(source);
    std::int16_t tag = 0;

    EXPECT_TRUE(file.GetTag(tag));
    EXPECT_EQ(tag, 11);
}

TEST(RecordReader, SkippingWhatTheFileHoldsIsACompletedRead)
{
    MemoryFile source(Hex("01 02 03 04"));
    RecordReader file(source);

    file.Skip(4);

    EXPECT_FALSE(file.AtEnd());
    EXPECT_EQ(file.Position(), 5);
}

TEST(RecordReader, SkippingMoreThanTheFileHoldsSetsTheEndOfFileCondition)
{
    MemoryFile source(Hex("01 02 03 04"));
    RecordReader file(source);

    file.Skip(5);

    EXPECT_TRUE(file.AtEnd());
    EXPECT_EQ(file.Position(), 5);
}

TEST(RecordReader, ARecordEndsBehindItsLengthAndBody)
{
    MemoryFile source(Hex("00 08  06 00 00 00"));
    RecordReader file(source);
    file.GetInt16();

    EXPECT_EQ(file.GetRecordEnd(), 7 + 6);
    EXPECT_EQ(file.Position(), 7);
}

TEST(RecordReader, JumpsForwardAndToWhereItStands)
{
    MemoryFile source(Pattern(20));
    RecordReader file(source);

    EXPECT_TRUE(file.JumpTo(1));
    EXPECT_TRUE(file.JumpTo(20));
    EXPECT_EQ(file.Position(), 20);
}

TEST(RecordReader, RefusesToJumpBack)
{
    MemoryFile source(Pattern(20));
    RecordReader file(source);
    file.MoveTo(10);

    EXPECT_FALSE(file.JumpTo(9));
    EXPECT_EQ(file.Position(), 10);
}

TEST(RecordReader, RefusesToJumpBeyondTheLast32BitPosition)
{
    MemoryFile source(Pattern(20));
    RecordReader file(source);

    EXPECT_FALSE(file.JumpTo(LastPosition + 1));
    EXPECT_TRUE(file.JumpTo(LastPosition));
}

TEST(RecordReader, SkipsARecordByItsLength)
{
    MemoryFile source(Hex("03 00 00 00  AA BB CC  05 00"));
    RecordReader file(source);

    EXPECT_TRUE(file.SkipRecord());
    EXPECT_EQ(file.GetInt16(), 5);
}

TEST(RecordReader, RefusesToSkipARecordOfNegativeLength)
{
    MemoryFile source(Int32(-1) + Pattern(8));
    RecordReader file(source);

    EXPECT_FALSE(file.SkipRecord());
}

TEST(RecordReader, RefusesToSkipARecordThatEndsBeyond32Bits)
{
    MemoryFile source(Int32(INT32_MAX) + Pattern(8));
    RecordReader file(source);

    EXPECT_FALSE(file.SkipRecord());
}

TEST(RecordReader, SkippingARecordLeavesTheEndOfFileConditionAsItWas)
{
    MemoryFile source(Hex("05 00")); // the length is cut off
    RecordReader file(source);

    EXPECT_TRUE(file.SkipRecord());
    EXPECT_FALSE(file.AtEnd());
}

// Arrays of 64 KiB and more pass the buffer by; smaller ones go through it. Sizes and starts lie around the
// buffer's fills of 1024 to 65536 bytes.
class RecordReaderAlignment : public testing::TestWithParam<std::size_t>
{};

TEST_P(RecordReaderAlignment, ArraysOfEverySizeArriveWhole)
{
    static const Bytes content = Pattern(300000);
    for (const std::size_t size : {1u, 4u, 1023u, 1024u, 1025u, 4096u, 65535u, 65536u, 65537u, 131072u}) {
        MemoryFile source(content);
        RecordReader file(source);
        file.Skip(static_cast<std::int64_t>(GetParam()));
        const Bytes before = ReadAll(file, 3); // so that the buffer holds something

        const Bytes array = ReadAll(file, size);
        const Bytes behind = ReadAll(file, 5);

        EXPECT_EQ(before, Slice(content, GetParam(), 3));
        EXPECT_TRUE(array == Slice(content, GetParam() + 3, size)) << size;
        EXPECT_EQ(behind, Slice(content, GetParam() + 3 + size, 5)) << size;
        EXPECT_FALSE(file.AtEnd());
    }
}

INSTANTIATE_TEST_SUITE_P(AroundTheBuffer, RecordReaderAlignment,
                         testing::Values(0, 1, 2, 1017, 1018, 1020, 1021, 1022, 1023, 1024, 1025, 3069, 4096, 12285,
                                         65529, 65533, 65535, 65536, 65537, 131069));

TEST(RecordReader, AnArrayThatTheFileCutsOffEndsInZeros)
{
    for (const std::size_t size : {10u, 70000u, 200000u}) {
        const Bytes content = Pattern(size - 3);
        MemoryFile source(content);
        RecordReader file(source);

        const Bytes array = ReadAll(file, size);

        EXPECT_TRUE(array == content + Bytes(3)) << size;
        EXPECT_TRUE(file.AtEnd());
        EXPECT_EQ(file.Position(), static_cast<FilePosition>(size - 2));
    }
}

TEST(RecordReader, ReadsAgainWhatItMovesBackTo)
{
    const Bytes content = Pattern(200000);
    MemoryFile source(content);
    RecordReader file(source);
    ReadAll(file, 150000);

    file.MoveTo(65535);

    EXPECT_EQ(ReadAll(file, 4), Slice(content, 65534, 4));
}

TEST(RecordReader, ItemsOfEveryWidthAreReadAcrossTheBuffersEdges)
{
    const Bytes content = Pattern(20000);
    for (const std::size_t start : {0u, 1u, 2u, 3u}) {
        MemoryFile source(content);
        RecordReader file(source);
        file.Skip(static_cast<std::int64_t>(start));
        std::size_t place = start;
        for (; place + 6 <= content.size(); place += 6) {
            const Bytes narrow = Int16(file.GetInt16());
            const Bytes wide = Int32(file.GetInt32());
            ASSERT_EQ(narrow + wide, Slice(content, place, 6)) << place;
        }
        EXPECT_FALSE(file.AtEnd());
        EXPECT_EQ(file.Position(), static_cast<FilePosition>(place + 1));
    }
}

TEST(RecordReader, ReadingItemByItemCoversAFileLargerThanTheBuffer)
{
    const Bytes content = Pattern(200001);
    MemoryFile source(content);
    RecordReader file(source);
    Bytes read;

    for (std::uint8_t byte = 0; file.GetBytes(std::as_writable_bytes(std::span(&byte, 1))), !file.AtEnd();) {
        read.push_back(byte);
    }

    EXPECT_TRUE(read == content);
}

} // namespace
} // namespace qor::test
