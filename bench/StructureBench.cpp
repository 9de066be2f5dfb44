// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "StructureBench.h"

#include "Documents.h"
#include "FileTimes.h"
#include "component/modQOR_File.h"
#include "platform/File.h"
#include "structure/Save_Structure.h"

#include <QOR_File/QOR_File.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace qor::bench {
namespace {

using benchmark::State;

constexpr std::int32_t Most = 1'000'000;
constexpr std::int32_t Least = 1'000;
constexpr int Runs = 15;
constexpr int GrowthRuns = 7;

// ---- the elements: any values will do that differ from one to the next --------------------------------------

const std::u16string& Label(std::int32_t number)
{
    static const auto labels = [] {
        std::vector<std::u16string> made;
        for (std::int32_t each = 0; each <= Most; ++each) made.push_back(Numbered(u"P", each));
        return made;
    }();
    return labels[static_cast<std::size_t>(number)];
}

VertexPoint Point(std::int32_t number)
{
    const auto place = static_cast<float>(number);
    return {.Label = PaddedLabel(Label(number)),
            .Xcoord = place * 0.25F,
            .Ycoord = -place,
            .Zcoord = 1 / place,
            .Bold = number % 2 == 0,
            .Color = number % 256,
            .AxisEnd = {1, 0, 0, 0, 1, 0, 0, 0, 1}};
}

// Joins the vertex points that follow one another from that number on.
template <class Element>
Element Joining(std::int32_t number)
{
    Element element{.VertexPoints = {}, .Bold = number % 3 == 0, .Color = number % 255};
    for (std::int32_t& each : element.VertexPoints) each = number++;
    return element;
}

auto Values(const VertexPoint& of)
{
    return std::tuple(of.Label, of.Xcoord, of.Ycoord, of.Zcoord, of.Bold.value, of.Color, of.CenterPoint, of.PointType,
                      of.AxisEnd, of.Area, of.NormalAxis, of.FileExtraValue);
}

template <std::size_t Corners>
auto Values(const JoiningElement<Corners>& of)
{
    return std::tuple(of.VertexPoints, of.Bold.value, of.Color, of.FileExtraValue);
}

template <class Element>
bool AreAll(const ElementArray<Element>& elements, std::int32_t count, Element (*expected)(std::int32_t))
{
    if (elements.Count() != count) return false;
    for (std::int32_t number = 1; number <= count; ++number) {
        if (Values(elements[number]) != Values(expected(number))) return false;
    }
    return true;
}

// ---- building -----------------------------------------------------------------------------------------------

struct Counts {
    std::int32_t points = 0;
    std::int32_t lines = 0;
    std::int32_t quads = 0;
};

// Points can only be counted first and written by number; what joins them is appended.
bool WritePoints(clsQOR_File& file, std::int32_t count)
{
    file.Structure_NumberOfVertexPoints(count);
    bool good = true;
    for (std::int32_t number = 1; number <= count; ++number) {
        const auto place = static_cast<float>(number);
        good = good && file.WriteStructureVertexPoint(number, Label(number), place * 0.25F, -place, 1 / place,
                                                      number % 256, number % 2 == 0) == Success;
    }
    return good;
}

bool AppendLines(clsQOR_File& file, std::int32_t count)
{
    bool good = true;
    for (std::int32_t number = 1; number <= count; ++number)
        good = good && file.WriteStructureEdgeLine(-1, number, number + 1, number % 255, number % 3 == 0) == Success;
    return good;
}

bool AppendQuads(std::int32_t count)
{
    ClassAdd_4 quads;
    bool good = true;
    for (std::int32_t number = 1; number <= count; ++number)
        good = good && quads.WriteStructureQuadSurface(-1, number, number + 1, number + 2, number + 3, number % 255,
                                                       number % 3 == 0) == oReturnStatus::Success;
    return good;
}

bool Build(clsQOR_File& file, const Counts& counts)
{
    return WritePoints(file, counts.points) && AppendLines(file, counts.lines) && AppendQuads(counts.quads);
}

// Whether the thread's Structure is what Build makes of these counts.
bool Holds(const Counts& counts)
{
    const Structure& structure = modQOR_File().Structure;
    return AreAll(structure.VertexPoints, counts.points, Point) &&
           AreAll(structure.EdgeLines, counts.lines, Joining<EdgeLine>) &&
           AreAll(structure.QuadSurfaces, counts.quads, Joining<QuadSurface>) &&
           structure.SurfaceTriangles.Count() == 0;
}

Structure Built(const Counts& counts)
{
    clsQOR_File component;
    if (!Build(component, counts)) throw std::runtime_error("a Structure cannot be built");
    return std::exchange(modQOR_File().Structure, Structure());
}

SavedFile Saved(const std::string& path, const Counts& counts)
{
    clsQOR_File component;
    if (!Build(component, counts) || component.OutputStructureFile(Utf16(path)) == Failure)
        throw std::runtime_error(path + ": cannot be saved");
    component.InitializeStructureStorage();
    return SavedFile(path);
}

// A Structure with its file.
struct Subject {
    Subject(const WorkFolder& folder, const Counts& measured)
        : counts(measured), file(Saved(folder / std::to_string(counts.points), counts))
    {}

    Counts counts;
    SavedFile file;
};

// ---- one large Structure ------------------------------------------------------------------------------------

void TimeBuild(State& state, Subject& subject)
{
    clsQOR_File component;
    for (auto each : state) {
        (void)each;
        Build(component, subject.counts); // warms the memory
        component.InitializeStructureStorage();
        bool built = false;
        TimeAlone(state, [&] { built = Build(component, subject.counts); });
        if (!built || !Holds(subject.counts)) state.SkipWithError("wrong elements");
    }
    component.InitializeStructureStorage();
}

void TimeOutput(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.file.fresh);
    clsQOR_File component;
    Build(component, subject.counts);
    const auto save = [&] { return component.OutputStructureFile(path) == Success; };
    TimeSave(state, subject.file, save, [&] { subject.file.WriteReference(); });
    component.InitializeStructureStorage();
}

void TimeInput(State& state, Subject& subject)
{
    const std::u16string path = Utf16(subject.file.path);
    clsQOR_File component;
    const auto load = [&] { return component.InputStructureFile(path) == Success; };
    const auto empty = [&] { component.InitializeStructureStorage(); };
    TimeLoad(state, subject.file, load, empty, [&] { return Holds(subject.counts); });
}

// ---- growth -------------------------------------------------------------------------------------------------

// Times the work on that many elements beside the same work on few, both as often as makes Most elements. So the
// ratio is that of the times an element, and both take long enough to be timed.
template <class Work>
void TimeGrowth(State& state, std::int32_t count, Work work)
{
    for (auto each : state) {
        (void)each;
        bool good = work(count); // warms the memory
        const auto repeated = [&](std::int32_t size) {
            for (std::int32_t done = 0; done < Most; done += size) good = work(size) && good;
        };
        TimeBeside(
            state, [&] { repeated(count); }, [&] { repeated(Least); }, Most);
        if (!good) state.SkipWithError("failed");
    }
}

void GrowBuilt(State& state, const Counts& counts)
{
    clsQOR_File component;
    const std::int32_t count = std::max(counts.points, counts.lines);
    TimeGrowth(state, count, [&](std::int32_t size) {
        component.InitializeStructureStorage();
        return counts.points > 0 ? WritePoints(component, size) : AppendLines(component, size);
    });
    component.InitializeStructureStorage();
    if (!Build(component, counts) || !Holds(counts)) state.SkipWithError("wrong elements");
    component.InitializeStructureStorage();
}

// Each save takes the place of the one before. A thread has one Structure, so the member cannot save two in turn.
void GrowSaved(State& state, const Subject& few, const Subject& many)
{
    Structure fewElements = Built(few.counts);
    Structure manyElements = Built(many.counts);
    TimeGrowth(state, many.counts.points, [&](std::int32_t size) {
        const bool isFew = size == Least;
        auto file = platform::File::Replace(Utf16((isFew ? few : many).file.fresh));
        if (!file) return false;
        SaveStructure(*file, isFew ? fewElements : manyElements, {});
        return file->Close();
    });
    for (const Subject* subject : {&few, &many}) {
        if (BytesOf(subject->file.fresh) != subject->file.bytes) state.SkipWithError("wrong bytes");
    }
    Delete(few.file.fresh);
    Delete(many.file.fresh);
}

// So does each load.
void GrowLoaded(State& state, const Subject& few, const Subject& many)
{
    clsQOR_File component;
    const auto load = [&](std::int32_t size) {
        return component.InputStructureFile(Utf16((size == Least ? few : many).file.path)) == Success;
    };
    TimeGrowth(state, many.counts.points, load);
    for (const Subject* subject : {&few, &many}) {
        if (!load(subject->counts.points) || !Holds(subject->counts)) state.SkipWithError("wrong elements");
    }
    component.InitializeStructureStorage();
}

} // namespace

void RegisterStructureBenchmarks(const WorkFolder& folder)
{
    const auto made = [&](std::int32_t count) {
        return std::make_shared<Subject>(folder, Counts{count, count, count});
    };
    const auto few = made(Least);
    const auto large = made(Most);
    Register("build_structure_ms", Runs, [=](State& state) { TimeBuild(state, *large); });
    Register("output_structure", Runs, [=](State& state) { TimeOutput(state, *large); });
    Register("input_structure", Runs, [=](State& state) { TimeInput(state, *large); });
    for (const auto& many : {made(10'000), made(100'000), large}) {
        const std::int32_t count = many->counts.points;
        const std::string size = std::to_string(count);
        Register("growth_lines_" + size, GrowthRuns, [=](State& state) { GrowBuilt(state, {.lines = count}); });
        Register("growth_points_" + size, GrowthRuns, [=](State& state) { GrowBuilt(state, {.points = count}); });
        Register("growth_save_" + size, GrowthRuns, [=](State& state) { GrowSaved(state, *few, *many); });
        Register("growth_load_" + size, GrowthRuns, [=](State& state) { GrowLoaded(state, *few, *many); });
    }
}

} // namespace qor::bench
