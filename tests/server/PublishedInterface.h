// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What clients compile against: every enumeration, interface and class of the library, in the library's order. Written
// down a second time on purpose, so that no change of the interface definition goes unseen.
#pragma once

#include <string_view>

namespace qor::test {

// A line that starts with a blank goes on with the one before it.
inline constexpr std::string_view PublishedEnumerations = R"(
enum ReturnStatus: Success = 0, Failure = -1
enum AxisNumbers: Xaxis = 0, Yaxis = 1, Zaxis = 2
enum PointTypes: Rectangular = 0, Cylindrical = 1, Spherical = 2, Machine = 3
enum DataBlock_MeasurementTypes: DB_MeasurementIsUndefined = 0, DB_MeasurementIsTimeResponse = 1,
    DB_MeasurementIsAPS = 2, DB_MeasurementIsCrossSpectrum = 3, DB_MeasurementIsFRF = 4,
    DB_MeasurementIsTransmissibility = 5, DB_MeasurementIsCoherence = 6, DB_MeasurementIsAutoCorrelation = 7,
    DB_MeasurementIsCrossCorrelation = 8, DB_MeasurementIsPSD = 9, DB_MeasurementIsLinearSpectrum = 12,
    DB_MeasurementIsIRF = 13, DB_MeasurementIsODS_FRF = 17, DB_MeasurementIsIntensity = 18,
    DB_MeasurementIsPI_Index = 23, DB_MeasurementIsSPL = 24, DB_MeasurementIsSoundPower = 25,
    DB_MeasurementIsReal = 26, DB_MeasurementIsComplex = 27, DB_MeasurementIsOrderTrack = 29,
    DB_MeasurementIsESD = 30, DB_MeasurementIsParticleVelocity = 31, DB_MeasurementIsStrain = 32,
    DB_MeasurementIsStress = 33, DB_MeasurementIsTemperature = 35
enum DataBlock_XaxisSpacingTypes: XaxisSpacing_Undefined = 0, XaxisSpacing_Uniform = 1, XaxisSpacing_NonUniform = 2,
    XaxisSpacing_Octave = 3
enum DataBlock_DataFormatTypes: DataFormat_Undefined = 0, DataFormat_Real = 1, DataFormat_RealImaginary = 2,
    DataFormat_MgnitudePhase = 3
enum SVTvalues: DataIsVector = 3, DataIsScalar = 4, DataIsTensor = 5, DataIsRotation = 6, DataIsVectorReference = 7,
    DataIsScalarReference = 8
enum ShapeTable_MeasurementTypes: ST_MeasurementIsUndefined = 0, ST_MeasurementIsTimeResponse = 1,
    ST_MeasurementIsAPS = 2, ST_MeasurementIsCrossSpectrum = 3, ST_MeasurementIsFRF = 4,
    ST_MeasurementIsTransmissibility = 5, ST_MeasurementIsCoherence = 6, ST_MeasurementIsAutoCorrelation = 7,
    ST_MeasurementIsCrossCorrelation = 8, ST_MeasurementIsPSD = 9, ST_MeasurementIsLinearSpectrum = 12,
    ST_MeasurementIsIRF = 13, ST_MeasurementIsODS_FRF = 17, ST_MeasurementIsIntensity = 18,
    ST_MeasurementIsODS = 20, ST_MeasurementIsResidue = 21, ST_MeasurementIsUnitModalMass = 22,
    ST_MeasurementIsPI_Index = 23, ST_MeasurementIsSPL = 24, ST_MeasurementIsSoundPower = 25,
    ST_MeasurementIsReal = 26, ST_MeasurementIsComplex = 27, ST_MeasurementIsOrderTrack = 29,
    ST_MeasurementIsESD = 30, ST_MeasurementIsParticleVelocity = 31, ST_MeasurementIsStrain = 32,
    ST_MeasurementIsStress = 33, ST_MeasurementIsTemperature = 35
enum ErrorStatusTypes: NoError = 0, AllocationError = 1, OutputFile_GeneralError = 2, OutputFile_FileExits = 3,
    OutputFile_OpenFail = 4, OutputFile_WriteFail = 5, inputFile_GeneralError = 6, InputFile_FileDoesNotExit = 7,
    inputFile_OpenFail = 8, InputFile_ReadFail = 9, TraceIndexError = 10, SampleIndexError = 11,
    XaxisNotAllocated = 12, TraceDataNotAllocated = 13, AxisNumberError = 14, CenterPointOverflow = 15,
    ShapeIndexError = 20, DOFIndexError = 21, ShapeDataNotAllocated = 22, ShapesNotAllocated = 23,
    DOFsNotAllocated = 24, VertexPointIndexError = 30, VertexPointsNotAllocated = 31, EdgeLineIndexError = 32,
    EdgeLinesNotAllocated = 33, SurfaceTriangleIndexError = 34, SurfaceTrianglesNotAllocated = 35,
    QuadSurfaceIndexError = 36, QuadSurfacesNotAllocated = 37
enum TraceLinPowerFlags: MeasurementIsLinear = 0, MeasurementIsPower = 1
enum DataBlockPeakRMSFlags: DisplayPeak = 1245, DisplayRMS = 1247, DisplayPkToPk = 1249
enum XaxisUnitsAre: NullX_AxisLabel = 0, XAxisIsHz = 1, XAxisIsCPM = 2, XAxisIsRPM = 3, XAxislIsSec = 4,
    XAxisIsMillisec = 5, XAxisIsMicrosec = 6, XAxisIsOrder = 7
enum oReturnStatus: Success = 0, Failure = -1
)";

// Members in slot order. A property is get or put, all else a method. A parameter with * is passed by reference, in and
// out; all others are passed in by value. One with a default may be left out, and so may one that is optional.
inline constexpr std::string_view PublishedInterfaces = R"(
interface _clsQOR_File
get ErrorStatus() -> ErrorStatusTypes
put ErrorStatus(ErrorStatusTypes value)
WriteStructureVertexPointInformation(long* VertexPointNumber, long* CenterPointNumber, PointTypes* PointType = 0,
    AxisNumbers* NormalAxis = 0, float* Area = 0) -> ReturnStatus
WriteStructureVertexPointTransform(long* VertexPointNumber, AxisNumbers* AxisNumber, float* AxisEnd_X,
    float* AxisEnd_Y, float* AxisEnd_Z) -> ReturnStatus
ReadStructureVertexPointInformation(long* VertexPointNumber, long* CenterPointNumber, PointTypes* TransformType = 0,
    AxisNumbers* NormalAxis = 0, float* Area = 0) -> ReturnStatus
ReadStructureVertexPointTransform(long* VertexPointNumber, AxisNumbers* AxisNumber, float* AxisEnd_X,
    float* AxisEnd_Y, float* AxisEnd_Z) -> ReturnStatus
GetDOS_FilePathName(BSTR FilePathName) -> BSTR
GetFileName(BSTR* FilePathName) -> BSTR
GetFilePath(BSTR* FilePathName) -> BSTR
GetLastErrorString() -> BSTR
Initialize()
InitializeDataBlockStorage()
InitializeDataBlockData()
InitializeShapeTableStorage()
InitializeStructureStorage()
OutputDataBlockFile(BSTR DataBlock_FilePathName) -> ReturnStatus
InputDataBlockFile(BSTR* FilePathName) -> ReturnStatus
InputStructureFile(BSTR* FilePathName) -> ReturnStatus
OutputShapeTableFile(BSTR ShapeTable_FilePathName) -> ReturnStatus
OutputStructureFile(BSTR Structure_FilePathName) -> ReturnStatus
PathNamesEqual(BSTR FilePathName1, BSTR FilePathName2) -> VARIANT_BOOL
ReadDataBlockXaxisValue(long* SampleNumber, float* XaxisValue) -> ReturnStatus
ReadShapeDOFvalue(long* ShapeNumber, long* DOFnumber, float* MagnitudeValue, float* PhaseValue) -> ReturnStatus
ReadStructureEdgeLine(long* EdgeLineNumber, long* StartVertexPoint, long* EndVertexPoint, long* EdgeLineColor,
    VARIANT_BOOL* EdgeLineBold) -> ReturnStatus
ReadStructureSurfaceTriangle(long* SurfaceTriangleNumber, long* StartVertexPoint, long* MiddleVertexPoint,
    long* EndVertexPoint, long* SurfaceTriangleColor, VARIANT_BOOL* SurfaceTriangleBold) -> ReturnStatus
ReadStructureVertexPoint(long* VertexPointNumber, BSTR* VertexPointLabel, float* VertexPointXcoord,
    float* VertexPointYcoord, float* VertexPointZcoord, long* VertexPointColor,
    VARIANT_BOOL* VertexPointBold) -> ReturnStatus
ReadTraceSampleValue(long* TraceNumber, long* SampleNumber, float* RealValue, float* ImaginaryValue) -> ReturnStatus
get Shape_Damping(long ShapeNumber) -> float
put Shape_Damping(long ShapeNumber, float value)
get ShapeTable_Label() -> BSTR
put ShapeTable_Label(BSTR value)
get ShapeTable_Notes() -> BSTR
put ShapeTable_Notes(BSTR value)
get ShapeTable_NumberOfDOFs() -> long
put ShapeTable_NumberOfDOFs(long value)
get ShapeTable_NumberOfShapes() -> long
put ShapeTable_NumberOfShapes(long value)
get Structure_Label() -> BSTR
put Structure_Label(BSTR value)
get Structure_Notes() -> BSTR
put Structure_Notes(BSTR value)
get Structure_NumberOfEdgeLines() -> long
put Structure_NumberOfEdgeLines(long value)
get Structure_NumberOfSurfaceTriangles() -> long
put Structure_NumberOfSurfaceTriangles(long value)
get Structure_NumberOfVertexPoints() -> long
put Structure_NumberOfVertexPoints(long value)
get Trace_DataSVT(long TraceNumber) -> SVTvalues
get DataBlock_Label() -> BSTR
put DataBlock_Label(BSTR value)
get DataBlock_Notes() -> BSTR
put DataBlock_Notes(BSTR value)
get DataBlock_NumberOfSamples() -> long
put DataBlock_NumberOfSamples(long value)
get DataBlock_NumberOfTraces() -> long
put DataBlock_NumberOfTraces(long value)
get DataBlock_TraceDataFormat() -> DataBlock_DataFormatTypes
put DataBlock_TraceDataFormat(DataBlock_DataFormatTypes value)
get DataBlock_XaxisIncrement() -> float
put DataBlock_XaxisIncrement(float value)
get DataBlock_XaxisSpacing() -> DataBlock_XaxisSpacingTypes
put DataBlock_XaxisSpacing(DataBlock_XaxisSpacingTypes value)
get DataBlock_XaxisStart() -> float
put DataBlock_XaxisStart(float value)
get DataBlock_XaxisUnits() -> BSTR
put DataBlock_XaxisUnits(BSTR value)
get DOF_DataSVT(long DOFnumber) -> SVTvalues
put DOF_DataSVT(long DOFnumber, SVTvalues value)
get DOF_DegreesOfFreedom(long DOFnumber) -> BSTR
put DOF_DegreesOfFreedom(long DOFnumber, BSTR value)
get DOF_Label(long DOFnumber) -> BSTR
put DOF_Label(long DOFnumber, BSTR value)
get DOF_MeasurementType(long DOFnumber) -> ShapeTable_MeasurementTypes
put DOF_MeasurementType(long DOFnumber, ShapeTable_MeasurementTypes value)
get DOF_MeasurementUnits(long DOFnumber) -> BSTR
put DOF_MeasurementUnits(long DOFnumber, BSTR value)
get Shape_DateAndTime(long ShapeNumber) -> BSTR
put Shape_DateAndTime(long ShapeNumber, BSTR value)
get Shape_Ordinate(long ShapeNumber) -> float
put Shape_Ordinate(long ShapeNumber, float value)
get Shape_OrdinateUnits(long ShapeNumber) -> BSTR
put Shape_OrdinateUnits(long ShapeNumber, BSTR value)
get Shape_Label(long ShapeNumber) -> BSTR
put Shape_Label(long ShapeNumber, BSTR value)
get Trace_DateAndTime(long TraceNumber) -> BSTR
put Trace_DateAndTime(long TraceNumber, BSTR value)
get Trace_DegreesOfFreedom(long TraceNumber) -> BSTR
put Trace_DegreesOfFreedom(long TraceNumber, BSTR value)
get Trace_Label(long TraceNumber) -> BSTR
put Trace_Label(long TraceNumber, BSTR value)
get Trace_MeasurementType(long TraceNumber) -> DataBlock_MeasurementTypes
put Trace_MeasurementType(long TraceNumber, DataBlock_MeasurementTypes value)
get Trace_MeasurementUnits(long TraceNumber) -> BSTR
put Trace_MeasurementUnits(long TraceNumber, BSTR value)
put Trace_DataSVT(long TraceNumber, SVTvalues value)
WriteDataBlockXaxisValue(long* SampleNumber, float* XaxisValue) -> ReturnStatus
WriteShapeDOFvalue(long* ShapeNumber, long* DOFnumber, float* MagnitudeValue, float* PhaseValue) -> ReturnStatus
WriteStructureEdgeLine(long* EdgeLineNumber, long* StartVertexPoint, long* EndVertexPoint, long* EdgeLineColor = 0,
    VARIANT_BOOL* EdgeLineBold = 0) -> ReturnStatus
WriteStructureSurfaceTriangle(long* SurfaceTriangleNumber, long* StartVertexPoint, long* MiddleVertexPoint,
    long* EndVertexPoint, long* SurfaceTriangleColor = 0, VARIANT_BOOL* SurfaceTriangleBold = 0) -> ReturnStatus
WriteStructureVertexPoint(long* VertexPointNumber, BSTR* VertexPointLabel, float* VertexPointXcoord,
    float* VertexPointYcoord, float* VertexPointZcoord, long* VertexPointColor = 0,
    VARIANT_BOOL* VertexPointBold = 0) -> ReturnStatus
WriteTraceSampleValue(long* TraceNumber, long* SampleNumber, float* RealValue,
    float* ImaginaryValue) -> ReturnStatus
GetMagnitudeValueFrom(float* RealValue, float* ImaginaryValue) -> float
GetRealValueFrom(float* MagnitudeValue, float* PhaseValue) -> float
GetImaginaryValueFrom(float* MagnitudeValue, float* PhaseValue) -> float
GetPhaseValueFrom(VARIANT* RealValue, VARIANT* ImaginaryValue, VARIANT_BOOL* DisplayAs360) -> float
get DLLversion() -> float
interface _ClassAdd_1
put TraceLinPower(long TraceNumber, TraceLinPowerFlags value)
get TraceLinPower(long TraceNumber) -> TraceLinPowerFlags
interface _ClassAdd_2
put DataBlockPeakRMS(DataBlockPeakRMSFlags value)
get DataBlockPeakRMS() -> DataBlockPeakRMSFlags
interface _ClassAdd_3
put TraceZaxisLabel(long TraceNumber, BSTR value)
get TraceZaxisLabel(long TraceNumber) -> BSTR
interface _ClassAdd_4
get StructureNumberOfQuadSurfaces() -> long
put StructureNumberOfQuadSurfaces(long value)
ReadStructureQuadSurface(long* QuadSurfaceNumber, long* CornerVertex1Point, long* CornerVertex2Point,
    long* CornerVertex3Point, long* CornerVertex4Point, long* QuadSurfaceColor,
    VARIANT_BOOL* QuadSurfaceBold) -> oReturnStatus
WriteStructureQuadSurface(long* QuadSurfaceNumber, long* CornerVertex1Point, long* CornerVertex2Point,
    long* CornerVertex3Point, long* CornerVertex4Point, long* QuadSurfaceColor = 0,
    VARIANT_BOOL* QuadSurfaceBold = 0) -> oReturnStatus
interface _ClassAdd_5
get XaxisUnits() -> XaxisUnitsAre
put XaxisUnits(XaxisUnitsAre value)
get DataBlockRPM() -> float
put DataBlockRPM(float value)
get DataBlockExponentialWindowDampingInHz() -> float
put DataBlockExponentialWindowDampingInHz(float value)
interface IQOR_FileArrays
ReadTraceSamples(long TraceNumber, VARIANT* RealValues, optional VARIANT* ImaginaryValues) -> ReturnStatus
WriteTraceSamples(long TraceNumber, VARIANT RealValues, optional VARIANT ImaginaryValues) -> ReturnStatus
ReadDataBlockXaxisValues(VARIANT* XaxisValues) -> ReturnStatus
WriteDataBlockXaxisValues(VARIANT XaxisValues) -> ReturnStatus
ReadShapeDOFvalues(long ShapeNumber, VARIANT* MagnitudeValues, optional VARIANT* PhaseValues) -> ReturnStatus
WriteShapeDOFvalues(long ShapeNumber, VARIANT MagnitudeValues, optional VARIANT PhaseValues) -> ReturnStatus
ReadStructureVertexPointCoordinates(VARIANT* Xcoords, VARIANT* Ycoords, VARIANT* Zcoords) -> ReturnStatus
WriteStructureVertexPointCoordinates(VARIANT Xcoords, VARIANT Ycoords, VARIANT Zcoords) -> ReturnStatus
)";

// The default interface stands first.
inline constexpr std::string_view PublishedClasses = R"(
class clsQOR_File: _clsQOR_File, _ClassAdd_1, _ClassAdd_2, _ClassAdd_3, _ClassAdd_4, _ClassAdd_5
class ClassAdd_1: _ClassAdd_1
class ClassAdd_2: _ClassAdd_2
class ClassAdd_3: _ClassAdd_3
class ClassAdd_4: _ClassAdd_4
class ClassAdd_5: _ClassAdd_5
class QOR_FileArrays: IQOR_FileArrays
)";

} // namespace qor::test
