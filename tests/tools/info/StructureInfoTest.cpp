// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/StructureFile.h"
#include "tools/Workshop.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <limits>

namespace {

using namespace qor::test;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Json = nlohmann::json;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

Bytes PointAt(float x, float y, float z) { return VertexBytes().Field(2, Floats({x, y, z})).Build(); }

TEST(StructureInfo, ShowsElementsAndBoundingBox)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    const Ran ran = workshop.Qor("info a.str --stats");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(ran.output, "a.str\n"
                          "  Structure file, version 12, 715 bytes\n"
                          "  Label    Roof\n"
                          "  Notes    first\n"
                          "           second\n"
                          "  Variant  small\n"
                          "  Elements 5 points, 2 lines, 1 triangle, 1 quad\n"
                          "  Labels   5 of 5 points\n"
                          "\n"
                          "  Bounding box\n"
                          "  Axis  Minimum  Maximum  Size\n"
                          "  X           0        2     2\n"
                          "  Y           0      1.5   1.5\n"
                          "  Z           0      0.6   0.6\n");
}

TEST(StructureInfo, GivesTheSameAsJson)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    const Json json = Json::parse(workshop.Qor("info a.str --format json").output)[0];

    EXPECT_EQ(json["kind"], "Structure");
    EXPECT_EQ(json["label"], "Roof");
    EXPECT_EQ(json["variant"], "small");
    EXPECT_EQ(json["points"], 5);
    EXPECT_EQ(json["lines"], 2);
    EXPECT_EQ(json["triangles"], 1);
    EXPECT_EQ(json["quads"], 1);
    EXPECT_EQ(json["labelledPoints"], 5);
    EXPECT_EQ(json["namingMissingPoints"]["lines"], 0);
    EXPECT_EQ(json["boundingBox"]["z"], Json({{"minimum", 0}, {"maximum", 0.6}, {"size", 0.6}}));
}

TEST(StructureInfo, OfAnEmptyOneHasNoBoundingBox)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str", StructureFile().Version(15).Build());

    const Ran ran = workshop.Qor("info a.str");

    EXPECT_THAT(ran.output, HasSubstr("  Variant  large\n  Elements 0 points, 0 lines, 0 triangles, 0 quads\n"));
    EXPECT_THAT(ran.output, Not(HasSubstr("Bounding box")));
    EXPECT_TRUE(Json::parse(workshop.Qor("info a.str --format json").output)[0]["boundingBox"].is_null());
}

TEST(StructureInfo, LeavesNaNOutOfTheBoundingBox)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str",
               StructureFile().Raw(PointAt(NaN, 1, NaN)).Raw(PointAt(-2, NaN, NaN)).Raw(PointAt(3, 7, NaN)).Build());

    EXPECT_THAT(workshop.Qor("info a.str").output, HasSubstr("  X          -2        3     5\n"
                                                             "  Y           1        7     6\n"
                                                             "  Z           -        -     -\n"));
    const Json box = Json::parse(workshop.Qor("info a.str --format json").output)[0]["boundingBox"];
    EXPECT_EQ(box["x"]["minimum"], -2);
    EXPECT_TRUE(box["z"].is_null());
}

TEST(StructureInfo, CountsElementsThatNamePointsThatAreNotThere)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str", StructureFile()
                                       .Raw(VertexBytes().Field(3, Int16(9)).Build()) // its center point
                                       .Raw(PointAt(0, 0, 0))
                                       .Raw(EdgeLineBytes().Field(2, Int16(1) + Int16(2)).Build())
                                       .Raw(EdgeLineBytes().Field(2, Int16(0) + Int16(3)).Build())
                                       .Raw(TriangleBytes().Field(2, Int16(1) + Int16(2) + Int16(-1)).Build())
                                       .Raw(QuadBytes().Field(2, Int16(1) + Int16(2) + Int16(2) + Int16(1)).Build())
                                       .Build());

    EXPECT_THAT(workshop.Qor("info a.str").output,
                HasSubstr("  Warning  points that are not there are named by 1 point, 1 line, 1 triangle\n"));
    const Json json = Json::parse(workshop.Qor("info a.str --format json").output)[0];
    EXPECT_EQ(json["namingMissingPoints"], Json({{"points", 1}, {"lines", 1}, {"triangles", 1}, {"quads", 0}}));
}

TEST(StructureInfo, WarnsOfAMissingEndMarker)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str", StructureFile().Raw(PointAt(0, 0, 0)).WithoutEndMarker().Build());

    const Ran ran = workshop.Qor("info a.str");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_THAT(ran.errors, StartsWith("qor: a.str: warning: the end marker is missing"));
    EXPECT_THAT(ran.output, HasSubstr("1 point,"));
}

} // namespace
