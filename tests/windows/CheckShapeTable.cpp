// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A Shape Table file: the same bytes on every system, those of its values included.
#include "Check.h"

#include <QOR_File/QOR_File.h>

namespace qor::test {
namespace {

// All bytes of the file saved below.
constexpr std::uint64_t SavedBytes = 0x329FC8BEDD747A30;

void Fill(clsQOR_File& file)
{
    constexpr std::int32_t shapes = 40;
    constexpr std::int32_t dofs = 300;
    file.ShapeTable_Label(u"Modes of the beam");
    file.ShapeTable_NumberOfShapes(shapes);
    file.ShapeTable_NumberOfDOFs(dofs);
    file.Shape_Ordinate(1, 12.5F);
    file.Shape_OrdinateUnits(1, u" Hz ");
    file.DOF_DegreesOfFreedom(dofs, u"100Z");
    for (std::int32_t shape = 1; shape <= shapes; ++shape) {
        for (std::int32_t dof = 1; dof <= dofs; ++dof) {
            const auto number = static_cast<float>(shape * dof);
            file.WriteShapeDOFvalue(shape, dof, number / 7, 15 * number);
        }
    }
}

} // namespace

void CheckShapeTable()
{
    const Folder folder(u"QOR_File \u00FC\u4E2D ");
    const auto path = folder / "modes.shp";
    clsQOR_File file;
    Fill(file);
    Check(file.OutputShapeTableFile(path.u16string()) == Success, "a Shape Table is saved");
    CheckEqual(ChecksumOf(path), SavedBytes, "its bytes are those of every other system");
    Check(file.OutputShapeTableFile(path.u16string()) == Success, "and saved again over that file");
    CheckEqual(ChecksumOf(path), SavedBytes, "with the same bytes");

    // Each array could be had on a large machine, the values could not be one.
    file.ShapeTable_NumberOfShapes(20'000);
    file.ShapeTable_NumberOfDOFs(20'000);
    Check(file.ErrorStatus() == AllocationError, "a table beyond one array is refused");
    Check(file.ShapeTable_NumberOfShapes() == 0, "and empty afterwards");
}

} // namespace qor::test
