// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/dump/DumpCommand.h"

#include "tools/console/Text.h"
#include "tools/dump/DocumentDumps.h"

namespace qor::tool {
namespace {

// An option that chooses parts of one kind of document.
void CheckKind(const DocumentFile& file, bool isGiven, std::string_view option, DocumentKind kind)
{
    if (!isGiven || file.Kind() == kind) return;
    throw UsageError(
        fmt::format("{} is a {} file; {} is for {} files", file.Path(), NameOf(file.Kind()), option, NameOf(kind)));
}

} // namespace

void CheckNumbers(const std::vector<std::int32_t>& numbers, std::int32_t count, const DocumentFile& file,
                  std::string_view thing)
{
    for (const std::int32_t number : numbers) {
        if (number >= 1 && number <= count) continue;
        throw UsageError(fmt::format("{} has no {} {}; it has {}", file.Path(), thing, number, Counted(count, thing)));
    }
}

ExitCode RunDump(const DumpOptions& options, Output& output)
{
    DocumentFile file(options.file);
    CheckKind(file, !options.traces.empty(), "--trace", DocumentKind::DataBlock);
    CheckKind(file, !options.shapes.empty(), "--shape", DocumentKind::ShapeTable);
    CheckKind(file, !options.elements.empty(), "--elements", DocumentKind::Structure);
    switch (file.Kind()) {
    case DocumentKind::DataBlock: DumpDataBlock(file, options, output); break;
    case DocumentKind::Structure: DumpStructure(file, options, output); break;
    case DocumentKind::ShapeTable: DumpShapeTable(file, options, output); break;
    }
    return Done;
}

} // namespace qor::tool
