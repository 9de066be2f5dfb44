// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"
#include "support/DataBlockFile.h"

namespace qor::test {
namespace {

// More than the room that small arrays share.
void FillLarge(World& world)
{
    Fill(world);
    world.file.DataBlock_XaxisSpacing(XaxisSpacing_Uniform);
    world.file.DataBlock_NumberOfSamples(40000);
}

// Three traces of four samples, as a file claims that holds none of them.
void Claim(World& world)
{
    Fill(world);
    const auto other = std::filesystem::path(world.target).replace_filename("claim.blk");
    WriteBytes(other, SizedFile(3, 4).Build());
    world.file.InputDataBlockFile(Utf16(other));
}

} // namespace

const std::vector<Operation>& DataBlockOperations()
{
    static const std::vector<Operation> operations = {
        {"clsQOR_File::InitializeDataBlockStorage", Fill,
         Sets([](World& w) { w.file.InitializeDataBlockStorage(); }),
         NeverAsks},
        {"clsQOR_File::InitializeDataBlockData", Fill,
         Sets([](World& w) { w.file.InitializeDataBlockData(); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_Label get", Fill, [](World& w) { return Text(w.file.DataBlock_Label()); }, ComesToNothing},
        {"clsQOR_File::DataBlock_Label set", Fill,
         Sets([](World& w) { w.file.DataBlock_Label(LongText); }),
         ComesToNothing},
        {"clsQOR_File::DataBlock_Notes get", Fill, [](World& w) { return Text(w.file.DataBlock_Notes()); }, ComesToNothing},
        {"clsQOR_File::DataBlock_Notes set", Fill,
         Sets([](World& w) { w.file.DataBlock_Notes(LongText); }),
         ComesToNothing},
        {"clsQOR_File::DataBlock_XaxisUnits get", Fill, [](World& w) { return Text(w.file.DataBlock_XaxisUnits()); },
         ComesToNothing},
        {"clsQOR_File::DataBlock_XaxisUnits set", Fill,
         Sets([](World& w) { w.file.DataBlock_XaxisUnits(LongText); }),
         ComesToNothing},
        {"clsQOR_File::DataBlock_NumberOfSamples get", Fill,
         [](World& w) { return Number(w.file.DataBlock_NumberOfSamples()); }, NeverAsks},
        {"clsQOR_File::DataBlock_NumberOfSamples set to a few more, for which there is room", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfSamples(9); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_NumberOfSamples set to fewer", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfSamples(2); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_NumberOfSamples set to none", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfSamples(0); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_NumberOfSamples set to many more", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfSamples(9000); }),
         EmptiesDataBlock},
        {"clsQOR_File::DataBlock_NumberOfSamples set to arrays with mappings of their own", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfSamples(600000); }),
         EmptiesDataBlock},
        {"clsQOR_File::DataBlock_NumberOfTraces get", Fill,
         [](World& w) { return Number(w.file.DataBlock_NumberOfTraces()); }, NeverAsks},
        {"clsQOR_File::DataBlock_NumberOfTraces set to more", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfTraces(600); }),
         EmptiesDataBlock},
        {"clsQOR_File::DataBlock_NumberOfTraces set to fewer", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfTraces(1); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_NumberOfTraces set to none", Fill,
         Sets([](World& w) { w.file.DataBlock_NumberOfTraces(0); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_TraceDataFormat get", Fill,
         [](World& w) { return Number(w.file.DataBlock_TraceDataFormat()); }, NeverAsks},
        {"clsQOR_File::DataBlock_TraceDataFormat set", FillLarge,
         Sets([](World& w) { w.file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase); }),
         EmptiesDataBlock},
        {"clsQOR_File::DataBlock_XaxisSpacing get", Fill,
         [](World& w) { return Number(w.file.DataBlock_XaxisSpacing()); }, NeverAsks},
        {"clsQOR_File::DataBlock_XaxisSpacing set", FillLarge,
         Sets([](World& w) { w.file.DataBlock_XaxisSpacing(XaxisSpacing_Octave); }),
         EmptiesDataBlock},
        {"clsQOR_File::DataBlock_XaxisSpacing set to uniform", Fill,
         Sets([](World& w) { w.file.DataBlock_XaxisSpacing(XaxisSpacing_Uniform); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_XaxisStart get", Fill,
         [](World& w) { return Number(w.file.DataBlock_XaxisStart()); }, NeverAsks},
        {"clsQOR_File::DataBlock_XaxisStart set", Fill,
         Sets([](World& w) { w.file.DataBlock_XaxisStart(2.5F); }),
         NeverAsks},
        {"clsQOR_File::DataBlock_XaxisIncrement get", Fill,
         [](World& w) { return Number(w.file.DataBlock_XaxisIncrement()); }, NeverAsks},
        {"clsQOR_File::DataBlock_XaxisIncrement set", Fill,
         Sets([](World& w) { w.file.DataBlock_XaxisIncrement(2.5F); }),
         NeverAsks},
        {"clsQOR_File::ReadTraceSampleValue", Fill,
         [](World& w) {
             Answer a = Number(w.file.ReadTraceSampleValue(2, 3, w.first[0], w.second[0]));
             a.values = {w.first[0], w.second[0]};
             return a;
         },
         NeverAsks},
        {"clsQOR_File::ReadTraceSampleValue of no trace", Fill,
         [](World& w) {
             Answer a = Number(w.file.ReadTraceSampleValue(99, 3, w.first[0], w.second[0]));
             a.values = {w.first[0], w.second[0]};
             return a;
         },
         KeepsOldErrorText},
        {"clsQOR_File::ReadTraceSampleValue of a trace that its file left out", Claim,
         [](World& w) {
             Answer a = Number(w.file.ReadTraceSampleValue(1, 1, w.first[0], w.second[0]));
             a.values = {w.first[0], w.second[0]};
             return a;
         },
         NeverAsks},
        {"clsQOR_File::WriteTraceSampleValue", Fill,
         [](World& w) { return Number(w.file.WriteTraceSampleValue(2, 3, 7, 8)); }, NeverAsks},
        {"clsQOR_File::WriteTraceSampleValue of no trace", Fill,
         [](World& w) { return Number(w.file.WriteTraceSampleValue(99, 3, 7, 8)); }, KeepsOldErrorText},
        {"clsQOR_File::WriteTraceSampleValue of a trace that its file left out", Claim,
         [](World& w) { return Number(w.file.WriteTraceSampleValue(1, 1, 7, 8)); }, NeverAsks},
        {"clsQOR_File::ReadDataBlockXaxisValue", Fill,
         [](World& w) {
             Answer a = Number(w.file.ReadDataBlockXaxisValue(2, w.first[0]));
             a.values = {w.first[0]};
             return a;
         },
         NeverAsks},
        {"clsQOR_File::ReadDataBlockXaxisValue of no sample", Fill,
         [](World& w) { return Number(w.file.ReadDataBlockXaxisValue(99, w.first[0])); }, KeepsOldErrorText},
        {"clsQOR_File::WriteDataBlockXaxisValue", Fill,
         [](World& w) { return Number(w.file.WriteDataBlockXaxisValue(2, 7)); }, NeverAsks},
        {"clsQOR_File::WriteDataBlockXaxisValue of no sample", Fill,
         [](World& w) { return Number(w.file.WriteDataBlockXaxisValue(99, 7)); },
         KeepsOldErrorText},
        {"clsQOR_File::GetMagnitudeValueFrom", Fill,
         [](World& w) { return Number(w.file.GetMagnitudeValueFrom(3, 4)); }, NeverAsks},
        {"clsQOR_File::GetRealValueFrom", Fill,
         [](World& w) { return Number(w.file.GetRealValueFrom(3, 4)); }, NeverAsks},
        {"clsQOR_File::GetImaginaryValueFrom", Fill,
         [](World& w) { return Number(w.file.GetImaginaryValueFrom(3, 4)); }, NeverAsks},
        {"clsQOR_File::GetPhaseValueFrom", Fill,
         [](World& w) { return Number(w.file.GetPhaseValueFrom(3.0F, 4.0, true)); }, NeverAsks},
        {"clsQOR_File::Trace_Label get", Fill, [](World& w) { return Text(w.file.Trace_Label(2)); }, ComesToNothing},
        {"clsQOR_File::Trace_Label get of no trace", Fill, [](World& w) { return Text(w.file.Trace_Label(99)); },
         KeepsOldErrorText},
        {"clsQOR_File::Trace_Label set", Fill,
         Sets([](World& w) { w.file.Trace_Label(2, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_Label set of no trace", Fill,
         Sets([](World& w) { w.file.Trace_Label(99, LongText); }),
         KeepsOldErrorText},
        {"clsQOR_File::Trace_Label set of a trace that its file left out", Claim,
         Sets([](World& w) { w.file.Trace_Label(1, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_DateAndTime get", Fill, [](World& w) { return Text(w.file.Trace_DateAndTime(2)); },
         ComesToNothing},
        {"clsQOR_File::Trace_DateAndTime get of no trace", Fill,
         [](World& w) { return Text(w.file.Trace_DateAndTime(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Trace_DateAndTime set", Fill,
         Sets([](World& w) { w.file.Trace_DateAndTime(2, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_DateAndTime set of no trace", Fill,
         Sets([](World& w) { w.file.Trace_DateAndTime(99, LongText); }),
         KeepsOldErrorText},
        {"clsQOR_File::Trace_DateAndTime set of a trace that its file left out", Claim,
         Sets([](World& w) { w.file.Trace_DateAndTime(1, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_DegreesOfFreedom get", Fill,
         [](World& w) { return Text(w.file.Trace_DegreesOfFreedom(2)); }, ComesToNothing},
        {"clsQOR_File::Trace_DegreesOfFreedom get of no trace", Fill,
         [](World& w) { return Text(w.file.Trace_DegreesOfFreedom(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Trace_DegreesOfFreedom set", Fill,
         Sets([](World& w) { w.file.Trace_DegreesOfFreedom(2, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_DegreesOfFreedom set of no trace", Fill,
         Sets([](World& w) { w.file.Trace_DegreesOfFreedom(99, LongText); }),
         KeepsOldErrorText},
        {"clsQOR_File::Trace_DegreesOfFreedom set of a trace that its file left out", Claim,
         Sets([](World& w) { w.file.Trace_DegreesOfFreedom(1, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_MeasurementUnits get", Fill,
         [](World& w) { return Text(w.file.Trace_MeasurementUnits(2)); }, ComesToNothing},
        {"clsQOR_File::Trace_MeasurementUnits get of no trace", Fill,
         [](World& w) { return Text(w.file.Trace_MeasurementUnits(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Trace_MeasurementUnits set", Fill,
         Sets([](World& w) { w.file.Trace_MeasurementUnits(2, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_MeasurementUnits set of no trace", Fill,
         Sets([](World& w) { w.file.Trace_MeasurementUnits(99, LongText); }),
         KeepsOldErrorText},
        {"clsQOR_File::Trace_MeasurementUnits set of a trace that its file left out", Claim,
         Sets([](World& w) { w.file.Trace_MeasurementUnits(1, LongText); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_MeasurementType get", Fill,
         [](World& w) { return Number(w.file.Trace_MeasurementType(2)); }, NeverAsks},
        {"clsQOR_File::Trace_MeasurementType get of no trace", Fill,
         [](World& w) { return Number(w.file.Trace_MeasurementType(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Trace_MeasurementType set", Fill,
         Sets([](World& w) { w.file.Trace_MeasurementType(2, DB_MeasurementIsFRF); }),
         NeverAsks},
        {"clsQOR_File::Trace_MeasurementType set of no trace", Fill,
         Sets([](World& w) { w.file.Trace_MeasurementType(99, DB_MeasurementIsFRF); }),
         KeepsOldErrorText},
        {"clsQOR_File::Trace_MeasurementType set of a trace that its file left out", Claim,
         Sets([](World& w) { w.file.Trace_MeasurementType(1, DB_MeasurementIsFRF); }),
         LeavesTheTrace<NoError>},
        {"clsQOR_File::Trace_DataSVT get", Fill,
         [](World& w) { return Number(w.file.Trace_DataSVT(2)); }, NeverAsks},
        {"clsQOR_File::Trace_DataSVT get of no trace", Fill,
         [](World& w) { return Number(w.file.Trace_DataSVT(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Trace_DataSVT set", Fill,
         Sets([](World& w) { w.file.Trace_DataSVT(2, DataIsTensor); }),
         NeverAsks},
        {"clsQOR_File::Trace_DataSVT set of no trace", Fill,
         Sets([](World& w) { w.file.Trace_DataSVT(99, DataIsTensor); }),
         KeepsOldErrorText},
        {"clsQOR_File::Trace_DataSVT set of a trace that its file left out", Claim,
         Sets([](World& w) { w.file.Trace_DataSVT(1, DataIsTensor); }),
         LeavesTheTrace<NoError>},

        {"ClassAdd_1::TraceLinPower get", Fill,
         [](World& w) { return Number(w.linPower.TraceLinPower(2)); }, NeverAsks},
        {"ClassAdd_1::TraceLinPower get of no trace", Fill,
         [](World& w) { return Number(w.linPower.TraceLinPower(99)); }, NeverAsks},
        {"ClassAdd_1::TraceLinPower set", Fill,
         Sets([](World& w) { w.linPower.TraceLinPower(2, MeasurementIsPower); }),
         NeverAsks},
        {"ClassAdd_1::TraceLinPower set of no trace", Fill,
         Sets([](World& w) { w.linPower.TraceLinPower(99, MeasurementIsPower); }),
         NeverAsks},
        {"ClassAdd_1::TraceLinPower set of a trace that its file left out", Claim,
         Sets([](World& w) { w.linPower.TraceLinPower(1, MeasurementIsPower); }),
         LeavesTheTrace<AllocationError>},
        {"ClassAdd_2::DataBlockPeakRMS get", Fill,
         [](World& w) { return Number(w.peakRMS.DataBlockPeakRMS()); }, NeverAsks},
        {"ClassAdd_2::DataBlockPeakRMS set", Fill,
         Sets([](World& w) { w.peakRMS.DataBlockPeakRMS(DisplayRMS); }),
         NeverAsks},
        {"ClassAdd_3::TraceZaxisLabel get", Fill, [](World& w) { return Text(w.zaxisLabel.TraceZaxisLabel(2)); },
         ComesToNothing},
        {"ClassAdd_3::TraceZaxisLabel set", Fill,
         Sets([](World& w) { w.zaxisLabel.TraceZaxisLabel(2, LongText); }),
         LeavesTheTrace<AllocationError>},
        {"ClassAdd_3::TraceZaxisLabel set of no trace", Fill,
         Sets([](World& w) { w.zaxisLabel.TraceZaxisLabel(99, LongText); }),
         NeverAsks},
        {"ClassAdd_5::XaxisUnits get", Fill,
         [](World& w) { return Number(w.xaxisUnits.XaxisUnits()); }, NeverAsks},
        {"ClassAdd_5::XaxisUnits set", Fill,
         Sets([](World& w) { w.xaxisUnits.XaxisUnits(XAxisIsMicrosec); }),
         NeverAsks},
        {"ClassAdd_5::DataBlockRPM get", Fill,
         [](World& w) { return Number(w.xaxisUnits.DataBlockRPM()); }, NeverAsks},
        {"ClassAdd_5::DataBlockRPM set", Fill,
         Sets([](World& w) { w.xaxisUnits.DataBlockRPM(2.5F); }),
         NeverAsks},
        {"ClassAdd_5::DataBlockExponentialWindowDampingInHz get", Fill,
         [](World& w) { return Number(w.xaxisUnits.DataBlockExponentialWindowDampingInHz()); },
         NeverAsks},
        {"ClassAdd_5::DataBlockExponentialWindowDampingInHz set", Fill,
         Sets([](World& w) { w.xaxisUnits.DataBlockExponentialWindowDampingInHz(2.5F); }),
         NeverAsks},

        {"FileArrays::NumberOfSamples", Fill,
         [](World& w) { return Number(w.arrays.NumberOfSamples()); }, NeverAsks},
        {"FileArrays::ReadTraceSamples", Fill,
         [](World& w) {
             Answer a = Number(w.arrays.ReadTraceSamples(2, w.first, w.second));
             a.values = {w.first[0], w.first[3], w.second[0], w.second[3]};
             return a;
         },
         NeverAsks},
        {"FileArrays::ReadTraceSamples of no trace", Fill,
         [](World& w) {
             Answer a = Number(w.arrays.ReadTraceSamples(99, w.first, w.second));
             a.values = {w.first[0], w.first[3], w.second[0], w.second[3]};
             return a;
         },
         KeepsOldErrorText},
        {"FileArrays::WriteTraceSamples", Fill,
         [](World& w) { return Number(w.arrays.WriteTraceSamples(2, w.first, w.second)); },
         NeverAsks},
        {"FileArrays::WriteTraceSamples of a trace that its file left out", Claim,
         [](World& w) { return Number(w.arrays.WriteTraceSamples(1, w.first, w.second)); },
         NeverAsks},
        {"FileArrays::ReadDataBlockXaxisValues", Fill,
         [](World& w) {
             Answer a = Number(w.arrays.ReadDataBlockXaxisValues(w.first));
             a.values = {w.first[0], w.first[3], w.second[0], w.second[3]};
             return a;
         },
         NeverAsks},
        {"FileArrays::WriteDataBlockXaxisValues", Fill,
         [](World& w) { return Number(w.arrays.WriteDataBlockXaxisValues(w.first)); }, NeverAsks},
    };
    return operations;
}

} // namespace qor::test
