// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Makes Structure files for the tool's tests through the component's members.
#pragma once

#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

#include <string_view>

namespace qor::test {

inline constexpr std::int32_t Red = 0x0000FF;
inline constexpr std::int32_t Green = 0x00FF00;
inline constexpr std::int32_t Orange = 0x0080FF;

// One at a time: all component objects of a thread share their Structure.
class GeometryFile
{
public:
    GeometryFile& Label(std::u16string_view text)
    {
        file_.Structure_Label(text);
        return *this;
    }
    GeometryFile& Notes(std::u16string_view text)
    {
        file_.Structure_Notes(text);
        return *this;
    }
    GeometryFile& Point(float x, float y, float z, std::u16string_view label = {}, std::int32_t color = 0)
    {
        const std::int32_t number = file_.Structure_NumberOfVertexPoints() + 1;
        file_.Structure_NumberOfVertexPoints(number);
        EXPECT_EQ(file_.WriteStructureVertexPoint(number, label, x, y, z, color), Success);
        return *this;
    }
    // Points are given by number, from 1.
    GeometryFile& Line(std::int32_t a, std::int32_t b, std::int32_t color = 0)
    {
        EXPECT_EQ(file_.WriteStructureEdgeLine(-1, a, b, color), Success);
        return *this;
    }
    GeometryFile& Triangle(std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t color = 0)
    {
        EXPECT_EQ(file_.WriteStructureSurfaceTriangle(-1, a, b, c, color), Success);
        return *this;
    }
    GeometryFile& Quad(std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d, std::int32_t color = 0)
    {
        EXPECT_EQ(static_cast<int>(ClassAdd_4().WriteStructureQuadSurface(-1, a, b, c, d, color)), Success);
        return *this;
    }

    void Save(const std::filesystem::path& path) { ASSERT_EQ(file_.OutputStructureFile(Utf16(path)), Success); }

private:
    clsQOR_File file_;
};

// A plate with a tip above its middle: a quad, two triangles, two lines, some of each kind with a colour.
inline void SavePlate(const std::filesystem::path& path)
{
    GeometryFile()
        .Label(u"Plate 7")
        .Notes(u"first\r\nsecond")
        .Point(0, 0, 0, u"A", Red)
        .Point(0.5F, 0, 0, u"B")
        .Point(0.5F, 0.3F, 0)
        .Point(0, 0.3F, 0, u"D 50%")
        .Point(0.25F, 0.15F, 0.1F, u"Träger", Orange)
        .Line(1, 5, Green)
        .Line(4, 5)
        .Triangle(1, 2, 5, Orange)
        .Triangle(3, 4, 5)
        .Quad(1, 2, 3, 4, Red)
        .Save(path);
}

} // namespace qor::test
