# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The QOR_File authors
"""Reads an exported file with a program that is not ours, and prints as JSON what that program has seen.

usage: read_geometry.py vtk|meshio FILE
"""
import json
import sys

CELL_NAMES = {3: "line", 5: "triangle", 7: "polygon", 9: "quad"}


def rows(array):
    return [[each.item() for each in row] for row in array]


def read_with_vtk(path):
    import vtk
    from vtk.util.numpy_support import vtk_to_numpy

    reader = {"obj": vtk.vtkOBJReader, "ply": vtk.vtkPLYReader, "vtk": vtk.vtkUnstructuredGridReader}[path[-3:]]()
    complaints = []
    for event in ("ErrorEvent", "WarningEvent"):
        reader.AddObserver(event, lambda *_: complaints.append(event))
    reader.SetFileName(path)
    reader.Update()
    if complaints:
        sys.exit(f"{path}: VTK complains")
    data = reader.GetOutput()

    seen = {"points": [data.GetPoint(i) for i in range(data.GetNumberOfPoints())], "cells": []}
    for i in range(data.GetNumberOfCells()):
        cell = data.GetCell(i)
        indices = [cell.GetPointId(k) for k in range(cell.GetNumberOfPoints())]
        seen["cells"].append([CELL_NAMES[cell.GetCellType()], indices])
    for name, attributes in (("pointColors", data.GetPointData()), ("cellColors", data.GetCellData())):
        for array in ("color", "RGB"):  # as we name it, and as vtkPLYReader does
            if attributes.HasArray(array):
                seen[name] = rows(vtk_to_numpy(attributes.GetArray(array)))
    labels = data.GetPointData().GetAbstractArray("label")
    if labels:
        seen["labels"] = [labels.GetValue(i) for i in range(labels.GetNumberOfValues())]
    if path.endswith("vtk"):
        seen["title"] = reader.GetHeader()
    return seen


def read_with_meshio(path):
    import meshio
    import numpy

    mesh = meshio.read(path)
    points = mesh.points
    seen = {"cells": []}
    if points.shape[1] == 6:  # of an OBJ file, meshio hands out the colours as three more coordinates
        seen["pointColors"] = rows(numpy.rint(points[:, 3:] * 255).astype(int))
        points = points[:, :3]
    seen["points"] = rows(points)
    for block in mesh.cells:
        seen["cells"] += [[block.type, indices] for indices in block.data.tolist()]
    if "color" in mesh.point_data:
        seen["pointColors"] = rows(mesh.point_data["color"])
    if "red" in mesh.point_data:
        seen["pointColors"] = rows(numpy.column_stack([mesh.point_data[c] for c in ("red", "green", "blue")]))
    if "color" in mesh.cell_data:
        seen["cellColors"] = [row for block in mesh.cell_data["color"] for row in rows(block)]
    if "red" in mesh.cell_data:
        parts = [numpy.concatenate(mesh.cell_data[c]) for c in ("red", "green", "blue")]
        seen["cellColors"] = rows(numpy.column_stack(parts))
    return seen


if __name__ == "__main__":
    readers = {"vtk": read_with_vtk, "meshio": read_with_meshio}
    json.dump(readers[sys.argv[1]](sys.argv[2]), sys.stdout, ensure_ascii=False)
