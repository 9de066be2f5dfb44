// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Data Block file's records, each as the one table that its writer and reader share. Page:
// docs/formats/datablock.md.
#pragma once

#include "datablock/DataBlock.h"

#include <bit>

namespace qor {

inline constexpr std::string_view DataBlock_Identification = "DUlmeerQOR Binary DataBlock File.";
inline constexpr std::int16_t DataBlock_Version = 12;

// Files below it hold their texts zero-terminated.
inline constexpr std::int16_t DataBlock_FirstVersionWithCountedText = 12;

// Record type codes.
inline constexpr std::int16_t DataBlockRecord = 2048;
inline constexpr std::int16_t TraceRecord = 2304;
inline constexpr std::int16_t TraceSubRecordType = 2560;

// Tags that close a list of records. Each belongs to the record that opened the list, but ends any list.
inline constexpr std::int16_t EndOfTraces = 12;
inline constexpr std::int16_t EndOfSubRecords = 28;

// Fields of the Data Block record that take more than a copy.
enum class DataBlockStep {
    NumberOfTraces,
    NumberOfSamples,
    DataFormat,
    LayoutMarker,
    XaxisValues,
    Traces,
    AuxiliaryTrace,
    AuxiliaryTraces,
};

// The kept values that are written twice.
inline constexpr std::int16_t KeptATag = 67;
inline constexpr std::int16_t KeptBTag = 68;

constexpr bool HasUniformXaxis(const DataBlock& block) { return block.XaxisSpacing == UniformSpacing; }
constexpr bool CameFromFile(const DataBlock& block) { return block.DataBlockFromFile; }
inline bool HasKeptText(const DataBlock& block) { return !Trimmed(block.KeptText).empty(); }
constexpr bool HasXaxisUnitsCode(const DataBlock& block) { return block.XaxisUnitsCode != 0; }
// Not 0.0: a NaN is written.
constexpr bool HasWindowDamping(const DataBlock& block) { return !(block.ExponentialWindowDampingInHz == 0); }
constexpr bool HasRPM(const DataBlock& block) { return !(block.RPM == 0); }

constexpr std::uint32_t FloatBits(float value) { return std::bit_cast<std::uint32_t>(value); }

// Data Block record, type 2048. The order is not ascending in places, and 72 and 93 say again what 67 and 68
// said: readers of existing files rely on it.
inline constexpr Field<DataBlock, DataBlockStep> DataBlock_Fields[] = {
    {1, DataBlockStep::LayoutMarker},
    {2, &DataBlock::Label},
    {13, &DataBlock::XaxisUnits},
    {3, DataBlockStep::NumberOfTraces},
    {4, DataBlockStep::NumberOfSamples},
    {20, DataBlockStep::DataFormat},
    {19, Kept16{}},
    {6, &DataBlock::XaxisSpacing},
    {7, &DataBlock::XaxisStart, HasUniformXaxis},
    {8, &DataBlock::XaxisIncrement, HasUniformXaxis},
    {10, DataBlockStep::XaxisValues},
    {21, &DataBlock::Notes},
    {22, Kept16{}},
    {23, Kept32{}},
    {24, Kept16{}},
    {25, Kept16{}},
    {26, Kept16{}},
    {27, Kept16{}},
    {28, Kept16{1211}},
    {29, Kept16{4}},
    {30, Kept32{FloatBits(20.0F)}},
    {32, Kept16{1317}},
    {KeptATag, Kept32{FloatBits(2e-5F)}, CameFromFile},  // acoustic reference: sound pressure
    {KeptBTag, Kept32{FloatBits(1e-12F)}, CameFromFile}, // acoustic reference: sound power
    {36, Kept16{1}},
    {37, Kept16{1}},
    {38, Kept16{1}},
    {39, Kept16{1211}},
    {40, Kept16{4}},
    {41, Kept16{-1}},
    {42, Kept16{-1}},
    {43, Kept16{-1}},
    {44, Kept16{-1}},
    {45, Kept16{-1}},
    {46, Kept16{-1}},
    // Colours.
    {14, Kept32{0xFFFFFF}},
    {15, Kept32{0xFFFFFF}},
    {16, Kept32{0x0000FF}},
    {48, Kept32{0x0000FF}},
    {17, Kept32{0xFF0000}},
    {18, Kept32{0xE0E0E0}},
    {49, Kept16{}},
    {50, Kept16{}},
    {51, Kept32{1}},
    {52, Kept32{1}},
    {53, Kept16{-1}},
    {54, Kept32{1}},
    {55, Kept32{1}},
    {56, Kept32{1}},
    {57, Kept16{}},
    {58, Kept16{}},
    {59, &DataBlock::KeptText},
    {60, Kept32{}, HasKeptText},
    {61, Kept16{}, HasKeptText},
    {63, Kept16{}, HasKeptText},
    {62, Kept16{}, HasKeptText},
    {64, Kept16{}, HasKeptText},
    {11, DataBlockStep::Traces},
    {EndOfTraces, Dropped{0}}, // written by the step above
    {65, DataBlockStep::AuxiliaryTrace},
    {99, DataBlockStep::AuxiliaryTraces},
    {72, KeptAgain{KeptATag}, CameFromFile},
    {73, Kept16{}},
    {74, Kept16{}},
    {75, Kept16{}},
    {76, &DataBlock::PeakRMS},
    {77, Kept16{}},
    {78, Kept16{}},
    {79, Kept16{}},
    {80, Kept16{}},
    {81, Kept16{}},
    {82, Kept16{}},
    {83, Kept16{}},
    {84, Kept16{}},
    {85, Kept16{}},
    {86, Kept16{}},
    {87, Kept16{}},
    {88, Kept16{}},
    {89, Kept16{}},
    {90, Kept16{}},
    {91, Kept16{}},
    {92, Kept16{}},
    {93, KeptAgain{KeptBTag}, CameFromFile},
    {94, Kept32{}},
    {95, Kept32{}},
    {96, Kept16{}},
    {97, Kept16{}},
    {100, &DataBlock::XaxisUnitsCode, HasXaxisUnitsCode},
    {123, &DataBlock::ExponentialWindowDampingInHz, HasWindowDamping},
    {160, &DataBlock::RPM, HasRPM},

    // Older files only.
    {5, Dropped{2}},
    {9, Dropped{4}},
    {33, Dropped{4}},
    {34, Dropped{4}},
    {35, Dropped{4}},
    {66, Dropped{4 * 4 + 2}},
    {69, Dropped{2}},
    {70, Dropped{2}},
    {71, Dropped{2}},
    {98, Dropped{2}},
};
static_assert(IsSound(DataBlock_Fields));

// Fields of the trace record that take more than a copy.
enum class TraceStep {
    Samples,
    SubRecords,
    KeptArray,
    SecondComplexSamples,
    OlderNumberOfSamples,
    OlderDataFormat,
};

// Trace record, type 2304.
inline constexpr Field<Trace, TraceStep> Trace_Fields[] = {
    {2, &Trace::Label},
    {3, &Trace::DateAndTime},
    {23, &Trace::DegreesOfFreedom},
    {24, &Trace::MeasurementUnits},
    {17, TraceStep::Samples},
    {27, TraceStep::SubRecords},
    {EndOfSubRecords, Dropped{0}}, // written by the step above
    {25, Kept32{}},
    {26, Kept16{}},
    {22, Kept16{}},
    {30, &Trace::DataSVT},
    {6, &Trace::MeasurementType},
    {31, Kept16{}},
    {33, Kept32{}},
    {34, Kept32{}},
    {35, Kept32{}},
    {36, Kept32{}},
    {37, Kept32{}},
    {38, Kept32{}},
    {39, Kept32{}},
    {40, Kept32{}},
    {29, &Trace::ZaxisLabel},
    {32, TraceStep::KeptArray},
    {41, TraceStep::SecondComplexSamples},
    {42, &Trace::KeptText1},
    {43, &Trace::KeptText2},
    {44, &Trace::LinPower},
    {45, Kept16{}},

    // Older files only.
    {1, Dropped{2}},
    {4, TraceStep::OlderNumberOfSamples},
    {5, TraceStep::OlderDataFormat},
    {7, Dropped{4}},
    {8, Dropped{2}},
    {9, Dropped{4}},
    {10, Dropped{2}},
    {11, Kept32{}, ReadOnly},
    {12, Kept32{}, ReadOnly},
    {13, Kept32{}, ReadOnly},
    {14, Kept32{}, ReadOnly},
    {15, Dropped{2}},
    {16, Dropped{2}},
    {18, Dropped{2}},
    {21, Kept32{}, ReadOnly},
};
static_assert(IsSound(Trace_Fields));
static_assert(InitialKeptValues<45>(Trace_Fields) == KeptValues<45>{}); // a new trace keeps zeros

} // namespace qor
