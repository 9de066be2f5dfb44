// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What qor export writes, to the letter, and what it refuses. Whether other programs can read it:
// ExportedFilesTest.cpp.
#include "tools/Workshop.h"
#include "tools/export/GeometryFile.h"

#include <gmock/gmock.h>

#include <limits>

namespace {

using namespace qor::test;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

TEST(ExportObj, WritesPointsLinesAndFaces)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Ran ran = workshop.Qor("export plate.str plate.obj");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "plate.obj: 5 points, 2 lines, 2 triangles, 1 quad (142 bytes)\n");
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(workshop.Read("plate.obj"), "o Plate 7\n"
                                          "v 0 0 0 1 0 0\n"
                                          "v 0.5 0 0 0 0 0\n"
                                          "v 0.5 0.3 0 0 0 0\n"
                                          "v 0 0.3 0 0 0 0\n"
                                          "v 0.25 0.15 0.1 1 0.5019608 0\n"
                                          "l 1 5\n"
                                          "l 4 5\n"
                                          "f 1 2 5\n"
                                          "f 3 4 5\n"
                                          "f 1 2 3 4\n");
}

TEST(ExportObj, HasNoNameWithoutALabelAndNoColorsWhereAllIsBlack)
{
    const Workshop workshop;
    GeometryFile().Point(1, 2, 3, u"A").Line(1, 1, Red).Save(workshop / "a.str");

    workshop.Qor("export a.str a.obj");

    EXPECT_EQ(workshop.Read("a.obj"), "v 1 2 3\nl 1 1\n");
}

TEST(ExportObj, TakesNoBackslashIntoTheName)
{
    const Workshop workshop;
    GeometryFile().Label(u"C:\\plates\\").Point(0, 0, 0).Save(workshop / "a.str");

    workshop.Qor("export a.str a.obj");

    EXPECT_EQ(workshop.Read("a.obj"), "o C:/plates/\nv 0 0 0\n");
}

TEST(ExportPly, WritesPointsFacesAndLines)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Ran ran = workshop.Qor("export plate.str plate.ply");

    EXPECT_EQ(ran.output, "plate.ply: 5 points, 2 lines, 2 triangles, 1 quad (594 bytes)\n");
    EXPECT_EQ(workshop.Read("plate.ply"), "ply\n"
                                          "format ascii 1.0\n"
                                          "comment label Plate 7\n"
                                          "comment notes first second\n"
                                          "element vertex 5\n"
                                          "property float x\n"
                                          "property float y\n"
                                          "property float z\n"
                                          "property uchar red\n"
                                          "property uchar green\n"
                                          "property uchar blue\n"
                                          "element face 3\n"
                                          "property list uchar int vertex_indices\n"
                                          "property uchar red\n"
                                          "property uchar green\n"
                                          "property uchar blue\n"
                                          "element edge 2\n"
                                          "property int vertex1\n"
                                          "property int vertex2\n"
                                          "property uchar red\n"
                                          "property uchar green\n"
                                          "property uchar blue\n"
                                          "end_header\n"
                                          "0 0 0 255 0 0\n"
                                          "0.5 0 0 0 0 0\n"
                                          "0.5 0.3 0 0 0 0\n"
                                          "0 0.3 0 0 0 0\n"
                                          "0.25 0.15 0.1 255 128 0\n"
                                          "3 0 1 4 255 128 0\n"
                                          "3 2 3 4 0 0 0\n"
                                          "4 0 1 2 3 255 0 0\n"
                                          "0 4 0 255 0\n"
                                          "3 4 0 0 0\n");
}

TEST(ExportPly, HasOnlyTheElementsAndColorsThatThereAre)
{
    const Workshop workshop;
    GeometryFile().Point(1, 2, 3).Point(4, 5, 6).Line(1, 2).Save(workshop / "a.str");

    workshop.Qor("export a.str a.ply");

    EXPECT_THAT(workshop.Read("a.ply"), EndsWith("element vertex 2\n"
                                                 "property float x\n"
                                                 "property float y\n"
                                                 "property float z\n"
                                                 "element edge 1\n"
                                                 "property int vertex1\n"
                                                 "property int vertex2\n"
                                                 "end_header\n"
                                                 "1 2 3\n"
                                                 "4 5 6\n"
                                                 "0 1\n"));
}

TEST(ExportVtk, WritesAGridWithColorsAndLabels)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Ran ran = workshop.Qor("export plate.str plate.vtk");

    EXPECT_EQ(ran.output, "plate.vtk: 5 points, 2 lines, 2 triangles, 1 quad (463 bytes)\n");
    EXPECT_EQ(workshop.Read("plate.vtk"), "# vtk DataFile Version 3.0\n"
                                          "Plate 7\n"
                                          "ASCII\n"
                                          "DATASET UNSTRUCTURED_GRID\n"
                                          "POINTS 5 float\n"
                                          "0 0 0\n"
                                          "0.5 0 0\n"
                                          "0.5 0.3 0\n"
                                          "0 0.3 0\n"
                                          "0.25 0.15 0.1\n"
                                          "CELLS 5 19\n"
                                          "2 0 4\n"
                                          "2 3 4\n"
                                          "3 0 1 4\n"
                                          "3 2 3 4\n"
                                          "4 0 1 2 3\n"
                                          "CELL_TYPES 5\n"
                                          "3\n3\n5\n5\n9\n"
                                          "CELL_DATA 5\n"
                                          "SCALARS color unsigned_char 3\n"
                                          "LOOKUP_TABLE default\n"
                                          "0 255 0\n"
                                          "0 0 0\n"
                                          "255 128 0\n"
                                          "0 0 0\n"
                                          "255 0 0\n"
                                          "POINT_DATA 5\n"
                                          "SCALARS color unsigned_char 3\n"
                                          "LOOKUP_TABLE default\n"
                                          "255 0 0\n"
                                          "0 0 0\n"
                                          "0 0 0\n"
                                          "0 0 0\n"
                                          "255 128 0\n"
                                          "FIELD FieldData 1\n"
                                          "label 1 5 string\n"
                                          "A\n"
                                          "B\n"
                                          "\n"
                                          "D%2050%25\n"
                                          "Tr%C3%A4ger\n");
}

TEST(ExportVtk, HasATitleButNoColorsAndLabelsWhereThereAreNone)
{
    const Workshop workshop;
    GeometryFile().Point(1, 2, 3).Save(workshop / "a.str");

    workshop.Qor("export a.str a.vtk");

    EXPECT_EQ(workshop.Read("a.vtk"), "# vtk DataFile Version 3.0\n"
                                      "Structure\n"
                                      "ASCII\n"
                                      "DATASET UNSTRUCTURED_GRID\n"
                                      "POINTS 1 float\n"
                                      "1 2 3\n"
                                      "CELLS 0 0\n"
                                      "CELL_TYPES 0\n");
}

TEST(ExportVtk, LeavesLabelsOutWhereToldTo)
{
    const Workshop workshop;
    GeometryFile().Point(1, 2, 3, u"A").Save(workshop / "a.str");

    workshop.Qor("export a.str a.vtk --no-labels");

    EXPECT_THAT(workshop.Read("a.vtk"), EndsWith("CELL_TYPES 0\n"));
}

TEST(ExportObj, RefusesTheOptionForLabelsOfVtkFiles)
{
    const Workshop workshop;
    GeometryFile().Point(1, 2, 3, u"A").Save(workshop / "a.str");

    const Ran ran = workshop.Qor("export a.str a.obj --no-labels");

    EXPECT_EQ(ran.exitCode, 2);
    EXPECT_EQ(ran.errors, "qor: --no-labels is for .vtk files\n");
    EXPECT_FALSE(workshop.Has("a.obj"));
}

TEST(ExportCsv, WarnsOfTracesWithoutSamples)
{
    const Workshop workshop;
    SaveOneTraceOfThree(workshop / "a.blk");

    const Ran ran = workshop.Qor("export a.blk a.csv");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "qor: a.blk: warning: 2 of 3 traces without samples\n");
}

TEST(ExportCsv, WritesWhatDumpWrites)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Shell("\"$QOR\" dump a.blk --format csv >dumped.csv; \"$QOR\" export a.blk a.csv");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "a.csv: 3 real traces of 4 samples (109 bytes)\n");
    EXPECT_THAT(workshop.Read("a.csv"), StartsWith("X [s],Trägheit 1 [m/s²],"));
    EXPECT_EQ(workshop.Read("a.csv"), workshop.Read("dumped.csv"));
}

TEST(Export, TakesEndingsInAnyLetterCase)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    ASSERT_EQ(workshop.Qor("export plate.str PLATE.Obj").exitCode, 0);

    EXPECT_THAT(workshop.Read("PLATE.Obj"), StartsWith("o Plate 7\nv 0 0 0"));
}

TEST(Export, LeavesOutElementsWithoutTheirPoints)
{
    const Workshop workshop;
    GeometryFile()
        .Point(0, 0, 0)
        .Point(1, 0, 0)
        .Line(1, 3)
        .Line(1, 2)
        .Line(0, 1)
        .Triangle(1, 2, -1)
        .Quad(2'000'000'000, 1, 2, 1)
        .Save(workshop / "a.str");

    const Ran ran = workshop.Qor("export a.str a.obj");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "qor: a.str: warning: left out 4 elements with numbers of points that do not exist\n");
    EXPECT_EQ(workshop.Read("a.obj"), "v 0 0 0\nv 1 0 0\nl 1 2\n");
}

TEST(Export, KeepsTheNumbersOfPointsWhenOneHasNoPlace)
{
    const Workshop workshop;
    GeometryFile()
        .Point(NaN, 2, 3)
        .Point(1, -Infinity, 3)
        .Point(1, 2, 3)
        .Line(3, 1)
        .Line(3, 3)
        .Save(workshop / "a.str");

    const Ran ran = workshop.Qor("export a.str a.obj");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "qor: a.str: warning: wrote 0 for coordinates of 2 points that are no finite numbers\n"
                          "qor: a.str: warning: left out 1 element at points without finite coordinates\n");
    EXPECT_EQ(workshop.Read("a.obj"), "v 0 2 3\nv 1 0 3\nv 1 2 3\nl 3 3\n");
}

TEST(Export, TakesTheLowThreeBytesForTheColor)
{
    const Workshop workshop;
    GeometryFile().Point(0, 0, 0, u"", static_cast<std::int32_t>(0xFF030201)).Save(workshop / "a.str");

    workshop.Qor("export a.str a.ply");

    EXPECT_THAT(workshop.Read("a.ply"), EndsWith("end_header\n0 0 0 1 2 3\n"));
}

TEST(Export, LetsNoTextLeaveItsLine)
{
    const Workshop workshop;
    GeometryFile()
        .Label(u"a\nend_header\x1b[2J")
        .Notes(u"\r\nb\r\n\r\nc\r")
        .Point(0, 0, 0, u"x\ny")
        .Save(workshop / "a.str");

    workshop.Shell("for e in obj ply vtk; do \"$QOR\" export a.str a.$e; done");

    EXPECT_THAT(workshop.Read("a.obj"), StartsWith("o a end_header\xEF\xBF\xBD[2J\nv "));
    EXPECT_THAT(workshop.Read("a.ply"), HasSubstr("\ncomment label a end_header\xEF\xBF\xBD[2J\n"
                                                  "comment notes b  c\nelement "));
    EXPECT_THAT(workshop.Read("a.vtk"), HasSubstr("3.0\na end_header\xEF\xBF\xBD[2J\nASCII\n"));
    EXPECT_THAT(workshop.Read("a.vtk"), EndsWith("\nx%EF%BF%BDy\n"));
}

TEST(Export, CutsTextsThatReadersHaveNoRoomFor)
{
    const Workshop workshop;
    GeometryFile().Label(u"x" + std::u16string(200, u'ä')).Point(0, 0, 0).Save(workshop / "a.str");

    workshop.Qor("export a.str a.obj");

    std::string name = "x";
    for (int i = 0; i < 123; ++i) name += "ä";
    EXPECT_EQ(workshop.Read("a.obj"), "o " + name + "…\nv 0 0 0\n");
}

TEST(Export, RefusesAStructureWithoutPoints)
{
    const Workshop workshop;
    GeometryFile().Label(u"empty").Save(workshop / "a.str");

    const Ran ran = workshop.Qor("export a.str a.obj");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.str: has no vertex points: there is nothing to export\n");
    EXPECT_THAT(workshop.Names(), ElementsAre("a.str"));
}

TEST(Export, TellsWhichEndingsAKindOfDocumentHas)
{
    const Workshop workshop;
    SavePlate(workshop / "a.str");
    SaveThreeTraces(workshop / "a.blk");
    workshop.Write("a.shp", "DU'lmeer Binary ShapeTable File.\r\n" + std::string("\x0C\0", 2) + std::string(14, '\0'));
    const std::pair<const char*, const char*> cases[] = {
        {"a.str a.stl", "qor: a.stl: a Structure can be exported to .obj, .ply or .vtk\n"},
        {"a.str a.csv", "qor: a.csv: a Structure can be exported to .obj, .ply or .vtk\n"},
        {"a.str obj", "qor: obj: a Structure can be exported to .obj, .ply or .vtk\n"},
        {"a.blk a.obj", "qor: a.obj: a Data Block can be exported to .csv\n"},
        {"a.shp a.csv", "qor: a.csv: a Shape Table cannot be exported\n"},
    };

    for (const auto& [arguments, message] : cases) {
        const Ran ran = workshop.Qor(std::string("export ") + arguments);
        EXPECT_EQ(ran.exitCode, 2) << arguments;
        EXPECT_EQ(ran.errors, message);
        EXPECT_EQ(ran.output, "");
    }
    EXPECT_THAT(workshop.Names(), ElementsAre("a.blk", "a.shp", "a.str"));
}

TEST(Export, ReplacesAFileOnlyWhenForced)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");
    workshop.Write("plate.obj", "old");

    const Ran refused = workshop.Qor("export plate.str plate.obj");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors, "qor: plate.obj: exists already; --force replaces it\n");
    EXPECT_EQ(workshop.Read("plate.obj"), "old");

    EXPECT_EQ(workshop.Qor("export plate.str plate.obj --force").exitCode, 0);
    EXPECT_THAT(workshop.Read("plate.obj"), StartsWith("o Plate 7\n"));
}

TEST(Export, NeverReplacesWhatItReads)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.obj");
    const std::string before = workshop.Read("plate.obj");

    const Ran ran = workshop.Qor("export plate.obj ./plate.obj --force");

    EXPECT_EQ(ran.exitCode, 2);
    EXPECT_EQ(ran.errors, "qor: ./plate.obj would replace the file that is read\n");
    EXPECT_EQ(workshop.Read("plate.obj"), before);
}

TEST(Export, KeepsTheOldFileWhenTheDocumentIsDamaged)
{
    const Workshop workshop;
    SavePlate(workshop / "a.str");
    std::filesystem::resize_file(workshop / "a.str", std::filesystem::file_size(workshop / "a.str") / 2);
    workshop.Write("a.vtk", "old");

    const Ran ran = workshop.Qor("export a.str a.vtk --force");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.str: is damaged: its records end early or make no sense\n");
    EXPECT_EQ(workshop.Read("a.vtk"), "old");
    EXPECT_THAT(workshop.Names(), ElementsAre("a.str", "a.vtk"));
}

TEST(Export, WarnsWhenOnlyTheEndMarkerIsMissing)
{
    const Workshop workshop;
    SavePlate(workshop / "a.str");
    SaveThreeTraces(workshop / "a.blk");
    for (const char* name : {"a.str", "a.blk"}) {
        std::filesystem::resize_file(workshop / name, std::filesystem::file_size(workshop / name) - 2);
    }

    const Ran structure = workshop.Qor("export a.str a.obj");
    const Ran block = workshop.Qor("export a.blk a.csv");

    EXPECT_EQ(structure.exitCode, 0);
    EXPECT_EQ(structure.errors, "qor: a.str: warning: the end marker is missing; the file may have been cut off\n");
    EXPECT_EQ(block.exitCode, 0);
    EXPECT_EQ(block.errors, "qor: a.blk: warning: the end marker is missing; the file may have been cut off\n");
}

TEST(Export, RefusesWhatIsNoDocument)
{
    const Workshop workshop;
    workshop.Write("a.str", "hello");

    EXPECT_EQ(workshop.Qor("export a.str a.obj").errors, "qor: a.str: is not a document file\n");
    EXPECT_EQ(workshop.Qor("export b.str a.obj").exitCode, 1);
    EXPECT_THAT(workshop.Names(), ElementsAre("a.str"));
}

TEST(Export, KeepsTheOldFileWhenTheDiskIsFull)
{
    const Workshop workshop;
    GeometryFile file;
    for (int i = 0; i < 20000; ++i) file.Point(0.123456F, 0.123456F, 0.123456F);
    file.Save(workshop / "a.str");
    workshop.Write("a.obj", "old");

    // A limit on file sizes, in blocks of 512 or 1024 bytes, stands for the full disk.
    const Ran ran = workshop.Shell("ulimit -f 100; \"$QOR\" export a.str a.obj --force");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.obj: File too large\n");
    EXPECT_EQ(workshop.Read("a.obj"), "old");
    EXPECT_THAT(workshop.Names(), ElementsAre("a.obj", "a.str"));
}

} // namespace
