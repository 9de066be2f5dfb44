// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/import/ImportCommand.h"

#include "datablock/SampleAccess.h"
#include "datablock/Save_DataBlock.h"
#include "fileio/RecordReader.h"
#include "tools/console/OutputFile.h"
#include "tools/documents/Names.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <filesystem>
#include <new>

namespace qor::tool {
namespace {

constexpr std::size_t MostTraces = 32000;

DataBlock_MeasurementTypes TypeNamed(const std::string& name)
{
    if (const auto type = MeasurementTypeOf(name)) return *type;
    throw UsageError(
        fmt::format("--type {}: there is no such measurement type; there are {}", name, MeasurementTypeNames()));
}

class Importer
{
public:
    Importer(const ImportOptions& options, CsvTable table) : options_(options), table_(std::move(table)) {}

    DataBlock Build()
    {
        PairTraces();
        SetTexts();
        SetXaxis();
        SetTraces();
        return std::move(block_);
    }

private:
    void PairTraces()
    {
        const auto headings = std::span<const Heading>(table_.headings).subspan(1);
        const auto traces = PairColumns(headings, options_.complexColumns);
        if (!traces) {
            throw FileError(fmt::format("{}:{}:{}", options_.csvFile, table_.firstLine, table_.headings.size()),
                            "the last column has no partner; complex traces take two columns");
        }
        traces_ = *traces;
        if (traces_.size() > MostTraces) {
            const std::size_t column = traces_[MostTraces].real + 2;
            throw FileError(fmt::format("{}:{}:{}", options_.csvFile, table_.firstLine, column),
                            "a Data Block holds at most 32,000 traces");
        }
        CheckCount("--type", options_.types.size());
        CheckCount("--dof", options_.dofs.size());
        const bool isComplex =
            std::ranges::any_of(traces_, [](const auto& each) { return each.imaginary.has_value(); });
        block_.DataFormat = isComplex ? ComplexFormat : RealFormat;
        block_.NumberOfSamples = static_cast<std::int32_t>(table_.x.size());
        block_.NumberOfTraces = static_cast<std::int16_t>(traces_.size());
        block_.Traces.Resize(block_.NumberOfTraces);
    }

    void CheckCount(std::string_view option, std::size_t count) const
    {
        if (count <= 1 || count == traces_.size()) return;
        throw UsageError(fmt::format("{} was given {} times, but the table has {}: give it once, or for every trace",
                                     option, count, Counted(static_cast<long long>(traces_.size()), "trace")));
    }

    void SetTexts()
    {
        const std::filesystem::path csvPath(options_.csvFile);
        block_.Label = TextOf(options_.label.value_or(csvPath.stem().string()));
        if (options_.notes) block_.Notes = TextOf(*options_.notes);
    }

    void SetXaxis()
    {
        const bool isTime = !table_.firstTimeStamp.empty();
        const std::string units = options_.xaxisUnits.value_or(isTime ? "s" : table_.headings.front().units);
        if (isTime && XaxisUnitsCodeOf(units) != XAxislIsSec) {
            throw UsageError(fmt::format("--x-units {}: dates and times become seconds", units));
        }
        block_.XaxisUnits = TextOf(units);
        block_.XaxisUnitsCode = static_cast<std::int16_t>(XaxisUnitsCodeOf(units));

        const auto uniform = options_.keepXValues ? std::nullopt : DetectUniform(table_.x, table_.xPrecision);
        if (uniform) {
            block_.XaxisSpacing = XaxisSpacing_Uniform;
            block_.XaxisStart = static_cast<float>(uniform->start);
            block_.XaxisIncrement = static_cast<float>(uniform->increment);
            WarnOfRoundedStart(uniform->start, uniform->increment);
        } else {
            block_.XaxisSpacing = XaxisSpacing_NonUniform;
            if (!block_.Xaxis.AllocateZeros(block_.Memory, block_.NumberOfSamples)) throw std::bad_alloc();
            std::ranges::transform(table_.x, block_.Xaxis.Values().begin(),
                                   [](double value) { return static_cast<float>(value); });
            WarnOfMergedValues();
        }
        table_.x = {};
    }

    void WarnOfRoundedStart(double start, double increment) const
    {
        if (std::abs(static_cast<double>(block_.XaxisStart) - start) <= increment / 2) return;
        PrintMessage(fmt::format("{}: warning: the X axis starts at {}, which a 32-bit value holds only as {:.17g}",
                                 options_.csvFile, start, block_.XaxisStart));
    }

    void WarnOfMergedValues() const
    {
        long long merged = 0;
        for (std::size_t i = 1; i < table_.x.size(); ++i) {
            if (table_.x[i] > table_.x[i - 1] &&
                static_cast<float>(table_.x[i]) == static_cast<float>(table_.x[i - 1])) {
                ++merged;
            }
        }
        if (merged == 0) return;
        PrintMessage(fmt::format("{}: warning: {} no longer differ from the one before as 32-bit values",
                                 options_.csvFile, Counted(merged, "X value")));
    }

    void SetTraces()
    {
        for (std::int32_t number = 1; number <= block_.NumberOfTraces; ++number) {
            const auto place = static_cast<std::size_t>(number - 1);
            Trace& trace = block_.Traces.Edit(number);
            trace = InitialTraceRecord();
            const Heading& heading = traces_[place].heading;
            trace.Label = TextOf(heading.label.empty() ? fmt::format("Trace {}", number) : heading.label);
            trace.MeasurementUnits = TextOf(heading.units);
            trace.DateAndTime = TextOf(table_.firstTimeStamp);
            trace.MeasurementType = static_cast<std::int16_t>(TypeOf(place));
            if (!options_.dofs.empty()) trace.DegreesOfFreedom = TextOf(OneOf(options_.dofs, place));
            SetSamples(trace, traces_[place]);
        }
    }

    static const std::string& OneOf(const std::vector<std::string>& given, std::size_t place)
    {
        return given.size() == 1 ? given.front() : given[place];
    }

    // Values over time are a time response; nothing else can be told from a table.
    DataBlock_MeasurementTypes TypeOf(std::size_t place) const
    {
        if (!options_.types.empty()) return TypeNamed(OneOf(options_.types, place));
        const bool overTime = block_.XaxisUnitsCode >= XAxislIsSec && block_.XaxisUnitsCode <= XAxisIsMicrosec;
        return overTime && block_.DataFormat == RealFormat ? DB_MeasurementIsTimeResponse : DB_MeasurementIsUndefined;
    }

    // Moves the values into the trace; a column's memory is given back as soon as it is empty.
    void SetSamples(Trace& trace, const TraceColumns& columns)
    {
        std::vector<float> real = std::move(table_.columns[columns.real]);
        if (block_.DataFormat == RealFormat) {
            if (!trace.RealSamples.AllocateZeros(block_.Memory, block_.NumberOfSamples)) throw std::bad_alloc();
            std::ranges::copy(real, trace.RealSamples.Values().begin());
            return;
        }
        std::vector<float> imaginary;
        if (columns.imaginary) imaginary = std::move(table_.columns[*columns.imaginary]);
        if (!trace.ComplexSamples.AllocateZeros(block_.Memory, block_.NumberOfSamples)) throw std::bad_alloc();
        const auto samples = trace.ComplexSamples.Values();
        for (std::size_t i = 0; i < samples.size(); ++i) {
            samples[i] = {real[i], imaginary.empty() ? 0.0F : imaginary[i]};
        }
    }

    const ImportOptions& options_;
    CsvTable table_;
    std::vector<TraceColumns> traces_;
    DataBlock block_;
};

std::string Summary(const DataBlock& block, std::string_view path, std::uint64_t size)
{
    const std::string spaceAndUnits = block.XaxisUnits.empty() ? "" : fmt::format(" {}", Shown(block.XaxisUnits));
    std::string axis;
    if (block.XaxisSpacing == XaxisSpacing_Uniform) {
        const double last = UniformX(block, block.NumberOfSamples);
        axis = fmt::format("X {} to {}{} in steps of {}{}", block.XaxisStart, static_cast<float>(last), spaceAndUnits,
                           block.XaxisIncrement, spaceAndUnits);
    } else {
        axis = fmt::format("X {} to {}{}, not evenly spaced", block.Xaxis[1], block.Xaxis[block.NumberOfSamples],
                           spaceAndUnits);
    }
    return fmt::format(
        "{}: {} {} of {}, {} ({})\n", Shown(path), Grouped(block.NumberOfTraces),
        fmt::format("{} trace{}", DataFormatName(block.DataFormat), block.NumberOfTraces == 1 ? "" : "s"),
        Counted(block.NumberOfSamples, "sample"), axis, Counted(static_cast<long long>(size), "byte"));
}

} // namespace

ExitCode RunImport(const ImportOptions& options, Output& output)
{
    for (const std::string& type : options.types) TypeNamed(type);
    std::error_code notBoth;
    if (std::filesystem::equivalent(options.csvFile, options.outputFile, notBoth)) {
        throw UsageError(fmt::format("{} would replace the file that is read", options.outputFile));
    }
    OutputFile file(options.outputFile, options.replaceExisting);
    const DataBlock block = Importer(options, ReadCsvTable(options.csvFile, options.csv)).Build();
    errno = 0;
    if (SaveDataBlock(file.Sink(), block).status == Failure) {
        throw FileError(options.outputFile, LastSystemError("would be larger than 2 GiB"));
    }
    const std::uint64_t size = file.Size();
    file.Commit();
    output.Write(Summary(block, options.outputFile, size));
    return Done;
}

} // namespace qor::tool
