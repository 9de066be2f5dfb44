// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Hdf5Structure.h"

#include "Hdf5File.h"

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <tuple>

namespace qor::bench {
namespace {

// A type that is a row of others.
Hdf5Id RowOf(hid_t type, std::size_t count)
{
    const hsize_t size = count;
    return {H5Tarray_create2(type, 1, &size), H5Tclose};
}

void Insert(hid_t record, const char* name, std::size_t place, hid_t type)
{
    if (H5Tinsert(record, name, place, type) < 0) throw std::runtime_error(std::string("HDF5: ") + name);
}

hid_t TypeOf(const VertexPoint*)
{
    using Record = VertexPoint;
    static const Hdf5Id type(H5Tcreate(H5T_COMPOUND, sizeof(Record)), H5Tclose);
    static const bool made = [] {
        Insert(type, "Label", offsetof(Record, Label), RowOf(H5T_NATIVE_UINT16, LabelWidth));
        Insert(type, "Xcoord", offsetof(Record, Xcoord), H5T_NATIVE_FLOAT);
        Insert(type, "Ycoord", offsetof(Record, Ycoord), H5T_NATIVE_FLOAT);
        Insert(type, "Zcoord", offsetof(Record, Zcoord), H5T_NATIVE_FLOAT);
        Insert(type, "Bold", offsetof(Record, Bold), H5T_NATIVE_INT16);
        Insert(type, "Color", offsetof(Record, Color), H5T_NATIVE_INT32);
        Insert(type, "CenterPoint", offsetof(Record, CenterPoint), H5T_NATIVE_INT32);
        Insert(type, "PointType", offsetof(Record, PointType), H5T_NATIVE_INT32);
        Insert(type, "AxisEnd", offsetof(Record, AxisEnd), RowOf(H5T_NATIVE_FLOAT, AxisEnds().size()));
        Insert(type, "Area", offsetof(Record, Area), H5T_NATIVE_FLOAT);
        Insert(type, "NormalAxis", offsetof(Record, NormalAxis), H5T_NATIVE_INT32);
        Insert(type, "FileExtraValue", offsetof(Record, FileExtraValue), H5T_NATIVE_INT32);
        return true;
    }();
    (void)made;
    return type;
}

template <std::size_t Corners>
hid_t TypeOf(const JoiningElement<Corners>*)
{
    using Record = JoiningElement<Corners>;
    static const Hdf5Id type(H5Tcreate(H5T_COMPOUND, sizeof(Record)), H5Tclose);
    static const bool made = [] {
        Insert(type, "VertexPoints", offsetof(Record, VertexPoints), RowOf(H5T_NATIVE_INT32, Corners));
        Insert(type, "Bold", offsetof(Record, Bold), H5T_NATIVE_INT16);
        Insert(type, "Color", offsetof(Record, Color), H5T_NATIVE_INT32);
        Insert(type, "FileExtraValue", offsetof(Record, FileExtraValue), H5T_NATIVE_INT32);
        return true;
    }();
    (void)made;
    return type;
}

// Calls work(name, array) for each kind of element.
template <class Work>
void ForEachKind(const Structure& structure, Work work)
{
    work("VertexPoints", structure.VertexPoints);
    work("EdgeLines", structure.EdgeLines);
    work("SurfaceTriangles", structure.SurfaceTriangles);
    work("QuadSurfaces", structure.QuadSurfaces);
}

template <class Element>
std::size_t BytesOf(const ElementArray<Element>& elements)
{
    return static_cast<std::size_t>(elements.Count()) * sizeof(Element);
}

} // namespace

void SaveHdf5(const std::string& path, const Structure& structure)
{
    const Hdf5Id file = CreateHdf5(path);
    WriteAttribute(file, "Label", std::string());
    WriteAttribute(file, "Notes", std::string());
    ForEachKind(structure, [&](const char* name, const auto& elements) {
        WriteDataset(file, name, TypeOf(&elements[1]), static_cast<std::size_t>(elements.Count()), &elements[1]);
    });
}

Hdf5Elements LoadHdf5Structure(const std::string& path)
{
    const Hdf5Id file = OpenHdf5(path);
    std::string text;
    ReadAttribute(file, "Label", text);
    ReadAttribute(file, "Notes", text);
    Hdf5Elements loaded;
    std::size_t kind = 0;
    ForEachKind(Structure(), [&](const char* name, const auto& elements) {
        const Hdf5Id dataset = OpenDataset(file, name);
        const Hdf5Id space(H5Dget_space(dataset), H5Sclose);
        const auto count = static_cast<std::size_t>(H5Sget_simple_extent_npoints(space));
        auto& target = loaded[kind++];
        target.reset(new std::byte[count * sizeof(elements[1])]); // not zeroed
        ReadDataset(dataset, TypeOf(&elements[1]), target.get());
    });
    return loaded;
}

bool AreSame(const Hdf5Elements& elements, const Structure& structure)
{
    bool same = true;
    std::size_t kind = 0;
    ForEachKind(structure, [&](const char*, const auto& expected) {
        const auto& actual = elements[kind++];
        same = same && actual && std::memcmp(actual.get(), &expected[1], BytesOf(expected)) == 0;
    });
    return same;
}

} // namespace qor::bench
