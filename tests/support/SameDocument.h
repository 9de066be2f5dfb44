// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Compares two Data Blocks, values bit by bit, field by field and without the tables that the writer and the
// reader walk.
#pragma once

#include "datablock/DataBlock.h"

#include <cstring>
#include <string>

namespace qor::test {

template <class T>
bool SameBits(const T& left, const T& right)
{
    return std::memcmp(&left, &right, sizeof(T)) == 0;
}

template <class T>
bool SameBits(const SampleArray<T>& left, const SampleArray<T>& right)
{
    return left.Count() == right.Count() &&
           (left.Count() == 0 || std::memcmp(&left[1], &right[1], left.Values().size_bytes()) == 0);
}

// The name of the first field that differs, or nothing. Kept values are named by tag.
template <std::size_t Size>
std::string KeptDifference(const std::array<std::uint32_t, Size>& left, const std::array<std::uint32_t, Size>& right)
{
    for (std::size_t tag = 0; tag < Size; ++tag) {
        if (left[tag] != right[tag]) return "kept value " + std::to_string(tag);
    }
    return {};
}

inline std::string HeaderDifference(const DataBlock& left, const DataBlock& right)
{
    if (left.Label != right.Label) return "Label";
    if (left.Notes != right.Notes) return "Notes";
    if (left.NumberOfSamples != right.NumberOfSamples) return "NumberOfSamples";
    if (left.DataFormat != right.DataFormat) return "DataFormat";
    if (left.NumberOfTraces != right.NumberOfTraces) return "NumberOfTraces";
    if (left.Traces.Count() != right.Traces.Count()) return "Traces.Count";
    if (left.XaxisSpacing != right.XaxisSpacing) return "XaxisSpacing";
    if (!SameBits(left.XaxisStart, right.XaxisStart)) return "XaxisStart";
    if (!SameBits(left.XaxisIncrement, right.XaxisIncrement)) return "XaxisIncrement";
    if (left.XaxisUnits != right.XaxisUnits) return "XaxisUnits";
    if (left.PeakRMS != right.PeakRMS) return "PeakRMS";
    if (left.XaxisUnitsCode != right.XaxisUnitsCode) return "XaxisUnitsCode";
    if (!SameBits(left.RPM, right.RPM)) return "RPM";
    if (!SameBits(left.ExponentialWindowDampingInHz, right.ExponentialWindowDampingInHz)) return "WindowDamping";
    if (left.KeptText != right.KeptText) return "KeptText";
    if (left.DataBlockFromFile != right.DataBlockFromFile) return "DataBlockFromFile";
    return KeptDifference(left.Kept, right.Kept);
}

inline std::string TraceHeaderDifference(const Trace& left, const Trace& right)
{
    if (&left == &right) return {}; // traces that were never made, of which there may be thousands
    if (left.Label != right.Label) return "Label";
    if (left.DateAndTime != right.DateAndTime) return "DateAndTime";
    if (left.DegreesOfFreedom != right.DegreesOfFreedom) return "DegreesOfFreedom";
    if (left.MeasurementUnits != right.MeasurementUnits) return "MeasurementUnits";
    if (left.ZaxisLabel != right.ZaxisLabel) return "ZaxisLabel";
    if (left.MeasurementType != right.MeasurementType) return "MeasurementType";
    if (left.DataSVT != right.DataSVT) return "DataSVT";
    if (left.LinPower != right.LinPower) return "LinPower";
    if (left.SubRecords != right.SubRecords) return "SubRecords";
    if (left.KeptText1 != right.KeptText1) return "KeptText1";
    if (left.KeptText2 != right.KeptText2) return "KeptText2";
    if (left.KeptArray != right.KeptArray) return "KeptArray";
    return KeptDifference(left.Kept, right.Kept);
}

inline std::string TraceArrayDifference(const Trace& left, const Trace& right)
{
    if (!SameBits(left.RealSamples, right.RealSamples)) return "RealSamples";
    if (!SameBits(left.ComplexSamples, right.ComplexSamples)) return "ComplexSamples";
    if (!SameBits(left.SecondComplexSamples, right.SecondComplexSamples)) return "SecondComplexSamples";
    return {};
}

// Everything but samples and X values.
inline std::string DifferenceWithoutArrays(const DataBlock& left, const DataBlock& right)
{
    if (std::string field = HeaderDifference(left, right); !field.empty()) return field;
    for (std::int32_t number = 1; number <= left.Traces.Count(); ++number) {
        const std::string field = TraceHeaderDifference(left.Traces[number], right.Traces[number]);
        if (!field.empty()) return "trace " + std::to_string(number) + ": " + field;
    }
    return {};
}

inline std::string Difference(const DataBlock& left, const DataBlock& right)
{
    if (std::string field = DifferenceWithoutArrays(left, right); !field.empty()) return field;
    if (!SameBits(left.Xaxis, right.Xaxis)) return "Xaxis";
    for (std::int32_t number = 1; number <= left.Traces.Count(); ++number) {
        const std::string field = TraceArrayDifference(left.Traces[number], right.Traces[number]);
        if (!field.empty()) return "trace " + std::to_string(number) + ": " + field;
    }
    return {};
}

} // namespace qor::test
