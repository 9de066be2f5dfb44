// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A place where threads wait for one another.
#pragma once

#include <condition_variable>
#include <mutex>

namespace qor::test {

// Holds everyone back until as many have come. The standard barrier sometimes misses its wake-up with mingw-w64.
class Meeting
{
public:
    explicit Meeting(int expected) : missing_(expected) {}

    void Wait()
    {
        std::unique_lock lock(mutex_);
        if (--missing_ == 0) complete_.notify_all();
        complete_.wait(lock, [this] { return missing_ == 0; });
    }

private:
    std::mutex mutex_;
    std::condition_variable complete_;
    int missing_;
};

} // namespace qor::test
