// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The rules by which samples, X values and trace fields are reached. Nothing outside an array is ever touched:
// where a count allows what the storage does not hold, as it may after reading a damaged file, the access is
// skipped and the operation still succeeds.
#pragma once

#include "datablock/Conversion.h"
#include "datablock/DataBlock.h"
#include "fileio/Outcome.h"

#include <span>
#include <utility>

namespace qor {

// How complex samples are seen. Magnitude/phase has no storage of its own.
enum class ComplexView { RealImaginary, MagnitudePhase };

// NoError, or why the trace cannot be reached.
inline ErrorStatusTypes CheckTrace(const DataBlock& block, std::int32_t traceNumber)
{
    if (block.NumberOfTraces < 1) return TraceDataNotAllocated;
    if (traceNumber < 1 || traceNumber > block.NumberOfTraces) return TraceIndexError;
    return NoError;
}

inline ErrorStatusTypes CheckSample(const DataBlock& block, std::int32_t traceNumber, std::int32_t sampleNumber)
{
    if (const ErrorStatusTypes error = CheckTrace(block, traceNumber); error != NoError) return error;
    if (block.NumberOfSamples < 1) return TraceDataNotAllocated;
    // 0 passes on purpose: the published check starts at 0.
    if (sampleNumber < 0 || sampleNumber > block.NumberOfSamples) return SampleIndexError;
    return NoError;
}

// What a view shows of a stored sample, and what it stores. Not as a result: where a float is returned through the x87,
// a NaN may change on the way.
inline void ShowFirst(ComplexView view, ComplexSample sample, float& first)
{
    first = view == ComplexView::MagnitudePhase ? MagnitudeOf(sample.real, sample.imaginary) : sample.real;
}
inline void ShowSecond(ComplexView view, ComplexSample sample, float& second)
{
    second = view == ComplexView::MagnitudePhase ? PhaseOf(sample.real, sample.imaginary, true) : sample.imaginary;
}
inline ComplexSample SampleOf(ComplexView view, float first, float second)
{
    return view == ComplexView::MagnitudePhase ? FromMagnitudePhase(first, second) : ComplexSample{first, second};
}

// A format that only a file can bring is not known: no rule says what its samples mean to a member.
inline bool HasKnownFormat(const DataBlock& block)
{
    return block.DataFormat == RealFormat || block.DataFormat == ComplexFormat;
}

// Reads one sample into first and second: real and imaginary part, or magnitude and phase (0 to 360 degrees);
// of a real trace the value and 0. Clients call it for every sample, so it is to be inlined.
inline Outcome ReadTraceSample(const DataBlock& block, ComplexView view, std::int32_t traceNumber,
                               std::int32_t sampleNumber, float& first, float& second)
{
    const ErrorStatusTypes error = CheckSample(block, traceNumber, sampleNumber);
    if (error != NoError) return {Failure, error};
    if (!HasKnownFormat(block)) return {Failure, NoError};
    const Trace& trace = block.Traces[traceNumber];
    if (block.DataFormat == RealFormat) {
        if (trace.RealSamples.Has(sampleNumber)) first = trace.RealSamples[sampleNumber];
        second = 0;
    } else if (trace.ComplexSamples.Has(sampleNumber)) {
        const ComplexSample sample = trace.ComplexSamples[sampleNumber];
        ShowFirst(view, sample, first);
        ShowSecond(view, sample, second);
    }
    return {};
}
inline Outcome WriteTraceSample(DataBlock& block, ComplexView view, std::int32_t traceNumber, std::int32_t sampleNumber,
                                float first, float second)
{
    const ErrorStatusTypes error = CheckSample(block, traceNumber, sampleNumber);
    if (error != NoError) return {Failure, error};
    if (!HasKnownFormat(block)) return {Failure, NoError};
    Trace* const trace = block.Traces.Find(traceNumber);
    if (!trace) return {};
    if (block.DataFormat == RealFormat) {
        if (trace->RealSamples.Has(sampleNumber)) trace->RealSamples[sampleNumber] = first;
    } else if (trace->ComplexSamples.Has(sampleNumber)) {
        trace->ComplexSamples[sampleNumber] = SampleOf(view, first, second);
    }
    return {};
}

// The same of all samples of a trace at once. Each array has one element a sample, else SampleIndexError; second may
// also be empty: not wanted when read, zeros when written.
Outcome ReadTraceSamples(const DataBlock& block, ComplexView view, std::int32_t traceNumber, std::span<float> first,
                         std::span<float> second);
Outcome WriteTraceSamples(DataBlock& block, ComplexView view, std::int32_t traceNumber, std::span<const float> first,
                          std::span<const float> second);

// Whether an explicit X axis is there, for one who has not sized the block and keeps no note of it.
bool HasXaxis(const DataBlock& block);

// Explicit X values; allocated tells whether the caller holds the X axis for allocated.
Outcome ReadXaxis(const DataBlock& block, bool allocated, std::int32_t sampleNumber, float& value);
Outcome WriteXaxis(DataBlock& block, bool allocated, std::int32_t sampleNumber, float value);

// The X value of a sample while the spacing is uniform.
inline double UniformX(const DataBlock& block, std::int32_t sampleNumber)
{
    return double{block.XaxisStart} + (sampleNumber - 1.0) * double{block.XaxisIncrement};
}

// All X values at once, one a sample, else SampleIndexError. While the spacing is uniform a read computes them.
Outcome ReadXaxisValues(const DataBlock& block, bool allocated, std::span<float> values);
Outcome WriteXaxisValues(DataBlock& block, bool allocated, std::span<const float> values);

// Stores a value in a 16-bit field; one that does not fit leaves the field as it is.
void StoreNarrowed(std::int32_t value, std::int16_t& field);

// A field of a trace. A failed check, or a trace that is not there, leaves value as it is.
template <class T>
ErrorStatusTypes GetTraceField(const DataBlock& block, std::int32_t traceNumber, T Trace::*field, T& value)
{
    const ErrorStatusTypes error = CheckTrace(block, traceNumber);
    if (error == NoError && block.Traces.Has(traceNumber)) value = block.Traces[traceNumber].*field;
    return error;
}
// The trace is left as it is too, with AllocationError, where there is no memory for the text, or for a trace that
// nobody has changed before.
ErrorStatusTypes SetTraceText(DataBlock& block, std::int32_t traceNumber, std::u16string Trace::*field,
                              std::u16string_view value);
// A number, narrowed as above.
ErrorStatusTypes SetTraceNumber(DataBlock& block, std::int32_t traceNumber, std::int16_t Trace::*field,
                                std::int32_t value);

// The three kinds of data that are kept; every other value counts as vector.
constexpr std::int16_t KnownDataSVT(std::int32_t value)
{
    return static_cast<std::int16_t>(value == DataIsScalar || value == DataIsTensor ? value : DataIsVector);
}

} // namespace qor
