// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/StructureComparison.h"

#include "component/Comparison.h"
#include "component/StructureAccess.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

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

} // namespace

std::string FirstStructureDifference(const std::vector<StructureCall>& sequence)
{
    return FirstDifferenceOf<StructureComponent, StructureModel>(sequence, ReadOutStructure());
}

} // namespace qor::test
