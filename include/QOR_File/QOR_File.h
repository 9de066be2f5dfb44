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
// and GetLastErrorString tell why. Nothing is thrown, but std::bad_alloc where there is no memory for a text.
// Element numbers count from 1.
#pragma once

#include <QOR_File/Enumerations.h>

#include <chrono>
#include <string>
#include <string_view>
#include <variant>

// A self-describing value: empty, any numeric type, or text (which is never taken for a number).
using NumericVariant = std::variant<std::monostate, std::uint8_t, std::int16_t, std::int32_t, std::int64_t, float,
                                    double, Bool16, std::u16string>;

class clsQOR_File
{
public:
    // Empties the three documents of this thread, also those that another object built.
    clsQOR_File();
    // Releases the object only; the thread's documents stay.
    ~clsQOR_File() = default;
    clsQOR_File(const clsQOR_File&) = delete;
    clsQOR_File& operator=(const clsQOR_File&) = delete;

    // ---- component -------------------------------------------------------------------------------------

    // The last error of this object, or, when there is none, the one that an added class left on this thread.
    // Clears this object's own error; an error left by an added class stays and is reported again.
    ErrorStatusTypes ErrorStatus();
    // Records an error as every failing member does: keeps the code, and for a code other than 0 builds the
    // text that GetLastErrorString returns and posts it on the platform's error object.
    void ErrorStatus(ErrorStatusTypes value);
    // The text of the last error, as "Error (10): Trace Index error"; clears nothing. Empty before any error.
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
    // ErrorStatus is AllocationError; the same holds for the two size setters that follow.
    std::int32_t DataBlock_NumberOfSamples() const;
    void DataBlock_NumberOfSamples(std::int32_t value);
    // Number of traces, 0 to 32000; values outside are clamped. Traces that remain keep their samples.
    std::int32_t DataBlock_NumberOfTraces() const;
    void DataBlock_NumberOfTraces(std::int32_t value);
    // Real, real/imaginary, or magnitude/phase (a view of real/imaginary); an undeclared value counts as
    // real. Changing between real and complex discards the samples.
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
    // imaginary value to 0).
    ReturnStatus ReadTraceSampleValue(const std::int32_t& TraceNumber, const std::int32_t& SampleNumber,
                                      float& RealValue, float& ImaginaryValue);
    // Stores one sample in the same form. Sample number 0 stores nothing and succeeds.
    ReturnStatus WriteTraceSampleValue(const std::int32_t& TraceNumber, const std::int32_t& SampleNumber,
                                       const float& RealValue, const float& ImaginaryValue);
    // One explicit X value. Fails with XaxisNotAllocated for uniform spacing, where X is
    // DataBlock_XaxisStart + (SampleNumber - 1) * DataBlock_XaxisIncrement; else SampleIndexError.
    ReturnStatus ReadDataBlockXaxisValue(const std::int32_t& SampleNumber, float& XaxisValue);
    ReturnStatus WriteDataBlockXaxisValue(const std::int32_t& SampleNumber, const float& XaxisValue);

    // sqrt(re^2 + im^2); 1.0E+34 where that does not fit, NaN where an input is NaN.
    float GetMagnitudeValueFrom(const float& RealValue, const float& ImaginaryValue) const;
    // magnitude * cos(phase), phase in degrees, with pi = 3.14159265358979; 0 where an input is not finite.
    float GetRealValueFrom(const float& MagnitudeValue, const float& PhaseValue) const;
    // magnitude * sin(phase), as above.
    float GetImaginaryValueFrom(const float& MagnitudeValue, const float& PhaseValue) const;
    // Phase in degrees, -180 to 180, or 0 to 360 with DisplayAs360; 0 where a value is not numeric.
    float GetPhaseValueFrom(const NumericVariant& RealValue, const NumericVariant& ImaginaryValue,
                            const Bool16& DisplayAs360) const;

    // ---- Data Block: trace properties ------------------------------------------------------------------
    // Errors of all: TraceDataNotAllocated without traces, TraceIndexError outside 1 to the number of traces.

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
    // DataIsVector, DataIsScalar or DataIsTensor; every other value is stored and read as DataIsVector.
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

private:
    ReturnStatus Report(ReturnStatus status, ErrorStatusTypes error);
    void ReallocateDataBlock();
    void UpdateAllocationFlags();

    std::chrono::system_clock::time_point CreationTime = std::chrono::system_clock::now();
    Bool16 TraceDataAllocated = false;
    Bool16 XaxisAllocated = false;
    ErrorStatusTypes OwnErrorStatus = NoError;
    std::u16string LastErrorText;
    DataBlock_DataFormatTypes PublicDataFormat = DataFormat_Undefined;
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
