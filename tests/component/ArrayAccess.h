// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Short forms of the members with whole arrays for tests: what a read returned and left in the caller's arrays.
#pragma once

#include "component/DataBlockAccess.h"

#include <QOR_File/FileArrays.h>

#include <algorithm>
#include <ostream>
#include <span>
#include <vector>

namespace qor::test {

using Values = std::vector<float>;

inline bool SameBits(const Values& a, const Values& b) { return std::ranges::equal(a, b, {}, Bits, Bits); }

// Result of a read into two arrays. Equal means the same bits.
struct ArrayRead {
    ReturnStatus status = Failure;
    Values first;
    Values second;

    friend bool operator==(const ArrayRead& a, const ArrayRead& b)
    {
        return a.status == b.status && SameBits(a.first, b.first) && SameBits(a.second, b.second);
    }
    friend std::ostream& operator<<(std::ostream& out, const ArrayRead& read)
    {
        out << (read.status == Success ? "Success" : "Failure");
        for (const float value : read.first) out << ' ' << value;
        out << " /";
        for (const float value : read.second) out << ' ' << value;
        return out;
    }
};

// Arrays of these lengths as a read finds them, and as one that fails leaves them.
inline ArrayRead Untouched(std::size_t first, std::size_t second)
{
    return {Failure, Values(first, UntouchedFirst), Values(second, UntouchedSecond)};
}

inline ArrayRead ReadTrace(FileArrays file, std::int32_t trace, std::size_t first, std::size_t second)
{
    ArrayRead read = Untouched(first, second);
    read.status = file.ReadTraceSamples(trace, read.first, read.second);
    return read;
}

inline ArrayRead ReadXaxis(FileArrays file, std::size_t count)
{
    ArrayRead read = Untouched(count, 0);
    read.status = file.ReadDataBlockXaxisValues(read.first);
    return read;
}

inline ArrayRead ReadShapeRow(FileArrays file, std::int32_t shape, std::size_t magnitudes, std::size_t phases)
{
    ArrayRead read = Untouched(magnitudes, phases);
    read.status = file.ReadShapeDOFvalues(shape, read.first, read.second);
    return read;
}

// A read that succeeded with these values.
inline ArrayRead Holds(Values first, Values second) { return {Success, std::move(first), std::move(second)}; }

} // namespace qor::test
