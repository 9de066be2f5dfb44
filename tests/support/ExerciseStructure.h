// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What tests and fuzz targets do with the bytes of a Structure file that may be damaged in any way: read it, look at
// every element through the members, change it, save it, and read it back. It must never crash, whatever the bytes;
// what else must hold is checked here.
#pragma once

#include "component/modQOR_File.h"
#include "structure/StructureFile.h"
#include "support/SameStructure.h"
#include "support/UnlinkedFile.h"

#include <QOR_File/QOR_File.h>

#include <string>

namespace qor::test {

// Reads the thread's Structure through all members that look at its elements.
inline void ReadElements(clsQOR_File& component, ClassAdd_4& quads)
{
    std::u16string label;
    std::int32_t corners[4] = {};
    std::int32_t color = 0;
    float x = 0;
    float y = 0;
    float z = 0;
    Bool16 bold;
    for (std::int32_t number = -1; number <= component.Structure_NumberOfVertexPoints() + 1; ++number) {
        component.ReadStructureVertexPoint(number, label, x, y, z, color, bold);
        component.ReadStructureVertexPointTransform(number, Zaxis, x, y, z);
    }
    for (std::int32_t number = -1; number <= component.Structure_NumberOfEdgeLines() + 1; ++number) {
        component.ReadStructureEdgeLine(number, corners[0], corners[1], color, bold);
    }
    for (std::int32_t number = -1; number <= component.Structure_NumberOfSurfaceTriangles() + 1; ++number) {
        component.ReadStructureSurfaceTriangle(number, corners[0], corners[1], corners[2], color, bold);
    }
    for (std::int32_t number = -1; number <= quads.StructureNumberOfQuadSurfaces() + 1; ++number) {
        quads.ReadStructureQuadSurface(number, corners[0], corners[1], corners[2], corners[3], color, bold);
    }
    component.Structure_Label();
    component.Structure_Notes();
}

inline void ChangeElements(clsQOR_File& component, ClassAdd_4& quads)
{
    const std::int32_t points = component.Structure_NumberOfVertexPoints();
    component.Structure_NumberOfVertexPoints(points + 2);
    component.WriteStructureVertexPoint(points + 2, u"changed", 1, 2, 3);
    component.WriteStructureVertexPointInformation(1, 2, Machine, Yaxis, 4);
    component.WriteStructureEdgeLine(-1, 1, 2);
    component.WriteStructureSurfaceTriangle(-1, 1, 2, 3);
    quads.WriteStructureQuadSurface(-1, 1, 2, 3, 4);
    component.Structure_NumberOfSurfaceTriangles(1);
}

// Reads back what was saved of a Structure: all must be there that a file keeps.
inline std::string ReadingBackDifference(const Bytes& saved, const Structure& structure, const StructureTexts& texts,
                                         LoadedStructure& again)
{
    again = LoadStructure(saved);
    if (again.status != Success || again.error != NoError) return "what was saved cannot be read";
    again.structure.LargeStructureFormat = IsLargeVersion(*again.version);
    if (std::string found = Difference(again.structure, AsFiled(structure)); !found.empty()) {
        return "read back: " + found;
    }
    if (again.texts.Label != Trimmed(texts.Label)) return "read back: label";
    if (again.texts.Notes != Trimmed(texts.Notes)) return "read back: notes";
    return "";
}

// Saves the Structure, reads it back, and saves that: the files must be the same, but for labels of blanks, which are
// not written and come back as zero characters, which are.
inline std::string SavingDifference(Structure& structure, const StructureTexts& texts)
{
    const Bytes saved = SavedBytes(structure, texts);
    LoadedStructure again;
    if (std::string found = ReadingBackDifference(saved, structure, texts, again); !found.empty()) return found;
    for (std::int32_t number = 1; number <= again.structure.NumberOfVertexPoints; ++number) {
        if (!Trimmed(TextOf(structure.VertexPoints[number].Label)).empty()) continue;
        again.structure.VertexPoints[number].Label.fill(u' ');
    }
    return SavedBytes(again.structure, again.texts) == saved ? "" : "saving again gives other bytes";
}

// Nothing, or what does not hold.
inline std::string ExerciseStructure(const Bytes& bytes)
{
    LoadedStructure loaded = LoadStructure(bytes);
    if (loaded.status == Failure && loaded.error != InputFile_ReadFail) return "a failure without its error";
    if (!CountsAgree(loaded.structure)) return "counts";
    if (loaded.accepted) loaded.structure.LargeStructureFormat = IsLargeVersion(*loaded.version);

    const UnlinkedFile onDisk(bytes);
    if (!onDisk.Good()) return "no file to read from";
    modQOR_File().SharedErrorStatus = NoError; // what an earlier exercise left behind
    clsQOR_File component;
    ClassAdd_4 quads;
    const ReturnStatus status = component.InputStructureFile(onDisk.Path());
    if (status != (loaded.accepted ? loaded.status : Failure)) return "the member's result";
    if (component.ErrorStatus() != (loaded.accepted ? loaded.error : InputFile_ReadFail)) return "the member's error";
    if (std::string found = Difference(modQOR_File().Structure, loaded.structure); !found.empty()) {
        return "member: " + found;
    }
    if (component.Structure_Label() != loaded.texts.Label) return "member: label";
    if (component.Structure_Notes() != loaded.texts.Notes) return "member: notes";
    if (std::string found = SavingDifference(loaded.structure, loaded.texts); !found.empty()) return found;

    ReadElements(component, quads);
    component.InputStructureFile(u""); // reads on where the file was refused
    if (!CountsAgree(modQOR_File().Structure)) return "counts behind what was refused";
    ChangeElements(component, quads);
    ReadElements(component, quads);
    const std::string found = SavingDifference(modQOR_File().Structure, loaded.texts);
    return found.empty() ? "" : "changed: " + found;
}

} // namespace qor::test
