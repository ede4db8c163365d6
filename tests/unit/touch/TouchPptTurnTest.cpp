// SPDX-License-Identifier: Apache-2.0
// Presentations with touch manners on devices that are held on their side or upside down.
#include "TouchPptTest.h"
#include "raster/Saturate.h"

namespace {

struct Turned {
    const char* mode;
    bool onItsSide;
    // The pixel of the upright picture, which has w * h pixels, at a pixel of the frame.
    CpPoint (*upright)(int x, int y, int w, int h);
};

const Turned MODES[] = {
    {"right", true, [](int x, int y, int w, int) { return CpPoint(w - 1 - y, x); }},
    {"left", true, [](int x, int y, int, int h) { return CpPoint(y, h - 1 - x); }},
    {"down", false, [](int x, int y, int w, int h) { return CpPoint(w - 1 - x, h - 1 - y); }},
};

class TouchPptTurnTest : public TouchPptTest, public testing::WithParamInterface<Turned> {
protected:
    static CpPoint upright(const TestTouchPpt& view, int x, int y) {
        return GetParam().upright(x, y, view.width(), view.height());
    }
    static void expectTurned(TestTouchPpt& view, int width, int height) {
        Frame frame(width, height);
        view.setDirty();
        view.handlePaintRouter(frame.pixels());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const CpPoint at = upright(view, x, y);
                ASSERT_EQ(frame.at(x, y), slidePixel(view, at.x, at.y)) << x << ", " << y;
            }
        }
        EXPECT_TRUE(frame.slackIsUntouched());
    }
};

TEST_P(TouchPptTurnTest, SlideIsWholeAndInTheMiddle) {
    const auto view = openView();
    view->setFitWideMode(GetParam().mode);
    EXPECT_EQ(surfaceSize(*view), GetParam().onItsSide ? CpPoint(426, 320) : CpPoint(320, 240));
    expectTurned(*view, 320, 480);
    view->setFitWideMode("");
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 240));
    expectSlide(*view, paint(*view));
}

TEST_P(TouchPptTurnTest, WhatIsUnderTheFingerStaysUnderIt) {
    const auto view = openView();
    view->setFitWideMode(GetParam().mode);
    view->zoomTo(1.0, view->middle());
    const auto slideAt = [&](int x, int y) {
        CpPoint at = upright(*view, x, y);
        at += view->mScroll;
        return at;
    };
    const CpPoint before = slideAt(160, 240);
    view->handlePenDown(160, 240);
    view->handlePenMove(200, 300);
    EXPECT_EQ(slideAt(200, 300), before);
    view->handlePenUp(200, 300);
    expectTurned(*view, 320, 480);
    ClientServerMessage wheel(_SCROLL_BY, 0);
    wheel.x = 5;
    wheel.y = 7;
    const CpPoint there = slideAt(100 + 5, 100 + 7);
    view->handleRecord(wheel);
    EXPECT_EQ(slideAt(100, 100), there);
}

TEST_P(TouchPptTurnTest, PinchAndDoubleTapAreAboutTheirPoint) {
    const auto view = openView();
    view->setFitWideMode(GetParam().mode);
    view->zoomTo(1.0, view->middle());
    const auto unitAt = [&](int x, int y) {
        const CpPoint at = upright(*view, x, y);
        return std::pair((at.x + view->mScroll.x) / view->mScale, (at.y + view->mScroll.y) / view->mScale);
    };
    const auto before = unitAt(120, 200);
    pinch(*view, 120, 200, 1.0, _PINCH_BEGINS);
    pinch(*view, 150, 250, 1.4, _PINCH_MOVES);
    paint(*view);
    pinch(*view, 150, 250, 1.4, _PINCH_ENDS);
    EXPECT_NEAR(unitAt(150, 250).first, before.first, 1.0);
    EXPECT_NEAR(unitAt(150, 250).second, before.second, 1.0);
    view->handleDoubleClick(10, 10);
    const auto tapped = unitAt(150, 250);
    view->handleDoubleClick(150, 250);
    EXPECT_NEAR(unitAt(150, 250).first, tapped.first, 1.0);
    EXPECT_NEAR(unitAt(150, 250).second, tapped.second, 1.0);
}

TEST_P(TouchPptTurnTest, PagesTurnAlongTheSlide) {
    const auto view = openDeck(3);
    view->setFitWideMode(GetParam().mode);
    records(*view);
    // Where a way to the slide's left points on the device.
    const CpPoint origin = upright(*view, 0, 0);
    const CpPoint right = upright(*view, 1, 0);
    const CpPoint down = upright(*view, 0, 1);
    const int vx = origin.x - right.x;
    const int vy = origin.x - down.x;
    view->handleFlick(900 * vx, 900 * vy);
    EXPECT_EQ(view->mCurrentSlide, 1);
    view->handleFlick(-900 * vx, -900 * vy);
    EXPECT_EQ(view->mCurrentSlide, 0);
    view->handleFlick(900 * vy, 900 * vx);
    EXPECT_EQ(view->mCurrentSlide, 0);
    records(*view);
    drag(*view, {160, 240}, {160 + 50 * vx, 240 + 50 * vy});
    EXPECT_THAT(records(*view),
                ElementsAre("11 " + std::to_string(-50 * vx) + " " + std::to_string(-50 * vy), "11 0 0"));
}

TEST_P(TouchPptTurnTest, TapsAndTextsAreInPixelsOfTheDevice) {
    fakeSlides().slides[0].lines = {{u"word", {100, 40, 200, 40}, 0}};
    fakeSlides().slides[0].links = {{{100, 40, 200, 40}, -1, u"x"}};
    const auto view = openView();
    view->setFitWideMode(GetParam().mode);
    std::vector<TextLine> lines;
    ASSERT_EQ(view->visibleText(lines), TouchResult::Ok);
    ASSERT_EQ(lines.size(), 1U);
    const CpRect place = lines[0].place;
    const CpPoint middle(place.Left() + place.Width() / 2, place.Top() + place.Height() / 2);
    EXPECT_TRUE(view->handleClick(middle.x, middle.y));
    EXPECT_EQ(view->lastLink(), "x");
    EXPECT_EQ(view->select(SelectUnit::Word, middle), TouchResult::Ok);
    Selection selection;
    ASSERT_EQ(view->selection(selection), TouchResult::Ok);
    EXPECT_EQ(selection.rectangles.at(0).Left(), place.Left());
    EXPECT_EQ(selection.rectangles.at(0).Bottom(), place.Bottom());
}

TEST_P(TouchPptTurnTest, AnotherSizeStaysTurned) {
    const auto view = openView();
    view->setFitWideMode(GetParam().mode);
    view->resize(300, 200);
    expectTurned(*view, 300, 200);
    EXPECT_EQ(view->middle(), CpPoint(150, 100));
}

TEST_P(TouchPptTurnTest, RestIsNotSeen) {
    const auto view = openView();
    view->setFitWideMode(GetParam().mode);
    expectTurned(*view, 320, 480);
    const uint64_t bytes = view->pictureBytes();
    view->rest();
    EXPECT_EQ(view->pictureBytes(), bytes);
    view->wake();
    expectTurned(*view, 320, 480);
}

INSTANTIATE_TEST_SUITE_P(Modes, TouchPptTurnTest, testing::ValuesIn(MODES),
                         [](const auto& test) { return std::string(test.param.mode); });

TEST_F(TouchPptTest, NoTextTurnsToTheRightAndBack) {
    const auto view = openView();
    view->setFitWideMode(nullptr);
    EXPECT_EQ(view->width(), 480);
    view->setFitWideMode(nullptr);
    EXPECT_EQ(view->width(), 320);
    view->setFitWideMode("down");
    view->setFitWideMode(nullptr);
    expectSlide(*view, paint(*view));
}

TEST_F(TouchPptTest, TurningShowsTheWholeSlide) {
    const auto view = openView();
    view->zoomTo(1.0, {160, 240});
    view->setFitWideMode("left");
    EXPECT_EQ(view->place().zoom, view->place().fit);
}

} // namespace
