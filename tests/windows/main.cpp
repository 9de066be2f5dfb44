// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Drives the component where no test framework is at hand: built by the cross compilers it runs on Windows, and
// built natively beside the other tests, so that both must come to the same results. Exits with 1 when a check fails.
#include "Check.h"

#include <cinttypes>
#include <cstdio>
#include <exception>

namespace qor::test {
namespace {

int failedChecks = 0;

} // namespace

void Check(bool holds, const char* what)
{
    std::printf("%-6s %s\n", holds ? "ok" : "FAILED", what);
    std::fflush(stdout); // a crash must not hide where it happened
    if (!holds) ++failedChecks;
}

void CheckEqual(std::uint64_t value, std::uint64_t expected, const char* what)
{
    Check(value == expected, what);
    if (value != expected) std::printf("       is %016" PRIX64 ", expected %016" PRIX64 "\n", value, expected);
}

int FailedChecks() { return failedChecks; }

} // namespace qor::test

int main()
{
    using namespace qor::test;
    try {
        CheckDocument();
        CheckFiles();
        CheckShapeTable();
        CheckPaths();
        CheckSameEverywhere();
        CheckThreads();
    } catch (const std::exception& fault) {
        std::printf("an exception came through: %s\n", fault.what());
        return 1;
    }
    std::printf("%d failed\n", FailedChecks());
    return FailedChecks() == 0 ? 0 : 1;
}
