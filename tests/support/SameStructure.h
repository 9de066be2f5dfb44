// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Compares two Structures, values bit by bit, field by field and without the tables that the writer and the reader
// walk; and says what a file keeps of a Structure.
#pragma once

#include "fileio/Framing.h"
#include "structure/Structure.h"
#include "support/SameDocument.h"

#include <limits>
#include <stdexcept>

namespace qor::test {

// ---- the first difference, or nothing --------------------------------------------------------------------------

inline std::string ElementDifference(const VertexPoint& left, const VertexPoint& right)
{
    if (left.Label != right.Label) return "Label";
    if (!SameBits(left.Xcoord, right.Xcoord)) return "Xcoord";
    if (!SameBits(left.Ycoord, right.Ycoord)) return "Ycoord";
    if (!SameBits(left.Zcoord, right.Zcoord)) return "Zcoord";
    if (left.Bold.value != right.Bold.value) return "Bold";
    if (left.Color != right.Color) return "Color";
    if (left.CenterPoint != right.CenterPoint) return "CenterPoint";
    if (left.PointType != right.PointType) return "PointType";
    if (!SameBits(left.AxisEnd, right.AxisEnd)) return "AxisEnd";
    if (!SameBits(left.Area, right.Area)) return "Area";
    if (left.NormalAxis != right.NormalAxis) return "NormalAxis";
    if (left.FileExtraValue != right.FileExtraValue) return "FileExtraValue";
    return {};
}

template <std::size_t Corners>
std::string ElementDifference(const JoiningElement<Corners>& left, const JoiningElement<Corners>& right)
{
    if (left.VertexPoints != right.VertexPoints) return "VertexPoints";
    if (left.Bold.value != right.Bold.value) return "Bold";
    if (left.Color != right.Color) return "Color";
    if (left.FileExtraValue != right.FileExtraValue) return "FileExtraValue";
    return {};
}

template <class Element>
std::string ArrayDifference(std::string kind, const ElementArray<Element>& left, const ElementArray<Element>& right)
{
    if (left.Count() != right.Count()) return kind + ": number";
    for (std::int32_t number = 1; number <= left.Count(); ++number) {
        const std::string field = ElementDifference(left[number], right[number]);
        if (!field.empty()) return kind.append(" ").append(std::to_string(number)).append(": ").append(field);
    }
    return {};
}

inline std::string Difference(const Structure& left, const Structure& right)
{
    if (left.LargeStructureFormat != right.LargeStructureFormat) return "variant";
    for (std::string found : {ArrayDifference("vertex points", left.VertexPoints, right.VertexPoints),
                              ArrayDifference("edge lines", left.EdgeLines, right.EdgeLines),
                              ArrayDifference("surface triangles", left.SurfaceTriangles, right.SurfaceTriangles),
                              ArrayDifference("quad surfaces", left.QuadSurfaces, right.QuadSurfaces)}) {
        if (!found.empty()) return found;
    }
    return {};
}

inline bool CountsAgree(const Structure& structure)
{
    return structure.VertexPoints.Count() == structure.NumberOfVertexPoints &&
           structure.EdgeLines.Count() == structure.NumberOfEdgeLines &&
           structure.SurfaceTriangles.Count() == structure.NumberOfSurfaceTriangles &&
           structure.QuadSurfaces.Count() == structure.NumberOfQuadSurfaces;
}

// ---- what a file keeps -----------------------------------------------------------------------------------------

inline std::int32_t In16Bits(std::int32_t value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return value < Limits::min() || value > Limits::max() ? 0 : value;
}

// A label of blanks is not written, and is read back as zero characters.
inline FixedLabel AsFiled(const FixedLabel& label)
{
    const std::u16string_view text = Trimmed(TextOf(label));
    return text.empty() ? FixedLabel{} : PaddedLabel(text);
}

inline VertexPoint AsFiled(VertexPoint point, const Structure& filed)
{
    const auto outside = [](std::int32_t value, std::int32_t first, std::int32_t last) {
        return value < first || value > last;
    };
    point.Label = AsFiled(point.Label);
    point.Bold = point.Bold.value != 0;
    if (!filed.LargeStructureFormat) {
        point.CenterPoint = In16Bits(point.CenterPoint);
        point.FileExtraValue = 0;
    }
    if (outside(point.CenterPoint, 1, filed.NumberOfVertexPoints)) point.CenterPoint = 0;
    point.PointType = In16Bits(point.PointType);
    if (outside(point.PointType, Rectangular, Machine)) point.PointType = Rectangular;
    point.NormalAxis = In16Bits(point.NormalAxis);
    if (outside(point.NormalAxis, Xaxis, Zaxis)) point.NormalAxis = Zaxis;
    return point;
}

template <std::size_t Corners>
JoiningElement<Corners> AsFiled(JoiningElement<Corners> element, const Structure& filed)
{
    element.Bold = element.Bold.value != 0;
    if (filed.LargeStructureFormat) return element;
    for (std::int32_t& each : element.VertexPoints) each = In16Bits(each);
    element.FileExtraValue = 0;
    return element;
}

template <class Element>
void CopyAsFiled(const ElementArray<Element>& from, ElementArray<Element>& to, const Structure& filed)
{
    if (!to.Resize(from.Count())) throw std::runtime_error("no memory for a copy");
    for (std::int32_t number = 1; number <= from.Count(); ++number) to[number] = AsFiled(from[number], filed);
}

// The Structure as it is read back once it has been saved.
inline Structure AsFiled(const Structure& structure)
{
    constexpr std::int32_t mostSmallVertexPoints = 32000;
    Structure filed;
    filed.LargeStructureFormat =
        structure.LargeStructureFormat || structure.NumberOfVertexPoints > mostSmallVertexPoints;
    if (structure.NumberOfVertexPoints == 0) return filed; // without them no element is written
    filed.NumberOfVertexPoints = structure.NumberOfVertexPoints;
    filed.NumberOfEdgeLines = structure.NumberOfEdgeLines;
    filed.NumberOfSurfaceTriangles = structure.NumberOfSurfaceTriangles;
    filed.NumberOfQuadSurfaces = structure.NumberOfQuadSurfaces;
    CopyAsFiled(structure.VertexPoints, filed.VertexPoints, filed);
    CopyAsFiled(structure.EdgeLines, filed.EdgeLines, filed);
    CopyAsFiled(structure.SurfaceTriangles, filed.SurfaceTriangles, filed);
    CopyAsFiled(structure.QuadSurfaces, filed.QuadSurfaces, filed);
    return filed;
}

} // namespace qor::test
