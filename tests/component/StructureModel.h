// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A second, plain Structure with its members, to run beside the component. It stands for one thread with two objects,
// and shares nothing with the code under test but the enumerations. Its files are made by the builders of the tests;
// what reading them brings is known without reading them.
#pragma once

#include "component/DataBlockModel.h"
#include "support/MemoryFile.h"

#include <array>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace qor::test {

enum class StructureMember {
    SetCount,
    GetCounts,
    WriteVertex,
    ReadVertex,
    WriteInformation,
    ReadInformation,
    WriteTransform,
    ReadTransform,
    LookAtVertex, // at what no member reads
    WriteJoining,
    ReadJoining,
    SetTexts,
    GetTexts,
    InitializeStorage,
    Initialize,
    NewObject,
    GetErrorStatus,
    SaveFile, // to an empty path where the number is 0
    LoadFile,
    ReadOn, // in a file that was refused
    SetErrorStatus,
};

// A call on one of the two objects. A member takes what it needs of the arguments.
struct StructureCall {
    std::size_t object = 0;
    StructureMember member = StructureMember::GetCounts;
    std::size_t kind = 0;    // vertex points, edge lines, surface triangles, quad surfaces
    std::int32_t number = 0; // of the element; also a count
    std::int32_t value = 0;
    std::int32_t other = 0;
    float x = 0;
};
std::ostream& operator<<(std::ostream& out, const StructureCall& call);

// The files that calls load. Those of the last three are made anew for every call.
enum class LoadedFile { Saved, Missing, Accepted, TooNew, NoPreamble };
LoadedFile FileOf(const StructureCall& call);
Bytes BytesFor(const StructureCall& call);

// The label that a call with this value writes to a vertex point.
std::u16string LabelFor(std::int32_t value);

// What stands in the caller's values before a read.
inline constexpr std::int32_t ModelUntouched = -77;
inline constexpr float ModelUntouchedFloat = -77.25F;
inline const std::u16string ModelUntouchedText = u"untouched";
// What a call shows that raises a fault instead of returning: this and the fault's number.
inline constexpr std::int64_t RaisesFault = 1'000'000;

class StructureModel
{
public:
    Seen Perform(const StructureCall& call);

private:
    struct ModelVertex {
        std::u16string label = std::u16string(20, u' ');
        std::array<float, 3> place{};
        std::int32_t color = 0;
        std::int32_t bold = 0;
        std::int32_t center = 0;
        std::int32_t pointType = 0;
        std::int32_t normalAxis = 0;
        float area = 0;
        std::array<std::array<float, 3>, 3> axes{};
        std::int32_t extra = 0;
    };
    struct ModelJoining {
        std::array<std::int32_t, 4> corners{};
        std::int32_t color = 0;
        std::int32_t bold = 0;
        std::int32_t extra = 0;
    };
    // What reading a file brings.
    struct Content {
        std::int32_t version = 12;
        std::u16string label;
        std::u16string notes;
        std::vector<ModelVertex> vertices;
        std::array<std::vector<ModelJoining>, 3> joining;
        bool endMarker = true;
    };
    struct Object {
        std::u16string label;
        std::u16string notes;
        std::int32_t error = 0;
        std::u16string text;
        std::int32_t version = 0;
        std::optional<int> readOns; // in the file that was refused last, while it is open
    };

    void Empty();
    void SetCount(std::size_t kind, std::int32_t count);
    Seen Fail(const StructureCall& call, std::int32_t error);
    std::int32_t CheckVertex(std::int32_t number) const;
    Seen WriteVertex(const StructureCall& call);
    Seen ReadVertex(const StructureCall& call);
    Seen StoreInformation(const StructureCall& call);
    Seen AccessTransform(const StructureCall& call);
    Seen WriteJoining(const StructureCall& call);
    Seen ReadJoining(const StructureCall& call);
    static Content AcceptedContent(const StructureCall& call);
    Content SavedContent(const Object& object) const;
    Bytes SavedBytes(const Object& object) const;
    Seen Save(const StructureCall& call);
    void Load(const Content& content, const StructureCall& call);
    Seen LoadFile(const StructureCall& call);
    Seen ReadOn(const StructureCall& call);

    std::vector<ModelVertex> vertices_;
    std::array<std::vector<ModelJoining>, 3> joining_;
    bool large_ = false;
    std::optional<Content> saved_; // the file that was saved last
    std::array<Object, 2> objects_;
    std::int32_t sharedError_ = 0;
};

} // namespace qor::test
