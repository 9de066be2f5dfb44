// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// JScript passes everything by value, so nothing comes back in arguments. What a member returns does.
var checks = 0, failedChecks = 0;

function check(what, actual, expected)
{
    ++checks;
    if (actual === expected) return;
    ++failedChecks;
    WScript.Echo("FAILED " + what + ": " + actual + ", expected " + expected);
}

function raised(call)
{
    try {
        call();
    } catch (error) {
        return error.number & 0xFFFF;
    }
    return 0;
}

var Success = 0, Failure = -1;
var letters = "Gr\u00F6\u00DFe \u03C9\u00B2 \u6E2C\u91CF";
var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.GetSpecialFolder(2).Path + "\\" + files.GetTempName() + letters + ".blk";

var file = new ActiveXObject("QOR_File.clsQOR_File");
check("version", file.DLLversion.toFixed(2), "1.05");
check("status at first", file.ErrorStatus, 0);

file.DataBlock_Label = letters;
file.DataBlock_NumberOfTraces = 2;
file.DataBlock_NumberOfSamples = 4;
file.Trace_Label(2) = "Accelerometer";
check("label", file.DataBlock_Label, letters);
check("samples", file.DataBlock_NumberOfSamples, 4);
check("trace label", file.Trace_Label(2), "Accelerometer");

check("write", file.WriteTraceSampleValue(2, 3, 1.5, 0), Success);
check("read, of which nothing comes back", file.ReadTraceSampleValue(2, 3, 0, 0), Success);
check("trace beyond the last", file.ReadTraceSampleValue(3, 1, 0, 0), Failure);
check("text of the error", file.GetLastErrorString(), "Error (10): Trace Index error");
check("code", file.ErrorStatus, 10);
check("magnitude", file.GetMagnitudeValueFrom(3, 4), 5);
check("equal paths", file.PathNamesEqual("C:\\A.blk", "c:\\a.BLK"), true);

check("save", file.OutputDataBlockFile(path), Success);
check("file of that name", files.FileExists(path), true);
file.Initialize();
check("traces after Initialize", file.DataBlock_NumberOfTraces, 0);
check("load", file.InputDataBlockFile(path), Success);
check("loaded label", file.DataBlock_Label, letters);
files.DeleteFile(path);

check("raised fault", raised(function() { file.WriteStructureVertexPoint(-1, "new", 0, 0, 0); }), 9);
check("unknown member", raised(function() { file.ReadEverything(1); }), 438);
check("text for a number", raised(function() { file.DataBlock_NumberOfTraces = "many"; }) !== 0, true);

if (failedChecks > 0 || checks === 0) {
    WScript.Echo(failedChecks + " of " + checks + " checks failed");
    WScript.Quit(1);
}
WScript.Echo("all checks passed: " + checks);
