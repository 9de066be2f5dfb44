// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Random sequences of Shape Table members, on two objects of one thread, beside the model: every result, every error
// status and text, every saved file, and now and then all that can be read.
#include "component/ShapeTableComparison.h"

#include <array>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace qor::test {
namespace {

rc::Gen<ShapeTableCall> AnyShapeTableCall()
{
    using enum ShapeTableMember;
    const auto member = rc::gen::weightedOneOf<ShapeTableMember>(
        {{1, rc::gen::map(rc::gen::inRange(0, static_cast<int>(SetErrorStatus) + 1),
                          [](int index) { return static_cast<ShapeTableMember>(index); })},
         // What sizes and fills a table comes oftener, or most sequences would touch nothing.
         {3,
          rc::gen::element(SetShapes, SetDOFs, SetShapeText, SetDOFText, SetShapeNumber, SetMeasurementType, Output)},
         {3, rc::gen::just(WriteValue)}});
    const auto unusual = rc::gen::inRange(UnusualNumbers[0], UnusualNumbers[1] + 1);
    // Few sizes, so that counts and extents often meet.
    const auto number =
        rc::gen::weightedOneOf<std::int32_t>({{200, rc::gen::inRange(UsualNumbers[0], UsualNumbers[1] + 1)},
                                              {12, unusual},
                                              {1, rc::gen::elementOf(std::to_array(HugeNumbers))}});
    const auto dof =
        rc::gen::weightedOneOf<std::int32_t>({{8, rc::gen::inRange(UsualNumbers[0], UsualNumbers[1])}, {1, unusual}});
    const auto value =
        rc::gen::weightedOneOf<std::int32_t>({{12, unusual},
                                              {5, rc::gen::elementOf(std::to_array(TypeValues))},
                                              {1, rc::gen::elementOf(std::to_array(ValuesBeyondAType))}});
    const auto x = rc::gen::weightedOneOf<float>({{30, rc::gen::elementOf(std::to_array(UsualFloats))},
                                                  {5, rc::gen::just(std::numeric_limits<float>::quiet_NaN())},
                                                  {1, rc::gen::elementOf(std::to_array(Infinities))}});
    return rc::gen::build<ShapeTableCall>(rc::gen::set(&ShapeTableCall::object, rc::gen::element<std::size_t>(0, 0, 1)),
                                          rc::gen::set(&ShapeTableCall::member, member),
                                          rc::gen::set(&ShapeTableCall::kind, rc::gen::inRange<std::size_t>(0, 4)),
                                          rc::gen::set(&ShapeTableCall::number, number),
                                          rc::gen::set(&ShapeTableCall::dof, dof),
                                          rc::gen::set(&ShapeTableCall::value, value),
                                          rc::gen::set(&ShapeTableCall::x, x), rc::gen::set(&ShapeTableCall::y, x));
}

RC_GTEST_PROP(ShapeTableModel, ShowsWhatTheComponentShowsForAnySequenceOfMembers, ())
{
    const auto sequence = *rc::gen::container<std::vector<ShapeTableCall>>(AnyShapeTableCall());
    RC_ASSERT(FirstShapeTableDifference(sequence) == "");
}

} // namespace
} // namespace qor::test
