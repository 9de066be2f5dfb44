// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Every value of every published enumeration: clients compile against the names, files hold many of the values.
#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>
#include <type_traits>

namespace {

template <class Enumeration>
constexpr bool IsInt32 =
    std::is_enum_v<Enumeration>&& std::is_same_v<std::underlying_type_t<Enumeration>, std::int32_t>;

static_assert(IsInt32<ReturnStatus> && IsInt32<oReturnStatus> && IsInt32<AxisNumbers> && IsInt32<PointTypes>);
static_assert(IsInt32<DataBlock_MeasurementTypes> && IsInt32<DataBlock_XaxisSpacingTypes>);
static_assert(IsInt32<DataBlock_DataFormatTypes> && IsInt32<SVTvalues> && IsInt32<ShapeTable_MeasurementTypes>);
static_assert(IsInt32<ErrorStatusTypes> && IsInt32<TraceLinPowerFlags> && IsInt32<DataBlockPeakRMSFlags>);
static_assert(IsInt32<XaxisUnitsAre>);

static_assert(Success == 0 && Failure == -1);
static_assert(static_cast<int>(oReturnStatus::Success) == 0 && static_cast<int>(oReturnStatus::Failure) == -1);
static_assert(!std::is_same_v<ReturnStatus, oReturnStatus>, "the added interface stands on its own");

static_assert(Xaxis == 0);
static_assert(Yaxis == 1);
static_assert(Zaxis == 2);

static_assert(Rectangular == 0);
static_assert(Cylindrical == 1);
static_assert(Spherical == 2);
static_assert(Machine == 3);

static_assert(DB_MeasurementIsUndefined == 0);
static_assert(DB_MeasurementIsTimeResponse == 1);
static_assert(DB_MeasurementIsAPS == 2);
static_assert(DB_MeasurementIsCrossSpectrum == 3);
static_assert(DB_MeasurementIsFRF == 4);
static_assert(DB_MeasurementIsTransmissibility == 5);
static_assert(DB_MeasurementIsCoherence == 6);
static_assert(DB_MeasurementIsAutoCorrelation == 7);
static_assert(DB_MeasurementIsCrossCorrelation == 8);
static_assert(DB_MeasurementIsPSD == 9);
static_assert(DB_MeasurementIsLinearSpectrum == 12);
static_assert(DB_MeasurementIsIRF == 13);
static_assert(DB_MeasurementIsODS_FRF == 17);
static_assert(DB_MeasurementIsIntensity == 18);
static_assert(DB_MeasurementIsPI_Index == 23);
static_assert(DB_MeasurementIsSPL == 24);
static_assert(DB_MeasurementIsSoundPower == 25);
static_assert(DB_MeasurementIsReal == 26);
static_assert(DB_MeasurementIsComplex == 27);
static_assert(DB_MeasurementIsOrderTrack == 29);
static_assert(DB_MeasurementIsESD == 30);
static_assert(DB_MeasurementIsParticleVelocity == 31);
static_assert(DB_MeasurementIsStrain == 32);
static_assert(DB_MeasurementIsStress == 33);
static_assert(DB_MeasurementIsTemperature == 35);

static_assert(XaxisSpacing_Undefined == 0);
static_assert(XaxisSpacing_Uniform == 1);
static_assert(XaxisSpacing_NonUniform == 2);
static_assert(XaxisSpacing_Octave == 3);

static_assert(DataFormat_Undefined == 0);
static_assert(DataFormat_Real == 1);
static_assert(DataFormat_RealImaginary == 2);
static_assert(DataFormat_MgnitudePhase == 3);

static_assert(DataIsVector == 3);
static_assert(DataIsScalar == 4);
static_assert(DataIsTensor == 5);
static_assert(DataIsRotation == 6);
static_assert(DataIsVectorReference == 7);
static_assert(DataIsScalarReference == 8);

static_assert(ST_MeasurementIsUndefined == 0);
static_assert(ST_MeasurementIsTimeResponse == 1);
static_assert(ST_MeasurementIsAPS == 2);
static_assert(ST_MeasurementIsCrossSpectrum == 3);
static_assert(ST_MeasurementIsFRF == 4);
static_assert(ST_MeasurementIsTransmissibility == 5);
static_assert(ST_MeasurementIsCoherence == 6);
static_assert(ST_MeasurementIsAutoCorrelation == 7);
static_assert(ST_MeasurementIsCrossCorrelation == 8);
static_assert(ST_MeasurementIsPSD == 9);
static_assert(ST_MeasurementIsLinearSpectrum == 12);
static_assert(ST_MeasurementIsIRF == 13);
static_assert(ST_MeasurementIsODS_FRF == 17);
static_assert(ST_MeasurementIsIntensity == 18);
static_assert(ST_MeasurementIsODS == 20);
static_assert(ST_MeasurementIsResidue == 21);
static_assert(ST_MeasurementIsUnitModalMass == 22);
static_assert(ST_MeasurementIsPI_Index == 23);
static_assert(ST_MeasurementIsSPL == 24);
static_assert(ST_MeasurementIsSoundPower == 25);
static_assert(ST_MeasurementIsReal == 26);
static_assert(ST_MeasurementIsComplex == 27);
static_assert(ST_MeasurementIsOrderTrack == 29);
static_assert(ST_MeasurementIsESD == 30);
static_assert(ST_MeasurementIsParticleVelocity == 31);
static_assert(ST_MeasurementIsStrain == 32);
static_assert(ST_MeasurementIsStress == 33);
static_assert(ST_MeasurementIsTemperature == 35);

static_assert(NoError == 0);
static_assert(AllocationError == 1);
static_assert(OutputFile_GeneralError == 2);
static_assert(OutputFile_FileExits == 3);
static_assert(OutputFile_OpenFail == 4);
static_assert(OutputFile_WriteFail == 5);
static_assert(inputFile_GeneralError == 6);
static_assert(InputFile_FileDoesNotExit == 7);
static_assert(inputFile_OpenFail == 8);
static_assert(InputFile_ReadFail == 9);
static_assert(TraceIndexError == 10);
static_assert(SampleIndexError == 11);
static_assert(XaxisNotAllocated == 12);
static_assert(TraceDataNotAllocated == 13);
static_assert(AxisNumberError == 14);
static_assert(CenterPointOverflow == 15);
static_assert(ShapeIndexError == 20);
static_assert(DOFIndexError == 21);
static_assert(ShapeDataNotAllocated == 22);
static_assert(ShapesNotAllocated == 23);
static_assert(DOFsNotAllocated == 24);
static_assert(VertexPointIndexError == 30);
static_assert(VertexPointsNotAllocated == 31);
static_assert(EdgeLineIndexError == 32);
static_assert(EdgeLinesNotAllocated == 33);
static_assert(SurfaceTriangleIndexError == 34);
static_assert(SurfaceTrianglesNotAllocated == 35);
static_assert(QuadSurfaceIndexError == 36);
static_assert(QuadSurfacesNotAllocated == 37);

static_assert(MeasurementIsLinear == 0);
static_assert(MeasurementIsPower == 1);

static_assert(DisplayPeak == 1245);
static_assert(DisplayRMS == 1247);
static_assert(DisplayPkToPk == 1249);

static_assert(NullX_AxisLabel == 0);
static_assert(XAxisIsHz == 1);
static_assert(XAxisIsCPM == 2);
static_assert(XAxisIsRPM == 3);
static_assert(XAxislIsSec == 4);
static_assert(XAxisIsMillisec == 5);
static_assert(XAxisIsMicrosec == 6);
static_assert(XAxisIsOrder == 7);

TEST(Enumerations, FailureTestedForTruthReadsAsTrue)
{
    clsQOR_File file;
    const bool failed = file.WriteTraceSampleValue(1, 1, 0, 0);
    file.DataBlock_NumberOfTraces(1);
    file.DataBlock_NumberOfSamples(1);
    const bool succeeded = file.WriteTraceSampleValue(1, 1, 0, 0);
    EXPECT_TRUE(failed);
    EXPECT_FALSE(succeeded);
}

TEST(Enumerations, FailureAndTrueAreTheSameNumber)
{
    EXPECT_EQ(Bool16(true).value, -1);
    EXPECT_EQ(static_cast<std::int32_t>(Failure), Bool16(true).value);
    EXPECT_EQ(static_cast<std::int32_t>(oReturnStatus::Failure), Bool16(true).value);
}

TEST(Bool16, FalseIsZeroAndSoIsTheDefault)
{
    EXPECT_EQ(Bool16(false).value, 0);
    EXPECT_EQ(Bool16().value, 0);
}

TEST(Bool16, AnyBitMakesItTrueAndIsCarried)
{
    for (const std::int16_t bits : std::initializer_list<std::int16_t>{1, 2, -1, -2, 256, 32767, -32768}) {
        EXPECT_TRUE(Bool16::Raw(bits)) << bits;
        EXPECT_EQ(Bool16::Raw(bits).value, bits);
    }
    EXPECT_FALSE(Bool16::Raw(0));
}

} // namespace
