// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "FileBench.h"

#include "Documents.h"
#include "Figures.h"
#include "component/modQOR_File.h"
#include "datablock/Load_DataBlock.h"
#include "datablock/Save_DataBlock.h"
#include "platform/File.h"

#include <algorithm>
#include <memory>
#include <new>
#include <stdexcept>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr int LongRuns = 9;
constexpr int ShortRuns = 41;

// A document with its file, and the file's bytes in memory that has been touched.
struct Subject {
    Subject(const WorkFolder& folder, const Shape& measuredShape)
        : shape(measuredShape),
          block(MakeDocument(shape)),
          checksum(Checksum(block)),
          path(folder / (std::string(shape.name) + ".blk")),
          fresh(path + ".new"),
          freshReference(path + ".reference")
    {
        auto file = platform::File::Replace(Utf16(path));
        if (!file || SaveDataBlock(*file, block).status == Failure || !file->Close())
            throw std::runtime_error(path + ": cannot be saved");
        bytes = BytesOf(path);
        target.resize(bytes.size(), std::byte{1});
    }

    Shape shape;
    DataBlock block;
    std::uint64_t checksum;
    std::string path;
    std::string fresh;          // the new file of each save
    std::string freshReference; // and of each plain write
    std::vector<std::byte> bytes;
    std::vector<std::byte> target;
};

// Saves beside a plain write, both to a new file. What was just given back is warm: a virtual machine may have to
// ask its host for memory that lay idle, which takes longer than all that is measured. So both are done once before.
template <class Work>
void TimeSave(State& state, Subject& subject, Work save)
{
    for (auto each : state) {
        (void)each;
        WritePlain(subject.fresh, subject.bytes);
        WritePlain(subject.freshReference, subject.bytes);
        Delete(subject.fresh);
        Delete(subject.freshReference);
        bool saved = false;
        TimeBeside(
            state, [&] { saved = save(); }, [&] { WritePlain(subject.freshReference, subject.bytes); });
        if (!saved || BytesOf(subject.fresh) != subject.bytes || BytesOf(subject.freshReference) != subject.bytes)
            state.SkipWithError("wrong bytes");
        Delete(subject.fresh);
        Delete(subject.freshReference);
    }
}

void Save(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.fresh);
    TimeSave(state, subject, [&] {
        auto file = platform::File::Replace(path);
        return file && SaveDataBlock(*file, subject.block).status == Success && file->Close();
    });
}

void Output(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.fresh);
    clsQOR_File file;
    FillComponent(file, subject.shape);
    TimeSave(state, subject, [&] { return file.OutputDataBlockFile(path) == Success; });
    file.Initialize();
}

bool LoadFile(Subject& subject, DataBlock& block, const ArraySelection& selection)
{
    auto file = platform::File::OpenForReading(Utf16(subject.path));
    return file && LoadDataBlock(*file, block, selection).status == Success;
}

// Loads beside a plain read into memory in use. The document's memory is new, but warm as above.
void Load(State& state, Subject& subject)
{
    for (auto each : state) {
        (void)each;
        DataBlock block;
        LoadFile(subject, block, ArraySelection::Everything());
        InitializeDataBlockStorage(block);
        bool loaded = false;
        TimeBeside(
            state, [&] { loaded = LoadFile(subject, block, ArraySelection::Everything()); },
            [&] { ReadPlain(subject.path, subject.target); });
        if (!loaded || Checksum(block) != subject.checksum) state.SkipWithError("wrong samples");
        if (subject.target != subject.bytes) state.SkipWithError("wrong bytes");
    }
}

// By the published member, into the thread's document, which is empty before.
void Input(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.path);
    clsQOR_File file;
    for (auto each : state) {
        (void)each;
        file.InputDataBlockFile(path);
        file.Initialize();
        ReturnStatus status = Failure;
        TimeBeside(
            state, [&] { status = file.InputDataBlockFile(path); }, [&] { ReadPlain(subject.path, subject.target); });
        if (status == Failure || Checksum(modQOR_File().DataBlock) != subject.checksum)
            state.SkipWithError("wrong samples");
        file.Initialize();
    }
}

// Only that trace's samples, or, for 0, no samples at all.
void LoadSelected(State& state, Subject& subject, std::int32_t number)
{
    const ArraySelection selection = number == 0 ? ArraySelection::HeadersOnly() : ArraySelection::OneTrace(number);
    const std::int32_t last = subject.shape.traces;
    for (auto each : state) {
        (void)each;
        DataBlock block;
        LoadFile(subject, block, selection);
        InitializeDataBlockStorage(block);
        bool loaded = false;
        TimeAlone(state, [&] { loaded = LoadFile(subject, block, selection); });
        if (!loaded || block.Traces[last].Label != subject.block.Traces[last].Label)
            state.SkipWithError("wrong headers");
        for (std::int32_t trace = 1; trace <= last; ++trace) {
            const DataBlock none;
            if (Checksum(block, trace) != Checksum(trace == number ? subject.block : none, trace))
                state.SkipWithError("wrong samples");
        }
    }
}

} // namespace

void RegisterFileBenchmarks(const WorkFolder& folder)
{
    for (const Shape& shape : {LongTraces, ShortTraces}) {
        const auto subject = std::make_shared<Subject>(folder, shape);
        const auto add = [&](const std::string& what, int runs, auto function) {
            Register(what, runs, [=](State& state) { function(state, *subject); });
        };
        const std::string name = shape.name;
        const int runs = shape.complex ? LongRuns : ShortRuns;
        add("save_" + name, runs, Save);
        add("output_" + name, runs, Output);
        add("load_" + name, runs, Load);
        add("input_" + name, runs, Input);
        add("headers_" + name + "_ms", ShortRuns, [](State& state, Subject& each) { LoadSelected(state, each, 0); });
        add("one_trace_" + name + "_ms", ShortRuns,
            [](State& state, Subject& each) { LoadSelected(state, each, each.shape.traces / 2); });
    }
}

} // namespace qor::bench
