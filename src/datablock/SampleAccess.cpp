// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/SampleAccess.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace qor {
namespace {

ErrorStatusTypes CheckXaxis(const DataBlock& block, bool allocated, std::int32_t sampleNumber)
{
    if (!allocated || block.NumberOfSamples < 1) return XaxisNotAllocated;
    if (sampleNumber < 1 || sampleNumber > block.NumberOfSamples) return SampleIndexError;
    return NoError;
}

// An array for all samples is refused like the number behind the last one, after what the first one's number meets.
bool IsWhole(const DataBlock& block, std::size_t length) { return std::cmp_equal(length, block.NumberOfSamples); }

ErrorStatusTypes CheckSamples(const DataBlock& block, std::int32_t traceNumber, std::size_t first, std::size_t second)
{
    if (const ErrorStatusTypes error = CheckSample(block, traceNumber, 1); error != NoError) return error;
    return IsWhole(block, first) && (second == 0 || IsWhole(block, second)) ? NoError : SampleIndexError;
}

ErrorStatusTypes CheckXaxisValues(const DataBlock& block, bool allocated, std::size_t length)
{
    if (const ErrorStatusTypes error = CheckXaxis(block, allocated, 1); error != NoError) return error;
    return IsWhole(block, length) ? NoError : SampleIndexError;
}

// The elements that an array holds of those that a count asks for.
template <class Array>
auto Held(Array& array, std::size_t count)
{
    const auto values = array.Values();
    return values.first(std::min(values.size(), count));
}

} // namespace

Outcome ReadTraceSamples(const DataBlock& block, ComplexView view, std::int32_t traceNumber, std::span<float> first,
                         std::span<float> second)
{
    const ErrorStatusTypes error = CheckSamples(block, traceNumber, first.size(), second.size());
    if (error != NoError) return {Failure, error};
    if (!HasKnownFormat(block)) return {Failure, NoError};
    const Trace& trace = block.Traces[traceNumber];
    if (block.DataFormat == RealFormat) {
        const auto samples = Held(trace.RealSamples, first.size());
        std::copy(samples.begin(), samples.end(), first.begin());
        std::fill(second.begin(), second.end(), 0.0F);
    } else {
        const auto samples = Held(trace.ComplexSamples, first.size());
        for (std::size_t i = 0; i < samples.size(); ++i) {
            ShowFirst(view, samples[i], first[i]);
            if (!second.empty()) ShowSecond(view, samples[i], second[i]);
        }
    }
    return {};
}

Outcome WriteTraceSamples(DataBlock& block, ComplexView view, std::int32_t traceNumber, std::span<const float> first,
                          std::span<const float> second)
{
    const ErrorStatusTypes error = CheckSamples(block, traceNumber, first.size(), second.size());
    if (error != NoError) return {Failure, error};
    if (!HasKnownFormat(block)) return {Failure, NoError};
    Trace* const trace = block.Traces.Find(traceNumber);
    if (!trace) return {};
    if (block.DataFormat == RealFormat) {
        const auto samples = Held(trace->RealSamples, first.size());
        std::copy_n(first.begin(), samples.size(), samples.begin());
    } else {
        const auto samples = Held(trace->ComplexSamples, first.size());
        for (std::size_t i = 0; i < samples.size(); ++i) {
            samples[i] = SampleOf(view, first[i], second.empty() ? 0.0F : second[i]);
        }
    }
    return {};
}

bool HasXaxis(const DataBlock& block) { return block.XaxisSpacing != UniformSpacing && block.NumberOfSamples > 0; }

Outcome ReadXaxis(const DataBlock& block, bool allocated, std::int32_t sampleNumber, float& value)
{
    const ErrorStatusTypes error = CheckXaxis(block, allocated, sampleNumber);
    if (error != NoError) return {Failure, error};
    if (block.Xaxis.Has(sampleNumber)) value = block.Xaxis[sampleNumber];
    return {};
}

Outcome WriteXaxis(DataBlock& block, bool allocated, std::int32_t sampleNumber, float value)
{
    const ErrorStatusTypes error = CheckXaxis(block, allocated, sampleNumber);
    if (error != NoError) return {Failure, error};
    if (block.Xaxis.Has(sampleNumber)) block.Xaxis[sampleNumber] = value;
    return {};
}

Outcome ReadXaxisValues(const DataBlock& block, bool allocated, std::span<float> values)
{
    const bool uniform = block.XaxisSpacing == UniformSpacing;
    const ErrorStatusTypes error = CheckXaxisValues(block, allocated || uniform, values.size());
    if (error != NoError) return {Failure, error};
    if (uniform) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = static_cast<float>(UniformX(block, static_cast<std::int32_t>(i + 1)));
        }
    } else {
        const auto held = Held(block.Xaxis, values.size());
        std::copy(held.begin(), held.end(), values.begin());
    }
    return {};
}

Outcome WriteXaxisValues(DataBlock& block, bool allocated, std::span<const float> values)
{
    const ErrorStatusTypes error = CheckXaxisValues(block, allocated, values.size());
    if (error != NoError) return {Failure, error};
    const auto held = Held(block.Xaxis, values.size());
    std::copy_n(values.begin(), held.size(), held.begin());
    return {};
}

namespace {

template <class Change>
ErrorStatusTypes ChangeTrace(DataBlock& block, std::int32_t traceNumber, Change change)
{
    const ErrorStatusTypes error = CheckTrace(block, traceNumber);
    if (error != NoError || !block.Traces.Has(traceNumber)) return error;
    try {
        change(block.Traces.Edit(traceNumber));
        return NoError;
    } catch (const std::bad_alloc&) {
        return AllocationError;
    }
}

} // namespace

ErrorStatusTypes SetTraceText(DataBlock& block, std::int32_t traceNumber, std::u16string Trace::*field,
                              std::u16string_view value)
{
    return ChangeTrace(block, traceNumber, [&](Trace& trace) { trace.*field = value; });
}

ErrorStatusTypes SetTraceNumber(DataBlock& block, std::int32_t traceNumber, std::int16_t Trace::*field,
                                std::int32_t value)
{
    return ChangeTrace(block, traceNumber, [&](Trace& trace) { StoreNarrowed(value, trace.*field); });
}

void StoreNarrowed(std::int32_t value, std::int16_t& field)
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (value >= Limits::min() && value <= Limits::max()) field = static_cast<std::int16_t>(value);
}

} // namespace qor
