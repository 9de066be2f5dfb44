// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The seeds that fuzzing starts from are files in the corpus, made by support/SeedFiles.h. With QOR_WRITE_SEEDS set in
// the environment they are written anew. The corpus may hold other files, such as what fuzzing found.
#include "support/SeedFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace qor::test {
namespace {

TEST(SeedCorpus, HoldsEverySeed)
{
    const std::filesystem::path corpus = std::filesystem::path(QOR_SOURCE_DIR) / "tests/fuzz/corpus/datablock";
    for (const SeedFile& seed : SeedFiles()) {
        const std::filesystem::path path = corpus / (seed.name + ".blk");
        if (std::getenv("QOR_WRITE_SEEDS")) WriteBytes(path, seed.bytes);
        EXPECT_EQ(BytesOf(path), seed.bytes) << path;
    }
}

} // namespace
} // namespace qor::test
