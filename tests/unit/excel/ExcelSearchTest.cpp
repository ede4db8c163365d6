// SPDX-License-Identifier: Apache-2.0
// Search, the steps from hit to hit, and the current hit's mark.
#include "tests/unit/excel/ExcelTest.h"

namespace {

constexpr uint32_t RED = 0x40FF0000;
const std::string FOUND_COLOUR = "stg_set_highlight_color(128, 192, 255)";
const std::string REGIONS_ASKED = "stg_get_found_regions()";

class ExcelSearchTest : public ExcelTest {
protected:
    // Hits of 20 x 10 pixels at 72 dpi, so 40 x 20 in a new view.
    static std::unique_ptr<TestExcel> openWithHits(const std::vector<CpPoint>& at) {
        for (const CpPoint& p : at) {
            fakeSheet().hits.push_back({0, p.x / 2, p.y / 2, 20, 10});
        }
        return openView();
    }
    static std::string count(int hits) { return "{ \"resultcount\": " + std::to_string(hits) + " }"; }
};

TEST_F(ExcelSearchTest, FindsOnTheSheetShown) {
    fakeSheet().sheets.resize(3);
    const auto view = openWithHits({{100, 100}, {200, 200}});
    view->mCurrentSheet = 2;
    view->mOffscreenDirty = false;
    EXPECT_EQ(view->doSearch("Wort"), count(2));
    EXPECT_THAT(calls(), ElementsAre(FOUND_COLOUR, "stg_find(\"Wort\", 2, 0, 2, 8000)", REGIONS_ASKED));
    EXPECT_EQ(fakeSheet().highlightColor, (std::vector<uint8_t>{0x80, 0xC0, 0xFF}));
    EXPECT_EQ(view->mCurrentResult, 0);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), IsEmpty()) << "the caller asks for the paint";
}

TEST_F(ExcelSearchTest, FirstHitComesIntoTheMiddleAndTheWindowAlong) {
    const auto view = openWithHits({{2000, 4000}});
    view->doSearch("x");
    // The hit's middle is (2020, 4010), beyond three quarters of the cells across.
    EXPECT_EQ(view->mScroll, CpPoint(2020 - 120 - 160, 4010 - 240));
    EXPECT_EQ(window(*view), CpRect(1740 - 590, 3770 - 510, 1740 + 910, 3770 + 990));
}

TEST_F(ExcelSearchTest, HitThatIsSeenMovesNothingButTheWindow) {
    const auto view = openWithHits({{1100, 2100}});
    view->mScroll.set(1000, 2000);
    view->doSearch("x");
    EXPECT_EQ(view->mScroll, CpPoint(1000, 2000));
    EXPECT_EQ(window(*view), CpRect(410, 1490, 1910, 2990));
}

TEST_F(ExcelSearchTest, NothingFoundMovesNothing) {
    const auto view = openWithHits({});
    view->mScroll.set(1000, 2000);
    EXPECT_EQ(view->doSearch("x"), count(0));
    EXPECT_EQ(view->mCurrentResult, 0);
    EXPECT_EQ(view->mScroll, CpPoint(1000, 2000));
    EXPECT_EQ(window(*view), CpRect(0, 0, 1500, 1500));
    EXPECT_TRUE(view->mOffscreenDirty);
}

TEST_F(ExcelSearchTest, StepsAfterNothingFoundAreNone) {
    const auto view = openWithHits({});
    view->doSearch("x");
    view->mOffscreenDirty = false;
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(view->previousResult(), 0);
    EXPECT_EQ(view->mCurrentResult, 0);
    EXPECT_FALSE(view->mOffscreenDirty);
    paint(*view);
}

TEST_F(ExcelSearchTest, StepsGoRound) {
    const auto view = openWithHits({{100, 100}, {1000, 3000}, {2000, 6000}});
    view->doSearch("x");
    calls();
    std::vector<int> seen;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(view->nextResult(), 0);
        seen.push_back(view->mCurrentResult);
    }
    EXPECT_THAT(seen, ElementsAre(1, 2, 0, 1));
    seen.clear();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(view->previousResult(), 0);
        seen.push_back(view->mCurrentResult);
    }
    EXPECT_THAT(seen, ElementsAre(0, 2, 1, 0));
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelSearchTest, StepCentresItsHitAndMovesTheWindow) {
    const auto view = openWithHits({{100, 100}, {500, 3000}});
    view->doSearch("x");
    view->mOffscreenDirty = false;
    view->nextResult();
    EXPECT_EQ(view->mScroll, CpPoint(520 - 160, 3010 - 240));
    EXPECT_EQ(window(*view), CpRect(0, 2260, 1500, 3760));
    EXPECT_TRUE(view->mOffscreenDirty);
}

TEST_F(ExcelSearchTest, OneHitIsItsOwnNeighbour) {
    const auto view = openWithHits({{100, 100}});
    view->doSearch("x");
    view->nextResult();
    EXPECT_EQ(view->mCurrentResult, 0);
    view->previousResult();
    EXPECT_EQ(view->mCurrentResult, 0);
}

TEST_F(ExcelSearchTest, AfterTheEndThereAreNoSteps) {
    const auto view = openWithHits({{100, 100}, {500, 3000}});
    view->doSearch("x");
    calls();
    view->mOffscreenDirty = false;
    EXPECT_EQ(view->stopFind(), 0);
    EXPECT_THAT(calls(), ElementsAre("stg_stop_find()"));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_EQ(view->mCurrentResult, -1);
    view->mOffscreenDirty = false;
    const CpPoint before = view->mScroll;
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(view->previousResult(), 0);
    EXPECT_EQ(view->mCurrentResult, -1);
    EXPECT_EQ(view->mScroll, before);
    EXPECT_FALSE(view->mOffscreenDirty);
    EXPECT_EQ(view->ReinitSearchRects(), 0);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelSearchTest, StepsBeforeASearchAreNone) {
    const auto view = openWithHits({{100, 100}});
    EXPECT_EQ(view->nextResult(), 0);
    EXPECT_EQ(view->previousResult(), 0);
    EXPECT_EQ(view->mCurrentResult, -1);
}

TEST_F(ExcelSearchTest, SecondSearchBeginsAtItsFirstHit) {
    const auto view = openWithHits({{100, 100}, {500, 3000}});
    view->doSearch("x");
    view->nextResult();
    fakeSheet().hits.resize(1);
    EXPECT_EQ(view->doSearch("y"), count(1));
    EXPECT_EQ(view->mCurrentResult, 0);
}

TEST_F(ExcelSearchTest, NullTextIsEmpty) {
    const auto view = openView();
    view->doSearch(nullptr);
    EXPECT_EQ(calls().at(1), "stg_find(\"\", 0, 0, 0, 8000)");
}

TEST_F(ExcelSearchTest, ZoomFetchesRegionsAgainAndCentresWithoutMovingTheWindow) {
    const auto view = openWithHits({{100, 100}, {2000, 4000}});
    view->doSearch("x");
    view->nextResult();
    calls();
    view->mScale = 4.0;
    view->resizeDocument();
    calls();
    const CpRect before = window(*view);
    view->mOffscreenDirty = false;
    EXPECT_EQ(view->ReinitSearchRects(), 0);
    EXPECT_THAT(calls(), ElementsAre(REGIONS_ASKED));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_EQ(view->mCurrentResult, 1);
    EXPECT_EQ(view->mScroll, CpPoint(4040 - 120 - 160, 8020 - 240));
    EXPECT_EQ(window(*view), before);
}

TEST_F(ExcelSearchTest, HitsThatVanishWithAZoomAreSurvived) {
    const auto view = openWithHits({{100, 100}, {500, 3000}, {700, 5000}});
    view->doSearch("x");
    view->previousResult(); // the third
    fakeSheet().hits.resize(1);
    view->ReinitSearchRects();
    paint(*view);
    view->nextResult();
    EXPECT_EQ(view->mCurrentResult, 0);
    fakeSheet().nullArrays = true;
    view->ReinitSearchRects();
    view->nextResult();
    paint(*view);
    EXPECT_EQ(view->doSearch("x"), count(0)) << "no array, whatever the count";
    fakeSheet().nullArrays = false;
    fakeSheet().arrayCount = -5;
    EXPECT_EQ(view->doSearch("x"), count(0));
}

TEST_F(ExcelSearchTest, CurrentHitIsMarkedOnlyThere) {
    const auto view = openWithHits({{100, 100}, {200, 200}});
    view->doSearch("x"); // the window begins at 0, 0
    const Frame picture = paint(*view);
    for (int row = 0; row < 480; ++row) {
        for (int column = 0; column < 320; ++column) {
            const bool marked = column >= 160 && column < 200 && row >= 130 && row < 150;
            const uint32_t plain = sheetPixel(*view, column, row);
            ASSERT_EQ(picture.at(column, row), marked ? blended(plain, RED) : plain) << column << ", " << row;
        }
    }
}

TEST_F(ExcelSearchTest, MarkIsPlacedFromTheWindow) {
    const auto view = openWithHits({{700, 300}});
    view->doSearch("x");
    view->mScroll.set(650, 200);
    view->recenterDocument(); // (60, 0)
    view->mOffscreenDirty = true;
    const Frame picture = paint(*view);
    const auto isMarked = [&](int column, int row) {
        return picture.at(column, row) == blended(sheetPixel(*view, column, row), RED);
    };
    EXPECT_TRUE(isMarked(60 + 60 + 50, 30 + 100));
    EXPECT_FALSE(isMarked(60 + 60 + 50 - 1, 30 + 100));
    EXPECT_TRUE(isMarked(60 + 60 + 50 + 39, 30 + 100 + 19));
    EXPECT_FALSE(isMarked(60 + 60 + 50 + 40, 30 + 100 + 19));
}

TEST_F(ExcelSearchTest, NoMarkAfterTheEnd) {
    const auto view = openWithHits({{100, 100}});
    view->doSearch("x");
    view->stopFind();
    expectSheet(*view, paint(*view));
}

TEST_F(ExcelSearchTest, RegionsWithoutSenseAreSurvived) {
    fakeSheet().hits = {{0, INT_MAX, INT_MAX, INT_MAX, INT_MAX},
                        {0, INT_MIN, INT_MIN, INT_MIN, INT_MIN},
                        {0, 10, 10, -100, -100}};
    const auto view = openView();
    EXPECT_EQ(view->doSearch("x"), count(3));
    for (int i = 0; i < 4; ++i) {
        paint(*view);
        view->nextResult();
        view->ReinitSearchRects();
        draw(*view);
    }
}

} // namespace
