// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// How far long work has come, on standard error. Shown only on a terminal and only after the first second.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace qor::tool {

class Progress
{
public:
    // A total of 0 stands for one that is not known; nothing is shown then.
    Progress(std::string_view work, std::uint64_t total);
    // Takes the line away again.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Update(std::uint64_t done);

private:
    using Clock = std::chrono::steady_clock;

    std::string work_;
    std::uint64_t total_;
    bool wanted_;
    bool shown_ = false;
    Clock::time_point next_;
};

} // namespace qor::tool
