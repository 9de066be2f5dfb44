// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Opens a document file of any kind for showing, and says in words what is wrong with one.
#pragma once

#include "datablock/Load_DataBlock.h"
#include "platform/File.h"
#include "structure/Load_Structure.h"
#include "tools/documents/ShapeTableFile.h"

#include <span>
#include <string>
#include <string_view>

namespace qor::tool {

enum class DocumentKind { DataBlock, Structure, ShapeTable };

// "Data Block", "Structure", "Shape Table".
std::string_view NameOf(DocumentKind kind);

struct StructureDocument {
    Structure structure;
    StructureTexts texts;
    bool endMarkerMissing = false;
};

class DocumentFile
{
public:
    // Throws ToolError when the file cannot be opened or is no document: something else altogether, or of a later
    // version.
    explicit DocumentFile(const std::string& path);

    DocumentKind Kind() const { return kind_; }
    std::int16_t Version() const { return version_; }
    const std::string& Path() const { return path_; }
    std::uint64_t Size() const { return file_.Size(); }

    // Each for a file of that kind. They throw ToolError when the document is damaged.
    LoadResult LoadDataBlock(DataBlock& block, const ArraySelection& selection);
    StructureDocument LoadStructure();
    ShapeTableDocument LoadShapeTable();

private:
    std::string path_;
    platform::File file_;
    DocumentKind kind_ = DocumentKind::DataBlock;
    bool saysKind_ = false; // in its first line
    std::int16_t version_ = 0;
};

// "small" or "large": whether a Structure file numbers its elements in 16 or in 32 bits.
std::string_view VariantName(const Structure& structure);

// The label without the blanks or zeros that fill it up.
std::u16string_view LabelOf(const VertexPoint& point);

// A file without its end marker is whole otherwise: it is worth a warning.
void WarnOfMissingEndMarker(const std::string& path);

// "3 of 7 traces without samples", which a damaged file may bring; empty where all have some.
std::string EmptyTracesWarning(std::ptrdiff_t traces, std::ptrdiff_t without);
// As a message about the file, for those traces.
void WarnOfEmptyTraces(const std::string& path, const DataBlock& block, std::span<const std::int32_t> traces);

// X value of a sample, from 1, as the Data Block gives it; nothing where an explicit X axis is absent or too short.
std::optional<double> XValue(const DataBlock& block, std::int32_t sampleNumber);
// Samples that the trace really holds.
std::int32_t SampleCount(const DataBlock& block, const Trace& trace);
// The units of the X axis, of the unit code where there is no text.
std::u16string XaxisUnitsText(const DataBlock& block);

} // namespace qor::tool
