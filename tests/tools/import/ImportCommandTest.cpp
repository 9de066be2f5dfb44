// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/Workshop.h"

#include <gmock/gmock.h>

namespace {

using namespace qor::test;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* TwoTraces = "Time [s],Accel 1 [g],Force [kN]\n0,1,2\n0.5,3,4\n1,5,6\n";

// Reads what the tool has made.
void Load(clsQOR_File& file, const std::filesystem::path& path)
{
    ASSERT_EQ(file.InputDataBlockFile(Utf16(path)), Success);
    ASSERT_EQ(file.ErrorStatus(), NoError);
}

std::pair<float, float> Sample(clsQOR_File& file, std::int32_t trace, std::int32_t sample)
{
    float real = -1;
    float imaginary = -1;
    EXPECT_EQ(file.ReadTraceSampleValue(trace, sample, real, imaginary), Success);
    return {real, imaginary};
}

// Makes a.blk of the table.
Ran Import(const Workshop& workshop, std::string_view table, const std::string& options = "")
{
    workshop.Write("a.csv", table);
    return workshop.Qor("import a.csv a.blk " + options);
}

TEST(Import, MakesATraceOfEveryColumn)
{
    const Workshop workshop;

    const Ran ran = Import(workshop, TwoTraces);

    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_Label(), u"a");
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 2);
    EXPECT_EQ(file.DataBlock_NumberOfSamples(), 3);
    EXPECT_EQ(file.DataBlock_TraceDataFormat(), DataFormat_Real);
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform);
    EXPECT_EQ(file.DataBlock_XaxisIncrement(), 0.5F);
    EXPECT_EQ(file.DataBlock_XaxisUnits(), u"s");
    EXPECT_EQ(ClassAdd_5().XaxisUnits(), XAxislIsSec);
    EXPECT_EQ(file.Trace_Label(1), u"Accel 1");
    EXPECT_EQ(file.Trace_MeasurementUnits(2), u"kN");
    EXPECT_EQ(file.Trace_MeasurementType(1), DB_MeasurementIsTimeResponse);
    EXPECT_EQ(Sample(file, 1, 3).first, 5);
    EXPECT_EQ(Sample(file, 2, 1).first, 2);
}

TEST(Import, SaysInOneLineWhatItMade)
{
    const Workshop workshop;

    const Ran ran = Import(workshop, TwoTraces);

    const auto size = std::to_string(std::filesystem::file_size(workshop / "a.blk"));
    EXPECT_EQ(ran.output, "a.blk: 2 real traces of 3 samples, X 0 to 1 s in steps of 0.5 s (" + size + " bytes)\n");
    EXPECT_EQ(ran.errors, "");
}

TEST(Import, NumbersTracesWithoutAHeaderRow)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, "0,1,2\n1,3,4\n").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.Trace_Label(2), u"Trace 2");
    EXPECT_EQ(Sample(file, 2, 1).first, 2);
    EXPECT_EQ(file.Trace_MeasurementType(1), DB_MeasurementIsUndefined);
}

TEST(Import, KeepsUnevenXValues)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, "f [Hz],A\n1,1\n2,1\n4,1\n").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_NonUniform);
    float x = 0;
    ASSERT_EQ(file.ReadDataBlockXaxisValue(3, x), Success);
    EXPECT_EQ(x, 4);
    EXPECT_EQ(ClassAdd_5().XaxisUnits(), XAxisIsHz);
}

TEST(Import, KeepsEvenXValuesToo)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, "0,1\n1,2\n", "--explicit-x").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_NonUniform);
}

TEST(Import, GivesEveryTraceTheFirstTimeStamp)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, "When,A,B\n2013/08/30 09:18:17.7,1,2\n2013/08/30 09:18:18.2,3,4\n").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.Trace_DateAndTime(1), u"2013/08/30 09:18:17.7");
    EXPECT_EQ(file.Trace_DateAndTime(2), u"2013/08/30 09:18:17.7");
    EXPECT_EQ(file.DataBlock_XaxisUnits(), u"s");
    EXPECT_EQ(file.DataBlock_XaxisStart(), 0);
    EXPECT_EQ(file.DataBlock_XaxisIncrement(), 0.5F);
}

TEST(Import, MakesAComplexTraceOfTwoColumns)
{
    const Workshop workshop;
    ASSERT_EQ(
        Import(workshop, "f [Hz],H re [g/N],H im [g/N],Coherence\n1,2,3,0.5\n2,4,5,1\n", "--type FRF --type Coherence")
            .exitCode,
        0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 2);
    EXPECT_EQ(file.DataBlock_TraceDataFormat(), DataFormat_RealImaginary);
    EXPECT_EQ(file.Trace_Label(1), u"H");
    EXPECT_EQ(file.Trace_MeasurementUnits(1), u"g/N");
    EXPECT_EQ(Sample(file, 1, 2), (std::pair{4.0F, 5.0F}));
    EXPECT_EQ(Sample(file, 2, 1), (std::pair{0.5F, 0.0F}));
    EXPECT_EQ(file.Trace_MeasurementType(2), DB_MeasurementIsCoherence);
}

TEST(Import, MakesComplexTracesOfAnyColumnsWhenToldSo)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, "1,2,3\n2,4,5\n", "--complex").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 1);
    EXPECT_EQ(Sample(file, 1, 1), (std::pair{2.0F, 3.0F}));
}

TEST(Import, RefusesAColumnWithoutItsPartner)
{
    const Ran ran = Import(Workshop(), "f,A,B,C\n1,2,3,4\n2,4,5,6\n", "--complex");
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.csv:1:4: the last column has no partner; complex traces take two columns\n");
}

TEST(Import, TakesTextsAndUnitsFromTheCommandLine)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, TwoTraces,
                     "--label 'Brücke 3' --notes 'day one' --x-units ms --dof 1Z --dof 2Z:1Z --type linear-spectrum")
                  .exitCode,
              0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_Label(), u"Brücke 3");
    EXPECT_EQ(file.DataBlock_Notes(), u"day one");
    EXPECT_EQ(file.DataBlock_XaxisUnits(), u"ms");
    EXPECT_EQ(ClassAdd_5().XaxisUnits(), XAxisIsMillisec);
    EXPECT_EQ(file.Trace_DegreesOfFreedom(1), u"1Z");
    EXPECT_EQ(file.Trace_DegreesOfFreedom(2), u"2Z:1Z");
    EXPECT_EQ(file.Trace_MeasurementType(2), DB_MeasurementIsLinearSpectrum);
}

TEST(Import, RefusesTypesOrDofsForOnlySomeTraces)
{
    for (const char* options : {"--type FRF --type FRF --type FRF", "--dof 1 --dof 2 --dof 3"}) {
        const Workshop workshop;
        const Ran ran = Import(workshop, TwoTraces, options);
        EXPECT_EQ(ran.exitCode, 2);
        EXPECT_THAT(ran.errors, HasSubstr("was given 3 times, but the table has 2 traces"));
        EXPECT_THAT(workshop.Names(), ElementsAre("a.csv"));
    }
}

TEST(Import, RefusesOtherUnitsThanSecondsForTimeStamps)
{
    const Ran ran = Import(Workshop(), "2022-01-01 00:00:00,1\n2022-01-01 00:00:01,1\n", "--x-units Hz");
    EXPECT_EQ(ran.exitCode, 2);
}

TEST(Import, ReadsHeadingsThatAreNoUtf8AsWindows1252)
{
    const Workshop workshop;
    ASSERT_EQ(Import(workshop, "T,Weg [\xB5m]\n0,1\n1,2\n").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.Trace_MeasurementUnits(1), u"µm");
}

TEST(Import, WarnsWhereA32BitXAxisCannotHoldTheValues)
{
    EXPECT_THAT(Import(Workshop(), "1700000000.5,1\n1700000000.6,2\n1700000000.7,3\n").errors,
                HasSubstr("warning: the X axis starts at 1700000000.5, which a 32-bit value holds only as 1700000000"));
    EXPECT_THAT(Import(Workshop(), "1700000000.5,1\n1700000000.6,2\n1700000000.75,3\n").errors,
                HasSubstr("warning: 2 X values no longer differ from the one before as 32-bit values"));
}

TEST(Import, ReadsFromAPipe)
{
    const Workshop workshop;
    const Ran ran = workshop.Shell("printf '0,1\\n1,2\\n' | \"$QOR\" import /dev/stdin a.blk");
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    EXPECT_TRUE(workshop.Has("a.blk"));
}

TEST(Import, RefusesMoreTracesThanADataBlockHolds)
{
    std::string row = "0";
    for (int column = 0; column < 32001; ++column) row += ",1";
    const Workshop workshop;

    const Ran ran = Import(workshop, row + "\n1" + row.substr(1) + "\n");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.csv:1:32002: a Data Block holds at most 32,000 traces\n");
}

TEST(Import, MakesAsManyTracesAsADataBlockHolds)
{
    std::string row = "0";
    for (int column = 0; column < 32000; ++column) row.append(",").append(std::to_string(column));
    const Workshop workshop;

    ASSERT_EQ(Import(workshop, row + "\n1" + row.substr(1) + "\n").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 32000);
    EXPECT_EQ(Sample(file, 32000, 2).first, 31999);
}

// ---- the output file ----------------------------------------------------------------------------------

TEST(Import, RefusesToReplaceAFile)
{
    const Workshop workshop;
    workshop.Write("a.blk", "old");

    const Ran ran = Import(workshop, TwoTraces);

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.blk: exists already; --force replaces it\n");
    EXPECT_EQ(workshop.Read("a.blk"), "old");
}

TEST(Import, ReplacesAFileWhenToldSo)
{
    const Workshop workshop;
    workshop.Write("a.blk", "old");

    EXPECT_EQ(Import(workshop, TwoTraces, "--force").exitCode, 0);

    clsQOR_File file;
    Load(file, workshop / "a.blk");
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 2);
    EXPECT_THAT(workshop.Names(), ElementsAre("a.blk", "a.csv"));
}

TEST(Import, KeepsTheOldFileWhenTheTableIsRefused)
{
    const Workshop workshop;
    workshop.Write("a.blk", "old");

    const Ran ran = Import(workshop, "T,A\n0,1\n1,x\n", "--force");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.csv:3:2: \"x\" is not a number\n");
    EXPECT_EQ(workshop.Read("a.blk"), "old");
    EXPECT_THAT(workshop.Names(), ElementsAre("a.blk", "a.csv"));
}

TEST(Import, KeepsTheOldFileWhenTheDiskIsFull)
{
    const Workshop workshop;
    std::string rows;
    for (int row = 0; row < 50000; ++row) rows += std::to_string(row) + ",1\n";
    workshop.Write("a.csv", rows);
    workshop.Write("a.blk", "old");

    // A limit on file sizes, in blocks of 512 or 1024 bytes, stands for the full disk.
    const Ran ran = workshop.Shell("ulimit -f 100; \"$QOR\" import a.csv a.blk --force");

    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: a.blk: File too large\n");
    EXPECT_EQ(workshop.Read("a.blk"), "old");
    EXPECT_THAT(workshop.Names(), ElementsAre("a.blk", "a.csv"));
}

TEST(Import, LeavesNothingWhenItIsInterrupted)
{
    const Workshop workshop;
    // The import waits for its pipe, with its temporary file made, when it is interrupted.
    const Ran ran = workshop.Shell("mkfifo pipe; \"$QOR\" import pipe a.blk & import=$!\n"
                                   "exec 3>pipe\n"
                                   "for i in 1 2 3 4 5 6 7 8 9 10; do ls -A | grep -q tmp && break; sleep 0.1; done\n"
                                   "ls -A | grep -c tmp\n"
                                   "kill -TERM $import; wait $import; echo $?");

    EXPECT_EQ(ran.output, "1\n143\n");
    EXPECT_THAT(workshop.Names(), ElementsAre("pipe"));
}

TEST(Import, NeverReplacesTheTableItself)
{
    const Workshop workshop;
    workshop.Write("a.csv", TwoTraces);

    const Ran ran = workshop.Qor("import a.csv ./a.csv --force");

    EXPECT_EQ(ran.exitCode, 2);
    EXPECT_EQ(workshop.Read("a.csv"), TwoTraces);
}

TEST(Import, ReportsAFolderThatIsNotThereBeforeItReads)
{
    const Ran ran = Workshop().Qor("import none.csv none/a.blk");
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "qor: none/a.blk: No such file or directory\n");
}

} // namespace
