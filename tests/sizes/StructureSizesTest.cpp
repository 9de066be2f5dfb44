// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Structures around the 32,000 vertex points where the file's variant changes, past a million, and as large as a file
// can be.
#include "LargeDocument.h"

namespace qor::test {
namespace {

struct Counts {
    std::int32_t points = 0;
    std::int32_t lines = 0;
    std::int32_t triangles = 0;
    std::int32_t quads = 0;
};

// A label of full width that tells the number.
std::u16string LabelOf(std::int32_t point)
{
    std::u16string label(20, u'0');
    for (std::size_t i = label.size(); point > 0; point /= 10) label[--i] = static_cast<char16_t>(u'0' + point % 10);
    return label;
}

class StructureSizes : public LargeDocument
{
protected:
    void Size(const Counts& counts)
    {
        component.Structure_NumberOfVertexPoints(counts.points);
        component.Structure_NumberOfEdgeLines(counts.lines);
        component.Structure_NumberOfSurfaceTriangles(counts.triangles);
        quads.StructureNumberOfQuadSurfaces(counts.quads);
        ASSERT_EQ(component.ErrorStatus(), NoError);
        ASSERT_EQ(component.Structure_NumberOfVertexPoints(), counts.points);
    }

    void FillAll(const Counts& counts)
    {
        const std::int32_t last = counts.points;
        for (std::int32_t n = 1; n <= last; ++n) {
            ASSERT_EQ(component.WriteStructureVertexPoint(n, LabelOf(n), ValueAt(1, n), ValueAt(2, n), ValueAt(3, n), n,
                                                          n % 2 == 0),
                      Success);
        }
        for (std::int32_t n = 1; n <= counts.lines; ++n) {
            ASSERT_EQ(component.WriteStructureEdgeLine(n, n % last, last, n, n % 3 == 0), Success);
        }
        for (std::int32_t n = 1; n <= counts.triangles; ++n) {
            ASSERT_EQ(component.WriteStructureSurfaceTriangle(n, n % last, last, 1, n, n % 3 == 0), Success);
        }
        for (std::int32_t n = 1; n <= counts.quads; ++n) {
            ASSERT_EQ(quads.WriteStructureQuadSurface(n, n % last, last, 1, last - 1, n, n % 3 == 0),
                      oReturnStatus::Success);
        }
    }

    void ExpectAll(const Counts& counts)
    {
        ASSERT_EQ(component.Structure_NumberOfVertexPoints(), counts.points);
        ASSERT_EQ(component.Structure_NumberOfEdgeLines(), counts.lines);
        ASSERT_EQ(component.Structure_NumberOfSurfaceTriangles(), counts.triangles);
        ASSERT_EQ(quads.StructureNumberOfQuadSurfaces(), counts.quads);
        const std::int32_t last = counts.points;
        std::int32_t a = 0, b = 0, c = 0, d = 0, color = 0;
        Bool16 bold;
        std::u16string label;
        float x = 0, y = 0, z = 0;
        for (std::int32_t n = 1; n <= last; ++n) {
            ASSERT_EQ(component.ReadStructureVertexPoint(n, label, x, y, z, color, bold), Success);
            const bool same = label == LabelOf(n) && SameBits(x, ValueAt(1, n)) && SameBits(y, ValueAt(2, n)) &&
                              SameBits(z, ValueAt(3, n)) && color == n && (bold.value != 0) == (n % 2 == 0);
            ASSERT_TRUE(same) << "vertex point " << n;
        }
        const auto isBold = [&](std::int32_t n) { return (bold.value != 0) == (n % 3 == 0); };
        for (std::int32_t n = 1; n <= counts.lines; ++n) {
            ASSERT_EQ(component.ReadStructureEdgeLine(n, a, b, color, bold), Success);
            ASSERT_TRUE(a == n % last && b == last && color == n && isBold(n)) << "edge line " << n;
        }
        for (std::int32_t n = 1; n <= counts.triangles; ++n) {
            ASSERT_EQ(component.ReadStructureSurfaceTriangle(n, a, b, c, color, bold), Success);
            ASSERT_TRUE(a == n % last && b == last && c == 1 && color == n && isBold(n)) << "surface triangle " << n;
        }
        for (std::int32_t n = 1; n <= counts.quads; ++n) {
            ASSERT_EQ(quads.ReadStructureQuadSurface(n, a, b, c, d, color, bold), oReturnStatus::Success);
            ASSERT_TRUE(a == n % last && b == last && c == 1 && d == last - 1 && color == n && isBold(n))
                << "quad surface " << n;
        }
    }

    void ExpectSavedAndLoaded(const Counts& counts)
    {
        ASSERT_EQ(component.OutputStructureFile(path), Success);
        component.InitializeStructureStorage();
        ASSERT_EQ(component.InputStructureFile(path), Success);
        EXPECT_EQ(component.ErrorStatus(), NoError);
        ExpectAll(counts);
    }

    std::int64_t SizeOfFile(const Counts& counts)
    {
        Size(counts);
        EXPECT_EQ(component.OutputStructureFile(path), Success);
        return FileSize();
    }

    int FileVersion() const
    {
        std::ifstream file(*folder / "document", std::ios::binary);
        file.seekg(35);
        return file.get();
    }

    ClassAdd_4 quads;
};

struct Variant {
    std::int32_t points;
    int version;
};

class StructureVariant : public StructureSizes, public testing::WithParamInterface<Variant>
{};

TEST_P(StructureVariant, IsSavedAndLoaded)
{
    const Counts counts{GetParam().points, GetParam().points + 10, 5000, 40000};
    Size(counts);
    FillAll(counts);
    for (std::int32_t n = 1; n <= counts.points; ++n) {
        component.WriteStructureVertexPointInformation(n, n % 30000, Spherical, Yaxis, ValueAt(4, n));
        component.WriteStructureVertexPointTransform(n, Zaxis, ValueAt(5, n), ValueAt(6, n), ValueAt(7, n));
    }

    ExpectSavedAndLoaded(counts);
    EXPECT_EQ(FileVersion(), GetParam().version);
    const auto saved = BytesOf(*folder / "document");
    ASSERT_EQ(component.OutputStructureFile(path), Success);
    EXPECT_TRUE(BytesOf(*folder / "document") == saved) << "what was loaded is not what was saved";
}

INSTANTIATE_TEST_SUITE_P(AroundTheLimit, StructureVariant,
                         testing::Values(Variant{31999, 12}, Variant{32000, 12}, Variant{32001, 15}),
                         [](const auto& variant) { return std::to_string(variant.param.points); });

TEST_F(StructureSizes, AMillionOfEachElementIsSavedAndLoaded)
{
    const Counts counts{1'000'003, 3'000'000, 2'000'000, 1'000'000};
    Size(counts);
    FillAll(counts);

    ExpectSavedAndLoaded(counts);
}

class FilledStructureFile : public StructureSizes
{
protected:
    // As many vertex points with labels as a file can hold, and notes that fill it to the last byte.
    void SetUp() override
    {
        StructureSizes::SetUp();
        if (IsSkipped()) return;
        component.Structure_Notes(u"x");
        counts = {32001, 1, 1, 1}; // of the large variant
        Size(counts);
        FillAll(counts);
        const std::int64_t fewer = SizeOfFile(counts);
        component.Structure_NumberOfVertexPoints(32002);
        component.WriteStructureVertexPoint(32002, LabelOf(32002), 0, 0, 0);
        EXPECT_EQ(component.OutputStructureFile(path), Success);
        const std::int64_t onePoint = FileSize() - fewer;
        counts.points += static_cast<std::int32_t>((LargestFile - fewer) / onePoint);
        component.Structure_Notes(
            std::u16string(static_cast<std::size_t>(1 + (LargestFile - fewer) % onePoint / 2), u'x'));
        Size(counts);
        FillAll(counts);
    }

    void ExpectNothingToReadBack()
    {
        EXPECT_LE(FileSize(), LargestFile);
        component.InitializeStructureStorage();
        EXPECT_EQ(component.InputStructureFile(path), Failure);
        EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    }

    Counts counts;
};

TEST_F(FilledStructureFile, IsSavedAndLoadedToItsLastByte)
{
    ExpectSavedAndLoaded(counts);
    EXPECT_EQ(FileSize(), LargestFile);
}

// The writer of Structures succeeds once the file is open, whatever comes after, as published.
TEST_F(FilledStructureFile, WithoutRoomForItsEndMarkerSaysSoWhenItIsRead)
{
    component.Structure_Notes(component.Structure_Notes() + u"x");

    EXPECT_EQ(component.OutputStructureFile(path), Success);
    EXPECT_EQ(FileSize(), LargestFile);
    component.InitializeStructureStorage();
    EXPECT_EQ(component.InputStructureFile(path), Success);
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    ExpectAll(counts);
}

TEST_F(FilledStructureFile, WithOneElementMoreIsNotTakenForWhole)
{
    component.Structure_NumberOfEdgeLines(2);

    EXPECT_EQ(component.OutputStructureFile(path), Success) << "as published";
    ExpectNothingToReadBack();
}

} // namespace
} // namespace qor::test
