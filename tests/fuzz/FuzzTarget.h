// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What every fuzz target ends with.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

// Returns from a target; where something did not hold, ends the process with it, which the fuzzer and ctest notice.
inline int Judge(const std::string& violation)
{
    if (violation.empty()) return 0;
    std::fprintf(stderr, "%s\n", violation.c_str());
    std::abort();
}
