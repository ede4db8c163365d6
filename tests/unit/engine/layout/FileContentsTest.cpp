// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/FileContents.h"

#include <gtest/gtest.h>

namespace lectern::engine::test {
namespace {

using namespace std::string_view_literals;

TEST(FileContentsTest, HtmlIsKnownByItsFirstElement) {
    for (const std::string_view head :
         {"<!DOCTYPE html><p>", "\n  <HTML lang=de>", "<html>", "<body>", "<table><tr>", "\xEF\xBB\xBF<html>",
          "<?xml version=\"1.0\"?>\n<!DOCTYPE html>", "<!-- saved by hand -->\n<html>"}) {
        EXPECT_EQ(contentsOf(head), FileContents::Html) << head;
    }
    EXPECT_EQ(contentsOf("<\0h\0t\0m\0l\0>\0"sv), FileContents::Html) << "in UTF-16";
}

TEST(FileContentsTest, TextOfAnyEncodingIsText) {
    for (const std::string_view head : {""sv, "plain"sv, "a;b\tc\r\n1,2\f"sv, "caf\xE9"sv, "caf\xC3\xA9"sv,
                                        "h\0i\0"sv, "<!-- only a comment"sv, "a < b, and <html> later"sv}) {
        EXPECT_EQ(contentsOf(head), FileContents::PlainText) << testing::PrintToString(head);
    }
}

TEST(FileContentsTest, WhatTheSuiteKnowsByItselfIsLeftToIt) {
    for (const std::string_view head : {"PK\x03\x04 package"sv, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0\0\0"sv,
                                        "{\\rtf1 text}"sv, "<?xml version=\"1.0\"?><office:document>"sv,
                                        "\x7F"
                                        "ELF\x02\x01\x01\0\0\0"sv}) {
        EXPECT_EQ(contentsOf(head), FileContents::Other) << testing::PrintToString(head);
    }
}

TEST(FileContentsTest, TextMayHoldAFewControlCharacters) {
    EXPECT_EQ(contentsOf(std::string(199, 'a') + '\x1A'), FileContents::PlainText);
    EXPECT_EQ(contentsOf(std::string(100, 'a') + '\x1A'), FileContents::Other);
}

} // namespace
} // namespace lectern::engine::test
