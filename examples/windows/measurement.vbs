' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' Files three traces as a Data Block, then reads them back and shows their peaks: cscript measurement.vbs [FILE]
Option Explicit

Const Failure = -1   ' compare with the name: "If status Then" would take a failure for true
Const DB_MeasurementIsTimeResponse = 1
Const TraceCount = 3
Const SampleCount = 1000

Dim file, arrays, path
Set file = CreateObject("QOR_File.clsQOR_File")        ' empties the documents of this thread
Set arrays = CreateObject("QOR_File.QOR_FileArrays")   ' works on the same documents

path = "measurement.blk"
If WScript.Arguments.Count > 0 Then path = WScript.Arguments(0)
Save
Show

Sub Save()
    Dim trace
    file.DataBlock_Label = "Tap on a beam"
    file.DataBlock_XaxisUnits = "s"
    file.DataBlock_XaxisIncrement = 0.001
    file.DataBlock_NumberOfTraces = TraceCount
    file.DataBlock_NumberOfSamples = SampleCount
    For trace = 1 To TraceCount   ' everything counts from 1
        file.Trace_Label(trace) = "Accelerometer " & trace
        file.Trace_DegreesOfFreedom(trace) = trace & "Z"
        file.Trace_MeasurementUnits(trace) = "m/s^2"
        file.Trace_MeasurementType(trace) = DB_MeasurementIsTimeResponse
        Require "Trace " & trace, arrays.WriteTraceSamples(trace, DecayingWave(trace))
    Next
    Require path, file.OutputDataBlockFile(path)
End Sub

Sub Show()
    Dim trace, values
    Require path, file.InputDataBlockFile(path)
    WScript.Echo file.DataBlock_Label & ": " & file.DataBlock_NumberOfTraces & " traces of " & _
                 file.DataBlock_NumberOfSamples & " samples"
    values = Array()   ' an array of variants, of which VBScript can take elements, comes back as one
    For trace = 1 To file.DataBlock_NumberOfTraces
        Require "Trace " & trace, arrays.ReadTraceSamples(trace, values)
        WScript.Echo file.Trace_Label(trace) & ": peak " & FormatNumber(Peak(values), 3) & " " & _
                     file.Trace_MeasurementUnits(trace)
    Next
End Sub

' Ends the script where a call failed, or an earlier property could not be set.
Sub Require(what, status)
    Dim code, text
    code = file.ErrorStatus   ' once: reading clears it
    If status <> Failure And code = 0 Then Exit Sub
    text = file.GetLastErrorString   ' an older error's, unless it names the code
    If code = 0 Then text = "cannot be opened or made"
    If code <> 0 And InStr(text, "(" & code & ")") = 0 Then text = "error " & code
    WScript.Echo what & ": " & text
    WScript.Quit 1
End Sub

Function DecayingWave(trace)
    Dim values, sample
    values = Array()
    ReDim values(SampleCount - 1)
    For sample = 0 To SampleCount - 1
        values(sample) = trace * Exp(-0.005 * sample) * Sin(0.05 * sample)
    Next
    DecayingWave = values
End Function

Function Peak(values)
    Dim value, highest
    highest = 0
    For Each value In values
        If Abs(value) > Abs(highest) Then highest = value
    Next
    Peak = highest
End Function
