// SPDX-License-Identifier: Apache-2.0
// The state record: the place that a view restores when its document is reopened.
#include "tests/unit/ppt/PptTest.h"

#include <sys/shm.h>

#include <cstring>

namespace {

class PptRecordTest : public PptTest {
protected:
    static std::unique_ptr<TestPpt> reopen(const TestPpt& old, const char* path = "/d/deck.ppt") {
        auto view = makeView(320, 480, old.dataStoreShmId());
        view->openFile(path, nullptr);
        return view;
    }
};

TEST_F(PptRecordTest, NewViewMakesASegmentAndSavesItsState) {
    const auto view = makeView();
    EXPECT_GE(view->dataStoreShmId(), 4096U);
    const shmid_ds status = segmentStatus(view->dataStoreShmId());
    EXPECT_EQ(status.shm_segsz, 28U);
    EXPECT_EQ(status.shm_perm.mode & 0777, 0666);
    // The key is computed from "/tmp" and the view's address.
    const int project = static_cast<int>(reinterpret_cast<uintptr_t>(view.get()) & 0xFF);
    EXPECT_EQ(status.shm_perm.__key, ftok("/tmp", project));
    ASSERT_NE(view->mDataStore, nullptr);
    EXPECT_EQ(view->mDataStore->scale, 1.0);
    EXPECT_EQ(view->mDataStore->extra[1], 0);
}

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

TEST_F(PptRecordTest, PaintsKeepTheRecordCurrent) {
    const auto view = openDeck(5);
    view->jumpToSlide(4);
    EXPECT_EQ(view->mDataStore->extra[1], 0);
    paint(*view);
    EXPECT_EQ(view->mDataStore->extra[1], 4);
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

TEST_F(PptRecordTest, FailedOpenKeepsThePlaceForTheNextAttempt) {
    const auto old = openDeck(5);
    old->jumpToSlide(2);
    old->zoomTo(0.6);
    old->SaveStateToDataStore();
    const auto failed = reopen(*old, "/d/code-7.ppt");
    failed->SaveStateToDataStore();
    const auto view = reopen(*failed);
    EXPECT_EQ(view->mCurrentSlide, 2);
    EXPECT_EQ(view->mScale, 0.6);
}

TEST_F(PptRecordTest, UnusableSegmentCountsAsNone) {
    const unsigned int small = makeSegment(27);
    for (const unsigned int id : {99U, small, 123456789U}) {
        auto view = makeView(320, 480, id);
        EXPECT_NE(view->dataStoreShmId(), id);
        ASSERT_NE(view->mDataStore, nullptr);
        view->mDataStore->scale = 2.0;
        view->openFile("/d/deck.ppt", nullptr);
        EXPECT_EQ(view->mScale, 0.5) << "nothing was restored";
    }
}

TEST_F(PptRecordTest, WithoutARecordStateOperationsDoNothing) {
    const auto view = openDeck(3);
    view->jumpToSlide(1);
    view->mDirty = false;
    view->mDataStore = nullptr;
    view->SaveStateToDataStore();
    view->RestoreStateFromDataStore();
    EXPECT_EQ(view->mCurrentSlide, 1);
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_FALSE(view->mDirty);
}

TEST_F(PptRecordTest, RestoringAnOpenDocumentHoldsToItsLimits) {
    const auto view = openView();
    view->mDataStore->scale = 3.0;
    view->RestoreStateFromDataStore();
    EXPECT_EQ(view->mScale, 0.5);
}

} // namespace
