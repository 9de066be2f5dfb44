// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

#include "component/modQOR_File.h"

namespace qor::test {
namespace {

template <class Call>
Answer ReadElement(Call call)
{
    std::array<std::int32_t, 4> corners{};
    std::int32_t color = 0;
    Bool16 bold;
    Answer a = Number(call(corners, color, bold));
    a.values = {static_cast<double>(corners[0]), static_cast<double>(corners[1]), static_cast<double>(corners[2]),
                static_cast<double>(corners[3]), static_cast<double>(color),      static_cast<double>(bold.value)};
    return a;
}

template <std::int32_t Index>
Answer ReadLine(World& w)
{
    return ReadElement(
        [&](auto& c, auto& color, auto& bold) { return w.file.ReadStructureEdgeLine(Index, c[0], c[1], color, bold); });
}

template <std::int32_t Index>
Answer ReadTriangle(World& w)
{
    return ReadElement([&](auto& c, auto& color, auto& bold) {
        return w.file.ReadStructureSurfaceTriangle(Index, c[0], c[1], c[2], color, bold);
    });
}

template <std::int32_t Index>
Answer ReadQuad(World& w)
{
    return ReadElement([&](auto& c, auto& color, auto& bold) {
        return w.quadSurfaces.ReadStructureQuadSurface(Index, c[0], c[1], c[2], c[3], color, bold);
    });
}

template <std::int32_t Index>
Answer ReadPoint(World& w)
{
    Bool16 bold;
    std::int32_t color = 0;
    Answer a = Number(w.file.ReadStructureVertexPoint(Index, w.text, w.first[0], w.first[1], w.first[2], color, bold));
    a.values = {w.first[0], w.first[1], w.first[2], static_cast<double>(color), static_cast<double>(bold.value)};
    a.text = std::move(w.text);
    return a;
}

// More points than the small variant numbers, and values that only the large one saves.
void FillLargeVariant(World& world)
{
    Fill(world);
    world.file.Structure_NumberOfVertexPoints(60'000);
    Structure& structure = modQOR_File().Structure;
    structure.LargeStructureFormat = true;
    structure.VertexPoints[1].FileExtraValue = structure.EdgeLines[1].FileExtraValue = 7;
}

} // namespace

const std::vector<Operation>& StructureOperations()
{
    static const std::vector<Operation> operations = {
        {"clsQOR_File::InitializeStructureStorage", Fill, Sets([](World& w) { w.file.InitializeStructureStorage(); }),
         NeverAsks},
        {"clsQOR_File::Structure_Label get", Fill, [](World& w) { return Text(w.file.Structure_Label()); },
         ComesToNothing},
        {"clsQOR_File::Structure_Label set", Fill, Sets([](World& w) { w.file.Structure_Label(LongText); }),
         ComesToNothing},
        {"clsQOR_File::Structure_Notes get", Fill, [](World& w) { return Text(w.file.Structure_Notes()); },
         ComesToNothing},
        {"clsQOR_File::Structure_Notes set", Fill, Sets([](World& w) { w.file.Structure_Notes(LongText); }),
         ComesToNothing},
        {"clsQOR_File::Structure_NumberOfVertexPoints get", Fill,
         [](World& w) { return Number(w.file.Structure_NumberOfVertexPoints()); }, NeverAsks},
        {"clsQOR_File::Structure_NumberOfVertexPoints set to more", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfVertexPoints(50); }), EmptiesStructure},
        {"clsQOR_File::Structure_NumberOfVertexPoints set to many more", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfVertexPoints(60000); }), EmptiesStructure},
        {"clsQOR_File::Structure_NumberOfVertexPoints set to more where they are mapped", FillLargeVariant,
         Sets([](World& w) { w.file.Structure_NumberOfVertexPoints(90'000); }), MovesOrEmptiesStructure},
        {"clsQOR_File::Structure_NumberOfVertexPoints set to fewer", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfVertexPoints(1); }), NeverAsks},
        {"clsQOR_File::Structure_NumberOfVertexPoints set to none", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfVertexPoints(0); }), NeverAsks},
        {"clsQOR_File::Structure_NumberOfEdgeLines get", Fill,
         [](World& w) { return Number(w.file.Structure_NumberOfEdgeLines()); }, NeverAsks},
        {"clsQOR_File::Structure_NumberOfEdgeLines set to more", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfEdgeLines(50); }), EmptiesStructure},
        {"clsQOR_File::Structure_NumberOfEdgeLines set to many more", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfEdgeLines(60000); }), EmptiesStructure},
        {"clsQOR_File::Structure_NumberOfEdgeLines set to fewer", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfEdgeLines(1); }), NeverAsks},
        {"clsQOR_File::Structure_NumberOfEdgeLines set to none", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfEdgeLines(0); }), NeverAsks},
        {"clsQOR_File::Structure_NumberOfSurfaceTriangles get", Fill,
         [](World& w) { return Number(w.file.Structure_NumberOfSurfaceTriangles()); }, NeverAsks},
        {"clsQOR_File::Structure_NumberOfSurfaceTriangles set to more", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfSurfaceTriangles(50); }), EmptiesStructure},
        {"clsQOR_File::Structure_NumberOfSurfaceTriangles set to many more", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfSurfaceTriangles(60000); }), EmptiesStructure},
        {"clsQOR_File::Structure_NumberOfSurfaceTriangles set to fewer", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfSurfaceTriangles(1); }), NeverAsks},
        {"clsQOR_File::Structure_NumberOfSurfaceTriangles set to none", Fill,
         Sets([](World& w) { w.file.Structure_NumberOfSurfaceTriangles(0); }), NeverAsks},
        {"ClassAdd_4::StructureNumberOfQuadSurfaces get", Fill,
         [](World& w) { return Number(w.quadSurfaces.StructureNumberOfQuadSurfaces()); }, NeverAsks},
        {"ClassAdd_4::StructureNumberOfQuadSurfaces set to more", Fill,
         Sets([](World& w) { w.quadSurfaces.StructureNumberOfQuadSurfaces(50); }), EmptiesStructure},
        {"ClassAdd_4::StructureNumberOfQuadSurfaces set to many more", Fill,
         Sets([](World& w) { w.quadSurfaces.StructureNumberOfQuadSurfaces(60000); }), EmptiesStructure},
        {"ClassAdd_4::StructureNumberOfQuadSurfaces set to fewer", Fill,
         Sets([](World& w) { w.quadSurfaces.StructureNumberOfQuadSurfaces(1); }), NeverAsks},
        {"ClassAdd_4::StructureNumberOfQuadSurfaces set to none", Fill,
         Sets([](World& w) { w.quadSurfaces.StructureNumberOfQuadSurfaces(0); }), NeverAsks},
        {"clsQOR_File::ReadStructureVertexPoint", Fill, ReadPoint<2>, ReadsNoPoint},
        {"clsQOR_File::ReadStructureVertexPoint of no point", Fill, ReadPoint<99>, KeepsOldErrorText},
        {"clsQOR_File::WriteStructureVertexPoint", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPoint(2, LongText, 7, 8, 9, 10, true)); }, NeverAsks},
        {"clsQOR_File::WriteStructureVertexPoint of no point", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPoint(99, LongText, 7, 8, 9)); }, KeepsOldErrorText},
        {"clsQOR_File::ReadStructureEdgeLine", Fill, ReadLine<2>, NeverAsks},
        {"clsQOR_File::ReadStructureEdgeLine of none", Fill, ReadLine<99>, KeepsOldErrorText},
        {"clsQOR_File::WriteStructureEdgeLine", Fill,
         [](World& w) { return Number(w.file.WriteStructureEdgeLine(2, 1, 2, 7, true)); }, NeverAsks},
        {"clsQOR_File::WriteStructureEdgeLine of none", Fill,
         [](World& w) { return Number(w.file.WriteStructureEdgeLine(99, 1, 2)); }, KeepsOldErrorText},
        {"clsQOR_File::WriteStructureEdgeLine of a new one", Fill,
         [](World& w) { return Number(w.file.WriteStructureEdgeLine(-1, 1, 2, 7, true)); },
         FailsToAppend<EdgeLinesNotAllocated>},
        {"clsQOR_File::ReadStructureSurfaceTriangle", Fill, ReadTriangle<2>, NeverAsks},
        {"clsQOR_File::ReadStructureSurfaceTriangle of none", Fill, ReadTriangle<99>, KeepsOldErrorText},
        {"clsQOR_File::WriteStructureSurfaceTriangle", Fill,
         [](World& w) { return Number(w.file.WriteStructureSurfaceTriangle(2, 1, 2, 3, 7, true)); }, NeverAsks},
        {"clsQOR_File::WriteStructureSurfaceTriangle of none", Fill,
         [](World& w) { return Number(w.file.WriteStructureSurfaceTriangle(99, 1, 2, 3)); }, KeepsOldErrorText},
        {"clsQOR_File::WriteStructureSurfaceTriangle of a new one", Fill,
         [](World& w) { return Number(w.file.WriteStructureSurfaceTriangle(-1, 1, 2, 3, 7, true)); },
         FailsToAppend<SurfaceTrianglesNotAllocated>},
        {"ClassAdd_4::ReadStructureQuadSurface", Fill, ReadQuad<2>, NeverAsks},
        {"ClassAdd_4::ReadStructureQuadSurface of none", Fill, ReadQuad<99>, NeverAsks},
        {"ClassAdd_4::WriteStructureQuadSurface", Fill,
         [](World& w) { return Number(w.quadSurfaces.WriteStructureQuadSurface(2, 1, 2, 3, 4, 7, true)); }, NeverAsks},
        {"ClassAdd_4::WriteStructureQuadSurface of none", Fill,
         [](World& w) { return Number(w.quadSurfaces.WriteStructureQuadSurface(99, 1, 2, 3, 4)); }, NeverAsks},
        {"ClassAdd_4::WriteStructureQuadSurface of a new one", Fill,
         [](World& w) { return Number(w.quadSurfaces.WriteStructureQuadSurface(-1, 1, 2, 3, 4, 7, true)); },
         FailsToAppend<QuadSurfacesNotAllocated>},
        {"clsQOR_File::WriteStructureVertexPointInformation", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPointInformation(2, 1, Cylindrical, Zaxis, 0.5F)); },
         NeverAsks},
        {"clsQOR_File::WriteStructureVertexPointInformation of no point", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPointInformation(99, 1)); }, KeepsOldErrorText},
        {"clsQOR_File::ReadStructureVertexPointInformation", Fill,
         [](World& w) { return Number(w.file.ReadStructureVertexPointInformation(2, 1, Cylindrical, Zaxis, 0.5F)); },
         NeverAsks},
        {"clsQOR_File::ReadStructureVertexPointInformation of no point", Fill,
         [](World& w) { return Number(w.file.ReadStructureVertexPointInformation(99, 1)); }, KeepsOldErrorText},
        {"clsQOR_File::WriteStructureVertexPointTransform", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPointTransform(2, Yaxis, 7, 8, 9)); }, NeverAsks},
        {"clsQOR_File::WriteStructureVertexPointTransform of no point", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPointTransform(99, Yaxis, 7, 8, 9)); },
         KeepsOldErrorText},
        {"clsQOR_File::ReadStructureVertexPointTransform", Fill,
         [](World& w) {
             Answer a = Number(w.file.ReadStructureVertexPointTransform(2, Yaxis, w.first[0], w.first[1], w.first[2]));
             a.values = {w.first[0], w.first[1], w.first[2]};
             return a;
         },
         NeverAsks},
        {"clsQOR_File::ReadStructureVertexPointTransform of no point", Fill,
         [](World& w) {
             Answer a = Number(w.file.ReadStructureVertexPointTransform(99, Yaxis, w.first[0], w.first[1], w.first[2]));
             a.values = {w.first[0], w.first[1], w.first[2]};
             return a;
         },
         KeepsOldErrorText},

        {"FileArrays::NumberOfVertexPoints", Fill, [](World& w) { return Number(w.arrays.NumberOfVertexPoints()); },
         NeverAsks},
        {"FileArrays::ReadStructureVertexPointCoordinates", Fill,
         [](World& w) {
             Answer a = Number(w.arrays.ReadStructureVertexPointCoordinates(
                 std::span(w.first).first(3), std::span(w.second).first(3), std::span(w.third).first(3)));
             a.values = {w.first[0], w.first[3], w.second[0], w.second[3]};
             return a;
         },
         NeverAsks},
        {"FileArrays::WriteStructureVertexPointCoordinates", Fill,
         [](World& w) {
             return Number(w.arrays.WriteStructureVertexPointCoordinates(
                 std::span(w.first).first(3), std::span(w.second).first(3), std::span(w.third).first(3)));
         },
         NeverAsks},
        {"FileArrays::WriteStructureVertexPointCoordinates of other lengths", Fill,
         [](World& w) { return Number(w.arrays.WriteStructureVertexPointCoordinates(w.first, w.second, {})); },
         KeepsOldErrorText},

        // It raises a fault, for which it asks for memory once the point is there.
        {"clsQOR_File::WriteStructureVertexPoint of a new one", Fill,
         [](World& w) { return Number(w.file.WriteStructureVertexPoint(-1, LongText, 7, 8, 9)); },
         FailsToAppend<VertexPointsNotAllocated>},
    };
    return operations;
}

} // namespace qor::test
