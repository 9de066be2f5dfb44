// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/DataBlockTable.h"

#include "fileio/Framing.h"
#include "tools/console/Text.h"
#include "tools/csv/ColumnPairs.h"
#include "tools/dump/XaxisTexts.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace qor::tool {
namespace {

constexpr const char* Missing = "-";

// A column of samples; valueOf takes one and gives a number.
template <class Sample, class ValueOf>
ValueColumn SampleColumn(const Heading& heading, const SampleArray<Sample>& samples, ValueOf valueOf)
{
    const auto cell = [&samples, valueOf](const char* missing) {
        return [&samples, valueOf, missing](std::int32_t row) {
            return samples.Has(row) ? ExactText(valueOf(samples[row])) : std::string(missing);
        };
    };
    return {JoinHeading(heading), Align::Right, cell(""), cell(Missing)};
}

} // namespace

std::vector<std::int32_t> AllTraces(const DataBlock& block)
{
    std::vector<std::int32_t> traces(static_cast<std::size_t>(block.Traces.Count()));
    std::iota(traces.begin(), traces.end(), 1);
    return traces;
}

std::int32_t MostSamples(const DocumentFile& file, const DataBlock& block, std::span<const std::int32_t> traces)
{
    std::int32_t most = 0;
    for (const std::int32_t number : traces) most = std::max(most, SampleCount(block, block.Traces[number]));
    if (most == 0) throw FileError(file.Path(), "holds no samples");
    return most;
}

ValueTable DataBlockTable(const DocumentFile& file, const DataBlock& block, std::span<const std::int32_t> traces)
{
    ValueTable table;
    table.rows = MostSamples(file, block, traces);
    const auto x = std::make_shared<const XaxisTexts>(block, table.rows);
    table.columns.push_back({x->Heading(), Align::Right, [x](std::int32_t row) { return x->Exact(row).value_or(""); },
                             [x](std::int32_t row) { return x->Rounded(row).value_or(Missing); }});
    for (const std::int32_t number : traces) {
        const Trace& trace = block.Traces[number];
        Heading heading{Shown(Trimmed(trace.Label)), Shown(Trimmed(trace.MeasurementUnits))};
        if (heading.label.empty()) heading.label = fmt::format("Trace {}", number);
        if (block.DataFormat == ComplexFormat) {
            table.columns.push_back(SampleColumn(RealPartHeading(heading), trace.ComplexSamples,
                                                 [](const ComplexSample& sample) { return sample.real; }));
            table.columns.push_back(SampleColumn(ImaginaryPartHeading(heading), trace.ComplexSamples,
                                                 [](const ComplexSample& sample) { return sample.imaginary; }));
        } else {
            table.columns.push_back(SampleColumn(heading, trace.RealSamples, [](float sample) { return sample; }));
        }
    }
    return table;
}

void WriteDataBlockCsv(const DocumentFile& file, const DataBlock& block, std::span<const std::int32_t> traces,
                       Output& output)
{
    WriteCsv(DataBlockTable(file, block, traces), output);
}

} // namespace qor::tool
