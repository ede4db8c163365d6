// SPDX-License-Identifier: Apache-2.0
// The state record: the place that a view restores when its document is reopened.
#include "tests/unit/excel/ExcelTest.h"

#include <sys/shm.h>

#include <cstring>

namespace {

class ExcelRecordTest : public ExcelTest {
protected:
    static std::unique_ptr<TestExcel> reopen(const TestExcel& old) {
        auto view = makeView(320, 480, old.dataStoreShmId());
        view->openFile("/d/book.xls", nullptr);
        return view;
    }
};

TEST_F(ExcelRecordTest, NewViewMakesASegmentAndSavesItsState) {
    const auto view = makeView();
    EXPECT_GE(view->dataStoreShmId(), 4096U);
    const shmid_ds status = segmentStatus(view->dataStoreShmId());
    EXPECT_EQ(status.shm_segsz, 28U);
    EXPECT_EQ(status.shm_perm.mode & 0777, 0666);
    // The key is computed from "/var" and the view's address.
    const int project = static_cast<int>(reinterpret_cast<uintptr_t>(view.get()) & 0xFF);
    EXPECT_EQ(status.shm_perm.__key, ftok("/var", project));
    ASSERT_NE(view->mDataStore, nullptr);
    EXPECT_EQ(view->mDataStore->scale, 2.0);
    EXPECT_EQ(view->mDataStore->scaleLevel, 1);
    EXPECT_EQ(view->mDataStore->extra[1], 0);
}

TEST_F(ExcelRecordTest, SheetIsTheSeventhWord) {
    fakeSheet().sheets.resize(4);
    const auto view = openView();
    view->jumpToSheet(3);
    view->mScroll.set(11, 22);
    view->SaveStateToDataStore();
    int32_t words[7];
    std::memcpy(words, view->mDataStore, sizeof words);
    EXPECT_EQ(words[0], 11);
    EXPECT_EQ(words[1], 22);
    EXPECT_EQ(words[4], 1);
    EXPECT_EQ(words[5], 0) << "not this view's";
    EXPECT_EQ(words[6], 3);
}

TEST_F(ExcelRecordTest, SheetZoomAndPlaceSurviveANewView) {
    fakeSheet().sheets.resize(4);
    fakeSheet().sheets[3].columns = 40;
    const auto old = openView();
    old->jumpToSheet(3);
    old->mScale = 3.0;
    old->mScaleLevel = 2;
    old->mScroll.set(1000, 2000);
    paint(*old);
    calls();
    testing::internal::CaptureStdout();
    const auto view = reopen(*old);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "no segment is made";
    EXPECT_EQ(view->dataStoreShmId(), old->dataStoreShmId());
    EXPECT_EQ(view->mCurrentSheet, 3);
    EXPECT_EQ(view->mScale, 3.0);
    EXPECT_EQ(view->mScaleLevel, 2);
    EXPECT_EQ(view->mScroll, CpPoint(1000, 2000));
    EXPECT_EQ(window(*view), CpRect(410, 1490, 1910, 2990));
    EXPECT_EQ(view->columnCount(), 40);
    EXPECT_EQ(fakeSheet().dpi, 216);
}

TEST_F(ExcelRecordTest, PaintsKeepTheRecordCurrent) {
    fakeSheet().sheets.resize(4);
    const auto view = openView();
    view->jumpToSheet(2);
    EXPECT_EQ(view->mDataStore->extra[1], 0);
    paint(*view);
    EXPECT_EQ(view->mDataStore->extra[1], 2);
}

TEST_F(ExcelRecordTest, ValuesWithoutSenseAreNotTakenOver) {
    const auto old = openView();
    old->mDataStore->scale = 4.5;
    old->mDataStore->scaleLevel = 3;
    old->mDataStore->scrollX = INT_MIN;
    old->mDataStore->scrollY = 700;
    old->mDataStore->extra[1] = -9;
    const auto view = reopen(*old);
    EXPECT_EQ(view->mScale, 2.0);
    EXPECT_EQ(view->mScaleLevel, 1);
    EXPECT_EQ(view->mScroll, CpPoint(0, 700));
    EXPECT_EQ(view->mCurrentSheet, -9) << "the module is the one to refuse it";
    paint(*view);
    old->mDataStore->scale = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(reopen(*old)->mScale, 2.0);
}

TEST_F(ExcelRecordTest, SegmentsThatCannotBeUsedAreReplaced) {
    const unsigned int small = makeClientSegment(27);
    for (const unsigned int id : {1U, 99U, 4000000U, small}) {
        testing::internal::CaptureStdout();
        const auto view = makeView(320, 480, id);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "Creating shmid!");
        EXPECT_NE(view->dataStoreShmId(), id);
        EXPECT_EQ(view->mScale, 2.0);
    }
    shmctl(static_cast<int>(small), IPC_RMID, nullptr);
}

} // namespace
