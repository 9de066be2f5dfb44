// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The arrays of a Data Block: samples and X values. An array is present with 1 or more elements, or absent.
// Indices count from 1.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

namespace qor {

// A sample of a complex trace, as it also stands in a file.
struct ComplexSample {
    float real = 0;
    float imaginary = 0;

    friend bool operator==(const ComplexSample&, const ComplexSample&) = default;
};
static_assert(sizeof(ComplexSample) == 2 * sizeof(float));

// Arrays move between memory and file in one piece, which takes the file's byte order in memory.
static_assert(std::endian::native == std::endian::little);

// No array is larger than this, whatever memory there is.
inline constexpr std::int64_t LargestArray = 2147483647;

// Hands out zeroed memory for arrays. Small arrays share blocks, so that thousands of short traces cost few
// system calls and lie in huge pages; a block goes with the last of its arrays, the newest one with the SampleMemory.
class SampleMemory
{
public:
    // Null when the system refuses.
    std::shared_ptr<void> Allocate(std::size_t bytes) noexcept;

private:
    std::shared_ptr<std::byte> block_;
    std::size_t blockSize_ = 0;
    std::size_t used_ = 0;
};

template <class T>
class SampleArray
{
public:
    // The upper bound; 0 when the array is absent.
    std::int32_t Count() const { return count_; }
    bool Has(std::int32_t index) const { return index >= 1 && index <= count_; }
    const T& operator[](std::int32_t index) const { return data_.get()[index - 1]; }
    T& operator[](std::int32_t index) { return data_.get()[index - 1]; }
    std::span<const T> Values() const { return {data_.get(), static_cast<std::size_t>(count_)}; }
    std::span<T> Values() { return {data_.get(), static_cast<std::size_t>(count_)}; }

    void Release() { *this = SampleArray(); }

    // Makes the array one of count zeros, the earlier one released. False, the array then absent, when count
    // is below 1, the array too large, or memory refused.
    [[nodiscard]] bool AllocateZeros(SampleMemory& memory, std::int64_t count)
    {
        Release();
        return Resize(memory, count);
    }

    // Resizes the array, keeping the values that fit; new ones are 0. False, the array then as it was, when
    // count is below 1, the array too large, or memory refused.
    [[nodiscard]] bool Resize(SampleMemory& memory, std::int64_t count)
    {
        constexpr auto width = static_cast<std::int64_t>(sizeof(T));
        if (count == count_ && count > 0) return true;
        if (count < 1 || count > LargestArray / width) return false;
        std::shared_ptr<void> fresh = memory.Allocate(static_cast<std::size_t>(count * width));
        if (!fresh) return false;
        SampleArray resized;
        resized.data_ = std::shared_ptr<T>(fresh, static_cast<T*>(fresh.get()));
        resized.count_ = static_cast<std::int32_t>(count);
        const auto kept = Values().first(static_cast<std::size_t>(std::min(count_, resized.count_)));
        std::copy(kept.begin(), kept.end(), resized.data_.get());
        *this = std::move(resized);
        return true;
    }

    // An array is not copied by accident: two that share their values would change together.
    SampleArray() = default;
    SampleArray(const SampleArray&) = delete;
    SampleArray& operator=(const SampleArray&) = delete;
    SampleArray(SampleArray&& other) noexcept : data_(std::move(other.data_)), count_(std::exchange(other.count_, 0)) {}
    SampleArray& operator=(SampleArray&& other) noexcept
    {
        data_ = std::move(other.data_);
        count_ = std::exchange(other.count_, 0);
        return *this;
    }
    ~SampleArray() = default;

private:
    std::shared_ptr<T> data_;
    std::int32_t count_ = 0;
};

} // namespace qor
