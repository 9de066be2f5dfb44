// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Random sequences of Data Block members, on two objects of one thread, beside the model: every result, every error
// status, and now and then all that can be read and the bytes that are saved. A failure prints the shortest sequence
// and the RC_PARAMS that bring it back.
#include "component/DataBlockModel.h"
#include "component/DataBlockAccess.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <sstream>

namespace qor::test {
namespace {

// The component as the calls see it.
class Component
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
std::vector<Call> ReadOut()
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

// Empty when component and model show the same throughout; else the first difference.
std::string FirstDifference(const std::vector<Call>& sequence)
{
    std::ostringstream difference;
    OnAThreadOfItsOwn([&] {
        Component component;
        DataBlockModel model;
        const auto same = [&](const Call& call) {
            const Seen seen = component.Perform(call);
            const Seen expected = model.Perform(call);
            if (seen != expected) difference << call << ": " << seen << " instead of " << expected;
            return seen == expected;
        };
        const std::vector<Call> readOut = ReadOut();
        for (std::size_t i = 0; i < sequence.size(); ++i) {
            if (!same(sequence[i])) return;
            const bool readsOut = i % 16 == 15 || i + 1 == sequence.size();
            if (readsOut && !std::all_of(readOut.begin(), readOut.end(), same)) return;
        }
    });
    return difference.str();
}

rc::Gen<Call> AnyCall()
{
    const auto member =
        rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, static_cast<int>(Member::GetAddedHeader) + 1),
                                    [](int index) { return static_cast<Member>(index); }),
                       // What builds and fills a document comes oftener, or most sequences would touch nothing.
                       rc::gen::element(Member::SetNumberOfTraces, Member::SetNumberOfSamples, Member::SetFormat,
                                        Member::SetSpacing, Member::WriteSample, Member::WriteSample,
                                        Member::WriteXaxis, Member::SetTraceText, Member::LoadFile));
    const auto value =
        rc::gen::element<std::int32_t>(0, 1, 3, 4, 5, 6, 10, 1247, 32767, 32768, 40000, -1, -32768, -32769);
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const auto number =
        rc::gen::element(0.0F, -0.0F, 1.0F, -1.0F, 2.5F, 3.0F, 4.0F, 90.0F, -90.0F, 180.0F, 359.75F, -1e-20F, 1e-45F,
                         1e30F, 3.4e38F, infinity, -infinity, std::numeric_limits<float>::quiet_NaN());
    return rc::gen::build<Call>(
        rc::gen::set(&Call::object, rc::gen::element<std::size_t>(0, 0, 1)), rc::gen::set(&Call::member, member),
        rc::gen::set(&Call::trace, rc::gen::inRange(-2, 8)), rc::gen::set(&Call::sample, rc::gen::inRange(-1, 9)),
        rc::gen::set(&Call::value, value), rc::gen::set(&Call::x, number), rc::gen::set(&Call::y, number));
}

RC_GTEST_PROP(DataBlockModel, ShowsWhatTheComponentShowsForAnySequenceOfMembers, ())
{
    const auto sequence = *rc::gen::container<std::vector<Call>>(AnyCall());
    RC_ASSERT(FirstDifference(sequence) == "");
}

} // namespace
} // namespace qor::test

int main(int argc, char** argv)
{
    // More and longer sequences than by default; whoever sets the variable decides.
    setenv("RC_PARAMS", "max_success=400 max_size=300", 0);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
