// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Hdf5File.h"

#include <map>
#include <stdexcept>

namespace qor::bench {
namespace {

void Check(herr_t status, const char* what)
{
    if (status < 0) throw std::runtime_error(std::string("HDF5: ") + what);
}

const Hdf5Id& FileAccess()
{
    static const Hdf5Id list(H5Pcreate(H5P_FILE_ACCESS), H5Pclose);
    static const bool set = [] {
        Check(H5Pset_libver_bounds(list, H5F_LIBVER_LATEST, H5F_LIBVER_LATEST), "format");
        Check(H5Pset_meta_block_size(list, 1 << 20), "metadata blocks");
        return true;
    }();
    (void)set;
    return list;
}

// All attributes of the root stay in its header.
const Hdf5Id& FileCreation()
{
    static const Hdf5Id list(H5Pcreate(H5P_FILE_CREATE), H5Pclose);
    static const bool set = [] {
        Check(H5Pset_attr_phase_change(list, 32, 0), "attributes");
        return true;
    }();
    (void)set;
    return list;
}

const Hdf5Id& DatasetCreation()
{
    static const Hdf5Id list(H5Pcreate(H5P_DATASET_CREATE), H5Pclose);
    static const bool set = [] {
        Check(H5Pset_layout(list, H5D_CONTIGUOUS), "layout");
        Check(H5Pset_fill_time(list, H5D_FILL_TIME_NEVER), "fill values");
        Check(H5Pset_obj_track_times(list, false), "times");
        return true;
    }();
    (void)set;
    return list;
}

const Hdf5Id& OneValue()
{
    static const Hdf5Id space(H5Screate(H5S_SCALAR), H5Sclose);
    return space;
}

hid_t TextType(std::size_t length)
{
    static std::map<std::size_t, Hdf5Id> types;
    const auto [type, isNew] = types.try_emplace(length, H5Tcopy(H5T_C_S1), H5Tclose);
    if (isNew) {
        Check(H5Tset_size(type->second, length), "text length");
        Check(H5Tset_cset(type->second, H5T_CSET_UTF8), "text encoding");
        Check(H5Tset_strpad(type->second, H5T_STR_NULLPAD), "text end");
    }
    return type->second;
}

} // namespace

Hdf5Id::Hdf5Id(hid_t id, Close close) : id_(id), close_(close)
{
    if (id < 0) throw std::runtime_error("HDF5: no such object");
}

hid_t Hdf5Type(float) { return H5T_NATIVE_FLOAT; }
hid_t Hdf5Type(std::int16_t) { return H5T_NATIVE_INT16; }
hid_t Hdf5Type(std::int32_t) { return H5T_NATIVE_INT32; }

hid_t Hdf5Pair()
{
    static const Hdf5Id type(H5Tcreate(H5T_COMPOUND, 2 * sizeof(float)), H5Tclose);
    static const bool set = [] {
        Check(H5Tinsert(type, "r", 0, H5T_NATIVE_FLOAT), "complex type");
        Check(H5Tinsert(type, "i", sizeof(float), H5T_NATIVE_FLOAT), "complex type");
        return true;
    }();
    (void)set;
    return type;
}

Hdf5Id CreateHdf5(const std::string& path)
{
    return {H5Fcreate(path.c_str(), H5F_ACC_TRUNC, FileCreation(), FileAccess()), H5Fclose};
}

Hdf5Id OpenHdf5(const std::string& path) { return {H5Fopen(path.c_str(), H5F_ACC_RDONLY, FileAccess()), H5Fclose}; }

Hdf5Id WriteDataset(hid_t file, const char* name, hid_t type, std::size_t count, const void* values)
{
    const hsize_t size = count;
    const Hdf5Id space(H5Screate_simple(1, &size, nullptr), H5Sclose);
    Hdf5Id dataset(H5Dcreate2(file, name, type, space, H5P_DEFAULT, DatasetCreation(), H5P_DEFAULT), H5Dclose);
    Check(H5Dwrite(dataset, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, values), name);
    return dataset;
}

Hdf5Id OpenDataset(hid_t file, const char* name) { return {H5Dopen2(file, name, H5P_DEFAULT), H5Dclose}; }

void ReadDataset(hid_t dataset, hid_t type, void* values)
{
    Check(H5Dread(dataset, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, values), "values");
}

void WriteAttribute(hid_t object, const char* name, const std::string& text)
{
    // No text of the library is of length 0.
    WriteAttribute(object, name, TextType(text.empty() ? 1 : text.size()), text.c_str());
}

void ReadAttribute(hid_t object, const char* name, std::string& text)
{
    const Hdf5Id attribute(H5Aopen(object, name, H5P_DEFAULT), H5Aclose);
    text.resize(H5Aget_storage_size(attribute));
    Check(H5Aread(attribute, TextType(text.size()), text.data()), name);
    if (text.size() == 1 && text[0] == '\0') text.clear();
}

void WriteAttribute(hid_t object, const char* name, hid_t type, const void* value)
{
    const Hdf5Id attribute(H5Acreate2(object, name, type, OneValue(), H5P_DEFAULT, H5P_DEFAULT), H5Aclose);
    Check(H5Awrite(attribute, type, value), name);
}

void ReadAttribute(hid_t object, const char* name, hid_t type, void* value)
{
    const Hdf5Id attribute(H5Aopen(object, name, H5P_DEFAULT), H5Aclose);
    Check(H5Aread(attribute, type, value), name);
}

} // namespace qor::bench
