// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Shape Tables to save, what saving them gives, and the parts of a file, made without the writer under test.
#pragma once

#include "shapetable/Save_ShapeTable.h"
#include "support/DataBlockFile.h"

#include <gtest/gtest.h>

namespace qor::test {

struct Document {
    ShapeTable table;
    ShapeTableCounts counts;
    ShapeTableTexts texts;

    ShapeValue& Value(std::int32_t shape, std::int32_t dof) { return table.ShapeValues->At(shape, dof); }
};

// A table of that size, its values 0 and its texts empty.
inline Document Sized(std::int32_t shapes, std::int32_t dofs)
{
    Document document;
    document.counts.NumberOfShapes = shapes;
    document.counts.NumberOfDOFs = dofs;
    EXPECT_EQ(AllocateShapeTable(document.table, document.counts), NoError);
    return document;
}

struct Saved {
    ReturnStatus status;
    Bytes bytes;
};

inline Saved Save(const Document& document)
{
    MemoryFile file;
    const ReturnStatus status = SaveShapeTable(file, document.table, document.counts, document.texts);
    return {status, file.Content()};
}

inline Bytes HeaderBytes(int dofs, int shapes, std::u16string_view label = {}, std::u16string_view notes = {})
{
    const Bytes preamble = Ascii("DU'lmeer Binary ShapeTable File.\r\n") + Int16(12) + Bytes(14);
    const Bytes constants = Int16(1) + Float(135) + Bytes(4) + Text(u"System") + Float(10) + Bytes(8);
    return preamble + Int32(dofs) + Int32(shapes) + Text(label) + Text(notes) + constants + Bytes(16, 0xFF) + Bytes(16);
}

// A shape and a DOF that nothing was set of.
inline Bytes NewShapeBytes() { return Bytes(24); }
inline Bytes NewDOFBytes() { return Text(u"") + Int16(20) + Int16(3) + Bytes(20); }

inline Bytes Times(int count, const Bytes& bytes)
{
    Bytes all;
    for (int i = 0; i < count; ++i) all += bytes;
    return all;
}

// All that stands before the values.
inline Bytes NewTableBytes(int shapes, int dofs)
{
    return HeaderBytes(dofs, shapes) + Times(shapes, NewShapeBytes()) + Times(dofs, NewDOFBytes());
}

} // namespace qor::test
