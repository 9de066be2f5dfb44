// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Shape Tables whose files end at the last 32-bit position, or would pass it.
#include "LargeDocument.h"

#include "fileio/RecordReader.h"
#include "platform/File.h"

#include <vector>

namespace qor::test {
namespace {

constexpr std::int32_t Shapes = 16000;

class FilledShapeTableFile : public LargeDocument
{
protected:
    std::int64_t SizeOfFile(std::int32_t count)
    {
        component.ShapeTable_NumberOfDOFs(count);
        EXPECT_EQ(component.OutputShapeTableFile(path), Success);
        return FileSize();
    }

    // As many DOFs as a file of so many shapes can hold, and a label that fills it to the last byte.
    void SetUp() override
    {
        LargeDocument::SetUp();
        if (IsSkipped()) return;
        component.ShapeTable_NumberOfShapes(Shapes);
        const std::int64_t one = SizeOfFile(1);
        const std::int64_t perDOF = SizeOfFile(2) - one;
        dofs = static_cast<std::int32_t>(1 + (LargestFile - one) / perDOF);
        // The file's size is even, so that a byte is left over.
        component.ShapeTable_Label(std::u16string(static_cast<std::size_t>((LargestFile - one) % perDOF / 2), u'x'));
        component.ShapeTable_NumberOfDOFs(dofs);
        ASSERT_EQ(component.ErrorStatus(), NoError);
    }

    std::int64_t ValueBytes() const { return std::int64_t{8} * Shapes * dofs; }

    void ExpectCounts(RecordReader& file) const
    {
        file.MoveTo(51); // behind the preamble
        EXPECT_EQ(file.GetInt32(), dofs);
        EXPECT_EQ(file.GetInt32(), Shapes);
    }

    std::int32_t dofs = 0;
};

TEST_F(FilledShapeTableFile, IsSavedToItsLastCharacter)
{
    FileArrays arrays(component);
    std::vector<float> magnitudes(static_cast<std::size_t>(dofs));
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        std::int32_t dof = 0;
        for (float& magnitude : magnitudes) magnitude = ValueAt(shape, ++dof);
        ASSERT_EQ(arrays.WriteShapeDOFvalues(shape, magnitudes, {}), Success);
    }

    ASSERT_EQ(component.OutputShapeTableFile(path), Success);

    ASSERT_EQ(FileSize(), LargestFile - 1);
    auto file = platform::File::OpenForReading(path);
    ASSERT_TRUE(file);
    RecordReader reader(*file);
    ExpectCounts(reader);
    reader.MoveTo(FileSize() - ValueBytes() + 1);
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        for (std::int32_t dof = 1; dof <= dofs; ++dof) {
            ASSERT_TRUE(SameBits(reader.GetFloat(), ValueAt(shape, dof))) << shape << ", " << dof;
            ASSERT_EQ(reader.GetFloat(), 0) << shape << ", " << dof;
        }
    }
    EXPECT_FALSE(reader.AtEnd());
    EXPECT_EQ(reader.BytesLeft(), 0);
}

TEST_F(FilledShapeTableFile, WithOneCharacterMoreFailsAndHoldsNoValues)
{
    component.ShapeTable_Label(component.ShapeTable_Label() + u"x");

    EXPECT_EQ(component.OutputShapeTableFile(path), Failure);

    EXPECT_EQ(component.ErrorStatus(), NoError) << "a write has no code";
    EXPECT_EQ(component.ShapeTable_NumberOfDOFs(), dofs) << "the table stays";
    // Who reads it finds it too short for the counts that it tells.
    EXPECT_EQ(FileSize(), LargestFile - 1 + 2 - ValueBytes());
    auto file = platform::File::OpenForReading(path);
    ASSERT_TRUE(file);
    RecordReader reader(*file);
    ExpectCounts(reader);
}

} // namespace
} // namespace qor::test
