// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The component beside the model of its Data Block.
#pragma once

#include "component/DataBlockModel.h"

#include <limits>

namespace qor::test {

// What the arguments of calls are drawn from: numbers from the first to the second, and values.
inline constexpr std::int32_t CallTraces[] = {-2, 7};
inline constexpr std::int32_t CallSamples[] = {-1, 8};
inline constexpr std::int32_t CallValues[] = {0, 1, 3, 4, 5, 6, 10, 1247, 32767, 32768, 40000, -1, -32768, -32769};
inline constexpr float CallNumbers[] = {0.0F,
                                        -0.0F,
                                        1.0F,
                                        -1.0F,
                                        2.5F,
                                        3.0F,
                                        4.0F,
                                        90.0F,
                                        -90.0F,
                                        180.0F,
                                        359.75F,
                                        -1e-20F,
                                        1e-45F,
                                        1e30F,
                                        3.4e38F,
                                        std::numeric_limits<float>::infinity(),
                                        -std::numeric_limits<float>::infinity(),
                                        std::numeric_limits<float>::quiet_NaN()};

// Performs the calls on both, and now and then reads out all. Empty when they show the same throughout; else the first
// difference.
std::string FirstDifference(const std::vector<Call>& sequence);

} // namespace qor::test
