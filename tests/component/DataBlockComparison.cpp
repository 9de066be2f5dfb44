// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/DataBlockComparison.h"

#include "component/Comparison.h"
#include "component/DataBlockAccess.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <stdexcept>

namespace qor::test {
namespace {

// The component as the calls see it.
class DataBlockComponent
{
public:
    Seen Perform(const Call& call)
    {
        clsQOR_File& file = objects_[call.object];
        switch (call.member) {
        case Member::SetNumberOfTraces: file.DataBlock_NumberOfTraces(call.trace); return {};
        case Member::SetNumberOfSamples: file.DataBlock_NumberOfSamples(call.trace); return {};
        case Member::SetFormat:
            file.DataBlock_TraceDataFormat(static_cast<DataBlock_DataFormatTypes>(call.trace));
            return {};
        case Member::GetFormat: return {{file.DataBlock_TraceDataFormat()}, {}};
        case Member::SetSpacing:
            file.DataBlock_XaxisSpacing(static_cast<DataBlock_XaxisSpacingTypes>(call.trace));
            return {};
        case Member::SetStart: file.DataBlock_XaxisStart(call.x); return {};
        case Member::SetIncrement: file.DataBlock_XaxisIncrement(call.x); return {};
        case Member::SetTexts:
            file.DataBlock_Label(TextFor(call.value));
            file.DataBlock_Notes(TextFor(call.value + 1));
            file.DataBlock_XaxisUnits(TextFor(call.value + 2));
            return {};
        case Member::GetHeader:
            return {{file.DataBlock_NumberOfTraces(), file.DataBlock_NumberOfSamples(), file.DataBlock_XaxisSpacing(),
                     Bits(file.DataBlock_XaxisStart()), Bits(file.DataBlock_XaxisIncrement())},
                    {file.DataBlock_Label(), file.DataBlock_Notes(), file.DataBlock_XaxisUnits(),
                     file.GetLastErrorString()}};
        case Member::Initialize: file.Initialize(); return {};
        case Member::InitializeStorage: file.InitializeDataBlockStorage(); return {};
        case Member::InitializeData: file.InitializeDataBlockData(); return {};
        case Member::NewObject: clsQOR_File(); return {};
        case Member::GetErrorStatus: return {{file.ErrorStatus()}, {}};
        case Member::SetErrorStatus: file.ErrorStatus(static_cast<ErrorStatusTypes>(ErrorCodeFor(call))); return {};
        case Member::SaveFile: {
            Seen seen = {{file.OutputDataBlockFile(Utf16(folder_ / "saved.blk"))}, {}};
            for (const std::uint8_t byte : BytesOf(folder_ / "saved.blk")) seen.numbers.push_back(byte);
            return seen;
        }
        case Member::LoadFile: return {{file.InputDataBlockFile(Utf16(folder_ / "saved.blk"))}, {}};
        case Member::ReadSample: {
            const SampleRead read = Read(file, call.trace, call.sample);
            return {{read.status, Bits(read.first), Bits(read.second)}, {}};
        }
        case Member::WriteSample: return {{file.WriteTraceSampleValue(call.trace, call.sample, call.x, call.y)}, {}};
        case Member::ReadXaxis: {
            const XaxisRead read = ReadX(file, call.sample);
            return {{read.status, Bits(read.value)}, {}};
        }
        case Member::WriteXaxis: return {{file.WriteDataBlockXaxisValue(call.sample, call.x)}, {}};
        case Member::GetTraceText: return {{}, {TraceText(file, call)}};
        case Member::SetTraceText: SetTraceText(file, call); return {};
        case Member::GetMeasurementType: return {{file.Trace_MeasurementType(call.trace)}, {}};
        case Member::SetMeasurementType:
            file.Trace_MeasurementType(call.trace, static_cast<DataBlock_MeasurementTypes>(call.value));
            return {};
        case Member::GetDataSVT: return {{file.Trace_DataSVT(call.trace)}, {}};
        case Member::SetDataSVT: file.Trace_DataSVT(call.trace, static_cast<SVTvalues>(call.value)); return {};
        case Member::GetLinPower: return {{ClassAdd_1().TraceLinPower(call.trace)}, {}};
        case Member::SetLinPower:
            ClassAdd_1().TraceLinPower(call.trace, static_cast<TraceLinPowerFlags>(call.value));
            return {};
        case Member::SetAddedHeader:
            ClassAdd_2().DataBlockPeakRMS(static_cast<DataBlockPeakRMSFlags>(call.value));
            ClassAdd_5().XaxisUnits(static_cast<XaxisUnitsAre>(call.value));
            ClassAdd_5().DataBlockRPM(call.x);
            ClassAdd_5().DataBlockExponentialWindowDampingInHz(call.y);
            return {};
        case Member::GetAddedHeader:
            return {{ClassAdd_2().DataBlockPeakRMS(), ClassAdd_5().XaxisUnits(), Bits(ClassAdd_5().DataBlockRPM()),
                     Bits(ClassAdd_5().DataBlockExponentialWindowDampingInHz())},
                    {}};
        }
        throw std::logic_error("a call that the component does not know");
    }

private:
    static std::u16string TraceText(clsQOR_File& file, const Call& call)
    {
        switch ((call.sample & 7) % 5) {
        case 0: return file.Trace_Label(call.trace);
        case 1: return file.Trace_DateAndTime(call.trace);
        case 2: return file.Trace_DegreesOfFreedom(call.trace);
        case 3: return file.Trace_MeasurementUnits(call.trace);
        default: return ClassAdd_3().TraceZaxisLabel(call.trace);
        }
    }
    static void SetTraceText(clsQOR_File& file, const Call& call)
    {
        const std::u16string text = TextFor(call.value);
        switch ((call.sample & 7) % 5) {
        case 0: return file.Trace_Label(call.trace, text);
        case 1: return file.Trace_DateAndTime(call.trace, text);
        case 2: return file.Trace_DegreesOfFreedom(call.trace, text);
        case 3: return file.Trace_MeasurementUnits(call.trace, text);
        default: return ClassAdd_3().TraceZaxisLabel(call.trace, text);
        }
    }

    TemporaryFolder folder_;
    std::array<clsQOR_File, 2> objects_;
};

// Calls that read everything, one element beyond each end included, and save it.
std::vector<Call> ReadOutDataBlock()
{
    std::vector<Call> calls;
    for (const std::size_t object : {0U, 1U}) {
        for (const Member member : {Member::GetHeader, Member::GetErrorStatus, Member::GetAddedHeader}) {
            calls.push_back({.object = object, .member = member});
        }
        for (std::int32_t sample = 0; sample <= 8; ++sample) {
            calls.push_back({.object = object, .member = Member::ReadXaxis, .sample = sample});
        }
        for (std::int32_t trace = 0; trace <= 8; ++trace) {
            for (std::int32_t sample = 0; sample <= 8; ++sample) {
                calls.push_back({object, Member::ReadSample, trace, sample});
            }
            for (std::int32_t text = 0; text < 5; ++text) {
                calls.push_back({object, Member::GetTraceText, trace, text});
            }
            for (const Member member : {Member::GetMeasurementType, Member::GetDataSVT, Member::GetLinPower}) {
                calls.push_back({object, member, trace});
            }
        }
        calls.push_back({.object = object, .member = Member::GetHeader});
        calls.push_back({.object = object, .member = Member::GetErrorStatus});
        calls.push_back({.object = object, .member = Member::GetFormat});
    }
    calls.push_back({.member = Member::SaveFile});
    return calls;
}

} // namespace

std::string FirstDifference(const std::vector<Call>& sequence)
{
    return FirstDifferenceOf<DataBlockComponent, DataBlockModel>(sequence, ReadOutDataBlock());
}

} // namespace qor::test
