// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A record's layout as one table, which writer and reader both walk. A row says: tag, what the value is and
// where it lives, and when it is written; row order is writing order. Width on disk follows from the kind of
// value, so a row cannot disagree with the document.
#pragma once

#include "fileio/Framing.h"

#include <array>
#include <concepts>
#include <cstdint>
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
// Texts are written trimmed, and not at all when nothing is left of them.
template <class Record, class Step>
struct Field {
    std::int16_t tag;
    std::variant<std::int16_t Record::*, std::int32_t Record::*, float Record::*, std::u16string Record::*, Kept16,
                 Kept32, KeptAgain, Constant16, Dropped, Step>
        value;
    bool (*writtenWhen)(const Record&) = [](const Record&) { return true; };
};

// Binds the writer only: a reader takes a tag wherever it stands.
template <class Record>
constexpr bool ReadOnly(const Record&)
{
    return false;
}

template <class Row>
constexpr bool IsText(const Row& row)
{
    return row.value.index() == 3;
}

// The row of each tag, or -1.
template <const auto& Fields>
inline constexpr auto RowByTag = [] {
    std::array<std::int16_t, 256> rows{};
    rows.fill(-1);
    std::int16_t row = 0;
    for (const auto& field : Fields) rows[static_cast<std::size_t>(field.tag)] = row++;
    return rows;
}();

// Tags are 1 to 254, each has one row, and a repeated value repeats a kept 32-bit one.
template <class Record, class Step, std::size_t Count>
constexpr bool IsSound(const Field<Record, Step> (&fields)[Count])
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (fields[i].tag < 1 || fields[i].tag > 254) return false;
        bool repeatsKept = !std::holds_alternative<KeptAgain>(fields[i].value);
        for (std::size_t k = 0; k < Count; ++k) {
            if (k != i && fields[k].tag == fields[i].tag) return false;
            if (!repeatsKept && fields[k].tag == std::get<KeptAgain>(fields[i].value).tag) {
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
        if (const auto* value = std::get_if<Kept16>(&field.value))
            kept[tag] = static_cast<std::uint16_t>(value->initial);
        if (const auto* value = std::get_if<Kept32>(&field.value)) kept[tag] = value->initial;
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

// Writes the fields of a record in row order. A step is written by saveStep(step, tag), its tag included.
template <class Record, class Step, std::size_t Count, class SaveStep>
void Save_Fields(RecordWriter& file, const Record& record, const Field<Record, Step> (&fields)[Count],
                 SaveStep saveStep)
{
    for (const auto& field : fields) {
        if (!field.writtenWhen(record)) continue;
        const auto kept = [&](std::int16_t tag) { return record.Kept[static_cast<std::size_t>(tag)]; };
        std::visit(Overloaded{
                       [&](std::int16_t Record::*member) {
                           file.PutInt16(field.tag);
                           file.PutInt16(record.*member);
                       },
                       [&](std::int32_t Record::*member) {
                           file.PutInt16(field.tag);
                           file.PutInt32(record.*member);
                       },
                       [&](float Record::*member) {
                           file.PutInt16(field.tag);
                           file.PutFloat(record.*member);
                       },
                       [&](std::u16string Record::*member) {
                           const auto text = Trimmed(record.*member);
                           if (text.empty()) return;
                           file.PutInt16(field.tag);
                           SaveString(file, text);
                       },
                       [&](Kept16) {
                           file.PutInt16(field.tag);
                           file.PutInt16(static_cast<std::int16_t>(kept(field.tag)));
                       },
                       [&](Kept32) {
                           file.PutInt16(field.tag);
                           file.PutRaw32(kept(field.tag));
                       },
                       [&](KeptAgain again) {
                           file.PutInt16(field.tag);
                           file.PutRaw32(kept(again.tag));
                       },
                       [&](Constant16 constant) {
                           file.PutInt16(field.tag);
                           file.PutInt16(constant.value);
                       },
                       [&](Dropped) {},
                       [&](Step step) { saveStep(step, field.tag); },
                   },
                   field.value);
    }
}

// Reads the value of one field whose tag has been read. A step is read by loadStep(step).
template <class Record, class Step, class LoadStep>
void Load_Field(RecordReader& file, Record& record, const Field<Record, Step>& field, TextForm form, LoadStep loadStep)
{
    const auto kept = [&](std::int16_t tag) -> std::uint32_t& { return record.Kept[static_cast<std::size_t>(tag)]; };
    std::visit(Overloaded{
                   [&](std::int16_t Record::*member) { record.*member = file.GetInt16(); },
                   [&](std::int32_t Record::*member) { record.*member = file.GetInt32(); },
                   [&](float Record::*member) { record.*member = file.GetFloat(); },
                   [&](std::u16string Record::*member) { record.*member = LoadString(file, form); },
                   [&](Kept16) { kept(field.tag) = static_cast<std::uint16_t>(file.GetInt16()); },
                   [&](Kept32) { kept(field.tag) = file.GetRaw32(); },
                   [&](KeptAgain again) { kept(again.tag) = file.GetRaw32(); },
                   [&](Constant16) { file.GetInt16(); },
                   [&](Dropped dropped) { file.Skip(dropped.bytes); },
                   [&](Step step) { loadStep(step); },
               },
               field.value);
}

} // namespace qor
