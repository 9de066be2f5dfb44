// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Samples read and written one by one, by the published members, beside loops over a vector; and whole traces by one
// call, beside a plain copy and beside the members.
#pragma once

namespace qor::bench {

void RegisterSampleBenchmarks();

} // namespace qor::bench
