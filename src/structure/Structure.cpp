// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/Structure.h"

#include <algorithm>

namespace qor {

FixedLabel PaddedLabel(std::u16string_view text)
{
    FixedLabel label;
    label.fill(u' ');
    std::copy_n(text.begin(), std::min(text.size(), label.size()), label.begin());
    return label;
}

std::u16string_view TextOf(const FixedLabel& label) { return {label.data(), label.size()}; }

void ReleaseStructureStorage(Structure& structure) { structure = Structure(); }

ErrorStatusTypes AllocateStructure(Structure& structure)
{
    const std::int32_t firstNew = structure.VertexPoints.Count() + 1;
    bool allocated = structure.VertexPoints.Resize(structure.NumberOfVertexPoints);
    if (allocated) {
        for (std::int32_t number = firstNew; number <= structure.NumberOfVertexPoints; ++number) {
            structure.VertexPoints[number].Label = PaddedLabel({});
        }
    }
    allocated = allocated && structure.EdgeLines.Resize(structure.NumberOfEdgeLines) &&
                structure.SurfaceTriangles.Resize(structure.NumberOfSurfaceTriangles) &&
                structure.QuadSurfaces.Resize(structure.NumberOfQuadSurfaces);
    if (allocated) return NoError;
    ReleaseStructureStorage(structure);
    return AllocationError;
}

} // namespace qor
