// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Structure files that are damaged in every place, and files made to be slow, deep or large: reading ends, and what
// was read can be looked at, changed and saved.
#include "support/ExerciseStructure.h"
#include "support/StructureSeedFiles.h"
#include "support/WatchedFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace qor::test {
namespace {

// ---- damage ----------------------------------------------------------------------------------------------------

class DamagedStructureFile : public testing::TestWithParam<SeedFile>
{};

TEST_P(DamagedStructureFile, WholeItHoldsWhatMustHold) { EXPECT_EQ(ExerciseStructure(GetParam().bytes), ""); }

TEST_P(DamagedStructureFile, CutOffAtEveryByte)
{
    const Bytes& whole = GetParam().bytes;
    for (std::ptrdiff_t size = 0; size < std::ssize(whole); ++size) {
        EXPECT_EQ(ExerciseStructure(Bytes(whole.begin(), whole.begin() + size)), "") << size << " bytes";
    }
}

TEST_P(DamagedStructureFile, EveryByteChanged)
{
    for (std::size_t place = 0; place < GetParam().bytes.size(); ++place) {
        const std::uint8_t byte = GetParam().bytes[place];
        for (const int damage : {byte ^ 0xFF, byte + 1, 0x00, 0x80}) {
            Bytes bytes = GetParam().bytes;
            bytes[place] = static_cast<std::uint8_t>(damage);
            EXPECT_EQ(ExerciseStructure(bytes), "") << "byte " << place << " is " << damage;
        }
    }
}

TEST_P(DamagedStructureFile, EveryByteMissingAndEveryByteTwice)
{
    for (std::ptrdiff_t place = 0; place < std::ssize(GetParam().bytes); ++place) {
        Bytes shorter = GetParam().bytes;
        shorter.erase(shorter.begin() + place);
        Bytes longer = GetParam().bytes;
        longer.insert(longer.begin() + place, longer[static_cast<std::size_t>(place)]);
        EXPECT_EQ(ExerciseStructure(shorter), "") << "without byte " << place;
        EXPECT_EQ(ExerciseStructure(longer), "") << "byte " << place << " twice";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DamagedStructureFile, testing::ValuesIn(StructureSeedFiles()), [](const auto& seed) {
    std::string name = seed.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(StructureSeed, IsReadWithoutErrorWhereItIsWhole)
{
    const std::set<std::string> broken = {"endless-run", "refused", "no-end-marker", "truncated"};
    for (const SeedFile& seed : StructureSeedFiles()) {
        const LoadedStructure loaded = LoadStructure(seed.bytes);

        EXPECT_EQ(loaded.accepted && loaded.error == NoError, !broken.contains(seed.name)) << seed.name;
    }
}

// ---- depth -----------------------------------------------------------------------------------------------------

TEST(DeepStructureFile, ARunMayStandInside99Others)
{
    const LoadedStructure loaded = LoadStructure(StructureFile().Record(NestedPoints(100)));

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    ASSERT_EQ(loaded.structure.NumberOfVertexPoints, 101);
    EXPECT_EQ(loaded.Point(101).Color, 7);
}

TEST(DeepStructureFile, ADeeperRunEndsTheReading)
{
    const LoadedStructure loaded =
        LoadStructure(StructureFile().Record(NestedPoints(101)).Record(VertexBytes().Field(4, Int32(8))));

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 101) << "and what follows is not read";
}

TEST(DeepStructureFile, TheElementsOfASubstructureAreOneOfTheRuns)
{
    const auto statusOf = [](int runs) {
        return LoadStructure(StructureFile().Record(SubStructureOf(NestedPoints(runs).Build()))).status;
    };

    EXPECT_EQ(statusOf(99), Success);
    EXPECT_EQ(statusOf(100), Failure);
}

TEST(DeepStructureFile, RunsBehindOneAnotherAreNotDeep)
{
    StructureFile file;
    for (int i = 0; i < 5; ++i) file.Record(NestedPoints(100));

    const LoadedStructure loaded = LoadStructure(file);

    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.structure.NumberOfVertexPoints, 505);
}

TEST(DeepStructureFile, RunsWithoutEndAreReadAndSavedToo)
{
    Bytes runs;
    for (int i = 0; i < 100000; ++i) runs += Int16(0x0100) + Int32(-1) + Int16(9);

    EXPECT_EQ(ExerciseStructure(StructureFile().Raw(runs).Build()), "");
}

// ---- time and claims -------------------------------------------------------------------------------------------

// A file of one cheap thing again and again. What a reading takes from it may not exceed a small multiple of its
// size: more than once, because every move makes the reader fetch some bytes ahead that it may not use.
struct Repetition {
    const char* name;
    Bytes (*piece)();

    friend std::ostream& operator<<(std::ostream& stream, const Repetition& of) { return stream << of.name; }
};

const Repetition Repetitions[] = {
    {"EmptyVertexPoints", [] { return VertexBytes().Build(); }},
    {"EmptyRuns", [] { return VertexBytes().Field(9).Field(14).Build(); }},
    {"VertexPointsThatMoveTheirOuterOne",
     [] { return VertexBytes().Field(9).Nested(VertexBytes()).Field(14).Build(); }},
    {"Substructures", [] { return SubStructureOf(EdgeLineBytes().Build(), u"label").Build(); }},
    {"Notes", [] { return NotesBytes().Field(6, Text(u"some notes")).Build(); }},
    {"UnknownTags", [] { return QuadBytes().Field(200, Bytes(20)).Build(); }},
    {"UnknownRecords", [] { return RecordBytes(0x0600).Build(); }},
    {"UnknownRecordsLargerThanAFill", [] { return RecordBytes(0x0600).Raw(Bytes(4090)).Build(); }},
    {"DiscardedRecords", [] { return DiscardedBytes().Field(1, Int16(1)).Field(2, Int32(1)).Build(); }},
    {"DeepRuns", [] { return NestedPoints(100).Build(); }},
    {"ZeroWords", [] { return Int16(0); }},
};

class RepetitiveStructureFile : public testing::TestWithParam<Repetition>
{};

TEST_P(RepetitiveStructureFile, IsReadInStepsThatGrowWithItsSize)
{
    const Bytes piece = GetParam().piece();
    for (const std::size_t size : {std::size_t{50000}, std::size_t{200000}, std::size_t{800000}}) {
        StructureFile bytes;
        for (std::size_t done = 0; done < size; done += piece.size()) bytes.Raw(piece);
        CountingFile file(bytes.Build());

        const LoadedStructure loaded = LoadStructureFrom(file);

        EXPECT_EQ(loaded.status, Success) << size;
        EXPECT_EQ(loaded.error, NoError) << size;
        EXPECT_LE(file.BytesRead(), 5 * file.Size() + 65536) << size;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RepetitiveStructureFile, testing::ValuesIn(Repetitions),
                         [](const auto& repetition) { return std::string(repetition.param.name); });

TEST(HostileStructureFile, ALabelThatClaimsMoreThanTheFileHoldsCostsNothing)
{
    for (const std::int64_t count : {std::int64_t{1} << 20, std::int64_t{INT32_MAX}}) {
        const Bytes bytes = StructureFile().Record(SubStructureBytes().Field(2, Int32(count) + Int16(u'a'))).Build();

        const LoadedStructure loaded = LoadStructure(bytes);

        EXPECT_EQ(loaded.status, Failure);
        EXPECT_EQ(loaded.error, InputFile_ReadFail);
        EXPECT_LT(loaded.texts.Label.capacity(), bytes.size());
    }
}

} // namespace
} // namespace qor::test
