// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fuzz target: any bytes as a document file of any kind, shown by the tool in all forms. A file is shown or refused;
// what is shown is text that a terminal takes, JSON is JSON, and what can be dumped can be told about.
#include "datablock/Load_DataBlock.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/QuietCommands.h"
#include "platform/Unicode.h"
#include "support/UnlinkedFile.h"
#include "tools/console/Json.h"
#include "tools/dump/DumpCommand.h"
#include "tools/export/ObjFile.h"
#include "tools/export/PlyFile.h"
#include "tools/export/VtkFile.h"
#include "tools/info/InfoCommand.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qor::test {
namespace {

using namespace qor::tool;

bool HasControls(std::string_view text)
{
    return std::ranges::any_of(text, [](char each) {
        const auto byte = static_cast<unsigned char>(each);
        return (byte < 0x20 && each != '\n') || byte == 0x7F;
    });
}

std::string TextViolation(const Shown& shown, std::string_view format)
{
    if (shown.code == WrongUsage) return "wrong usage";
    if (!shown.whole) return "";
    if (!platform::FromUtf8(shown.text)) return "not UTF-8";
    if (HasControls(shown.text)) return "control characters";
    if (format == "json" && !Json::accept(shown.text)) return "not JSON";
    return "";
}

std::string InfoViolation(const std::string& path, bool statistics, ExitCode& code)
{
    for (const char* format : {"table", "json"}) {
        const InfoOptions options{{path}, statistics, format};
        const Shown shown = Run([&](Output& output) { return RunInfo(options, output); });
        if (std::string found = TextViolation(shown, format); !found.empty()) {
            return std::string("info as ") + format + ": " + found;
        }
        code = shown.code;
    }
    return "";
}

std::string DumpViolation(const std::string& path, ExitCode& code)
{
    for (const char* format : {"table", "csv", "json"}) {
        DumpOptions options;
        options.file = path;
        options.format = format;
        const Shown shown = Run([&](Output& output) { return RunDump(options, output); });
        if (std::string found = TextViolation(shown, format); !found.empty()) {
            return std::string("dump as ") + format + ": " + found;
        }
        code = shown.code;
    }
    return "";
}

template <std::size_t Corners>
bool JoinsPoints(const std::vector<Geometry::Element<Corners>>& elements, std::size_t points)
{
    return std::ranges::all_of(elements, [points](const auto& element) {
        return std::ranges::all_of(element.points,
                                   [points](std::int32_t each) { return each >= 0 && std::cmp_less(each, points); });
    });
}

// Readers of the formats look at neither.
bool IsSound(const Geometry& geometry)
{
    const std::size_t points = geometry.points.size();
    const bool isFinite = std::ranges::all_of(geometry.points, [](const Geometry::Point& point) {
        return std::ranges::all_of(point.place, [](float each) { return std::isfinite(each); });
    });
    return points > 0 && isFinite && JoinsPoints(geometry.lines, points) && JoinsPoints(geometry.triangles, points) &&
           JoinsPoints(geometry.quads, points);
}

std::string ExportViolation(const std::string& path)
{
    bool sound = true;
    const Shown shown = Run([&](Output& output) {
        DocumentFile file(path);
        if (file.Kind() != DocumentKind::Structure) return Done;
        const Geometry geometry = GeometryOf(file);
        sound = IsSound(geometry);
        for (const auto write : {WriteObj, WritePly, WriteVtk}) write(geometry, output);
        return Done;
    });
    const std::string found = sound ? TextViolation(shown, "text") : "points or numbers of points";
    return found.empty() ? "" : "export: " + found;
}

// A file makes as many traces as it counts, in a table of which nothing new is found.
bool HasTooManyTraces(const Bytes& bytes)
{
    constexpr std::int32_t mostTraces = 300;
    MemoryFile file(bytes);
    DataBlock block;
    LoadDataBlock(file, block, ArraySelection::HeadersOnly());
    return block.Traces.Count() > mostTraces;
}

std::string ShowAll(const Bytes& bytes)
{
    if (HasTooManyTraces(bytes)) return "";
    const UnlinkedFile onDisk(bytes);
    if (!onDisk.Good()) return "no file to read from";
    const std::string path = platform::ToUtf8(onDisk.Path());
    ExitCode headers = Done;
    ExitCode values = Done;
    ExitCode dumped = Done;
    if (std::string found = InfoViolation(path, false, headers); !found.empty()) return found;
    if (std::string found = InfoViolation(path, true, values); !found.empty()) return found;
    if (std::string found = DumpViolation(path, dumped); !found.empty()) return found;
    // Not the other way about: a document without samples is told about, but has nothing to dump.
    if (dumped == Done && (headers != Done || values != Done)) return "dumped, but not told about";
    return ExportViolation(path);
}

} // namespace
} // namespace qor::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return Judge(qor::test::ShowAll(qor::test::Bytes(data, data + size)));
}
