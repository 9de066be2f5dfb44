// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The rules by which the elements of a Structure are reached.
#pragma once

#include "structure/Structure.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace qor {

inline ErrorStatusTypes CheckElement(std::int32_t count, std::int32_t number, ErrorStatusTypes notAllocated,
                                     ErrorStatusTypes indexError)
{
    if (count < 1) return notAllocated;
    return number < 1 || number > count ? indexError : NoError;
}

// NoError, or why the vertex point cannot be read.
inline ErrorStatusTypes CheckVertexPoint(const Structure& structure, std::int32_t number)
{
    return CheckElement(structure.NumberOfVertexPoints, number, VertexPointsNotAllocated, VertexPointIndexError);
}

// True where every vertex point that an edge line, triangle or quad names is there. No rule of the document demands it.
template <std::size_t Corners>
bool JoinsPresentPoints(const JoiningElement<Corners>& element, const ElementArray<VertexPoint>& points)
{
    return std::ranges::all_of(element.VertexPoints, [&](std::int32_t number) { return points.Has(number); });
}

// Writes a vertex point: the label trimmed and cut, the local axes those of the Structure. The label may be the
// point's own.
void StoreVertexPoint(VertexPoint& point, std::u16string_view label, float x, float y, float z, std::int32_t color,
                      Bool16 bold);

// The coordinates of all vertex points at once. Each array has one element a point, else VertexPointIndexError. Written
// are points with the label, color and boldness that they have.
ErrorStatusTypes ReadCoordinates(const Structure& structure, std::span<float> x, std::span<float> y,
                                 std::span<float> z);
ErrorStatusTypes WriteCoordinates(Structure& structure, std::span<const float> x, std::span<const float> y,
                                  std::span<const float> z);

} // namespace qor
