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

TEST(StructureDump, ShowsTablesOneBelowAnother)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    const Ran ran = workshop.Qor("dump a.str");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(ran.output,
              "5 points\n"
              "  No  Label  X     Y    Z  Color    Bold  Center  Type         Normal  Area  Local axes\n"
              "   1  A      0     0    0  #000000             0  Rectangular  X          0\n"
              "   2  B      2     0    0  #000000             0  Rectangular  X          0\n"
              "   3  C      2   1.5    0  #000000             0  Rectangular  X          0\n"
              "   4  D      0   1.5    0  #000000             0  Rectangular  X          0\n"
              "   5  Ridge  1  0.75  0.6  #FF0000  bold       1  Cylindrical  Z       0.25  (0 1 0) (-1 0 0) (0 0 1)\n"
              "\n"
              "2 lines\n"
              "  No  Point 1  Point 2  Color    Bold\n"
              "   1        1        2  #0000FF\n"
              "   2        3        4  #0000FF  bold\n"
              "\n"
              "1 triangle\n"
              "  No  Point 1  Point 2  Point 3\n"
              "   1        1        2        5\n"
              "\n"
              "1 quad\n"
              "  No  Point 1  Point 2  Point 3  Point 4\n"
              "   1        1        2        3        4\n");
}

TEST(StructureDump, LeavesNothingOutOfCsv)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    EXPECT_EQ(workshop.Qor("dump a.str --format csv --elements points").output,
              "No,Label,X,Y,Z,Color,Bold,Center,Type,Normal,Area,Axis 1 X,Axis 1 Y,Axis 1 Z,Axis 2 X,Axis 2 Y,Axis 2 Z,"
              "Axis 3 X,Axis 3 Y,Axis 3 Z,Extra\n"
              "1,A,0,0,0,0,false,0,Rectangular,X,0,1,0,0,0,1,0,0,0,1,0\n"
              "2,B,2,0,0,0,false,0,Rectangular,X,0,1,0,0,0,1,0,0,0,1,0\n"
              "3,C,2,1.5,0,0,false,0,Rectangular,X,0,1,0,0,0,1,0,0,0,1,0\n"
              "4,D,0,1.5,0,0,false,0,Rectangular,X,0,1,0,0,0,1,0,0,0,1,0\n"
              "5,Ridge,1,0.75,0.6,255,true,1,Cylindrical,Z,0.25,0,1,0,-1,0,0,0,0,1,0\n");
}

TEST(StructureDump, SeparatesTheTablesOfCsvByABlankLine)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    const Ran ran = workshop.Qor("dump a.str --format csv");

    EXPECT_THAT(ran.output, StartsWith("No,Label,X,"));
    EXPECT_THAT(ran.output, HasSubstr(",1,0\n"
                                      "\n"
                                      "No,Point 1,Point 2,Color,Bold,Extra\n"
                                      "1,1,2,16711680,false,0\n"
                                      "2,3,4,16711680,true,0\n"
                                      "\n"
                                      "No,Point 1,Point 2,Point 3,Color,Bold,Extra\n"
                                      "1,1,2,5,0,false,0\n"
                                      "\n"
                                      "No,Point 1,Point 2,Point 3,Point 4,Color,Bold,Extra\n"
                                      "1,1,2,3,4,0,false,0\n"));
}

TEST(StructureDump, GivesTheElementsThatAreAskedForInThatOrderAndOnce)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    const Ran ran = workshop.Qor("dump a.str --elements quads --elements lines --elements quads");

    EXPECT_THAT(ran.output, StartsWith("1 quad\n"));
    EXPECT_THAT(ran.output, HasSubstr("4\n\n2 lines\n"));
    EXPECT_THAT(ran.output, Not(HasSubstr("points")));
    EXPECT_EQ(ran.output.find("quad"), ran.output.rfind("quad"));
    const Json json = Json::parse(workshop.Qor("dump a.str --elements lines --format json").output);
    EXPECT_TRUE(json.contains("lines"));
    EXPECT_FALSE(json.contains("points"));
}

TEST(StructureDump, GivesEverythingAsJson)
{
    const Workshop workshop;
    SaveRoof(workshop / "a.str");

    const Json json = Json::parse(workshop.Qor("dump a.str --format json").output);

    EXPECT_EQ(json["kind"], "Structure");
    EXPECT_EQ(json["label"], "Roof");
    EXPECT_EQ(json["variant"], "small");
    ASSERT_EQ(json["points"].size(), 5U);
    const Json ridge = Json::parse(R"({"number": 5, "label": "Ridge", "x": 1, "y": 0.75, "z": 0.6, "color": 255,
        "bold": true, "centerPoint": 1, "type": "Cylindrical", "normalAxis": "Z", "area": 0.25,
        "axes": [[0, 1, 0], [-1, 0, 0], [0, 0, 1]], "extra": 0})");
    EXPECT_EQ(json["points"][4], ridge);
    EXPECT_EQ(json["lines"][1],
              Json::parse(R"({"number": 2, "points": [3, 4], "color": 16711680, "bold": true, "extra": 0})"));
    EXPECT_EQ(json["triangles"][0]["points"], Json({1, 2, 5}));
    EXPECT_EQ(json["quads"][0]["points"], Json({1, 2, 3, 4}));
}

TEST(StructureDump, GivesTheExtraValuesOfALargeFile)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str", StructureFile()
                                       .Version(15)
                                       .Raw(VertexBytes().Field(83, Int32(-7)).Build())
                                       .Raw(EdgeLineBytes().Field(6, Int32(70000)).Build())
                                       .Build());

    EXPECT_THAT(workshop.Qor("dump a.str").output, HasSubstr("Extra\n   1  0  0  0     -7\n"));
    EXPECT_THAT(workshop.Qor("dump a.str --format csv --elements lines").output, HasSubstr("\n1,0,0,0,false,70000\n"));
}

TEST(StructureDump, OfAnEmptyOneHasHeadersOnly)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str", StructureFile().Build());

    EXPECT_EQ(workshop.Qor("dump a.str").output, "0 points\n\n0 lines\n\n0 triangles\n\n0 quads\n");
    EXPECT_EQ(workshop.Qor("dump a.str --format csv --elements lines").output, "No,Point 1,Point 2,Color,Bold,Extra\n");
    EXPECT_EQ(Json::parse(workshop.Qor("dump a.str --format json").output)["quads"], Json::array());
}

TEST(StructureDump, ShowsNumbersThatAreNoColorAndValuesThatAreNoNumbers)
{
    const Workshop workshop;
    const float infinity = std::numeric_limits<float>::infinity();
    WriteBytes(workshop / "a.str",
               StructureFile()
                   .Raw(VertexBytes()
                            .Field(2, Floats({std::numeric_limits<float>::quiet_NaN(), infinity, 0}))
                            .Field(4, Int32(-1))
                            .Build())
                   .Build());

    EXPECT_THAT(workshop.Qor("dump a.str").output, HasSubstr("   1  nan  inf  0  -1\n"));
    EXPECT_EQ(Json::parse(workshop.Qor("dump a.str --format json").output)["points"][0]["y"], "Infinity");
}

TEST(StructureDump, ShowsNoControlCharactersAndAlignsWideOnes)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.str", StructureFile()
                                       .Raw(VertexBytes().Field(7, Text(u"\x1B[31m\r\n\x07")).Build())
                                       .Raw(VertexBytes().Field(7, Text(u"屋根\x9B")).Build())
                                       .Raw(VertexBytes().Field(7, Text(u"a,\"b\"")).Build())
                                       .Build());

    for (const char* arguments : {"info a.str", "info a.str --format json", "dump a.str", "dump a.str --format csv",
                                  "dump a.str --format json"}) {
        const Ran ran = workshop.Qor(arguments);
        EXPECT_EQ(ran.exitCode, 0) << arguments;
        EXPECT_EQ(ran.output.find_first_of("\x1B\x07\r"), std::string::npos) << arguments << ran.output;
        EXPECT_EQ(ran.output.find("\xC2\x9B"), std::string::npos) << arguments << ran.output;
    }
    EXPECT_THAT(workshop.Qor("dump a.str").output, HasSubstr("  No  Label     X  Y  Z\n"
                                                             "   1  �[31m���  0  0  0\n"
                                                             "   2  屋根�     0  0  0\n"
                                                             "   3  a,\"b\"     0  0  0\n"));
    EXPECT_THAT(workshop.Qor("dump a.str --format csv").output, HasSubstr("\n3,\"a,\"\"b\"\"\",0,"));
    EXPECT_EQ(Json::parse(workshop.Qor("dump a.str --format json").output)["points"][0]["label"], "\x1B[31m\r\n\x07");
}

} // namespace
