' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' A Shape Table, built and saved; the component does not read them.
Dim file
Set file = CreateObject("QOR_File.clsQOR_File")

Sub CheckTable()
    file.ShapeTable_Label = "Modes"
    file.ShapeTable_Notes = "Two of them"
    file.ShapeTable_NumberOfShapes = 2
    file.ShapeTable_NumberOfDOFs = 3
    Check "label", file.ShapeTable_Label, "Modes"
    Check "notes", file.ShapeTable_Notes, "Two of them"
    Check "shapes", file.ShapeTable_NumberOfShapes, 2
    Check "DOFs", file.ShapeTable_NumberOfDOFs, 3
End Sub

Sub CheckShapes()
    file.Shape_Label(2) = "First bending"
    file.Shape_Ordinate(2) = 38.5
    file.Shape_OrdinateUnits(2) = "Hz"
    file.Shape_Damping(2) = 0.25
    file.Shape_DateAndTime(2) = "today"
    Check "shape label", file.Shape_Label(2), "First bending"
    Check "ordinate", file.Shape_Ordinate(2), 38.5
    Check "ordinate units", file.Shape_OrdinateUnits(2), "Hz"
    Check "damping", file.Shape_Damping(2), 0.25
    Check "shape date", file.Shape_DateAndTime(2), "today"
    Check "no error so far", file.ErrorStatus, 0
    file.Shape_Label(3) = "beyond"
    Check "shape beyond the last", file.ErrorStatus, 11
End Sub

Sub CheckDOFs()
    Check "kind of data at first", file.DOF_DataSVT(3), 3
    file.DOF_Label(3) = "Tip"
    file.DOF_DegreesOfFreedom(3) = "3Z"
    file.DOF_MeasurementType(3) = 22
    file.DOF_MeasurementUnits(3) = "kg^-1/2"
    file.DOF_DataSVT(3) = 4
    Check "DOF label", file.DOF_Label(3), "Tip"
    Check "DOF", file.DOF_DegreesOfFreedom(3), "3Z"
    Check "DOF type", file.DOF_MeasurementType(3), 22
    Check "DOF units", file.DOF_MeasurementUnits(3), "kg^-1/2"
    Check "kind of data", file.DOF_DataSVT(3), 4
    Check "no error so far", file.ErrorStatus, 0
    Check "label of a DOF beyond the last", file.DOF_Label(4), ""
    Check "its error", file.ErrorStatus, 21
End Sub

Sub CheckValues()
    Dim magnitude, phase
    Check "write", file.WriteShapeDOFvalue(2, 3, 0.5, 180), Success
    Check "read", file.ReadShapeDOFvalue(2, 3, magnitude, phase), Success
    Check "magnitude", magnitude, 0.5
    Check "phase", phase, 180
    Check "DOF beyond the last", file.WriteShapeDOFvalue(2, 4, magnitude, phase), Failure
    Check "its code", file.ErrorStatus, 21
End Sub

Sub CheckFile()
    Dim path, stream
    path = TemporaryPath(".shp")
    Check "save", file.OutputShapeTableFile(path), Success
    Set stream = files.OpenTextFile(path, 1)
    Check "first line", stream.ReadLine, "DU'lmeer Binary ShapeTable File."
    stream.Close
    files.DeleteFile path
    Check "save into a folder that is not there", file.OutputShapeTableFile(path & "\none.shp"), Failure

    file.InitializeShapeTableStorage
    Check "shapes afterwards", file.ShapeTable_NumberOfShapes, 0
    Check "label afterwards", file.ShapeTable_Label, "Modes"
End Sub

CheckTable
CheckShapes
CheckDOFs
CheckValues
CheckFile
CheckedAll
