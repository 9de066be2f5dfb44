// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A Structure file that was refused stays open: reading on in it, and what closes it.
#include "structure/StructureFiles.h"

namespace qor::test {
namespace {

class RefusedStructureFile : public StructureFiles
{};

TEST_F(RefusedStructureFile, AnEmptyPathReadsOnBehindTheVersionThatWasRefused)
{
    ASSERT_EQ(component.InputStructureFile(Put(Refused())), Failure);
    component.ErrorStatus();

    EXPECT_EQ(component.InputStructureFile(u""), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    ASSERT_EQ(component.Structure_NumberOfVertexPoints(), 1);
    EXPECT_EQ(ColorOfPoint(1), 1);
    EXPECT_EQ(OutputVersion(), 12) << "the variant is as it was";
}

TEST_F(RefusedStructureFile, AnEmptyPathLeavesTheRefusedFileOpen)
{
    component.InputStructureFile(Put(StructureFile().Version(16).Raw(Colored(1) + Int16(4) + Colored(2))));

    component.InputStructureFile(u"");
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 1);
    component.InputStructureFile(u"");
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 2) << "added to what is there";
    EXPECT_EQ(ColorOfPoint(2), 2);
}

TEST_F(RefusedStructureFile, AnEmptyPathAtTheEndOfTheRefusedFileReportsItOnce)
{
    component.InputStructureFile(Put(Refused().WithoutEndMarker()));
    component.ErrorStatus();

    EXPECT_EQ(component.InputStructureFile(u""), Success);
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(component.InputStructureFile(u""), Success);
    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 1);
}

TEST_F(RefusedStructureFile, WithoutAKeywordAnEmptyPathReadsOnBehindTheLastSixBytesTried)
{
    // Position 199 and five more.
    ASSERT_EQ(component.InputStructureFile(Put(Bytes(204, 'x') + Colored(3) + Hex("AA AA"))), Failure);
    component.ErrorStatus();

    EXPECT_EQ(component.InputStructureFile(u""), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(ColorOfPoint(1), 3);
}

TEST_F(RefusedStructureFile, WithoutALineEndAnEmptyPathReadsOnBehindTheLastTwoBytesTried)
{
    ASSERT_EQ(component.InputStructureFile(Put(Ascii("BINARY") + Bytes(194, 'x') + Colored(3) + Hex("AA AA"))),
              Failure);
    component.ErrorStatus();

    EXPECT_EQ(component.InputStructureFile(u""), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(ColorOfPoint(1), 3);
}

TEST_F(RefusedStructureFile, ReadingOnUsesTheVersionOfTheFileReadBefore)
{
    const std::pair<int, Bytes> cases[] = {{10, OldText("old")}, {12, Text(u"new")}};
    for (const auto& [version, text] : cases) {
        component.InputStructureFile(Put(StructureFile().Version(version)));
        component.InputStructureFile(Put(Bytes(204, 'x') + NotesBytes().Field(6, text).Build() + Hex("AA AA")));

        component.InputStructureFile(u"");

        EXPECT_EQ(component.Structure_Notes(), version == 10 ? u"old" : u"new");
    }
}

// Version 9 and later skip the rest of a record from an unknown tag on; of the two colours, one is read then.
TEST_F(RefusedStructureFile, ReadingOnUsesTheVersionOfADataBlockFileToo)
{
    const Bytes point = VertexBytes().Field(4, Int32(1)).Field(200).Field(4, Int32(2)).Build();
    const std::pair<int, int> cases[] = {{12, 1}, {8, 2}, {13, 1}, {0, 2}};
    for (const auto& [version, color] : cases) {
        component.InputDataBlockFile(Put(DataBlockFile().Version(version).Build()));
        component.InputStructureFile(Put(Bytes(204, 'x') + point + Hex("AA AA")));

        component.InputStructureFile(u"");

        EXPECT_EQ(ColorOfPoint(1), color) << version;
    }
}

TEST_F(RefusedStructureFile, AFileThatWasReadIsClosed)
{
    component.InputStructureFile(Put(StructureFile().Raw(Int16(4) + Colored(1))));

    EXPECT_EQ(component.InputStructureFile(u""), Success);

    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 0);
}

TEST_F(RefusedStructureFile, TheNextFileThatTheObjectOpensClosesTheRefusedOne)
{
    using Opening = void (*)(clsQOR_File&, const TemporaryFolder&);
    const Opening openings[] = {
        [](clsQOR_File& file, const TemporaryFolder& in) { file.InputStructureFile(Utf16(in / "missing.str")); },
        [](clsQOR_File& file, const TemporaryFolder& in) { file.OutputStructureFile(Utf16(in / "output.str")); },
        [](clsQOR_File& file, const TemporaryFolder& in) { file.InputDataBlockFile(Utf16(in / "input.str")); },
        [](clsQOR_File& file, const TemporaryFolder& in) { file.OutputDataBlockFile(Utf16(in / "output.blk")); },
        [](clsQOR_File& file, const TemporaryFolder& in) {
            file.ShapeTable_NumberOfShapes(1);
            file.ShapeTable_NumberOfDOFs(1);
            EXPECT_EQ(file.OutputShapeTableFile(Utf16(in / "output.shp")), Success);
        },
    };
    for (const Opening opening : openings) {
        component.InputStructureFile(Put(Refused()));

        opening(component, folder);
        component.InputStructureFile(u"");

        EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 0);
    }
}

TEST_F(RefusedStructureFile, WhatOpensNoFileLeavesTheRefusedOneOpen)
{
    component.InputStructureFile(Put(Refused()));

    component.OutputStructureFile(u"");
    component.InputDataBlockFile(u"");
    component.InitializeStructureStorage();
    clsQOR_File other;
    other.InputStructureFile(u"");
    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 0) << "it is the other object's path";
    component.InputStructureFile(u"");

    EXPECT_EQ(component.Structure_NumberOfVertexPoints(), 1);
}

TEST_F(RefusedStructureFile, ARefusedFileCanBeReplacedByAnyObject)
{
    clsQOR_File other;
    const std::u16string path = Put(Refused());
    component.InputStructureFile(path);

    EXPECT_EQ(other.OutputStructureFile(path), Success);
    EXPECT_EQ(component.OutputStructureFile(path), Success);

    EXPECT_EQ(BytesOf(folder / "input.str").size(), 65u);
}

} // namespace
} // namespace qor::test
