// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/SampleAccess.h"

#include "datablock/Conversion.h"

#include <limits>

namespace qor {
namespace {

ErrorStatusTypes CheckSample(const DataBlock& block, std::int32_t traceNumber, std::int32_t sampleNumber)
{
    if (const ErrorStatusTypes error = CheckTrace(block, traceNumber); error != NoError) return error;
    if (block.NumberOfSamples < 1) return TraceDataNotAllocated;
    // 0 passes on purpose: the published check starts at 0.
    if (sampleNumber < 0 || sampleNumber > block.NumberOfSamples) return SampleIndexError;
    return NoError;
}

ErrorStatusTypes CheckXaxis(const DataBlock& block, bool allocated, std::int32_t sampleNumber)
{
    if (!allocated || block.NumberOfSamples < 1) return XaxisNotAllocated;
    if (sampleNumber < 1 || sampleNumber > block.NumberOfSamples) return SampleIndexError;
    return NoError;
}

Outcome Failed(ErrorStatusTypes error) { return {Failure, error}; }

// A format that only a file can bring: no rule says what its samples mean to a member.
constexpr Outcome UnknownFormat{Failure, NoError};

} // namespace

ErrorStatusTypes CheckTrace(const DataBlock& block, std::int32_t traceNumber)
{
    if (block.NumberOfTraces < 1) return TraceDataNotAllocated;
    if (traceNumber < 1 || traceNumber > block.NumberOfTraces) return TraceIndexError;
    return NoError;
}

Outcome ReadTraceSample(const DataBlock& block, ComplexView view, std::int32_t traceNumber, std::int32_t sampleNumber,
                        float& first, float& second)
{
    const ErrorStatusTypes error = CheckSample(block, traceNumber, sampleNumber);
    if (error != NoError) return Failed(error);
    const Trace& trace = block.Traces[traceNumber];
    if (block.DataFormat == RealFormat) {
        if (trace.RealSamples.Has(sampleNumber)) first = trace.RealSamples[sampleNumber];
        second = 0;
    } else if (block.DataFormat == ComplexFormat) {
        if (!trace.ComplexSamples.Has(sampleNumber)) return {};
        const ComplexSample sample = trace.ComplexSamples[sampleNumber];
        if (view == ComplexView::MagnitudePhase) {
            first = MagnitudeOf(sample.real, sample.imaginary);
            second = PhaseOf(sample.real, sample.imaginary, true);
        } else {
            first = sample.real;
            second = sample.imaginary;
        }
    } else {
        return UnknownFormat;
    }
    return {};
}

Outcome WriteTraceSample(DataBlock& block, ComplexView view, std::int32_t traceNumber, std::int32_t sampleNumber,
                         float first, float second)
{
    const ErrorStatusTypes error = CheckSample(block, traceNumber, sampleNumber);
    if (error != NoError) return Failed(error);
    if (block.DataFormat != RealFormat && block.DataFormat != ComplexFormat) return UnknownFormat;
    if (!block.Traces.Has(traceNumber)) return {};
    Trace& trace = block.Traces.Edit(traceNumber);
    if (block.DataFormat == RealFormat) {
        if (trace.RealSamples.Has(sampleNumber)) trace.RealSamples[sampleNumber] = first;
    } else if (trace.ComplexSamples.Has(sampleNumber)) {
        trace.ComplexSamples[sampleNumber] =
            view == ComplexView::MagnitudePhase ? FromMagnitudePhase(first, second) : ComplexSample{first, second};
    }
    return {};
}

Outcome ReadXaxis(const DataBlock& block, bool allocated, std::int32_t sampleNumber, float& value)
{
    const ErrorStatusTypes error = CheckXaxis(block, allocated, sampleNumber);
    if (error != NoError) return Failed(error);
    if (block.Xaxis.Has(sampleNumber)) value = block.Xaxis[sampleNumber];
    return {};
}

Outcome WriteXaxis(DataBlock& block, bool allocated, std::int32_t sampleNumber, float value)
{
    const ErrorStatusTypes error = CheckXaxis(block, allocated, sampleNumber);
    if (error != NoError) return Failed(error);
    if (block.Xaxis.Has(sampleNumber)) block.Xaxis[sampleNumber] = value;
    return {};
}

void StoreNarrowed(std::int32_t value, std::int16_t& field)
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (value >= Limits::min() && value <= Limits::max()) field = static_cast<std::int16_t>(value);
}

} // namespace qor
