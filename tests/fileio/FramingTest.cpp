// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Texts in both forms, the preamble and how it is found, and the two general helpers.
#include "fileio/Framing.h"

#include "support/DataBlockFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

Bytes Saved(std::u16string_view text)
{
    MemoryFile sink;
    RecordWriter file(sink);
    SaveString(file, text);
    EXPECT_TRUE(file.Flush());
    return sink.Content();
}

struct LoadedText {
    std::u16string text;
    FilePosition position;
    bool atEnd;
};

LoadedText Load(const Bytes& bytes, TextForm form)
{
    MemoryFile source(bytes);
    RecordReader file(source);
    std::u16string text = LoadString(file, form);
    return {std::move(text), file.Position(), file.AtEnd()};
}

// The preamble search over these bytes, and where it left the reader.
struct Search {
    std::optional<std::int16_t> version;
    FilePosition position;
};

Search Find(const Bytes& bytes)
{
    MemoryFile source(bytes);
    RecordReader file(source);
    const auto version = FindPreamble(file);
    return {version, file.Position()};
}

Bytes Blanks(std::size_t count) { return Bytes(count, ' '); }

// ---- texts ---------------------------------------------------------------------------------------------------

TEST(SaveString, WritesEmptyTextAsAZeroCount) { EXPECT_EQ(Saved(u""), Hex("00 00 00 00")); }

TEST(SaveString, WritesACountAndTheCodeUnits) { EXPECT_EQ(Saved(u"AB"), Hex("02 00 00 00  41 00  42 00")); }

TEST(SaveString, WritesUnpairedSurrogatesAsTheyAre)
{
    EXPECT_EQ(Saved(std::u16string{0xDC00, 0xD800}), Hex("02 00 00 00  00 DC  00 D8"));
}

TEST(LoadString, ReadsACountAndTheCodeUnits)
{
    const LoadedText read = Load(Hex("02 00 00 00  41 00  AC 20  FF FF"), TextForm::Counted);

    EXPECT_EQ(read.text, u"A\u20AC");
    EXPECT_EQ(read.position, 9);
    EXPECT_FALSE(read.atEnd);
}

TEST(LoadString, KeepsZerosAndUnpairedSurrogates)
{
    const LoadedText read = Load(Hex("03 00 00 00  00 D8  00 00  00 DC"), TextForm::Counted);

    EXPECT_EQ(read.text, (std::u16string{0xD800, 0, 0xDC00}));
}

TEST(LoadString, ANegativeCountGivesEmptyTextAndReadingGoesOn)
{
    const LoadedText read = Load(Hex("FF FF FF FF  41 00"), TextForm::Counted);

    EXPECT_EQ(read.text, u"");
    EXPECT_EQ(read.position, 5);
    EXPECT_FALSE(read.atEnd);
}

TEST(LoadString, AtTheEndOfTheFileTheWholeCharactersRemain)
{
    const LoadedText read = Load(Hex("03 00 00 00  41 00  42 00  43"), TextForm::Counted);

    EXPECT_EQ(read.text, u"AB");
    EXPECT_TRUE(read.atEnd);
}

TEST(LoadString, ACountLargerThanTheFileCostsNoMoreThanTheFile)
{
    const LoadedText read = Load(Hex("FF FF FF 7F  41 00"), TextForm::Counted);

    EXPECT_EQ(read.text, u"A");
    EXPECT_LT(read.text.capacity(), 100u);
    EXPECT_TRUE(read.atEnd);
}

TEST(LoadString, ReadsOldTextUpToItsZeroByte)
{
    const LoadedText read = Load(Hex("41 42 00  43"), TextForm::ZeroTerminated);

    EXPECT_EQ(read.text, u"AB");
    EXPECT_EQ(read.position, 4);
    EXPECT_FALSE(read.atEnd);
}

TEST(LoadString, OldTextEndsWithTheFileToo)
{
    const LoadedText read = Load(Hex("41 42"), TextForm::ZeroTerminated);

    EXPECT_EQ(read.text, u"AB");
    EXPECT_TRUE(read.atEnd);
}

TEST(LoadString, OldTextIsWindows1252)
{
    // The characters of 0x80 to 0x9F in order; five bytes have none and stand for their own number.
    const std::u16string special = u"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152"
                                   u"\x8D\u017D\x8F\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122"
                                   u"\u0161\u203A\u0153\x9D\u017E\u0178";
    Bytes bytes;
    std::u16string expected;
    for (int code = 1; code < 256; ++code) {
        bytes.push_back(static_cast<std::uint8_t>(code));
        expected +=
            code >= 0x80 && code < 0xA0 ? special[static_cast<std::size_t>(code - 0x80)] : static_cast<char16_t>(code);
    }
    bytes.push_back(0);

    EXPECT_EQ(Load(bytes, TextForm::ZeroTerminated).text, expected);
}

TEST(Trimmed, TakesBlanksOffBothEndsOnly)
{
    EXPECT_EQ(Trimmed(u"  a b "), u"a b");
    EXPECT_EQ(Trimmed(u"   "), u"");
    EXPECT_EQ(Trimmed(u""), u"");
    EXPECT_EQ(Trimmed(u"\t\u00A0x\n"), u"\t\u00A0x\n") << "no other white space counts";
}

// ---- preamble ------------------------------------------------------------------------------------------------

TEST(SavePreamble, WritesLineVersionAndSevenZeroWords)
{
    MemoryFile sink;
    RecordWriter file(sink);

    SavePreamble(file, "Two words", 12);

    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(sink.Content(), Ascii("Two words\r\n") + Hex("0C 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00"));
}

TEST(FindPreamble, ReadsTheVersionBehindTheLineEnd)
{
    const Search found = Find(Ascii("Some Binary File.\r\n") + Hex("FE FF  00 00"));

    EXPECT_EQ(found.version, -2);
    EXPECT_EQ(found.position, 22);
}

TEST(FindPreamble, TakesTheKeywordInAnyLetterCase)
{
    for (const char* const word : {"BINARY", "binary", "bInArY"}) {
        EXPECT_EQ(Find(Ascii(word) + Ascii("\r\n") + Int16(7)).version, 7) << word;
    }
}

TEST(FindPreamble, RefusesOtherWords)
{
    for (const char* const word : {"BINAR", "BINARX", " INARY", "B I N A R Y", "b\tnary"}) {
        EXPECT_EQ(Find(Ascii(word) + Ascii("\r\n") + Int16(7)).version, std::nullopt) << word;
    }
}

TEST(FindPreamble, TheKeywordMayStartAtAnyPositionUpTo199IfItsLineEndsBeforePosition200)
{
    for (std::size_t start = 1; start <= 193; ++start) {
        EXPECT_EQ(Find(Blanks(start - 1) + Ascii("Binary\r\n") + Int16(12)).version, 12) << start;
    }
    EXPECT_EQ(Find(Blanks(193) + Ascii("Binary\r\n") + Int16(12)).version, std::nullopt) << "line end at 200";
    EXPECT_EQ(Find(Blanks(198) + Ascii("Binary\r\n") + Int16(12)).version, std::nullopt);
}

TEST(FindPreamble, TheLineEndMayStartAtPosition199ButNotAt200)
{
    const Bytes line = Ascii("Binary");

    EXPECT_EQ(Find(line + Blanks(192) + Ascii("\r\n") + Int16(12)).version, 12);
    EXPECT_EQ(Find(line + Blanks(193) + Ascii("\r\n") + Int16(12)).version, std::nullopt);
}

TEST(FindPreamble, LineEndsBeforeTheKeywordDoNotCount)
{
    EXPECT_EQ(Find(Ascii("x\r\n binary y\r\n") + Int16(5)).version, 5);
}

TEST(FindPreamble, ALineEndNeedsBothCharactersInOrder)
{
    EXPECT_EQ(Find(Ascii("binary\r \n\n\r x\r\n") + Int16(5)).version, 5);
    EXPECT_EQ(Find(Ascii("binary\n\r") + Int16(5)).version, std::nullopt);
}

TEST(FindPreamble, WithoutAKeywordItStandsBehindTheLastBytesTried) { EXPECT_EQ(Find(Blanks(300)).position, 199 + 6); }

TEST(FindPreamble, WithoutALineEndItStandsBehindTheLastBytesTried)
{
    EXPECT_EQ(Find(Ascii("Binary") + Blanks(300)).position, 199 + 2);
}

TEST(FindPreamble, RefusesAnEmptyFile) { EXPECT_EQ(Find({}).version, std::nullopt); }

TEST(FindPreamble, AVersionThatTheFileCutsOffReadsAsFarAsItGoes)
{
    EXPECT_EQ(Find(Ascii("Binary\r\n") + Bytes{9}).version, 9);
    EXPECT_EQ(Find(Ascii("Binary\r\n")).version, 0);
}

TEST(SkipReservedWords, ReadsFourteenBytes)
{
    MemoryFile source(Bytes(20));
    RecordReader file(source);

    SkipReservedWords(file);

    EXPECT_EQ(file.Position(), 15);
}

TEST(SkipReservedWords, LeavesTheEndOfFileConditionWhereTheyAreCutOff)
{
    MemoryFile source(Bytes(13));
    RecordReader file(source);

    SkipReservedWords(file);

    EXPECT_TRUE(file.AtEnd());
}

// ---- general helpers -----------------------------------------------------------------------------------------

TEST(StringToBytes, EndsWithAZero)
{
    EXPECT_EQ(StringToBytes(u""), (Bytes{0}));
    EXPECT_EQ(StringToBytes(u"AB"), (Bytes{65, 66, 0}));
}

TEST(StringToBytes, TurnsEmbeddedZerosIntoBlanks)
{
    EXPECT_EQ(StringToBytes(std::u16string_view(u"A\0B", 3)), (Bytes{65, 32, 66, 0}));
}

TEST(StringToBytes, TakesTheLowByteOfEachCharacter)
{
    EXPECT_EQ(StringToBytes(u"\u20AC\u0141\u0100"), (Bytes{0xAC, 0x41, 32, 0}));
}

TEST(WordToInteger, ReadsSignAndMagnitude)
{
    const std::vector<std::pair<std::int32_t, std::int16_t>> cases = {
        {0, 0},       {1, 1},       {32767, 32767}, {32768, 0}, {32769, -1}, {40000, -7232}, {65535, -32767},
        {-1, -32767}, {-5, -32763}, {-32768, 0},    {65536, 0}, {65537, -1}, {INT32_MIN, 0}, {INT32_MAX, -32767},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(WordToInteger(value), expected) << value;
}

} // namespace
} // namespace qor::test
