// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Holds the table of damage on docs/formats/datablock.md against the reader: every row that a file can show.
#include "docs/Page.h"
#include "support/DataBlockFile.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

enum Column : std::size_t { FoundColumn, StatusColumn, ErrorColumn, ReadingColumn };

struct Damage {
    const char* found; // how the row begins
    Bytes file;
};

Bytes FirstBytes(const Bytes& bytes, std::ptrdiff_t count) { return Bytes(bytes.begin(), bytes.begin() + count); }

// A number of samples of -2 from an older trace, and these fields behind it: in the trace, and behind the list.
Bytes NegativeSamples(const Bytes& inTrace, const Bytes& behindTheList)
{
    return DataBlockFile()
        .Field(3, Int16(1))
        .Field(11)
        .Nested(TraceBytes().Field(4, Int32(-2)).Raw(inTrace))
        .Field(12)
        .Raw(behindTheList)
        .Field(2, Text(u"behind"))
        .Build();
}

Bytes TooManyLists()
{
    RecordBytes trace = TraceBytes();
    for (int i = 0; i < 100; ++i) trace = TraceBytes().Field(27).Nested(trace).Field(28);
    return SizedFile(1, 2).Field(11).Nested(trace).Field(12).Build();
}

std::vector<Damage> Damages()
{
    const Bytes plain = SizedFile(0, 2).Build();
    const Bytes later = DataBlockFile().Version(13).Build();
    return {
        {"no `BINARY`", DataBlockFile().FirstLine("text").Build()},
        {"version 13 or above", later},
        {"the file ends within version or reserved words", FirstBytes(plain, 36)},
        {"the file ends within version or reserved words", FirstBytes(plain, 50)},
        {"the same, but the one byte of the version", FirstBytes(later, 36)},
        {"the file ends where a type code should stand", FirstBytes(plain, std::ssize(plain) - 2)},
        {"the file ends inside a Data Block or trace record", FirstBytes(plain, std::ssize(plain) - 3)},
        {"header tag 4 below 2", SizedFile(0, 1).Build()},
        {"number of traces below 0", SizedFile(-1, 2).Field(2, Text(u"behind")).Build()},
        {"trace record beyond the number", SizedFile(0, 2).Version(8).Field(11).Nested(TraceBytes()).Field(12).Build()},
        {"a number of samples below 0 from an older trace, and samples", NegativeSamples(Int16(17), {})},
        {"the same, and X values", NegativeSamples({}, Int16(10))},
        {"the same, and second samples", NegativeSamples(Int16(41), {})},
        {"the same, and tag 65 or 99", NegativeSamples({}, Int16(65))},
        {"the same, and tag 65 or 99", NegativeSamples({}, Int16(99) + Int16(0))},
        {"the same, and tag 65 or 99", NegativeSamples({}, Int16(99) + Int16(-1))},
        {"count k of tag 99 below 0", SizedFile(0, 2).Field(99, Int16(-1)).Build()},
        {"a length that leads back", SizedFile(0, 2).Field(200).ClaimLength(-1).Build()},
        {"more than 100 lists", TooManyLists()},
        {"unknown tag or record type", SizedFile(0, 2).Field(200).Behind(RecordBytes(4096).Build()).Build()},
    };
}

const Page::Row* RowOf(const std::vector<Page::Row>& rows, std::string_view beginning)
{
    for (const Page::Row& row : rows) {
        if (row.at(FoundColumn).starts_with(beginning)) return &row;
    }
    return nullptr;
}

TEST(DataBlockDamageTable, TellsStatusAndErrorOfEveryDamage)
{
    const auto rows = Page("datablock.md").Rows("## Damage");
    for (const Damage& damage : Damages()) {
        const Page::Row* const row = RowOf(rows, damage.found);
        ASSERT_TRUE(row) << damage.found;

        const Loaded loaded = LoadBytes(damage.file);

        EXPECT_EQ(row->at(StatusColumn), loaded.status == Success ? "Success" : "Failure") << damage.found;
        EXPECT_EQ(row->at(ErrorColumn), loaded.error == NoError ? "none" : std::to_string(loaded.error))
            << damage.found;
    }
}

TEST(DataBlockDamageTable, AFailedFieldTellsOfTheEndOfTheFileWhereFewerThanSixBytesFollow)
{
    const Bytes whole = NegativeSamples(Int16(17), {});
    const std::ptrdiff_t behindTheTag = 51 + 6 + 4 + 2 + 6 + 6 + 2;
    for (std::ptrdiff_t more = 0; more <= 6; ++more) {
        EXPECT_EQ(LoadBytes(FirstBytes(whole, behindTheTag + more)).error,
                  more < 6 ? InputFile_ReadFail : AllocationError)
            << more;
    }
}

} // namespace
} // namespace qor::test
