// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Whole arrays beside single elements: after any preparation, by two objects and by damaged files, a call with arrays
// shows and leaves what the published members do for all numbers in order. Each way runs on a thread of its own.
#include "component/FileArraysComparison.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace qor::test {
namespace {

rc::Gen<Preparation> AnyPreparation()
{
    const auto step = rc::gen::map(rc::gen::inRange(0, static_cast<int>(Step::LoadStructure) + 1),
                                   [](int index) { return static_cast<Step>(index); });
    return rc::gen::build<Preparation>(
        rc::gen::set(&Preparation::step, step),
        rc::gen::set(&Preparation::object, rc::gen::element<std::size_t>(0, 0, 0, 1)),
        rc::gen::set(&Preparation::a, rc::gen::oneOf(rc::gen::inRange(1, 4), rc::gen::inRange(-1, 9))),
        rc::gen::set(&Preparation::b, rc::gen::inRange(1, 4)),
        rc::gen::set(&Preparation::x, rc::gen::elementOf(std::to_array(PreparedFloats))),
        rc::gen::set(&Preparation::y, rc::gen::elementOf(std::to_array(PreparedFloats))));
}

rc::Gen<ArraysCall> AnyCall()
{
    const auto member = rc::gen::map(rc::gen::inRange(0, static_cast<int>(ArraysMember::WriteValues) + 1),
                                     [](int index) { return static_cast<ArraysMember>(index); });
    const auto off = rc::gen::weightedElement<std::int32_t>({{12, 0}, {1, -1}, {1, 1}});
    return rc::gen::suchThat(
        rc::gen::build<ArraysCall>(
            rc::gen::set(&ArraysCall::member, member), rc::gen::set(&ArraysCall::object, rc::gen::inRange(0, 3)),
            rc::gen::set(&ArraysCall::number, rc::gen::weightedOneOf<std::int32_t>(
                                                  {{6, rc::gen::inRange(1, 3)}, {1, rc::gen::inRange(-1, 9)}})),
            rc::gen::set(&ArraysCall::offBy, rc::gen::container<std::array<std::int32_t, 3>>(off)),
            rc::gen::set(&ArraysCall::withoutSecond, rc::gen::weightedElement<bool>({{3, false}, {1, true}})),
            rc::gen::set(&ArraysCall::values,
                         rc::gen::container<std::vector<float>>(7, rc::gen::elementOf(std::to_array(PreparedFloats))))),
        [](const ArraysCall& call) { return call.object < 2 || call.member <= ArraysMember::WritePoints; });
}

RC_GTEST_PROP(FileArrays, ShowAndLeaveWhatTheMembersForOneElementDo, ())
{
    const auto preparations = *rc::gen::container<std::vector<Preparation>>(AnyPreparation());
    const ArraysCall call = *AnyCall();
    RC_ASSERT(ArraysShowTheSame(preparations, call));
}

} // namespace
} // namespace qor::test
