// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Counts that nothing stands behind, as a damaged file may bring them, do not make arrays.
#include "server/Client.h"

#include <limits>
#include <psapi.h>

using namespace qor::test;

namespace {

std::size_t PeakMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.PeakWorkingSetSize;
}

constexpr std::size_t LittleMemory = 64 << 20;

class ArrayMemory : public testing::Test
{
protected:
    void Claim(LONG samples)
    {
        EXPECT_HRESULT_SUCCEEDED(file_->put_DataBlock_NumberOfSamples(samples));
        LONG claimed = 0;
        file_->get_DataBlock_NumberOfSamples(&claimed);
        ASSERT_EQ(claimed, samples); // no trace holds any
    }

    const Apartment apartment_;
    const Held<_clsQOR_File> file_ = Create<clsQOR_File, _clsQOR_File>();
    const Held<IQOR_FileArrays> arrays_ = Ask<IQOR_FileArrays>(file_);
    VARIANT first_{};
    VARIANT second_{};
    ReturnStatus status_ = Success;
};

} // namespace

TEST_F(ArrayMemory, IsNotAskedForXValuesThatNoDocumentCouldHave)
{
    Claim(std::numeric_limits<LONG>::max());
    const std::size_t before = PeakMemory();

    EXPECT_EQ(arrays_->ReadDataBlockXaxisValues(&first_, &status_), E_OUTOFMEMORY);

    EXPECT_EQ(first_.vt, VT_EMPTY);
    EXPECT_LT(PeakMemory(), before + LittleMemory);
}

TEST_F(ArrayMemory, IsNotAskedForSamplesThatNoTraceHolds)
{
    Claim(std::numeric_limits<LONG>::max());
    const std::size_t before = PeakMemory();

    EXPECT_EQ(arrays_->ReadTraceSamples(1, &first_, &second_, &status_), E_OUTOFMEMORY);

    EXPECT_EQ(first_.vt, VT_EMPTY);
    EXPECT_EQ(second_.vt, VT_EMPTY);
    EXPECT_LT(PeakMemory(), before + LittleMemory);
}

TEST_F(ArrayMemory, SufficesForALongAxis)
{
    constexpr LONG Samples = 1'000'000;
    Claim(Samples);
    file_->put_DataBlock_XaxisIncrement(0.5F);

    EXPECT_EQ(arrays_->ReadDataBlockXaxisValues(&first_, &status_), S_OK);

    EXPECT_EQ(status_, Success);
    ASSERT_EQ(first_.vt, VT_ARRAY | VT_R4);
    EXPECT_EQ(first_.parray->rgsabound[0].cElements, static_cast<ULONG>(Samples));
    EXPECT_EQ(static_cast<float*>(first_.parray->pvData)[Samples - 1], 0.5F * (Samples - 1));
    VariantClear(&first_);
}
