// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Short forms of the published Structure members for tests: what a read returned and left in the caller's values.
#pragma once

#include "component/DataBlockAccess.h"
#include "component/modQOR_File.h"

#include <QOR_File/QOR_File.h>

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>

namespace qor::test {

// What else stands in the caller's values before a read; no test stores them.
inline constexpr std::int32_t UntouchedNumber = -77;
inline constexpr Bool16 UntouchedTruth = Bool16::Raw(77);

inline std::string Shown(std::u16string_view text)
{
    std::string shown;
    for (const char16_t c : text) shown += c >= u' ' && c < 0x7F ? static_cast<char>(c) : '?';
    return shown;
}

// A vertex point as it is written, and as a read leaves it.
struct Vertex {
    std::u16string label;
    float x = 0;
    float y = 0;
    float z = 0;
    std::int32_t color = 0;
    Bool16 bold;

    friend bool operator==(const Vertex& a, const Vertex& b)
    {
        return a.label == b.label && Bits(a.x) == Bits(b.x) && Bits(a.y) == Bits(b.y) && Bits(a.z) == Bits(b.z) &&
               a.color == b.color && a.bold.value == b.bold.value;
    }
    friend std::ostream& operator<<(std::ostream& out, const Vertex& v)
    {
        return out << '"' << Shown(v.label) << "\" " << v.x << ' ' << v.y << ' ' << v.z << " color " << v.color
                   << " bold " << v.bold.value;
    }
};

struct VertexRead {
    ReturnStatus status = Failure;
    Vertex vertex{u"untouched", UntouchedFirst, UntouchedFirst, UntouchedFirst, UntouchedNumber, UntouchedTruth};

    friend bool operator==(const VertexRead&, const VertexRead&) = default;
    friend std::ostream& operator<<(std::ostream& out, const VertexRead& read)
    {
        return out << (read.status == Success ? "Success " : "Failure ") << read.vertex;
    }
};

inline VertexRead ReadVertex(clsQOR_File& file, std::int32_t number)
{
    VertexRead read;
    Vertex& v = read.vertex;
    read.status = file.ReadStructureVertexPoint(number, v.label, v.x, v.y, v.z, v.color, v.bold);
    return read;
}
inline ReturnStatus WriteVertex(clsQOR_File& file, std::int32_t number, const Vertex& v)
{
    return file.WriteStructureVertexPoint(number, v.label, v.x, v.y, v.z, v.color, v.bold);
}
// A read that succeeded with this vertex point.
inline VertexRead Holds(const Vertex& vertex) { return {Success, vertex}; }

// An edge line, surface triangle or quad surface; corners beyond its own stay as they are here.
struct Joining {
    std::array<std::int32_t, 4> corners{};
    std::int32_t color = 0;
    Bool16 bold;

    friend bool operator==(const Joining& a, const Joining& b)
    {
        return a.corners == b.corners && a.color == b.color && a.bold.value == b.bold.value;
    }
    friend std::ostream& operator<<(std::ostream& out, const Joining& element)
    {
        for (const std::int32_t corner : element.corners) out << corner << ' ';
        return out << "color " << element.color << " bold " << element.bold.value;
    }
};

struct JoiningRead {
    ReturnStatus status = Failure;
    Joining element{
        {UntouchedNumber, UntouchedNumber, UntouchedNumber, UntouchedNumber}, UntouchedNumber, UntouchedTruth};

    friend bool operator==(const JoiningRead&, const JoiningRead&) = default;
    friend std::ostream& operator<<(std::ostream& out, const JoiningRead& read)
    {
        return out << (read.status == Success ? "Success " : "Failure ") << read.element;
    }
};

inline JoiningRead ReadEdgeLine(clsQOR_File& file, std::int32_t number)
{
    JoiningRead read;
    auto& [c, color, bold] = read.element;
    read.status = file.ReadStructureEdgeLine(number, c[0], c[1], color, bold);
    return read;
}
inline JoiningRead ReadTriangle(clsQOR_File& file, std::int32_t number)
{
    JoiningRead read;
    auto& [c, color, bold] = read.element;
    read.status = file.ReadStructureSurfaceTriangle(number, c[0], c[1], c[2], color, bold);
    return read;
}
inline JoiningRead ReadQuad(std::int32_t number)
{
    JoiningRead read;
    auto& [c, color, bold] = read.element;
    read.status =
        static_cast<ReturnStatus>(ClassAdd_4().ReadStructureQuadSurface(number, c[0], c[1], c[2], c[3], color, bold));
    return read;
}

inline ReturnStatus WriteEdgeLine(clsQOR_File& file, std::int32_t number, const Joining& element)
{
    const auto& [c, color, bold] = element;
    return file.WriteStructureEdgeLine(number, c[0], c[1], color, bold);
}
inline ReturnStatus WriteTriangle(clsQOR_File& file, std::int32_t number, const Joining& element)
{
    const auto& [c, color, bold] = element;
    return file.WriteStructureSurfaceTriangle(number, c[0], c[1], c[2], color, bold);
}
inline ReturnStatus WriteQuad(std::int32_t number, const Joining& element)
{
    const auto& [c, color, bold] = element;
    return static_cast<ReturnStatus>(
        ClassAdd_4().WriteStructureQuadSurface(number, c[0], c[1], c[2], c[3], color, bold));
}

// One local axis as a transform read leaves it.
struct AxisRead {
    ReturnStatus status = Failure;
    float x = UntouchedFirst;
    float y = UntouchedFirst;
    float z = UntouchedFirst;

    friend bool operator==(const AxisRead& a, const AxisRead& b)
    {
        return a.status == b.status && Bits(a.x) == Bits(b.x) && Bits(a.y) == Bits(b.y) && Bits(a.z) == Bits(b.z);
    }
    friend std::ostream& operator<<(std::ostream& out, const AxisRead& read)
    {
        return out << (read.status == Success ? "Success " : "Failure ") << read.x << ' ' << read.y << ' ' << read.z;
    }
};

inline AxisRead ReadAxis(clsQOR_File& file, std::int32_t number, std::int32_t axis)
{
    AxisRead read;
    read.status =
        file.ReadStructureVertexPointTransform(number, static_cast<AxisNumbers>(axis), read.x, read.y, read.z);
    return read;
}

// What no member reads, looked at where it is kept.
inline const VertexPoint& StoredVertex(std::int32_t number) { return modQOR_File().Structure.VertexPoints[number]; }
inline std::u16string StoredLabel(std::int32_t number) { return std::u16string(TextOf(StoredVertex(number).Label)); }

// Begins with an empty Structure, and leaves no shared error status to the tests that follow on this thread.
class StructureTest : public testing::Test
{
protected:
    ~StructureTest() override
    {
        file.InitializeStructureStorage();
        modQOR_File().SharedErrorStatus = NoError;
    }

    clsQOR_File file;
};

} // namespace qor::test
