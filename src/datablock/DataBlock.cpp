// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/DataBlock.h"

#include "datablock/DataBlockLayout.h"
#include "platform/Memory.h"

#include <algorithm>
#include <new>
#include <utility>

namespace qor {
namespace {

constexpr auto InitialKept = InitialKeptValues<97>(DataBlock_Fields);

std::int64_t SampleWidth(const DataBlock& block)
{
    return block.DataFormat == ComplexFormat ? sizeof(ComplexSample) : sizeof(float);
}

// Whether the arrays that the sizes ask for fit the machine's memory together.
bool FitsMemory(const DataBlock& block)
{
    if (block.NumberOfSamples < 1 || block.NumberOfTraces < 0) return true; // nothing, or refused later
    const auto samples = static_cast<std::uint64_t>(block.NumberOfSamples);
    const auto perSample = static_cast<std::uint64_t>(block.NumberOfTraces * SampleWidth(block)) +
                           (block.XaxisSpacing != UniformSpacing ? sizeof(float) : 0);
    return perSample == 0 || samples <= platform::UsableMemory() / perSample;
}

bool ReallocateXaxis(DataBlock& block)
{
    if (block.XaxisSpacing != UniformSpacing && block.NumberOfSamples != 0) {
        return block.Xaxis.Resize(block.Memory, block.NumberOfSamples);
    }
    block.Xaxis.Release();
    return true;
}

template <class Matching, class Other>
bool ReallocateSamples(DataBlock& block, SampleArray<Matching>& matching, SampleArray<Other>& other)
{
    if (matching.Count() == block.NumberOfSamples) return true;
    other.Release();
    return matching.Resize(block.Memory, block.NumberOfSamples);
}

bool ReallocateTraces(DataBlock& block)
{
    if (block.NumberOfTraces < 0) return false;
    if (block.Traces.Count() != block.NumberOfTraces) block.Traces.Resize(block.NumberOfTraces);
    for (std::int32_t number = 1; number <= block.NumberOfTraces; ++number) {
        Trace& trace = block.Traces.Edit(number);
        if (block.NumberOfSamples == 0) {
            trace.ComplexSamples.Release();
            trace.RealSamples.Release();
        } else if (block.DataFormat == ComplexFormat) {
            if (!ReallocateSamples(block, trace.ComplexSamples, trace.RealSamples)) return false;
        } else {
            if (!ReallocateSamples(block, trace.RealSamples, trace.ComplexSamples)) return false;
        }
    }
    return true;
}

bool Reallocate(DataBlock& block)
{
    try {
        return FitsMemory(block) && ReallocateXaxis(block) && ReallocateTraces(block);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

Trace InitialTraceRecord()
{
    Trace trace;
    trace.DataSVT = DataIsVector;
    return trace;
}

const Trace TraceList::Blank;

Trace& TraceList::Make(std::int32_t index)
{
    const auto place = static_cast<std::size_t>(index - 1);
    std::unique_ptr<Page>& page = pages_[place / PageSize];
    if (!page) page = std::make_unique<Page>();
    std::unique_ptr<Trace>& trace = (*page)[place % PageSize];
    trace = std::make_unique<Trace>();
    return *trace;
}

void TraceList::Resize(std::int32_t count)
{
    const auto kept = static_cast<std::size_t>(count);
    for (std::size_t first = 0; first < pages_.size() * PageSize; first += PageSize) {
        std::unique_ptr<Page>& page = pages_[first / PageSize];
        if (first >= kept) {
            page.reset();
        } else if (page && first + PageSize > kept) {
            std::for_each(page->begin() + static_cast<std::ptrdiff_t>(kept - first), page->end(),
                          [](std::unique_ptr<Trace>& trace) { trace.reset(); });
        }
    }
    count_ = count;
}

DataBlock::DataBlock(std::u16string notes) : Notes(std::move(notes)), Kept(InitialKept)
{
    Notes = u"Data Block history";
}

void InitializeDataBlockStorage(DataBlock& block)
{
    // First what is large, so that there is memory again where it has just run out.
    block.Traces = TraceList();
    block.Xaxis.Release();
    block.Memory = SampleMemory();
    // Notes only ever grow in their memory, which so has room for those of a new Data Block.
    block = DataBlock(std::move(block.Notes));
}

ErrorStatusTypes ReallocateDataBlock(DataBlock& block)
{
    if (Reallocate(block)) return NoError;
    InitializeDataBlockStorage(block);
    return AllocationError;
}

} // namespace qor
