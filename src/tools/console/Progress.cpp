// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/Progress.h"

#include "tools/console/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace qor::tool {

Progress::Progress(std::string_view work, std::uint64_t total)
    : work_(Shown(work)),
      total_(total),
      wanted_(total > 0 && isatty(STDERR_FILENO) == 1),
      next_(Clock::now() + std::chrono::seconds(1))
{}

Progress::~Progress()
{
    if (shown_) static_cast<void>(std::fputs("\r\x1B[K", stderr)); // who cannot see it misses nothing
}

void Progress::Update(std::uint64_t done)
{
    if (!wanted_ || Clock::now() < next_) return;
    next_ = Clock::now() + std::chrono::milliseconds(200);
    const std::uint64_t percent = std::min<std::uint64_t>(100, done * 100 / total_);
    static_cast<void>(std::fputs(fmt::format("\r{}: {}%", work_, percent).c_str(), stderr));
    static_cast<void>(std::fflush(stderr));
    shown_ = true;
}

} // namespace qor::tool
