// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/ColumnPairs.h"
#include "tools/documents/Names.h"
#include "tools/dump/DocumentDumps.h"
#include "tools/dump/JsonParts.h"
#include "tools/dump/ValueTable.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace qor::tool {
namespace {

using ShapeNumbers = std::vector<std::int32_t>;
using Value = ShapeTableDocument::Value;

std::int32_t DOFCount(const ShapeTableDocument& document) { return static_cast<std::int32_t>(document.dofs.size()); }
const Shape& ShapeOf(const ShapeTableDocument& document, std::int32_t number)
{
    return document.shapes[static_cast<std::size_t>(number - 1)];
}
const DOF& DOFOf(const ShapeTableDocument& document, std::int32_t number)
{
    return document.dofs[static_cast<std::size_t>(number - 1)];
}
const Value& ValueOf(const ShapeTableDocument& document, std::int32_t shape, std::int32_t dof)
{
    return document.At(static_cast<std::size_t>(shape - 1), static_cast<std::size_t>(dof - 1));
}

// A part of a complex value. A sine or cosine that should be 0 leaves a rest behind, too small to count beside the
// other part.
std::string ReadableText(float value, float other)
{
    const bool isRest = std::abs(value) < std::abs(other) * std::numeric_limits<float>::epsilon();
    return ExactText(isRest ? 0.0F : value);
}

ValueTable DOFTable(const ShapeTableDocument& document, const ShapeNumbers& shapes)
{
    ValueTable table;
    table.rows = DOFCount(document);
    const auto ofDOF = [&document](const auto& textOf) {
        return [&document, textOf](std::int32_t row) { return textOf(DOFOf(document, row)); };
    };
    table.Add("No", Align::Right, [](std::int32_t row) { return std::to_string(row); });
    table.Add("Label", Align::Left, ofDOF([](const DOF& dof) { return Shown(dof.Label); }));
    table.Add("DOF", Align::Left, ofDOF([](const DOF& dof) { return Shown(dof.DegreesOfFreedom); }));
    table.Add("Type", Align::Left, ofDOF([](const DOF& dof) { return ShapeMeasurementTypeName(dof.MeasurementType); }));
    table.Add("Data", Align::Left, ofDOF([](const DOF& dof) { return DataSVTName(dof.DataSVT); }),
              DataSVTName(DataIsVector));
    table.Add("Units", Align::Left, ofDOF([](const DOF& dof) { return Shown(dof.MeasurementUnits); }));
    for (const std::int32_t shape : shapes) {
        Heading heading{Shown(Trimmed(ShapeOf(document, shape).Label)), ""};
        if (heading.label.empty()) heading.label = fmt::format("Shape {}", shape);
        const auto add = [&](const Heading& part, float Value::*value, float Value::*other) {
            const auto valueOf = [&document, shape](std::int32_t row) { return ValueOf(document, shape, row); };
            table.columns.push_back({JoinHeading(part), Align::Right,
                                     [valueOf, value](std::int32_t row) { return ExactText(valueOf(row).*value); },
                                     [valueOf, value, other](std::int32_t row) {
                                         return ReadableText(valueOf(row).*value, valueOf(row).*other);
                                     }});
        };
        add(RealPartHeading(heading), &Value::real, &Value::imaginary);
        add(ImaginaryPartHeading(heading), &Value::imaginary, &Value::real);
    }
    return table;
}

void WriteDOFs(const ShapeTableDocument& document, Output& output)
{
    output.Write("  \"dofs\": [");
    for (std::int32_t number = 1; number <= DOFCount(document); ++number) {
        const DOF& dof = DOFOf(document, number);
        output.Print(R"({}    {{"number": {}, "label": {}, "dof": {}, "type": {}, "data": {}, "units": {}}})",
                     number == 1 ? "\n" : ",\n", number, JsonQuoted(dof.Label), JsonQuoted(dof.DegreesOfFreedom),
                     JsonQuoted(ShapeMeasurementTypeName(dof.MeasurementType)), JsonQuoted(DataSVTName(dof.DataSVT)),
                     JsonQuoted(dof.MeasurementUnits));
    }
    output.Write(document.dofs.empty() ? "],\n" : "\n  ],\n");
}

void WriteShape(const ShapeTableDocument& document, std::int32_t number, Output& output)
{
    const Shape& shape = ShapeOf(document, number);
    output.Print("    {{\n      \"number\": {},\n", number);
    output.Print("      \"label\": {},\n", JsonQuoted(shape.Label));
    output.Print("      \"ordinate\": {},\n", JsonValue(shape.Ordinate));
    output.Print("      \"units\": {},\n", JsonQuoted(shape.OrdinateUnits));
    output.Print("      \"damping\": {},\n", JsonValue(shape.Damping));
    output.Print("      \"dateAndTime\": {},\n", JsonQuoted(shape.DateAndTime));
    WriteJsonArray(output, "      ", "real", DOFCount(document),
                   [&](std::int32_t dof) { return JsonValue(ValueOf(document, number, dof).real); });
    output.Write(",\n");
    WriteJsonArray(output, "      ", "imaginary", DOFCount(document),
                   [&](std::int32_t dof) { return JsonValue(ValueOf(document, number, dof).imaginary); });
    output.Write("\n    }");
}

void WriteJson(const DocumentFile& file, const ShapeTableDocument& document, const ShapeNumbers& shapes, Output& output)
{
    WriteJsonHead(output, file, document.texts.Label);
    WriteDOFs(document, output);
    output.Write("  \"shapes\": [");
    const char* separator = "\n";
    for (const std::int32_t shape : shapes) {
        output.Write(std::exchange(separator, ",\n"));
        WriteShape(document, shape, output);
    }
    output.Write(shapes.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

} // namespace

void DumpShapeTable(DocumentFile& file, const DumpOptions& options, Output& output)
{
    const ShapeTableDocument document = file.LoadShapeTable();
    CheckNumbers(options.shapes, static_cast<std::int32_t>(document.shapes.size()), file, "shape");
    ShapeNumbers shapes = options.shapes;
    if (shapes.empty()) {
        shapes.resize(document.shapes.size());
        std::iota(shapes.begin(), shapes.end(), 1);
    }
    if (options.format == "json") return WriteJson(file, document, shapes, output);

    if (document.dofs.empty()) throw FileError(file.Path(), "holds no DOFs");
    const ValueTable table = DOFTable(document, shapes);
    if (options.format == "csv") return WriteCsv(table, output);
    PrintTable(table, output, "");
}

} // namespace qor::tool
