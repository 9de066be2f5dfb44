// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Measures what calls through COM cost. What is measured and how to read it: docs/performance.md. Fails when a result
// was wrong, never for its time.
#include "Benches.h"
#include "Client.h"
#include "Figures.h"

int main()
{
    using namespace qor::bench;
    Require(SUCCEEDED(CoInitialize(nullptr)), "no apartment");
    Report report;
    BenchCalls(report);
    BenchArrays(report);
    CoUninitialize();
    report.Print();
    return 0;
}
