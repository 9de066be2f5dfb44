// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// As much of a test framework as a program without one needs: named checks, printed as they are made.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qor::test {

// Prints the check and remembers when one failed.
void Check(bool holds, const char* what);
// The same for equal values, printing them where they differ.
void CheckEqual(std::uint64_t value, std::uint64_t expected, const char* what);

int FailedChecks();

// A hash of values in their order, to compare many results at once (FNV-1a, 64 bits).
class Checksum
{
public:
    void Add(std::uint32_t value);
    void Add(float value);
    std::uint64_t Value() const { return value_; }

private:
    std::uint64_t value_ = 0xCBF29CE484222325U;
};

// The groups of checks, each in a file of its own.
void CheckDocument();
void CheckFiles();
void CheckConversions();
void CheckThreads();

} // namespace qor::test
