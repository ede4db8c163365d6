// SPDX-License-Identifier: Apache-2.0
// Search through all sheets of a workbook.
#include "tests/unit/touch/TouchExcelTest.h"

namespace {

constexpr uint32_t HIT_COLOUR = 0x40FF0000;

class TouchSheetSearchTest : public TouchExcelTest {
protected:
    void SetUp() override {
        TouchExcelTest::SetUp();
        fakeSheet().sheets = {{u"One", 50, 200}, {u"Two", 50, 200}, {u"Three", 50, 200}};
        fakeSheet().hitsOfSheets = {{0, {cellRegion(2, 3), cellRegion(20, 90), cellRegion(49, 199)}},
                                    {2, {cellRegion(1, 1), cellRegion(5, 150)}}};
        view = openView(320, 480);
    }
    void TearDown() override {
        view.reset();
        TouchExcelTest::TearDown();
    }

    static std::string text(const HitPlace& hit) {
        return std::to_string(hit.hit) + "/" + std::to_string(hit.hits) + " on " + std::to_string(hit.part);
    }
    std::string search(const SearchOptions& options = {}) {
        HitPlace hit;
        return view->search("x", options, hit) == TouchResult::Ok ? text(hit) : "none";
    }
    std::string step(int way) {
        HitPlace hit;
        return view->stepToHit(way, hit) == TouchResult::Ok ? text(hit) : "none";
    }
    // The mark must be exactly on the cell.
    void expectMark(int column, int row) {
        const Frame picture = paint(*view);
        const int width = 40 * fakeSheet().dpi / 72;
        const int height = 20 * fakeSheet().dpi / 72;
        const CpPoint header = view->corner();
        for (int y = header.y; y < view->height(); ++y) {
            for (int x = header.x; x < view->width(); ++x) {
                const CpPoint at = view->documentPoint({x, y});
                const bool isHit = at.x / width == column && at.y / height == row;
                const uint32_t plain = touchSheetPixel(*view, x, y);
                ASSERT_EQ(picture.at(x, y), isHit ? blended(plain, HIT_COLOUR) : plain) << x << ", " << y;
            }
        }
    }
    // The hit's cell is in view, beside the headers.
    void expectInView(int column, int row) {
        const CpRect shown = view->shownCells();
        const int width = 40 * fakeSheet().dpi / 72;
        const int height = 20 * fakeSheet().dpi / 72;
        EXPECT_GE(column * width, shown.Left());
        EXPECT_GE(row * height, shown.Top());
        EXPECT_LE((column + 1) * width, shown.Right());
        EXPECT_LE((row + 1) * height, shown.Bottom());
    }

    std::unique_ptr<TestTouchExcel> view;
};

TEST_F(TouchSheetSearchTest, CountsInAllSheets) {
    EXPECT_EQ(search(), "0/5 on 0");
    EXPECT_EQ(view->place().hit, 0);
    EXPECT_EQ(view->place().hits, 5);
    expectInView(2, 3);
    expectMark(2, 3);
}

TEST_F(TouchSheetSearchTest, BeginsAtTheFirstHitFromTheView) {
    view->scrollTo(0, 61); // in the row of the first hit, above and left of it
    EXPECT_EQ(search(), "0/5 on 0");
    view->scrollTo(120, 61); // the hit ends where the view begins
    EXPECT_EQ(search(), "1/5 on 0");
    view->scrollTo(0, 1900);
    EXPECT_EQ(search(), "2/5 on 0");
    expectInView(49, 199);
    view->jumpToSheet(1);
    EXPECT_EQ(search(), "3/5 on 2") << "the next sheet with a hit";
    EXPECT_EQ(view->place().part, 2);
    view->scrollTo(0, 3400);
    EXPECT_EQ(search(), "0/5 on 0") << "the first one, behind the last sheet";
}

TEST_F(TouchSheetSearchTest, StepsVisitEveryHitInOrderBothWays) {
    search();
    const std::vector<std::string> order = {"0/5 on 0", "1/5 on 0", "2/5 on 0", "3/5 on 2", "4/5 on 2"};
    const CpPoint cells[] = {{2, 3}, {20, 90}, {49, 199}, {1, 1}, {5, 150}};
    for (int i = 1; i <= 11; ++i) {
        EXPECT_EQ(step(1), order[static_cast<size_t>(i % 5)]);
        expectInView(cells[i % 5].x, cells[i % 5].y);
        expectMark(cells[i % 5].x, cells[i % 5].y);
    }
    for (int i = 10; i >= 0; --i) {
        EXPECT_EQ(step(-1), order[static_cast<size_t>(i % 5)]);
        expectInView(cells[i % 5].x, cells[i % 5].y);
    }
}

TEST_F(TouchSheetSearchTest, TheMarkIsOnItsCellAtAnyZoom) {
    search();
    step(1);
    for (const double zoom : {0.5, 1.25, 2.0, 4.0}) {
        view->zoomTo(zoom, {150, 200});
        for (const int offset : {-35, 0, 77}) {
            view->scrollTo(20 * (40 * fakeSheet().dpi / 72) + offset,
                           90 * (20 * fakeSheet().dpi / 72) + offset);
            expectMark(20, 90);
        }
    }
}

TEST_F(TouchSheetSearchTest, AZoomDoesNotMoveToTheHit) {
    search();
    view->scrollTo(1000, 3000);
    view->zoomTo(1.5, {160, 200});
    EXPECT_GT(view->mScroll.y, 4000);
}

TEST_F(TouchSheetSearchTest, AHitInViewDoesNotMoveIt) {
    view->scrollTo(20, 30);
    EXPECT_EQ(search(), "0/5 on 0");
    EXPECT_EQ(view->mScroll.x, 20);
    EXPECT_EQ(view->mScroll.y, 30);
    view->scrollTo(81, 30); // the headers cover the hit's first column of pixels
    search();
    expectInView(2, 3);
}

TEST_F(TouchSheetSearchTest, NothingIsFound) {
    fakeSheet().hitsOfSheets = {{7, {}}};
    EXPECT_EQ(search(), "none");
    EXPECT_EQ(step(1), "none");
    EXPECT_EQ(view->place().hit, -1);
    EXPECT_EQ(view->place().hits, 0);
    expectSheet(*view, paint(*view), 5);
}

TEST_F(TouchSheetSearchTest, AnEmptyTextEndsASearch) {
    search();
    HitPlace hit;
    EXPECT_EQ(view->search("", {}, hit), TouchResult::NothingThere);
    EXPECT_EQ(step(1), "none");
    expectSheet(*view, paint(*view), 5);
}

TEST_F(TouchSheetSearchTest, OptionsAreForThisSearch) {
    calls();
    search({true, true});
    EXPECT_THAT(calls(), testing::Contains("stg_set_find_options(3)"));
    search();
    EXPECT_THAT(calls(), testing::Contains("stg_set_find_options(0)"));
}

TEST_F(TouchSheetSearchTest, SheetsThatWereNotCountedInTimeAreCountedBySteps) {
    // Each look at the clock takes longer than the counting may.
    setTouchClock([] {
        static double now = 0.0;
        return now += 1.5;
    });
    EXPECT_EQ(search(), "0/3 on 0") << "the sheet that is shown, and sheet 1";
    setTouchClock([] { return 0.0; });
    EXPECT_EQ(step(-1), "4/5 on 2");
    EXPECT_EQ(step(1), "0/5 on 0");
}

TEST_F(TouchSheetSearchTest, ASheetThatCannotBeSearchedHasNoHits) {
    fakeSheet().nextResults["stg_find"] = {0, MODULE_FAILED, 0};
    EXPECT_EQ(search(), "0/3 on 0");
}

TEST_F(TouchSheetSearchTest, AnotherSheetKeepsTheHit) {
    search();
    view->jumpToSheet(1);
    expectSheet(*view, paint(*view), 5);
    EXPECT_EQ(view->place().hit, 0);
    EXPECT_EQ(step(1), "1/5 on 0");
    expectMark(20, 90);
}

TEST_F(TouchSheetSearchTest, SelectionsKeepTheirColour) {
    search();
    EXPECT_EQ(fakeSheet().highlightColor, (std::vector<uint8_t>{0xFF, 0xF5, 0x68}));
}

TEST_F(TouchSheetSearchTest, TheDefinedMethodsSearchAllSheetsToo) {
    EXPECT_EQ(view->doSearch("x"), R"({ "resultcount": 5 })");
    view->nextResult();
    expectMark(20, 90);
    view->previousResult();
    view->previousResult();
    EXPECT_EQ(view->place().part, 2);
    view->stopFind();
    EXPECT_EQ(view->place().hits, 0);
    expectSheet(*view, paint(*view), 5);
}

TEST_F(TouchSheetSearchTest, UnbelievableRegionsAreHarmless) {
    fakeSheet().hitsOfSheets = {{0, {{0, INT_MIN, INT_MAX, INT_MAX, INT_MAX}, {0, INT_MAX, 5, -7, INT_MIN}}}};
    search();
    for (int i = 0; i < 4; ++i) {
        step(1);
        paint(*view);
        view->zoomTo(1.0 + i, {100, 100});
        paint(*view);
    }
}

} // namespace
