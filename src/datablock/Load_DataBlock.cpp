// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/Load_DataBlock.h"

#include "datablock/DataBlockLayout.h"

#include <algorithm>
#include <limits>
#include <new>

namespace qor {
namespace {

class DataBlockLoader
{
public:
    DataBlockLoader(RecordReader& file, std::int16_t version, DataBlock& block, const ArraySelection& selection,
                    LoadResult& result)
        : file_(file), version_(version), block_(block), selection_(selection), result_(result)
    {}

    // The records of a list, or of the file's top level. The reader stands where a type code may follow.
    ReturnStatus Load_Records()
    {
        if (file_.AtEnd()) return Success;
        ReturnStatus status = Success;
        std::int32_t traceNumber = 0;
        for (std::int16_t item = 0;;) {
            switch (item) {
            case 0: break;
            case DataBlockRecord:
                status = Load_DataBlockRecord();
                if (status == Success) block_.DataBlockFromFile = true;
                break;
            case TraceRecord:
                ++traceNumber;
                if (traceNumber <= block_.NumberOfTraces) {
                    status = Load_TraceRecord(traceNumber);
                } else if (SkipsUnknown()) {
                    SkipRecord();
                } else {
                    status = Failure;
                }
                break;
            case TraceSubRecordType: SkipRecord(); break;
            case EndOfTraces:
            case EndOfSubRecords:
            case ClosingTag: return Success;
            default:
                if (SkipsUnknown()) SkipRecord();
            }
            if (ended_) return Failure;
            if (file_.AtEnd()) {
                result_.error = InputFile_ReadFail;
                return status;
            }
            const bool whole = file_.GetTag(item);
            if (status == Failure) return status;
            if (!whole) {
                result_.error = InputFile_ReadFail;
                return status;
            }
            if (item == EndMarker) return status;
        }
    }

private:
    // State of the record being read.
    struct RecordState {
        bool failed = false;        // ends the record's reading
        bool fault = false;         // spoils its result, but does not end the reading
        bool appendsTraces = false; // a count of traces adds to the earlier one
    };

    // Whether what is not known has a length by which it can be skipped.
    bool SkipsUnknown() const { return version_ >= FirstVersionThatSkips; }

    TextForm Texts() const
    {
        return version_ < DataBlock_FirstVersionWithCountedText ? TextForm::ZeroTerminated : TextForm::Counted;
    }

    void EndReading()
    {
        ended_ = true;
        result_.error = InputFile_ReadFail;
    }

    void SkipRecord()
    {
        if (!file_.SkipRecord()) EndReading();
    }

    // The fields of a record, into what record() returns. A step is read by loadStep(step, state).
    template <const auto& Fields, class GetRecord, class LoadStep>
    ReturnStatus Load_Fields(GetRecord record, LoadStep loadStep)
    {
        RecordState state;
        const RecordEnd end =
            Load_Record<Fields>(file_, SkipsUnknown(), Texts(), record, [&](auto step, ItemReader& items) {
                items.Directly([&](RecordReader&) { loadStep(step, state); });
                return !ended_ && !state.failed;
            });
        if (end == RecordEnd::WentBack) EndReading();
        if (end == RecordEnd::EndOfFile) result_.error = InputFile_ReadFail;
        return end == RecordEnd::Closed && !state.fault ? Success : Failure;
    }

    ReturnStatus Load_DataBlockRecord()
    {
        ResetDataBlock();
        return Load_Fields<DataBlock_Fields>([this]() -> DataBlock& { return block_; },
                                             [this](DataBlockStep step, RecordState& state) { Load(step, state); });
    }

    // A record may stand inside a list of another one of its kind; traces that are being read are then gone.
    void ResetDataBlock()
    {
        const bool fromFile = block_.DataBlockFromFile;
        block_ = DataBlock();
        block_.DataBlockFromFile = fromFile;
        ++resets_;
        result_.firstX = result_.lastX = 0;
        dataFormat_ = block_.DataFormat;
        numberOfSamples_ = block_.NumberOfSamples;
    }

    void Load(DataBlockStep step, RecordState& state)
    {
        switch (step) {
        case DataBlockStep::LayoutMarker:
            file_.GetInt16();
            state.appendsTraces = true;
            break;
        case DataBlockStep::NumberOfTraces: Load_NumberOfTraces(state); break;
        case DataBlockStep::NumberOfSamples:
            block_.NumberOfSamples = numberOfSamples_ = file_.GetInt32();
            if (numberOfSamples_ < 2) {
                result_.error = InputFile_ReadFail;
                state.failed = true;
            }
            break;
        case DataBlockStep::DataFormat: block_.DataFormat = dataFormat_ = file_.GetInt16(); break;
        case DataBlockStep::XaxisValues: state.failed |= Load_Xaxis() != NoError; break;
        case DataBlockStep::Traces: Load_Traces(state); break;
        case DataBlockStep::AuxiliaryTrace: state.failed |= !Skip_Arrays(1); break;
        case DataBlockStep::AuxiliaryTraces: state.failed |= !Skip_Arrays(file_.GetInt16()); break;
        }
    }

    void Load_NumberOfTraces(RecordState& state)
    {
        const int sum = file_.GetInt16() + (state.appendsTraces ? block_.NumberOfTraces : 0);
        if (sum > std::numeric_limits<std::int16_t>::max() || sum < std::numeric_limits<std::int16_t>::min()) {
            state.fault = true;
            return;
        }
        block_.NumberOfTraces = static_cast<std::int16_t>(sum);
        if (sum < 0) {
            state.fault = true; // no list has fewer than 0 traces
        } else {
            block_.Traces.Resize(sum);
        }
    }

    void Load_Traces(RecordState& state)
    {
        state.failed |= Load_List() == Failure;
        // Traces of older files say themselves what their header left out.
        if (block_.DataFormat == RealFormat) block_.DataFormat = dataFormat_;
        if (block_.NumberOfSamples == 0) block_.NumberOfSamples = numberOfSamples_;
    }

    ReturnStatus Load_List()
    {
        if (listDepth_ == DeepestList) {
            EndReading();
            return Failure;
        }
        ++listDepth_;
        const ReturnStatus status = Load_Records();
        --listDepth_;
        return status;
    }

    ReturnStatus Load_TraceRecord(std::int32_t number)
    {
        const std::int64_t reset = resets_;
        Trace dropped;
        // Looked up anew for every field: a list inside the record may move the traces, or do away with them.
        const auto trace = [&]() -> Trace& { return resets_ == reset ? block_.Traces.Edit(number) : dropped; };
        trace() = InitialTraceRecord();
        return Load_Fields<Trace_Fields>(trace, [&](TraceStep step, RecordState& state) {
            if (step == TraceStep::SubRecords) {
                state.failed |= Load_List() == Failure;
            } else {
                Load(trace(), number, step, state);
            }
        });
    }

    void Load(Trace& trace, std::int32_t number, TraceStep step, RecordState& state)
    {
        switch (step) {
        case TraceStep::Samples: Load_Samples(trace, number, state); break;
        case TraceStep::SubRecords: break; // opens a list, see Load_TraceRecord
        case TraceStep::KeptArray:
            for (std::uint32_t& value : trace.KeptArray) value = file_.GetRaw32();
            break;
        case TraceStep::SecondComplexSamples:
            state.fault |=
                Load_Array(trace.SecondComplexSamples, numberOfSamples_, selection_.trace(number)) != NoError;
            break;
        case TraceStep::OlderNumberOfSamples: {
            const std::int32_t value = file_.GetInt32();
            if (numberOfSamples_ == 0) numberOfSamples_ = value;
            break;
        }
        case TraceStep::OlderDataFormat: {
            const std::int16_t value = file_.GetInt16();
            if (dataFormat_ == RealFormat) dataFormat_ = value;
            break;
        }
        }
    }

    void Load_Samples(Trace& trace, std::int32_t number, RecordState& state)
    {
        if (numberOfSamples_ == 0) return;
        ErrorStatusTypes error = NoError;
        if (dataFormat_ == ComplexFormat) {
            trace.RealSamples.Release();
            error = Load_Array(trace.ComplexSamples, numberOfSamples_, selection_.trace(number));
        } else {
            trace.ComplexSamples.Release();
            error = Load_Array(trace.RealSamples, numberOfSamples_, selection_.trace(number));
        }
        if (error != NoError) {
            result_.error = error;
            state.failed = true;
        }
    }

    ErrorStatusTypes Load_Xaxis()
    {
        const std::int64_t count = block_.NumberOfSamples;
        const FilePosition first = file_.Position();
        const ErrorStatusTypes error = Load_Array(block_.Xaxis, block_.NumberOfSamples, selection_.xaxis);
        if (error != NoError || count <= 0 || file_.AtEnd()) return error;
        if (selection_.xaxis) {
            result_.firstX = block_.Xaxis.Values().front();
            result_.lastX = block_.Xaxis.Values().back();
        } else {
            const FilePosition behind = file_.Position();
            file_.MoveTo(first);
            result_.firstX = file_.GetFloat();
            if (file_.AtEnd()) return error;
            file_.MoveTo(behind - static_cast<FilePosition>(sizeof(float)));
            result_.lastX = file_.GetFloat();
        }
        return error;
    }

    // Makes the array and fills it, or, where it is not wanted, only moves past it. An array that the file does
    // not hold to its last byte is not made.
    template <class T>
    ErrorStatusTypes Load_Array(SampleArray<T>& array, std::int32_t count, bool wanted)
    {
        if (count == 0) return NoError;
        if (count < 0) return AllocationError;
        array.Release();
        const std::int64_t bytes = std::int64_t{count} * static_cast<std::int64_t>(sizeof(T));
        if (!wanted || bytes > file_.BytesLeft()) {
            file_.Skip(bytes); // may set the end-of-file condition, which the record's reading then meets
            return NoError;
        }
        if (!array.AllocateZeros(block_.Memory, count)) return AllocationError;
        file_.GetBytes(std::as_writable_bytes(array.Values()));
        return NoError;
    }

    // Reads past so many arrays of samples. False for a negative number of either, which no array can have.
    bool Skip_Arrays(std::int64_t arrays)
    {
        const std::int64_t samples = block_.NumberOfSamples;
        if (arrays < 0 || samples < 0) return false;
        if (arrays * samples > 0) file_.Skip(arrays * samples * static_cast<std::int64_t>(sizeof(ComplexSample)));
        return true;
    }

    RecordReader& file_;
    const std::int16_t version_;
    DataBlock& block_;
    const ArraySelection& selection_;
    LoadResult& result_;

    // What the traces go by: taken from the header as it is read, or from older traces.
    std::int16_t dataFormat_ = RealFormat;
    std::int32_t numberOfSamples_ = 0;

    bool ended_ = false; // nothing more is read
    int listDepth_ = 0;
    std::int64_t resets_ = 0;
};

} // namespace

LoadResult LoadDataBlock(ByteSource& source, DataBlock& block, const ArraySelection& selection)
{
    LoadResult result;
    try {
        InitializeDataBlockStorage(block);
        RecordReader file(source);
        result.version = FindPreamble(file);
        if (!result.version || *result.version > DataBlock_Version) {
            result.status = Failure;
            result.error = InputFile_ReadFail;
            return result;
        }
        SkipReservedWords(file);
        result.status = DataBlockLoader(file, *result.version, block, selection, result).Load_Records();
    } catch (const std::bad_alloc&) {
        result.status = Failure;
        result.error = AllocationError;
    }
    return result;
}

} // namespace qor
