// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Small Data Block files of every kind: what fuzzing starts from, and what tests damage byte by byte.
#pragma once

#include "support/DataBlockFile.h"

#include <ostream>
#include <vector>

namespace qor::test {

struct SeedFile {
    std::string name;
    Bytes bytes;

    friend std::ostream& operator<<(std::ostream& stream, const SeedFile& seed) { return stream << seed.name; }
};

inline RecordBytes FullTrace(const Bytes& samples)
{
    return TraceBytes()
        .Field(2, Text(u"Hammer"))
        .Field(3, Text(u"2024-05-01 10:11:12"))
        .Field(23, Text(u"1Z:3Z"))
        .Field(24, Text(u"g/lbf"))
        .Field(17, samples)
        .Field(27)
        .Nested(RecordBytes(SubRecordType).Field(1, Int32(1)).Field(2, Int32(2)))
        .Field(28)
        .Field(25, Int32(25))
        .Field(26, Int16(26))
        .Field(22, Int16(22))
        .Field(30, Int16(4))
        .Field(6, Int16(4))
        .Field(33, Int32(33))
        .Field(29, Text(u"z"))
        .Field(32, Int32(1) + Int32(2) + Int32(3) + Int32(4) + Int32(5) + Int32(6) + Int32(7))
        .Field(41, Floats({1, 2, 3, 4}))
        .Field(42, Text(u"kept"))
        .Field(44, Int16(1))
        .Field(45, Int16(45));
}

inline std::vector<SeedFile> SeedFiles()
{
    std::vector<SeedFile> seeds;
    const auto add = [&](const char* name, const DataBlockFile& file) { seeds.push_back({name, file.Build()}); };

    add("no-record", DataBlockFile().WithoutRecord());
    add("empty-record", DataBlockFile());
    add("header", SizedFile(0, 2)
                      .Field(1, Int16(1))
                      .Field(2, Text(u"Label"))
                      .Field(13, Text(u"Hz"))
                      .Field(6, Int16(1))
                      .Field(7, Float(0.5F))
                      .Field(8, Float(0.25F))
                      .Field(21, Text(u"Notes"))
                      .Field(30, Float(20))
                      .Field(59, Text(u"T"))
                      .Field(60, Int32(60))
                      .Field(61, Int16(61))
                      .Field(63, Int16(63))
                      .Field(67, Float(1))
                      .Field(72, Float(2))
                      .Field(76, Int16(1247))
                      .Field(100, Int16(1))
                      .Field(123, Float(3))
                      .Field(160, Float(600)));
    add("real-uniform", SizedFile(2, 3)
                            .Field(6, Int16(1))
                            .Field(7, Float(1))
                            .Field(8, Float(2))
                            .Field(11)
                            .Nested(TraceBytes().Field(2, Text(u"one")).Field(17, Floats({1, 2, 3})))
                            .Nested(TraceBytes().Field(17, Floats({4, 5, 6})).Field(44, Int16(1)))
                            .Field(12)
                            .Field(76, Int16(1249)));
    add("complex-nonuniform", SizedFile(1, 2, 2)
                                  .Field(6, Int16(2))
                                  .Field(10, Floats({1, 10}))
                                  .Field(11)
                                  .Nested(FullTrace(Floats({1, 2, 3, 4})))
                                  .Field(12));
    add("octave", SizedFile(1, 3)
                      .Field(6, Int16(3))
                      .Field(10, Floats({125, 250, 500}))
                      .Field(11)
                      .Nested(TraceBytes().Field(17, Floats({-1, 0, 1})))
                      .Field(12));
    add("full-trace", SizedFile(1, 2).Field(11).Nested(FullTrace(Floats({1, 2}))).Field(12));
    add("auxiliary", SizedFile(1, 2)
                         .Field(65, Floats({1, 2, 3, 4}))
                         .Field(99, Int16(2) + Floats({1, 2, 3, 4, 5, 6, 7, 8}))
                         .Field(94, Int32(94)));
    add("unknown-items", SizedFile(1, 2)
                             .Field(11)
                             .Nested(RecordBytes(512).Field(1, Int32(1)))
                             .Nested(TraceBytes().Field(17, Floats({1, 2})).Field(200, Int32(5)))
                             .Field(12)
                             .Field(250, Hex("01 02 03"))
                             .Behind(RecordBytes(4096).Field(7).Build()));
    add("trace-at-top-level", SizedFile(1, 2).Behind(TraceBytes().Field(17, Floats({8, 9})).Build()));
    add("nested-block", SizedFile(1, 2)
                            .Field(11)
                            .Nested(TraceBytes()
                                        .Field(27)
                                        .Nested(RecordBytes(DataBlockType).Field(4, Int32(2)).Field(3, Int16(3)))
                                        .Field(28)
                                        .Field(2, Text(u"outer"))
                                        .Field(17, Floats({1, 2})))
                            .Field(12));
    add("append-mode", DataBlockFile()
                           .Field(1, Int16(1))
                           .Field(3, Int16(1))
                           .Field(3, Int16(1))
                           .Field(4, Int32(2))
                           .Field(11)
                           .Nested(TraceBytes().Field(17, Floats({1, 2})))
                           .Nested(TraceBytes().Field(17, Floats({3, 4})))
                           .Field(12));
    add("format-3", SizedFile(1, 2, 3).Field(11).Nested(TraceBytes().Field(17, Floats({1, 2}))).Field(12));
    add("version-11", DataBlockFile()
                          .Version(11)
                          .Field(2, OldText("old \xC4"))
                          .Field(3, Int16(1))
                          .Field(4, Int32(2))
                          .Field(11)
                          .Nested(TraceBytes().Field(2, OldText("t")).Field(17, Floats({1, 2})))
                          .Field(12));
    add("version-8",
        DataBlockFile()
            .Version(8)
            .Field(3, Int16(1))
            .Field(200)
            .Field(11)
            .Nested(
                TraceBytes().Field(4, Int32(2)).Field(5, Int16(2)).Field(11, Int32(1)).Field(17, Floats({1, 2, 3, 4})))
            .Field(12)
            .Field(66, Bytes(18, 1)));
    add("no-end-marker", SizedFile(0, 2).WithoutEndMarker());
    return seeds;
}

} // namespace qor::test
