// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "SampleBench.h"

#include "CheckedVector.h"
#include "Figures.h"

#include <QOR_File/FileArrays.h>

#include <cmath>
#include <cstring>
#include <memory>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr std::int32_t Samples = 16384; // fits the nearer caches: the calls are measured, not the memory
constexpr std::int32_t TraceNumber = 3;
constexpr int Runs = 101;
constexpr int TraceRuns = 41;

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

// Calls for all samples.
template <class Write>
bool WriteEach(Write write)
{
    bool good = true;
    for (std::int32_t sample = 1; sample <= Samples; ++sample)
        good = write(sample, First(sample), Second(sample)) == Success && good;
    benchmark::ClobberMemory();
    return good;
}

template <class Read>
bool ReadEach(Read read)
{
    bool good = true;
    for (std::int32_t sample = 1; sample <= Samples; ++sample) {
        float real = 0;
        float imaginary = 0;
        good = read(sample, real, imaginary) == Success && good;
        benchmark::DoNotOptimize(real);
        benchmark::DoNotOptimize(imaginary);
    }
    return good;
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

template <Format format>
Traces<format> MakeVectors()
{
    return Traces<format>(TraceNumber, std::vector<SampleOf<format>>(Samples));
}

// The place of a sample, where the compiler sees the checks and can draw them together.
template <class Vectors>
auto& InlineAt(Vectors& vectors, std::int32_t sample)
{
    return vectors.at(TraceNumber - 1).at(static_cast<std::size_t>(sample - 1));
}

template <Format format>
bool WriteAll(clsQOR_File& file)
{
    return WriteEach([&](std::int32_t sample, float first, float second) {
        return file.WriteTraceSampleValue(TraceNumber, sample, first, second);
    });
}

template <Format format>
bool WriteAll(Traces<format>& vectors)
{
    return WriteEach([&](std::int32_t sample, float first, float second) {
        return WriteChecked<format>(vectors, TraceNumber, sample, first, second);
    });
}

template <Format format>
void TimeReads(State& state, Figure& figure)
{
    clsQOR_File file;
    Resize(file, format);
    WriteAll<format>(file);
    Traces<format> vectors = MakeVectors<format>();
    WriteAll<format>(vectors);
    const auto ours = [&] {
        return ReadEach([&](std::int32_t sample, float& first, float& second) {
            return file.ReadTraceSampleValue(TraceNumber, sample, first, second);
        });
    };
    const auto checked = [&] {
        return ReadEach([&](std::int32_t sample, float& first, float& second) {
            return ReadChecked<format>(vectors, TraceNumber, sample, first, second);
        });
    };
    const auto inlined = [&] {
        return ReadEach([&](std::int32_t sample, float& first, float& second) {
            Part<format>(InlineAt(vectors, sample), first, second);
            return Success;
        });
    };
    Time(state, figure, {{ours, [&] { return Holds(file, format); }}, {checked}, {inlined}}, Samples);
}

template <Format format>
void TimeWrites(State& state, Figure& figure)
{
    clsQOR_File file;
    Resize(file, format);
    Traces<format> vectors = MakeVectors<format>();
    const auto ours = [&] { return WriteAll<format>(file); };
    const auto checked = [&] { return WriteAll<format>(vectors); };
    const auto inlined = [&] {
        return WriteEach([&](std::int32_t sample, float first, float second) {
            InlineAt(vectors, sample) = Joined<format>(first, second);
            return Success;
        });
    };
    Time(state, figure, {{ours, [&] { return Holds(file, format); }}, {checked}, {inlined}}, Samples);
}

template <Format format>
void Add(Report& report, const std::string& name)
{
    const auto add = [&](const std::string& what, auto function) {
        Figure& figure = report.Add({.name = what + name,
                                     .references = {{"checked vector", "", 3}, {"inlined at()", "_to_inlined"}},
                                     .unit = "ns"});
        Register(figure, Runs, function);
    };
    add("sample_read_", TimeReads<format>);
    add("sample_write_", TimeWrites<format>);
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

void TimeTrace(State& state, Figure& figure, Format format, Work work, Work reference)
{
    WholeTrace trace(format);
    trace.Write();
    trace.Copy();
    const auto party = [&](Work each) {
        return Party{[&trace, each] {
                         (trace.*each)();
                         return true;
                     },
                     [&trace] { return trace.Holds(); }};
    };
    Time(state, figure, {party(work), party(reference)});
}

void AddTrace(Report& report, const std::string& name, Format format)
{
    const auto add = [&](const std::string& what, Work work, Work reference, const char* beside) {
        Figure& figure = report.Add({.name = what + name, .references = {{beside}}});
        Register(figure, TraceRuns,
                 [=](State& state, Figure& each) { TimeTrace(state, each, format, work, reference); });
    };
    add("trace_read_", &WholeTrace::Read, &WholeTrace::Copy, "memcpy");
    add("trace_write_", &WholeTrace::Write, &WholeTrace::Copy, "memcpy");
    add("one_by_one_read_", &WholeTrace::ReadOneByOne, &WholeTrace::Read, "the one call");
    add("one_by_one_write_", &WholeTrace::WriteOneByOne, &WholeTrace::Write, "the one call");
}

} // namespace

void RegisterSampleBenchmarks(Report& report)
{
    report.Begin("A member for one sample", "A call, of 16,384 for a trace.");
    Add<DataFormat_Real>(report, "real");
    Add<DataFormat_RealImaginary>(report, "complex");
    Add<DataFormat_MgnitudePhase>(report, "magnitude_phase");
    report.Begin("A trace in one call", "1,000,000 samples by FileArrays, and by the members for one.");
    AddTrace(report, "real", DataFormat_Real);
    AddTrace(report, "complex", DataFormat_RealImaginary);
}

} // namespace qor::bench
