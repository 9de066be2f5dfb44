// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

#include "component/modQOR_File.h"
#include "datablock/Save_DataBlock.h"
#include "structure/Save_Structure.h"
#include "support/MemoryFile.h"
#include "support/SameStructure.h"

#include <span>
#include <sstream>

namespace qor::test {
namespace {

constexpr std::u16string_view FilledText = u"a text that takes memory";

std::string Letters(const Bytes& bytes) { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }

// The bytes of a field, or of several that count as one.
std::string Raw(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
std::string Raw(std::u16string_view text) { return Raw(std::as_bytes(std::span(text))); }
template <class T>
std::string Raw(const SampleArray<T>& array)
{
    return Raw(std::as_bytes(array.Values()));
}
template <class... Values>
requires(std::is_trivially_copyable_v<Values>&&...) std::string Raw(const Values&... values)
{
    std::string bytes;
    bytes.reserve((sizeof values + ...));
    (bytes.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
    return bytes;
}

// As its file would be, without what only a Data Block from a file has.
std::string Saved(DataBlock& block)
{
    MemoryFile saved;
    const bool fromFile = std::exchange(block.DataBlockFromFile, false);
    SaveDataBlock(saved, block);
    block.DataBlockFromFile = fromFile;
    return Letters(saved.Content());
}

Fields HeaderFields(const DataBlock& block)
{
    Fields fields = {Raw(block.Label),
                     Raw(block.Notes),
                     Raw(block.XaxisUnits),
                     Raw(block.KeptText),
                     Raw(block.Xaxis),
                     Raw(block.NumberOfTraces),
                     Raw(block.DataFormat),
                     Raw(block.NumberOfSamples),
                     Raw(block.XaxisSpacing),
                     Raw(block.XaxisStart),
                     Raw(block.PeakRMS),
                     Raw(block.XaxisIncrement),
                     Raw(block.XaxisUnitsCode),
                     Raw(block.RPM),
                     Raw(block.ExponentialWindowDampingInHz)};
    for (const std::uint32_t value : block.Kept) fields.push_back(Raw(value));
    return fields;
}

Fields TraceFields(const DataBlock& block)
{
    Fields fields;
    for (std::int32_t number = 1; number <= block.Traces.Count(); ++number) {
        const Trace& trace = block.Traces[number];
        fields.insert(fields.end(),
                      {Raw(trace.Label), Raw(trace.DateAndTime), Raw(trace.DegreesOfFreedom),
                       Raw(trace.MeasurementUnits), Raw(trace.ZaxisLabel), Raw(trace.RealSamples),
                       Raw(trace.ComplexSamples), Raw(trace.SecondComplexSamples), Raw(trace.MeasurementType),
                       Raw(trace.DataSVT), Raw(trace.LinPower), Raw(trace.KeptArray), Raw(trace.Kept)});
    }
    return fields;
}

// As its file would be; saving may settle the variant for good.
std::string Saved(Structure& structure, const StructureTexts& texts)
{
    MemoryFile saved;
    const bool large = structure.LargeStructureFormat;
    SaveStructure(saved, structure, texts);
    structure.LargeStructureFormat = large;
    return Letters(saved.Content());
}

std::string Element(const VertexPoint& point)
{
    return Raw(point.FileExtraValue, point.Xcoord, point.Ycoord, point.Zcoord, point.Color, point.Bold, point.Label,
               point.CenterPoint, point.PointType, point.AxisEnd, point.Area, point.NormalAxis);
}
template <std::size_t Corners>
std::string Element(const JoiningElement<Corners>& element)
{
    return Raw(element.VertexPoints, element.FileExtraValue, element.Color, element.Bold);
}

// One field for each: they are as wide as one another, their fields in the order of the file.
template <class T>
Fields Elements(const ElementArray<T>& elements)
{
    Fields fields;
    fields.reserve(static_cast<std::size_t>(elements.Count()));
    for (std::int32_t number = 1; number <= elements.Count(); ++number) fields.push_back(Element(elements[number]));
    return fields;
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
    DataBlock& block = modQOR_File().DataBlock;
    Structure& structure = modQOR_File().Structure;
    const clsQOR_File& file = world.file;
    const StructureTexts texts{file.Structure_Label(), file.Structure_Notes()};
    return {{"Data Block", HeaderFields(block)},
            {"Data Block, traces", TraceFields(block)},
            {"saved Data Block", {Saved(block)}},
            {"origin", {block.DataBlockFromFile ? "a file" : ""}},
            {"Shape Table", {ShapeTableState(file, modQOR_File().ShapeTable)}},
            {"Structure", {Raw(CountsAgree(structure)), Raw(structure.LargeStructureFormat)}},
            {"Structure, points", Elements(structure.VertexPoints)},
            {"Structure, lines", Elements(structure.EdgeLines)},
            {"Structure, triangles", Elements(structure.SurfaceTriangles)},
            {"Structure, quads", Elements(structure.QuadSurfaces)},
            {"saved Structure", {Saved(structure, texts)}},
            {"texts", {Raw(texts.Label), Raw(texts.Notes), Raw(file.ShapeTable_Label()), Raw(file.ShapeTable_Notes())}},
            {"view", {ViewState(world.file)}},
            {"file", std::filesystem::exists(world.target) ? Fields{Letters(BytesOf(world.target))} : Fields{}}};
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
