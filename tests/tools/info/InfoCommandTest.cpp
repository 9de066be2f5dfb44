// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/Workshop.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <limits>

namespace {

using namespace qor::test;
using testing::HasSubstr;
using testing::MatchesRegex;
using Json = nlohmann::json;

std::string DocumentOf(std::string_view firstLine, char version)
{
    return std::string(firstLine) + version + std::string(15, '\0');
}

TEST(Info, ShowsHeaderAndTraces)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Qor("info a.blk");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "");
    const auto size = std::to_string(std::filesystem::file_size(workshop / "a.blk"));
    EXPECT_EQ(ran.output, "a.blk\n"
                          "  Data Block file, version 12, " +
                              size +
                              " bytes\n"
                              "  Label    Kran 7\n"
                              "  Notes    first\n"
                              "           second\n"
                              "  X axis   uniform, 1 to 1.75 s in steps of 0.25 s, 4 samples\n"
                              "  Traces   3, real\n"
                              "\n"
                              "  No  Label       DOF  Type          Units  Samples\n"
                              "   1  Trägheit 1  1Z   TimeResponse  m/s²         4\n"
                              "   2  Trägheit 2  1Z   TimeResponse  m/s²         4\n"
                              "   3  Trägheit 3  1Z   TimeResponse  m/s²         4\n");
}

TEST(Info, AddsStatisticsOfEveryTrace)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Ran ran = workshop.Qor("info a.blk --stats");

    EXPECT_THAT(ran.output, HasSubstr("\n"
                                      "  Values of the samples\n"
                                      "  No  Label       Minimum  Maximum      RMS  Peak  at X  Units\n"
                                      "   1  Trägheit 1       -2        3  1.87083     3   1.5  m/s²\n"
                                      "   2  Trägheit 2       -4        6  3.74166     6   1.5  m/s²\n"
                                      "   3  Trägheit 3       -6        9  5.61249     9   1.5  m/s²\n"));
}

TEST(Info, GivesTheSameAsJson)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");

    const Json json = Json::parse(workshop.Qor("info a.blk --format json --stats").output);

    ASSERT_EQ(json.size(), 1U);
    EXPECT_EQ(json[0]["file"], "a.blk");
    EXPECT_EQ(json[0]["label"], "Kran 7");
    EXPECT_EQ(json[0]["notes"], "first\nsecond");
    EXPECT_EQ(json[0]["samples"], 4);
    EXPECT_EQ(json[0]["xaxis"]["increment"], 0.25);
    EXPECT_EQ(json[0]["xaxis"]["last"], 1.75);
    ASSERT_EQ(json[0]["traces"].size(), 3U);
    EXPECT_EQ(json[0]["traces"][2]["label"], "Trägheit 3");
    EXPECT_EQ(json[0]["traces"][2]["type"], "TimeResponse");
    EXPECT_EQ(json[0]["traces"][2]["statistics"]["peak"], 9);
    EXPECT_EQ(json[0]["traces"][2]["statistics"]["peakX"], 1.5);
}

TEST(Info, ShowsAnExplicitXAxisWithoutReadingIt)
{
    const Workshop workshop;
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(3);
    file.DataBlock_XaxisSpacing(XaxisSpacing_Octave);
    for (std::int32_t sample = 1; sample <= 3; ++sample) {
        file.WriteDataBlockXaxisValue(sample, static_cast<float>(1 << sample));
    }
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(workshop / "a.blk")), Success);

    EXPECT_THAT(workshop.Qor("info a.blk").output, HasSubstr("  X axis   octave, 2 to 8, 3 samples\n"));
}

TEST(Info, ShowsStatisticsOfTheMagnitudeOfComplexTraces)
{
    const Workshop workshop;
    workshop.Write("a.csv", "f [Hz],H re,H im\n1,3,4\n2,0,1\n");
    ASSERT_EQ(workshop.Qor("import a.csv a.blk").exitCode, 0);

    const Json json = Json::parse(workshop.Qor("info a.blk --format json --stats").output);

    EXPECT_EQ(json[0]["traces"][0]["statistics"]["peak"], 5);
    EXPECT_EQ(json[0]["traces"][0]["statistics"]["minimum"], 1);
}

TEST(Info, SaysHowManySamplesAreNotNumbers)
{
    const Workshop workshop;
    workshop.Write("a.csv", "0,nan\n1,2\n2,inf\n");
    ASSERT_EQ(workshop.Qor("import a.csv a.blk").exitCode, 0);

    const Json json = Json::parse(workshop.Qor("info a.blk --format json --stats").output);

    EXPECT_EQ(json[0]["traces"][0]["statistics"]["nan"], 1);
    EXPECT_EQ(json[0]["traces"][0]["statistics"]["maximum"], "Infinity");
}

TEST(Info, ShowsTheGoodFilesAmongBadOnes)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    workshop.Write("text.blk", "just text");

    const Ran ran = workshop.Qor("info none.blk a.blk text.blk a.blk");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: none.blk: No such file or directory\nqor: text.blk: is not a document file\n");
    EXPECT_THAT(ran.output, HasSubstr("a.blk\n  Data Block file"));
    EXPECT_THAT(ran.output, HasSubstr("\n\na.blk\n  Data Block file"));
}

TEST(Info, OfBadFilesOnlyIsStillJson)
{
    const Ran ran = Workshop().Qor("info none.blk --format json");
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.output, "[]\n");
}

TEST(Info, ShowsAllKindsOfDocumentsAtOnce)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    SaveRoof(workshop / "a.str");
    SaveModes(workshop / "a.shp");

    const Ran ran = workshop.Qor("info a.blk a.str a.shp");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "");
    EXPECT_THAT(ran.output, HasSubstr("a.blk\n  Data Block file, version 12, "));
    EXPECT_THAT(ran.output, HasSubstr("\n\na.str\n  Structure file, version 12, "));
    EXPECT_THAT(ran.output, HasSubstr("\n\na.shp\n  Shape Table file, version 12, "));
}

TEST(Info, OfABadFileAmongGoodOnesIsStillJson)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    SaveRoof(workshop / "a.str");
    workshop.Write("bad\nname", "just text");

    const Ran ran = workshop.Qor("info a.blk 'bad\nname' a.str none --format json");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(Json::parse(ran.output).size(), 2U);
    EXPECT_THAT(ran.errors, MatchesRegex("qor: [^\n]+\nqor: none: [^\n]+\n"));
}

TEST(Info, GivesXAsTheShortest32BitNumber)
{
    const Workshop workshop;
    workshop.Write("a.csv", "0,1\n0.01,2\n0.02,1\n0.03,9\n");
    ASSERT_EQ(workshop.Qor("import a.csv a.blk").exitCode, 0);

    const Ran ran = workshop.Qor("info a.blk --format json --stats");

    EXPECT_THAT(ran.output, HasSubstr("\"last\": 0.03,\n"));
    EXPECT_THAT(ran.output, HasSubstr("\"peakX\": 0.03\n"));
}

TEST(Info, RefusesALaterVersion)
{
    const Workshop workshop;
    workshop.Write("a.blk", DocumentOf("DUlmeerQOR Binary DataBlock File.\r\n", 13));
    EXPECT_EQ(workshop.Qor("info a.blk").errors,
              "qor: a.blk: is a Data Block file of version 13; versions up to 12 can be read\n");
}

TEST(Info, RefusesFoldersAndDevices)
{
    const Workshop workshop;
    EXPECT_EQ(workshop.Qor("info .").errors, "qor: .: is a folder\n");
    EXPECT_EQ(workshop.Qor("info /dev/null").errors, "qor: /dev/null: is not a regular file\n");
}

TEST(Info, ShowsAFileWithoutItsEndMarkerAndWarns)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    std::filesystem::resize_file(workshop / "a.blk", std::filesystem::file_size(workshop / "a.blk") - 2);

    const Ran ran = workshop.Qor("info a.blk");

    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "qor: a.blk: warning: the end marker is missing; the file may have been cut off\n");
    EXPECT_THAT(ran.output, HasSubstr("Kran 7"));
}

TEST(Info, SurvivesEveryPrefixOfAFile)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    const auto whole = std::filesystem::file_size(workshop / "a.blk");

    // From the shortest on; one program run for all of them.
    std::string files;
    std::size_t prefixes = 0;
    for (std::uintmax_t size = 0; size + 3 < whole; size += 3, ++prefixes) {
        const std::string name = std::to_string(size) + ".cut";
        std::filesystem::copy_file(workshop / "a.blk", workshop / name);
        std::filesystem::resize_file(workshop / name, size);
        files += " " + name;
    }
    const Ran ran = workshop.Qor("info --stats" + files);

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(static_cast<std::size_t>(std::count(ran.errors.begin(), ran.errors.end(), '\n')), prefixes);
    EXPECT_EQ(ran.output, "");
}

TEST(Info, SurvivesEveryDamagedByteOfAFile)
{
    const Workshop workshop;
    SaveThreeTraces(workshop / "a.blk");
    const std::string whole = workshop.Read("a.blk");

    std::string files;
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string damaged = whole;
        damaged[place] = static_cast<char>(~damaged[place]);
        const std::string name = std::to_string(place) + ".bad";
        workshop.Write(name, damaged);
        files += " " + name;
    }
    const Ran ran = workshop.Qor("info --stats" + files);

    // Some damage shows as an error, other as a wrong value; the program gets to its end with all of them.
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.output, HasSubstr(std::to_string(whole.size() - 3) + ".bad\n"));
}

TEST(Info, ShowsNoControlCharactersOfAFile)
{
    const Workshop workshop;
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_Label(u"a\x1B[31mb\x9B"
                         u"c\xD800");
    file.Trace_Label(1, u"x\r\ny\x07");
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(workshop / "a.blk")), Success);

    for (const char* arguments : {"info a.blk", "info a.blk --format json", "dump a.blk", "dump a.blk --format csv",
                                  "dump a.blk --format json"}) {
        const Ran ran = workshop.Qor(arguments);
        EXPECT_EQ(ran.exitCode, 0) << arguments;
        EXPECT_EQ(ran.output.find_first_of("\x1B\x07\r\x9B"), std::string::npos) << arguments << ran.output;
    }
    const Json json = Json::parse(workshop.Qor("info a.blk --format json").output);
    EXPECT_EQ(json[0]["label"], "a\x1B[31mb\xC2\x9B"
                                "c\uFFFD");
    EXPECT_EQ(json[0]["traces"][0]["label"], "x\r\ny\x07");
}

// Half of what the samples below would take; not under a sanitizer, whose own bookkeeping takes far more.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::string_view MemoryLimit = "";
#else
constexpr std::string_view MemoryLimit = "ulimit -v 400000; ";
#endif

TEST(Info, AnswersAtOnceForALargeFile)
{
    const Workshop workshop;
    workshop.Write("a.csv", "0,1\n1,2\n");
    ASSERT_EQ(workshop.Qor("import a.csv small.blk").exitCode, 0);
    std::string bytes = workshop.Read("small.blk");
    // The same trace with 200 million samples: the count, the record's and the header's length, and a hole in place
    // of the values.
    const auto patch = [&bytes](std::size_t at, std::int64_t value) {
        for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i));
    };
    constexpr std::int64_t samples = 200000000;
    constexpr std::int64_t more = 4 * (samples - 2);
    const auto read = [&bytes](std::size_t at) {
        std::int64_t value = 0;
        for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
        return value;
    };
    const std::size_t traceRecord = bytes.find(std::string("\x0B\x00\x00\x09", 4)) + 2;
    const std::size_t numberOfSamples = bytes.find(std::string("\x04\x00\x02\x00\x00\x00", 6)) + 2;
    const std::size_t values = bytes.find(std::string("\x11\x00\x00\x00\x80\x3F", 6)) + 2;
    ASSERT_LT(traceRecord, values);
    patch(53, read(53) + more);
    patch(traceRecord + 2, read(traceRecord + 2) + more);
    patch(numberOfSamples, samples);
    {
        std::ofstream file(workshop / "large.blk", std::ios::binary);
        file << bytes.substr(0, values + 8);
        file.seekp(more, std::ios::cur);
        file << bytes.substr(values + 8);
    }

    const Ran ran = workshop.Shell(std::string(MemoryLimit) + "ulimit -t 1; \"$QOR\" info large.blk");

    EXPECT_EQ(ran.errors, "");
    EXPECT_THAT(ran.output, HasSubstr("200,000,000"));
}

TEST(Info, WarnsOfTracesWithoutSamples)
{
    const Workshop workshop;
    SaveOneTraceOfThree(workshop / "a.blk");

    EXPECT_THAT(workshop.Qor("info a.blk").output,
                HasSubstr("  Traces   3, real\n  Warning  2 of 3 traces without samples\n"));
}

TEST(Info, ShortensUnitsThatADamagedCountMakesLong)
{
    const Workshop workshop;
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_XaxisUnits(std::u16string(5000, u'm'));
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(workshop / "a.blk")), Success);

    EXPECT_THAT(workshop.Qor("info a.blk").output, HasSubstr("0 to 0 " + std::string(35, 'm') + "… in steps"));
}

TEST(Info, TellsThatTheFirstLineNamesNoKind)
{
    const Workshop workshop;
    workshop.Write("a.str", DocumentOf("DUlmeerQOR Binary Struktur File.\r\n", 12));

    const Ran ran = workshop.Qor("info a.str");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.str: is of no kind that its first line tells, or is damaged\n");
}

} // namespace
