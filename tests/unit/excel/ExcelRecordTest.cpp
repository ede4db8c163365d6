// SPDX-License-Identifier: Apache-2.0
// The state record: the place that a view restores when its document is reopened.
#include "tests/unit/excel/ExcelTest.h"
#include "tests/unit/view/RecordTest.h"
#include "tests/unit/view/RestTest.h"

#include <cstring>
#include <tuple>

namespace {

class ExcelRecordTest : public ExcelTest {
protected:
    static constexpr const char* KEY_PATH = "/var";
    static constexpr double FIRST_SCALE = 2.0;
    static constexpr int FIRST_LEVEL = 1;

    static std::unique_ptr<TestExcel> openLong() {
        fakeSheet().sheets.resize(4);
        return openView();
    }
    static void goElsewhere(TestExcel& view) {
        view.jumpToSheet(3);
        view.mScale = 3.0;
        view.mScaleLevel = 2;
        view.mScroll.set(1000, 2000);
    }
    static auto place(const TestExcel& view) {
        return std::tuple(view.mCurrentSheet, view.mScale, view.mScaleLevel, view.mScroll.x, view.mScroll.y);
    }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Excel, StateRecordTest, ExcelRecordTest);
INSTANTIATE_TYPED_TEST_SUITE_P(Excel, RestTest, ExcelRecordTest);

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

} // namespace
