// SPDX-License-Identifier: Apache-2.0
// A search while the client shows other slides or sizes, or while the module fails.
#include "tests/unit/ppt/PptTest.h"

namespace {

const std::string REGIONS_ASKED = "sstg_get_found_regions()";

class PptStaleHitsTest : public PptTest {
protected:
    // Hits at 100 on slides 0 and 2, and a second one at 300 on slide 0. The
    // first one is current.
    static std::unique_ptr<TestPpt> searchedView() {
        fakeSlides().slides.resize(4);
        fakeSlides().slides[0].hits = {{{100, 100, 60, 20}}, {{100, 300, 60, 20}}};
        fakeSlides().slides[2].hits = {{{100, 100, 60, 20}}};
        auto view = openView();
        view->doSearch("x");
        paint(*view);
        calls();
        notifications(*view);
        return view;
    }
};

TEST_F(PptStaleHitsTest, SlideShownInBetweenIsNotMarked) {
    const auto view = searchedView();
    ASSERT_NE(view->currentRegion(), nullptr);
    view->jumpToSlide(2);
    EXPECT_EQ(view->currentRegion(), nullptr);
    Frame frame = paint(*view);
    expectSlide(*view, frame);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(2, 0, 320, 240)"));
}

TEST_F(PptStaleHitsTest, StepsGoOnFromTheCurrentHit) {
    const auto view = searchedView();
    view->jumpToSlide(3);
    paint(*view);
    notifications(*view);
    calls();
    view->nextResult();
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_EQ(view->mCurrentResult, 1);
    EXPECT_THAT(notifications(*view), ElementsAre("7 0"));
    EXPECT_THAT(calls(), IsEmpty()) << "its regions are known";
    view->jumpToSlide(3);
    view->nextResult();
    EXPECT_EQ(view->mCurrentSlide, 2) << "there was none behind on slide 0";
    view->jumpToSlide(1);
    view->previousResult();
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_EQ(view->mCurrentResult, 1);
    view->jumpToSlide(1);
    view->previousResult();
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_EQ(view->mCurrentResult, 0);
}

TEST_F(PptStaleHitsTest, HitIsMarkedAgainWhenItsSlideIsBack) {
    const auto view = searchedView();
    const Frame before = paint(*view);
    view->jumpToSlide(1);
    paint(*view);
    view->jumpToSlide(0);
    EXPECT_TRUE(paint(*view) == before);
}

TEST_F(PptStaleHitsTest, ZoomOnAnotherSlideLeavesTheViewAlone) {
    const auto view = searchedView();
    view->jumpToSlide(1);
    view->zoomTo(2.0);
    view->mScroll.set(900, 400);
    calls();
    view->ReinitSearchRects();
    EXPECT_EQ(view->mScroll, CpPoint(900, 400));
    EXPECT_THAT(calls(), IsEmpty());
    view->nextResult();
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 1280, 960)", REGIONS_ASKED));
    EXPECT_EQ(view->currentRegion()->rectangles[0].y, 600);
}

TEST_F(PptStaleHitsTest, RegionsAreFetchedOnceAfterTheSizeChanged) {
    const auto view = searchedView();
    view->zoomTo(1.0);
    view->setFitWideMode("");
    view->zoomTo(1.0);
    paint(*view);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 640, 480)", REGIONS_ASKED));
    EXPECT_EQ(view->currentRegion()->rectangles[0].y, 100);
    paint(*view);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(PptStaleHitsTest, StepAfterAFitWideModeFetchesTheRegionsOfTheNewSize) {
    const auto view = searchedView();
    view->setFitWideMode("right");
    view->nextResult();
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 480, 360)", REGIONS_ASKED));
    EXPECT_EQ(view->currentRegion()->rectangles[0].y, 225);
}

TEST_F(PptStaleHitsTest, RegionsThatCannotBeHadLeaveNoHit) {
    fakeSlides().slides[0].hits = {{{100, 100, 60, 20}}};
    const auto view = openView();
    fakeSlides().nextResults["sstg_get_found_regions"] = {1};
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentResult, -1);
    EXPECT_THAT(notifications(*view), IsEmpty());
    calls();
    view->nextResult();
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(PptStaleHitsTest, FailedSearchFindsNothing) {
    fakeSlides().slides[0].hits = {{{100, 100, 60, 20}}};
    const auto view = openView();
    fakeSlides().nextResults["sstg_find"] = {1};
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 0 }");
    EXPECT_THAT(calls(), testing::Contains(REGIONS_ASKED)) << "the code is not looked at";
    EXPECT_EQ(view->mCurrentResult, -1);
}

TEST_F(PptStaleHitsTest, RegionsThatCannotBeHadAfterAJumpLeaveTheSlideUnmarked) {
    fakeSlides().slides.resize(2);
    fakeSlides().slides[1].hits = {{{100, 100, 60, 20}}};
    const auto view = openView();
    fakeSlides().nextResults["sstg_get_found_regions"] = {0, 1};
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentSlide, 1);
    EXPECT_EQ(view->currentRegion(), nullptr);
    Frame frame = paint(*view);
    expectSlide(*view, frame);
    view->nextResult();
    EXPECT_NE(view->currentRegion(), nullptr) << "the next step asks again";
}

TEST_F(PptStaleHitsTest, RegionsWithoutRectanglesAreSurvived) {
    fakeSlides().slides[0].hits = {{}, {}};
    const auto view = openView();
    view->doSearch("x");
    view->nextResult();
    view->previousResult();
    view->ReinitSearchRects();
    Frame frame = paint(*view);
    expectSlide(*view, frame);
}

TEST_F(PptStaleHitsTest, NullArraysAndCountsBelowZeroAreNone) {
    fakeSlides().slides.resize(2);
    fakeSlides().slides[0].hits = {{{100, 100, 60, 20}}};
    const auto view = openView();
    fakeSlides().nullArrays = true;
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentResult, -1);
    fakeSlides().nullArrays = false;
    fakeSlides().arrayCount = -5;
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentResult, -1);
    view->nextResult();
    view->previousResult();
    Frame frame = paint(*view);
    expectSlide(*view, frame);
}

TEST_F(PptStaleHitsTest, InfosOfSlidesThatDoNotExistAreSurvived) {
    fakeSlides().slides.resize(2);
    fakeSlides().slides[1].hits = {{{100, 100, 60, 20}}};
    const auto view = openView();
    fakeSlides().infos = {{-7, 1, 0}, {99, 1, 0}};
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentSlide, 1);
    EXPECT_EQ(view->currentRegion(), nullptr);
    for (int i = 0; i < 5; ++i) {
        view->nextResult();
        paint(*view);
        view->previousResult();
        view->previousResult();
        paint(*view);
    }
}

TEST_F(PptStaleHitsTest, HugeRectanglesAreSurvived) {
    fakeSlides().slides[0].hits = {{{INT_MAX, INT_MAX, INT_MAX, INT_MAX}},
                                   {{INT_MIN, INT_MIN, INT_MAX, INT_MAX}},
                                   {{-5, -5, 10000, 10000}}};
    fakeSlides().width = 1; // so that a unit is at least a pixel
    fakeSlides().height = 1;
    const auto view = openView();
    view->doSearch("x");
    for (int i = 0; i < 4; ++i) {
        view->nextResult();
        EXPECT_TRUE(paint(*view).slackIsUntouched());
    }
}

} // namespace
