// SPDX-License-Identifier: Apache-2.0
#include "hub/Utf8Repair.h"

#include <gtest/gtest.h>

#include <string>

namespace {

#define REPLACEMENT "\xEF\xBF\xBD"

std::string repaired(const std::string& text) {
    return hub::validUtf8(text).get();
}

TEST(Utf8Repair, ValidTextStaysAsItIs) {
    for (const auto* text : {"", "plain", "Grüße", "日本", "𝄞", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(repaired(text), text);
    }
}

TEST(Utf8Repair, CharacterCutOffAtTheEndIsLeftOut) {
    for (const std::string character : {"é", "日", "𝄞"}) {
        for (size_t kept = 1; kept < character.size(); ++kept) {
            EXPECT_EQ(repaired("ab" + character.substr(0, kept)), "ab");
            EXPECT_EQ(repaired(character + character.substr(0, kept)), character);
            EXPECT_EQ(repaired(character.substr(0, kept)), "");
        }
    }
}

TEST(Utf8Repair, CharacterCutOffElsewhereIsReplacedByteByByte) {
    EXPECT_EQ(repaired("\xE6\x97|"), REPLACEMENT REPLACEMENT "|");
}

TEST(Utf8Repair, OnlyTheLastOfSeveralCutCharactersIsLeftOut) {
    EXPECT_EQ(repaired("a\xF0\x9D\xE6\x97"), "a" REPLACEMENT REPLACEMENT);
}

TEST(Utf8Repair, BytesThatBeginNoCharacterAreReplacedAtTheEndToo) {
    for (const std::string byte : {"\xFF", "\xFE", "\xC0", "\xC1", "\xF5", "\xF8", "\xFD", "\x80", "\xBF"}) {
        EXPECT_EQ(repaired("a" + byte), "a" REPLACEMENT);
    }
}

TEST(Utf8Repair, LooseContinuationBytesAreReplaced) {
    EXPECT_EQ(repaired("\x80\x80\x80\x80"), REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT);
    EXPECT_EQ(repaired("é\xA9"), "é" REPLACEMENT);
}

TEST(Utf8Repair, OverlongFormsAndSurrogatesAreReplaced) {
    EXPECT_EQ(repaired("\xC0\xAF."), REPLACEMENT REPLACEMENT ".");
    EXPECT_EQ(repaired("\xED\xA0\x80."), REPLACEMENT REPLACEMENT REPLACEMENT ".");
    EXPECT_EQ(repaired("\xED\xA0\x80"), REPLACEMENT REPLACEMENT REPLACEMENT) << "not a cut character";
}

TEST(Utf8Repair, EveryTwoByteTextComesOutValid) {
    for (unsigned first = 1; first < 256; ++first) {
        for (unsigned second = 1; second < 256; ++second) {
            const std::string text{static_cast<char>(first), static_cast<char>(second)};
            EXPECT_TRUE(g_utf8_validate(repaired(text).c_str(), -1, nullptr)) << first << ' ' << second;
        }
    }
}

TEST(Utf8Repair, EveryCutOfALongTextKeepsItsWholeCharacters) {
    const std::string text = "aé日𝄞";
    for (size_t length = 0; length <= text.size(); ++length) {
        const std::string result = repaired(text.substr(0, length));
        EXPECT_TRUE(text.starts_with(result)) << length;
        EXPECT_LT(length - result.size(), 4U);
    }
}

} // namespace
