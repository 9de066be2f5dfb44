// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/FaultInjection.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qor::test {
namespace {

const Fault* armed = nullptr;
int turn = 0;
int counted = 0;
bool met = false;
std::int64_t place = 0;
bool arrayRefused = false;
int files = 0;
std::int64_t mapped = 0;
bool addressesLost = false;

enum class Fate { Passes, Fails, MovesHalf };

Fate FateOf(Call call)
{
    if (!armed || armed->call != call) return Fate::Passes;
    ++counted;
    if (counted != turn && !(counted > turn && armed->Lasts())) return Fate::Passes;
    met = true;
    const bool half = armed->manner == Manner::Half || armed->manner == Manner::HalfThenOff;
    if (half && counted == turn) return Fate::MovesHalf;
    errno = armed->error;
    return Fate::Fails;
}

bool Fails(Call call) { return FateOf(call) == Fate::Fails; }

bool IsRefusedArray()
{
    const bool refused = Fails(Call::Memory);
    if (refused && counted == turn) arrayRefused = true;
    return refused;
}

void* AllocateBlock(std::size_t size)
{
    if (Fails(Call::Memory)) throw std::bad_alloc();
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (!memory) throw std::bad_alloc();
    return memory;
}

// Moves what the fate leaves of the bytes.
template <class Move>
ssize_t Moved(Call call, off_t offset, std::size_t bytes, Move move)
{
    const Fate fate = FateOf(call);
    if (fate == Fate::Passes) return move(bytes);
    const std::size_t left = fate == Fate::MovesHalf ? (bytes + 1) / 2 : 0;
    if (counted == turn) place = offset + static_cast<off_t>(left);
    return left > 0 ? move(left) : -1;
}

} // namespace

const std::vector<Fault>& AllFaults()
{
    static const std::vector<Fault> all = {
        {Call::Memory, Manner::Refused, ENOMEM, "one request for memory"},
        {Call::Memory, Manner::RefusedOn, ENOMEM, "no memory from there on"},
        {Call::Open, Manner::Refused, ENOENT, "vanished before it is opened"},
        {Call::Open, Manner::Refused, EACCES, "not permitted to open"},
        {Call::Open, Manner::Refused, ENOSPC, "no space for a file"},
        {Call::Open, Manner::Refused, EMFILE, "too many files"},
        {Call::Open, Manner::Refused, EINTR, "open interrupted once"},
        {Call::Look, Manner::Refused, EACCES, "not permitted to look"},
        {Call::Look, Manner::Refused, ENOENT, "vanished before it is looked at"},
        {Call::Look, Manner::Refused, EIO, "I/O error when looked at"},
        {Call::Read, Manner::Refused, EIO, "one I/O error when reading"},
        {Call::Read, Manner::RefusedOn, EIO, "I/O errors when reading from there on"},
        {Call::Read, Manner::Refused, EINTR, "reading interrupted once"},
        {Call::Read, Manner::Half, 0, "half read once"},
        {Call::Read, Manner::HalfThenOff, EIO, "half read, then I/O errors"},
        {Call::Write, Manner::Refused, ENOSPC, "disk full once"},
        {Call::Write, Manner::RefusedOn, ENOSPC, "disk full from there on"},
        {Call::Write, Manner::Refused, EIO, "one I/O error when writing"},
        {Call::Write, Manner::Refused, EINTR, "writing interrupted once"},
        {Call::Write, Manner::Half, 0, "half written once"},
        {Call::Write, Manner::HalfThenOff, ENOSPC, "half written, then the disk is full"},
        {Call::Close, Manner::Refused, EIO, "I/O error when closing"},
        {Call::Close, Manner::Refused, ENOSPC, "disk full when closing"},
        {Call::Delete, Manner::Refused, EACCES, "not permitted to delete"},
        {Call::Delete, Manner::Refused, EBUSY, "deleting what is in use"},
        {Call::Delete, Manner::Refused, ENOENT, "vanished before it is deleted"},
    };
    return all;
}

Armed::Armed(const Fault& fault, int number)
{
    armed = &fault;
    turn = number;
    counted = 0;
    met = false;
    place = 0;
    arrayRefused = false;
    addressesLost = false;
}
Armed::~Armed() { armed = nullptr; }

bool FaultWasMet() { return met; }
std::int64_t FaultPlace() { return place; }
bool ArrayWasRefused() { return arrayRefused; }
int OpenFiles() { return files; }
std::optional<std::int64_t> MappedBytes() { return addressesLost ? std::nullopt : std::optional(mapped); }

} // namespace qor::test

extern "C" int __real_unlink(const char*);

namespace {

// Somebody else was faster.
void RemoveIfVanished(const char* path)
{
    const int error = errno;
    if (error == ENOENT) __real_unlink(path);
    errno = error;
}

} // namespace

using namespace qor::test;

void* operator new(std::size_t size) { return AllocateBlock(size); }
void* operator new[](std::size_t size) { return AllocateBlock(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

// The names are the linker's: a call of NAME becomes one of __wrap_NAME, and __real_NAME is the system's.
extern "C" {

void* __real_calloc(std::size_t, std::size_t);
void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return IsRefusedArray() ? nullptr : __real_calloc(count, size);
}

void* __real_mmap(void*, std::size_t, int, int, int, off_t);
void* __wrap_mmap(void* address, std::size_t length, int protection, int flags, int descriptor, off_t offset)
{
    if (IsRefusedArray()) return MAP_FAILED;
    void* const memory = __real_mmap(address, length, protection, flags, descriptor, offset);
    if (memory != MAP_FAILED) mapped += static_cast<std::int64_t>(length);
    return memory;
}

int __real_munmap(void*, std::size_t);
int __wrap_munmap(void* memory, std::size_t length)
{
    mapped -= static_cast<std::int64_t>(length);
    return __real_munmap(memory, length);
}

// Of the two that the library gives, the one replaces the other.
void* __real_mremap(void*, std::size_t, std::size_t, int, void*);
void* __wrap_mremap(void* memory, std::size_t bytes, std::size_t newBytes, int flags, void* target)
{
    if (IsRefusedArray()) {
        addressesLost = true;
        return MAP_FAILED;
    }
    mapped -= static_cast<std::int64_t>(bytes);
    return __real_mremap(memory, bytes, newBytes, flags, target);
}

int __real_open(const char*, int, ...);
int __wrap_open(const char* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    if (Fails(Call::Open)) return -1;
    const int descriptor = __real_open(path, flags, mode);
    if (descriptor >= 0) ++files;
    return descriptor;
}

int __real_close(int);
int __wrap_close(int descriptor)
{
    const bool fails = Fails(Call::Close);
    const int error = errno;
    --files;
    const int result = __real_close(descriptor);
    if (!fails) return result;
    errno = error;
    return -1;
}

int __real_stat(const char*, struct stat*);
int __wrap_stat(const char* path, struct stat* status) { return Fails(Call::Look) ? -1 : __real_stat(path, status); }
int __real_lstat(const char*, struct stat*);
int __wrap_lstat(const char* path, struct stat* status)
{
    if (!Fails(Call::Look)) return __real_lstat(path, status);
    RemoveIfVanished(path);
    return -1;
}
int __real_fstat(int, struct stat*);
int __wrap_fstat(int descriptor, struct stat* status)
{
    return Fails(Call::Look) ? -1 : __real_fstat(descriptor, status);
}

int __wrap_unlink(const char* path)
{
    if (!Fails(Call::Delete)) return __real_unlink(path);
    RemoveIfVanished(path);
    return -1;
}

ssize_t __real_pread(int, void*, std::size_t, off_t);
ssize_t __wrap_pread(int descriptor, void* target, std::size_t bytes, off_t offset)
{
    const ssize_t got = __real_pread(descriptor, target, bytes, offset);
    if (got <= 0) return got; // nothing is lost behind the end
    return Moved(Call::Read, offset, static_cast<std::size_t>(got),
                 [](std::size_t some) { return static_cast<ssize_t>(some); });
}

ssize_t __real_pwrite(int, const void*, std::size_t, off_t);
ssize_t __wrap_pwrite(int descriptor, const void* from, std::size_t bytes, off_t offset)
{
    return Moved(Call::Write, offset, bytes,
                 [&](std::size_t some) { return __real_pwrite(descriptor, from, some, offset); });
}

} // extern "C"
