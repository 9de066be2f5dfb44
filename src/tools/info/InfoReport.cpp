// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/info/InfoReport.h"

#include "platform/Unicode.h"
#include "tools/console/Text.h"
#include "tools/console/TextTable.h"

#include <new>

namespace qor::tool {
namespace {

// A text of several lines, the later ones under the first.
void PrintText(Output& output, std::string_view name, std::u16string_view text)
{
    while (!text.empty()) {
        const auto end = text.find_first_of(u"\r\n");
        PrintLine(output, name, Shown(text.substr(0, end)));
        if (end == std::u16string_view::npos) return;
        text.remove_prefix(end + (text.substr(end, 2) == u"\r\n" ? 2 : 1));
        name = "";
    }
}

} // namespace

void PrintLine(Output& output, std::string_view name, std::string_view text)
{
    output.Print("{}{}{}\n", Indent, Padded(name, 9, Align::Left), text);
}

InfoReport Inspect(const std::string& path, bool statistics)
{
    DocumentFile file(path);
    InfoReport report;
    report.path = path;
    report.kind = file.Kind();
    report.version = file.Version();
    report.size = file.Size();
    try {
        switch (file.Kind()) {
        case DocumentKind::DataBlock: InspectDataBlock(file, statistics, report); break;
        case DocumentKind::Structure: InspectStructure(file, report); break;
        case DocumentKind::ShapeTable: InspectShapeTable(file, statistics, report); break;
        }
    } catch (const std::bad_alloc&) {
        throw FileError(path, "needs more memory than there is");
    }
    return report;
}

void PrintInfo(Output& output, const InfoReport& report)
{
    output.Print("{}\n", Shown(report.path));
    output.Print("{}{} file, version {}, {}\n", Indent, NameOf(report.kind), report.version,
                 Counted(static_cast<long long>(report.size), "byte"));
    PrintText(output, "Label", report.label);
    PrintText(output, "Notes", report.notes);
    report.details->Print(output);
}

Json InfoAsJson(const InfoReport& report)
{
    Json json;
    json["file"] = Shown(report.path);
    json["kind"] = NameOf(report.kind);
    json["version"] = report.version;
    json["size"] = report.size;
    json["endMarkerMissing"] = report.endMarkerMissing;
    json["label"] = platform::ToUtf8(report.label);
    json["notes"] = platform::ToUtf8(report.notes);
    report.details->AddTo(json);
    return json;
}

} // namespace qor::tool
