// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What reading and saving ask of the heap: how much it grows with the file, and what happens where the heap gives
// nothing. A program of its own, since it replaces the global allocation functions.
#include "support/DataBlockFile.h"
#include "support/MemoryFile.h"
#include "support/TemporaryFolder.h"

#include "datablock/Save_DataBlock.h"

#include <QOR_File/QOR_File.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

std::size_t requested = 0;            // bytes, all requests together
std::size_t refusedFrom = SIZE_MAX;   // requests of that size and above are refused
long long requestsBeforeRefusal = -1; // then one is refused; below 0, none
bool refused = false;

void* Allocate(std::size_t size)
{
    requested += size;
    const bool isTurn = requestsBeforeRefusal >= 0 && requestsBeforeRefusal-- == 0;
    if (isTurn || size >= refusedFrom) {
        refused = true;
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (!memory) throw std::bad_alloc();
    return memory;
}

} // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace qor::test {
namespace {

// While it lives, requests of that size and above are refused.
class NoLargeRequests
{
public:
    explicit NoLargeRequests(std::size_t size)
    {
        refused = false;
        refusedFrom = size;
    }
    ~NoLargeRequests() { refusedFrom = SIZE_MAX; }
    NoLargeRequests(const NoLargeRequests&) = delete;
    NoLargeRequests& operator=(const NoLargeRequests&) = delete;
};

// While it lives, one request is refused: the one behind so many others.
class OneRefusal
{
public:
    explicit OneRefusal(int requestsBefore)
    {
        refused = false;
        requestsBeforeRefusal = requestsBefore;
    }
    ~OneRefusal() { requestsBeforeRefusal = -1; }
    OneRefusal(const OneRefusal&) = delete;
    OneRefusal& operator=(const OneRefusal&) = delete;
};

// ---- growth ------------------------------------------------------------------------------------------------------

Bytes Repeated(const Bytes& piece, int count)
{
    Bytes bytes;
    bytes.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) bytes += piece;
    return bytes;
}

// A record that resets the document and counts as many traces as there can be, and a trace, which has a higher number
// each time, so that it is far from those that were there before.
Bytes ResetAndTrace() { return RecordBytes(DataBlockType).Field(3, Int16(32767)).Build() + TraceBytes().Build(); }

Bytes ResetsAtTopLevel(int count) { return DataBlockFile().Behind(Repeated(ResetAndTrace(), count)).Build(); }
Bytes ResetsInsideATrace(int count)
{
    return SizedFile(1, 2)
        .Field(11)
        .Nested(TraceBytes().Field(27).Raw(Repeated(ResetAndTrace(), count)).Field(28))
        .Field(12)
        .Build();
}
Bytes ResetsInTheListOfTraces(int count)
{
    return SizedFile(1, 2).Field(11).Raw(Repeated(ResetAndTrace(), count)).Field(12).Build();
}

struct Growth {
    const char* name;
    Bytes (*make)(int count);

    friend std::ostream& operator<<(std::ostream& stream, const Growth& of) { return stream << of.name; }
};

class MemoryRequested : public testing::TestWithParam<Growth>
{
protected:
    static std::size_t By(int count)
    {
        MemoryFile file(GetParam().make(count));
        DataBlock block;
        const std::size_t before = requested;
        const LoadResult result = LoadDataBlock(file, block);
        const std::size_t after = requested;
        EXPECT_EQ(result.status, Success) << count;
        EXPECT_EQ(result.error, NoError) << count;
        EXPECT_EQ(block.NumberOfTraces, 32767) << count;
        return after - before;
    }
};

TEST_P(MemoryRequested, GrowsNoFasterThanTheFile)
{
    const std::size_t least = By(2500);
    EXPECT_LE(By(5000), 5 * least / 2);
    EXPECT_LE(By(10000), 5 * least);
    EXPECT_LE(By(20000), 10 * least);
}

INSTANTIATE_TEST_SUITE_P(Of, MemoryRequested,
                         testing::Values(Growth{"ResetsAtTopLevel", ResetsAtTopLevel},
                                         Growth{"ResetsInsideATrace", ResetsInsideATrace},
                                         Growth{"ResetsInTheListOfTraces", ResetsInTheListOfTraces}),
                         [](const auto& growth) { return std::string(growth.param.name); });

// ---- refusal -----------------------------------------------------------------------------------------------------

// A file whose reading and saving need memory of every kind.
Bytes ManyTexts()
{
    const std::u16string text(100, u'x');
    return SizedFile(300, 2)
        .Field(2, Text(text))
        .Field(6, Int16(2))
        .Field(10, Floats({1, 2}))
        .Field(11)
        .Nested(TraceBytes().Field(2, Text(text)).Field(17, Floats({1, 2})).Field(41, Floats({1, 2, 3, 4})))
        .Nested(TraceBytes().Field(27).Nested(RecordBytes(SubRecordType)).Field(28).Field(3, Text(text)))
        .Field(12)
        .Field(59, Text(text))
        .Build();
}

TEST(RefusedMemory, AnySingleRequestOfAReadingFailsItOrMakesNoDifference)
{
    MemoryFile file(ManyTexts());
    int failures = 0;
    int withoutCode = 0;
    for (int request = 0;; ++request) {
        ASSERT_LT(request, 10000);
        DataBlock block;
        LoadResult result;
        bool wasRefused = false;
        {
            const OneRefusal refusal(request);
            EXPECT_NO_THROW(result = LoadDataBlock(file, block)) << request;
            wasRefused = refused;
        }
        if (!wasRefused) {
            EXPECT_EQ(result.status, Success);
            break;
        }
        EXPECT_EQ(result.status, Failure) << request;
        if (result.error == AllocationError) ++failures;
        if (result.error == NoError) {
            ++withoutCode;
            EXPECT_EQ(block.Xaxis.Count(), 0) << request;
        }
    }
    EXPECT_GT(failures, 5);
    EXPECT_EQ(withoutCode, 1) << "X values have no code, and are all that has none";
}

TEST(RefusedMemory, AnySingleRequestOfASaveFailsItWithoutACode)
{
    MemoryFile file(ManyTexts());
    DataBlock block;
    ASSERT_EQ(LoadDataBlock(file, block).status, Success);
    // Sinks that need no memory, so that all requests are those of the saving.
    class Nowhere : public ByteSink
    {
    public:
        bool WriteAt(std::uint64_t, std::span<const std::byte>) override { return true; }
    };
    for (int request = 0;; ++request) {
        ASSERT_LT(request, 10000);
        Nowhere sink;
        Outcome outcome;
        bool wasRefused = false;
        {
            const OneRefusal refusal(request);
            EXPECT_NO_THROW(outcome = SaveDataBlock(sink, block)) << request;
            wasRefused = refused;
        }
        if (!wasRefused) {
            EXPECT_GT(request, 0) << "saving asks for memory at all";
            EXPECT_EQ(outcome.status, Success);
            break;
        }
        EXPECT_EQ(outcome.status, Failure) << request;
        EXPECT_EQ(outcome.error, NoError) << request;
    }
}

class RefusedMemoryOfAMember : public testing::Test
{
protected:
    std::u16string Put(const Bytes& bytes)
    {
        WriteBytes(folder / "input.blk", bytes);
        return Utf16(folder / "input.blk");
    }

    TemporaryFolder folder;
    clsQOR_File component;
};

TEST_F(RefusedMemoryOfAMember, ALongTextThatDoesNotFitFailsTheInput)
{
    const std::u16string path =
        Put(DataBlockFile().Field(13, Text(u"Hz")).Field(2, Text(std::u16string(1 << 20, u'x'))).Build());
    ReturnStatus status = Success;
    {
        const NoLargeRequests small(1 << 20);
        EXPECT_NO_THROW(status = component.InputDataBlockFile(path));
        EXPECT_TRUE(refused);
    }

    EXPECT_EQ(status, Failure);
    EXPECT_EQ(component.ErrorStatus(), AllocationError);
    EXPECT_EQ(component.DataBlock_XaxisUnits(), u"Hz") << "what was read before stays";
    EXPECT_EQ(component.DataBlock_Label(), u"");
    EXPECT_EQ(component.InputDataBlockFile(path), Success) << "once there is memory again";
}

TEST_F(RefusedMemoryOfAMember, WithoutABufferNothingIsRead)
{
    const std::u16string path = Put(SizedFile(0, 2).Build());
    ReturnStatus status = Success;
    {
        const NoLargeRequests small(32 << 10);
        EXPECT_NO_THROW(status = component.InputDataBlockFile(path));
        EXPECT_TRUE(refused);
    }

    EXPECT_EQ(status, Failure);
    EXPECT_EQ(component.ErrorStatus(), AllocationError);
    EXPECT_EQ(component.DataBlock_NumberOfSamples(), 0);
}

TEST_F(RefusedMemoryOfAMember, AnOutputWithoutABufferFailsWithoutACodeAndCanBeRepeated)
{
    component.DataBlock_NumberOfTraces(1);
    component.DataBlock_NumberOfSamples(100);
    const std::u16string path = Utf16(folder / "output.blk");
    ReturnStatus status = Success;
    {
        const NoLargeRequests small(4 << 10);
        EXPECT_NO_THROW(status = component.OutputDataBlockFile(path));
        EXPECT_TRUE(refused);
    }

    EXPECT_EQ(status, Failure);
    EXPECT_EQ(component.ErrorStatus(), NoError);
    EXPECT_EQ(component.OutputDataBlockFile(path), Success);
    EXPECT_EQ(component.InputDataBlockFile(path), Success);
}

} // namespace
} // namespace qor::test
