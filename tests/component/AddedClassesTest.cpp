// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The properties of the added classes. Where a test leaves a shared error status, it runs on a thread of its own.
#include "component/DataBlockAccess.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace qor::test {
namespace {

constexpr std::int32_t LargestInt32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SmallestInt32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Fits16Bits[] = {0, 1, 2, 1247, 32767, -1, -32768};
constexpr std::int32_t Beyond16Bits[] = {32768, 40000, 65537, -32769, LargestInt32, SmallestInt32};

// ---- TraceLinPower -------------------------------------------------------------------------------------------

TEST(TraceLinPower, KeepsWhatFits16Bits)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    for (const std::int32_t value : Fits16Bits) {
        ClassAdd_1().TraceLinPower(2, static_cast<TraceLinPowerFlags>(value));
        EXPECT_EQ(ClassAdd_1().TraceLinPower(2), value);
        EXPECT_EQ(ClassAdd_1().TraceLinPower(1), 0);
    }
}

TEST(TraceLinPower, StaysForAValueBeyond16Bits)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(1);
    ClassAdd_1().TraceLinPower(1, MeasurementIsPower);
    for (const std::int32_t value : Beyond16Bits) {
        ClassAdd_1().TraceLinPower(1, static_cast<TraceLinPowerFlags>(value));
        EXPECT_EQ(ClassAdd_1().TraceLinPower(1), MeasurementIsPower) << value;
        EXPECT_EQ(file.ErrorStatus(), NoError) << value;
    }
}

// ---- TraceZaxisLabel -----------------------------------------------------------------------------------------

TEST(TraceZaxisLabel, IsKeptAsPassedForItsTrace)
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    const std::u16string texts[] = {u"Z", u"  ", {u'a', u'\0', 0xD800}, u""};
    for (const std::u16string& text : texts) {
        ClassAdd_3().TraceZaxisLabel(2, text);
        EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(2), text);
        EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(1), u"");
        EXPECT_EQ(file.Trace_Label(2), u"");
    }
}

// ---- failed checks of both -----------------------------------------------------------------------------------

struct IndexedMember {
    const char* name;
    void (*call)(std::int32_t traceNumber);
};

const IndexedMember IndexedMembers[] = {
    {"TraceLinPowerSet", [](std::int32_t trace) { ClassAdd_1().TraceLinPower(trace, MeasurementIsPower); }},
    {"TraceLinPowerGet", [](std::int32_t trace) { EXPECT_EQ(ClassAdd_1().TraceLinPower(trace), 0); }},
    {"TraceZaxisLabelSet", [](std::int32_t trace) { ClassAdd_3().TraceZaxisLabel(trace, u"lost"); }},
    {"TraceZaxisLabelGet", [](std::int32_t trace) { EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(trace), u""); }},
};

class AddedIndexedMember : public testing::TestWithParam<IndexedMember>
{};

TEST_P(AddedIndexedMember, LeavesTheCodeOfAnEmptyBlock)
{
    for (const std::int32_t trace : {1, 0, -1}) {
        OnAThreadOfItsOwn([&] {
            clsQOR_File file;
            GetParam().call(trace);
            EXPECT_EQ(file.ErrorStatus(), TraceDataNotAllocated) << trace;
            EXPECT_EQ(file.GetLastErrorString(), u"") << trace;
        });
    }
}

TEST_P(AddedIndexedMember, LeavesTheCodeOfATraceThatIsNotThere)
{
    for (const std::int32_t trace : {0, -1, 3, LargestInt32, SmallestInt32}) {
        OnAThreadOfItsOwn([&] {
            clsQOR_File file;
            file.DataBlock_NumberOfTraces(2);
            GetParam().call(trace);
            EXPECT_EQ(file.ErrorStatus(), TraceIndexError) << trace;
            EXPECT_EQ(file.GetLastErrorString(), u"") << trace;
        });
    }
}

TEST_P(AddedIndexedMember, ChangesNoTraceWhenItsCheckFails)
{
    OnAThreadOfItsOwn([&] {
        clsQOR_File file;
        file.DataBlock_NumberOfTraces(2);
        for (const std::int32_t trace : {0, 3}) GetParam().call(trace);
        for (const std::int32_t trace : {1, 2}) {
            EXPECT_EQ(ClassAdd_1().TraceLinPower(trace), MeasurementIsLinear);
            EXPECT_EQ(ClassAdd_3().TraceZaxisLabel(trace), u"");
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AddedClasses, AddedIndexedMember, testing::ValuesIn(IndexedMembers),
                         [](const auto& each) { return std::string(each.param.name); });

// ---- header properties ---------------------------------------------------------------------------------------

TEST(DataBlockPeakRMS, KeepsWhatFits16Bits)
{
    clsQOR_File file;
    EXPECT_EQ(ClassAdd_2().DataBlockPeakRMS(), DisplayPeak);
    for (const std::int32_t value : Fits16Bits) {
        ClassAdd_2().DataBlockPeakRMS(static_cast<DataBlockPeakRMSFlags>(value));
        EXPECT_EQ(ClassAdd_2().DataBlockPeakRMS(), value);
    }
}

TEST(DataBlockPeakRMS, StaysForAValueBeyond16Bits)
{
    clsQOR_File file;
    ClassAdd_2().DataBlockPeakRMS(DisplayRMS);
    for (const std::int32_t value : Beyond16Bits) {
        ClassAdd_2().DataBlockPeakRMS(static_cast<DataBlockPeakRMSFlags>(value));
        EXPECT_EQ(ClassAdd_2().DataBlockPeakRMS(), DisplayRMS) << value;
    }
}

TEST(XaxisUnits, KeepsWhatFits16Bits)
{
    clsQOR_File file;
    EXPECT_EQ(ClassAdd_5().XaxisUnits(), NullX_AxisLabel);
    for (const std::int32_t value : Fits16Bits) {
        ClassAdd_5().XaxisUnits(static_cast<XaxisUnitsAre>(value));
        EXPECT_EQ(ClassAdd_5().XaxisUnits(), value);
    }
}

TEST(XaxisUnits, StaysForAValueBeyond16Bits)
{
    clsQOR_File file;
    ClassAdd_5().XaxisUnits(XAxisIsOrder);
    for (const std::int32_t value : Beyond16Bits) {
        ClassAdd_5().XaxisUnits(static_cast<XaxisUnitsAre>(value));
        EXPECT_EQ(ClassAdd_5().XaxisUnits(), XAxisIsOrder) << value;
    }
}

TEST(DataBlockRPM, AndWindowDampingKeepAnyFloatEachInItsPlace)
{
    clsQOR_File file;
    for (const float value : {1800.5F, -1.0F, -0.0F, 1e-45F, std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN()}) {
        ClassAdd_5().DataBlockRPM(value);
        ClassAdd_5().DataBlockExponentialWindowDampingInHz(-value);
        EXPECT_EQ(Bits(ClassAdd_5().DataBlockRPM()), Bits(value));
        EXPECT_EQ(Bits(ClassAdd_5().DataBlockExponentialWindowDampingInHz()), Bits(-value));
    }
}

TEST(AddedHeaderProperties, AreApartFromTheDataBlocksOwn)
{
    clsQOR_File file;
    ClassAdd_5().XaxisUnits(XAxisIsHz);
    ClassAdd_5().DataBlockRPM(60);
    ClassAdd_2().DataBlockPeakRMS(DisplayPkToPk);
    EXPECT_EQ(file.DataBlock_XaxisUnits(), u"");
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform);
    EXPECT_EQ(file.ErrorStatus(), NoError);
}

// ---- what is carried from a loaded file ----------------------------------------------------------------------

// Fields that a save writes only while the Data Block counts as loaded: tag, then the acoustic reference value,
// 2e-5 under 67 and 72, 1e-12 under 68 and 93.
const std::vector<std::vector<std::uint8_t>> CarriedFields = {
    {67, 0, 0xAC, 0xC5, 0xA7, 0x37},
    {72, 0, 0xAC, 0xC5, 0xA7, 0x37},
    {68, 0, 0xCC, 0xBC, 0x8C, 0x2B},
    {93, 0, 0xCC, 0xBC, 0x8C, 0x2B},
};

class CarriedFieldsOfALoadedFile : public testing::Test
{
protected:
    CarriedFieldsOfALoadedFile()
    {
        Size(file, 2, 3);
        const std::u16string path = Utf16(folder / "loaded");
        if (file.OutputDataBlockFile(path) != Success || file.InputDataBlockFile(path) != Success) {
            throw std::runtime_error("no file to start from");
        }
    }

    // How many of the carried fields a save writes.
    std::ptrdiff_t Saved()
    {
        const std::filesystem::path path = folder / "saved";
        EXPECT_EQ(file.OutputDataBlockFile(Utf16(path)), Success);
        const std::vector<std::uint8_t> bytes = BytesOf(path);
        return std::count_if(CarriedFields.begin(), CarriedFields.end(), [&](const auto& field) {
            return std::search(bytes.begin(), bytes.end(), field.begin(), field.end()) != bytes.end();
        });
    }

    TemporaryFolder folder;
    clsQOR_File file;
};

TEST_F(CarriedFieldsOfALoadedFile, AreSavedAgain) { EXPECT_EQ(Saved(), 4); }

TEST_F(CarriedFieldsOfALoadedFile, AreLeftOutAfterTheFirstSave)
{
    Saved();
    EXPECT_EQ(Saved(), 0);
}

TEST_F(CarriedFieldsOfALoadedFile, AreLeftOutOnceTraceLinPowerWasSet)
{
    ClassAdd_1().TraceLinPower(1, MeasurementIsPower);
    EXPECT_EQ(Saved(), 0);
}

TEST_F(CarriedFieldsOfALoadedFile, AreLeftOutAlsoWhenTraceLinPowerCouldNotStoreItsValue)
{
    ClassAdd_1().TraceLinPower(1, static_cast<TraceLinPowerFlags>(40000));
    EXPECT_EQ(Saved(), 0);
}

TEST(CarriedFieldsAfterAFailedCheck, AreLeftOutToo)
{
    OnAThreadOfItsOwn([] {
        const TemporaryFolder folder;
        clsQOR_File file;
        Size(file, 1, 2);
        const std::filesystem::path path = folder / "file";
        ASSERT_EQ(file.OutputDataBlockFile(Utf16(path)), Success);
        const auto unloaded = BytesOf(path);
        ASSERT_EQ(file.InputDataBlockFile(Utf16(path)), Success);

        ClassAdd_1().TraceLinPower(0, MeasurementIsPower);

        ASSERT_EQ(file.OutputDataBlockFile(Utf16(path)), Success);
        EXPECT_EQ(BytesOf(path).size(), unloaded.size());
    });
}

TEST_F(CarriedFieldsOfALoadedFile, StayWhenTraceLinPowerIsOnlyRead)
{
    EXPECT_EQ(ClassAdd_1().TraceLinPower(1), MeasurementIsLinear);
    EXPECT_EQ(Saved(), 4);
}

TEST_F(CarriedFieldsOfALoadedFile, StayWhenAnotherPropertyIsSet)
{
    ClassAdd_2().DataBlockPeakRMS(DisplayRMS);
    ClassAdd_3().TraceZaxisLabel(1, u"Z");
    ClassAdd_5().DataBlockRPM(60);
    ClassAdd_5().XaxisUnits(XAxisIsHz);
    ClassAdd_5().DataBlockExponentialWindowDampingInHz(1);
    file.Trace_Label(1, u"label");
    file.Trace_DataSVT(1, DataIsScalar);
    file.Trace_MeasurementType(1, DB_MeasurementIsFRF);
    file.WriteTraceSampleValue(1, 1, 1, 0);
    file.DataBlock_NumberOfTraces(3);
    EXPECT_EQ(Saved(), 4);
}

TEST_F(CarriedFieldsOfALoadedFile, AreLeftOutAfterInitialisation)
{
    file.InitializeDataBlockStorage();
    Size(file, 2, 3);
    EXPECT_EQ(Saved(), 0);
}

} // namespace
} // namespace qor::test
