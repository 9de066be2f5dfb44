// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Sizes that no machine's memory, or no single array, can hold. Nothing is filled here: what such a size asks for
// is found out before it is allocated, and arrays that fit are not touched.
#include "component/DataBlockAccess.h"
#include "platform/Desktop.h"
#include "platform/Memory.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

// An array holds at most 2,147,483,647 bytes.
constexpr std::int32_t MostRealSamples = 536'870'911;
constexpr std::int32_t MostComplexSamples = 268'435'455;

void ExpectEmptied(clsQOR_File& file)
{
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 0);
    EXPECT_EQ(file.DataBlock_NumberOfSamples(), 0);
    EXPECT_EQ(file.DataBlock_TraceDataFormat(), DataFormat_Real);
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform);
    EXPECT_EQ(file.DataBlock_Label(), u"");
    EXPECT_EQ(file.DataBlock_Notes(), u"Data Block history");
}

TEST(AllocationFailure, OfADocumentBeyondTheMachinesMemoryEmptiesTheDataBlock)
{
    clsQOR_File file;
    file.DataBlock_Label(u"lost");
    file.DataBlock_Notes(u"lost");
    file.DataBlock_NumberOfTraces(32000);

    file.DataBlock_NumberOfSamples(500'000'000);

    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    ExpectEmptied(file);
}

// Each array could be had, as the system lends memory that nobody touches; all of them could never be filled.
TEST(AllocationFailure, ComesAlreadyWithTheFirstTraceTooMany)
{
    constexpr std::int32_t samples = 250'000'000;
    const auto traces = static_cast<std::int32_t>(platform::UsableMemory() / (sizeof(float) * samples)) + 1;
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(samples);

    file.DataBlock_NumberOfTraces(traces);

    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    ExpectEmptied(file);
}

TEST(AllocationFailure, IsReportedOnceWithoutTextAndPost)
{
    clsQOR_File file;
    file.ErrorStatus(SampleIndexError);
    platform::LastPostedError() = {};
    file.DataBlock_NumberOfTraces(32000);

    file.DataBlock_NumberOfSamples(500'000'000);

    EXPECT_EQ(file.GetLastErrorString(), u"Error (11): Sample Index error");
    EXPECT_EQ(platform::LastPostedError().number, 0U);
    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(AllocationFailure, OfNumberOfTracesEmptiesTheDataBlock)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(MostRealSamples + 1);
    EXPECT_EQ(file.ErrorStatus(), NoError);

    file.DataBlock_NumberOfTraces(1);

    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    ExpectEmptied(file);
}

TEST(AllocationFailure, OfAComplexFormatEmptiesTheDataBlock)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.DataBlock_NumberOfSamples(MostComplexSamples + 1);
    EXPECT_EQ(file.ErrorStatus(), NoError) << "as real samples they fit";

    file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);

    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    ExpectEmptied(file);
}

TEST(AllocationFailure, OfAnExplicitXaxisEmptiesTheDataBlock)
{
    clsQOR_File file;
    file.DataBlock_NumberOfSamples(MostRealSamples + 1);

    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);

    EXPECT_EQ(file.ErrorStatus(), AllocationError);
    ExpectEmptied(file);
    EXPECT_EQ(ReadX(file, 1), XaxisRead{});
    EXPECT_EQ(file.ErrorStatus(), XaxisNotAllocated);
}

TEST(AllocationFailure, StartsOneElementAboveTheLargestArray)
{
    clsQOR_File file;
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.DataBlock_NumberOfSamples(MostRealSamples);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.WriteDataBlockXaxisValue(MostRealSamples, 1.5F), Success);
    EXPECT_EQ(ReadX(file, MostRealSamples), (XaxisRead{Success, 1.5F}));

    file.DataBlock_NumberOfSamples(MostRealSamples + 1);
    EXPECT_EQ(file.ErrorStatus(), AllocationError);
}

TEST(AllocationFailure, ReleasesTracesThatWereThere)
{
    clsQOR_File file;
    Size(file, 2, 3);
    file.Trace_Label(1, u"lost");
    file.WriteTraceSampleValue(1, 1, 5, 0);

    file.DataBlock_NumberOfSamples(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(file.ErrorStatus(), AllocationError);

    Size(file, 2, 3);
    EXPECT_EQ(file.ErrorStatus(), NoError) << "the Data Block can be built anew";
    EXPECT_EQ(file.Trace_Label(1), u"");
    EXPECT_EQ(Read(file, 1, 1), Holds(0));
}

TEST(AllocationFailure, OfOneObjectLeavesTheStatusOfAnother)
{
    clsQOR_File first;
    clsQOR_File second;
    second.ErrorStatus(AxisNumberError);
    first.DataBlock_NumberOfTraces(1);
    first.DataBlock_NumberOfSamples(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(second.ErrorStatus(), AxisNumberError);
    EXPECT_EQ(second.ErrorStatus(), NoError);
    EXPECT_EQ(first.ErrorStatus(), AllocationError);
    ExpectEmptied(second);
}

} // namespace
} // namespace qor::test
