// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Holds docs/formats/datablock.md against the library: its tables, its codes and its files.
#include "datablock/DataBlockLayout.h"
#include "datablock/Load_DataBlock.h"
#include "datablock/Save_DataBlock.h"
#include "docs/Page.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>
#include <gtest/gtest.h>

#include <iterator>
#include <regex>

namespace qor::test {
namespace {

// Makes one callable of several.
template <class... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

constexpr std::string_view HeaderHeading = "## Data Block record, type 2048";
constexpr std::string_view TraceHeading = "## Trace record, type 2304";

enum Column : std::size_t { TagColumn, TypeColumn, ValueColumn, WhenColumn, DefaultColumn };

const Page& DataBlockPage()
{
    static const Page page("datablock.md");
    return page;
}

template <class Row>
std::string Tags(const Row& fields)
{
    std::string tags;
    for (const auto& field : fields) tags += std::to_string(field.tag) + ' ';
    return tags;
}

std::string TagsOnPage(std::string_view heading)
{
    std::string tags;
    for (const Page::Row& row : DataBlockPage().Rows(heading)) tags += row.at(TagColumn) + ' ';
    return tags;
}

// The type of a row as the page names it; empty for a step, which can be of any.
template <class Record, class Step>
std::string TypeName(const Field<Record, Step>& field)
{
    return std::visit(
        Overloaded{
            [](std::int16_t Record::*) -> std::string { return "int16"; },
            [](std::int32_t Record::*) -> std::string { return "int32"; },
            [](float Record::*) -> std::string { return "float32"; },
            [](std::u16string Record::*) -> std::string { return "text"; },
            [](Kept16) -> std::string { return "int16"; },
            [](Kept32) -> std::string { return "bits32"; },
            [](KeptAgain) -> std::string { return "bits32"; },
            [](Constant16) -> std::string { return "int16"; },
            [](Dropped dropped) { return dropped.bytes == 0 ? "none" : std::to_string(dropped.bytes) + " bytes"; },
            [](Step) -> std::string { return {}; },
        },
        field.value);
}

template <class Fields>
void ExpectTypesOnPage(const Fields& fields, std::string_view heading)
{
    const auto rows = DataBlockPage().Rows(heading);
    ASSERT_EQ(rows.size(), std::size(fields));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string name = TypeName(fields[i]);
        if (name.empty()) continue;
        EXPECT_EQ(rows[i].at(TypeColumn), name) << "tag " << fields[i].tag;
    }
}

// Kept values by tag, the 16-bit ones as signed numbers.
template <class Fields, class KeptArray>
void ExpectDefaultsOnPage(const Fields& fields, const KeptArray& kept, std::string_view heading)
{
    const auto rows = DataBlockPage().Rows(heading);
    ASSERT_EQ(rows.size(), std::size(fields));
    int checked = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool narrow = std::holds_alternative<Kept16>(fields[i].value);
        if (!narrow && !std::holds_alternative<Kept32>(fields[i].value)) continue;
        if (rows[i].size() <= DefaultColumn) continue; // older tags have no default
        const std::uint32_t bits = kept[static_cast<std::size_t>(fields[i].tag)];
        const long long value = narrow ? static_cast<std::int16_t>(bits) : static_cast<long long>(bits);
        EXPECT_EQ(std::stoll(rows[i][DefaultColumn], nullptr, 0), value) << "tag " << fields[i].tag;
        ++checked;
    }
    EXPECT_GT(checked, 0);
}

TEST(DataBlockPage, HeaderTablesListEveryFieldInWritingOrder)
{
    EXPECT_EQ(TagsOnPage(HeaderHeading), Tags(DataBlock_Fields));
}

TEST(DataBlockPage, TraceTablesListEveryFieldInWritingOrder)
{
    EXPECT_EQ(TagsOnPage(TraceHeading), Tags(Trace_Fields));
}

TEST(DataBlockPage, HeaderTablesGiveEachType) { ExpectTypesOnPage(DataBlock_Fields, HeaderHeading); }

TEST(DataBlockPage, TraceTablesGiveEachType) { ExpectTypesOnPage(Trace_Fields, TraceHeading); }

TEST(DataBlockPage, HeaderTableGivesTheDefaultOfEachKeptValue)
{
    ExpectDefaultsOnPage(DataBlock_Fields, DataBlock().Kept, HeaderHeading);
}

TEST(DataBlockPage, TraceTableGivesTheDefaultOfEachKeptValue)
{
    ExpectDefaultsOnPage(Trace_Fields, InitialTraceRecord().Kept, TraceHeading);
}

TEST(DataBlockPage, HeaderTableTellsWhenEachKeptValueIsWritten)
{
    const DataBlock made;
    DataBlock loaded;
    loaded.DataBlockFromFile = true;
    DataBlock withText;
    withText.KeptText = std::u16string(u"T");
    const auto rows = DataBlockPage().Rows(HeaderHeading);
    ASSERT_EQ(rows.size(), std::size(DataBlock_Fields));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& field = DataBlock_Fields[i];
        const bool kept = std::holds_alternative<Kept16>(field.value) || std::holds_alternative<Kept32>(field.value) ||
                          std::holds_alternative<KeptAgain>(field.value);
        if (!kept) continue;
        const std::string when = field.written.Holds(made)       ? "always"
                                 : field.written.Holds(loaded)   ? "came from a file"
                                 : field.written.Holds(withText) ? "T is not empty"
                                                                 : "never";
        EXPECT_EQ(rows[i].at(WhenColumn), when) << "tag " << field.tag;
    }
}

// "name = value" of an enumeration, as the published header has them.
std::vector<std::string> DeclaredCodes(const std::string& enumeration)
{
    const Bytes bytes = BytesOf(QOR_SOURCE_DIR "/include/QOR_File/Enumerations.h");
    const std::string header(bytes.begin(), bytes.end());
    const auto start = header.find("enum " + enumeration + " :");
    if (start == std::string::npos) throw std::runtime_error("no enumeration " + enumeration);
    const std::string body = header.substr(start, header.find("};", start) - start);
    static const std::regex declaration(R"((\w+) = (-?\d+),)");
    std::vector<std::string> codes;
    for (std::sregex_iterator match(body.begin(), body.end(), declaration); match != std::sregex_iterator(); ++match) {
        codes.push_back((*match)[1].str() + " = " + (*match)[2].str());
    }
    return codes;
}

struct CodeTable {
    const char* introduction; // how the line before it begins
    const char* enumeration;
};

class DataBlockPageCodes : public testing::TestWithParam<CodeTable>
{};

TEST_P(DataBlockPageCodes, AreThoseOfTheEnumeration)
{
    std::vector<std::string> codes;

    for (const Page::Row& row : DataBlockPage().RowsBehind(GetParam().introduction)) {
        codes.push_back(row.at(1) + " = " + row.at(0));
    }

    EXPECT_EQ(codes, DeclaredCodes(GetParam().enumeration));
}

INSTANTIATE_TEST_SUITE_P(
    Stored, DataBlockPageCodes,
    testing::Values(CodeTable{"Trace tag 6, `DataBlock_MeasurementTypes`", "DataBlock_MeasurementTypes"},
                    CodeTable{"Trace tag 30, `SVTvalues`", "SVTvalues"},
                    CodeTable{"Trace tag 44, `TraceLinPowerFlags`", "TraceLinPowerFlags"},
                    CodeTable{"Header tag 6, `DataBlock_XaxisSpacingTypes`", "DataBlock_XaxisSpacingTypes"},
                    CodeTable{"Header tag 76, `DataBlockPeakRMSFlags`", "DataBlockPeakRMSFlags"},
                    CodeTable{"Header tag 100, `XaxisUnitsAre`", "XaxisUnitsAre"}),
    [](const auto& each) { return std::string(each.param.enumeration); });

TEST(DataBlockPage, SmallestFileIsWhatAnEmptyDataBlockBecomes)
{
    MemoryFile memory;

    ASSERT_EQ(SaveDataBlock(memory, DataBlock()).status, Success);

    EXPECT_EQ(memory.Content(), DataBlockPage().HexBlock("hex smallest"));
}

TEST(DataBlockPage, SmallestFileIsRefusedByTheReader)
{
    MemoryFile memory(DataBlockPage().HexBlock("hex smallest"));
    DataBlock block;

    const LoadResult result = LoadDataBlock(memory, block);

    EXPECT_EQ(result.status, Failure);
    EXPECT_EQ(result.error, InputFile_ReadFail);
}

TEST(DataBlockPage, ExampleIsWhatTheComponentWrites)
{
    const TemporaryFolder folder;
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    file.DataBlock_Label(u"Demo");
    file.DataBlock_Notes(u"Two taps");
    file.DataBlock_XaxisUnits(u"Hz");
    file.DataBlock_XaxisStart(10.0F);
    file.DataBlock_XaxisIncrement(0.5F);
    ClassAdd_5().XaxisUnits(XAxisIsHz);
    ClassAdd_5().DataBlockRPM(3000.0F);
    file.Trace_Label(1, u"Ref");
    file.Trace_DateAndTime(1, u"2026-01-05 09:30");
    file.Trace_DegreesOfFreedom(1, u"1Z");
    file.Trace_MeasurementUnits(1, u"N");
    file.Trace_MeasurementType(1, DB_MeasurementIsLinearSpectrum);
    file.Trace_DataSVT(1, DataIsVector);
    file.WriteTraceSampleValue(1, 1, 1.0F, 0.0F);
    file.WriteTraceSampleValue(1, 2, 0.5F, -0.5F);
    file.Trace_Label(2, u"Resp \u00B5");
    file.Trace_DegreesOfFreedom(2, u"2Z:1Z");
    file.Trace_MeasurementUnits(2, u"g/N");
    file.Trace_MeasurementType(2, DB_MeasurementIsFRF);
    file.Trace_DataSVT(2, DataIsVector);
    ClassAdd_3().TraceZaxisLabel(2, u"g/N");
    file.WriteTraceSampleValue(2, 1, 0.25F, 2.0F);
    file.WriteTraceSampleValue(2, 2, -1.0F, 0.0F);

    ASSERT_EQ(file.OutputDataBlockFile(Utf16(folder / "example")), Success);

    EXPECT_EQ(BytesOf(folder / "example"), DataBlockPage().HexBlock("hex example"));
}

TEST(DataBlockPage, ExampleReadsBackAsDescribed)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "example", DataBlockPage().HexBlock("hex example"));
    clsQOR_File file;
    float real = 0;
    float imaginary = 0;

    ASSERT_EQ(file.InputDataBlockFile(Utf16(folder / "example")), Success);

    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.DataBlock_Label(), u"Demo");
    EXPECT_EQ(file.DataBlock_Notes(), u"Two taps");
    EXPECT_EQ(file.DataBlock_XaxisUnits(), u"Hz");
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 2);
    EXPECT_EQ(file.DataBlock_NumberOfSamples(), 2);
    EXPECT_EQ(file.DataBlock_TraceDataFormat(), DataFormat_RealImaginary);
    EXPECT_EQ(file.DataBlock_XaxisStart(), 10.0F);
    EXPECT_EQ(file.DataBlock_XaxisIncrement(), 0.5F);
    EXPECT_EQ(ClassAdd_5().XaxisUnits(), XAxisIsHz);
    EXPECT_EQ(ClassAdd_5().DataBlockRPM(), 3000.0F);
    EXPECT_EQ(file.Trace_DateAndTime(1), u"2026-01-05 09:30");
    EXPECT_EQ(file.Trace_MeasurementType(1), DB_MeasurementIsLinearSpectrum);
    EXPECT_EQ(file.Trace_Label(2), u"Resp \u00B5");
    EXPECT_EQ(file.Trace_DegreesOfFreedom(2), u"2Z:1Z");
    EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(2), u"g/N");
    EXPECT_EQ(file.ReadTraceSampleValue(2, 1, real, imaginary), Success);
    EXPECT_EQ(real, 0.25F);
    EXPECT_EQ(imaginary, 2.0F);
}

TEST(DataBlockPage, OlderExampleReadsAsDescribed)
{
    MemoryFile memory(DataBlockPage().HexBlock("hex older"));
    DataBlock block;

    const LoadResult result = LoadDataBlock(memory, block);

    ASSERT_EQ(result.status, Success);
    EXPECT_EQ(result.error, NoError);
    EXPECT_EQ(result.version, 8);
    EXPECT_EQ(block.Label, u"Old");
    EXPECT_EQ(block.NumberOfSamples, 3);
    ASSERT_EQ(block.Traces.Count(), 1);
    EXPECT_EQ(block.Traces[1].Label, u"1\u00B0");
    ASSERT_EQ(block.Traces[1].RealSamples.Count(), 3);
    EXPECT_EQ(block.Traces[1].RealSamples[2], -2.0F);
}

} // namespace
} // namespace qor::test
