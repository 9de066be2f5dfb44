// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// An impact test on a steel bar, simulated, analysed and filed: time histories (Data Block file and CSV), frequency
// response functions and coherences. Reads its files back and compares, and compares the peaks of the frequency
// responses with the natural frequencies that were put in. Exit status 1 when anything differs.
#include "MeasurementFile.h"

#include <fftw3.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <numbers>
#include <numeric>
#include <random>
#include <stdexcept>

namespace {

using Complex = std::complex<double>;
using Record = std::vector<double>; // one channel over the whole recording

constexpr double SamplesPerSecond = 1024;
constexpr std::size_t FrameLength = 2048; // 2 s a strike, spectral lines 0.5 Hz apart
constexpr double LineSpacing = SamplesPerSecond / FrameLength;
constexpr std::size_t UsedLines = 801; // up to 400 Hz, the sampling rate over 2.56
constexpr double PretriggerTime = 32 / SamplesPerSecond;
constexpr double PulseTime = 0.0025;
constexpr double WindowDampingInHz = 0.5;
constexpr std::array StrikeAmplitudes = {82.0, 104.0, 67.0, 95.0}; // N; a hand never strikes twice the same
constexpr double ForceNoise = 0.1;                                 // N
constexpr double AccelerationNoise = 0.3;                          // m/s^2
constexpr auto MeasuredAt = u"2026-01-15 10:00:00";

// ---- the bar -----------------------------------------------------------------------------------------------

// Bending of a slender uniform bar, both ends free. Eigenvalues and mode shapes: R. D. Blevins, Formulas for Natural
// Frequency and Mode Shape, table 8-1. With these shapes every mode has the bar's own mass as its modal mass.
namespace Bar {
constexpr double Length = 1.05, Width = 0.040, Thickness = 0.008; // m
constexpr double YoungsModulus = 210e9, Density = 7850;           // steel, N/m^2 and kg/m^3
constexpr double Mass = Density * Length * Width * Thickness;
constexpr double DampingRatio = 0.01;
constexpr std::array Eigenvalues = {4.73004074, 7.85320462, 10.9956078, 14.1371655};
constexpr std::array Points = {0.0, 0.25, 0.5, 0.75, 1.0}; // of the length; numbered from 1, struck at the first
} // namespace Bar

double NaturalFrequency(double eigenvalue)
{
    const double stiffnessOverMass =
        std::sqrt(Bar::YoungsModulus * Bar::Thickness * Bar::Thickness / (12 * Bar::Density));
    return eigenvalue * eigenvalue * stiffnessOverMass / (2 * std::numbers::pi * Bar::Length * Bar::Length);
}

double ModeShape(double eigenvalue, double point)
{
    const double ratio =
        (std::cosh(eigenvalue) - std::cos(eigenvalue)) / (std::sinh(eigenvalue) - std::sin(eigenvalue));
    const double x = eigenvalue * point;
    return std::cosh(x) + std::cos(x) - ratio * (std::sinh(x) + std::sin(x));
}

double PulseForce(double time)
{
    return time < 0 || time > PulseTime ? 0 : std::sin(std::numbers::pi * time / PulseTime);
}

// Acceleration at a point after a half-sine pulse of 1 N at the first one, at rest before. Closed form: with the pole s
// a mode's state z follows z' = s z + force, and its displacement is Im(z) / (mass * damped angular frequency).
double UnitAcceleration(double point, double time)
{
    if (time < 0) return 0;
    const double force = PulseForce(time);
    const double rate = std::numbers::pi / PulseTime;
    const double struckAt = Bar::Points.front();
    double sum = force * (1 + 12 * (point - 0.5) * (struckAt - 0.5)) / Bar::Mass; // the bar as a rigid body
    for (const double eigenvalue : Bar::Eigenvalues) {
        const double angular = 2 * std::numbers::pi * NaturalFrequency(eigenvalue);
        const double damped = angular * std::sqrt(1 - Bar::DampingRatio * Bar::DampingRatio);
        const Complex pole(-Bar::DampingRatio * angular, damped);
        const double inside = std::min(time, PulseTime);
        const Complex atPulse =
            (rate * std::exp(pole * inside) - rate * std::cos(rate * inside) - pole * std::sin(rate * inside)) /
            (pole * pole + rate * rate);
        const Complex state = atPulse * std::exp(pole * (time - inside));
        const double shapes = ModeShape(eigenvalue, point) * ModeShape(eigenvalue, struckAt);
        sum += shapes * (pole * (pole * state + force)).imag() / (Bar::Mass * damped);
    }
    return sum;
}

// ---- the recording -----------------------------------------------------------------------------------------

std::u16string PointName(std::size_t index)
{
    const std::string digits = std::to_string(index + 1);
    return std::u16string(digits.begin(), digits.end()) + u"Z";
}

struct Recording {
    Record force;
    std::vector<Record> accelerations; // by point
};

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
    recording.force = channel(ForceNoise, PulseForce);
    for (const double point : Bar::Points) {
        recording.accelerations.push_back(
            channel(AccelerationNoise, [point](double time) { return UnitAcceleration(point, time); }));
    }
    return recording;
}

// ---- the analysis ------------------------------------------------------------------------------------------

class Spectrum
{
public:
    // Transforms one frame under the exponential window; the force also under a gate that cuts the noise behind
    // the pulse. Force and response need the same exponential window, or their ratio would be off.
    std::vector<Complex> Of(const Record& record, std::size_t frame, double gateTime)
    {
        for (std::size_t i = 0; i < FrameLength; ++i) {
            const double time = static_cast<double>(i) / SamplesPerSecond;
            const double window = std::exp(-2 * std::numbers::pi * WindowDampingInHz * time);
            time_[i] = time > gateTime ? 0 : record[frame * FrameLength + i] * window;
        }
        fftw_execute(plan_.get());
        std::vector<Complex> lines(UsedLines);
        for (std::size_t i = 0; i < UsedLines; ++i) lines[i] = {lines_[i][0], lines_[i][1]};
        return lines;
    }

private:
    using Plan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, decltype(&fftw_destroy_plan)>;

    std::array<double, FrameLength> time_{};
    std::array<fftw_complex, FrameLength / 2 + 1> lines_{};
    Plan plan_{fftw_plan_dft_r2c_1d(FrameLength, time_.data(), lines_.data(), FFTW_ESTIMATE), fftw_destroy_plan};
};

struct Analysis {
    std::vector<std::vector<Complex>> responses;  // H1 by point
    std::vector<std::vector<Complex>> coherences; // by point, imaginary 0
};

Analysis Analyse(const Recording& recording)
{
    constexpr double forceGate = 2 * PretriggerTime;
    const std::size_t frames = recording.force.size() / FrameLength;
    const auto spectrum = std::make_unique<Spectrum>();

    Analysis analysis;
    for (const Record& acceleration : recording.accelerations) {
        std::vector<Complex> cross(UsedLines);
        std::vector<double> forcePower(UsedLines), responsePower(UsedLines);
        for (std::size_t frame = 0; frame < frames; ++frame) {
            const auto force = spectrum->Of(recording.force, frame, forceGate);
            const auto response = spectrum->Of(acceleration, frame, FrameLength / SamplesPerSecond);
            for (std::size_t i = 0; i < UsedLines; ++i) {
                cross[i] += std::conj(force[i]) * response[i];
                forcePower[i] += std::norm(force[i]);
                responsePower[i] += std::norm(response[i]);
            }
        }
        auto& h1 = analysis.responses.emplace_back(UsedLines);
        auto& coherence = analysis.coherences.emplace_back(UsedLines);
        for (std::size_t i = 0; i < UsedLines; ++i) {
            h1[i] = cross[i] / forcePower[i];
            coherence[i] = std::norm(cross[i]) / (forcePower[i] * responsePower[i]);
        }
    }
    return analysis;
}

// The lines where the frequency responses, summed over the points, are the highest for 12 Hz around.
std::vector<std::size_t> PeakLines(const std::vector<std::vector<Complex>>& responses)
{
    constexpr std::size_t neighbourhood = 24;
    std::vector<double> sum(UsedLines);
    for (const auto& response : responses) {
        for (std::size_t i = 0; i < UsedLines; ++i) sum[i] += std::abs(response[i]);
    }
    const double threshold = 0.2 * *std::max_element(sum.begin(), sum.end());
    std::vector<std::size_t> peaks;
    for (std::size_t i = neighbourhood; i + neighbourhood < UsedLines; ++i) {
        const auto around = sum.begin() + static_cast<std::ptrdiff_t>(i);
        if (sum[i] > threshold && around == std::max_element(around - neighbourhood, around + neighbourhood + 1)) {
            peaks.push_back(i);
        }
    }
    return peaks;
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

// True when the file gives back exactly what was written.
bool SaveAndCompare(const Measurement& measurement, const std::filesystem::path& path)
{
    SaveMeasurement(measurement, path);
    const bool same = LoadMeasurement(path) == measurement;
    std::printf("%-20s %zu traces of %5zu samples, read back: %s\n", path.filename().string().c_str(),
                measurement.traces.size(), measurement.traces.front().samples.size(), same ? "equal" : "DIFFERENT");
    return same;
}

// True when the peaks are the bar's modes, each within one spectral line.
bool ReportModes(const Analysis& analysis)
{
    const auto peaks = PeakLines(analysis.responses);
    std::printf("\n%zu peaks found, %zu modes put in\n", peaks.size(), Bar::Eigenvalues.size());
    bool same = peaks.size() == Bar::Eigenvalues.size();
    std::printf("mode   model Hz   measured Hz   coherence at 1Z\n");
    for (std::size_t i = 0; i < std::min(peaks.size(), Bar::Eigenvalues.size()); ++i) {
        const double model = NaturalFrequency(Bar::Eigenvalues[i]);
        const double measured = static_cast<double>(peaks[i]) * LineSpacing;
        std::printf("%4zu   %8.2f   %11.1f   %15.4f\n", i + 1, model, measured,
                    analysis.coherences.front()[peaks[i]].real());
        same = same && std::abs(measured - model) <= LineSpacing;
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

    WriteCsv(histories, folder / "beam_time.csv");
    bool good = SaveAndCompare(histories, folder / "beam_time.blk");
    good &= SaveAndCompare(OverFrequency(u"Bar, frequency responses", DataFormat_RealImaginary, DB_MeasurementIsFRF,
                                         u"(m/s^2)/N", analysis.responses),
                           folder / "beam_frf.blk");
    good &= SaveAndCompare(
        OverFrequency(u"Bar, coherences", DataFormat_Real, DB_MeasurementIsCoherence, u"", analysis.coherences),
        folder / "beam_coherence.blk");
    good &= ReportModes(analysis);
    return good ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << "beam_impact_test: " << error.what() << '\n';
    return 1;
}
