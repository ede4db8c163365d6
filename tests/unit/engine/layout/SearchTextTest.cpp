// SPDX-License-Identifier: Apache-2.0
// Searching a text in memory.
#include "engine/layout/SearchText.h"

#include <gtest/gtest.h>

#include <chrono>

namespace lectern::engine::test {

namespace {

constexpr CharacterRange EVERYTHING{0, UINT32_MAX};

std::vector<CharacterRange> find(std::u16string_view text, std::u16string_view wanted,
                                 CharacterRange bounds = EVERYTHING) {
    return SearchText(text).find(wanted, bounds);
}

using Ranges = std::vector<CharacterRange>;

} // namespace

TEST(SearchText, FindsInOrderWithoutOverlap) {
    EXPECT_EQ(find(u"aaaaa", u"aa"), (Ranges{{0, 2}, {2, 4}}));
    EXPECT_EQ(find(u"abababab", u"abab"), (Ranges{{0, 4}, {4, 8}}));
    EXPECT_EQ(find(u"aabaabaaab", u"aaab"), (Ranges{{6, 10}}));
    EXPECT_EQ(find(u"", u"a"), Ranges());
    EXPECT_EQ(find(u"a", u"a"), (Ranges{{0, 1}}));
}

TEST(SearchText, FoldsCaseInAnyScript) {
    EXPECT_EQ(find(u"ΟΔΟΣ οδος οδός", u"οδοσ"), (Ranges{{0, 4}, {5, 9}}));
    EXPECT_EQ(find(u"ПРИВЕТ", u"привет"), (Ranges{{0, 6}}));
    EXPECT_EQ(find(u"\U00010400", u"\U00010428"), (Ranges{{0, 2}})) << "outside of the basic plane";
    EXPECT_EQ(find(u"İstanbul", u"i\u0307stanbul"), (Ranges{{0, 8}}));
}

TEST(SearchText, PositionsAreThoseOfTheTextWhereFoldingMakesItLonger) {
    EXPECT_EQ(find(u"Maße und Masse", u"MASSE"), (Ranges{{0, 4}, {9, 14}}));
    EXPECT_EQ(find(u"ßßx", u"x"), (Ranges{{2, 3}}));
    EXPECT_EQ(find(u"\uFB03x", u"ffix"), (Ranges{{0, 2}})) << "a ligature";
}

TEST(SearchText, NoHitBeginsOrEndsInsideACharacter) {
    EXPECT_EQ(find(u"ß", u"s"), Ranges());
    EXPECT_EQ(find(u"ßs", u"ss"), (Ranges{{0, 1}}));
    EXPECT_EQ(find(u"sß", u"ss"), (Ranges{{1, 2}}));
}

TEST(SearchText, NoHitReachesIntoTheNextParagraph) {
    EXPECT_EQ(find(u"one\u2029two", u"onetwo"), Ranges());
    EXPECT_EQ(find(u"one\u2029two", u"e\u2029t"), Ranges());
    EXPECT_EQ(find(u"\u2029\u2029one\u2029one", u"one"), (Ranges{{2, 5}, {6, 9}}));
}

TEST(SearchText, BoundsLimitTheHits) {
    EXPECT_EQ(find(u"one one one", u"one", {1, 11}), (Ranges{{4, 7}, {8, 11}}));
    EXPECT_EQ(find(u"one one one", u"one", {4, 10}), (Ranges{{4, 7}}));
    EXPECT_EQ(find(u"one", u"one", {2, 1}), Ranges());
}

TEST(SearchText, NothingIsFoundByWhatIsNoText) {
    const std::u16string text = u"a\xD800 b\xDC00";
    EXPECT_EQ(find(text, u""), Ranges());
    EXPECT_EQ(find(text, std::u16string(1, char16_t{0xD800})), Ranges());
    EXPECT_EQ(find(text, std::u16string(1, char16_t{0xDC00})), Ranges());
    EXPECT_EQ(find(text, u"a"), (Ranges{{0, 1}})) << "though the text itself is broken";
}

// Half a megabyte of one letter, and a pattern that matches except for its end:
// comparing it at every position would take hours.
TEST(SearchText, TakesTimeInProportionToTheTextWhateverItHolds) {
    const std::u16string text(500'000, u'a');
    const std::u16string wanted = std::u16string(100'000, u'a') + u'b';
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(find(text, wanted), Ranges());
    EXPECT_EQ(find(text + u"ß", wanted), Ranges());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

} // namespace lectern::engine::test
