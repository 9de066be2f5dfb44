// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Work in a process of its own, whose heap has seen nothing but what this process made before.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace qor::bench {

// What the measurement comes to. Nothing where it comes to nothing, throws, or its process ends or cannot be made.
std::optional<double> InChild(const std::function<std::optional<double>()>& measurement);
// Does the work, of which only files are left. Throws std::runtime_error, with what was to be done, where that fails.
void DoInChild(const std::string& what, const std::function<bool()>& work);

} // namespace qor::bench
