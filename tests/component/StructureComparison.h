// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The component beside the model of its Structure.
#pragma once

#include "component/StructureModel.h"

#include <limits>

namespace qor::test {

// What the arguments of calls are drawn from: numbers from the first to the second, seldom numbers far from these, and
// values.
inline constexpr std::int32_t StructureCallNumbers[] = {-2, 8};
inline constexpr std::int32_t FarNumbers[] = {std::numeric_limits<std::int32_t>::max(),
                                              std::numeric_limits<std::int32_t>::min()};
inline constexpr std::int32_t StructureCallValues[] = {0, 1, 2, 3, 4, 5, 6, -1, 32767, 32768, 40000, -32768, -32769};
inline constexpr std::int32_t StructureCallOthers[] = {-1, 4};
inline constexpr float StructureCallPlaces[] = {0.0F,
                                                -0.0F,
                                                1.5F,
                                                -2.5F,
                                                1e-45F,
                                                3.4e38F,
                                                std::numeric_limits<float>::infinity(),
                                                -std::numeric_limits<float>::infinity()};

// Performs the calls on both, and now and then reads out all. Empty when they show the same throughout; else the first
// difference.
std::string FirstStructureDifference(const std::vector<StructureCall>& sequence);

} // namespace qor::test
