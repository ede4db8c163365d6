// SPDX-License-Identifier: Apache-2.0
// Whole words in the text of a cell.
#include "engine/layout/WholeWords.h"

#include <gtest/gtest.h>

namespace lectern::engine::test {

TEST(WholeWords, EndWhereAWordEnds) {
    EXPECT_TRUE(hasWholeWords(u"the tide", u"tide", false));
    EXPECT_TRUE(hasWholeWords(u"tide", u"tide", false));
    EXPECT_TRUE(hasWholeWords(u"(tide)", u"tide", false));
    EXPECT_FALSE(hasWholeWords(u"tides", u"tide", false));
    EXPECT_FALSE(hasWholeWords(u"untide", u"tide", false));
    EXPECT_FALSE(hasWholeWords(u"tide2", u"tide", false));
    EXPECT_FALSE(hasWholeWords(u"high", u"tide", false));
}

TEST(WholeWords, MayComeBehindAPartOfAWord) {
    EXPECT_TRUE(hasWholeWords(u"tides, then a tide", u"tide", false));
    EXPECT_TRUE(hasWholeWords(u"xa a a", u"a a", false)) << "the hits overlap";
}

TEST(WholeWords, RegardCaseOnDemand) {
    EXPECT_TRUE(hasWholeWords(u"Tide", u"tide", false));
    EXPECT_FALSE(hasWholeWords(u"Tide", u"tide", true));
    EXPECT_TRUE(hasWholeWords(u"Tide tide", u"tide", true));
}

TEST(WholeWords, AreOfAnyScript) {
    EXPECT_FALSE(hasWholeWords(u"Привет", u"При", false));
    EXPECT_TRUE(hasWholeWords(u"При вет", u"при", false));
    EXPECT_FALSE(hasWholeWords(u"\U00010428\U00010428", u"\U00010428", false))
        << "outside of the basic plane";
    EXPECT_FALSE(hasWholeWords(u"e\u0301", u"e", false)) << "a letter with its mark";
    EXPECT_TRUE(hasWholeWords(u"10 %", u"10 %", false)) << "no letters at the end";
}

TEST(WholeWords, AreNotInTextsThatAreNotValid) {
    EXPECT_FALSE(hasWholeWords(u"a", u"", false));
    EXPECT_FALSE(hasWholeWords(u"", u"a", false));
    EXPECT_FALSE(
        hasWholeWords(std::u16string(1, char16_t{0xD800}), std::u16string(1, char16_t{0xD800}), false));
}

} // namespace lectern::engine::test
