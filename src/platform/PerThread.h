// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// One value per thread, made at the thread's first use and destroyed when the thread ends or the library is
// unloaded, whichever comes first.
#pragma once

#ifdef _WIN32

#include <atomic>
#include <memory>
#include <new>

namespace qor::platform {

// True from the moment the process begins to end. Its other threads are gone then, stopped wherever they were.
bool ProcessIsEnding();

// A C++ thread_local with a destructor would pin a DLL in its process and hang the end of a worker thread. A
// fiber-local slot has neither flaw: the system destroys the value at the thread's end, and freeing the slot,
// when the library is unloaded, destroys those of all threads.
class FiberLocalSlot
{
public:
    constexpr explicit FiberLocalSlot(void(__stdcall* destroy)(void*)) : destroy_(destroy) {}
    ~FiberLocalSlot();
    FiberLocalSlot(const FiberLocalSlot&) = delete;
    FiberLocalSlot& operator=(const FiberLocalSlot&) = delete;

    void* Get() const;
    // False when the system has no slot or no memory left.
    [[nodiscard]] bool Set(void* value);

private:
    static constexpr unsigned long None = 0xFFFFFFFF;

    void(__stdcall* destroy_)(void*);
    std::atomic<unsigned long> index_ = None; // the slot is taken at the first use
};

// 32-bit systems call it with any alignment of the stack.
template <class T>
[[gnu::force_align_arg_pointer]] void __stdcall DestroyPerThread(void* value)
{
    // What a stopped thread was at work on cannot be destroyed, and its memory goes with the process.
    if (!ProcessIsEnding()) delete static_cast<T*>(value);
}

// Not a local static, which compilers make at its first use under a lock that leaves something behind for every thread
// when the library is unloaded.
template <class T>
inline constinit FiberLocalSlot SlotOf{&DestroyPerThread<T>};

template <class T>
T& PerThread()
{
    FiberLocalSlot& slot = SlotOf<T>;
    if (void* value = slot.Get()) return *static_cast<T*>(value);
    auto made = std::make_unique<T>();
    if (!slot.Set(made.get())) throw std::bad_alloc();
    return *made.release();
}

} // namespace qor::platform

#else

#include "platform/Inline.h"

namespace qor::platform {

// Owns the value of one thread, and leaves word in place for as long as it lives.
template <class T>
struct PerThreadOwner {
    explicit PerThreadOwner(T*& place) : found(place) { found = &value; }
    ~PerThreadOwner() { found = nullptr; }
    PerThreadOwner(const PerThreadOwner&) = delete;
    PerThreadOwner& operator=(const PerThreadOwner&) = delete;

    T*& found;
    T value;
};

template <class T>
[[gnu::noinline]] T& MakePerThread(T*& place)
{
    static thread_local PerThreadOwner<T> owner(place);
    return owner.value;
}

// The pointer is asked for with every sample. In the initial-exec model that takes one instruction, else a call; there
// is room for a pointer in that model even where the library is loaded while the program runs.
template <class T>
QOR_INLINE inline T& PerThread()
{
    [[gnu::tls_model("initial-exec")]] static constinit thread_local T* value = nullptr;
    if (value) [[likely]]
        return *value;
    return MakePerThread(value);
}

} // namespace qor::platform

#endif
