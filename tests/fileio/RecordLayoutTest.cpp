// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The layout tables of records, row by row, against the fields as they stand in files: tag and width on disk.
#include "fileio/RecordLayout.h"

#include "datablock/DataBlockLayout.h"
#include "support/FileFields.h"

#include <gtest/gtest.h>
#include <set>

namespace qor::test {
namespace {

// Fields that are read and written by code of their own; the tests of the documents see to them.
const std::set<int> DataBlockSteps = {1, 3, 4, 20, 19, 10, 11, 65, 99};
const std::set<int> TraceSteps = {17, 27, 32, 41, 4, 5};

template <class Fields>
std::set<int> TagsOf(const Fields& fields)
{
    std::set<int> tags;
    for (const auto& field : fields) tags.insert(field.tag);
    return tags;
}

std::set<int> TagsOf(const FieldWidths& widths)
{
    std::set<int> tags;
    for (const auto& [tag, width] : widths) tags.insert(tag);
    return tags;
}

// Reads one field into a record of its own and checks that exactly its bytes were taken.
template <class Record, class Field>
void LoadAlone(const Field& field, const Bytes& value, Record& record)
{
    MemoryFile source(value + Hex("EE EE"));
    RecordReader file(source);
    Load_Field(file, record, field, TextForm::Counted, [](auto) { FAIL() << "not a step"; });
    EXPECT_EQ(file.Position(), static_cast<FilePosition>(value.size() + 1)) << "tag " << field.tag;
}

// The bytes of one field of a record, its tag included; all fields count as asked for.
template <class Record, class Field>
Bytes SaveAlone(const Field& field, const Record& record)
{
    Field alone[] = {field};
    alone[0].writtenWhen = [](const Record&) { return true; };
    MemoryFile sink;
    RecordWriter file(sink);
    Save_Fields(file, record, record, alone, [](auto, std::int16_t) { FAIL() << "not a step"; });
    EXPECT_TRUE(file.Flush());
    return sink.Content();
}

template <class Record, class Fields>
void EveryRowAlone(const Fields& fields, const FieldWidths& widths, const std::set<int>& steps)
{
    for (const auto& field : fields) {
        if (steps.contains(field.tag)) continue;
        SCOPED_TRACE(field.tag);
        const Bytes value = SomeValue(widths.at(field.tag));
        Record record;
        LoadAlone(field, value, record);
        const bool dropped = std::holds_alternative<Dropped>(field.value);
        EXPECT_EQ(SaveAlone(field, record), dropped ? Bytes{} : Int16(field.tag) + value);
    }
}

TEST(DataBlock_Fields, HasARowForEveryTagThatFilesHold)
{
    EXPECT_EQ(TagsOf(DataBlock_Fields), TagsOf(DataBlockWidths()));
}

TEST(DataBlock_Fields, EveryRowIsReadAndWrittenBackAlone)
{
    EveryRowAlone<DataBlock>(DataBlock_Fields, DataBlockWidths(), DataBlockSteps);
}

TEST(Trace_Fields, HasARowForEveryTagThatFilesHold) { EXPECT_EQ(TagsOf(Trace_Fields), TagsOf(TraceWidths())); }

TEST(Trace_Fields, EveryRowIsReadAndWrittenBackAlone) { EveryRowAlone<Trace>(Trace_Fields, TraceWidths(), TraceSteps); }

// ---- the tables' own rules, on a small record ------------------------------------------------------------------

struct Note {
    std::u16string Text;
    std::int16_t Number = 0;
    KeptValues<9> Kept{};
};
enum class NoStep {};
using NoteField = Field<Note, NoStep>;

constexpr NoteField Sound[] = {{2, &Note::Text}, {3, &Note::Number}, {9, Kept32{5}}, {7, KeptAgain{9}}};
static_assert(IsSound(Sound));

constexpr NoteField TagTwice[] = {{2, &Note::Text}, {2, &Note::Number}};
static_assert(!IsSound(TagTwice));
constexpr NoteField TagOfTheEnd[] = {{255, &Note::Number}};
static_assert(!IsSound(TagOfTheEnd));
constexpr NoteField TagZero[] = {{0, &Note::Number}};
static_assert(!IsSound(TagZero));
constexpr NoteField AgainWithoutFirst[] = {{3, &Note::Number}, {7, KeptAgain{9}}};
static_assert(!IsSound(AgainWithoutFirst));
constexpr NoteField AgainOf16Bits[] = {{9, Kept16{5}}, {7, KeptAgain{9}}};
static_assert(!IsSound(AgainOf16Bits));

Bytes SaveNote(const Note& note)
{
    MemoryFile sink;
    RecordWriter file(sink);
    Save_Fields(file, note, note, Sound, [](NoStep, std::int16_t) {});
    EXPECT_TRUE(file.Flush());
    return sink.Content();
}

TEST(Save_Fields, WritesRowsInTheirOrderAndLeavesBlankTextsOut)
{
    Note note;
    note.Text = u"   ";
    note.Number = 1;
    note.Kept[9] = 0x01020304;

    EXPECT_EQ(SaveNote(note), Hex("03 00 01 00   09 00 04 03 02 01   07 00 04 03 02 01"));
}

TEST(Save_Fields, TrimsTexts)
{
    Note note;
    note.Text = u"  a ";

    EXPECT_EQ(SaveNote(note), Hex("02 00 01 00 00 00 61 00   03 00 00 00   09 00 00 00 00 00   07 00 00 00 00 00"));
}

RecordEnd LoadNote(const Bytes& behindTypeCode, bool skipsUnknown, Note& note)
{
    MemoryFile source(behindTypeCode);
    RecordReader file(source);
    return Load_RecordFields<Sound>(file, skipsUnknown, [&](const auto& field) {
        Load_Field(file, note, field, TextForm::Counted, [](NoStep) {});
        return note.Number != 99;
    });
}

TEST(Load_RecordFields, ReadsUpToTheClosingTag)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("00 00 00 00  03 00 05 00  FF 00  03 00 06 00"), true, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 5) << "the length does not matter while nothing is skipped";
}

TEST(Load_RecordFields, IgnoresTagZero)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  00 00  00 00  03 00 05 00  FF 00"), true, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 5);
}

TEST(Load_RecordFields, SkipsTheRecordFromAnUnknownTagOn)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("08 00 00 00  C8 00  03 00 05 00  FF 00"), true, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 0);
}

TEST(Load_RecordFields, PassesOverAnUnknownTagWhereLengthsCannotBeUsed)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("08 00 00 00  C8 00  03 00 05 00  FF 00"), false, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 5);
}

TEST(Load_RecordFields, TagsBeyondTheTableAndBelowZeroAreUnknown)
{
    for (const int tag : {1280, 1281, 32767, -1, -32768}) {
        Note note;
        const Bytes bytes = Int32(8) + Int16(tag) + Hex("03 00 05 00  FF 00");
        EXPECT_EQ(LoadNote(bytes, false, note), RecordEnd::Closed) << tag;
        EXPECT_EQ(note.Number, 5) << tag;
    }
}

TEST(Load_RecordFields, ALengthThatLeadsBackIsNotFollowed)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("01 00 00 00  C8 00  FF 00"), true, note), RecordEnd::WentBack);
    EXPECT_EQ(LoadNote(Hex("FF FF FF FF  C8 00  FF 00"), true, note), RecordEnd::WentBack);
}

TEST(Load_RecordFields, StopsWhereAFieldSaysSo)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03 00 63 00  03 00 05 00  FF 00"), true, note), RecordEnd::Stopped);
    EXPECT_EQ(note.Number, 99);
}

TEST(Load_RecordFields, TheEndOfTheFileInsideTheRecordIsToldApart)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("0A 00"), true, note), RecordEnd::EndOfFile) << "length";
    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03"), true, note), RecordEnd::EndOfFile) << "tag";
    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03 00 05"), true, note), RecordEnd::EndOfFile) << "value";
    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03 00 05 00"), true, note), RecordEnd::EndOfFile) << "closing tag";
}

} // namespace
} // namespace qor::test
