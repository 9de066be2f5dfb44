// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "MemoryUse.h"

#include "PlainFile.h"
#include "datablock/Load_DataBlock.h"
#include "datablock/Save_DataBlock.h"
#include "platform/File.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace qor::bench {
namespace {

constexpr double NotMeasured = -1;

// Bytes that a line of the process's status tells.
double StatusBytes(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field)) return std::stod(line.substr(field.size() + 1)) * 1024;
    }
    throw std::runtime_error("no process status");
}

// The peak of the memory that the work takes above what the process has already.
template <class Work>
double PeakAbove(Work work)
{
    {
        std::ofstream peak("/proc/self/clear_refs");
        peak << "5"; // sets the peak back to the present use
    }
    const double before = StatusBytes("VmRSS");
    if (StatusBytes("VmHWM") - before > 256 * 1024) return NotMeasured; // was not set back
    if (!work()) return NotMeasured;
    return StatusBytes("VmHWM") - before;
}

// Runs the measurement in a child, whose heap nothing has been in before.
template <class Measurement>
double InChild(Measurement measurement)
{
    int channel[2];
    if (pipe(channel) != 0) return NotMeasured;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        double result = NotMeasured;
        try {
            result = measurement();
        } catch (const std::exception& fault) {
            std::fprintf(stderr, "%s\n", fault.what());
        }
        const bool told = write(channel[1], &result, sizeof result) == static_cast<ssize_t>(sizeof result);
        _exit(told ? 0 : 1);
    }
    close(channel[1]);
    double result = NotMeasured;
    if (child > 0) {
        if (read(channel[0], &result, sizeof result) != static_cast<ssize_t>(sizeof result)) result = NotMeasured;
        waitpid(child, nullptr, 0);
    }
    close(channel[0]);
    return result;
}

} // namespace

std::optional<MemoryUse> PeakMemory(const Shape& shape, const std::string& path)
{
    MemoryUse use;
    use.save = InChild([&] {
        const DataBlock block = MakeDocument(shape);
        return PeakAbove([&] {
            auto file = platform::File::Replace(Utf16(path));
            return file && SaveDataBlock(*file, block).status == Success && file->Close();
        });
    });
    use.load = InChild([&] {
        DataBlock block;
        const double peak = PeakAbove([&] {
            auto file = platform::File::OpenForReading(Utf16(path));
            return file && LoadDataBlock(*file, block).status == Success;
        });
        return Checksum(block) == Checksum(MakeDocument(shape)) ? peak : NotMeasured;
    });
    Delete(path);
    if (use.save == NotMeasured || use.load == NotMeasured) return std::nullopt;
    return use;
}

} // namespace qor::bench
