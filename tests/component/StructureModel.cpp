// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/StructureModel.h"

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
        {11, "Sample Index error"},      {14, "Axis Number error"},    {15, "Invalid Center Point error"},
        {30, "VertexPoint Index error"}, {32, "EdgeLine Index error"}, {34, "SurfaceTriangle Index error"},
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

} // namespace

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
