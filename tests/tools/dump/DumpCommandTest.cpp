// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/Workshop.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <bit>
#include <cmath>
#include <cstring>
#include <random>
#include <utility>

namespace {

using namespace qor::test;
using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;

float FloatOf(const Json& value)
{
    return value.is_string() ? std::strtof(value.get<std::string>().c_str(), nullptr) : value.get<float>();
}

// A complex trace of arbitrary 32-bit patterns: subnormal numbers, infinities and all.
std::vector<std::pair<float, float>> SaveAnyValues(const std::filesystem::path& path)
{
    constexpr std::int32_t count = 3000;
    std::mt19937 random(7);
    const auto any = [&] {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        return std::isnan(value) ? std::numeric_limits<float>::quiet_NaN() : value;
    };
    std::vector<std::pair<float, float>> values;
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.DataBlock_NumberOfSamples(count);
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    file.DataBlock_XaxisIncrement(0.1F);
    file.Trace_Label(1, u"H, \"1\" [x]");
    for (std::int32_t sample = 1; sample <= count; ++sample) {
        values.emplace_back(any(), any());
        file.WriteTraceSampleValue(1, sample, values.back().first, values.back().second);
    }
    EXPECT_EQ(file.OutputDataBlockFile(Utf16(path)), Success);
    return values;
}

bool IsSame(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b)); }

TEST(Dump, ShowsATable)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Qor("dump a.blk --trace 3 --trace 1");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "X [s]  Trägheit 3 [m/s²]  Trägheit 1 [m/s²]\n"
                          "    1                  3                  1\n"
                          " 1.25                 -6                 -2\n"
                          "  1.5                  9                  3\n"
                          " 1.75                  0                  0\n");
}

TEST(Dump, WritesCsv)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Qor("dump a.blk --format csv --trace 2");

    EXPECT_EQ(ran.output, "X [s],Trägheit 2 [m/s²]\n1,2\n1.25,-4\n1.5,6\n1.75,0\n");
}

TEST(Dump, WritesJson)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Json json = Json::parse(workshop.Qor("dump a.blk --format json").output);

    EXPECT_EQ(json["xaxis"]["values"], Json({1.0, 1.25, 1.5, 1.75}));
    ASSERT_EQ(json["traces"].size(), 3U);
    EXPECT_EQ(json["traces"][1]["units"], "m/s²");
    EXPECT_EQ(json["traces"][1]["values"], Json({2, -4, 6, 0}));
}

TEST(Dump, GivesXAsTheShortest32BitNumber)
{
    const Workshop workshop;
    SaveAnyValues(workshop / "a.blk");

    EXPECT_THAT(workshop.Qor("dump a.blk --format csv").output, HasSubstr("\n0.1,"));
    const Json json = Json::parse(workshop.Qor("dump a.blk --format json").output);
    EXPECT_EQ(json["xaxis"]["values"][2999].get<double>(), 299.9);
}

// The axis of an increment that is no short number, far from 0, and one whose values 32 bits cannot tell apart.
TEST(Dump, KeepsEveryBitOfTheXAxisInCsvAndBack)
{
    for (const auto& [start, increment] : {std::pair(0.0F, 1.0F / 44100), {12.3F, 1.0F / 3}, {1e6F, 0.001F}}) {
        const Workshop workshop;
        clsQOR_File file;
        file.DataBlock_NumberOfTraces(1);
        file.DataBlock_NumberOfSamples(5000);
        file.DataBlock_XaxisStart(start);
        file.DataBlock_XaxisIncrement(increment);
        ASSERT_EQ(file.OutputDataBlockFile(Utf16(workshop / "a.blk")), Success);

        const Ran ran = workshop.Shell("\"$QOR\" dump a.blk --format csv >a.csv && \"$QOR\" import a.csv b.blk");

        ASSERT_EQ(ran.exitCode, 0) << ran.errors;
        ASSERT_EQ(file.InputDataBlockFile(Utf16(workshop / "b.blk")), Success);
        EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform);
        EXPECT_EQ(file.DataBlock_XaxisStart(), start);
        EXPECT_EQ(file.DataBlock_XaxisIncrement(), increment);
    }
}

TEST(Dump, KeepsEveryBitOfEveryValueInCsvAndBack)
{
    const Workshop workshop;
    const auto values = SaveAnyValues(workshop / "a.blk");

    const Ran ran = workshop.Shell("\"$QOR\" dump a.blk --format csv >a.csv && \"$QOR\" import a.csv b.blk");

    ASSERT_EQ(ran.exitCode, 0) << ran.errors;
    clsQOR_File file;
    ASSERT_EQ(file.InputDataBlockFile(Utf16(workshop / "b.blk")), Success);
    EXPECT_EQ(file.Trace_Label(1), u"H, \"1\" [x]");
    EXPECT_EQ(file.Trace_MeasurementUnits(1), u"");
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform);
    EXPECT_EQ(file.DataBlock_XaxisIncrement(), 0.1F);
    ASSERT_EQ(file.DataBlock_NumberOfSamples(), static_cast<std::int32_t>(values.size()));
    std::int32_t sample = 0;
    for (const auto& [real, imaginary] : values) {
        float readReal = 0;
        float readImaginary = 0;
        ASSERT_EQ(file.ReadTraceSampleValue(1, ++sample, readReal, readImaginary), Success);
        ASSERT_TRUE(IsSame(readReal, real)) << sample;
        ASSERT_TRUE(IsSame(readImaginary, imaginary)) << sample;
    }
}

TEST(Dump, KeepsEveryBitOfEveryValueInJson)
{
    const Workshop workshop;
    const auto values = SaveAnyValues(workshop / "a.blk");

    const Json json = Json::parse(workshop.Qor("dump a.blk --format json").output);

    const Json& trace = json["traces"][0];
    ASSERT_EQ(trace["real"].size(), values.size());
    ASSERT_EQ(trace["imaginary"].size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        ASSERT_TRUE(IsSame(FloatOf(trace["real"][i]), values[i].first)) << i;
        ASSERT_TRUE(IsSame(FloatOf(trace["imaginary"][i]), values[i].second)) << i;
    }
}

TEST(Dump, GivesExplicitXValuesAsTheyAre)
{
    const Workshop workshop;
    workshop.Write("a.csv", "f [Hz],A\n0.1,1\n0.2,2\n0.4,3\n");
    ASSERT_EQ(workshop.Qor("import a.csv a.blk").exitCode, 0);

    EXPECT_EQ(workshop.Qor("dump a.blk --format csv").output, "X [Hz],A\n0.1,1\n0.2,2\n0.4,3\n");
}

TEST(Dump, NamesTracesThatHaveNoLabel)
{
    const Workshop workshop;
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    file.DataBlock_NumberOfSamples(2);
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(workshop / "a.blk")), Success);

    EXPECT_THAT(workshop.Qor("dump a.blk --format csv").output, StartsWith("X,Trace 1,Trace 2\n"));
}

TEST(Dump, RefusesATraceThatIsNotThere)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    for (const char* number : {"0", "4", "-1"}) {
        const Ran ran = workshop.Qor(std::string("dump a.blk --trace ") + number);
        EXPECT_EQ(ran.exitCode, 2) << number;
        EXPECT_THAT(ran.errors, HasSubstr(std::string("has no trace ") + number + "; it has 3 traces")) << number;
        EXPECT_EQ(ran.output, "");
    }
}

TEST(Dump, RefusesOptionsForAnotherKindOfDocument)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    SaveRoof(workshop / "a.str");
    SaveModes(workshop / "a.shp");
    const std::pair<const char*, const char*> refused[] = {
        {"a.str --trace 1", "a.str is a Structure file; --trace is for Data Block files"},
        {"a.shp --trace 1", "a.shp is a Shape Table file; --trace is for Data Block files"},
        {"a.blk --shape 1", "a.blk is a Data Block file; --shape is for Shape Table files"},
        {"a.str --shape 1", "a.str is a Structure file; --shape is for Shape Table files"},
        {"a.blk --elements lines", "a.blk is a Data Block file; --elements is for Structure files"},
        {"a.shp --elements quads", "a.shp is a Shape Table file; --elements is for Structure files"},
    };
    for (const auto& [arguments, message] : refused) {
        const Ran ran = workshop.Qor(std::string("dump ") + arguments);
        EXPECT_EQ(ran.exitCode, 2) << arguments;
        EXPECT_EQ(ran.errors, std::string("qor: ") + message + "\n");
        EXPECT_EQ(ran.output, "") << arguments;
    }
}

TEST(Dump, RefusesADamagedFile)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    std::filesystem::resize_file(workshop / "a.blk", std::filesystem::file_size(workshop / "a.blk") / 2);

    const Ran ran = workshop.Qor("dump a.blk");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.blk: is damaged: its records end early or make no sense\n");
}

TEST(Dump, RefusesAFileWithoutTraces)
{
    const Workshop workshop;
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(2);
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(workshop / "a.blk")), Success);

    const Ran ran = workshop.Qor("dump a.blk");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.blk: holds no samples\n");
}

TEST(Dump, WarnsOfTracesWithoutSamples)
{
    const Workshop workshop;
    SaveOneTraceOfThree(workshop / "a.blk");

    const Ran ran = workshop.Qor("dump a.blk --format csv");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "X,Trace 1,Trace 2,Trace 3\n0,1,,\n0,2,,\n");
    EXPECT_EQ(ran.errors, "qor: a.blk: warning: 2 of 3 traces without samples\n");
}

} // namespace
