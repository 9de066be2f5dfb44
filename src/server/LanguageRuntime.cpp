// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the C++ runtime leaves behind when the library is unloaded, and a process can take only so often: a thread slot,
// handles of each thread that threw, and memory that is set aside for exceptions.
#include "platform/PerThread.h"

#include <atomic>
#include <cstdlib>
#include <cxxabi.h>
#include <pthread.h>
#include <windows.h>

namespace __gnu_cxx {

// Gives back the memory from which exceptions are made when there is none left.
void __freeres(); // NOLINT(bugprone-reserved-identifier): its name

} // namespace __gnu_cxx

namespace {

// The exceptions that a thread is handling, with the members that the C++ ABI gives it.
struct Exceptions {
    void* caught = nullptr;
    unsigned uncaught = 0;
};

void __stdcall Free(void* exceptions)
{
    if (!qor::platform::ProcessIsEnding()) std::free(exceptions);
}

// NOLINTNEXTLINE(cert-err58-cpp): made when the library is compiled
constinit qor::platform::FiberLocalSlot slot{&Free};
constinit Exceptions shared; // where there is no memory for a thread's own

// Nothing here may throw, as this is what throwing needs.
void* ExceptionsOfThread() noexcept
{
    if (void* present = slot.Get()) return present;
    void* made = std::calloc(1, sizeof(Exceptions));
    if (made && slot.Set(made)) return made;
    std::free(made);
    return &shared;
}

struct GivesBack {
    ~GivesBack() { __gnu_cxx::__freeres(); }
} givesBack;

} // namespace

// In place of the runtime's own, which keep them in its emulation of thread_local.
extern "C" abi::__cxa_eh_globals* abi::__cxa_get_globals() noexcept
{
    return static_cast<abi::__cxa_eh_globals*>(ExceptionsOfThread());
}

extern "C" abi::__cxa_eh_globals* abi::__cxa_get_globals_fast() noexcept { return abi::__cxa_get_globals(); }

// The linker puts it in the place of pthread_once, through which 32-bit code finds its exception handlers.
// NOLINTNEXTLINE(bugprone-reserved-identifier, readability-non-const-parameter): the linker wants name and parameters
extern "C" int __wrap_pthread_once(pthread_once_t* once, void (*initialize)())
{
    constexpr pthread_once_t Done = 1;
    constexpr pthread_once_t AtWork = 2;
    const std::atomic_ref state(*once);
    pthread_once_t fresh = PTHREAD_ONCE_INIT;
    if (state.compare_exchange_strong(fresh, AtWork)) {
        initialize();
        state = Done;
    }
    while (state != Done) SwitchToThread();
    return 0;
}
