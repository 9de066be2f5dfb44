// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fuzz target: any bytes as a Structure file. What must hold of them stands in support/ExerciseStructure.h.
#include "fuzz/FuzzTarget.h"
#include "support/ExerciseStructure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return Judge(qor::test::ExerciseStructure(qor::test::Bytes(data, data + size)));
}
