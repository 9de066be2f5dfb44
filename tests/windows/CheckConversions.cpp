// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Conversions between real/imaginary and magnitude/phase, to the last bit.
#include "Check.h"

#include <QOR_File/QOR_File.h>

#include <utility>

namespace qor::test {
namespace {

// Of the results below. The system's own sine, cosine and arctangent give them too where they are accurate.
constexpr std::uint64_t RealAndImaginary = 0xF9FB4E2D50AC4F7B;
constexpr std::uint64_t MagnitudeAndPhase = 0xDF3A72341BE764D0;

constexpr float Magnitudes[] = {0.0F, 1e-30F, 1e-7F, 0.1F, 1.0F, 3.14159F, 12345.678F, 3e38F};

// Multiples of 15 degrees, where results are exact or nearly 0, and others, up to many turns.
template <class Use>
void ForEachPhase(Use use)
{
    for (int degrees = -720; degrees <= 720; degrees += 15) {
        use(static_cast<float>(degrees));
        use(static_cast<float>(degrees) + 0.0009765625F);
        use(static_cast<float>(degrees) - 0.0009765625F);
    }
    for (int i = 0; i < 100; ++i) use(static_cast<float>(i * i * i) * 1.37F);
}

constexpr float Parts[] = {0.0F, 1e-38F, 1e-20F, 0.001F, 0.5F, 1.0F, 1.0000001F, 2.5F, 100.0F, 65536.0F, 1e20F, 3e38F};

void CheckRealAndImaginary(const clsQOR_File& file)
{
    Checksum sum;
    for (const float magnitude : Magnitudes) {
        ForEachPhase([&](float phase) {
            sum.Add(file.GetRealValueFrom(magnitude, phase));
            sum.Add(file.GetImaginaryValueFrom(magnitude, phase));
        });
    }
    CheckEqual(sum.Value(), RealAndImaginary, "real and imaginary parts have the bits that they have everywhere");
}

void CheckMagnitudeAndPhase(const clsQOR_File& file)
{
    Checksum sum;
    for (const float re : Parts) {
        for (const float im : Parts) {
            for (const auto& [real, imaginary] : {std::pair(re, im), {-re, im}, {re, -im}, {-re, -im}}) {
                sum.Add(file.GetMagnitudeValueFrom(real, imaginary));
                sum.Add(file.GetPhaseValueFrom(real, imaginary, false));
                sum.Add(file.GetPhaseValueFrom(real, imaginary, true));
                sum.Add(file.GetPhaseValueFrom(double{real}, double{imaginary}, false)); // a quotient in double
            }
        }
    }
    CheckEqual(sum.Value(), MagnitudeAndPhase, "magnitudes and phases have the bits that they have everywhere");
}

} // namespace

void CheckConversions()
{
    const clsQOR_File file;
    CheckRealAndImaginary(file);
    CheckMagnitudeAndPhase(file);
}

} // namespace qor::test
