// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The groups of figures.
#pragma once

namespace qor::bench {

class Report;

// Single calls and new objects, early and late bound.
void BenchCalls(Report& report);
// Whole arrays.
void BenchArrays(Report& report);

} // namespace qor::bench
