// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Structure document: test-article geometry. Vertex points in space, and edge lines, surface triangles and
// quad surfaces that join them by number. It knows nothing of the component. What stands in its file:
// docs/formats/structure.md.
#pragma once

#include "platform/Memory.h"
#include "structure/ElementArray.h"

#include <QOR_File/Enumerations.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

// A label of fixed width. One that a file left out holds zero characters, which are not blanks.
inline constexpr std::size_t LabelWidth = 20;
using FixedLabel = std::array<char16_t, LabelWidth>;

// Sets the label to the text, cut at the width or padded with blanks. The text is none of the label itself.
inline void SetLabel(FixedLabel& label, std::u16string_view text)
{
    label.fill(u' ');
    std::copy_n(text.begin(), std::min(text.size(), LabelWidth), label.begin());
}
inline FixedLabel PaddedLabel(std::u16string_view text)
{
    FixedLabel label;
    SetLabel(label, text);
    return label;
}
inline std::u16string_view TextOf(const FixedLabel& label) { return {label.data(), label.size()}; }

// Three local axes by three components of their end points: X of axis 1, 2, 3, then Y, then Z.
using AxisEnds = std::array<float, 9>;
// The place of a component (0 to 2) of an axis (0 to 2).
constexpr std::size_t AxisEndIndex(std::size_t axis, std::size_t component) { return 3 * component + axis; }

struct VertexPoint {
    FixedLabel Label{};
    float Xcoord = 0;
    float Ycoord = 0;
    float Zcoord = 0;
    Bool16 Bold;
    std::int32_t Color = 0;
    std::int32_t CenterPoint = 0;
    std::int32_t PointType = 0; // PointTypes
    AxisEnds AxisEnd{};
    float Area = 0;
    std::int32_t NormalAxis = 0;     // AxisNumbers
    std::int32_t FileExtraValue = 0; // carried from file to file, not interpreted
};

// An element that joins vertex points. The numbers are stored unchanged; nothing checks that they exist.
template <std::size_t Corners>
struct JoiningElement {
    std::array<std::int32_t, Corners> VertexPoints{};
    Bool16 Bold;
    std::int32_t Color = 0;
    std::int32_t FileExtraValue = 0;
};
using EdgeLine = JoiningElement<2>;        // start, end
using SurfaceTriangle = JoiningElement<3>; // start, middle, end
using QuadSurface = JoiningElement<4>;     // corners 1 to 4

struct Structure {
    // An array has exactly as many elements as its count says, but while a count has been changed and
    // AllocateStructure has not run yet.
    std::int32_t NumberOfVertexPoints = 0;
    std::int32_t NumberOfEdgeLines = 0;
    std::int32_t NumberOfSurfaceTriangles = 0;
    std::int32_t NumberOfQuadSurfaces = 0;
    ElementArray<VertexPoint> VertexPoints;
    ElementArray<EdgeLine> EdgeLines;
    ElementArray<SurfaceTriangle> SurfaceTriangles;
    ElementArray<QuadSurface> QuadSurfaces;

    // It came from a file of the large variant, or once had more vertex points than the small one numbers.
    bool LargeStructureFormat = false;
};

// Label and notes, which each component object holds for itself.
struct StructureTexts {
    std::u16string Label;
    std::u16string Notes;
};

// Empties the Structure.
void ReleaseStructureStorage(Structure& structure);

// Brings the arrays in line with the counts, elements that fit kept. AllocationError, and the whole Structure
// emptied, when memory does not suffice; where all four lists together do not fit the memory that a process can
// use, that is found before anything is allocated.
ErrorStatusTypes AllocateStructure(Structure& structure, std::uint64_t usableMemory = platform::UsableMemory());

} // namespace qor
