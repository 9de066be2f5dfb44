// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A page of docs as a test reads it: fenced blocks by what stands behind the fence, tables by heading.
// Everything throws where the page lacks what is asked for, so that no test passes on nothing.
#pragma once

#include "support/MemoryFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace qor::test {

class Page
{
public:
    using Row = std::vector<std::string>;

    // The name is that of the file below docs/formats, as "framing.md".
    explicit Page(std::string_view name);

    // The lines of the one block that opens with that fence, as "hex smallest".
    std::vector<std::string> Block(std::string_view fence) const;
    // The bytes of a block of lines "offset: bytes  # comment"; each offset must be right.
    Bytes HexBlock(std::string_view fence) const;
    // The rows of all tables under a heading, without their heads; cells without the blanks around them.
    std::vector<Row> Rows(std::string_view heading) const;
    // The rows of the first table behind the first line that begins so.
    std::vector<Row> RowsBehind(std::string_view lineStart) const;

private:
    std::vector<std::string> lines_;
};

} // namespace qor::test
