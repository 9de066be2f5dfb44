' SPDX-License-Identifier: MIT
' Copyright (c) 2026 The QOR_File authors
'
' A Structure, built, saved and read back, with its quad surfaces.
Dim file, quads
Set file = CreateObject("QOR_File.clsQOR_File")
Set quads = CreateObject("QOR_File.ClassAdd_4")

Sub CheckSizes()
    file.Structure_Label = "Plate"
    file.Structure_Notes = "Lengths in m"
    file.Structure_NumberOfVertexPoints = 4
    file.Structure_NumberOfEdgeLines = 1
    file.Structure_NumberOfSurfaceTriangles = 1
    quads.StructureNumberOfQuadSurfaces = 1
    Check "label", file.Structure_Label, "Plate"
    Check "notes", file.Structure_Notes, "Lengths in m"
    Check "points", file.Structure_NumberOfVertexPoints, 4
    Check "lines", file.Structure_NumberOfEdgeLines, 1
    Check "triangles", file.Structure_NumberOfSurfaceTriangles, 1
    Check "quads", quads.StructureNumberOfQuadSurfaces, 1
End Sub

Sub CheckPoints()
    Dim label, x, y, z, color, bold
    Check "write without color and bold", file.WriteStructureVertexPoint(1, "Corner", 0, 0, 0), Success
    Check "write without bold", file.WriteStructureVertexPoint(2, "  Tip ", 1.5, 0, 0, 255), Success
    Check "write without color", file.WriteStructureVertexPoint(3, "Edge", 1.5, 2, 0, , True), Success
    Check "write all", file.WriteStructureVertexPoint(4, "Other", 0, 2, -1, 65280, True), Success

    Check "read", file.ReadStructureVertexPoint(2, label, x, y, z, color, bold), Success
    Check "label, trimmed", label, "Tip"
    Check "X", x, 1.5
    Check "color", color, 255
    Check "bold that was left out", bold, False
    CheckType "label", label, "String"
    CheckType "bold", bold, "Boolean"

    Check "read on", file.ReadStructureVertexPoint(3, label, x, y, z, color, bold), Success
    Check "label", label, "Edge"
    Check "Y", y, 2
    Check "color that was left out", color, 0
    Check "bold", bold, True
    Check "bold, as a number", bold = -1, True
    CheckType "color", color, "Long"

    Check "point beyond the last", file.ReadStructureVertexPoint(5, label, x, y, z, color, bold), Failure
    Check "label, unchanged", label, "Edge"
    Check "its code", file.ErrorStatus, 30
End Sub

Sub CheckPointInformation()
    Dim x, y, z
    Check "write all", file.WriteStructureVertexPointInformation(1, 2, 1, 2, 0.5), Success
    Check "write without the last two", file.WriteStructureVertexPointInformation(1, 2, 1), Success
    Check "write without the first optional", file.WriteStructureVertexPointInformation(1, 2, , 2, 0.5), Success
    Check "center that does not fit", file.WriteStructureVertexPointInformation(1, 40000), Failure
    Check "its code", file.ErrorStatus, 15
    Check "a read by name only", file.ReadStructureVertexPointInformation(1, 2, 1, 2, 0.5), Success
    Check "the same, all left out", file.ReadStructureVertexPointInformation(1, 2), Success

    Check "write axis", file.WriteStructureVertexPointTransform(1, 2, 0.25, 0.5, 1), Success
    Check "read axis", file.ReadStructureVertexPointTransform(1, 2, x, y, z), Success
    Check "end of the axis, X", x, 0.25
    Check "end of the axis, Y", y, 0.5
    Check "end of the axis, Z", z, 1
    Check "axis that is none", file.ReadStructureVertexPointTransform(1, 3, x, y, z), Failure
    Check "its code", file.ErrorStatus, 14
End Sub

Sub CheckElements()
    Dim first, second, third, fourth, color, bold
    Check "write line", file.WriteStructureEdgeLine(1, 1, 2), Success
    Check "append line", file.WriteStructureEdgeLine(-1, 2, 3, , True), Success
    Check "lines", file.Structure_NumberOfEdgeLines, 2
    Check "read line", file.ReadStructureEdgeLine(2, first, second, color, bold), Success
    Check "line from", first, 2
    Check "line to", second, 3
    Check "line, bold", bold, True

    Check "write triangle", file.WriteStructureSurfaceTriangle(1, 1, 2, 3, 16711680), Success
    Check "read triangle", file.ReadStructureSurfaceTriangle(1, first, second, third, color, bold), Success
    Check "triangle from", first, 1
    Check "triangle over", second, 2
    Check "triangle to", third, 3
    Check "triangle, color", color, 16711680
    Check "triangle, bold", bold, False

    Check "write quad", quads.WriteStructureQuadSurface(1, 1, 2, 3, 4, , True), Success
    Check "read quad", quads.ReadStructureQuadSurface(1, first, second, third, fourth, color, bold), Success
    Check "quad, fourth", fourth, 4
    Check "quad, color", color, 0
    Check "quad, bold", bold, True
    Check "no error so far", file.ErrorStatus, 0

    Check "quad beyond the last", quads.ReadStructureQuadSurface(2, first, second, third, fourth, color, bold), Failure
    Check "its code, in every object", file.ErrorStatus, 36
    Check "its code, again", file.ErrorStatus, 36
    quads.StructureNumberOfQuadSurfaces = 1
    Check "its code, cleared", file.ErrorStatus, 0
End Sub

Sub CheckFile()
    Dim path, label, x, y, z, color, bold
    path = TemporaryPath(".str")
    Check "save", file.OutputStructureFile(path), Success
    file.InitializeStructureStorage
    Check "points afterwards", file.Structure_NumberOfVertexPoints, 0

    ' A file's label is taken only where the object has none.
    file.Structure_Label = ""
    Check "load", file.InputStructureFile(path), Success
    Check "no error in loading", file.ErrorStatus, 0
    Check "loaded label", file.Structure_Label, "Plate"
    Check "loaded points", file.Structure_NumberOfVertexPoints, 4
    Check "loaded lines", file.Structure_NumberOfEdgeLines, 2
    Check "loaded quads", quads.StructureNumberOfQuadSurfaces, 1
    Check "read what was loaded", file.ReadStructureVertexPoint(4, label, x, y, z, color, bold), Success
    Check "loaded Z", z, -1
    Check "loaded color", color, 65280
    files.DeleteFile path

    Check "file that is not there", file.InputStructureFile(path), Success
    Check "points afterwards", file.Structure_NumberOfVertexPoints, 0
End Sub

CheckSizes
CheckPoints
CheckPointInformation
CheckElements
CheckFile
CheckedAll
