// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "ShapeTableBench.h"

#include "Documents.h"
#include "FileTimes.h"
#include "Hdf5File.h"

#include <QOR_File/QOR_File.h>

#include <array>
#include <cmath>
#include <cstddef>
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

// ---- the peer: a dataset a shape, and one of records for the DOFs -------------------------------------------

struct DOFRecord {
    std::array<char, 16> label{};
    std::array<char, 16> degreesOfFreedom{};
    std::array<char, 16> measurementUnits{};
    std::int32_t dataSVT = 0;
    std::int32_t measurementType = 0;
};

hid_t DOFType()
{
    static const Hdf5Id text(H5Tcopy(H5T_C_S1), H5Tclose);
    static const Hdf5Id type(H5Tcreate(H5T_COMPOUND, sizeof(DOFRecord)), H5Tclose);
    static const bool set = [] {
        H5Tset_size(text, std::tuple_size_v<decltype(DOFRecord::label)>);
        H5Tinsert(type, "Label", offsetof(DOFRecord, label), text);
        H5Tinsert(type, "DegreesOfFreedom", offsetof(DOFRecord, degreesOfFreedom), text);
        H5Tinsert(type, "MeasurementUnits", offsetof(DOFRecord, measurementUnits), text);
        H5Tinsert(type, "DataSVT", offsetof(DOFRecord, dataSVT), H5T_NATIVE_INT32);
        return H5Tinsert(type, "MeasurementType", offsetof(DOFRecord, measurementType), H5T_NATIVE_INT32) >= 0;
    }();
    if (!set) throw std::runtime_error("HDF5: record of a DOF");
    return type;
}

std::vector<DOFRecord> DOFRecords()
{
    std::vector<DOFRecord> records(DOFs);
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::string name = std::to_string(i + 1) + "Z";
        name.copy(records[i].degreesOfFreedom.data(), name.size());
        std::string("m/s^2").copy(records[i].measurementUnits.data(), 5);
    }
    return records;
}

// The reference of the arithmetic, on some of the values.
void Convert(const Polar* values, Pair* pairs, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const double angle = values[i].phase * RadiansPerDegree;
        const double magnitude = values[i].magnitude;
        pairs[i] = {static_cast<float>(magnitude * std::cos(angle)), static_cast<float>(magnitude * std::sin(angle))};
    }
}

// Shape by shape, so that the pairs of one are all the memory that it takes.
void SaveHdf5Table(const std::string& path, const std::vector<Polar>& values, const std::vector<DOFRecord>& dofs)
{
    const Hdf5Id file = CreateHdf5(path);
    WriteDataset(file, "DOFs", DOFType(), dofs.size(), dofs.data());
    std::vector<Pair> pairs(DOFs);
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        Convert(&values[static_cast<std::size_t>(shape - 1) * DOFs], pairs.data(), DOFs);
        const std::string number = std::to_string(shape);
        const Hdf5Id dataset = WriteDataset(file, number.c_str(), Hdf5Pair(), DOFs, pairs.data());
        WriteAttribute(dataset, "Label", "Shape " + number);
        WriteAttribute(dataset, "DateAndTime", std::string());
        WriteAttribute(dataset, "OrdinateUnits", std::string());
        WriteAttribute(dataset, "Ordinate", static_cast<float>(shape));
        WriteAttribute(dataset, "Damping", 0.0F);
    }
}

bool HoldsHdf5Table(const std::string& path, const std::vector<Pair>& pairs)
{
    const Hdf5Id file = OpenHdf5(path);
    std::vector<Pair> row(DOFs);
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        ReadDataset(OpenDataset(file, std::to_string(shape).c_str()), Hdf5Pair(), row.data());
        if (std::memcmp(row.data(), &pairs[static_cast<std::size_t>(shape - 1) * DOFs], DOFs * sizeof(Pair)) != 0)
            return false;
    }
    return true;
}

// ---- times and memory ---------------------------------------------------------------------------------------

// Whether the file ends with the pairs, up to rounding.
bool EndsWith(const SavedFile& file, const std::vector<Pair>& pairs, const std::vector<Polar>& values)
{
    const std::size_t size = Values * sizeof(Pair);
    if (file.bytes.size() < size) return false;
    std::vector<Pair> filed(Values);
    std::memcpy(filed.data(), &file.bytes[file.bytes.size() - size], size);
    for (std::size_t i = 0; i < Values; ++i) {
        const float tolerance = values[i].magnitude * 1e-6F;
        // Written so that a NaN does not pass.
        if (!(std::abs(filed[i].real - pairs[i].real) <= tolerance)) return false;
        if (!(std::abs(filed[i].imaginary - pairs[i].imaginary) <= tolerance)) return false;
    }
    return true;
}

struct Subject {
    explicit Subject(const WorkFolder& folder)
        : file(Saved(folder / "table.shp")), values(AllValues()), pairs(Values), dofs(DOFRecords())
    {
        Convert(values.data(), pairs.data(), Values);
        if (!EndsWith(file, pairs, values)) throw std::runtime_error(file.path + ": wrong values");
    }

    SavedFile file;
    std::vector<Polar> values;
    std::vector<Pair> pairs; // what the reference makes of them
    std::vector<DOFRecord> dofs;
};

void TimeOutput(State& state, Figure& figure, Subject& subject)
{
    clsQOR_File component;
    Fill(component);
    const auto save = [&, path = Utf16(subject.file.fresh)] { return component.OutputShapeTableFile(path) == Success; };
    Party plain = PlainWrite(subject.file);
    plain.work = [&, write = plain.work] {
        Convert(subject.values.data(), subject.pairs.data(), Values);
        benchmark::ClobberMemory();
        return write();
    };
    const std::string peerPath = subject.file.path + ".h5";
    const auto savePeer = [&] {
        SaveHdf5Table(peerPath, subject.values, subject.dofs);
        return true;
    };
    const auto peerHolds = [&] { return HoldsHdf5Table(peerPath, subject.pairs); };
    Time(state, figure, {Saving(subject.file, save), plain, SavingTo(peerPath, savePeer, peerHolds)});
    component.InitializeShapeTableStorage();
}

constexpr auto Name = "output_shape_table";

} // namespace

void MeasureShapeTableMemory(PeakMeter& meter, const WorkFolder& folder)
{
    const std::string path = folder / "memory.shp";
    meter.Measure(Name, "", [&] {
        const auto component = std::make_shared<clsQOR_File>();
        Fill(*component);
        return MeasuredWork{[&, component] { return component->OutputShapeTableFile(Utf16(path)) == Success; }};
    });
    meter.Measure(Name, "_to_hdf5", [&] {
        H5open();
        const auto values = std::make_shared<std::vector<Polar>>(AllValues());
        const auto dofs = std::make_shared<std::vector<DOFRecord>>(DOFRecords());
        return MeasuredWork{[&, values, dofs] {
            SaveHdf5Table(path, *values, *dofs);
            return true;
        }};
    });
    Delete(path);
}

void RegisterShapeTableBenchmarks(Report& report, const WorkFolder& folder)
{
    report.Begin("Shape Table", "200 shapes by 100,000 DOFs, 165 MB as a file; the loop makes sines and cosines of the "
                                "same values.");
    const auto subject = OnDemand<Subject>(std::cref(folder));
    Figure& figure =
        report.Add({.name = Name, .references = {{"loop, plain write", "", 1.3}, {"loop, HDF5", "_to_hdf5"}}});
    Register(figure, Runs, [=](State& state, Figure& each) { TimeOutput(state, each, subject()); });
}

} // namespace qor::bench
