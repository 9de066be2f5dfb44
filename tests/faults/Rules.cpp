// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace qor::test {
namespace {

const State& EmptyState()
{
    static const State empty = [] {
        const TemporaryFolder folder;
        World world(folder);
        return StateOf(world);
    }();
    return empty;
}

// The parts in which the states differ.
std::string Difference(const State& left, const State& right)
{
    std::string names;
    for (const auto& [name, value] : left) {
        if (right.at(name) != value) names += name + ", ";
    }
    return names;
}

// A state with some parts of another.
State With(State state, const State& other, std::initializer_list<const char*> parts)
{
    for (const char* part : parts) state[part] = other.at(part);
    return state;
}

void ExpectState(const State& state, const State& expected) { EXPECT_EQ(Difference(state, expected), ""); }

bool IsAsWithout(const Met& met)
{
    return met.with.thrown == met.without.thrown && met.with.answer == met.without.answer &&
           met.with.error == met.without.error && met.with.state == met.without.state;
}

void ExpectFailure(const Met& met, ErrorStatusTypes error)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, Number(Failure));
    EXPECT_EQ(met.with.error, error);
}

// Sizes are set without a result; only appending has one.
void ExpectEmptied(const Met& met, const Answer& answer, ErrorStatusTypes error,
                   std::initializer_list<const char*> parts)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, answer);
    EXPECT_EQ(met.with.error, error);
    ExpectState(met.with.state, With(met.before.state, EmptyState(), parts));
}

constexpr const char* NoMemory = "std::bad_alloc";

} // namespace

// ---- memory ------------------------------------------------------------------------------------------------------

void NeverAsks(const Met&) { ADD_FAILURE() << "it asked for memory"; }

void Throws(const Met& met)
{
    EXPECT_EQ(met.with.thrown, NoMemory);
    EXPECT_EQ(met.with.error, NoError);
    EXPECT_EQ(met.with.errorText, met.before.errorText);
    ExpectState(met.with.state, met.before.state);
}

void ComesToNothing(const Met& met)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, Answer());
    EXPECT_EQ(met.with.error, NoError);
    EXPECT_EQ(met.with.errorText, met.before.errorText);
    ExpectState(met.with.state, met.before.state);
}

void ReadsNoPoint(const Met& met)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, (Answer{static_cast<double>(Failure), {1, 2, 3}, u"as passed"}));
    EXPECT_EQ(met.with.error, NoError);
    EXPECT_EQ(met.with.errorText, met.before.errorText);
    ExpectState(met.with.state, met.before.state);
}

void KeepsOldErrorText(const Met& met)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, met.without.answer);
    EXPECT_EQ(met.with.error, met.without.error);
    EXPECT_TRUE(met.with.errorText == met.before.errorText || met.with.errorText == met.without.errorText);
    ExpectState(met.with.state, met.without.state);
}

void LeavesTheTrace(const Met& met)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.error, AllocationError);
    ExpectState(met.with.state, With(met.without.state, met.before.state, {"Data Block"}));
}

void EmptiesDataBlock(const Met& met)
{
    ExpectEmptied(met, met.without.answer, AllocationError, {"Data Block", "from file", "view"});
    EXPECT_EQ(met.with.errorText, met.before.errorText);
}

void EmptiesShapeTable(const Met& met)
{
    ExpectEmptied(met, met.without.answer, AllocationError, {"Shape Table"});
    EXPECT_EQ(met.with.errorText, met.fault.Lasts() ? met.before.errorText : u"Error (1): Undefined error");
}

void EmptiesStructure(const Met& met) { ExpectEmptied(met, met.without.answer, AllocationError, {"Structure"}); }

// A single refusal is met by asking for less, or only costs the text of the error.
template <ErrorStatusTypes Error>
void FailsToAppend(const Met& met)
{
    if (IsAsWithout(met) && !met.fault.Lasts()) return;
    ExpectEmptied(met, Number(Failure), Error, {"Structure"});
}
template void FailsToAppend<EdgeLinesNotAllocated>(const Met&);
template void FailsToAppend<SurfaceTrianglesNotAllocated>(const Met&);
template void FailsToAppend<QuadSurfacesNotAllocated>(const Met&);
template void FailsToAppend<VertexPointsNotAllocated>(const Met&);

// ---- files -------------------------------------------------------------------------------------------------------

void AsksForNoFile(const Met&) { ADD_FAILURE() << "it made a call for files"; }

void FindsNoName(const Met& met)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, Answer());
    EXPECT_EQ(met.with.error, NoError);
    ExpectState(met.with.state, met.before.state);
}

namespace {

// A call that was interrupted is made again, and so is what moved some of the bytes only. A file that somebody else
// removes is not in the way any more.
bool IsHarmless(const Fault& fault)
{
    const bool vanished = fault.error == ENOENT && (fault.call == Call::Look || fault.call == Call::Delete);
    return (fault.error == EINTR && fault.call != Call::Close) || fault.manner == Manner::Half || vanished;
}

void ExpectAsWithout(const Met& met)
{
    EXPECT_TRUE(IsAsWithout(met)) << "result " << met.with.answer.result << ", error " << met.with.error
                                  << ", differs in: " << Difference(met.with.state, met.without.state);
}

// Where the file could not be made, the documents are as they were.
void ExpectNotOpened(const Met& met)
{
    ExpectFailure(met, NoError);
    const bool deleted = met.fault.call == Call::Open;
    ExpectState(met.with.state, deleted ? With(met.before.state, {{"file", "missing"}}, {"file"}) : met.before.state);
}

// What could be written is there: everything, where only closing failed.
void ExpectPartlyWritten(const Met& met)
{
    const bool whole = met.fault.call == Call::Close;
    ExpectState(met.with.state, whole ? met.without.state : With(met.without.state, met.with.state, {"file"}));
    EXPECT_NE(met.with.state.at("file"), met.before.state.at("file"));
}

// Whether the file was made, as the fault tells, or, where it was about memory, the file.
bool WasOpened(const Met& met)
{
    if (met.fault.call == Call::Memory) return met.with.state.at("file") != met.before.state.at("file");
    return met.fault.call == Call::Write || met.fault.call == Call::Close;
}

// A document that is read leaves all others, and the file.
void ExpectOthersUntouched(const Met& met, std::initializer_list<const char*> read)
{
    ExpectState(met.with.state, With(met.before.state, met.with.state, read));
}

// A failure, or a success that tells that nothing but the end marker is missing.
void ExpectCutShort(const Met& met, ErrorStatusTypes error)
{
    EXPECT_EQ(met.with.error, error);
    if (met.with.answer == Number(Failure)) return;
    EXPECT_EQ(met.with.answer, Number(Success));
    EXPECT_EQ(error, InputFile_ReadFail);
    ExpectState(met.with.state, met.without.state);
}

} // namespace

void Saves(const Met& met)
{
    if (IsHarmless(met.fault)) return ExpectAsWithout(met);
    if (!WasOpened(met)) return ExpectNotOpened(met);
    ExpectFailure(met, NoError);
    ExpectPartlyWritten(met);
}

// Its faults while writing are not reported.
void SavesStructure(const Met& met)
{
    if (IsHarmless(met.fault)) return ExpectAsWithout(met);
    if (!WasOpened(met)) return ExpectNotOpened(met);
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.answer, Number(Success));
    EXPECT_EQ(met.with.error, NoError);
    ExpectPartlyWritten(met);
}

void LoadsDataBlock(const Met& met)
{
    if (met.fault.call == Call::Close || (IsHarmless(met.fault) && met.fault.call != Call::Look)) {
        return ExpectAsWithout(met);
    }
    const State empty = With(met.before.state, EmptyState(), {"Data Block", "from file", "view"});
    ExpectOthersUntouched(met, {"Data Block", "from file", "view"});
    if (met.fault.call == Call::Memory) {
        // None for the name: it cannot be opened. The X axis is the one array without a code of its own, as published.
        const bool unreported = met.with.error == NoError;
        return ExpectFailure(met, unreported ? NoError : AllocationError);
    }
    if (met.fault.call == Call::Open || met.with.error == NoError) {
        // One I/O error may go unnoticed: what is missing is asked for again.
        if (met.fault.call == Call::Read && !met.fault.Lasts()) return ExpectAsWithout(met);
        ExpectFailure(met, NoError);
        return ExpectState(met.with.state, empty);
    }
    EXPECT_EQ(met.with.thrown, "");
    ExpectCutShort(met, InputFile_ReadFail);
}

// The published reader has no code for memory, and no failure for what comes before the first record.
void LoadsStructure(const Met& met)
{
    if (met.fault.call == Call::Close || (IsHarmless(met.fault) && met.fault.call != Call::Look)) {
        return ExpectAsWithout(met);
    }
    EXPECT_EQ(met.with.thrown, "");
    ExpectOthersUntouched(met, {"Structure", "texts"});
    if (met.with.answer == Number(Success) && met.with.error == NoError) {
        // What is refused once may be asked for again: what is missing of the file, or memory for fewer elements.
        const bool again = !met.fault.Lasts() && (met.fault.call == Call::Read || IsAsWithout(met));
        if (again) return ExpectAsWithout(met);
        EXPECT_NE(met.fault.call, Call::Read);
        return ExpectState(met.with.state, With(met.before.state, EmptyState(), {"Structure"}));
    }
    EXPECT_NE(met.fault.call, Call::Open);
    ExpectCutShort(met, met.fault.call == Call::Memory ? NoError : InputFile_ReadFail);
}

} // namespace qor::test
