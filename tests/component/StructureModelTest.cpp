// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Random sequences of Structure members, on two objects of one thread, beside the model: every result, every error
// status, and now and then all that can be read and the bytes that are saved. Files are loaded too, and the calls go on
// with what they brought.
#include "component/StructureModel.h"
#include "component/StructureAccess.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <stdexcept>

namespace qor::test {
namespace {

static_assert(ModelUntouched == UntouchedNumber);
static_assert(ModelUntouchedFloat == UntouchedFirst);

// The component as the calls see it.
class StructureComponent
{
public:
    Seen Perform(const StructureCall& call)
    {
        clsQOR_File& file = objects_[call.object];
        const auto axis = static_cast<AxisNumbers>(call.other);
        switch (call.member) {
        case StructureMember::SetCount: SetCount(file, call); return {};
        case StructureMember::GetCounts:
            return {{file.Structure_NumberOfVertexPoints(), file.Structure_NumberOfEdgeLines(),
                     file.Structure_NumberOfSurfaceTriangles(), ClassAdd_4().StructureNumberOfQuadSurfaces()},
                    {}};
        case StructureMember::WriteVertex: return Write(file, call);
        case StructureMember::ReadVertex: {
            const auto [status, v] = ReadVertex(file, call.number);
            return {{status, Bits(v.x), Bits(v.y), Bits(v.z), v.color, Truth(v.bold)}, {v.label}};
        }
        case StructureMember::WriteInformation:
            return {{file.WriteStructureVertexPointInformation(call.number, call.value, TypeOf(call), NormalOf(call),
                                                               call.x)},
                    {}};
        case StructureMember::ReadInformation:
            return {{file.ReadStructureVertexPointInformation(call.number, call.value, TypeOf(call), NormalOf(call),
                                                              call.x)},
                    {}};
        case StructureMember::WriteTransform:
            return {{file.WriteStructureVertexPointTransform(call.number, axis, call.x, call.x + 1, call.x + 2)}, {}};
        case StructureMember::ReadTransform: {
            const AxisRead read = ReadAxis(file, call.number, call.other);
            return {{read.status, Bits(read.x), Bits(read.y), Bits(read.z)}, {}};
        }
        case StructureMember::LookAtVertex: {
            if (!modQOR_File().Structure.VertexPoints.Has(call.number)) return {};
            const VertexPoint& point = StoredVertex(call.number);
            return {{point.CenterPoint, point.PointType, point.NormalAxis, Bits(point.Area)},
                    {StoredLabel(call.number)}};
        }
        case StructureMember::WriteJoining: {
            const std::int32_t first = call.value - 2;
            const Joining element = {{first, first + 1, first + 2, first + 3},
                                     call.other,
                                     Bool16::Raw(static_cast<std::int16_t>(call.value))};
            switch (call.kind % 3) {
            case 0: return {{WriteEdgeLine(file, call.number, element)}, {}};
            case 1: return {{WriteTriangle(file, call.number, element)}, {}};
            default: return {{WriteQuad(call.number, element)}, {}};
            }
        }
        case StructureMember::ReadJoining: {
            const auto [status, element] = call.kind % 3 == 0   ? ReadEdgeLine(file, call.number)
                                           : call.kind % 3 == 1 ? ReadTriangle(file, call.number)
                                                                : ReadQuad(call.number);
            const auto& c = element.corners;
            return {{status, c[0], c[1], c[2], c[3], element.color, Truth(element.bold)}, {}};
        }
        case StructureMember::SetTexts:
            file.Structure_Label(TextFor(call.value));
            file.Structure_Notes(TextFor(call.value + 1));
            return {};
        case StructureMember::GetTexts:
            return {{}, {file.Structure_Label(), file.Structure_Notes(), file.GetLastErrorString()}};
        case StructureMember::InitializeStorage: file.InitializeStructureStorage(); return {};
        case StructureMember::Initialize: file.Initialize(); return {};
        case StructureMember::NewObject: clsQOR_File(); return {};
        case StructureMember::GetErrorStatus: return {{file.ErrorStatus()}, {}};
        case StructureMember::SaveFile: return Save(file, call);
        case StructureMember::LoadFile: return {{file.InputStructureFile(Put(call))}, {}};
        case StructureMember::ReadOn: return {{file.InputStructureFile(u"")}, {}};
        case StructureMember::SetErrorStatus:
            file.ErrorStatus(call.number <= 0 ? NoError : SampleIndexError);
            return {};
        }
        throw std::logic_error("a call that the component does not know");
    }

private:
    static PointTypes TypeOf(const StructureCall& call) { return static_cast<PointTypes>(call.other); }
    static AxisNumbers NormalOf(const StructureCall& call) { return static_cast<AxisNumbers>(call.other + 1); }
    // The untouched truth value is shown as the other untouched numbers.
    static std::int32_t Truth(Bool16 bold)
    {
        return bold.value == UntouchedTruth.value ? ModelUntouched : std::int32_t{bold.value};
    }
    static void SetCount(clsQOR_File& file, const StructureCall& call)
    {
        switch (call.kind) {
        case 0: return file.Structure_NumberOfVertexPoints(call.number);
        case 1: return file.Structure_NumberOfEdgeLines(call.number);
        case 2: return file.Structure_NumberOfSurfaceTriangles(call.number);
        default: return ClassAdd_4().StructureNumberOfQuadSurfaces(call.number);
        }
    }
    static Seen Write(clsQOR_File& file, const StructureCall& call)
    {
        const Vertex vertex = {LabelFor(call.value), call.x,     call.x + 1,
                               call.x + 2,           call.value, Bool16::Raw(static_cast<std::int16_t>(call.other))};
        try {
            return {{WriteVertex(file, call.number, vertex)}, {}};
        } catch (const RuntimeFault& fault) {
            return {{RaisesFault, fault.Number()}, {}};
        }
    }

    // The result, and the bytes of the file.
    Seen Save(clsQOR_File& file, const StructureCall& call)
    {
        if (call.number == 0) return {{file.OutputStructureFile(u"")}, {}};
        Seen seen = {{file.OutputStructureFile(Utf16(folder_ / "saved.str"))}, {}};
        for (const std::uint8_t byte : BytesOf(folder_ / "saved.str")) seen.numbers.push_back(byte);
        return seen;
    }
    // The path of the file that the call loads. One that is made has a name of its own: an earlier one may be open.
    std::u16string Put(const StructureCall& call)
    {
        if (FileOf(call) == LoadedFile::Saved) return Utf16(folder_ / "saved.str");
        if (FileOf(call) == LoadedFile::Missing) return Utf16(folder_ / "missing.str");
        const std::string name = std::to_string(++made_) + ".str";
        WriteBytes(folder_ / name, BytesFor(call));
        return Utf16(folder_ / name);
    }

    TemporaryFolder folder_;
    int made_ = 0;
    std::array<clsQOR_File, 2> objects_;
};

// Calls that read everything, one element beyond each end included, and save it.
std::vector<StructureCall> ReadOutStructure()
{
    using enum StructureMember;
    std::vector<StructureCall> calls;
    for (const std::size_t object : {0U, 1U}) {
        calls.push_back({.object = object, .member = GetErrorStatus});
        calls.push_back({.object = object, .member = GetErrorStatus});
        calls.push_back({.object = object, .member = GetTexts});
        calls.push_back({.object = object, .member = GetCounts});
        for (std::int32_t number = 0; number <= 9; ++number) {
            for (const StructureMember member : {ReadVertex, LookAtVertex}) {
                calls.push_back({.object = object, .member = member, .number = number});
            }
            for (const std::int32_t axis : {-1, 0, 1, 2, 3}) {
                calls.push_back({.object = object, .member = ReadTransform, .number = number, .other = axis});
            }
            for (const std::size_t kind : {0U, 1U, 2U}) {
                calls.push_back({.object = object, .member = ReadJoining, .kind = kind, .number = number});
            }
        }
        calls.push_back({.object = object, .member = SaveFile, .number = 1});
    }
    return calls;
}

// Empty when component and model show the same throughout; else the first difference.
std::string FirstStructureDifference(const std::vector<StructureCall>& sequence)
{
    std::ostringstream difference;
    OnAThreadOfItsOwn([&] {
        StructureComponent component;
        StructureModel model;
        const auto same = [&](const StructureCall& call) {
            const Seen seen = component.Perform(call);
            const Seen expected = model.Perform(call);
            if (seen != expected) difference << call << ": " << seen << " instead of " << expected;
            return seen == expected;
        };
        const std::vector<StructureCall> readOut = ReadOutStructure();
        for (std::size_t i = 0; i < sequence.size(); ++i) {
            if (!same(sequence[i])) return;
            const bool readsOut = i % 16 == 15 || i + 1 == sequence.size();
            if (readsOut && !std::all_of(readOut.begin(), readOut.end(), same)) return;
        }
    });
    return difference.str();
}

rc::Gen<StructureCall> AnyStructureCall()
{
    using enum StructureMember;
    const auto member =
        rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, static_cast<int>(SetErrorStatus) + 1),
                                    [](int index) { return static_cast<StructureMember>(index); }),
                       // What fills a document comes oftener, or most sequences would touch nothing.
                       rc::gen::element(SetCount, SetCount, WriteVertex, WriteVertex, WriteInformation, WriteTransform,
                                        LoadFile, ReadOn, WriteJoining, WriteJoining, WriteJoining));
    const auto number = rc::gen::weightedOneOf<std::int32_t>(
        {{40, rc::gen::inRange(-2, 9)},
         {1, rc::gen::element(std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min())}});
    const auto value = rc::gen::element<std::int32_t>(0, 1, 2, 3, 4, 5, 6, -1, 32767, 32768, 40000, -32768, -32769);
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const auto x = rc::gen::element(0.0F, -0.0F, 1.5F, -2.5F, 1e-45F, 3.4e38F, infinity, -infinity);
    return rc::gen::build<StructureCall>(
        rc::gen::set(&StructureCall::object, rc::gen::element<std::size_t>(0, 0, 1)),
        rc::gen::set(&StructureCall::member, member),
        rc::gen::set(&StructureCall::kind, rc::gen::inRange<std::size_t>(0, 4)),
        rc::gen::set(&StructureCall::number, number), rc::gen::set(&StructureCall::value, value),
        rc::gen::set(&StructureCall::other, rc::gen::inRange(-1, 5)), rc::gen::set(&StructureCall::x, x));
}

RC_GTEST_PROP(StructureModel, ShowsWhatTheComponentShowsForAnySequenceOfMembers, ())
{
    const auto sequence = *rc::gen::container<std::vector<StructureCall>>(AnyStructureCall());
    RC_ASSERT(FirstStructureDifference(sequence) == "");
}

} // namespace
} // namespace qor::test
