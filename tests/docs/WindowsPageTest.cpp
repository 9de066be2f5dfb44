// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Holds docs/using-from-windows.md against the examples that it shows parts of, and the interface definition.
#include "docs/Page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>

namespace qor::test {
namespace {

std::vector<std::string> LinesOf(const std::string& path)
{
    std::ifstream file(std::string(QOR_SOURCE_DIR "/").append(path));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

const Page& WindowsPage()
{
    static const Page page("../using-from-windows.md");
    return page;
}

class WindowsPageExample : public testing::TestWithParam<const char*>
{};

TEST_P(WindowsPageExample, IsAPartOfTheFileThatItNames)
{
    const std::string fence = GetParam();
    const auto shown = WindowsPage().Block(fence);
    const auto file = LinesOf("examples/windows/" + fence.substr(fence.find(' ') + 1));

    EXPECT_GT(shown.size(), 20U);
    EXPECT_NE(std::search(file.begin(), file.end(), shown.begin(), shown.end()), file.end());
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowsPageExample,
                         testing::Values("vba measurement.bas", "vbscript measurement.vbs", "cpp measurement.cpp",
                                         "matlab measurement.m", "python measurement.py"),
                         [](const auto& test) {
                             const std::string fence = test.param;
                             return fence.substr(0, fence.find(' '));
                         });

TEST(WindowsPage, ShowsNoOtherCodeThanTheExamples)
{
    const auto lines = LinesOf("docs/using-from-windows.md");

    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](const auto& line) { return line.starts_with("```"); }), 10);
}

TEST(WindowsPage, ListsTheMembersForWholeArrays)
{
    std::vector<std::string> published;
    const std::regex member("HRESULT (\\w+)\\(");
    const auto definition = LinesOf("src/server/QOR_File.idl");
    auto line = std::find_if(definition.begin(), definition.end(),
                             [](const auto& text) { return text.ends_with("interface IQOR_FileArrays : IDispatch"); });
    for (; line != definition.end() && *line != "    }"; ++line) {
        std::smatch match;
        if (std::regex_search(*line, match, member)) published.push_back(match[1]);
    }

    std::vector<std::string> listed;
    for (const Page::Row& row : WindowsPage().Rows("## Whole arrays")) {
        listed.push_back(row.at(0).substr(1, row.at(0).find('(') - 1));
    }

    EXPECT_EQ(listed.size(), 8U);
    EXPECT_EQ(listed, published);
}

} // namespace
} // namespace qor::test
