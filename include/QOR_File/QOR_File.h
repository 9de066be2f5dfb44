// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The published component: clsQOR_File and the added classes, in C++.
//
// All objects of one thread work on the same documents of that thread; threads share nothing. Creating a
// clsQOR_File empties the thread's documents; they are released when the thread ends.
//
// How the published members read in C++:
//   property get   T Name(index...)            method       ReturnStatus Name(parameters in published order)
//   property set   void Name(index..., value)  text         std::u16string out, std::u16string_view in
// An in/out parameter is a reference: to const where the member never changes it (so a literal may be
// passed), a text then being a view. Names are the published ones, odd spellings included.
//
// A method that fails returns Failure, a property get that fails returns the default of its type, and ErrorStatus
// and GetLastErrorString tell why; a failed method leaves its arguments as they were. Nothing is thrown, but the
// RuntimeFault of the members that say so, and std::bad_alloc where there is no memory for an object or for a thread's
// documents. A text that there is no memory for is got as an empty one, and leaves the old one when it is set, that of
// a trace with AllocationError. Element numbers count from 1.
#pragma once

#include <QOR_File/Enumerations.h>

#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

// A self-describing value: empty, any numeric type, or text (which is never taken for a number). A truth value
// is given as Bool16: a plain bool would become the number 1, where true is -1.
using NumericVariant = std::variant<std::monostate, std::uint8_t, std::int16_t, std::int32_t, std::int64_t, float,
                                    double, Bool16, std::u16string>;

// A fault that the published behaviour raises to the caller. what() is its description.
class RuntimeFault : public std::exception
{
public:
    static constexpr int Overflow = 6;
    static constexpr int SubscriptOutOfRange = 9;

    explicit RuntimeFault(int number) : number_(number) {}
    const char* what() const noexcept override;
    // The platform's number of the fault.
    int Number() const { return number_; }

private:
    int number_;
};

class clsQOR_File
{
public:
    // Empties the three documents of this thread, also those that another object built.
    clsQOR_File();
    // Releases the object only; the thread's documents stay.
    ~clsQOR_File();
    clsQOR_File(const clsQOR_File&) = delete;
    clsQOR_File& operator=(const clsQOR_File&) = delete;

    // ---- component -------------------------------------------------------------------------------------

    // The last error of this object, or, when there is none, the one that an added class left on this thread.
    // Clears this object's own error; an error left by an added class stays and is reported again.
    ErrorStatusTypes ErrorStatus();
    // Records an error as every failing member does: keeps the code, and for a code other than 0 builds the
    // text that GetLastErrorString returns and posts it on the platform's error object.
    void ErrorStatus(ErrorStatusTypes value);
    // The text of the last error, as "Error (10): Trace Index error"; clears nothing, so that it may be an old one: go
    // by ErrorStatus. Codes without a text of their own read "Undefined error". Empty before any error.
    std::u16string GetLastErrorString() const;
    // Empties the documents of this thread. The error status stays.
    void Initialize();
    // 1.05: major version plus minor version / 100.
    float DLLversion() const;

    // ---- Data Block: storage ---------------------------------------------------------------------------

    // Empties the thread's Data Block: no traces, no samples, every header value its default.
    void InitializeDataBlockStorage();
    // Restores the defaults from which a Data Block is initialised; the Data Block itself stays.
    void InitializeDataBlockData();

    std::u16string DataBlock_Label() const;
    void DataBlock_Label(std::u16string_view value);
    // "Data Block history" until set.
    std::u16string DataBlock_Notes() const;
    void DataBlock_Notes(std::u16string_view value);
    std::u16string DataBlock_XaxisUnits() const;
    void DataBlock_XaxisUnits(std::u16string_view value);

    // Samples of every trace, and length of an explicit X axis. Negative counts as 0. Setting it keeps the
    // samples that fit, new ones are 0. When memory does not suffice the Data Block is emptied and
    // ErrorStatus is AllocationError; otherwise an earlier error of this object is cleared. The same holds for
    // the setters of the number of traces, the format and the spacing.
    std::int32_t DataBlock_NumberOfSamples() const;
    void DataBlock_NumberOfSamples(std::int32_t value);
    // Number of traces, 0 to 32000; values outside are clamped. Traces that remain keep their samples.
    std::int32_t DataBlock_NumberOfTraces() const;
    void DataBlock_NumberOfTraces(std::int32_t value);
    // Real, real/imaginary, or magnitude/phase (a view of real/imaginary); an undeclared value counts as
    // real. Changing between real and complex discards the samples. The get is DataFormat_Undefined on a
    // complex block of another object, until this one has set or loaded a format.
    DataBlock_DataFormatTypes DataBlock_TraceDataFormat();
    void DataBlock_TraceDataFormat(DataBlock_DataFormatTypes value);

    // An undeclared value counts as uniform. Explicit X values exist while the spacing is not uniform.
    DataBlock_XaxisSpacingTypes DataBlock_XaxisSpacing() const;
    void DataBlock_XaxisSpacing(DataBlock_XaxisSpacingTypes value);
    // X value of sample 1 for uniform spacing, in the X axis's units.
    float DataBlock_XaxisStart() const;
    void DataBlock_XaxisStart(float value);
    // X step for uniform spacing. Setting 0, a negative value or NaN stores 1; a new Data Block has 0.
    float DataBlock_XaxisIncrement() const;
    void DataBlock_XaxisIncrement(float value);

    // ---- Data Block: samples ---------------------------------------------------------------------------

    // One sample. Real format: value and 0. Real/imaginary: both parts. Magnitude/phase: magnitude, and phase
    // in degrees, 0 to 360. Errors: TraceDataNotAllocated, TraceIndexError, SampleIndexError; the values then
    // stay as passed. Sample number 0 passes the check and leaves the values (real format: sets the
    // imaginary value to 0). Failure without a code where a file brought a format that is none of the declared.
    ReturnStatus ReadTraceSampleValue(const std::int32_t& TraceNumber, const std::int32_t& SampleNumber,
                                      float& RealValue, float& ImaginaryValue);
    // Stores one sample in the same form. Sample number 0 stores nothing and succeeds.
    ReturnStatus WriteTraceSampleValue(const std::int32_t& TraceNumber, const std::int32_t& SampleNumber,
                                       const float& RealValue, const float& ImaginaryValue);
    // One explicit X value. Fails with XaxisNotAllocated without samples, for an object that has neither sized
    // nor loaded the block, and for uniform spacing, where X is
    // DataBlock_XaxisStart + (SampleNumber - 1) * DataBlock_XaxisIncrement; else SampleIndexError.
    ReturnStatus ReadDataBlockXaxisValue(const std::int32_t& SampleNumber, float& XaxisValue);
    ReturnStatus WriteDataBlockXaxisValue(const std::int32_t& SampleNumber, const float& XaxisValue);

    // sqrt(re^2 + im^2); 1.0E+34 where that does not fit, NaN where an input is NaN.
    float GetMagnitudeValueFrom(const float& RealValue, const float& ImaginaryValue) const;
    // magnitude * cos(phase), phase in degrees, with pi = 3.14159265358979; 0 where an input is not finite.
    float GetRealValueFrom(const float& MagnitudeValue, const float& PhaseValue) const;
    // magnitude * sin(phase), as above.
    float GetImaginaryValueFrom(const float& MagnitudeValue, const float& PhaseValue) const;
    // Phase in degrees, -180 to 180, or 0 to 360 with DisplayAs360; 0 where a value is a text or not finite, and
    // where the quotient of the two overflows. Empty counts as 0.
    float GetPhaseValueFrom(const NumericVariant& RealValue, const NumericVariant& ImaginaryValue,
                            const Bool16& DisplayAs360) const;

    // ---- Data Block: trace properties ------------------------------------------------------------------
    // Errors of all: TraceDataNotAllocated without traces, TraceIndexError outside 1 to the number of traces; and
    // AllocationError where a number is set without memory for a trace that a file counted but did not hold.

    std::u16string Trace_Label(std::int32_t TraceNumber);
    void Trace_Label(std::int32_t TraceNumber, std::u16string_view value);
    // Date and time as free text.
    std::u16string Trace_DateAndTime(std::int32_t TraceNumber);
    void Trace_DateAndTime(std::int32_t TraceNumber, std::u16string_view value);
    // The DOF designation, as "1Z:3Z".
    std::u16string Trace_DegreesOfFreedom(std::int32_t TraceNumber);
    void Trace_DegreesOfFreedom(std::int32_t TraceNumber, std::u16string_view value);
    // Kept as given if it fits 16 bits, declared or not; a value that does not fit leaves the trace as it is.
    DataBlock_MeasurementTypes Trace_MeasurementType(std::int32_t TraceNumber);
    void Trace_MeasurementType(std::int32_t TraceNumber, DataBlock_MeasurementTypes value);
    std::u16string Trace_MeasurementUnits(std::int32_t TraceNumber);
    void Trace_MeasurementUnits(std::int32_t TraceNumber, std::u16string_view value);
    // DataIsVector, DataIsScalar or DataIsTensor; every other value is stored and read as DataIsVector. It is not
    // written to a file, where the measurement type tells the kind of data.
    SVTvalues Trace_DataSVT(std::int32_t TraceNumber);
    void Trace_DataSVT(std::int32_t TraceNumber, SVTvalues value);

    // ---- Data Block: files -----------------------------------------------------------------------------

    // Writes the thread's Data Block to a new file of that name; a file that stood there is deleted first.
    // Failure sets no code of its own, but InputFile_ReadFail where there are traces without samples.
    ReturnStatus OutputDataBlockFile(std::u16string_view DataBlock_FilePathName);
    // Replaces the thread's Data Block by the file's. Errors: InputFile_ReadFail for what is wrong in the
    // file (also beside Success: a file that merely lacks its end marker), AllocationError; a file that
    // cannot be opened gives Failure without a code. What was read before a failure stays.
    ReturnStatus InputDataBlockFile(std::u16string_view FilePathName);

    // ---- Shape Table ------------------------------------------------------------------------------------
    // Label, notes and counts belong to each object; records and values are the thread's. So where two objects
    // of a thread differ in their counts, an access that the arrays do not hold is skipped.

    // Empties the thread's Shape Table and this object's counts; label and notes stay.
    void InitializeShapeTableStorage();

    std::u16string ShapeTable_Label() const;
    void ShapeTable_Label(std::u16string_view value);
    std::u16string ShapeTable_Notes() const;
    void ShapeTable_Notes(std::u16string_view value);
    // Negative counts as 0. Set both counts before values: where they differ, setting either gives a table of
    // zeros. AllocationError, and an empty table, when memory does not suffice.
    std::int32_t ShapeTable_NumberOfShapes() const;
    void ShapeTable_NumberOfShapes(std::int32_t value);
    std::int32_t ShapeTable_NumberOfDOFs() const;
    void ShapeTable_NumberOfDOFs(std::int32_t value);

    // Errors of the per-shape properties: ShapeDataNotAllocated without shapes; outside 1 to the number of
    // shapes SampleIndexError, as published, but ShapeIndexError from the Shape_Label get.
    std::u16string Shape_Label(std::int32_t ShapeNumber);
    void Shape_Label(std::int32_t ShapeNumber, std::u16string_view value);
    // The shape's place on the ordinate axis, as its frequency.
    float Shape_Ordinate(std::int32_t ShapeNumber);
    void Shape_Ordinate(std::int32_t ShapeNumber, float value);
    // In whatever unit the client uses, as percent of critical damping; nothing interprets it.
    float Shape_Damping(std::int32_t ShapeNumber);
    void Shape_Damping(std::int32_t ShapeNumber, float value);
    std::u16string Shape_DateAndTime(std::int32_t ShapeNumber);
    void Shape_DateAndTime(std::int32_t ShapeNumber, std::u16string_view value);
    std::u16string Shape_OrdinateUnits(std::int32_t ShapeNumber);
    void Shape_OrdinateUnits(std::int32_t ShapeNumber, std::u16string_view value);

    // Error of the per-DOF properties: DOFIndexError outside 1 to the number of DOFs.
    std::u16string DOF_Label(std::int32_t DOFnumber);
    void DOF_Label(std::int32_t DOFnumber, std::u16string_view value);
    // The DOF designation, as "3Z".
    std::u16string DOF_DegreesOfFreedom(std::int32_t DOFnumber);
    void DOF_DegreesOfFreedom(std::int32_t DOFnumber, std::u16string_view value);
    // DataIsVector, DataIsScalar or DataIsTensor; every other value is stored and read as DataIsVector.
    SVTvalues DOF_DataSVT(std::int32_t DOFnumber);
    void DOF_DataSVT(std::int32_t DOFnumber, SVTvalues value);
    // ST_MeasurementIsUndefined is written to a file as ST_MeasurementIsODS.
    ShapeTable_MeasurementTypes DOF_MeasurementType(std::int32_t DOFnumber);
    void DOF_MeasurementType(std::int32_t DOFnumber, ShapeTable_MeasurementTypes value);
    std::u16string DOF_MeasurementUnits(std::int32_t DOFnumber);
    void DOF_MeasurementUnits(std::int32_t DOFnumber, std::u16string_view value);

    // One value, phase in degrees. Errors in this order: ShapeDataNotAllocated; the shape number
    // (SampleIndexError when reading, ShapeIndexError when writing, as published); DOFsNotAllocated;
    // DOFIndexError.
    ReturnStatus ReadShapeDOFvalue(const std::int32_t& ShapeNumber, const std::int32_t& DOFnumber,
                                   float& MagnitudeValue, float& PhaseValue);
    ReturnStatus WriteShapeDOFvalue(const std::int32_t& ShapeNumber, const std::int32_t& DOFnumber,
                                    const float& MagnitudeValue, const float& PhaseValue);

    // Writes the Shape Table to a new file of that name; a file that stood there is deleted first. Failure
    // without a code, and the existing file kept, for a blank name or a table without values; also for a value
    // that is infinite and a measurement type beyond 16 bits, what came before then being written.
    ReturnStatus OutputShapeTableFile(std::u16string_view ShapeTable_FilePathName);

    // ---- Structure --------------------------------------------------------------------------------------

    // Empties the thread's Structure; label and notes, which belong to each object, stay.
    void InitializeStructureStorage();

    std::u16string Structure_Label() const;
    void Structure_Label(std::u16string_view value);
    std::u16string Structure_Notes() const;
    void Structure_Notes(std::u16string_view value);
    // Negative counts as 0. Elements that remain are kept, new ones are zero and unlabelled. When memory does
    // not suffice the Structure is emptied and the thread's shared error status is AllocationError.
    std::int32_t Structure_NumberOfVertexPoints() const;
    void Structure_NumberOfVertexPoints(std::int32_t value);
    std::int32_t Structure_NumberOfEdgeLines() const;
    void Structure_NumberOfEdgeLines(std::int32_t value);
    std::int32_t Structure_NumberOfSurfaceTriangles() const;
    void Structure_NumberOfSurfaceTriangles(std::int32_t value);

    // Element members. Reading: the not-allocated code of an empty list, then the index code. Writing: the
    // index code, also on an empty list; number -1 appends an element, and fails with the not-allocated code
    // when memory does not suffice. Appending raises RuntimeFault::Overflow when the count cannot be raised.
    // Numbers of vertex points are stored unchecked. A color is stored unchanged; the application's have red in the
    // lowest byte, then green, then blue.

    // The label is returned without outer blanks. One that a file left out is 20 zero characters, which are no blanks.
    ReturnStatus ReadStructureVertexPoint(const std::int32_t& VertexPointNumber, std::u16string& VertexPointLabel,
                                          float& VertexPointXcoord, float& VertexPointYcoord, float& VertexPointZcoord,
                                          std::int32_t& VertexPointColor, Bool16& VertexPointBold);
    // Labels are trimmed, then cut at 20 characters. The local axes, all zeros in a new point, become those of the
    // Structure. Number -1 raises the count
    // and then RuntimeFault::SubscriptOutOfRange: set the count and write by number instead.
    ReturnStatus WriteStructureVertexPoint(const std::int32_t& VertexPointNumber, std::u16string_view VertexPointLabel,
                                           const float& VertexPointXcoord, const float& VertexPointYcoord,
                                           const float& VertexPointZcoord, const std::int32_t& VertexPointColor = 0,
                                           const Bool16& VertexPointBold = false);
    ReturnStatus ReadStructureEdgeLine(const std::int32_t& EdgeLineNumber, std::int32_t& StartVertexPoint,
                                       std::int32_t& EndVertexPoint, std::int32_t& EdgeLineColor, Bool16& EdgeLineBold);
    ReturnStatus WriteStructureEdgeLine(const std::int32_t& EdgeLineNumber, const std::int32_t& StartVertexPoint,
                                        const std::int32_t& EndVertexPoint, const std::int32_t& EdgeLineColor = 0,
                                        const Bool16& EdgeLineBold = false);
    ReturnStatus ReadStructureSurfaceTriangle(const std::int32_t& SurfaceTriangleNumber, std::int32_t& StartVertexPoint,
                                              std::int32_t& MiddleVertexPoint, std::int32_t& EndVertexPoint,
                                              std::int32_t& SurfaceTriangleColor, Bool16& SurfaceTriangleBold);
    ReturnStatus WriteStructureSurfaceTriangle(const std::int32_t& SurfaceTriangleNumber,
                                               const std::int32_t& StartVertexPoint,
                                               const std::int32_t& MiddleVertexPoint,
                                               const std::int32_t& EndVertexPoint,
                                               const std::int32_t& SurfaceTriangleColor = 0,
                                               const Bool16& SurfaceTriangleBold = false);

    // Point type, normal axis and area are stored unchecked, also where a center point outside 0 to 32767 then
    // fails with CenterPointOverflow.
    ReturnStatus WriteStructureVertexPointInformation(const std::int32_t& VertexPointNumber,
                                                      const std::int32_t& CenterPointNumber,
                                                      const PointTypes& PointType = Rectangular,
                                                      const AxisNumbers& NormalAxis = Xaxis, const float& Area = 0);
    // Not a getter: as published it stores its arguments in the point like the member above, and gives nothing
    // back. These values cannot be read through this interface. A center point beyond 16 bits is left as it was, a
    // negative one is stored.
    ReturnStatus ReadStructureVertexPointInformation(const std::int32_t& VertexPointNumber,
                                                     const std::int32_t& CenterPointNumber,
                                                     const PointTypes& TransformType = Rectangular,
                                                     const AxisNumbers& NormalAxis = Xaxis, const float& Area = 0);
    // The end point of one local axis. Error beside those above: AxisNumberError.
    ReturnStatus WriteStructureVertexPointTransform(const std::int32_t& VertexPointNumber,
                                                    const AxisNumbers& AxisNumber, const float& AxisEnd_X,
                                                    const float& AxisEnd_Y, const float& AxisEnd_Z);
    ReturnStatus ReadStructureVertexPointTransform(const std::int32_t& VertexPointNumber, const AxisNumbers& AxisNumber,
                                                   float& AxisEnd_X, float& AxisEnd_Y, float& AxisEnd_Z);

    // Writes the Structure to a new file of that name; a file that stood there is deleted first. Elements are
    // written only where there are vertex points. Failure without a code when the file cannot be made; faults
    // while writing are not reported.
    ReturnStatus OutputStructureFile(std::u16string_view Structure_FilePathName);
    // Replaces the thread's Structure and the notes by the file's. The label is taken only while this object has
    // none: to read one file after another, set it to an empty text before each. A file
    // that cannot be opened gives Success and an empty Structure, as published. InputFile_ReadFail for what is
    // wrong in the file, also beside Success where it lacks its end marker. A file that was refused stays open:
    // an empty path reads on in it, until this object opens another.
    ReturnStatus InputStructureFile(std::u16string_view FilePathName);

    // ---- path names -------------------------------------------------------------------------------------
    // The only separator is the backslash, on every system: of a path with slashes all is the file name. No member
    // sets the error status.

    // The short form of a path, empty where neither it nor its folder exists.
    std::u16string GetDOS_FilePathName(std::u16string_view FilePathName) const;
    // What follows the last backslash, trimmed.
    std::u16string GetFileName(std::u16string_view FilePathName) const;
    // Up to and with the last backslash; one at the very end is not counted.
    std::u16string GetFilePath(std::u16string_view FilePathName) const;
    // Equal but for letter case, as given or in their short forms. A blank name equals nothing.
    Bool16 PathNamesEqual(std::u16string_view FilePathName1, std::u16string_view FilePathName2) const;

private:
    friend class FileArrays; // sees the documents as this object does
    struct State;

    ReturnStatus Report(ReturnStatus status, ErrorStatusTypes error);
    void ReallocateDataBlock();
    void UpdateAllocationFlags();
    void AllocateShapeTable();
    void AllocateStructure();

    std::unique_ptr<State> state_;
};

// The added classes work on the same documents. They have no error text: a failed check is left as the
// thread's shared error status, which clsQOR_File::ErrorStatus reports while it has no error of its own.

class ClassAdd_1
{
public:
    // Linear or power quantity, per trace; kept as given if it fits 16 bits.
    void TraceLinPower(std::int32_t TraceNumber, TraceLinPowerFlags value);
    TraceLinPowerFlags TraceLinPower(std::int32_t TraceNumber) const;
};

class ClassAdd_2
{
public:
    // How values are displayed; DisplayPeak until set, kept as given if it fits 16 bits.
    void DataBlockPeakRMS(DataBlockPeakRMSFlags value);
    DataBlockPeakRMSFlags DataBlockPeakRMS() const;
};

class ClassAdd_3
{
public:
    // The trace's Z-axis label.
    void TraceZaxisLabel(std::int32_t TraceNumber, std::u16string_view value);
    std::u16string TraceZaxisLabel(std::int32_t TraceNumber) const;
};

class ClassAdd_4
{
public:
    // As Structure_NumberOfEdgeLines; the other members as those of the edge lines, but for the codes
    // QuadSurfacesNotAllocated and QuadSurfaceIndexError, and both clear the shared error status first.
    std::int32_t StructureNumberOfQuadSurfaces() const;
    void StructureNumberOfQuadSurfaces(std::int32_t value);
    oReturnStatus ReadStructureQuadSurface(const std::int32_t& QuadSurfaceNumber, std::int32_t& CornerVertex1Point,
                                           std::int32_t& CornerVertex2Point, std::int32_t& CornerVertex3Point,
                                           std::int32_t& CornerVertex4Point, std::int32_t& QuadSurfaceColor,
                                           Bool16& QuadSurfaceBold);
    oReturnStatus
    WriteStructureQuadSurface(const std::int32_t& QuadSurfaceNumber, const std::int32_t& CornerVertex1Point,
                              const std::int32_t& CornerVertex2Point, const std::int32_t& CornerVertex3Point,
                              const std::int32_t& CornerVertex4Point, const std::int32_t& QuadSurfaceColor = 0,
                              const Bool16& QuadSurfaceBold = false);
};

class ClassAdd_5
{
public:
    // X-axis units by code; kept as given if it fits 16 bits.
    XaxisUnitsAre XaxisUnits() const;
    void XaxisUnits(XaxisUnitsAre value);
    // Shaft speed in revolutions per minute.
    float DataBlockRPM() const;
    void DataBlockRPM(float value);
    // Damping of the exponential window in Hz.
    float DataBlockExponentialWindowDampingInHz() const;
    void DataBlockExponentialWindowDampingInHz(float value);
};
