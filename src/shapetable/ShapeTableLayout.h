// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The Shape Table file: flat, without tags, so that order is everything. Each part is declared once, as calls
// on a file that either writes or reads what it is handed. Page: docs/formats/shapetable.md.
#pragma once

#include "shapetable/ShapeTable.h"

#include <string_view>

namespace qor {

inline constexpr std::string_view ShapeTable_Identification = "DU'lmeer Binary ShapeTable File.";
inline constexpr std::int16_t ShapeTable_Version = 12;

// What stands once in a file.
struct ShapeTableTexts {
    std::u16string Label;
    std::u16string Notes;
};

// Behind the preamble. The constants are what the application writes for settings that this library has not.
template <class File, class Counts, class Texts>
void Visit_Header(File& file, Counts& counts, Texts& texts)
{
    file.Int32(counts.NumberOfDOFs);
    file.Int32(counts.NumberOfShapes);
    file.Text(texts.Label);
    file.Text(texts.Notes);
    file.Constant16(1, 1);
    file.ConstantFloat(135.0F);
    file.Constant16(0, 2);
    file.ConstantText(u"System");
    file.ConstantFloat(10.0F);
    file.Constant16(0, 4);
    file.Constant16(-1, 8);
    file.Constant16(0, 8);
}

template <class File, class Record>
void Visit_Shape(File& file, Record& shape)
{
    file.Text(shape.Label);
    file.Float(shape.Ordinate);
    file.TrimmedText(shape.OrdinateUnits);
    file.Float(shape.Damping);
    file.Text(shape.DateAndTime);
    file.Constant16(0, 2);
}

template <class File, class Record>
void Visit_DOF(File& file, Record& dof)
{
    file.Text(dof.Label);
    file.MeasurementType(dof);
    file.Text(dof.DegreesOfFreedom);
    file.TrimmedText(dof.MeasurementUnits);
    file.Constant16(0, 2);
    file.ConstantText(u"");
    file.ConstantText(u"");
}

// Then 2 * shapes * DOFs floats: real and imaginary part, all DOFs of shape 1 first. Nothing stands behind
// them.

} // namespace qor
