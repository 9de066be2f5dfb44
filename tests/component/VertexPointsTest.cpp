// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Vertex points of the Structure: reading and writing them by number, and what fails in which order.
#include "component/StructureAccess.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

using VertexPoints = StructureTest;

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();
const std::u16string TwentyBlanks(20, u' ');

Vertex Numbered(std::int32_t number)
{
    const auto value = static_cast<float>(number);
    return {
        std::u16string(1, static_cast<char16_t>(u'A' + number)), value, value + 0.25F, value + 0.5F, number * 10, true};
}

void WriteNumbered(clsQOR_File& file, std::int32_t count)
{
    file.Structure_NumberOfVertexPoints(count);
    for (std::int32_t number = 1; number <= count; ++number) WriteVertex(file, number, Numbered(number));
}

// ---- storage -------------------------------------------------------------------------------------------------

TEST_F(VertexPoints, AreReleasedByANegativeCount)
{
    WriteNumbered(file, 3);
    file.Structure_NumberOfEdgeLines(2);

    file.Structure_NumberOfVertexPoints(-5);

    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 0);
    EXPECT_EQ(file.Structure_NumberOfEdgeLines(), 2) << "the other lists stay";
    EXPECT_EQ(modQOR_File().Structure.VertexPoints.Count(), 0);
    EXPECT_EQ(ReadVertex(file, 1), VertexRead{});
    EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated);
}

TEST_F(VertexPoints, AreKeptWhenTheListGrows)
{
    WriteNumbered(file, 3);

    file.Structure_NumberOfVertexPoints(5);

    for (const std::int32_t number : {1, 2, 3}) EXPECT_EQ(ReadVertex(file, number), Holds(Numbered(number)));
}

TEST_F(VertexPoints, AreNewWithABlankLabelAndZeros)
{
    WriteNumbered(file, 3);

    file.Structure_NumberOfVertexPoints(5);

    for (const std::int32_t number : {4, 5}) {
        EXPECT_EQ(ReadVertex(file, number), Holds(Vertex{}));
        EXPECT_EQ(StoredLabel(number), TwentyBlanks);
        for (const std::int32_t axis : {0, 1, 2}) EXPECT_EQ(ReadAxis(file, number, axis), (AxisRead{Success, 0, 0, 0}));
        EXPECT_EQ(StoredVertex(number).CenterPoint, 0);
        EXPECT_EQ(StoredVertex(number).PointType, Rectangular);
        EXPECT_EQ(StoredVertex(number).NormalAxis, Xaxis);
        EXPECT_EQ(Bits(StoredVertex(number).Area), Bits(0));
        EXPECT_EQ(StoredVertex(number).FileExtraValue, 0);
    }
}

TEST_F(VertexPoints, ThatRemainAreKeptWhenTheListShrinks)
{
    WriteNumbered(file, 5);

    file.Structure_NumberOfVertexPoints(2);

    for (const std::int32_t number : {1, 2}) EXPECT_EQ(ReadVertex(file, number), Holds(Numbered(number)));
    EXPECT_EQ(ReadVertex(file, 3), VertexRead{});
    EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError);
}

TEST_F(VertexPoints, ThatWereDroppedDoNotComeBack)
{
    WriteNumbered(file, 3);
    file.WriteStructureVertexPointInformation(3, 7, Spherical, Zaxis, 1.5F);

    file.Structure_NumberOfVertexPoints(2);
    file.Structure_NumberOfVertexPoints(3);

    EXPECT_EQ(ReadVertex(file, 3), Holds(Vertex{}));
    EXPECT_EQ(StoredLabel(3), TwentyBlanks);
    EXPECT_EQ(ReadAxis(file, 3, Xaxis), (AxisRead{Success, 0, 0, 0}));
    EXPECT_EQ(StoredVertex(3).CenterPoint, 0);
    EXPECT_EQ(StoredVertex(3).PointType, Rectangular);
}

// ---- writing -------------------------------------------------------------------------------------------------

TEST_F(VertexPoints, AreReadAsTheyWereWritten)
{
    file.Structure_NumberOfVertexPoints(3);
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const Vertex vertices[] = {
        {u"corner", 1.5F, -2.5F, 1e-45F, 0xFF00FF, true},
        {u"", -0.0F, infinity, -infinity, LargestInt32, false},
        {u"a b", std::numeric_limits<float>::quiet_NaN(), 0, 3.4e38F, SmallestInt32, Bool16::Raw(5)},
    };
    for (const Vertex& vertex : vertices) {
        EXPECT_EQ(WriteVertex(file, 2, vertex), Success);
        EXPECT_EQ(ReadVertex(file, 2), Holds(vertex));
    }
    EXPECT_EQ(ReadVertex(file, 1), Holds(Vertex{}));
    EXPECT_EQ(ReadVertex(file, 3), Holds(Vertex{}));
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_F(VertexPoints, TakeColorZeroAndNotBoldWhereTheCallLeavesThemOut)
{
    WriteNumbered(file, 1);
    EXPECT_EQ(file.WriteStructureVertexPoint(1, u"plain", 1, 2, 3), Success);
    EXPECT_EQ(ReadVertex(file, 1), Holds({u"plain", 1, 2, 3, 0, false}));
}

struct LabelCase {
    const char* what;
    std::u16string_view given;
    std::u16string_view stored;
    std::u16string_view read;
};

const LabelCase LabelCases[] = {
    {"empty", u"", u"                    ", u""},
    {"blanks only", u"      ", u"                    ", u""},
    {"more blanks than fit", u"                              ", u"                    ", u""},
    {"13 characters behind blanks", u"  Point number1", u"Point number1       ", u"Point number1"},
    {"blanks behind", u"x   ", u"x                   ", u"x"},
    {"blanks within", u" a  b ", u"a  b                ", u"a  b"},
    {"as long as fits", u"ABCDEFGHIJKLMNOPQRST", u"ABCDEFGHIJKLMNOPQRST", u"ABCDEFGHIJKLMNOPQRST"},
    {"25 characters", u"ABCDEFGHIJKLMNOPQRSTUVWXY", u"ABCDEFGHIJKLMNOPQRST", u"ABCDEFGHIJKLMNOPQRST"},
    {"trimmed before it is cut", u"   ABCDEFGHIJKLMNOPQRSTUV", u"ABCDEFGHIJKLMNOPQRST", u"ABCDEFGHIJKLMNOPQRST"},
    {"cut behind a blank", u"ABCDEFGHIJKLMNOPQRS TUV", u"ABCDEFGHIJKLMNOPQRS ", u"ABCDEFGHIJKLMNOPQRS"},
    {"other white space stays", u"\t\u00A0x\n", u"\t\u00A0x\n                ", u"\t\u00A0x\n"},
};

TEST_F(VertexPoints, KeepTheLabelTrimmedInTwentyCharacters)
{
    file.Structure_NumberOfVertexPoints(1);
    for (const LabelCase& label : LabelCases) {
        file.WriteStructureVertexPoint(1, u"something longer bef", 0, 0, 0);
        EXPECT_EQ(file.WriteStructureVertexPoint(1, label.given, 0, 0, 0), Success) << label.what;
        EXPECT_EQ(StoredLabel(1), label.stored) << label.what;
        EXPECT_EQ(ReadVertex(file, 1).vertex.label, label.read) << label.what;
    }
}

TEST_F(VertexPoints, KeepZeroCharactersAndHalvesOfSurrogatesInTheLabel)
{
    file.Structure_NumberOfVertexPoints(1);
    const std::u16string label = {u'a', u'\0', 0xD800, u'b'};
    file.WriteStructureVertexPoint(1, label, 0, 0, 0);
    EXPECT_EQ(ReadVertex(file, 1).vertex.label, label);
}

TEST_F(VertexPoints, WrittenAnewHaveTheAxesOfTheStructure)
{
    file.Structure_NumberOfVertexPoints(2);
    for (const std::int32_t number : {1, 2}) {
        for (const AxisNumbers axis : {Xaxis, Yaxis, Zaxis}) {
            file.WriteStructureVertexPointTransform(number, axis, 5, 6, 7);
        }
    }

    WriteVertex(file, 1, Vertex{});

    EXPECT_EQ(ReadAxis(file, 1, Xaxis), (AxisRead{Success, 1, 0, 0}));
    EXPECT_EQ(ReadAxis(file, 1, Yaxis), (AxisRead{Success, 0, 1, 0}));
    EXPECT_EQ(ReadAxis(file, 1, Zaxis), (AxisRead{Success, 0, 0, 1}));
    EXPECT_EQ(ReadAxis(file, 2, Yaxis), (AxisRead{Success, 5, 6, 7})) << "another point keeps its own";
}

TEST_F(VertexPoints, WrittenAnewKeepTheirInformation)
{
    file.Structure_NumberOfVertexPoints(1);
    modQOR_File().Structure.VertexPoints[1].FileExtraValue = 99;
    file.WriteStructureVertexPointInformation(1, 7, Machine, Zaxis, 2.5F);

    WriteVertex(file, 1, Numbered(1));

    EXPECT_EQ(StoredVertex(1).CenterPoint, 7);
    EXPECT_EQ(StoredVertex(1).PointType, Machine);
    EXPECT_EQ(StoredVertex(1).NormalAxis, Zaxis);
    EXPECT_EQ(Bits(StoredVertex(1).Area), Bits(2.5F));
    EXPECT_EQ(StoredVertex(1).FileExtraValue, 99) << "what came from a file stays too";
}

// ---- failed checks -------------------------------------------------------------------------------------------

TEST_F(VertexPoints, AreNotReadFromAnEmptyListWhateverTheNumber)
{
    for (const std::int32_t number : {1, 0, -1, 2, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(ReadVertex(file, number), VertexRead{}) << number;
        EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated) << number;
    }
    EXPECT_EQ(file.GetLastErrorString(), u"Error (31): Undefined error");
}

TEST_F(VertexPoints, AreNotReadOutsideTheList)
{
    WriteNumbered(file, 2);
    for (const std::int32_t number : {0, -1, 3, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(ReadVertex(file, number), VertexRead{}) << number;
        EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError) << number;
    }
    EXPECT_EQ(file.GetLastErrorString(), u"Error (30): VertexPoint Index error");
}

TEST_F(VertexPoints, AreNotWrittenOutsideTheList)
{
    WriteNumbered(file, 2);
    for (const std::int32_t number : {0, -2, 3, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(WriteVertex(file, number, {u"lost", 9, 9, 9, 9, true}), Failure) << number;
        EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError) << number;
    }
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 2);
    for (const std::int32_t number : {1, 2}) EXPECT_EQ(ReadVertex(file, number), Holds(Numbered(number)));
}

TEST_F(VertexPoints, WrittenToAnEmptyListFailWithTheIndexCode)
{
    EXPECT_EQ(WriteVertex(file, 1, Vertex{}), Failure);
    EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError);
}

TEST_F(VertexPoints, ReadAndWrittenWellLeaveTheErrorStatus)
{
    WriteNumbered(file, 1);
    file.ErrorStatus(SampleIndexError);
    EXPECT_EQ(WriteVertex(file, 1, Numbered(1)), Success);
    EXPECT_EQ(ReadVertex(file, 1), Holds(Numbered(1)));
    EXPECT_EQ(file.ErrorStatus(), SampleIndexError);
}

// ---- appending -----------------------------------------------------------------------------------------------

// The number of the fault that appending raises; 0 for none.
int FaultOfAppending(clsQOR_File& file, std::string* description = nullptr)
{
    try {
        WriteVertex(file, -1, {u"lost", 9, 9, 9, 9, true});
    } catch (const RuntimeFault& fault) {
        if (description) *description = fault.what();
        return fault.Number();
    }
    return 0;
}

TEST_F(VertexPoints, AppendedRaiseSubscriptOutOfRange)
{
    std::string description;
    EXPECT_EQ(FaultOfAppending(file, &description), RuntimeFault::SubscriptOutOfRange);
    EXPECT_EQ(description, "Subscript out of range");
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.GetLastErrorString(), u"");
}

TEST_F(VertexPoints, AppendedLeaveABlankElementBehind)
{
    WriteNumbered(file, 2);

    FaultOfAppending(file);

    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 3);
    EXPECT_EQ(ReadVertex(file, 2), Holds(Numbered(2)));
    EXPECT_EQ(ReadVertex(file, 3), Holds(Vertex{}));
    EXPECT_EQ(StoredLabel(3), TwentyBlanks);
    EXPECT_EQ(ReadAxis(file, 3, Xaxis), (AxisRead{Success, 0, 0, 0})) << "not even its axes were written";
}

// Vertex points that fill an array fill two gigabytes; a list that cannot be made fails the same allocation.
TEST_F(VertexPoints, AppendedWithoutMemoryEmptyTheStructure)
{
    WriteNumbered(file, 2);
    modQOR_File().Structure.NumberOfSurfaceTriangles = LargestInt32;

    EXPECT_EQ(FaultOfAppending(file), 0);

    EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated);
    EXPECT_EQ(file.ErrorStatus(), AllocationError) << "left on the thread";
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 0);
    EXPECT_EQ(file.Structure_NumberOfSurfaceTriangles(), 0);
}

TEST_F(VertexPoints, AppendedBeyondWhatTheCountHoldsRaiseOverflow)
{
    modQOR_File().Structure.NumberOfVertexPoints = LargestInt32;

    std::string description;
    EXPECT_EQ(FaultOfAppending(file, &description), RuntimeFault::Overflow);
    EXPECT_EQ(description, "Overflow");
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), LargestInt32);
}

} // namespace
} // namespace qor::test
