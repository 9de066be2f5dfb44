// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "ShapeTableBench.h"

#include "Documents.h"
#include "FileTimes.h"

#include <QOR_File/QOR_File.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr std::int32_t Shapes = 200;
constexpr std::int32_t DOFs = 100'000;
constexpr std::size_t Values = std::size_t{Shapes} * DOFs;
constexpr int Runs = 7;
constexpr double RadiansPerDegree = 0.017453292519943295;

struct Polar {
    float magnitude;
    float phase;
};
struct Pair {
    float real;
    float imaginary;
};

// Phases are not whole numbers, and lie within a turn either way.
Polar Value(std::int32_t shape, std::int32_t dof)
{
    return {static_cast<float>(shape) + static_cast<float>(dof % 1009) * 0.125F,
            static_cast<float>((dof * 7 + shape) % 7193) * 0.1F - 359.5F};
}

std::vector<Polar> AllValues()
{
    std::vector<Polar> values;
    values.reserve(Values);
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        for (std::int32_t dof = 1; dof <= DOFs; ++dof) values.push_back(Value(shape, dof));
    }
    return values;
}

void Fill(clsQOR_File& file)
{
    file.ShapeTable_NumberOfShapes(Shapes);
    file.ShapeTable_NumberOfDOFs(DOFs);
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        file.Shape_Label(shape, Numbered(u"Shape ", shape));
        file.Shape_Ordinate(shape, static_cast<float>(shape));
    }
    for (std::int32_t dof = 1; dof <= DOFs; ++dof) {
        file.DOF_DegreesOfFreedom(dof, Numbered(u"", dof) + u"Z");
        file.DOF_MeasurementUnits(dof, u"m/s^2");
    }
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        for (std::int32_t dof = 1; dof <= DOFs; ++dof) {
            const Polar value = Value(shape, dof);
            if (file.WriteShapeDOFvalue(shape, dof, value.magnitude, value.phase) == Failure)
                throw std::runtime_error("a value was refused");
        }
    }
}

SavedFile Saved(const std::string& path)
{
    clsQOR_File component;
    Fill(component);
    if (component.OutputShapeTableFile(Utf16(path)) == Failure) throw std::runtime_error(path + ": cannot be saved");
    component.InitializeShapeTableStorage();
    return SavedFile(path);
}

struct Subject {
    explicit Subject(const WorkFolder& folder) : file(Saved(folder / "table.shp")), values(AllValues()), pairs(Values)
    {}

    SavedFile file;
    std::vector<Polar> values;
    std::vector<Pair> pairs; // what the reference makes of them
};

// The reference of the arithmetic.
void Convert(Subject& subject)
{
    for (std::size_t i = 0; i < Values; ++i) {
        const double angle = subject.values[i].phase * RadiansPerDegree;
        const double magnitude = subject.values[i].magnitude;
        subject.pairs[i] = {static_cast<float>(magnitude * std::cos(angle)),
                            static_cast<float>(magnitude * std::sin(angle))};
    }
    benchmark::DoNotOptimize(subject.pairs.data());
}

// Whether the file ends with the pairs that the reference made, up to rounding.
bool HoldsPairs(const Subject& subject)
{
    const std::size_t size = Values * sizeof(Pair);
    if (subject.file.bytes.size() < size) return false;
    std::vector<Pair> filed(Values);
    std::memcpy(filed.data(), &subject.file.bytes[subject.file.bytes.size() - size], size);
    for (std::size_t i = 0; i < Values; ++i) {
        const float tolerance = subject.values[i].magnitude * 1e-6F;
        // Written so that a NaN does not pass.
        if (!(std::abs(filed[i].real - subject.pairs[i].real) <= tolerance)) return false;
        if (!(std::abs(filed[i].imaginary - subject.pairs[i].imaginary) <= tolerance)) return false;
    }
    return true;
}

void TimeOutput(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.file.fresh);
    clsQOR_File component;
    Fill(component);
    const auto save = [&] { return component.OutputShapeTableFile(path) == Success; };
    TimeSave(state, subject.file, save, [&] {
        Convert(subject);
        subject.file.WriteReference();
    });
    component.InitializeShapeTableStorage();
    if (!HoldsPairs(subject)) state.SkipWithError("wrong values");
}

} // namespace

void RegisterShapeTableBenchmarks(const WorkFolder& folder)
{
    const auto subject = std::make_shared<Subject>(folder);
    Register("output_shape_table", Runs, [=](State& state) { TimeOutput(state, *subject); });
}

} // namespace qor::bench
