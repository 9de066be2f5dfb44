// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The groups of figures.
#pragma once

namespace qor::bench {

// Single calls and new objects, early and late bound.
void BenchCalls();
// Whole arrays.
void BenchArrays();

} // namespace qor::bench
