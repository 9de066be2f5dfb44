// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/export/ExportCommand.h"

#include "tools/console/OutputFile.h"
#include "tools/console/Text.h"
#include "tools/documents/DocumentFile.h"
#include "tools/documents/Names.h"
#include "tools/dump/DataBlockTable.h"
#include "tools/export/ObjFile.h"
#include "tools/export/PlyFile.h"
#include "tools/export/VtkFile.h"

#include <algorithm>
#include <filesystem>

namespace qor::tool {
namespace {

// Each writes the document and tells in words what it has written.
using Exporter = std::string (*)(DocumentFile& file, const ExportOptions& options, Output& target);

template <void (*Write)(const Geometry&, Output&)>
std::string ExportStructure(DocumentFile& file, const ExportOptions& options, Output& target)
{
    Geometry geometry = GeometryOf(file);
    if (options.withoutPointLabels) geometry.pointLabels.clear();
    Write(geometry, target);
    return CountsOf(geometry);
}

std::string ExportDataBlock(DocumentFile& file, const ExportOptions&, Output& target)
{
    DataBlock block;
    if (file.LoadDataBlock(block, ArraySelection::Everything()).error != NoError) WarnOfMissingEndMarker(file.Path());
    const std::vector<std::int32_t> traces = AllTraces(block);
    WarnOfEmptyTraces(file.Path(), block, traces);
    WriteDataBlockCsv(file, block, traces, target);
    return fmt::format("{} {} trace{} of {}", Grouped(block.Traces.Count()), DataFormatName(block.DataFormat),
                       block.Traces.Count() == 1 ? "" : "s", Counted(block.NumberOfSamples, "sample"));
}

struct Format {
    DocumentKind kind;
    std::string_view ending;
    Exporter write;
};
constexpr Format Formats[] = {
    {DocumentKind::Structure, ".obj", ExportStructure<WriteObj>},
    {DocumentKind::Structure, ".ply", ExportStructure<WritePly>},
    {DocumentKind::Structure, ".vtk", ExportStructure<WriteVtk>},
    {DocumentKind::DataBlock, ".csv", ExportDataBlock},
};

// ".obj, .ply or .vtk"; nothing for a kind that has no format.
std::string EndingsFor(DocumentKind kind)
{
    std::vector<std::string_view> endings;
    for (const Format& format : Formats) {
        if (format.kind == kind) endings.push_back(format.ending);
    }
    if (endings.size() < 2) return std::string(endings.empty() ? "" : endings.front());
    const std::string_view last = endings.back();
    endings.pop_back();
    return fmt::format("{} or {}", fmt::join(endings, ", "), last);
}

const Format& FormatFor(DocumentKind kind, const std::string& outputFile)
{
    std::string ending = std::filesystem::path(outputFile).extension().string();
    std::ranges::transform(ending, ending.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    for (const Format& format : Formats) {
        if (format.kind == kind && format.ending == ending) return format;
    }
    const std::string endings = EndingsFor(kind);
    if (endings.empty()) {
        throw UsageError(fmt::format("{}: a {} cannot be exported", outputFile, NameOf(kind)));
    }
    throw UsageError(fmt::format("{}: a {} can be exported to {}", outputFile, NameOf(kind), endings));
}

} // namespace

ExitCode RunExport(const ExportOptions& options, Output& output)
{
    DocumentFile file(options.file);
    const Format& format = FormatFor(file.Kind(), options.outputFile);
    if (options.withoutPointLabels && format.ending != ".vtk") throw UsageError("--no-labels is for .vtk files");
    std::error_code notBoth;
    if (std::filesystem::equivalent(options.file, options.outputFile, notBoth)) {
        throw UsageError(fmt::format("{} would replace the file that is read", options.outputFile));
    }
    OutputFile target(options.outputFile, options.replaceExisting);
    Output text([&](std::string_view piece) { target.Append(piece); });
    const std::string written = format.write(file, options, text);
    text.Flush();
    const std::uint64_t size = target.Size();
    target.Commit();
    output.Print("{}: {} ({})\n", Shown(options.outputFile), written, Counted(static_cast<long long>(size), "byte"));
    return Done;
}

} // namespace qor::tool
