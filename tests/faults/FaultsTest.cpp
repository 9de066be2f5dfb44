// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Every public member under every fault, at every call: the result, the error status and the documents are what they
// are to be, nothing is leaked, and the same call succeeds once the fault is gone.
#include "faults/Operations.h"

#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>
#include <string_view>
#include <thread>

namespace qor::test {
namespace {

struct Group {
    const char* name;
    const std::vector<Operation>& (*operations)();

    friend std::ostream& operator<<(std::ostream& stream, const Group& of) { return stream << of.name; }
};

constexpr int MostCalls = 2000; // of one kind, by one operation

Seen Observe(World& world, const Operation& operation, const Fault* fault = nullptr, int number = 0)
{
    Seen seen;
    {
        std::optional<Armed> armed;
        if (fault) armed.emplace(*fault, number);
        try {
            seen.answer = operation.run(world);
        } catch (const std::exception& exception) {
            armed.reset();
            seen.thrown = exception.what();
        }
    }
    seen.errorText = world.file.GetLastErrorString();
    seen.error = world.file.ErrorStatus();
    seen.shared = world.file.ErrorStatus();
    seen.state = StateOf(world);
    return seen;
}

// Files, and memory that is mapped once the documents are empty. Other memory is left to the leak checker of the
// sanitizers.
class ExpectReleased
{
public:
    ExpectReleased() : files_(OpenFiles())
    {
        const clsQOR_File empties;
        mapped_ = MappedBytes();
    }
    ~ExpectReleased()
    {
        const clsQOR_File empties;
        const auto mapped = MappedBytes();
        EXPECT_TRUE(!mapped || !mapped_ || *mapped == *mapped_) << *mapped - *mapped_ << " bytes stay mapped";
        EXPECT_EQ(OpenFiles(), files_);
    }
    ExpectReleased(const ExpectReleased&) = delete;
    ExpectReleased& operator=(const ExpectReleased&) = delete;

private:
    const int files_;
    std::optional<std::int64_t> mapped_;
};

// Adds the names of those that it met.
void MeetEveryFault(const Operation& operation, std::set<std::string_view>& allMet)
{
    const TemporaryFolder folder;
    Seen before;
    Seen without;
    {
        World world(folder);
        operation.prepare(world);
        before.errorText = world.file.GetLastErrorString();
        before.state = StateOf(world);
        operation.prepare(world);
        without = Observe(world, operation);
    }
    std::set<Call> neverMade; // the same run for each of their faults
    for (const Fault& fault : AllFaults()) {
        bool met = !neverMade.contains(fault.call);
        for (int number = 1; met; ++number) {
            ASSERT_LT(number, MostCalls);
            SCOPED_TRACE(testing::Message() << operation.member << ": " << fault.name << ", call " << number);
            const ExpectReleased released;
            World world(folder);
            operation.prepare(world);
            const Seen with = Observe(world, operation, &fault, number);
            met = FaultWasMet();
            if (met) {
                allMet.insert(fault.name);
                (fault.call == Call::Memory ? operation.withoutMemory
                                            : operation.withBadFile)({fault, number, before, without, with});
                operation.prepare(world);
                EXPECT_TRUE(Observe(world, operation) == without) << "once the fault is gone";
            } else {
                EXPECT_TRUE(with == without);
                if (number == 1) neverMade.insert(fault.call);
            }
            if (testing::Test::HasFailure()) return; // all others would say the same
        }
    }
}

class Faults : public testing::TestWithParam<Group>
{};

TEST_P(Faults, LeaveWhatIsRightAndNothingElse)
{
    std::set<std::string_view> met;
    for (const Operation& operation : GetParam().operations()) MeetEveryFault(operation, met);

    // Operations on files make every kind of call.
    if (GetParam().operations != FileOperations) return;
    for (const Fault& fault : AllFaults()) EXPECT_TRUE(met.contains(fault.name)) << fault.name << ": not met";
}

INSTANTIATE_TEST_SUITE_P(Of, Faults,
                         testing::Values(Group{"Component", ComponentOperations},
                                         Group{"DataBlocks", DataBlockOperations},
                                         Group{"ShapeTables", ShapeTableOperations},
                                         Group{"Structures", StructureOperations}, Group{"Files", FileOperations}),
                         [](const auto& group) { return std::string(group.param.name); });

// ---- a thread's first use ------------------------------------------------------------------------------------------

// The first call of a member makes the documents of its thread.
TEST(ThreadWithoutMemory, ThrowsAndCanGoOn)
{
    for (const Fault& fault : AllFaults()) {
        if (fault.call != Call::Memory) continue;
        bool met = true;
        for (int number = 1; met; ++number) {
            ASSERT_LT(number, MostCalls);
            std::thread([&] {
                bool thrown = false;
                std::int32_t traces = -1;
                {
                    const Armed armed(fault, number);
                    try {
                        ClassAdd_5().DataBlockRPM(600);
                        traces = FileArrays().NumberOfSamples();
                    } catch (const std::bad_alloc&) {
                        thrown = true;
                    }
                    met = FaultWasMet();
                }
                EXPECT_EQ(thrown, met) << fault.name << ", call " << number;
                EXPECT_EQ(traces, met ? -1 : 0);
                clsQOR_File file;
                EXPECT_EQ(file.DataBlock_Notes(), u"Data Block history");
            }).join();
        }
    }
}

// ---- the list of operations ----------------------------------------------------------------------------------------

// How often the header declares each public member: twice, where it is got and set.
std::map<std::string, int> PublicMembers(const std::string& header)
{
    std::ifstream stream(std::string(QOR_SOURCE_DIR "/include/QOR_File/") + header);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    text = std::regex_replace(text, std::regex("//[^\n]*"), "");
    const std::regex beginning(R"(class (\w+)[^{;]*\{\s*public:)");
    const std::regex member(R"((~?\w+)\([^;{]*(;|\{[^}]*\}))");
    std::map<std::string, int> members;
    for (std::sregex_iterator each(text.begin(), text.end(), beginning), end; each != end; ++each) {
        const auto start = static_cast<std::size_t>(each->position() + each->length());
        std::string body = text.substr(start);
        body.erase(std::min(body.find("private:"), body.find("\n};")));
        for (std::sregex_iterator found(body.begin(), body.end(), member); found != end; ++found) {
            if (found->str().find("= delete") == std::string::npos)
                ++members[(*each)[1].str() + "::" + (*found)[1].str()];
        }
    }
    return members;
}

TEST(Operations, AreAllPublicMembers)
{
    std::map<std::string, int> covered;
    for (const Operation& operation : AllOperations()) {
        std::istringstream words(operation.member);
        std::string name;
        std::getline(words, name, ' ');
        if (name.ends_with(',')) name.pop_back();
        ++covered[name];
    }
    std::size_t members = 0;
    for (const std::string header : {"QOR_File.h", "FileArrays.h"}) {
        for (const auto& [name, count] : PublicMembers(header)) {
            EXPECT_GE(covered[name], count) << name << " meets no fault: add it to the operations";
            ++members;
        }
    }
    EXPECT_GT(members, 90U) << "the headers read as if they had hardly any member";
}

} // namespace
} // namespace qor::test
