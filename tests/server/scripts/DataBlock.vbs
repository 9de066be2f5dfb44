' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' A Data Block, built, saved and read back.
Const SampleCount = 8

Dim file
Set file = CreateObject("QOR_File.clsQOR_File")

Sub CheckHeader()
    Check "notes at first", file.DataBlock_Notes, "Data Block history"
    file.DataBlock_Label = "Roof"
    file.DataBlock_Notes = "Impact at 1Z"
    file.DataBlock_XaxisUnits = "Hz"
    file.DataBlock_XaxisStart = 10
    file.DataBlock_XaxisIncrement = 0.25
    Check "label", file.DataBlock_Label, "Roof"
    Check "notes", file.DataBlock_Notes, "Impact at 1Z"
    Check "X units", file.DataBlock_XaxisUnits, "Hz"
    Check "X start", file.DataBlock_XaxisStart, 10
    Check "X increment", file.DataBlock_XaxisIncrement, 0.25
    Check "X spacing", file.DataBlock_XaxisSpacing, 1
    CheckType "X increment", file.DataBlock_XaxisIncrement, "Single"
End Sub

Sub CheckSizes()
    file.DataBlock_TraceDataFormat = 2
    file.DataBlock_NumberOfTraces = 2
    file.DataBlock_NumberOfSamples = SampleCount
    Check "format", file.DataBlock_TraceDataFormat, 2
    Check "traces", file.DataBlock_NumberOfTraces, 2
    Check "samples", file.DataBlock_NumberOfSamples, SampleCount
    CheckType "samples", file.DataBlock_NumberOfSamples, "Long"
End Sub

Sub CheckTrace()
    file.Trace_Label(1) = "Accelerometer"
    file.Trace_MeasurementUnits(1) = "m/s^2"
    file.Trace_MeasurementType(1) = 4
    file.Trace_DegreesOfFreedom(1) = "1Z:3Z"
    file.Trace_DateAndTime(1) = "2026-01-15 10:00"
    Check "kind of data at first", file.Trace_DataSVT(1), 3
    file.Trace_DataSVT(1) = 4
    Check "trace label", file.Trace_Label(1), "Accelerometer"
    Check "trace units", file.Trace_MeasurementUnits(1), "m/s^2"
    Check "trace type", file.Trace_MeasurementType(1), 4
    Check "trace DOFs", file.Trace_DegreesOfFreedom(1), "1Z:3Z"
    Check "trace date", file.Trace_DateAndTime(1), "2026-01-15 10:00"
    Check "kind of data", file.Trace_DataSVT(1), 4
    Check "label of the other trace", file.Trace_Label(2), ""
    Check "no error so far", file.ErrorStatus, 0
End Sub

' Variables come back with what the component stored in them.
Sub CheckSamples()
    Dim number, re, im
    For number = 1 To SampleCount
        Check "write", file.WriteTraceSampleValue(2, number, number / 2, -number), Success
    Next
    Check "read", file.ReadTraceSampleValue(2, 3, re, im), Success
    Check "real part", re, 1.5
    Check "imaginary part", im, -3
    CheckType "variable that was empty", re, "Single"

    re = 0
    im = CDbl(0)
    number = 4
    Check "read into numbers", file.ReadTraceSampleValue(2, number, re, im), Success
    Check "integer that was changed", re, 2
    CheckType "integer that was changed", re, "Single"
    Check "double that was changed", im, -4
    Check "argument that was not", number, 4
    CheckType "argument that was not", number, "Integer"

    Check "read into an expression", file.ReadTraceSampleValue(2, 3, (1), im), Success
    Check "other argument", im, -3
    re = 7
    Check "read into a variable in parentheses", file.ReadTraceSampleValue(2, 3, (re), im), Success
    Check "variable in parentheses", re, 7

    file.DataBlock_TraceDataFormat = 3
    Check "read as magnitude and phase", file.ReadTraceSampleValue(2, 4, re, im), Success
    Check "phase", im, file.GetPhaseValueFrom(2, -4, True)
    file.DataBlock_TraceDataFormat = 2
End Sub

Sub CheckXvalues()
    Dim number, x
    Check "read of a uniform axis", file.ReadDataBlockXaxisValue(1, x), Failure
    Check "its error", file.ErrorStatus, 12
    file.DataBlock_XaxisSpacing = 2
    For number = 1 To SampleCount
        Check "write X", file.WriteDataBlockXaxisValue(number, number * number), Success
    Next
    Check "read X", file.ReadDataBlockXaxisValue(5, x), Success
    Check "X", x, 25
    Check "read X beyond the last", file.ReadDataBlockXaxisValue(SampleCount + 1, x), Failure
    Check "X, unchanged", x, 25
    Check "error of X beyond the last", file.ErrorStatus, 11
    Check "spacing", file.DataBlock_XaxisSpacing, 2
End Sub

Sub CheckFailures()
    Dim status, re, im, reached
    status = file.ReadTraceSampleValue(3, 1, re, im)
    Check "trace beyond the last", status, Failure
    Check "its text", file.GetLastErrorString, "Error (10): Trace Index error"
    Check "its code", file.ErrorStatus, 10
    Check "variable that was empty", re, 0

    ' Failure is -1, as True is: a status is no truth value.
    reached = "nothing"
    If status Then reached = "failure"
    Check "a failure as a truth value", reached, "failure"
    Check "failure and True", status = True, True
    CheckType "status", status, "Long"

    Check "file that is not there", file.InputDataBlockFile(TemporaryPath(".blk")), Failure
    Check "it leaves no code", file.ErrorStatus, 0
    Check "traces afterwards", file.DataBlock_NumberOfTraces, 0
End Sub

Sub CheckFile()
    Dim path, re, im, x
    path = TemporaryPath(".blk")
    Check "save", file.OutputDataBlockFile(path), Success
    file.InitializeDataBlockData
    Check "traces after InitializeDataBlockData", file.DataBlock_NumberOfTraces, 2
    file.InitializeDataBlockStorage
    Check "traces after InitializeDataBlockStorage", file.DataBlock_NumberOfTraces, 0

    Check "load", file.InputDataBlockFile(path), Success
    Check "no error in loading", file.ErrorStatus, 0
    Check "loaded traces", file.DataBlock_NumberOfTraces, 2
    Check "loaded label", file.DataBlock_Label, "Roof"
    Check "loaded trace label", file.Trace_Label(1), "Accelerometer"
    Check "read what was loaded", file.ReadTraceSampleValue(2, 8, re, im), Success
    Check "loaded real part", re, 4
    Check "loaded imaginary part", im, -8
    Check "read X that was loaded", file.ReadDataBlockXaxisValue(8, x), Success
    Check "loaded X", x, 64
    files.DeleteFile path
End Sub

CheckHeader
CheckSizes
CheckTrace
CheckSamples
CheckXvalues
CheckFile
CheckFailures
CheckedAll
