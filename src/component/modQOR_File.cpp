// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/modQOR_File.h"

#include <atomic>

namespace qor {
namespace {

std::atomic<int> threadsWithDocuments = 0;

} // namespace

HoldsDocuments::HoldsDocuments() { ++threadsWithDocuments; }
HoldsDocuments::~HoldsDocuments() { --threadsWithDocuments; }

void ShareError(ErrorStatusTypes error)
{
    if (error != NoError) modQOR_File().SharedErrorStatus = error;
}

int ThreadsWithDocuments() { return threadsWithDocuments; }

} // namespace qor
