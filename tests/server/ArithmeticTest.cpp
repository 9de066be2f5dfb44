// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Results do not depend on a client's arithmetic settings, and these are the client's own again afterwards.
#include "server/Client.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <vector>
#include <xmmintrin.h>

using namespace qor::test;

namespace {

constexpr unsigned VectorFlags = 0x3F; // raised by any operation, no settings

// SSE's settings and the x87 unit's, which a 32-bit client uses too.
struct Settings {
    const char* name;
    unsigned vector;
    std::uint16_t stack;
};

Settings Present()
{
    std::uint16_t stack = 0;
    __asm__ volatile("fnstcw %0" : "=m"(stack));
    return {"present", _mm_getcsr() & ~VectorFlags, stack};
}

void Set(const Settings& settings)
{
    __asm__ volatile("fnclex\n\tfldcw %0" : : "m"(settings.stack));
    _mm_setcsr(settings.vector);
}

// Every conversion, and samples that are converted on their way in and out.
std::vector<std::uint32_t> ResultsOf(_clsQOR_File* file)
{
    // Made before the settings are changed, so that only the library computes with these.
    static const float values[] = {0.0F,      1.0F,     -1.0F,  0.1F,    1.0F / 3.0F, 3.0e-39F, 1.0e-45F,
                                   -2.0e-40F, 30.0F,    89.9F,  180.0F,  270.01F,     1.0e10F,  3.0e38F,
                                   1.0e-30F,  123.456F, -45.0F, 1.0e20F, 7.0e-20F};
    std::vector<std::uint32_t> bits;
    bits.reserve(5000);
    const auto keep = [&](HRESULT status, const float& result) {
        bits.push_back(static_cast<std::uint32_t>(status));
        bits.push_back(std::bit_cast<std::uint32_t>(result));
    };
    for (const float& first : values) {
        for (const float& second : values) {
            float x = first;
            float y = second;
            float result = 0;
            keep(file->GetMagnitudeValueFrom(&x, &y, &result), result);
            keep(file->GetRealValueFrom(&x, &y, &result), result);
            keep(file->GetImaginaryValueFrom(&x, &y, &result), result);
            VARIANT real{};
            VARIANT imaginary{};
            real.vt = VT_R4;
            real.fltVal = first;
            imaginary.vt = VT_R4;
            imaginary.fltVal = second;
            VARIANT_BOOL to360 = VARIANT_TRUE;
            keep(file->GetPhaseValueFrom(&real, &imaginary, &to360, &result), result);

            long trace = 1;
            long sample = 1;
            ReturnStatus status = Failure;
            keep(file->WriteTraceSampleValue(&trace, &sample, &x, &y, &status), x);
            keep(file->ReadTraceSampleValue(&trace, &sample, &x, &y, &status), x);
            keep(status, y);
        }
    }
    return bits;
}

class Arithmetic : public testing::TestWithParam<Settings>
{
protected:
    Arithmetic() : file_(Create<clsQOR_File, _clsQOR_File>())
    {
        file_->put_DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
        file_->put_DataBlock_NumberOfTraces(1);
        file_->put_DataBlock_NumberOfSamples(1);
    }

    const Apartment apartment_;
    const Held<_clsQOR_File> file_;
};

// 0x1F80: all exceptions masked, round to nearest. 0x6000 and 0x0C00 are the rounding, 0x8040 flushes small numbers
// and takes them for zero, 0x1F80 and 0x3F mask exceptions, 0x0300 is the precision of the x87 unit.
INSTANTIATE_TEST_SUITE_P(Client, Arithmetic,
                         testing::Values(Settings{"Usual", 0x1F80, 0x037F}, Settings{"RoundsDown", 0x3F80, 0x077F},
                                         Settings{"RoundsUp", 0x5F80, 0x0B7F}, Settings{"RoundsToZero", 0x7F80, 0x0F7F},
                                         Settings{"FlushesSmallNumbers", 0x9FC0, 0x037F},
                                         Settings{"ComputesInSinglePrecision", 0x1F80, 0x007F},
                                         Settings{"TrapsEveryException", 0x0000, 0x0340},
                                         Settings{"TrapsAndRoundsAndFlushes", 0xE040, 0x0C40}),
                         [](const auto& settings) { return std::string(settings.param.name); });

} // namespace

TEST_P(Arithmetic, OfTheClientChangesNoResult)
{
    const Settings before = Present();
    const std::vector<std::uint32_t> expected = ResultsOf(file_.Get());

    Set(GetParam());
    const std::vector<std::uint32_t> results = ResultsOf(file_.Get());
    Set(before);

    EXPECT_EQ(results, expected);
}

TEST_P(Arithmetic, OfTheClientIsItsOwnAgain)
{
    const Settings before = Present();

    Set(GetParam());
    ResultsOf(file_.Get());
    const Settings after = Present();
    Set(before);

    EXPECT_EQ(after.vector, GetParam().vector);
    EXPECT_EQ(after.stack, GetParam().stack);
}

TEST_P(Arithmetic, OfTheClientMayFailInAMember)
{
    const Settings before = Present();
    float none = 0;
    ReturnStatus status = Success;
    ReturnStatus ofRefused = Success;
    long trace = 2; // there is one
    long sample = 1;

    Set(GetParam());
    const HRESULT called = file_->ReadTraceSampleValue(&trace, &sample, &none, &none, &status);
    const HRESULT refused = file_->ReadTraceSampleValue(nullptr, &sample, &none, &none, &ofRefused);
    const Settings after = Present();
    Set(before);

    EXPECT_EQ(called, S_OK);
    EXPECT_EQ(status, Failure);
    EXPECT_EQ(refused, E_POINTER);
    EXPECT_EQ(after.vector, GetParam().vector);
    EXPECT_EQ(after.stack, GetParam().stack);
}

// The settings really are such that other results would come out, or none.
TEST(ArithmeticSettings, ChangeWhatAClientComputes)
{
    const Settings before = Present();
    const volatile float one = 1.0F;
    const volatile float three = 3.0F;
    const volatile float small = 3.0e-39F;

    Set({"down", 0x3F80, 0x077F});
    const float down = one / three;
    Set({"up", 0x5F80, 0x0B7F});
    const float up = one / three;
    Set({"flushed", 0x9FC0, 0x037F});
    const float flushed = small * one;
    Set(before);

    EXPECT_LT(down, up);
    EXPECT_EQ(flushed, 0.0F);
}
