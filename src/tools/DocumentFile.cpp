// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/DocumentFile.h"

#include "datablock/DataBlockLayout.h"
#include "fileio/Framing.h"
#include "platform/Unicode.h"
#include "tools/Console.h"
#include "tools/Names.h"
#include "tools/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace qor::tool {
namespace {

struct OtherKind {
    std::string_view keyword; // in the first line, in capitals
    std::string_view name;
};
constexpr OtherKind OtherKinds[] = {
    {"BINARY STRUCTURE", "Structure"},
    {"BINARY SHAPETABLE", "Shape Table"},
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
    if (!file) throw FileError(path, errno != 0 ? std::strerror(errno) : "cannot be opened");
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

void RefuseOthers(const std::string& path, ByteSource& source)
{
    RecordReader reader(source);
    const auto version = FindPreamble(reader);
    if (!version) throw FileError(path, "is not a document file");
    const std::string line = IdentificationLine(source);
    for (const OtherKind& kind : OtherKinds) {
        if (line.find(kind.keyword) == std::string::npos) continue;
        throw FileError(path, fmt::format("is a {} file; only Data Block files can be shown", kind.name));
    }
    if (*version > DataBlock_Version) {
        throw FileError(path,
                        fmt::format("has version {}; versions up to {} can be read", *version, DataBlock_Version));
    }
}

} // namespace

DocumentFile::DocumentFile(const std::string& path) : path_(path), file_(Open(path)) { RefuseOthers(path, file_); }

LoadResult DocumentFile::Load(DataBlock& block, const ArraySelection& selection)
{
    const LoadResult result = LoadDataBlock(file_, block, selection);
    if (result.error == AllocationError) throw FileError(path_, "needs more memory than there is, or is damaged");
    if (result.status == Failure) {
        if (block.NumberOfSamples >= 0 && block.NumberOfSamples < 2 && block.Traces.Count() == 0) {
            throw FileError(path_, "is a Data Block file without samples, or a damaged one");
        }
        throw FileError(path_, "is damaged: its records end early or make no sense");
    }
    if (!block.DataBlockFromFile) throw FileError(path_, "is damaged: there is no Data Block in it");
    return result;
}

std::optional<double> XValue(const DataBlock& block, std::int32_t sampleNumber)
{
    if (HasUniformXaxis(block)) {
        return double{block.XaxisStart} + (static_cast<double>(sampleNumber) - 1) * double{block.XaxisIncrement};
    }
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
