// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The error status: codes, their texts, read-and-clear, the status that the added classes share, the posted error.
#include "component/DataBlockAccess.h"
#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

struct CodeAndText {
    std::int32_t code;
    std::u16string_view text;
};

constexpr CodeAndText PublishedTexts[] = {
    {1, u"Error (1): Undefined error"},
    {2, u"Error (2): Output file general error"},
    {3, u"Error (3): Output file exists error"},
    {4, u"Error (4): Output file open error"},
    {5, u"Error (5): Output file write error"},
    {6, u"Error (6): Output file general error"},
    {7, u"Error (7): Output file does not exist error"},
    {8, u"Error (8): Output file open error"},
    {9, u"Error (9): Output file read error"},
    {10, u"Error (10): Trace Index error"},
    {11, u"Error (11): Sample Index error"},
    {12, u"Error (12): Undefined error"},
    {13, u"Error (13): Undefined error"},
    {14, u"Error (14): Axis Number error"},
    {15, u"Error (15): Invalid Center Point error"},
    {16, u"Error (16): Undefined error"},
    {17, u"Error (17): Undefined error"},
    {18, u"Error (18): Undefined error"},
    {19, u"Error (19): Undefined error"},
    {20, u"Error (20): Shape Index error"},
    {21, u"Error (21): DOF Index error"},
    {22, u"Error (22): Undefined error"},
    {23, u"Error (23): Undefined error"},
    {24, u"Error (24): Undefined error"},
    {25, u"Error (25): Undefined error"},
    {29, u"Error (29): Undefined error"},
    {30, u"Error (30): VertexPoint Index error"},
    {31, u"Error (31): Undefined error"},
    {32, u"Error (32): EdgeLine Index error"},
    {33, u"Error (33): Undefined error"},
    {34, u"Error (34): SurfaceTriangle Index error"},
    {35, u"Error (35): Undefined error"},
    {36, u"Error (36): Undefined error"},
    {37, u"Error (37): Undefined error"},
    {38, u"Error (38): Undefined error"},
    {1245, u"Error (1245): Undefined error"},
    {2147483647, u"Error (2147483647): Undefined error"},
    {-1, u"Error (-1): Undefined error"},
    {-10, u"Error (-10): Undefined error"},
    {std::numeric_limits<std::int32_t>::min(), u"Error (-2147483648): Undefined error"},
};

// Leaves a trace index error as the thread's shared status, and one trace.
void LeaveSharedTraceIndexError(clsQOR_File& file)
{
    file.DataBlock_NumberOfTraces(1);
    ClassAdd_1().TraceLinPower(0, MeasurementIsPower);
}

class EveryErrorCode : public testing::TestWithParam<CodeAndText>
{};

TEST_P(EveryErrorCode, BuildsItsText)
{
    clsQOR_File file;
    file.ErrorStatus(static_cast<ErrorStatusTypes>(GetParam().code));
    EXPECT_EQ(file.GetLastErrorString(), GetParam().text);
}

TEST_P(EveryErrorCode, IsReadBack)
{
    clsQOR_File file;
    file.ErrorStatus(static_cast<ErrorStatusTypes>(GetParam().code));
    EXPECT_EQ(file.ErrorStatus(), GetParam().code);
}

TEST_P(EveryErrorCode, IsPosted)
{
    clsQOR_File file;
    platform::LastPostedError() = {};
    file.ErrorStatus(static_cast<ErrorStatusTypes>(GetParam().code));
    EXPECT_EQ(platform::LastPostedError().number, 0x8004000AU);
    EXPECT_EQ(platform::LastPostedError().source, u"QORshell");
    EXPECT_EQ(platform::LastPostedError().description, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(ErrorStatus, EveryErrorCode, testing::ValuesIn(PublishedTexts), [](const auto& each) {
    const std::int64_t code = each.param.code;
    return (code < 0 ? "Minus" : "") + std::to_string(code < 0 ? -code : code);
});

TEST(ErrorStatus, OfANewObjectIsNoErrorWithoutText)
{
    clsQOR_File file;
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.GetLastErrorString(), u"");
}

TEST(ErrorStatus, IsClearedByReadingIt)
{
    clsQOR_File file;
    file.ErrorStatus(SampleIndexError);
    EXPECT_EQ(file.ErrorStatus(), SampleIndexError);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST(ErrorStatus, ReadingItKeepsTheText)
{
    clsQOR_File file;
    file.ErrorStatus(SampleIndexError);
    file.ErrorStatus();
    EXPECT_EQ(file.GetLastErrorString(), u"Error (11): Sample Index error");
}

TEST(ErrorStatus, ReadingTheTextKeepsTheStatus)
{
    clsQOR_File file;
    file.ErrorStatus(SampleIndexError);
    file.GetLastErrorString();
    EXPECT_EQ(file.ErrorStatus(), SampleIndexError);
}

TEST(ErrorStatus, SetToNoErrorClearsTheCodeAndKeepsTheText)
{
    clsQOR_File file;
    file.ErrorStatus(TraceIndexError);
    file.ErrorStatus(NoError);
    EXPECT_EQ(file.ErrorStatus(), NoError);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (10): Trace Index error");
}

TEST(ErrorStatus, SetToNoErrorPostsNothing)
{
    clsQOR_File file;
    platform::LastPostedError() = {7, u"earlier", u"still there"};
    file.ErrorStatus(NoError);
    EXPECT_EQ(platform::LastPostedError().number, 7U);
    EXPECT_EQ(platform::LastPostedError().description, u"still there");
}

TEST(ErrorStatus, ALaterErrorReplacesCodeTextAndPost)
{
    clsQOR_File file;
    file.ErrorStatus(TraceIndexError);
    file.ErrorStatus(AxisNumberError);
    EXPECT_EQ(file.GetLastErrorString(), u"Error (14): Axis Number error");
    EXPECT_EQ(platform::LastPostedError().description, u"Error (14): Axis Number error");
    EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
}

TEST(ErrorStatus, BelongsToTheObject)
{
    clsQOR_File first;
    clsQOR_File second;
    first.ErrorStatus(TraceIndexError);
    second.ErrorStatus(SampleIndexError);
    EXPECT_EQ(first.GetLastErrorString(), u"Error (10): Trace Index error");
    EXPECT_EQ(second.GetLastErrorString(), u"Error (11): Sample Index error");
    EXPECT_EQ(first.ErrorStatus(), TraceIndexError);
    EXPECT_EQ(first.ErrorStatus(), NoError);
    EXPECT_EQ(second.ErrorStatus(), SampleIndexError);
}

TEST(ErrorStatus, AFailingMemberReportsTextAndPostToo)
{
    clsQOR_File file;
    platform::LastPostedError() = {};
    Size(file, 2, 3);
    EXPECT_EQ(Read(file, 3, 1), Refused());
    EXPECT_EQ(file.GetLastErrorString(), u"Error (10): Trace Index error");
    EXPECT_EQ(platform::LastPostedError().number, 0x8004000AU);
    EXPECT_EQ(platform::LastPostedError().description, u"Error (10): Trace Index error");
}

TEST(ErrorStatus, ASucceedingMemberLeavesAnEarlierError)
{
    clsQOR_File file;
    Size(file, 1, 1);
    file.ErrorStatus(TraceIndexError);
    EXPECT_EQ(Read(file, 1, 1), Holds(0));
    EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
}

TEST(ErrorStatus, ASizeSetterClearsTheCodeAndKeepsTheText)
{
    clsQOR_File file;
    const std::function<void()> setters[] = {
        [&] { file.DataBlock_NumberOfTraces(1); },
        [&] { file.DataBlock_NumberOfSamples(1); },
        [&] { file.DataBlock_TraceDataFormat(DataFormat_Real); },
        [&] { file.DataBlock_XaxisSpacing(XaxisSpacing_Uniform); },
    };
    for (const auto& set : setters) {
        file.ErrorStatus(TraceIndexError);
        set();
        EXPECT_EQ(file.ErrorStatus(), NoError);
        EXPECT_EQ(file.GetLastErrorString(), u"Error (10): Trace Index error");
    }
}

TEST(ErrorStatus, ASetterWithoutReallocationLeavesTheCode)
{
    clsQOR_File file;
    file.ErrorStatus(TraceIndexError);
    file.DataBlock_XaxisStart(1);
    file.DataBlock_XaxisIncrement(1);
    file.DataBlock_Label(u"label");
    EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
}

TEST(ErrorStatus, InitialisationLeavesCodeAndText)
{
    clsQOR_File file;
    file.ErrorStatus(TraceIndexError);
    file.Initialize();
    file.InitializeDataBlockStorage();
    file.InitializeDataBlockData();
    EXPECT_EQ(file.GetLastErrorString(), u"Error (10): Trace Index error");
    EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
}

// Nothing clears a thread's shared status, so each of the tests below runs on a thread of its own.

TEST(SharedErrorStatus, OfAnAddedClassIsReportedAgainAndAgain)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        LeaveSharedTraceIndexError(file);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
    });
}

TEST(SharedErrorStatus, IsReportedByEveryObjectOfTheThread)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File first;
        clsQOR_File second;
        LeaveSharedTraceIndexError(first);
        EXPECT_EQ(first.ErrorStatus(), TraceIndexError);
        EXPECT_EQ(second.ErrorStatus(), TraceIndexError);
    });
}

TEST(SharedErrorStatus, StandsBehindTheObjectsOwn)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        LeaveSharedTraceIndexError(file);
        file.ErrorStatus(AxisNumberError);
        EXPECT_EQ(file.ErrorStatus(), AxisNumberError);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
    });
}

TEST(SharedErrorStatus, SetToNoErrorOnAnObjectLeavesIt)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        LeaveSharedTraceIndexError(file);
        file.ErrorStatus(NoError);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
    });
}

TEST(SharedErrorStatus, BuildsNoTextAndPostsNothing)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        LeaveSharedTraceIndexError(file);
        file.ErrorStatus();
        EXPECT_EQ(file.GetLastErrorString(), u"");
        EXPECT_EQ(platform::LastPostedError().number, 0U);
    });
}

TEST(SharedErrorStatus, SurvivesInitialisationAndNewObjects)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File first;
        LeaveSharedTraceIndexError(first);
        first.Initialize();
        clsQOR_File second;
        EXPECT_EQ(second.ErrorStatus(), TraceIndexError);
    });
}

TEST(SharedErrorStatus, IsReplacedByTheNextFailureOfAnAddedClass)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        LeaveSharedTraceIndexError(file);
        file.DataBlock_NumberOfTraces(0);
        ClassAdd_3().TraceZaxisLabel(1);
        EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    });
}

TEST(SharedErrorStatus, StaysWhenAnAddedClassSucceeds)
{
    OnAThreadOfItsOwn([] {
        clsQOR_File file;
        LeaveSharedTraceIndexError(file);
        ClassAdd_1().TraceLinPower(1, MeasurementIsPower);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
    });
}

TEST(Version, IsOnePointZeroFiveAsAFloat) { EXPECT_EQ(Bits(clsQOR_File().DLLversion()), 0x3F866666U); }

} // namespace
} // namespace qor::test
