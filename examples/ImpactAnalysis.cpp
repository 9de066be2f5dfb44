// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "ImpactAnalysis.h"

#include <fftw3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <type_traits>

namespace {

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

// Around a peak, one mode outweighs all others: H = r / (s - p) with a residue r for each point and one pole p for all.
// So H s = p H + r, a straight line, whose slope p is found by least squares and whose offset r is what is left.
Mode FitMode(const Analysis& analysis, std::size_t peak)
{
    constexpr std::size_t reach = 2; // lines to either side
    constexpr double lines = 2 * reach + 1;
    Complex slopeAbove;
    double slopeBelow = 0;
    struct Mean {
        Complex response, product;
    };
    std::vector<Mean> means;
    for (const auto& response : analysis.responses) {
        const auto valueAt = [&](std::size_t line) {
            const Complex s(0, 2 * std::numbers::pi * LineSpacing * static_cast<double>(line));
            return Mean{response[line], response[line] * s};
        };
        Mean mean;
        for (std::size_t line = peak - reach; line <= peak + reach; ++line) {
            mean.response += valueAt(line).response / lines;
            mean.product += valueAt(line).product / lines;
        }
        for (std::size_t line = peak - reach; line <= peak + reach; ++line) {
            const Complex centred = valueAt(line).response - mean.response;
            slopeAbove += std::conj(centred) * (valueAt(line).product - mean.product);
            slopeBelow += std::norm(centred);
        }
        means.push_back(mean);
    }
    const Complex windowed = slopeAbove / slopeBelow;
    const Complex pole = windowed + 2 * std::numbers::pi * WindowDampingInHz;

    Mode mode;
    mode.line = peak;
    mode.frequency = std::abs(pole) / (2 * std::numbers::pi);
    mode.dampingRatio = -pole.real() / std::abs(pole);
    // The residue of an acceleration is shape * shape of the struck point * p^2 / (2 i damped angular frequency).
    const Complex scale = Complex(0, 2 * pole.imag()) / (pole * pole);
    for (const Mean& mean : means) mode.shape.push_back((mean.product - windowed * mean.response) * scale);
    const Complex struck = std::sqrt(mode.shape.front());
    for (Complex& value : mode.shape) value /= struck;
    return mode;
}

} // namespace

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

std::vector<Mode> FindModes(const Analysis& analysis)
{
    std::vector<Mode> modes;
    for (const std::size_t peak : PeakLines(analysis.responses)) modes.push_back(FitMode(analysis, peak));
    return modes;
}
