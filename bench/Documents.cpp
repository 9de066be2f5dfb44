// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Documents.h"

#include <bit>
#include <new>
#include <stdexcept>

namespace qor::bench {
namespace {

// Any value will do that differs from sample to sample and from trace to trace.
float Value(std::int32_t trace, std::int32_t sample)
{
    return static_cast<float>(sample % 8191) * 0.25F + static_cast<float>(trace);
}

std::uint64_t Mixed(std::uint64_t sum, float value)
{
    return (sum ^ std::bit_cast<std::uint32_t>(value)) * 0x9E3779B97F4A7C15U;
}

std::uint64_t TraceSum(const Trace& trace)
{
    std::uint64_t sum = 1;
    for (const float value : trace.RealSamples.Values()) sum = Mixed(sum, value);
    for (const ComplexSample& sample : trace.ComplexSamples.Values())
        sum = Mixed(Mixed(sum, sample.real), sample.imaginary);
    return sum;
}

} // namespace

std::u16string Numbered(const char16_t* text, std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return text + std::u16string(digits.begin(), digits.end());
}

std::uint64_t SampleBytes(const Shape& shape)
{
    return static_cast<std::uint64_t>(shape.traces) * static_cast<std::uint64_t>(shape.samples) *
           (shape.complex ? sizeof(ComplexSample) : sizeof(float));
}

DataBlock MakeDocument(const Shape& shape)
{
    DataBlock block;
    block.NumberOfTraces = static_cast<std::int16_t>(shape.traces);
    block.NumberOfSamples = shape.samples;
    block.DataFormat = shape.complex ? ComplexFormat : RealFormat;
    block.XaxisIncrement = 0.5F;
    if (ReallocateDataBlock(block) != NoError) throw std::bad_alloc();
    for (std::int32_t number = 1; number <= shape.traces; ++number) {
        Trace& trace = block.Traces.Edit(number);
        trace.Label = Numbered(u"Trace ", number);
        trace.DegreesOfFreedom = Numbered(u"1Z:", number) + u"Z";
        trace.MeasurementUnits = u"(m/s^2)/N";
        for (std::int32_t sample = 1; sample <= trace.RealSamples.Count(); ++sample)
            trace.RealSamples[sample] = Value(number, sample);
        for (std::int32_t sample = 1; sample <= trace.ComplexSamples.Count(); ++sample)
            trace.ComplexSamples[sample] = {Value(number, sample), -Value(sample, number)};
    }
    return block;
}

void FillComponent(clsQOR_File& file, const Shape& shape)
{
    file.Initialize();
    file.DataBlock_TraceDataFormat(shape.complex ? DataFormat_RealImaginary : DataFormat_Real);
    file.DataBlock_NumberOfSamples(shape.samples);
    file.DataBlock_NumberOfTraces(shape.traces);
    file.DataBlock_XaxisIncrement(0.5F);
    if (file.ErrorStatus() != NoError) throw std::bad_alloc();
    for (std::int32_t number = 1; number <= shape.traces; ++number) {
        file.Trace_Label(number, Numbered(u"Trace ", number));
        file.Trace_DegreesOfFreedom(number, Numbered(u"1Z:", number) + u"Z");
        file.Trace_MeasurementUnits(number, u"(m/s^2)/N");
        for (std::int32_t sample = 1; sample <= shape.samples; ++sample) {
            if (file.WriteTraceSampleValue(number, sample, Value(number, sample), -Value(sample, number)) == Failure)
                throw std::runtime_error("a sample was refused");
        }
    }
}

std::uint64_t Checksum(const DataBlock& block)
{
    std::uint64_t sum = 0;
    for (std::int32_t number = 1; number <= block.Traces.Count(); ++number)
        sum = sum * 31 + TraceSum(block.Traces[number]);
    return sum;
}

std::uint64_t Checksum(const DataBlock& block, std::int32_t trace) { return TraceSum(block.Traces[trace]); }

} // namespace qor::bench
