// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Documents with two traces, and the object that holds them as a late-bound client has it.
#pragma once

#include "server/Documents.h"
#include "server/LateClient.h"

namespace qor::test {

class LateBinding : public ::testing::Test
{
protected:
    LateBinding()
    {
        documents.file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
        documents.file.WriteTraceSampleValue(2, 3, 1.5F, -2.5F);
        documents.file.DataBlock_NumberOfTraces(2);
    }

    Documents documents;
    IDispatch* file = documents.file.Get();
};

inline void ExpectStatus(ReturnStatus status, const Outcome& outcome)
{
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value, Variant(int{status}));
}

} // namespace qor::test
