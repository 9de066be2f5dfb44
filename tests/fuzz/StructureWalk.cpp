// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of the Structure.
#include "fuzz/MemberWalk.h"
#include "support/ExerciseStructure.h"

#include <algorithm>

namespace qor::test {
namespace {

Structure& Document() { return modQOR_File().Structure; }

// Vertex points, edge lines, surface triangles, quad surfaces: what their members share.
struct Kind {
    std::int32_t (*count)(const clsQOR_File& file);
    void (*setCount)(clsQOR_File& file, std::int32_t count);
    ErrorStatusTypes notAllocated;
    ErrorStatusTypes indexError;
};
constexpr Kind Kinds[] = {
    {[](auto& file) { return file.Structure_NumberOfVertexPoints(); },
     [](auto& file, auto count) { file.Structure_NumberOfVertexPoints(count); }, VertexPointsNotAllocated,
     VertexPointIndexError},
    {[](auto& file) { return file.Structure_NumberOfEdgeLines(); },
     [](auto& file, auto count) { file.Structure_NumberOfEdgeLines(count); }, EdgeLinesNotAllocated,
     EdgeLineIndexError},
    {[](auto& file) { return file.Structure_NumberOfSurfaceTriangles(); },
     [](auto& file, auto count) { file.Structure_NumberOfSurfaceTriangles(count); }, SurfaceTrianglesNotAllocated,
     SurfaceTriangleIndexError},
    {[](auto&) { return ClassAdd_4().StructureNumberOfQuadSurfaces(); },
     [](auto&, auto count) { ClassAdd_4().StructureNumberOfQuadSurfaces(count); }, QuadSurfacesNotAllocated,
     QuadSurfaceIndexError},
};

ErrorStatusTypes ReadError(const Kind& kind, const clsQOR_File& file, std::int32_t number)
{
    if (kind.count(file) < 1) return kind.notAllocated;
    return number >= 1 && number <= kind.count(file) ? NoError : kind.indexError;
}

std::int32_t AnyElement(MemberWalk& walk, const Kind& kind) { return walk.in.Number(kind.count(walk.File())); }
Bool16 AnyTruth(MemberWalk& walk) { return Bool16::Raw(static_cast<std::int16_t>(walk.in.Number())); }

bool IsEmpty(const clsQOR_File& file)
{
    return std::ranges::all_of(Kinds, [&](const Kind& kind) { return kind.count(file) == 0; });
}

// ---- sizes and texts ---------------------------------------------------------------------------------------------

void SetCount(MemberWalk& walk)
{
    const Kind& kind = Kinds[walk.in.Byte() % std::size(Kinds)];
    std::int32_t count = AnyElement(walk, kind);
    if (!IsQuick(4, count)) count %= 64; // an element is many bytes
    kind.setCount(walk.File(), count);
    const ErrorStatusTypes error = walk.File().ErrorStatus();
    if (error == AllocationError) return walk.Expect(IsEmpty(walk.File()), "elements that have no memory");
    walk.Expect(error == NoError && kind.count(walk.File()) == std::max(count, 0), "a number of elements");
}

void InitializeStorage(MemberWalk& walk)
{
    walk.File().InitializeStructureStorage();
    walk.Expect(IsEmpty(walk.File()), "elements");
    walk.ExpectError(NoError);
}

void SetTexts(MemberWalk& walk)
{
    const std::u16string text = walk.in.Byte() % 4 == 0 ? u"" : walk.in.Text();
    walk.File().Structure_Label(text);
    walk.File().Structure_Notes(text);
    walk.Expect(walk.File().Structure_Label() == text && walk.File().Structure_Notes() == text, "label or notes");
    walk.ExpectError(NoError);
}

// ---- vertex points -----------------------------------------------------------------------------------------------

void AccessPoint(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::int32_t count = file.Structure_NumberOfVertexPoints();
    const std::int32_t number = AnyElement(walk, Kinds[0]);
    const std::u16string label = walk.in.Text();
    std::u16string readLabel(1, u'?');
    float place[] = {walk.in.Float(), walk.in.Float(), walk.in.Float()};
    std::int32_t color = walk.in.Number();
    Bool16 bold = AnyTruth(walk);
    const Bool16 written = bold;
    const auto kept = std::to_array(place);
    if (number == -1) {
        try {
            file.WriteStructureVertexPoint(number, label, place[0], place[1], place[2], color, bold);
            walk.Expect(false, "an appended point without its fault");
        } catch (const RuntimeFault& fault) {
            walk.Expect(fault.Number() == RuntimeFault::SubscriptOutOfRange, "the fault");
        }
        walk.Expect(file.Structure_NumberOfVertexPoints() == count + 1, "the number of points");
        return walk.ExpectError(NoError);
    }
    const bool inRange = number >= 1 && number <= count;
    walk.ExpectStatus(file.WriteStructureVertexPoint(number, label, place[0], place[1], place[2], color, bold),
                      inRange ? NoError : VertexPointIndexError);
    const std::u16string trimmed(Trimmed(Trimmed(label).substr(0, 20)));
    const std::int32_t writtenColor = color;
    color = 7;
    walk.ExpectStatus(file.ReadStructureVertexPoint(number, readLabel, place[0], place[1], place[2], color, bold),
                      ReadError(Kinds[0], file, number));
    walk.Expect(readLabel == (inRange ? trimmed : u"?") && color == (inRange ? writtenColor : 7), "label or color");
    walk.Expect(bold.value == written.value && std::ranges::equal(place, kept, SameFloat), "the place");
}

void StoreInformation(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::int32_t number = AnyElement(walk, Kinds[0]);
    const std::int32_t center = AnyElement(walk, Kinds[0]);
    const auto type = static_cast<PointTypes>(walk.in.Number());
    const auto normal = static_cast<AxisNumbers>(walk.in.Number());
    const float area = walk.in.Float();
    const ErrorStatusTypes error = ReadError(Kinds[0], file, number);
    walk.ExpectStatus(file.ReadStructureVertexPointInformation(number, center, type, normal, area), error);
    const bool fits = center >= 0 && center <= 32767;
    walk.ExpectStatus(file.WriteStructureVertexPointInformation(number, center, type, normal, area),
                      error == NoError && !fits ? CenterPointOverflow : error);
    if (error != NoError) return;
    const VertexPoint& point = Document().VertexPoints[number];
    walk.Expect(point.PointType == type && point.NormalAxis == normal && SameFloat(point.Area, area), "information");
    walk.Expect(!fits || point.CenterPoint == center, "the center point");
}

void AccessTransform(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::int32_t number = AnyElement(walk, Kinds[0]);
    const auto axis = static_cast<AxisNumbers>(walk.in.Number());
    float ends[] = {walk.in.Float(), walk.in.Float(), walk.in.Float()};
    const auto kept = std::to_array(ends);
    ErrorStatusTypes error = ReadError(Kinds[0], file, number);
    if (error == NoError && (axis < Xaxis || axis > Zaxis)) error = AxisNumberError;
    walk.ExpectStatus(file.WriteStructureVertexPointTransform(number, axis, ends[0], ends[1], ends[2]), error);
    if (error == NoError) std::ranges::fill(ends, 7.0F);
    walk.ExpectStatus(file.ReadStructureVertexPointTransform(number, axis, ends[0], ends[1], ends[2]), error);
    walk.Expect(std::ranges::equal(ends, kept, SameFloat), "an axis");
}

void AccessArrays(MemberWalk& walk)
{
    FileArrays arrays = walk.in.Byte() % 2 == 0 ? FileArrays(walk.File()) : FileArrays();
    const std::int32_t points = arrays.NumberOfVertexPoints();
    const std::int32_t count = std::max(points + walk.in.Byte() / 128 - walk.in.Byte() / 128, 0);
    const std::vector<float> x(static_cast<std::size_t>(count), walk.in.Float());
    std::vector<float> read(x.size());
    std::vector<float> other(x.size());
    const ErrorStatusTypes whole = count == points ? NoError : VertexPointIndexError;
    walk.ExpectStatus(arrays.WriteStructureVertexPointCoordinates(x, x, x),
                      points == 0 ? VertexPointIndexError : whole);
    walk.ExpectStatus(arrays.ReadStructureVertexPointCoordinates(read, other, other),
                      points == 0 ? VertexPointsNotAllocated : whole);
    walk.Expect(whole != NoError || std::ranges::equal(x, read, SameFloat), "coordinates");
}

// ---- joining elements --------------------------------------------------------------------------------------------

struct Joined {
    std::array<std::int32_t, 4> corners{};
    std::int32_t color = 0;
    Bool16 bold;
};

ReturnStatus WriteJoined(clsQOR_File& file, std::size_t kind, std::int32_t number, const Joined& element)
{
    const auto& [c, color, bold] = element;
    if (kind == 1) return file.WriteStructureEdgeLine(number, c[0], c[1], color, bold);
    if (kind == 2) return file.WriteStructureSurfaceTriangle(number, c[0], c[1], c[2], color, bold);
    return static_cast<ReturnStatus>(
        ClassAdd_4().WriteStructureQuadSurface(number, c[0], c[1], c[2], c[3], color, bold));
}

ReturnStatus ReadJoined(clsQOR_File& file, std::size_t kind, std::int32_t number, Joined& element)
{
    auto& [c, color, bold] = element;
    if (kind == 1) return file.ReadStructureEdgeLine(number, c[0], c[1], color, bold);
    if (kind == 2) return file.ReadStructureSurfaceTriangle(number, c[0], c[1], c[2], color, bold);
    return static_cast<ReturnStatus>(
        ClassAdd_4().ReadStructureQuadSurface(number, c[0], c[1], c[2], c[3], color, bold));
}

void AccessJoining(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const std::size_t which = 1 + walk.in.Byte() % 3;
    const Kind& kind = Kinds[which];
    const std::int32_t count = kind.count(file);
    const std::int32_t number = AnyElement(walk, kind);
    Joined written;
    for (std::size_t i = 0; i <= which; ++i) written.corners[i] = AnyElement(walk, Kinds[0]);
    written.color = walk.in.Number();
    written.bold = AnyTruth(walk);
    const bool appends = number == -1;
    const bool inRange = appends || (number >= 1 && number <= count);
    walk.ExpectStatus(WriteJoined(file, which, number, written), inRange ? NoError : kind.indexError);
    walk.Expect(kind.count(file) == count + (appends ? 1 : 0), "the number of elements");
    modQOR_File().SharedErrorStatus = NoError;
    const std::int32_t place = appends ? count + 1 : number;
    Joined read;
    walk.ExpectStatus(ReadJoined(file, which, place, read), ReadError(kind, file, place));
    const Joined expected = inRange ? written : Joined();
    walk.Expect(read.corners == expected.corners && read.color == expected.color &&
                    read.bold.value == expected.bold.value,
                "an element");
}

// ---- files -------------------------------------------------------------------------------------------------------

void Load(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    const Bytes bytes = walk.AnyStructure();
    StructureTexts texts;
    texts.Label = file.Structure_Label();
    texts.Notes = file.Structure_Notes();
    LoadedStructure expected = LoadStructure(bytes, texts);
    if (expected.accepted) expected.structure.LargeStructureFormat = IsLargeVersion(*expected.version);
    const UnlinkedFile onDisk(bytes);
    walk.Expect(onDisk.Good(), "no file to read from");
    walk.Expect(file.InputStructureFile(onDisk.Path()) == (expected.accepted ? expected.status : Failure),
                "the result");
    walk.ExpectError(expected.accepted ? expected.error : InputFile_ReadFail);
    if (std::string found = Difference(Document(), expected.structure); !found.empty()) walk.Expect(false, found);
    walk.Expect(file.Structure_Label() == expected.texts.Label && file.Structure_Notes() == expected.texts.Notes,
                "label or notes");
}

// What stands behind a refusal is whatever the file has there.
void ReadOn(MemberWalk& walk)
{
    const ReturnStatus status = walk.File().InputStructureFile(u"");
    const ErrorStatusTypes error = walk.File().ErrorStatus();
    walk.Expect(error == NoError ? status == Success : error == InputFile_ReadFail, "the error status");
}

void LoadNothing(MemberWalk& walk)
{
    const bool blank = walk.in.Byte() % 2 == 0;
    walk.Expect(walk.File().InputStructureFile(blank ? u"  " : u"/no such folder/a") == Success, "the result");
    walk.Expect(IsEmpty(walk.File()), "elements of no file");
    walk.ExpectError(NoError);
}

void Save(MemberWalk& walk)
{
    clsQOR_File& file = walk.File();
    if (std::ranges::any_of(Kinds, [&](const Kind& kind) { return kind.count(file) > 2000; })) return;
    const StructureTexts texts{file.Structure_Label(), file.Structure_Notes()};
    const auto path = walk.Path("a.str");
    walk.Expect(file.OutputStructureFile(Utf16(path)) == Success, "the result");
    walk.ExpectError(NoError);
    walk.savedStructure = BytesOf(path);
    walk.Expect(walk.savedStructure == SavedBytes(Document(), texts), "the bytes of the file");
    // What no file can tell, as a point type that is none, has gone by then: from there on the bytes stay the same.
    LoadedStructure again;
    std::string found = ReadingBackDifference(walk.savedStructure, Document(), texts, again);
    if (found.empty()) found = SavingDifference(again.structure, again.texts);
    if (!found.empty()) walk.Expect(false, found);
}

void SaveNowhere(MemberWalk& walk)
{
    walk.Expect(walk.File().OutputStructureFile(u"/no such folder/a") == Failure, "the result");
    walk.ExpectError(NoError);
}

constexpr Operation Operations[] = {
    {"numbers of elements", SetCount},
    {"InitializeStructureStorage", InitializeStorage},
    {"texts of the Structure", SetTexts},
    {"vertex points", AccessPoint},
    {"information of vertex points", StoreInformation},
    {"axes of vertex points", AccessTransform},
    {"arrays of coordinates", AccessArrays},
    {"joining elements", AccessJoining},
    {"InputStructureFile", Load},
    {"InputStructureFile of nothing", LoadNothing},
    {"InputStructureFile of the rest", ReadOn},
    {"OutputStructureFile", Save},
    {"OutputStructureFile to nowhere", SaveNowhere},
};

} // namespace

std::span<const Operation> StructureOperations() { return Operations; }

} // namespace qor::test
