// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The dictionaries that fuzzing takes words from are made of the layouts. With QOR_WRITE_SEEDS set in the environment
// they are written anew.
#include "datablock/DataBlockLayout.h"
#include "shapetable/ShapeTableLayout.h"
#include "structure/StructureLayout.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

namespace qor::test {
namespace {

using Words = std::set<std::string>;

std::string Quoted(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (const char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        if (each >= ' ' && each < '\x7F' && each != '"' && each != '\\') {
            quoted += each;
        } else {
            quoted.append("\\x").append({digits[byte >> 4], digits[byte & 15]});
        }
    }
    return quoted + "\"";
}

std::string Word(std::int16_t value)
{
    return {static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF)};
}

template <class Fields>
void AddTags(const Fields& fields, Words& words)
{
    for (const auto& field : fields) words.insert(Word(field.tag));
}

Words WordsOfDataBlock()
{
    Words words = {std::string(DataBlock_Identification) + "\r\n", Word(DataBlock_Version)};
    for (const std::int16_t each : {DataBlockRecord, TraceRecord, TraceSubRecordType, ClosingTag, EndMarker}) {
        words.insert(Word(each));
    }
    AddTags(DataBlock_Fields, words);
    AddTags(Trace_Fields, words);
    return words;
}

Words WordsOfStructure()
{
    Words words = {std::string(Structure_Identification) + "\r\n"};
    for (const std::int16_t each :
         {SmallStructure_Version, LargeStructure_Version, VertexRecord, EdgeLineRecord, SurfaceTriangleRecord,
          SubStructureRecord, DiscardedRecord, NotesRecord, QuadSurfaceRecord, EndOfRun, ClosingTag, EndMarker}) {
        words.insert(Word(each));
    }
    AddTags(Vertex_Fields, words);
    AddTags(EdgeLine_Fields, words);
    AddTags(Surface_Fields<QuadSurface>, words);
    AddTags(SubStructure_Fields, words);
    AddTags(Notes_Fields, words);
    AddTags(Discarded_Fields, words);
    return words;
}

Words WordsOfAllDocuments()
{
    Words words = WordsOfDataBlock();
    words.merge(WordsOfStructure());
    words.insert(std::string(ShapeTable_Identification) + "\r\n");
    return words;
}

void ExpectDictionary(const Words& words, const std::string& name)
{
    std::string text;
    for (const std::string& word : words) text += Quoted(word) + "\n";
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    const auto path = std::filesystem::path(QOR_SOURCE_DIR) / "tests/fuzz" / name;
    if (std::getenv("QOR_WRITE_SEEDS")) WriteBytes(path, bytes);
    EXPECT_EQ(BytesOf(path), bytes) << path;
}

TEST(Dictionary, OfDataBlocksHoldsTheWordsOfTheirLayout) { ExpectDictionary(WordsOfDataBlock(), "datablock.dict"); }

TEST(Dictionary, OfStructuresHoldsTheWordsOfTheirLayout) { ExpectDictionary(WordsOfStructure(), "structure.dict"); }

TEST(Dictionary, OfDocumentsHoldsTheWordsOfAllLayouts) { ExpectDictionary(WordsOfAllDocuments(), "documents.dict"); }

} // namespace
} // namespace qor::test
