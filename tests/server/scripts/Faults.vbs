' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' What a script meets as an error of the run, and what it does not.
Dim file
Set file = CreateObject("QOR_File.clsQOR_File")

Sub CheckRaised(what, number)
    Check what, Err.Number, number
    Err.Clear
End Sub

Sub CheckRaisedFaults()
    Dim status, description, source
    On Error Resume Next
    status = file.WriteStructureVertexPoint(-1, "new", 0, 0, 0)
    description = Err.Description
    source = Err.Source
    CheckRaised "appended point", 9
    On Error GoTo 0
    Check "description", description, "Subscript out of range"
    Check "source", source, "QOR_File"
    Check "no status came back", IsEmpty(status), True
    Check "points, raised all the same", file.Structure_NumberOfVertexPoints, 1
End Sub

Sub CheckRefusedArguments()
    Dim status, re, word, nothingAtAll
    word = "many"
    On Error Resume Next
    file.DataBlock_NumberOfTraces = "many"
    CheckRaised "text for a number", 13
    file.DataBlock_NumberOfTraces = 1E+20
    CheckRaised "number that is too large", 13
    status = file.ReadTraceSampleValue(1, 1, word, re)
    CheckRaised "variable with a text for a number", 13
    file.DataBlock_Label = file
    CheckRaised "object for a text", 13
    file.DataBlock_Colour = 1
    CheckRaised "unknown property", 438
    status = file.ReadEverything(1)
    CheckRaised "unknown method", 438
    status = file.ReadTraceSampleValue(1, 1)
    CheckRaised "arguments that are missing", 449
    status = file.ReadTraceSampleValue(1, 1, re, re, re)
    CheckRaised "arguments that are too many", 450
    file.DLLversion = 2
    CheckRaised "property that cannot be set", 438
    Set nothingAtAll = CreateObject("QOR_File.clsQOR_Files")
    CheckRaised "class that is not there", 429
    On Error GoTo 0
    Check "variable, unchanged", word, "many"
    Check "traces, unchanged", file.DataBlock_NumberOfTraces, 0
End Sub

' Numbers are taken as any type that holds their value, and texts that read as one.
Sub CheckConvertedArguments()
    file.DataBlock_NumberOfTraces = "2"
    Check "text that is a number", file.DataBlock_NumberOfTraces, 2
    file.DataBlock_NumberOfTraces = 3.0
    Check "double", file.DataBlock_NumberOfTraces, 3
    file.DataBlock_NumberOfTraces = CByte(4)
    Check "byte", file.DataBlock_NumberOfTraces, 4
    file.DataBlock_NumberOfTraces = True
    Check "True, which is -1", file.DataBlock_NumberOfTraces, 0
    file.DataBlock_NumberOfTraces = Empty
    Check "nothing", file.DataBlock_NumberOfTraces, 0
    file.DataBlock_Label = 12
    Check "number for a text", file.DataBlock_Label, "12"
    Check "no error of the component", file.ErrorStatus, 0
End Sub

' An error of the component itself is a status, never an error of the run.
Sub CheckComponentErrors()
    Dim status, number
    On Error Resume Next
    status = file.WriteTraceSampleValue(7, 1, 0, 0)
    file.Trace_Label(7) = "beyond"
    number = Err.Number
    On Error GoTo 0
    Check "error of the run", number, 0
    Check "status", status, Failure
    file.ErrorStatus = 10
    Check "error that a script sets", file.ErrorStatus, 10
End Sub

CheckRaisedFaults
CheckRefusedArguments
CheckConvertedArguments
CheckComponentErrors
CheckedAll
