// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The published enumerations and the 16-bit true/false of the interface. Names, odd spellings included, and
// values are fixed: clients compile against the names, files hold many of the values.
// Every enumeration travels as a 32-bit signed integer and may carry an undeclared value; the member that
// receives one says what it makes of it.
#pragma once

#include <cstdint>

// Result of every method that can fail. As a truth value, Failure is true.
enum ReturnStatus : std::int32_t {
    Success = 0,
    Failure = -1,
};

// Result of the quad-surface methods; the same values under a type of its own.
enum class oReturnStatus : std::int32_t {
    Success = 0,
    Failure = -1,
};

enum AxisNumbers : std::int32_t {
    Xaxis = 0,
    Yaxis = 1,
    Zaxis = 2,
};

enum PointTypes : std::int32_t {
    Rectangular = 0,
    Cylindrical = 1,
    Spherical = 2,
    Machine = 3,
};

// What a trace of a Data Block holds. Stored in files; the gaps are reserved.
enum DataBlock_MeasurementTypes : std::int32_t {
    DB_MeasurementIsUndefined = 0,
    DB_MeasurementIsTimeResponse = 1,
    DB_MeasurementIsAPS = 2,
    DB_MeasurementIsCrossSpectrum = 3,
    DB_MeasurementIsFRF = 4,
    DB_MeasurementIsTransmissibility = 5,
    DB_MeasurementIsCoherence = 6,
    DB_MeasurementIsAutoCorrelation = 7,
    DB_MeasurementIsCrossCorrelation = 8,
    DB_MeasurementIsPSD = 9,
    DB_MeasurementIsLinearSpectrum = 12,
    DB_MeasurementIsIRF = 13,
    DB_MeasurementIsODS_FRF = 17,
    DB_MeasurementIsIntensity = 18,
    DB_MeasurementIsPI_Index = 23,
    DB_MeasurementIsSPL = 24,
    DB_MeasurementIsSoundPower = 25,
    DB_MeasurementIsReal = 26,
    DB_MeasurementIsComplex = 27,
    DB_MeasurementIsOrderTrack = 29,
    DB_MeasurementIsESD = 30,
    DB_MeasurementIsParticleVelocity = 31,
    DB_MeasurementIsStrain = 32,
    DB_MeasurementIsStress = 33,
    DB_MeasurementIsTemperature = 35,
};

enum DataBlock_XaxisSpacingTypes : std::int32_t {
    XaxisSpacing_Undefined = 0,
    XaxisSpacing_Uniform = 1,
    XaxisSpacing_NonUniform = 2,
    XaxisSpacing_Octave = 3,
};

enum DataBlock_DataFormatTypes : std::int32_t {
    DataFormat_Undefined = 0,
    DataFormat_Real = 1,
    DataFormat_RealImaginary = 2,
    DataFormat_MgnitudePhase = 3,
};

// Vector, scalar or tensor data of a trace or DOF.
enum SVTvalues : std::int32_t {
    DataIsVector = 3,
    DataIsScalar = 4,
    DataIsTensor = 5,
    DataIsRotation = 6,
    DataIsVectorReference = 7,
    DataIsScalarReference = 8,
};

// What a DOF of a Shape Table holds: the Data Block list and ODS, residue, unit modal mass.
enum ShapeTable_MeasurementTypes : std::int32_t {
    ST_MeasurementIsUndefined = 0,
    ST_MeasurementIsTimeResponse = 1,
    ST_MeasurementIsAPS = 2,
    ST_MeasurementIsCrossSpectrum = 3,
    ST_MeasurementIsFRF = 4,
    ST_MeasurementIsTransmissibility = 5,
    ST_MeasurementIsCoherence = 6,
    ST_MeasurementIsAutoCorrelation = 7,
    ST_MeasurementIsCrossCorrelation = 8,
    ST_MeasurementIsPSD = 9,
    ST_MeasurementIsLinearSpectrum = 12,
    ST_MeasurementIsIRF = 13,
    ST_MeasurementIsODS_FRF = 17,
    ST_MeasurementIsIntensity = 18,
    ST_MeasurementIsODS = 20,
    ST_MeasurementIsResidue = 21,
    ST_MeasurementIsUnitModalMass = 22,
    ST_MeasurementIsPI_Index = 23,
    ST_MeasurementIsSPL = 24,
    ST_MeasurementIsSoundPower = 25,
    ST_MeasurementIsReal = 26,
    ST_MeasurementIsComplex = 27,
    ST_MeasurementIsOrderTrack = 29,
    ST_MeasurementIsESD = 30,
    ST_MeasurementIsParticleVelocity = 31,
    ST_MeasurementIsStrain = 32,
    ST_MeasurementIsStress = 33,
    ST_MeasurementIsTemperature = 35,
};

// The detail behind a Failure.
enum ErrorStatusTypes : std::int32_t {
    NoError = 0,
    AllocationError = 1,
    OutputFile_GeneralError = 2,
    OutputFile_FileExits = 3,
    OutputFile_OpenFail = 4,
    OutputFile_WriteFail = 5,
    inputFile_GeneralError = 6,
    InputFile_FileDoesNotExit = 7,
    inputFile_OpenFail = 8,
    InputFile_ReadFail = 9,
    TraceIndexError = 10,
    SampleIndexError = 11,
    XaxisNotAllocated = 12,
    TraceDataNotAllocated = 13,
    AxisNumberError = 14,
    CenterPointOverflow = 15,
    ShapeIndexError = 20,
    DOFIndexError = 21,
    ShapeDataNotAllocated = 22,
    ShapesNotAllocated = 23,
    DOFsNotAllocated = 24,
    VertexPointIndexError = 30,
    VertexPointsNotAllocated = 31,
    EdgeLineIndexError = 32,
    EdgeLinesNotAllocated = 33,
    SurfaceTriangleIndexError = 34,
    SurfaceTrianglesNotAllocated = 35,
    QuadSurfaceIndexError = 36,
    QuadSurfacesNotAllocated = 37,
};

enum TraceLinPowerFlags : std::int32_t {
    MeasurementIsLinear = 0,
    MeasurementIsPower = 1,
};

enum DataBlockPeakRMSFlags : std::int32_t {
    DisplayPeak = 1245,
    DisplayRMS = 1247,
    DisplayPkToPk = 1249,
};

enum XaxisUnitsAre : std::int32_t {
    NullX_AxisLabel = 0,
    XAxisIsHz = 1,
    XAxisIsCPM = 2,
    XAxisIsRPM = 3,
    XAxislIsSec = 4,
    XAxisIsMillisec = 5,
    XAxisIsMicrosec = 6,
    XAxisIsOrder = 7,
};

// A 16-bit true/false: true is -1, false 0, and any other value counts as true and is carried as it is.
struct Bool16 {
    std::int16_t value = 0;

    constexpr Bool16() = default;
    constexpr Bool16(bool truth) : value(truth ? std::int16_t{-1} : std::int16_t{0}) {}
    constexpr operator bool() const { return value != 0; }

    // The value with exactly these bits.
    static constexpr Bool16 Raw(std::int16_t bits)
    {
        Bool16 result;
        result.value = bits;
        return result;
    }
};
