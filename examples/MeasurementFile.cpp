// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "MeasurementFile.h"

#include "ComponentErrors.h"

namespace {

std::int32_t CountOf(const auto& list) { return static_cast<std::int32_t>(list.size()); }

} // namespace

void SaveMeasurement(const Measurement& measurement, const std::filesystem::path& path)
{
    clsQOR_File file; // empties this thread's documents
    file.DataBlock_Label(measurement.label);
    file.DataBlock_Notes(measurement.notes);
    file.DataBlock_XaxisUnits(measurement.xUnits);
    ClassAdd_5().XaxisUnits(measurement.xUnitsCode);
    file.DataBlock_XaxisStart(measurement.xStart);
    file.DataBlock_XaxisIncrement(measurement.xIncrement);
    ClassAdd_5().DataBlockExponentialWindowDampingInHz(measurement.exponentialWindowDampingInHz);

    // The format first: changing it later would discard samples.
    file.DataBlock_TraceDataFormat(measurement.format);
    file.DataBlock_NumberOfTraces(CountOf(measurement.traces));
    file.DataBlock_NumberOfSamples(measurement.traces.empty() ? 0 : CountOf(measurement.traces.front().samples));
    Check(file, path, "not enough memory for its samples");

    std::int32_t number = 0; // traces and samples count from 1
    for (const MeasuredTrace& trace : measurement.traces) {
        ++number;
        file.Trace_Label(number, trace.label);
        file.Trace_DegreesOfFreedom(number, trace.degreesOfFreedom);
        file.Trace_MeasurementUnits(number, trace.units);
        file.Trace_MeasurementType(number, trace.type);
        file.Trace_DateAndTime(number, trace.dateAndTime);
        std::int32_t sample = 0;
        for (const auto& value : trace.samples) {
            if (file.WriteTraceSampleValue(number, ++sample, value.real(), value.imag()) == Failure) {
                ThrowFor(file, path, "sample not stored");
            }
        }
    }
    Check(file, path, "not enough memory for its samples");

    if (file.OutputDataBlockFile(path.u16string()) == Failure) ThrowFor(file, path, "cannot be written");
}

Measurement LoadMeasurement(const std::filesystem::path& path)
{
    clsQOR_File file;
    if (file.InputDataBlockFile(path.u16string()) == Failure) ThrowFor(file, path, "cannot be opened");
    // A file that only lacks its end marker reads with Success and an error.
    Check(file, path, "is damaged");

    Measurement measurement;
    measurement.label = file.DataBlock_Label();
    measurement.notes = file.DataBlock_Notes();
    measurement.xUnits = file.DataBlock_XaxisUnits();
    measurement.xUnitsCode = ClassAdd_5().XaxisUnits();
    measurement.xStart = file.DataBlock_XaxisStart();
    measurement.xIncrement = file.DataBlock_XaxisIncrement();
    measurement.format = file.DataBlock_TraceDataFormat();
    measurement.exponentialWindowDampingInHz = ClassAdd_5().DataBlockExponentialWindowDampingInHz();

    const std::int32_t samples = file.DataBlock_NumberOfSamples();
    for (std::int32_t number = 1; number <= file.DataBlock_NumberOfTraces(); ++number) {
        MeasuredTrace& trace = measurement.traces.emplace_back();
        trace.label = file.Trace_Label(number);
        trace.degreesOfFreedom = file.Trace_DegreesOfFreedom(number);
        trace.units = file.Trace_MeasurementUnits(number);
        trace.type = file.Trace_MeasurementType(number);
        trace.dateAndTime = file.Trace_DateAndTime(number);
        for (std::int32_t sample = 1; sample <= samples; ++sample) {
            float real = 0;
            float imaginary = 0;
            if (file.ReadTraceSampleValue(number, sample, real, imaginary) == Failure) {
                ThrowFor(file, path, "sample not found");
            }
            trace.samples.emplace_back(real, imaginary);
        }
    }
    return measurement;
}
