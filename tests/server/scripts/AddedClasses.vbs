' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' The added classes, whose objects work on the documents that a clsQOR_File of the same thread made.
Dim file
Set file = CreateObject("QOR_File.clsQOR_File")
file.DataBlock_NumberOfTraces = 1

Sub CheckLinPower()
    Dim added
    Set added = CreateObject("QOR_File.ClassAdd_1")
    Check "linear at first", added.TraceLinPower(1), 0
    added.TraceLinPower(1) = 1
    Check "power", added.TraceLinPower(1), 1
    added.TraceLinPower(2) = 1
    Check "trace beyond the last", file.ErrorStatus, 10
    Check "its code stays", file.ErrorStatus, 10
    file.Structure_NumberOfVertexPoints = 1
    Check "until a size of a Structure is set", file.ErrorStatus, 0
End Sub

Sub CheckPeakRMS()
    Dim added
    Set added = CreateObject("QOR_File.ClassAdd_2")
    Check "peak at first", added.DataBlockPeakRMS, 1245
    added.DataBlockPeakRMS = 1247
    Check "RMS", added.DataBlockPeakRMS, 1247
End Sub

Sub CheckZaxisLabel()
    Dim added
    Set added = CreateObject("QOR_File.ClassAdd_3")
    Check "label at first", added.TraceZaxisLabel(1), ""
    added.TraceZaxisLabel(1) = "Speed"
    Check "label", added.TraceZaxisLabel(1), "Speed"
End Sub

Sub CheckXaxis()
    Dim added
    Set added = CreateObject("QOR_File.ClassAdd_5")
    added.XaxisUnits = 1
    added.DataBlockRPM = 1500
    added.DataBlockExponentialWindowDampingInHz = 0.5
    Check "units", added.XaxisUnits, 1
    Check "speed", added.DataBlockRPM, 1500
    Check "damping", added.DataBlockExponentialWindowDampingInHz, 0.5

    file.Initialize
    Check "speed after Initialize", added.DataBlockRPM, 0
End Sub

Sub CheckOtherNames()
    Dim added
    Set added = CreateObject("QOR_File.ClassAdd_5.1")
    added.DataBlockRPM = 60
    Check "an object by its versioned name", CreateObject("QOR_File.ClassAdd_5").DataBlockRPM, 60
End Sub

CheckLinPower
CheckPeakRMS
CheckZaxisLabel
CheckXaxis
CheckOtherNames
CheckedAll
