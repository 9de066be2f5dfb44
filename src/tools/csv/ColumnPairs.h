// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Which columns of a table make up the traces of a Data Block. A complex trace is two neighbours, "H1 re [g/N]" and
// "H1 im [g/N]".
#pragma once

#include "tools/console/Text.h"

#include <optional>
#include <span>
#include <vector>

namespace qor::tool {

enum class ComplexColumns {
    ByHeading, // neighbours whose headings say so are pairs, all others real
    All,       // every two neighbours are a pair
    None,
};

struct TraceColumns {
    std::size_t real = 0; // from 0, the X axis not counted
    std::optional<std::size_t> imaginary;
    Heading heading;

    friend bool operator==(const TraceColumns&, const TraceColumns&) = default;
};

// The headings are those of the columns without the X axis. Nothing when all are to be pairs and one is left over.
std::optional<std::vector<TraceColumns>> PairColumns(std::span<const Heading> headings, ComplexColumns complexColumns);

// The headings of the two columns of a complex trace.
Heading RealPartHeading(const Heading& heading);
Heading ImaginaryPartHeading(const Heading& heading);

} // namespace qor::tool
