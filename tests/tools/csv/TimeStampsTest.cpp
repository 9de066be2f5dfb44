// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/TimeStamps.h"

#include <gtest/gtest.h>

namespace {

using namespace qor::tool;

double Between(std::string_view first, std::string_view later)
{
    return SecondsBetween(ParseTimeStamp(first).value(), ParseTimeStamp(later).value());
}

TEST(ParseTimeStamp, ReadsDateTimeAndFraction)
{
    const auto stamp = ParseTimeStamp("1970-01-02 00:00:01.250");

    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->seconds, 86401);
    EXPECT_EQ(stamp->nanoseconds, 250000000);
    EXPECT_EQ(stamp->fractionDigits, 3);
}

TEST(ParseTimeStamp, ReadsTheSameTimeInEveryForm)
{
    for (const char* text : {"2013/08/30 09:18:17.7", "2013-08-30T09:18:17.7", "2013/8/30 9:18:17,700",
                             "2013-08-30T09:18:17.7Z", "2013-08-30T11:18:17.7+02:00", "2013-08-30 04:48:17.7-0430"}) {
        ASSERT_TRUE(ParseTimeStamp(text)) << text;
        EXPECT_EQ(Between("2013-08-30 09:18:17.7", text), 0) << text;
    }
}

TEST(ParseTimeStamp, TakesATimeWithoutSeconds) { EXPECT_EQ(Between("2024-01-01 10:00", "2024-01-01 10:01:00"), 60); }

TEST(ParseTimeStamp, RefusesWhatIsNoTimeStamp)
{
    for (const char* text :
         {"", "5", "2022-11-04", "08:36:24", "2022-11-04 08:36:24.", "2022-11-04 08:36:24x", "2022-11/04 08:36:24",
          "22-11-04 08:36:24", "04.11.2022 08:36:24", "2022-11-04 08:36:24+", "2022-11-04  08:36:24"}) {
        EXPECT_FALSE(ParseTimeStamp(text)) << text;
    }
}

TEST(ParseTimeStamp, RefusesDaysAndTimesThatDoNotExist)
{
    for (const char* text : {"2022-13-01 00:00:00", "2023-02-29 00:00:00", "2022-01-01 24:00:00", "2022-01-01 00:60:00",
                             "2022-01-01 00:00:61", "2022-01-01 00:00:00+15:00"}) {
        EXPECT_FALSE(ParseTimeStamp(text)) << text;
    }
}

TEST(SecondsBetween, CountsOverTheLeapDay) { EXPECT_EQ(Between("2024-02-28 00:00:00", "2024-03-01 00:00:00"), 172800); }

TEST(SecondsBetween, GivesTheDoubleNearestToMilliseconds)
{
    EXPECT_EQ(Between("2022-11-04 08:36:24.897", "2022-11-04 08:36:25.007"), 0.11);
}

TEST(SecondsBetween, SeesNanoseconds)
{
    EXPECT_DOUBLE_EQ(Between("2022-11-04 08:36:24.999999999", "2022-11-04 08:36:25.000000001"), 2e-9);
}

TEST(SecondsBetween, IsNegativeForAnEarlierTime)
{
    EXPECT_EQ(Between("2022-11-04 08:36:25.0", "2022-11-04 08:36:24.5"), -0.5);
}

} // namespace
