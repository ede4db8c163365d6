// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/LinkText.h"

#include <gtest/gtest.h>

using lectern::gtk4::linkIn;

TEST(LinkText, FindsAddressesThatPeopleWriteIntoTexts) {
    EXPECT_EQ(linkIn("https://example.org/a?b=1"), "https://example.org/a?b=1");
    EXPECT_EQ(linkIn(" mailto:ann@example.org\n"), "mailto:ann@example.org");
    EXPECT_EQ(linkIn("www.example.org"), "https://www.example.org");
}

TEST(LinkText, TakesNothingElseForAnAddress) {
    for (const char* text :
         {"", " ", "harbour", "see https://example.org", "http://", "www.", "javascript:1"}) {
        EXPECT_EQ(linkIn(text), "") << text;
    }
}
