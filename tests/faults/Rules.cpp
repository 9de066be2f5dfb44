// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

#include "component/modQOR_File.h"
#include "fileio/RecordReader.h"

#include <algorithm>
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

// What fields are that nobody has set, in traces too.
const State& BlankState()
{
    static const State blank = [] {
        const TemporaryFolder folder;
        World world(folder);
        TraceList& traces = modQOR_File().DataBlock.Traces;
        traces.Resize(3);
        for (std::int32_t number = 1; number <= 3; ++number) traces.Edit(number) = InitialTraceRecord();
        return StateOf(world);
    }();
    return blank;
}

// The parts in which the states differ. What is saved follows from the others.
std::string Difference(const State& left, const State& right)
{
    std::string names;
    for (const auto& [name, value] : left) {
        if (right.at(name) != value && !name.starts_with("saved")) names += name + ", ";
    }
    return names;
}

// A part's name, and that of what is more of it.
bool IsOf(const std::string& name, std::initializer_list<const char*> parts)
{
    return std::ranges::any_of(parts, [&](const char* part) { return name.starts_with(part); });
}

// A state with some parts of another.
State With(State state, const State& other, std::initializer_list<const char*> parts)
{
    for (auto& [name, fields] : state) {
        if (IsOf(name, parts)) fields = other.at(name);
    }
    return state;
}

void ExpectState(const State& state, const State& expected) { EXPECT_EQ(Difference(state, expected), ""); }

// The text of the last error changes with a code only, and then stays where there is no memory for another.
bool HasRightText(const Met& met)
{
    const std::u16string& text = met.with.errorText;
    if (met.fault.call == Call::Memory && text == met.before.errorText) return true;
    if (met.with.error == NoError) return text == met.before.errorText;
    const std::string message = met.with.error == InputFile_ReadFail ? "Output file read error" : "Undefined error";
    const std::string expected = "Error (" + std::to_string(met.with.error) + "): " + message;
    return std::equal(text.begin(), text.end(), expected.begin(), expected.end());
}

bool IsAsWithout(const Met& met)
{
    Seen seen = met.with;
    seen.errorText = met.without.errorText;
    return seen == met.without && (met.with.errorText == met.without.errorText || HasRightText(met));
}

void ExpectError(const Met& met, ErrorStatusTypes error, ErrorStatusTypes shared = NoError)
{
    EXPECT_EQ(met.with.thrown, "");
    EXPECT_EQ(met.with.error, error);
    EXPECT_EQ(met.with.shared, shared);
    EXPECT_TRUE(HasRightText(met)) << testing::PrintToString(met.with.errorText);
}

void ExpectFailure(const Met& met, ErrorStatusTypes error)
{
    EXPECT_EQ(met.with.answer, Number(Failure));
    ExpectError(met, error);
}

// Sizes are set without a result; only appending has one.
void ExpectEmptied(const Met& met, const Answer& answer, ErrorStatusTypes error,
                   std::initializer_list<const char*> parts, ErrorStatusTypes shared = NoError)
{
    EXPECT_EQ(met.with.answer, answer);
    ExpectError(met, error, shared);
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
    EXPECT_EQ(met.with.shared, met.without.shared);
    EXPECT_TRUE(met.with.errorText == met.before.errorText || met.with.errorText == met.without.errorText);
    ExpectState(met.with.state, met.without.state);
}

template <ErrorStatusTypes Shared>
void LeavesTheTrace(const Met& met)
{
    ExpectError(met, AllocationError, Shared);
    ExpectState(met.with.state, With(met.without.state, met.before.state, {"Data Block"}));
}
template void LeavesTheTrace<NoError>(const Met&);
template void LeavesTheTrace<AllocationError>(const Met&);

void EmptiesDataBlock(const Met& met)
{
    ExpectEmptied(met, met.without.answer, AllocationError, {"Data Block", "origin", "view"});
    EXPECT_EQ(met.with.errorText, met.before.errorText);
}

void EmptiesShapeTable(const Met& met)
{
    ExpectEmptied(met, met.without.answer, AllocationError, {"Shape Table"});
    EXPECT_EQ(met.with.errorText, met.fault.Lasts() ? met.before.errorText : u"Error (1): Undefined error");
}

void EmptiesStructure(const Met& met)
{
    ExpectEmptied(met, met.without.answer, AllocationError, {"Structure"}, AllocationError);
    EXPECT_EQ(met.with.errorText, met.before.errorText);
}

void MovesOrEmptiesStructure(const Met& met)
{
    if (!IsAsWithout(met) || met.fault.Lasts()) EmptiesStructure(met);
}

// A single refusal is met by asking for less, or only costs the text of the error.
template <ErrorStatusTypes Error>
void FailsToAppend(const Met& met)
{
    if (IsAsWithout(met) && !met.fault.Lasts()) return;
    // A class of its own has no other status to report.
    ExpectEmptied(met, Number(Failure), Error, {"Structure"},
                  Error == QuadSurfacesNotAllocated ? Error : AllocationError);
}
template void FailsToAppend<EdgeLinesNotAllocated>(const Met&);
template void FailsToAppend<SurfaceTrianglesNotAllocated>(const Met&);
template void FailsToAppend<QuadSurfacesNotAllocated>(const Met&);
template void FailsToAppend<VertexPointsNotAllocated>(const Met&);

// ---- files -------------------------------------------------------------------------------------------------------

void AsksForNoFile(const Met&) { ADD_FAILURE() << "it made a call for files"; }

void FindsNoName(const Met& met)
{
    EXPECT_EQ(met.with.answer, Answer());
    ExpectError(met, NoError);
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
    State expected = met.before.state;
    if (met.fault.call == Call::Open) expected["file"].clear(); // it was deleted before
    ExpectState(met.with.state, expected);
}

// Whether this is the length of a record that is not closed: the position of its field, of which the first bytes may
// have been replaced.
bool IsOpenLength(std::string_view bytes, std::size_t field)
{
    if (field + 4 > bytes.size()) return false;
    const auto place = static_cast<std::size_t>(FaultPlace());
    std::size_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        const bool replaced = field < place && place < field + 4 && field + i < place;
        const std::size_t byte = replaced ? (field + 1) >> 8 * i & 0xFF : static_cast<unsigned char>(bytes[field + i]);
        value = value << 8 | byte;
    }
    return value == field + 1;
}

// The length of one of the records that hold others.
bool IsOuterLength(std::string_view bytes, std::size_t field)
{
    if (field < 2 || bytes[field - 2] != 0) return false;
    return bytes[field - 1] == 4 || bytes[field - 1] == 8 || bytes[field - 1] == 9;
}

// How far the bytes are those of the whole file, but for some lengths.
std::size_t SameBytes(std::string_view bytes, std::string_view whole, bool (*isLength)(std::string_view, std::size_t))
{
    std::size_t same = 0;
    while (same < bytes.size() && same < whole.size()) {
        if (bytes[same] == whole[same]) {
            ++same;
            continue;
        }
        std::size_t field = same < 3 ? 0 : same - 3;
        while (field <= same && !isLength(bytes, field)) ++field;
        if (field > same) return same;
        same = field + 4;
    }
    return same;
}

// What could be written is there: everything, where only closing failed, and else a part that no reader takes for all.
void ExpectPartlyWritten(const Met& met, ReturnStatus (clsQOR_File::*load)(std::u16string_view))
{
    if (met.fault.call == Call::Close) return ExpectState(met.with.state, met.without.state);
    ExpectState(met.with.state, With(met.without.state, met.with.state, {"file"}));

    ASSERT_EQ(met.with.state.at("file").size(), 1U) << "it is not there";
    const std::string& written = met.with.state.at("file").front();
    const std::string& whole = met.without.state.at("file").front();
    EXPECT_LT(written.size(), whole.size());
    EXPECT_GE(static_cast<std::int64_t>(written.size()), FaultPlace());
    EXPECT_EQ(SameBytes(written, whole, IsOpenLength), written.size());

    if (!load) return;
    const TemporaryFolder folder;
    World other(folder);
    WriteBytes(other.target, {written.begin(), written.end()});
    const ReturnStatus status = (other.file.*load)(other.path);
    EXPECT_EQ(other.file.ErrorStatus(), InputFile_ReadFail);
    EXPECT_EQ(status, written.size() + 2 < whole.size() ? Failure : Success) << "but for the end marker it is whole";
}

// Whether the file was made, as the fault tells, or, where it was about memory, the file.
bool WasOpened(const Met& met)
{
    if (met.fault.call == Call::Memory) return met.with.state.at("file") != met.before.state.at("file");
    return met.fault.call == Call::Write || met.fault.call == Call::Close;
}

// A failure, or a success that tells that nothing but the end marker is missing.
void ExpectCutShort(const Met& met, ErrorStatusTypes error)
{
    if (met.with.answer == Number(Failure)) return ExpectFailure(met, error);
    ExpectError(met, InputFile_ReadFail);
    EXPECT_EQ(error, InputFile_ReadFail);
    EXPECT_EQ(met.with.answer, Number(Success));
    ExpectState(met.with.state, met.without.state);
}

// The field to its end, or cut: zeros follow, or nothing.
bool IsPartOf(const std::string& field, const std::string& whole)
{
    if (field.size() > whole.size()) return false;
    const auto differs = std::mismatch(field.begin(), field.end(), whole.begin()).first;
    return std::all_of(differs, field.end(), [](char byte) { return byte == 0; });
}

// Each field has what the file brings, or part of it, or is blank; nothing that was read is lost. The texts of a
// Structure are those of before until they are read.
void ExpectPartlyRead(const Met& met, std::initializer_list<const char*> parts, const char* saved)
{
    for (const auto& [name, fields] : met.with.state) {
        if (!IsOf(name, parts)) continue;
        const Fields& whole = met.without.state.at(name);
        const Fields& blank = (name == "texts" ? met.before.state : BlankState()).at(name);
        ASSERT_LE(fields.size(), whole.size()) << name;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            EXPECT_TRUE(IsPartOf(fields[i], whole[i]) || (i < blank.size() && fields[i] == blank[i]))
                << name << ", field " << i;
        }
    }
    // A file that is as the writer makes it tells how far it was read.
    const std::string& file = met.before.state.at("file").front();
    if (met.fault.call != Call::Read || met.without.state.at(saved).front() != file) return;
    // The bytes that a reader has at hand may be asked for again, and an item be cut.
    constexpr std::int64_t lost = ItemReader::MostHeld + 64;
    const auto kept = static_cast<std::int64_t>(SameBytes(met.with.state.at(saved).front(), file, IsOuterLength));
    EXPECT_GE(kept, FaultPlace() - lost);
}

constexpr std::int64_t PreambleSize = 51;

} // namespace

void FindsNoFolder(const Met& met) { met.number % 2 == 0 ? FindsNoName(met) : ExpectAsWithout(met); }

void SavesDataBlock(const Met& met)
{
    if (IsHarmless(met.fault)) return ExpectAsWithout(met);
    if (!WasOpened(met)) return ExpectNotOpened(met);
    ExpectFailure(met, NoError);
    ExpectPartlyWritten(met, &clsQOR_File::InputDataBlockFile);
}

void SavesShapeTable(const Met& met)
{
    if (IsHarmless(met.fault)) return ExpectAsWithout(met);
    if (!WasOpened(met)) return ExpectNotOpened(met);
    ExpectFailure(met, NoError);
    ExpectPartlyWritten(met, nullptr);
}

// Its faults while writing are not reported.
void SavesStructure(const Met& met)
{
    if (IsHarmless(met.fault)) return ExpectAsWithout(met);
    if (!WasOpened(met)) return ExpectNotOpened(met);
    EXPECT_EQ(met.with.answer, Number(Success));
    ExpectError(met, NoError);
    ExpectPartlyWritten(met, &clsQOR_File::InputStructureFile);
}

template <ErrorStatusTypes ForArrays>
void LoadsDataBlock(const Met& met)
{
    if (met.fault.call == Call::Close || (IsHarmless(met.fault) && met.fault.call != Call::Look)) {
        return ExpectAsWithout(met);
    }
    // One I/O error may go unnoticed: what is missing is asked for again.
    const bool again = met.fault.call == Call::Read && !met.fault.Lasts() && met.with.error == NoError;
    if (again) return ExpectAsWithout(met);

    const State empty = With(met.before.state, EmptyState(), {"Data Block", "origin", "view"});
    if (met.fault.call == Call::Memory) {
        // What owns an array is asked for with it. None for the name: it cannot be opened.
        const bool forArray = ArrayWasRefused() || met.with.error == ForArrays;
        const bool forName = met.with.error == NoError && Difference(met.with.state, empty).empty();
        ExpectFailure(met, forArray ? ForArrays : forName ? NoError : AllocationError);
    } else if (met.fault.call == Call::Open || met.with.error == NoError) {
        ExpectFailure(met, NoError);
        return ExpectState(met.with.state, empty);
    } else {
        ExpectCutShort(met, InputFile_ReadFail);
        if (met.fault.call == Call::Read && FaultPlace() < PreambleSize) ExpectState(met.with.state, empty);
    }
    if (met.with.answer == Number(Success)) return;
    ExpectState(met.with.state, With(empty, met.with.state, {"Data Block"}));
    ExpectPartlyRead(met, {"Data Block"}, "saved Data Block");
}
template void LoadsDataBlock<NoError>(const Met&);
template void LoadsDataBlock<AllocationError>(const Met&);

// The published reader has no code for memory, and no failure for what comes before the first record.
void LoadsStructure(const Met& met)
{
    if (met.fault.call == Call::Close || (IsHarmless(met.fault) && met.fault.call != Call::Look)) {
        return ExpectAsWithout(met);
    }
    const State empty = With(met.before.state, EmptyState(), {"Structure"});
    if (met.with.answer == Number(Success) && met.with.error == NoError) {
        // What is refused once may be asked for again: what is missing of the file, or memory for fewer elements.
        const bool again = !met.fault.Lasts() && (met.fault.call == Call::Read || IsAsWithout(met));
        if (again) return ExpectAsWithout(met);
        EXPECT_NE(met.fault.call, Call::Read);
        ExpectError(met, NoError);
        return ExpectState(met.with.state, empty);
    }
    EXPECT_NE(met.fault.call, Call::Open);
    ExpectCutShort(met, met.fault.call == Call::Memory ? NoError : InputFile_ReadFail);
    if (met.fault.call == Call::Read && FaultPlace() < PreambleSize) ExpectState(met.with.state, empty);
    ExpectState(met.with.state, With(met.before.state, met.with.state, {"Structure", "texts"}));
    ExpectPartlyRead(met, {"Structure", "texts"}, "saved Structure");
}

} // namespace qor::test
