' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' Stands at the head of every script when it runs. A script ends with CheckedAll: its last line is how the runner knows
' that all checks were made, since the script host tells nothing of an error that ended a script.
Option Explicit

Const Success = 0
Const Failure = -1

Dim checks, failedChecks
checks = 0
failedChecks = 0

' The same value, and not merely one that converts to it: a text is no number here.
Sub Check(what, actual, expected)
    Dim same
    same = (VarType(actual) = vbString) = (VarType(expected) = vbString)
    If same Then same = (actual = expected)
    checks = checks + 1
    If Not same Then
        failedChecks = failedChecks + 1
        WScript.Echo "FAILED " & what & ": " & CStr(actual) & " (" & TypeName(actual) & "), expected " & _
                     CStr(expected)
    End If
End Sub

Sub CheckType(what, value, expected)
    Check what & " has type", TypeName(value), expected
End Sub

Sub CheckedAll()
    If failedChecks > 0 Or checks = 0 Then
        WScript.Echo failedChecks & " of " & checks & " checks failed"
        WScript.Quit 1
    End If
    WScript.Echo "all checks passed: " & checks
End Sub

Dim files
Set files = CreateObject("Scripting.FileSystemObject")

' A path in the folder for temporary files that nobody uses.
Function TemporaryPath(ending)
    TemporaryPath = files.GetSpecialFolder(2).Path & "\" & files.GetTempName & ending
End Function
