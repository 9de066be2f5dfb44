// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Opens a Data Block file for showing, and says in words what is wrong with one.
#pragma once

#include "datablock/Load_DataBlock.h"
#include "platform/File.h"

#include <string>

namespace qor::tool {

class DocumentFile
{
public:
    // Throws ToolError when the file cannot be opened or holds no Data Block: another kind of document, one of a
    // later version, or something else altogether.
    explicit DocumentFile(const std::string& path);

    // Throws ToolError when the Data Block is damaged.
    LoadResult Load(DataBlock& block, const ArraySelection& selection);

    const std::string& Path() const { return path_; }
    std::uint64_t Size() const { return file_.Size(); }

private:
    std::string path_;
    platform::File file_;
};

// X value of a sample, from 1, as the Data Block gives it; nothing where an explicit X axis is absent or too short.
std::optional<double> XValue(const DataBlock& block, std::int32_t sampleNumber);
// Samples that the trace really holds.
std::int32_t SampleCount(const DataBlock& block, const Trace& trace);
// The units of the X axis, of the unit code where there is no text.
std::u16string XaxisUnitsText(const DataBlock& block);

} // namespace qor::tool
