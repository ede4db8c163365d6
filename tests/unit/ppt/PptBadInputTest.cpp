// SPDX-License-Identifier: Apache-2.0
// Unusual decks and misbehaving modules do no harm.
#include "tests/unit/ppt/PptTest.h"

namespace {

class PptBadInputTest : public PptTest {
protected:
    // Makes every request that a client can make.
    static void exercise(TestPpt& view) {
        for (const int slide : {INT_MIN, -1, 0, 1, INT_MAX}) {
            view.jumpToSlide(slide);
            paint(view);
        }
        for (const int at : {INT_MIN, -1, 0, 100, INT_MAX}) {
            view.handlePenDown(at, at);
            view.handlePenMove(-1, 1);
            view.handlePenUp(at, -1);
            view.handleFlick(at, at);
            paint(view);
            view.handleDoubleClick(at, at);
            paint(view);
            view.handleKeyDown('s', at);
        }
        for (const double scale : {0.5, 3.0, 1e9}) {
            view.handleGestureStart(1.0, 0.0);
            view.handleGestureChange(scale, 0.0);
            paint(view);
            view.handleGestureEnd(1.0, 0.0);
            paint(view);
        }
        for (const char* mode : {"left", "right", "down", "", "left\n", "\xff\xfe"}) {
            view.setFitWideMode(mode);
            if (view.mDrawMode == _NORMAL) {
                EXPECT_TRUE(paint(view).slackIsUntouched());
            } else {
                paint(view);
            }
        }
        view.setFitWideMode(nullptr);
        paint(view);
        view.setFitWideMode(nullptr);
        view.doSearch("x");
        view.nextResult();
        view.previousResult();
        view.ReinitSearchRects();
        paint(view);
        view.stopFind();
        view.getSlideList();
        view.getSlideNote();
        view.getDocProperties();
        view.SaveStateToDataStore();
        view.RestoreStateFromDataStore();
        paint(view);
        EXPECT_TRUE(std::isfinite(view.mScale));
        EXPECT_GT(view.mScale, 0.0);
    }
};

TEST_F(PptBadInputTest, DeckWithoutSlidesOrASizeIsBlack) {
    const auto view = openDeck(0);
    EXPECT_EQ(view->slideCount(), 0);
    EXPECT_EQ(view->mScale, 1.0);
    Frame expected(320, 480);
    expected.fill(BLACK);
    EXPECT_TRUE(paint(*view) == expected);
    EXPECT_THAT(calls(), IsEmpty()) << "there is nothing to render";
    EXPECT_EQ(view->jumpToSlide(5), 0);
    EXPECT_EQ(view->jumpToSlide(-5), 0);
    EXPECT_EQ(view->getSlideNote(), "");
    exercise(*view);
}

TEST_F(PptBadInputTest, SlidesOfAllSizesAreSurvived) {
    constexpr int32_t SIZES[][2] = {{1, 1},       {1, 50000}, {50000, 1},       {50000, 50000},  {INT_MAX, 1},
                                    {1, INT_MAX}, {0, 480},   {640, 0},         {-640, 480},     {640, -480},
                                    {2, 3},       {3, 100},   {INT_MAX, 50000}, {50000, INT_MAX}};
    for (const auto& [width, height] : SIZES) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        fakeSlides().reset();
        fakeSlides().recording = false;
        fakeSlides().slides.resize(2);
        fakeSlides().slides[1].hits = {{{0, 0, 1, 1}}};
        fakeSlides().width = width;
        fakeSlides().height = height;
        const auto view = openView(40, 60);
        const CpPoint size = surfaceSize(*view);
        EXPECT_LE(int64_t{size.x} * size.y * 4, 64 << 20);
        exercise(*view);
    }
}

TEST_F(PptBadInputTest, SmallestSlideFillsTheWidth) {
    fakeSlides().width = 1;
    fakeSlides().height = 1;
    const auto view = openView();
    EXPECT_EQ(view->mScale, 320.0);
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 320));
    Frame frame = paint(*view);
    expectSlide(*view, frame);
}

TEST_F(PptBadInputTest, LargeSlideFillsTheWidth) {
    fakeSlides().width = 50000;
    fakeSlides().height = 50000;
    const auto view = openView();
    EXPECT_EQ(view->mScale, 320.0 / 50000);
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 320));
    Frame frame = paint(*view);
    expectSlide(*view, frame);
}

TEST_F(PptBadInputTest, SlideTooNarrowToBeSeenIsBlack) {
    fakeSlides().width = 50000;
    fakeSlides().height = 1;
    const auto view = openView();
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 0));
    Frame expected(320, 480);
    expected.fill(BLACK);
    EXPECT_TRUE(paint(*view) == expected);
    EXPECT_FALSE(view->mOffscreenDirty);
}

TEST_F(PptBadInputTest, TinyViewsAreSurvived) {
    for (const auto& [width, height] : {std::pair(1, 1), std::pair(1, 200), std::pair(200, 1)}) {
        const auto view = openView(width, height);
        exercise(*view);
    }
}

TEST_F(PptBadInputTest, ModuleThatFailsEveryCallIsSurvived) {
    const auto view = openDeck(3);
    for (const char* name :
         {"sstg_get_slide_count", "sstg_get_slide_dimensions", "sstg_get_slide_title", "sstg_slide_has_note",
          "sstg_get_slide_note", "sstg_render_slide", "sstg_set_highlight_color", "sstg_find",
          "sstg_get_found_regions", "sstg_stop_find", "sstg_get_document_name", "sstg_get_document_author",
          "sstg_get_document_description", "sstg_get_document_creation_date",
          "sstg_get_document_last_saved_date"}) {
        fakeSlides().results[name] = 10;
    }
    exercise(*view);
    const auto another = openDeck(3);
    EXPECT_EQ(another->slideCount(), 0);
    exercise(*another);
}

TEST_F(PptBadInputTest, CountBelowZeroIsNone) {
    fakeSlides().arrayCount = -5;
    const auto view = openDeck(3);
    EXPECT_EQ(view->slideCount(), 0);
    EXPECT_EQ(view->jumpToSlide(2), 0);
    EXPECT_EQ(view->getSlideList(), "");
}

TEST_F(PptBadInputTest, SlidesThatTheModuleDoesNotKnowAreSurvived) {
    fakeSlides().arrayCount = 1000;
    fakeSlides().recording = false;
    const auto view = openDeck(3);
    fakeSlides().slides[2].hits = {{{0, 0, 1, 1}}};
    EXPECT_EQ(view->jumpToSlide(999), 999);
    fakeSlides().arrayCount.reset();
    paint(*view);
    view->doSearch("x");
    view->nextResult();
    EXPECT_EQ(view->getSlideNote(), "");
}

} // namespace
