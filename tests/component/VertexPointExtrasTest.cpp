// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Information and local axes of vertex points. Nothing reads the information back but a saved file; these tests look
// at it where it is kept.
#include "component/StructureAccess.h"

#include <QOR_File/QOR_File.h>

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

using VertexPointInformation = StructureTest;
using VertexPointTransform = StructureTest;

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

struct Information {
    std::int32_t center = 0;
    std::int32_t pointType = 0;
    std::int32_t normalAxis = 0;
    float area = 0;

    friend bool operator==(const Information&, const Information&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Information& information)
    {
        return out << "center " << information.center << " type " << information.pointType << " axis "
                   << information.normalAxis << " area " << information.area;
    }
};

Information InformationOf(std::int32_t number)
{
    const VertexPoint& point = StoredVertex(number);
    return {point.CenterPoint, point.PointType, point.NormalAxis, point.Area};
}

// ---- information ---------------------------------------------------------------------------------------------

TEST_F(VertexPointInformation, IsStoredByTheWrite)
{
    file.Structure_NumberOfVertexPoints(3);
    EXPECT_EQ(file.WriteStructureVertexPointInformation(2, 3, Spherical, Yaxis, 1.5F), Success);
    EXPECT_EQ(InformationOf(2), (Information{3, Spherical, Yaxis, 1.5F}));
    EXPECT_EQ(InformationOf(1), Information{});
    EXPECT_EQ(InformationOf(3), Information{});
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_F(VertexPointInformation, IsStoredByTheMemberThatIsCalledReadToo)
{
    file.Structure_NumberOfVertexPoints(2);
    EXPECT_EQ(file.ReadStructureVertexPointInformation(1, 7, Cylindrical, Zaxis, 2.5F), Success);
    EXPECT_EQ(InformationOf(1), (Information{7, Cylindrical, Zaxis, 2.5F}));
    EXPECT_EQ(InformationOf(2), Information{});
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_F(VertexPointInformation, LeftOutByTheCallIsZero)
{
    file.Structure_NumberOfVertexPoints(2);
    for (const std::int32_t number : {1, 2}) {
        file.WriteStructureVertexPointInformation(number, 1, Machine, Zaxis, 9);
    }
    EXPECT_EQ(file.WriteStructureVertexPointInformation(1, 5), Success);
    EXPECT_EQ(file.ReadStructureVertexPointInformation(2, 6), Success);
    EXPECT_EQ(InformationOf(1), (Information{5, Rectangular, Xaxis, 0}));
    EXPECT_EQ(InformationOf(2), (Information{6, Rectangular, Xaxis, 0}));
}

TEST_F(VertexPointInformation, LeavesTheRestOfTheVertexPoint)
{
    file.Structure_NumberOfVertexPoints(1);
    const Vertex vertex = {u"label", 1, 2, 3, 4, true};
    WriteVertex(file, 1, vertex);
    file.WriteStructureVertexPointInformation(1, 1, Machine, Zaxis, 9);
    EXPECT_EQ(ReadVertex(file, 1), Holds(vertex));
    EXPECT_EQ(ReadAxis(file, 1, Zaxis), (AxisRead{Success, 0, 0, 1}));
}

TEST_F(VertexPointInformation, TakesCenterPointsOf0To32767)
{
    file.Structure_NumberOfVertexPoints(1);
    for (const std::int32_t center : {32767, 0, 1}) {
        EXPECT_EQ(file.WriteStructureVertexPointInformation(1, center), Success) << center;
        EXPECT_EQ(StoredVertex(1).CenterPoint, center);
    }
}

TEST_F(VertexPointInformation, WithAnotherCenterPointIsStoredButForIt)
{
    file.Structure_NumberOfVertexPoints(1);
    float area = 1;
    for (const std::int32_t center : {40000, -1, 32768, -32768, -32769, 65536, 65543, SmallestInt32, LargestInt32}) {
        file.WriteStructureVertexPointInformation(1, 7);
        EXPECT_EQ(file.WriteStructureVertexPointInformation(1, center, Spherical, Zaxis, ++area), Failure) << center;
        EXPECT_EQ(file.ErrorStatus(), CenterPointOverflow) << center;
        EXPECT_EQ(InformationOf(1), (Information{7, Spherical, Zaxis, area})) << center;
    }
    EXPECT_EQ(file.GetLastErrorString(), u"Error (15): Invalid Center Point error");
}

TEST_F(VertexPointInformation, StoredByTheReadTakesEveryCenterPointOf16Bits)
{
    file.Structure_NumberOfVertexPoints(1);
    for (const std::int32_t center : {-1, -32768, 0, 32767}) {
        EXPECT_EQ(file.ReadStructureVertexPointInformation(1, center), Success) << center;
        EXPECT_EQ(StoredVertex(1).CenterPoint, center);
        EXPECT_EQ(file.ErrorStatus(), NoError) << center;
    }
}

TEST_F(VertexPointInformation, StoredByTheReadSkipsALargerCenterPointSilently)
{
    file.Structure_NumberOfVertexPoints(1);
    float area = 1;
    for (const std::int32_t center : {40000, 32768, -32769, 65543, SmallestInt32, LargestInt32}) {
        file.WriteStructureVertexPointInformation(1, 7);
        EXPECT_EQ(file.ReadStructureVertexPointInformation(1, center, Spherical, Zaxis, ++area), Success) << center;
        EXPECT_EQ(file.ErrorStatus(), NoError) << center;
        EXPECT_EQ(InformationOf(1), (Information{7, Spherical, Zaxis, area})) << center;
    }
}

TEST_F(VertexPointInformation, KeepsUndeclaredTypesAndAxesAndAnyArea)
{
    file.Structure_NumberOfVertexPoints(2);
    for (const std::int32_t value : {4, -1, 40000, SmallestInt32, LargestInt32}) {
        const auto type = static_cast<PointTypes>(value);
        const auto axis = static_cast<AxisNumbers>(-1 - value);
        EXPECT_EQ(file.WriteStructureVertexPointInformation(1, 0, type, axis, -1e30F), Success);
        EXPECT_EQ(file.ReadStructureVertexPointInformation(2, 0, type, axis, -1e30F), Success);
        EXPECT_EQ(InformationOf(1), (Information{0, value, -1 - value, -1e30F}));
        EXPECT_EQ(InformationOf(2), InformationOf(1));
    }
    file.WriteStructureVertexPointInformation(1, 0, Rectangular, Xaxis, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(Bits(StoredVertex(1).Area), Bits(std::numeric_limits<float>::quiet_NaN()));
}

// ---- local axes ----------------------------------------------------------------------------------------------

TEST_F(VertexPointTransform, IsReadAsItWasWrittenForEachAxis)
{
    file.Structure_NumberOfVertexPoints(2);
    for (const AxisNumbers axis : {Xaxis, Yaxis, Zaxis}) {
        const auto value = static_cast<float>(axis * 10);
        EXPECT_EQ(file.WriteStructureVertexPointTransform(1, axis, value, value + 1, value + 2), Success);
    }
    EXPECT_EQ(ReadAxis(file, 1, Xaxis), (AxisRead{Success, 0, 1, 2}));
    EXPECT_EQ(ReadAxis(file, 1, Yaxis), (AxisRead{Success, 10, 11, 12}));
    EXPECT_EQ(ReadAxis(file, 1, Zaxis), (AxisRead{Success, 20, 21, 22}));
    EXPECT_EQ(ReadAxis(file, 2, Zaxis), (AxisRead{Success, 0, 0, 0}));
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

// A file holds the nine values in the order in which they are kept.
TEST_F(VertexPointTransform, IsKeptWithTheAxisVaryingFastest)
{
    file.Structure_NumberOfVertexPoints(1);
    file.WriteStructureVertexPointTransform(1, Xaxis, 11, 12, 13);
    file.WriteStructureVertexPointTransform(1, Yaxis, 21, 22, 23);
    file.WriteStructureVertexPointTransform(1, Zaxis, 31, 32, 33);
    EXPECT_EQ(StoredVertex(1).AxisEnd, (std::array<float, 9>{11, 21, 31, 12, 22, 32, 13, 23, 33}));
}

TEST_F(VertexPointTransform, KeepsAnyValue)
{
    file.Structure_NumberOfVertexPoints(1);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(file.WriteStructureVertexPointTransform(1, Yaxis, nan, -0.0F, 1e-45F), Success);
    EXPECT_EQ(ReadAxis(file, 1, Yaxis), (AxisRead{Success, nan, -0.0F, 1e-45F}));
}

TEST_F(VertexPointTransform, LeavesTheRestOfTheVertexPoint)
{
    file.Structure_NumberOfVertexPoints(1);
    const Vertex vertex = {u"label", 1, 2, 3, 4, true};
    WriteVertex(file, 1, vertex);
    file.WriteStructureVertexPointTransform(1, Zaxis, 5, 6, 7);
    EXPECT_EQ(ReadVertex(file, 1), Holds(vertex));
    EXPECT_EQ(InformationOf(1), Information{});
}

TEST_F(VertexPointTransform, RefusesEveryOtherAxis)
{
    file.Structure_NumberOfVertexPoints(1);
    WriteVertex(file, 1, Vertex{});
    for (const std::int32_t axis : {3, -1, 65536, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(file.WriteStructureVertexPointTransform(1, static_cast<AxisNumbers>(axis), 5, 6, 7), Failure);
        EXPECT_EQ(file.ErrorStatus(), AxisNumberError) << axis;
        EXPECT_EQ(ReadAxis(file, 1, axis), AxisRead{});
        EXPECT_EQ(file.ErrorStatus(), AxisNumberError) << axis;
    }
    EXPECT_EQ(file.GetLastErrorString(), u"Error (14): Axis Number error");
    EXPECT_EQ(StoredVertex(1).AxisEnd, (std::array<float, 9>{1, 0, 0, 0, 1, 0, 0, 0, 1}));
}

// ---- failed checks of all --------------------------------------------------------------------------------------

struct ExtraMember {
    const char* name;
    // Everything but the vertex-point number is wrong too, as far as the member looks at it.
    ReturnStatus (*call)(clsQOR_File& file, std::int32_t number);
};

constexpr auto NoAxis = static_cast<AxisNumbers>(3);
const ExtraMember ExtraMembers[] = {
    {"WriteInformation",
     [](clsQOR_File& file, std::int32_t n) { return file.WriteStructureVertexPointInformation(n, -1, Machine); }},
    {"ReadInformation",
     [](clsQOR_File& file, std::int32_t n) { return file.ReadStructureVertexPointInformation(n, 40000, Machine); }},
    {"WriteTransform",
     [](clsQOR_File& file, std::int32_t n) { return file.WriteStructureVertexPointTransform(n, NoAxis, 5, 6, 7); }},
    {"ReadTransform",
     [](clsQOR_File& file, std::int32_t n) {
         const AxisRead read = ReadAxis(file, n, NoAxis);
         EXPECT_EQ(read, AxisRead{}) << "the caller's values";
         return read.status;
     }},
};

class VertexPointExtra : public testing::TestWithParam<ExtraMember>
{
protected:
    clsQOR_File file;
};

TEST_P(VertexPointExtra, LooksFirstWhetherThereAreVertexPoints)
{
    for (const std::int32_t number : {1, 0, -1, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(GetParam().call(file, number), Failure) << number;
        EXPECT_EQ(file.ErrorStatus(), VertexPointsNotAllocated) << number;
    }
}

TEST_P(VertexPointExtra, LooksNextAtTheNumber)
{
    file.Structure_NumberOfVertexPoints(2);
    for (const std::int32_t number : {0, -1, 3, SmallestInt32, LargestInt32}) {
        EXPECT_EQ(GetParam().call(file, number), Failure) << number;
        EXPECT_EQ(file.ErrorStatus(), VertexPointIndexError) << number;
    }
    EXPECT_EQ(file.Structure_NumberOfVertexPoints(), 2);
    for (const std::int32_t number : {1, 2}) EXPECT_EQ(InformationOf(number), Information{});
}

INSTANTIATE_TEST_SUITE_P(Members, VertexPointExtra, testing::ValuesIn(ExtraMembers),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace qor::test
