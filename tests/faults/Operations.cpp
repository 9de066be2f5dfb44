// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

#include "component/modQOR_File.h"
#include "datablock/Save_DataBlock.h"
#include "structure/Save_Structure.h"
#include "support/MemoryFile.h"

#include <sstream>

namespace qor::test {
namespace {

constexpr std::u16string_view FilledText = u"a text that takes memory";

std::string Letters(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

std::string FileState(const std::filesystem::path& path)
{
    return std::filesystem::exists(path) ? "there: " + Letters(BytesOf(path)) : "missing";
}

// As its file would be, without what only a Data Block from a file has, and what no file has.
std::string DataBlockState(DataBlock& block)
{
    MemoryFile saved;
    const bool fromFile = std::exchange(block.DataBlockFromFile, false);
    SaveDataBlock(saved, block);
    block.DataBlockFromFile = fromFile;
    std::ostringstream kinds;
    for (std::int32_t number = 1; number <= block.Traces.Count(); ++number) {
        kinds << std::as_const(block.Traces)[number].DataSVT;
    }
    return Letters(saved.Content()) + kinds.str() + Letters({block.Notes.begin(), block.Notes.end()});
}

std::string StructureState(Structure& structure)
{
    MemoryFile saved;
    SaveStructure(saved, structure, {});
    std::ostringstream counts;
    counts << structure.NumberOfVertexPoints << ' ' << structure.NumberOfEdgeLines << ' '
           << structure.NumberOfSurfaceTriangles << ' ' << structure.NumberOfQuadSurfaces;
    return counts.str() + Letters(saved.Content());
}

std::string ShapeTableState(const clsQOR_File& file, const ShapeTable& table)
{
    std::ostringstream state;
    const auto show = [&](std::u16string_view text) { state << Letters({text.begin(), text.end()}) << '|'; };
    state << file.ShapeTable_NumberOfShapes() << ' ' << file.ShapeTable_NumberOfDOFs() << '|';
    for (const Shape& shape : table.Shapes) {
        show(shape.Label);
        show(shape.DateAndTime);
        show(shape.OrdinateUnits);
        state << shape.Ordinate << ' ' << shape.Damping << '|';
    }
    for (const DOF& dof : table.DOFs) {
        show(dof.Label);
        show(dof.DegreesOfFreedom);
        show(dof.MeasurementUnits);
        state << dof.MeasurementType << ' ' << dof.DataSVT << '|';
    }
    for (std::int32_t shape = 1; table.ShapeValues && shape <= table.ShapeValues->Shapes(); ++shape) {
        const auto bytes = std::as_bytes(table.ShapeValues->Row(shape));
        state.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    return state.str();
}

std::string TextsState(clsQOR_File& file)
{
    std::u16string texts;
    for (const std::u16string& text :
         {file.ShapeTable_Label(), file.ShapeTable_Notes(), file.Structure_Label(), file.Structure_Notes()}) {
        texts += text + u'|';
    }
    return Letters({texts.begin(), texts.end()});
}

std::string ViewState(clsQOR_File& file)
{
    float x = -1;
    std::ostringstream view;
    view << file.DataBlock_TraceDataFormat() << ' ' << file.ReadDataBlockXaxisValue(1, x) << ' ' << x;
    file.ErrorStatus(); // of the read
    return view.str();
}

} // namespace

World::World(const TemporaryFolder& folder) : target(folder / "target file with a long name") {}

State StateOf(World& world)
{
    ThreadDocuments& documents = modQOR_File();
    return {{"Data Block", DataBlockState(documents.DataBlock)},
            {"from file", documents.DataBlock.DataBlockFromFile ? "yes" : "no"},
            {"Shape Table", ShapeTableState(world.file, documents.ShapeTable)},
            {"Structure", StructureState(documents.Structure)},
            {"texts", TextsState(world.file)},
            {"view", ViewState(world.file)},
            {"file", FileState(world.target)}};
}

std::vector<Operation> AllOperations()
{
    std::vector<Operation> all;
    for (const auto* some : {&ComponentOperations(), &DataBlockOperations(), &ShapeTableOperations(),
                             &StructureOperations(), &FileOperations()}) {
        all.insert(all.end(), some->begin(), some->end());
    }
    return all;
}

void Empty(World& world)
{
    world.file.Initialize();
    world.file.Structure_Label({});
    world.file.Structure_Notes({});
    world.file.Structure_NumberOfVertexPoints(0); // clears an error that an added class left
    world.file.DataBlock_TraceDataFormat(DataFormat_Real);
    world.file.ErrorStatus(AxisNumberError);
    world.file.ErrorStatus();
    world.text = u"as passed";
    world.first = {1, 2, 3, 4};
    world.second = {5, 6, 7, 8};
    world.third = {9, 10, 11, 12};
    WriteBytes(world.target, {'o', 'l', 'd'});
}

void Fill(World& world)
{
    Empty(world);
    clsQOR_File& file = world.file;

    file.DataBlock_Label(FilledText);
    file.DataBlock_Notes(FilledText);
    file.DataBlock_XaxisUnits(FilledText);
    file.DataBlock_NumberOfSamples(4);
    file.DataBlock_NumberOfTraces(3);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    for (std::int32_t number = 1; number <= 3; ++number) {
        file.Trace_Label(number, FilledText);
        file.Trace_DateAndTime(number, FilledText);
        file.Trace_DegreesOfFreedom(number, FilledText);
        file.Trace_MeasurementUnits(number, FilledText);
        world.zaxisLabel.TraceZaxisLabel(number, FilledText);
        for (std::int32_t sample = 1; sample <= 4; ++sample) {
            file.WriteTraceSampleValue(number, sample, static_cast<float>(10 * number + sample), 0);
            file.WriteDataBlockXaxisValue(sample, static_cast<float>(sample * sample));
        }
    }

    file.ShapeTable_Label(FilledText);
    file.ShapeTable_Notes(FilledText);
    file.ShapeTable_NumberOfShapes(2);
    file.ShapeTable_NumberOfDOFs(2);
    for (std::int32_t number = 1; number <= 2; ++number) {
        file.Shape_Label(number, FilledText);
        file.Shape_DateAndTime(number, FilledText);
        file.Shape_OrdinateUnits(number, FilledText);
        file.DOF_Label(number, FilledText);
        file.DOF_DegreesOfFreedom(number, FilledText);
        file.DOF_MeasurementUnits(number, FilledText);
        for (std::int32_t dof = 1; dof <= 2; ++dof) file.WriteShapeDOFvalue(number, dof, 3, 90);
    }

    file.Structure_Label(FilledText);
    file.Structure_Notes(FilledText);
    file.Structure_NumberOfVertexPoints(3);
    file.Structure_NumberOfEdgeLines(2);
    file.Structure_NumberOfSurfaceTriangles(2);
    world.quadSurfaces.StructureNumberOfQuadSurfaces(2);
    for (std::int32_t number = 1; number <= 3; ++number) {
        file.WriteStructureVertexPoint(number, FilledText, static_cast<float>(number), 2, 3);
    }
    for (std::int32_t number = 1; number <= 2; ++number) {
        file.WriteStructureEdgeLine(number, 1, 2);
        file.WriteStructureSurfaceTriangle(number, 1, 2, 3);
        world.quadSurfaces.WriteStructureQuadSurface(number, 1, 2, 3, 1);
    }
}

} // namespace qor::test
