// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "shapetable/Saving.h"
#include "tools/Workshop.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <limits>

namespace {

using namespace qor::test;
using testing::EndsWith;
using testing::HasSubstr;
using Json = nlohmann::json;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

TEST(ShapeTableInfo, ShowsShapesAndGroupsOfDOFs)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    const Ran ran = workshop.Qor("info a.shp");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(ran.output, "a.shp\n"
                          "  Shape Table file, version 12, 504 bytes\n"
                          "  Label    Modes of the roof\n"
                          "  Notes    from 3 measurements\n"
                          "  Shapes   2\n"
                          "  DOFs     3\n"
                          "\n"
                          "  No  Label   Ordinate  Units  Damping\n"
                          "   1  Mode 1     38.58  Hz      0.0125\n"
                          "   2  Mode 2     77.16  Hz      0.0125\n"
                          "\n"
                          "  DOFs  Type           Units\n"
                          "     2  UnitModalMass  m/s²\n"
                          "     1  Strain         µm/m\n");
}

TEST(ShapeTableInfo, AddsTheLargestValueOfEveryShape)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    const Ran ran = workshop.Qor("info a.shp --stats");

    EXPECT_THAT(ran.output, EndsWith("\n"
                                     "  Largest value of each shape, phase in degrees\n"
                                     "  No  Label   Magnitude  Units  Phase  at DOF  DOF label\n"
                                     "   1  Mode 1          2  m/s²     180       2  Träger 2\n"
                                     "   2  Mode 2          4  m/s²     180       2  Träger 2\n"));
}

TEST(ShapeTableInfo, GivesTheSameAsJson)
{
    const Workshop workshop;
    SaveModes(workshop / "a.shp");

    const Json json = Json::parse(workshop.Qor("info a.shp --stats --format json").output)[0];

    EXPECT_EQ(json["kind"], "Shape Table");
    EXPECT_EQ(json["notes"], "from 3 measurements");
    ASSERT_EQ(json["shapes"].size(), 2U);
    EXPECT_EQ(json["shapes"][0]["ordinate"], 38.58);
    EXPECT_EQ(json["shapes"][0]["damping"], 0.0125);
    EXPECT_EQ(json["shapes"][1]["statistics"]["magnitude"], 4);
    EXPECT_EQ(json["shapes"][1]["statistics"]["phase"], 180);
    EXPECT_EQ(json["shapes"][1]["statistics"]["dofNumber"], 2);
    EXPECT_EQ(json["shapes"][1]["statistics"]["dofLabel"], "Träger 2");
    EXPECT_EQ(json["dofs"]["count"], 3);
    EXPECT_EQ(json["dofs"]["groups"][0], Json({{"type", "UnitModalMass"}, {"units", "m/s²"}, {"count", 2}}));
}

TEST(ShapeTableInfo, OfNothingButNaNNamesNoDOF)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.shp", NewTableBytes(1, 2) + Floats({NaN, 0, 0, NaN}));

    EXPECT_THAT(workshop.Qor("info a.shp --stats").output, HasSubstr("  No  Magnitude  Phase  at DOF  NaN\n"
                                                                     "   1          -      -       -    2\n"));
}

TEST(ShapeTableInfo, ShowsNoMoreThanTheLargestGroupsOfDOFs)
{
    const Workshop workshop;
    Bytes bytes = HeaderBytes(30, 0);
    for (int dof = 1; dof <= 30; ++dof) {
        const int type = dof <= 25 ? 100 + dof : 125;
        bytes += Text(u"") + Int16(type) + Int16(3) + Bytes(20);
    }
    WriteBytes(workshop / "a.shp", bytes);

    const Ran ran = workshop.Qor("info a.shp");

    EXPECT_THAT(ran.output, HasSubstr("  DOFs  Type\n     6  code 125\n     1  code 101\n"));
    EXPECT_THAT(ran.output, EndsWith("     1  code 119\n  and 5 DOFs more of other types and units\n"));
}

TEST(ShapeTableInfo, RefusesATableThatIsTooShort)
{
    const Workshop workshop;
    WriteBytes(workshop / "a.shp", NewTableBytes(1, 1) + Floats({1}));

    const Ran ran = workshop.Qor("info a.shp");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.shp: is damaged: it is too short for the shapes and DOFs that it counts\n");
    EXPECT_EQ(ran.output, "");
}

} // namespace
