// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A file for members that open files by their paths, without a folder to clean up.
#pragma once

#include "support/MemoryFile.h"

#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace qor::test {

// A file without a folder, which the system still opens by path.
class UnlinkedFile
{
public:
    explicit UnlinkedFile(const Bytes& bytes) : descriptor_(memfd_create("QOR_File", MFD_CLOEXEC))
    {
        good_ =
            descriptor_ >= 0 && write(descriptor_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    }
    ~UnlinkedFile()
    {
        if (descriptor_ >= 0) close(descriptor_);
    }
    UnlinkedFile(const UnlinkedFile&) = delete;
    UnlinkedFile& operator=(const UnlinkedFile&) = delete;

    bool Good() const { return good_; }
    std::u16string Path() const
    {
        const std::string path = "/proc/self/fd/" + std::to_string(descriptor_);
        return {path.begin(), path.end()};
    }

private:
    int descriptor_;
    bool good_ = false;
};

} // namespace qor::test
