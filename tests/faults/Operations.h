// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Every public member as an operation that a fault may meet, what can be seen afterwards, and what is then right.
#pragma once

#include "faults/FaultInjection.h"
#include "support/TemporaryFolder.h"

#include <QOR_File/FileArrays.h>

#include <array>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace qor::test {

// What operations work on: an object of each class, a file, and values that are made beforehand, so that only the
// library's own requests for memory count.
struct World {
    explicit World(const TemporaryFolder& folder);

    clsQOR_File file;
    ClassAdd_1 linPower;
    ClassAdd_2 peakRMS;
    ClassAdd_3 zaxisLabel;
    ClassAdd_4 quadSurfaces;
    ClassAdd_5 xaxisUnits;
    FileArrays arrays{file};
    std::optional<clsQOR_File> other;

    std::filesystem::path target;
    std::u16string path = Utf16(target);
    std::u16string missing = path + u"\\missing";     // not in a folder of that name
    std::u16string missingToo = path + u"\\ missing"; // the same
    std::u16string text;                              // taken by reference
    std::array<float, 4> first{1, 2, 3, 4};
    std::array<float, 4> second{5, 6, 7, 8};
    std::array<float, 4> third{9, 10, 11, 12};
};

// What a member gave its caller: its result, and what it left in references.
struct Answer {
    double result = 0;
    std::array<double, 8> values{};
    std::u16string text;

    friend bool operator==(const Answer&, const Answer&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Answer& answer)
    {
        stream << answer.result;
        for (const double value : answer.values) stream << ' ' << value;
        return stream << ' ' << std::string(answer.text.begin(), answer.text.end());
    }
};

// All that can be seen of the documents, the objects and the file, by part: the bytes of each field.
using Fields = std::vector<std::string>;
using State = std::map<std::string, Fields>;
State StateOf(World& world);

struct Seen {
    Answer answer;
    std::string thrown; // what() of an exception
    ErrorStatusTypes error = NoError;
    ErrorStatusTypes shared = NoError; // the thread's, which stays
    std::u16string errorText;
    State state;

    friend bool operator==(const Seen&, const Seen&) = default;
};

// An operation that met a fault, as it was before, as it is without the fault, and as it came out.
struct Met {
    const Fault& fault;
    int number; // of the call that met it
    const Seen& before;
    const Seen& without;
    const Seen& with;
};
// Fails the test where the outcome is not right.
using Rule = void (*)(const Met&);

// Requests for memory.
void NeverAsks(const Met& met);
void Throws(const Met& met);         // std::bad_alloc, nothing changed
void ComesToNothing(const Met& met); // an empty answer, nothing changed
void ReadsNoPoint(const Met& met);   // Failure without a code, nothing changed
void KeepsOldErrorText(const Met& met);
template <ErrorStatusTypes Shared>
void LeavesTheTrace(const Met& met); // AllocationError
void EmptiesDataBlock(const Met& met);
void EmptiesShapeTable(const Met& met);
void EmptiesStructure(const Met& met);
void MovesOrEmptiesStructure(const Met& met); // where memory that cannot be moved is copied
template <ErrorStatusTypes Error>
void FailsToAppend(const Met& met); // and empties the Structure

// Requests for memory and calls for files.
void SavesDataBlock(const Met& met);
void SavesShapeTable(const Met& met);
void SavesStructure(const Met& met);
template <ErrorStatusTypes ForArrays>
void LoadsDataBlock(const Met& met);
void LoadsStructure(const Met& met);

// Calls for files.
void AsksForNoFile(const Met& met);
void FindsNoName(const Met& met);
void FindsNoFolder(const Met& met); // of a file that is missing and is looked for first

struct Operation {
    const char* member; // class and name; behind them what is particular about this call
    void (*prepare)(World&);
    Answer (*run)(World&);
    Rule withoutMemory;
    Rule withBadFile = AsksForNoFile;
};

const std::vector<Operation>& ComponentOperations();
const std::vector<Operation>& DataBlockOperations();
const std::vector<Operation>& ShapeTableOperations();
const std::vector<Operation>& StructureOperations();
const std::vector<Operation>& FileOperations();
// All of these.
std::vector<Operation> AllOperations();

// Documents of all three kinds, with texts that take memory, and an old error.
void Fill(World& world);
// No documents.
void Empty(World& world);

// One that takes memory beyond that of the texts that documents are filled with.
inline constexpr std::u16string_view LongText = u"a text that is a good deal longer than all of those that were there";

template <class Value>
Answer Number(Value result)
{
    return {static_cast<double>(result), {}, {}};
}
inline Answer Text(std::u16string text) { return {0, {}, std::move(text)}; }
// A call that gives no answer; a lambda without captures.
template <class Call>
auto Sets(Call) -> Answer (*)(World&)
{
    return [](World& world) {
        Call()(world);
        return Answer();
    };
}

} // namespace qor::test
