// SPDX-License-Identifier: Apache-2.0
#include "touch/SlideText.h"

#include "tests/unit/view/Points.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

namespace {

// Lines whose units are 10 wide and 20 high.
class Lines {
public:
    // From left to right starting at x, or from right to left ending there.
    Lines& line(const std::u16string& text, int x, int y, int paragraph = 0, bool rightToLeft = false) {
        std::vector<module_rect> places;
        for (int i = 0; i < static_cast<int>(text.size()); ++i) {
            places.push_back({rightToLeft ? x - 10 * (i + 1) : x + 10 * i, y, 10, 20});
        }
        mTexts.push_back(text);
        mPlaces.push_back(places);
        mParagraphs.push_back(paragraph);
        return *this;
    }
    SlideText text() const {
        std::vector<sstg_text_line> lines;
        for (size_t i = 0; i < mTexts.size(); ++i) {
            lines.push_back({reinterpret_cast<const uint16_t*>(mTexts[i].data()), mPlaces[i].data(),
                             static_cast<int32_t>(mTexts[i].size()), mParagraphs[i]});
        }
        return SlideText(lines);
    }

private:
    std::vector<std::u16string> mTexts;
    std::vector<std::vector<module_rect>> mPlaces;
    std::vector<int> mParagraphs;
};

TEST(SlideText, UnitsAreFoundNearTheirLine) {
    const SlideText text = Lines().line(u"abc", 100, 50).text();
    EXPECT_EQ(text.unitAt({115, 60}), 1);
    EXPECT_EQ(text.unitAt({90, 60}), 0) << "beside it, within half its height";
    EXPECT_EQ(text.unitAt({115, 79}), 1);
    EXPECT_EQ(text.unitAt({115, 90}), -1);
    EXPECT_EQ(text.unitAt({INT_MAX, INT_MIN}), -1);
    EXPECT_EQ(SlideText().unitAt({0, 0}), -1);
    EXPECT_EQ(SlideText().boundaryAt({0, 0}), -1);
}

TEST(SlideText, WordsEndAtSpacesPunctuationAndLines) {
    const SlideText text = Lines().line(u"a b\u00E4_2, c", 0, 0).line(u"d", 0, 30).text();
    const auto word = [&](int unit) { return text.textOf(text.wordAt(unit)); };
    EXPECT_EQ(word(0), "a");
    EXPECT_EQ(word(3), "b\u00E4_2");
    EXPECT_EQ(word(6), "") << "the comma";
    EXPECT_EQ(word(8), "c");
    EXPECT_EQ(word(9), "d");
}

TEST(SlideText, BoundariesAreThoseNearestToThePoint) {
    const SlideText text = Lines().line(u"abc", 0, 0).line(u"\u05D0\u05D1\u05D2", 30, 50, 1, true).text();
    EXPECT_EQ(text.boundaryAt({3, 10}), 0);
    EXPECT_EQ(text.boundaryAt({7, 10}), 1);
    EXPECT_EQ(text.boundaryAt({500, -500}), 3);
    EXPECT_EQ(text.boundaryAt({28, 60}), 3) << "the start of a line from the right";
    EXPECT_EQ(text.boundaryAt({22, 60}), 4);
    EXPECT_EQ(text.boundaryAt({-9, 60}), 6);
}

TEST(SlideText, PairsAreNotTornApart) {
    const SlideText text = Lines().line(u"x\U0001F600y", 0, 0).text();
    EXPECT_EQ(text.boundaryAt({18, 10}), 3);
    EXPECT_EQ(text.textOf({0, 3}), "x\U0001F600");
    EXPECT_EQ(text.textOf({0, 2}), "x\uFFFD") << "a half has no other form";
}

TEST(SlideText, ParagraphsAreLinesOfTheText) {
    const SlideText text =
        Lines().line(u"one ", 0, 0, 0).line(u"two", 0, 30, 0).line(u"three\u0001four", 0, 60, 1).text();
    EXPECT_EQ(text.textOf(text.all()), "one two\nthree four");
    EXPECT_EQ(text.rectanglesOf({2, 6}).size(), 2U);
    EXPECT_EQ(text.rectanglesOf({2, 6})[0], CpRect(20, 0, 40, 20));
    EXPECT_TRUE(text.rectanglesOf({5, 5}).empty());
}

TEST(SlideText, OnlyLinesWithWordsInTheAreaAreTold) {
    const SlideText text = Lines().line(u"one", 0, 0).line(u" \n", 0, 30).line(u"two", 0, 60).text();
    EXPECT_EQ(text.linesIn(CpRect(0, 0, 100, 100)).size(), 2U);
    EXPECT_EQ(text.linesIn(CpRect(0, 70, 100, 100)).at(0).text, "two");
    EXPECT_TRUE(text.linesIn(CpRect(100, 0, 200, 100)).empty());
}

TEST(SlideText, LinesThatCannotBeAreIgnored) {
    const uint16_t letter[] = {'a', 0};
    const module_rect far{INT_MAX, INT_MAX, INT_MAX, INT_MAX};
    const sstg_text_line lines[] = {
        {nullptr, &far, 1, 0}, {letter, nullptr, 1, 0},    {letter, &far, 0, 0},
        {letter, &far, -1, 0}, {letter, &far, INT_MAX, 0}, {letter, &far, 1, 0},
    };
    const SlideText text(lines);
    EXPECT_EQ(text.textOf(text.all()), "a");
    EXPECT_EQ(text.unitAt({0, 0}), -1);
}

} // namespace
