// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/Names.h"
#include "tools/dump/DocumentDumps.h"
#include "tools/dump/JsonParts.h"
#include "tools/dump/StructureTables.h"

#include <algorithm>
#include <utility>

namespace qor::tool {
namespace {

// In the order that was asked for, each once.
std::vector<ElementKind> SelectedKinds(const std::vector<std::string>& names)
{
    std::vector<ElementKind> kinds;
    for (const std::string& name : names) {
        const ElementKind kind = *std::ranges::find(ElementKinds, name, [](ElementKind each) { return NameOf(each); });
        if (std::ranges::find(kinds, kind) == kinds.end()) kinds.push_back(kind);
    }
    if (kinds.empty()) kinds.assign(std::begin(ElementKinds), std::end(ElementKinds));
    return kinds;
}

void WriteElement(Output& output, const VertexPoint& point)
{
    output.Print(R"("label": {}, "x": {}, "y": {}, "z": {}, "color": {}, "bold": {}, "centerPoint": {}, )",
                 JsonQuoted(LabelOf(point)), JsonValue(point.Xcoord), JsonValue(point.Ycoord), JsonValue(point.Zcoord),
                 point.Color, point.Bold ? "true" : "false", point.CenterPoint);
    output.Print(R"("type": {}, "normalAxis": {}, "area": {}, "axes": [)", JsonQuoted(PointTypeName(point.PointType)),
                 JsonQuoted(AxisName(point.NormalAxis)), JsonValue(point.Area));
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto end = [&](std::size_t component) { return JsonValue(point.AxisEnd[AxisEndIndex(axis, component)]); };
        output.Print("{}[{}, {}, {}]", axis == 0 ? "" : ", ", end(0), end(1), end(2));
    }
    output.Print("], \"extra\": {}", point.FileExtraValue);
}

template <std::size_t Corners>
void WriteElement(Output& output, const JoiningElement<Corners>& element)
{
    output.Print(R"("points": [{}], "color": {}, "bold": {}, "extra": {})", fmt::join(element.VertexPoints, ", "),
                 element.Color, element.Bold ? "true" : "false", element.FileExtraValue);
}

template <class Element>
void WriteElements(Output& output, std::string_view name, const ElementArray<Element>& elements)
{
    output.Print(",\n  \"{}\": [", name);
    for (std::int32_t number = 1; number <= elements.Count(); ++number) {
        output.Print("{}    {{\"number\": {}, ", number == 1 ? "\n" : ",\n", number);
        WriteElement(output, elements[number]);
        output.Write("}");
    }
    output.Write(elements.Count() > 0 ? "\n  ]" : "]");
}

void WriteJson(const DocumentFile& file, const StructureDocument& document, const std::vector<ElementKind>& kinds,
               Output& output)
{
    const Structure& structure = document.structure;
    WriteJsonHead(output, file, document.texts.Label);
    output.Print("  \"variant\": {}", JsonQuoted(VariantName(structure)));
    for (const ElementKind kind : kinds) {
        switch (kind) {
        case ElementKind::Points: WriteElements(output, NameOf(kind), structure.VertexPoints); break;
        case ElementKind::Lines: WriteElements(output, NameOf(kind), structure.EdgeLines); break;
        case ElementKind::Triangles: WriteElements(output, NameOf(kind), structure.SurfaceTriangles); break;
        case ElementKind::Quads: WriteElements(output, NameOf(kind), structure.QuadSurfaces); break;
        }
    }
    output.Write("\n}\n");
}

} // namespace

std::vector<std::string> ElementKindNames()
{
    std::vector<std::string> names;
    for (const ElementKind kind : ElementKinds) names.emplace_back(NameOf(kind));
    return names;
}

void DumpStructure(DocumentFile& file, const DumpOptions& options, Output& output)
{
    const StructureDocument document = file.LoadStructure();
    if (document.endMarkerMissing) WarnOfMissingEndMarker(file.Path());
    const std::vector<ElementKind> kinds = SelectedKinds(options.elements);
    if (options.format == "json") return WriteJson(file, document, kinds, output);

    const char* separator = "";
    for (const ElementKind kind : kinds) {
        const ValueTable table = ElementTable(document.structure, kind);
        output.Write(std::exchange(separator, "\n"));
        if (options.format == "csv") {
            WriteCsv(table, output);
            continue;
        }
        const std::string_view name = NameOf(kind);
        output.Print("{}\n", Counted(table.rows, name.substr(0, name.size() - 1)));
        if (table.rows > 0) PrintTable(table, output, "  ");
    }
}

} // namespace qor::tool
