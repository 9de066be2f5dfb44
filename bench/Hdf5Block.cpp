// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Hdf5Block.h"

#include "Hdf5File.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace qor::bench {
namespace {

// One list of attributes for writing, reading and comparing: the members of the object with their names.
template <class Block>
auto BlockAttributes(Block& of)
{
    return std::tuple(
        std::pair("Label", &of.label), std::pair("Notes", &of.notes), std::pair("XaxisUnits", &of.xAxisUnits),
        std::pair("DataFormat", &of.dataFormat), std::pair("XaxisSpacing", &of.xAxisSpacing),
        std::pair("PeakRMS", &of.peakRMS), std::pair("XaxisUnitsCode", &of.xAxisUnitsCode),
        std::pair("NumberOfSamples", &of.numberOfSamples), std::pair("XaxisStart", &of.xAxisStart),
        std::pair("XaxisIncrement", &of.xAxisIncrement), std::pair("RPM", &of.rpm),
        std::pair("ExponentialWindowDamping", &of.damping), std::pair("NumberOfTraces", &of.numberOfTraces));
}
template <class Trace>
auto TraceAttributes(Trace& of)
{
    return std::tuple(std::pair("Label", &of.label), std::pair("DateAndTime", &of.dateAndTime),
                      std::pair("DegreesOfFreedom", &of.degreesOfFreedom),
                      std::pair("MeasurementUnits", &of.measurementUnits), std::pair("ZaxisLabel", &of.zAxisLabel),
                      std::pair("MeasurementType", &of.measurementType), std::pair("DataSVT", &of.dataSVT),
                      std::pair("LinPower", &of.linPower));
}

template <class Attributes>
void WriteAll(hid_t object, const Attributes& attributes)
{
    std::apply([&](const auto&... each) { (WriteAttribute(object, each.first, *each.second), ...); }, attributes);
}
template <class Attributes>
void ReadAll(hid_t object, const Attributes& attributes)
{
    std::apply([&](const auto&... each) { (ReadAttribute(object, each.first, *each.second), ...); }, attributes);
}
template <class Attributes>
bool AreEqual(const Attributes& left, const Attributes& right)
{
    const auto values = [](const auto&... each) { return std::tie(*each.second...); };
    return std::apply(values, left) == std::apply(values, right);
}

std::string DatasetName(std::int32_t number) { return std::to_string(number); }

hid_t SampleType(const Hdf5Block& block) { return block.dataFormat == ComplexFormat ? Hdf5Pair() : Hdf5Type(float{}); }

// The trace with that number; its samples too where there is room for them.
Hdf5Trace ReadTrace(hid_t file, const Hdf5Block& block, std::int32_t number, std::byte* samples)
{
    Hdf5Trace trace;
    const Hdf5Id dataset = OpenDataset(file, DatasetName(number).c_str());
    ReadAll(dataset, TraceAttributes(trace));
    if (samples) ReadDataset(dataset, SampleType(block), samples);
    trace.samples = samples;
    return trace;
}

Hdf5Block ReadBlock(hid_t file)
{
    Hdf5Block block;
    ReadAll(file, BlockAttributes(block));
    return block;
}

} // namespace

Hdf5Block Hdf5BlockOf(const DataBlock& block)
{
    using platform::ToUtf8;
    Hdf5Block made;
    made.label = ToUtf8(block.Label);
    made.notes = ToUtf8(block.Notes);
    made.xAxisUnits = ToUtf8(block.XaxisUnits);
    made.dataFormat = block.DataFormat;
    made.xAxisSpacing = block.XaxisSpacing;
    made.peakRMS = block.PeakRMS;
    made.xAxisUnitsCode = block.XaxisUnitsCode;
    made.numberOfSamples = block.NumberOfSamples;
    made.xAxisStart = block.XaxisStart;
    made.xAxisIncrement = block.XaxisIncrement;
    made.rpm = block.RPM;
    made.damping = block.ExponentialWindowDampingInHz;
    made.numberOfTraces = block.NumberOfTraces;
    for (std::int32_t number = 1; number <= block.NumberOfTraces; ++number) {
        const Trace& trace = block.Traces[number];
        const void* samples = block.DataFormat == ComplexFormat
                                  ? static_cast<const void*>(trace.ComplexSamples.Values().data())
                                  : trace.RealSamples.Values().data();
        made.traces.push_back({ToUtf8(trace.Label), ToUtf8(trace.DateAndTime), ToUtf8(trace.DegreesOfFreedom),
                               ToUtf8(trace.MeasurementUnits), ToUtf8(trace.ZaxisLabel), trace.MeasurementType,
                               trace.DataSVT, trace.LinPower, static_cast<const std::byte*>(samples)});
    }
    return made;
}

void SaveHdf5(const std::string& path, const Hdf5Block& block)
{
    const Hdf5Id file = CreateHdf5(path);
    WriteAll(file, BlockAttributes(block));
    std::int32_t number = 0;
    for (const Hdf5Trace& trace : block.traces) {
        const Hdf5Id dataset = WriteDataset(file, DatasetName(++number).c_str(), SampleType(block),
                                            static_cast<std::size_t>(block.numberOfSamples), trace.samples);
        WriteAll(dataset, TraceAttributes(trace));
    }
}

Hdf5Block LoadHdf5(const std::string& path, std::byte* samples)
{
    const Hdf5Id file = OpenHdf5(path);
    Hdf5Block block = ReadBlock(file);
    const std::size_t each = block.TraceBytes();
    if (!samples) {
        block.loaded.reset(new std::byte[each * static_cast<std::size_t>(block.numberOfTraces)]); // not zeroed
        samples = block.loaded.get();
    }
    block.traces.reserve(static_cast<std::size_t>(block.numberOfTraces));
    for (std::int32_t number = 1; number <= block.numberOfTraces; ++number, samples += each)
        block.traces.push_back(ReadTrace(file, block, number, samples));
    return block;
}

Hdf5Block LoadHdf5Headers(const std::string& path)
{
    const Hdf5Id file = OpenHdf5(path);
    Hdf5Block block = ReadBlock(file);
    block.traces.reserve(static_cast<std::size_t>(block.numberOfTraces));
    for (std::int32_t number = 1; number <= block.numberOfTraces; ++number)
        block.traces.push_back(ReadTrace(file, block, number, nullptr));
    return block;
}

Hdf5Block LoadHdf5Trace(const std::string& path, std::int32_t number)
{
    const Hdf5Id file = OpenHdf5(path);
    Hdf5Block block = ReadBlock(file);
    block.loaded.reset(new std::byte[block.TraceBytes()]);
    block.traces.push_back(ReadTrace(file, block, number, block.loaded.get()));
    return block;
}

bool AreSame(const Hdf5Trace& trace, const Hdf5Trace& other, std::size_t sampleBytes)
{
    if (!AreEqual(TraceAttributes(trace), TraceAttributes(other))) return false;
    return sampleBytes == 0 || std::memcmp(trace.samples, other.samples, sampleBytes) == 0;
}

bool AreSame(const Hdf5Block& block, const Hdf5Block& other)
{
    return AreEqual(BlockAttributes(block), BlockAttributes(other)) &&
           std::equal(
               block.traces.begin(), block.traces.end(), other.traces.begin(), other.traces.end(),
               [&](const Hdf5Trace& left, const Hdf5Trace& right) { return AreSame(left, right, block.TraceBytes()); });
}

} // namespace qor::bench
