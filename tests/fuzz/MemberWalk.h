// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Calls of all published members, in the order and with the arguments that an input decides, on two objects of a
// thread: what they return must agree with what the documents hold. Unlike the models, the calls also meet documents
// of damaged files, and any number and text.
#pragma once

#include "component/modQOR_File.h"
#include "fuzz/InputReader.h"
#include "support/MemoryFile.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/FileArrays.h>
#include <QOR_File/QOR_File.h>

#include <array>
#include <optional>
#include <span>
#include <string>

namespace qor::test {

class MemberWalk
{
public:
    explicit MemberWalk(std::span<const std::uint8_t> input) : in(input) {}

    // Nothing, or the first call that did what it must not, and what that was.
    std::string Run();

    // ---- for the operations ---------------------------------------------------------------------------------

    // The object that this call is for.
    clsQOR_File& File() { return objects_[object_]; }
    // Of either document kind, as a save wrote them.
    Bytes savedDataBlock;
    Bytes savedStructure;
    InputReader in;

    // Something to load: a seed, what was saved last or bytes of the input, whole, damaged or cut off.
    Bytes AnyDataBlock();
    Bytes AnyStructure();
    // A file in a folder of this walk.
    std::filesystem::path Path(std::string_view name)
    {
        if (!folder_) folder_.emplace();
        return *folder_ / name;
    }

    void Expect(bool holds, std::string_view what)
    {
        if (!holds && violation_.empty()) violation_ = what;
    }
    // A method returned this, and must have reported this error, of the object or shared.
    void ExpectStatus(ReturnStatus status, ErrorStatusTypes error)
    {
        Expect(status == (error == NoError ? Success : Failure), "the result");
        ExpectError(error);
    }
    void ExpectError(ErrorStatusTypes error) { Expect(File().ErrorStatus() == error, "the error status"); }

private:
    Bytes Damaged(Bytes bytes);
    void ExpectInvariants();

    std::array<clsQOR_File, 2> objects_;
    std::optional<TemporaryFolder> folder_; // not for the process: the fuzzer ends it without cleaning up
    std::size_t object_ = 0;
    std::string violation_;
};

struct Operation {
    const char* name;
    void (*run)(MemberWalk& walk);
};
std::span<const Operation> DataBlockOperations();
std::span<const Operation> ShapeTableOperations();
std::span<const Operation> StructureOperations();

// Values beyond which a document becomes too slow to walk through; what is to be refused is far beyond.
inline constexpr std::int64_t MostValues = 100'000;
inline constexpr std::int64_t LeastRefused = std::int64_t{1} << 29;

// Whether a document of these counts can be made quickly, or must be refused.
inline bool IsQuick(std::int64_t first, std::int64_t second)
{
    return first <= 0 || second <= 0 || first * second <= MostValues || std::max(first, second) >= LeastRefused;
}

inline bool SameFloat(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }

} // namespace qor::test
