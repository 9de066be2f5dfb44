// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/Load_Structure.h"

#include "structure/StructureLayout.h"

#include <new>

namespace qor {
namespace {

class StructureLoader
{
public:
    StructureLoader(RecordReader& file, std::int16_t version, Structure& structure, StructureTexts& texts)
        : file_(file),
          skipsUnknown_(version >= FirstVersionThatSkips),
          textForm_(version < Structure_FirstVersionWithCountedText ? TextForm::ZeroTerminated : TextForm::Counted),
          structure_(structure),
          texts_(texts)
    {}

    ErrorStatusTypes Error() const { return error_; }

    // The records of a run, or of the file's top level. The reader stands where a type code may follow.
    ReturnStatus Load_Records()
    {
        if (file_.AtEnd()) return Success;
        ReturnStatus status = Success;
        for (std::int16_t item = 0;;) {
            switch (item) {
            case 0: break;
            case SubStructureRecord: status = Load_SubStructureRecord(); break;
            case NotesRecord: status = Load_TextsRecord<Notes_Fields>(); break;
            case VertexRecord: status = Load_VertexRecord(); break;
            case EdgeLineRecord:
                status = Load_ElementRecord<EdgeLine_Fields>(structure_.EdgeLines, structure_.NumberOfEdgeLines);
                break;
            case SurfaceTriangleRecord:
                status = Load_ElementRecord<Surface_Fields<SurfaceTriangle>>(structure_.SurfaceTriangles,
                                                                             structure_.NumberOfSurfaceTriangles);
                break;
            case QuadSurfaceRecord:
                status = Load_ElementRecord<Surface_Fields<QuadSurface>>(structure_.QuadSurfaces,
                                                                         structure_.NumberOfQuadSurfaces);
                break;
            case DiscardedRecord: Load_TextsRecord<Discarded_Fields>(); break; // its result counts for nothing
            case EndOfElements:
            case EndOfRun: return Success;
            default:
                if (skipsUnknown_ && !file_.SkipRecord()) EndReading();
            }
            if (ended_) return Failure;
            if (file_.AtEnd()) {
                error_ = InputFile_ReadFail;
                return status;
            }
            const bool whole = file_.GetTag(item);
            if (status == Failure) return status;
            if (!whole) {
                error_ = InputFile_ReadFail;
                return status;
            }
            if (item == EndMarker) return status;
        }
    }

private:
    void EndReading()
    {
        ended_ = true;
        error_ = InputFile_ReadFail;
    }

    // What a record's reading came to, when its fields came to status.
    ReturnStatus ResultOf(RecordEnd end, ReturnStatus status)
    {
        if (end == RecordEnd::WentBack) EndReading();
        return end == RecordEnd::EndOfFile || ended_ ? Failure : status;
    }

    // A record that has texts only, or nothing that is kept.
    template <const auto& Fields>
    ReturnStatus Load_TextsRecord()
    {
        return ResultOf(Load_Record<Fields>(
                            file_, skipsUnknown_, textForm_, [this]() -> StructureTexts& { return texts_; },
                            [](NoStep, ItemReader&) { return true; }),
                        Success);
    }

    ReturnStatus Load_Run()
    {
        if (runDepth_ == DeepestList) {
            EndReading();
            return Failure;
        }
        ++runDepth_;
        const ReturnStatus status = Load_Records();
        --runDepth_;
        return status;
    }

    ReturnStatus Load_SubStructureRecord()
    {
        ReturnStatus status = Success;
        const RecordEnd end = Load_Record<SubStructure_Fields>(
            file_, skipsUnknown_, textForm_, [this]() -> StructureTexts& { return texts_; },
            [&](SubStructureStep step, ItemReader& items) {
                items.Directly([&](RecordReader& file) {
                    if (step == SubStructureStep::Elements) {
                        status = Load_Run();
                    } else {
                        std::u16string label = LoadString(file, textForm_);
                        if (texts_.Label.empty()) texts_.Label = std::move(label);
                    }
                });
                return !ended_;
            });
        return ResultOf(end, status);
    }

    // Makes one element more. False, and nothing made, when memory does not suffice.
    template <class Element>
    static bool Append(ElementArray<Element>& elements, std::int32_t& count)
    {
        if (!elements.Resize(count + 1)) return false;
        ++count;
        return true;
    }

    ReturnStatus Load_VertexRecord()
    {
        ElementArray<VertexPoint>& points = structure_.VertexPoints;
        const bool made = Append(points, structure_.NumberOfVertexPoints);
        const std::int32_t number = structure_.NumberOfVertexPoints;
        VertexPoint point; // put in its place when whole: a nested run may append vertex points, and so move it
        ReturnStatus status = Success;
        const RecordEnd end = Load_Record<Vertex_Fields>(
            file_, skipsUnknown_, textForm_, [&]() QOR_INLINE -> VertexPoint& { return point; },
            [&](VertexStep step, ItemReader& items) QOR_INLINE {
                if (step == VertexStep::NestedRun) {
                    items.Directly([&](RecordReader&) { status = Load_Run(); });
                    return !ended_;
                }
                Load(point, step, items);
                return true;
            });
        const ReturnStatus result = ResultOf(end, status);
        if (!made) return Failure;
        points[number] = point;
        return result;
    }

    QOR_INLINE void Load(VertexPoint& point, VertexStep step, ItemReader& items) const
    {
        switch (step) {
        case VertexStep::SmallNumber: items.GetInt16(); break;
        case VertexStep::LargeNumber: items.GetInt32(); break;
        case VertexStep::Coordinates: items.GetAll(point.Xcoord, point.Ycoord, point.Zcoord); break;
        case VertexStep::Bold: point.Bold = items.GetInt16() != 0; break;
        case VertexStep::Label:
            LoadString(items, textForm_, [&](std::u16string_view text) QOR_INLINE { point.Label = PaddedLabel(text); });
            break;
        case VertexStep::SmallCenterPoint: point.CenterPoint = items.GetInt16(); break;
        case VertexStep::LargeCenterPoint: point.CenterPoint = items.GetInt32(); break;
        case VertexStep::PointType:
            point.PointType = items.GetInt16();
            if (point.PointType < Rectangular || point.PointType > Machine) point.PointType = Rectangular;
            break;
        case VertexStep::Axes: items.GetAll(point.AxisEnd); break;
        case VertexStep::NormalAxis:
            point.NormalAxis = items.GetInt16();
            // The last axis, not the first, stands for an undeclared one, on purpose.
            if (point.NormalAxis < Xaxis || point.NormalAxis > Zaxis) point.NormalAxis = Zaxis;
            break;
        case VertexStep::NestedRun: break; // see Load_VertexRecord
        }
    }

    template <const auto& Fields, class Element>
    ReturnStatus Load_ElementRecord(ElementArray<Element>& elements, std::int32_t& count)
    {
        Element element;
        const RecordEnd end = Load_Record<Fields>(
            file_, skipsUnknown_, textForm_, [&]() QOR_INLINE -> Element& { return element; },
            [&](ElementStep step, ItemReader& items) QOR_INLINE {
                switch (step) {
                case ElementStep::SmallVertexPoints:
                    for (std::int32_t& each : element.VertexPoints) each = items.GetInt16();
                    break;
                case ElementStep::LargeVertexPoints: items.GetAll(element.VertexPoints); break;
                case ElementStep::Bold: element.Bold = items.GetInt16() != 0; break;
                }
                return true;
            });
        const bool made = Append(elements, count);
        if (made) elements[count] = element;
        return ResultOf(end, made ? Success : Failure);
    }

    RecordReader& file_;
    const bool skipsUnknown_;
    const TextForm textForm_;
    Structure& structure_;
    StructureTexts& texts_;
    ErrorStatusTypes error_ = NoError;
    bool ended_ = false; // nothing more is read
    int runDepth_ = 0;
};

} // namespace

StructurePreamble Load_StructurePreamble(RecordReader& file)
{
    StructurePreamble preamble;
    preamble.version = FindPreamble(file);
    preamble.accepted = preamble.version && *preamble.version <= LargeStructure_Version;
    if (preamble.accepted) SkipReservedWords(file);
    return preamble;
}

Outcome Load_StructureRecords(RecordReader& file, std::int16_t version, Structure& structure, StructureTexts& texts)
{
    StructureLoader loader(file, version, structure, texts);
    try {
        const ReturnStatus status = loader.Load_Records();
        return {status, loader.Error()};
    } catch (const std::bad_alloc&) {
        return {Failure, loader.Error()}; // the reader has no code for it
    }
}

bool IsLargeVersion(std::int16_t version) { return version >= FirstLargeStructure_Version; }

} // namespace qor
