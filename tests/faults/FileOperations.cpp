// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving and loading, of documents that take one write or read and of such that take several.
#include "faults/Operations.h"
#include "support/DataBlockFile.h"

namespace qor::test {
namespace {

// Documents beyond what is buffered.
void FillLargeDataBlock(World& world)
{
    Fill(world);
    world.file.DataBlock_XaxisSpacing(XaxisSpacing_Uniform); // the samples are the only array
    world.file.DataBlock_NumberOfTraces(1);
    world.file.DataBlock_NumberOfSamples(70'000);
    static const std::vector<float> samples(70'000, 1.5F);
    world.arrays.WriteTraceSamples(1, samples, {});
}
void FillLargeShapeTable(World& world)
{
    Fill(world);
    world.file.ShapeTable_NumberOfDOFs(200);
    world.file.ShapeTable_NumberOfShapes(200);
}
void FillLargeStructure(World& world)
{
    Fill(world);
    world.file.Structure_NumberOfVertexPoints(3000);
    for (std::int32_t number = 4; number <= 3000; ++number) {
        world.file.WriteStructureVertexPoint(number, u"labelled", static_cast<float>(number), 2, 3);
    }
}

template <ReturnStatus (clsQOR_File::*Save)(std::u16string_view), void (*Prepare)(World&)>
void KeepFile(World& world)
{
    Prepare(world);
    (world.file.*Save)(world.path);
    // So that loading changes what is there.
    world.file.DataBlock_Label(u"lost");
    world.file.WriteStructureVertexPoint(1, u"lost", 7, 7, 7);
    world.file.Structure_Label(u"");
    world.file.Structure_Notes(u"lost");
}

void KeepXaxis(World& world)
{
    Empty(world);
    WriteBytes(world.target, SizedFile(0, 70'000).Field(6, Int16(2)).Field(10, Bytes(4 * 70'000, 1)).Build());
}
void KeepSecondSamples(World& world)
{
    Empty(world);
    const RecordBytes trace = TraceBytes().Field(30, Int16(3)).Field(41, Bytes(8 * 70'000, 1)).Field(44, Int16(1));
    WriteBytes(world.target, SizedFile(1, 70'000).Field(11).Nested(trace).Field(12).Build());
}

constexpr auto SaveDataBlock = &clsQOR_File::OutputDataBlockFile;
constexpr auto SaveStructure = &clsQOR_File::OutputStructureFile;

Answer OutputDataBlock(World& world) { return Number(world.file.OutputDataBlockFile(world.path)); }
Answer OutputShapeTable(World& world) { return Number(world.file.OutputShapeTableFile(world.path)); }
Answer OutputStructure(World& world) { return Number(world.file.OutputStructureFile(world.path)); }
Answer InputDataBlock(World& world) { return Number(world.file.InputDataBlockFile(world.path)); }
Answer InputStructure(World& world) { return Number(world.file.InputStructureFile(world.path)); }

// A file of that name that was read before, so that its document says that it is from a file.
void LoadDataBlock(World& world)
{
    KeepFile<SaveDataBlock, Fill>(world);
    InputDataBlock(world);
}

} // namespace

const std::vector<Operation>& FileOperations()
{
    static const std::vector<Operation> operations = {
        {"clsQOR_File::OutputDataBlockFile", Fill, OutputDataBlock, SavesDataBlock, SavesDataBlock},
        {"clsQOR_File::OutputDataBlockFile of one from a file", LoadDataBlock, OutputDataBlock, SavesDataBlock,
         SavesDataBlock},
        {"clsQOR_File::OutputDataBlockFile in several writes", FillLargeDataBlock, OutputDataBlock, SavesDataBlock,
         SavesDataBlock},
        {"clsQOR_File::OutputShapeTableFile", Fill, OutputShapeTable, SavesShapeTable, SavesShapeTable},
        {"clsQOR_File::OutputShapeTableFile in several writes", FillLargeShapeTable, OutputShapeTable, SavesShapeTable,
         SavesShapeTable},
        {"clsQOR_File::OutputStructureFile", Fill, OutputStructure, SavesStructure, SavesStructure},
        {"clsQOR_File::OutputStructureFile in several writes", FillLargeStructure, OutputStructure, SavesStructure,
         SavesStructure},
        // The samples' arrays have a code, the others none, as published.
        {"clsQOR_File::InputDataBlockFile", KeepFile<SaveDataBlock, Fill>, InputDataBlock, LoadsDataBlock<NoError>,
         LoadsDataBlock<NoError>},
        {"clsQOR_File::InputDataBlockFile in several reads", KeepFile<SaveDataBlock, FillLargeDataBlock>,
         InputDataBlock, LoadsDataBlock<AllocationError>, LoadsDataBlock<AllocationError>},
        {"clsQOR_File::InputDataBlockFile with many X values", KeepXaxis, InputDataBlock, LoadsDataBlock<NoError>,
         LoadsDataBlock<NoError>},
        {"clsQOR_File::InputDataBlockFile with second samples", KeepSecondSamples, InputDataBlock,
         LoadsDataBlock<NoError>, LoadsDataBlock<NoError>},
        {"clsQOR_File::InputStructureFile", KeepFile<SaveStructure, Fill>, InputStructure, LoadsStructure,
         LoadsStructure},
        {"clsQOR_File::InputStructureFile in several reads", KeepFile<SaveStructure, FillLargeStructure>,
         InputStructure, LoadsStructure, LoadsStructure},
    };
    return operations;
}

} // namespace qor::test
