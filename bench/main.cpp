// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Measures building, saving, loading, memory use and sample access, beside HDF5 and beside plain writes, reads and
// copies. What is measured and how to read it: docs/performance.md. Takes Google Benchmark's options, as
// --benchmark_filter=sample. Fails when a result was wrong, never for its time.
#include "Figures.h"
#include "FileBench.h"
#include "GrowthBench.h"
#include "MemoryUse.h"
#include "SampleBench.h"
#include "ShapeTableBench.h"
#include "StructureBench.h"
#include "platform/Memory.h"

#include <array>
#include <cstdio>
#include <exception>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include <hdf5.h>

using namespace qor::bench;

namespace {

// What times depend on: first of all, whether anything else was going on.
void PrintMachine()
{
    std::array<double, 1> load{};
    if (getloadavg(load.data(), 1) != 1) load[0] = -1;
    std::array<unsigned, 3> hdf5{};
    H5get_libversion(&hdf5[0], &hdf5[1], &hdf5[2]);
    std::printf("%u processors, %.0f GiB, load %.2f at the start; g++ %s; HDF5 %u.%u.%u\n\n",
                std::thread::hardware_concurrency(),
                static_cast<double>(qor::platform::UsableMemory()) / (1024.0 * 1024 * 1024), load[0], __VERSION__,
                hdf5[0], hdf5[1], hdf5[2]);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
        PrintMachine();
        const WorkFolder folder;
        Report report;
        PeakMeter meter(report); // first, while the process is small
        MeasureFileMemory(meter, report, folder);
        MeasureStructureMemory(meter, folder);
        MeasureShapeTableMemory(meter, folder);

        Failures failures;
        std::ostringstream unmatched; // a filter that leaves a group empty is no fault
        failures.SetErrorStream(&unmatched);
        // One group after the other, and its documents away before the next: together they would take much memory.
        const auto run = [&](auto registerGroup) {
            registerGroup();
            unmatched.str({});
            benchmark::RunSpecifiedBenchmarks(&failures);
            benchmark::ClearRegisteredBenchmarks();
        };
        run([&] { RegisterFileBenchmarks(report, folder); });
        run([&] { RegisterStructureBenchmarks(report, folder); });
        run([&] { RegisterShapeTableBenchmarks(report, folder); });
        run([&] { RegisterSampleBenchmarks(report); });
        run([&] { RegisterGrowthBenchmarks(report, folder); });
        if (!failures.Ran()) std::fputs(unmatched.str().c_str(), stderr);
        report.Print();
        return meter.Failed() || failures.Any() ? 1 : 0;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "qor_bench: %s\n", fault.what());
        return 1;
    }
}
