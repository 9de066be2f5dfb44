// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Faults on purpose: the n-th call of a kind fails. The linker puts these calls in the place of those that the library
// makes to the system (see CMakeLists.txt), so that nothing in the library knows of it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace qor::test {

enum class Call {
    Memory, // new; for arrays calloc, mmap, mremap
    Open,
    Look, // stat, lstat, fstat
    Read,
    Write,
    Close,
    Delete,
};

// What becomes of a call.
enum class Manner {
    Refused,     // it fails; one that closes has closed all the same, as on Linux
    RefusedOn,   // and so do all behind it
    Half,        // moves half of the bytes
    HalfThenOff, // moves half of the bytes, and those behind it are refused: a disk that fills up
};

struct Fault {
    Call call;
    Manner manner;
    int error = 0; // errno of what is refused
    const char* name;

    bool Lasts() const { return manner == Manner::RefusedOn || manner == Manner::HalfThenOff; }
};

// Every fault that a sweep goes through.
const std::vector<Fault>& AllFaults();

// While it lives, the call of that number, counted from 1, meets the fault. One at a time.
class Armed
{
public:
    Armed(const Fault& fault, int number);
    ~Armed();
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
};
// Whether the last one that was armed, or is, was met.
bool FaultWasMet();
// Where in the file reading or writing met it: behind the last byte that was moved.
std::int64_t FaultPlace();
// Whether it was a request for an array that was refused first.
bool ArrayWasRefused();

// Files that the library holds open.
int OpenFiles();
// Bytes that it has mapped. Nothing where addresses had to be given up because memory could not be moved.
std::optional<std::int64_t> MappedBytes();

} // namespace qor::test
