' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' Whole arrays in one call. VBScript takes arrays of variants apart, so these are what it gets: in variables that hold one.
Dim file, arrays
Set file = CreateObject("QOR_File.clsQOR_File")
Set arrays = CreateObject("QOR_File.QOR_FileArrays")

Sub CheckArray(what, values, expected)
    Dim number
    Check what & ", elements", UBound(values), UBound(expected)
    For number = 0 To UBound(expected)
        Check what & ", " & number, values(number), expected(number)
    Next
End Sub

Sub CheckSamples()
    Dim real, imaginary
    file.DataBlock_TraceDataFormat = 2
    file.DataBlock_NumberOfTraces = 2
    file.DataBlock_NumberOfSamples = 3
    Check "write", arrays.WriteTraceSamples(1, Array(1, 2.5, CSng(3)), Array(-1, -2, -3)), Success
    Check "write real parts", arrays.WriteTraceSamples(2, Array(4, 5, 6)), Success

    real = Array()
    imaginary = Array()
    Check "read", arrays.ReadTraceSamples(1, real, imaginary), Success
    CheckArray "real", real, Array(1, 2.5, 3)
    CheckArray "imaginary", imaginary, Array(-1, -2, -3)
    Check "read real parts", arrays.ReadTraceSamples(2, real), Success
    CheckArray "real of the other", real, Array(4, 5, 6)

    Check "array that is too short", arrays.WriteTraceSamples(1, Array(1, 2)), Failure
    Check "its code", file.ErrorStatus, 11
    Check "trace beyond the last", arrays.ReadTraceSamples(3, real), Failure
    CheckArray "real, unchanged", real, Array(4, 5, 6)

    real = Empty
    Check "read into an empty variable", arrays.ReadTraceSamples(1, real), Success
    Check "an array of single", VarType(real), 8192 + vbSingle
    imaginary = Null
    Check "read into Null", arrays.ReadTraceSamples(1, real, imaginary), Success
    Check "an array of single again", VarType(imaginary), 8192 + vbSingle
    Check "written again", arrays.WriteTraceSamples(2, real), Success
    real = Array()
    Check "read again", arrays.ReadTraceSamples(2, real), Success
    CheckArray "what an array of single held", real, Array(1, 2.5, 3)
End Sub

Sub CheckXvalues()
    Dim x
    x = Array()
    file.DataBlock_XaxisStart = 10
    file.DataBlock_XaxisIncrement = 0.5
    Check "read uniform X", arrays.ReadDataBlockXaxisValues(x), Success
    CheckArray "uniform X", x, Array(10, 10.5, 11)
    file.DataBlock_XaxisSpacing = 2
    Check "write X", arrays.WriteDataBlockXaxisValues(Array(1, 10, 100)), Success
    Check "read X", arrays.ReadDataBlockXaxisValues(x), Success
    CheckArray "X", x, Array(1, 10, 100)
End Sub

Sub CheckShapes()
    Dim magnitudes, phases
    magnitudes = Array()
    phases = Array()
    file.ShapeTable_NumberOfShapes = 1
    file.ShapeTable_NumberOfDOFs = 2
    Check "write shape", arrays.WriteShapeDOFvalues(1, Array(0.5, 0.25), Array(180, 90)), Success
    Check "read shape", arrays.ReadShapeDOFvalues(1, magnitudes, phases), Success
    CheckArray "magnitudes", magnitudes, Array(0.5, 0.25)
    CheckArray "phases", phases, Array(180, 90)
End Sub

Sub CheckCoordinates()
    Dim x, y, z
    x = Array()
    y = Array()
    z = Array()
    file.Structure_NumberOfVertexPoints = 2
    Check "write points", arrays.WriteStructureVertexPointCoordinates(Array(0, 1), Array(2, 3), Array(4, 5)), Success
    Check "read points", arrays.ReadStructureVertexPointCoordinates(x, y, z), Success
    CheckArray "X of points", x, Array(0, 1)
    CheckArray "Y of points", y, Array(2, 3)
    CheckArray "Z of points", z, Array(4, 5)
End Sub

CheckSamples
CheckXvalues
CheckShapes
CheckCoordinates
CheckedAll
