// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The two file members of the component: paths, what a read or a write does to the component's state, what they
// report.
#include "structure/StructureFiles.h"

namespace qor::test {
namespace {

// ---- round trips ---------------------------------------------------------------------------------------------------

TEST_F(StructureFiles, OutputWritesAFileThatInputReads)
{
    component.Structure_Label(u"written");
    component.Structure_Notes(u" notes ");
    component.Structure_NumberOfVertexPoints(2);
    component.WriteStructureVertexPoint(1, u" P1 ", 1, 2, 3, 0xFF, true);
    component.WriteStructureVertexPoint(2, u"P2", 0, 0, 0);
    component.WriteStructureVertexPointInformation(1, 2, Cylindrical, Zaxis, 0.5F);
    component.WriteStructureVertexPointTransform(1, Yaxis, 4, 5, 6);
    component.WriteStructureEdgeLine(-1, 1, 2, 7, true);
    component.WriteStructureSurfaceTriangle(-1, 1, 2, 1, 8, false);
    quads.WriteStructureQuadSurface(-1, 1, 2, 2, 1, 9, true);

    const Bytes written = Output();

    clsQOR_File reader; // empties the thread's Structure
    ASSERT_EQ(reader.InputStructureFile(Path("output.str")), Success);
    EXPECT_EQ(reader.ErrorStatus(), NoError);
    EXPECT_EQ(reader.Structure_Label(), u"written");
    EXPECT_EQ(reader.Structure_Notes(), u"notes");
    ASSERT_EQ(reader.Structure_NumberOfVertexPoints(), 2);
    std::u16string label;
    float x = 0;
    float y = 0;
    float z = 0;
    std::int32_t color = 0;
    Bool16 bold;
    EXPECT_EQ(reader.ReadStructureVertexPoint(1, label, x, y, z, color, bold), Success);
    EXPECT_EQ(label, u"P1");
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
    EXPECT_EQ(color, 0xFF);
    EXPECT_EQ(bold.value, -1);
    EXPECT_EQ(reader.ReadStructureVertexPointTransform(1, Yaxis, x, y, z), Success);
    EXPECT_EQ(x, 4);
    EXPECT_EQ(y, 5);
    EXPECT_EQ(z, 6);
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::int32_t third = 0;
    std::int32_t fourth = 0;
    EXPECT_EQ(reader.ReadStructureEdgeLine(1, first, second, color, bold), Success);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(color, 7);
    EXPECT_EQ(reader.ReadStructureSurfaceTriangle(1, first, second, third, color, bold), Success);
    EXPECT_EQ(color, 8);
    EXPECT_EQ(bold.value, 0);
    EXPECT_EQ(quads.ReadStructureQuadSurface(1, first, second, third, fourth, color, bold), oReturnStatus::Success);
    EXPECT_EQ(third, 2);
    EXPECT_EQ(color, 9);
    ASSERT_EQ(reader.OutputStructureFile(Path("again.str")), Success);
    EXPECT_EQ(BytesOf(folder / "again.str"), written) << "center, type, normal axis and area are the same too";
}

TEST_F(StructureFiles, ExtraValuesGoFromFileToFile)
{
    const Bytes point = VertexBytes()
                            .Field(85, Int32(1))
                            .Field(83, Int32(11))
                            .Field(2, Floats({1, 2, 3}))
                            .Field(4, Int32(0))
                            .Field(5, Int16(0))
                            .Field(7, Text(u"P"))
                            .Field(22, Int16(0))
                            .Field(23, Bytes(36))
                            .Field(67, Float(0))
                            .Field(68, Int16(0))
                            .Build();
    const Bytes rest = Int16(3) + Int32(0) + Int16(4) + Int16(0);
    const Bytes line = EdgeLineBytes().Field(7, Bytes(8)).Field(6, Int32(12)).Raw(rest).Build();
    const Bytes triangle = TriangleBytes().Field(8, Bytes(12)).Field(7, Int32(13)).Raw(rest).Build();
    const Bytes quad = QuadBytes().Field(8, Bytes(16)).Field(7, Int32(14)).Raw(rest).Build();
    const Bytes file = StructureFile().Version(15).Record(SubStructureOf(point + line + triangle + quad)).Build();

    EXPECT_EQ(component.InputStructureFile(Put(file)), Success);

    EXPECT_EQ(Output(), file);
}

TEST_F(StructureFiles, ABlankLabelComesBackAsZeroCharactersThatTheNextOutputWrites)
{
    component.Structure_NumberOfVertexPoints(1);
    const std::size_t withoutLabel = Output().size();

    component.InputStructureFile(Path("output.str"));

    EXPECT_EQ(Output().size(), withoutLabel + 2 + 4 + 40);
}

// ---- InputStructureFile --------------------------------------------------------------------------------------------

TEST_F(StructureFiles, InputTakesThePathWithoutTheBlanksAroundIt)
{
    EXPECT_EQ(component.InputStructureFile(u"  " + Put(OnePoint()) + u" "), Success);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 1);
}

TEST_F(StructureFiles, InputReplacesTheEarlierStructure)
{
    component.Structure_NumberOfVertexPoints(3);
    component.Structure_NumberOfEdgeLines(3);
    component.Structure_NumberOfSurfaceTriangles(3);
    quads.StructureNumberOfQuadSurfaces(3);

    component.InputStructureFile(Put(OnePoint()));

    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 1);
    EXPECT_EQ(component.Structure_NumberOfEdgeLines(), 0);
    EXPECT_EQ(component.Structure_NumberOfSurfaceTriangles(), 0);
    EXPECT_EQ(quads.StructureNumberOfQuadSurfaces(), 0);
}

TEST_F(StructureFiles, InputLeavesTheOtherDocuments)
{
    component.DataBlock_NumberOfTraces(3);
    component.ShapeTable_NumberOfShapes(2);

    for (const std::u16string& path : {Put(OnePoint()), Path("missing.str")}) component.InputStructureFile(path);

    EXPECT_EQ(component.DataBlock_NumberOfTraces(), 3);
    EXPECT_EQ(component.ShapeTable_NumberOfShapes(), 2);
}

TEST_F(StructureFiles, InputKeepsTheLabelAndTheNotesThatAFileDoesNotReplace)
{
    component.Structure_Label(u"own label");
    component.Structure_Notes(u"own notes");

    component.InputStructureFile(Put(OnePoint(u"of the file")));

    EXPECT_EQ(component.Structure_Label(), u"own label");
    EXPECT_EQ(component.Structure_Notes(), u"own notes");
}

TEST_F(StructureFiles, TheLabelOfTheFirstFileStaysWithItsObject)
{
    clsQOR_File other;
    component.InputStructureFile(Put(OnePoint(u"first")));

    component.InputStructureFile(Put(OnePoint(u"second")));
    other.InputStructureFile(Put(OnePoint(u"second")));

    EXPECT_EQ(component.Structure_Label(), u"first");
    EXPECT_EQ(other.Structure_Label(), u"second");
}

TEST_F(StructureFiles, InputOfAFileThatCannotBeOpenedIsASuccessWithAnEmptyStructure)
{
    std::filesystem::create_directory(folder / "directory");
    for (const std::u16string& path : {std::u16string(u"   "), Path("missing.str"), Path("directory")}) {
        component.Structure_Label(u"stays");
        component.Structure_NumberOfVertexPoints(2);
        component.ErrorStatus(TraceIndexError);

        EXPECT_EQ(component.InputStructureFile(path), Success);

        EXPECT_EQ(component.ErrorStatus(), TraceIndexError) << "untouched";
        EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 0);
        EXPECT_EQ(component.Structure_Label(), u"stays");
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "missing.str"));
}

TEST_F(StructureFiles, InputOfAnEmptyPathWithNoFileOpenChangesNothing)
{
    component.Structure_NumberOfVertexPoints(2);

    EXPECT_EQ(component.InputStructureFile(u""), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 2);
}

TEST_F(StructureFiles, InputReportsAFileWithoutAPreamble)
{
    component.Structure_NumberOfVertexPoints(2);

    EXPECT_EQ(component.InputStructureFile(Put(Bytes(300, 'x'))), Failure);

    EXPECT_EQ(component.GetLastErrorString(), u"Error (9): Output file read error");
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 0);
}

TEST_F(StructureFiles, InputReportsAnEmptyFile)
{
    EXPECT_EQ(component.InputStructureFile(Put(Bytes())), Failure);
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
}

TEST_F(StructureFiles, InputReportsAVersionAbove15)
{
    EXPECT_EQ(component.InputStructureFile(Put(Refused())), Failure);

    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 0);
}

TEST_F(StructureFiles, InputReportsAMissingEndMarkerBesideSuccess)
{
    EXPECT_EQ(component.InputStructureFile(Put(OnePoint().WithoutEndMarker())), Success);

    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 1);
}

TEST_F(StructureFiles, AFailedInputLeavesTheElementsReadSoFar)
{
    Bytes bytes = StructureFile().Raw(Colored(1) + Colored(2)).WithoutEndMarker().Build();
    bytes.pop_back();

    EXPECT_EQ(component.InputStructureFile(Put(bytes)), Failure);

    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 2);
    EXPECT_EQ(ColorOfPoint(2), 2);
}

TEST_F(StructureFiles, ElementsWithNumbersThatDoNotExistAreTakenAsTheyStand)
{
    component.InputStructureFile(Put(StructureFile().Record(EdgeLineBytes().Field(2, Int16(-5) + Int16(700)))));

    std::int32_t start = 0;
    std::int32_t end = 0;
    std::int32_t color = 0;
    Bool16 bold;
    EXPECT_EQ(component.ReadStructureEdgeLine(1, start, end, color, bold), Success);
    EXPECT_EQ(start, -5);
    EXPECT_EQ(end, 700);
}

// ---- the variant
// -----------------------------------------------------------------------------------------------------

TEST_F(StructureFiles, AStructureFromAFileOfVersion13To15IsWrittenLarge)
{
    for (const auto& [read, written] : {std::pair(13, 15), std::pair(14, 15), std::pair(15, 15), std::pair(12, 12),
                                        std::pair(11, 12), std::pair(-32768, 12)}) {
        component.InputStructureFile(Put(StructureFile().Version(read)));

        EXPECT_EQ(OutputVersion(), written) << read;
    }
}

TEST_F(StructureFiles, InputThatFailsLeavesASmallStructure)
{
    component.InputStructureFile(Put(StructureFile().Version(15)));

    component.InputStructureFile(Put(Refused()));

    EXPECT_EQ(OutputVersion(), 12);
}

TEST_F(StructureFiles, AStructureThatWasLargeStaysLargeUntilItIsEmptied)
{
    component.Structure_NumberOfVertexPoints(32000);
    EXPECT_EQ(OutputVersion(), 12);
    component.Structure_NumberOfVertexPoints(32001);
    EXPECT_EQ(OutputVersion(), 15);
    component.Structure_NumberOfVertexPoints(1);
    EXPECT_EQ(OutputVersion(), 15);

    component.InitializeStructureStorage();

    EXPECT_EQ(OutputVersion(), 12);
}

// ---- OutputStructureFile
// ---------------------------------------------------------------------------------------------

TEST_F(StructureFiles, OutputOfAnEmptyStructureHas65Bytes) { EXPECT_EQ(Output().size(), 65u); }

TEST_F(StructureFiles, OutputReplacesALongerFileCompletely)
{
    component.Structure_NumberOfVertexPoints(100);
    ASSERT_GT(Output().size(), 65u);
    component.Structure_NumberOfVertexPoints(0);

    EXPECT_EQ(Output().size(), 65u);
}

TEST_F(StructureFiles, OutputThatCannotOpenItsFileFailsWithoutACode)
{
    std::filesystem::create_directory(folder / "directory");
    for (const std::u16string& path : {std::u16string(), Utf16(folder / "missing" / "output.str"), Path("directory")}) {
        component.ErrorStatus(TraceIndexError);

        EXPECT_EQ(component.OutputStructureFile(path), Failure);

        EXPECT_EQ(component.ErrorStatus(), TraceIndexError) << "untouched";
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder / "directory"));
}

TEST_F(StructureFiles, OutputTakesThePathWithItsBlanks)
{
    EXPECT_EQ(component.OutputStructureFile(Path("name ")), Success);

    EXPECT_TRUE(std::filesystem::exists(folder / "name "));
}

TEST_F(StructureFiles, OutputTakesAPathOfBlanksForAName)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder / "");

    EXPECT_EQ(component.OutputStructureFile(u"  "), Success);

    std::filesystem::current_path(before);
    EXPECT_TRUE(std::filesystem::exists(folder / "  "));
}

TEST_F(StructureFiles, OutputChangesNeitherTextsNorErrorStatus)
{
    component.Structure_Label(u" label ");
    component.Structure_Notes(u" notes ");
    component.ErrorStatus(TraceIndexError);

    Output();

    EXPECT_EQ(component.Structure_Label(), u" label ");
    EXPECT_EQ(component.Structure_Notes(), u" notes ");
    EXPECT_EQ(component.ErrorStatus(), TraceIndexError);
}

TEST_F(StructureFiles, OutputWritesTheLabelOfItsOwnObject)
{
    clsQOR_File other;
    other.Structure_Label(u"other");
    component.Structure_Label(u"own");

    EXPECT_EQ(Output(), StructureFile().Record(SubStructureBytes().Field(1, Int16(1)).Field(2, Text(u"own"))).Build());
}

} // namespace
} // namespace qor::test
