// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/DataBlockModel.h"

#include "component/ConversionReference.h"
#include "component/DataBlockAccess.h"
#include "support/DataBlockFile.h"

#include <algorithm>

namespace qor::test {
namespace {

constexpr const char* MemberNames[] = {
    "SetNumberOfTraces", "SetNumberOfSamples", "SetFormat",    "GetFormat",          "SetSpacing",
    "SetStart",          "SetIncrement",       "SetTexts",     "GetHeader",          "Initialize",
    "InitializeStorage", "InitializeData",     "NewObject",    "GetErrorStatus",     "SetErrorStatus",
    "SaveFile",          "LoadFile",           "ReadSample",   "WriteSample",        "ReadXaxis",
    "WriteXaxis",        "GetTraceText",       "SetTraceText", "GetMeasurementType", "SetMeasurementType",
    "GetDataSVT",        "SetDataSVT",         "GetLinPower",  "SetLinPower",        "SetAddedHeader",
    "GetAddedHeader",
};

bool Fits16Bits(std::int32_t value) { return value == static_cast<std::int16_t>(value); }

std::u16string ErrorTextFor(std::int32_t code)
{
    const std::string number = std::to_string(code);
    const std::u16string head = u"Error (" + std::u16string(number.begin(), number.end()) + u"): ";
    if (code == 9) return head + u"Output file read error";
    if (code == 10) return head + u"Trace Index error";
    if (code == 11) return head + u"Sample Index error";
    if (code == 14) return head + u"Axis Number error";
    if (code == 15) return head + u"Invalid Center Point error";
    return head + u"Undefined error"; // of the codes that the Data Block members, and the calls here, report
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Call& call)
{
    return out << '[' << call.object << "] " << MemberNames[static_cast<std::size_t>(call.member)] << " trace "
               << call.trace << " sample " << call.sample << " value " << call.value << " x " << call.x << " y "
               << call.y;
}

std::ostream& operator<<(std::ostream& out, const Seen& seen)
{
    for (const std::int64_t number : seen.numbers) out << number << ' ';
    for (const std::u16string& text : seen.texts) out << '"' << std::string(text.begin(), text.end()) << "\" ";
    return out;
}

std::int32_t ErrorCodeFor(const Call& call) { return call.trace > 2 ? 8 + call.trace : std::min(call.trace, 0); }

std::u16string TextFor(std::int32_t value)
{
    const std::string digits = std::to_string(value);
    return value == 0 ? u"" : u"text " + std::u16string(digits.begin(), digits.end());
}

void DataBlockModel::Report(Object& object, std::int32_t error)
{
    object.error = error;
    if (error != 0) object.text = ErrorTextFor(error);
}

std::int32_t DataBlockModel::CheckTrace(std::int32_t trace) const
{
    if (document_.traces.empty()) return 13;
    return trace >= 1 && static_cast<std::size_t>(trace) <= document_.traces.size() ? 0 : 10;
}

void DataBlockModel::Reallocate(Object& object)
{
    const auto samples = static_cast<std::size_t>(document_.samples);
    object.error = 0;
    document_.xaxis.resize(document_.spacing == 1 ? 0 : samples);
    for (ModelTrace& trace : document_.traces) {
        trace.real.resize(document_.complex ? 0 : samples);
        trace.complex.resize(document_.complex ? samples : 0);
    }
    object.knowsXaxis = document_.spacing != 1 && document_.samples > 0;
}

// A file may count more samples than its traces have.
bool DataBlockModel::Holds(const ModelTrace& trace, std::int32_t sample) const
{
    const std::size_t size = document_.complex ? trace.complex.size() : trace.real.size();
    return sample >= 1 && static_cast<std::size_t>(sample) <= size;
}

Seen DataBlockModel::AccessSample(Object& object, const Call& call)
{
    const bool reads = call.member == Member::ReadSample;
    Seen refused{{Failure}, {}};
    if (reads) refused.numbers.insert(refused.numbers.end(), {Bits(UntouchedFirst), Bits(UntouchedSecond)});

    std::int32_t error = CheckTrace(call.trace);
    if (error == 0 && document_.samples < 1) error = 13;
    if (error == 0 && (call.sample < 0 || call.sample > document_.samples)) error = 11;
    if (error != 0) {
        Report(object, error);
        return refused;
    }

    ModelTrace& trace = At(call.trace);
    const auto place = static_cast<std::size_t>(call.sample - 1);
    const bool polar = object.format == 3;
    if (!reads) {
        if (!Holds(trace, call.sample)) return {{Success}, {}};
        if (!document_.complex) {
            trace.real[place] = call.x;
        } else if (polar) {
            trace.complex[place] = {ReferenceReal(call.x, call.y), ReferenceImaginary(call.x, call.y)};
        } else {
            trace.complex[place] = {call.x, call.y};
        }
        return {{Success}, {}};
    }
    float first = UntouchedFirst;
    float second = UntouchedSecond;
    if (Holds(trace, call.sample) && !document_.complex) first = trace.real[place];
    if (!document_.complex) second = 0;
    if (Holds(trace, call.sample) && document_.complex) {
        std::tie(first, second) = trace.complex[place];
        if (polar) {
            const float magnitude = ReferenceMagnitude(first, second);
            second = ReferencePhase(first, second, true);
            first = magnitude;
        }
    }
    return {{Success, Bits(first), Bits(second)}, {}};
}

Seen DataBlockModel::AccessXaxis(Object& object, const Call& call)
{
    const bool reads = call.member == Member::ReadXaxis;
    float value = UntouchedFirst;
    std::int32_t status = Success;
    if (!object.knowsXaxis || document_.samples < 1) {
        Report(object, 12);
        status = Failure;
    } else if (call.sample < 1 || call.sample > document_.samples) {
        Report(object, 11);
        status = Failure;
    } else if (!document_.xaxis.empty()) { // the other object may have released it
        float& place = document_.xaxis[static_cast<std::size_t>(call.sample - 1)];
        if (reads) {
            value = place;
        } else {
            place = call.x;
        }
    }
    return reads ? Seen{{status, Bits(value)}, {}} : Seen{{status}, {}};
}

Seen DataBlockModel::AccessTrace(Object& object, const Call& call)
{
    const auto which = static_cast<std::size_t>(call.sample & 7) % 5; // the fifth text is the added class's
    const bool ofText = call.member == Member::GetTraceText || call.member == Member::SetTraceText;
    const bool ofLinPower = call.member == Member::GetLinPower || call.member == Member::SetLinPower;
    const bool added = ofLinPower || (ofText && which == 4);

    const std::int32_t error = CheckTrace(call.trace);
    if (call.member == Member::SetLinPower) document_.fromFile = false;
    if (error != 0 && added) sharedError_ = error;
    if (error != 0 && !added) Report(object, error);
    ModelTrace absent;
    ModelTrace& trace = error == 0 ? At(call.trace) : absent;

    switch (call.member) {
    case Member::GetTraceText: return {{}, {trace.texts[which]}};
    case Member::SetTraceText: trace.texts[which] = TextFor(call.value); break;
    case Member::GetMeasurementType: return {{trace.measurementType}, {}};
    case Member::SetMeasurementType:
        if (Fits16Bits(call.value)) trace.measurementType = call.value;
        break;
    case Member::GetDataSVT: return {{trace.dataSVT == 0 ? 3 : trace.dataSVT}, {}};
    case Member::SetDataSVT: trace.dataSVT = call.value == 4 || call.value == 5 ? call.value : 3; break;
    case Member::GetLinPower: return {{trace.linPower}, {}};
    case Member::SetLinPower:
        if (Fits16Bits(call.value)) trace.linPower = call.value;
        break;
    default: break;
    }
    return {};
}

// ---- files ---------------------------------------------------------------------------------------------------

// The document as the writer lays it out, the values that only files bring at their defaults.
Bytes DataBlockModel::SavedBytes() const
{
    const Document& d = document_;
    const auto addText = [](auto& record, int tag, const std::u16string& text) {
        if (!text.empty()) record.Field(tag, Text(text));
    };
    const auto addWords = [](auto& record, int first, int last, const Bytes& value) {
        for (int tag = first; tag <= last; ++tag) record.Field(tag, value);
    };
    DataBlockFile file;
    file.Field(1, Int16(1));
    addText(file, 2, d.label);
    addText(file, 13, d.units);
    file.Field(3, Int16(static_cast<int>(d.traces.size()))).Field(4, Int32(d.samples));
    file.Field(20, Int16(d.complex ? 2 : 1)).Field(19, Int16(0)).Field(6, Int16(d.spacing));
    if (d.spacing == 1) file.Field(7, Float(d.start)).Field(8, Float(d.increment));
    Bytes xaxis;
    for (const float x : d.xaxis) xaxis += Float(x);
    if (!xaxis.empty()) file.Field(10, xaxis);
    addText(file, 21, d.notes);
    file.Field(22, Int16(0)).Field(23, Int32(0));
    addWords(file, 24, 27, Int16(0));
    file.Field(28, Int16(1211)).Field(29, Int16(4)).Field(30, Float(20)).Field(32, Int16(1317));
    if (d.fromFile) file.Field(67, Float(2e-5F)).Field(68, Float(1e-12F));
    addWords(file, 36, 38, Int16(1));
    file.Field(39, Int16(1211)).Field(40, Int16(4));
    addWords(file, 41, 46, Int16(-1));
    file.Field(14, Int32(0xFFFFFF)).Field(15, Int32(0xFFFFFF)).Field(16, Int32(0x0000FF)).Field(48, Int32(0x0000FF));
    file.Field(17, Int32(0xFF0000)).Field(18, Int32(0xE0E0E0));
    addWords(file, 49, 50, Int16(0));
    addWords(file, 51, 52, Int32(1));
    file.Field(53, Int16(-1));
    addWords(file, 54, 56, Int32(1));
    addWords(file, 57, 58, Int16(0));
    if (!d.traces.empty()) file.Field(11);
    for (const ModelTrace& trace : d.traces) {
        if (d.samples == 0) break; // the first trace cannot be written
        RecordBytes record = TraceBytes();
        for (const auto& [tag, text] : {std::pair(2, 0), std::pair(3, 1), std::pair(23, 2), std::pair(24, 3)}) {
            addText(record, tag, trace.texts[static_cast<std::size_t>(text)]);
        }
        Bytes samples;
        for (const float value : trace.real) samples += Float(value);
        for (const auto& [real, imaginary] : trace.complex) samples += Floats({real, imaginary});
        samples.resize(static_cast<std::size_t>(d.samples * (d.complex ? 8 : 4)));
        record.Field(17, samples).Field(25, Int32(0)).Field(26, Int16(0)).Field(22, Int16(0));
        record.Field(30, Int16(trace.dataSVT)).Field(6, Int16(trace.measurementType)).Field(31, Int16(0));
        addWords(record, 33, 40, Int32(0));
        addText(record, 29, trace.texts[4]);
        record.Field(32, Bytes(28)).Field(44, Int16(trace.linPower)).Field(45, Int16(0));
        file.Nested(record);
    }
    if (!d.traces.empty()) file.Field(12);
    if (d.fromFile) file.Field(72, Float(2e-5F));
    addWords(file, 73, 75, Int16(0));
    file.Field(76, Int16(d.peakRMS));
    addWords(file, 77, 92, Int16(0));
    if (d.fromFile) file.Field(93, Float(1e-12F));
    file.Field(94, Int32(0)).Field(95, Int32(0)).Field(96, Int16(0)).Field(97, Int16(0));
    if (d.xaxisUnits != 0) file.Field(100, Int16(d.xaxisUnits));
    if (d.damping != 0) file.Field(123, Float(d.damping)); // a NaN too
    if (d.rpm != 0) file.Field(160, Float(d.rpm));
    return file.Build();
}

// What reading those bytes brings.
DataBlockModel::Document DataBlockModel::SavedContent() const
{
    Document content = document_;
    if (document_.samples < 2) { // the reading ends there
        content = {};
        content.label = document_.label;
        content.units = document_.units;
        content.traces.resize(document_.traces.size());
        content.samples = document_.samples;
        return content;
    }
    content.fromFile = true;
    if (content.notes.empty()) content.notes = Document().notes;
    if (content.spacing != 1) content.start = content.increment = 0;
    if (content.damping == 0) content.damping = 0; // also for -0
    if (content.rpm == 0) content.rpm = 0;
    return content;
}

Seen DataBlockModel::Save(Object& object)
{
    Seen seen = {{Success}, {}};
    if (!document_.traces.empty() && document_.samples == 0) {
        seen = {{Failure}, {}};
        Report(object, 9);
    }
    for (const std::uint8_t byte : SavedBytes()) seen.numbers.push_back(byte);
    saved_ = SavedContent();
    document_.fromFile = false;
    return seen;
}

Seen DataBlockModel::Load(Object& object)
{
    document_ = {};
    object.knowsXaxis = false;
    if (!saved_) return {{Failure}, {}};
    document_ = *saved_;
    if (document_.samples < 2) {
        Report(object, 9);
        return {{Failure}, {}};
    }
    object.format = document_.complex ? 2 : 1;
    object.knowsXaxis = document_.spacing != 1;
    return {{Success}, {}};
}

// ---- members -------------------------------------------------------------------------------------------------

Seen DataBlockModel::Perform(const Call& call)
{
    Object& object = objects_[call.object];
    switch (call.member) {
    case Member::SetNumberOfTraces:
        document_.traces.resize(static_cast<std::size_t>(std::max(call.trace, 0)));
        Reallocate(object);
        return {};
    case Member::SetNumberOfSamples:
        document_.samples = std::max(call.trace, 0);
        Reallocate(object);
        return {};
    case Member::SetFormat:
        object.format = call.trace == 2 || call.trace == 3 ? call.trace : 1;
        document_.complex = object.format != 1;
        Reallocate(object);
        return {};
    case Member::GetFormat:
        if (!document_.complex) object.format = 1;
        if (document_.complex && object.format == 1) object.format = 2;
        return {{object.format}, {}};
    case Member::SetSpacing:
        document_.spacing = call.trace == 2 || call.trace == 3 ? call.trace : 1;
        Reallocate(object);
        return {};
    case Member::SetStart: document_.start = call.x; return {};
    case Member::SetIncrement: document_.increment = call.x > 0 ? call.x : 1; return {};
    case Member::SetTexts:
        document_.label = TextFor(call.value);
        document_.notes = TextFor(call.value + 1);
        document_.units = TextFor(call.value + 2);
        return {};
    case Member::GetHeader:
        return {{static_cast<std::int64_t>(document_.traces.size()), document_.samples, document_.spacing,
                 Bits(document_.start), Bits(document_.increment)},
                {document_.label, document_.notes, document_.units, object.text}};
    case Member::Initialize:
    case Member::InitializeStorage:
        document_ = {};
        object.knowsXaxis = false;
        return {};
    case Member::InitializeData: return {};
    case Member::NewObject: document_ = {}; return {};
    case Member::GetErrorStatus: {
        const std::int32_t error = object.error != 0 ? object.error : sharedError_;
        object.error = 0;
        return {{error}, {}};
    }
    case Member::SetErrorStatus: Report(object, ErrorCodeFor(call)); return {};
    case Member::SaveFile: return Save(object);
    case Member::LoadFile: return Load(object);
    case Member::ReadSample:
    case Member::WriteSample: return AccessSample(object, call);
    case Member::ReadXaxis:
    case Member::WriteXaxis: return AccessXaxis(object, call);
    case Member::SetAddedHeader:
        if (Fits16Bits(call.value)) document_.peakRMS = call.value;
        if (Fits16Bits(call.value)) document_.xaxisUnits = call.value;
        document_.rpm = call.x;
        document_.damping = call.y;
        return {};
    case Member::GetAddedHeader:
        return {{document_.peakRMS, document_.xaxisUnits, Bits(document_.rpm), Bits(document_.damping)}, {}};
    default: return AccessTrace(object, call);
    }
}

} // namespace qor::test
