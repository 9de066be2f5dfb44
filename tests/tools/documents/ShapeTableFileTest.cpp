// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/ShapeTableFile.h"

#include "fileio/Framing.h"
#include "shapetable/Saving.h"

namespace {

using namespace qor;
using namespace qor::test;
using qor::tool::Load_ShapeTable;
using qor::tool::ShapeTableDocument;

struct LoadedTable {
    bool isWhole = false;
    ShapeTableDocument document;
};

LoadedTable Load(const Bytes& bytes)
{
    MemoryFile file(bytes);
    RecordReader reader(file);
    EXPECT_EQ(FindPreamble(reader), 12);
    LoadedTable loaded;
    loaded.isWhole = Load_ShapeTable(reader, loaded.document);
    return loaded;
}

Bytes ShapeBytes(std::u16string_view label, float ordinate, std::u16string_view units, float damping)
{
    return Text(label) + Float(ordinate) + Text(units) + Float(damping) + Text(u"May") + Int32(0);
}

Bytes DOFBytes(std::u16string_view label, int type, int kind)
{
    return Text(label) + Int16(type) + Int16(kind) + Text(u"1Z") + Text(u"g") + Int32(0) + Text(u"") + Text(u"");
}

// Two shapes of one DOF.
Bytes TwoShapes()
{
    return HeaderBytes(1, 2, u"Table", u"Notes") + ShapeBytes(u"Mode 1", 12.5F, u"Hz", 0.25F) +
           ShapeBytes(u"Mode 2", 25, u"RPM", 0.5F) + DOFBytes(u"Top", 21, 5) + Floats({1, 2, 3, 4});
}

constexpr std::size_t FirstByteBehindThePreamble = 50;

TEST(Load_ShapeTable, TakesTextsShapesDOFsAndValues)
{
    const auto [isWhole, document] = Load(TwoShapes());

    ASSERT_TRUE(isWhole);
    EXPECT_EQ(document.texts.Label, u"Table");
    EXPECT_EQ(document.texts.Notes, u"Notes");
    ASSERT_EQ(document.shapes.size(), 2U);
    EXPECT_EQ(document.shapes[0].Label, u"Mode 1");
    EXPECT_EQ(document.shapes[0].Ordinate, 12.5F);
    EXPECT_EQ(document.shapes[0].Damping, 0.25F);
    EXPECT_EQ(document.shapes[1].OrdinateUnits, u"RPM");
    EXPECT_EQ(document.shapes[1].DateAndTime, u"May");
    ASSERT_EQ(document.dofs.size(), 1U);
    EXPECT_EQ(document.dofs[0].Label, u"Top");
    EXPECT_EQ(document.dofs[0].MeasurementType, ST_MeasurementIsResidue);
    EXPECT_EQ(document.dofs[0].DataSVT, DataIsTensor);
    EXPECT_EQ(document.dofs[0].DegreesOfFreedom, u"1Z");
    EXPECT_EQ(document.dofs[0].MeasurementUnits, u"g");
    EXPECT_EQ(document.At(0, 0).imaginary, 2);
    EXPECT_EQ(document.At(1, 0).real, 3);
}

TEST(Load_ShapeTable, HasAllDOFsOfAShapeTogether)
{
    const auto [isWhole, document] = Load(NewTableBytes(2, 2) + Floats({1, 0, 2, 0, 3, 0, 4, 0}));

    ASSERT_TRUE(isWhole);
    EXPECT_EQ(document.At(0, 1).real, 2);
    EXPECT_EQ(document.At(1, 0).real, 3);
}

TEST(Load_ShapeTable, ReadsPastConstantsWhateverTheyAre)
{
    Bytes bytes = NewTableBytes(1, 1) + Floats({7, 0});
    const std::size_t constants = FirstByteBehindThePreamble + 4 * 4;
    std::fill_n(bytes.begin() + constants, 10, std::uint8_t{0x55}); // up to the text among them
    bytes.push_back(0);                                             // nor does it matter what follows the values

    const auto [isWhole, document] = Load(bytes);

    ASSERT_TRUE(isWhole);
    EXPECT_EQ(document.At(0, 0).real, 7);
}

TEST(Load_ShapeTable, TakesATableWithoutShapesOrDOFs)
{
    EXPECT_TRUE(Load(NewTableBytes(0, 0)).isWhole);
    EXPECT_EQ(Load(NewTableBytes(3, 0)).document.shapes.size(), 3U);
    EXPECT_EQ(Load(NewTableBytes(0, 3)).document.dofs.size(), 3U);
}

TEST(Load_ShapeTable, RefusesEveryPrefix)
{
    const Bytes whole = TwoShapes();
    for (std::size_t size = FirstByteBehindThePreamble; size < whole.size(); ++size) {
        const auto end = whole.begin() + static_cast<std::ptrdiff_t>(size);
        EXPECT_FALSE(Load(Bytes(whole.begin(), end)).isWhole) << size;
    }
}

TEST(Load_ShapeTable, SurvivesEveryDamagedByte)
{
    const Bytes whole = TwoShapes();
    for (std::size_t place = FirstByteBehindThePreamble; place < whole.size(); ++place) {
        for (const int damage : {0x01, 0x80, 0xFF}) {
            Bytes bytes = whole;
            bytes[place] = static_cast<std::uint8_t>(bytes[place] ^ damage);
            const auto [isWhole, document] = Load(bytes);
            // Never more than the file has bytes for, and the values always one a shape and DOF.
            EXPECT_LE(document.shapes.size() + document.dofs.size(), whole.size()) << place;
            if (!isWhole) continue;
            EXPECT_EQ(document.values.size(), document.shapes.size() * document.dofs.size()) << place;
        }
    }
}

TEST(Load_ShapeTable, RefusesCountsThatClaimMoreThanTheFileHolds)
{
    const auto claims = [](std::int64_t dofs, std::int64_t shapes) {
        Bytes bytes = NewTableBytes(1, 1) + Floats({7, 0});
        const Bytes counts = Int32(dofs) + Int32(shapes);
        std::copy(counts.begin(), counts.end(), bytes.begin() + FirstByteBehindThePreamble);
        const auto [isWhole, document] = Load(bytes);
        EXPECT_TRUE(document.shapes.empty() && document.dofs.empty()) << "memory was taken";
        return !isWhole;
    };

    EXPECT_TRUE(claims(2, 1));
    EXPECT_TRUE(claims(1, 2));
    EXPECT_TRUE(claims(2147483647, 1));
    EXPECT_TRUE(claims(1, 2147483647));
    EXPECT_TRUE(claims(2147483647, 2147483647));
    EXPECT_TRUE(claims(0, 2147483647));
    EXPECT_TRUE(claims(65536, 65536)); // 32 bits would call it 0
}

TEST(Load_ShapeTable, RefusesNegativeCounts)
{
    EXPECT_FALSE(Load(HeaderBytes(-1, 1) + NewShapeBytes() + Bytes(100)).isWhole);
    EXPECT_FALSE(Load(HeaderBytes(1, -1) + NewDOFBytes() + Bytes(100)).isWhole);
    EXPECT_FALSE(Load(HeaderBytes(-1, -1) + Bytes(100)).isWhole);
}

TEST(Load_ShapeTable, RefusesATextThatClaimsMoreThanTheFileHolds)
{
    const Bytes claim = HeaderBytes(1, 1) + Int32(2147483647) + Bytes(100);
    EXPECT_FALSE(Load(claim).isWhole);
}

TEST(Load_ShapeTable, TakesATextOfNegativeLengthForEmpty)
{
    const auto [isWhole, document] = Load(HeaderBytes(1, 1) + Int32(-5) + Bytes(20) + NewDOFBytes() + Floats({7, 0}));

    ASSERT_TRUE(isWhole);
    EXPECT_EQ(document.shapes[0].Label, u"");
    EXPECT_EQ(document.At(0, 0).real, 7);
}

} // namespace
