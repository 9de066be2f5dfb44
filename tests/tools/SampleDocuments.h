// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Small documents of every kind, as the published members write them.
#pragma once

#include "support/DataBlockFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

namespace qor::test {

// Three real traces of four samples, 0.25 s apart from 1 s on; trace n holds n, -2n, 3n and 0.
inline void SaveThreeTraces(const std::filesystem::path& path)
{
    clsQOR_File file;
    file.DataBlock_Label(u"Kran 7");
    file.DataBlock_Notes(u"first\nsecond");
    file.DataBlock_NumberOfTraces(3);
    file.DataBlock_NumberOfSamples(4);
    file.DataBlock_XaxisStart(1);
    file.DataBlock_XaxisIncrement(0.25F);
    file.DataBlock_XaxisUnits(u"s");
    for (std::int32_t trace = 1; trace <= 3; ++trace) {
        const auto n = static_cast<float>(trace);
        const float values[] = {n, -2 * n, 3 * n, 0};
        for (std::int32_t sample = 1; sample <= 4; ++sample) {
            file.WriteTraceSampleValue(trace, sample, values[sample - 1], 0);
        }
        file.Trace_Label(trace, u"Trägheit " + std::u16string(1, static_cast<char16_t>(u'0' + trace)));
        file.Trace_MeasurementUnits(trace, u"m/s²");
        file.Trace_MeasurementType(trace, DB_MeasurementIsTimeResponse);
        file.Trace_DegreesOfFreedom(trace, u"1Z");
    }
    ASSERT_EQ(file.OutputDataBlockFile(Utf16(path)), Success);
}

// A roof: four corners and a ridge point, the corners joined by lines and a quad, the ridge by triangles. Point 5
// has local axes, a center point and an area of its own.
inline void SaveRoof(const std::filesystem::path& path)
{
    constexpr std::int32_t red = 0x0000FF;
    constexpr std::int32_t blue = 0xFF0000;
    clsQOR_File file;
    file.Structure_Label(u"Roof");
    file.Structure_Notes(u"first\nsecond");
    file.Structure_NumberOfVertexPoints(5);
    file.WriteStructureVertexPoint(1, u"A", 0, 0, 0);
    file.WriteStructureVertexPoint(2, u"B", 2, 0, 0);
    file.WriteStructureVertexPoint(3, u"C", 2, 1.5F, 0);
    file.WriteStructureVertexPoint(4, u"D", 0, 1.5F, 0);
    file.WriteStructureVertexPoint(5, u"Ridge", 1, 0.75F, 0.6F, red, true);
    file.WriteStructureVertexPointInformation(5, 1, Cylindrical, Zaxis, 0.25F);
    file.WriteStructureVertexPointTransform(5, Xaxis, 0, 1, 0);
    file.WriteStructureVertexPointTransform(5, Yaxis, -1, 0, 0);
    file.WriteStructureEdgeLine(-1, 1, 2, blue);
    file.WriteStructureEdgeLine(-1, 3, 4, blue, true);
    file.WriteStructureSurfaceTriangle(-1, 1, 2, 5);
    ClassAdd_4().WriteStructureQuadSurface(-1, 1, 2, 3, 4);
    ASSERT_EQ(file.OutputStructureFile(Utf16(path)), Success);
}

// Two shapes of three DOFs. Shape n holds n, 2n at 180 degrees, and n / 2 at 90.
inline void SaveModes(const std::filesystem::path& path)
{
    clsQOR_File file;
    file.ShapeTable_Label(u"Modes of the roof");
    file.ShapeTable_Notes(u"from 3 measurements");
    file.ShapeTable_NumberOfShapes(2);
    file.ShapeTable_NumberOfDOFs(3);
    for (std::int32_t shape = 1; shape <= 2; ++shape) {
        const auto n = static_cast<float>(shape);
        file.Shape_Label(shape, u"Mode " + std::u16string(1, static_cast<char16_t>(u'0' + shape)));
        file.Shape_Ordinate(shape, 38.58F * n);
        file.Shape_OrdinateUnits(shape, u"Hz");
        file.Shape_Damping(shape, 0.0125F);
        file.WriteShapeDOFvalue(shape, 1, n, 0);
        file.WriteShapeDOFvalue(shape, 2, 2 * n, 180);
        file.WriteShapeDOFvalue(shape, 3, n / 2, 90);
    }
    for (std::int32_t dof = 1; dof <= 3; ++dof) {
        const std::u16string number(1, static_cast<char16_t>(u'0' + dof));
        file.DOF_Label(dof, u"Träger " + number);
        file.DOF_DegreesOfFreedom(dof, number + u"Z");
        file.DOF_MeasurementType(dof, dof < 3 ? ST_MeasurementIsUnitModalMass : ST_MeasurementIsStrain);
        file.DOF_MeasurementUnits(dof, dof < 3 ? u"m/s²" : u"µm/m");
    }
    ASSERT_EQ(file.OutputShapeTableFile(Utf16(path)), Success);
}

// Counts three traces of two samples, as only a damaged file does, and holds one.
inline void SaveOneTraceOfThree(const std::filesystem::path& path)
{
    WriteBytes(path, SizedFile(3, 2).Field(11).Nested(TraceBytes().Field(17, Floats({1, 2}))).Field(12).Build());
}

} // namespace qor::test
