// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The layout tables of records, row by row, against the fields as they stand in files: tag and width on disk.
#include "fileio/RecordLayout.h"

#include "datablock/DataBlockLayout.h"
#include "support/FileFields.h"

#include <algorithm>
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

// Reads a record that holds one field only.
template <const auto& Fields, class Record>
void LoadAlone(int tag, const Bytes& value, Record& record)
{
    const Bytes body = Int16(tag) + value + Int16(ClosingTag);
    MemoryFile source(Int32(static_cast<int>(body.size())) + body + Hex("EE EE"));
    RecordReader file(source);
    const RecordEnd end = Load_Record<Fields>(
        file, true, TextForm::Counted, [&]() -> Record& { return record; },
        [](auto, ItemReader&) {
            ADD_FAILURE() << "not a step";
            return false;
        });
    EXPECT_EQ(end, RecordEnd::Closed);
    EXPECT_EQ(file.Position(), static_cast<FilePosition>(4 + body.size() + 1)) << "exactly the field's bytes are taken";
}

// How often the field stands in the record as it is written; fields that take a step are left out.
template <const auto& Fields, class Record>
int TimesSaved(const Bytes& field, const Record& record)
{
    MemoryFile sink;
    RecordWriter file(sink);
    Save_Record<Fields>(file, 1, record, record, [](auto, std::int16_t, ItemWriter&) {});
    EXPECT_TRUE(file.Flush());
    const Bytes& saved = sink.Content();
    int times = 0;
    for (auto at = saved.begin(); at != saved.end(); ++at, ++times) {
        at = std::search(at, saved.end(), field.begin(), field.end());
        if (at == saved.end()) break;
    }
    return times;
}

// Reads and writes back every field alone, in a record for which all that is ever written is.
template <const auto& Fields, class Record>
void EveryRowAlone(const FieldWidths& widths, const std::set<int>& steps, const std::set<int>& readOnly,
                   void (*prepare)(Record&))
{
    for (const auto& field : Fields) {
        if (steps.contains(field.tag)) continue;
        SCOPED_TRACE(field.tag);
        const Bytes value = SomeValue(widths.at(field.tag));
        Record record;
        prepare(record);
        LoadAlone<Fields>(field.tag, value, record);
        const bool isSaved = !std::holds_alternative<Dropped>(field.value) && !readOnly.contains(field.tag);
        EXPECT_EQ(TimesSaved<Fields>(Int16(field.tag) + value, record), isSaved ? 1 : 0);
    }
}

struct Sample {
    std::int16_t word = 0;
    std::int32_t number = 0;
    std::u16string text;
    float value = 0;
};
enum class SampleStep { Fixed, Open };
constexpr Field<Sample, SampleStep> Sample_Fields[] = {
    {1, &Sample::word},  {2, &Sample::number},  {3, SampleStep::Fixed}, {4, &Sample::text},
    {5, &Sample::value}, {6, SampleStep::Open}, {7, Dropped{2}},
};

// How many bytes the fixed step takes.
template <std::size_t Fixed>
struct SampleSteps {
    static constexpr std::size_t Bytes(SampleStep step) { return step == SampleStep::Fixed ? Fixed : 0; }
};

TEST(FixedRuns, CountTheValuesAndTheTagsBehindThem)
{
    const std::array<std::size_t, 6> expected = {(2 + 2) + (4 + 2) + (12 + 2), 0, 0, 0, 4 + 2, 0};

    EXPECT_EQ((FixedRuns<Sample_Fields, SampleSteps<12>>), expected);
}

TEST(FixedRuns, AreNoLongerThanWhatAReaderHolds)
{
    const std::array<std::size_t, 6> expected = {(2 + 2) + (4 + 2), 0, 250 + 2, 0, 4 + 2, 0};

    EXPECT_EQ((FixedRuns<Sample_Fields, SampleSteps<250>>), expected);
}

TEST(DataBlock_Fields, HasARowForEveryTagThatFilesHold)
{
    EXPECT_EQ(TagsOf(DataBlock_Fields), TagsOf(DataBlockWidths()));
}

TEST(DataBlock_Fields, EveryRowIsReadAndWrittenBackAlone)
{
    EveryRowAlone<DataBlock_Fields, DataBlock>(DataBlockWidths(), DataBlockSteps, {}, [](DataBlock& block) {
        block.DataBlockFromFile = true;
        block.KeptText = u"text";
    });
}

TEST(Trace_Fields, HasARowForEveryTagThatFilesHold) { EXPECT_EQ(TagsOf(Trace_Fields), TagsOf(TraceWidths())); }

TEST(Trace_Fields, EveryRowIsReadAndWrittenBackAlone)
{
    EveryRowAlone<Trace_Fields, Trace>(TraceWidths(), TraceSteps, {11, 12, 13, 14, 21}, [](Trace&) {});
}

// ---- the tables' own rules, on a small record ------------------------------------------------------------------

struct Note {
    std::u16string Text;
    std::int16_t Number = 0;
    std::int16_t FromStep = 0;
    KeptValues<9> Kept{};
};
enum class NoteStep { Number };
using NoteField = Field<Note, NoteStep>;

constexpr NoteField Sound[] = {
    {2, &Note::Text}, {3, &Note::Number}, {9, Kept32{5}}, {7, KeptAgain{9}}, {4, NoteStep::Number}};
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
    Save_Record<Sound>(file, 0x0500, note, note, [](NoteStep, std::int16_t, ItemWriter&) {});
    EXPECT_TRUE(file.Flush());
    return sink.Content();
}

TEST(Save_Record, WritesRowsInTheirOrderAndLeavesBlankTextsOut)
{
    Note note;
    note.Text = u"   ";
    note.Number = 1;
    note.Kept[9] = 0x01020304;

    EXPECT_EQ(SaveNote(note), Hex("00 05  12 00 00 00   03 00 01 00   09 00 04 03 02 01   07 00 04 03 02 01   FF 00"));
}

TEST(Save_Record, TrimsTexts)
{
    Note note;
    note.Text = u"  a ";

    EXPECT_EQ(SaveNote(note), Hex("00 05  1A 00 00 00   02 00 01 00 00 00 61 00   03 00 00 00   09 00 00 00 00 00   07 "
                                  "00 00 00 00 00   FF 00"));
}

RecordEnd LoadNote(const Bytes& behindTypeCode, bool skipsUnknown, Note& note)
{
    MemoryFile source(behindTypeCode);
    RecordReader file(source);
    return Load_Record<Sound>(
        file, skipsUnknown, TextForm::Counted, [&]() -> Note& { return note; },
        [&](NoteStep, ItemReader& items) {
            note.FromStep = items.GetInt16();
            return note.FromStep != 99;
        });
}

TEST(Load_Record, ReadsUpToTheClosingTag)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("00 00 00 00  03 00 05 00  FF 00  03 00 06 00"), true, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 5) << "the length does not matter while nothing is skipped";
}

TEST(Load_Record, IgnoresTagZero)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  00 00  00 00  03 00 05 00  FF 00"), true, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 5);
}

TEST(Load_Record, SkipsTheRecordFromAnUnknownTagOn)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("08 00 00 00  C8 00  03 00 05 00  FF 00"), true, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 0);
}

TEST(Load_Record, PassesOverAnUnknownTagWhereLengthsCannotBeUsed)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("08 00 00 00  C8 00  03 00 05 00  FF 00"), false, note), RecordEnd::Closed);
    EXPECT_EQ(note.Number, 5);
}

TEST(Load_Record, TagsBeyondTheTableAndBelowZeroAreUnknown)
{
    for (const int tag : {1280, 1281, 32767, -1, -32768}) {
        Note note;
        const Bytes bytes = Int32(8) + Int16(tag) + Hex("03 00 05 00  FF 00");
        EXPECT_EQ(LoadNote(bytes, false, note), RecordEnd::Closed) << tag;
        EXPECT_EQ(note.Number, 5) << tag;
    }
}

TEST(Load_Record, ALengthThatLeadsBackIsNotFollowed)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("01 00 00 00  C8 00  FF 00"), true, note), RecordEnd::WentBack);
    EXPECT_EQ(LoadNote(Hex("FF FF FF FF  C8 00  FF 00"), true, note), RecordEnd::WentBack);
}

TEST(Load_Record, TakesFieldsInAnyOrder)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("00 00 00 00  04 00 07 00  07 00 01 00 00 00  03 00 05 00  03 00 06 00  FF 00"), true, note),
              RecordEnd::Closed);
    EXPECT_EQ(note.FromStep, 7);
    EXPECT_EQ(note.Kept[9], 1u);
    EXPECT_EQ(note.Number, 6) << "the last one stays";
}

TEST(Load_Record, StopsWhereAStepSaysSo)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  04 00 63 00  03 00 05 00  FF 00"), true, note), RecordEnd::Stopped);
    EXPECT_EQ(note.Number, 0);
}

TEST(Load_Record, TheEndOfTheFileInsideTheRecordIsToldApart)
{
    Note note;

    EXPECT_EQ(LoadNote(Hex("0A 00"), true, note), RecordEnd::EndOfFile) << "length";
    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03"), true, note), RecordEnd::EndOfFile) << "tag";
    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03 00 05"), true, note), RecordEnd::EndOfFile) << "value";
    EXPECT_EQ(LoadNote(Hex("0A 00 00 00  03 00 05 00"), true, note), RecordEnd::EndOfFile) << "closing tag";
}

} // namespace
} // namespace qor::test
