' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' The component itself: version, error status, path names, conversions, objects that share their documents.
Dim file
Set file = CreateObject("QOR_File.clsQOR_File")

Sub CheckVersion()
    Check "DLLversion", file.DLLversion, CSng(1.05)
    CheckType "DLLversion", file.DLLversion, "Single"
End Sub

Sub CheckErrorStatus()
    Check "no error at first", file.ErrorStatus, 0
    Check "no text at first", file.GetLastErrorString, ""

    file.ErrorStatus = 10
    Check "text of a code", file.GetLastErrorString, "Error (10): Trace Index error"
    Check "status", file.ErrorStatus, 10
    Check "status, cleared by the reading", file.ErrorStatus, 0
    Check "text, kept", file.GetLastErrorString(), "Error (10): Trace Index error"

    file.ErrorStatus = 12
    Check "text of a code without one", file.GetLastErrorString, "Error (12): Undefined error"
    file.ErrorStatus = 0
    Check "text after no error", file.GetLastErrorString, "Error (12): Undefined error"
    Check "status set to no error", file.ErrorStatus, 0
End Sub

Sub CheckPaths()
    Dim path, folder, existing
    path = "C:\Tests\Bar\beam.blk"
    Check "GetFileName", file.GetFileName(path), "beam.blk"
    Check "GetFilePath", file.GetFilePath(path), "C:\Tests\Bar\"
    Check "path, unchanged", path, "C:\Tests\Bar\beam.blk"
    Check "PathNamesEqual", file.PathNamesEqual(path, "c:\tests\BAR\Beam.blk"), True
    CheckType "PathNamesEqual", file.PathNamesEqual(path, path), "Boolean"
    Check "PathNamesEqual of others", file.PathNamesEqual(path, "C:\Tests\beam.blk"), False
    Check "short form of nothing", file.GetDOS_FilePathName("C:\no such folder\no such file"), ""

    existing = TemporaryPath(" with blanks.blk")
    files.CreateTextFile(existing).Close
    folder = file.GetDOS_FilePathName(existing)
    Check "short form, without blanks", InStr(folder, " "), 0
    Check "short form, of the same file", files.FileExists(folder), True
    Check "short and long form", file.PathNamesEqual(folder, existing), True
    files.DeleteFile existing
End Sub

Sub CheckConversions()
    Dim three, four
    three = 3
    four = 4
    Check "magnitude", file.GetMagnitudeValueFrom(three, four), 5
    Check "real part", file.GetRealValueFrom(2, 180), -2
    Check "imaginary part", file.GetImaginaryValueFrom(2, 90), 2
    Check "phase", file.GetPhaseValueFrom(1, -1, False), -45
    Check "phase from 0 to 360", file.GetPhaseValueFrom(1, -1, True), 315
    Check "phase of doubles", file.GetPhaseValueFrom(0.5, 0.5, False), 45
    Check "phase of texts", file.GetPhaseValueFrom("1", "1", False), 0
    CheckType "phase", file.GetPhaseValueFrom(three, four, False), "Single"
    Check "number, unchanged", three, 3
    CheckType "number", three, "Integer"
End Sub

Sub CheckSharedDocuments()
    Dim other
    file.DataBlock_NumberOfTraces = 2
    file.ShapeTable_NumberOfShapes = 1
    file.Structure_NumberOfVertexPoints = 4
    file.Structure_Label = "of the first"

    Set other = CreateObject("QOR_File.clsQOR_File")
    Check "traces after a second object came", file.DataBlock_NumberOfTraces, 0
    Check "points after a second object came", file.Structure_NumberOfVertexPoints, 0

    other.DataBlock_NumberOfTraces = 3
    other.Trace_Label(3) = "seen by both"
    Check "what the other made", file.DataBlock_NumberOfTraces, 3
    Check "what the other wrote", file.Trace_Label(3), "seen by both"
    Check "label of the first object", file.Structure_Label, "of the first"
    Check "label of the other object", other.Structure_Label, ""

    other.Trace_Label(4) = "beyond"
    Check "error of the first object", file.ErrorStatus, 0
    Check "error of the other object", other.ErrorStatus, 10

    file.Initialize
    Check "traces after Initialize", other.DataBlock_NumberOfTraces, 0
    Set other = Nothing
    file.DataBlock_NumberOfTraces = 1
    Check "traces after the other object went", file.DataBlock_NumberOfTraces, 1
End Sub

CheckVersion
CheckErrorStatus
CheckPaths
CheckConversions
CheckSharedDocuments
CheckedAll
