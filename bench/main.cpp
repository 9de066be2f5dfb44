// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Measures building, saving, loading, memory use and sample access. What is measured and how to read it:
// docs/performance.md. Takes Google Benchmark's options, as --benchmark_filter=sample. Fails when a result was wrong,
// never for its time.
#include "Figures.h"
#include "FileBench.h"
#include "MemoryUse.h"
#include "SampleBench.h"
#include "ShapeTableBench.h"
#include "StructureBench.h"

#include <cstdio>
#include <exception>
#include <sstream>

using namespace qor::bench;

namespace {

constexpr double MiB = 1024 * 1024;

bool PrintMemory(const WorkFolder& folder)
{
    bool measured = true;
    for (const Shape& shape : {LongTraces, ShortTraces}) {
        const std::string name = shape.name;
        const auto use = PeakMemory(shape, folder / "memory.blk");
        if (use) {
            const auto samples = static_cast<double>(SampleBytes(shape));
            PrintFigure("load_memory_" + name, use->load / samples);
            PrintFigure("load_memory_" + name + "_above_samples_mib", (use->load - samples) / MiB);
            PrintFigure("save_memory_" + name + "_above_document_mib", use->save / MiB);
        } else {
            std::fprintf(stderr, "%s: memory could not be measured, or a result was wrong\n", name.c_str());
            measured = false;
        }
    }
    return measured;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
        const WorkFolder folder;
        const bool right = PrintMemory(folder); // first, while the process is small
        TimeTable times;
        std::ostringstream unmatched; // a filter that leaves a group empty is no fault
        times.SetErrorStream(&unmatched);
        // One group after the other, and its documents away before the next: together they would take much memory.
        const auto run = [&](auto registerGroup) {
            registerGroup();
            unmatched.str({});
            benchmark::RunSpecifiedBenchmarks(&times);
            benchmark::ClearRegisteredBenchmarks();
        };
        run([&] {
            RegisterFileBenchmarks(folder);
            RegisterSampleBenchmarks();
        });
        run([&] { RegisterStructureBenchmarks(folder); });
        run([&] { RegisterShapeTableBenchmarks(folder); });
        if (times.Empty()) std::fputs(unmatched.str().c_str(), stderr);
        times.Print();
        return right && !times.Failed() ? 0 : 1;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "qor_bench: %s\n", fault.what());
        return 1;
    }
}
