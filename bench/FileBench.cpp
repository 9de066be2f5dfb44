// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "FileBench.h"

#include "Child.h"
#include "Documents.h"
#include "FileTimes.h"
#include "Hdf5Block.h"
#include "Hdf5File.h"
#include "component/modQOR_File.h"
#include "datablock/Load_DataBlock.h"
#include "datablock/Save_DataBlock.h"
#include "platform/File.h"

#include <QOR_File/QOR_File.h>

#include <memory>
#include <stdexcept>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr int LongRuns = 9;
constexpr int ShortRuns = 21;
constexpr std::size_t HeaderBytes = 1024; // of a trace's record at most, in these documents
constexpr double MiB = 1024 * 1024;

bool SaveFile(const DataBlock& block, const std::string& path)
{
    auto file = platform::File::Replace(Utf16(path));
    return file && SaveDataBlock(*file, block).status == Success && file->Close();
}

bool LoadFile(const std::string& path, DataBlock& block, const ArraySelection& selection)
{
    auto file = platform::File::OpenForReading(Utf16(path));
    return file && LoadDataBlock(*file, block, selection).status == Success;
}

SavedFile Saved(const std::string& path, const DataBlock& block)
{
    if (!SaveFile(block, path)) throw std::runtime_error(path + ": cannot be saved");
    return SavedFile(path);
}

// A document with its files.
struct Subject {
    Subject(const WorkFolder& folder, const Shape& measuredShape)
        : shape(measuredShape),
          block(MakeDocument(shape)),
          checksum(Checksum(block)),
          file(Saved(folder / (std::string(shape.name) + ".blk"), block)),
          peer(Hdf5BlockOf(block)),
          peerPath(folder / (std::string(shape.name) + ".h5"))
    {
        DoInChild(peerPath, [&] {
            SaveHdf5(peerPath, peer);
            return true;
        });
    }

    Shape shape;
    DataBlock block;
    std::uint64_t checksum;
    SavedFile file;
    Hdf5Block peer;
    std::string peerPath;
};

// ---- whole documents ----------------------------------------------------------------------------------------

void Save(State& state, Figure& figure, Subject& subject)
{
    const auto save = [&] { return SaveFile(subject.block, subject.file.fresh); };
    Time(state, figure, {Saving(subject.file, save), PlainWrite(subject.file)});
}

// By the published member, of the thread's document.
void Output(State& state, Figure& figure, Subject& subject)
{
    clsQOR_File component;
    FillComponent(component, subject.shape);
    const auto save = [&, path = Utf16(subject.file.fresh)] { return component.OutputDataBlockFile(path) == Success; };
    const std::string path = subject.peerPath + ".new";
    const auto savePeer = [&] {
        SaveHdf5(path, subject.peer);
        return true;
    };
    const auto holds = [&] { return AreSame(LoadHdf5(path), subject.peer); };
    Time(state, figure,
         {Saving(subject.file, save), PlainWrite(subject.file), PlainCopy(subject.file),
          SavingTo(path, savePeer, holds)});
    component.Initialize();
}

void Load(State& state, Figure& figure, Subject& subject)
{
    DataBlock block;
    const auto load = [&] { return LoadFile(subject.file.path, block, ArraySelection::Everything()); };
    const auto holds = [&] { return Checksum(block) == subject.checksum; };
    Time(state, figure, {Loading(load, holds, [&] { InitializeDataBlockStorage(block); }), PlainRead(subject.file)});
}

void Input(State& state, Figure& figure, Subject& subject)
{
    clsQOR_File component;
    const auto load = [&, path = Utf16(subject.file.path)] { return component.InputDataBlockFile(path) == Success; };
    const auto holds = [&] { return Checksum(modQOR_File().DataBlock) == subject.checksum; };

    Hdf5Block peer;
    std::vector<std::byte> used(SampleBytes(subject.shape), std::byte{1});
    const auto loadPeer = [&](std::byte* into) {
        return [&, into] {
            peer = LoadHdf5(subject.peerPath, into);
            return true;
        };
    };
    const auto peerHolds = [&] { return AreSame(peer, subject.peer); };
    const auto releasePeer = [&] { peer = {}; };
    Time(state, figure,
         {Loading(load, holds, [&] { component.Initialize(); }), PlainRead(subject.file), FreshRead(subject.file),
          PlainCopy(subject.file), Loading(loadPeer(nullptr), peerHolds, releasePeer),
          Loading(loadPeer(used.data()), peerHolds, releasePeer)});
}

// ---- headers and one trace ----------------------------------------------------------------------------------

// Only that trace's samples, or, for 0, no samples at all.
Party LoadingSelected(const Subject& subject, DataBlock& block, std::int32_t number)
{
    const auto load = [&, number] {
        return LoadFile(subject.file.path, block,
                        number == 0 ? ArraySelection::HeadersOnly() : ArraySelection::OneTrace(number));
    };
    const auto holds = [&, number] {
        const DataBlock none;
        for (std::int32_t trace = 1; trace <= subject.shape.traces; ++trace) {
            if (block.Traces[trace].Label != subject.block.Traces[trace].Label) return false;
            if (Checksum(block, trace) != Checksum(trace == number ? subject.block : none, trace)) return false;
        }
        return true;
    };
    return Loading(load, holds, [&] { InitializeDataBlockStorage(block); });
}

void LoadHeaders(State& state, Figure& figure, Subject& subject)
{
    DataBlock block;
    Hdf5Block peer;
    const auto loadPeer = [&] {
        peer = LoadHdf5Headers(subject.peerPath);
        return true;
    };
    const auto peerHolds = [&] {
        bool same = peer.traces.size() == subject.peer.traces.size();
        for (std::size_t i = 0; same && i < peer.traces.size(); ++i)
            same = AreSame(peer.traces[i], subject.peer.traces[i], 0);
        return same;
    };
    const auto readPlain = [&] {
        const std::size_t traces = subject.peer.traces.size();
        ReadPlainPieces(subject.file.path, traces, subject.file.bytes.size() / traces,
                        {subject.file.target.data(), HeaderBytes});
        return true;
    };
    Time(state, figure,
         {LoadingSelected(subject, block, 0), Loading(loadPeer, peerHolds, [&] { peer = {}; }), {readPlain}});
}

void LoadOneTrace(State& state, Figure& figure, Subject& subject)
{
    const std::int32_t number = subject.shape.traces / 2;
    DataBlock block;
    Hdf5Block peer;
    const auto loadPeer = [&] {
        peer = LoadHdf5Trace(subject.peerPath, number);
        return true;
    };
    const auto peerHolds = [&] {
        return AreSame(peer.traces.at(0), subject.peer.traces.at(static_cast<std::size_t>(number - 1)),
                       subject.peer.TraceBytes());
    };
    const auto readPlain = [&] {
        ReadPlainPieces(subject.file.path, 1, 0, {subject.file.target.data(), subject.peer.TraceBytes()});
        return true;
    };
    Time(state, figure,
         {LoadingSelected(subject, block, number), Loading(loadPeer, peerHolds, [&] { peer = {}; }), {readPlain}});
}

// ---- memory -------------------------------------------------------------------------------------------------

// The document as the thread's.
void MakeComponent(const Shape& shape) { modQOR_File().DataBlock = MakeDocument(shape); }

void MeasureSaving(PeakMeter& meter, Report& report, const Shape& shape, const std::string& path)
{
    const std::string name = shape.name;
    const auto ours = meter.Measure("output_" + name, "", [&] {
        MakeComponent(shape);
        return MeasuredWork{[&] { return clsQOR_File().OutputDataBlockFile(Utf16(path)) == Success; }};
    });
    if (ours) report.AddValue("save_memory_" + name + "_above_document_mib", *ours / MiB);
    meter.Measure("output_" + name, "_to_hdf5", [&] {
        const auto block = std::make_shared<DataBlock>(MakeDocument(shape));
        const auto peer = std::make_shared<Hdf5Block>(Hdf5BlockOf(*block));
        H5open(); // what the library takes for itself is not counted
        return MeasuredWork{[&, block, peer] {
            SaveHdf5(path, *peer);
            return true;
        }};
    });
}

void MeasureLoading(PeakMeter& meter, Report& report, const Shape& shape, const std::string& path,
                    const std::string& peerPath)
{
    const std::string name = shape.name;
    const auto ours = meter.Measure("input_" + name, "", [&] {
        return MeasuredWork{[&] { return clsQOR_File().InputDataBlockFile(Utf16(path)) == Success; },
                            [&] { return Checksum(modQOR_File().DataBlock) == Checksum(MakeDocument(shape)); }};
    });
    if (ours) {
        const auto samples = static_cast<double>(SampleBytes(shape));
        report.AddValue("load_memory_" + name, *ours / samples);
        report.AddValue("load_memory_" + name + "_above_samples_mib", (*ours - samples) / MiB);
    }

    const auto measurePart = [&](const std::string& figure, const ArraySelection& selection) {
        meter.Measure(figure, "", [&] {
            const auto block = std::make_shared<DataBlock>();
            return MeasuredWork{[&, block] { return LoadFile(path, *block, selection); }};
        });
    };
    const auto measurePeer = [&](const std::string& figure, auto load) {
        meter.Measure(figure, "_to_hdf5", [&] {
            H5open();
            const auto peer = std::make_shared<Hdf5Block>();
            return MeasuredWork{[load, peer] {
                                    *peer = load();
                                    return true;
                                },
                                [peer] { return !peer->traces.empty(); }};
        });
    };
    measurePeer("input_" + name, [&] { return LoadHdf5(peerPath); });
    measurePart("headers_" + name, ArraySelection::HeadersOnly());
    measurePeer("headers_" + name, [&] { return LoadHdf5Headers(peerPath); });
    measurePart("one_trace_" + name, ArraySelection::OneTrace(shape.traces / 2));
    measurePeer("one_trace_" + name, [&] { return LoadHdf5Trace(peerPath, shape.traces / 2); });
}

// ---- the tables ---------------------------------------------------------------------------------------------

using SubjectOnDemand = std::function<Subject&()>;

void RegisterWhole(Report& report, const Shape& shape, const SubjectOnDemand& subject)
{
    const bool large = shape.complex;
    const int runs = large ? LongRuns : ShortRuns;
    const auto add = [&](const std::string& what, std::vector<ReferenceTimes> references, double document,
                         auto function) {
        Figure& figure =
            report.Add({.name = what + shape.name, .references = std::move(references), .document = document});
        Register(figure, runs, [=](State& state, Figure& each) { function(state, each, subject()); });
    };
    using Limit = std::optional<double>;
    const Limit toWrite = large ? Limit(1.1) : Limit();
    const Limit toRead = large ? Limit(1.8) : Limit();
    const Limit toPeer = large ? 1.0 : 0.1;
    const auto samples = static_cast<double>(SampleBytes(shape));
    add("output_", {{"plain write", "", toWrite}, {"memcpy", "_to_memcpy"}, {"HDF5", "_to_hdf5", toPeer}}, 0, Output);
    add("save_", {{"plain write", "", toWrite}}, 0, Save);
    add("input_",
        {{"plain read", "", toRead},
         {"fresh read", "_to_fresh_read"},
         {"memcpy", "_to_memcpy"},
         {"HDF5", "_to_hdf5", toPeer},
         {"HDF5, in use", "_to_hdf5_in_use"}},
        samples, Input);
    add("load_", {{"plain read", "", toRead}}, samples, Load);
}

// What is loaded in part: all headers, and those bytes of samples.
void RegisterPart(Report& report, const std::string& name, double samples, const ReferenceTimes& floor,
                  const SubjectOnDemand& subject, void (*function)(State&, Figure&, Subject&))
{
    Figure& figure =
        report.Add({.name = name, .references = {{"HDF5", "_to_hdf5"}, floor}, .unit = "ms", .document = samples});
    Register(figure, ShortRuns, [=](State& state, Figure& each) { function(state, each, subject()); });
}

} // namespace

void MeasureFileMemory(PeakMeter& meter, Report& report, const WorkFolder& folder)
{
    for (const Shape& shape : {LongTraces, ShortTraces}) {
        const std::string path = folder / "memory.blk";
        const std::string peerPath = folder / "memory.h5";
        const std::string name = shape.name;
        meter.Prepare({"input_" + name, "headers_" + name, "one_trace_" + name}, [&] {
            const DataBlock block = MakeDocument(shape);
            SaveHdf5(peerPath, Hdf5BlockOf(block));
            return SaveFile(block, path);
        });
        MeasureLoading(meter, report, shape, path, peerPath);
        Delete(path);
        Delete(peerPath);
        MeasureSaving(meter, report, shape, path);
        Delete(path);
    }
}

void RegisterFileBenchmarks(Report& report, const WorkFolder& folder)
{
    const auto large = OnDemand<Subject>(std::cref(folder), LongTraces);
    const auto small = OnDemand<Subject>(std::cref(folder), ShortTraces);
    report.Begin("Large traces", "A Data Block of 64 traces of 1,000,000 complex samples, 512 MB.");
    RegisterWhole(report, LongTraces, large);
    report.Begin("Many small traces", "A Data Block of 4,000 traces of 1,024 real samples, 16 MB.");
    RegisterWhole(report, ShortTraces, small);
    report.Begin("One trace of many", "All headers and the samples of one trace; HDF5 reads that trace alone.");
    for (const auto& [shape, subject] : {std::pair(LongTraces, large), std::pair(ShortTraces, small)})
        RegisterPart(report, std::string("one_trace_") + shape.name,
                     static_cast<double>(SampleBytes(shape)) / shape.traces, {"read of as much", "_to_plain_read"},
                     subject, LoadOneTrace);
    report.Begin("Headers only", "Everything but samples.");
    for (const auto& [shape, subject] : {std::pair(LongTraces, large), std::pair(ShortTraces, small)})
        RegisterPart(report, std::string("headers_") + shape.name, 0, {"1 KiB a trace", "_to_plain_reads"}, subject,
                     LoadHeaders);
}

} // namespace qor::bench
