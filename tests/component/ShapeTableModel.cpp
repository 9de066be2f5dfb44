// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/ShapeTableModel.h"

#include "component/ConversionReference.h"
#include "support/DataBlockFile.h"

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <string_view>

namespace qor::test {
namespace {

constexpr std::int32_t Ok = 0;
constexpr std::int32_t Refusal = -1;

// No machine's single array holds so many records; sequences ask for far fewer, or for more.
constexpr std::int32_t TooManyRecords = 100'000'000;
constexpr std::int64_t MostValues = 268'435'455; // of 8 bytes in 2,147,483,647

constexpr const char* MemberNames[] = {
    "SetShapes",    "SetDOFs",        "GetCounts",      "SetTexts",           "GetTexts",
    "SetShapeText", "GetShapeText",   "SetShapeNumber", "GetShapeNumber",     "SetDOFText",
    "GetDOFText",   "SetDataSVT",     "GetDataSVT",     "SetMeasurementType", "GetMeasurementType",
    "WriteValue",   "ReadValue",      "Output",         "InitializeStorage",  "Initialize",
    "NewObject",    "GetErrorStatus", "SetErrorStatus",
};

std::int64_t FloatBits(float value) { return std::bit_cast<std::uint32_t>(value); }

std::u16string TextOfCode(std::int32_t code)
{
    std::string text = "Error (" + std::to_string(code) + "): ";
    switch (code) {
    case 11: text += "Sample Index error"; break;
    case 14: text += "Axis Number error"; break;
    case 20: text += "Shape Index error"; break;
    case 21: text += "DOF Index error"; break;
    default: text += "Undefined error";
    }
    return {text.begin(), text.end()};
}

std::u16string WithoutOuterBlanks(std::u16string text)
{
    while (!text.empty() && text.front() == u' ') text.erase(0, 1);
    while (!text.empty() && text.back() == u' ') text.pop_back();
    return text;
}

bool IsInside(std::int32_t number, std::int32_t count) { return 1 <= number && number <= count; }

template <class Record>
Record* AtNumber(std::vector<Record>& records, std::int32_t number)
{
    return number <= std::ssize(records) ? &records[static_cast<std::size_t>(number - 1)] : nullptr;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const ShapeTableCall& call)
{
    return out << '[' << call.object << "] " << MemberNames[static_cast<std::size_t>(call.member)] << " kind "
               << call.kind << " number " << call.number << " DOF " << call.dof << " value " << call.value << " x "
               << call.x << " y " << call.y;
}

std::u16string ShapeTableTextFor(std::int32_t value)
{
    static const std::u16string texts[] = {
        u"", u"   ", u" g ", u"m/s  s", u"\t\u00A0", {u'a', u'\0', 0xDC00}, u"a longer text, not kept in place",
    };
    return texts[static_cast<std::uint32_t>(value) % std::size(texts)];
}

Seen SeenFile(std::int32_t status, const std::optional<Bytes>& file)
{
    Seen seen = {{status}, {}};
    if (file) seen.texts.emplace_back(file->begin(), file->end());
    return seen;
}

bool ShapeTableModel::ModelValues::Hold(std::int32_t shape, std::int32_t dof) const
{
    return IsInside(shape, shapes) && IsInside(dof, dofs);
}

void ShapeTableModel::Report(Object& object, std::int32_t error)
{
    object.error = error;
    if (error != 0) object.text = posted_ = TextOfCode(error);
}

void ShapeTableModel::Empty(Object& object)
{
    object.shapes = object.dofs = 0;
    shapes_.clear();
    dofs_.clear();
    values_.reset();
}

// False for a size that cannot be had.
bool ShapeTableModel::SizeValues(const Object& object)
{
    if (object.shapes == 0 || object.dofs == 0) {
        values_.reset();
        return true;
    }
    const bool tooMany = std::int64_t{object.shapes} * object.dofs > MostValues;
    // Each extent is compared with the count of the other one.
    const bool firstFits = values_ && values_->shapes == object.dofs;
    const bool secondFits = values_ && values_->dofs == object.shapes;
    if (firstFits && secondFits) return true;
    if (firstFits) {
        if (tooMany || values_->dofs != object.dofs) return false;
        std::erase_if(values_->stored, [&](const auto& value) { return value.first.first > object.shapes; });
        values_->shapes = object.shapes;
        return true;
    }
    values_ = ModelValues{object.shapes, object.dofs, {}};
    return !tooMany;
}

void ShapeTableModel::SetCount(Object& object, std::int32_t Object::*count, std::int32_t value)
{
    object.*count = value < 0 ? 0 : value;
    const bool tooMany = object.shapes > TooManyRecords || object.dofs > TooManyRecords;
    if (!tooMany) {
        shapes_.resize(static_cast<std::size_t>(object.shapes));
        dofs_.resize(static_cast<std::size_t>(object.dofs));
    }
    const bool sized = !tooMany && SizeValues(object);
    if (!sized) Empty(object);
    lastAllocation_ = sized ? Ok : Refusal;
    Report(object, sized ? 0 : 1);
}

ShapeTableModel::ModelShape* ShapeTableModel::FindShape(Object& object, std::int32_t number, std::int32_t indexError)
{
    if (object.shapes < 1 || !IsInside(number, object.shapes)) {
        Report(object, object.shapes < 1 ? 22 : indexError);
        return nullptr;
    }
    return AtNumber(shapes_, number);
}

ShapeTableModel::ModelDOF* ShapeTableModel::FindDOF(Object& object, std::int32_t number)
{
    if (!IsInside(number, object.dofs)) {
        Report(object, 21);
        return nullptr;
    }
    return AtNumber(dofs_, number);
}

Seen ShapeTableModel::AccessValue(Object& object, const ShapeTableCall& call)
{
    const bool reads = call.member == ShapeTableMember::ReadValue;
    std::int32_t error = 0;
    if (object.shapes < 1) {
        error = 22;
    } else if (!IsInside(call.number, object.shapes)) {
        error = reads ? 11 : 20;
    } else if (object.dofs < 1) {
        error = 24;
    } else if (!IsInside(call.dof, object.dofs)) {
        error = 21;
    }
    if (error != 0) Report(object, error);
    const std::int32_t status = error == 0 ? Ok : Refusal;
    const bool held = error == 0 && values_ && values_->Hold(call.number, call.dof);
    const std::pair place = {call.number, call.dof};
    if (!reads) {
        if (held) values_->stored[place] = {call.x, call.y};
        return {{status}, {}};
    }
    auto read = std::pair{ModelUntouchedMagnitude, ModelUntouchedPhase};
    if (held) read = values_->stored.contains(place) ? values_->stored[place] : std::pair{0.0F, 0.0F};
    return {{status, FloatBits(read.first), FloatBits(read.second)}, {}};
}

// ---- file -----------------------------------------------------------------------------------------------------

bool ShapeTableModel::WriteDOFs(const Object& object, Bytes& file) const
{
    for (std::int32_t number = 1; number <= object.dofs; ++number) {
        if (number > std::ssize(dofs_)) return false;
        const ModelDOF& dof = dofs_[static_cast<std::size_t>(number - 1)];
        const std::int32_t type = dof.measurementType;
        file += Text(dof.texts[0]);
        if (type < -32768 || type > 32767) return false;
        file += Int16(type == 0 ? 20 : type);
        file += Int16(type == 4 || type == 5 ? type : 3);
        file += Text(dof.texts[1]);
        file += Text(WithoutOuterBlanks(dof.texts[2]));
        file += Hex("00000000 00000000 00000000");
    }
    return true;
}

bool ShapeTableModel::WriteValues(const Object& object, Bytes& file) const
{
    if (!values_ || !values_->Hold(object.shapes, object.dofs)) return false;
    Bytes all;
    for (std::int32_t shape = 1; shape <= object.shapes; ++shape) {
        for (std::int32_t dof = 1; dof <= object.dofs; ++dof) {
            const auto found = values_->stored.find({shape, dof});
            const auto [magnitude, phase] = found == values_->stored.end() ? std::pair{0.0F, 0.0F} : found->second;
            if (std::isinf(magnitude) || std::isinf(phase)) return false;
            if (std::isnan(magnitude) || std::isnan(phase)) {
                all += Int32(TheNaN);
                all += Int32(TheNaN);
            } else {
                all += Float(ReferenceReal(magnitude, phase));
                all += Float(ReferenceImaginary(magnitude, phase));
            }
        }
    }
    file += all;
    return true;
}

// False where a fault ends the writing; the file holds what came before it.
bool ShapeTableModel::Write(const Object& object, Bytes& file) const
{
    file = Hex(R"(
        44 55 27 6C 6D 65 65 72 20 42 69 6E 61 72 79 20 53 68 61 70 65 54 61 62 6C 65 20 46 69 6C 65 2E 0D 0A
        0C 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00
    )");
    file += Int32(object.dofs);
    file += Int32(object.shapes);
    file += Text(object.label);
    file += Text(object.notes);
    file += Hex(R"(
        01 00  00 00 07 43  00 00 00 00  06 00 00 00 53 00 79 00 73 00 74 00 65 00 6D 00  00 00 20 41
        00 00 00 00 00 00 00 00  FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF
        00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
    )");
    for (std::int32_t number = 1; number <= object.shapes; ++number) {
        if (number > std::ssize(shapes_)) return false;
        const ModelShape& shape = shapes_[static_cast<std::size_t>(number - 1)];
        file += Text(shape.texts[0]);
        file += Float(shape.numbers[0]);
        file += Text(WithoutOuterBlanks(shape.texts[2]));
        file += Float(shape.numbers[1]);
        file += Text(shape.texts[1]);
        file += Int32(0);
    }
    return WriteDOFs(object, file) && WriteValues(object, file);
}

Seen ShapeTableModel::Save(const Object& object, std::size_t place) const
{
    const std::optional<Bytes> before = place == InPlaceOfAnother ? std::optional(TheOtherFile) : std::nullopt;
    const bool canBe = place == ToAFreeName || place == InPlaceOfAnother;
    if (!canBe || object.shapes == 0 || object.dofs == 0) return SeenFile(Refusal, before);
    Bytes file;
    const bool whole = Write(object, file);
    return SeenFile(whole ? Ok : Refusal, file);
}

// ---- members --------------------------------------------------------------------------------------------------

Seen ShapeTableModel::Perform(const ShapeTableCall& call)
{
    Object& object = objects_[call.object];
    const std::size_t text = call.kind % 3;
    const std::size_t number = call.kind % 2;
    switch (call.member) {
    case ShapeTableMember::SetShapes: SetCount(object, &Object::shapes, call.number); return {};
    case ShapeTableMember::SetDOFs: SetCount(object, &Object::dofs, call.number); return {};
    case ShapeTableMember::GetCounts: return {{object.shapes, object.dofs, lastAllocation_}, {}};
    case ShapeTableMember::SetTexts:
        object.label = ShapeTableTextFor(call.value);
        object.notes = ShapeTableTextFor(call.value ^ 1);
        return {};
    case ShapeTableMember::GetTexts: return {{}, {object.label, object.notes, object.text, posted_}};
    case ShapeTableMember::SetShapeText:
        if (auto* const shape = FindShape(object, call.number, 11)) shape->texts[text] = ShapeTableTextFor(call.value);
        return {};
    case ShapeTableMember::GetShapeText: {
        auto* const shape = FindShape(object, call.number, text == 0 ? 20 : 11);
        return {{}, {shape ? shape->texts[text] : u""}};
    }
    case ShapeTableMember::SetShapeNumber:
        if (auto* const shape = FindShape(object, call.number, 11)) shape->numbers[number] = call.x;
        return {};
    case ShapeTableMember::GetShapeNumber: {
        auto* const shape = FindShape(object, call.number, 11);
        return {{shape ? FloatBits(shape->numbers[number]) : 0}, {}};
    }
    case ShapeTableMember::SetDOFText:
        if (auto* const dof = FindDOF(object, call.number)) dof->texts[text] = ShapeTableTextFor(call.value);
        return {};
    case ShapeTableMember::GetDOFText: {
        auto* const dof = FindDOF(object, call.number);
        return {{}, {dof ? dof->texts[text] : u""}};
    }
    case ShapeTableMember::SetDataSVT:
        if (auto* const dof = FindDOF(object, call.number)) {
            dof->dataSVT = call.value == 4 || call.value == 5 ? call.value : 3;
        }
        return {};
    case ShapeTableMember::GetDataSVT: {
        auto* const dof = FindDOF(object, call.number);
        return {{dof ? dof->dataSVT : 3}, {}};
    }
    case ShapeTableMember::SetMeasurementType:
        if (auto* const dof = FindDOF(object, call.number)) dof->measurementType = call.value;
        return {};
    case ShapeTableMember::GetMeasurementType: {
        auto* const dof = FindDOF(object, call.number);
        return {{dof ? dof->measurementType : 0}, {}};
    }
    case ShapeTableMember::WriteValue:
    case ShapeTableMember::ReadValue: return AccessValue(object, call);
    case ShapeTableMember::Output: return Save(object, call.kind);
    case ShapeTableMember::InitializeStorage:
    case ShapeTableMember::Initialize: Empty(object); return {};
    case ShapeTableMember::NewObject: {
        Object fresh;
        Empty(fresh);
        return {};
    }
    case ShapeTableMember::GetErrorStatus: return {{std::exchange(object.error, 0)}, {}};
    case ShapeTableMember::SetErrorStatus: Report(object, call.number <= 0 ? 0 : 14); return {};
    }
    throw std::logic_error("a call that the model does not know");
}

} // namespace qor::test
