// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/Text.h"

#include <gtest/gtest.h>

namespace {

using namespace qor::tool;
using namespace std::string_literals;

TEST(Shown, KeepsLettersOfAnyScript) { EXPECT_EQ(Shown(u"Brücke 橋 😀"), "Brücke 橋 😀"); }

TEST(Shown, ReplacesControlCharactersOfBothRanges)
{
    EXPECT_EQ(Shown(u"a\x1B[2Jb\x9B"
                    "c\x7F\r\n\t"),
              "a\uFFFD[2Jb\uFFFDc\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Shown, ReplacesCharactersThatReorderText) { EXPECT_EQ(Shown(u"a\u202Eb\u2066"), "a\uFFFDb\uFFFD"); }

TEST(Shown, ReplacesAnUnpairedSurrogate) { EXPECT_EQ(Shown(u"a\xD800z"), "a\uFFFDz"); }

TEST(Shown, ReplacesEveryByteThatIsNoUtf8) { EXPECT_EQ(Shown("a\xFF\xC3z\xE2\x82"), "a\uFFFD\uFFFDz\uFFFD\uFFFD"); }

TEST(TextOf, TakesUtf8) { EXPECT_EQ(TextOf("µm"), u"µm"); }

TEST(TextOf, TakesBytesThatAreNoUtf8ForWindows1252) { EXPECT_EQ(TextOf("\xB5m \x80"), u"µm €"); }

TEST(Width, CountsCharactersAndNotBytes) { EXPECT_EQ(Width("Trägheit"), 8U); }

TEST(Width, CountsEastAsianCharactersTwiceAndMarksNotAtAll) { EXPECT_EQ(Width("橋e\u0301"), 3U); }

TEST(Shortened, KeepsWhatFits) { EXPECT_EQ(Shortened("Brücke", 6), "Brücke"); }

TEST(Shortened, EndsInDotsWithinTheWidth) { EXPECT_EQ(Shortened("Brückenlager", 6), "Brück…"); }

TEST(SplitHeading, TakesTheBracketsAtTheEndForUnits)
{
    EXPECT_EQ(SplitHeading(" Accel 1 [m/s^2] "), (Heading{"Accel 1", "m/s^2"}));
}

TEST(SplitHeading, LeavesOtherBracketsInTheLabel) { EXPECT_EQ(SplitHeading("A [top] 1"), (Heading{"A [top] 1", ""})); }

TEST(SplitHeading, FindsTheMatchingBracket) { EXPECT_EQ(SplitHeading("A [b] [c[d]]"), (Heading{"A [b]", "c[d]"})); }

TEST(SplitHeading, LeavesALoneBracketInTheLabel) { EXPECT_EQ(SplitHeading("A]"), (Heading{"A]", ""})); }

TEST(JoinHeading, SplitsIntoTheSameTwoAgain)
{
    for (const Heading& heading : {Heading{"A", "g"}, Heading{"A", ""}, Heading{"A [x]", ""}, Heading{"", "g"}}) {
        EXPECT_EQ(SplitHeading(JoinHeading(heading)), heading);
    }
}

TEST(Grouped, SeparatesThousands)
{
    EXPECT_EQ(Grouped(0), "0");
    EXPECT_EQ(Grouped(999), "999");
    EXPECT_EQ(Grouped(1002003), "1,002,003");
    EXPECT_EQ(Grouped(-1234), "-1,234");
}

} // namespace
