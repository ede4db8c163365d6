// SPDX-License-Identifier: Apache-2.0
// Search and the steps from hit to hit. The text has 5 characters in each row.
#include "tests/unit/word/WordTest.h"

namespace {

const std::string REGIONS_ASKED = "wtg_get_found_regions(0)";
const std::string LAST_USED = "wtg_get_vertical_last_used_pixel(0)";

class WordSearchTest : public WordTest {
protected:
    static std::unique_ptr<TestWord> openWithHits(const std::vector<int>& rows, int width = 320,
                                                  int height = 480) {
        for (const int row : rows) {
            const auto start = static_cast<uint32_t>(5 * row);
            fakeWord().hits.push_back({start, start + 4, 100, 30, 1});
        }
        return openView(width, height, 20000);
    }
    static std::string jump(int row) { return "wtg_jump_to_character(0, " + std::to_string(5 * row) + ")"; }
    // The text row of the hit marked by the view; -1 for none.
    static int64_t markedRow(TestWord& view) {
        const wtg_find_region* region = view.currentRegion();
        return region != nullptr ? fakeWord().layout.top + region->rectangles[0].y : -1;
    }
};

TEST_F(WordSearchTest, CountsTheHitsAndGoesToTheFirst) {
    const auto view = openWithHits({300, 700});
    EXPECT_EQ(view->doSearch("Wort"), "{ \"resultcount\": 2 }");
    EXPECT_THAT(calls(), ElementsAre("wtg_set_highlight_color(128, 192, 255)",
                                     "wtg_find(\"Wort\", 0, 0, 100000)", REGIONS_ASKED));
    EXPECT_EQ(fakeWord().highlightColor, (std::vector<uint8_t>{128, 192, 255}));
    EXPECT_EQ(markedRow(*view), 300);
    EXPECT_EQ(view->mScroll.y, 0) << "it is in view already";
}

TEST_F(WordSearchTest, HitBelowTheViewIsBroughtIntoIt) {
    const auto view = openWithHits({401});
    view->doSearch("x");
    EXPECT_EQ(view->mScroll.y, 391);
    view->stopFind();
    scrollBy(*view, -1000);
    fakeWord().hits = {{5 * 400, 5 * 400 + 4}};
    view->doSearch("x");
    EXPECT_EQ(view->mScroll.y, 0) << "80 rows above the view's end count as in view";
}

TEST_F(WordSearchTest, HitNearTheStretchsEndMovesTheStretch) {
    const auto view = openWithHits({1500});
    view->doSearch("x");
    EXPECT_EQ(view->firstTextRow(), 1490);
    EXPECT_EQ(view->whiteRows(), 0);
    EXPECT_EQ(markedRow(*view), 1500);
}

TEST_F(WordSearchTest, FailureLeavesALineInTheLog) {
    const auto view = openWithHits({300});
    fakeWord().nextResults["wtg_find"] = {1};
    testing::internal::CaptureStderr();
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 0 }");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "doSearch (Word) returnCode = '1'\n");
}

TEST_F(WordSearchTest, NoHitsLeaveEverything) {
    const auto view = openView(320, 480, 20000);
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 0 }");
    EXPECT_EQ(view->mCurrentResult, -1);
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(view->previousResult(), 0);
}

TEST_F(WordSearchTest, FailuresAreNotReportedBeyondTheCount) {
    const auto view = openWithHits({300, 700});
    fakeWord().nextResults["wtg_find"] = {1};
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 0 }");
    EXPECT_THAT(calls(), testing::Not(testing::Contains(REGIONS_ASKED)));
    fakeWord().nextResults["wtg_get_found_regions"] = {1};
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 2 }");
    EXPECT_EQ(view->mCurrentResult, -1);
}

TEST_F(WordSearchTest, NullAndBrokenTextsSearchForNothing) {
    const auto view = openView(320, 480, 20000);
    view->doSearch(nullptr);
    view->doSearch("\xff");
    EXPECT_THAT(calls(), testing::Contains("wtg_find(\"\", 0, 0, 100000)").Times(2));
}

TEST_F(WordSearchTest, HitsOnlyBeyondTheStretchAreJumpedTo) {
    const auto view = openWithHits({5000, 9000, 12000});
    view->doSearch("x");
    EXPECT_THAT(calls(),
                ElementsAre("wtg_set_highlight_color(128, 192, 255)", "wtg_find(\"x\", 0, 0, 100000)",
                            REGIONS_ASKED, jump(5000), LAST_USED, REGIONS_ASKED));
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_EQ(markedRow(*view), 5000);
}

TEST_F(WordSearchTest, LaterSearchBeyondTheStretchStartsAtItsFirstHitToo) {
    const auto view = openWithHits({100, 200, 300});
    view->doSearch("x");
    view->nextResult();
    view->nextResult();
    fakeWord().hits = {{5 * 5000, 5 * 5000 + 4}, {5 * 9000, 5 * 9000 + 4}, {5 * 12000, 5 * 12000 + 4}};
    EXPECT_EQ(view->doSearch("y"), "{ \"resultcount\": 3 }");
    EXPECT_EQ(markedRow(*view), 5000);
    EXPECT_EQ(view->firstTextRow(), 5000);
}

TEST_F(WordSearchTest, NextWithinTheStretchAsksTheModuleNothing) {
    const auto view = openWithHits({100, 200, 900});
    view->doSearch("x");
    calls();
    view->nextResult();
    view->nextResult();
    EXPECT_EQ(markedRow(*view), 900);
    EXPECT_EQ(view->mScroll.y, 890);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordSearchTest, NextBeyondTheStretchJumpsToTheVeryNextHit) {
    const auto view = openWithHits({100, 5000, 9000, 12000, 15000});
    view->doSearch("x");
    for (const int row : {5000, 9000, 12000, 15000}) {
        calls();
        view->nextResult();
        EXPECT_THAT(calls(), ElementsAre(jump(row), LAST_USED, REGIONS_ASKED));
        EXPECT_EQ(markedRow(*view), row);
        EXPECT_EQ(view->firstTextRow(), row);
    }
    calls();
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_THAT(calls(), IsEmpty()) << "no way around to the first";
    EXPECT_EQ(markedRow(*view), 15000);
}

TEST_F(WordSearchTest, PreviousGoesBackAndStopsAtTheFirstTwo) {
    const auto view = openWithHits({2000, 5000, 9000, 12000});
    view->doSearch("x");
    view->nextResult();
    view->nextResult();
    view->nextResult();
    ASSERT_EQ(markedRow(*view), 12000);
    view->previousResult();
    EXPECT_EQ(markedRow(*view), 9000);
    view->previousResult();
    EXPECT_EQ(markedRow(*view), 5000);
    calls();
    EXPECT_EQ(view->previousResult(), 0);
    EXPECT_EQ(markedRow(*view), 5000);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordSearchTest, OneHitStaysPut) {
    const auto view = openWithHits({300});
    view->doSearch("x");
    calls();
    view->nextResult();
    view->previousResult();
    EXPECT_EQ(markedRow(*view), 300);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordSearchTest, PreviousAboveTheViewComesToItsLowerEnd) {
    const auto view = openWithHits({600, 900});
    scrollBy(*view, 700);
    view->doSearch("x");
    ASSERT_EQ(markedRow(*view), 900);
    view->previousResult();
    EXPECT_EQ(markedRow(*view), 600);
    EXPECT_EQ(view->mScroll.y, 600 + 120 - 480);
}

TEST_F(WordSearchTest, PreviousAtTheViewsTopOrBelowStaysWhereItIs) {
    const auto view = openWithHits({600, 900});
    scrollBy(*view, 601);
    for (const int scroll : {600, 50}) {
        view->mScroll.y = 700;
        view->doSearch("x");
        ASSERT_EQ(markedRow(*view), 900);
        view->mScroll.y = scroll; // the hit is the view's first row or after its end
        view->previousResult();
        EXPECT_EQ(markedRow(*view), 600);
        EXPECT_EQ(view->mScroll.y, scroll);
        view->stopFind();
    }
}

TEST_F(WordSearchTest, RowsAreTheDocumentsWhenTheStretchHasMoved) {
    const auto view = openWithHits({1300, 1400, 1900});
    scrollBy(*view, 1100);
    ASSERT_EQ(view->top(), 520);
    view->doSearch("x");
    EXPECT_EQ(view->mScroll.y, 1100);
    view->nextResult();
    view->nextResult();
    EXPECT_EQ(markedRow(*view), 1900);
    EXPECT_EQ(view->mScroll.y, 1890);
    view->previousResult();
    EXPECT_EQ(view->mScroll.y, 1400 + 120 - 480);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordSearchTest, RegionsAreFetchedAgainOnceAfterTheStretchMoved) {
    const auto view = openWithHits({1000, 1900});
    view->doSearch("x");
    scrollBy(*view, 300);
    ASSERT_GT(view->top(), 0);
    calls();
    paint(*view);
    paint(*view);
    EXPECT_THAT(calls(), ElementsAre(REGIONS_ASKED, "wtg_get_top_left_character(0)"));
    EXPECT_EQ(markedRow(*view), 1000);
}

TEST_F(WordSearchTest, HitOutsideTheStretchIsNotMarkedAndStepsGoOnFromIt) {
    const auto view = openWithHits({100, 200, 5000, 9000});
    view->doSearch("x");
    view->nextResult();
    scrollBy(*view, 6000);
    EXPECT_EQ(markedRow(*view), -1);
    const Frame frame = paint(*view);
    for (size_t y = 0; y < 480; ++y) {
        ASSERT_EQ(frame[y * 320 + 110], fakeWordPixel(view->firstTextRow() + static_cast<int64_t>(y), 110));
    }
    view->nextResult();
    EXPECT_EQ(markedRow(*view), 5000);
    scrollBy(*view, 6000);
    view->previousResult();
    EXPECT_EQ(markedRow(*view), 200);
}

TEST_F(WordSearchTest, MarkLiesOnTheHitWithEveryRectangle) {
    fakeWord().hits = {{5 * 1000, 5 * 1000 + 4, 300, 20, 1}, {5 * 1500, 5 * 1500 + 4, 50, 20, 3}};
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1300);
    view->doSearch("x");
    view->nextResult();
    const Frame frame = paint(*view);
    for (int y = 0; y < 480; ++y) {
        for (const int x : {49, 50, 69, 70}) {
            const int64_t row = view->firstTextRow() + y;
            const bool marked = row >= 1500 && row < 1503 && x >= 50 && x < 70;
            const uint32_t seen = frame[static_cast<size_t>(y * 320 + x)];
            ASSERT_EQ(seen != fakeWordPixel(row, x), marked) << x << "," << y;
        }
    }
}

TEST_F(WordSearchTest, MarkMovesWithTheColumnsInWideMode) {
    fakeWord().hits = {{5 * 50, 5 * 50 + 4, 300, 20, 1}};
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    view->mScroll.x = 250;
    view->doSearch("x");
    ASSERT_EQ(view->mScroll.x, 250);
    const int64_t row = markedRow(*view);
    const Frame frame = paint(*view);
    for (const int x : {49, 50, 69, 70}) {
        const uint32_t seen = frame[static_cast<size_t>(row) * 320 + static_cast<size_t>(x)];
        EXPECT_EQ(seen != fakeWordPixel(row, 250 + x), x >= 50 && x < 70) << x;
    }
}

TEST_F(WordSearchTest, MarkIsTranslucentYellow) {
    const auto view = openWithHits({300});
    view->doSearch("x");
    const uint32_t page = fakeWordPixel(300, 100);
    const auto blend = [&](int shift, uint32_t colour) {
        return (((page >> shift & 0xFF) * 191 >> 8) + (colour * 64 >> 8)) << shift;
    };
    EXPECT_EQ(paint(*view)[300 * 320 + 100],
              (page & 0xFF000000) | blend(16, 255) | blend(8, 255) | blend(0, 0));
}

TEST_F(WordSearchTest, ZoomFindsTheHitAgain) {
    const auto view = openWithHits({100, 150, 200});
    view->doSearch("x");
    view->nextResult();
    calls();
    view->handleDoubleClick(100, 150);
    EXPECT_THAT(calls(), testing::Contains(REGIONS_ASKED));
    EXPECT_EQ(markedRow(*view), 150 * 9);
}

TEST_F(WordSearchTest, PinchFindsTheHitAgain) {
    const auto view = openWithHits({100, 150, 200});
    view->doSearch("x");
    view->nextResult();
    view->handleGestureStart(2.0, 0.0);
    paint(*view);
    calls();
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_THAT(calls(), testing::Contains(REGIONS_ASKED));
    EXPECT_EQ(markedRow(*view), 150 * 4);
    EXPECT_LE(view->mScroll.y, 150 * 4);
    EXPECT_LE(150 * 4, 480 + view->mScroll.y - 80) << "and brings it into view";
}

TEST_F(WordSearchTest, ClosingForgetsTheHits) {
    const auto view = openWithHits({100, 150});
    view->doSearch("x");
    ASSERT_NE(paint(*view)[100 * 320 + 100], fakeWordPixel(100, 100));
    calls();
    EXPECT_EQ(view->stopFind(), 0);
    EXPECT_THAT(calls(), ElementsAre("wtg_stop_find()"));
    EXPECT_EQ(view->mCurrentResult, -1);
    view->nextResult();
    view->previousResult();
    EXPECT_EQ(paint(*view)[100 * 320 + 100], fakeWordPixel(100, 100));
    view->handleDoubleClick(1, 1);
    EXPECT_THAT(calls(), testing::Not(testing::Contains(REGIONS_ASKED)));
}

TEST_F(WordSearchTest, SmallerSearchLeavesNoStaleHit) {
    const auto view = openWithHits({100, 150, 200});
    view->doSearch("x");
    view->nextResult();
    view->nextResult();
    fakeWord().hits.clear();
    EXPECT_EQ(view->doSearch("y"), "{ \"resultcount\": 0 }");
    EXPECT_EQ(view->mCurrentResult, 2) << "stays, and counts for nothing";
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(view->previousResult(), 0);
    EXPECT_EQ(paint(*view)[200 * 320 + 100], fakeWordPixel(200, 100));
}

TEST_F(WordSearchTest, JumpThatFailsKeepsTheCurrentHit) {
    const auto view = openWithHits({100, 5000});
    view->doSearch("x");
    scrollBy(*view, 30);
    fakeWord().results["wtg_jump_to_character"] = 1;
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(markedRow(*view), 100);
    EXPECT_EQ(view->mScroll.y, 30);
}

TEST_F(WordSearchTest, RegionsWithoutRectanglesAreSurvived) {
    const auto view = openWithHits({100, 150});
    fakeWord().regions = {{500, {}}, {750, {}}};
    view->doSearch("x");
    view->nextResult();
    view->previousResult();
    paint(*view);
    EXPECT_EQ(view->mScroll.y, 0);
}

TEST_F(WordSearchTest, EveryHitIsReachedByNextAtAnySize) {
    for (const auto& [width, height] : {std::pair(320, 480), std::pair(480, 800), std::pair(1080, 1920)}) {
        fakeWord().hits.clear();
        std::vector<int> rows;
        for (int row = 37; row < 20000; row += 611) {
            rows.push_back(row);
        }
        const auto view = openWithHits(rows, width, height);
        view->doSearch("x");
        for (const int row : rows) {
            ASSERT_EQ(markedRow(*view), row);
            ASSERT_GE(row, view->firstTextRow());
            ASSERT_LT(row, view->firstTextRow() + height);
            ASSERT_EQ(view->whiteRows(), 0);
            view->nextResult();
        }
    }
}

TEST_F(WordSearchTest, WideModeCentresTheColumn) {
    struct {
        int x, from, scroll;
    } const cases[] = {
        {200, 0, 0},
        {320, 0, 0},
        {300, 300, 300}, // in view, edges included
        {321, 0, 161},
        {299, 300, 139},             // just beside it
        {500, 0, 500 - 120 - 160},   // past 3/4 of 640
        {480, 0, 480 - 96 - 160},    // not yet
        {427, 0, 427 - 96 - 160},    // past 2/3
        {426, 0, 426 - 160},         // in the middle
        {213, 300, 213 - 160},       //
        {212, 300, 212 + 96 - 160},  // before 1/3
        {160, 300, 160 + 96 - 160},  //
        {159, 300, 159 + 120 - 160}, // before 1/4
        {10, 300, 0},                // -30, clamped to the text
    };
    for (const auto& c : cases) {
        fakeWord().hits = {{500, 504, c.x, 30, 1}};
        const auto view = openView(320, 480, 20000);
        view->setWideMode(true);
        view->mScroll.x = c.from;
        view->doSearch("x");
        EXPECT_EQ(view->mScroll.x, c.scroll) << c.x;
    }
}

} // namespace
