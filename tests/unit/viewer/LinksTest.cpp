// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Links.h"

#include <gtest/gtest.h>

namespace {

using namespace lectern::viewer;

TEST(Links, MayLeadToTheWebAndToMail) {
    EXPECT_TRUE(mayOpenLink("http://example.org"));
    EXPECT_TRUE(mayOpenLink("https://example.org/a?b#c"));
    EXPECT_TRUE(mayOpenLink("HTTPS://EXAMPLE.ORG"));
    EXPECT_TRUE(mayOpenLink("mailto:ann@example.org"));
}

TEST(Links, MayNotLeadAnywhereElse) {
    for (const char* address : {"", "example.org", "file:///etc/passwd", "javascript:alert(1)", "smb://a/b",
                                "httpx://a", " http://a", "data:text/html,a", "vnd.sun.star.script:a"}) {
        EXPECT_FALSE(mayOpenLink(address)) << address;
    }
}

TEST(Links, AreShownAsTheyAre) {
    EXPECT_EQ(shownLink("https://example.org/Größe?a=b c"), "https://example.org/Größe?a=b c");
}

TEST(Links, ShowNoCharactersThatCannotBeSeen) {
    EXPECT_EQ(shownLink("https://a\n\tb"), "https://a\uFFFD\uFFFDb");
    EXPECT_EQ(shownLink("https://a/\u202Egro.b"), "https://a/\uFFFDgro.b")
        << "turns the direction of writing";
    EXPECT_EQ(shownLink("https://a\xFF/"), "https://a\uFFFD/") << "no UTF-8";
}

TEST(Links, ShowBothEndsOfALongAddress) {
    const std::string start(150, 'a');
    const std::string end(150, 'z');
    EXPECT_EQ(shownLink(start + end), start + end);
    EXPECT_EQ(shownLink(start + "m" + end), start + "\u2026" + end);
}

} // namespace
