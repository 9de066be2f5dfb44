// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Fuzz target: any bytes as a sequence of calls on the component. The first byte decides what watches over it: one of
// the models, which know what every call shows, single elements beside whole arrays, or a walk over all members.
#include "component/DataBlockAccess.h"
#include "component/DataBlockComparison.h"
#include "component/FileArraysComparison.h"
#include "component/ShapeTableComparison.h"
#include "component/StructureComparison.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/MemberWalk.h"

namespace qor::test {
namespace {

constexpr std::size_t MostCalls = 120;

template <class Member>
Member AnyMember(InputReader& in, Member last)
{
    return static_cast<Member>(in.From(0, static_cast<std::int32_t>(last)));
}

Call AnyCall(InputReader& in)
{
    Call call;
    call.member = AnyMember(in, Member::GetAddedHeader);
    call.object = in.Byte() % 3 == 2 ? 1 : 0;
    call.trace = in.From(CallTraces[0], CallTraces[1]);
    call.sample = in.From(CallSamples[0], CallSamples[1]);
    call.value = in.OneOf(CallValues);
    call.x = in.OneOf(CallNumbers);
    call.y = in.OneOf(CallNumbers);
    return call;
}

StructureCall AnyStructureCall(InputReader& in)
{
    StructureCall call;
    call.member = AnyMember(in, StructureMember::SetErrorStatus);
    const std::uint8_t bits = in.Byte();
    call.object = bits % 3 == 2 ? 1 : 0;
    call.kind = bits >> 6;
    call.number = bits % 48 == 0 ? in.OneOf(FarNumbers) : in.From(StructureCallNumbers[0], StructureCallNumbers[1]);
    call.value = in.OneOf(StructureCallValues);
    call.other = in.From(StructureCallOthers[0], StructureCallOthers[1]);
    call.x = in.OneOf(StructureCallPlaces);
    return call;
}

float AnyShapeFloat(InputReader& in)
{
    const std::uint8_t which = in.Byte();
    if (which >= 250) return in.OneOf(Infinities);
    if (which >= 220) return std::numeric_limits<float>::quiet_NaN();
    return UsualFloats[which % std::size(UsualFloats)];
}

ShapeTableCall AnyShapeTableCall(InputReader& in)
{
    ShapeTableCall call;
    call.member = AnyMember(in, ShapeTableMember::SetErrorStatus);
    const std::uint8_t bits = in.Byte();
    const auto range = bits % 16 == 0 ? UnusualNumbers : UsualNumbers;
    call.object = bits % 3 == 2 ? 1 : 0;
    call.kind = bits >> 6;
    call.number = bits == 255 ? in.OneOf(HugeNumbers) : in.From(range[0], range[1]);
    call.dof = in.From(range[0], range[1]);
    const std::uint8_t value = in.Byte();
    call.value = value >= 240   ? in.OneOf(ValuesBeyondAType)
                 : value >= 160 ? in.OneOf(TypeValues)
                                : UnusualNumbers[0] + value % (UnusualNumbers[1] - UnusualNumbers[0] + 1);
    call.x = AnyShapeFloat(in);
    call.y = AnyShapeFloat(in);
    return call;
}

template <class Make>
auto Sequence(InputReader& in, Make make)
{
    std::vector<decltype(make(in))> calls;
    while (!in.AtEnd() && calls.size() < MostCalls) calls.push_back(make(in));
    return calls;
}

Preparation AnyPreparation(InputReader& in)
{
    Preparation preparation;
    preparation.step = AnyMember(in, Step::LoadStructure);
    preparation.object = in.Byte() % 4 == 3 ? 1 : 0;
    preparation.a = in.From(-1, 8);
    preparation.b = in.From(1, 3);
    preparation.x = in.OneOf(PreparedFloats);
    preparation.y = in.OneOf(PreparedFloats);
    return preparation;
}

ArraysCall AnyArraysCall(InputReader& in)
{
    ArraysCall call;
    call.member = AnyMember(in, ArraysMember::WriteValues);
    // Shapes and X axis are those of an object.
    call.object = in.From(0, call.member <= ArraysMember::WritePoints ? 2 : 1);
    call.number = in.From(-1, 8);
    for (std::int32_t& off : call.offBy) off = in.Byte() % 14 == 13 ? in.From(-1, 1) : 0;
    call.withoutSecond = in.Byte() % 4 == 3;
    for (int i = 0; i < 7; ++i) call.values.push_back(in.OneOf(PreparedFloats));
    return call;
}

std::string Perform(std::span<const std::uint8_t> bytes)
{
    InputReader in(bytes);
    switch (in.Byte() % 8) {
    case 0: return FirstDifference(Sequence(in, AnyCall));
    case 1: return FirstStructureDifference(Sequence(in, AnyStructureCall));
    case 2: return FirstShapeTableDifference(Sequence(in, AnyShapeTableCall));
    case 3: {
        const ArraysCall call = AnyArraysCall(in);
        return ArraysShowTheSame(Sequence(in, AnyPreparation), call) ? "" : "whole arrays and elements differ";
    }
    default: {
        std::string violation;
        // What one input leaves on its thread must not reach the next.
        OnAThreadOfItsOwn([&] { violation = MemberWalk(bytes.subspan(std::min<std::size_t>(bytes.size(), 1))).Run(); });
        return violation;
    }
    }
}

} // namespace
} // namespace qor::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return Judge(qor::test::Perform({data, size}));
}
