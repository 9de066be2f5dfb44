// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Random sequences of Structure members, on two objects of one thread, beside the model: every result, every error
// status, and now and then all that can be read and the bytes that are saved. Files are loaded too, and the calls go on
// with what they brought.
#include "component/StructureComparison.h"

#include <array>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace qor::test {
namespace {

rc::Gen<StructureCall> AnyStructureCall()
{
    using enum StructureMember;
    const auto member =
        rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, static_cast<int>(SetErrorStatus) + 1),
                                    [](int index) { return static_cast<StructureMember>(index); }),
                       // What fills a document comes oftener, or most sequences would touch nothing.
                       rc::gen::element(SetCount, SetCount, WriteVertex, WriteVertex, WriteInformation, WriteTransform,
                                        LoadFile, ReadOn, WriteJoining, WriteJoining, WriteJoining));
    const auto number = rc::gen::weightedOneOf<std::int32_t>(
        {{40, rc::gen::inRange(StructureCallNumbers[0], StructureCallNumbers[1] + 1)},
         {1, rc::gen::elementOf(std::to_array(FarNumbers))}});
    return rc::gen::build<StructureCall>(
        rc::gen::set(&StructureCall::object, rc::gen::element<std::size_t>(0, 0, 1)),
        rc::gen::set(&StructureCall::member, member),
        rc::gen::set(&StructureCall::kind, rc::gen::inRange<std::size_t>(0, 4)),
        rc::gen::set(&StructureCall::number, number),
        rc::gen::set(&StructureCall::value, rc::gen::elementOf(std::to_array(StructureCallValues))),
        rc::gen::set(&StructureCall::other, rc::gen::inRange(StructureCallOthers[0], StructureCallOthers[1] + 1)),
        rc::gen::set(&StructureCall::x, rc::gen::elementOf(std::to_array(StructureCallPlaces))));
}

RC_GTEST_PROP(StructureModel, ShowsWhatTheComponentShowsForAnySequenceOfMembers, ())
{
    const auto sequence = *rc::gen::container<std::vector<StructureCall>>(AnyStructureCall());
    RC_ASSERT(FirstStructureDifference(sequence) == "");
}

} // namespace
} // namespace qor::test
