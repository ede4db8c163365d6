// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/TextEncoding.h"

#include <gtest/gtest.h>

namespace lectern::engine::test {
namespace {

using namespace std::string_view_literals;

TEST(TextEncodingTest, AByteOrderMarkDecides) {
    EXPECT_EQ(detectTextEncoding("\xFF\xFE\xE9\xE9"), TextEncoding::Utf16LittleEndian);
    EXPECT_EQ(detectTextEncoding("\xFE\xFF\xE9\xE9"), TextEncoding::Utf16BigEndian);
    EXPECT_EQ(detectTextEncoding("\xEF\xBB\xBF\xC3\xA9"), TextEncoding::Utf8);
}

TEST(TextEncodingTest, ValidUtf8IsThat) {
    EXPECT_EQ(detectTextEncoding(""), TextEncoding::Utf8);
    EXPECT_EQ(detectTextEncoding("plain"), TextEncoding::Utf8);
    EXPECT_EQ(detectTextEncoding("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x93\x84"), TextEncoding::Utf8);
}

TEST(TextEncodingTest, WhatIsNoUtf8IsWesternEuropean) {
    for (const std::string_view bytes : {
             "caf\xE9"sv,          // Latin-1
             "\xC0\xAF"sv,         // overlong
             "\xE0\x80\x80"sv,     // overlong
             "\xED\xA0\x80"sv,     // a surrogate
             "\xF4\x90\x80\x80"sv, // above U+10FFFF
             "\xE2\x82"sv,         // cut off
         }) {
        EXPECT_EQ(detectTextEncoding(bytes), TextEncoding::Windows1252) << testing::PrintToString(bytes);
    }
}

TEST(TextEncodingTest, TheZeroBytesOfWesternTextTellTheOrderOfUtf16) {
    EXPECT_EQ(detectTextEncoding("h\0i\0"sv), TextEncoding::Utf16LittleEndian);
    EXPECT_EQ(detectTextEncoding("\0h\0i"sv), TextEncoding::Utf16BigEndian);
    EXPECT_EQ(detectTextEncoding("h\0i"sv), TextEncoding::Utf8) << "half a unit";
}

TEST(TextEncodingTest, Utf8LosesItsByteOrderMarkAlone) {
    EXPECT_EQ(toUtf8("\xEF\xBB\xBF\xC3\xA9", TextEncoding::Utf8), "\xC3\xA9");
    EXPECT_EQ(toUtf8("a", TextEncoding::Utf8), "a");
}

TEST(TextEncodingTest, Utf16IsReadInBothOrders) {
    EXPECT_EQ(toUtf8("\xFF\xFE"
                     "A\0\xE9\0\xAC\x20"sv,
                     TextEncoding::Utf16LittleEndian),
              "A\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(toUtf8("\xFE\xFF\0A\0\xE9\x20\xAC"sv, TextEncoding::Utf16BigEndian), "A\xC3\xA9\xE2\x82\xAC");
}

TEST(TextEncodingTest, SurrogatesAreReadInPairs) {
    EXPECT_EQ(toUtf8("\x3D\xD8\xC4\xDC"sv, TextEncoding::Utf16LittleEndian), "\xF0\x9F\x93\x84");
    EXPECT_EQ(toUtf8("\x3D\xD8"
                     "A\0"sv,
                     TextEncoding::Utf16LittleEndian),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(toUtf8("\xC4\xDC"
                     "A\0"sv,
                     TextEncoding::Utf16LittleEndian),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(toUtf8("A\0\x3D"sv, TextEncoding::Utf16LittleEndian), "A") << "half a unit";
}

TEST(TextEncodingTest, WesternEuropeanIsReadAsTheCodePageHasIt) {
    EXPECT_EQ(toUtf8("\x80\x9F\xE9", TextEncoding::Windows1252), "\xE2\x82\xAC\xC5\xB8\xC3\xA9");
    EXPECT_EQ(toUtf8("\x81", TextEncoding::Windows1252), "\xC2\x81") << "a code without a character";
}

} // namespace
} // namespace lectern::engine::test
