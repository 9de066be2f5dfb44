// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "shapetable/Saving.h"
#include "tools/Workshop.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace {

using namespace qor::test;
using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;

TEST(ShapeTableDump, ShowsARowForEveryDOF)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    const Ran ran = workshop.Qor("dump a.shp");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(ran.output, "No  Label     DOF  Type           Units  Mode 1 re  Mode 1 im  Mode 2 re  Mode 2 im\n"
                          " 1  Träger 1  1Z   UnitModalMass  m/s²           1          0          2          0\n"
                          " 2  Träger 2  2Z   UnitModalMass  m/s²          -2          0         -4          0\n"
                          " 3  Träger 3  3Z   Strain         µm/m           0        0.5          0          1\n");
}

TEST(ShapeTableDump, WritesEveryBitOfTheValuesAsCsv)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    EXPECT_EQ(workshop.Qor("dump a.shp --format csv").output,
              "No,Label,DOF,Type,Data,Units,Mode 1 re,Mode 1 im,Mode 2 re,Mode 2 im\n"
              "1,Träger 1,1Z,UnitModalMass,Vector,m/s²,1,0,2,0\n"
              "2,Träger 2,2Z,UnitModalMass,Vector,m/s²,-2,6.4621783e-15,-4,1.29243565e-14\n"
              "3,Träger 3,3Z,Strain,Vector,µm/m,8.077723e-16,0.5,1.6155446e-15,1\n");
}

TEST(ShapeTableDump, ShowsAPartThatIsNoRestAsItIs)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.shp", NewTableBytes(1, 3) + Floats({1e-15F, 0, 1, 1e-6F, 0, -1e-15F}));

    EXPECT_EQ(workshop.Qor("dump a.shp").output, "No  Type  Shape 1 re  Shape 1 im\n"
                                                 " 1  ODS        1e-15           0\n"
                                                 " 2  ODS            1       1e-06\n"
                                                 " 3  ODS            0      -1e-15\n");
}

TEST(ShapeTableDump, GivesTheShapesThatAreAskedForInThatOrder)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    EXPECT_THAT(workshop.Qor("dump a.shp --shape 2 --shape 1").output, HasSubstr("Mode 2 re  Mode 2 im  Mode 1 re"));
    EXPECT_THAT(workshop.Qor("dump a.shp --shape 2 --format csv").output,
                StartsWith("No,Label,DOF,Type,Data,Units,Mode 2 re,Mode 2 im\n"));
    EXPECT_EQ(Json::parse(workshop.Qor("dump a.shp --shape 2 --format json").output)["shapes"][0]["number"], 2);
}

TEST(ShapeTableDump, RefusesAShapeThatIsNotThere)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    for (const char* number : {"0", "3", "-1"}) {
        const Ran ran = workshop.Qor(std::string("dump a.shp --shape ") + number);
        EXPECT_EQ(ran.exitCode, 2) << number;
        EXPECT_EQ(ran.errors, std::string("qor: a.shp has no shape ") + number + "; it has 2 shapes\n");
        EXPECT_EQ(ran.output, "");
    }
}

TEST(ShapeTableDump, GivesEverythingAsJson)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    const Json json = Json::parse(workshop.Qor("dump a.shp --format json").output);

    EXPECT_EQ(json["kind"], "Shape Table");
    ASSERT_EQ(json["dofs"].size(), 3U);
    EXPECT_EQ(json["dofs"][2], Json::parse(R"({"number": 3, "label": "Träger 3", "dof": "3Z", "type": "Strain",
        "data": "Vector", "units": "µm/m"})"));
    ASSERT_EQ(json["shapes"].size(), 2U);
    EXPECT_EQ(json["shapes"][1]["label"], "Mode 2");
    EXPECT_EQ(json["shapes"][1]["ordinate"], 77.16);
    EXPECT_EQ(json["shapes"][1]["units"], "Hz");
    EXPECT_EQ(json["shapes"][1]["damping"], 0.0125);
    EXPECT_EQ(json["shapes"][1]["real"][1], -4);
    EXPECT_EQ(json["shapes"][1]["imaginary"], Json({0, 1.29243565e-14, 1}));
}

TEST(ShapeTableDump, TellsTheKindOfDataWhereItIsNotAVector)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.shp",
               HeaderBytes(1, 1) + NewShapeBytes() + Text(u"") + Int16(20) + Int16(6) + Bytes(20) + Floats({1, 2}));

    EXPECT_THAT(workshop.Qor("dump a.shp").output, HasSubstr(" 1  ODS   Rotation           1           2\n"));
}

TEST(ShapeTableDump, RefusesATableWithoutDOFs)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.shp", NewTableBytes(2, 0));

    const Ran ran = workshop.Qor("dump a.shp");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.shp: holds no DOFs\n");
}

TEST(ShapeTableDump, ShowsNoControlCharacters)
{
    const Workshop workshop;
    const Bytes text = Text(u"\x1B[31m\r\n\x07\x9B");
    WriteBytes(workshop / "a.shp", HeaderBytes(1, 1, u"\x1B[31m", u"\x07\x9B") + text + Float(1) + text + Float(1) +
                                       text + Int32(0) + text + Int16(20) + Int16(3) + text + text + Int32(0) +
                                       Text(u"") + Text(u"") + Floats({1, 2}));

    for (const char* arguments : {"info a.shp --stats", "info a.shp --stats --format json", "dump a.shp",
                                  "dump a.shp --format csv", "dump a.shp --format json"}) {
        const Ran ran = workshop.Qor(arguments);
        EXPECT_EQ(ran.exitCode, 0) << arguments;
        EXPECT_EQ(ran.output.find_first_of("\x1B\x07\r"), std::string::npos) << arguments << ran.output;
        EXPECT_EQ(ran.output.find("\xC2\x9B"), std::string::npos) << arguments << ran.output;
    }
}

} // namespace
