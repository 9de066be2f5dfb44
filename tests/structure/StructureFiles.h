// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the tests of the component's Structure files share: a component, a folder, and the files in it.
#pragma once

#include "structure/StructureFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

namespace qor::test {

class StructureFiles : public testing::Test
{
protected:
    StructureFiles()
    {
        component.Structure_NumberOfEdgeLines(0); // clears the thread's error status
    }

    std::u16string Path(std::string_view name) const { return Utf16(folder / name); }
    // A file of these bytes, and its path as the interface takes it.
    std::u16string Put(const Bytes& bytes)
    {
        WriteBytes(folder / "input.str", bytes);
        return Path("input.str");
    }
    std::u16string Put(const StructureFile& file) { return Put(file.Build()); }

    // The bytes that the component's Structure becomes.
    Bytes Output()
    {
        EXPECT_EQ(component.OutputStructureFile(Path("output.str")), Success);
        return BytesOf(folder / "output.str");
    }
    int OutputVersion() { return Output().at(35); }

    std::int32_t ColorOfPoint(std::int32_t number)
    {
        std::u16string label;
        float place = 0;
        std::int32_t color = -1;
        Bool16 bold;
        component.ReadStructureVertexPoint(number, label, place, place, place, color, bold);
        return color;
    }

    TemporaryFolder folder;
    clsQOR_File component;
    ClassAdd_4 quads;
};

inline Bytes Colored(int color) { return VertexBytes().Field(4, Int32(color)).Build(); }

inline StructureFile OnePoint(std::u16string_view label = u"label")
{
    return StructureFile().Record(SubStructureOf(Colored(5), label));
}

// One that is too new, with a vertex point.
inline StructureFile Refused() { return StructureFile().Version(16).Raw(Colored(1)); }

} // namespace qor::test
