// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Opens exported files with other programs, VTK and meshio. What these cannot see is held to the letter in
// ExportCommandTest.cpp instead: VTK sees no lines in PLY files and no colours in OBJ files; meshio sees no lines
// in OBJ files, and refuses PLY files with lines and VTK files with labels. Nothing here reads the lines of a PLY
// file.
#include "tools/Workshop.h"
#include "tools/export/GeometryFile.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <array>
#include <bit>
#include <cmath>
#include <random>

namespace {

using namespace qor::test;
using Json = nlohmann::json;
using Place = std::array<float, 3>;

const std::vector<Place> PlatePlaces = {{0, 0, 0}, {0.5F, 0, 0}, {0.5F, 0.3F, 0}, {0, 0.3F, 0}, {0.25F, 0.15F, 0.1F}};
const Json PlatePointColors = R"([[255, 0, 0], [0, 0, 0], [0, 0, 0], [0, 0, 0], [255, 128, 0]])"_json;
const Json PlateLines = R"([["line", [0, 4]], ["line", [3, 4]]])"_json;
const Json PlateLineColors = R"([[0, 255, 0], [0, 0, 0]])"_json;
const Json PlateFaces = R"([["triangle", [0, 1, 4]], ["triangle", [2, 3, 4]], ["quad", [0, 1, 2, 3]]])"_json;
const Json PlateFaceColors = R"([[255, 128, 0], [0, 0, 0], [255, 0, 0]])"_json;

Json Joined(Json first, const Json& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::vector<Place> PlacesIn(const Json& seen)
{
    std::vector<Place> places;
    for (const Json& point : seen.at("points")) {
        places.push_back({point[0].get<float>(), point[1].get<float>(), point[2].get<float>()});
    }
    return places;
}

// Exports the Structure file in the workshop and lets the reader, vtk or meshio, look at it.
Json Seen(const Workshop& workshop, const std::string& reader, const std::string& structure, const std::string& target,
          const std::string& options = "")
{
    const Ran exported = workshop.Qor("export --force " + structure + " " + target + " " + options);
    EXPECT_EQ(exported.exitCode, 0) << exported.errors;
    const Ran read =
        workshop.Shell("'" QOR_PYTHON_OF_THE_SYSTEM "' '" QOR_SOURCE_DIR "/tests/tools/export/read_geometry.py' " +
                       reader + " " + target);
    EXPECT_EQ(read.exitCode, 0) << read.errors;
    return read.exitCode == 0 ? Json::parse(read.output) : Json::object();
}

TEST(ExportedVtk, ShowsVtkAllThereIs)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Json seen = Seen(workshop, "vtk", "plate.str", "plate.vtk");

    EXPECT_EQ(seen["title"], "Plate 7");
    EXPECT_EQ(PlacesIn(seen), PlatePlaces);
    EXPECT_EQ(seen["cells"], Joined(PlateLines, PlateFaces));
    EXPECT_EQ(seen["pointColors"], PlatePointColors);
    EXPECT_EQ(seen["cellColors"], Joined(PlateLineColors, PlateFaceColors));
    EXPECT_EQ(seen["labels"], Json({"A", "B", "", "D 50%", "Träger"}));
}

TEST(ExportedVtk, WithoutLabelsShowsMeshioAllTheRest)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Json seen = Seen(workshop, "meshio", "plate.str", "plate.vtk", "--no-labels");

    EXPECT_EQ(PlacesIn(seen), PlatePlaces);
    EXPECT_EQ(seen["cells"], Joined(PlateLines, PlateFaces));
    EXPECT_EQ(seen["pointColors"], PlatePointColors);
    EXPECT_EQ(seen["cellColors"], Joined(PlateLineColors, PlateFaceColors));
}

TEST(ExportedVtk, CarriesAnyLabel)
{
    const Workshop workshop;
    GeometryFile()
        .Label(std::u16string(2000, u'L'))
        .Point(0, 0, 0)
        .Point(0, 0, 0, u"a  \"b\" %41")
        .Point(0, 0, 0, u"~!#;\\/'<>&")
        .Point(0, 0, 0, u"測点 π")
        .Point(0, 0, 0)
        .Save(workshop / "a.str");

    const Json seen = Seen(workshop, "vtk", "a.str", "a.vtk");

    EXPECT_EQ(seen["title"], std::string(247, 'L') + "…");
    EXPECT_EQ(seen["labels"], Json({"", "a  \"b\" %41", "~!#;\\/'<>&", "測点 π", ""}));
}

TEST(ExportedPly, ShowsVtkPointsAndFaces)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Json seen = Seen(workshop, "vtk", "plate.str", "plate.ply");

    EXPECT_EQ(PlacesIn(seen), PlatePlaces);
    EXPECT_EQ(seen["cells"], PlateFaces);
    EXPECT_EQ(seen["pointColors"], PlatePointColors);
    EXPECT_EQ(seen["cellColors"], PlateFaceColors);
}

TEST(ExportedPly, WithoutLinesShowsMeshioPointsAndFaces)
{
    const Workshop workshop;
    GeometryFile()
        .Label(u"end_header")
        .Point(0, 0, 0, u"A", Red)
        .Point(1, 0, 0)
        .Point(1, 1, 0)
        .Point(0, 1, 0)
        .Triangle(1, 2, 3, Orange)
        .Quad(1, 2, 3, 4, Green)
        .Save(workshop / "a.str");

    const Json seen = Seen(workshop, "meshio", "a.str", "a.ply");

    EXPECT_EQ(PlacesIn(seen), (std::vector<Place>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
    EXPECT_EQ(seen["cells"], R"([["triangle", [0, 1, 2]], ["quad", [0, 1, 2, 3]]])"_json);
    EXPECT_EQ(seen["pointColors"], R"([[255, 0, 0], [0, 0, 0], [0, 0, 0], [0, 0, 0]])"_json);
    EXPECT_EQ(seen["cellColors"], R"([[255, 128, 0], [0, 255, 0]])"_json);
}

TEST(ExportedObj, ShowsVtkPointsLinesAndFaces)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Json seen = Seen(workshop, "vtk", "plate.str", "plate.obj");

    EXPECT_EQ(PlacesIn(seen), PlatePlaces);
    EXPECT_EQ(seen["cells"], Joined(PlateLines, PlateFaces));
}

TEST(ExportedObj, ShowsMeshioPointsColorsAndFaces)
{
    const Workshop workshop;
    SavePlate(workshop / "plate.str");

    const Json seen = Seen(workshop, "meshio", "plate.str", "plate.obj");

    EXPECT_EQ(PlacesIn(seen), PlatePlaces);
    EXPECT_EQ(seen["pointColors"], PlatePointColors);
    EXPECT_EQ(seen["cells"], PlateFaces);
}

TEST(ExportedFiles, KeepEveryBitOfEveryCoordinate)
{
    const Workshop workshop;
    std::mt19937 random(7);
    std::vector<Place> places;
    GeometryFile file;
    while (places.size() < 500) {
        Place place;
        for (float& value : place) value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(place[0] + place[1] + place[2])) continue;
        places.push_back(place);
        file.Point(place[0], place[1], place[2]);
    }
    file.Save(workshop / "a.str");

    for (const char* target : {"a.vtk", "a.ply", "a.obj"}) {
        EXPECT_EQ(PlacesIn(Seen(workshop, "vtk", "a.str", target)), places) << target;
    }
}

TEST(ExportedFiles, CanBePointsAlone)
{
    const Workshop workshop;
    GeometryFile().Point(1, 2, 3).Point(4, 5, 6).Save(workshop / "a.str");

    for (const char* reader : {"vtk", "meshio"}) {
        for (const char* target : {"a.vtk", "a.ply", "a.obj"}) {
            const Json seen = Seen(workshop, reader, "a.str", target);
            EXPECT_EQ(PlacesIn(seen), (std::vector<Place>{{1, 2, 3}, {4, 5, 6}})) << reader << target;
        }
    }
}

TEST(ExportedFiles, AreReadWhereACoordinateWasNoNumber)
{
    const Workshop workshop;
    GeometryFile().Point(NAN, 2, -INFINITY).Point(4, 5, 6).Save(workshop / "a.str");

    for (const char* target : {"a.vtk", "a.ply", "a.obj"}) {
        const Json seen = Seen(workshop, "vtk", "a.str", target);
        EXPECT_EQ(PlacesIn(seen), (std::vector<Place>{{0, 2, 0}, {4, 5, 6}})) << target;
    }
}

} // namespace
