// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the tests of the largest documents share: room for a file of 2 GiB, and values that tell where they belong.
#pragma once

#include "support/SameDocument.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/FileArrays.h>
#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <limits>
#include <optional>
#include <string>

namespace qor::test {

inline constexpr std::int64_t LargestFile = 2147483647;

// Differs from its neighbours, and between whole rows of values too. Never a NaN.
inline float ValueAt(std::int32_t row, std::int32_t place)
{
    const std::uint32_t mixed =
        static_cast<std::uint32_t>(place) * 2654435761U ^ static_cast<std::uint32_t>(row) * 2246822519U;
    return std::bit_cast<float>(mixed & 0xBFFFFFFFU);
}

// Whether the folder has room for the largest file, and the machine memory for it and a document, together with what
// both take for a moment.
inline bool HasRoom(const std::filesystem::path& folder)
{
    constexpr std::uint64_t gigabyte = std::uint64_t{1} << 30;
    std::error_code missing;
    if (std::filesystem::space(folder, missing).available < 2 * gigabyte + gigabyte / 4 || missing) return false;
    std::ifstream state("/proc/meminfo");
    for (std::string name; state >> name; state.ignore(std::numeric_limits<std::streamsize>::max(), '\n')) {
        std::uint64_t kilobytes = 0;
        if (name == "MemAvailable:" && state >> kilobytes) return kilobytes * 1024 > 7 * gigabyte;
    }
    return false;
}

class LargeDocument : public testing::Test
{
protected:
    void SetUp() override
    {
        // In memory where possible: what is tested is not the disk.
        for (const std::filesystem::path& parent :
             {std::filesystem::path("/dev/shm"), std::filesystem::temp_directory_path()}) {
            if (!folder && HasRoom(parent)) folder.emplace(parent);
        }
        if (!folder) GTEST_SKIP() << "needs 2.25 GiB for a file and 7 GiB of memory";
        path = Utf16(*folder / "document");
    }
    void TearDown() override
    {
        component.InitializeDataBlockStorage();
        component.InitializeShapeTableStorage();
        component.InitializeStructureStorage();
    }

    std::int64_t FileSize() const
    {
        return static_cast<std::int64_t>(std::filesystem::file_size(*folder / "document"));
    }

    std::optional<TemporaryFolder> folder;
    std::u16string path;
    clsQOR_File component;
};

} // namespace qor::test
