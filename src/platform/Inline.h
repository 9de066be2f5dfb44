// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#pragma once

// For the few functions and lambdas whose callers hold their state in registers, which one call that is not inlined
// would force into memory.
#define QOR_INLINE __attribute__((always_inline))
