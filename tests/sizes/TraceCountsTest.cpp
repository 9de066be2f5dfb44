// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// As many traces as the interface makes, as a file can bring, and more.
#include "LargeDocument.h"

#include "support/DataBlockFile.h"

#include <array>

namespace qor::test {
namespace {

class TraceCounts : public LargeDocument
{
protected:
    std::u16string LabelOf(std::int32_t trace)
    {
        const std::string digits = std::to_string(trace);
        return u"Trace " + std::u16string(digits.begin(), digits.end());
    }

    void Fill(std::int32_t first, std::int32_t last)
    {
        FileArrays arrays(component);
        for (std::int32_t trace = first; trace <= last; ++trace) {
            component.Trace_Label(trace, LabelOf(trace));
            const std::array values = {ValueAt(trace, 1), ValueAt(trace, 2)};
            ASSERT_EQ(arrays.WriteTraceSamples(trace, values, {}), Success) << trace;
        }
    }

    void ExpectTraces(std::int32_t count)
    {
        ASSERT_EQ(component.DataBlock_NumberOfTraces(), count);
        FileArrays arrays(component);
        for (std::int32_t trace = 1; trace <= count; ++trace) {
            std::array<float, 2> values{};
            ASSERT_EQ(arrays.ReadTraceSamples(trace, values, {}), Success) << trace;
            ASSERT_TRUE(SameBits(values[0], ValueAt(trace, 1)) && SameBits(values[1], ValueAt(trace, 2))) << trace;
            ASSERT_EQ(component.Trace_Label(trace), LabelOf(trace));
        }
    }

    Bytes FileOfTraces(std::int32_t count)
    {
        DataBlockFile file = SizedFile(count, 2);
        file.Field(11);
        for (std::int32_t trace = 1; trace <= count; ++trace) {
            file.Nested(TraceBytes()
                            .Field(2, Text(LabelOf(trace)))
                            .Field(17, Float(ValueAt(trace, 1)) + Float(ValueAt(trace, 2))));
        }
        return file.Field(12).Build();
    }
};

TEST_F(TraceCounts, TheMostThatTheInterfaceMakesAreSavedAndLoaded)
{
    component.DataBlock_NumberOfSamples(2);
    component.DataBlock_NumberOfTraces(32001);
    ASSERT_EQ(component.DataBlock_NumberOfTraces(), 32000);
    Fill(1, 32000);

    ASSERT_EQ(component.OutputDataBlockFile(path), Success);
    component.InitializeDataBlockStorage();
    ASSERT_EQ(component.InputDataBlockFile(path), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    ExpectTraces(32000);
}

TEST_F(TraceCounts, TheMostThatAFileBringsAreLoadedAndSavedAgain)
{
    WriteBytes(*folder / "document", FileOfTraces(32767));

    ASSERT_EQ(component.InputDataBlockFile(path), Success);
    ASSERT_EQ(component.OutputDataBlockFile(path), Success);
    component.InitializeDataBlockStorage();
    ASSERT_EQ(component.InputDataBlockFile(path), Success);

    EXPECT_EQ(component.ErrorStatus(), NoError);
    ExpectTraces(32767);
    EXPECT_EQ(component.Trace_Label(32768), u"");
    EXPECT_EQ(component.ErrorStatus(), TraceIndexError);
}

TEST_F(TraceCounts, TracesBeyondTheSettersLimitAreLostOnceItIsCalled)
{
    WriteBytes(*folder / "document", FileOfTraces(32767));
    ASSERT_EQ(component.InputDataBlockFile(path), Success);

    component.DataBlock_NumberOfTraces(component.DataBlock_NumberOfTraces());

    ExpectTraces(32000);
}

TEST_F(TraceCounts, ACountOf16BitsAndMoreIsNoCount)
{
    WriteBytes(*folder / "document", FileOfTraces(32768));

    EXPECT_EQ(component.InputDataBlockFile(path), Failure);
    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(component.DataBlock_NumberOfTraces(), -32768) << "the field keeps what was read";
    EXPECT_EQ(component.Trace_Label(1), u"");
}

} // namespace
} // namespace qor::test
