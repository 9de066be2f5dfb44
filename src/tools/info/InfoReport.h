// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What qor info shows of a file, and its two forms: for people and as JSON. The head is the same for all kinds of
// documents; each kind adds its own.
#pragma once

#include "tools/console/Console.h"
#include "tools/console/Json.h"
#include "tools/documents/DocumentFile.h"

#include <memory>

namespace qor::tool {

// What one kind of document adds.
class InfoDetails
{
public:
    InfoDetails() = default;
    InfoDetails(const InfoDetails&) = delete;
    InfoDetails& operator=(const InfoDetails&) = delete;
    virtual ~InfoDetails() = default;

    virtual void Print(Output& output) const = 0;
    virtual void AddTo(Json& json) const = 0;
};

struct InfoReport {
    std::string path;
    DocumentKind kind = DocumentKind::DataBlock;
    std::int16_t version = 0;
    std::uint64_t size = 0;
    bool endMarkerMissing = false;
    std::u16string label;
    std::u16string notes;
    std::unique_ptr<const InfoDetails> details;
};

// Each for a file of that kind; sets what only the document tells. Statistics take reading of all values.
void InspectDataBlock(DocumentFile& file, bool statistics, InfoReport& report);
void InspectStructure(DocumentFile& file, InfoReport& report);
void InspectShapeTable(DocumentFile& file, bool statistics, InfoReport& report);

InfoReport Inspect(const std::string& path, bool statistics);

void PrintInfo(Output& output, const InfoReport& report);
Json InfoAsJson(const InfoReport& report);

// For details: what lines and tables begin with, and a line "  Label    text", its text ready to be shown.
inline constexpr std::string_view Indent = "  ";
void PrintLine(Output& output, std::string_view name, std::string_view text);

} // namespace qor::tool
