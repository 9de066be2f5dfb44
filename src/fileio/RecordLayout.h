// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A record's layout as one table, which writer and reader both walk. A row says: tag, what the value is and
// where it lives, and when it is written; row order is writing order. Width on disk follows from the kind of
// value, so a row cannot disagree with the document.
#pragma once

#include "fileio/Framing.h"

#include <array>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace qor {

// Values that nobody interprets and every save must give back. A record keeps them in an array by tag, the
// 16-bit ones in the low half; their defaults stand in the rows.
template <std::size_t HighestTag>
using KeptValues = std::array<std::uint32_t, HighestTag + 1>;

struct Kept16 {
    std::int16_t initial = 0;
};
struct Kept32 {
    std::uint32_t initial = 0;
};
// The same kept value as that of another tag, once more.
struct KeptAgain {
    std::int16_t tag;
};
// A 16-bit value that is the same in every file.
struct Constant16 {
    std::int16_t value;
};
// Bytes of older files that are read past.
struct Dropped {
    std::int64_t bytes;
};

// One row. Step names what takes more than a copy; the record's writer and reader each have a line for it.
// Texts are written trimmed, and not at all when nothing is left of them. Whether a row is written is asked of
// the context: the record itself, or the document that it belongs to.
template <class Record, class Step, class Context = Record>
struct Field {
    std::int16_t tag;
    std::variant<std::int16_t Record::*, std::int32_t Record::*, float Record::*, std::u16string Record::*, Kept16,
                 Kept32, KeptAgain, Constant16, Dropped, Step>
        value;
    bool (*writtenWhen)(const Context&) = [](const Context&) { return true; };
};

// Binds the writer only: a reader takes a tag wherever it stands.
template <class Context>
constexpr bool ReadOnly(const Context&)
{
    return false;
}

// The highest tag that a row may have: the closing tag and the words of list ends are no fields.
inline constexpr std::int16_t HighestFieldTag = 1280;

// The row of each tag, or -1.
template <const auto& Fields>
inline constexpr auto RowByTag = [] {
    std::array<std::int16_t, HighestFieldTag + 1> rows{};
    rows.fill(-1);
    std::int16_t row = 0;
    for (const auto& field : Fields) rows[static_cast<std::size_t>(field.tag)] = row++;
    return rows;
}();

// Tags are in range, each has one row, a repeated value repeats a kept 32-bit one, and the record has a place
// for what its rows keep.
template <class Record, class Step, class Context, std::size_t Count>
constexpr bool IsSound(const Field<Record, Step, Context> (&fields)[Count])
{
    for (std::size_t i = 0; i < Count; ++i) {
        const auto& value = fields[i].value;
        const bool kept = std::holds_alternative<Kept16>(value) || std::holds_alternative<Kept32>(value);
        if (kept && !requires(Record record) { record.Kept; }) return false;
        if (fields[i].tag < 1 || fields[i].tag == ClosingTag || fields[i].tag > HighestFieldTag) return false;
        bool repeatsKept = !std::holds_alternative<KeptAgain>(value);
        for (std::size_t k = 0; k < Count; ++k) {
            if (k != i && fields[k].tag == fields[i].tag) return false;
            if (!repeatsKept && fields[k].tag == std::get<KeptAgain>(value).tag) {
                repeatsKept = std::holds_alternative<Kept32>(fields[k].value);
            }
        }
        if (!repeatsKept) return false;
    }
    return true;
}

// The kept values as a new record has them.
template <std::size_t HighestTag, class Record, class Step, std::size_t Count>
constexpr KeptValues<HighestTag> InitialKeptValues(const Field<Record, Step> (&fields)[Count])
{
    KeptValues<HighestTag> kept{};
    for (const auto& field : fields) {
        const auto tag = static_cast<std::size_t>(field.tag);
        // By reference: under UndefinedBehaviorSanitizer g++ 12 does not take the address for a constant.
        if (std::holds_alternative<Kept16>(field.value)) {
            kept[tag] = static_cast<std::uint16_t>(std::get<Kept16>(field.value).initial);
        } else if (std::holds_alternative<Kept32>(field.value)) {
            kept[tag] = std::get<Kept32>(field.value).initial;
        }
    }
    return kept;
}

// Makes one callable of several, to visit a row's value with.
template <class... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

// The kept value of a tag; only records that keep values have rows that ask for one.
template <class Record>
auto& KeptValue(Record& record, std::int16_t tag)
{
    return record.Kept[static_cast<std::size_t>(tag)];
}

// Writes the fields of a record in row order. A step is written by saveStep(step, tag), its tag included.
template <class Record, class Step, class Context, std::size_t Count, class SaveStep>
void Save_Fields(RecordWriter& file, const Record& record, const Context& context,
                 const Field<Record, Step, Context> (&fields)[Count], SaveStep saveStep)
{
    for (const auto& field : fields) {
        if (!field.writtenWhen(context)) continue;
        const auto put = [&](auto write) {
            file.PutInt16(field.tag);
            write();
        };
        std::visit(Overloaded{
                       [&](std::int16_t Record::*member) { put([&] { file.PutInt16(record.*member); }); },
                       [&](std::int32_t Record::*member) { put([&] { file.PutInt32(record.*member); }); },
                       [&](float Record::*member) { put([&] { file.PutFloat(record.*member); }); },
                       [&](std::u16string Record::*member) {
                           if (const auto text = Trimmed(record.*member); !text.empty())
                               put([&] { SaveString(file, text); });
                       },
                       [&](Constant16 constant) { put([&] { file.PutInt16(constant.value); }); },
                       [&](Dropped) {},
                       [&](Step step) { saveStep(step, field.tag); },
                       [&](auto kept) {
                           if constexpr (requires { record.Kept; }) {
                               put([&] {
                                   if constexpr (std::is_same_v<decltype(kept), KeptAgain>) {
                                       file.PutRaw32(KeptValue(record, kept.tag));
                                   } else if constexpr (std::is_same_v<decltype(kept), Kept32>) {
                                       file.PutRaw32(KeptValue(record, field.tag));
                                   } else {
                                       file.PutInt16(static_cast<std::int16_t>(KeptValue(record, field.tag)));
                                   }
                               });
                           }
                       },
                   },
                   field.value);
    }
}

// Reads the value of one field whose tag has been read. A step is read by loadStep(step).
template <class Record, class Step, class Context, class LoadStep>
void Load_Field(RecordReader& file, Record& record, const Field<Record, Step, Context>& field, TextForm form,
                LoadStep loadStep)
{
    std::visit(Overloaded{
                   [&](std::int16_t Record::*member) { record.*member = file.GetInt16(); },
                   [&](std::int32_t Record::*member) { record.*member = file.GetInt32(); },
                   [&](float Record::*member) { record.*member = file.GetFloat(); },
                   [&](std::u16string Record::*member) { record.*member = LoadString(file, form); },
                   [&](Constant16) { file.GetInt16(); },
                   [&](Dropped dropped) { file.Skip(dropped.bytes); },
                   [&](Step step) { loadStep(step); },
                   [&](auto kept) {
                       if constexpr (requires { record.Kept; }) {
                           if constexpr (std::is_same_v<decltype(kept), KeptAgain>) {
                               KeptValue(record, kept.tag) = file.GetRaw32();
                           } else if constexpr (std::is_same_v<decltype(kept), Kept32>) {
                               KeptValue(record, field.tag) = file.GetRaw32();
                           } else {
                               KeptValue(record, field.tag) = static_cast<std::uint16_t>(file.GetInt16());
                           }
                       }
                   },
               },
               field.value);
}

// How the reading of a record's fields came to its end.
enum class RecordEnd {
    Closed,    // at the closing tag, or skipped from an unknown tag on
    Stopped,   // loadField did not go on
    EndOfFile, // inside the record
    WentBack,  // its length leads back, or beyond 32 bits
};

// Reads the fields of a record whose type code has been read, up to its closing tag. Each is read by
// loadField(field), which tells whether to go on. Tag 0 means nothing in any record. From an unknown tag on the
// record is skipped; where records have no usable length, only the tag is.
template <const auto& Fields, class LoadField>
RecordEnd Load_RecordFields(RecordReader& file, bool skipsUnknown, LoadField loadField)
{
    const FilePosition end = file.GetRecordEnd();
    for (std::int16_t tag = 0; tag != ClosingTag;) {
        const int row = tag >= 0 && tag <= HighestFieldTag ? RowByTag<Fields>[static_cast<std::size_t>(tag)] : -1;
        if (row >= 0) {
            if (!loadField(Fields[row])) return RecordEnd::Stopped;
        } else if (tag != 0 && skipsUnknown) {
            return file.JumpTo(end) ? RecordEnd::Closed : RecordEnd::WentBack;
        }
        if (file.AtEnd() || !file.GetTag(tag)) return RecordEnd::EndOfFile;
    }
    return RecordEnd::Closed;
}

// More lists inside one another than any writer makes, and few enough for any stack.
inline constexpr int DeepestList = 100;

} // namespace qor
