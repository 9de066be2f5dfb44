// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Files that are damaged in every place, and files made to be slow or large: reading ends, and what was read can be
// looked at, changed and saved.
#include "support/Exercise.h"
#include "support/SeedFiles.h"
#include "support/WatchedFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

// ---- damage ----------------------------------------------------------------------------------------------------

class DamagedFile : public testing::TestWithParam<SeedFile>
{};

TEST_P(DamagedFile, WholeItHoldsWhatMustHold) { EXPECT_EQ(Exercise(GetParam().bytes), ""); }

TEST_P(DamagedFile, CutOffAtEveryByte)
{
    const Bytes& whole = GetParam().bytes;
    for (std::ptrdiff_t size = 0; size < std::ssize(whole); ++size) {
        EXPECT_EQ(Exercise(Bytes(whole.begin(), whole.begin() + size)), "") << size << " bytes";
    }
}

TEST_P(DamagedFile, EveryByteChanged)
{
    for (std::size_t place = 0; place < GetParam().bytes.size(); ++place) {
        const std::uint8_t byte = GetParam().bytes[place];
        for (const int damage : {byte ^ 0xFF, byte + 1, 0x00, 0x80}) {
            Bytes bytes = GetParam().bytes;
            bytes[place] = static_cast<std::uint8_t>(damage);
            EXPECT_EQ(Exercise(bytes), "") << "byte " << place << " is " << damage;
        }
    }
}

TEST_P(DamagedFile, EveryByteMissingAndEveryByteTwice)
{
    for (std::ptrdiff_t place = 0; place < std::ssize(GetParam().bytes); ++place) {
        Bytes shorter = GetParam().bytes;
        shorter.erase(shorter.begin() + place);
        Bytes longer = GetParam().bytes;
        longer.insert(longer.begin() + place, longer[static_cast<std::size_t>(place)]);
        EXPECT_EQ(Exercise(shorter), "") << "without byte " << place;
        EXPECT_EQ(Exercise(longer), "") << "byte " << place << " twice";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DamagedFile, testing::ValuesIn(SeedFiles()), [](const auto& seed) {
    std::string name = seed.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

// ---- size claims -----------------------------------------------------------------------------------------------

TEST(HostileFile, TracesThatAreOnlyCountedCostNothingToRead)
{
    const Loaded loaded = LoadBytes(SizedFile(32767, INT32_MAX, 2).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Traces.Count(), 32767);
    EXPECT_EQ(&loaded.block.Traces[1], &loaded.block.Traces[32767]) << "none of them was made";
}

TEST(HostileFile, EveryLargeClaimCanBeLookedAtAndSaved)
{
    for (const std::int64_t samples : {std::int64_t{2}, std::int64_t{1} << 20, std::int64_t{INT32_MAX}}) {
        for (const int format : {0, 1, 2, 3}) {
            for (const int traces : {1, 20, 32767}) {
                const Bytes bytes = SizedFile(traces, samples, format).Field(6, Int16(2)).Build();
                EXPECT_EQ(Exercise(bytes), "") << samples << " samples, format " << format;
            }
        }
    }
}

// ---- time ------------------------------------------------------------------------------------------------------

// A file of one cheap thing again and again. What a reading takes from it may not exceed a small multiple of its size:
// more than once, because every move makes the reader fetch some bytes ahead that it may not use.
struct Repetition {
    const char* name;
    Bytes (*make)(int count);

    friend std::ostream& operator<<(std::ostream& stream, const Repetition& of) { return stream << of.name; }
};

Bytes Repeat(const Bytes& piece, int count)
{
    Bytes bytes;
    bytes.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) bytes += piece;
    return bytes;
}

Bytes InRecord(const Bytes& piece, int count) { return SizedFile(1, 2).Raw(Repeat(piece, count)).Build(); }
Bytes InTraceList(const Bytes& piece, int count)
{
    return SizedFile(32767, 2).Field(11).Raw(Repeat(piece, count)).Field(12).Build();
}
Bytes AtTopLevel(const Bytes& piece, int count) { return SizedFile(1, 2).Behind(Repeat(piece, count)).Build(); }

const Repetition Repetitions[] = {
    {"CountsUpAndDown", [](int count) { return InRecord(Int16(3) + Int16(32767) + Int16(3) + Int16(1), count); }},
    {"CountsUpAndDownWithATraceBetween",
     [](int count) {
         return InRecord(Int16(3) + Int16(32767) + Int16(11) + TraceBytes().Build() + Int16(12) + Int16(3) + Int16(1),
                         count);
     }},
    {"ResetsAtTopLevel",
     [](int count) {
         return AtTopLevel(RecordBytes(DataBlockType).Field(3, Int16(32767)).Field(4, Int32(2)).Build(), count);
     }},
    {"ResetsWithXValues",
     [](int count) {
         return AtTopLevel(RecordBytes(DataBlockType).Field(4, Int32(2)).Field(10, Floats({1, 2})).Build(), count);
     }},
    {"ResetsInsideATrace",
     [](int count) {
         const Bytes block = RecordBytes(DataBlockType).Field(3, Int16(1)).Build();
         return InTraceList(TraceBytes().Field(27).Raw(block).Field(28).Build(), count);
     }},
    {"ResetsWithATraceBehindEach",
     [](int count) {
         return AtTopLevel(RecordBytes(DataBlockType).Field(3, Int16(32767)).Build() + TraceBytes().Build(), count);
     }},
    {"ResetsWithATraceBehindEachInsideATrace",
     [](int count) {
         const Bytes block = RecordBytes(DataBlockType).Field(3, Int16(32767)).Build();
         const RecordBytes outer = TraceBytes().Field(27).Raw(Repeat(block + TraceBytes().Build(), count)).Field(28);
         return SizedFile(1, 2).Field(11).Nested(outer).Field(12).Build();
     }},
    {"EmptyTraces", [](int count) { return InTraceList(TraceBytes().Build(), count); }},
    {"TracesWithSamples",
     [](int count) {
         return InTraceList(TraceBytes().Field(17, Floats({1, 2})).Build(), count);
     }},
    {"SamplesAgain",
     [](int count) {
         return SizedFile(1, 2)
             .Field(11)
             .Nested(TraceBytes().Raw(Repeat(Int16(17) + Floats({1, 2}), count)))
             .Field(12)
             .Build();
     }},
    {"XValuesAgain",
     [](int count) {
         return InRecord(Int16(10) + Floats({1, 2}), count);
     }},
    {"LongXValuesAgain",
     [](int count) { return SizedFile(0, 1100).Raw(Repeat(Int16(10) + Bytes(4400, 0x41), count / 100)).Build(); }},
    {"ListsOneAfterAnother", [](int count) { return InRecord(Int16(11) + Int16(12), count); }},
    {"UnknownRecords", [](int count) { return AtTopLevel(RecordBytes(4096).Build(), count); }},
    {"UnknownRecordsLargerThanAFill",
     [](int count) { return AtTopLevel(RecordBytes(4096).Raw(Bytes(4090)).Build(), count / 100); }},
    {"EmptyTexts", [](int count) { return InRecord(Int16(2) + Text(u""), count); }},
    {"OneLongOldText",
     [](int count) {
         return SizedFile(0, 2)
             .Version(11)
             .Field(2, OldText(std::string(static_cast<std::size_t>(count), 'x')))
             .Build();
     }},
    {"WordsOfAnOldFile", [](int count) { return SizedFile(0, 2).Version(8).Behind(Repeat(Int16(77), count)).Build(); }},
    {"ZeroTags", [](int count) { return InRecord(Int16(0), count); }},
    {"DeepLists",
     [](int count) {
         RecordBytes trace = TraceBytes();
         for (int i = 1; i < 100; ++i) trace = TraceBytes().Field(27).Nested(trace).Field(28);
         return InTraceList(trace.Build(), count / 100);
     }},
};

class RepetitiveFile : public testing::TestWithParam<Repetition>
{};

TEST_P(RepetitiveFile, IsReadInStepsThatGrowWithItsSize)
{
    for (const int count : {2000, 4000, 8000, 16000}) {
        CountingFile file(GetParam().make(count));
        const Loaded loaded = LoadFrom(file);
        EXPECT_EQ(loaded.status, Success) << count;
        EXPECT_EQ(loaded.error, NoError) << count;
        EXPECT_LE(file.BytesRead(), 5 * file.Size() + 65536) << count;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RepetitiveFile, testing::ValuesIn(Repetitions),
                         [](const auto& repetition) { return std::string(repetition.param.name); });

} // namespace
} // namespace qor::test
