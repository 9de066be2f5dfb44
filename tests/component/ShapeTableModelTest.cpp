// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Random sequences of Shape Table members, on two objects of one thread, beside the model: every result, every error
// status and text, every saved file, and now and then all that can be read.
#include "component/ShapeTableModel.h"
#include "component/ShapeTableAccess.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <sstream>
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

// Empty when component and model show the same throughout; else the first difference.
std::string FirstShapeTableDifference(const std::vector<ShapeTableCall>& sequence)
{
    using enum ShapeTableMember;
    std::ostringstream difference;
    OnAThreadOfItsOwn([&] {
        ShapeTableComponent component;
        ShapeTableModel model;
        const auto same = [&](const ShapeTableCall& call) {
            const Seen seen = component.Perform(call);
            const Seen expected = model.Perform(call);
            if (seen != expected) difference << call << ": " << seen << " instead of " << expected;
            return seen == expected;
        };
        const std::vector<ShapeTableCall> readOut = ReadOutShapeTable();
        for (std::size_t i = 0; i < sequence.size(); ++i) {
            if (!same(sequence[i]) || !same({.object = sequence[i].object, .member = GetTexts})) return;
            // Not after every call, as the status is cleared by looking at it.
            if (i % 2 == 1 && !same({.object = sequence[i].object, .member = GetErrorStatus})) return;
            const bool readsOut = i % 16 == 15 || i + 1 == sequence.size();
            if (readsOut && !std::all_of(readOut.begin(), readOut.end(), same)) return;
        }
    });
    return difference.str();
}

rc::Gen<ShapeTableCall> AnyShapeTableCall()
{
    using enum ShapeTableMember;
    const auto member = rc::gen::weightedOneOf<ShapeTableMember>(
        {{1, rc::gen::map(rc::gen::inRange(0, static_cast<int>(SetErrorStatus) + 1),
                          [](int index) { return static_cast<ShapeTableMember>(index); })},
         // What sizes and fills a table comes oftener, or most sequences would touch nothing.
         {3,
          rc::gen::element(SetShapes, SetDOFs, SetShapeText, SetDOFText, SetShapeNumber, SetMeasurementType, Output)},
         {3, rc::gen::just(WriteValue)}});
    // Few sizes, so that counts and extents often meet; 20,000 by 20,000 values are more than an array can hold.
    const auto number =
        rc::gen::weightedOneOf<std::int32_t>({{200, rc::gen::inRange(1, 5)},
                                              {12, rc::gen::inRange(-1, 8)},
                                              {1, rc::gen::element(20'000, std::numeric_limits<std::int32_t>::max(),
                                                                   std::numeric_limits<std::int32_t>::min())}});
    const auto dof = rc::gen::weightedOneOf<std::int32_t>({{8, rc::gen::inRange(1, 4)}, {1, rc::gen::inRange(-1, 8)}});
    const auto value = rc::gen::weightedOneOf<std::int32_t>(
        {{12, rc::gen::inRange(-1, 8)},
         {5, rc::gen::element(20, 35, 32767, -32768)},
         {1, rc::gen::element(32768, -32769, 65540, std::numeric_limits<std::int32_t>::max())}});
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const auto x = rc::gen::weightedOneOf<float>(
        {{30, rc::gen::element(0.0F, -0.0F, 1.0F, -2.5F, 30.0F, 90.0F, -90.0F, 180.0F, 3600.0F, 1e-45F, 3.4028235e38F)},
         {5, rc::gen::just(std::numeric_limits<float>::quiet_NaN())},
         {1, rc::gen::element(infinity, -infinity)}});
    return rc::gen::build<ShapeTableCall>(rc::gen::set(&ShapeTableCall::object, rc::gen::element<std::size_t>(0, 0, 1)),
                                          rc::gen::set(&ShapeTableCall::member, member),
                                          rc::gen::set(&ShapeTableCall::kind, rc::gen::inRange<std::size_t>(0, 4)),
                                          rc::gen::set(&ShapeTableCall::number, number),
                                          rc::gen::set(&ShapeTableCall::dof, dof),
                                          rc::gen::set(&ShapeTableCall::value, value),
                                          rc::gen::set(&ShapeTableCall::x, x), rc::gen::set(&ShapeTableCall::y, x));
}

RC_GTEST_PROP(ShapeTableModel, ShowsWhatTheComponentShowsForAnySequenceOfMembers, ())
{
    const auto sequence = *rc::gen::container<std::vector<ShapeTableCall>>(AnyShapeTableCall());
    RC_ASSERT(FirstShapeTableDifference(sequence) == "");
}

} // namespace
} // namespace qor::test
