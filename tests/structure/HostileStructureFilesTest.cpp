// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Structure files that are damaged in every place, and files made to be slow, deep or large: reading ends, and what
// was read can be looked at, changed and saved.
#include "structure/StructureFile.h"
#include "support/Exercise.h"
#include "support/WatchedFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

// ---- damage ----------------------------------------------------------------------------------------------------

// Reads the thread's Structure through all members that look at its elements.
void ReadElements(clsQOR_File& component, ClassAdd_4& quads)
{
    std::u16string label;
    std::int32_t corners[4] = {};
    std::int32_t color = 0;
    float x = 0;
    float y = 0;
    float z = 0;
    Bool16 bold;
    for (std::int32_t number = -1; number <= component.Structure_NumberOfVertexPoints() + 1; ++number) {
        component.ReadStructureVertexPoint(number, label, x, y, z, color, bold);
        component.ReadStructureVertexPointTransform(number, Zaxis, x, y, z);
    }
    for (std::int32_t number = -1; number <= component.Structure_NumberOfEdgeLines() + 1; ++number) {
        component.ReadStructureEdgeLine(number, corners[0], corners[1], color, bold);
    }
    for (std::int32_t number = -1; number <= component.Structure_NumberOfSurfaceTriangles() + 1; ++number) {
        component.ReadStructureSurfaceTriangle(number, corners[0], corners[1], corners[2], color, bold);
    }
    for (std::int32_t number = -1; number <= quads.StructureNumberOfQuadSurfaces() + 1; ++number) {
        quads.ReadStructureQuadSurface(number, corners[0], corners[1], corners[2], corners[3], color, bold);
    }
    component.Structure_Label();
    component.Structure_Notes();
}

void ChangeElements(clsQOR_File& component, ClassAdd_4& quads)
{
    const std::int32_t points = component.Structure_NumberOfVertexPoints();
    component.Structure_NumberOfVertexPoints(points + 2);
    component.WriteStructureVertexPoint(points + 2, u"changed", 1, 2, 3);
    component.WriteStructureVertexPointInformation(1, 2, Machine, Yaxis, 4);
    component.WriteStructureEdgeLine(-1, 1, 2);
    component.WriteStructureSurfaceTriangle(-1, 1, 2, 3);
    quads.WriteStructureQuadSurface(-1, 1, 2, 3, 4);
    component.Structure_NumberOfSurfaceTriangles(1);
}

bool CountsAgree(const Structure& structure)
{
    return structure.VertexPoints.Count() == structure.NumberOfVertexPoints &&
           structure.EdgeLines.Count() == structure.NumberOfEdgeLines &&
           structure.SurfaceTriangles.Count() == structure.NumberOfSurfaceTriangles &&
           structure.QuadSurfaces.Count() == structure.NumberOfQuadSurfaces;
}

// Saves the Structure, reads it back and saves that: both files must be the same, but for the labels of blanks, which
// are not written and come back as zero characters.
std::string SavingDifference(Structure& structure, const StructureTexts& texts)
{
    const Bytes saved = SavedBytes(structure, texts);
    LoadedStructure again = LoadStructure(saved);
    if (again.status != Success || again.error != NoError) return "what was saved cannot be read";
    for (std::int32_t number = 1; number <= again.structure.NumberOfVertexPoints; ++number) {
        FixedLabel& label = again.structure.VertexPoints[number].Label;
        if (Trimmed(TextOf(structure.VertexPoints[number].Label)).empty() && label == FixedLabel{}) label.fill(u' ');
    }
    again.structure.LargeStructureFormat = structure.LargeStructureFormat;
    return SavedBytes(again.structure, again.texts) == saved ? "" : "saving again gives other bytes";
}

// Nothing, or what does not hold.
std::string ExerciseStructure(const Bytes& bytes)
{
    LoadedStructure loaded = LoadStructure(bytes);
    if (loaded.status == Failure && loaded.error != InputFile_ReadFail) return "a failure without its error";
    if (!CountsAgree(loaded.structure)) return "counts";
    if (loaded.accepted) loaded.structure.LargeStructureFormat = IsLargeVersion(*loaded.version);
    if (std::string difference = SavingDifference(loaded.structure, loaded.texts); !difference.empty()) {
        return difference;
    }

    const UnlinkedFile onDisk(bytes);
    if (!onDisk.Good()) return "no file to read from";
    modQOR_File().SharedErrorStatus = NoError; // what an earlier exercise left behind
    clsQOR_File component;
    ClassAdd_4 quads;
    const ReturnStatus status = component.InputStructureFile(onDisk.Path());
    if (status != (loaded.accepted ? loaded.status : Failure)) return "the member's result";
    if (component.ErrorStatus() != (loaded.accepted ? loaded.error : InputFile_ReadFail)) return "the member's error";
    if (SavedBytes(modQOR_File().Structure, loaded.texts) != SavedBytes(loaded.structure, loaded.texts)) {
        return "the member's Structure";
    }
    ReadElements(component, quads);
    component.InputStructureFile(u""); // reads on where the file was refused
    if (!CountsAgree(modQOR_File().Structure)) return "counts behind what was refused";
    ChangeElements(component, quads);
    ReadElements(component, quads);
    return SavingDifference(modQOR_File().Structure, loaded.texts);
}

// A file with a record of every type, a run inside a vertex point, and something unknown.
Bytes SmallSeed()
{
    const Bytes run = EdgeLineBytes().Field(2, Int16(1) + Int16(1)).Build();
    const Bytes point = VertexBytes()
                            .Field(1, Int16(1))
                            .Field(2, Floats({1, 2, 3}))
                            .Field(4, Int32(255))
                            .Field(5, Int16(-1))
                            .Field(7, Text(u"P1"))
                            .Field(3, Int16(1))
                            .Field(22, Int16(1))
                            .Field(23, Bytes(36, 0x3F))
                            .Field(9)
                            .Raw(run)
                            .Field(14)
                            .Field(67, Float(1))
                            .Field(68, Int16(2))
                            .Build();
    const Bytes triangle =
        TriangleBytes().Field(2, Int16(1) + Int16(1) + Int16(1)).Field(3, Int32(1)).Field(4, Int16(0)).Build();
    const Bytes quad = QuadBytes().Field(2, Bytes(8, 1)).Field(200, Bytes(3)).Build();
    return StructureFile()
        .Record(NotesBytes().Field(6, Text(u"n")))
        .Record(SubStructureOf(point + triangle + quad, u"L"))
        .Record(DiscardedBytes().Field(1, Int16(1)).Field(2, Int32(1)))
        .Record(RecordBytes(0x0600))
        .Build();
}

Bytes LargeSeed()
{
    const Bytes point = VertexBytes()
                            .Field(85, Int32(1))
                            .Field(83, Int32(7))
                            .Field(2, Floats({1, 2, 3}))
                            .Field(7, Text(u"P1"))
                            .Field(84, Int32(1))
                            .Field(67, Float(1))
                            .Build();
    const Bytes rest = Int16(3) + Int32(1) + Int16(4) + Int16(-1);
    const Bytes line = EdgeLineBytes().Field(7, Int32(1) + Int32(1)).Field(6, Int32(7)).Raw(rest).Build();
    const Bytes triangle = TriangleBytes().Field(8, Bytes(12, 1)).Field(7, Int32(7)).Raw(rest).Build();
    const Bytes quad = QuadBytes().Field(8, Bytes(16, 1)).Field(7, Int32(7)).Raw(rest).Build();
    return StructureFile().Version(15).Record(SubStructureOf(point + line + triangle + quad, u"L")).Build();
}

// Nothing here is skipped by its length, and texts are zero-terminated.
Bytes OldSeed()
{
    return StructureFile()
        .Version(8)
        .Record(NotesBytes().Field(6, OldText("old \xC4")))
        .Record(
            VertexBytes().Field(7, OldText("P")).Field(200).Field(3, Int16(1)).Field(1280).Field(4).Field(5, Int16(1)))
        .Raw(Int16(77))
        .Record(EdgeLineBytes().Field(2, Int16(1) + Int16(1)))
        .Build();
}

struct Seed {
    const char* name;
    Bytes (*make)();

    friend std::ostream& operator<<(std::ostream& stream, const Seed& seed) { return stream << seed.name; }
};

class DamagedStructureFile : public testing::TestWithParam<Seed>
{
protected:
    const Bytes good = GetParam().make();
};

TEST_P(DamagedStructureFile, WholeItHoldsWhatMustHold)
{
    EXPECT_EQ(LoadStructure(good).error, NoError);
    EXPECT_EQ(ExerciseStructure(good), "");
}

TEST_P(DamagedStructureFile, CutOffAtEveryByte)
{
    for (std::ptrdiff_t size = 0; size < std::ssize(good); ++size) {
        EXPECT_EQ(ExerciseStructure(Bytes(good.begin(), good.begin() + size)), "") << size << " bytes";
    }
}

TEST_P(DamagedStructureFile, EveryByteChanged)
{
    for (std::size_t place = 0; place < good.size(); ++place) {
        for (const int damage : {good[place] ^ 0xFF, good[place] + 1, 0x00, 0x80}) {
            Bytes bytes = good;
            bytes[place] = static_cast<std::uint8_t>(damage);
            EXPECT_EQ(ExerciseStructure(bytes), "") << "byte " << place << " is " << damage;
        }
    }
}

TEST_P(DamagedStructureFile, EveryByteMissingAndEveryByteTwice)
{
    for (std::ptrdiff_t place = 0; place < std::ssize(good); ++place) {
        Bytes shorter = good;
        shorter.erase(shorter.begin() + place);
        Bytes longer = good;
        longer.insert(longer.begin() + place, good[static_cast<std::size_t>(place)]);
        EXPECT_EQ(ExerciseStructure(shorter), "") << "without byte " << place;
        EXPECT_EQ(ExerciseStructure(longer), "") << "byte " << place << " twice";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DamagedStructureFile,
                         testing::Values(Seed{"Small", SmallSeed}, Seed{"Large", LargeSeed}, Seed{"Old", OldSeed}),
                         [](const auto& seed) { return std::string(seed.param.name); });

// ---- depth -----------------------------------------------------------------------------------------------------

// Vertex points inside one another's runs: the innermost is coloured, and stands in that many runs.
RecordBytes NestedPoints(int runs)
{
    RecordBytes record = VertexBytes().Field(4, Int32(7));
    for (int i = 0; i < runs; ++i) record = VertexBytes().Field(9).Nested(record).Field(14);
    return record;
}

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
