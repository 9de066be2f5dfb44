// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/Save_DataBlock.h"

#include "datablock/DataBlockLayout.h"

#include <algorithm>
#include <new>

namespace qor {
namespace {

// Writes count elements: what the array has, and zeros for what it lacks.
template <class T>
void Save_Array(RecordWriter& file, const SampleArray<T>& array, std::int32_t count)
{
    const std::int32_t present = std::clamp(array.Count(), 0, std::max(count, 0));
    file.PutBytes(std::as_bytes(array.Values().first(static_cast<std::size_t>(present))));
    file.PutZeros(static_cast<std::int64_t>(sizeof(T)) * (count - present));
}

void Save_TraceSubRecord(RecordWriter& file, const TraceSubRecord& values)
{
    const FilePosition lengthField = file.BeginRecord(TraceSubRecordType);
    std::int16_t tag = 1;
    for (const std::uint32_t value : values) {
        file.PutInt16(tag++);
        file.PutRaw32(value);
    }
    file.PutInt16(ClosingTag);
    file.PatchRecordLength(lengthField);
}

class DataBlockSaver
{
public:
    DataBlockSaver(RecordWriter& file, const DataBlock& block) : file_(file), block_(block) {}

    Outcome Save_DataBlockRecord()
    {
        // The record is closed even behind a failed trace, so that what was written stays readable.
        Save_Record<DataBlock_Fields>(file_, DataBlockRecord, block_, block_,
                                      [this](DataBlockStep step, std::int16_t tag, ItemWriter& items) {
                                          items.Directly([&](RecordWriter&) { Save(step, tag); });
                                      });
        if (file_.Failed()) result_.status = Failure;
        return result_;
    }

private:
    void Save(DataBlockStep step, std::int16_t tag)
    {
        switch (step) {
        case DataBlockStep::LayoutMarker: return PutTagged(tag, 1);
        case DataBlockStep::NumberOfTraces: return PutTagged(tag, block_.NumberOfTraces);
        case DataBlockStep::DataFormat: return PutTagged(tag, block_.DataFormat);
        case DataBlockStep::NumberOfSamples: file_.PutInt16(tag); return file_.PutInt32(block_.NumberOfSamples);
        case DataBlockStep::XaxisValues:
            if (HasUniformXaxis(block_) || block_.NumberOfSamples == 0) return;
            file_.PutInt16(tag);
            return Save_Array(file_, block_.Xaxis, block_.NumberOfSamples);
        case DataBlockStep::Traces: return Save_Traces(tag);
        case DataBlockStep::AuxiliaryTrace:
            if (!block_.AuxiliaryTrace) return;
            file_.PutInt16(tag);
            return Save_Array(file_, *block_.AuxiliaryTrace, block_.NumberOfSamples);
        case DataBlockStep::AuxiliaryTraces:
            if (block_.AuxiliaryTraces.empty()) return;
            PutTagged(tag, static_cast<std::int16_t>(block_.AuxiliaryTraces.size()));
            for (const auto& samples : block_.AuxiliaryTraces) Save_Array(file_, samples, block_.NumberOfSamples);
            return;
        }
    }

    void Save_Traces(std::int16_t tag)
    {
        if (block_.Traces.Count() == 0) return;
        file_.PutInt16(tag);
        for (std::int32_t number = 1; number <= block_.Traces.Count() && result_.status == Success; ++number) {
            result_ = Save_TraceRecord(block_.Traces[number]);
        }
        file_.PutInt16(EndOfTraces);
    }

    Outcome Save_TraceRecord(const Trace& trace)
    {
        // A writer's failure under a reader's code, as published.
        if (block_.NumberOfSamples == 0 || block_.DataFormat == 0) return {Failure, InputFile_ReadFail};
        Save_Record<Trace_Fields>(file_, TraceRecord, trace, trace,
                                  [&](TraceStep step, std::int16_t tag, ItemWriter& items) {
                                      items.Directly([&](RecordWriter&) { Save(trace, step, tag); });
                                  });
        return {file_.Failed() ? Failure : Success, NoError};
    }

    void Save(const Trace& trace, TraceStep step, std::int16_t tag)
    {
        switch (step) {
        case TraceStep::Samples:
            file_.PutInt16(tag);
            if (block_.DataFormat == ComplexFormat)
                return Save_Array(file_, trace.ComplexSamples, block_.NumberOfSamples);
            return Save_Array(file_, trace.RealSamples, block_.NumberOfSamples);
        case TraceStep::SubRecords:
            if (trace.SubRecords.empty()) return;
            file_.PutInt16(tag);
            for (const TraceSubRecord& values : trace.SubRecords) Save_TraceSubRecord(file_, values);
            return file_.PutInt16(EndOfSubRecords);
        case TraceStep::KeptArray:
            file_.PutInt16(tag);
            for (const std::uint32_t value : trace.KeptArray) file_.PutRaw32(value);
            return;
        case TraceStep::SecondComplexSamples:
            if (trace.SecondComplexSamples.Count() == 0) return;
            file_.PutInt16(tag);
            return Save_Array(file_, trace.SecondComplexSamples, block_.NumberOfSamples);
        case TraceStep::OlderNumberOfSamples:
        case TraceStep::OlderDataFormat: return;
        }
    }

    void PutTagged(std::int16_t tag, std::int16_t value)
    {
        file_.PutInt16(tag);
        file_.PutInt16(value);
    }

    RecordWriter& file_;
    const DataBlock& block_;
    Outcome result_;
};

} // namespace

Outcome SaveDataBlock(ByteSink& sink, const DataBlock& block)
{
    try {
        RecordWriter file(sink);
        SavePreamble(file, DataBlock_Identification, DataBlock_Version);
        Outcome result = DataBlockSaver(file, block).Save_DataBlockRecord();
        file.PutInt16(EndMarker);
        if (!file.Flush()) result.status = Failure;
        return result;
    } catch (const std::bad_alloc&) {
        return {Failure, NoError};
    }
}

} // namespace qor
