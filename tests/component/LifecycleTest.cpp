// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What objects of one thread share, and what initialisation empties.
#include "component/DataBlockAccess.h"
#include "component/modQOR_File.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <memory>

namespace qor::test {
namespace {

// A Data Block in which every published value differs from its default.
void FillDataBlock(clsQOR_File& file)
{
    Size(file, 2, 3, DataFormat_RealImaginary);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.WriteDataBlockXaxisValue(1, 12.5F);
    file.WriteTraceSampleValue(2, 3, 4, 5);
    file.Trace_Label(2, u"trace");
    file.DataBlock_Label(u"label");
    file.DataBlock_Notes(u"notes");
    file.DataBlock_XaxisUnits(u"Hz");
    file.DataBlock_XaxisStart(6);
    file.DataBlock_XaxisIncrement(7);
    ClassAdd_2().DataBlockPeakRMS(DisplayRMS);
    ClassAdd_5().XaxisUnits(XAxisIsHz);
    ClassAdd_5().DataBlockRPM(1800);
    ClassAdd_5().DataBlockExponentialWindowDampingInHz(0.5F);
}

void ExpectInitialDataBlock(clsQOR_File& file)
{
    EXPECT_EQ(file.DataBlock_NumberOfTraces(), 0);
    EXPECT_EQ(file.DataBlock_NumberOfSamples(), 0);
    EXPECT_EQ(file.DataBlock_TraceDataFormat(), DataFormat_Real);
    EXPECT_EQ(file.DataBlock_XaxisSpacing(), XaxisSpacing_Uniform);
    EXPECT_EQ(Bits(file.DataBlock_XaxisStart()), Bits(0));
    EXPECT_EQ(Bits(file.DataBlock_XaxisIncrement()), Bits(0));
    EXPECT_EQ(file.DataBlock_Label(), u"");
    EXPECT_EQ(file.DataBlock_Notes(), u"Data Block history");
    EXPECT_EQ(file.DataBlock_XaxisUnits(), u"");
    EXPECT_EQ(ClassAdd_2().DataBlockPeakRMS(), DisplayPeak);
    EXPECT_EQ(ClassAdd_5().XaxisUnits(), NullX_AxisLabel);
    EXPECT_EQ(Bits(ClassAdd_5().DataBlockRPM()), Bits(0));
    EXPECT_EQ(Bits(ClassAdd_5().DataBlockExponentialWindowDampingInHz()), Bits(0));
    EXPECT_EQ(ReadX(file, 1), XaxisRead{}) << "no explicit X values";
    EXPECT_EQ(Read(file, 1, 1), Refused()) << "no samples";
}

TEST(Lifecycle, ANewObjectStartsWithAnInitialDataBlock)
{
    clsQOR_File file;
    ExpectInitialDataBlock(file);
}

TEST(Lifecycle, ASecondObjectEmptiesWhatTheFirstBuilt)
{
    clsQOR_File first;
    FillDataBlock(first);
    clsQOR_File second;
    ExpectInitialDataBlock(first);
    ExpectInitialDataBlock(second);
}

TEST(Lifecycle, ObjectsOfOneThreadShareTheDataBlock)
{
    clsQOR_File first;
    clsQOR_File second;
    FillDataBlock(first);
    EXPECT_EQ(second.DataBlock_NumberOfTraces(), 2);
    EXPECT_EQ(second.DataBlock_Label(), u"label");
    EXPECT_EQ(second.Trace_Label(2), u"trace");
    EXPECT_EQ(Read(second, 2, 3), Holds(4, 5));

    second.WriteTraceSampleValue(1, 1, 8, 9);
    EXPECT_EQ(Read(first, 1, 1), Holds(8, 9));
}

TEST(Lifecycle, DestroyingAnObjectKeepsTheDocuments)
{
    clsQOR_File first;
    auto second = std::make_unique<clsQOR_File>();
    FillDataBlock(*second);
    second.reset();
    EXPECT_EQ(first.DataBlock_Notes(), u"notes");
    EXPECT_EQ(Read(first, 2, 3), Holds(4, 5));
}

TEST(Lifecycle, AddedClassesReachADocumentThatNoObjectHasMadeYet)
{
    OnAThreadOfItsOwn([] {
        EXPECT_EQ(ClassAdd_2().DataBlockPeakRMS(), DisplayPeak);
        ClassAdd_5().DataBlockRPM(60);
        EXPECT_EQ(Bits(ClassAdd_5().DataBlockRPM()), Bits(60));
    });
}

TEST(Lifecycle, InitializeEmptiesTheDataBlock)
{
    clsQOR_File file;
    FillDataBlock(file);
    file.Initialize();
    ExpectInitialDataBlock(file);
}

TEST(Lifecycle, InitializeDataBlockStorageEmptiesTheDataBlock)
{
    clsQOR_File file;
    FillDataBlock(file);
    file.InitializeDataBlockStorage();
    ExpectInitialDataBlock(file);
}

TEST(Lifecycle, InitializeDataBlockStorageReleasesTheSamples)
{
    clsQOR_File file;
    FillDataBlock(file);
    file.InitializeDataBlockStorage();
    Size(file, 2, 3, DataFormat_RealImaginary);
    EXPECT_EQ(Read(file, 2, 3), Holds(0, 0));
    EXPECT_EQ(file.Trace_Label(2), u"");
}

TEST(Lifecycle, InitializeDataBlockDataLeavesTheDataBlock)
{
    clsQOR_File file;
    FillDataBlock(file);
    file.InitializeDataBlockData();
    EXPECT_EQ(file.DataBlock_Notes(), u"notes");
    EXPECT_EQ(ReadX(file, 1), (XaxisRead{Success, 12.5F}));
    EXPECT_EQ(Read(file, 2, 3), Holds(4, 5));
    EXPECT_EQ(ClassAdd_2().DataBlockPeakRMS(), DisplayRMS);
}

// The format that a client chose is the object's own, and the header knows only real and complex.
TEST(Lifecycle, InitializeDataBlockStorageKeepsTheObjectsChoiceOfFormat)
{
    clsQOR_File first;
    clsQOR_File second;
    first.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    first.InitializeDataBlockStorage();
    second.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    EXPECT_EQ(first.DataBlock_TraceDataFormat(), DataFormat_MgnitudePhase);
}

TEST(Lifecycle, SizeSettersKeepTheResultOfTheirAllocation)
{
    clsQOR_File file;
    modQOR_File().LastAllocationResult = 1;
    file.DataBlock_NumberOfTraces(1);
    EXPECT_EQ(modQOR_File().LastAllocationResult, 0);
    file.DataBlock_NumberOfSamples(2147483647);
    EXPECT_EQ(modQOR_File().LastAllocationResult, -1);
}

} // namespace
} // namespace qor::test
