// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The VTK file of a geometry, in the legacy format as text: an unstructured grid, with colours and the labels of
// points.
#pragma once

#include "tools/console/Console.h"
#include "tools/export/Geometry.h"

namespace qor::tool {

void WriteVtk(const Geometry& geometry, Output& output);

} // namespace qor::tool
