// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Samples read and written one by one, by the published members, beside vectors whose bounds are checked; and whole
// traces by one call, beside a plain copy and beside the members.
#pragma once

#include "Report.h"

namespace qor::bench {

void RegisterSampleBenchmarks(Report& report);

} // namespace qor::bench
