Attribute VB_Name = "Measurement"
' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' Files three traces as a Data Block, then reads them back and shows their peaks.
' In the VBA editor: Tools, References, check "DU'lmeerQOR File Creation DLL"; File, Import File, this file.
Option Explicit

Private Const TraceCount As Long = 3
Private Const SampleCount As Long = 1000

Private file As clsQOR_File
Private arrays As IQOR_FileArrays

Public Sub FileMeasurement()
    Dim path As String
    path = Environ$("TEMP") & "\measurement.blk"
    Set file = New clsQOR_File   ' empties the documents of this thread
    Set arrays = file            ' the same object's interface for whole arrays
    On Error GoTo Failed
    Save path
    Show path
    Exit Sub
Failed:
    MsgBox Err.Description, vbExclamation
End Sub

Private Sub Save(ByVal path As String)
    Dim trace As Long
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

Private Sub Show(ByVal path As String)
    Dim trace As Long, values() As Single
    Require path, file.InputDataBlockFile(path)
    Debug.Print file.DataBlock_Label & ": " & file.DataBlock_NumberOfTraces & " traces of " & _
                file.DataBlock_NumberOfSamples & " samples"
    For trace = 1 To file.DataBlock_NumberOfTraces
        Require "Trace " & trace, arrays.ReadTraceSamples(trace, values)   ' sizes the array
        Debug.Print file.Trace_Label(trace) & ": peak " & Format$(Peak(values), "0.000") & " " & _
                    file.Trace_MeasurementUnits(trace)
    Next
End Sub

' Raises an error where a call failed, or an earlier property could not be set.
Private Sub Require(ByVal what As String, ByVal status As ReturnStatus)
    Dim code As ErrorStatusTypes, text As String
    code = file.ErrorStatus   ' once: reading clears it
    If status <> ReturnStatus.Failure And code = NoError Then Exit Sub
    text = file.GetLastErrorString
    If code = NoError Then text = "cannot be opened or made"
    Err.Raise vbObjectError + 513, "Measurement", what & ": " & text
End Sub

Private Function DecayingWave(ByVal trace As Long) As Single()
    Dim values() As Single, sample As Long
    ReDim values(0 To SampleCount - 1)
    For sample = 0 To SampleCount - 1
        values(sample) = trace * Exp(-0.005 * sample) * Sin(0.05 * sample)
    Next
    DecayingWave = values
End Function

Private Function Peak(values() As Single) As Single
    Dim sample As Long
    For sample = LBound(values) To UBound(values)
        If Abs(values(sample)) > Abs(Peak) Then Peak = values(sample)
    Next
End Function
