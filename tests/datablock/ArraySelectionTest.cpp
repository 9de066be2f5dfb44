// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reading a file in part: headers only, or the samples of one trace. All else is the same as when reading it whole.
#include "support/SameDocument.h"
#include "support/SeedFiles.h"
#include "support/WatchedFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

Bytes TwoComplexTraces()
{
    return SizedFile(2, 2, 2)
        .Field(6, Int16(2))
        .Field(10, Floats({1, 10}))
        .Field(11)
        .Nested(FullTrace(Floats({1, 2, 3, 4})))
        .Nested(FullTrace(Floats({5, 6, 7, 8})))
        .Field(12)
        .Build();
}

TEST(ArraySelection, HeadersOnlyLeavesAllArraysOut)
{
    const Loaded loaded = LoadBytes(TwoComplexTraces(), ArraySelection::HeadersOnly());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Xaxis.Count(), 0);
    for (std::int32_t number = 1; number <= 2; ++number) {
        EXPECT_EQ(loaded.block.Traces[number].ComplexSamples.Count(), 0);
        EXPECT_EQ(loaded.block.Traces[number].SecondComplexSamples.Count(), 0);
    }
}

TEST(ArraySelection, HeadersOnlyKnowsTheXRange)
{
    const Loaded loaded = LoadBytes(TwoComplexTraces(), ArraySelection::HeadersOnly());

    EXPECT_EQ(loaded.firstX, 1);
    EXPECT_EQ(loaded.lastX, 10);
}

TEST(ArraySelection, OneTraceBringsItsSamplesAndTheXAxis)
{
    const Loaded loaded = LoadBytes(TwoComplexTraces(), ArraySelection::OneTrace(2));

    EXPECT_EQ(loaded.block.Xaxis.Count(), 2);
    EXPECT_EQ(loaded.block.Traces[1].ComplexSamples.Count(), 0);
    ASSERT_EQ(loaded.block.Traces[2].ComplexSamples.Count(), 2);
    EXPECT_EQ(loaded.block.Traces[2].ComplexSamples[1], (ComplexSample{5, 6}));
    EXPECT_EQ(loaded.block.Traces[2].SecondComplexSamples.Count(), 2);
}

TEST(ArraySelection, EveryPartHasTheHeadersOfTheWhole)
{
    for (const SeedFile& seed : SeedFiles()) {
        const Loaded whole = LoadBytes(seed.bytes);
        for (const ArraySelection& selection : {ArraySelection::HeadersOnly(), ArraySelection::OneTrace(1)}) {
            const Loaded part = LoadBytes(seed.bytes, selection);
            EXPECT_EQ(part.status, whole.status) << seed.name;
            EXPECT_EQ(part.error, whole.error) << seed.name;
            EXPECT_EQ(DifferenceWithoutArrays(part.block, whole.block), "") << seed.name;
        }
    }
}

TEST(ArraySelection, HeadersOnlyDoesNotReadWhatItMovesPast)
{
    DataBlockFile file = SizedFile(10, 100000);
    file.Field(11);
    for (int i = 0; i < 10; ++i) file.Nested(TraceBytes().Field(17, Bytes(400000)));
    CountingFile source(file.Field(12).Build());

    EXPECT_EQ(LoadFrom(source, ArraySelection::HeadersOnly()).status, Success);

    EXPECT_LT(source.BytesRead(), 200000u) << "of " << source.Size();
}

} // namespace
} // namespace qor::test
