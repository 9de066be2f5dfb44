// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Any document that is written and read again is the same, but for what a file does not carry; and written once
// more it gives the same bytes.
#include "datablock/Save_DataBlock.h"
#include "support/DataBlockFile.h"
#include "support/SameDocument.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

namespace qor::test {
namespace {

// Any UTF-16 units, paired or not, and now and then the blanks that a file leaves out.
std::u16string AnyText()
{
    const auto units = *rc::gen::container<std::vector<std::uint16_t>>(rc::gen::weightedOneOf<std::uint16_t>(
        {{3, rc::gen::arbitrary<std::uint16_t>()}, {1, rc::gen::just<std::uint16_t>(u' ')}}));
    return {units.begin(), units.end()};
}

float AnyFloat()
{
    const auto bits = *rc::gen::weightedOneOf<std::uint32_t>(
        {{4, rc::gen::cast<std::uint32_t>(rc::gen::arbitrary<std::uint64_t>())},
         {1, rc::gen::element<std::uint32_t>(0u, 0x80000000u, 0x7F800000u, 0xFF800000u, 0x7FA00001u, 0xFFFFFFFFu)}});
    return std::bit_cast<float>(bits);
}

std::int16_t AnyInt16() { return *rc::gen::arbitrary<std::int16_t>(); }
std::uint32_t AnyWord() { return *rc::gen::cast<std::uint32_t>(rc::gen::arbitrary<std::uint64_t>()); }

// Any values where the default marks a place that a file carries: 16 bits wide where that is all it has.
template <std::size_t Size>
void FillKept(std::array<std::uint32_t, Size>& kept, std::initializer_list<int> wide, std::initializer_list<int> narrow)
{
    for (const int tag : wide) kept.at(static_cast<std::size_t>(tag)) = AnyWord();
    for (const int tag : narrow) kept.at(static_cast<std::size_t>(tag)) = static_cast<std::uint16_t>(AnyInt16());
}

void FillArray(DataBlock& block, SampleArray<float>& array)
{
    RC_ASSERT(array.Resize(block.Memory, block.NumberOfSamples));
    for (float& value : array.Values()) value = AnyFloat();
}
void FillArray(DataBlock& block, SampleArray<ComplexSample>& array)
{
    RC_ASSERT(array.Resize(block.Memory, block.NumberOfSamples));
    for (ComplexSample& value : array.Values()) value = {AnyFloat(), AnyFloat()};
}

void FillTrace(DataBlock& block, Trace& trace)
{
    trace.Label = AnyText();
    trace.DateAndTime = AnyText();
    trace.DegreesOfFreedom = AnyText();
    trace.MeasurementUnits = AnyText();
    trace.ZaxisLabel = AnyText();
    trace.KeptText1 = AnyText();
    trace.KeptText2 = AnyText();
    trace.MeasurementType = AnyInt16();
    trace.DataSVT = AnyInt16();
    trace.LinPower = AnyInt16();
    for (std::uint32_t& value : trace.KeptArray) value = AnyWord();
    FillKept(trace.Kept, {25, 33, 34, 35, 36, 37, 38, 39, 40}, {26, 22, 31, 45});
    if (block.DataFormat == ComplexFormat) {
        FillArray(block, trace.ComplexSamples);
    } else {
        FillArray(block, trace.RealSamples);
    }
    if (*rc::gen::arbitrary<bool>()) FillArray(block, trace.SecondComplexSamples);
}

void FillAny(DataBlock& block)
{
    block.Label = AnyText();
    block.Notes = u"N" + AnyText(); // see BlankNotesComeBackAsTheDefault
    block.XaxisUnits = AnyText();
    block.KeptText = AnyText();
    block.NumberOfTraces = *rc::gen::inRange<std::int16_t>(0, 5);
    block.NumberOfSamples = *rc::gen::inRange(2, 20);
    block.DataFormat = *rc::gen::element<std::int16_t>(1, 1, 2, 2, 3, -1);
    block.XaxisSpacing = *rc::gen::element<std::int16_t>(1, 1, 2, 3, 0);
    if (block.XaxisSpacing == UniformSpacing) {
        block.XaxisStart = AnyFloat();
        block.XaxisIncrement = AnyFloat();
    } else {
        FillArray(block, block.Xaxis);
    }
    block.PeakRMS = AnyInt16();
    block.XaxisUnitsCode = AnyInt16();
    block.RPM = AnyFloat();
    block.ExponentialWindowDampingInHz = AnyFloat();
    block.DataBlockFromFile = *rc::gen::arbitrary<bool>();
    FillKept(block.Kept, {23, 30, 67, 68, 14, 15, 16, 17, 18, 48, 51, 52, 54, 55, 56, 60, 94, 95},
             {19, 22, 24, 25, 26, 27, 28, 29, 32, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 49, 50, 53, 57, 58,
              61, 62, 63, 64, 73, 74, 75, 77, 78, 79, 80, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91, 92, 96, 97});
    block.Traces.Resize(block.NumberOfTraces);
    for (std::int32_t number = 1; number <= block.NumberOfTraces; ++number) {
        FillTrace(block, block.Traces.Edit(number));
    }
}

void TrimBlanks(std::u16string& text)
{
    while (!text.empty() && text.back() == u' ') text.pop_back();
    while (!text.empty() && text.front() == u' ') text.erase(0, 1);
}

// What reading the written document gives: a file carries no blanks around texts, and leaves some values out.
void BringToWhatAFileCarries(DataBlock& block)
{
    const DataBlock blank;
    const auto bringBack = [&](int tag) {
        block.Kept.at(static_cast<std::size_t>(tag)) = blank.Kept.at(static_cast<std::size_t>(tag));
    };
    TrimBlanks(block.Label);
    TrimBlanks(block.Notes);
    TrimBlanks(block.XaxisUnits);
    TrimBlanks(block.KeptText);
    if (block.KeptText.empty()) {
        for (int tag = 60; tag <= 64; ++tag) bringBack(tag);
    }
    if (!block.DataBlockFromFile) {
        bringBack(67);
        bringBack(68);
    }
    if (block.RPM == 0) block.RPM = 0; // no -0
    if (block.ExponentialWindowDampingInHz == 0) block.ExponentialWindowDampingInHz = 0;
    block.DataBlockFromFile = true;
    for (std::int32_t number = 1; number <= block.NumberOfTraces; ++number) {
        Trace& trace = block.Traces.Edit(number);
        for (auto text : {&Trace::Label, &Trace::DateAndTime, &Trace::DegreesOfFreedom, &Trace::MeasurementUnits,
                          &Trace::ZaxisLabel, &Trace::KeptText1, &Trace::KeptText2}) {
            TrimBlanks(trace.*text);
        }
    }
}

TEST(RoundTrip, BlankNotesComeBackAsTheDefault)
{
    DataBlock block;
    block.Notes = u" ";
    MemoryFile written;
    ASSERT_EQ(SaveDataBlock(written, block).status, Success);

    EXPECT_EQ(LoadFrom(written).block.Notes, u"Data Block history");
}

RC_GTEST_PROP(RoundTrip, AnyDocumentIsReadAsItWasWrittenAndWrittenAgainTheSame, ())
{
    DataBlock block;
    FillAny(block);
    const bool fromFile = block.DataBlockFromFile;
    MemoryFile written;
    RC_ASSERT(SaveDataBlock(written, block).status == Success);

    Loaded loaded = LoadFrom(written);

    RC_ASSERT(loaded.status == Success);
    RC_ASSERT(loaded.error == NoError);
    BringToWhatAFileCarries(block);
    RC_ASSERT(Difference(loaded.block, block) == "");
    loaded.block.DataBlockFromFile = fromFile;
    MemoryFile again;
    RC_ASSERT(SaveDataBlock(again, loaded.block).status == Success);
    RC_ASSERT(again.Content() == written.Content());
}

// The four fields that only a document from a file has: kept values A and B, each twice.
RC_GTEST_PROP(RoundTrip, WrittenAfterAReadAFileGrowsByTheReferenceValuesOnly, ())
{
    DataBlock block;
    FillAny(block);
    block.DataBlockFromFile = false;
    MemoryFile written;
    RC_ASSERT(SaveDataBlock(written, block).status == Success);

    const Loaded loaded = LoadFrom(written);
    MemoryFile again;
    RC_ASSERT(SaveDataBlock(again, loaded.block).status == Success);

    RC_ASSERT(again.Content().size() == written.Content().size() + 4 * 6);
}

} // namespace
} // namespace qor::test
