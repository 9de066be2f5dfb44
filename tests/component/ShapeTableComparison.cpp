// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/ShapeTableComparison.h"

#include "component/Comparison.h"
#include "component/ShapeTableAccess.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <stdexcept>

namespace qor::test {
namespace {

static_assert(ModelUntouchedMagnitude == UntouchedFirst);
static_assert(ModelUntouchedPhase == UntouchedSecond);

// The component as the calls see it.
class ShapeTableComponent
{
public:
    ShapeTableComponent() { platform::LastPostedError() = {}; }

    Seen Perform(const ShapeTableCall& call)
    {
        clsQOR_File& file = objects_[call.object];
        switch (call.member) {
        case ShapeTableMember::SetShapes: file.ShapeTable_NumberOfShapes(call.number); return {};
        case ShapeTableMember::SetDOFs: file.ShapeTable_NumberOfDOFs(call.number); return {};
        case ShapeTableMember::GetCounts:
            return {
                {file.ShapeTable_NumberOfShapes(), file.ShapeTable_NumberOfDOFs(), modQOR_File().LastAllocationResult},
                {}};
        case ShapeTableMember::SetTexts:
            file.ShapeTable_Label(ShapeTableTextFor(call.value));
            file.ShapeTable_Notes(ShapeTableTextFor(call.value ^ 1));
            return {};
        case ShapeTableMember::GetTexts:
            return {{},
                    {file.ShapeTable_Label(), file.ShapeTable_Notes(), file.GetLastErrorString(),
                     platform::LastPostedError().description}};
        case ShapeTableMember::SetShapeText: SetShapeText(file, call); return {};
        case ShapeTableMember::GetShapeText: return {{}, {GetShapeText(file, call)}};
        case ShapeTableMember::SetShapeNumber:
            call.kind % 2 == 0 ? file.Shape_Ordinate(call.number, call.x) : file.Shape_Damping(call.number, call.x);
            return {};
        case ShapeTableMember::GetShapeNumber:
            return {{Bits(call.kind % 2 == 0 ? file.Shape_Ordinate(call.number) : file.Shape_Damping(call.number))},
                    {}};
        case ShapeTableMember::SetDOFText: SetDOFText(file, call); return {};
        case ShapeTableMember::GetDOFText: return {{}, {GetDOFText(file, call)}};
        case ShapeTableMember::SetDataSVT: file.DOF_DataSVT(call.number, static_cast<SVTvalues>(call.value)); return {};
        case ShapeTableMember::GetDataSVT: return {{file.DOF_DataSVT(call.number)}, {}};
        case ShapeTableMember::SetMeasurementType:
            file.DOF_MeasurementType(call.number, static_cast<ShapeTable_MeasurementTypes>(call.value));
            return {};
        case ShapeTableMember::GetMeasurementType: return {{file.DOF_MeasurementType(call.number)}, {}};
        case ShapeTableMember::WriteValue:
            return {{file.WriteShapeDOFvalue(call.number, call.dof, call.x, call.y)}, {}};
        case ShapeTableMember::ReadValue: {
            const SampleRead read = ReadShape(file, call.number, call.dof);
            return {{read.status, Bits(read.first), Bits(read.second)}, {}};
        }
        case ShapeTableMember::Output: return Output(file, call.kind);
        case ShapeTableMember::InitializeStorage: file.InitializeShapeTableStorage(); return {};
        case ShapeTableMember::Initialize: file.Initialize(); return {};
        case ShapeTableMember::NewObject: clsQOR_File(); return {};
        case ShapeTableMember::GetErrorStatus: return {{file.ErrorStatus()}, {}};
        case ShapeTableMember::SetErrorStatus:
            file.ErrorStatus(call.number <= 0 ? NoError : AxisNumberError);
            return {};
        }
        throw std::logic_error("a call that the component does not know");
    }

private:
    static void SetShapeText(clsQOR_File& file, const ShapeTableCall& call)
    {
        const std::u16string text = ShapeTableTextFor(call.value);
        switch (call.kind % 3) {
        case 0: return file.Shape_Label(call.number, text);
        case 1: return file.Shape_DateAndTime(call.number, text);
        default: return file.Shape_OrdinateUnits(call.number, text);
        }
    }
    static std::u16string GetShapeText(clsQOR_File& file, const ShapeTableCall& call)
    {
        switch (call.kind % 3) {
        case 0: return file.Shape_Label(call.number);
        case 1: return file.Shape_DateAndTime(call.number);
        default: return file.Shape_OrdinateUnits(call.number);
        }
    }
    static void SetDOFText(clsQOR_File& file, const ShapeTableCall& call)
    {
        const std::u16string text = ShapeTableTextFor(call.value);
        switch (call.kind % 3) {
        case 0: return file.DOF_Label(call.number, text);
        case 1: return file.DOF_DegreesOfFreedom(call.number, text);
        default: return file.DOF_MeasurementUnits(call.number, text);
        }
    }
    static std::u16string GetDOFText(clsQOR_File& file, const ShapeTableCall& call)
    {
        switch (call.kind % 3) {
        case 0: return file.DOF_Label(call.number);
        case 1: return file.DOF_DegreesOfFreedom(call.number);
        default: return file.DOF_MeasurementUnits(call.number);
        }
    }
    Seen Output(clsQOR_File& file, std::size_t place) const
    {
        const auto path = place == IntoAMissingFolder ? folder_ / "missing/x.shp" : folder_ / "x.shp";
        std::filesystem::remove(path);
        if (place == InPlaceOfAnother) WriteBytes(path, TheOtherFile);
        const auto status = file.OutputShapeTableFile(place == ToABlankName ? u"  " : Utf16(path));
        if (!std::filesystem::exists(path)) return SeenFile(status, std::nullopt);
        auto bytes = BytesOf(path);
        if (status == Success) UnifyNaNs(bytes, 2 * file.ShapeTable_NumberOfShapes() * file.ShapeTable_NumberOfDOFs());
        return SeenFile(status, bytes);
    }
    // Which NaN stands in the last floats of a file is left open.
    static void UnifyNaNs(std::vector<std::uint8_t>& bytes, std::int32_t floats)
    {
        for (auto place = std::ssize(bytes) - 4 * floats; 0 <= place && place < std::ssize(bytes); place += 4) {
            const auto first = bytes.begin() + place;
            const bool isNaN = (first[3] & 0x7F) == 0x7F && (first[2] & 0x80) != 0 &&
                               ((first[2] & 0x7F) != 0 || first[1] != 0 || first[0] != 0);
            for (int i = 0; isNaN && i < 4; ++i) first[i] = static_cast<std::uint8_t>(TheNaN >> (8 * i));
        }
    }

    TemporaryFolder folder_;
    std::array<clsQOR_File, 2> objects_;
};

// Calls that read everything, one element beyond each end included, and save it.
std::vector<ShapeTableCall> ReadOutShapeTable()
{
    using enum ShapeTableMember;
    std::vector<ShapeTableCall> calls;
    for (const std::size_t object : {0U, 1U}) {
        for (const ShapeTableMember member : {GetErrorStatus, GetErrorStatus, GetTexts, GetCounts, Output}) {
            calls.push_back({.object = object, .member = member});
        }
        for (std::int32_t number = 0; number <= 7; ++number) {
            for (std::size_t kind = 0; kind < 3; ++kind) {
                for (const ShapeTableMember member : {GetShapeText, GetShapeNumber, GetDOFText}) {
                    calls.push_back({.object = object, .member = member, .kind = kind, .number = number});
                }
            }
            calls.push_back({.object = object, .member = GetDataSVT, .number = number});
            calls.push_back({.object = object, .member = GetMeasurementType, .number = number});
            for (std::int32_t dof = 0; dof <= 7; ++dof) {
                calls.push_back({.object = object, .member = ReadValue, .number = number, .dof = dof});
            }
        }
        calls.push_back({.object = object, .member = GetErrorStatus});
    }
    return calls;
}

} // namespace

std::string FirstShapeTableDifference(const std::vector<ShapeTableCall>& sequence)
{
    using enum ShapeTableMember;
    return FirstDifferenceOf<ShapeTableComponent, ShapeTableModel>(sequence, ReadOutShapeTable(), [&](std::size_t i) {
        std::vector<ShapeTableCall> calls = {{.object = sequence[i].object, .member = GetTexts}};
        // Not after every call, as the status is cleared by looking at it.
        if (i % 2 == 1) calls.push_back({.object = sequence[i].object, .member = GetErrorStatus});
        return calls;
    });
}

} // namespace qor::test
