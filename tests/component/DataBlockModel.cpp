// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/DataBlockModel.h"

#include "component/ConversionReference.h"
#include "component/DataBlockAccess.h"

#include <algorithm>

namespace qor::test {
namespace {

constexpr const char* MemberNames[] = {
    "SetNumberOfTraces", "SetNumberOfSamples", "SetFormat",          "GetFormat",      "SetSpacing",
    "SetStart",          "SetIncrement",       "SetTexts",           "GetHeader",      "Initialize",
    "InitializeStorage", "InitializeData",     "NewObject",          "GetErrorStatus", "SetErrorStatus",
    "ReadSample",        "WriteSample",        "ReadXaxis",          "WriteXaxis",     "GetTraceText",
    "SetTraceText",      "GetMeasurementType", "SetMeasurementType", "GetDataSVT",     "SetDataSVT",
    "GetLinPower",       "SetLinPower",        "SetAddedHeader",     "GetAddedHeader",
};

bool Fits16Bits(std::int32_t value) { return value == static_cast<std::int16_t>(value); }

std::u16string ErrorTextFor(std::int32_t code)
{
    const std::string number = std::to_string(code);
    const std::u16string head = u"Error (" + std::u16string(number.begin(), number.end()) + u"): ";
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
        if (call.sample == 0) return {{Success}, {}};
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
    if (call.sample > 0 && !document_.complex) first = trace.real[place];
    if (!document_.complex) second = 0;
    if (call.sample > 0 && document_.complex) {
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
    case Member::GetDataSVT: return {{trace.dataSVT}, {}};
    case Member::SetDataSVT: trace.dataSVT = call.value == 4 || call.value == 5 ? call.value : 3; break;
    case Member::GetLinPower: return {{trace.linPower}, {}};
    case Member::SetLinPower:
        if (Fits16Bits(call.value)) trace.linPower = call.value;
        break;
    default: break;
    }
    return {};
}

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
