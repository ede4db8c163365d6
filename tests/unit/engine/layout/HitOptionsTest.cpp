// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/HitOptions.h"

#include "engine/layout/SearchText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lectern::engine {
namespace {

std::vector<uint32_t> starts(const std::u16string& text, const std::u16string& wanted, int32_t flags) {
    std::vector<uint32_t> found;
    const auto length = static_cast<uint32_t>(text.size());
    for (const CharacterRange& hit : SearchText(text).find(wanted, {0, length}, [&](CharacterRange range) {
             return isWantedHit(text, wanted, range, flags);
         })) {
        found.push_back(hit.start);
    }
    return found;
}

using Starts = std::vector<uint32_t>;

TEST(HitOptions, CountCaseOnlyWhereItIsAsked) {
    EXPECT_EQ(starts(u"Rope rope ROPE", u"rope", 0), (Starts{0, 5, 10}));
    EXPECT_EQ(starts(u"Rope rope ROPE", u"rope", MATCH_CASE), (Starts{5}));
    EXPECT_EQ(starts(u"stra\u00dfe strasse", u"strasse", MATCH_CASE), (Starts{7}));
}

TEST(HitOptions, AHitThatDoesNotCountDoesNotHideTheNext) {
    EXPECT_EQ(starts(u"aAaA", u"Aa", MATCH_CASE), (Starts{1}));
}

TEST(HitOptions, WholeWordsEndAtWhatIsNoLetter) {
    EXPECT_EQ(starts(u"net nets cabinet (net) net2 net", u"net", WHOLE_WORDS), (Starts{0, 18, 28}));
    EXPECT_EQ(starts(u"ne ne\u0301 ne_t", u"ne", WHOLE_WORDS), (Starts{0})) << "marks belong to letters";
    EXPECT_EQ(starts(u"x\U0001D400 \U0001D400", u"x", WHOLE_WORDS), Starts()) << "a letter of two units";
    EXPECT_EQ(starts(u"a b c", u"b ", WHOLE_WORDS), (Starts{2}));
    EXPECT_EQ(starts(u"Net net", u"net", WHOLE_WORDS | MATCH_CASE), (Starts{4}));
}

} // namespace
} // namespace lectern::engine
