// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/DocumentFile.h"

#include "structure/StructureFile.h"
#include "support/TemporaryFolder.h"
#include "tools/console/Console.h"

#include <gmock/gmock.h>

namespace {

using namespace qor::test;
using namespace qor::tool;
using testing::HasSubstr;
using testing::ThrowsMessage;

class DocumentFiles : public testing::Test
{
protected:
    std::string Put(const Bytes& bytes) const
    {
        WriteBytes(folder_ / "file", bytes);
        return (folder_ / "file").string();
    }

private:
    TemporaryFolder folder_;
};

Bytes Preamble(std::string_view firstLine, int version)
{
    return Ascii(firstLine) + Ascii("\r\n") + Int16(version) + Bytes(14);
}

TEST_F(DocumentFiles, TellTheirKindByTheirFirstLineInAnyLetterCase)
{
    EXPECT_EQ(DocumentFile(Put(Preamble("x Binary Structure File.", 12))).Kind(), DocumentKind::Structure);
    EXPECT_EQ(DocumentFile(Put(Preamble("BINARY shapetable", 12))).Kind(), DocumentKind::ShapeTable);
    EXPECT_EQ(DocumentFile(Put(Preamble("binary DataBlock", 12))).Kind(), DocumentKind::DataBlock);
    EXPECT_EQ(DocumentFile(Put(Preamble("binary anything", 12))).Kind(), DocumentKind::DataBlock);
}

TEST_F(DocumentFiles, OfAVersionThatCannotBeReadAreRefused)
{
    const std::string structure = Put(Preamble("Binary Structure", 16));
    EXPECT_THAT(
        [&] { DocumentFile file(structure); },
        ThrowsMessage<ToolError>(HasSubstr("is a Structure file of version 16; versions up to 15 can be read")));
    const std::string table = Put(Preamble("Binary ShapeTable", 11));
    EXPECT_THAT(
        [&] { DocumentFile file(table); },
        ThrowsMessage<ToolError>(HasSubstr("is a Shape Table file of version 11; only version 12 can be read")));
}

TEST_F(DocumentFiles, OfAStructureTellItsVariantAndAMissingEndMarker)
{
    const auto load = [this](const StructureFile& file) { return DocumentFile(Put(file.Build())).LoadStructure(); };

    EXPECT_EQ(VariantName(load(StructureFile().Version(12)).structure), "small");
    EXPECT_EQ(VariantName(load(StructureFile().Version(13)).structure), "large");
    EXPECT_FALSE(load(StructureFile()).endMarkerMissing);
    EXPECT_TRUE(load(StructureFile().WithoutEndMarker()).endMarkerMissing);
}

TEST_F(DocumentFiles, OfADamagedStructureAreRefused)
{
    const Bytes whole = StructureFile().Record(SubStructureOf(VertexBytes().Build(), u"label")).Build();
    const std::string path = Put(Bytes(whole.begin(), whole.end() - 8));
    EXPECT_THAT([&] { DocumentFile(path).LoadStructure(); }, ThrowsMessage<ToolError>(HasSubstr("is damaged")));
}

TEST(LabelOfVertexPoint, HasNoFilling)
{
    qor::VertexPoint point;
    EXPECT_EQ(LabelOf(point), u""); // a file without the label leaves zeros
    point.Label = qor::PaddedLabel(u"  A 1");
    EXPECT_EQ(LabelOf(point), u"A 1");
}

} // namespace
