// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The documents of a thread, and what else its component objects share. Only the component asks for them;
// document modules work on what they are handed.
#pragma once

#include "datablock/DataBlock.h"
#include "platform/PerThread.h"
#include "shapetable/ShapeTable.h"
#include "structure/Structure.h"

namespace qor {

// Counts a thread for as long as it lives.
class HoldsDocuments
{
public:
    HoldsDocuments();
    ~HoldsDocuments();
    HoldsDocuments(const HoldsDocuments&) = delete;
    HoldsDocuments& operator=(const HoldsDocuments&) = delete;
};

struct ThreadDocuments {
    HoldsDocuments Holder; // first: the thread counts until its last document is gone
    qor::DataBlock DataBlock;
    qor::ShapeTable ShapeTable;
    qor::Structure Structure;
    // Left by objects that have no error path of their own; see clsQOR_File::ErrorStatus.
    ErrorStatusTypes SharedErrorStatus = NoError;
    // Result of the last allocation by a size setter; kept for debugging, no member reads it.
    std::int32_t LastAllocationResult = 0;
};

// Those of the calling thread, made at its first call and released when it ends.
inline ThreadDocuments& modQOR_File() { return platform::PerThread<ThreadDocuments>(); }

// Leaves an error, not NoError, as the thread's shared error status.
void ShareError(ErrorStatusTypes error);

// How many threads hold documents at this moment.
int ThreadsWithDocuments();

} // namespace qor
