// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// X values, shapes and coordinates as whole arrays, and arrays that belong to no object.
#include "component/ArrayAccess.h"
#include "component/ShapeTableAccess.h"
#include "component/StructureAccess.h"
#include "structure/StructureFile.h"
#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

// ---- X values --------------------------------------------------------------------------------------------------

TEST(XaxisValues, AreComputedInDoubleWhileTheSpacingIsUniform)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(1000);
    file.DataBlock_XaxisStart(0.1F);
    file.DataBlock_XaxisIncrement(0.001F);

    const ArrayRead seen = ReadXaxis(FileArrays(file), 1000);

    EXPECT_EQ(seen.status, Success);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    int otherInFloat = 0;
    for (std::size_t i = 0; i < 1000; ++i) {
        const auto steps = static_cast<float>(i);
        EXPECT_EQ(seen.first[i], static_cast<float>(double{0.1F} + double{steps} * double{0.001F}));
        if (seen.first[i] != 0.1F + steps * 0.001F) ++otherInFloat;
    }
    EXPECT_GT(otherInFloat, 0);
}

TEST(XaxisValues, AreReadAndWrittenWhileTheyAreExplicit)
{
    clsQOR_File file;
    Size(file, 0, 3);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);

    EXPECT_EQ(FileArrays(file).WriteDataBlockXaxisValues(Values{1, 2, 4}), Success);

    EXPECT_EQ(ReadX(file, 3), (XaxisRead{Success, 4}));
    EXPECT_EQ(ReadXaxis(FileArrays(file), 3), Holds({1, 2, 4}, {}));
    EXPECT_EQ(ReadXaxis(FileArrays(), 3), Holds({1, 2, 4}, {}));
}

TEST(XaxisValues, OfAUniformAxisAreNotWritten)
{
    clsQOR_File file;
    Size(file, 1, 3);
    EXPECT_EQ(FileArrays(file).WriteDataBlockXaxisValues(Values(3)), Failure);
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
}

TEST(XaxisValues, AreNoneWithoutSamples)
{
    clsQOR_File file;
    for (const auto spacing : {XaxisSpacing_Uniform, XaxisSpacing_Octave}) {
        file.DataBlock_XaxisSpacing(spacing);
        EXPECT_EQ(ReadXaxis(FileArrays(file), 0), Untouched(0, 0));
        EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
        EXPECT_EQ(FileArrays(file).WriteDataBlockXaxisValues({}), Failure);
        EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
    }
}

TEST(XaxisValues, OfAnotherLengthAreRefused)
{
    clsQOR_File file;
    Size(file, 0, 3);
    for (const std::size_t length : {0U, 2U, 4U}) {
        file.DataBlock_XaxisSpacing(XaxisSpacing_Uniform);
        EXPECT_EQ(ReadXaxis(FileArrays(file), length), Untouched(length, 0));
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError);

        file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
        EXPECT_EQ(ReadXaxis(FileArrays(file), length), Untouched(length, 0));
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError);
        EXPECT_EQ(FileArrays(file).WriteDataBlockXaxisValues(Values(length, 9)), Failure);
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError);
        EXPECT_EQ(ReadXaxis(FileArrays(file), 3), Holds({0, 0, 0}, {}));
    }
}

TEST(XaxisValues, ThatAnotherObjectMadeAreNotSeen)
{
    clsQOR_File maker;
    clsQOR_File other;
    Size(maker, 0, 2);
    maker.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);

    EXPECT_EQ(ReadXaxis(FileArrays(other), 2), Untouched(2, 0));
    EXPECT_EQ(other.ErrorStatus(), XaxisNotAllocated);
    EXPECT_EQ(FileArrays(other).WriteDataBlockXaxisValues(Values(2)), Failure);
    EXPECT_EQ(other.ErrorStatus(), XaxisNotAllocated);
}

TEST(XaxisValues, ThatAFileLacksStayAsPassed)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "damaged.blk",
               SizedFile(0, 2).Field(6, Int16(2)).Field(10, Floats({1, 2})).Field(4, Int32(3)).Build());
    clsQOR_File file;
    ASSERT_EQ(file.InputDataBlockFile(Utf16(folder / "damaged.blk")), Success);

    EXPECT_EQ(ReadXaxis(FileArrays(file), 3), Holds({1, 2, UntouchedFirst}, {}));
    EXPECT_EQ(FileArrays(file).WriteDataBlockXaxisValues(Values{7, 8, 9}), Success);
    EXPECT_EQ(ReadXaxis(FileArrays(file), 3), Holds({7, 8, UntouchedFirst}, {}));
}

// ---- shapes ----------------------------------------------------------------------------------------------------

TEST(ShapeValues, AreThoseOfOneShape)
{
    clsQOR_File file;
    SizeShapes(file, 3, 2);
    NumberValues(file);

    EXPECT_EQ(ReadShapeRow(FileArrays(file), 2, 2, 2), Holds({201, 202}, {-1, -2}));
    EXPECT_EQ(ReadShapeRow(FileArrays(file), 2, 2, 0), Holds({201, 202}, {}));
    EXPECT_EQ(FileArrays(file).NumberOfDOFs(), 2);
}

TEST(ShapeValues, AreWrittenToOneShape)
{
    clsQOR_File file;
    SizeShapes(file, 3, 2);
    NumberValues(file);

    EXPECT_EQ(FileArrays(file).WriteShapeDOFvalues(2, Values{7, 8}, Values{70, 80}), Success);
    EXPECT_EQ(FileArrays(file).WriteShapeDOFvalues(3, Values{9, 10}, {}), Success);

    EXPECT_EQ(ReadShapeRow(FileArrays(file), 1, 2, 2), Holds({101, 102}, {-1, -2}));
    EXPECT_EQ(ReadShapeRow(FileArrays(file), 2, 2, 2), Holds({7, 8}, {70, 80}));
    EXPECT_EQ(ReadShapeRow(FileArrays(file), 3, 2, 2), Holds({9, 10}, {0, 0})) << "phases are zeros unless given";
}

struct RefusedShape {
    const char* name;
    std::int32_t shapes;
    std::int32_t dofs;
    std::int32_t shape;
    std::size_t magnitudes;
    std::size_t phases;
    ErrorStatusTypes reading;
    ErrorStatusTypes writing;
};

constexpr RefusedShape RefusedShapes[] = {
    {"EmptyTable", 0, 0, 1, 0, 0, ShapeDataNotAllocated, ShapeDataNotAllocated},
    {"NoShapes", 0, 2, 1, 2, 2, ShapeDataNotAllocated, ShapeDataNotAllocated},
    {"ShapeZero", 3, 2, 0, 2, 2, SampleIndexError, ShapeIndexError},
    {"ShapeOneTooMany", 3, 2, 4, 2, 2, SampleIndexError, ShapeIndexError},
    {"ShapeNumberComesBeforeNoDOFs", 3, 0, 4, 0, 0, SampleIndexError, ShapeIndexError},
    {"ShapeNumberComesBeforeTheLengths", 3, 2, 4, 1, 1, SampleIndexError, ShapeIndexError},
    {"NoDOFs", 3, 0, 1, 0, 0, DOFsNotAllocated, DOFsNotAllocated},
    {"NoDOFsComesBeforeTheLengths", 3, 0, 1, 1, 1, DOFsNotAllocated, DOFsNotAllocated},
    {"MagnitudesAbsent", 3, 2, 1, 0, 2, DOFIndexError, DOFIndexError},
    {"MagnitudesTooShort", 3, 2, 1, 1, 2, DOFIndexError, DOFIndexError},
    {"MagnitudesTooLong", 3, 2, 1, 3, 2, DOFIndexError, DOFIndexError},
    {"PhasesTooShort", 3, 2, 1, 2, 1, DOFIndexError, DOFIndexError},
    {"PhasesTooLong", 3, 2, 1, 2, 3, DOFIndexError, DOFIndexError},
    {"AllValuesOfTheTable", 3, 2, 1, 6, 6, DOFIndexError, DOFIndexError},
};

class RefusedShapeValues : public testing::TestWithParam<RefusedShape>
{
protected:
    void SetUp() override
    {
        SizeShapes(file, GetParam().shapes, GetParam().dofs);
        NumberValues(file);
    }

    clsQOR_File file;
};

TEST_P(RefusedShapeValues, AreReportedByAReadThatLeavesTheArrays)
{
    const RefusedShape& access = GetParam();
    EXPECT_EQ(ReadShapeRow(FileArrays(file), access.shape, access.magnitudes, access.phases),
              Untouched(access.magnitudes, access.phases));
    EXPECT_EQ(file.ErrorStatus(), access.reading);
}

TEST_P(RefusedShapeValues, AreReportedByAWriteThatChangesNothing)
{
    const RefusedShape& access = GetParam();
    const Values magnitudes(access.magnitudes, 9);
    const Values phases(access.phases, 9);
    EXPECT_EQ(FileArrays(file).WriteShapeDOFvalues(access.shape, magnitudes, phases), Failure);
    EXPECT_EQ(file.ErrorStatus(), access.writing);
    for (std::int32_t shape = 1; shape <= access.shapes; ++shape) {
        for (std::int32_t dof = 1; dof <= access.dofs; ++dof) {
            EXPECT_EQ(ReadShape(file, shape, dof), Numbered(shape, dof));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ShapeValues, RefusedShapeValues, testing::ValuesIn(RefusedShapes),
                         [](const auto& each) { return each.param.name; });

// The crossed comparison of extents leaves a matrix of 4 shapes and 3 DOFs beside records of 3 and 4.
TEST(ShapeValues, ThatTheMatrixLacksStayAsPassed)
{
    clsQOR_File file;
    clsQOR_File other;
    SizeShapes(file, 3, 3);
    SizeShapes(other, 4, 3);
    NumberValues(other);

    file.ShapeTable_NumberOfDOFs(4);

    ASSERT_EQ(modQOR_File().ShapeTable.ShapeValues->Shapes(), 4);
    EXPECT_EQ(ReadShapeRow(FileArrays(file), 2, 4, 4),
              Holds({201, 202, 203, UntouchedFirst}, {-1, -2, -3, UntouchedSecond}));
    EXPECT_EQ(FileArrays(file).WriteShapeDOFvalues(2, Values{6, 7, 8, 9}, {}), Success);
    EXPECT_EQ(ReadShapeRow(FileArrays(other), 2, 3, 0), Holds({6, 7, 8}, {}));
    EXPECT_EQ(ReadShapeRow(FileArrays(other), 3, 3, 0), Holds({301, 302, 303}, {})) << "the next shape";
    EXPECT_EQ(FileArrays().NumberOfDOFs(), 4) << "that of the records";
}

TEST(ShapeValues, OfAShapeThatTheMatrixLacksStayAsPassed)
{
    clsQOR_File file;
    clsQOR_File other;
    SizeShapes(file, 3, 2);
    SizeShapes(other, 1, 2);
    NumberValues(other);

    EXPECT_EQ(ReadShapeRow(FileArrays(file), 2, 2, 2),
              (ArrayRead{Success, Values(2, UntouchedFirst), Values(2, UntouchedSecond)}));
    EXPECT_EQ(FileArrays(file).WriteShapeDOFvalues(2, Values{7, 8}, {}), Success);
    EXPECT_EQ(ReadShapeRow(FileArrays(other), 1, 2, 0), Holds({101, 102}, {}));
}

TEST(ShapeValues, AreCountedByTheObjectThatSizedThem)
{
    clsQOR_File maker;
    clsQOR_File other;
    SizeShapes(maker, 3, 2);

    EXPECT_EQ(FileArrays(other).NumberOfDOFs(), 0);
    EXPECT_EQ(ReadShapeRow(FileArrays(other), 1, 2, 2), Untouched(2, 2));
    EXPECT_EQ(other.ErrorStatus(), ShapeDataNotAllocated);

    other.InitializeShapeTableStorage();
    EXPECT_EQ(FileArrays(maker).NumberOfDOFs(), 2);
    EXPECT_EQ(ReadShapeRow(FileArrays(maker), 1, 2, 2),
              (ArrayRead{Success, Values(2, UntouchedFirst), Values(2, UntouchedSecond)}))
        << "there are no values any more";
    EXPECT_EQ(FileArrays(maker).WriteShapeDOFvalues(1, Values(2), {}), Success);
}

// ---- coordinates -----------------------------------------------------------------------------------------------

class Coordinates : public StructureTest
{
protected:
    // Three arrays as a read leaves them.
    struct Seen {
        ReturnStatus status = Failure;
        Values x, y, z;
        bool operator==(const Seen&) const = default;
    };
    static Seen Untouched(std::size_t x, std::size_t y, std::size_t z)
    {
        return {Failure, Values(x, UntouchedFirst), Values(y, UntouchedFirst), Values(z, UntouchedFirst)};
    }
    Seen ReadAll(std::size_t x, std::size_t y, std::size_t z)
    {
        Seen seen = Untouched(x, y, z);
        seen.status = FileArrays(file).ReadStructureVertexPointCoordinates(seen.x, seen.y, seen.z);
        return seen;
    }
    void MakeTwoPoints()
    {
        file.Structure_NumberOfVertexPoints(2);
        WriteVertex(file, 1, {u"one", 1, 2, 3, 255, true});
        WriteVertex(file, 2, {u"two", 4, 5, 6, 65280, false});
    }
};

TEST_F(Coordinates, AreReadOfAllPoints)
{
    MakeTwoPoints();
    EXPECT_EQ(ReadAll(2, 2, 2), (Seen{Success, {1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(FileArrays(file).NumberOfVertexPoints(), 2);
}

TEST_F(Coordinates, AreWrittenWithWhatElseThePointsHave)
{
    MakeTwoPoints();
    file.WriteStructureVertexPointInformation(2, 1, Spherical, Zaxis, 2.5F);

    EXPECT_EQ(FileArrays(file).WriteStructureVertexPointCoordinates(Values{7, 8}, Values{9, 10}, Values{11, 12}),
              Success);

    EXPECT_EQ(ReadVertex(file, 1), Holds(Vertex{u"one", 7, 9, 11, 255, true}));
    EXPECT_EQ(ReadVertex(file, 2), Holds(Vertex{u"two", 8, 10, 12, 65280, false}));
    EXPECT_EQ(StoredVertex(2).CenterPoint, 1);
    EXPECT_EQ(StoredVertex(2).Area, 2.5F);
}

TEST_F(Coordinates, BringTheLocalAxesInLineWithTheStructure)
{
    file.Structure_NumberOfVertexPoints(1);
    file.WriteStructureVertexPointTransform(1, Yaxis, 5, 6, 7);

    FileArrays(file).WriteStructureVertexPointCoordinates(Values{1}, Values{2}, Values{3});

    EXPECT_EQ(ReadAxis(file, 1, Xaxis), (AxisRead{Success, 1, 0, 0}));
    EXPECT_EQ(ReadAxis(file, 1, Yaxis), (AxisRead{Success, 0, 1, 0}));
    EXPECT_EQ(ReadAxis(file, 1, Zaxis), (AxisRead{Success, 0, 0, 1}));
}

// What reading and writing a point does to its label.
TEST_F(Coordinates, TrimTheLabelsOfAFileAndKeepAnAbsentOne)
{
    const TemporaryFolder folder;
    const Bytes points = VertexBytes().Field(7, Text(u"  two blanks")).Build() + VertexBytes().Build();
    WriteBytes(folder / "labels.str", StructureFile().Record(SubStructureOf(points)).Build());
    ASSERT_EQ(file.InputStructureFile(Utf16(folder / "labels.str")), Success);

    EXPECT_EQ(FileArrays(file).WriteStructureVertexPointCoordinates(Values(2), Values(2), Values(2)), Success);

    EXPECT_EQ(StoredLabel(1), u"two blanks          ");
    EXPECT_EQ(StoredLabel(2), std::u16string(20, u'\0'));
}

TEST_F(Coordinates, OfNoPointsAreReportedAsByTheMembers)
{
    EXPECT_EQ(ReadAll(0, 0, 0), Untouched(0, 0, 0));
    EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated);
    EXPECT_EQ(FileArrays(file).WriteStructureVertexPointCoordinates({}, {}, {}), Failure);
    EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError);
}

TEST_F(Coordinates, OfAnotherLengthAreRefusedAndChangeNothing)
{
    MakeTwoPoints();
    const std::size_t lengths[][3] = {{0, 0, 0}, {1, 1, 1}, {3, 3, 3}, {1, 2, 2}, {2, 1, 2}, {2, 2, 1},
                                      {3, 2, 2}, {2, 3, 2}, {2, 2, 3}, {0, 2, 2}, {2, 0, 2}, {2, 2, 0}};
    for (const auto& [x, y, z] : lengths) {
        EXPECT_EQ(ReadAll(x, y, z), Untouched(x, y, z));
        EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError);
        EXPECT_EQ(FileArrays(file).WriteStructureVertexPointCoordinates(Values(x), Values(y), Values(z)), Failure);
        EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError);
    }
    EXPECT_EQ(ReadAll(2, 2, 2), (Seen{Success, {1, 4}, {2, 5}, {3, 6}}));
}

// ---- arrays that belong to no object -----------------------------------------------------------------------------

TEST(FileArraysAlone, SeeTheDocumentsOfTheirThread)
{
    clsQOR_File file;
    Size(file, 1, 2, DataFormat_MgnitudePhase);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    SizeShapes(file, 2, 3);
    file.Structure_NumberOfVertexPoints(4);
    FileArrays alone;

    EXPECT_EQ(alone.NumberOfSamples(), 2);
    EXPECT_EQ(alone.NumberOfDOFs(), 3);
    EXPECT_EQ(alone.NumberOfVertexPoints(), 4);
    EXPECT_EQ(alone.WriteTraceSamples(1, Values{3, 4}, Values{-3, -4}), Success);
    EXPECT_EQ(ReadTrace(alone, 1, 2, 2), Holds({3, 4}, {-3, -4})) << "not magnitude and phase";
    EXPECT_EQ(alone.WriteDataBlockXaxisValues(Values{1, 5}), Success);
    EXPECT_EQ(ReadX(file, 2), (XaxisRead{Success, 5}));
    EXPECT_EQ(alone.WriteShapeDOFvalues(2, Values{1, 2, 3}, {}), Success);
    EXPECT_EQ(ReadShape(file, 2, 3), Holds(3));
    EXPECT_EQ(alone.WriteStructureVertexPointCoordinates(Values(4), Values(4), Values(4, 9)), Success);
    EXPECT_EQ(StoredVertex(4).Zcoord, 9);
}

TEST(FileArraysAlone, LeaveErrorsAsTheSharedErrorStatus)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        Size(file, 1, 2);

        EXPECT_EQ(ReadTrace(FileArrays(), 2, 2, 2), Untouched(2, 2));
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
        EXPECT_EQ(FileArrays().WriteDataBlockXaxisValues(Values(2)), Failure);
        EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
        EXPECT_EQ(FileArrays().WriteShapeDOFvalues(1, {}, {}), Failure);
        EXPECT_EQ(file.ErrorStatus(), ShapeDataNotAllocated);
        EXPECT_EQ(FileArrays().ReadStructureVertexPointCoordinates({}, {}, {}), Failure);
        EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated);

        EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated) << "it stays until the next call";
        EXPECT_EQ(ReadTrace(FileArrays(), 1, 2, 0).status, Success);
        EXPECT_EQ(file.ErrorStatus(), NoError);
        EXPECT_EQ(file.GetLastErrorString(), u"") << "there was no text";
    });
}

TEST(FileArraysOfAnObject, LeaveErrorsInThatObjectAlone)
{
    clsQOR_File file;
    clsQOR_File other;
    EXPECT_EQ(ReadTrace(FileArrays(file), 1, 0, 0), Untouched(0, 0));
    EXPECT_EQ(other.ErrorStatus(), NoError);
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

} // namespace
} // namespace qor::test
