// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Short forms of the published members for tests: what a read returned and left in the caller's values.
#pragma once

#include <QOR_File/QOR_File.h>

#include <bit>
#include <cstdint>
#include <ostream>
#include <thread>
#include <utility>

namespace qor::test {

// What stands in the caller's values before a read; no test stores them.
inline constexpr float UntouchedFirst = -77.25F;
inline constexpr float UntouchedSecond = -88.75F;

inline std::uint32_t Bits(float value) { return std::bit_cast<std::uint32_t>(value); }

// Result of a sample read. Equal means the same bits.
struct SampleRead {
    ReturnStatus status = Failure;
    float first = UntouchedFirst;
    float second = UntouchedSecond;

    friend bool operator==(const SampleRead& a, const SampleRead& b)
    {
        return a.status == b.status && Bits(a.first) == Bits(b.first) && Bits(a.second) == Bits(b.second);
    }
    friend std::ostream& operator<<(std::ostream& out, const SampleRead& read)
    {
        return out << (read.status == Success ? "Success " : "Failure ") << read.first << " / " << read.second;
    }
};

inline SampleRead Read(clsQOR_File& file, std::int32_t trace, std::int32_t sample)
{
    SampleRead read;
    read.status = file.ReadTraceSampleValue(trace, sample, read.first, read.second);
    return read;
}

// A read that succeeded with these values.
inline SampleRead Holds(float first, float second = 0) { return {Success, first, second}; }
// A read that failed, or found no element, and left the values.
inline SampleRead Refused() { return {Failure, UntouchedFirst, UntouchedSecond}; }

struct XaxisRead {
    ReturnStatus status = Failure;
    float value = UntouchedFirst;

    friend bool operator==(const XaxisRead& a, const XaxisRead& b)
    {
        return a.status == b.status && Bits(a.value) == Bits(b.value);
    }
    friend std::ostream& operator<<(std::ostream& out, const XaxisRead& read)
    {
        return out << (read.status == Success ? "Success " : "Failure ") << read.value;
    }
};

inline XaxisRead ReadX(clsQOR_File& file, std::int32_t sample)
{
    XaxisRead read;
    read.status = file.ReadDataBlockXaxisValue(sample, read.value);
    return read;
}

// Gives the thread's Data Block these sizes.
inline void Size(clsQOR_File& file, std::int32_t traces, std::int32_t samples,
                 DataBlock_DataFormatTypes format = DataFormat_Real)
{
    file.DataBlock_TraceDataFormat(format);
    file.DataBlock_NumberOfTraces(traces);
    file.DataBlock_NumberOfSamples(samples);
}

// For tests that leave something on their thread, as a shared error status, which nothing clears.
template <class Body>
void OnAThreadOfItsOwn(Body&& body)
{
    std::thread(std::forward<Body>(body)).join();
}

} // namespace qor::test
