// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "fuzz/MemberWalk.h"

#include "support/SameStructure.h"
#include "support/SeedFiles.h"
#include "support/StructureSeedFiles.h"

#include <algorithm>

namespace qor::test {
namespace {

constexpr int MostCalls = 300;

constexpr bool IsPublished(ErrorStatusTypes error)
{
    return (error >= NoError && error <= CenterPointOverflow) ||
           (error >= ShapeIndexError && error <= DOFsNotAllocated) ||
           (error >= VertexPointIndexError && error <= QuadSurfacesNotAllocated);
}

const std::vector<Operation>& AllOperations()
{
    static const std::vector<Operation> all = [] {
        std::vector<Operation> operations;
        for (const auto part : {DataBlockOperations(), ShapeTableOperations(), StructureOperations()}) {
            operations.insert(operations.end(), part.begin(), part.end());
        }
        return operations;
    }();
    return all;
}

} // namespace

std::string MemberWalk::Run()
{
    for (int call = 0; call < MostCalls && !in.AtEnd(); ++call) {
        object_ = in.Byte() % objects_.size();
        const Operation& operation = in.OneOf(AllOperations());
        modQOR_File().SharedErrorStatus = NoError;
        for (clsQOR_File& file : objects_) file.ErrorStatus(NoError);
        operation.run(*this);
        ExpectInvariants();
        if (!violation_.empty()) return std::string(operation.name) + ": " + violation_;
    }
    return "";
}

void MemberWalk::ExpectInvariants()
{
    for (clsQOR_File& file : objects_) {
        Expect(IsPublished(file.ErrorStatus()), "an error that is none");
        Expect(file.ErrorStatus() == modQOR_File().SharedErrorStatus, "an error that reading does not clear");
        const std::u16string text = file.GetLastErrorString();
        Expect(text.empty() || text.starts_with(u"Error ("), "the error text");
        // Below 0 where a damaged file says so; then there are none.
        Expect(file.DataBlock_NumberOfTraces() <= modQOR_File().DataBlock.Traces.Count(), "number of traces");
        Expect(file.ShapeTable_NumberOfShapes() >= 0 && file.ShapeTable_NumberOfDOFs() >= 0, "a negative count");
        const FileArrays arrays(file);
        Expect(arrays.NumberOfSamples() >= 0 && arrays.NumberOfDOFs() >= 0 && arrays.NumberOfVertexPoints() >= 0,
               "a negative length");
    }
    Expect(CountsAgree(modQOR_File().Structure), "counts of the Structure");
}

Bytes MemberWalk::Damaged(Bytes bytes)
{
    const std::uint8_t kind = in.Byte();
    if (bytes.empty() || kind < 128) return bytes;
    const std::size_t place = (in.Byte() * std::size_t{256} + in.Byte()) % bytes.size();
    if (kind < 160) {
        bytes.resize(place);
    } else if (kind < 192) {
        const Bytes more = in.Block();
        bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(place), more.begin(), more.end());
    } else {
        bytes[place] = in.Byte();
    }
    return bytes;
}

Bytes MemberWalk::AnyDataBlock()
{
    static const std::vector<SeedFile> seeds = SeedFiles();
    const std::uint8_t kind = in.Byte();
    if (kind < 32) return savedDataBlock;
    if (kind < 64) return in.Block();
    return Damaged(seeds[kind % seeds.size()].bytes);
}

Bytes MemberWalk::AnyStructure()
{
    static const std::vector<SeedFile> seeds = StructureSeedFiles();
    const std::uint8_t kind = in.Byte();
    if (kind < 32) return savedStructure;
    if (kind < 64) return in.Block();
    return Damaged(seeds[kind % seeds.size()].bytes);
}

} // namespace qor::test
