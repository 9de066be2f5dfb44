// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Whole arrays beside single elements: after any preparation, by two objects and by damaged files, a call with arrays
// shows and leaves what the published members do for all numbers in order. Each way runs on a thread of its own.
#include "component/DataBlockAccess.h"
#include "component/modQOR_File.h"
#include "structure/StructureFile.h"
#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/FileArrays.h>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <vector>

namespace qor::test {
namespace {

// ---- preparation -----------------------------------------------------------------------------------------------

enum class Step {
    Traces,
    Samples,
    Format,
    Spacing,
    Axis,
    WriteSample,
    WriteX,
    Shapes,
    DOFs,
    WriteValue,
    Points,
    WritePoint,
    WriteTransform,
    LoadDataBlock,
    LoadStructure,
};

struct Preparation {
    Step step = Step::Traces;
    std::size_t object = 0;
    std::int32_t a = 0;
    std::int32_t b = 0;
    float x = 0;
    float y = 0;
};

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

enum class Member { ReadSamples, WriteSamples, ReadPoints, WritePoints, ReadX, WriteX, ReadValues, WriteValues };

struct Call {
    Member member = Member::ReadSamples;
    std::int32_t object = 0; // 2: by arrays of no object, samples and points only
    std::int32_t number = 1;
    std::array<std::int32_t, 3> offBy{}; // what the lengths differ by
    bool withoutSecond = false;
    std::vector<float> values;
};

// The arrays of a call: filled with its values, cut to their lengths.
struct Arrays {
    std::vector<float> first;
    std::vector<float> second;
    std::vector<float> third;

    std::array<std::vector<float>*, 3> All() { return {&first, &second, &third}; }
};

Arrays ArraysFor(const Call& call, std::int32_t count)
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

std::int32_t CountFor(Member member, const clsQOR_File& file)
{
    switch (member) {
    case Member::ReadSamples:
    case Member::WriteSamples:
    case Member::ReadX:
    case Member::WriteX: return file.DataBlock_NumberOfSamples();
    case Member::ReadValues:
    case Member::WriteValues: return file.ShapeTable_NumberOfDOFs();
    default: return file.Structure_NumberOfVertexPoints();
    }
}

ReturnStatus InOnePiece(FileArrays file, const Call& call, Arrays& arrays)
{
    switch (call.member) {
    case Member::ReadSamples: return file.ReadTraceSamples(call.number, arrays.first, arrays.second);
    case Member::WriteSamples: return file.WriteTraceSamples(call.number, arrays.first, arrays.second);
    case Member::ReadX: return file.ReadDataBlockXaxisValues(arrays.first);
    case Member::WriteX: return file.WriteDataBlockXaxisValues(arrays.first);
    case Member::ReadValues: return file.ReadShapeDOFvalues(call.number, arrays.first, arrays.second);
    case Member::WriteValues: return file.WriteShapeDOFvalues(call.number, arrays.first, arrays.second);
    case Member::ReadPoints: return file.ReadStructureVertexPointCoordinates(arrays.first, arrays.second, arrays.third);
    default: return file.WriteStructureVertexPointCoordinates(arrays.first, arrays.second, arrays.third);
    }
}

// One element by the published member, the values being those of the arrays at that place.
ReturnStatus One(clsQOR_File& file, const Call& call, std::int32_t n, float& first, float& second, float& third)
{
    std::u16string label;
    std::int32_t color = 0;
    Bool16 bold;
    float unused = 0;
    switch (call.member) {
    case Member::ReadSamples: return file.ReadTraceSampleValue(call.number, n, first, second);
    case Member::WriteSamples: return file.WriteTraceSampleValue(call.number, n, first, second);
    case Member::ReadX: return file.ReadDataBlockXaxisValue(n, first);
    case Member::WriteX: return file.WriteDataBlockXaxisValue(n, first);
    case Member::ReadValues: return file.ReadShapeDOFvalue(call.number, n, first, second);
    case Member::WriteValues: return file.WriteShapeDOFvalue(call.number, n, first, second);
    case Member::ReadPoints: return file.ReadStructureVertexPoint(n, label, first, second, third, color, bold);
    default:
        if (n >= 1 && n <= file.Structure_NumberOfVertexPoints()) {
            file.ReadStructureVertexPoint(n, label, unused, unused, unused, color, bold);
        }
        return file.WriteStructureVertexPoint(n, label, first, second, third, color, bold);
    }
}

ReturnStatus OneByOne(clsQOR_File& file, const Call& call, Arrays& arrays)
{
    const std::int32_t count = std::max(CountFor(call.member, file), 0);
    const auto isWhole = [&](const std::vector<float>& array) { return std::cmp_equal(array.size(), count); };
    const bool points = call.member == Member::ReadPoints || call.member == Member::WritePoints;
    const bool onlyFirst = call.member == Member::ReadX || call.member == Member::WriteX;
    const bool whole = isWhole(arrays.first) && (points ? isWhole(arrays.second) && isWhole(arrays.third)
                                                        : onlyFirst || arrays.second.empty() || isWhole(arrays.second));
    float dropped = 0;
    if (call.member == Member::ReadX && count > 0 && file.DataBlock_XaxisSpacing() == XaxisSpacing_Uniform) {
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

using Seen = std::vector<std::int64_t>;

void Add(Seen& seen, std::span<const float> values)
{
    seen.push_back(std::ssize(values));
    for (const float value : values) seen.push_back(Bits(value));
}

void AddDocuments(Seen& seen)
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

void AddErrors(Seen& seen, Scene& scene)
{
    seen.push_back(modQOR_File().SharedErrorStatus);
    for (clsQOR_File& file : scene.objects) {
        const std::u16string text = file.GetLastErrorString();
        seen.insert(seen.end(), text.begin(), text.end());
        seen.push_back(file.ErrorStatus());
    }
}

using Way = ReturnStatus (*)(Scene&, const Call&, Arrays&);

ReturnStatus InOnePiece(Scene& scene, const Call& call, Arrays& arrays)
{
    return call.object == 2
               ? InOnePiece(FileArrays(), call, arrays)
               : InOnePiece(FileArrays(scene.objects[static_cast<std::size_t>(call.object)]), call, arrays);
}

ReturnStatus OneByOne(Scene& scene, const Call& call, Arrays& arrays)
{
    if (call.object < 2) return OneByOne(scene.objects[static_cast<std::size_t>(call.object)], call, arrays);
    // The onlooker has chosen no format and so sees what is stored; its errors count as shared.
    const ReturnStatus status = OneByOne(scene.onlooker, call, arrays);
    if (const ErrorStatusTypes error = scene.onlooker.ErrorStatus(); error != NoError) {
        modQOR_File().SharedErrorStatus = error;
    }
    return status;
}

Seen SeenAfter(const std::vector<Preparation>& preparations, const Call& call, Way way)
{
    Seen seen;
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

// ---- generators ------------------------------------------------------------------------------------------------

rc::Gen<float> AnyFloat()
{
    using Limits = std::numeric_limits<float>;
    return rc::gen::element(0.0F, -0.0F, 1.0F, -1.0F, 2.5F, 3.0F, 90.0F, 359.75F, -1e-20F, 1e-45F, 1e30F, 3.4e38F,
                            Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -Limits::quiet_NaN());
}

rc::Gen<Preparation> AnyPreparation()
{
    const auto step = rc::gen::map(rc::gen::inRange(0, static_cast<int>(Step::LoadStructure) + 1),
                                   [](int index) { return static_cast<Step>(index); });
    return rc::gen::build<Preparation>(
        rc::gen::set(&Preparation::step, step),
        rc::gen::set(&Preparation::object, rc::gen::element<std::size_t>(0, 0, 0, 1)),
        rc::gen::set(&Preparation::a, rc::gen::oneOf(rc::gen::inRange(1, 4), rc::gen::inRange(-1, 9))),
        rc::gen::set(&Preparation::b, rc::gen::inRange(1, 4)), rc::gen::set(&Preparation::x, AnyFloat()),
        rc::gen::set(&Preparation::y, AnyFloat()));
}

rc::Gen<Call> AnyCall()
{
    const auto member = rc::gen::map(rc::gen::inRange(0, static_cast<int>(Member::WriteValues) + 1),
                                     [](int index) { return static_cast<Member>(index); });
    const auto off = rc::gen::weightedElement<std::int32_t>({{12, 0}, {1, -1}, {1, 1}});
    return rc::gen::suchThat(
        rc::gen::build<Call>(
            rc::gen::set(&Call::member, member), rc::gen::set(&Call::object, rc::gen::inRange(0, 3)),
            rc::gen::set(&Call::number, rc::gen::weightedOneOf<std::int32_t>(
                                            {{6, rc::gen::inRange(1, 3)}, {1, rc::gen::inRange(-1, 9)}})),
            rc::gen::set(&Call::offBy, rc::gen::container<std::array<std::int32_t, 3>>(off)),
            rc::gen::set(&Call::withoutSecond, rc::gen::weightedElement<bool>({{3, false}, {1, true}})),
            rc::gen::set(&Call::values, rc::gen::container<std::vector<float>>(7, AnyFloat()))),
        [](const Call& call) { return call.object < 2 || call.member <= Member::WritePoints; });
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

RC_GTEST_PROP(FileArrays, ShowAndLeaveWhatTheMembersForOneElementDo, ())
{
    auto preparations = Filled();
    const auto drawn = *rc::gen::container<std::vector<Preparation>>(AnyPreparation());
    preparations.insert(preparations.end(), drawn.begin(), drawn.end());
    const Call call = *AnyCall();

    const Seen inOnePiece = SeenAfter(preparations, call, InOnePiece);

    RC_ASSERT(inOnePiece == SeenAfter(preparations, call, OneByOne));
}

} // namespace
} // namespace qor::test
