// SPDX-License-Identifier: Apache-2.0
// Searching, selecting and reading a presentation with touch manners.
#include "TouchPptTest.h"

namespace {

constexpr uint32_t MARK = 0x40FF0000;

class TouchPptSearchTest : public TouchPptTest {
protected:
    // Five hits: two on slide 1, none but in the notes on slide 2, three on slide 4.
    static std::unique_ptr<TestTouchPpt> openWithHits() {
        auto& slides = fakeSlides().slides;
        slides.resize(5);
        slides[1].hits = {{{40, 40, 60, 20}}, {{500, 400, 60, 20}}};
        slides[2].noteHits = 3;
        slides[4].hits = {{{0, 0, 30, 30}}, {{300, 200, 60, 20}, {0, 220, 60, 20}}, {{600, 460, 40, 20}}};
        return openView();
    }
    static HitPlace search(TestTouchPpt& view) {
        HitPlace hit;
        EXPECT_EQ(view.search("x", {}, hit), TouchResult::Ok);
        return hit;
    }
    static HitPlace step(TestTouchPpt& view, int way) {
        HitPlace hit;
        EXPECT_EQ(view.stepToHit(way, hit), TouchResult::Ok);
        return hit;
    }
    // Whether the first rectangle of a hit is marked at its place, and in the view.
    static bool isMarked(TestTouchPpt& view, const module_rect& units) {
        const Frame frame = paint(view);
        const double scale = static_cast<double>(view.mSurface->Width()) / 640;
        const int left = static_cast<int>(units.x * scale) - view.mScroll.x;
        const int top = static_cast<int>(units.y * scale) - view.mScroll.y;
        const int x = left + static_cast<int>(units.width * scale / 2);
        const int y = top + static_cast<int>(units.height * scale / 2);
        return left >= 0 && top >= 0 && x < view.width() && y < view.height() &&
               frame.at(x, y) == blended(slidePixel(view, x, y), MARK);
    }
};

TEST_F(TouchPptSearchTest, CountsTheHitsOfAllSlidesButNotOfNotes) {
    const auto view = openWithHits();
    const HitPlace hit = search(*view);
    EXPECT_EQ(hit.hits, 5);
    EXPECT_EQ(hit.hit, 0);
    EXPECT_EQ(hit.part, 1);
    EXPECT_EQ(view->place().hit, 0);
    EXPECT_EQ(view->place().hits, 5);
    EXPECT_THAT(records(*view), ElementsAre("0 0 0", "7 1 0"));
}

TEST_F(TouchPptSearchTest, BeginsAtTheFirstHitAtOrBelowTheViewsTop) {
    const auto view = openWithHits();
    view->goTo(1);
    EXPECT_EQ(search(*view).hit, 0);
    view->zoomTo(1.0, {160, 240});
    view->scrollTo(0, 480);
    EXPECT_EQ(search(*view).hit, 1);
    view->goTo(2);
    EXPECT_EQ(search(*view).hit, 2) << "on the next slide that has one";
    view->zoomTo(1.0, {160, 240});
    view->goTo(4);
    view->zoomTo(1.0, {160, 240});
    view->scrollTo(0, 1 << 20);
    EXPECT_EQ(search(*view).hit, 4);
}

TEST_F(TouchPptSearchTest, BehindTheLastHitComesTheFirst) {
    auto& slides = fakeSlides().slides;
    slides.resize(3);
    slides[0].hits = {{{0, 0, 10, 10}}};
    const auto view = openView();
    view->goTo(1);
    EXPECT_EQ(search(*view).hit, 0);
    EXPECT_EQ(view->mCurrentSlide, 0);
}

TEST_F(TouchPptSearchTest, StepsVisitEveryHitBothWaysAndMarkIt) {
    const auto view = openWithHits();
    const std::vector<module_rect> places = {
        {40, 40, 60, 20}, {500, 400, 60, 20}, {0, 0, 30, 30}, {300, 200, 60, 20}, {600, 460, 40, 20}};
    for (const double zoom : {0.25, 1.0, 1.7}) {
        view->goTo(0);
        search(*view);
        view->zoomTo(zoom, {10, 200});
        for (const int way : {1, -1}) {
            for (int i = 0; i < 7; ++i) {
                const HitPlace hit = step(*view, way);
                EXPECT_TRUE(isMarked(*view, places[static_cast<size_t>(hit.hit)]))
                    << hit.hit << " at " << zoom;
                EXPECT_EQ(hit.part, hit.hit < 2 ? 1 : 4);
                EXPECT_NEAR(view->place().zoom, zoom, 1e-9) << "the zoom stays";
                const HitPlace back = step(*view, -way);
                EXPECT_EQ(back.hit, (hit.hit + 5 - way) % 5);
                step(*view, way);
            }
        }
    }
}

TEST_F(TouchPptSearchTest, MarkKeepsItsPlaceWhenTheZoomChanges) {
    const auto view = openWithHits();
    view->goTo(4);
    search(*view);
    step(*view, 1);
    for (const double zoom : {0.25, 0.6, 1.1, 2.0}) {
        view->zoomTo(zoom, {165, 225});
        EXPECT_TRUE(isMarked(*view, {300, 200, 60, 20})) << zoom;
    }
}

TEST_F(TouchPptSearchTest, ThumbnailsDoNotDisturbASearch) {
    const auto view = openWithHits();
    search(*view);
    std::vector<uint32_t> pixels(64 * 48);
    ASSERT_EQ(view->thumbnail(4, pixels.data(), 64, 48), TouchResult::Ok);
    EXPECT_TRUE(isMarked(*view, {40, 40, 60, 20}));
    view->goTo(0);
    view->thumbnail(4, pixels.data(), 64, 48);
    step(*view, 1);
    EXPECT_TRUE(isMarked(*view, {500, 400, 60, 20}));
    view->thumbnail(3, pixels.data(), 64, 48);
    EXPECT_EQ(search(*view).hit, 0);
    EXPECT_TRUE(isMarked(*view, {40, 40, 60, 20}));
}

TEST_F(TouchPptSearchTest, NextHitIsTheNeighbourOfTheCurrentAlsoFromAnotherSlide) {
    const auto view = openWithHits();
    search(*view);
    view->goTo(4);
    EXPECT_EQ(step(*view, 1).hit, 1);
    EXPECT_EQ(view->mCurrentSlide, 1);
}

TEST_F(TouchPptSearchTest, OptionsReachTheModule) {
    const auto view = openWithHits();
    HitPlace hit;
    view->search("x", {true, true}, hit);
    view->search("x", {}, hit);
    std::vector<std::string> options;
    for (const std::string& call : calls()) {
        if (call.find("options") != std::string::npos) {
            options.push_back(call);
        }
    }
    EXPECT_THAT(options, ElementsAre("sstg_set_find_options(3)", "sstg_set_find_options(0)"));
}

TEST_F(TouchPptSearchTest, DefinedMethodsSearchTheSameWay) {
    const auto view = openWithHits();
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 5 }");
    view->nextResult();
    EXPECT_EQ(view->place().hit, 1);
    view->previousResult();
    view->previousResult();
    EXPECT_EQ(view->place().hit, 4);
    view->stopFind();
    EXPECT_EQ(view->place().hit, -1);
    HitPlace hit;
    EXPECT_EQ(view->stepToHit(1, hit), TouchResult::NothingThere);
    expectSlide(*view, paint(*view));
}

TEST_F(TouchPptSearchTest, SearchWithoutHitsForgetsTheLastOne) {
    const auto view = openWithHits();
    search(*view);
    fakeSlides().infos = std::vector<sstg_find_info>{{2, 0, 3}};
    HitPlace hit;
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::NothingThere);
    EXPECT_EQ(view->place().hits, 0);
}

TEST_F(TouchPptSearchTest, ImpossibleCountsAreHarmless) {
    const auto view = openWithHits();
    fakeSlides().infos =
        std::vector<sstg_find_info>{{-5, INT32_MAX, 0}, {99, INT32_MIN, 0}, {1, INT32_MAX, 7}};
    HitPlace hit;
    view->search("x", {}, hit);
    for (int i = 0; i < 4; ++i) {
        view->stepToHit(i % 2 == 0 ? 1 : -1, hit);
        paint(*view);
    }
    EXPECT_GE(hit.hit, 0);
    fakeSlides().arrayCount = -1;
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::NothingThere);
}

TEST_F(TouchPptSearchTest, CurrentHitIsMarkedDuringAPinch) {
    const auto view = openWithHits();
    search(*view);
    paint(*view);
    pinch(*view, 35, 145, 1.0, _PINCH_BEGINS);
    pinch(*view, 35, 145, 2.0, _PINCH_MOVES);
    const Frame frame = paint(*view);
    EXPECT_EQ(frame.at(35, 50), blended(fakeSlidePixel(1, 35, 25), MARK)) << "the slide fills the view";
}

class TouchPptTextTest : public TouchPptTest {
protected:
    static std::unique_ptr<TestTouchPpt> openWithText() {
        fakeSlides().slides.resize(2);
        fakeSlides().slides[0].lines = {{u"two words ", {100, 40, 200, 40}, 0},
                                        {u"go on", {100, 100, 100, 40}, 0},
                                        {u"End.", {100, 400, 80, 40}, 1}};
        return openView();
    }
    static std::string selected(TestTouchPpt& view) {
        Selection selection;
        return view.selection(selection) == TouchResult::Ok ? selection.text : "none";
    }
};

TEST_F(TouchPptTextTest, VisibleTextHasItsPlaceInTheView) {
    const auto view = openWithText();
    std::vector<TextLine> lines;
    ASSERT_EQ(view->visibleText(lines), TouchResult::Ok);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text, "two words ");
    EXPECT_EQ(lines[0].place.Left(), 50);
    EXPECT_EQ(lines[0].place.Top(), 140);
    EXPECT_EQ(lines[0].place.Width(), 100);
    view->zoomTo(1.0, {50, 480});
    ASSERT_EQ(view->visibleText(lines), TouchResult::Ok);
    ASSERT_EQ(lines.size(), 1U) << "the others are above the view";
    EXPECT_EQ(lines[0].text, "End.");
}

TEST_F(TouchPptTextTest, SelectsAWordALineOrAll) {
    const auto view = openWithText();
    EXPECT_EQ(view->select(SelectUnit::Word, {105, 150}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "words");
    EXPECT_EQ(view->select(SelectUnit::Line, {60, 180}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "go on");
    EXPECT_EQ(view->select(SelectUnit::All, {0, 0}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "two words go on\nEnd.");
    EXPECT_EQ(view->select(SelectUnit::Word, {300, 300}), TouchResult::NothingThere);
    EXPECT_EQ(selected(*view), "none");
    view->select(SelectUnit::Word, {105, 150});
    EXPECT_EQ(view->select(SelectUnit::None, {0, 0}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "none");
}

TEST_F(TouchPptTextTest, EndsOfTheSelectionMove) {
    const auto view = openWithText();
    view->select(SelectUnit::Word, {105, 150});
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::End, {68, 180}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "words go");
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::Start, {0, 100}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "two words go");
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::Start, {319, 479}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "o") << "one letter is left";
    view->clearSelection();
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::End, {68, 180}), TouchResult::NothingThere);
}

TEST_F(TouchPptTextTest, SelectionIsPaintedWhereItsRectanglesAre) {
    const auto view = openWithText();
    view->select(SelectUnit::Word, {105, 150});
    for (const double zoom : {0.25, 0.7}) {
        view->zoomTo(zoom, {105, 150});
        Selection selection;
        ASSERT_EQ(view->selection(selection), TouchResult::Ok);
        ASSERT_EQ(selection.rectangles.size(), 1U);
        const CpRect r = selection.rectangles[0];
        EXPECT_NEAR(r.Left(), 180 * view->mScale - view->mScroll.x, 1) << zoom;
        EXPECT_NEAR(r.Right(), 280 * view->mScale - view->mScroll.x, 1) << zoom;
        const Frame frame = paint(*view);
        EXPECT_NE(frame.at(r.Left() + 1, r.Top() + 1), slidePixel(*view, r.Left() + 1, r.Top() + 1));
        EXPECT_EQ(frame.at(r.Left() - 2, r.Top()), slidePixel(*view, r.Left() - 2, r.Top()));
    }
    view->goTo(1);
    expectSlide(*view, paint(*view));
    EXPECT_EQ(selected(*view), "none") << "another slide";
}

} // namespace
