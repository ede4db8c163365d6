// SPDX-License-Identifier: Apache-2.0
// Search, the steps from hit to hit, and the current hit's mark.
#include "tests/unit/ppt/PptTest.h"

namespace {

constexpr char NOTHING_COUNTED[] = "{ \"resultcount\": 0 }";
constexpr uint32_t RED = 0x40FF0000;
const std::string REGIONS_ASKED = "sstg_get_found_regions()";

class PptSearchTest : public PptTest {
protected:
    // A deck whose slides have hits at these heights, in slide units. A hit is 60
    // x 20 units at x = 100, so 30 x 10 pixels at x = 50 on a fitting surface.
    static std::unique_ptr<TestPpt> openWithHits(const std::vector<std::vector<int>>& heights,
                                                 int width = 320, int height = 480) {
        fakeSlides().slides.resize(heights.size());
        for (size_t i = 0; i < heights.size(); ++i) {
            for (const int y : heights[i]) {
                fakeSlides().slides[i].hits.push_back({{100, y, 60, 20}});
            }
        }
        return openView(width, height);
    }
    static std::string render(int slide, const std::string& size = "320, 240") {
        return "sstg_render_slide(" + std::to_string(slide) + ", 0, " + size + ")";
    }
    // The current slide, and the height of its marked hit in slide units.
    static std::pair<int, int> marked(const TestPpt& view) {
        const sstg_find_region* region = view.currentRegion();
        return {view.mCurrentSlide, region != nullptr
                                        ? static_cast<int>(std::lround(region->rectangles[0].y / view.mScale))
                                        : -1};
    }
    using Mark = std::pair<int, int>;
};

TEST_F(PptSearchTest, FindsOnTheSlideShown) {
    const auto view = openWithHits({{}, {100, 200}, {}});
    view->jumpToSlide(1);
    paint(*view);
    calls();
    notifications(*view);
    EXPECT_EQ(view->doSearch("Wort"), NOTHING_COUNTED);
    EXPECT_THAT(calls(), ElementsAre("sstg_set_highlight_color(128, 192, 255)", "sstg_find(\"Wort\", 0, 2)",
                                     render(1), REGIONS_ASKED));
    EXPECT_EQ(fakeSlides().highlightColor, (std::vector<uint8_t>{128, 192, 255}));
    EXPECT_THAT(notifications(*view), IsEmpty()) << "the caller asks for the paint";
    EXPECT_EQ(marked(*view), Mark(1, 100));
}

TEST_F(PptSearchTest, SurfaceIsRenderedWithTheHitsBeforeRegionsAreAsked) {
    const auto view = openWithHits({{100}});
    paint(*view);
    calls();
    view->doSearch("x");
    EXPECT_FALSE(view->mOffscreenDirty);
    calls();
    paint(*view);
    EXPECT_THAT(calls(), IsEmpty()) << "the paint shows what was rendered";
}

TEST_F(PptSearchTest, FirstHitAtOrBelowTheViewsTopIsTaken) {
    const auto view = openWithHits({{40, 100, 200, 300, 400}}, 320, 100);
    view->zoomTo(1.0);
    view->mScroll.set(100, 250);
    view->doSearch("x");
    EXPECT_EQ(marked(*view), Mark(0, 300));
    view->mScroll.set(100, 90);
    view->doSearch("x");
    EXPECT_EQ(marked(*view), Mark(0, 100));
}

TEST_F(PptSearchTest, HitOutsideTheViewIsBroughtIntoIt) {
    const auto view = openWithHits({{900}}, 320, 200);
    fakeSlides().height = 1000;
    view->zoomTo(0.5);
    fakeSlides().slides[0].hits = {{{600, 430, 30, 10}}};
    view->zoomTo(2.0); // 1280 x 960
    view->doSearch("x");
    const module_rect hit = view->currentRegion()->rectangles[0];
    EXPECT_LE(view->mScroll.x, hit.x);
    EXPECT_GE(view->mScroll.x + 320, hit.x + hit.width);
    EXPECT_LE(view->mScroll.y, hit.y);
    EXPECT_GE(view->mScroll.y + 200, hit.y + hit.height);
    // x: 1230 > 960, so 1230 - 120 - 160. y: the flag disables the lower third's shift.
    EXPECT_EQ(view->mScroll.x, hit.x + hit.width / 2 - 120 - 160);
    EXPECT_EQ(view->mScroll.y, hit.y + hit.height / 2 - 100);
}

TEST_F(PptSearchTest, FirstHitOnAnotherSlideSwitchesToIt) {
    const auto view = openWithHits({{}, {}, {300, 100}, {}});
    paint(*view);
    calls();
    EXPECT_EQ(view->doSearch("x"), NOTHING_COUNTED);
    EXPECT_THAT(calls(), ElementsAre("sstg_set_highlight_color(128, 192, 255)", "sstg_find(\"x\", 0, 3)",
                                     render(0), REGIONS_ASKED, render(2), REGIONS_ASKED));
    EXPECT_THAT(notifications(*view), ElementsAre("7 2"));
    EXPECT_EQ(view->mCurrentResult, 0);
    EXPECT_EQ(marked(*view), Mark(2, 300)) << "the first region, wherever it lies";
}

TEST_F(PptSearchTest, NextSlideWithHitsIsTheOneSwitchedTo) {
    const auto view = openWithHits({{}, {1}, {}, {}, {4}, {}, {6}, {7}});
    view->jumpToSlide(2);
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentSlide, 4);
    view->stopFind();
    view->jumpToSlide(5);
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentSlide, 6);
}

TEST_F(PptSearchTest, NoSlideBehindWithHitsIsTheLastBefore) {
    const auto view = openWithHits({{}, {1}, {2}, {}});
    view->jumpToSlide(3);
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentSlide, 2);
}

TEST_F(PptSearchTest, NoHitsLeaveEverything) {
    const auto view = openWithHits({{}, {}});
    paint(*view);
    notifications(*view);
    EXPECT_EQ(view->doSearch("x"), NOTHING_COUNTED);
    EXPECT_EQ(view->mCurrentResult, -1);
    EXPECT_EQ(view->mCurrentSlide, 0);
    EXPECT_EQ(view->mScroll, CpPoint(0, -120));
    calls();
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(view->previousResult(), 0);
    EXPECT_EQ(view->ReinitSearchRects(), 0);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(PptSearchTest, CountIsNeverTold) {
    const auto view = openWithHits({{1, 2, 3}, {4}});
    fakeSlides().slides[0].noteHits = 5;
    EXPECT_EQ(view->doSearch("x"), NOTHING_COUNTED);
}

TEST_F(PptSearchTest, NextStepsThroughTheSlideAndOnToTheNextWithHits) {
    const auto view = openWithHits({{100, 300}, {}, {200}, {50, 60}});
    view->doSearch("x");
    ASSERT_EQ(marked(*view), Mark(0, 100));
    calls();
    notifications(*view);
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(0, 300));
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(2, 200));
    EXPECT_THAT(calls(), ElementsAre(render(2), REGIONS_ASKED));
    EXPECT_THAT(notifications(*view), ElementsAre("7 2"));
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(3, 50));
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(3, 60));
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(0, 100)) << "around to the first";
    EXPECT_THAT(notifications(*view), ElementsAre("7 3", "7 0"));
}

TEST_F(PptSearchTest, PreviousStepsBackAndAroundToTheLast) {
    const auto view = openWithHits({{}, {100}, {}, {50, 60}});
    view->doSearch("x");
    ASSERT_EQ(marked(*view), Mark(1, 100));
    notifications(*view);
    calls();
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(3, 60));
    EXPECT_THAT(calls(), ElementsAre(render(3), REGIONS_ASKED));
    EXPECT_THAT(notifications(*view), ElementsAre("7 3"));
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(3, 50));
    EXPECT_THAT(calls(), IsEmpty());
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(1, 100));
}

TEST_F(PptSearchTest, SearchStartedOnALaterSlideGoesOnFromThere) {
    const auto view = openWithHits({{10}, {20}, {30}});
    view->jumpToSlide(2);
    view->doSearch("x");
    ASSERT_EQ(marked(*view), Mark(2, 30));
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(0, 10));
    view->jumpToSlide(1);
    view->doSearch("x");
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(0, 10));
}

TEST_F(PptSearchTest, OnlySlideWithHitsIsJumpedToAgain) {
    const auto view = openWithHits({{100}});
    view->doSearch("x");
    notifications(*view);
    calls();
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(0, 100));
    EXPECT_THAT(notifications(*view), ElementsAre("7 0"));
    EXPECT_THAT(calls(), ElementsAre(render(0), REGIONS_ASKED));
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(0, 100));
}

TEST_F(PptSearchTest, StepsBringTheHitIntoView) {
    fakeSlides().slides[0].hits = {{{300, 20, 60, 20}}, {{300, 400, 60, 20}}};
    const auto view = openView(320, 200);
    view->zoomTo(2.0);
    view->mScroll.set(0, 700);
    view->doSearch("x");
    // At (600, 800), 120 x 40, on 1280 x 960. With the flag the lower third is not
    // shifted.
    ASSERT_EQ(marked(*view), Mark(0, 400));
    EXPECT_EQ(view->mScroll, CpPoint(660 - 160, 820 - 100));
    view->previousResult();
    // At (600, 40). Without the flag the upper third is not shifted.
    EXPECT_EQ(view->mScroll, CpPoint(500, 60 - 100));
    view->mScroll.set(500, 500);
    view->previousResult(); // wraps around; without the flag the lower third is shifted
    EXPECT_EQ(view->mScroll, CpPoint(500, 820 - (75 - 45) - 100));
    view->nextResult(); // wraps around; with the flag the upper third is shifted
    EXPECT_EQ(view->mScroll, CpPoint(500, 60 + 75 - 100));
}

TEST_F(PptSearchTest, HitInNotesOnlyIsASlideWithoutAMark) {
    const auto view = openWithHits({{}, {}, {300}});
    fakeSlides().slides[1].noteHits = 2;
    view->doSearch("x");
    EXPECT_EQ(view->mCurrentSlide, 1);
    EXPECT_EQ(marked(*view), Mark(1, -1));
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(2, 300));
    view->nextResult();
    EXPECT_EQ(marked(*view), Mark(1, -1));
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(2, 300));
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(1, -1));
    view->previousResult();
    EXPECT_EQ(marked(*view), Mark(2, 300)) << "not stuck";
}

TEST_F(PptSearchTest, MarkIsTranslucentRedOnEveryRectangle) {
    const auto view = openWithHits({{}});
    fakeSlides().slides[0].hits = {{{20, 20, 40, 40}, {300, 200, 100, 60}}};
    view->doSearch("x");
    Frame frame = paint(*view);
    ASSERT_EQ(view->mScroll, CpPoint(0, -120));
    for (int row = 0; row < 480; ++row) {
        for (int column = 0; column < 320; ++column) {
            const int y = row - 120;
            const bool first = column >= 10 && column < 30 && y >= 10 && y < 30;
            const bool second = column >= 150 && column < 200 && y >= 100 && y < 130;
            const uint32_t pixel = slidePixel(*view, column, row);
            ASSERT_EQ(frame[row * 320 + column], first || second ? blended(pixel, RED) : pixel)
                << column << ", " << row;
        }
    }
}

TEST_F(PptSearchTest, OnlyTheCurrentHitIsMarkedAndScrollsAlong) {
    const auto view = openWithHits({{100, 300}});
    view->zoomTo(1.0);
    view->doSearch("x");
    view->nextResult();
    view->mScroll.set(37, 0);
    ASSERT_EQ(marked(*view), Mark(0, 300));
    Frame frame = paint(*view);
    EXPECT_EQ(frame[305 * 320 + 70], blended(fakeSlidePixel(0, 107, 305), RED));
    EXPECT_EQ(frame[105 * 320 + 70], fakeSlidePixel(0, 107, 105));
}

TEST_F(PptSearchTest, SlideWhoseInfoHasNoHitsOfItsOwnIsNotMarked) {
    const auto view = openWithHits({{100}});
    fakeSlides().infos = {{0, 0, 3}};
    view->doSearch("x");
    Frame frame = paint(*view);
    expectSlide(*view, frame);
}

TEST_F(PptSearchTest, ZoomFindsTheHitAgain) {
    const auto view = openWithHits({{40, 100, 400}});
    view->doSearch("x");
    view->nextResult();
    ASSERT_EQ(marked(*view), Mark(0, 100));
    calls();
    view->handleDoubleClick(160, 240);
    EXPECT_THAT(calls(), ElementsAre(render(0, "800, 600"), REGIONS_ASKED));
    EXPECT_EQ(marked(*view), Mark(0, 100));
    paint(*view);
    EXPECT_THAT(calls(), IsEmpty());
    view->mScroll.set(0, 10000);
    view->ReinitSearchRects();
    EXPECT_THAT(calls(), ElementsAre(REGIONS_ASKED));
    EXPECT_EQ(view->mScroll.y, 125 + 12 + 180 - 240) << "in view again, with the flag";
}

TEST_F(PptSearchTest, ClosingForgetsTheHits) {
    const auto view = openWithHits({{100, 200}});
    view->doSearch("x");
    paint(*view);
    calls();
    EXPECT_EQ(view->stopFind(), 0);
    EXPECT_THAT(calls(), ElementsAre("sstg_stop_find()"));
    EXPECT_EQ(view->mCurrentResult, -1);
    EXPECT_TRUE(view->mOffscreenDirty) << "the module's own marks go as well";
    view->nextResult();
    view->previousResult();
    view->handleDoubleClick(1, 1);
    Frame frame = paint(*view);
    expectSlide(*view, frame);
    EXPECT_THAT(calls(), ElementsAre(render(0, "800, 600")));
}

TEST_F(PptSearchTest, SmallerSearchLeavesNoStaleHit) {
    const auto view = openWithHits({{10, 20, 30}, {40}});
    view->doSearch("x");
    view->nextResult();
    view->nextResult();
    view->nextResult();
    ASSERT_EQ(view->mCurrentSlide, 1);
    fakeSlides().slides[0].hits.clear();
    fakeSlides().slides[1].hits.clear();
    view->doSearch("y");
    EXPECT_EQ(view->mCurrentResult, -1);
    notifications(*view);
    view->nextResult();
    view->previousResult();
    EXPECT_THAT(notifications(*view), IsEmpty());
    Frame frame = paint(*view);
    expectSlide(*view, frame);
    fakeSlides().slides[0].hits = {{{100, 50, 60, 20}}};
    view->doSearch("z");
    EXPECT_EQ(marked(*view), Mark(0, 50));
}

TEST_F(PptSearchTest, SelectionIsNothingToClear) {
    const auto view = openView();
    EXPECT_EQ(view->clearSelection(), 0);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(PptSearchTest, NullAndBrokenTextsSearchForNothing) {
    const auto view = openView();
    view->doSearch(nullptr);
    view->doSearch("\xff");
    EXPECT_THAT(calls(), testing::Contains("sstg_find(\"\", 0, 0)").Times(2));
}

} // namespace
