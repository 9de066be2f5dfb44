// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Wavefront OBJ file of a geometry: points with their colours, lines and faces. The format has no room for labels
// of points, and none for colours of lines and faces but in a second file.
#pragma once

#include "tools/console/Console.h"
#include "tools/export/Geometry.h"

namespace qor::tool {

void WriteObj(const Geometry& geometry, Output& output);

} // namespace qor::tool
