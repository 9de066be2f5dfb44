// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Real measurements through the tool. The data are not part of the project: they are looked for in the folder
// that QOR_FILE_DATA names, or beside the source tree.
#include "tools/Workshop.h"

#include <sstream>

namespace {

using namespace qor::test;

std::filesystem::path DataFolder()
{
    if (const char* folder = std::getenv("QOR_FILE_DATA")) return folder;
    return QOR_SOURCE_DIR "/../shared/data";
}

TEST(MeasuredData, OfABridgeComesThroughUnchanged)
{
    const auto archive = DataFolder() / "bridge_acc_strain_force_incl_100Hz.csv.zip";
    if (!std::filesystem::exists(archive)) GTEST_SKIP() << archive << " is not there";
    if (std::system("unzip -v >/dev/null 2>&1") != 0) GTEST_SKIP() << "there is no unzip";
    const Workshop workshop;
    ASSERT_EQ(workshop.Shell("unzip -p '" + archive.string() + "' >bridge.csv").exitCode, 0);

    const Ran ran = workshop.Qor("import bridge.csv bridge.blk");

    ASSERT_EQ(ran.exitCode, 0) << ran.errors;
    clsQOR_File file;
    ASSERT_EQ(file.InputDataBlockFile(Utf16(workshop / "bridge.blk")), Success);
    ASSERT_EQ(file.DataBlock_NumberOfTraces(), 4);
    ASSERT_EQ(file.DataBlock_NumberOfSamples(), 72000);
    EXPECT_EQ(file.DataBlock_XaxisIncrement(), 0.01F);
    EXPECT_EQ(file.Trace_Label(3), u"FRC-01");
    EXPECT_EQ(file.Trace_MeasurementUnits(3), u"kN");
    EXPECT_EQ(file.Trace_DateAndTime(4), u"2022-11-04 08:36:24.897");
    std::istringstream rows(workshop.Read("bridge.csv"));
    std::string cell;
    std::getline(rows, cell); // headings
    for (std::int32_t sample = 1; sample <= 72000; ++sample) {
        std::getline(rows, cell, ','); // time stamp
        for (std::int32_t trace = 1; trace <= 4; ++trace) {
            std::getline(rows, cell, trace < 4 ? ',' : '\n');
            float real = 0;
            float imaginary = 0;
            ASSERT_EQ(file.ReadTraceSampleValue(trace, sample, real, imaginary), Success);
            ASSERT_EQ(real, std::strtof(cell.c_str(), nullptr)) << trace << " " << sample;
        }
    }
}

TEST(MeasuredData, OfAnImpactTestWithDecimalCommasComesThroughUnchanged)
{
    const auto source = DataFolder() / "impact_force_2acc_1024Hz.lvm";
    if (!std::filesystem::exists(source)) GTEST_SKIP() << source << " is not there";
    const Workshop workshop;
    // The three value columns behind the last header, with X values of their own and decimal commas.
    const Ran made = workshop.Shell(
        "{ echo 'Time [s];F [g];m_1 [m/s^2];m_2 [m/s^2]'; tr -d '\\r' <'" + source.string() +
        "' | awk -F'\\t' '$1 == \"X_Value\" { v = 1; next } v && $2 != \"\" && $2 + 0 == $2 "
        "{ printf \"%.6f;%s;%s;%s\\n\", n++ * 0.000977, $2, $3, $4 }'; } >points.csv; tr . , <points.csv >commas.csv");
    ASSERT_EQ(made.exitCode, 0) << made.errors;

    const Ran ran = workshop.Qor("import --decimal-comma commas.csv impact.blk");

    ASSERT_EQ(ran.exitCode, 0) << ran.errors;
    clsQOR_File file;
    ASSERT_EQ(file.InputDataBlockFile(Utf16(workshop / "impact.blk")), Success);
    ASSERT_EQ(file.DataBlock_NumberOfTraces(), 3);
    ASSERT_EQ(file.DataBlock_NumberOfSamples(), 16384);
    EXPECT_EQ(file.DataBlock_XaxisIncrement(), 0.000977F);
    std::istringstream rows(workshop.Read("points.csv"));
    std::string cell;
    std::getline(rows, cell);
    for (std::int32_t sample = 1; sample <= 16384; ++sample) {
        std::getline(rows, cell, ';'); // X value
        for (std::int32_t trace = 1; trace <= 3; ++trace) {
            std::getline(rows, cell, trace < 3 ? ';' : '\n');
            float real = 0;
            float imaginary = 0;
            ASSERT_EQ(file.ReadTraceSampleValue(trace, sample, real, imaginary), Success);
            ASSERT_EQ(real, std::strtof(cell.c_str(), nullptr)) << trace << " " << sample;
        }
    }
}

} // namespace
