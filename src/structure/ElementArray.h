// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// One contiguous block of elements that grows by one in amortised constant time. Indices count from 1.
#pragma once

#include "platform/Memory.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace qor {

template <class T>
class ElementArray
{
    // Fresh memory is zeros, and zeros are a new element; growing copies bytes.
    static_assert(std::is_trivially_copyable_v<T>);

public:
    ElementArray() = default;
    ElementArray(const ElementArray&) = delete;
    ElementArray& operator=(const ElementArray&) = delete;
    ElementArray(ElementArray&& other) noexcept { Swap(other); }
    ElementArray& operator=(ElementArray&& other) noexcept
    {
        ElementArray taken(std::move(other));
        Swap(taken);
        return *this;
    }
    ~ElementArray() { platform::FreeZeroed(data_, Bytes(capacity_)); }

    std::int32_t Count() const { return count_; }
    bool Has(std::int32_t index) const { return index >= 1 && index <= count_; }
    const T& operator[](std::int32_t index) const { return data_[index - 1]; }
    // NOLINTNEXTLINE(clang-analyzer-core.uninitialized.UndefReturn): it does not see that a new array has no elements
    T& operator[](std::int32_t index) { return data_[index - 1]; }

    void Release() { *this = ElementArray(); }

    // Resizes the array, elements that fit kept, new ones all zero. False, the array then as it was, when the
    // count is negative, the array too large, or memory refused. A count of 0 releases the memory.
    [[nodiscard]] bool Resize(std::int32_t count)
    {
        if (count < 0 || count > MostElements) return false;
        if (count == 0) {
            Release();
            return true;
        }
        if (count > capacity_ && !Grow(count)) return false;
        if (count < count_) std::fill(data_ + count, data_ + count_, T{});
        count_ = count;
        return true;
    }

private:
    static constexpr std::int32_t MostElements = static_cast<std::int32_t>(2147483647 / sizeof(T));

    static std::size_t Bytes(std::int32_t count) { return static_cast<std::size_t>(count) * sizeof(T); }

    // Room that is not used yet takes addresses only, so growing in large steps costs no memory.
    bool Grow(std::int32_t count)
    {
        constexpr std::int64_t step = 4;
        const bool grows = count_ > 0 && count == count_ + 1;
        const auto roomy = static_cast<std::int32_t>(std::min<std::int64_t>(MostElements, step * count));
        return (grows && MoveTo(roomy)) || MoveTo(count);
    }

    bool MoveTo(std::int32_t capacity)
    {
        if (Bytes(capacity) > platform::UsableMemory()) return false;
        void* const grown = platform::GrowZeroed(data_, Bytes(capacity_), Bytes(capacity));
        if (!grown) return false;
        data_ = static_cast<T*>(grown);
        capacity_ = capacity;
        return true;
    }

    void Swap(ElementArray& other) noexcept
    {
        std::swap(data_, other.data_);
        std::swap(count_, other.count_);
        std::swap(capacity_, other.capacity_);
    }

    T* data_ = nullptr;
    std::int32_t count_ = 0;
    std::int32_t capacity_ = 0;
};

} // namespace qor
