// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The indexed properties of a trace.
#include "component/DataBlockAccess.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();

// ---- texts -------------------------------------------------------------------------------------------------

struct TextProperty {
    const char* name;
    std::u16string (clsQOR_File::*get)(std::int32_t);
    void (clsQOR_File::*set)(std::int32_t, std::u16string_view);
};

const TextProperty TextProperties[] = {
    {"Label", &clsQOR_File::Trace_Label, &clsQOR_File::Trace_Label},
    {"DateAndTime", &clsQOR_File::Trace_DateAndTime, &clsQOR_File::Trace_DateAndTime},
    {"DegreesOfFreedom", &clsQOR_File::Trace_DegreesOfFreedom, &clsQOR_File::Trace_DegreesOfFreedom},
    {"MeasurementUnits", &clsQOR_File::Trace_MeasurementUnits, &clsQOR_File::Trace_MeasurementUnits},
};

class TraceText : public testing::TestWithParam<TextProperty>
{
protected:
    std::u16string Get(std::int32_t trace) { return (file.*GetParam().get)(trace); }
    void Set(std::int32_t trace, std::u16string_view text) { (file.*GetParam().set)(trace, text); }
    clsQOR_File file;
};

TEST_P(TraceText, IsKeptAsPassed)
{
    file.DataBlock_NumberOfTraces(2);
    const std::u16string texts[] = {u"1Z:3Z", u"", u"  not a date  ", {u'a', u'\0', u'b'}, {0xDC00, 0x00E4, 0x4E2D}};
    for (const std::u16string& text : texts) {
        Set(2, text);
        EXPECT_EQ(Get(2), text);
    }
}

TEST_P(TraceText, BelongsToItsTrace)
{
    file.DataBlock_NumberOfTraces(3);
    Set(1, u"one");
    Set(3, u"three");
    EXPECT_EQ(Get(1), u"one");
    EXPECT_EQ(Get(2), u"");
    EXPECT_EQ(Get(3), u"three");
}

TEST_P(TraceText, HasAPlaceOfItsOwnInTheTrace)
{
    file.DataBlock_NumberOfTraces(1);
    Set(1, u"this");
    ClassAdd_3().TraceZaxisLabel(1, u"Z");
    for (const TextProperty& other : TextProperties) {
        const bool same = other.name == std::string(GetParam().name);
        EXPECT_EQ((file.*other.get)(1), same ? u"this" : u"") << other.name;
    }
}

TEST_P(TraceText, NeedsNoSamples)
{
    file.DataBlock_NumberOfTraces(1);
    Set(1, u"text");
    EXPECT_EQ(Get(1), u"text");
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

TEST_P(TraceText, OfAnEmptyBlockIsEmptyAndReported)
{
    for (const std::int32_t trace : {1, 0, -1}) {
        EXPECT_EQ(Get(trace), u"");
        EXPECT_EQ(file.GetLastErrorString(), u"Error (13): Undefined error");
        EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
        Set(trace, u"lost");
        EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    }
}

TEST_P(TraceText, OfATraceThatIsNotThereIsEmptyAndReported)
{
    file.DataBlock_NumberOfTraces(2);
    Set(1, u"one");
    Set(2, u"two");
    for (const std::int32_t trace : {0, -1, 3, LargestInt32, SmallestInt32}) {
        EXPECT_EQ(Get(trace), u"") << trace;
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError) << trace;
        Set(trace, u"lost");
        EXPECT_EQ(file.GetLastErrorString(), u"Error (10): Trace Index error") << trace;
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError) << trace;
    }
    EXPECT_EQ(Get(1), u"one");
    EXPECT_EQ(Get(2), u"two");
}

INSTANTIATE_TEST_SUITE_P(TraceProperties, TraceText, testing::ValuesIn(TextProperties),
                         [](const auto& each) { return std::string(each.param.name); });

// ---- measurement type --------------------------------------------------------------------------------------

TEST(Trace_MeasurementType, KeepsDeclaredAndUndeclaredValuesOf16Bits)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    for (const std::int32_t value : {0, 4, 10, 35, 36, 1245, 32767, -1, -32768}) {
        file.Trace_MeasurementType(1, static_cast<DataBlock_MeasurementTypes>(value));
        EXPECT_EQ(file.Trace_MeasurementType(1), value);
        EXPECT_EQ(file.ErrorStatus(), NoError);
    }
}

TEST(Trace_MeasurementType, StaysForAValueBeyond16Bits)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.Trace_MeasurementType(1, DB_MeasurementIsFRF);
    for (const std::int32_t value : {32768, 40000, 65540, -32769, LargestInt32, SmallestInt32}) {
        file.Trace_MeasurementType(1, static_cast<DataBlock_MeasurementTypes>(value));
        EXPECT_EQ(file.Trace_MeasurementType(1), DB_MeasurementIsFRF) << value;
        EXPECT_EQ(file.ErrorStatus(), NoError) << value;
    }
}

TEST(Trace_MeasurementType, BelongsToItsTrace)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    file.Trace_MeasurementType(2, DB_MeasurementIsFRF);
    EXPECT_EQ(file.Trace_MeasurementType(1), DB_MeasurementIsUndefined);
    EXPECT_EQ(file.Trace_MeasurementType(2), DB_MeasurementIsFRF);
}

TEST(Trace_MeasurementType, OfAnEmptyBlockIsZeroAndReported)
{
    clsQOR_File file;
    EXPECT_EQ(file.Trace_MeasurementType(1), 0);
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    file.Trace_MeasurementType(1, DB_MeasurementIsFRF);
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
}

TEST(Trace_MeasurementType, OfATraceThatIsNotThereIsZeroAndReported)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.Trace_MeasurementType(1, DB_MeasurementIsFRF);
    for (const std::int32_t trace : {0, -1, 2}) {
        EXPECT_EQ(file.Trace_MeasurementType(trace), 0);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
        file.Trace_MeasurementType(trace, DB_MeasurementIsAPS);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
    }
    EXPECT_EQ(file.Trace_MeasurementType(1), DB_MeasurementIsFRF);
}

// ---- vector, scalar or tensor ------------------------------------------------------------------------------

TEST(Trace_DataSVT, KeepsScalarAndTensorAndTakesEverythingElseForVector)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    const std::pair<std::int32_t, std::int32_t> setAndRead[] = {
        {4, 4},
        {5, 5},
        {3, 3},
        {6, 3},
        {7, 3},
        {8, 3},
        {0, 3},
        {2, 3},
        {9, 3},
        {-4, 3},
        {65540, 3},
        {LargestInt32, 3},
        {SmallestInt32, 3},
    };
    for (const auto& [set, read] : setAndRead) {
        file.Trace_DataSVT(1, DataIsTensor);
        file.Trace_DataSVT(1, static_cast<SVTvalues>(set));
        EXPECT_EQ(file.Trace_DataSVT(1), read) << set;
    }
}

TEST(Trace_DataSVT, BelongsToItsTrace)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    file.Trace_DataSVT(2, DataIsScalar);
    EXPECT_EQ(file.Trace_DataSVT(1), DataIsVector);
    EXPECT_EQ(file.Trace_DataSVT(2), DataIsScalar);
}

TEST(Trace_DataSVT, OfAnEmptyBlockIsVectorAndReported)
{
    clsQOR_File file;
    EXPECT_EQ(file.Trace_DataSVT(1), DataIsVector);
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
    file.Trace_DataSVT(1, DataIsScalar);
    EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated);
}

TEST(Trace_DataSVT, OfATraceThatIsNotThereIsVectorAndReported)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    file.Trace_DataSVT(1, DataIsScalar);
    for (const std::int32_t trace : {0, -1, 2}) {
        EXPECT_EQ(file.Trace_DataSVT(trace), DataIsVector);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
        file.Trace_DataSVT(trace, DataIsTensor);
        EXPECT_EQ(file.ErrorStatus(), TraceIndexError);
    }
    EXPECT_EQ(file.Trace_DataSVT(1), DataIsScalar);
}

} // namespace
} // namespace qor::test
