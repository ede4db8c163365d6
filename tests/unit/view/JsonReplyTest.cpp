// SPDX-License-Identifier: Apache-2.0
#include "view/JsonReply.h"

#include <gtest/gtest.h>

namespace {

TEST(JsonReply, OneMemberOfEachKind) {
    EXPECT_EQ(formatSimpleJsonObject("returnValue", true), "{ \"returnValue\": true }");
    EXPECT_EQ(formatSimpleJsonObject("returnValue", false), "{ \"returnValue\": false }");
    EXPECT_EQ(formatSimpleJsonObject("resultcount", -7), "{ \"resultcount\": -7 }");
    EXPECT_EQ(formatSimpleJsonObject("note", "a \"b\""), "{ \"note\": \"a \\\"b\\\"\" }");
}

TEST(JsonReply, NullTextAndNullKeyAreEmpty) {
    EXPECT_EQ(formatSimpleJsonObject("note", nullptr), "{ \"note\": \"\" }");
    EXPECT_EQ(formatSimpleJsonObject(nullptr, "x"), "{ \"\": \"x\" }");
}

TEST(JsonReply, NoObjectIsTheEmptyText) {
    EXPECT_EQ(jsonText(JsonOwner()), "");
}

} // namespace
