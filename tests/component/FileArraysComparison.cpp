// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/FileArraysComparison.h"

#include "component/DataBlockAccess.h"
#include "component/modQOR_File.h"
#include "structure/StructureFile.h"
#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/FileArrays.h>

#include <algorithm>

namespace qor::test {
namespace {

// ---- preparation -----------------------------------------------------------------------------------------------

// Files whose arrays are not as their counts say, or of a format that is none.
Bytes DamagedDataBlock(std::int32_t which)
{
    const auto traces = [](int format, std::initializer_list<float> samples) {
        return SizedFile(3, 3, format)
            .Field(11)
            .Nested(TraceBytes().Field(17, Floats(samples)))
            .Nested(TraceBytes())
            .Field(12);
    };
    switch (which) {
    case 0: return traces(1, {1, 2, 3}).Field(4, Int32(5)).Build();
    case 1: return traces(2, {1, 2, 3, -4, -5, 6}).Field(4, Int32(5)).Build();
    case 2: return traces(1, {1, 2, 3}).Field(4, Int32(2)).Build();
    case 3: return traces(2, {1, 2, 3, 4, 5, 6}).Field(4, Int32(2)).Build();
    case 4: return traces(1, {1, 2, 3}).Field(20, Int16(2)).Build();
    case 5: return traces(4, {1, 2, 3}).Build();
    case 6: return SizedFile(1, 3).Field(6, Int16(2)).Field(10, Floats({1, 2, 3})).Field(4, Int32(5)).Build();
    case 7: return SizedFile(1, 3).Field(6, Int16(3)).Field(10, Floats({1, 2, 3})).Field(4, Int32(2)).Build();
    default: return traces(2, {1, 2, 3, 4, 5, 6}).Field(4, Int32(-2)).Build();
    }
}

Bytes StructureWithLabels()
{
    const auto point = [](std::u16string_view label) {
        return VertexBytes().Field(7, Text(label)).Field(4, Int32(7)).Field(5, Int16(-1)).Build();
    };
    return StructureFile()
        .Record(SubStructureOf(point(u"  two blanks") + VertexBytes().Build() + point(u"a") +
                               point(u"twenty-five letters here!")))
        .Build();
}

// One thread's documents, with two objects that work on them and one that has only looked at them.
class Scene
{
public:
    void Prepare(const Preparation& p)
    {
        clsQOR_File& file = objects[p.object];
        switch (p.step) {
        case Step::Traces: file.DataBlock_NumberOfTraces(p.a); return;
        case Step::Samples: file.DataBlock_NumberOfSamples(p.a); return;
        case Step::Format: file.DataBlock_TraceDataFormat(static_cast<DataBlock_DataFormatTypes>(p.a)); return;
        case Step::Spacing: file.DataBlock_XaxisSpacing(static_cast<DataBlock_XaxisSpacingTypes>(p.a)); return;
        case Step::Axis:
            file.DataBlock_XaxisStart(p.x);
            file.DataBlock_XaxisIncrement(p.y);
            return;
        case Step::WriteSample: file.WriteTraceSampleValue(p.a, p.b, p.x, p.y); return;
        case Step::WriteX: file.WriteDataBlockXaxisValue(p.a, p.x); return;
        case Step::Shapes: file.ShapeTable_NumberOfShapes(p.a); return;
        case Step::DOFs: file.ShapeTable_NumberOfDOFs(p.a); return;
        case Step::WriteValue: file.WriteShapeDOFvalue(p.a, p.b, p.x, p.y); return;
        case Step::Points: file.Structure_NumberOfVertexPoints(p.a); return;
        case Step::WritePoint:
            if (p.a > 0) file.WriteStructureVertexPoint(p.a, u" label", p.x, p.y, p.x, p.b, Bool16::Raw(5));
            return;
        case Step::WriteTransform: file.WriteStructureVertexPointTransform(p.a, Yaxis, p.x, p.y, p.y); return;
        case Step::LoadDataBlock: file.InputDataBlockFile(Put(DamagedDataBlock(p.a))); return;
        case Step::LoadStructure: file.InputStructureFile(Put(StructureWithLabels())); return;
        }
    }

    std::array<clsQOR_File, 2> objects;
    clsQOR_File onlooker;

private:
    std::u16string Put(const Bytes& bytes)
    {
        WriteBytes(folder_ / "file", bytes);
        return Utf16(folder_ / "file");
    }

    TemporaryFolder folder_;
};

// ---- calls -----------------------------------------------------------------------------------------------------

// The arrays of a call: filled with its values, cut to their lengths.
struct Arrays {
    std::vector<float> first;
    std::vector<float> second;
    std::vector<float> third;

    std::array<std::vector<float>*, 3> All() { return {&first, &second, &third}; }
};

Arrays ArraysFor(const ArraysCall& call, std::int32_t count)
{
    Arrays arrays;
    std::size_t next = 0;
    std::size_t which = 0;
    for (std::vector<float>* const array : arrays.All()) {
        array->resize(static_cast<std::size_t>(std::max(count + call.offBy[which++], 0)));
        for (float& value : *array) value = call.values[next++ % call.values.size()];
    }
    if (call.withoutSecond) arrays.second.clear();
    return arrays;
}

std::int32_t CountFor(ArraysMember member, const clsQOR_File& file)
{
    switch (member) {
    case ArraysMember::ReadSamples:
    case ArraysMember::WriteSamples:
    case ArraysMember::ReadX:
    case ArraysMember::WriteX: return file.DataBlock_NumberOfSamples();
    case ArraysMember::ReadValues:
    case ArraysMember::WriteValues: return file.ShapeTable_NumberOfDOFs();
    default: return file.Structure_NumberOfVertexPoints();
    }
}

ReturnStatus InOnePiece(FileArrays file, const ArraysCall& call, Arrays& arrays)
{
    switch (call.member) {
    case ArraysMember::ReadSamples: return file.ReadTraceSamples(call.number, arrays.first, arrays.second);
    case ArraysMember::WriteSamples: return file.WriteTraceSamples(call.number, arrays.first, arrays.second);
    case ArraysMember::ReadX: return file.ReadDataBlockXaxisValues(arrays.first);
    case ArraysMember::WriteX: return file.WriteDataBlockXaxisValues(arrays.first);
    case ArraysMember::ReadValues: return file.ReadShapeDOFvalues(call.number, arrays.first, arrays.second);
    case ArraysMember::WriteValues: return file.WriteShapeDOFvalues(call.number, arrays.first, arrays.second);
    case ArraysMember::ReadPoints:
        return file.ReadStructureVertexPointCoordinates(arrays.first, arrays.second, arrays.third);
    default: return file.WriteStructureVertexPointCoordinates(arrays.first, arrays.second, arrays.third);
    }
}

// One element by the published member, the values being those of the arrays at that place.
ReturnStatus One(clsQOR_File& file, const ArraysCall& call, std::int32_t n, float& first, float& second, float& third)
{
    std::u16string label;
    std::int32_t color = 0;
    Bool16 bold;
    float unused = 0;
    switch (call.member) {
    case ArraysMember::ReadSamples: return file.ReadTraceSampleValue(call.number, n, first, second);
    case ArraysMember::WriteSamples: return file.WriteTraceSampleValue(call.number, n, first, second);
    case ArraysMember::ReadX: return file.ReadDataBlockXaxisValue(n, first);
    case ArraysMember::WriteX: return file.WriteDataBlockXaxisValue(n, first);
    case ArraysMember::ReadValues: return file.ReadShapeDOFvalue(call.number, n, first, second);
    case ArraysMember::WriteValues: return file.WriteShapeDOFvalue(call.number, n, first, second);
    case ArraysMember::ReadPoints: return file.ReadStructureVertexPoint(n, label, first, second, third, color, bold);
    default:
        if (n >= 1 && n <= file.Structure_NumberOfVertexPoints()) {
            file.ReadStructureVertexPoint(n, label, unused, unused, unused, color, bold);
        }
        return file.WriteStructureVertexPoint(n, label, first, second, third, color, bold);
    }
}

ReturnStatus OneByOne(clsQOR_File& file, const ArraysCall& call, Arrays& arrays)
{
    const std::int32_t count = std::max(CountFor(call.member, file), 0);
    const auto isWhole = [&](const std::vector<float>& array) { return std::cmp_equal(array.size(), count); };
    const bool points = call.member == ArraysMember::ReadPoints || call.member == ArraysMember::WritePoints;
    const bool onlyFirst = call.member == ArraysMember::ReadX || call.member == ArraysMember::WriteX;
    const bool whole = isWhole(arrays.first) && (points ? isWhole(arrays.second) && isWhole(arrays.third)
                                                        : onlyFirst || arrays.second.empty() || isWhole(arrays.second));
    float dropped = 0;
    if (call.member == ArraysMember::ReadX && count > 0 && file.DataBlock_XaxisSpacing() == XaxisSpacing_Uniform) {
        if (!whole) {
            file.ErrorStatus(SampleIndexError);
            return Failure;
        }
        for (std::int32_t i = 0; i < count; ++i) {
            arrays.first[static_cast<std::size_t>(i)] =
                static_cast<float>(double{file.DataBlock_XaxisStart()} + i * double{file.DataBlock_XaxisIncrement()});
        }
        return Success;
    }
    // A wrong length is the number behind the last one.
    if (!whole || count == 0) return One(file, call, count + 1, dropped, dropped, dropped);
    for (std::int32_t n = 1; n <= count; ++n) {
        const auto place = static_cast<std::size_t>(n - 1);
        dropped = 0;
        float& second = onlyFirst || arrays.second.empty() ? dropped : arrays.second[place];
        float& third = points ? arrays.third[place] : dropped;
        if (One(file, call, n, arrays.first[place], second, third) == Failure) return Failure;
    }
    return Success;
}

// ---- what is seen afterwards -------------------------------------------------------------------------------------

using SeenArrays = std::vector<std::int64_t>;

void Add(SeenArrays& seen, std::span<const float> values)
{
    seen.push_back(std::ssize(values));
    for (const float value : values) seen.push_back(Bits(value));
}

void AddDocuments(SeenArrays& seen)
{
    const ThreadDocuments& documents = modQOR_File();
    const DataBlock& block = documents.DataBlock;
    for (std::int32_t number = 1; number <= block.Traces.Count(); ++number) {
        Add(seen, block.Traces[number].RealSamples.Values());
        for (const ComplexSample& sample : block.Traces[number].ComplexSamples.Values()) {
            Add(seen, std::array{sample.real, sample.imaginary});
        }
    }
    Add(seen, block.Xaxis.Values());
    if (const auto& values = documents.ShapeTable.ShapeValues) {
        for (std::int32_t shape = 1; shape <= values->Shapes(); ++shape) {
            for (std::int32_t dof = 1; dof <= values->DOFs(); ++dof) {
                Add(seen, std::array{values->At(shape, dof).Magnitude, values->At(shape, dof).Phase});
            }
        }
    }
    for (std::int32_t number = 1; number <= documents.Structure.VertexPoints.Count(); ++number) {
        const VertexPoint& point = documents.Structure.VertexPoints[number];
        seen.insert(seen.end(), point.Label.begin(), point.Label.end());
        Add(seen, std::array{point.Xcoord, point.Ycoord, point.Zcoord});
        Add(seen, point.AxisEnd);
        seen.insert(seen.end(), {point.Color, point.Bold.value});
    }
}

void AddErrors(SeenArrays& seen, Scene& scene)
{
    seen.push_back(modQOR_File().SharedErrorStatus);
    for (clsQOR_File& file : scene.objects) {
        const std::u16string text = file.GetLastErrorString();
        seen.insert(seen.end(), text.begin(), text.end());
        seen.push_back(file.ErrorStatus());
    }
}

using Way = ReturnStatus (*)(Scene&, const ArraysCall&, Arrays&);

ReturnStatus InOnePiece(Scene& scene, const ArraysCall& call, Arrays& arrays)
{
    return call.object == 2
               ? InOnePiece(FileArrays(), call, arrays)
               : InOnePiece(FileArrays(scene.objects[static_cast<std::size_t>(call.object)]), call, arrays);
}

ReturnStatus OneByOne(Scene& scene, const ArraysCall& call, Arrays& arrays)
{
    if (call.object < 2) return OneByOne(scene.objects[static_cast<std::size_t>(call.object)], call, arrays);
    // The onlooker has chosen no format and so sees what is stored; its errors count as shared.
    const ReturnStatus status = OneByOne(scene.onlooker, call, arrays);
    if (const ErrorStatusTypes error = scene.onlooker.ErrorStatus(); error != NoError) {
        modQOR_File().SharedErrorStatus = error;
    }
    return status;
}

SeenArrays SeenAfter(const std::vector<Preparation>& preparations, const ArraysCall& call, Way way)
{
    SeenArrays seen;
    OnAThreadOfItsOwn([&] {
        Scene scene;
        for (const Preparation& preparation : preparations) scene.Prepare(preparation);
        modQOR_File().SharedErrorStatus = NoError;
        for (clsQOR_File& file : scene.objects) file.ErrorStatus();
        clsQOR_File& asker = call.object == 2 ? scene.onlooker : scene.objects[static_cast<std::size_t>(call.object)];
        Arrays arrays = ArraysFor(call, CountFor(call.member, asker));
        seen.push_back(way(scene, call, arrays));
        for (const std::vector<float>* const array : arrays.All()) Add(seen, *array);
        AddErrors(seen, scene);
        AddDocuments(seen);
    });
    return seen;
}

// What is prepared before the steps that are drawn: documents that most calls find something in.
std::vector<Preparation> Filled()
{
    std::vector<Preparation> steps = {
        {Step::Traces, 0, 2}, {Step::Samples, 0, 3}, {Step::Shapes, 0, 2}, {Step::DOFs, 0, 3}, {Step::Points, 0, 3}};
    for (std::int32_t n = 1; n <= 3; ++n) {
        const auto value = static_cast<float>(n);
        steps.push_back({Step::WriteSample, 0, 1, n, value, -value});
        steps.push_back({Step::WriteValue, 0, 1, n, value, -value});
        steps.push_back({Step::WritePoint, 0, n, n, value, -value});
        steps.push_back({Step::WriteTransform, 0, n, n, value, -value});
    }
    return steps;
}

} // namespace

bool ArraysShowTheSame(const std::vector<Preparation>& preparations, const ArraysCall& call)
{
    std::vector<Preparation> steps = Filled();
    steps.insert(steps.end(), preparations.begin(), preparations.end());
    return SeenAfter(steps, call, InOnePiece) == SeenAfter(steps, call, OneByOne);
}

} // namespace qor::test
