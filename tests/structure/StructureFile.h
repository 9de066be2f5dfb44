// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Makes the bytes of Structure files without the writer under test, and reads such bytes.
#pragma once

#include "structure/Load_Structure.h"
#include "structure/Save_Structure.h"
#include "support/DataBlockFile.h"

namespace qor::test {

inline RecordBytes VertexBytes() { return RecordBytes(0x0100); }
inline RecordBytes EdgeLineBytes() { return RecordBytes(0x0200); }
inline RecordBytes TriangleBytes() { return RecordBytes(0x0300); }
inline RecordBytes SubStructureBytes() { return RecordBytes(0x0400); }
inline RecordBytes DiscardedBytes() { return RecordBytes(0x0500); }
inline RecordBytes NotesBytes() { return RecordBytes(0x1100); }
inline RecordBytes QuadBytes() { return RecordBytes(0x1E00); }

// The substructure record as files have it: number, label where there is one, and the elements.
inline RecordBytes SubStructureOf(const Bytes& elements, std::u16string_view label = {})
{
    RecordBytes record = SubStructureBytes().Field(1, Int16(1));
    if (!label.empty()) record.Field(2, Text(label));
    return record.Field(3).Raw(elements).Field(4);
}

// A file of whatever stands between its preamble and its end marker.
class StructureFile
{
public:
    StructureFile& Version(int version)
    {
        version_ = version;
        return *this;
    }
    StructureFile& FirstLine(std::string_view text)
    {
        firstLine_ = text;
        return *this;
    }
    StructureFile& Record(const RecordBytes& record) { return Raw(record.Build()); }
    StructureFile& Raw(const Bytes& bytes)
    {
        content_ += bytes;
        return *this;
    }
    StructureFile& WithoutEndMarker()
    {
        endMarker_.clear();
        return *this;
    }

    Bytes Build() const
    {
        return Ascii(firstLine_) + Ascii("\r\n") + Int16(version_) + Bytes(14) + content_ + endMarker_;
    }

private:
    std::string firstLine_ = "DUlmeerQOR Binary Structure File.";
    int version_ = 12;
    Bytes content_;
    Bytes endMarker_ = Hex("AA AA");
};

struct LoadedStructure : Outcome {
    std::optional<std::int16_t> version;
    bool accepted = false;
    Structure structure;
    StructureTexts texts;

    const VertexPoint& Point(std::int32_t number) const { return structure.VertexPoints[number]; }
    std::u16string Label(std::int32_t number) const { return std::u16string(TextOf(Point(number).Label)); }
};

// Reads the file into an empty Structure; of one that is refused only the version.
inline LoadedStructure LoadStructureFrom(ByteSource& source, StructureTexts texts = {})
{
    RecordReader file(source);
    LoadedStructure loaded;
    loaded.texts = std::move(texts);
    const StructurePreamble preamble = Load_StructurePreamble(file);
    loaded.version = preamble.version;
    loaded.accepted = preamble.accepted;
    if (!preamble.accepted) return loaded;
    static_cast<Outcome&>(loaded) = Load_StructureRecords(file, *preamble.version, loaded.structure, loaded.texts);
    return loaded;
}

inline LoadedStructure LoadStructure(const Bytes& bytes, StructureTexts texts = {})
{
    MemoryFile file(bytes);
    return LoadStructureFrom(file, std::move(texts));
}
inline LoadedStructure LoadStructure(const StructureFile& file, StructureTexts texts = {})
{
    return LoadStructure(file.Build(), std::move(texts));
}

inline Bytes SavedBytes(Structure& structure, const StructureTexts& texts = {})
{
    MemoryFile sink;
    SaveStructure(sink, structure, texts);
    return sink.Content();
}

} // namespace qor::test
