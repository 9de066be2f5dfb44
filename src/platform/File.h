// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Regular files addressed by UTF-16 path. Directories, devices and pipes count as files that cannot be opened,
// created or deleted: reading one could wait for ever, and deleting one is never what a caller meant. So does one for
// whose path there is no memory.
#pragma once

#include "platform/ByteStream.h"

#include <optional>
#include <string_view>

namespace qor::platform {

class File final : public ByteSource, public ByteSink
{
public:
    // Opens an existing file. Others may replace or delete it meanwhile.
    static std::optional<File> OpenForReading(std::u16string_view path);
    // Makes a new, empty file for writing in the place of an existing one, which is deleted.
    static std::optional<File> Replace(std::u16string_view path);

    File(File&& other) noexcept;
    File& operator=(File&&) = delete;
    ~File() override;

    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> target) override;
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) override;
    std::uint64_t Size() const override;
    // Closes the file; false when the system could not complete what was written.
    bool Close();

private:
    using Handle = std::intptr_t;
    static constexpr Handle Closed = -1;

    explicit File(Handle handle) : handle_(handle) {}

    Handle handle_;
};

} // namespace qor::platform
