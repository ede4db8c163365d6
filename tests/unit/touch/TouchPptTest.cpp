// SPDX-License-Identifier: Apache-2.0
// The place and the zoom of a slide, pages, links and thumbnails.
#include "TouchPptTest.h"

#include <cmath>
#include <limits>

namespace {

TEST_F(TouchPptTest, OpensWithTheWholeSlideInTheMiddle) {
    const auto view = openView();
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_EQ(view->mScroll, CpPoint(0, -120));
    const Frame frame = paint(*view);
    expectSlide(*view, frame);
    EXPECT_TRUE(frame.slackIsUntouched());
    const auto wide = openView(480, 180);
    EXPECT_EQ(surfaceSize(*wide), CpPoint(240, 180)) << "as high as the view";
    EXPECT_EQ(wide->mScroll, CpPoint(-120, 0));
}

TEST_F(TouchPptTest, SlideIsNeverLargerThanAViewOfOddSize) {
    for (const auto& [width, height] : {std::pair(321, 481), std::pair(359, 640), std::pair(641, 201)}) {
        const auto view = openView(width, height);
        EXPECT_LE(surfaceSize(*view).x, width);
        EXPECT_LE(surfaceSize(*view).y, height);
    }
}

TEST_F(TouchPptTest, ZoomIsThatOfTheScreen) {
    const auto view = openView();
    const ViewPlace place = view->place();
    EXPECT_EQ(place.fit, 0.25) << "half a pixel for 1/72 inch, of which the screen has two";
    EXPECT_EQ(place.zoom, 0.25);
    EXPECT_EQ(place.smallestZoom, 0.25);
    EXPECT_LE(place.largestZoom, 8.0);
    EXPECT_GT(place.largestZoom, 3.0) << "as far as 64 MiB reach";
    view->zoomTo(1.0, {160, 240});
    EXPECT_EQ(view->mScale, 2.0);
    EXPECT_EQ(view->place().documentWidth, 1280);
    view->zoomTo(1e300, {160, 240});
    EXPECT_EQ(view->place().zoom, place.largestZoom);
    EXPECT_LE(static_cast<long long>(surfaceSize(*view).x) * surfaceSize(*view).y, 1LL << 24);
    view->zoomTo(1e-300, {160, 240});
    EXPECT_EQ(view->place().zoom, 0.25);
}

TEST_F(TouchPptTest, PlaceTellsTheSlideAndTheView) {
    const auto view = openDeck(3);
    view->goTo(1);
    const ViewPlace place = view->place();
    EXPECT_EQ(place.part, 1);
    EXPECT_EQ(place.parts, 3);
    EXPECT_EQ(place.documentHeight, 240);
    EXPECT_EQ(place.view.Top(), -120);
    EXPECT_EQ(place.view.Height(), 480);
    EXPECT_EQ(place.hit, -1);
    EXPECT_EQ(place.hits, 0);
}

TEST_F(TouchPptTest, FlickToTheSideAtTheFitTurnsThePage) {
    const auto view = openDeck(3);
    view->handleFlick(-900, 300);
    EXPECT_THAT(records(*view), ElementsAre("7 1 0", "0 0 0"));
    view->handleFlick(-900, 300);
    view->handleFlick(-900, 300);
    EXPECT_EQ(view->mCurrentSlide, 2) << "the last slide";
    records(*view);
    view->handleFlick(-900, 0);
    EXPECT_THAT(records(*view), IsEmpty());
    view->handleFlick(900, -300);
    EXPECT_EQ(view->mCurrentSlide, 1);
    view->handleFlick(300, -900);
    EXPECT_EQ(view->mCurrentSlide, 1) << "down the slide";
}

TEST_F(TouchPptTest, FlickOnAZoomedSlideGlides) {
    const auto view = openDeck(2);
    view->zoomTo(1.0, {160, 240});
    view->handleFlick(-1000, 0);
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_TRUE(view->place().isMoving);
    const int from = view->mScroll.x;
    TouchClock::advance(0.2);
    paint(*view);
    EXPECT_NEAR(view->mScroll.x, from + 1000 * 0.33 * (1 - std::exp(-0.2 / 0.33)), 1);
}

TEST_F(TouchPptTest, DragOfMoreThanHalfTheViewTurnsThePage) {
    const auto view = openDeck(3);
    drag(*view, {300, 200}, {150, 210});
    EXPECT_EQ(view->mCurrentSlide, 0) << "too short";
    drag(*view, {300, 200}, {130, 210});
    EXPECT_EQ(view->mCurrentSlide, 1);
    drag(*view, {100, 10}, {280, 470});
    EXPECT_EQ(view->mCurrentSlide, 1) << "rather down than to the side";
    drag(*view, {100, 10}, {280, 20});
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_EQ(view->mScroll, CpPoint(0, -120)) << "the slide stays in the middle";
}

TEST_F(TouchPptTest, OneContactTurnsOnePage) {
    const auto view = openDeck(4);
    drag(*view, {300, 200}, {100, 200});
    view->handleFlick(-900, 0); // of the same contact; the queue was faster than the bus
    EXPECT_EQ(view->mCurrentSlide, 1);
    view->handleFlick(-900, 0);
    EXPECT_EQ(view->mCurrentSlide, 2);
    view->handlePenDown(300, 200);
    view->handlePenMove(100, 200);
    view->handleFlick(-900, 0);
    view->handlePenUp(100, 200);
    EXPECT_EQ(view->mCurrentSlide, 3);
}

TEST_F(TouchPptTest, DragAtTheFitTellsOnlyHowFarTheFingerIsBeyondTheEdge) {
    const auto view = openDeck(2);
    view->handlePenDown(200, 200);
    view->handlePenMove(150, 200);
    view->handlePenUp(150, 200);
    EXPECT_THAT(records(*view), ElementsAre("11 50 0", "11 0 0"));
    EXPECT_EQ(view->mScroll, CpPoint(0, -120));
}

TEST_F(TouchPptTest, JumpShowsTheWholeSlide) {
    const auto view = openDeck(5);
    view->zoomTo(1.0, {0, 0});
    EXPECT_EQ(view->jumpToSlide(3), 3);
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_EQ(view->mScroll, CpPoint(0, -120));
    EXPECT_EQ(view->jumpToSlide(99), 4);
    EXPECT_EQ(view->jumpToSlide(-1), 0);
}

TEST_F(TouchPptTest, NumbersOfSlidesThatDoNotExistAreRefused) {
    const auto view = openDeck(3);
    records(*view);
    for (const int entry : {-1, 3, INT_MAX, INT_MIN}) {
        EXPECT_EQ(view->goTo(entry), TouchResult::OutOfRange);
    }
    EXPECT_THAT(records(*view), IsEmpty());
    EXPECT_EQ(view->goTo(2), TouchResult::Ok);
    EXPECT_THAT(records(*view), ElementsAre("7 2 0", "0 0 0"));
}

TEST_F(TouchPptTest, OutlineIsTheTitlesOfTheSlides) {
    fakeSlides().slides = {{u"One"}, {u"Zw\u00F6lf"}, {u""}};
    const auto view = openView();
    std::vector<OutlineEntry> entries;
    ASSERT_EQ(view->outline(entries), TouchResult::Ok);
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[1].title, "Zw\u00F6lf");
    EXPECT_EQ(entries[1].part, 1);
    EXPECT_EQ(entries[2].title, "");
}

TEST_F(TouchPptTest, WhatIsUnderTheFingerStaysUnderItInADrag) {
    const auto view = openView();
    view->zoomTo(1.0, {160, 240});
    const CpPoint before = view->mScroll;
    view->handlePenDown(100, 200);
    view->handlePenMove(70, 260);
    EXPECT_EQ(view->mScroll, CpPoint(before.x + 30, before.y - 60));
    view->handlePenMove(-5000, 200);
    EXPECT_EQ(view->mScroll.x, surfaceSize(*view).x - 320) << "the slide's right edge";
}

TEST_F(TouchPptTest, PreviewOfAPinchIsTheFinalPicture) {
    for (const double factor : {1.3, 2.0, 3.7}) {
        const auto view = openView();
        view->zoomTo(0.5, {160, 240});
        paint(*view);
        pinch(*view, 100, 200, 1.0, _PINCH_BEGINS);
        pinch(*view, 130, 240, factor, _PINCH_MOVES);
        const Frame preview = paint(*view);
        const double scale = view->mScale;
        pinch(*view, 130, 240, factor, _PINCH_ENDS);
        const Frame final = paint(*view);
        const double grown = view->mScale / scale;
        EXPECT_NEAR(grown, factor, 1e-6);
        for (int row = 0; row < 480; row += 7) {
            for (int column = 0; column < 320; column += 7) {
                const uint32_t shown = preview.at(column, row);
                const uint32_t is = final.at(column, row);
                ASSERT_EQ(shown == BLACK, is == BLACK);
                if (is != BLACK) {
                    ASSERT_NEAR((shown >> 12 & 0xFFF) * grown, is >> 12 & 0xFFF, 2 + grown);
                    ASSERT_NEAR((shown & 0xFFF) * grown, is & 0xFFF, 2 + grown);
                }
            }
        }
    }
}

TEST_F(TouchPptTest, PointBetweenTheFingersKeepsItsPlaceOnTheSlide) {
    const auto view = openView();
    view->zoomTo(0.75, {160, 240});
    const double x = (view->mScroll.x + 100) / view->mScale;
    const double y = (view->mScroll.y + 200) / view->mScale;
    pinch(*view, 100, 200, 1.0, _PINCH_BEGINS);
    pinch(*view, 120, 210, 1.7, _PINCH_MOVES);
    pinch(*view, 120, 210, 1.7, _PINCH_ENDS);
    EXPECT_NEAR((view->mScroll.x + 120) / view->mScale, x, 2 / view->mScale);
    EXPECT_NEAR((view->mScroll.y + 210) / view->mScale, y, 2 / view->mScale);
}

TEST_F(TouchPptTest, PinchesEndInsideTheLimits) {
    const auto view = openView();
    pinch(*view, 100, 200, 1.0, _PINCH_BEGINS);
    pinch(*view, 100, 200, 0.01, _PINCH_MOVES);
    const Frame preview = paint(*view);
    EXPECT_EQ(preview.at(0, 0), BLACK);
    pinch(*view, 100, 200, 0.01, _PINCH_ENDS);
    EXPECT_EQ(view->mScale, 0.5);
    expectSlide(*view, paint(*view));
    for (const float factor : {1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        pinch(*view, 100, 200, 1.0, _PINCH_BEGINS);
        pinch(*view, INT_MAX, INT_MIN, factor, _PINCH_MOVES);
        paint(*view);
        pinch(*view, INT_MAX, INT_MIN, factor, _PINCH_ENDS);
        expectSlide(*view, paint(*view));
    }
}

TEST_F(TouchPptTest, DoubleTapGoesToTwoAndAHalfTimesTheFitAndBack) {
    const auto view = openView();
    view->handleDoubleClick(80, 240);
    EXPECT_EQ(view->mScale, 1.25);
    EXPECT_NEAR((view->mScroll.x + 80) / view->mScale, 160, 1);
    view->zoomTo(1.0, {160, 240});
    view->handleDoubleClick(80, 240);
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_EQ(view->mScroll, CpPoint(0, -120));
}

TEST_F(TouchPptTest, DoubleTapOnAShapeShowsItsWidth) {
    fakeSlides().slides[0].shapes = {{400, 100, 200, 100}, {10, 10, 4, 4}, {0, 0, 640, 480}};
    const auto view = openView();
    view->handleDoubleClick(250, 195);
    EXPECT_NEAR(view->mScale, 1.6, 1e-9) << "320 pixels for 200 units";
    EXPECT_NEAR(view->mScroll.x, 640, 1);
    view->handleDoubleClick(10, 10);
    view->handleDoubleClick(6, 126);
    EXPECT_EQ(view->mScale, 2.0) << "a small sign: four times the fit";
    view->handleDoubleClick(10, 10);
    view->handleDoubleClick(100, 340);
    EXPECT_EQ(view->mScale, 1.25) << "a ground is not what was tapped";
}

TEST_F(TouchPptTest, TapOnALinkJumpsOrTellsTheClient) {
    fakeSlides().slides.resize(3);
    fakeSlides().slides[0].links = {{{0, 0, 100, 100}, 2},
                                    {{200, 0, 100, 100}, -1, u"https://a.example/\u00E4"}};
    const auto view = openView();
    EXPECT_EQ(view->lastLink(), "");
    EXPECT_FALSE(view->handleClick(300, 300)) << "no link";
    EXPECT_THAT(records(*view), IsEmpty());
    EXPECT_TRUE(view->handleClick(120, 130));
    EXPECT_EQ(view->lastLink(), "https://a.example/\u00E4");
    EXPECT_THAT(records(*view), ElementsAre("1 0 0"));
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_TRUE(view->handleClick(10, 130));
    EXPECT_EQ(view->mCurrentSlide, 2);
    EXPECT_THAT(records(*view), ElementsAre("7 2 0", "0 0 0"));
}

TEST_F(TouchPptTest, ContactThatStopsAGlideFollowsNoLink) {
    fakeSlides().slides[0].links = {{{0, 0, 640, 480}, -1, u"x"}};
    const auto view = openView();
    view->zoomTo(1.0, {160, 240});
    view->handleFlick(500, 0);
    view->handlePenDown(100, 100);
    EXPECT_TRUE(view->handleClick(100, 100));
    EXPECT_EQ(view->lastLink(), "");
}

TEST_F(TouchPptTest, ModuleWithoutOptionalFunctionsDoesWithLess) {
    fakeSlides().slides[0].links = {{{0, 0, 640, 480}, -1, u"x"}};
    const auto view = openView();
    view->mOptional = SlideFunctions(nullptr);
    EXPECT_FALSE(view->handleClick(100, 200));
    view->handleDoubleClick(160, 240);
    EXPECT_EQ(view->mScale, 1.25);
    std::vector<TextLine> lines;
    HitPlace hit;
    EXPECT_EQ(view->visibleText(lines), TouchResult::NotSupported);
    EXPECT_EQ(view->select(SelectUnit::Word, {1, 1}), TouchResult::NotSupported);
    EXPECT_EQ(view->search("x", {true, false}, hit), TouchResult::NotSupported);
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::NothingThere);
}

TEST_F(TouchPptTest, ThumbnailIsTheWholeSlideInTheMiddle) {
    const auto view = openDeck(3);
    paint(*view);
    calls();
    std::vector<uint32_t> pixels(100 * 60, 1);
    ASSERT_EQ(view->thumbnail(2, pixels.data(), 100, 60), TouchResult::Ok);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(2, 0, 80, 60)"));
    EXPECT_EQ(pixels[9], BLACK);
    EXPECT_EQ(pixels[10], fakeSlidePixel(2, 0, 0));
    EXPECT_EQ(pixels[59 * 100 + 89], fakeSlidePixel(2, 79, 59));
    EXPECT_EQ(pixels[59 * 100 + 90], BLACK);
    expectSlide(*view, paint(*view));
    EXPECT_THAT(calls(), IsEmpty()) << "the surface is still good";
    EXPECT_EQ(view->thumbnail(3, pixels.data(), 100, 60), TouchResult::OutOfRange);
    EXPECT_EQ(view->thumbnail(-1, pixels.data(), 100, 60), TouchResult::OutOfRange);
    fakeSlides().results["sstg_render_slide"] = 9;
    EXPECT_EQ(view->thumbnail(0, pixels.data(), 100, 60), TouchResult::Failed);
}

TEST_F(TouchPptTest, AnotherSizeKeepsTheFitOrTheMiddle) {
    const auto view = openView();
    view->resize(480, 320);
    EXPECT_EQ(surfaceSize(*view), CpPoint(426, 320));
    EXPECT_EQ(view->mScroll, CpPoint(-27, 0));
    expectSlide(*view, paint(*view));
    view->zoomTo(1.0, {240, 160});
    view->scrollTo(500, 300);
    view->resize(320, 480);
    EXPECT_EQ(view->mScale, 2.0);
    EXPECT_EQ(view->mScroll, CpPoint(580, 220)) << "the middle stays the middle";
    expectSlide(*view, paint(*view));
}

TEST_F(TouchPptTest, ViewOpensWhereTheRecordSays) {
    const auto view = openDeck(4);
    view->goTo(2);
    view->zoomTo(1.0, {160, 240});
    paint(*view);
    const auto again = reopen(*view);
    EXPECT_EQ(again->mCurrentSlide, 2);
    EXPECT_EQ(again->mScale, 2.0);
    EXPECT_EQ(again->mScroll, view->mScroll);
    fakeSlides().slides.resize(1);
    const auto shorter = reopen(*view);
    EXPECT_EQ(shorter->mCurrentSlide, 0) << "the file has lost its slides";
}

TEST_F(TouchPptTest, NothingMovesNothingAndSendsNothing) {
    const auto view = openDeck(2);
    paint(*view);
    records(*view);
    calls();
    for (int i = 0; i < 5; ++i) {
        TouchClock::advance(0.1);
        paint(*view);
    }
    EXPECT_THAT(records(*view), IsEmpty());
    EXPECT_THAT(calls(), IsEmpty());
}

} // namespace
