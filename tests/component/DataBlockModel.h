// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A second, plain Data Block with its members, to run beside the component: everything in vectors, nothing shared
// with the code under test but the enumerations. It stands for one thread with two objects. Its files are made by the
// builders of the tests; what reading them brings is known without reading them.
#pragma once

#include "support/MemoryFile.h"

#include <array>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace qor::test {

enum class Member {
    SetNumberOfTraces,
    SetNumberOfSamples,
    SetFormat,
    GetFormat,
    SetSpacing,
    SetStart,
    SetIncrement,
    SetTexts,
    GetHeader,
    Initialize,
    InitializeStorage,
    InitializeData,
    NewObject,
    GetErrorStatus,
    SetErrorStatus,
    SaveFile,
    LoadFile, // the one that was saved last
    ReadSample,
    WriteSample,
    ReadXaxis,
    WriteXaxis,
    GetTraceText,
    SetTraceText,
    GetMeasurementType,
    SetMeasurementType,
    GetDataSVT,
    SetDataSVT,
    GetLinPower,
    SetLinPower,
    SetAddedHeader,
    GetAddedHeader,
};

// A call of a member on one of the two objects. A member takes what it needs of the arguments.
struct Call {
    std::size_t object = 0;
    Member member = Member::GetHeader;
    std::int32_t trace = 0; // also a count, a format or a spacing
    std::int32_t sample = 0;
    std::int32_t value = 0;
    float x = 0;
    float y = 0;
};
std::ostream& operator<<(std::ostream& out, const Call& call);

// What a call showed. Floats are kept as bits.
struct Seen {
    std::vector<std::int64_t> numbers;
    std::vector<std::u16string> texts;

    friend bool operator==(const Seen&, const Seen&) = default;
};
std::ostream& operator<<(std::ostream& out, const Seen& seen);

// The error code that a call sets: 11 to 15, 0 or below.
std::int32_t ErrorCodeFor(const Call& call);
// The text that a call with this value stores.
std::u16string TextFor(std::int32_t value);

class DataBlockModel
{
public:
    Seen Perform(const Call& call);

private:
    struct ModelTrace {
        std::vector<float> real;
        std::vector<std::pair<float, float>> complex;
        std::array<std::u16string, 5> texts;
        std::int32_t measurementType = 0;
        std::int32_t dataSVT = 0; // read as 3
        std::int32_t linPower = 0;
    };
    struct Document {
        std::vector<ModelTrace> traces;
        std::int32_t samples = 0;
        bool complex = false;
        std::int32_t spacing = 1;
        std::vector<float> xaxis;
        float start = 0;
        float increment = 0;
        std::u16string label;
        std::u16string notes = u"Data Block history";
        std::u16string units;
        std::int32_t peakRMS = 1245;
        std::int32_t xaxisUnits = 0;
        float rpm = 0;
        float damping = 0;
        bool fromFile = false;
    };
    struct Object {
        std::int32_t format = 0;
        bool knowsXaxis = false;
        std::int32_t error = 0;
        std::u16string text;
    };

    void Reallocate(Object& object);
    void Report(Object& object, std::int32_t error);
    std::int32_t CheckTrace(std::int32_t trace) const;
    ModelTrace& At(std::int32_t trace) { return document_.traces[static_cast<std::size_t>(trace - 1)]; }
    bool Holds(const ModelTrace& trace, std::int32_t sample) const;
    Seen AccessSample(Object& object, const Call& call);
    Seen AccessXaxis(Object& object, const Call& call);
    Seen AccessTrace(Object& object, const Call& call);
    Bytes SavedBytes() const;
    Document SavedContent() const;
    Seen Save(Object& object);
    Seen Load(Object& object);

    Document document_;
    std::optional<Document> saved_; // what reading the file that was saved last brings
    std::array<Object, 2> objects_;
    std::int32_t sharedError_ = 0;
};

} // namespace qor::test
