// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "FileBench.h"

#include "Documents.h"
#include "FileTimes.h"
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

SavedFile Saved(const std::string& path, const DataBlock& block)
{
    auto file = platform::File::Replace(Utf16(path));
    if (!file || SaveDataBlock(*file, block).status == Failure || !file->Close())
        throw std::runtime_error(path + ": cannot be saved");
    return SavedFile(path);
}

// A document with its file.
struct Subject {
    Subject(const WorkFolder& folder, const Shape& measuredShape)
        : shape(measuredShape),
          block(MakeDocument(shape)),
          checksum(Checksum(block)),
          file(Saved(folder / (std::string(shape.name) + ".blk"), block))
    {}

    Shape shape;
    DataBlock block;
    std::uint64_t checksum;
    SavedFile file;
};

void Save(State& state, Subject& subject)
{
    const auto save = [&, path = Utf16(subject.file.fresh)] {
        auto file = platform::File::Replace(path);
        return file && SaveDataBlock(*file, subject.block).status == Success && file->Close();
    };
    TimeSave(state, subject.file, save, [&] { subject.file.WriteReference(); });
}

void Output(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.file.fresh);
    clsQOR_File file;
    FillComponent(file, subject.shape);
    const auto save = [&] { return file.OutputDataBlockFile(path) == Success; };
    TimeSave(state, subject.file, save, [&] { subject.file.WriteReference(); });
    file.Initialize();
}

bool LoadFile(const Subject& subject, DataBlock& block, const ArraySelection& selection)
{
    auto file = platform::File::OpenForReading(Utf16(subject.file.path));
    return file && LoadDataBlock(*file, block, selection).status == Success;
}

void Load(State& state, Subject& subject)
{
    DataBlock block;
    const auto load = [&] { return LoadFile(subject, block, ArraySelection::Everything()); };
    const auto empty = [&] { InitializeDataBlockStorage(block); };
    TimeLoad(state, subject.file, load, empty, [&] { return Checksum(block) == subject.checksum; });
}

// By the published member, into the thread's document.
void Input(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.file.path);
    clsQOR_File file;
    const auto load = [&] { return file.InputDataBlockFile(path) == Success; };
    const auto empty = [&] { file.Initialize(); };
    TimeLoad(state, subject.file, load, empty, [&] { return Checksum(modQOR_File().DataBlock) == subject.checksum; });
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
