// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Data Blocks whose files end at the last 32-bit position, or would pass it, and traces of 100 million samples.
#include "LargeDocument.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace qor::test {
namespace {

struct Kind {
    const char* name;
    DataBlock_DataFormatTypes format;
    DataBlock_XaxisSpacingTypes spacing;

    bool IsComplex() const { return format != DataFormat_Real; }
    bool HasXaxis() const { return spacing != XaxisSpacing_Uniform; }
    friend std::ostream& operator<<(std::ostream& stream, const Kind& of) { return stream << of.name; }
};

constexpr Kind Real{"Real", DataFormat_Real, XaxisSpacing_Uniform};
constexpr Kind Complex{"Complex", DataFormat_RealImaginary, XaxisSpacing_Uniform};
constexpr Kind RealWithXaxis{"RealWithXaxis", DataFormat_Real, XaxisSpacing_NonUniform};
constexpr Kind ComplexWithXaxis{"ComplexWithXaxis", DataFormat_RealImaginary, XaxisSpacing_NonUniform};

// Rows of values: the X axis, and two for each trace.
constexpr std::int32_t XaxisRow = 0;
constexpr std::int32_t RealRow(std::int32_t trace) { return 2 * trace; }
constexpr std::int32_t ImaginaryRow(std::int32_t trace) { return 2 * trace + 1; }

void Fill(std::vector<float>& values, std::int32_t row)
{
    std::int32_t place = 0;
    for (float& value : values) value = ValueAt(row, ++place);
}

// The number of the first value that is not the one that belongs there; 0 when there is none.
std::int32_t FirstStrange(const std::vector<float>& values, std::int32_t row)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i + 1);
        if (!SameBits(values[i], ValueAt(row, number))) return number;
    }
    return 0;
}

class DataBlockSizes : public LargeDocument
{
protected:
    void Size(const Kind& kind, std::int32_t traces, std::int32_t samples)
    {
        component.InitializeDataBlockStorage();
        component.DataBlock_TraceDataFormat(kind.format);
        component.DataBlock_XaxisSpacing(kind.spacing);
        component.DataBlock_NumberOfTraces(traces);
        component.DataBlock_NumberOfSamples(samples);
        ASSERT_EQ(component.ErrorStatus(), NoError);
    }

    void FillAll(const Kind& kind)
    {
        FileArrays arrays(component);
        std::vector<float> values(static_cast<std::size_t>(component.DataBlock_NumberOfSamples()));
        std::vector<float> imaginary(kind.IsComplex() ? values.size() : 0);
        if (kind.HasXaxis()) {
            Fill(values, XaxisRow);
            ASSERT_EQ(arrays.WriteDataBlockXaxisValues(values), Success);
        }
        for (std::int32_t trace = 1; trace <= component.DataBlock_NumberOfTraces(); ++trace) {
            Fill(values, RealRow(trace));
            Fill(imaginary, ImaginaryRow(trace));
            ASSERT_EQ(arrays.WriteTraceSamples(trace, values, imaginary), Success);
        }
    }

    void ExpectAll(const Kind& kind, std::int32_t traces, std::int32_t samples)
    {
        FileArrays arrays(component);
        ASSERT_EQ(component.DataBlock_TraceDataFormat(), kind.format);
        ASSERT_EQ(component.DataBlock_NumberOfTraces(), traces);
        ASSERT_EQ(component.DataBlock_NumberOfSamples(), samples);
        std::vector<float> values(static_cast<std::size_t>(samples));
        std::vector<float> imaginary(kind.IsComplex() ? values.size() : 0);
        if (kind.HasXaxis()) {
            ASSERT_EQ(arrays.ReadDataBlockXaxisValues(values), Success);
            EXPECT_EQ(FirstStrange(values, XaxisRow), 0);
        }
        for (std::int32_t trace = 1; trace <= traces; ++trace) {
            ASSERT_EQ(arrays.ReadTraceSamples(trace, values, imaginary), Success);
            ASSERT_EQ(FirstStrange(values, RealRow(trace)), 0) << trace;
            ASSERT_EQ(FirstStrange(imaginary, ImaginaryRow(trace)), 0) << trace;
        }
    }

    void ExpectSavedAndLoaded(const Kind& kind)
    {
        const std::int32_t traces = component.DataBlock_NumberOfTraces();
        const std::int32_t samples = component.DataBlock_NumberOfSamples();
        const std::u16string label = component.DataBlock_Label();
        ASSERT_EQ(component.OutputDataBlockFile(path), Success);
        component.InitializeDataBlockStorage();
        ASSERT_EQ(component.InputDataBlockFile(path), Success);
        EXPECT_EQ(component.ErrorStatus(), NoError);
        EXPECT_TRUE(component.DataBlock_Label() == label);
        ExpectAll(kind, traces, samples);
    }

    // The most samples of which a file of so many traces can hold, and a label that fills the file to the last byte.
    std::int32_t FillTheFile(const Kind& kind, std::int32_t traces)
    {
        Size(kind, traces, 2);
        component.DataBlock_Label(u"x");
        EXPECT_EQ(component.OutputDataBlockFile(path), Success);
        const std::int64_t perSample = std::int64_t{traces} * (kind.IsComplex() ? 8 : 4) + (kind.HasXaxis() ? 4 : 0);
        const std::int64_t left = LargestFile - FileSize();
        const auto samples = static_cast<std::int32_t>(2 + left / perSample);
        component.DataBlock_NumberOfSamples(samples);
        component.DataBlock_Label(std::u16string(static_cast<std::size_t>(1 + left % perSample / 2), u'x'));
        return samples;
    }

    void ExpectNothingToReadBack()
    {
        EXPECT_LE(FileSize(), LargestFile);
        EXPECT_EQ(component.ErrorStatus(), NoError) << "a write has no code";
        EXPECT_EQ(component.InputDataBlockFile(path), Failure);
        EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail);
    }
};

// ---- the end of a file -----------------------------------------------------------------------------------------

struct Filled {
    Kind kind;
    std::int32_t traces;

    friend std::ostream& operator<<(std::ostream& stream, const Filled& of)
    {
        return stream << of.kind << "In" << of.traces;
    }
};

class FilledFile : public DataBlockSizes, public testing::WithParamInterface<Filled>
{};

TEST_P(FilledFile, IsSavedAndLoadedToItsLastByte)
{
    const auto [kind, traces] = GetParam();
    FillTheFile(kind, traces);
    FillAll(kind);

    ExpectSavedAndLoaded(kind);
    EXPECT_EQ(FileSize(), LargestFile);

    // What was read from a file is saved with some values more, at the first time.
    EXPECT_EQ(component.OutputDataBlockFile(path), Failure);

    // The two bytes of one more character are those of the end marker.
    component.DataBlock_Label(component.DataBlock_Label() + u"x");
    EXPECT_EQ(component.OutputDataBlockFile(path), Failure);
    EXPECT_EQ(component.ErrorStatus(), NoError) << "a write has no code";
    EXPECT_EQ(FileSize(), LargestFile);
    EXPECT_EQ(component.InputDataBlockFile(path), Success);
    EXPECT_EQ(component.ErrorStatus(), InputFile_ReadFail) << "a file without its end marker says so";
}

TEST_P(FilledFile, WithOneSampleMoreFailsAndIsNotTakenForWhole)
{
    const auto [kind, traces] = GetParam();
    WriteBytes(*folder / "document", {1, 2, 3});
    const std::int32_t samples = FillTheFile(kind, traces);
    component.DataBlock_NumberOfSamples(samples + 1);

    EXPECT_EQ(component.OutputDataBlockFile(path), Failure);
    EXPECT_EQ(component.DataBlock_NumberOfSamples(), samples + 1) << "the document stays";
    ExpectNothingToReadBack();
}

INSTANTIATE_TEST_SUITE_P(Of, FilledFile,
                         testing::Values(Filled{Real, 1}, Filled{ComplexWithXaxis, 3}, Filled{Real, 32000}),
                         testing::PrintToStringParamName());

TEST_F(DataBlockSizes, AnArrayThatDoesNotFitIsNotBegun)
{
    Size(Complex, 1, 268'435'455); // the most that an array holds

    EXPECT_EQ(component.OutputDataBlockFile(path), Failure);
    EXPECT_LT(FileSize(), 1000);
    ExpectNothingToReadBack();
}

TEST_F(DataBlockSizes, AnArrayBeyond32BitsIsRefusedAndEmptiesTheDocument)
{
    Size(Complex, 1, 2);

    component.DataBlock_NumberOfSamples(268'435'456);

    EXPECT_EQ(component.ErrorStatus(), AllocationError);
    EXPECT_EQ(component.DataBlock_NumberOfSamples(), 0);
    EXPECT_EQ(component.DataBlock_NumberOfTraces(), 0);
}

// ---- 100 million samples ---------------------------------------------------------------------------------------

class LongTrace : public DataBlockSizes, public testing::WithParamInterface<Kind>
{};

TEST_P(LongTrace, Of100MillionSamplesIsSavedAndLoaded)
{
    Size(GetParam(), 1, 100'000'000);
    FillAll(GetParam());

    ExpectSavedAndLoaded(GetParam());
    float real = 0;
    float imaginary = 0;
    EXPECT_EQ(component.ReadTraceSampleValue(1, 100'000'000, real, imaginary), Success);
    EXPECT_TRUE(SameBits(real, ValueAt(RealRow(1), 100'000'000)));
    EXPECT_EQ(component.ReadTraceSampleValue(1, 100'000'001, real, imaginary), Failure);
    EXPECT_EQ(component.ErrorStatus(), SampleIndexError);
}

INSTANTIATE_TEST_SUITE_P(Of, LongTrace, testing::Values(Real, Complex, RealWithXaxis, ComplexWithXaxis),
                         testing::PrintToStringParamName());

} // namespace
} // namespace qor::test
