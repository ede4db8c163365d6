// SPDX-License-Identifier: Apache-2.0
// Presentations without slides, that did not open, and that cannot be rendered.
#include "TouchPptTest.h"

namespace {

TEST_F(TouchPptTest, DeckWithoutSlidesIsAnEmptyPage) {
    fakeSlides().slides.clear();
    const auto view = openView();
    for (int i = 0; i < 2; ++i) {
        paint(*view);
        view->handleFlick(-900, 0);
        view->handleDoubleClick(10, 10);
        view->resize(300, 200);
        EXPECT_FALSE(view->handleClick(10, 10));
    }
    HitPlace hit;
    std::vector<OutlineEntry> entries;
    std::vector<uint32_t> pixels(100);
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::NothingThere);
    EXPECT_EQ(view->goTo(0), TouchResult::OutOfRange);
    EXPECT_EQ(view->outline(entries), TouchResult::Ok);
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(view->thumbnail(0, pixels.data(), 10, 10), TouchResult::OutOfRange);
}

TEST_F(TouchPptTest, DocumentThatDidNotOpenAllowsEverything) {
    const auto view = failedView();
    view->handlePenDown(1, 1);
    view->handlePenMove(300, 300);
    view->handlePenUp(300, 300);
    view->handleFlick(-900, 0);
    view->handleDoubleClick(1, 1);
    view->handleClick(1, 1);
    view->setFitWideMode("left");
    view->resize(100, 100);
    view->zoomTo(2, {1, 1});
    HitPlace hit;
    Selection selection;
    std::vector<TextLine> lines;
    EXPECT_EQ(view->search("x", {}, hit), TouchResult::NothingThere);
    EXPECT_EQ(view->stepToHit(1, hit), TouchResult::NothingThere);
    EXPECT_EQ(view->select(SelectUnit::All, {1, 1}), TouchResult::Failed);
    EXPECT_EQ(view->selection(selection), TouchResult::NothingThere);
    EXPECT_EQ(view->visibleText(lines), TouchResult::Failed);
    EXPECT_EQ(view->place().parts, 0);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(TouchPptTest, RefusedRenderingKeepsThePictureBefore) {
    const auto view = openDeck(2);
    const Frame before = paint(*view);
    fakeSlides().results["sstg_render_slide"] = 9;
    view->goTo(1);
    EXPECT_TRUE(paint(*view) == before);
    EXPECT_EQ(view->renderResult(), 9);
    pinch(*view, 100, 200, 1.0, _PINCH_BEGINS);
    pinch(*view, 100, 200, 2.0, _PINCH_MOVES);
    EXPECT_TRUE(paint(*view) == before);
    pinch(*view, 100, 200, 2.0, _PINCH_ENDS);
    fakeSlides().results.clear();
    expectSlide(*view, paint(*view));
}

} // namespace
