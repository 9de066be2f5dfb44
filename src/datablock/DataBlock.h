// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Data Block document: its records with their defaults, and its sizing. It knows nothing of the component:
// it can be built, saved and loaded on its own. What stands in its file: docs/formats/datablock.md.
#pragma once

#include "datablock/SampleArray.h"
#include "fileio/RecordLayout.h"

#include <QOR_File/Enumerations.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qor {

// Storage format of the samples. A file may bring other values: their samples are floats, which are kept in
// the real array and saved again, but no member reads or changes them.
inline constexpr std::int16_t RealFormat = 1;
inline constexpr std::int16_t ComplexFormat = 2;

inline constexpr std::int16_t UniformSpacing = XaxisSpacing_Uniform;

// An element of a trace's list of sub-records: six values that are only kept.
using TraceSubRecord = std::array<std::uint32_t, 6>;

struct Trace {
    SampleArray<float> RealSamples;
    SampleArray<ComplexSample> ComplexSamples;
    std::u16string Label;
    std::u16string DateAndTime;
    std::u16string DegreesOfFreedom;
    std::u16string MeasurementUnits;
    std::u16string ZaxisLabel;
    std::int16_t MeasurementType = 0; // DataBlock_MeasurementTypes
    std::int16_t DataSVT = 0;         // SVTvalues; 0 in a trace that was never written or read
    std::int16_t LinPower = 0;        // TraceLinPowerFlags

    // Carried from file to file, not interpreted.
    SampleArray<ComplexSample> SecondComplexSamples;
    std::vector<TraceSubRecord> SubRecords;
    std::u16string KeptText1;
    std::u16string KeptText2;
    std::array<std::uint32_t, 7> KeptArray{};
    KeptValues<45> Kept{};
};

// A trace as it is before its record is read from a file.
Trace InitialTraceRecord();

// The traces of a Data Block, from 1 to Count. A trace comes into being when it is first changed; until then
// it reads as a blank one. So a count costs nothing, whatever a file claims.
class TraceList
{
public:
    std::int32_t Count() const { return count_; }
    bool Has(std::int32_t index) const { return index >= 1 && index <= count_; }
    const Trace& operator[](std::int32_t index) const
    {
        const Trace* const trace = Made(index);
        return trace ? *trace : Blank;
    }
    Trace& Edit(std::int32_t index)
    {
        Trace* const trace = Made(index);
        return trace ? *trace : Make(index);
    }
    // Null where there is no such trace, or where it was never changed: then it holds no samples either.
    Trace* Find(std::int32_t index) { return Has(index) ? Made(index) : nullptr; }
    // Keeps the traces that fit. The count is at least 0 and at most 32767.
    void Resize(std::int32_t count);

private:
    // In pages, so that making, finding and dropping any one trace costs the same, whichever others are there.
    static constexpr std::size_t PageSize = 256;
    using Page = std::array<std::unique_ptr<Trace>, PageSize>;

    static const Trace Blank; // what is read of a trace that nobody has changed

    // Null where the trace has not come into being.
    Trace* Made(std::int32_t index) const
    {
        const auto place = static_cast<std::size_t>(index - 1);
        const Page* const page = pages_[place / PageSize].get();
        return page ? (*page)[place % PageSize].get() : nullptr;
    }
    Trace& Make(std::int32_t index);

    std::array<std::unique_ptr<Page>, 32768 / PageSize> pages_;
    std::int32_t count_ = 0;
};

struct DataBlock {
    DataBlock() : DataBlock(std::u16string()) {}
    // Takes over memory for the notes.
    explicit DataBlock(std::u16string notes);

    std::u16string Label;
    std::u16string Notes;             // "Data Block history" in a new one
    std::int32_t NumberOfSamples = 0; // samples per trace; from a file it may differ from what the traces hold
    std::int16_t DataFormat = RealFormat;
    std::int16_t NumberOfTraces = 0;
    TraceList Traces;
    std::int16_t XaxisSpacing = UniformSpacing; // DataBlock_XaxisSpacingTypes
    float XaxisStart = 0;
    float XaxisIncrement = 0;
    SampleArray<float> Xaxis; // present only while the spacing is not uniform
    std::u16string XaxisUnits;
    std::int16_t PeakRMS = DisplayPeak; // DataBlockPeakRMSFlags
    std::int16_t XaxisUnitsCode = 0;    // XaxisUnitsAre
    float RPM = 0;
    float ExponentialWindowDampingInHz = 0;

    // Carried from file to file, not interpreted.
    std::u16string KeptText;
    KeptValues<97> Kept;
    // Written if there; a reader reads past them.
    std::optional<SampleArray<ComplexSample>> AuxiliaryTrace;
    std::vector<SampleArray<ComplexSample>> AuxiliaryTraces;

    // A header record has been read from a file; a save then writes some fields more.
    bool DataBlockFromFile = false;

    SampleMemory Memory; // where the arrays above come from
};

// Empties the Data Block: no traces, no samples, every value its default. Asks for no memory, unless the notes were
// moved elsewhere.
void InitializeDataBlockStorage(DataBlock& block);

// Brings X axis, traces and samples in line with the sizes, the format and the spacing. Values that fit are
// kept; a change of format discards the samples. AllocationError, and the block emptied, when memory does not
// suffice, which is found out before anything is allocated where the sum of it all shows it.
ErrorStatusTypes ReallocateDataBlock(DataBlock& block);

} // namespace qor
