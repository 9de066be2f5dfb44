// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The X values of a Data Block as texts.
#pragma once

#include "datablock/DataBlock.h"

#include <optional>
#include <string>

namespace qor::tool {

class XaxisTexts
{
public:
    // For that many samples of the Data Block, which has to outlive it.
    XaxisTexts(const DataBlock& block, std::int32_t samples);

    // "X [s]".
    std::string Heading() const;
    // The shortest number that is the same 32-bit value. Where an even axis could not be told from those, as where
    // neighbours are the same, it is the same 64-bit value. Nothing where there is no X value.
    std::optional<std::string> Exact(std::int32_t sample) const;
    std::optional<std::string> AsJson(std::int32_t sample) const;
    // Rounded to as many digits as tell the steps of an even axis apart.
    std::optional<std::string> Rounded(std::int32_t sample) const;

private:
    const DataBlock& block_;
    int digits_;
    bool is64Bit_;
};

} // namespace qor::tool
