// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "StructureBench.h"

#include "Child.h"
#include "Elements.h"
#include "FileTimes.h"
#include "Hdf5File.h"
#include "Hdf5Structure.h"
#include "component/modQOR_File.h"

#include <memory>
#include <stdexcept>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr Counts Large = OfEachKind(MostElements);
constexpr int Runs = 15;

void BuildLarge(clsQOR_File& component)
{
    if (!Build(component, Large)) throw std::runtime_error("a Structure cannot be built");
}

SavedFile Saved(const std::string& path)
{
    clsQOR_File component;
    BuildLarge(component);
    if (component.OutputStructureFile(Utf16(path)) == Failure) throw std::runtime_error(path + ": cannot be saved");
    component.InitializeStructureStorage();
    return SavedFile(path);
}

Structure Built()
{
    clsQOR_File component;
    BuildLarge(component);
    return TakeStructure();
}

// The Structure with its files.
struct Subject {
    explicit Subject(const WorkFolder& folder)
        : file(Saved(folder / "structure.str")), peer(Built()), peerPath(folder / "structure.h5")
    {
        DoInChild(peerPath, [&] {
            SaveHdf5(peerPath, peer);
            return true;
        });
    }

    SavedFile file;
    Structure peer;
    std::string peerPath;
};

void TimeBuild(State& state, Figure& figure)
{
    clsQOR_File component;
    const auto holds = [] { return Holds(modQOR_File().Structure, Large); };
    Time(state, figure,
         {Loading([&] { return Build(component, Large); }, holds, [&] { component.InitializeStructureStorage(); })});
}

void TimeOutput(State& state, Figure& figure, Subject& subject)
{
    clsQOR_File component;
    BuildLarge(component);
    const auto save = [&, path = Utf16(subject.file.fresh)] { return component.OutputStructureFile(path) == Success; };
    const std::string peerPath = subject.peerPath + ".new";
    const auto savePeer = [&] {
        SaveHdf5(peerPath, subject.peer);
        return true;
    };
    const auto peerHolds = [&] { return AreSame(LoadHdf5Structure(peerPath), subject.peer); };
    Time(state, figure,
         {Saving(subject.file, save), PlainWrite(subject.file), PlainCopy(subject.file),
          SavingTo(peerPath, savePeer, peerHolds)});
    component.InitializeStructureStorage();
}

void TimeInput(State& state, Figure& figure, Subject& subject)
{
    clsQOR_File component;
    const auto load = [&, path = Utf16(subject.file.path)] { return component.InputStructureFile(path) == Success; };
    const auto holds = [] { return Holds(modQOR_File().Structure, Large); };
    Hdf5Elements peer;
    const auto loadPeer = [&] {
        peer = LoadHdf5Structure(subject.peerPath);
        return true;
    };
    const auto peerHolds = [&] { return AreSame(peer, subject.peer); };
    Time(state, figure,
         {Loading(load, holds, [&] { component.InitializeStructureStorage(); }), PlainRead(subject.file),
          FreshRead(subject.file), PlainCopy(subject.file), Loading(loadPeer, peerHolds, [&] { peer = {}; })});
}

} // namespace

void MeasureStructureMemory(PeakMeter& meter, const WorkFolder& folder)
{
    const std::string path = folder / "memory.str";
    const std::string peerPath = folder / "memory.h5";
    meter.Measure("output_structure", "", [&] {
        const auto component = std::make_shared<clsQOR_File>();
        BuildLarge(*component);
        return MeasuredWork{[&, component] { return component->OutputStructureFile(Utf16(path)) == Success; }};
    });
    meter.Measure("output_structure", "_to_hdf5", [&] {
        const auto structure = std::make_shared<Structure>(Built());
        H5open();
        return MeasuredWork{[&, structure] {
            SaveHdf5(peerPath, *structure);
            return true;
        }};
    });
    meter.Prepare({"input_structure"}, [&] {
        const Structure structure = Built();
        SaveHdf5(peerPath, structure);
        Saved(path);
        return true;
    });
    meter.Measure("input_structure", "", [&] {
        return MeasuredWork{[&] { return clsQOR_File().InputStructureFile(Utf16(path)) == Success; },
                            [] { return Holds(modQOR_File().Structure, Large); }};
    });
    meter.Measure("input_structure", "_to_hdf5", [&] {
        H5open();
        const auto elements = std::make_shared<Hdf5Elements>();
        return MeasuredWork{[&, elements] {
                                *elements = LoadHdf5Structure(peerPath);
                                return true;
                            },
                            [elements] { return AreSame(*elements, Built()); }};
    });
    Delete(path);
    Delete(peerPath);
}

void RegisterStructureBenchmarks(Report& report, const WorkFolder& folder)
{
    report.Begin("Structure",
                 "1,000,000 vertex points, edge lines, surface triangles and quad surfaces each, 234 MB as a "
                 "file.");
    const auto subject = OnDemand<Subject>(std::cref(folder));
    const auto elements = static_cast<double>(
        MostElements * (sizeof(VertexPoint) + sizeof(EdgeLine) + sizeof(SurfaceTriangle) + sizeof(QuadSurface)));
    Register(report.Add({.name = "build_structure", .unit = "ms"}), Runs, TimeBuild);
    Register(report.Add({.name = "output_structure",
                         .references = {{"plain write", "", 1.5}, {"memcpy", "_to_memcpy"}, {"HDF5", "_to_hdf5"}}}),
             Runs, [=](State& state, Figure& figure) { TimeOutput(state, figure, subject()); });
    Register(report.Add({.name = "input_structure",
                         .references = {{"plain read", "", 2.5},
                                        {"fresh read", "_to_fresh_read"},
                                        {"memcpy", "_to_memcpy"},
                                        {"HDF5", "_to_hdf5"}},
                         .document = elements}),
             Runs, [=](State& state, Figure& figure) { TimeInput(state, figure, subject()); });
}

} // namespace qor::bench
