// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Random sequences of Data Block members, on two objects of one thread, beside the model: every result, every error
// status, and now and then all that can be read and the bytes that are saved. A failure prints the shortest sequence
// and the RC_PARAMS that bring it back.
#include "component/DataBlockComparison.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace qor::test {
namespace {

rc::Gen<Call> AnyCall()
{
    const auto member =
        rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, static_cast<int>(Member::GetAddedHeader) + 1),
                                    [](int index) { return static_cast<Member>(index); }),
                       // What builds and fills a document comes oftener, or most sequences would touch nothing.
                       rc::gen::element(Member::SetNumberOfTraces, Member::SetNumberOfSamples, Member::SetFormat,
                                        Member::SetSpacing, Member::WriteSample, Member::WriteSample,
                                        Member::WriteXaxis, Member::SetTraceText, Member::LoadFile));
    const auto number = rc::gen::elementOf(std::to_array(CallNumbers));
    return rc::gen::build<Call>(rc::gen::set(&Call::object, rc::gen::element<std::size_t>(0, 0, 1)),
                                rc::gen::set(&Call::member, member),
                                rc::gen::set(&Call::trace, rc::gen::inRange(CallTraces[0], CallTraces[1] + 1)),
                                rc::gen::set(&Call::sample, rc::gen::inRange(CallSamples[0], CallSamples[1] + 1)),
                                rc::gen::set(&Call::value, rc::gen::elementOf(std::to_array(CallValues))),
                                rc::gen::set(&Call::x, number), rc::gen::set(&Call::y, number));
}

RC_GTEST_PROP(DataBlockModel, ShowsWhatTheComponentShowsForAnySequenceOfMembers, ())
{
    const auto sequence = *rc::gen::container<std::vector<Call>>(AnyCall());
    RC_ASSERT(FirstDifference(sequence) == "");
}

} // namespace
} // namespace qor::test

int main(int argc, char** argv)
{
    // More and longer sequences than by default; whoever sets the variable decides.
    setenv("RC_PARAMS", "max_success=400 max_size=300", 0);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
