// SPDX-License-Identifier: Apache-2.0
// Reading text from metafiles, which are built here action by action.
#include "engine/layout/MetafileText.h"

#include <gtest/gtest.h>

#include <random>

namespace lectern::engine {
namespace {

using Bytes = std::vector<unsigned char>;

template<class Number>
void put(Bytes& bytes, Number number) {
    for (std::size_t i = 0; i < sizeof(Number); i++) {
        bytes.push_back(static_cast<unsigned char>(static_cast<std::uint64_t>(number) >> (8 * i)));
    }
}

// Builds a metafile as the suite writes it.
class Metafile {
public:
    Metafile() : mBytes{'V', 'C', 'L', 'M', 'T', 'F'} { putPart({}); }

    Metafile& font(std::int32_t height, std::int16_t orientation = 0) {
        Bytes font;
        put<std::uint16_t>(font, 3);
        font.insert(font.end(), {'A', 'b', 'c'});
        put<std::uint16_t>(font, 0);
        put<std::int32_t>(font, 0);
        put<std::int32_t>(font, height);
        for (int i = 0; i < 9; i++) {
            put<std::uint16_t>(font, 0);
        }
        put<std::int16_t>(font, orientation);
        Bytes action;
        put<std::uint16_t>(action, 4);
        put<std::uint32_t>(action, static_cast<std::uint32_t>(font.size()));
        action.insert(action.end(), font.begin(), font.end());
        return add(138, action);
    }
    // Every unit is 10 wide.
    Metafile& text(std::int32_t x, std::int32_t y, const std::u16string& whole, std::uint16_t first,
                   std::uint16_t count) {
        Bytes action;
        put(action, x);
        put(action, y);
        put<std::uint32_t>(action, static_cast<std::uint32_t>(whole.size()));
        for (const char16_t unit : whole) {
            put<std::uint16_t>(action, unit);
        }
        put(action, first);
        put(action, count);
        put<std::uint32_t>(action, count);
        for (std::int32_t i = 1; i <= count; i++) {
            put<std::int32_t>(action, 10 * i);
        }
        return add(113, action);
    }
    Metafile& comment(const std::string& words) {
        Bytes action;
        put<std::uint16_t>(action, static_cast<std::uint16_t>(words.size()));
        action.insert(action.end(), words.begin(), words.end());
        return add(512, action);
    }
    // The beginning of a link.
    Metafile& link(const std::u16string& address) {
        constexpr std::string_view WORDS = "FIELD_SEQ_BEGIN";
        Bytes action;
        put<std::uint16_t>(action, WORDS.size());
        action.insert(action.end(), WORDS.begin(), WORDS.end());
        put<std::int32_t>(action, 0);
        put<std::uint32_t>(action, static_cast<std::uint32_t>(2 * address.size()));
        for (const char16_t unit : address) {
            put<std::uint16_t>(action, unit);
        }
        return add(512, action);
    }
    Metafile& linkEnd() { return comment("FIELD_SEQ_END"); }
    Metafile& line() { return comment("XTEXT_EOL"); }
    Metafile& paragraph() { return comment("XTEXT_EOP"); }
    Metafile& add(std::uint16_t type, const Bytes& action) {
        put(mBytes, type);
        putPart(action);
        return *this;
    }
    Metafile& number(std::uint16_t type, std::uint32_t value) {
        Bytes action;
        put(action, value);
        return add(type, action);
    }
    const Bytes& bytes() const { return mBytes; }
    DrawnText read() const { return readMetafileText(mBytes); }

private:
    void putPart(const Bytes& part) {
        put<std::uint16_t>(mBytes, 1);
        put<std::uint32_t>(mBytes, static_cast<std::uint32_t>(part.size()));
        mBytes.insert(mBytes.end(), part.begin(), part.end());
    }
    Bytes mBytes;
};

TEST(MetafileText, LinesOfAParagraphAreOneText) {
    const std::u16string words = u"low tide";
    const DrawnText text = Metafile()
                               .font(100)
                               .text(50, 200, words, 0, 4)
                               .line()
                               .text(50, 320, words, 4, 4)
                               .line()
                               .paragraph()
                               .read();
    EXPECT_EQ(text.text, words);
    const std::vector<DrawnBox> boxes = text.boxes({2, 6});
    ASSERT_EQ(boxes.size(), 2U) << "one for each line";
    EXPECT_DOUBLE_EQ(boxes[0].left, 70);
    EXPECT_DOUBLE_EQ(boxes[0].right, 90);
    EXPECT_DOUBLE_EQ(boxes[0].top, 200 - 95);
    EXPECT_DOUBLE_EQ(boxes[0].bottom, 225);
    EXPECT_DOUBLE_EQ(boxes[1].left, 50);
    EXPECT_DOUBLE_EQ(boxes[1].right, 70);
    EXPECT_TRUE(text.boxes({8, 9}).empty());
}

TEST(MetafileText, RunsOfALineShareABox) {
    const std::u16string words = u"ebb and flow";
    const DrawnText text = Metafile()
                               .font(100)
                               .text(0, 100, words, 0, 4)
                               .font(50)
                               .text(40, 100, words, 4, 8)
                               .line()
                               .paragraph()
                               .read();
    const std::vector<DrawnBox> boxes = text.boxes({2, 6});
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_DOUBLE_EQ(boxes[0].left, 20);
    EXPECT_DOUBLE_EQ(boxes[0].right, 60);
    EXPECT_DOUBLE_EQ(boxes[0].top, 5);
}

TEST(MetafileText, LinksAreRangesOfTheText) {
    const std::u16string words = u"see one here";
    const DrawnText text = Metafile()
                               .font(100)
                               .text(0, 100, u"first", 0, 5)
                               .paragraph()
                               .text(0, 200, words, 0, 4)
                               .link(u"https://a.example")
                               .text(40, 200, words, 4, 1)
                               .line()
                               .text(0, 300, words, 5, 2)
                               .linkEnd()
                               .text(20, 300, words, 7, 5)
                               .link(u"") // another field, such as a date
                               .paragraph()
                               .text(0, 400, u"last", 0, 4)
                               .read();
    ASSERT_EQ(text.links.size(), 1U);
    EXPECT_EQ(text.links[0].characters, (CharacterRange{10, 13}));
    EXPECT_EQ(text.text.substr(10, 3), u"one");
    EXPECT_EQ(text.links[0].address, u"https://a.example");
}

TEST(MetafileText, ALinkThroughParagraphsIsOneInEach) {
    const DrawnText text =
        Metafile().font(9).link(u"x").text(0, 9, u"ab", 0, 2).paragraph().text(0, 20, u"cd", 0, 2).read();
    ASSERT_EQ(text.links.size(), 2U);
    EXPECT_EQ(text.links[1].characters, (CharacterRange{3, 5}));
}

TEST(MetafileText, LinesHaveTheirPartOfTheText) {
    const std::u16string words = u"low  tide";
    const DrawnText text = Metafile()
                               .font(100)
                               .text(0, 100, words, 0, 3)
                               .line()
                               .text(0, 200, words, 5, 2)
                               .text(20, 200, words, 7, 2)
                               .line()
                               .paragraph()
                               .text(0, 300, u"ebb", 0, 3)
                               .paragraph()
                               .read();
    const std::vector<DrawnLine> lines = text.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].characters, (CharacterRange{0, 5})) << "with what is not drawn";
    EXPECT_EQ(lines[1].characters, (CharacterRange{5, 9}));
    EXPECT_EQ(lines[1].paragraph, 0);
    EXPECT_EQ(lines[2].characters, (CharacterRange{10, 13}));
    EXPECT_EQ(lines[2].paragraph, 1);
    EXPECT_TRUE(DrawnText().lines().empty());
}

TEST(MetafileText, WhatIsNotDrawnKeepsItsPlaceInTheText) {
    const std::u16string words = u"one\ntwo";
    const DrawnText text =
        Metafile().font(9).text(0, 0, words, 0, 3).line().text(0, 9, words, 4, 3).line().paragraph().read();
    EXPECT_EQ(text.text, words);
}

TEST(MetafileText, ParagraphsAreSeparated) {
    const DrawnText text =
        Metafile().font(9).text(0, 0, u"a", 0, 1).paragraph().text(0, 90, u"b", 0, 1).paragraph().read();
    EXPECT_EQ(text.text, std::u16string(u"a") + PARAGRAPH_SEPARATOR + u"b");
    EXPECT_EQ(text.boxes({0, 3}).size(), 2U);
}

TEST(MetafileText, AShadowIsNoSecondText) {
    Metafile metafile;
    metafile.font(100).text(0, 100, u"tide", 0, 4).paragraph().text(10, 110, u"tide", 0, 4).paragraph();
    EXPECT_EQ(metafile.read().text, u"tide");
    metafile.text(10, 500, u"tide", 0, 4).paragraph();
    EXPECT_EQ(metafile.read().text.size(), 9U) << "the same word elsewhere is one";
}

TEST(MetafileText, TurnedTextHasATurnedBox) {
    const DrawnText up = Metafile().font(100, 900).text(200, 300, u"tide", 0, 4).paragraph().read();
    const std::vector<DrawnBox> boxes = up.boxes({1, 3});
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NEAR(boxes[0].left, 105, 0.01);
    EXPECT_NEAR(boxes[0].right, 225, 0.01);
    EXPECT_NEAR(boxes[0].top, 270, 0.01);
    EXPECT_NEAR(boxes[0].bottom, 290, 0.01);
}

TEST(MetafileText, TextFromTheRightIsCountedFromThere) {
    const DrawnText text =
        Metafile().font(10).number(149, 1).text(0, 10, u"\u05D0\u05D1\u05D2\u05D3", 0, 4).paragraph().read();
    const std::vector<DrawnBox> boxes = text.boxes({0, 1});
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_DOUBLE_EQ(boxes[0].left, 30);
    EXPECT_DOUBLE_EQ(boxes[0].right, 40);
}

TEST(MetafileText, PopBringsTheFontBack) {
    Bytes keepsAll;
    put<std::uint16_t>(keepsAll, 0xFFFF);
    const DrawnText text = Metafile()
                               .font(100)
                               .add(139, keepsAll)
                               .font(7)
                               .add(140, {})
                               .text(0, 0, u"a", 0, 1)
                               .paragraph()
                               .read();
    ASSERT_EQ(text.runs.size(), 1U);
    EXPECT_DOUBLE_EQ(text.runs[0].height, 100);
    EXPECT_TRUE(Metafile().add(140, {}).read().runs.empty()) << "a pop of nothing";
}

TEST(MetafileText, ATruncatedOneGivesWhatCameBefore) {
    const Bytes whole =
        Metafile().font(9).text(0, 0, u"a", 0, 1).paragraph().text(0, 90, u"bc", 0, 2).bytes();
    for (std::size_t length = 0; length < whole.size(); length++) {
        const DrawnText text = readMetafileText(std::span(whole).first(length));
        EXPECT_TRUE(text.text.empty() || text.text == u"a") << length;
    }
}

TEST(MetafileText, NumbersThatCannotBeAreNotFollowed) {
    Bytes action;
    put<std::int32_t>(action, 0);
    put<std::int32_t>(action, 0);
    put<std::uint32_t>(action, 0xFFFFFFFF);
    EXPECT_TRUE(Metafile().add(113, action).read().runs.empty());
    std::mt19937 chance(7);
    const Bytes whole = Metafile().font(9, 10).text(1, 2, u"tide", 1, 3).line().paragraph().bytes();
    for (int round = 0; round < 20000; round++) {
        Bytes bytes = whole;
        for (int change = 0; change < 3; change++) {
            bytes[6 + chance() % (bytes.size() - 6)] = static_cast<unsigned char>(chance());
        }
        const DrawnText text = readMetafileText(bytes);
        for (const TextRun& run : text.runs) {
            ASSERT_LE(run.end(), text.text.size());
        }
        text.boxes({0, static_cast<std::uint32_t>(text.text.size())});
    }
}

} // namespace
} // namespace lectern::engine
