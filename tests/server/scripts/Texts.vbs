' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' Texts of any letters. They come as an argument: a script of one byte a letter cannot hold them.
Dim file, arguments
Set file = CreateObject("QOR_File.clsQOR_File")
Set arguments = WScript.Arguments

Sub CheckTexts(text)
    Dim path
    path = TemporaryPath(text & ".blk")
    file.DataBlock_NumberOfTraces = 1
    file.DataBlock_NumberOfSamples = 2
    file.Trace_Label(1) = text
    Check "trace label", file.Trace_Label(1), text
    Check "file name", file.GetFileName("C:\" & text), text

    Check "save", file.OutputDataBlockFile(path), Success
    Check "file of that name", files.FileExists(path), True
    file.Initialize
    Check "load", file.InputDataBlockFile(path), Success
    Check "loaded trace label", file.Trace_Label(1), text
    files.DeleteFile path
End Sub

Check "letters of the argument", Len(arguments(0)), 11
CheckTexts arguments(0)
CheckedAll
