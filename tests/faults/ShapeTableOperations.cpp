// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

namespace qor::test {

const std::vector<Operation>& ShapeTableOperations()
{
    static const std::vector<Operation> operations = {
        {"clsQOR_File::InitializeShapeTableStorage", Fill, Sets([](World& w) { w.file.InitializeShapeTableStorage(); }),
         NeverAsks},
        {"clsQOR_File::ShapeTable_Label get", Fill, [](World& w) { return Text(w.file.ShapeTable_Label()); }, Throws},
        {"clsQOR_File::ShapeTable_Label set", Fill, Sets([](World& w) { w.file.ShapeTable_Label(LongText); }), Throws},
        {"clsQOR_File::ShapeTable_Notes get", Fill, [](World& w) { return Text(w.file.ShapeTable_Notes()); }, Throws},
        {"clsQOR_File::ShapeTable_Notes set", Fill, Sets([](World& w) { w.file.ShapeTable_Notes(LongText); }), Throws},
        {"clsQOR_File::ShapeTable_NumberOfShapes get", Fill,
         [](World& w) { return Number(w.file.ShapeTable_NumberOfShapes()); }, NeverAsks},
        {"clsQOR_File::ShapeTable_NumberOfShapes set to more", Fill,
         Sets([](World& w) { w.file.ShapeTable_NumberOfShapes(50); }), EmptiesShapeTable},
        {"clsQOR_File::ShapeTable_NumberOfShapes set to none", Fill,
         Sets([](World& w) { w.file.ShapeTable_NumberOfShapes(0); }), NeverAsks},
        {"clsQOR_File::ShapeTable_NumberOfDOFs get", Fill,
         [](World& w) { return Number(w.file.ShapeTable_NumberOfDOFs()); }, NeverAsks},
        {"clsQOR_File::ShapeTable_NumberOfDOFs set to more", Fill,
         Sets([](World& w) { w.file.ShapeTable_NumberOfDOFs(50); }), EmptiesShapeTable},
        {"clsQOR_File::ShapeTable_NumberOfDOFs set to none", Fill,
         Sets([](World& w) { w.file.ShapeTable_NumberOfDOFs(0); }), NeverAsks},
        {"clsQOR_File::Shape_Label get", Fill, [](World& w) { return Text(w.file.Shape_Label(2)); }, Throws},
        {"clsQOR_File::Shape_Label get of none", Fill, [](World& w) { return Text(w.file.Shape_Label(99)); },
         KeepsOldErrorText},
        {"clsQOR_File::Shape_Label set", Fill, Sets([](World& w) { w.file.Shape_Label(2, LongText); }), Throws},
        {"clsQOR_File::Shape_Label set of none", Fill, Sets([](World& w) { w.file.Shape_Label(99, LongText); }),
         KeepsOldErrorText},
        {"clsQOR_File::Shape_DateAndTime get", Fill, [](World& w) { return Text(w.file.Shape_DateAndTime(2)); },
         Throws},
        {"clsQOR_File::Shape_DateAndTime get of none", Fill,
         [](World& w) { return Text(w.file.Shape_DateAndTime(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Shape_DateAndTime set", Fill, Sets([](World& w) { w.file.Shape_DateAndTime(2, LongText); }),
         Throws},
        {"clsQOR_File::Shape_DateAndTime set of none", Fill,
         Sets([](World& w) { w.file.Shape_DateAndTime(99, LongText); }), KeepsOldErrorText},
        {"clsQOR_File::Shape_OrdinateUnits get", Fill, [](World& w) { return Text(w.file.Shape_OrdinateUnits(2)); },
         Throws},
        {"clsQOR_File::Shape_OrdinateUnits get of none", Fill,
         [](World& w) { return Text(w.file.Shape_OrdinateUnits(99)); }, KeepsOldErrorText},
        {"clsQOR_File::Shape_OrdinateUnits set", Fill, Sets([](World& w) { w.file.Shape_OrdinateUnits(2, LongText); }),
         Throws},
        {"clsQOR_File::Shape_OrdinateUnits set of none", Fill,
         Sets([](World& w) { w.file.Shape_OrdinateUnits(99, LongText); }), KeepsOldErrorText},
        {"clsQOR_File::DOF_Label get", Fill, [](World& w) { return Text(w.file.DOF_Label(2)); }, Throws},
        {"clsQOR_File::DOF_Label get of none", Fill, [](World& w) { return Text(w.file.DOF_Label(99)); },
         KeepsOldErrorText},
        {"clsQOR_File::DOF_Label set", Fill, Sets([](World& w) { w.file.DOF_Label(2, LongText); }), Throws},
        {"clsQOR_File::DOF_Label set of none", Fill, Sets([](World& w) { w.file.DOF_Label(99, LongText); }),
         KeepsOldErrorText},
        {"clsQOR_File::DOF_DegreesOfFreedom get", Fill, [](World& w) { return Text(w.file.DOF_DegreesOfFreedom(2)); },
         Throws},
        {"clsQOR_File::DOF_DegreesOfFreedom get of none", Fill,
         [](World& w) { return Text(w.file.DOF_DegreesOfFreedom(99)); }, KeepsOldErrorText},
        {"clsQOR_File::DOF_DegreesOfFreedom set", Fill,
         Sets([](World& w) { w.file.DOF_DegreesOfFreedom(2, LongText); }), Throws},
        {"clsQOR_File::DOF_DegreesOfFreedom set of none", Fill,
         Sets([](World& w) { w.file.DOF_DegreesOfFreedom(99, LongText); }), KeepsOldErrorText},
        {"clsQOR_File::DOF_MeasurementUnits get", Fill, [](World& w) { return Text(w.file.DOF_MeasurementUnits(2)); },
         Throws},
        {"clsQOR_File::DOF_MeasurementUnits get of none", Fill,
         [](World& w) { return Text(w.file.DOF_MeasurementUnits(99)); }, KeepsOldErrorText},
        {"clsQOR_File::DOF_MeasurementUnits set", Fill,
         Sets([](World& w) { w.file.DOF_MeasurementUnits(2, LongText); }), Throws},
        {"clsQOR_File::DOF_MeasurementUnits set of none", Fill,
         Sets([](World& w) { w.file.DOF_MeasurementUnits(99, LongText); }), KeepsOldErrorText},
        {"clsQOR_File::Shape_Ordinate get", Fill, [](World& w) { return Number(w.file.Shape_Ordinate(2)); }, NeverAsks},
        {"clsQOR_File::Shape_Ordinate get of none", Fill, [](World& w) { return Number(w.file.Shape_Ordinate(99)); },
         KeepsOldErrorText},
        {"clsQOR_File::Shape_Ordinate set", Fill, Sets([](World& w) { w.file.Shape_Ordinate(2, 2.5F); }), NeverAsks},
        {"clsQOR_File::Shape_Ordinate set of none", Fill, Sets([](World& w) { w.file.Shape_Ordinate(99, 2.5F); }),
         KeepsOldErrorText},
        {"clsQOR_File::Shape_Damping get", Fill, [](World& w) { return Number(w.file.Shape_Damping(2)); }, NeverAsks},
        {"clsQOR_File::Shape_Damping get of none", Fill, [](World& w) { return Number(w.file.Shape_Damping(99)); },
         KeepsOldErrorText},
        {"clsQOR_File::Shape_Damping set", Fill, Sets([](World& w) { w.file.Shape_Damping(2, 2.5F); }), NeverAsks},
        {"clsQOR_File::Shape_Damping set of none", Fill, Sets([](World& w) { w.file.Shape_Damping(99, 2.5F); }),
         KeepsOldErrorText},
        {"clsQOR_File::DOF_DataSVT get", Fill, [](World& w) { return Number(w.file.DOF_DataSVT(2)); }, NeverAsks},
        {"clsQOR_File::DOF_DataSVT get of none", Fill, [](World& w) { return Number(w.file.DOF_DataSVT(99)); },
         KeepsOldErrorText},
        {"clsQOR_File::DOF_DataSVT set", Fill, Sets([](World& w) { w.file.DOF_DataSVT(2, DataIsTensor); }), NeverAsks},
        {"clsQOR_File::DOF_DataSVT set of none", Fill, Sets([](World& w) { w.file.DOF_DataSVT(99, DataIsTensor); }),
         KeepsOldErrorText},
        {"clsQOR_File::DOF_MeasurementType get", Fill, [](World& w) { return Number(w.file.DOF_MeasurementType(2)); },
         NeverAsks},
        {"clsQOR_File::DOF_MeasurementType get of none", Fill,
         [](World& w) { return Number(w.file.DOF_MeasurementType(99)); }, KeepsOldErrorText},
        {"clsQOR_File::DOF_MeasurementType set", Fill,
         Sets([](World& w) { w.file.DOF_MeasurementType(2, ST_MeasurementIsResidue); }), NeverAsks},
        {"clsQOR_File::DOF_MeasurementType set of none", Fill,
         Sets([](World& w) { w.file.DOF_MeasurementType(99, ST_MeasurementIsResidue); }), KeepsOldErrorText},
        {"clsQOR_File::ReadShapeDOFvalue", Fill,
         [](World& w) {
             Answer a = Number(w.file.ReadShapeDOFvalue(2, 2, w.first[0], w.second[0]));
             a.values = {w.first[0], w.second[0]};
             return a;
         },
         NeverAsks},
        {"clsQOR_File::ReadShapeDOFvalue of no DOF", Fill,
         [](World& w) { return Number(w.file.ReadShapeDOFvalue(2, 99, w.first[0], w.second[0])); }, KeepsOldErrorText},
        {"clsQOR_File::WriteShapeDOFvalue", Fill,
         [](World& w) { return Number(w.file.WriteShapeDOFvalue(2, 2, 7, 8)); }, NeverAsks},
        {"clsQOR_File::WriteShapeDOFvalue of no shape", Fill,
         [](World& w) { return Number(w.file.WriteShapeDOFvalue(99, 2, 7, 8)); }, KeepsOldErrorText},

        {"FileArrays::NumberOfDOFs", Fill, [](World& w) { return Number(w.arrays.NumberOfDOFs()); }, NeverAsks},
        {"FileArrays::ReadShapeDOFvalues", Fill,
         [](World& w) {
             Answer a =
                 Number(w.arrays.ReadShapeDOFvalues(2, std::span(w.first).first(2), std::span(w.second).first(2)));
             a.values = {w.first[0], w.first[3], w.second[0], w.second[3]};
             return a;
         },
         NeverAsks},
        {"FileArrays::WriteShapeDOFvalues", Fill,
         [](World& w) {
             return Number(w.arrays.WriteShapeDOFvalues(2, std::span(w.first).first(2), std::span(w.second).first(2)));
         },
         NeverAsks},
        {"FileArrays::WriteShapeDOFvalues of no shape", Fill,
         [](World& w) { return Number(w.arrays.WriteShapeDOFvalues(99, std::span(w.first).first(2), {})); },
         KeepsOldErrorText},
    };
    return operations;
}

} // namespace qor::test
