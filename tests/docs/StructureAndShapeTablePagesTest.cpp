// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// docs/formats/structure.md and shapetable.md against the library: tables by tag, and every example by its bytes.
#include "docs/Page.h"
#include "structure/StructureLayout.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

namespace qor::test {
namespace {

Page StructurePage() { return Page("structure.md"); }
Page ShapeTablePage() { return Page("shapetable.md"); }

template <class Fields>
std::vector<int> TagsOf(const Fields& fields, bool withOlder)
{
    std::vector<int> tags;
    for (const auto& field : fields) {
        if (withOlder || !std::holds_alternative<Dropped>(field.value)) tags.push_back(field.tag);
    }
    return tags;
}

std::vector<int> TagsUnder(std::string_view heading)
{
    std::vector<int> tags;
    for (const Page::Row& row : StructurePage().Rows(heading)) tags.push_back(std::stoi(row.at(0)));
    return tags;
}

TEST(StructurePage, ListsTheFieldsInWritingOrder)
{
    EXPECT_EQ(TagsUnder("## Notes record, type 0x1100"), TagsOf(Notes_Fields, true));
    EXPECT_EQ(TagsUnder("## Substructure record, type 0x0400"), TagsOf(SubStructure_Fields, true));
    EXPECT_EQ(TagsUnder("## Edge-line record, type 0x0200"), TagsOf(EdgeLine_Fields, true));
    EXPECT_EQ(TagsUnder("## Surface-triangle record, type 0x0300, and quad-surface record, type 0x1E00"),
              TagsOf(Surface_Fields<QuadSurface>, true));
}

TEST(StructurePage, ListsTheWrittenFieldsOfAVertexPoint)
{
    std::vector<int> written = TagsOf(Vertex_Fields, false);
    std::erase_if(written, [](int tag) { // those that open a run of older files
        const auto row = static_cast<std::size_t>(RowByTag<Vertex_Fields>[static_cast<std::size_t>(tag)]);
        const auto* const step = std::get_if<VertexStep>(&Vertex_Fields[row].value);
        return step && *step == VertexStep::NestedRun;
    });

    EXPECT_EQ(TagsUnder("## Vertex-point record, type 0x0100"), written);
}

TEST(StructurePage, SmallestFileIsWhatAnEmptyStructureBecomes)
{
    const TemporaryFolder folder;
    clsQOR_File file;

    ASSERT_EQ(file.OutputStructureFile(Utf16(folder / "empty.str")), Success);

    EXPECT_EQ(BytesOf(folder / "empty.str"), StructurePage().HexBlock("hex smallest"));
}

TEST(StructurePage, ExampleIsWhatTheComponentWrites)
{
    const TemporaryFolder folder;
    clsQOR_File file;
    file.Structure_Label(u"S");
    file.Structure_NumberOfVertexPoints(1);
    file.WriteStructureVertexPoint(1, u"A", 1.0F, 0.0F, 0.0F, 255);
    file.WriteStructureEdgeLine(-1, 1, 1, 0, true);

    ASSERT_EQ(file.OutputStructureFile(Utf16(folder / "example.str")), Success);

    EXPECT_EQ(BytesOf(folder / "example.str"), StructurePage().HexBlock("hex example"));
}

TEST(ShapeTablePage, ExampleIsWhatTheComponentWrites)
{
    const TemporaryFolder folder;
    clsQOR_File file;
    file.ShapeTable_Label(u"T");
    file.ShapeTable_NumberOfShapes(1);
    file.ShapeTable_NumberOfDOFs(1);
    file.Shape_Label(1, u"Mode 1");
    file.Shape_Ordinate(1, 12.5F);
    file.Shape_OrdinateUnits(1, u"Hz");
    file.Shape_Damping(1, 0.25F);
    file.DOF_Label(1, u"1Z");
    file.DOF_DegreesOfFreedom(1, u"1Z");
    file.DOF_MeasurementUnits(1, u"g");
    file.WriteShapeDOFvalue(1, 1, 2.0F, 0.0F);

    ASSERT_EQ(file.OutputShapeTableFile(Utf16(folder / "example.shp")), Success);

    EXPECT_EQ(BytesOf(folder / "example.shp"), ShapeTablePage().HexBlock("hex example"));
}

} // namespace
} // namespace qor::test
