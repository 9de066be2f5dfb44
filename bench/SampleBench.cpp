// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "SampleBench.h"

#include "Figures.h"

#include <QOR_File/FileArrays.h>

#include <cmath>
#include <complex>
#include <cstring>

namespace qor::bench {
namespace {

using benchmark::State;
using Format = DataBlock_DataFormatTypes;

constexpr std::int32_t Samples = 16384; // fits the nearer caches: the calls are measured, not the memory
constexpr std::int32_t TraceNumber = 3;
constexpr int Runs = 101;
constexpr double DegreesPerRadian = 57.29577951308232;

float First(std::int32_t sample) { return 1.0F + static_cast<float>(sample) * 0.5F; }
// As a phase it stays inside 0 to 360 degrees.
float Second(std::int32_t sample) { return 1.0F + static_cast<float>(sample % 358); }

void Resize(clsQOR_File& file, Format format)
{
    file.Initialize();
    file.DataBlock_TraceDataFormat(format);
    file.DataBlock_NumberOfSamples(Samples);
    file.DataBlock_NumberOfTraces(TraceNumber);
}

void WriteAll(clsQOR_File& file)
{
    for (std::int32_t sample = 1; sample <= Samples; ++sample)
        benchmark::DoNotOptimize(file.WriteTraceSampleValue(TraceNumber, sample, First(sample), Second(sample)));
}

void ReadAll(clsQOR_File& file)
{
    for (std::int32_t sample = 1; sample <= Samples; ++sample) {
        float real = 0;
        float imaginary = 0;
        benchmark::DoNotOptimize(file.ReadTraceSampleValue(TraceNumber, sample, real, imaginary));
        benchmark::DoNotOptimize(real);
        benchmark::DoNotOptimize(imaginary);
    }
}

// Whether every sample has the values that were written, up to the rounding of a way there and back.
bool Holds(clsQOR_File& file, Format format)
{
    const float tolerance = format == DataFormat_MgnitudePhase ? 1e-5F : 0;
    for (std::int32_t sample = 1; sample <= Samples; ++sample) {
        const float second = format == DataFormat_Real ? 0 : Second(sample);
        float real = -1;
        float imaginary = -1;
        if (file.ReadTraceSampleValue(TraceNumber, sample, real, imaginary) == Failure) return false;
        if (std::abs(real - First(sample)) > tolerance * First(sample)) return false;
        if (std::abs(imaginary - second) > tolerance * second) return false;
    }
    return true;
}

// The references: the same values in a vector, with the arithmetic of a magnitude/phase view where there is one.
template <class Value>
void WriteVector(std::vector<Value>& samples, Format format)
{
    for (std::int32_t sample = 1; sample <= Samples; ++sample) {
        Value& place = samples[static_cast<std::size_t>(sample - 1)];
        if constexpr (std::is_same_v<Value, float>) {
            place = First(sample);
        } else if (format == DataFormat_MgnitudePhase) {
            const double angle = Second(sample) / DegreesPerRadian;
            place = {static_cast<float>(First(sample) * std::cos(angle)),
                     static_cast<float>(First(sample) * std::sin(angle))};
        } else {
            place = {First(sample), Second(sample)};
        }
        benchmark::DoNotOptimize(place);
    }
}

template <class Value>
void ReadVector(const std::vector<Value>& samples, Format format)
{
    for (std::int32_t sample = 1; sample <= Samples; ++sample) {
        const Value& place = samples[static_cast<std::size_t>(sample - 1)];
        float first = 0;
        float second = 0;
        if constexpr (std::is_same_v<Value, float>) {
            first = place;
        } else if (format == DataFormat_MgnitudePhase) {
            const double re = place.real();
            const double im = place.imag();
            first = static_cast<float>(std::sqrt(re * re + im * im));
            second = static_cast<float>(std::atan2(im, re) * DegreesPerRadian);
        } else {
            first = place.real();
            second = place.imag();
        }
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
    }
}

template <class Value>
void TimeReads(State& state, Format format)
{
    clsQOR_File file;
    Resize(file, format);
    WriteAll(file);
    std::vector<Value> reference(Samples);
    WriteVector(reference, format);
    for (auto each : state) {
        (void)each;
        TimeBeside(
            state, [&] { ReadAll(file); }, [&] { ReadVector(reference, format); }, Samples);
    }
    if (!Holds(file, format)) state.SkipWithError("wrong samples");
}

template <class Value>
void TimeWrites(State& state, Format format)
{
    clsQOR_File file;
    Resize(file, format);
    std::vector<Value> reference(Samples);
    for (auto each : state) {
        (void)each;
        TimeBeside(
            state, [&] { WriteAll(file); }, [&] { WriteVector(reference, format); }, Samples);
    }
    if (!Holds(file, format)) state.SkipWithError("wrong samples");
}

template <class Value>
void Add(const std::string& name, Format format)
{
    Register("sample_read_" + name, Runs, [=](State& state) { TimeReads<Value>(state, format); });
    Register("sample_write_" + name, Runs, [=](State& state) { TimeWrites<Value>(state, format); });
}

// ---- whole traces ------------------------------------------------------------------------------------------

constexpr std::int32_t LongTrace = 1'000'000;

// One trace of that many samples, and arrays for all of them. A real trace has no second array.
struct WholeTrace {
    explicit WholeTrace(Format format) : complex(format != DataFormat_Real)
    {
        file.DataBlock_TraceDataFormat(format);
        file.DataBlock_NumberOfSamples(LongTrace);
        file.DataBlock_NumberOfTraces(1);
        for (std::int32_t sample = 1; sample <= LongTrace; ++sample) {
            first.push_back(First(sample));
            if (complex) second.push_back(Second(sample));
        }
        copy.resize(first.size() + second.size());
    }

    void Read() { benchmark::DoNotOptimize(FileArrays(file).ReadTraceSamples(1, first, second)); }
    void Write() { benchmark::DoNotOptimize(FileArrays(file).WriteTraceSamples(1, first, second)); }
    void ReadOneByOne()
    {
        float dropped = 0;
        for (std::int32_t sample = 1; sample <= LongTrace; ++sample) {
            const auto i = static_cast<std::size_t>(sample - 1);
            benchmark::DoNotOptimize(file.ReadTraceSampleValue(1, sample, first[i], complex ? second[i] : dropped));
        }
    }
    void WriteOneByOne()
    {
        for (std::int32_t sample = 1; sample <= LongTrace; ++sample) {
            const auto i = static_cast<std::size_t>(sample - 1);
            benchmark::DoNotOptimize(file.WriteTraceSampleValue(1, sample, first[i], complex ? second[i] : 0));
        }
    }
    // As many bytes, between two arrays.
    void Copy()
    {
        std::memcpy(copy.data(), first.data(), first.size() * sizeof(float));
        std::memcpy(copy.data() + first.size(), second.data(), second.size() * sizeof(float));
        benchmark::ClobberMemory();
    }

    // Whether the members find what was written, and one call reads it again.
    bool Holds()
    {
        std::fill(first.begin(), first.end(), -1.0F);
        std::fill(second.begin(), second.end(), -1.0F);
        Read();
        for (std::int32_t sample = 1; sample <= LongTrace; ++sample) {
            const auto i = static_cast<std::size_t>(sample - 1);
            float real = -2;
            float imaginary = -2;
            file.ReadTraceSampleValue(1, sample, real, imaginary);
            if (real != First(sample) || first[i] != real) return false;
            if (complex && (imaginary != Second(sample) || second[i] != imaginary)) return false;
        }
        return true;
    }

    const bool complex;
    clsQOR_File file;
    std::vector<float> first;
    std::vector<float> second;
    std::vector<float> copy;
};

using Work = void (WholeTrace::*)();

void TimeTrace(State& state, Format format, Work work, Work reference)
{
    WholeTrace trace(format);
    trace.Write();
    trace.Copy();
    for (auto each : state) {
        (void)each;
        TimeBeside(
            state, [&] { (trace.*work)(); }, [&] { (trace.*reference)(); });
    }
    if (!trace.Holds()) state.SkipWithError("wrong samples");
}

void AddTrace(const std::string& name, Format format)
{
    const auto add = [&](const std::string& figure, Work work, Work reference) {
        Register(figure + name, Runs, [=](State& state) { TimeTrace(state, format, work, reference); });
    };
    add("trace_read_", &WholeTrace::Read, &WholeTrace::Copy);
    add("trace_write_", &WholeTrace::Write, &WholeTrace::Copy);
    add("one_by_one_read_", &WholeTrace::ReadOneByOne, &WholeTrace::Read);
    add("one_by_one_write_", &WholeTrace::WriteOneByOne, &WholeTrace::Write);
}

} // namespace

void RegisterSampleBenchmarks()
{
    Add<float>("real", DataFormat_Real);
    Add<std::complex<float>>("complex", DataFormat_RealImaginary);
    Add<std::complex<float>>("magnitude_phase", DataFormat_MgnitudePhase);
    AddTrace("real", DataFormat_Real);
    AddTrace("complex", DataFormat_RealImaginary);
}

} // namespace qor::bench
