// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "Child.h"

#include <cstdio>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace qor::bench {

std::optional<double> InChild(const std::function<std::optional<double>()>& measurement)
{
    int channel[2];
    if (pipe(channel) != 0) return std::nullopt;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        try {
            const std::optional<double> result = measurement();
            if (result && write(channel[1], &*result, sizeof *result) == static_cast<ssize_t>(sizeof *result)) _exit(0);
        } catch (const std::exception& fault) {
            std::fprintf(stderr, "%s\n", fault.what());
        }
        _exit(1);
    }
    close(channel[1]);
    double result = 0;
    const bool told = child > 0 && read(channel[0], &result, sizeof result) == static_cast<ssize_t>(sizeof result);
    close(channel[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return told ? std::optional(result) : std::nullopt;
}

void DoInChild(const std::string& what, const std::function<bool()>& work)
{
    if (!InChild([&] { return work() ? std::optional(0.0) : std::nullopt; }))
        throw std::runtime_error(what + ": failed");
}

} // namespace qor::bench
