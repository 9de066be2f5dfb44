// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fuzz target: any bytes as a Data Block file. What must hold of them stands in support/Exercise.h.
#include "fuzz/FuzzTarget.h"
#include "support/Exercise.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return Judge(qor::test::Exercise(qor::test::Bytes(data, data + size)));
}
