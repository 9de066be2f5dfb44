// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/CsvTable.h"

#include "support/TemporaryFolder.h"
#include "tools/console/Console.h"
#include "tools/csv/CsvCells.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace qor::test;
using namespace qor::tool;
using namespace std::string_literals;

using Values = std::vector<float>;
using XValues = std::vector<double>;

CsvTable Table(std::string_view text, const CsvOptions& options = {})
{
    const TemporaryFolder folder;
    WriteBytes(folder / "t.csv", {text.begin(), text.end()});
    return ReadCsvTable((folder / "t.csv").string(), options);
}

// What is wrong with the table, from the line number on: "3:2: ...".
std::string Refusal(std::string_view text, const CsvOptions& options = {})
{
    try {
        Table(text, options);
        return "nothing";
    } catch (const ToolError& error) {
        const std::string message = error.what();
        EXPECT_EQ(error.Code(), FileFailed);
        return message.substr(message.find("t.csv:") + 6);
    }
}

// ---- what is read -------------------------------------------------------------------------------------

TEST(CsvTable, TakesHeadingsXValuesAndColumns)
{
    const CsvTable table = Table("Time [s],A 1 [g],B\n0,1.5,-2\n0.5,2.5,3e2\n");

    EXPECT_EQ(table.headings, (std::vector<Heading>{{"Time", "s"}, {"A 1", "g"}, {"B", ""}}));
    EXPECT_EQ(table.x, (XValues{0, 0.5}));
    EXPECT_EQ(table.columns, (std::vector<Values>{{1.5F, 2.5F}, {-2, 300}}));
    EXPECT_EQ(table.firstTimeStamp, "");
}

// Taken for a header row, its values would be lost without a word.
TEST(CsvTable, RefusesAFirstRowWithADamagedXValue)
{
    EXPECT_EQ(Refusal("1.0.5;1\n2;2\n3;3\n"),
              "1:1: \"1.0.5\" is neither a number nor a date and time; --header takes this row for a header row");
    EXPECT_EQ(Table("Time,1,2\n0,1,2\n1,3,4\n").headings.front().label, "Time") << "channels may have numbers";
}

TEST(CsvTable, TakesATableWithoutHeadings)
{
    const CsvTable table = Table("0,1\n1,2\n");

    EXPECT_EQ(table.headings, std::vector<Heading>(2));
    EXPECT_EQ(table.columns, (std::vector<Values>{{1, 2}}));
}

TEST(CsvTable, TakesTimeStampsAsSecondsSinceTheFirst)
{
    const CsvTable table = Table("When,A\n2022-11-04 08:36:24.897,1\n2022-11-04 08:36:24.907,2\n");

    EXPECT_EQ(table.x, (XValues{0, 0.01}));
    EXPECT_EQ(table.firstTimeStamp, "2022-11-04 08:36:24.897");
}

TEST(CsvTable, TakesTheNumbersOfEveryProgram)
{
    const CsvTable table = Table("0,+1.5\n1,.5\n2,5.\n3,1E+03\n4,-0\n5,1e-45\n6,1e-60\n7,inf\n8,-Infinity\n9,NaN\n");

    const Values& values = table.columns[0];
    EXPECT_EQ(values[0], 1.5F);
    EXPECT_EQ(values[1], 0.5F);
    EXPECT_EQ(values[2], 5.0F);
    EXPECT_EQ(values[3], 1000.0F);
    EXPECT_TRUE(std::signbit(values[4]));
    EXPECT_EQ(values[5], std::numeric_limits<float>::denorm_min());
    EXPECT_EQ(values[6], 0.0F);
    EXPECT_EQ(values[7], std::numeric_limits<float>::infinity());
    EXPECT_EQ(values[8], -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(values[9]));
}

TEST(CsvTable, RoundsToTheNearest32BitValueOnce)
{
    // Just above the middle of two 32-bit values, by less than a 64-bit value can tell.
    EXPECT_EQ(Table("0,1.00000017881393432617187500001\n1,0\n").columns[0][0], 1.0000002384185791F);
}

TEST(CsvTable, PassesOverAByteOrderMark)
{
    EXPECT_EQ(Table("\xEF\xBB\xBF"
                    "0,1\n1,2\n")
                  .x.size(),
              2U);
}

TEST(CsvTable, TakesEveryKindOfLineEnd)
{
    for (const char* text : {"T,A\n0,1\n1,2", "T,A\r\n0,1\r\n1,2\r\n", "T,A\r0,1\r1,2\r"}) {
        EXPECT_EQ(Table(text).columns, (std::vector<Values>{{1, 2}})) << text;
    }
}

TEST(CsvTable, PassesOverBlankLinesAndLinesOfDelimiters)
{
    EXPECT_EQ(Table("\n\nT,A\n\n0,1\n,\n  \n1,2\n,,,\n").columns, (std::vector<Values>{{1, 2}}));
}

TEST(CsvTable, PassesOverATrailingDelimiter)
{
    EXPECT_EQ(Table("T,A,\n0,1,\n1,2,\n").columns, (std::vector<Values>{{1, 2}}));
}

TEST(CsvTable, TakesQuotedCells)
{
    const CsvTable table = Table("\"T\",\"A, \"\"upper\"\"\nside [g]\"\n\"0\",\"1\"\n1 , 2\n");

    EXPECT_EQ(table.headings[1], (Heading{"A, \"upper\"\nside", "g"}));
    EXPECT_EQ(table.columns, (std::vector<Values>{{1, 2}}));
}

TEST(CsvTable, TakesDecimalCommas)
{
    const CsvTable table = Table("T;A\n0,0;1,5\n0,5;-2,25e1\n", {.decimalComma = true});

    EXPECT_EQ(table.x, (XValues{0, 0.5}));
    EXPECT_EQ(table.columns, (std::vector<Values>{{1.5F, -22.5F}}));
}

TEST(CsvTable, TakesAnotherDelimiter) { EXPECT_EQ(Table("0|1\n1|2\n", {.delimiter = '|'}).columns.size(), 1U); }

TEST(CsvTable, TakesNumbersAsHeadingsWhenToldSo)
{
    EXPECT_EQ(Table(",1,2\n0,5,6\n1,7,8\n", {.header = true}).headings[2].label, "2");
}

TEST(CsvTable, TakesAValueForEmptyCellsWhenToldOne)
{
    const CsvTable table = Table("T,A,B\n0,,1\n1,2\n", {.missing = -9.0F});
    EXPECT_EQ(table.columns, (std::vector<Values>{{-9, 2}, {1, -9}}));
}

TEST(CsvTable, TakesXValuesThatStayTheSameForAWhile) { EXPECT_EQ(Table("0,1\n0,2\n1,3\n").x, (XValues{0, 0, 1})); }

TEST(CsvTable, ReadsCellsThatLieAcrossThePiecesOfALargeFile)
{
    std::string text = "T,A\n";
    constexpr int rows = 200000; // some 3 MB
    for (int row = 0; row < rows; ++row) text += std::to_string(row) + "," + std::to_string(row) + ".5\n";

    const CsvTable table = Table(text);

    ASSERT_EQ(table.x.size(), std::size_t{rows});
    for (std::size_t row = 0; row < rows; ++row) {
        ASSERT_EQ(table.x[row], static_cast<double>(row));
        ASSERT_EQ(table.columns[0][row], static_cast<float>(row) + 0.5F);
    }
}

// ---- what is refused, and where it stands -------------------------------------------------------------

TEST(CsvTable, RefusesAFileThatIsNotThere)
{
    EXPECT_THROW(ReadCsvTable("/nowhere/t.csv", {}), ToolError);
    EXPECT_THROW(ReadCsvTable("/", {}), ToolError);
}

TEST(CsvTable, RefusesAnEmptyFile)
{
    EXPECT_EQ(Refusal(""), " holds no table");
    EXPECT_EQ(Refusal("\n\r\n,,\n"), " holds no table");
}

TEST(CsvTable, RefusesOneColumn)
{
    EXPECT_EQ(Refusal("\nT\n0\n1\n"), "2:2: there is only one column; traces stand to the right of the X axis");
}

TEST(CsvTable, RefusesFewerThanTwoRows)
{
    EXPECT_EQ(Refusal("T,A\n"), "2:1: there is no row of values; a Data Block needs 2 or more");
    EXPECT_EQ(Refusal("T,A\n0,1"), "2:1: there is only 1 row of values; a Data Block needs 2 or more");
}

TEST(CsvTable, RefusesWhatIsNotANumber)
{
    EXPECT_EQ(Refusal("T,A\n0,1\n\n1,x y\n"), "4:2: \"x y\" is not a number");
    EXPECT_EQ(Refusal("T,A\n0,1\n1,0x10\n"), "3:2: \"0x10\" is not a number");
    EXPECT_EQ(Refusal("T,A\n0,1\n1,1 2\n"), "3:2: \"1 2\" is not a number");
    EXPECT_EQ(Refusal("T,A\n0,1\n1,+-2\n"), "3:2: \"+-2\" is not a number");
}

TEST(CsvTable, DoesNotTakeARowWithADamagedValueForAHeader)
{
    EXPECT_EQ(Refusal("0,x\n1,2\n"), "1:2: \"x\" is not a number");
}

TEST(CsvTable, NamesTheOptionForDecimalCommas)
{
    EXPECT_EQ(Refusal("T;A\n0;1,5\n1;2\n"),
              "2:2: \"1,5\" is not a number; --decimal-comma takes a comma for the decimal point");
}

TEST(CsvTable, RefusesADecimalPointAmongDecimalCommas)
{
    EXPECT_EQ(Refusal("T;A\n0;1.500\n1;2\n", {.decimalComma = true}),
              "2:2: \"1.500\" has a decimal point, but decimal commas were announced");
}

TEST(CsvTable, RefusesValuesBeyond32Bits)
{
    EXPECT_EQ(Refusal("0,1\n1,1e39\n"), "2:2: \"1e39\" is beyond the range of 32-bit values");
    EXPECT_EQ(Refusal("0,1\n1,-1e999\n"), "2:2: \"-1e999\" is beyond the range of 32-bit values");
    EXPECT_EQ(Refusal("0,1\n1e39,1\n"), "2:1: \"1e39\" is beyond the range of 32-bit values");
}

TEST(CsvTable, RefusesMissingCells)
{
    EXPECT_EQ(Refusal("0,1,2\n1,,2\n"), "2:2: the value is missing; --missing gives one for empty cells");
    EXPECT_EQ(Refusal("0,1,2\n1,2\n"), "2:3: the row ends after 2 of 3 cells");
    EXPECT_EQ(Refusal("0,1,2\n,1,2\n", {.missing = 0.0F}), "2:1: the X value is missing");
}

TEST(CsvTable, RefusesCellsBehindTheLastColumn)
{
    EXPECT_EQ(Refusal("T,A\n0,1\n1,2,3\n"), "3:3: \"3\" stands to the right of the last column");
}

TEST(CsvTable, RefusesXValuesThatFall)
{
    EXPECT_EQ(Refusal("0,1\n2,1\n1,1\n"), "3:1: \"1\" is less than the X value before it");
    EXPECT_EQ(Refusal("2022-01-01 00:00:01,1\n2022-01-01 00:00:00,1\n"),
              "2:1: \"2022-01-01 00:00:00\" is less than the X value before it");
}

TEST(CsvTable, RefusesXValuesThatAreAllTheSame) { EXPECT_EQ(Refusal("1,1\n1,2"), "2:1: all X values are the same"); }

TEST(CsvTable, RefusesXValuesThatAreNotFinite)
{
    EXPECT_EQ(Refusal("0,1\nnan,1\n"), "2:1: \"nan\" cannot stand on the X axis");
    EXPECT_EQ(Refusal("0,1\ninf,1\n"), "2:1: \"inf\" cannot stand on the X axis");
}

TEST(CsvTable, RefusesAMixtureOfNumbersAndTimeStamps)
{
    EXPECT_EQ(Refusal("2022-01-01 00:00:01,1\n5,1\n"), "2:1: \"5\" is not a date and time");
    EXPECT_EQ(Refusal("T,A\n2022-02-30 00:00:01,1\n"),
              "2:1: \"2022-02-30 00:00:01\" is neither a number nor a date and time");
}

TEST(CsvTable, NamesTheOptionForDecimalCommasWhereTheXAxisHasThem)
{
    EXPECT_EQ(Refusal("T;A\n0,5;1\n"), "2:1: \"0,5\" is neither a number nor a date and time; --decimal-comma takes a "
                                       "comma for the decimal point");
}

TEST(CsvTable, RefusesQuotesInTheWrongPlace)
{
    const std::string reason = "a quote stands where none belongs, or a double one is missing";
    EXPECT_EQ(Refusal("T,A\n0,1\n1,2\"\n"), "3:2: " + reason);
    EXPECT_EQ(Refusal("T,A\n0,\"1\"2\n"), "2:2: " + reason);
}

TEST(CsvTable, RefusesAQuoteWithoutAnEnd)
{
    EXPECT_EQ(Refusal("T,A\n0,1\n1,\"2\n3,4\n5,6\n"), "3:2: the quote that begins here has no end");
}

TEST(CsvTable, CountsTheLinesInsideQuotes)
{
    EXPECT_EQ(Refusal("T,\"A\r\nB\nC\"\n0,x\n"), "4:2: \"x\" is not a number");
}

TEST(CsvTable, RefusesUtf16) { EXPECT_EQ(Refusal("\xFF\xFET\0,\0A\0"s), " is UTF-16 text; save it as UTF-8"); }

TEST(CsvTable, ShowsNoControlCharactersAndNoLongCells)
{
    EXPECT_EQ(Refusal("0,1\n1,\x1B[31m\n"), "2:2: \"\uFFFD[31m\" is not a number");
    EXPECT_EQ(Refusal("0,1\n1," + std::string(100, 'x') + "\n"),
              "2:2: \"" + std::string(39, 'x') + "…\" is not a number");
}

TEST(CsvTable, RefusesMoreColumnsThanAnyDataBlockHas)
{
    std::string row = "0";
    for (int column = 0; column < 64001; ++column) row += ",1";
    EXPECT_EQ(Refusal(row + "\n" + row + "\n"), "1:64002: a Data Block holds at most 32,000 traces");
}

// ---- delimiters ---------------------------------------------------------------------------------------

TEST(DetectDelimiter, TakesTheOneOnEveryLine)
{
    EXPECT_EQ(DetectDelimiter("a,b\n1,2\n", false), ',');
    EXPECT_EQ(DetectDelimiter("a;b\n1;2\n", false), ';');
    EXPECT_EQ(DetectDelimiter("\r\na\tb\r\n1\t2\r\n", false), '\t');
}

TEST(DetectDelimiter, IsNotMisledByLabels) { EXPECT_EQ(DetectDelimiter("T,A; upper\n0,1\n1,2\n", false), ','); }

TEST(DetectDelimiter, IsNotMisledByQuotes) { EXPECT_EQ(DetectDelimiter("\"T;x\",\"A;\n\"\n\"0;\",1\n", false), ','); }

TEST(DetectDelimiter, IsNotMisledByDecimalCommas) { EXPECT_EQ(DetectDelimiter("0,1;1,5\n0,2;2,5\n", false), ';'); }

TEST(DetectDelimiter, NeverTakesADecimalComma) { EXPECT_EQ(DetectDelimiter("T\n0,5\n", true), ';'); }

} // namespace
