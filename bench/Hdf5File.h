// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The peer: a file of HDF5 by its C library, with what it needs to do well. The newest file format, no times of
// objects, no fill values, metadata in large blocks, texts of fixed length, arrays contiguous and of the type that they
// have in memory, so that nothing is converted. Faults throw std::runtime_error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include <hdf5.h>

namespace qor::bench {

// Anything that the library knows by a number, closed with this.
class Hdf5Id
{
public:
    using Close = herr_t (*)(hid_t);
    Hdf5Id(hid_t id, Close close);
    Hdf5Id(Hdf5Id&& other) noexcept : id_(std::exchange(other.id_, H5I_INVALID_HID)), close_(other.close_) {}
    ~Hdf5Id()
    {
        if (id_ >= 0) close_(id_);
    }
    Hdf5Id(const Hdf5Id&) = delete;
    Hdf5Id& operator=(const Hdf5Id&) = delete;

    operator hid_t() const { return id_; }

private:
    hid_t id_;
    Close close_;
};

// Types in memory, and so in the file.
hid_t Hdf5Type(float);
hid_t Hdf5Type(std::int16_t);
hid_t Hdf5Type(std::int32_t);
hid_t Hdf5Pair(); // two floats, named as parts of a complex number

Hdf5Id CreateHdf5(const std::string& path);
Hdf5Id OpenHdf5(const std::string& path);

// One contiguous dataset.
Hdf5Id WriteDataset(hid_t file, const char* name, hid_t type, std::size_t count, const void* values);
Hdf5Id OpenDataset(hid_t file, const char* name);
void ReadDataset(hid_t dataset, hid_t type, void* values);

// Attributes of an object, or of the root where the object is the file.
void WriteAttribute(hid_t object, const char* name, const std::string& text);
void ReadAttribute(hid_t object, const char* name, std::string& text);
void WriteAttribute(hid_t object, const char* name, hid_t type, const void* value);
void ReadAttribute(hid_t object, const char* name, hid_t type, void* value);
template <class Number>
void WriteAttribute(hid_t object, const char* name, Number value)
{
    WriteAttribute(object, name, Hdf5Type(value), &value);
}
template <class Number>
void ReadAttribute(hid_t object, const char* name, Number& value)
{
    ReadAttribute(object, name, Hdf5Type(value), &value);
}

} // namespace qor::bench
