// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/Structure.h"

#include <utility>

namespace qor {
namespace {

template <class Element>
std::int64_t Bytes(const ElementArray<Element>&, std::int32_t count)
{
    return static_cast<std::int64_t>(sizeof(Element)) * count;
}

bool AllocateArrays(Structure& structure)
{
    const std::int32_t firstNew = structure.VertexPoints.Count() + 1;
    if (!structure.VertexPoints.Resize(structure.NumberOfVertexPoints)) return false;
    for (std::int32_t number = firstNew; number <= structure.NumberOfVertexPoints; ++number) {
        SetLabel(structure.VertexPoints[number].Label, {});
    }
    return structure.EdgeLines.Resize(structure.NumberOfEdgeLines) &&
           structure.SurfaceTriangles.Resize(structure.NumberOfSurfaceTriangles) &&
           structure.QuadSurfaces.Resize(structure.NumberOfQuadSurfaces);
}

} // namespace

void ReleaseStructureStorage(Structure& structure) { structure = Structure(); }

ErrorStatusTypes AllocateStructure(Structure& structure, std::uint64_t usableMemory)
{
    const std::int64_t bytes = Bytes(structure.VertexPoints, structure.NumberOfVertexPoints) +
                               Bytes(structure.EdgeLines, structure.NumberOfEdgeLines) +
                               Bytes(structure.SurfaceTriangles, structure.NumberOfSurfaceTriangles) +
                               Bytes(structure.QuadSurfaces, structure.NumberOfQuadSurfaces);
    if (std::cmp_less_equal(bytes, usableMemory) && AllocateArrays(structure)) return NoError;
    ReleaseStructureStorage(structure);
    return AllocationError;
}

} // namespace qor
