// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fuzz target: any bytes as a Structure file. What must hold of them stands in support/ExerciseStructure.h.
#include "support/ExerciseStructure.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string violation = qor::test::ExerciseStructure(qor::test::Bytes(data, data + size));
    if (!violation.empty()) {
        std::fprintf(stderr, "%s\n", violation.c_str());
        std::abort();
    }
    return 0;
}
