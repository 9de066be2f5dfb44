// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The indexed properties of a Shape Table's shapes and DOFs, and its file by way of the member that writes it.
#include "component/ShapeTableAccess.h"
#include "component/modQOR_File.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

// ---- texts ----------------------------------------------------------------------------------------------------

struct TextProperty {
    const char* name;
    std::u16string (clsQOR_File::*get)(std::int32_t);
    void (clsQOR_File::*set)(std::int32_t, std::u16string_view);
    bool ofShape;
    ErrorStatusTypes getError;
    ErrorStatusTypes setError;
};

using Component = clsQOR_File;

const TextProperty TextProperties[] = {
    {"ShapeLabel", &Component::Shape_Label, &Component::Shape_Label, true, ShapeIndexError, SampleIndexError},
    {"DateAndTime", &Component::Shape_DateAndTime, &Component::Shape_DateAndTime, true, SampleIndexError,
     SampleIndexError},
    {"OrdinateUnits", &Component::Shape_OrdinateUnits, &Component::Shape_OrdinateUnits, true, SampleIndexError,
     SampleIndexError},
    {"DOFLabel", &Component::DOF_Label, &Component::DOF_Label, false, DOFIndexError, DOFIndexError},
    {"DegreesOfFreedom", &Component::DOF_DegreesOfFreedom, &Component::DOF_DegreesOfFreedom, false, DOFIndexError,
     DOFIndexError},
    {"MeasurementUnits", &Component::DOF_MeasurementUnits, &Component::DOF_MeasurementUnits, false, DOFIndexError,
     DOFIndexError},
};

class ShapeTableText : public testing::TestWithParam<TextProperty>
{
protected:
    std::u16string Get(std::int32_t number) { return (file.*GetParam().get)(number); }
    void Set(std::int32_t number, std::u16string_view text) { (file.*GetParam().set)(number, text); }
    clsQOR_File file;
};

TEST_P(ShapeTableText, IsKeptAsPassed)
{
    SizeShapes(file, 2, 2);
    const std::u16string texts[] = {u"1Z", u"", u"  not a date  ", {u'a', u'\0', u'b'}, {0xDC00, 0x00E4, 0x4E2D}};
    for (const std::u16string& text : texts) {
        Set(2, text);
        EXPECT_EQ(Get(2), text);
        EXPECT_EQ(Get(1), u"");
    }
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_P(ShapeTableText, HasAPlaceOfItsOwn)
{
    SizeShapes(file, 1, 1);
    Set(1, u"this");
    for (const TextProperty& other : TextProperties) {
        const bool same = other.name == std::string(GetParam().name);
        EXPECT_EQ((file.*other.get)(1), same ? u"this" : u"") << other.name;
    }
}

TEST_P(ShapeTableText, OutsideTheTableIsAnIndexError)
{
    SizeShapes(file, 2, 2);
    for (const std::int32_t number : {0, 3, -1, LargestInt32, SmallestInt32}) {
        EXPECT_EQ(Get(number), u"") << number;
        EXPECT_EQ(file.ErrorStatus(), GetParam().getError) << number;
        Set(number, u"nowhere");
        EXPECT_EQ(file.ErrorStatus(), GetParam().setError) << number;
    }
    EXPECT_EQ(Get(1) + Get(2), u"") << "nothing was stored";
}

TEST_P(ShapeTableText, OfAnEmptyTableHasACodeForShapesOnly)
{
    const ErrorStatusTypes expected = GetParam().ofShape ? ShapeDataNotAllocated : DOFIndexError;
    for (const std::int32_t number : {0, 1}) {
        EXPECT_EQ(Get(number), u"");
        EXPECT_EQ(file.ErrorStatus(), expected);
        Set(number, u"nowhere");
        EXPECT_EQ(file.ErrorStatus(), expected);
    }
}

TEST_P(ShapeTableText, DoesNotNeedTheOtherKindOfRecord)
{
    SizeShapes(file, GetParam().ofShape ? 1 : 0, GetParam().ofShape ? 0 : 1);
    Set(1, u"alone");
    EXPECT_EQ(Get(1), u"alone");
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

INSTANTIATE_TEST_SUITE_P(Each, ShapeTableText, testing::ValuesIn(TextProperties),
                         [](const auto& property) { return property.param.name; });

// ---- numbers --------------------------------------------------------------------------------------------------

struct NumberProperty {
    const char* name;
    float (clsQOR_File::*get)(std::int32_t);
    void (clsQOR_File::*set)(std::int32_t, float);
};

class ShapeNumber : public testing::TestWithParam<NumberProperty>
{
protected:
    float Get(std::int32_t shape) { return (file.*GetParam().get)(shape); }
    void Set(std::int32_t shape, float value) { (file.*GetParam().set)(shape, value); }
    clsQOR_File file;
};

TEST_P(ShapeNumber, IsKeptAsPassed)
{
    SizeShapes(file, 2, 0);
    for (const float value :
         {12.5F, -0.0F, 1e-45F, -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
        Set(2, value);
        EXPECT_EQ(Bits(Get(2)), Bits(value));
        EXPECT_EQ(Bits(Get(1)), 0U);
    }
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_P(ShapeNumber, OutsideTheTableIsASampleIndexError)
{
    SizeShapes(file, 2, 5);
    Set(1, 1.5F);
    Set(2, 2.5F);
    for (const std::int32_t shape : {0, 3, -1, LargestInt32, SmallestInt32}) {
        EXPECT_EQ(Get(shape), 0) << shape;
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError) << shape;
        Set(shape, 7);
        EXPECT_EQ(file.ErrorStatus(), SampleIndexError) << shape;
    }
    EXPECT_EQ(Get(1), 1.5F);
    EXPECT_EQ(Get(2), 2.5F);
}

TEST_P(ShapeNumber, OfATableWithoutShapesIsNotAllocated)
{
    SizeShapes(file, 0, 5);
    for (const std::int32_t shape : {0, 1}) {
        EXPECT_EQ(Get(shape), 0);
        EXPECT_EQ(file.ErrorStatus(), ShapeDataNotAllocated);
        Set(shape, 1);
        EXPECT_EQ(file.ErrorStatus(), ShapeDataNotAllocated);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Each, ShapeNumber,
    testing::Values(NumberProperty{"Ordinate", &Component::Shape_Ordinate, &Component::Shape_Ordinate},
                    NumberProperty{"Damping", &Component::Shape_Damping, &Component::Shape_Damping}),
    [](const auto& property) { return property.param.name; });

TEST(ShapeNumbers, HavePlacesOfTheirOwn)
{
    clsQOR_File file;
    SizeShapes(file, 1, 1);
    file.Shape_Ordinate(1, 1);
    file.Shape_Damping(1, 2);
    EXPECT_EQ(file.Shape_Ordinate(1), 1);
    EXPECT_EQ(file.Shape_Damping(1), 2);
    EXPECT_EQ(ReadShape(file, 1, 1), Holds(0));
}

// ---- codes of DOFs --------------------------------------------------------------------------------------------

TEST(DOF_DataSVT, IsVectorScalarOrTensorAndEverythingElseAVector)
{
    clsQOR_File file;
    SizeShapes(file, 0, 2);
    EXPECT_EQ(file.DOF_DataSVT(2), DataIsVector) << "until set";
    for (const std::int32_t value : {5, 6, 4, 3, 5, 0, 4, 7, 4, 8, 4, -1, 4, LargestInt32, 4, SmallestInt32}) {
        file.DOF_DataSVT(2, static_cast<SVTvalues>(value));
        EXPECT_EQ(file.DOF_DataSVT(2), value == 4 || value == 5 ? value : 3) << value;
    }
    EXPECT_EQ(file.DOF_DataSVT(1), DataIsVector);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(DOF_DataSVT, OfAnotherKindIsStoredAsAVector)
{
    clsQOR_File file;
    SizeShapes(file, 0, 1);
    for (const std::int32_t value : {6, 0, 65540}) {
        file.DOF_DataSVT(1, DataIsTensor);
        file.DOF_DataSVT(1, static_cast<SVTvalues>(value));
        EXPECT_EQ(modQOR_File().ShapeTable.DOFs.at(0).DataSVT, DataIsVector) << value;
    }
}

TEST(DOF_DataSVT, OutsideTheTableIsAnIndexErrorAndAVector)
{
    clsQOR_File file;
    for (const std::int32_t dofs : {0, 2}) {
        SizeShapes(file, 2, dofs);
        if (dofs > 0) file.DOF_DataSVT(2, DataIsTensor);
        for (const std::int32_t dof : {0, dofs + 1, -1, LargestInt32, SmallestInt32}) {
            EXPECT_EQ(file.DOF_DataSVT(dof), DataIsVector) << dof;
            EXPECT_EQ(file.ErrorStatus(), DOFIndexError) << dof;
            file.DOF_DataSVT(dof, DataIsScalar);
            EXPECT_EQ(file.ErrorStatus(), DOFIndexError) << dof;
        }
    }
    EXPECT_EQ(file.DOF_DataSVT(1), DataIsVector);
    EXPECT_EQ(file.DOF_DataSVT(2), DataIsTensor);
}

TEST(DOF_MeasurementType, IsKeptAsPassedDeclaredOrNot)
{
    clsQOR_File file;
    SizeShapes(file, 0, 2);
    EXPECT_EQ(file.DOF_MeasurementType(2), ST_MeasurementIsUndefined);
    for (const std::int32_t value : {21, 35, 10, -5, 40000, LargestInt32, SmallestInt32, 0}) {
        file.DOF_MeasurementType(2, static_cast<ShapeTable_MeasurementTypes>(value));
        EXPECT_EQ(file.DOF_MeasurementType(2), value);
        EXPECT_EQ(file.DOF_MeasurementType(1), 0);
    }
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(DOF_MeasurementType, OutsideTheTableIsAnIndexError)
{
    clsQOR_File file;
    for (const std::int32_t dofs : {0, 2}) {
        SizeShapes(file, 2, dofs);
        for (const std::int32_t dof : {0, dofs + 1, -1, LargestInt32, SmallestInt32}) {
            EXPECT_EQ(file.DOF_MeasurementType(dof), ST_MeasurementIsUndefined) << dof;
            EXPECT_EQ(file.ErrorStatus(), DOFIndexError) << dof;
            file.DOF_MeasurementType(dof, ST_MeasurementIsResidue);
            EXPECT_EQ(file.ErrorStatus(), DOFIndexError) << dof;
        }
    }
}

// ---- file -----------------------------------------------------------------------------------------------------

class OutputShapeTable : public testing::Test
{
protected:
    // An existing file of that name.
    std::filesystem::path Existing(std::string_view name)
    {
        WriteBytes(folder / name, {1, 2, 3});
        return folder / name;
    }
    static std::vector<std::uint8_t> Untouched() { return {1, 2, 3}; }
    // Of the file of one shape and one DOF without texts: preamble, header, the two records, one value.
    static constexpr std::size_t SmallestSize = 50 + 86 + 24 + 28 + 8;

    TemporaryFolder folder;
    clsQOR_File file;
};

TEST_F(OutputShapeTable, WithoutShapesOrDOFsFailsAndLeavesAnExistingFile)
{
    const auto path = Existing("old.shp");
    SizeShapes(file, 2, 0);
    EXPECT_EQ(file.OutputShapeTableFile(Utf16(path)), Failure);
    SizeShapes(file, 0, 2);
    EXPECT_EQ(file.OutputShapeTableFile(Utf16(path)), Failure);
    SizeShapes(file, 0, 0);
    EXPECT_EQ(file.OutputShapeTableFile(Utf16(path)), Failure);
    EXPECT_EQ(file.OutputShapeTableFile(Utf16(folder / "new.shp")), Failure);

    EXPECT_EQ(BytesOf(path), Untouched());
    EXPECT_FALSE(std::filesystem::exists(folder / "new.shp"));
}

TEST_F(OutputShapeTable, ToABlankNameFails)
{
    SizeShapes(file, 1, 1);
    EXPECT_EQ(file.OutputShapeTableFile(u""), Failure);
    EXPECT_EQ(file.OutputShapeTableFile(u"   "), Failure);
    EXPECT_FALSE(std::filesystem::exists("   "));
}

TEST_F(OutputShapeTable, ReplacesAnExistingFile)
{
    const auto path = folder / "old.shp";
    WriteBytes(path, std::vector<std::uint8_t>(10'000, 7));
    SizeShapes(file, 1, 1);

    EXPECT_EQ(file.OutputShapeTableFile(Utf16(path)), Success);

    const auto bytes = BytesOf(path);
    EXPECT_EQ(bytes.size(), SmallestSize);
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 8), "DU'lmeer");
}

TEST_F(OutputShapeTable, TakesTheNameWithTheBlanksAroundIt)
{
    SizeShapes(file, 1, 1);

    EXPECT_EQ(file.OutputShapeTableFile(Utf16(folder / "x.shp ")), Success);

    EXPECT_TRUE(std::filesystem::exists(folder / "x.shp "));
}

TEST_F(OutputShapeTable, WhereNothingCanBeCreatedFails)
{
    SizeShapes(file, 1, 1);
    std::filesystem::create_directory(folder / "folder");

    EXPECT_EQ(file.OutputShapeTableFile(Utf16(folder / "folder")), Failure);
    EXPECT_EQ(file.OutputShapeTableFile(Utf16(folder / "missing" / "x.shp")), Failure);

    EXPECT_TRUE(std::filesystem::is_directory(folder / "folder"));
}

TEST_F(OutputShapeTable, OfAValueThatNoFileHoldsFailsAndLeavesWhatCameBefore)
{
    const auto path = Existing("old.shp");
    SizeShapes(file, 1, 1);
    file.WriteShapeDOFvalue(1, 1, std::numeric_limits<float>::infinity(), 0);

    EXPECT_EQ(file.OutputShapeTableFile(Utf16(path)), Failure);

    EXPECT_EQ(BytesOf(path).size(), SmallestSize - 8);
}

TEST_F(OutputShapeTable, OfCountsBeyondTheSharedArraysFailsBehindTheLastRecord)
{
    SizeShapes(file, 2, 1);
    clsQOR_File other;
    SizeShapes(other, 1, 1);

    EXPECT_EQ(file.OutputShapeTableFile(Utf16(folder / "x.shp")), Failure);

    EXPECT_EQ(BytesOf(folder / "x.shp").size(), SmallestSize - 8 - 28);
}

TEST_F(OutputShapeTable, WritesLabelNotesAndCountsOfItsObject)
{
    clsQOR_File other;
    SizeShapes(other, 3, 3);
    other.ShapeTable_Label(u"other");
    file.ShapeTable_NumberOfDOFs(3);
    file.ShapeTable_NumberOfShapes(3);
    file.ShapeTable_Label(u"L");

    ASSERT_EQ(file.OutputShapeTableFile(Utf16(folder / "x.shp")), Success);

    const auto bytes = BytesOf(folder / "x.shp");
    EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin() + 50, bytes.begin() + 64),
              (std::vector<std::uint8_t>{3, 0, 0, 0, 3, 0, 0, 0, 1, 0, 0, 0, 'L', 0}));
}

TEST_F(OutputShapeTable, LeavesTheErrorStatusWhateverHappens)
{
    const std::u16string names[] = {u"", Utf16(folder / "missing" / "x.shp"), Utf16(folder / "x.shp")};
    for (const std::int32_t size : {0, 1}) {
        SizeShapes(file, size, size);
        for (const float magnitude : {1.0F, std::numeric_limits<float>::infinity()}) {
            if (size > 0) file.WriteShapeDOFvalue(1, 1, magnitude, 0);
            for (const std::u16string& name : names) {
                file.ErrorStatus(AxisNumberError);
                file.OutputShapeTableFile(name);
                EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
                EXPECT_EQ(file.ErrorStatus(), NoError);
                file.OutputShapeTableFile(name);
                EXPECT_EQ(file.ErrorStatus(), NoError);
            }
        }
    }
}

TEST_F(OutputShapeTable, LeavesTheTable)
{
    SizeShapes(file, 2, 2);
    NumberValues(file);
    file.Shape_OrdinateUnits(1, u" Hz ");

    ASSERT_EQ(file.OutputShapeTableFile(Utf16(folder / "x.shp")), Success);

    EXPECT_EQ(file.Shape_OrdinateUnits(1), u" Hz ");
    EXPECT_EQ(file.DOF_MeasurementType(1), ST_MeasurementIsUndefined);
    EXPECT_EQ(ReadShape(file, 2, 1), Numbered(2, 1));
}

} // namespace
} // namespace qor::test
