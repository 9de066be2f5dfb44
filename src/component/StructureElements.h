// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The rules that the element members of clsQOR_File and ClassAdd_4 share.
#pragma once

#include "component/modQOR_File.h"
#include "structure/ElementAccess.h"

#include <QOR_File/QOR_File.h>

#include <limits>

namespace qor {

// The number that asks a write member for a new element.
inline constexpr std::int32_t AppendElement = -1;

// Sizes the thread's Structure to its counts, leaving the result as the shared error status. False, the
// Structure then empty, when memory does not suffice.
inline bool AllocateSharedStructure()
{
    ThreadDocuments& documents = modQOR_File();
    documents.SharedErrorStatus = AllocateStructure(documents.Structure);
    return documents.SharedErrorStatus == NoError;
}

// Raises one of the thread's counts and makes the element. False as above; raises the overflow of the count.
inline bool RaiseCount(std::int32_t& count)
{
    if (count == std::numeric_limits<std::int32_t>::max()) throw RuntimeFault(RuntimeFault::Overflow);
    ++count;
    return AllocateSharedStructure();
}

// Stores a joining element, or appends it.
template <std::size_t Corners>
ErrorStatusTypes StoreElement(ElementArray<JoiningElement<Corners>>& elements, std::int32_t& count, std::int32_t number,
                              const std::array<std::int32_t, Corners>& vertexPoints, std::int32_t color, Bool16 bold,
                              ErrorStatusTypes notAllocated, ErrorStatusTypes indexError)
{
    if (number == AppendElement) {
        if (!RaiseCount(count)) return notAllocated;
        number = count;
    } else if (number < 1 || number > count) {
        return indexError;
    }
    JoiningElement<Corners>& element = elements[number];
    element.VertexPoints = vertexPoints;
    element.Color = color;
    element.Bold = bold;
    return NoError;
}

// Hands the corners of a joining element to the references that a member was given.
template <std::size_t Corners>
ErrorStatusTypes FetchElement(const ElementArray<JoiningElement<Corners>>& elements, std::int32_t number,
                              const std::array<std::int32_t*, Corners>& vertexPoints, std::int32_t& color, Bool16& bold,
                              ErrorStatusTypes notAllocated, ErrorStatusTypes indexError)
{
    const ErrorStatusTypes error = CheckElement(elements.Count(), number, notAllocated, indexError);
    if (error != NoError) return error;
    const JoiningElement<Corners>& element = elements[number];
    for (std::size_t i = 0; i < Corners; ++i) *vertexPoints[i] = element.VertexPoints[i];
    color = element.Color;
    bold = element.Bold;
    return NoError;
}

} // namespace qor
