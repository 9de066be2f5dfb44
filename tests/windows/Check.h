// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// As much of a test framework as a program without one needs: named checks, printed as they are made.
#pragma once

#include "windows/Checksum.h"

namespace qor::test {

// Prints the check and remembers when one failed.
void Check(bool holds, const char* what);
// The same for equal values, printing them where they differ.
void CheckEqual(std::uint64_t value, std::uint64_t expected, const char* what);

int FailedChecks();

// The groups of checks, each in a file of its own.
void CheckDocument();
void CheckFiles();
void CheckShapeTable();
void CheckPaths();
void CheckSameEverywhere();
void CheckThreads();

} // namespace qor::test
