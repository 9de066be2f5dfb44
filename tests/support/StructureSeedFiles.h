// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Small Structure files of every kind: what fuzzing starts from, and what tests damage byte by byte.
#pragma once

#include "structure/StructureFile.h"
#include "support/SeedFiles.h"

namespace qor::test {

// Vertex points inside one another's runs: the innermost is coloured, and stands in that many runs.
inline RecordBytes NestedPoints(int runs)
{
    RecordBytes record = VertexBytes().Field(4, Int32(7));
    for (int i = 0; i < runs; ++i) record = VertexBytes().Field(9).Nested(record).Field(14);
    return record;
}

// Every field that the small variant writes, then the large one.
inline RecordBytes SmallPoint(std::u16string_view label)
{
    return VertexBytes()
        .Field(1, Int16(1))
        .Field(2, Floats({1, 2, 3}))
        .Field(4, Int32(255))
        .Field(5, Int16(-1))
        .Field(7, Text(label))
        .Field(3, Int16(1))
        .Field(22, Int16(1))
        .Field(23, Floats({1, 0, 0, 0, 1, 0, 0, 0, 1}))
        .Field(67, Float(1))
        .Field(68, Int16(2));
}
inline RecordBytes LargePoint(std::u16string_view label)
{
    return VertexBytes()
        .Field(85, Int32(1))
        .Field(83, Int32(7))
        .Field(2, Floats({1, 2, 3}))
        .Field(4, Int32(255))
        .Field(5, Int16(-1))
        .Field(7, Text(label))
        .Field(84, Int32(1))
        .Field(22, Int16(1))
        .Field(23, Floats({1, 0, 0, 0, 1, 0, 0, 0, 1}))
        .Field(67, Float(1))
        .Field(68, Int16(2));
}

inline Bytes SmallElements()
{
    const Bytes color = Int16(3) + Int32(1);
    const Bytes bold = Int16(4) + Int16(-1);
    return EdgeLineBytes().Field(2, Int16(1) + Int16(2)).Raw(color + bold).Build() +
           TriangleBytes().Field(2, Int16(1) + Int16(2) + Int16(1)).Raw(color + bold).Build() +
           QuadBytes().Field(2, Int16(1) + Int16(2) + Int16(1) + Int16(-1)).Raw(color + bold).Build();
}
inline Bytes LargeElements()
{
    const Bytes rest = Int16(3) + Int32(1) + Int16(4) + Int16(-1);
    return EdgeLineBytes().Field(7, Bytes(8, 1)).Field(6, Int32(7)).Raw(rest).Build() +
           TriangleBytes().Field(8, Bytes(12, 1)).Field(7, Int32(7)).Raw(rest).Build() +
           QuadBytes().Field(8, Bytes(16, 1)).Field(7, Int32(7)).Raw(rest).Build();
}

// Every field of older files that is read past.
inline Bytes OlderElements()
{
    RecordBytes point = VertexBytes();
    for (const int tag : {6, 21, 25, 69, 70, 71, 72, 8, 10, 12, 15, 17, 19, 27, 29, 31, 33, 35, 37, 39}) {
        point.Field(tag, Int16(tag));
    }
    for (const int tag : {24, 26, 82}) point.Field(tag, Int32(tag));
    return point.Field(4, Int32(1)).Build() +
           EdgeLineBytes().Field(1, Int16(1)).Field(5, Int16(5)).Field(3, Int32(2)).Build() +
           TriangleBytes().Field(1, Int16(1)).Field(5, Int16(5)).Field(6, Int16(6)).Field(3, Int32(3)).Build() +
           QuadBytes().Field(1, Int16(1)).Field(5, Int16(5)).Field(6, Int16(6)).Field(3, Int32(4)).Build();
}

// A vertex point with a run of every kind, in each an element, and a field behind them.
inline RecordBytes PointWithRuns()
{
    RecordBytes point = VertexBytes();
    for (const int tag : {9, 11, 13, 16, 18, 20, 28, 30, 32, 34, 36, 38, 40, 1280}) {
        point.Field(tag).Nested(EdgeLineBytes().Field(3, Int32(tag))).Field(14);
    }
    return point.Field(9).Nested(VertexBytes().Field(11).Raw(SmallElements()).Field(4)).Field(14).Field(4, Int32(8));
}

inline std::vector<SeedFile> StructureSeedFiles()
{
    std::vector<SeedFile> seeds;
    const auto add = [&](const char* name, const StructureFile& file) { seeds.push_back({name, file.Build()}); };

    add("no-record", StructureFile());
    add("empty-substructure", StructureFile().Record(SubStructureBytes().Field(1, Int16(1))));
    add("small",
        StructureFile()
            .Record(NotesBytes().Field(6, Text(u"Notes")))
            .Record(SubStructureOf(SmallPoint(u"P1").Build() + SmallPoint(u"  ").Build() + SmallElements(), u"Label")));
    add("large", StructureFile().Version(15).Record(
                     SubStructureOf(LargePoint(u"P1").Build() + LargePoint({}).Build() + LargeElements(), u"Label")));
    add("variants-mixed",
        StructureFile().Version(13).Record(
            SubStructureOf(SmallPoint(u"P1").Build() + LargeElements() + LargePoint(u"P2").Build() + SmallElements())));
    add("top-level", StructureFile().Record(SmallPoint(u"P1")).Raw(SmallElements()));
    add("older-fields",
        StructureFile().Record(
            SubStructureBytes().Field(5, Int16(5)).Field(6, Int16(6)).Field(3).Raw(OlderElements()).Field(4)));
    add("runs", StructureFile().Record(SubStructureOf(PointWithRuns().Build())));
    add("deep-runs", StructureFile().Record(NestedPoints(10)).Record(NestedPoints(3)));
    add("endless-run", StructureFile().Raw(Int16(0x0100) + Int32(-1) + Int16(9)).Record(VertexBytes().Field(9)));
    add("unknown-items", StructureFile()
                             .Record(SubStructureOf(VertexBytes().Field(200, Bytes(3)).Build() +
                                                    QuadBytes().Field(250, Int32(1)).Build() +
                                                    RecordBytes(0x0700).Field(1, Int16(1)).Build()))
                             .Raw(Int16(0))
                             .Record(RecordBytes(0x0600)));
    add("discarded", StructureFile().Record(DiscardedBytes().Field(1, Int16(1)).Field(2, Int32(1))));
    add("notes-and-label-twice", StructureFile()
                                     .Record(NotesBytes().Field(6, Text(u"first")))
                                     .Record(SubStructureOf(SmallPoint(u"P1").Build(), u" S1 "))
                                     .Record(NotesBytes().Field(6, Text(u"second")))
                                     .Record(SubStructureOf(SmallPoint(u"P2").Build(), u"S2")));
    add("version-10", StructureFile()
                          .Version(10)
                          .Record(NotesBytes().Field(6, OldText("old \xC4")))
                          .Record(SubStructureBytes()
                                      .Field(2, OldText("label"))
                                      .Field(3)
                                      .Nested(VertexBytes().Field(7, OldText("more than twenty characters")))
                                      .Field(4)));
    // Nothing here is skipped by its length.
    add("version-8", StructureFile()
                         .Version(8)
                         .Record(NotesBytes().Field(6, OldText("old \xC4")))
                         .Record(VertexBytes()
                                     .Field(7, OldText("P"))
                                     .Field(200)
                                     .Field(3, Int16(1))
                                     .Field(1280)
                                     .Field(4)
                                     .Field(5, Int16(1)))
                         .Raw(Int16(77))
                         .Record(EdgeLineBytes().Field(2, Int16(1) + Int16(1))));
    add("refused", StructureFile().Version(16).Record(SubStructureOf(LargePoint(u"P1").Build(), u"Label")));
    add("no-end-marker", StructureFile().Record(SubStructureOf(SmallPoint(u"P1").Build())).WithoutEndMarker());
    Bytes cut = SubStructureOf(SmallPoint(u"P1").Build() + SmallElements()).Build();
    cut.resize(cut.size() - 20);
    add("truncated", StructureFile().Raw(cut).WithoutEndMarker());
    return seeds;
}

} // namespace qor::test
