// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The seeds that fuzzing starts from are files in the corpus, made by support/SeedFiles.h and
// support/StructureSeedFiles.h. With QOR_WRITE_SEEDS set in the environment they are written anew. The corpus may hold
// other files, such as what fuzzing found.
#include "support/SeedFiles.h"
#include "support/StructureSeedFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace qor::test {
namespace {

void ExpectInCorpus(const std::vector<SeedFile>& seeds, const std::string& folder, const std::string& extension)
{
    const std::filesystem::path corpus = std::filesystem::path(QOR_SOURCE_DIR) / "tests/fuzz/corpus" / folder;
    for (const SeedFile& seed : seeds) {
        const std::filesystem::path path = corpus / (seed.name + extension);
        if (std::getenv("QOR_WRITE_SEEDS")) WriteBytes(path, seed.bytes);
        EXPECT_EQ(BytesOf(path), seed.bytes) << path;
    }
}

TEST(SeedCorpus, HoldsEveryDataBlockSeed) { ExpectInCorpus(SeedFiles(), "datablock", ".blk"); }

TEST(SeedCorpus, HoldsEveryStructureSeed) { ExpectInCorpus(StructureSeedFiles(), "structure", ".str"); }

} // namespace
} // namespace qor::test
