// SPDX-License-Identifier: Apache-2.0
// The state record: the place that a view restores when its document is reopened.
#include "tests/unit/ppt/PptTest.h"
#include "tests/unit/view/RecordTest.h"
#include "tests/unit/view/RestTest.h"

#include <cstring>
#include <tuple>

namespace {

class PptRecordTest : public PptTest {
protected:
    static constexpr const char* KEY_PATH = "/tmp";
    static constexpr double FIRST_SCALE = 1.0;
    static constexpr int FIRST_LEVEL = 0;

    static std::unique_ptr<TestPpt> openLong() { return openDeck(5); }
    static void goElsewhere(TestPpt& view) {
        view.jumpToSlide(2);
        view.zoomTo(1.5);
        view.mScroll.set(100, 40);
    }
    static auto place(const TestPpt& view) {
        return std::tuple(view.mCurrentSlide, view.mScale, view.mScroll.x, view.mScroll.y);
    }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Ppt, StateRecordTest, PptRecordTest);
INSTANTIATE_TYPED_TEST_SUITE_P(Ppt, RestTest, PptRecordTest);

TEST_F(PptRecordTest, SlideIsTheSeventhWord) {
    const auto view = openDeck(5);
    view->jumpToSlide(3);
    view->mScroll.set(11, 22);
    view->mScaleLevel = 2;
    view->SaveStateToDataStore();
    int32_t words[7];
    std::memcpy(words, view->mDataStore, sizeof words);
    double scale = 0.0;
    std::memcpy(&scale, words + 2, sizeof scale);
    EXPECT_EQ(words[0], 11);
    EXPECT_EQ(words[1], 22);
    EXPECT_EQ(scale, 0.5);
    EXPECT_EQ(words[4], 2);
    EXPECT_EQ(words[5], 0) << "not this view's";
    EXPECT_EQ(words[6], 3);
}

TEST_F(PptRecordTest, SlideZoomAndPlaceSurviveANewView) {
    auto old = openDeck(5);
    old->jumpToSlide(3);
    old->zoomTo(0.7);
    old->mScroll.set(100, -40);
    paint(*old);
    const auto view = reopen(*old);
    EXPECT_EQ(view->mCurrentSlide, 3);
    EXPECT_EQ(view->mScale, 0.7);
    EXPECT_EQ(view->mMinScale, 0.5);
    EXPECT_EQ(view->mMaxScale, 2.0);
    EXPECT_EQ(surfaceSize(*view), CpPoint(448, 336));
    EXPECT_EQ(view->mScroll, CpPoint(100, -72)) << "as the paint had clamped it";
    EXPECT_TRUE(view->mDirty);
    calls();
    paint(*view);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(3, 0, 448, 336)"));
}

TEST_F(PptRecordTest, PaintsInFitWideModeKeepTheRecordCurrentToo) {
    const auto view = openDeck(5);
    view->setFitWideMode(nullptr);
    ASSERT_EQ(view->mDrawMode, _WIDE);
    view->jumpToSlide(4);
    paint(*view);
    EXPECT_EQ(view->mDataStore->extra[1], 4);
    EXPECT_EQ(view->mDataStore->scale, 0.75);
}

TEST_F(PptRecordTest, ZoomOutsideTheDocumentsLimitsIsTheOneThatFits) {
    const auto old = openView();
    constexpr double POSITIVE_INFINITY = std::numeric_limits<double>::infinity();
    for (const double scale :
         {0.49, 2.01, 0.0, -1.0, 1e300, -POSITIVE_INFINITY, POSITIVE_INFINITY, std::nan("")}) {
        old->mDataStore->scale = scale;
        EXPECT_EQ(reopen(*old)->mScale, 0.5) << scale;
    }
    for (const double scale : {0.5, 1.0, 2.0}) {
        old->mDataStore->scale = scale;
        EXPECT_EQ(reopen(*old)->mScale, scale);
    }
}

TEST_F(PptRecordTest, ZoomThatAPinchEndedAtALimitComesBack) {
    const auto old = openView();
    old->mDataStore->scale = std::nextafter(2.0, 3.0);
    EXPECT_EQ(reopen(*old)->mScale, std::nextafter(2.0, 3.0));
    old->mDataStore->scale = std::nextafter(0.5, 0.0);
    EXPECT_EQ(reopen(*old)->mScale, std::nextafter(0.5, 0.0));
}

TEST_F(PptRecordTest, PlacesAndLevelsThatMakeNoSenseAreLeftOut) {
    const auto old = openView();
    old->mDataStore->scrollX = INT32_MAX;
    old->mDataStore->scrollY = INT32_MIN;
    old->mDataStore->scaleLevel = 3;
    const auto view = reopen(*old);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    EXPECT_EQ(view->mScaleLevel, 0);
}

TEST_F(PptRecordTest, SlideNumberIsPassedOnWhateverItIs) {
    const auto old = openDeck(3);
    old->SaveStateToDataStore();
    for (const int32_t slide : {99, -1, INT32_MAX, INT32_MIN}) {
        old->mDataStore->extra[1] = slide;
        const auto view = reopen(*old);
        EXPECT_EQ(view->mCurrentSlide, slide);
        calls();
        paint(*view);
        EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(" + std::to_string(slide) + ", 0, 320, 240)"));
        EXPECT_EQ(view->getSlideNote(), "");
        view->doSearch("x");
        EXPECT_EQ(view->jumpToSlide(1), 1) << "and the view is well again";
    }
}

TEST_F(PptRecordTest, RestoringAnOpenDocumentHoldsToItsLimits) {
    const auto view = openView();
    view->mDataStore->scale = 3.0;
    view->RestoreStateFromDataStore();
    EXPECT_EQ(view->mScale, 0.5);
}

} // namespace
