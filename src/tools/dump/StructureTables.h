// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The elements of a Structure as tables, one a kind.
#pragma once

#include "structure/Structure.h"
#include "tools/dump/ValueTable.h"

#include <string_view>

namespace qor::tool {

enum class ElementKind { Points, Lines, Triangles, Quads };
inline constexpr ElementKind ElementKinds[] = {ElementKind::Points, ElementKind::Lines, ElementKind::Triangles,
                                               ElementKind::Quads};

// "points", "lines", "triangles", "quads".
std::string_view NameOf(ElementKind kind);

// Refers to the Structure.
ValueTable ElementTable(const Structure& structure, ElementKind kind);

} // namespace qor::tool
