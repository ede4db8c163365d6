// SPDX-License-Identifier: Apache-2.0
// Searching, selecting and reading the text of a touch view, and its headings.
#include "tests/unit/touch/TouchWordTest.h"

namespace {

using testing::ElementsAre;

class TouchWordSearchTest : public TouchWordTest {
protected:
    void SetUp() override {
        TouchWordTest::SetUp();
        for (uint32_t i = 0; i < 20; ++i) { // two of them on the same line
            fakeWord().hits.push_back({i * 900 + i % 2, i * 900 + 5});
            fakeWord().hits.push_back({i * 900 + 10, i * 900 + 15, 60});
        }
    }

    static void expectInView(TestTouchWord& view) {
        const wtg_find_region* const region = view.currentRegion();
        ASSERT_NE(region, nullptr);
        EXPECT_EQ(region->position, view.mHitPosition);
        const int64_t row = viewRow(view, view.mHitPosition);
        EXPECT_GE(row, 0);
        EXPECT_LE(row + fakeWord().layout.lineRows, view.height());
        EXPECT_EQ(view.whiteRows(), 0);
    }
};

TEST_F(TouchWordSearchTest, BeginsAtTheFirstHitAtOrBelowTheTop) {
    const auto view = openView();
    HitPlace hit;
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::Ok);
    EXPECT_EQ(hit.hit, 0);
    EXPECT_EQ(hit.hits, 40);
    view->scrollTo(0, static_cast<int>(lineOf(6 * 900) * 17 + 5));
    view->search("x", {}, hit);
    EXPECT_EQ(hit.hit, 14);
    view->scrollTo(0, INT32_MAX);
    fakeWord().hits.erase(fakeWord().hits.begin() + 20, fakeWord().hits.end());
    view->search("x", {}, hit);
    EXPECT_EQ(hit.hit, 0) << "there is none below";
    EXPECT_EQ(hit.hits, 20);
    expectInView(*view);
}

TEST_F(TouchWordSearchTest, StepsVisitEveryHitBothWays) {
    const auto view = openView();
    HitPlace hit;
    view->search("x", {}, hit);
    expectInView(*view);
    for (int i = 1; i <= 45; ++i) {
        EXPECT_EQ(view->stepToHit(1, hit), TouchResult::Ok);
        EXPECT_EQ(hit.hit, i % 40);
        EXPECT_EQ(view->mHitPosition, fakeWord().hits[static_cast<size_t>(hit.hit)].start);
        expectInView(*view);
    }
    for (int i = 44; i >= -5; --i) {
        EXPECT_EQ(view->stepToHit(-1, hit), TouchResult::Ok);
        EXPECT_EQ(hit.hit, (i + 40) % 40);
        expectInView(*view);
    }
    EXPECT_EQ(view->place().hit, 35);
    EXPECT_EQ(view->place().hits, 40);
}

TEST_F(TouchWordSearchTest, TheCurrentHitIsMarked) {
    const auto view = openView();
    const Frame before = paint(*view);
    HitPlace hit;
    view->search("x", {}, hit);
    const Frame marked = paint(*view);
    EXPECT_NE(marked.at(15, 3), before.at(15, 3));
    view->stepToHit(1, hit);
    EXPECT_EQ(paint(*view).at(15, 3), before.at(15, 3));
    EXPECT_NE(paint(*view).at(65, 3), before.at(65, 3));
}

TEST_F(TouchWordSearchTest, DoesNotMoveToAHitThatIsInView) {
    const auto view = openView();
    HitPlace hit;
    view->search("x", {}, hit);
    const int64_t first = view->firstTextRow();
    view->stepToHit(1, hit);
    EXPECT_EQ(view->firstTextRow(), first);
    view->scrollTo(0, 7);
    view->stepToHit(1, hit);
    EXPECT_EQ(view->firstTextRow(), 7);
}

TEST_F(TouchWordSearchTest, AZoomKeepsTheLineAndTheHit) {
    const auto view = openView();
    HitPlace hit;
    view->search("x", {}, hit);
    view->scrollTo(0, 1500);
    const uint32_t first = firstWhole(*view);
    const int64_t row = viewRow(*view, first);
    view->zoomTo(2.0, view->middle());
    EXPECT_EQ(viewRow(*view, first), row);
    EXPECT_EQ(view->place().hit, 0);
    view->stepToHit(1, hit);
    EXPECT_EQ(hit.hit, 1);
    expectInView(*view);
}

TEST_F(TouchWordSearchTest, PassesItsOptions) {
    const auto view = openView();
    HitPlace hit;
    view->search("x", {true, true}, hit);
    EXPECT_EQ(fakeWord().findOptions, 3);
    view->search("x", {false, true}, hit);
    EXPECT_EQ(fakeWord().findOptions, 2);
    view->search("x", {}, hit);
    EXPECT_EQ(fakeWord().findOptions, 0);
    view->forgetOptional();
    EXPECT_EQ(view->search("x", {true, false}, hit), TouchResult::NotSupported);
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::Ok);
}

TEST_F(TouchWordSearchTest, TellsThatThereIsNoHit) {
    const auto view = openView();
    HitPlace hit;
    view->search("x", {}, hit);
    fakeWord().hits.clear();
    EXPECT_EQ(view->search("y", {}, hit), TouchResult::NothingThere);
    EXPECT_EQ(hit.hit, -1);
    EXPECT_EQ(hit.hits, 0);
    EXPECT_EQ(view->stepToHit(1, hit), TouchResult::NothingThere);
    EXPECT_EQ(view->place().hit, -1);
    fakeWord().results["wtg_find"] = 11;
    EXPECT_EQ(view->search("y", {}, hit), TouchResult::Failed);
}

TEST_F(TouchWordSearchTest, AHitWithoutAPlaceShowsItsLine) {
    const auto view = openView();
    fakeWord().regions = std::vector<FakeWordRegion>();
    HitPlace hit;
    view->search("x", {}, hit);
    view->stepToHit(-1, hit);
    EXPECT_GE(hit.hit, 0);
    const int64_t row = viewRow(*view, view->mHitPosition);
    EXPECT_GE(row, 0);
    EXPECT_LT(row, 640);
}

TEST_F(TouchWordSearchTest, ClientsOfOtherViewsSearchInTheSameWay) {
    const auto view = openView();
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 40 }");
    view->nextResult();
    EXPECT_EQ(view->place().hit, 1);
    view->previousResult();
    view->previousResult();
    EXPECT_EQ(view->place().hit, 39);
}

TEST_F(TouchWordTest, SelectsAndTellsTheSelection) {
    const auto view = openView();
    view->scrollTo(0, 34 * 17 + 3);
    Selection selection;
    EXPECT_EQ(view->selection(selection), TouchResult::NothingThere);
    EXPECT_EQ(view->select(SelectUnit::Line, CpPoint(50, 40)), TouchResult::Ok);
    EXPECT_EQ(view->selection(selection), TouchResult::Ok);
    EXPECT_EQ(selection.text,
              std::to_string(fakeWord().selectionStart) + "-" + std::to_string(fakeWord().selectionEnd));
    ASSERT_EQ(selection.rectangles.size(), 1U);
    EXPECT_EQ(selection.rectangles[0].Top(), viewRow(*view, fakeWord().selectionStart));
    EXPECT_TRUE(selection.rectangles[0].Top() <= 40 && selection.rectangles[0].Bottom() > 40);

    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::End, CpPoint(50, 140)), TouchResult::Ok);
    selection = {};
    view->selection(selection);
    EXPECT_EQ(selection.rectangles.size(), 6U);
    EXPECT_EQ(view->select(SelectUnit::All, CpPoint(0, 0)), TouchResult::Ok);
    selection = {};
    view->selection(selection);
    EXPECT_EQ(selection.text, "0-20000");
    EXPECT_GE(selection.rectangles.size(), 640U / 17U) << "only those in view";
    EXPECT_LE(selection.rectangles.size(), 640U / 17U + 2U);
    EXPECT_EQ(view->select(SelectUnit::None, CpPoint(0, 0)), TouchResult::Ok);
    EXPECT_EQ(view->selection(selection), TouchResult::NothingThere);
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::Start, CpPoint(0, 0)), TouchResult::NothingThere);
}

TEST_F(TouchWordTest, ReadsTheTextOnTheScreen) {
    const auto view = openView();
    view->scrollTo(0, 100);
    std::vector<TextLine> lines;
    EXPECT_EQ(view->visibleText(lines), TouchResult::Ok);
    ASSERT_EQ(lines.size(), 39U);
    EXPECT_EQ(lines.front().place.Top(), 5 * 17 - 100);
    EXPECT_EQ(lines.back().place.Top(), 43 * 17 - 100);
    EXPECT_EQ(lines.front().text.find('-') != std::string::npos, true);
}

TEST_F(TouchWordTest, GoesToHeadings) {
    const auto view = openView();
    fakeWord().headings = {{u"One", 0, 0}, {u"Tw\u00f6", 1, 5000}, {u"Three", 0, 19990}};
    std::vector<OutlineEntry> entries;
    EXPECT_EQ(view->goTo(3), TouchResult::OutOfRange);
    EXPECT_EQ(view->goTo(-1), TouchResult::OutOfRange);
    EXPECT_EQ(view->outline(entries), TouchResult::Ok);
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[1].title, "Tw\xC3\xB6");
    EXPECT_EQ(entries[1].level, 1);
    EXPECT_EQ(view->goTo(1), TouchResult::Ok);
    EXPECT_EQ(viewRow(*view, 5000), 0);
    EXPECT_EQ(view->goTo(2), TouchResult::Ok);
    EXPECT_EQ(view->firstTextRow(), TestTouchWord::lastTop(640));
    EXPECT_EQ(view->whiteRows(), 0);
    EXPECT_EQ(view->goTo(0), TouchResult::Ok);
    EXPECT_EQ(view->firstTextRow(), 0);
}

TEST_F(TouchWordTest, SaysWhatTheModuleLacks) {
    const auto view = openView();
    view->forgetOptional();
    std::vector<TextLine> lines;
    std::vector<OutlineEntry> entries;
    Selection selection;
    EXPECT_EQ(view->visibleText(lines), TouchResult::NotSupported);
    EXPECT_EQ(view->outline(entries), TouchResult::NotSupported);
    EXPECT_EQ(view->goTo(0), TouchResult::NotSupported);
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::End, CpPoint(1, 1)), TouchResult::NotSupported);
    EXPECT_EQ(view->select(SelectUnit::Word, CpPoint(1, 1)), TouchResult::Ok);
    EXPECT_EQ(view->selection(selection), TouchResult::Ok);
    EXPECT_TRUE(selection.rectangles.empty());
}

TEST_F(TouchWordTest, KeepsItsPlaceInTheStateRecord) {
    const auto view = openView();
    view->scrollTo(0, 1003);
    view->zoomTo(3.0, view->middle());
    const uint32_t first = firstWhole(*view);
    const int64_t row = viewRow(*view, first);
    paint(*view);
    TestTouchWord again(360, 640, view->dataStoreShmId());
    EXPECT_EQ(again.openFile("/d/text.doc", nullptr), 0);
    EXPECT_DOUBLE_EQ(again.place().zoom, 3.0);
    EXPECT_EQ(viewRow(again, first), row);
    EXPECT_EQ(again.place().view.Top(), again.firstTextRow());
}

} // namespace
