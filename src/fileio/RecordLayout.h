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
#include <iterator>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace qor {

// Values that nobody interprets and every save must give back. A record keeps them in an array by tag, the
// 16-bit ones in the low half; what a new record has stands in the rows, see InitialKeptValues.
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

// Of a row that binds readers only: older files have it, nobody writes it any more.
struct ReadOnlyRow {};
inline constexpr ReadOnlyRow ReadOnly;

// Whether a row is written, which is asked of the context: the record itself, or the document that it belongs to.
// Readers take a tag wherever it stands.
template <class Context>
class When
{
public:
    constexpr When() = default;
    constexpr When(bool (*condition)(const Context&)) : condition_(condition) {}
    constexpr When(ReadOnlyRow) : ever_(false) {}

    constexpr bool Ever() const { return ever_; }
    constexpr bool Holds(const Context& context) const { return ever_ && condition_(context); }

private:
    bool ever_ = true;
    bool (*condition_)(const Context&) = [](const Context&) { return true; };
};

// One row. Step names what takes more than a copy; the record's writer and reader each have a line for it.
// Texts are written trimmed, and not at all when nothing is left of them.
template <class Record, class Step, class Context = Record>
struct Field {
    std::int16_t tag;
    std::variant<std::int16_t Record::*, std::int32_t Record::*, float Record::*, std::u16string Record::*, Kept16,
                 Kept32, KeptAgain, Constant16, Dropped, Step>
        value;
    When<Context> written{};
};

// The record that a table lays out.
template <class Record, class Step, class Context, std::size_t Count>
Record RecordIn(const Field<Record, Step, Context> (&fields)[Count]);
template <const auto& Fields>
using RecordOf = decltype(RecordIn(Fields));

// The highest tag that any table has.
inline constexpr std::int16_t HighestFieldTag = 1280;

// How many rows the writer writes; those of older files stand behind them.
template <const auto& Fields>
inline constexpr std::size_t WrittenRows = [] {
    std::size_t rows = 0;
    for (std::size_t row = 0; row < std::size(Fields); ++row) {
        if (!std::holds_alternative<Dropped>(Fields[row].value) && Fields[row].written.Ever()) rows = row + 1;
    }
    return rows;
}();

// The row of each tag, or -1.
template <const auto& Fields>
inline constexpr auto RowByTag = [] {
    std::array<std::int16_t, HighestFieldTag + 1> rows{};
    rows.fill(-1);
    std::int16_t row = 0;
    for (const auto& field : Fields) rows[static_cast<std::size_t>(field.tag)] = row++;
    return rows;
}();

// How many tags a record can keep values of.
template <class Record>
constexpr std::size_t KeptSize()
{
    if constexpr (requires(Record record) { record.Kept; }) {
        return std::tuple_size_v<decltype(Record::Kept)>;
    } else {
        return 0;
    }
}

// Tags are in range, each has one row, a repeated value repeats a kept 32-bit one, and the record has a place
// for what its rows keep.
template <class Record, class Step, class Context, std::size_t Count>
constexpr bool IsSound(const Field<Record, Step, Context> (&fields)[Count])
{
    for (std::size_t i = 0; i < Count; ++i) {
        const auto& value = fields[i].value;
        const bool kept = std::holds_alternative<Kept16>(value) || std::holds_alternative<Kept32>(value);
        if (kept && static_cast<std::size_t>(fields[i].tag) >= KeptSize<Record>()) return false;
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

// The kept value of a tag; only records that keep values have rows that ask for one.
template <class Record>
auto& KeptValue(Record& record, std::int16_t tag)
{
    return record.Kept[static_cast<std::size_t>(tag)];
}

// Writes a text field, trimmed, unless nothing is left of it.
QOR_INLINE inline void Save_Text(ItemWriter& items, std::int16_t tag, std::u16string_view text)
{
    const std::u16string_view trimmed = Trimmed(text);
    if (trimmed.empty()) return;
    items.PutInt16(tag);
    SaveString(items, trimmed);
}

// Writes a record: type code, length, the fields in row order, closing tag. A step is written by
// saveStep(step, tag, items), its tag included. Rows are unrolled, and all is inlined into what is done for the one
// kind of record, so that it costs little more than the copying of its values.
template <const auto& Fields, class Record, class Context, class SaveStep>
QOR_INLINE inline void Save_Record(RecordWriter& file, std::int16_t type, const Record& record, const Context& context,
                                   const SaveStep& saveStep)
{
    const FilePosition lengthField = file.Position() + FilePosition{sizeof type};
    {
        ItemWriter items(file);
        items.PutAll(type, static_cast<std::int32_t>(lengthField)); // its own position until the record is closed
        const auto save = [&]<std::size_t Row>(std::integral_constant<std::size_t, Row>, const auto& from) QOR_INLINE {
            static constexpr const auto& field = Fields[Row];
            if (!field.written.Holds(context)) return;
            constexpr auto value = std::get<field.value.index()>(field.value);
            using Value = std::remove_const_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, Dropped>) {
                return;
            } else if constexpr (std::is_enum_v<Value>) {
                saveStep(value, field.tag, items);
            } else if constexpr (std::is_same_v<Value, std::u16string Record::*>) {
                Save_Text(items, field.tag, from.*value);
            } else {
                const auto put = [&](auto each) QOR_INLINE { items.PutAll(field.tag, each); };
                if constexpr (std::is_member_object_pointer_v<Value>) put(from.*value);
                if constexpr (std::is_same_v<Value, Constant16>) put(value.value);
                if constexpr (std::is_same_v<Value, Kept16>) put(static_cast<std::int16_t>(KeptValue(from, field.tag)));
                if constexpr (std::is_same_v<Value, Kept32>) put(KeptValue(from, field.tag));
                if constexpr (std::is_same_v<Value, KeptAgain>) put(KeptValue(from, value.tag));
            }
        };
        const auto saveAll = [&]<std::size_t... Row>(std::index_sequence<Row...>) QOR_INLINE
        {
            (save(std::integral_constant<std::size_t, Row>(), record), ...);
        };
        saveAll(std::make_index_sequence<std::size(Fields)>());
        items.PutInt16(ClosingTag);
    }
    file.PatchRecordLength(lengthField);
}

// How the reading of a record's fields came to its end.
enum class RecordEnd {
    Closed,    // at the closing tag, or skipped from an unknown tag on
    Stopped,   // a step did not go on
    EndOfFile, // inside the record
    WentBack,  // its length leads back, or beyond 32 bits
};

// Bytes of a row's value in the file; 0 where they are not always the same number. Of a step, its reader knows: see
// Load_Record.
template <const auto& Fields, std::size_t Row, class LoadStep>
constexpr std::size_t ValueBytes()
{
    constexpr auto value = std::get<Fields[Row].value.index()>(Fields[Row].value);
    using Value = std::remove_const_t<decltype(value)>;
    if constexpr (std::is_enum_v<Value>) {
        if constexpr (requires { LoadStep::Bytes(value); }) return LoadStep::Bytes(value);
    }
    if constexpr (std::is_member_object_pointer_v<Value>) {
        using Member = std::remove_cvref_t<decltype(std::declval<RecordOf<Fields>>().*value)>;
        if constexpr (std::is_arithmetic_v<Member>) return sizeof(Member);
    }
    if constexpr (std::is_same_v<Value, Constant16> || std::is_same_v<Value, Kept16>) return 2;
    if constexpr (std::is_same_v<Value, Kept32> || std::is_same_v<Value, KeptAgain>) return 4;
    return 0;
}

// Runs of written rows whose values have always the same width, by the row that begins one: how many bytes the values
// of the run and the tags behind them take, if all of them are there. 0 for all other rows.
template <const auto& Fields, class LoadStep>
inline constexpr auto FixedRuns = []<std::size_t... Row>(std::index_sequence<Row...>)
{
    std::array<std::size_t, sizeof...(Row)> runs{};
    std::size_t first = 0;
    bool inRun = false;
    [[maybe_unused]] const auto add = [&](std::size_t row, std::size_t bytes) {
        const std::size_t withTag = bytes + sizeof(std::int16_t);
        if (!inRun || runs[first] + withTag > ItemReader::MostHeld) first = row;
        inRun = bytes > 0;
        if (inRun) runs[first] += withTag;
    };
    (add(Row, ValueBytes<Fields, Row, LoadStep>()), ...);
    return runs;
}
(std::make_index_sequence<WrittenRows<Fields>>());

// Reads the fields of a record whose type code has been read, up to its closing tag, into what record() returns,
// which is asked anew for every field. A step is read by loadStep(step, items), which tells whether to go on; where
// it has a static Bytes(step), that is how many bytes it always takes, or 0.
// Tag 0 means nothing in any record. From an unknown tag on the record is skipped; where records have no usable
// length, only the tag is.
template <const auto& Fields, class GetRecord, class LoadStep>
// NOLINTNEXTLINE(readability-function-cognitive-complexity): each kind of row is one line, of which one is compiled
QOR_INLINE inline RecordEnd Load_Record(RecordReader& file, bool skipsUnknown, TextForm form, const GetRecord& record,
                                        const LoadStep& loadStep)
{
    const FilePosition behindLength = file.Position() + 4;
    ItemReader items(file);
    const FilePosition end = behindLength + items.GetInt32();
    const auto load = [&]<std::size_t Row, class Record>(std::integral_constant<std::size_t, Row>, auto& from,
                                                         Record& into) QOR_INLINE -> bool {
        static constexpr const auto& field = Fields[Row];
        constexpr auto value = std::get<field.value.index()>(field.value);
        using Value = std::remove_const_t<decltype(value)>;
        if constexpr (std::is_enum_v<Value>) return loadStep(value, from);
        if constexpr (std::is_same_v<Value, std::int16_t Record::*>) into.*value = from.GetInt16();
        if constexpr (std::is_same_v<Value, std::int32_t Record::*>) into.*value = from.GetInt32();
        if constexpr (std::is_same_v<Value, float Record::*>) into.*value = from.GetFloat();
        if constexpr (std::is_same_v<Value, std::u16string Record::*>) {
            LoadString(from, form, [&](std::u16string_view text) QOR_INLINE { into.*value = text; });
        }
        if constexpr (std::is_same_v<Value, Constant16>) from.GetInt16();
        if constexpr (std::is_same_v<Value, Dropped>) {
            constexpr std::int64_t bytes = value.bytes;
            from.Directly([](RecordReader& reader) { reader.Skip(bytes); });
        }
        if constexpr (std::is_same_v<Value, Kept16>) {
            KeptValue(into, field.tag) = static_cast<std::uint16_t>(from.GetInt16());
        }
        if constexpr (std::is_same_v<Value, Kept32>) KeptValue(into, field.tag) = from.GetRaw32();
        if constexpr (std::is_same_v<Value, KeptAgain>) KeptValue(into, value.tag) = from.GetRaw32();
        return true;
    };
    const auto loadRow = [&]<std::size_t... Row>(int row, std::index_sequence<Row...>) QOR_INLINE
    {
        bool goesOn = true;
        const auto loadIf = [&](auto each) QOR_INLINE {
            if (row != static_cast<int>(each())) return false;
            goesOn = load(each, items, record());
            return true;
        };
        static_cast<void>((loadIf(std::integral_constant<std::size_t, Row>()) || ...));
        return goesOn;
    };
    std::int16_t tag = 0;
    const auto nextTag = [&]() QOR_INLINE { return items.GetTag(tag); };
    // A field that fails still takes the next tag with it, so that what is read behind the record stands where it
    // always did.
    const auto stop = [&]() QOR_INLINE { return nextTag() ? RecordEnd::Stopped : RecordEnd::EndOfFile; };
    // Takes the fields that follow one another in writing order, which is nearly always all of them, without looking
    // a tag up. It ends where the rows do, early where few bytes are left in the file.
    std::optional<RecordEnd> ended; // the record's reading has come to its end
    const auto loadInOrder = [&]<std::size_t Row>(std::integral_constant<std::size_t, Row> each) QOR_INLINE {
        constexpr std::size_t runBytes = FixedRuns<Fields, LoadStep>[Row];
        if (runBytes > 0 && !items.Holds(runBytes)) return false;
        if (tag != Fields[Row].tag) return true;
        if constexpr (ValueBytes<Fields, Row, LoadStep>() > 0) {
            HeldItems held(items);
            const bool goesOn = load(each, held, record());
            tag = held.GetInt16();
            if (!goesOn) ended = RecordEnd::Stopped;
        } else if (!load(each, items, record())) {
            ended = stop();
        } else if (!nextTag()) {
            ended = RecordEnd::EndOfFile;
        }
        return !ended;
    };
    const auto loadAllInOrder = [&]<std::size_t... Row>(std::index_sequence<Row...>) QOR_INLINE
    {
        static_cast<void>((loadInOrder(std::integral_constant<std::size_t, Row>()) && ...));
    };
    if (!nextTag()) return RecordEnd::EndOfFile;
    while (tag != ClosingTag) {
        loadAllInOrder(std::make_index_sequence<WrittenRows<Fields>>());
        if (ended) return *ended;
        if (tag == ClosingTag) break;
        const int row = tag >= 0 && tag <= HighestFieldTag ? RowByTag<Fields>[static_cast<std::size_t>(tag)] : -1;
        if (row >= 0) {
            if (!loadRow(row, std::make_index_sequence<std::size(Fields)>())) return stop();
        } else if (tag != 0 && skipsUnknown) {
            const bool moved = items.Directly([&](RecordReader& reader) { return reader.JumpTo(end); });
            return moved ? RecordEnd::Closed : RecordEnd::WentBack;
        }
        if (!nextTag()) return RecordEnd::EndOfFile;
    }
    return RecordEnd::Closed;
}

// More lists inside one another than any writer makes, and few enough for any stack.
inline constexpr int DeepestList = 100;

} // namespace qor
