// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Runs what docs/qor.md shows and compares what comes out.
#include "tools/Workshop.h"
#include "tools/export/GeometryFile.h"

#include <fstream>

namespace {

using namespace qor::test;

struct Step {
    std::string command;
    std::string output;
};

// The commands of all console blocks of the page, with the lines that follow each.
std::vector<Step> StepsOf(const std::filesystem::path& page)
{
    std::vector<Step> steps;
    std::ifstream file(page);
    bool inBlock = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("```")) {
            inBlock = line == "```console";
        } else if (inBlock && line.starts_with("$ ")) {
            steps.push_back({line.substr(2), ""});
        } else if (inBlock && !steps.empty()) {
            steps.back().output += line + "\n";
        }
    }
    return steps;
}

TEST(Manual, ShowsWhatTheToolDoes)
{
    const auto steps = StepsOf(std::filesystem::path(QOR_SOURCE_DIR) / "docs/qor.md");
    ASSERT_GE(steps.size(), 10U);
    const Workshop workshop;
    // No command makes these.
    SaveRoof(workshop / "roof.str");
    SaveModes(workshop / "modes.shp");
    SavePlate(workshop / "plate.str");
    for (const Step& step : steps) {
        if (step.command.starts_with("cat ")) {
            const std::string name = step.command.substr(4);
            // The page shows a file that is there, or one that a command has made.
            if (!workshop.Has(name)) workshop.Write(name, step.output);
            EXPECT_EQ(workshop.Read(name), step.output) << name;
            continue;
        }
        ASSERT_TRUE(step.command.starts_with("qor ")) << step.command;
        const Ran ran = workshop.Qor(step.command.substr(4));
        EXPECT_EQ(ran.output + ran.errors, step.output) << step.command;
    }
}

} // namespace
