// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// An impact test on a steel bar, simulated, analysed and filed, as all three kinds of documents: the bar's geometry
// (Structure), time histories (Data Block, and CSV), frequency response functions and coherences (Data Blocks), and the
// mode shapes found in them (Shape Table). Reads its files back and compares, and compares the modes with those that
// were put in. Exit status 1 when anything differs.
#include "BarModel.h"
#include "GeometryFile.h"
#include "ImpactAnalysis.h"
#include "MeasurementFile.h"
#include "ModeShapeFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <numbers>
#include <numeric>
#include <random>
#include <stdexcept>

namespace {

constexpr std::array StrikeAmplitudes = {82.0, 104.0, 67.0, 95.0}; // N; a hand never strikes twice the same
constexpr double ForceNoise = 0.1;                                 // N
constexpr double AccelerationNoise = 0.3;                          // m/s^2
constexpr auto MeasuredAt = u"2026-01-15 10:00:00";

std::u16string NumberText(std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string PointName(std::size_t index) { return NumberText(static_cast<std::int32_t>(index) + 1) + u"Z"; }

// ---- the recording -----------------------------------------------------------------------------------------

// Samples a signal of the time since the strike as a data logger does: 8 times faster than asked for, then through
// a low-pass filter (a sinc under a Hann window) so that what lies above half the sampling rate cannot fold down.
Record Acquire(std::size_t samples, auto signal)
{
    constexpr int oversampling = 8;
    constexpr int reach = 16 * oversampling; // 16 samples to either side; less than the pretrigger
    std::vector<double> weights;
    for (int k = -reach; k <= reach; ++k) {
        const double angle = std::numbers::pi * k / oversampling;
        const double sinc = k == 0 ? 1 : std::sin(angle) / angle;
        weights.push_back(sinc * std::pow(std::cos(std::numbers::pi * k / (2 * reach)), 2) / oversampling);
    }
    Record fine(samples * oversampling + 2 * reach);
    for (std::size_t i = 0; i < fine.size(); ++i) {
        fine[i] = signal((static_cast<double>(i) - reach) / (oversampling * SamplesPerSecond) - PretriggerTime);
    }
    Record record;
    for (std::size_t i = 0; i < samples; ++i) {
        const auto first = fine.begin() + static_cast<std::ptrdiff_t>(i * oversampling);
        record.push_back(std::inner_product(weights.begin(), weights.end(), first, 0.0));
    }
    return record;
}

Recording Strike(std::size_t strikes)
{
    std::mt19937 generator(20260115); // the same recording every time
    std::normal_distribution<double> noise;

    const auto channel = [&](double noiseLevel, auto unitSignal) {
        Record record(strikes * FrameLength);
        const Record unit = Acquire(record.size(), unitSignal);
        for (std::size_t k = 0; k < strikes; ++k) {
            for (std::size_t i = k * FrameLength; i < record.size(); ++i) {
                record[i] += StrikeAmplitudes[k] * unit[i - k * FrameLength];
            }
        }
        // From here on a measured value is what a file can hold.
        for (double& value : record) value = static_cast<float>(value + noiseLevel * noise(generator));
        return record;
    };

    Recording recording;
    recording.force = channel(ForceNoise, Bar::PulseForce);
    for (const double point : Bar::Points) {
        recording.accelerations.push_back(
            channel(AccelerationNoise, [point](double time) { return Bar::UnitAcceleration(point, time); }));
    }
    return recording;
}

// ---- the documents -----------------------------------------------------------------------------------------

MeasuredTrace MakeTrace(std::u16string label, std::u16string dof, std::u16string units, DataBlock_MeasurementTypes type,
                        const auto& values)
{
    MeasuredTrace trace{std::move(label), std::move(dof), std::move(units), MeasuredAt, type, {}};
    for (const auto& value : values) trace.samples.emplace_back(Complex(value));
    return trace;
}

Measurement TimeHistories(const Recording& recording)
{
    Measurement measurement;
    measurement.label = u"Bar, time histories";
    measurement.notes = u"Free-free steel bar struck at 1Z, simulated";
    measurement.xUnits = u"s";
    measurement.xUnitsCode = XAxislIsSec;
    measurement.xIncrement = static_cast<float>(1 / SamplesPerSecond);
    const auto add = [&](std::u16string name, std::size_t point, std::u16string units, const Record& record) {
        measurement.traces.push_back(MakeTrace(std::move(name) + PointName(point), PointName(point), std::move(units),
                                               DB_MeasurementIsTimeResponse, record));
    };
    add(u"Force ", 0, u"N", recording.force);
    for (std::size_t point = 0; point < recording.accelerations.size(); ++point) {
        add(u"Acceleration ", point, u"m/s^2", recording.accelerations[point]);
    }
    return measurement;
}

Measurement OverFrequency(std::u16string label, DataBlock_DataFormatTypes format, DataBlock_MeasurementTypes type,
                          const std::u16string& units, const std::vector<std::vector<Complex>>& results)
{
    Measurement measurement;
    measurement.label = std::move(label);
    measurement.notes = u"H1 from impacts at 1Z, exponential window on force and response";
    measurement.xUnits = u"Hz";
    measurement.xUnitsCode = XAxisIsHz;
    measurement.xIncrement = static_cast<float>(LineSpacing);
    measurement.format = format;
    measurement.exponentialWindowDampingInHz = static_cast<float>(WindowDampingInHz);
    const std::u16string name = type == DB_MeasurementIsFRF ? u"FRF " : u"Coherence ";
    for (std::size_t point = 0; point < results.size(); ++point) {
        const std::u16string dof = PointName(point) + u":" + PointName(0); // response : reference
        measurement.traces.push_back(MakeTrace(name + dof, dof, units, type, results[point]));
    }
    return measurement;
}

// One column a trace. The shortest text that reads back as the same 32-bit float.
void WriteCsv(const Measurement& measurement, const std::filesystem::path& path)
{
    std::string text = "Time [s]";
    const auto ascii = [](const std::u16string& name) { return std::filesystem::path(name).string(); };
    for (const auto& trace : measurement.traces) {
        text.append(",").append(ascii(trace.label)).append(" [").append(ascii(trace.units)).append("]");
    }
    const auto put = [&](float value) {
        std::array<char, 32> digits{};
        text.append(digits.data(), std::to_chars(digits.begin(), digits.end(), value).ptr);
    };
    for (std::size_t i = 0; i < measurement.traces.front().samples.size(); ++i) {
        text += '\n';
        put(measurement.xStart + static_cast<float>(i) * measurement.xIncrement);
        for (const auto& trace : measurement.traces) {
            text += ',';
            put(trace.samples[i].real());
        }
    }
    std::ofstream file(path, std::ios::binary);
    file << text << '\n' << std::flush;
    if (!file) throw std::runtime_error(path.string() + ": cannot be written");
}

// Three rows of points along the bar, its width apart, with quads between: the measured points in the middle, the
// struck one red.
Geometry BarGeometry()
{
    constexpr std::int32_t red = 0x0000FF;
    constexpr auto stations = static_cast<std::int32_t>(Bar::Points.size());
    struct Row {
        std::u16string name;
        double y;
    };
    Geometry geometry;
    geometry.label = u"Bar";
    geometry.notes = u"Free-free steel bar; lengths in m";
    for (const Row& row : {Row{u"Z", 0}, Row{u" front", -Bar::Width / 2}, Row{u" back", Bar::Width / 2}}) {
        for (std::int32_t station = 0; station < stations; ++station) {
            const double x = Bar::Points[static_cast<std::size_t>(station)] * Bar::Length;
            const bool struck = geometry.points.empty();
            geometry.points.push_back({NumberText(station + 1) + row.name,
                                       {static_cast<float>(x), static_cast<float>(row.y), 0},
                                       struck ? red : 0});
        }
    }
    const std::int32_t front = stations;
    const std::int32_t back = 2 * stations;
    for (std::int32_t point = 1; point < stations; ++point) {
        for (const std::int32_t row : {0, front, back}) geometry.lines.push_back({row + point, row + point + 1});
        geometry.quads.push_back({front + point, front + point + 1, point + 1, point});
        geometry.quads.push_back({point, point + 1, back + point + 1, back + point});
    }
    for (const std::int32_t end : {1, stations}) {
        geometry.lines.push_back({front + end, end});
        geometry.lines.push_back({end, back + end});
    }
    return geometry;
}

ModeShapes ShapesOf(const std::vector<Mode>& modes)
{
    ModeShapes shapes;
    shapes.label = u"Bar, mode shapes";
    shapes.notes = u"Fitted to the frequency responses, scaled to unit modal mass";
    shapes.dateAndTime = MeasuredAt;
    shapes.units = u"kg^-1/2";
    shapes.type = ST_MeasurementIsUnitModalMass;
    for (std::size_t point = 0; point < Bar::Points.size(); ++point) {
        shapes.degreesOfFreedom.push_back(PointName(point));
    }
    for (const Mode& mode : modes) {
        auto& shape = shapes.shapes.emplace_back();
        shape.label = u"Bending mode " + NumberText(static_cast<std::int32_t>(shapes.shapes.size()));
        shape.frequency = static_cast<float>(mode.frequency);
        shape.damping = static_cast<float>(100 * mode.dampingRatio);
        for (const Complex& value : mode.shape) shape.values.emplace_back(value);
    }
    return shapes;
}

void PrintFiled(const std::filesystem::path& path, const std::string& what, bool same)
{
    std::printf("%-20s %s, read back: %s\n", path.filename().string().c_str(), what.c_str(),
                same ? "equal" : "DIFFERENT");
}

// True when the file gives back exactly what was written.
bool SaveAndCompare(const Measurement& measurement, const std::filesystem::path& path)
{
    SaveMeasurement(measurement, path);
    const bool same = LoadMeasurement(path) == measurement;
    PrintFiled(path,
               std::to_string(measurement.traces.size()) + " traces of " +
                   std::to_string(measurement.traces.front().samples.size()) + " samples",
               same);
    return same;
}

bool SaveAndCompare(const Geometry& geometry, const std::filesystem::path& path)
{
    SaveGeometry(geometry, path);
    const bool same = LoadGeometry(path) == geometry;
    PrintFiled(path,
               std::to_string(geometry.points.size()) + " points, " + std::to_string(geometry.lines.size()) +
                   " lines, " + std::to_string(geometry.quads.size()) + " quads",
               same);
    return same;
}

// Modal assurance criterion: 1 where two shapes are the same but for a factor.
double Mac(double eigenvalue, const std::vector<Complex>& shape)
{
    Complex product;
    double model = 0;
    double measured = 0;
    for (std::size_t point = 0; point < shape.size(); ++point) {
        const double value = Bar::ModeShape(eigenvalue, Bar::Points[point]);
        product += value * shape[point];
        model += value * value;
        measured += std::norm(shape[point]);
    }
    return std::norm(product) / (model * measured);
}

// True when the modes are those of the bar: frequencies within half a percent, damping within a tenth, and shapes.
bool ReportModes(const std::vector<Mode>& modes, const Analysis& analysis)
{
    std::printf("\n%zu modes found, %zu put in\n", modes.size(), Bar::Eigenvalues.size());
    bool same = modes.size() == Bar::Eigenvalues.size();
    std::printf("mode   model Hz   measured Hz   damping %%   shape MAC   coherence at 1Z\n");
    for (std::size_t i = 0; i < std::min(modes.size(), Bar::Eigenvalues.size()); ++i) {
        const Mode& mode = modes[i];
        const double model = Bar::NaturalFrequency(Bar::Eigenvalues[i]);
        const double mac = Mac(Bar::Eigenvalues[i], mode.shape);
        std::printf("%4zu   %8.2f   %11.2f   %9.3f   %9.4f   %15.4f\n", i + 1, model, mode.frequency,
                    100 * mode.dampingRatio, mac, analysis.coherences.front()[mode.line].real());
        same = same && std::abs(mode.frequency - model) <= 0.005 * model &&
               std::abs(mode.dampingRatio - Bar::DampingRatio) <= 0.1 * Bar::DampingRatio && mac > 0.99;
    }
    return same;
}

} // namespace

int main(int argc, char** argv)
try {
    const int strikes = argc > 2 ? std::atoi(argv[2]) : static_cast<int>(StrikeAmplitudes.size());
    if (argc < 2 || argc > 3 || argv[1][0] == '-' || strikes < 1 ||
        strikes > static_cast<int>(StrikeAmplitudes.size())) {
        std::cerr << "usage: beam_impact_test FOLDER [STRIKES]   (1 to " << StrikeAmplitudes.size() << ")\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);

    const Recording recording = Strike(static_cast<std::size_t>(strikes));
    const Analysis analysis = Analyse(recording);
    const Measurement histories = TimeHistories(recording);

    bool good = SaveAndCompare(BarGeometry(), folder / "beam.str");
    WriteCsv(histories, folder / "beam_time.csv");
    good &= SaveAndCompare(histories, folder / "beam_time.blk");
    good &= SaveAndCompare(OverFrequency(u"Bar, frequency responses", DataFormat_RealImaginary, DB_MeasurementIsFRF,
                                         u"(m/s^2)/N", analysis.responses),
                           folder / "beam_frf.blk");
    good &= SaveAndCompare(
        OverFrequency(u"Bar, coherences", DataFormat_Real, DB_MeasurementIsCoherence, u"", analysis.coherences),
        folder / "beam_coherence.blk");
    const std::vector<Mode> modes = FindModes(analysis);
    SaveModeShapes(ShapesOf(modes), folder / "beam_modes.shp");
    std::printf("%-20s %zu shapes of %zu DOFs\n", "beam_modes.shp", modes.size(), Bar::Points.size());
    good &= ReportModes(modes, analysis);
    return good ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << "beam_impact_test: " << error.what() << '\n';
    return 1;
}
