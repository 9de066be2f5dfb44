// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The PLY file of a geometry, as text. Colours of points, faces and lines; no room for labels of points.
#pragma once

#include "tools/console/Console.h"
#include "tools/export/Geometry.h"

namespace qor::tool {

void WritePly(const Geometry& geometry, Output& output);

} // namespace qor::tool
