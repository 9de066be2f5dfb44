// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Writes a Structure as a file.
#pragma once

#include "platform/ByteStream.h"
#include "structure/Structure.h"

namespace qor {

// Writes preamble, notes, substructure and end marker. A Structure of more than 32000 vertex points becomes one
// of the large variant, and stays one. Without vertex points no elements are written. Faults are not
// reported, as published: the writer's failure shows in the file only.
void SaveStructure(ByteSink& sink, Structure& structure, const StructureTexts& texts);

} // namespace qor
