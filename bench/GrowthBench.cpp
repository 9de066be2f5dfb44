// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "GrowthBench.h"

#include "Elements.h"
#include "FileTimes.h"
#include "platform/File.h"
#include "structure/Save_Structure.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr std::int32_t Least = 1'000;
constexpr int Runs = 5;

// Structures of one size, with MostElements of each kind in all, and their files. All have the large variant's file,
// whose numbers are wider: the same bytes an element, whatever the size.
struct Batch {
    Batch(const WorkFolder& folder, std::int32_t elements)
        : size(elements), prefix(folder / ("growth" + std::to_string(size) + "_"))
    {
        clsQOR_File component;
        for (std::int32_t index = 0; index < Pieces(); ++index) {
            if (!Build(component, OfEachKind(size), First(index)))
                throw std::runtime_error("a Structure cannot be built");
            structures.push_back(TakeStructure());
            structures.back().LargeStructureFormat = true;
            if (!Save(index, Path(index))) throw std::runtime_error(Path(index) + ": cannot be saved");
        }
    }

    std::int32_t Pieces() const { return MostElements / size; }
    // The number of a Structure's first element.
    std::int32_t First(std::int32_t index) const { return index * size + 1; }
    std::string Path(std::int32_t index) const { return prefix + std::to_string(index); }
    std::string NewPath(std::int32_t index) const { return Path(index) + ".new"; }

    // Not by the member, which saves the thread's Structure only.
    bool Save(std::int32_t index, const std::string& path)
    {
        auto file = platform::File::Replace(Utf16(path));
        if (!file) return false;
        SaveStructure(*file, structures[static_cast<std::size_t>(index)], {});
        return file->Close();
    }

    std::int32_t size;
    std::string prefix;
    std::vector<Structure> structures;
};

// Makes the thread's Structure the batch's with that index.
using Make = std::function<bool(const Batch&, std::int32_t index)>;

Counts Times(const Counts& kind, std::int32_t size)
{
    return {kind.points * size, kind.lines * size, kind.triangles * size, kind.quads * size};
}

Make Building(const Counts& kind)
{
    return [kind](const Batch& batch, std::int32_t index) {
        clsQOR_File component;
        return Build(component, Times(kind, batch.size), batch.First(index));
    };
}

bool LoadPiece(const Batch& batch, std::int32_t index)
{
    return clsQOR_File().InputStructureFile(Utf16(batch.Path(index))) == Success;
}

// All Structures of the batch, which all stay: each in fresh memory, together the same whatever their size.
Party MakingAll(const Batch& batch, const Counts& kind, Make make)
{
    const auto kept = std::make_shared<std::vector<Structure>>();
    kept->reserve(static_cast<std::size_t>(batch.Pieces()));
    const auto work = [&batch, make, kept] {
        bool good = true;
        for (std::int32_t index = 0; index < batch.Pieces(); ++index) {
            good = make(batch, index) && good;
            kept->push_back(TakeStructure());
        }
        return good;
    };
    const auto holds = [&batch, kind, kept] {
        bool good = true;
        for (std::int32_t index = 0; index < batch.Pieces(); ++index)
            good = good && Holds((*kept)[static_cast<std::size_t>(index)], Times(kind, batch.size), batch.First(index));
        return good;
    };
    return Loading(work, holds, [kept] { kept->clear(); });
}

// The batch's first Structure as often, each in the place and the memory of the one before.
Party MakingAgain(const Batch& batch, const Counts& kind, Make make)
{
    const auto last = std::make_shared<Structure>();
    const auto work = [&batch, make, last] {
        bool good = true;
        for (std::int32_t done = 0; done < batch.Pieces(); ++done) {
            clsQOR_File().InitializeStructureStorage();
            good = make(batch, 0) && good;
        }
        *last = TakeStructure();
        return good;
    };
    return Loading(
        work, [&batch, kind, last] { return Holds(*last, Times(kind, batch.size)); }, [last] { *last = {}; });
}

bool FileHolds(const Batch& batch, const std::string& path, std::int32_t index)
{
    const bool loaded = clsQOR_File().InputStructureFile(Utf16(path)) == Success;
    return loaded && Holds(TakeStructure(), OfEachKind(batch.size), batch.First(index)) &&
           BytesOf(path) == BytesOf(batch.Path(index));
}

template <class Work>
bool ForAll(const Batch& batch, Work work)
{
    bool good = true;
    for (std::int32_t index = 0; index < batch.Pieces(); ++index) good = work(index) && good;
    return good;
}

Party SavingAll(Batch& batch)
{
    return {[&] { return ForAll(batch, [&](std::int32_t index) { return batch.Save(index, batch.NewPath(index)); }); },
            [&] {
                return ForAll(batch, [&](std::int32_t index) { return FileHolds(batch, batch.NewPath(index), index); });
            },
            [&] {
                for (std::int32_t index = 0; index < batch.Pieces(); ++index) Delete(batch.NewPath(index));
            }};
}

Party SavingAgain(Batch& batch)
{
    return {[&] { return ForAll(batch, [&](std::int32_t) { return batch.Save(0, batch.NewPath(0)); }); },
            [&] { return FileHolds(batch, batch.NewPath(0), 0); }, [&] { Delete(batch.NewPath(0)); }};
}

// What the files themselves cost: the same bytes in as many files.
Party WritingPlain(const Batch& batch)
{
    const auto bytes = std::make_shared<std::vector<std::vector<std::byte>>>();
    for (std::int32_t index = 0; index < batch.Pieces(); ++index) bytes->push_back(BytesOf(batch.Path(index)));
    return {[&batch, bytes] {
                return ForAll(batch, [&](std::int32_t index) {
                    WritePlain(batch.NewPath(index), (*bytes)[static_cast<std::size_t>(index)]);
                    return true;
                });
            },
            [] { return true; },
            [&batch] {
                for (std::int32_t index = 0; index < batch.Pieces(); ++index) Delete(batch.NewPath(index));
            }};
}

constexpr Counts Lines{.lines = 1};
constexpr Counts Points{.points = 1};
constexpr Counts Each = OfEachKind(1);

void AddFigure(Report& report, const std::string& name, const char* beside, std::optional<double> limit,
               const std::function<Batch&()>& many, const std::function<Batch&()>& few,
               std::function<Party(Batch&)> party)
{
    Register(report.Add({.name = name, .references = {{beside, "", limit}}}), Runs, [=](State& state, Figure& figure) {
        Time(state, figure, {party(many()), party(few())}, MostElements);
    });
}

} // namespace

void RegisterGrowthBenchmarks(Report& report, const WorkFolder& folder)
{
    report.Begin("Growth", "Time an element in Structures of that many, beside those of 1,000.");
    const auto few = OnDemand<Batch>(std::cref(folder), Least);
    for (const std::int32_t size : {10'000, 100'000, MostElements}) {
        const auto many = OnDemand<Batch>(std::cref(folder), size);
        const auto add = [&](const std::string& name, std::function<Party(Batch&)> party) {
            AddFigure(report, "growth_" + name + "_" + std::to_string(size), "1,000", 1.2, many, few, party);
        };
        add("lines", [](Batch& batch) { return MakingAll(batch, Lines, Building(Lines)); });
        add("points", [](Batch& batch) { return MakingAll(batch, Points, Building(Points)); });
        add("save", SavingAll);
        add("load", [](Batch& batch) { return MakingAll(batch, Each, LoadPiece); });
        if (size != MostElements) continue;
        const auto addAside = [&](const std::string& name, const char* beside, std::function<Party(Batch&)> party) {
            AddFigure(report, "growth_" + name, beside, {}, many, few, party);
        };
        addAside("plain_write", "1,000 files", WritingPlain);
        const char* const again = "1,000, warm";
        addAside("lines_warm", again, [](Batch& batch) { return MakingAgain(batch, Lines, Building(Lines)); });
        addAside("points_warm", again, [](Batch& batch) { return MakingAgain(batch, Points, Building(Points)); });
        addAside("save_warm", again, SavingAgain);
        addAside("load_warm", again, [](Batch& batch) { return MakingAgain(batch, Each, LoadPiece); });
    }
}

} // namespace qor::bench
