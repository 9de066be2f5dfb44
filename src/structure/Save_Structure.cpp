// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/Save_Structure.h"

#include "structure/StructureLayout.h"

#include <limits>
#include <new>

namespace qor {
namespace {

// The value in 16 bits, or 0 where it does not fit.
std::int16_t Narrowed(std::int32_t value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return value < Limits::min() || value > Limits::max() ? std::int16_t{0} : static_cast<std::int16_t>(value);
}

class StructureSaver
{
public:
    StructureSaver(RecordWriter& file, const Structure& structure, const StructureTexts& texts)
        : file_(file), structure_(structure), texts_(texts)
    {}

    void Save_NotesRecord()
    {
        if (Trimmed(texts_.Notes).empty()) return;
        Save_Record<Notes_Fields>(file_, NotesRecord, texts_, structure_, [](NoStep, std::int16_t, ItemWriter&) {});
    }

    void Save_SubStructureRecord()
    {
        Save_Record<SubStructure_Fields>(file_, SubStructureRecord, texts_, structure_,
                                         [this](SubStructureStep step, std::int16_t tag, ItemWriter& items) {
                                             switch (step) {
                                             case SubStructureStep::Label: return Save_Text(items, tag, texts_.Label);
                                             case SubStructureStep::Elements:
                                                 items.PutInt16(tag);
                                                 items.Directly([this](RecordWriter&) { Save_Elements(); });
                                                 return items.PutInt16(EndOfElements);
                                             }
                                         });
    }

private:
    void Save_Elements()
    {
        for (std::int32_t number = 1; number <= structure_.VertexPoints.Count(); ++number) Save_VertexRecord(number);
        for (std::int32_t number = 1; number <= structure_.EdgeLines.Count(); ++number) {
            Save_ElementRecord<EdgeLine_Fields>(EdgeLineRecord, structure_.EdgeLines[number]);
        }
        for (std::int32_t number = 1; number <= structure_.SurfaceTriangles.Count(); ++number) {
            Save_ElementRecord<Surface_Fields<SurfaceTriangle>>(SurfaceTriangleRecord,
                                                                structure_.SurfaceTriangles[number]);
        }
        for (std::int32_t number = 1; number <= structure_.QuadSurfaces.Count(); ++number) {
            Save_ElementRecord<Surface_Fields<QuadSurface>>(QuadSurfaceRecord, structure_.QuadSurfaces[number]);
        }
    }

    void Save_VertexRecord(std::int32_t number)
    {
        const VertexPoint& point = structure_.VertexPoints[number];
        Save_Record<Vertex_Fields>(file_, VertexRecord, point, structure_,
                                   [&](VertexStep step, std::int16_t tag, ItemWriter& items)
                                       QOR_INLINE { Save(point, number, step, tag, items); });
    }

    QOR_INLINE void Save(const VertexPoint& point, std::int32_t number, VertexStep step, std::int16_t tag,
                         ItemWriter& items) const
    {
        switch (step) {
        case VertexStep::SmallNumber: return items.PutAll(tag, Narrowed(number));
        case VertexStep::LargeNumber: return items.PutAll(tag, number);
        case VertexStep::Coordinates: return items.PutAll(tag, point.Xcoord, point.Ycoord, point.Zcoord);
        case VertexStep::Bold: return items.PutAll(tag, point.Bold.value);
        case VertexStep::Label: return Save_Text(items, tag, TextOf(point.Label));
        case VertexStep::SmallCenterPoint:
            if (const auto center = WrittenCenterPoint(Narrowed(point.CenterPoint)); center > 0) {
                items.PutAll(tag, static_cast<std::int16_t>(center));
            }
            return;
        case VertexStep::LargeCenterPoint:
            if (const auto center = WrittenCenterPoint(point.CenterPoint); center > 0) items.PutAll(tag, center);
            return;
        case VertexStep::PointType: return items.PutAll(tag, Narrowed(point.PointType));
        case VertexStep::Axes: return items.PutAll(tag, point.AxisEnd);
        case VertexStep::NormalAxis: return items.PutAll(tag, Narrowed(point.NormalAxis));
        case VertexStep::NestedRun: return;
        }
    }

    // A center that is no vertex point of this Structure is left out.
    std::int32_t WrittenCenterPoint(std::int32_t center) const
    {
        return center < 0 || center > structure_.NumberOfVertexPoints ? 0 : center;
    }

    template <const auto& Fields, class Element>
    void Save_ElementRecord(std::int16_t type, const Element& element)
    {
        Save_Record<Fields>(file_, type, element, structure_,
                            [&](ElementStep step, std::int16_t tag, ItemWriter& items) QOR_INLINE {
                                switch (step) {
                                case ElementStep::SmallVertexPoints:
                                    items.PutInt16(tag);
                                    for (const std::int32_t each : element.VertexPoints) items.PutInt16(Narrowed(each));
                                    return;
                                case ElementStep::LargeVertexPoints: return items.PutAll(tag, element.VertexPoints);
                                case ElementStep::Bold: return items.PutAll(tag, element.Bold.value);
                                }
                            });
    }

    RecordWriter& file_;
    const Structure& structure_;
    const StructureTexts& texts_;
};

} // namespace

void SaveStructure(ByteSink& sink, Structure& structure, const StructureTexts& texts)
{
    if (structure.NumberOfVertexPoints > MostSmallVertexPoints) structure.LargeStructureFormat = true;
    try {
        RecordWriter file(sink);
        SavePreamble(file, Structure_Identification,
                     structure.LargeStructureFormat ? LargeStructure_Version : SmallStructure_Version);
        StructureSaver saver(file, structure, texts);
        saver.Save_NotesRecord();
        saver.Save_SubStructureRecord();
        file.PutInt16(EndMarker);
        file.Flush();
    } catch (const std::bad_alloc&) {
        return; // no memory for a buffer is one more fault
    }
}

} // namespace qor
