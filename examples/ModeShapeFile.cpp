// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "ModeShapeFile.h"

#include "ComponentErrors.h"

void SaveModeShapes(const ModeShapes& modes, const std::filesystem::path& path)
{
    clsQOR_File file;
    file.ShapeTable_Label(modes.label);
    file.ShapeTable_Notes(modes.notes);
    // Both counts before any value: setting one may clear the values.
    file.ShapeTable_NumberOfShapes(static_cast<std::int32_t>(modes.shapes.size()));
    file.ShapeTable_NumberOfDOFs(static_cast<std::int32_t>(modes.degreesOfFreedom.size()));
    Check(file, path, "not enough memory for its values");

    std::int32_t dof = 0; // shapes and DOFs count from 1
    for (const auto& name : modes.degreesOfFreedom) {
        ++dof;
        file.DOF_Label(dof, name);
        file.DOF_DegreesOfFreedom(dof, name);
        file.DOF_MeasurementType(dof, modes.type);
        file.DOF_MeasurementUnits(dof, modes.units);
    }
    std::int32_t number = 0;
    for (const auto& shape : modes.shapes) {
        ++number;
        file.Shape_Label(number, shape.label);
        file.Shape_Ordinate(number, shape.frequency);
        file.Shape_OrdinateUnits(number, u"Hz");
        file.Shape_Damping(number, shape.damping);
        file.Shape_DateAndTime(number, modes.dateAndTime);
        dof = 0;
        for (const auto& value : shape.values) {
            const float magnitude = file.GetMagnitudeValueFrom(value.real(), value.imag());
            const float phase = file.GetPhaseValueFrom(value.real(), value.imag(), false);
            if (file.WriteShapeDOFvalue(number, ++dof, magnitude, phase) == Failure) {
                ThrowFor(file, path, "value not stored");
            }
        }
    }
    Check(file, path, "not stored");
    if (file.OutputShapeTableFile(path.u16string()) == Failure) ThrowFor(file, path, "cannot be written");
}
