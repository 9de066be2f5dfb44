// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// One value per thread, made at the thread's first use and destroyed when the thread ends or the library is
// unloaded, whichever comes first.
#pragma once

#ifdef _WIN32

#include <memory>

namespace qor::platform {

// A C++ thread_local with a destructor would pin a DLL in its process and hang the end of a worker thread. A
// fiber-local slot has neither flaw: the system destroys the value at the thread's end, and freeing the slot,
// which the static object below does when the library is unloaded, destroys those of all threads.
class FiberLocalSlot
{
public:
    explicit FiberLocalSlot(void(__stdcall* destroy)(void*));
    ~FiberLocalSlot();
    FiberLocalSlot(const FiberLocalSlot&) = delete;
    FiberLocalSlot& operator=(const FiberLocalSlot&) = delete;

    void* Get() const;
    // Throws std::bad_alloc when the system has no slot for it.
    void Set(void* value) const;

private:
    unsigned long index_;
};

template <class T>
void __stdcall DestroyPerThread(void* value)
{
    delete static_cast<T*>(value);
}

template <class T>
T& PerThread()
{
    static FiberLocalSlot slot(&DestroyPerThread<T>);
    if (void* value = slot.Get()) return *static_cast<T*>(value);
    auto made = std::make_unique<T>();
    slot.Set(made.get());
    return *made.release();
}

} // namespace qor::platform

#else

namespace qor::platform {

template <class T>
T& PerThread()
{
    static thread_local T value;
    return value;
}

} // namespace qor::platform

#endif
