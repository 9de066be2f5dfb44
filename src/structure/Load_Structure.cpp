// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "structure/Load_Structure.h"

#include "structure/StructureLayout.h"

#include <new>

namespace qor {
namespace {

// The steps of a vertex point's record that always take the same number of bytes.
template <class Items>
QOR_INLINE constexpr void Load_FixedStep(VertexPoint& point, VertexStep step, Items& items)
{
    switch (step) {
    case VertexStep::SmallNumber: items.GetInt16(); break;
    case VertexStep::LargeNumber: items.GetInt32(); break;
    case VertexStep::Coordinates:
        point.Xcoord = items.GetFloat();
        point.Ycoord = items.GetFloat();
        point.Zcoord = items.GetFloat();
        break;
    case VertexStep::Bold: point.Bold = items.GetInt16() != 0; break;
    case VertexStep::SmallCenterPoint: point.CenterPoint = items.GetInt16(); break;
    case VertexStep::LargeCenterPoint: point.CenterPoint = items.GetInt32(); break;
    case VertexStep::PointType:
        point.PointType = items.GetInt16();
        if (point.PointType < Rectangular || point.PointType > Machine) point.PointType = Rectangular;
        break;
    case VertexStep::Axes:
        for (float& value : point.AxisEnd) value = items.GetFloat();
        break;
    case VertexStep::NormalAxis:
        point.NormalAxis = items.GetInt16();
        // The last axis, not the first, stands for an undeclared one, on purpose.
        if (point.NormalAxis < Xaxis || point.NormalAxis > Zaxis) point.NormalAxis = Zaxis;
        break;
    case VertexStep::Label:
    case VertexStep::NestedRun: break; // see Load_VertexRecord
    }
}

template <class Element, class Items>
QOR_INLINE constexpr void Load_FixedStep(Element& element, ElementStep step, Items& items)
{
    switch (step) {
    case ElementStep::SmallVertexPoints:
        for (std::int32_t& each : element.VertexPoints) each = items.GetInt16();
        break;
    case ElementStep::LargeVertexPoints:
        for (std::int32_t& each : element.VertexPoints) each = items.GetInt32();
        break;
    case ElementStep::Bold: element.Bold = items.GetInt16() != 0; break;
    }
}

// Reads the steps of a record with load(step, items), and tells how wide they are.
template <class Record, class Load>
struct StepReader {
    Load load;

    QOR_INLINE bool operator()(auto step, auto& items) const { return load(step, items); }
    static constexpr std::size_t Bytes(auto step)
    {
        Record record;
        CountedItems items;
        Load_FixedStep(record, step, items);
        return items.Bytes();
    }
};
template <class Record, class Load>
StepReader<Record, Load> Steps(Load load)
{
    return {load};
}

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

    // One element more, all zeros; nothing when memory does not suffice.
    template <class Element>
    static Element* Append(ElementArray<Element>& elements, std::int32_t& count)
    {
        const std::int32_t number = count + 1;
        if (!elements.Resize(number)) return nullptr;
        count = number;
        return &elements[number];
    }

    ReturnStatus Load_VertexRecord()
    {
        VertexPoint* const made = Append(structure_.VertexPoints, structure_.NumberOfVertexPoints);
        const std::int32_t number = structure_.NumberOfVertexPoints;
        VertexPoint* point = made ? made : &droppedPoint_;
        ReturnStatus status = Success;
        const auto loadStep = [&]<class Items>(VertexStep step, Items& items) QOR_INLINE {
            if constexpr (std::is_same_v<Items, ItemReader>) {
                if (step == VertexStep::Label) {
                    LoadString(items, textForm_,
                               [&](std::u16string_view text) QOR_INLINE { SetLabel(point->Label, text); });
                }
                if (step == VertexStep::NestedRun) {
                    items.Directly([&](RecordReader&) { status = Load_Run(); });
                    // The run may have appended vertex points, and so moved this one.
                    if (made) point = &structure_.VertexPoints[number];
                    return !ended_;
                }
            }
            Load_FixedStep(*point, step, items);
            return true;
        };
        const RecordEnd end = Load_Record<Vertex_Fields>(
            file_, skipsUnknown_, textForm_, [&]() QOR_INLINE -> VertexPoint& { return *point; },
            Steps<VertexPoint>(loadStep));
        const ReturnStatus result = ResultOf(end, status);
        return made ? result : Failure;
    }

    template <const auto& Fields, class Element>
    ReturnStatus Load_ElementRecord(ElementArray<Element>& elements, std::int32_t& count)
    {
        Element* const made = Append(elements, count);
        Element dropped;
        Element& element = made ? *made : dropped;
        const auto loadStep = [&](ElementStep step, auto& items) QOR_INLINE {
            Load_FixedStep(element, step, items);
            return true;
        };
        const RecordEnd end = Load_Record<Fields>(
            file_, skipsUnknown_, textForm_, [&]() QOR_INLINE -> Element& { return element; },
            Steps<Element>(loadStep));
        return ResultOf(end, made ? Success : Failure);
    }

    RecordReader& file_;
    const bool skipsUnknown_;
    const TextForm textForm_;
    Structure& structure_;
    StructureTexts& texts_;
    VertexPoint droppedPoint_; // takes the values of one that there is no memory for
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
