// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Holds docs/formats/framing.md against the library.
#include "datablock/DataBlockLayout.h"
#include "docs/Page.h"
#include "fileio/Framing.h"
#include "shapetable/ShapeTableLayout.h"
#include "structure/StructureLayout.h"

#include <gtest/gtest.h>

#include <sstream>

namespace qor::test {
namespace {

Bytes Written(void (*write)(RecordWriter&))
{
    MemoryFile memory;
    RecordWriter file(memory);
    write(file);
    EXPECT_TRUE(file.Flush());
    return memory.Content();
}

TEST(FramingPage, PreambleIsWhatAWriterPuts)
{
    const Bytes written =
        Written([](RecordWriter& file) { SavePreamble(file, DataBlock_Identification, DataBlock_Version); });

    EXPECT_EQ(Page("framing.md").HexBlock("hex preamble"), written);
}

TEST(FramingPage, RecordIsWhatAWriterPuts)
{
    const Bytes written = Written([](RecordWriter& file) {
        const FilePosition outer = file.BeginRecord(0x0700);
        file.PutInt16(2);
        SaveString(file, u"5 \u00B5m");
        file.PutInt16(3);
        file.PutInt16(-2);
        file.PutInt16(4);
        file.PutFloat(1.5F);
        file.PutInt16(11);
        const FilePosition inner = file.BeginRecord(0x0B00);
        file.PutInt16(ClosingTag);
        file.PatchRecordLength(inner);
        file.PutInt16(12);
        file.PutInt16(ClosingTag);
        file.PatchRecordLength(outer);
    });

    EXPECT_EQ(Page("framing.md").HexBlock("hex record"), written);
}

TEST(FramingPage, OldTextLoadsAsThePageReadsIt)
{
    MemoryFile memory(Page("framing.md").HexBlock("hex old-text"));
    RecordReader file(memory);

    EXPECT_EQ(LoadString(file, TextForm::ZeroTerminated), u"5 \u00B5m \u20AC");
    EXPECT_EQ(file.BytesLeft(), 0);
}

TEST(FramingPage, ListsTheCharactersOfOldTexts)
{
    Bytes bytes;
    std::u16string expected;
    for (const std::string& line : Page("framing.md").Block("codes windows-1252")) {
        std::istringstream text(line);
        unsigned byte = 0;
        char colon = 0;
        text >> std::hex >> byte >> colon;
        for (unsigned code = 0; text >> code; ++byte) {
            bytes.push_back(static_cast<std::uint8_t>(byte));
            expected += static_cast<char16_t>(code);
        }
    }
    bytes.push_back(0);
    MemoryFile memory(bytes);
    RecordReader file(memory);

    const std::u16string loaded = LoadString(file, TextForm::ZeroTerminated);

    ASSERT_EQ(expected.size(), 32U);
    EXPECT_EQ(loaded, expected);
}

TEST(FramingPage, GivesTheIdentificationOfEachKindOfFile)
{
    const auto rows = Page("framing.md").RowsBehind("The other two kinds");

    std::size_t row = 0;
    for (const std::string_view identification :
         {DataBlock_Identification, Structure_Identification, ShapeTable_Identification}) {
        EXPECT_EQ(rows.at(row).at(1), std::string("`").append(identification).append("`"));
        EXPECT_EQ(rows.at(row).at(2), std::to_string(identification.size()));
        ++row;
    }
    EXPECT_EQ(rows.size(), row);
}

} // namespace
} // namespace qor::test
