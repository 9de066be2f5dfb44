// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Trigonometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace qor::platform {
namespace {

constexpr double QuarterPi = 0x1.921fb54442d18p-1;
constexpr double HalfPi = 0x1.921fb54442d18p+0;
constexpr double TwoOverPi = 0x1.45f306dc9c883p-1;

// An angle as a multiple of pi/2 and the rest, which is at most pi/4 (and a rounding) away from 0.
struct Reduced {
    unsigned quadrant; // only its two low bits count
    double rest;
    double low; // what the rest lost in rounding
};

// pi/2 in three parts of 33 bits and the remainder: a multiple of a part by up to 20 bits is exact, and so are
// the subtractions wherever they cancel.
Reduced ReduceMedium(double radians)
{
    constexpr double part1 = 0x1.921fb54400000p+0;
    constexpr double part2 = 0x1.0b4611a600000p-34;
    constexpr double part3 = 0x1.3198a2e000000p-69;
    constexpr double part4 = 0x1.b839a252049c1p-104;
    const auto multiple = static_cast<std::int32_t>(radians * TwoOverPi + std::copysign(0.5, radians));
    const double n = multiple;
    const double first = radians - n * part1;
    const double second = first - n * part2;
    const double rest = second - n * part3;
    const double low = ((first - second) - n * part2) + ((second - rest) - n * part3) - n * part4;
    return {static_cast<unsigned>(multiple), rest, low};
}

// Multiplies by the bits of 2/pi that matter: those before them make multiples of 4 quadrants, those behind
// them are too small to show.
Reduced ReduceLarge(double radians)
{
    static constexpr std::array<std::uint32_t, 10> twoOverPi = {0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0,
                                                                0xDB629599, 0x3C439041, 0xFE5163AB, 0xDEBBC561,
                                                                0xB7246E3A, 0x424DD2E0};
    constexpr int windowWords = 6;
    constexpr std::size_t productWords = windowWords + 2;

    int exponent = 0;
    const double mantissa = std::frexp(std::fabs(radians), &exponent);
    const auto integer = static_cast<std::uint64_t>(std::ldexp(mantissa, 53));
    exponent -= 53; // |radians| = integer * 2^exponent

    // The window starts at the bit of weight 2^-(skipped + 1).
    const int skipped = exponent > 2 ? exponent - 2 : 0;
    const auto word = [&](std::size_t index) {
        const std::size_t first = static_cast<std::size_t>(skipped / 32) + index;
        const int shift = skipped % 32;
        const std::uint64_t pair = (std::uint64_t{twoOverPi[first]} << 32) | twoOverPi[first + 1];
        return static_cast<std::uint32_t>((pair << shift) >> 32);
    };

    // The product, least significant word first.
    std::array<std::uint32_t, productWords> product{};
    for (std::size_t k = 0; k < 2; ++k) {
        const std::uint64_t factor = k == 0 ? integer & 0xFFFFFFFF : integer >> 32;
        std::uint64_t carry = 0;
        for (std::size_t i = 0; i < windowWords; ++i) {
            const std::uint64_t sum = factor * word(windowWords - 1 - i) + product[i + k] + carry;
            product[i + k] = static_cast<std::uint32_t>(sum);
            carry = sum >> 32;
        }
        product[windowWords + k] = static_cast<std::uint32_t>(carry);
    }

    // Where the whole quadrants begin, and the 96 bits below as a fraction.
    const int point = 32 * windowWords - (exponent - skipped);
    const auto bitsAt = [&](int low) { // 32 bits from bit low on
        const auto first = static_cast<std::size_t>(low / 32);
        const std::uint64_t upper = first + 1 < product.size() ? product[first + 1] : 0;
        return static_cast<std::uint32_t>(((upper << 32) | product[first]) >> (low % 32));
    };
    unsigned quadrant = bitsAt(point) & 3;
    double rest = 0;
    if (bitsAt(point - 32) >> 31) {
        ++quadrant;
        for (int k = 4; k >= 1; --k) rest -= std::ldexp(static_cast<double>(~bitsAt(point - 32 * k)), -32 * k);
    } else {
        for (int k = 4; k >= 1; --k) rest += std::ldexp(static_cast<double>(bitsAt(point - 32 * k)), -32 * k);
    }
    rest *= HalfPi;
    return radians < 0 ? Reduced{0 - quadrant, -rest, 0} : Reduced{quadrant, rest, 0};
}

Reduced Reduce(double radians)
{
    constexpr double mediumLimit = 1 << 20;
    return std::fabs(radians) < mediumLimit ? ReduceMedium(radians) : ReduceLarge(radians);
}

// Taylor's series, which at pi/4 are exact to a double with these terms, of x and the little that it lost.
double SmallSine(double x, double low)
{
    const double s = x * x;
    double sum = 1.0 / 355687428096000;
    sum = sum * s - 1.0 / 1307674368000;
    sum = sum * s + 1.0 / 6227020800;
    sum = sum * s - 1.0 / 39916800;
    sum = sum * s + 1.0 / 362880;
    sum = sum * s - 1.0 / 5040;
    sum = sum * s + 1.0 / 120;
    sum = sum * s - 1.0 / 6;
    return x == 0 ? x : x + (x * s * sum + low * (1 - 0.5 * s)); // the sum would lose the sign of -0
}

double SmallCosine(double x, double low)
{
    const double s = x * x;
    double sum = 1.0 / 20922789888000;
    sum = sum * s - 1.0 / 87178291200;
    sum = sum * s + 1.0 / 479001600;
    sum = sum * s - 1.0 / 3628800;
    sum = sum * s + 1.0 / 40320;
    sum = sum * s - 1.0 / 720;
    sum = sum * s + 1.0 / 24;
    const double half = 0.5 * s;
    const double leading = 1 - half;
    return leading + (((1 - leading) - half) + (s * s * sum - x * low));
}

// The series of the arctangent, for at most 1/32.
double SmallArcTangent(double x)
{
    const double s = x * x;
    double sum = 0;
    for (int n = 11; n >= 3; n -= 2) sum = (1.0 / n - sum) * s;
    return x - x * sum;
}

// For 0 to 1: through the nearest sixteenth.
double ArcTangentOfFraction(double x)
{
    static constexpr std::array<double, 17> ofSixteenths = {
        0,
        0x1.ff55bb72cfdeap-5,
        0x1.fd5ba9aac2f6ep-4,
        0x1.7b97b4bce5b02p-3,
        0x1.f5b75f92c80ddp-3,
        0x1.362773707ebccp-2,
        0x1.6f61941e4def1p-2,
        0x1.a64eec3cc23fdp-2,
        0x1.dac670561bb4fp-2,
        0x1.0657e94db30d0p-1,
        0x1.1e00babdefeb4p-1,
        0x1.345f01cce37bbp-1,
        0x1.4978fa3269ee1p-1,
        0x1.5d58987169b18p-1,
        0x1.700a7c5784634p-1,
        0x1.819d0b7158a4dp-1,
        QuarterPi,
    };
    const std::int32_t sixteenths = static_cast<std::int32_t>(32 * x + 1) / 2;
    const double near = sixteenths / 16.0;
    return ofSixteenths[static_cast<std::size_t>(sixteenths)] + SmallArcTangent((x - near) / (1 + x * near));
}

} // namespace

SineCosine SineAndCosine(double radians)
{
    // By quadrant. Looked up, not chosen by branches: processors cannot foresee the quadrants of measured phases.
    static constexpr std::array<double, 4> signOfSine = {1, 1, -1, -1};
    static constexpr std::array<double, 4> signOfCosine = {1, -1, -1, 1};

    const auto [multiple, rest, low] = Reduce(radians);
    const std::array<double, 2> values = {SmallSine(rest, low), SmallCosine(rest, low)};
    const unsigned quadrant = multiple & 3;
    return {signOfSine[quadrant] * values[quadrant & 1], signOfCosine[quadrant] * values[(quadrant & 1) ^ 1]};
}

SineCosine SineAndCosineOfDegrees(double degrees)
{
    constexpr double radiansPerDegree = 0.017453292519943278; // 3.14159265358979 / 180
    return SineAndCosine(degrees * radiansPerDegree);
}

double ArcTangent(double value)
{
    // Looked up, as the quadrants above.
    static constexpr std::array<double, 2> start = {0, HalfPi};
    static constexpr std::array<double, 2> direction = {1, -1};

    const double x = std::fabs(value);
    const double fraction = std::min(x, 1.0) / std::max(x, 1.0);
    const std::size_t inverted = x > 1 ? 1 : 0;
    const double angle = start[inverted] + direction[inverted] * ArcTangentOfFraction(fraction);
    return std::copysign(angle, value);
}

} // namespace qor::platform
