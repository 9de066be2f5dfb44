// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fuzz target: any bytes as a CSV file, imported with any options. The first four bytes choose the options, "@@@@"
// being none; the rest is the file. An import that succeeds leaves a document that holds the table, value for value;
// one that fails leaves nothing.
#include "datablock/Load_DataBlock.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/QuietCommands.h"
#include "platform/File.h"
#include "support/SameDocument.h"
#include "support/TemporaryFolder.h"
#include "support/UnlinkedFile.h"
#include "tools/import/ImportCommand.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <utility>

namespace qor::test {
namespace {

using namespace qor::tool;

constexpr std::size_t OptionBytes = 4;

// Bits of the option bytes, used up from the lowest.
class Choices
{
public:
    explicit Choices(std::span<const std::uint8_t> bytes)
    {
        for (const std::uint8_t byte : bytes) bits_ = bits_ << 6 | (byte & 63U);
    }

    template <class Value, std::size_t Count>
    Value Of(const std::array<Value, Count>& values)
    {
        const std::size_t which = bits_ % Count;
        bits_ /= Count;
        return values[which];
    }
    bool Flag() { return Of(std::array{false, true}); }

private:
    std::uint32_t bits_ = 0;
};

ImportOptions OptionsOf(std::span<const std::uint8_t> bytes)
{
    using Texts = std::vector<std::string>;
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr std::optional<std::string> none;
    Choices choices(bytes);
    ImportOptions options;
    options.csv.delimiter = choices.Of(std::array<std::optional<char>, 7>{{{}, ',', ';', '\t', ' ', '|', 'e'}});
    options.csv.decimalComma = choices.Flag() && options.csv.delimiter != ','; // refused by the command line
    options.csv.header = choices.Of(std::array<std::optional<bool>, 3>{{{}, true, false}});
    options.csv.missing = choices.Of(std::array<std::optional<float>, 4>{{{}, 0.0F, nan, 1e30F}});
    options.complexColumns =
        choices.Of(std::array{ComplexColumns::ByHeading, ComplexColumns::All, ComplexColumns::None});
    options.keepXValues = choices.Flag();
    options.types = choices.Of(std::array<Texts, 3>{{{}, {"FRF"}, {"FRF", "PSD"}}});
    options.dofs = choices.Of(std::array<Texts, 3>{{{}, {"1Z:3Z"}, {"1Z", "\xFF"}}});
    options.xaxisUnits =
        choices.Of(std::array{none, std::optional<std::string>("s"), std::optional<std::string>("Hz")});
    options.label = choices.Of(std::array{none, std::optional<std::string>(" \xC3\xA4 ")});
    options.notes = choices.Of(std::array{none, std::optional<std::string>("")});
    return options;
}

std::string XaxisDifference(const DataBlock& block, const CsvTable& table)
{
    if (block.XaxisSpacing == XaxisSpacing_Uniform) {
        if (!(block.XaxisIncrement > 0)) return "a uniform X axis that does not rise";
        return block.Xaxis.Count() == 0 ? "" : "a uniform X axis with values";
    }
    for (std::int32_t number = 1; number <= block.NumberOfSamples; ++number) {
        if (!SameBits(block.Xaxis[number], static_cast<float>(table.x[static_cast<std::size_t>(number - 1)]))) {
            return "X value " + std::to_string(number);
        }
    }
    return "";
}

// The value of a sample, the columns in order: real and imaginary parts of a trace stand side by side.
std::string SampleDifference(const DataBlock& block, const std::vector<TraceColumns>& traces, const CsvTable& table)
{
    for (std::int32_t number = 1; number <= block.NumberOfTraces; ++number) {
        const Trace& trace = block.Traces[number];
        const TraceColumns& columns = traces[static_cast<std::size_t>(number - 1)];
        for (std::int32_t sample = 1; sample <= block.NumberOfSamples; ++sample) {
            const auto row = static_cast<std::size_t>(sample - 1);
            const float real = table.columns[columns.real][row];
            const float imaginary = columns.imaginary ? table.columns[*columns.imaginary][row] : 0.0F;
            const bool same = block.DataFormat == RealFormat
                                  ? SameBits(trace.RealSamples[sample], real)
                                  : SameBits(trace.ComplexSamples[sample], ComplexSample{real, imaginary});
            if (!same) return "trace " + std::to_string(number) + ", sample " + std::to_string(sample);
        }
    }
    return "";
}

// Nothing, or what the document does not hold of the table.
std::string DocumentDifference(const std::filesystem::path& path, const ImportOptions& options)
{
    auto file = platform::File::OpenForReading(Utf16(path));
    if (!file) return "no document where the import succeeded";
    DataBlock block;
    const LoadResult loaded = LoadDataBlock(*file, block);
    if (loaded.status != Success || loaded.error != NoError) return "the document cannot be read";

    const CsvTable table = ReadCsvTable(options.csvFile, options.csv);
    const auto headings = std::span<const Heading>(table.headings).subspan(1);
    const auto traces = PairColumns(headings, options.complexColumns);
    if (!traces || std::cmp_not_equal(block.NumberOfTraces, traces->size())) return "number of traces";
    if (std::cmp_not_equal(block.NumberOfSamples, table.x.size())) return "number of samples";
    if (!std::ranges::is_sorted(table.x)) return "falling X values";
    if (std::string found = XaxisDifference(block, table); !found.empty()) return found;
    return SampleDifference(block, *traces, table);
}

std::string ImportAndLoad(std::span<const std::uint8_t> bytes)
{
    const TemporaryFolder folder; // not for the process: the fuzzer ends it without cleaning up
    const std::filesystem::path document = folder / "a.blk";

    const std::size_t optionBytes = std::min(bytes.size(), OptionBytes);
    const UnlinkedFile csv(Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(optionBytes), bytes.end()));
    if (!csv.Good()) return "no file to read from";
    ImportOptions options = OptionsOf(bytes.first(optionBytes));
    options.csvFile = platform::ToUtf8(csv.Path());
    options.outputFile = document.string();

    const Shown shown = Run([&](Output& output) { return RunImport(options, output); });
    const auto files = std::distance(std::filesystem::directory_iterator(folder / ""), {});
    if (shown.code != Done) return files == 0 ? "" : "an import that failed left a file";
    if (files != 1) return "an import left other files than the document";
    return DocumentDifference(document, options);
}

} // namespace
} // namespace qor::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return Judge(qor::test::ImportAndLoad({data, size}));
}
