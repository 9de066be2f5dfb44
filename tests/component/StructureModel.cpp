// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/StructureModel.h"

#include "structure/StructureFile.h"

#include <algorithm>
#include <bit>
#include <map>
#include <stdexcept>

namespace qor::test {
namespace {

constexpr std::int32_t MoreThanMemoryHolds = 100'000'000;

std::int64_t FloatBits(float value) { return std::bit_cast<std::uint32_t>(value); }

std::u16string TextOfCode(std::int32_t code)
{
    static const std::map<std::int32_t, std::string> texts = {
        {9, "Output file read error"},       {11, "Sample Index error"},      {14, "Axis Number error"},
        {15, "Invalid Center Point error"},  {30, "VertexPoint Index error"}, {32, "EdgeLine Index error"},
        {34, "SurfaceTriangle Index error"},
    };
    const auto found = texts.find(code);
    const std::string text =
        "Error (" + std::to_string(code) + "): " + (found == texts.end() ? "Undefined error" : found->second);
    return {text.begin(), text.end()};
}

std::u16string WithoutOuterBlanks(std::u16string text)
{
    while (!text.empty() && text.front() == u' ') text.erase(0, 1);
    while (!text.empty() && text.back() == u' ') text.pop_back();
    return text;
}

std::int32_t Low16(std::int32_t value) { return static_cast<std::int16_t>(value); }
std::int32_t ZeroUnless16(std::int32_t value) { return value == Low16(value) ? value : 0; }
std::int32_t Truth(std::int32_t value) { return Low16(value) != 0 ? -1 : 0; }
std::int32_t TypeOr0(std::int32_t value) { return value >= 0 && value <= 3 ? value : 0; }
std::int32_t AxisOr2(std::int32_t value) { return value >= 0 && value <= 2 ? value : 2; }

std::u16string In20(std::u16string text)
{
    text.resize(20, u' ');
    return text;
}

std::string Narrow(std::u16string_view text)
{
    std::string narrow;
    for (const char16_t c : text) narrow += static_cast<char>(c);
    return narrow;
}

RecordBytes JoiningBytes(std::size_t kind) { return RecordBytes(kind == 0 ? 0x0200 : kind == 1 ? 0x0300 : 0x1E00); }
int WideTag(std::size_t kind) { return kind == 0 ? 7 : 8; }
int ExtraTag(std::size_t kind) { return kind == 0 ? 6 : 7; }

// Of a file that is accepted.
std::int32_t VersionFor(const StructureCall& call)
{
    constexpr std::int32_t versions[] = {8, 10, 12, 13, 15};
    return versions[static_cast<std::uint32_t>(call.number) % std::size(versions)];
}

// Of the two colours the second is read where an unknown tag is a single word.
Bytes VertexOfTwoColours() { return VertexBytes().Field(4, Int32(1)).Field(200).Field(4, Int32(2)).Build(); }

} // namespace

// ---- files ---------------------------------------------------------------------------------------------------

LoadedFile FileOf(const StructureCall& call)
{
    if (call.kind == 0) return LoadedFile::Saved;
    if (call.kind < 3) return LoadedFile::Accepted;
    if (call.number < 1) return LoadedFile::Missing;
    return call.number % 2 == 0 ? LoadedFile::TooNew : LoadedFile::NoPreamble;
}

// What the file of an accepted call holds, as reading brings it.
StructureModel::Content StructureModel::AcceptedContent(const StructureCall& call)
{
    Content content;
    content.version = VersionFor(call);
    content.label = TextFor(call.value);
    content.notes = TextFor(call.value + 1);
    content.endMarker = call.kind == 1;
    const std::int32_t count = std::clamp(call.number, 0, 3);
    for (std::int32_t i = 0; i < count; ++i) {
        ModelVertex vertex;
        vertex.label = i == 1 ? std::u16string(20, u'\0') : In20(LabelFor(call.value + i));
        vertex.place = {call.x, call.x + 1, call.x + 2};
        vertex.color = call.value - i;
        vertex.bold = Truth(call.value + i);
        vertex.center = i == 0 ? Low16(call.value) : call.value;
        vertex.pointType = TypeOr0(call.other);
        vertex.normalAxis = AxisOr2(call.other + i);
        vertex.area = call.x;
        vertex.axes = {{{call.x, 2, 3}, {4, 5, 6}, {7, 8, call.x}}};
        vertex.extra = call.value + 100;
        content.vertices.push_back(vertex);
    }
    for (std::size_t kind = 0; kind < 3; ++kind) {
        for (std::int32_t i = 0; i < count - 1; ++i) {
            ModelJoining element;
            for (std::size_t corner = 0; corner < kind + 2; ++corner) {
                const std::int32_t number = call.value + static_cast<std::int32_t>(corner);
                element.corners[corner] = i == 0 ? Low16(number) : number;
            }
            element.color = call.other;
            element.bold = Truth(call.other);
            element.extra = call.value - 100;
            content.joining[kind].push_back(element);
        }
    }
    return content;
}

// Fields in another order than the writer's, the first element of each kind with narrow numbers, edge lines in a run
// inside the last vertex point, triangles at the top level.
Bytes BytesFor(const StructureCall& call)
{
    if (FileOf(call) == LoadedFile::TooNew) {
        return StructureFile().Version(16).Raw(VertexOfTwoColours()).Build();
    }
    if (FileOf(call) == LoadedFile::NoPreamble) return Bytes(204, 'x') + VertexOfTwoColours() + Hex("AA AA");

    const auto text = [&](std::u16string_view value) {
        return VersionFor(call) < 11 ? OldText(Narrow(value)) : Text(value);
    };
    const std::int32_t count = std::clamp(call.number, 0, 3);
    std::array<Bytes, 3> joining;
    for (std::size_t kind = 0; kind < 3; ++kind) {
        for (std::int32_t i = 0; i < count - 1; ++i) {
            Bytes corners;
            for (std::int32_t corner = 0; corner < static_cast<std::int32_t>(kind) + 2; ++corner) {
                corners += i == 0 ? Int16(call.value + corner) : Int32(std::int64_t{call.value} + corner);
            }
            joining[kind] += JoiningBytes(kind)
                                 .Field(4, Int16(call.other))
                                 .Field(3, Int32(call.other))
                                 .Field(ExtraTag(kind), Int32(call.value - 100))
                                 .Field(i == 0 ? 2 : WideTag(kind), corners)
                                 .Build();
        }
    }
    Bytes vertices;
    for (std::int32_t i = 0; i < count; ++i) {
        RecordBytes vertex = VertexBytes();
        if (i == count - 1) vertex.Field(9).Raw(joining[0]).Field(14);
        vertex.Field(67, Float(call.x)).Field(22, Int16(call.other)).Field(68, Int16(call.other + i));
        if (i != 1) vertex.Field(7, text(LabelFor(call.value + i)));
        vertex.Field(23, Floats({call.x, 4, 7, 2, 5, 8, 3, 6, call.x}))
            .Field(5, Int16(call.value + i))
            .Field(4, Int32(call.value - i))
            .Field(83, Int32(call.value + 100))
            .Field(2, Floats({call.x, call.x + 1, call.x + 2}))
            .Field(i == 0 ? 3 : 84, i == 0 ? Int16(call.value) : Int32(call.value));
        vertices += vertex.Build();
    }
    StructureFile file;
    file.Version(VersionFor(call))
        .Record(SubStructureBytes().Field(3).Raw(vertices + joining[2]).Field(4).Field(2, text(TextFor(call.value))))
        .Raw(joining[1])
        .Record(NotesBytes().Field(6, text(TextFor(call.value + 1))));
    if (call.kind == 2) file.WithoutEndMarker();
    return file.Build();
}

// The Structure with an object's texts, as the writer lays it out.
Bytes StructureModel::SavedBytes(const Object& object) const
{
    const auto number = [&](std::int32_t value) { return large_ ? Int32(value) : Int16(ZeroUnless16(value)); };
    Bytes elements;
    for (std::size_t i = 0; i < vertices_.size(); ++i) {
        const ModelVertex& vertex = vertices_[i];
        RecordBytes record = VertexBytes();
        record.Field(large_ ? 85 : 1, number(static_cast<std::int32_t>(i + 1)));
        if (large_) record.Field(83, Int32(vertex.extra));
        record.Field(2, Floats({vertex.place[0], vertex.place[1], vertex.place[2]}));
        record.Field(4, Int32(vertex.color)).Field(5, Int16(vertex.bold));
        const std::u16string label = WithoutOuterBlanks(vertex.label);
        if (!label.empty()) record.Field(7, Text(label));
        const std::int32_t center = large_ ? vertex.center : ZeroUnless16(vertex.center);
        if (center > 0 && center <= std::ssize(vertices_)) record.Field(large_ ? 84 : 3, number(center));
        record.Field(22, Int16(ZeroUnless16(vertex.pointType)));
        Bytes axes;
        for (std::size_t component = 0; component < 3; ++component) {
            for (const auto& axis : vertex.axes) axes += Float(axis[component]);
        }
        record.Field(23, axes).Field(67, Float(vertex.area)).Field(68, Int16(ZeroUnless16(vertex.normalAxis)));
        elements += record.Build();
    }
    for (std::size_t kind = 0; kind < 3; ++kind) {
        for (const ModelJoining& element : joining_[kind]) {
            Bytes corners;
            for (std::size_t i = 0; i < kind + 2; ++i) corners += number(element.corners[i]);
            RecordBytes record = JoiningBytes(kind);
            record.Field(large_ ? WideTag(kind) : 2, corners);
            if (large_) record.Field(ExtraTag(kind), Int32(element.extra));
            elements += record.Field(3, Int32(element.color)).Field(4, Int16(element.bold)).Build();
        }
    }
    RecordBytes record = SubStructureBytes();
    record.Field(1, Int16(1));
    const std::u16string label = WithoutOuterBlanks(object.label);
    if (!label.empty()) record.Field(2, Text(label));
    if (!vertices_.empty()) record.Field(3).Raw(elements).Field(4);
    StructureFile file;
    file.Version(large_ ? 15 : 12);
    const std::u16string notes = WithoutOuterBlanks(object.notes);
    if (!notes.empty()) file.Record(NotesBytes().Field(6, Text(notes)));
    return file.Record(record).Build();
}

// What reading those bytes brings.
StructureModel::Content StructureModel::SavedContent(const Object& object) const
{
    Content content;
    content.version = large_ ? 15 : 12;
    content.label = WithoutOuterBlanks(object.label);
    content.notes = WithoutOuterBlanks(object.notes);
    if (vertices_.empty()) return content;
    const auto number = [&](std::int32_t value) { return large_ ? value : ZeroUnless16(value); };
    for (ModelVertex vertex : vertices_) {
        const std::u16string label = WithoutOuterBlanks(vertex.label);
        vertex.label = label.empty() ? std::u16string(20, u'\0') : In20(label);
        vertex.bold = Truth(vertex.bold);
        vertex.center = number(vertex.center);
        if (vertex.center < 0 || vertex.center > std::ssize(vertices_)) vertex.center = 0;
        vertex.pointType = TypeOr0(ZeroUnless16(vertex.pointType));
        vertex.normalAxis = AxisOr2(ZeroUnless16(vertex.normalAxis));
        if (!large_) vertex.extra = 0;
        content.vertices.push_back(vertex);
    }
    content.joining = joining_;
    for (auto& list : content.joining) {
        for (ModelJoining& element : list) {
            for (std::int32_t& corner : element.corners) corner = number(corner);
            element.bold = Truth(element.bold);
            if (!large_) element.extra = 0;
        }
    }
    return content;
}

Seen StructureModel::Save(const StructureCall& call)
{
    Object& object = objects_[call.object];
    if (call.number == 0) return {{-1}, {}};
    object.readOns.reset();
    Seen seen = {{0}, {}};
    for (const std::uint8_t byte : SavedBytes(object)) seen.numbers.push_back(byte);
    saved_ = SavedContent(object);
    return seen;
}

void StructureModel::Load(const Content& content, const StructureCall& call)
{
    Object& object = objects_[call.object];
    large_ = content.version >= 13;
    object.version = content.version;
    vertices_ = content.vertices;
    joining_ = content.joining;
    if (object.label.empty()) object.label = content.label;
    // The writer leaves empty notes out.
    if (FileOf(call) == LoadedFile::Accepted || !content.notes.empty()) object.notes = content.notes;
    if (!content.endMarker) Fail(call, 9);
}

Seen StructureModel::LoadFile(const StructureCall& call)
{
    Object& object = objects_[call.object];
    Empty();
    object.readOns.reset();
    switch (FileOf(call)) {
    case LoadedFile::Missing: break;
    case LoadedFile::Saved:
        if (saved_) Load(*saved_, call);
        break;
    case LoadedFile::Accepted: Load(AcceptedContent(call), call); break;
    case LoadedFile::TooNew:
        object.version = 16;
        object.readOns = 0;
        return Fail(call, 9);
    case LoadedFile::NoPreamble: object.readOns = 0; return Fail(call, 9);
    }
    return {{0}, {}};
}

Seen StructureModel::ReadOn(const StructureCall& call)
{
    Object& object = objects_[call.object];
    if (!object.readOns) return {{0}, {}};
    if (*object.readOns == 0) {
        ModelVertex vertex;
        vertex.label = std::u16string(20, u'\0');
        vertex.color = object.version >= 9 ? 1 : 2;
        vertices_.push_back(vertex);
    } else if (*object.readOns == 1) {
        Fail(call, 9);
    }
    ++*object.readOns;
    return {{0}, {}};
}

// ---- members -------------------------------------------------------------------------------------------------

std::ostream& operator<<(std::ostream& out, const StructureCall& call)
{
    return out << "object " << call.object << " member " << static_cast<int>(call.member) << " kind " << call.kind
               << " number " << call.number << " value " << call.value << " other " << call.other << " x " << call.x;
}

std::u16string LabelFor(std::int32_t value)
{
    static const std::u16string labels[] = {
        u"", u"   ", u"a", u"  b c  ", u"ABCDEFGHIJKLMNOPQRST", u"  ABCDEFGHIJKLMNOPQR TUVWXYZ", u"\t\u00A0",
    };
    return labels[static_cast<std::uint32_t>(value) % std::size(labels)];
}

void StructureModel::Empty()
{
    vertices_.clear();
    for (auto& list : joining_) list.clear();
    large_ = false;
}

void StructureModel::SetCount(std::size_t kind, std::int32_t count)
{
    sharedError_ = 0;
    if (count > MoreThanMemoryHolds) {
        Empty();
        sharedError_ = 1;
        return;
    }
    const auto size = count < 0 ? 0U : static_cast<std::size_t>(count);
    if (kind == 0) {
        vertices_.resize(size);
    } else {
        joining_[kind - 1].resize(size);
    }
}

Seen StructureModel::Fail(const StructureCall& call, std::int32_t error)
{
    objects_[call.object].error = error;
    objects_[call.object].text = TextOfCode(error);
    return {{-1}, {}};
}

std::int32_t StructureModel::CheckVertex(std::int32_t number) const
{
    if (vertices_.empty()) return 31;
    return number < 1 || number > std::ssize(vertices_) ? 30 : 0;
}

Seen StructureModel::WriteVertex(const StructureCall& call)
{
    if (call.number == -1) {
        vertices_.emplace_back();
        sharedError_ = 0;
        return {{RaisesFault, 9}, {}};
    }
    if (call.number < 1 || call.number > std::ssize(vertices_)) return Fail(call, 30);
    ModelVertex& vertex = vertices_[static_cast<std::size_t>(call.number - 1)];
    vertex.label = WithoutOuterBlanks(LabelFor(call.value));
    vertex.label.resize(20, u' ');
    vertex.place = {call.x, call.x + 1, call.x + 2};
    vertex.color = call.value;
    vertex.bold = static_cast<std::int16_t>(call.other);
    vertex.axes = {};
    for (std::size_t axis = 0; axis < 3; ++axis) vertex.axes[axis][axis] = 1;
    return {{0}, {}};
}

Seen StructureModel::ReadVertex(const StructureCall& call)
{
    Seen seen = {{0}, {}};
    std::u16string label = ModelUntouchedText;
    std::array<float, 3> place = {ModelUntouchedFloat, ModelUntouchedFloat, ModelUntouchedFloat};
    std::int32_t color = ModelUntouched;
    std::int32_t bold = ModelUntouched;
    if (const std::int32_t error = CheckVertex(call.number); error != 0) {
        seen = Fail(call, error);
    } else {
        const ModelVertex& vertex = vertices_[static_cast<std::size_t>(call.number - 1)];
        label = WithoutOuterBlanks(vertex.label);
        place = vertex.place;
        color = vertex.color;
        bold = vertex.bold;
    }
    for (const float value : place) seen.numbers.push_back(FloatBits(value));
    seen.numbers.insert(seen.numbers.end(), {color, bold});
    seen.texts = {label};
    return seen;
}

Seen StructureModel::StoreInformation(const StructureCall& call)
{
    if (const std::int32_t error = CheckVertex(call.number); error != 0) return Fail(call, error);
    ModelVertex& vertex = vertices_[static_cast<std::size_t>(call.number - 1)];
    vertex.pointType = call.other;
    vertex.normalAxis = call.other + 1;
    vertex.area = call.x;
    const bool fits = call.value >= -32768 && call.value <= 32767;
    const bool writes = call.member == StructureMember::WriteInformation;
    if (writes && (!fits || call.value < 0)) return Fail(call, 15);
    if (fits) vertex.center = call.value;
    return {{0}, {}};
}

Seen StructureModel::AccessTransform(const StructureCall& call)
{
    std::int32_t error = CheckVertex(call.number);
    if (error == 0 && (call.other < 0 || call.other > 2)) error = 14;
    Seen seen = error == 0 ? Seen{{0}, {}} : Fail(call, error);
    std::array<float, 3> ends = {ModelUntouchedFloat, ModelUntouchedFloat, ModelUntouchedFloat};
    if (error == 0) {
        auto& axis = vertices_[static_cast<std::size_t>(call.number - 1)].axes[static_cast<std::size_t>(call.other)];
        if (call.member == StructureMember::WriteTransform) axis = {call.x, call.x + 1, call.x + 2};
        ends = axis;
    }
    if (call.member == StructureMember::WriteTransform) return seen;
    for (const float value : ends) seen.numbers.push_back(FloatBits(value));
    return seen;
}

Seen StructureModel::WriteJoining(const StructureCall& call)
{
    const std::size_t kind = call.kind % 3;
    std::vector<ModelJoining>& list = joining_[kind];
    if (kind == 2) sharedError_ = 0;
    std::size_t index = 0;
    if (call.number == -1) {
        list.emplace_back();
        sharedError_ = 0;
        index = list.size() - 1;
    } else if (call.number < 1 || call.number > std::ssize(list)) {
        if (kind < 2) return Fail(call, kind == 0 ? 32 : 34);
        sharedError_ = 36;
        return {{-1}, {}};
    } else {
        index = static_cast<std::size_t>(call.number - 1);
    }
    for (std::size_t i = 0; i < kind + 2; ++i) list[index].corners[i] = call.value + static_cast<std::int32_t>(i) - 2;
    list[index].color = call.other;
    list[index].bold = static_cast<std::int16_t>(call.value);
    return {{0}, {}};
}

Seen StructureModel::ReadJoining(const StructureCall& call)
{
    const std::size_t kind = call.kind % 3;
    const std::vector<ModelJoining>& list = joining_[kind];
    constexpr std::int32_t notAllocated[] = {33, 35, 37};
    constexpr std::int32_t indexError[] = {32, 34, 36};
    std::int32_t error = 0;
    if (list.empty()) {
        error = notAllocated[kind];
    } else if (call.number < 1 || call.number > std::ssize(list)) {
        error = indexError[kind];
    }
    Seen seen = error == 0 ? Seen{{0}, {}} : Seen{{-1}, {}};
    if (kind == 2) {
        sharedError_ = error;
    } else if (error != 0) {
        Fail(call, error);
    }
    ModelJoining read = {
        {ModelUntouched, ModelUntouched, ModelUntouched, ModelUntouched}, ModelUntouched, ModelUntouched};
    if (error == 0) {
        const ModelJoining& element = list[static_cast<std::size_t>(call.number - 1)];
        for (std::size_t i = 0; i < kind + 2; ++i) read.corners[i] = element.corners[i];
        read.color = element.color;
        read.bold = element.bold;
    }
    for (const std::int32_t corner : read.corners) seen.numbers.push_back(corner);
    seen.numbers.insert(seen.numbers.end(), {read.color, read.bold});
    return seen;
}

Seen StructureModel::Perform(const StructureCall& call)
{
    Object& object = objects_[call.object];
    switch (call.member) {
    case StructureMember::SetCount: SetCount(call.kind, call.number); return {};
    case StructureMember::GetCounts:
        return {{std::ssize(vertices_), std::ssize(joining_[0]), std::ssize(joining_[1]), std::ssize(joining_[2])}, {}};
    case StructureMember::WriteVertex: return WriteVertex(call);
    case StructureMember::ReadVertex: return ReadVertex(call);
    case StructureMember::WriteInformation:
    case StructureMember::ReadInformation: return StoreInformation(call);
    case StructureMember::WriteTransform:
    case StructureMember::ReadTransform: return AccessTransform(call);
    case StructureMember::LookAtVertex: {
        if (CheckVertex(call.number) != 0) return {};
        const ModelVertex& vertex = vertices_[static_cast<std::size_t>(call.number - 1)];
        return {{vertex.center, vertex.pointType, vertex.normalAxis, FloatBits(vertex.area)}, {vertex.label}};
    }
    case StructureMember::WriteJoining: return WriteJoining(call);
    case StructureMember::ReadJoining: return ReadJoining(call);
    case StructureMember::SetTexts:
        object.label = TextFor(call.value);
        object.notes = TextFor(call.value + 1);
        return {};
    case StructureMember::GetTexts: return {{}, {object.label, object.notes, object.text}};
    case StructureMember::InitializeStorage:
    case StructureMember::Initialize:
    case StructureMember::NewObject: Empty(); return {};
    case StructureMember::GetErrorStatus: {
        const std::int32_t error = object.error != 0 ? object.error : sharedError_;
        object.error = 0;
        return {{error}, {}};
    }
    case StructureMember::SaveFile: return Save(call);
    case StructureMember::LoadFile: return LoadFile(call);
    case StructureMember::ReadOn: return ReadOn(call);
    case StructureMember::SetErrorStatus:
        if (call.number <= 0) {
            object.error = 0;
        } else {
            Fail(call, 11);
        }
        return {};
    }
    throw std::logic_error("a call that the model does not know");
}

} // namespace qor::test
