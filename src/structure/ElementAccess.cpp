// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/ElementAccess.h"

#include "fileio/Framing.h"

#include <utility>

namespace qor {
namespace {

// By the array itself, which is what the loops go by. Arrays for all points are refused like the number behind the
// last one; where there is no point there is none to be written either.
ErrorStatusTypes CheckLengths(const Structure& structure, std::size_t x, std::size_t y, std::size_t z)
{
    const std::int32_t count = structure.VertexPoints.Count();
    const bool whole = count > 0 && std::cmp_equal(x, count) && x == y && x == z;
    return whole ? NoError : VertexPointIndexError;
}

} // namespace

void StoreVertexPoint(VertexPoint& point, std::u16string_view label, float x, float y, float z, std::int32_t color,
                      Bool16 bold)
{
    point.Label = PaddedLabel(Trimmed(label));
    point.Xcoord = x;
    point.Ycoord = y;
    point.Zcoord = z;
    point.Color = color;
    point.Bold = bold;
    point.AxisEnd = {1, 0, 0, 0, 1, 0, 0, 0, 1};
}

ErrorStatusTypes ReadCoordinates(const Structure& structure, std::span<float> x, std::span<float> y, std::span<float> z)
{
    ErrorStatusTypes error = CheckVertexPoint(structure, 1);
    if (error == NoError) error = CheckLengths(structure, x.size(), y.size(), z.size());
    if (error != NoError) return error;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const VertexPoint& point = structure.VertexPoints[static_cast<std::int32_t>(i + 1)];
        x[i] = point.Xcoord;
        y[i] = point.Ycoord;
        z[i] = point.Zcoord;
    }
    return NoError;
}

ErrorStatusTypes WriteCoordinates(Structure& structure, std::span<const float> x, std::span<const float> y,
                                  std::span<const float> z)
{
    const ErrorStatusTypes error = CheckLengths(structure, x.size(), y.size(), z.size());
    if (error != NoError) return error;
    for (std::size_t i = 0; i < x.size(); ++i) {
        VertexPoint& point = structure.VertexPoints[static_cast<std::int32_t>(i + 1)];
        StoreVertexPoint(point, TextOf(point.Label), x[i], y[i], z[i], point.Color, point.Bold);
    }
    return NoError;
}

} // namespace qor
