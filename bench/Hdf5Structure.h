// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A Structure in a file of HDF5: a dataset of records for each kind of element, as they are in memory.
#pragma once

#include "structure/Structure.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>

namespace qor::bench {

// The elements of each kind, as read from a file.
using Hdf5Elements = std::array<std::unique_ptr<std::byte[]>, 4>;

void SaveHdf5(const std::string& path, const Structure& structure);
// Into fresh memory.
Hdf5Elements LoadHdf5Structure(const std::string& path);

// Whether the file had these elements.
bool AreSame(const Hdf5Elements& elements, const Structure& structure);

} // namespace qor::bench
