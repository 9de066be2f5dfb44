// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What tests and fuzz targets do with the bytes of a file that may be damaged in any way: read them whole and in
// part, look at the result through every member, change it, and save it again. It must never crash, whatever
// the bytes; what else must hold is checked here.
#pragma once

#include "component/modQOR_File.h"
#include "datablock/Load_DataBlock.h"
#include "datablock/Save_DataBlock.h"
#include "support/MemoryFile.h"
#include "support/SameDocument.h"
#include "support/UnlinkedFile.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <string>

namespace qor::test {

// A save stops here: what a file claims may be far larger than the file.
inline constexpr std::uint64_t LargestExercisedSave = std::uint64_t{1} << 17;
inline constexpr std::int32_t MostExercisedTraces = 20;
inline constexpr std::int32_t MostResizedSamples = 10000;

// Reads all that the members of the component tell about the thread's Data Block.
inline void ReadMembers(clsQOR_File& component)
{
    const std::int32_t traces = component.DataBlock_NumberOfTraces();
    const std::int32_t samples = component.DataBlock_NumberOfSamples();
    component.DataBlock_Label();
    component.DataBlock_Notes();
    component.DataBlock_XaxisUnits();
    component.DataBlock_TraceDataFormat();
    component.DataBlock_XaxisSpacing();
    component.DataBlock_XaxisStart();
    component.DataBlock_XaxisIncrement();
    ClassAdd_2().DataBlockPeakRMS();
    ClassAdd_5().XaxisUnits();
    ClassAdd_5().DataBlockRPM();
    ClassAdd_5().DataBlockExponentialWindowDampingInHz();
    float first = 0;
    float second = 0;
    const std::int32_t last = std::clamp(samples, 0, INT32_MAX - 1);
    const auto around = {-1, 0, 1, 2, last / 2, last - 1, last, last + 1, samples};
    for (const std::int32_t sample : around) component.ReadDataBlockXaxisValue(sample, first);
    for (std::int32_t trace = 0; trace <= std::min(traces + 1, MostExercisedTraces); ++trace) {
        component.Trace_Label(trace);
        component.Trace_DateAndTime(trace);
        component.Trace_DegreesOfFreedom(trace);
        component.Trace_MeasurementType(trace);
        component.Trace_MeasurementUnits(trace);
        component.Trace_DataSVT(trace);
        ClassAdd_1().TraceLinPower(trace);
        ClassAdd_3().TraceZaxisLabel(trace);
        for (const std::int32_t sample : around) component.ReadTraceSampleValue(trace, sample, first, second);
    }
    component.ErrorStatus();
    component.GetLastErrorString();
}

// Changes the thread's Data Block through its members, sizes included where they are small enough.
inline void WriteMembers(clsQOR_File& component)
{
    const std::int32_t samples = component.DataBlock_NumberOfSamples();
    const std::int32_t traces = component.DataBlock_NumberOfTraces();
    const std::int32_t trace = std::min(traces, MostExercisedTraces);
    for (const std::int32_t sample : {0, 1, samples}) {
        component.WriteDataBlockXaxisValue(sample, 1.5F);
        for (const std::int32_t number : {0, 1, trace}) component.WriteTraceSampleValue(number, sample, 1.5F, 2.5F);
    }
    component.Trace_Label(trace, u"changed");
    component.Trace_DataSVT(trace, DataIsTensor);
    if (traces > MostExercisedTraces || samples > MostResizedSamples) return;
    component.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    component.DataBlock_NumberOfTraces(traces + 1);
    component.DataBlock_NumberOfSamples(3);
    component.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    component.WriteTraceSampleValue(1, 3, 1, 90);
    component.DataBlock_TraceDataFormat(DataFormat_Real);
}

// What a part of the reading must agree on with the whole; nothing when it does.
inline std::string PartDifference(const Bytes& bytes, const ArraySelection& selection, const LoadResult& whole,
                                  const DataBlock& document)
{
    MemoryFile file(bytes);
    DataBlock part;
    const LoadResult result = LoadDataBlock(file, part, selection);
    if (result.status != whole.status || result.error != whole.error || result.version != whole.version)
        return "result";
    if (!SameBits(result.firstX, whole.firstX) || !SameBits(result.lastX, whole.lastX)) return "X range";
    return DifferenceWithoutArrays(part, document);
}

// Saves the document, reads it back and saves that: both files must be the same.
inline std::string SavingDifference(const LoadResult& loaded, const DataBlock& document)
{
    MemoryFile first;
    first.FailBeyond(LargestExercisedSave);
    const Outcome saved = SaveDataBlock(first, document);
    if (loaded.status != Success || saved.status != Success || document.NumberOfSamples < 2) return {};
    DataBlock again;
    const LoadResult reloaded = LoadDataBlock(first, again);
    if (reloaded.status != Success || reloaded.error != NoError) return "what was saved cannot be read";
    again.DataBlockFromFile = document.DataBlockFromFile;
    again.Notes = document.Notes; // blank ones are not written, and are read back as the default
    MemoryFile second;
    SaveDataBlock(second, again);
    return first.Content() == second.Content() ? "" : "saving again gives other bytes";
}

// Nothing, or what does not hold.
inline std::string Exercise(const Bytes& bytes)
{
    MemoryFile file(bytes);
    DataBlock document;
    const LoadResult whole = LoadDataBlock(file, document);
    if (whole.error != AllocationError) {
        std::string field = PartDifference(bytes, ArraySelection::HeadersOnly(), whole, document);
        if (!field.empty()) return "headers only: " + field;
        field = PartDifference(bytes, ArraySelection::OneTrace(1), whole, document);
        if (!field.empty()) return "one trace: " + field;
    }
    if (std::string difference = SavingDifference(whole, document); !difference.empty()) return difference;

    const UnlinkedFile onDisk(bytes);
    if (!onDisk.Good()) return "no file to read from";
    modQOR_File().SharedErrorStatus = NoError; // what an earlier exercise left behind
    clsQOR_File component;
    if (component.InputDataBlockFile(onDisk.Path()) != whole.status) return "the member's result";
    if (component.ErrorStatus() != whole.error) return "the member's error";
    if (std::string field = Difference(modQOR_File().DataBlock, document); !field.empty()) return "member: " + field;
    ReadMembers(component);
    WriteMembers(component);
    ReadMembers(component);
    MemoryFile changed;
    changed.FailBeyond(LargestExercisedSave);
    SaveDataBlock(changed, modQOR_File().DataBlock);
    return {};
}

} // namespace qor::test
