// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/DocumentFile.h"

#include "datablock/DataBlockLayout.h"
#include "datablock/SampleAccess.h"
#include "fileio/Framing.h"
#include "platform/Unicode.h"
#include "structure/StructureLayout.h"
#include "tools/console/Console.h"
#include "tools/console/Text.h"
#include "tools/documents/Names.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <limits>
#include <new>

namespace qor::tool {
namespace {

struct KnownKind {
    DocumentKind kind;
    std::string_view name;
    std::string_view keyword; // in the first line, in capitals
    std::int16_t newest;      // versions that can be read
    std::int16_t oldest;
};
constexpr std::int16_t AnyOlder = std::numeric_limits<std::int16_t>::min();
// Data Blocks come last: they are also what says nothing else. Without tags, a Shape Table of another version cannot
// even be guessed at.
constexpr KnownKind Kinds[] = {
    {DocumentKind::Structure, "Structure", "BINARY STRUCTURE", LargeStructure_Version, AnyOlder},
    {DocumentKind::ShapeTable, "Shape Table", "BINARY SHAPETABLE", ShapeTable_Version, ShapeTable_Version},
    {DocumentKind::DataBlock, "Data Block", "BINARY DATABLOCK", DataBlock_Version, AnyOlder},
};

platform::File Open(const std::string& path)
{
    const auto name = platform::FromUtf8(path);
    if (!name) throw FileError(path, "the name is not UTF-8");
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (std::filesystem::is_directory(status)) throw FileError(path, "is a folder");
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw FileError(path, "is not a regular file");
    }
    errno = 0;
    auto file = platform::File::OpenForReading(*name);
    if (!file) throw FileError(path, LastSystemError("cannot be opened"));
    return std::move(*file);
}

// The file's first line, in capitals.
std::string IdentificationLine(ByteSource& source)
{
    std::array<char, 200> bytes{};
    const std::size_t got = source.ReadAt(0, std::as_writable_bytes(std::span(bytes)));
    std::string line(bytes.data(), got);
    line = line.substr(0, line.find("\r\n"));
    std::ranges::transform(line, line.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return line;
}

constexpr std::string_view Damaged = "is damaged: its records end early or make no sense";

[[noreturn]] void ThrowOutOfMemory(const std::string& path)
{
    throw FileError(path, "needs more memory than there is, or is damaged");
}

} // namespace

std::string_view NameOf(DocumentKind kind) { return std::ranges::find(Kinds, kind, &KnownKind::kind)->name; }

DocumentFile::DocumentFile(const std::string& path) : path_(path), file_(Open(path))
{
    RecordReader reader(file_);
    const auto version = FindPreamble(reader);
    if (!version) throw FileError(path, "is not a document file");
    const std::string line = IdentificationLine(file_);
    const auto* const found = std::ranges::find_if(
        Kinds, [&](const KnownKind& each) { return line.find(each.keyword) != std::string::npos; });
    saysKind_ = found != std::end(Kinds);
    const KnownKind& kind = saysKind_ ? *found : *std::prev(std::end(Kinds));
    if (*version > kind.newest || *version < kind.oldest) {
        const std::string_view range = kind.oldest == AnyOlder ? "versions up to" : "only version";
        throw FileError(path, fmt::format("is a {} file of version {}; {} {} can be read", kind.name, *version, range,
                                          kind.newest));
    }
    kind_ = kind.kind;
    version_ = *version;
}

LoadResult DocumentFile::LoadDataBlock(DataBlock& block, const ArraySelection& selection)
{
    if (kind_ != DocumentKind::DataBlock) {
        throw FileError(path_, fmt::format("is a {} file, not a Data Block file", NameOf(kind_)));
    }
    const LoadResult result = qor::LoadDataBlock(file_, block, selection);
    if (result.error == AllocationError) ThrowOutOfMemory(path_);
    if (!saysKind_ && (result.status == Failure || !block.DataBlockFromFile)) {
        throw FileError(path_, "is of no kind that its first line tells, or is damaged");
    }
    if (result.status == Failure) {
        if (block.NumberOfSamples >= 0 && block.NumberOfSamples < 2 && block.Traces.Count() == 0) {
            throw FileError(path_, "is a Data Block file without samples, or a damaged one");
        }
        throw FileError(path_, Damaged);
    }
    if (!block.DataBlockFromFile) throw FileError(path_, "is damaged: there is no Data Block in it");
    return result;
}

StructureDocument DocumentFile::LoadStructure()
{
    RecordReader reader(file_);
    Load_StructurePreamble(reader);
    StructureDocument document;
    document.structure.LargeStructureFormat = IsLargeVersion(version_);
    const auto [status, error] = Load_StructureRecords(reader, version_, document.structure, document.texts);
    if (status == Failure) throw FileError(path_, Damaged);
    document.endMarkerMissing = error != NoError;
    return document;
}

ShapeTableDocument DocumentFile::LoadShapeTable()
{
    RecordReader reader(file_);
    FindPreamble(reader);
    ShapeTableDocument document;
    try {
        if (Load_ShapeTable(reader, document)) return document;
    } catch (const std::bad_alloc&) {
        ThrowOutOfMemory(path_);
    }
    throw FileError(path_, "is damaged: it is too short for the shapes and DOFs that it counts");
}

std::string_view VariantName(const Structure& structure) { return IsLarge(structure) ? "large" : "small"; }

std::u16string_view LabelOf(const VertexPoint& point)
{
    constexpr std::u16string_view filling(u" \0", 2);
    const std::u16string_view label = qor::TextOf(point.Label);
    const auto first = label.find_first_not_of(filling);
    if (first == std::u16string_view::npos) return {};
    return label.substr(first, label.find_last_not_of(filling) - first + 1);
}

void WarnOfMissingEndMarker(const std::string& path)
{
    PrintMessage(path + ": warning: the end marker is missing; the file may have been cut off");
}

std::string EmptyTracesWarning(std::ptrdiff_t traces, std::ptrdiff_t without)
{
    if (without == 0) return "";
    return fmt::format("{} of {} without samples", Grouped(without), Counted(traces, "trace"));
}

void WarnOfEmptyTraces(const std::string& path, const DataBlock& block, std::span<const std::int32_t> traces)
{
    const auto without = std::ranges::count_if(
        traces, [&](std::int32_t number) { return SampleCount(block, block.Traces[number]) == 0; });
    const std::string warning = EmptyTracesWarning(std::ssize(traces), without);
    if (!warning.empty()) PrintMessage(fmt::format("{}: warning: {}", path, warning));
}

std::optional<double> XValue(const DataBlock& block, std::int32_t sampleNumber)
{
    if (HasUniformXaxis(block)) return UniformX(block, sampleNumber);
    if (!block.Xaxis.Has(sampleNumber)) return std::nullopt;
    return double{block.Xaxis[sampleNumber]};
}

std::int32_t SampleCount(const DataBlock& block, const Trace& trace)
{
    return block.DataFormat == ComplexFormat ? trace.ComplexSamples.Count() : trace.RealSamples.Count();
}

std::u16string XaxisUnitsText(const DataBlock& block)
{
    const auto text = Trimmed(block.XaxisUnits);
    if (!text.empty()) return std::u16string(text);
    return TextOf(XaxisUnitsName(block.XaxisUnitsCode));
}

} // namespace qor::tool
