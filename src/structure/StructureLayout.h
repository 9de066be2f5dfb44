// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Structure file's records, each as the one table that its writer and reader share. Page:
// docs/formats/structure.md.
#pragma once

#include "fileio/RecordLayout.h"
#include "structure/Structure.h"

namespace qor {

inline constexpr std::string_view Structure_Identification = "DUlmeerQOR Binary Structure File.";

// The small variant numbers elements in 16 bits; the large one in 32, and carries one more value an element.
inline constexpr std::int16_t SmallStructure_Version = 12;
inline constexpr std::int16_t LargeStructure_Version = 15;
inline constexpr std::int16_t FirstLargeStructure_Version = 13;
inline constexpr std::int32_t MostSmallVertexPoints = 32000;

// Files below it hold their texts zero-terminated.
inline constexpr std::int16_t Structure_FirstVersionWithCountedText = 11;

// Record type codes.
inline constexpr std::int16_t VertexRecord = 0x0100;
inline constexpr std::int16_t EdgeLineRecord = 0x0200;
inline constexpr std::int16_t SurfaceTriangleRecord = 0x0300;
inline constexpr std::int16_t SubStructureRecord = 0x0400;
inline constexpr std::int16_t DiscardedRecord = 0x0500;
inline constexpr std::int16_t NotesRecord = 0x1100;
inline constexpr std::int16_t QuadSurfaceRecord = 0x1E00;

// Tags that end a run of records.
inline constexpr std::int16_t EndOfElements = 4;
inline constexpr std::int16_t EndOfRun = 14;

// Which variant is written is the Structure's matter, not the record's.
inline bool IsLarge(const Structure& structure) { return structure.LargeStructureFormat; }
inline bool IsSmall(const Structure& structure) { return !IsLarge(structure); }
inline bool HasVertexPoints(const Structure& structure) { return structure.NumberOfVertexPoints > 0; }

// Fields of the vertex-point record that take more than a copy.
enum class VertexStep {
    SmallNumber,
    LargeNumber,
    Coordinates,
    Bold,
    Label,
    SmallCenterPoint,
    LargeCenterPoint,
    PointType,
    Axes,
    NormalAxis,
    NestedRun,
};

// Vertex-point record.
inline constexpr Field<VertexPoint, VertexStep, Structure> Vertex_Fields[] = {
    {1, VertexStep::SmallNumber, IsSmall},
    {85, VertexStep::LargeNumber, IsLarge},
    {83, &VertexPoint::FileExtraValue, IsLarge},
    {2, VertexStep::Coordinates},
    {4, &VertexPoint::Color},
    {5, VertexStep::Bold},
    {7, VertexStep::Label},
    {3, VertexStep::SmallCenterPoint, IsSmall},
    {84, VertexStep::LargeCenterPoint, IsLarge},
    {22, VertexStep::PointType},
    {23, VertexStep::Axes},
    {67, &VertexPoint::Area},
    {68, VertexStep::NormalAxis},

    // Older files only.
    {6, Dropped{2}},
    {21, Dropped{2}},
    {25, Dropped{2}},
    {69, Dropped{2}},
    {70, Dropped{2}},
    {71, Dropped{2}},
    {72, Dropped{2}},
    {8, Dropped{2}},
    {10, Dropped{2}},
    {12, Dropped{2}},
    {15, Dropped{2}},
    {17, Dropped{2}},
    {19, Dropped{2}},
    {27, Dropped{2}},
    {29, Dropped{2}},
    {31, Dropped{2}},
    {33, Dropped{2}},
    {35, Dropped{2}},
    {37, Dropped{2}},
    {39, Dropped{2}},
    {24, Dropped{4}},
    {26, Dropped{4}},
    {82, Dropped{4}},
    // Each opens a run of records that ends with a tag of its own.
    {9, VertexStep::NestedRun, ReadOnly},
    {11, VertexStep::NestedRun, ReadOnly},
    {13, VertexStep::NestedRun, ReadOnly},
    {16, VertexStep::NestedRun, ReadOnly},
    {18, VertexStep::NestedRun, ReadOnly},
    {20, VertexStep::NestedRun, ReadOnly},
    {28, VertexStep::NestedRun, ReadOnly},
    {30, VertexStep::NestedRun, ReadOnly},
    {32, VertexStep::NestedRun, ReadOnly},
    {34, VertexStep::NestedRun, ReadOnly},
    {36, VertexStep::NestedRun, ReadOnly},
    {38, VertexStep::NestedRun, ReadOnly},
    {40, VertexStep::NestedRun, ReadOnly},
    {1280, VertexStep::NestedRun, ReadOnly},
};
static_assert(IsSound(Vertex_Fields));

// Fields of the records of joining elements that take more than a copy.
enum class ElementStep { SmallVertexPoints, LargeVertexPoints, Bold };

// Edge-line record. Its large numbers and its extra value have other tags than those of the surfaces.
inline constexpr Field<EdgeLine, ElementStep, Structure> EdgeLine_Fields[] = {
    {2, ElementStep::SmallVertexPoints, IsSmall},
    {7, ElementStep::LargeVertexPoints, IsLarge},
    {6, &EdgeLine::FileExtraValue, IsLarge},
    {3, &EdgeLine::Color},
    {4, ElementStep::Bold},

    // Older files only.
    {1, Dropped{2}},
    {5, Dropped{2}},
};
static_assert(IsSound(EdgeLine_Fields));

// Surface-triangle and quad-surface record.
template <class Surface>
inline constexpr Field<Surface, ElementStep, Structure> Surface_Fields[] = {
    {2, ElementStep::SmallVertexPoints, IsSmall},
    {8, ElementStep::LargeVertexPoints, IsLarge},
    {7, &Surface::FileExtraValue, IsLarge},
    {3, &Surface::Color},
    {4, ElementStep::Bold},

    // Older files only.
    {1, Dropped{2}},
    {5, Dropped{2}},
    {6, Dropped{2}},
};
static_assert(IsSound(Surface_Fields<SurfaceTriangle>));

// Fields of the substructure record that take more than a copy.
enum class SubStructureStep { Label, Elements };

// Substructure record.
inline constexpr Field<StructureTexts, SubStructureStep, Structure> SubStructure_Fields[] = {
    {1, Constant16{1}}, // number of the substructure
    {2, SubStructureStep::Label},
    {3, SubStructureStep::Elements, HasVertexPoints}, // up to and with EndOfElements

    // Older files only.
    {5, Dropped{2}},
    {6, Dropped{2}},
};
static_assert(IsSound(SubStructure_Fields));

enum class NoStep {};

// Notes record; written only when it has a text.
inline constexpr Field<StructureTexts, NoStep, Structure> Notes_Fields[] = {
    {6, &StructureTexts::Notes},
};
static_assert(IsSound(Notes_Fields));

// A record of older files that is read past field by field.
inline constexpr Field<StructureTexts, NoStep, Structure> Discarded_Fields[] = {
    {1, Dropped{2}},
    {2, Dropped{4}},
};
static_assert(IsSound(Discarded_Fields));

} // namespace qor
