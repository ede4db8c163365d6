// SPDX-License-Identifier: Apache-2.0
// Taps on headers, on borders, and on cells with and without a comment.
#include "tests/unit/excel/ExcelTest.h"

namespace {

const std::string SELECTION_COLOUR = "stg_set_highlight_color(255, 245, 104)";

class ExcelClickTest : public ExcelTest {
protected:
    static std::unique_ptr<TestExcel> openAt(int x, int y) {
        auto view = openView();
        view->restAt(x, y);
        view->mOffscreenDirty = false;
        return view;
    }
    // A view with a column selected by a tap; the recorded calls are cleared.
    static std::unique_ptr<TestExcel> openSelected() {
        auto view = openAt(0, 0);
        EXPECT_TRUE(view->handleClick(100, 10));
        view->mOffscreenDirty = false;
        calls();
        notifications(*view);
        return view;
    }
    static std::string comment(const std::string& text, int x, int y) {
        return "{ \"comment\": \"" + text + "\", \"xcoord\": " + std::to_string(x) +
               ", \"ycoord\": " + std::to_string(y) + " }";
    }
};

TEST_F(ExcelClickTest, TapOnAColumnHeaderSelectsTheColumn) {
    const auto view = openAt(100, 50);
    EXPECT_TRUE(view->handleClick(90, 29));
    EXPECT_THAT(calls(), ElementsAre("stg_cell_bounds(0, 135, 0)", SELECTION_COLOUR,
                                     "stg_select_column(0, 130, 130)"));
    EXPECT_EQ(view->mSelection, CpRect(130, 0, 130, 0));
    EXPECT_TRUE(view->mSelectionActive);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_TRUE(view->mClicked);
    EXPECT_THAT(notifications(*view), ElementsAre(_COLUMN_SELECTED, _INVALIDATED));
    EXPECT_EQ(view->GetLastClickComment(), "") << "no tap on a cell";
}

TEST_F(ExcelClickTest, TapOnARowHeaderSelectsTheRow) {
    const auto view = openAt(100, 50);
    EXPECT_TRUE(view->handleClick(59, 110));
    EXPECT_THAT(calls(),
                ElementsAre("stg_cell_bounds(0, 0, 135)", SELECTION_COLOUR, "stg_select_row(0, 130, 130)"));
    EXPECT_EQ(view->mSelection, CpRect(0, 130, 0, 130));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_TRACKS_SELECTED, _INVALIDATED));
}

TEST_F(ExcelClickTest, TapsWithinFivePixelsOfABorderSelectNothing) {
    const auto view = openAt(0, 0);
    for (int way = -8; way <= 8; ++way) {
        const bool onBorder = -5 < way && way < 5;
        view->mSelectionActive = false;
        EXPECT_EQ(view->handleClick(60 + 80 + way, 10), !onBorder) << way;
        EXPECT_EQ(view->mSelectionActive, !onBorder) << way;
        view->mSelectionActive = false;
        EXPECT_EQ(view->handleClick(10, 30 + 40 + way), !onBorder) << way;
        EXPECT_EQ(view->mSelectionActive, !onBorder) << way;
    }
}

TEST_F(ExcelClickTest, TapOnABorderClearsTheSelectionBefore) {
    const auto view = openSelected();
    EXPECT_TRUE(view->handleClick(140, 10));
    EXPECT_THAT(calls(), ElementsAre("stg_clear_selection()", "stg_cell_bounds(0, 85, 0)"));
    EXPECT_FALSE(view->mSelectionActive);
    EXPECT_EQ(view->mSelection, CpRect(40, 0, 40, 0)) << "what commands go on working on";
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
    EXPECT_FALSE(view->handleClick(140, 10)) << "nothing to clear any more";
}

TEST_F(ExcelClickTest, AnotherHeaderTakesTheSelectionOver) {
    const auto view = openSelected();
    EXPECT_TRUE(view->handleClick(200, 10));
    EXPECT_EQ(calls().front(), "stg_clear_selection()");
    EXPECT_EQ(view->mSelection, CpRect(140, 0, 140, 0));
    EXPECT_TRUE(view->mSelectionActive);
}

TEST_F(ExcelClickTest, ResizeModeDoesNotDeepenTheHeadersForTaps) {
    const auto view = openAt(0, 0);
    view->setResizeMode(true);
    EXPECT_FALSE(view->handleClick(100, 40));
    EXPECT_FALSE(view->mSelectionActive);
    EXPECT_TRUE(view->handleClick(100, 10));
}

TEST_F(ExcelClickTest, CommentIsRememberedAndTold) {
    fakeSheet().comments = {{{2, 3}, u"See \"p/1\" \u00e9"}};
    const auto view = openAt(100, 50);
    EXPECT_TRUE(view->handleClick(150, 110));
    EXPECT_THAT(calls(), ElementsAre("stg_get_comment(0, 190, 130, 1024, 0)"));
    EXPECT_EQ(view->GetLastClickComment(), comment("See \\\"p\\/1\\\" \u00e9", 150, 110));
    EXPECT_THAT(notifications(*view), ElementsAre(_COMMENT_TAPPED));
    EXPECT_FALSE(view->mOffscreenDirty);
}

TEST_F(ExcelClickTest, CellWithoutACommentStillReplacesTheLastOne) {
    fakeSheet().comments = {{{0, 0}, u"note"}};
    const auto view = openAt(0, 0);
    view->handleClick(70, 40);
    EXPECT_EQ(view->GetLastClickComment(), comment("note", 70, 40));
    notifications(*view);
    EXPECT_FALSE(view->handleClick(300, 400));
    EXPECT_EQ(view->GetLastClickComment(), comment("", 300, 400));
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelClickTest, EmptyCommentIsNotTold) {
    fakeSheet().comments = {{{0, 0}, u""}};
    const auto view = openAt(0, 0);
    EXPECT_FALSE(view->handleClick(70, 40));
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelClickTest, FailedLookupIsNoComment) {
    fakeSheet().comments = {{{0, 0}, u"note"}};
    fakeSheet().results["stg_get_comment"] = 3;
    const auto view = openAt(0, 0);
    EXPECT_FALSE(view->handleClick(70, 40));
    EXPECT_EQ(view->GetLastClickComment(), comment("", 70, 40));
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelClickTest, LongCommentIsCutAtTheBuffer) {
    fakeSheet().comments = {{{0, 0}, std::u16string(3000, u'x')}};
    const auto view = openAt(0, 0);
    EXPECT_TRUE(view->handleClick(70, 40));
    EXPECT_EQ(view->GetLastClickComment(), comment(std::string(1023, 'x'), 70, 40));
}

TEST_F(ExcelClickTest, CornerAndHeaderEdgesCountAsCells) {
    const auto view = openAt(0, 0);
    for (const CpPoint at :
         {CpPoint(10, 10), CpPoint(60, 10), CpPoint(100, 30), CpPoint(10, 30), CpPoint(60, 100)}) {
        EXPECT_FALSE(view->handleClick(at.x, at.y));
        EXPECT_THAT(calls(), ElementsAre("stg_get_comment(0, " + std::to_string(at.x - 60) + ", " +
                                         std::to_string(at.y - 30) + ", 1024, 0)"));
    }
}

TEST_F(ExcelClickTest, TapOnACellClearsTheSelection) {
    const auto view = openSelected();
    EXPECT_TRUE(view->handleClick(200, 200));
    EXPECT_THAT(calls(), ElementsAre("stg_clear_selection()", "stg_get_comment(0, 140, 170, 1024, 0)"));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

TEST_F(ExcelClickTest, CommentComesBeforeWhatWasCleared) {
    fakeSheet().comments = {{{0, 0}, u"note"}};
    const auto view = openSelected();
    EXPECT_TRUE(view->handleClick(70, 40));
    EXPECT_FALSE(view->mSelectionActive);
    EXPECT_FALSE(view->mOffscreenDirty) << "the next change shows it";
    EXPECT_THAT(notifications(*view), ElementsAre(_COMMENT_TAPPED));
}

TEST_F(ExcelClickTest, TapThatStoppedAGlideIsUsedUpOnce) {
    const auto view = openAt(0, 0);
    view->mTapStoppedScroll = true;
    EXPECT_TRUE(view->handleClick(200, 200));
    EXPECT_FALSE(view->mTapStoppedScroll);
    EXPECT_FALSE(view->handleClick(200, 200));
}

TEST_F(ExcelClickTest, ClearingLeavesTheStoppedGlideAlone) {
    const auto view = openSelected();
    view->mTapStoppedScroll = true;
    EXPECT_TRUE(view->handleClick(200, 200));
    EXPECT_TRUE(view->mTapStoppedScroll);
}

TEST_F(ExcelClickTest, NothingDuringAPinch) {
    const auto view = openSelected();
    view->mClicked = false;
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleClick(200, 200));
    EXPECT_FALSE(view->mClicked);
    EXPECT_TRUE(view->mSelectionActive);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelClickTest, PointsOutsideTheSheetSaturate) {
    const auto view = openAt(1000, 50);
    EXPECT_FALSE(view->handleClick(INT_MAX, INT_MAX));
    EXPECT_THAT(calls(), ElementsAre("stg_get_comment(0, 2147483647, 2147483647, 1024, 0)"));
    EXPECT_EQ(view->GetLastClickComment(), comment("", INT_MAX, INT_MAX));
    EXPECT_TRUE(view->handleClick(INT_MAX, 10)) << "far behind the last column's border";
    EXPECT_EQ(view->mSelection, CpRect(INT_MAX, 0, INT_MAX, 0));
}

} // namespace
