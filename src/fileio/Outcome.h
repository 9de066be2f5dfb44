// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#pragma once

#include <QOR_File/Enumerations.h>

namespace qor {

// What an operation on a document came to. The error is what is to be reported, if anything; it may stand
// beside Success.
struct Outcome {
    ReturnStatus status = Success;
    ErrorStatusTypes error = NoError;
};

} // namespace qor
