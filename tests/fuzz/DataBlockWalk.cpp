// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of the component itself, of its Data Block, and those that belong to no document.
#include "fuzz/MemberWalk.h"
#include "support/Exercise.h"

#include <cmath>

namespace qor::test {
namespace {

DataBlock& Block() { return modQOR_File().DataBlock; }

std::int32_t AnyTrace(MemberWalk& walk) { return walk.in.Number(walk.File().DataBlock_NumberOfTraces()); }
std::int32_t AnySample(MemberWalk& walk) { return walk.in.Number(walk.File().DataBlock_NumberOfSamples()); }

ErrorStatusTypes TraceError(clsQOR_File& file, std::int32_t trace)
{
    const std::int32_t traces = file.DataBlock_NumberOfTraces();
    if (traces < 1) return TraceDataNotAllocated;
    return trace >= 1 && trace <= traces ? NoError : TraceIndexError;
}

// Failure without a code stands for a format that only a damaged file brings.
ErrorStatusTypes SampleError(clsQOR_File& file, std::int32_t trace, std::int32_t sample)
{
    const ErrorStatusTypes error = TraceError(file, trace);
    const std::int32_t samples = file.DataBlock_NumberOfSamples();
    if (error != NoError) return error;
    if (samples < 1) return TraceDataNotAllocated;
    return sample >= 0 && sample <= samples ? NoError : SampleIndexError;
}

bool HasKnownFormat() { return Block().DataFormat == RealFormat || Block().DataFormat == ComplexFormat; }

// ---- component -------------------------------------------------------------------------------------------------

void SetErrorStatus(MemberWalk& walk)
{
    const auto error = static_cast<ErrorStatusTypes>(walk.in.From(0, 37));
    walk.File().ErrorStatus(error);
    walk.Expect(error == NoError || walk.File().GetLastErrorString().starts_with(u"Error ("), "the error text");
    walk.ExpectError(error);
}

void Initialize(MemberWalk& walk)
{
    walk.File().Initialize();
    walk.Expect(walk.File().DataBlock_NumberOfTraces() == 0 && walk.File().DataBlock_NumberOfSamples() == 0, "sizes");
    walk.Expect(walk.File().ShapeTable_NumberOfShapes() == 0 && walk.File().ShapeTable_NumberOfDOFs() == 0, "counts");
    walk.Expect(walk.File().Structure_NumberOfVertexPoints() == 0, "vertex points");
    walk.Expect(std::abs(walk.File().DLLversion() - 1.05F) < 0.001F, "the version");
}

void NewObject(MemberWalk& walk)
{
    const clsQOR_File fresh;
    walk.Expect(fresh.GetLastErrorString().empty() && fresh.DataBlock_NumberOfTraces() == 0, "a new object");
}

void Convert(MemberWalk& walk)
{
    const float first = walk.in.Float();
    const float second = walk.in.Float();
    const float magnitude = walk.File().GetMagnitudeValueFrom(first, second);
    walk.Expect(!(magnitude < 0) && !std::isinf(magnitude), "a magnitude");
    const bool finite = std::isfinite(first) && std::isfinite(second);
    walk.Expect(std::isnan(magnitude) == (std::isnan(first) || std::isnan(second)), "a magnitude that is no number");
    const float parts[] = {walk.File().GetRealValueFrom(first, second),
                           walk.File().GetImaginaryValueFrom(first, second)};
    for (const float part : parts) {
        walk.Expect(std::abs(part) <= std::abs(first) || (!finite && part == 0), "a part beyond its magnitude");
    }
}

void ConvertToPhase(MemberWalk& walk)
{
    const auto any = [&]() -> NumericVariant {
        switch (walk.in.From(0, 8)) {
        case 0: return std::monostate();
        case 1: return walk.in.Byte();
        case 2: return static_cast<std::int16_t>(walk.in.Number());
        case 3: return walk.in.Number();
        case 4: return std::int64_t{walk.in.Number()} * walk.in.Number();
        case 5: return walk.in.Float();
        case 6: return double{walk.in.Float()} * walk.in.Float();
        case 7: return Bool16::Raw(static_cast<std::int16_t>(walk.in.Number()));
        default: return walk.in.Text();
        }
    };
    const Bool16 as360 = Bool16::Raw(static_cast<std::int16_t>(walk.in.From(-1, 1)));
    const NumericVariant real = any();
    const NumericVariant imaginary = any();
    const float phase = walk.File().GetPhaseValueFrom(real, imaginary, as360);
    walk.Expect(phase >= (as360 ? 0.0F : -180.0F) && phase <= (as360 ? 360.0F : 180.0F), "a phase");
}

void SplitPath(MemberWalk& walk)
{
    const std::u16string path = walk.in.Text();
    const std::u16string other = walk.in.Text();
    clsQOR_File& file = walk.File();
    walk.Expect(path.find(file.GetFilePath(path)) != std::u16string::npos, "a folder that is no part of the path");
    walk.Expect(path.find(file.GetFileName(path)) != std::u16string::npos, "a name that is no part of the path");
    walk.Expect(file.PathNamesEqual(path, path) || Trimmed(path).empty(), "a path that does not equal itself");
    walk.Expect(file.PathNamesEqual(path, other).value == file.PathNamesEqual(other, path).value, "equality");
    file.GetDOS_FilePathName(path);
    walk.ExpectError(NoError);
}

// ---- header ----------------------------------------------------------------------------------------------------

// A size setting that cannot be met empties the Data Block.
void ExpectSize(MemberWalk& walk, bool kept)
{
    const bool empty = walk.File().DataBlock_NumberOfTraces() == 0 && walk.File().DataBlock_NumberOfSamples() == 0;
    const ErrorStatusTypes error = walk.File().ErrorStatus();
    walk.Expect(error == AllocationError ? empty : error == NoError && kept, "a size");
}

void SetTraces(MemberWalk& walk)
{
    std::int32_t count = walk.in.Number(Block().NumberOfTraces);
    if (!IsQuick(std::min(count, 32000), Block().NumberOfSamples)) count = 1;
    if (!IsQuick(count, Block().NumberOfSamples)) return;
    walk.File().DataBlock_NumberOfTraces(count);
    ExpectSize(walk, walk.File().DataBlock_NumberOfTraces() == std::clamp(count, 0, 32000));
}

void SetSamples(MemberWalk& walk)
{
    std::int32_t count = walk.in.Number(Block().NumberOfSamples);
    if (!IsQuick(std::max<std::int32_t>(Block().NumberOfTraces, 1), count)) count %= 16;
    if (!IsQuick(Block().NumberOfTraces, count)) return;
    walk.File().DataBlock_NumberOfSamples(count);
    ExpectSize(walk, walk.File().DataBlock_NumberOfSamples() == std::max(count, 0));
}

void SetFormat(MemberWalk& walk)
{
    if (!IsQuick(std::max<std::int32_t>(Block().NumberOfTraces, 1), Block().NumberOfSamples)) return;
    const std::int32_t format = walk.in.Number(2);
    walk.File().DataBlock_TraceDataFormat(static_cast<DataBlock_DataFormatTypes>(format));
    const std::int32_t kept = format == 2 || format == 3 ? format : 1;
    const ErrorStatusTypes error = walk.File().ErrorStatus();
    walk.Expect(error == AllocationError || walk.File().DataBlock_TraceDataFormat() == kept, "the format");
}

void SetSpacing(MemberWalk& walk)
{
    if (!IsQuick(std::max<std::int32_t>(Block().NumberOfTraces, 1), Block().NumberOfSamples)) return;
    const std::int32_t spacing = walk.in.Number(2);
    walk.File().DataBlock_XaxisSpacing(static_cast<DataBlock_XaxisSpacingTypes>(spacing));
    const std::int32_t kept = spacing == 2 || spacing == 3 ? spacing : 1;
    const ErrorStatusTypes error = walk.File().ErrorStatus();
    walk.Expect(error == AllocationError || walk.File().DataBlock_XaxisSpacing() == kept, "the spacing");
}

void SetHeader(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::u16string text = walk.in.Text();
    const float number = walk.in.Float();
    file.DataBlock_Label(text);
    file.DataBlock_Notes(text);
    file.DataBlock_XaxisUnits(text);
    file.DataBlock_XaxisStart(number);
    file.DataBlock_XaxisIncrement(number);
    ClassAdd_5().DataBlockRPM(number);
    ClassAdd_5().DataBlockExponentialWindowDampingInHz(number);
    walk.Expect(file.DataBlock_Label() == text && file.DataBlock_Notes() == text && file.DataBlock_XaxisUnits() == text,
                "a text of the header");
    walk.Expect(SameFloat(file.DataBlock_XaxisStart(), number), "the start of the X axis");
    walk.Expect(file.DataBlock_XaxisIncrement() == (number > 0 ? number : 1), "the increment of the X axis");
    walk.Expect(SameFloat(ClassAdd_5().DataBlockRPM(), number), "RPM");
    walk.Expect(SameFloat(ClassAdd_5().DataBlockExponentialWindowDampingInHz(), number), "the damping");
    walk.ExpectError(NoError);
}

void SetHeaderCodes(MemberWalk& walk)
{
    const std::int32_t code = walk.in.Number();
    const bool fits = code == static_cast<std::int16_t>(code);
    const auto peak = ClassAdd_2().DataBlockPeakRMS();
    const auto units = ClassAdd_5().XaxisUnits();
    ClassAdd_2().DataBlockPeakRMS(static_cast<DataBlockPeakRMSFlags>(code));
    ClassAdd_5().XaxisUnits(static_cast<XaxisUnitsAre>(code));
    walk.Expect(ClassAdd_2().DataBlockPeakRMS() == (fits ? code : std::int32_t{peak}), "the kind of display");
    walk.Expect(ClassAdd_5().XaxisUnits() == (fits ? code : std::int32_t{units}), "the units");
    walk.ExpectError(NoError);
}

void InitializeStorage(MemberWalk& walk)
{
    walk.File().InitializeDataBlockStorage();
    walk.Expect(walk.File().DataBlock_NumberOfTraces() == 0 && walk.File().DataBlock_NumberOfSamples() == 0, "sizes");
    walk.Expect(walk.File().DataBlock_Notes() == u"Data Block history", "the notes");
    walk.File().InitializeDataBlockData();
    walk.ExpectError(NoError);
}

// ---- traces ----------------------------------------------------------------------------------------------------

struct TraceText {
    std::u16string (*get)(clsQOR_File& file, std::int32_t trace);
    void (*set)(clsQOR_File& file, std::int32_t trace, std::u16string_view text);
};
constexpr TraceText TraceTexts[] = {
    {[](auto& file, auto trace) { return file.Trace_Label(trace); },
     [](auto& file, auto trace, auto text) { file.Trace_Label(trace, text); }},
    {[](auto& file, auto trace) { return file.Trace_DateAndTime(trace); },
     [](auto& file, auto trace, auto text) { file.Trace_DateAndTime(trace, text); }},
    {[](auto& file, auto trace) { return file.Trace_DegreesOfFreedom(trace); },
     [](auto& file, auto trace, auto text) { file.Trace_DegreesOfFreedom(trace, text); }},
    {[](auto& file, auto trace) { return file.Trace_MeasurementUnits(trace); },
     [](auto& file, auto trace, auto text) { file.Trace_MeasurementUnits(trace, text); }},
    {[](auto&, auto trace) { return ClassAdd_3().TraceZaxisLabel(trace); },
     [](auto&, auto trace, auto text) { ClassAdd_3().TraceZaxisLabel(trace, text); }},
};

void SetTraceText(MemberWalk& walk)
{
    const TraceText member = walk.in.OneOf(TraceTexts);
    const std::int32_t trace = AnyTrace(walk);
    const std::u16string text = walk.in.Text();
    const ErrorStatusTypes error = TraceError(walk.File(), trace);
    member.set(walk.File(), trace, text);
    walk.ExpectError(error);
    walk.Expect(member.get(walk.File(), trace) == (error == NoError ? text : u""), "a text of a trace");
    walk.ExpectError(error);
}

void SetTraceCodes(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::int32_t trace = AnyTrace(walk);
    const std::int32_t code = walk.in.Number(4);
    const ErrorStatusTypes error = TraceError(file, trace);
    const bool kept = error == NoError && code == static_cast<std::int16_t>(code);
    const std::int32_t type = file.Trace_MeasurementType(trace);
    const std::int32_t power = ClassAdd_1().TraceLinPower(trace);
    file.Trace_MeasurementType(trace, static_cast<DataBlock_MeasurementTypes>(code));
    walk.ExpectError(error);
    file.Trace_DataSVT(trace, static_cast<SVTvalues>(code));
    walk.ExpectError(error);
    ClassAdd_1().TraceLinPower(trace, static_cast<TraceLinPowerFlags>(code));
    walk.ExpectError(error);
    walk.Expect(file.Trace_MeasurementType(trace) == (kept ? code : type), "the measurement type");
    walk.Expect(ClassAdd_1().TraceLinPower(trace) == (kept ? code : power), "linear or power");
    const bool known = error == NoError && (code == DataIsScalar || code == DataIsTensor);
    walk.Expect(file.Trace_DataSVT(trace) == (known ? code : DataIsVector), "the kind of data");
    walk.ExpectError(error);
}

// ---- values ----------------------------------------------------------------------------------------------------

// A number that its array does not hold, as after a damaged file, is read as it was passed.
bool Holds(std::int32_t trace, std::int32_t sample)
{
    const Trace& record = Block().Traces[trace];
    return Block().DataFormat == ComplexFormat ? record.ComplexSamples.Has(sample) : record.RealSamples.Has(sample);
}

void AccessSample(MemberWalk& walk)
{
    const std::int32_t trace = AnyTrace(walk);
    const std::int32_t sample = AnySample(walk);
    const float values[] = {walk.in.Float(), walk.in.Float()};
    const ErrorStatusTypes error = SampleError(walk.File(), trace, sample);
    const bool polar = walk.File().DataBlock_TraceDataFormat() == DataFormat_MgnitudePhase;
    const ReturnStatus written = walk.File().WriteTraceSampleValue(trace, sample, values[0], values[1]);
    if (error == NoError && !HasKnownFormat()) {
        walk.Expect(written == Failure, "a sample of no format");
        return walk.ExpectError(NoError);
    }
    walk.ExpectStatus(written, error);
    float first = 7;
    float second = 8;
    walk.ExpectStatus(walk.File().ReadTraceSampleValue(trace, sample, first, second), error);
    if (error != NoError || !Holds(trace, sample)) {
        return walk.Expect(first == 7 && (second == 8 || (error == NoError && second == 0)), "values that came anyhow");
    }
    if (Block().DataFormat == RealFormat) {
        walk.Expect(SameFloat(first, values[0]) && second == 0, "a real sample");
    } else if (!polar) {
        walk.Expect(SameFloat(first, values[0]) && SameFloat(second, values[1]), "a complex sample");
    } else {
        walk.Expect(!(first < 0) && second >= 0 && second <= 360, "magnitude and phase");
    }
}

void AccessXvalue(MemberWalk& walk)
{
    const std::int32_t sample = AnySample(walk);
    const float value = walk.in.Float();
    const bool inRange = sample >= 1 && sample <= walk.File().DataBlock_NumberOfSamples();
    const ReturnStatus written = walk.File().WriteDataBlockXaxisValue(sample, value);
    const ErrorStatusTypes error = walk.File().ErrorStatus();
    walk.Expect(written == Success ? error == NoError : error == XaxisNotAllocated || error == SampleIndexError,
                "an error of the X axis");
    walk.Expect(written == Success ? inRange : !inRange || error == XaxisNotAllocated, "the range of the X axis");
    float read = 7;
    walk.ExpectStatus(walk.File().ReadDataBlockXaxisValue(sample, read), error);
    const bool held = written == Success && Block().Xaxis.Has(sample);
    walk.Expect(SameFloat(read, held ? value : 7), "an X value");
}

void AccessArrays(MemberWalk& walk)
{
    const std::int32_t trace = AnyTrace(walk);
    const bool ofObject = walk.in.Byte() % 2 == 0;
    FileArrays arrays = ofObject ? FileArrays(walk.File()) : FileArrays();
    const std::int32_t count = arrays.NumberOfSamples();
    if (count > MostValues) return;
    const std::int32_t size = std::max(count + walk.in.Byte() / 128 - walk.in.Byte() / 128, 0);
    std::vector<float> first(static_cast<std::size_t>(size), walk.in.Float());
    std::vector<float> second(walk.in.Byte() % 4 == 0 ? 0 : first.size(), walk.in.Float());
    const ErrorStatusTypes error = SampleError(walk.File(), trace, size == count ? std::min(count, 1) : INT32_MAX);
    const ReturnStatus written = arrays.WriteTraceSamples(trace, first, second);
    if (error == NoError && !HasKnownFormat()) return walk.Expect(written == Failure, "samples of no format");
    walk.ExpectStatus(written, size == 0 || second.empty() || second.size() == first.size() ? error : SampleIndexError);
    walk.ExpectStatus(arrays.ReadTraceSamples(trace, first, second), error);
    const ReturnStatus axis = arrays.ReadDataBlockXaxisValues(first);
    walk.Expect(axis == Failure || size == count, "X values of another number");
    walk.Expect(arrays.WriteDataBlockXaxisValues(first) == Failure || axis == Success, "X values that cannot be read");
    walk.File().ErrorStatus();
    modQOR_File().SharedErrorStatus = NoError;
}

// ---- files -----------------------------------------------------------------------------------------------------

void Load(MemberWalk& walk)
{
    const Bytes bytes = walk.AnyDataBlock();
    MemoryFile memory(bytes);
    DataBlock document;
    const LoadResult expected = LoadDataBlock(memory, document);
    const UnlinkedFile onDisk(bytes);
    walk.Expect(onDisk.Good(), "no file to read from");
    walk.Expect(walk.File().InputDataBlockFile(onDisk.Path()) == expected.status, "the result");
    walk.ExpectError(expected.error);
    if (std::string found = Difference(Block(), document); !found.empty()) walk.Expect(false, found);
}

void LoadNothing(MemberWalk& walk)
{
    const bool blank = walk.in.Byte() % 2 == 0;
    const ReturnStatus status = walk.File().InputDataBlockFile(blank ? u"  " : u"/no such folder/a");
    walk.ExpectStatus(status == Failure ? Success : Failure, NoError);
    walk.Expect(walk.File().DataBlock_NumberOfTraces() == 0, "traces of no file");
}

void Save(MemberWalk& walk)
{
    const std::int64_t values = std::int64_t{Block().NumberOfTraces} * Block().NumberOfSamples;
    if (values > MostValues || Block().NumberOfSamples > MostValues || Block().NumberOfTraces > 1000) return;
    LoadResult made;
    made.status = Success;
    if (std::string found = SavingDifference(made, Block()); !found.empty()) walk.Expect(false, found);
    MemoryFile memory;
    const Outcome expected = SaveDataBlock(memory, Block());
    const auto path = walk.Path("a.blk");
    walk.Expect(walk.File().OutputDataBlockFile(Utf16(path)) == expected.status, "the result");
    walk.ExpectError(expected.error);
    walk.savedDataBlock = BytesOf(path);
    walk.Expect(walk.savedDataBlock == memory.Content(), "the bytes of the file");
}

constexpr Operation Operations[] = {
    {"ErrorStatus", SetErrorStatus},
    {"Initialize", Initialize},
    {"clsQOR_File", NewObject},
    {"conversions", Convert},
    {"GetPhaseValueFrom", ConvertToPhase},
    {"path names", SplitPath},
    {"DataBlock_NumberOfTraces", SetTraces},
    {"DataBlock_NumberOfSamples", SetSamples},
    {"DataBlock_TraceDataFormat", SetFormat},
    {"DataBlock_XaxisSpacing", SetSpacing},
    {"header values", SetHeader},
    {"header codes", SetHeaderCodes},
    {"InitializeDataBlockStorage", InitializeStorage},
    {"texts of traces", SetTraceText},
    {"codes of traces", SetTraceCodes},
    {"samples", AccessSample},
    {"X values", AccessXvalue},
    {"arrays of samples", AccessArrays},
    {"InputDataBlockFile", Load},
    {"InputDataBlockFile of nothing", LoadNothing},
    {"OutputDataBlockFile", Save},
};

} // namespace

std::span<const Operation> DataBlockOperations() { return Operations; }

} // namespace qor::test
