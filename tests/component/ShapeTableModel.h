// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A second, plain Shape Table with its members and its file, to run beside the component. It stands for one thread
// with two objects, and shares nothing with the code under test.
#pragma once

#include "component/DataBlockModel.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace qor::test {

enum class ShapeTableMember {
    SetShapes,
    SetDOFs,
    GetCounts,
    SetTexts,
    GetTexts,
    SetShapeText,
    GetShapeText,
    SetShapeNumber,
    GetShapeNumber,
    SetDOFText,
    GetDOFText,
    SetDataSVT,
    GetDataSVT,
    SetMeasurementType,
    GetMeasurementType,
    WriteValue,
    ReadValue,
    Output,
    InitializeStorage,
    Initialize,
    NewObject,
    GetErrorStatus,
    SetErrorStatus,
};

// A call on one of the two objects. A member takes what it needs of the arguments.
struct ShapeTableCall {
    std::size_t object = 0;
    ShapeTableMember member = ShapeTableMember::GetCounts;
    std::size_t kind = 0;    // of the text or number; also where a file goes
    std::int32_t number = 0; // of the shape, or of the DOF where there is no shape; also a count
    std::int32_t dof = 0;
    std::int32_t value = 0;
    float x = 0;
    float y = 0;
};
std::ostream& operator<<(std::ostream& out, const ShapeTableCall& call);

// The text that a call with this value stores.
std::u16string ShapeTableTextFor(std::int32_t value);

// What stands in the caller's values before a read; no call stores them.
inline constexpr float ModelUntouchedMagnitude = -77.25F;
inline constexpr float ModelUntouchedPhase = -88.75F;

// Where a file goes: to a name that is free, in the place of another file, nowhere, or where none can be.
inline constexpr std::size_t ToAFreeName = 0;
inline constexpr std::size_t InPlaceOfAnother = 1;
inline constexpr std::size_t ToABlankName = 2;
inline constexpr std::size_t IntoAMissingFolder = 3;
inline const std::vector<std::uint8_t> TheOtherFile = {1, 2, 3};

// What stands there after a call that returned this.
Seen SeenFile(std::int32_t status, const std::optional<std::vector<std::uint8_t>>& file);
// The bits of the one NaN that stands in a file for all of them.
inline constexpr std::uint32_t TheNaN = 0x7FC00000;

class ShapeTableModel
{
public:
    Seen Perform(const ShapeTableCall& call);

private:
    struct ModelShape {
        std::array<std::u16string, 3> texts; // label, date and time, units
        std::array<float, 2> numbers{};      // ordinate, damping
    };
    struct ModelDOF {
        std::array<std::u16string, 3> texts; // label, degree of freedom, units
        std::int32_t dataSVT = 3;
        std::int32_t measurementType = 0;
    };
    // Values that are not in the map are 0.
    struct ModelValues {
        std::int32_t shapes = 0;
        std::int32_t dofs = 0;
        std::map<std::pair<std::int32_t, std::int32_t>, std::pair<float, float>> stored;

        bool Hold(std::int32_t shape, std::int32_t dof) const;
    };
    struct Object {
        std::u16string label;
        std::u16string notes;
        std::int32_t shapes = 0;
        std::int32_t dofs = 0;
        std::int32_t error = 0;
        std::u16string text;
    };

    void Report(Object& object, std::int32_t error);
    void Empty(Object& object);
    void SetCount(Object& object, std::int32_t Object::*count, std::int32_t value);
    bool SizeValues(const Object& object);
    ModelShape* FindShape(Object& object, std::int32_t number, std::int32_t indexError);
    ModelDOF* FindDOF(Object& object, std::int32_t number);
    Seen AccessValue(Object& object, const ShapeTableCall& call);
    Seen Save(const Object& object, std::size_t place) const;
    bool Write(const Object& object, std::vector<std::uint8_t>& file) const;
    bool WriteDOFs(const Object& object, std::vector<std::uint8_t>& file) const;
    bool WriteValues(const Object& object, std::vector<std::uint8_t>& file) const;

    std::vector<ModelShape> shapes_;
    std::vector<ModelDOF> dofs_;
    std::optional<ModelValues> values_;
    std::array<Object, 2> objects_;
    std::int32_t lastAllocation_ = 0;
    std::u16string posted_;
};

} // namespace qor::test
