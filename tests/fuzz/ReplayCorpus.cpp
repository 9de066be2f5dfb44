// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Runs a fuzz target over every file of some folders, in builds without a fuzzer. Usage: replay FOLDER...
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int Replay(const char* folder)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        std::printf("%s, %zu bytes\n", entry.path().filename().c_str(), bytes.size());
        std::fflush(stdout); // names the file that a crash comes from
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++files;
    }
    std::printf("%s: %d files\n", folder, files);
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    bool replayed = argc > 1;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            std::fprintf(stderr, "usage: replay FOLDER...\n");
            return 2;
        }
        if (Replay(argv[i]) == 0) replayed = false;
    }
    return replayed ? 0 : 1;
}
