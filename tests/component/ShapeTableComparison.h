// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The component beside the model of its Shape Table.
#pragma once

#include "component/ShapeTableModel.h"

#include <limits>

namespace qor::test {

// What the arguments of calls are drawn from: numbers from the first to the second, and by how often they are wanted.
// 20,000 by 20,000 values are more than an array can hold.
inline constexpr std::int32_t UsualNumbers[] = {1, 4};
inline constexpr std::int32_t UnusualNumbers[] = {-1, 7};
inline constexpr std::int32_t HugeNumbers[] = {20'000, std::numeric_limits<std::int32_t>::max(),
                                               std::numeric_limits<std::int32_t>::min()};
inline constexpr std::int32_t TypeValues[] = {20, 35, 32767, -32768};
inline constexpr std::int32_t ValuesBeyondAType[] = {32768, -32769, 65540, std::numeric_limits<std::int32_t>::max()};
inline constexpr float UsualFloats[] = {0.0F,   -0.0F,  1.0F,    -2.5F,  30.0F,        90.0F,
                                        -90.0F, 180.0F, 3600.0F, 1e-45F, 3.4028235e38F};
inline constexpr float Infinities[] = {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()};

// Performs the calls on both, and now and then reads out all. Empty when they show the same throughout; else the first
// difference.
std::string FirstShapeTableDifference(const std::vector<ShapeTableCall>& sequence);

} // namespace qor::test
