// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The list of traces, which come into being when they are first changed.
#include "datablock/DataBlock.h"

#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

TEST(TraceList, HasTheTracesFromOneToItsCount)
{
    TraceList traces;
    EXPECT_FALSE(traces.Has(1));
    traces.Resize(3);
    for (const std::int32_t index : {1, 2, 3}) EXPECT_TRUE(traces.Has(index)) << index;
    for (const std::int32_t index :
         {0, -1, 4, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_FALSE(traces.Has(index)) << index;
        EXPECT_EQ(traces.Find(index), nullptr) << index;
    }
}

TEST(TraceList, ForgetsTracesBehindASmallerCount)
{
    TraceList traces;
    traces.Resize(2);
    traces.Edit(1).Label = u"stays";
    traces.Edit(2).Label = u"goes";
    traces.Resize(1);
    EXPECT_FALSE(traces.Has(2));
    traces.Resize(2);
    EXPECT_EQ(traces[1].Label, u"stays");
    EXPECT_EQ(traces[2].Label, u"");
    EXPECT_EQ(traces.Find(2), nullptr);
}

} // namespace
} // namespace qor::test
