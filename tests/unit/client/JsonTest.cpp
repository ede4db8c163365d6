// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Json.h"

#include <gtest/gtest.h>

namespace {

using lectern::JsonMembers;

TEST(JsonMembers, ReadBackWhatWasAdded) {
    const std::string text = JsonMembers()
                                 .add("a", 5)
                                 .add("b", true)
                                 .add("c", std::string("\"ü\"\n"))
                                 .addIdentifier("d", 4000000000U)
                                 .text();
    const auto parsed = JsonMembers::parse(text);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->integer("a"), 5);
    EXPECT_TRUE(parsed->has("b"));
    EXPECT_EQ(parsed->string("c"), "\"ü\"\n");
    EXPECT_EQ(parsed->identifier("d"), 4000000000U);
    EXPECT_EQ(parsed->string("d"), "4000000000");
}

TEST(JsonMembers, GiveNothingForMissingMembersAndOtherTypes) {
    const auto parsed = JsonMembers::parse(R"({"a": "5", "b": 5, "c": "", "d": "5x", "e": "4294967296"})");
    ASSERT_TRUE(parsed);
    EXPECT_FALSE(parsed->has("z"));
    EXPECT_EQ(parsed->integer("z"), std::nullopt);
    EXPECT_EQ(parsed->integer("a"), std::nullopt);
    EXPECT_EQ(parsed->string("b"), std::nullopt);
    for (const char* key : {"b", "c", "d", "e"}) {
        EXPECT_EQ(parsed->identifier(key), std::nullopt) << key;
    }
}

TEST(JsonMembers, AreNotParsedFromAnythingButAnObject) {
    for (const char* text : {"", "[]", "5", "null", "{", "returnValue"}) {
        EXPECT_FALSE(JsonMembers::parse(text)) << text;
    }
}

} // namespace
