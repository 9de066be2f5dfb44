// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "SampleBench.h"

#include "Figures.h"

#include <QOR_File/QOR_File.h>

#include <cmath>
#include <complex>

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

} // namespace

void RegisterSampleBenchmarks()
{
    Add<float>("real", DataFormat_Real);
    Add<std::complex<float>>("complex", DataFormat_RealImaginary);
    Add<std::complex<float>>("magnitude_phase", DataFormat_MgnitudePhase);
}

} // namespace qor::bench
