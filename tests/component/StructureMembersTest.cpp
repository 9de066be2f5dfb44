// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Structure as a whole: counts, texts, what objects of a thread share and what empties it.
#include "component/StructureAccess.h"
#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace qor::test {
namespace {

using StructureMembers = StructureTest;

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

const Vertex Corner = {u"corner", 1, 2, 3, 4, true};

// One vertex point, two edge lines, three triangles, four quad surfaces.
void Fill(clsQOR_File& file)
{
    file.Structure_NumberOfVertexPoints(1);
    WriteVertex(file, 1, Corner);
    file.Structure_NumberOfEdgeLines(2);
    file.Structure_NumberOfSurfaceTriangles(3);
    ClassAdd_4().StructureNumberOfQuadSurfaces(4);
    modQOR_File().Structure.LargeStructureFormat = true;
}

void ExpectFilled(clsQOR_File& file)
{
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 1);
    EXPECT_EQ(ReadVertex(file, 1), Holds(Corner));
    EXPECT_EQ(file.Structure_NumberOfEdgeLines(), 2);
    EXPECT_EQ(file.Structure_NumberOfSurfaceTriangles(), 3);
    EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 4);
}

void ExpectEmpty(clsQOR_File& file)
{
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 0);
    EXPECT_EQ(file.Structure_NumberOfEdgeLines(), 0);
    EXPECT_EQ(file.Structure_NumberOfSurfaceTriangles(), 0);
    EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), 0);
    const Structure& structure = modQOR_File().Structure;
    EXPECT_EQ(structure.VertexPoints.Count(), 0);
    EXPECT_EQ(structure.EdgeLines.Count(), 0);
    EXPECT_EQ(structure.SurfaceTriangles.Count(), 0);
    EXPECT_EQ(structure.QuadSurfaces.Count(), 0);
    EXPECT_FALSE(structure.LargeStructureFormat);
}

// ---- lifecycle -----------------------------------------------------------------------------------------------

TEST_F(StructureMembers, BeginEmpty)
{
    ExpectEmpty(file);
    EXPECT_EQ(file.Structure_Label(), u"");
    EXPECT_EQ(file.Structure_Notes(), u"");
}

TEST_F(StructureMembers, WorkOnOneStructurePerThread)
{
    clsQOR_File other;
    Fill(other);
    ExpectFilled(file);

    OnAThreadOfItsOwn([] {
        clsQOR_File elsewhere;
        ExpectEmpty(elsewhere);
    });
    ExpectFilled(file);
}

TEST_F(StructureMembers, AreEmptyAfterANewObject)
{
    Fill(file);
    clsQOR_File other;
    ExpectEmpty(file);
}

TEST_F(StructureMembers, OutliveTheObjectThatFilledThem)
{
    auto other = std::make_unique<clsQOR_File>();
    Fill(*other);
    other.reset();
    ExpectFilled(file);
}

TEST_F(StructureMembers, AreEmptiedByInitialisation)
{
    for (void (clsQOR_File::*empty)() : {&clsQOR_File::InitializeStructureStorage, &clsQOR_File::Initialize}) {
        Fill(file);
        (file.*empty)();
        ExpectEmpty(file);
    }
}

TEST_F(StructureMembers, OfOtherDocumentsLeaveTheStructure)
{
    Fill(file);
    file.InitializeDataBlockStorage();
    file.InitializeDataBlockData();
    file.InitializeShapeTableStorage();
    ExpectFilled(file);
}

TEST_F(StructureMembers, EmptiedByInitialisationLeaveEveryErrorStatus)
{
    ReadQuad(1);
    file.ErrorStatus(AxisNumberError);
    file.InitializeStructureStorage();
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfacesNotAllocated);
}

// ---- texts ---------------------------------------------------------------------------------------------------

TEST_F(StructureMembers, KeepLabelAndNotesAsGiven)
{
    const std::u16string texts[] = {
        u"plain", u"", u"  blanks around  ", {u'a', u'\0', u'b'}, {0xD800, u'x', 0x00E4}, std::u16string(70000, u'n')};
    for (const std::u16string& text : texts) {
        file.Structure_Label(text);
        file.Structure_Notes(text + u"1");
        EXPECT_EQ(file.Structure_Label(), text);
        EXPECT_EQ(file.Structure_Notes(), text + u"1");
    }
}

TEST_F(StructureMembers, KeepLabelAndNotesForEachObject)
{
    clsQOR_File other;
    file.Structure_Label(u"first");
    other.Structure_Label(u"second");
    file.Structure_Notes(u"first notes");
    EXPECT_EQ(file.Structure_Label(), u"first");
    EXPECT_EQ(other.Structure_Label(), u"second");
    EXPECT_EQ(other.Structure_Notes(), u"");
}

TEST_F(StructureMembers, KeepLabelAndNotesWhateverBecomesOfTheElements)
{
    file.Structure_Label(u"label");
    file.Structure_Notes(u"notes");
    file.Structure_NumberOfEdgeLines(LargestInt32);
    file.InitializeStructureStorage();
    file.Initialize();
    clsQOR_File other;
    EXPECT_EQ(file.Structure_Label(), u"label");
    EXPECT_EQ(file.Structure_Notes(), u"notes");
}

// ---- counts --------------------------------------------------------------------------------------------------

TEST_F(StructureMembers, CountNegativeValuesAsZero)
{
    const std::pair<std::int32_t, std::int32_t> setAndRead[] = {{5, 5}, {-1, 0}, {7, 7}, {SmallestInt32, 0}, {0, 0}};
    for (const auto& [set, read] : setAndRead) {
        file.Structure_NumberOfVertexPoints(set);
        file.Structure_NumberOfEdgeLines(set);
        file.Structure_NumberOfSurfaceTriangles(set);
        ClassAdd_4().StructureNumberOfQuadSurfaces(set);
        EXPECT_EQ(file.Structure_NumberOfVertexPoints(), read) << set;
        EXPECT_EQ(file.Structure_NumberOfEdgeLines(), read) << set;
        EXPECT_EQ(file.Structure_NumberOfSurfaceTriangles(), read) << set;
        EXPECT_EQ(ClassAdd_4().StructureNumberOfQuadSurfaces(), read) << set;
        EXPECT_EQ(file.ErrorStatus(), NoError) << set;
    }
}

TEST_F(StructureMembers, SetToTheCountThatIsKeepEverything)
{
    Fill(file);
    const VertexPoint* const before = &StoredVertex(1);
    file.Structure_NumberOfVertexPoints(1);
    ExpectFilled(file);
    EXPECT_EQ(&StoredVertex(1), before) << "nothing was moved";
}

TEST_F(StructureMembers, CountedDownToZeroStayWhatTheyWereOtherwise)
{
    Fill(file);
    file.Structure_NumberOfEdgeLines(0);
    file.Structure_NumberOfSurfaceTriangles(0);
    ClassAdd_4().StructureNumberOfQuadSurfaces(0);
    EXPECT_EQ(ReadVertex(file, 1), Holds(Corner));
    EXPECT_TRUE(modQOR_File().Structure.LargeStructureFormat);
}

struct CountSetter {
    const char* name;
    void (*set)(clsQOR_File& file, std::int32_t value);
};
const CountSetter CountSetters[] = {
    {"VertexPoints", [](clsQOR_File& file, std::int32_t value) { file.Structure_NumberOfVertexPoints(value); }},
    {"EdgeLines", [](clsQOR_File& file, std::int32_t value) { file.Structure_NumberOfEdgeLines(value); }},
    {"SurfaceTriangles", [](clsQOR_File& file, std::int32_t value) { file.Structure_NumberOfSurfaceTriangles(value); }},
    {"QuadSurfaces", [](clsQOR_File&, std::int32_t value) { ClassAdd_4().StructureNumberOfQuadSurfaces(value); }},
};

class StructureCount : public StructureTest, public testing::WithParamInterface<CountSetter>
{};

TEST_P(StructureCount, ClearsAPendingSharedError)
{
    for (const std::int32_t value : {3, 3, 0}) { // also where nothing changes
        ReadQuad(-1);
        GetParam().set(file, value);
        EXPECT_EQ(file.ErrorStatus(), NoError) << value;
    }
}

TEST_P(StructureCount, LeavesTheObjectsOwnError)
{
    file.ErrorStatus(AxisNumberError);
    GetParam().set(file, 3);
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
}

TEST_P(StructureCount, BeyondMemoryEmptiesTheStructure)
{
    Fill(file);
    GetParam().set(file, LargestInt32);
    ExpectEmpty(file);
}

TEST_P(StructureCount, BeyondMemoryLeavesTheErrorOnTheThreadWithoutTextAndPost)
{
    file.ErrorStatus(SampleIndexError);
    platform::LastPostedError() = {};

    GetParam().set(file, LargestInt32);

    EXPECT_EQ(file.ErrorStatus(), SampleIndexError);
    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (11): Sample Index error");
    EXPECT_EQ(platform::LastPostedError().number, 0U);
}

TEST_P(StructureCount, BeyondMemoryIsForgottenWithTheNextCount)
{
    GetParam().set(file, LargestInt32);
    file.Structure_NumberOfVertexPoints(1);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(WriteVertex(file, 1, Corner), Success);
    EXPECT_EQ(ReadVertex(file, 1), Holds(Corner));
}

INSTANTIATE_TEST_SUITE_P(Lists, StructureCount, testing::ValuesIn(CountSetters),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(StructureMembers, OfTheComponentKeepTheResultOfTheirAllocation)
{
    for (const std::size_t setter : {0U, 1U, 2U}) {
        modQOR_File().LastAllocationResult = 1;
        CountSetters[setter].set(file, 1);
        EXPECT_EQ(modQOR_File().LastAllocationResult, Success);
        CountSetters[setter].set(file, LargestInt32);
        EXPECT_EQ(modQOR_File().LastAllocationResult, Failure);
    }
}

TEST_F(StructureMembers, ThatAppendLeaveTheResultOfTheLastAllocation)
{
    modQOR_File().LastAllocationResult = 5;
    WriteEdgeLine(file, -1, {});
    WriteTriangle(file, -1, {});
    EXPECT_EQ(modQOR_File().LastAllocationResult, 5);
}

TEST_F(StructureMembers, ThatAppendClearAPendingSharedError)
{
    ReadQuad(1);
    EXPECT_EQ(WriteEdgeLine(file, -1, {}), Success);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    ReadQuad(1);
    EXPECT_EQ(WriteTriangle(file, -1, {}), Success);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_F(StructureMembers, ThatReadOrWriteByNumberLeaveTheSharedError)
{
    Fill(file);
    ReadQuad(9);
    ReadVertex(file, 1);
    WriteVertex(file, 1, Corner);
    WriteEdgeLine(file, 1, {});
    ReadTriangle(file, 1);
    EXPECT_EQ(file.ErrorStatus(), QuadSurfaceIndexError);
}

} // namespace
} // namespace qor::test
