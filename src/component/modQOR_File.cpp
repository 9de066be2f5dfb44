// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "component/modQOR_File.h"

#include "platform/PerThread.h"

#include <atomic>

namespace qor {
namespace {

std::atomic<int> threadsWithDocuments = 0;

} // namespace

HoldsDocuments::HoldsDocuments() { ++threadsWithDocuments; }
HoldsDocuments::~HoldsDocuments() { --threadsWithDocuments; }

ThreadDocuments& modQOR_File() { return platform::PerThread<ThreadDocuments>(); }

void ShareError(ErrorStatusTypes error)
{
    if (error != NoError) modQOR_File().SharedErrorStatus = error;
}

int ThreadsWithDocuments() { return threadsWithDocuments; }

} // namespace qor
