// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving and loading, and the plain writes, reads and copies of the same bytes, as parties that are timed.
#pragma once

#include "Figures.h"
#include "PlainFile.h"

#include <cstddef>
#include <memory>

namespace qor::bench {

// A file that has been saved, and its bytes in memory that has been touched.
struct SavedFile {
    explicit SavedFile(const std::string& savedPath)
        : path(savedPath), fresh(path + ".new"), bytes(BytesOf(path)), target(bytes.size(), std::byte{1})
    {}

    std::string path;
    std::string fresh; // the new file of each save
    std::vector<std::byte> bytes;
    std::vector<std::byte> target;
};

// Gives memory that was freed back to the system, so that the next is fresh for whoever asks.
void ReturnFreedMemory();

// Of the file's bytes, to or from memory in use.
Party PlainWrite(const SavedFile& file);
Party PlainRead(SavedFile& file);
Party PlainCopy(SavedFile& file);
// Into memory that is asked for anew.
Party FreshRead(const SavedFile& file);

// A save to file.fresh of the bytes of the file.
Party Saving(const SavedFile& file, std::function<bool()> save);
// A save of something else to that path.
Party SavingTo(const std::string& path, std::function<bool()> save, std::function<bool()> holds);
// Loading, and releasing what was loaded.
Party Loading(std::function<bool()> load, std::function<bool()> holds, std::function<void()> release);

} // namespace qor::bench
