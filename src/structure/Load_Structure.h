// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reads a Structure file. Whatever the bytes, reading ends, in time linear in the file's size.
#pragma once

#include "fileio/Outcome.h"
#include "fileio/RecordReader.h"
#include "structure/Structure.h"

#include <optional>

namespace qor {

// Finds the preamble and reads it to its end. The version as soon as there is one, kept from before otherwise;
// true when the file is one to read on in.
struct StructurePreamble {
    std::optional<std::int16_t> version;
    bool accepted = false;
};
StructurePreamble Load_StructurePreamble(RecordReader& file);

// Reads the records from where the reader stands, adding to the Structure. The label is taken only where the
// object has none. Error: InputFile_ReadFail, beside Success where only the end marker is missing.
Outcome Load_StructureRecords(RecordReader& file, std::int16_t version, Structure& structure, StructureTexts& texts);

// Whether a file of that version is of the large variant.
bool IsLargeVersion(std::int16_t version);

} // namespace qor
