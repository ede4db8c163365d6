// SPDX-License-Identifier: Apache-2.0
// Taps, cells, selections, and sheets.
#include "tests/unit/touch/TouchExcelTest.h"

namespace {

constexpr uint32_t FRAME_COLOUR = 0xFF1A66D0;

std::string place(const CpRect& r) {
    return std::to_string(r.Left()) + "," + std::to_string(r.Top()) + " " + std::to_string(r.Width()) + "x" +
           std::to_string(r.Height());
}

// The pixels of a frame that have the colour of the tapped cell's frame, which the
// blending darkens by less than 2.
CpRect framed(const Frame& picture, int width, int height) {
    CpRect around(width, height, 0, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const uint32_t pixel = picture.at(x, y);
            const auto near = [pixel](int shift) {
                return std::abs(static_cast<int>(pixel >> shift & 0xFF) -
                                static_cast<int>(FRAME_COLOUR >> shift & 0xFF)) < 2;
            };
            if (near(0) && near(8) && near(16)) {
                around.Set(std::min(around.Left(), x), std::min(around.Top(), y),
                           std::max(around.Right(), x + 1), std::max(around.Bottom(), y + 1));
            }
        }
    }
    return around;
}

class TouchCellsTest : public TouchExcelTest {
protected:
    static CpRect frameOf(TestTouchExcel& view) { return framed(paint(view), view.width(), view.height()); }
    static std::string cellText(TestTouchExcel& view, int column = -1, int row = -1) {
        Cell cell;
        return view.cell(column, row, cell) == TouchResult::Ok
                   ? cell.address + "|" + cell.text + "|" + cell.formula + "|" + cell.comment + "|" +
                         place(cell.place)
                   : "none";
    }
    static std::string selected(TestTouchExcel& view) {
        Selection selection;
        return view.selection(selection) == TouchResult::Ok
                   ? selection.text + "|" + place(selection.rectangles.at(0))
                   : "none";
    }
};

TEST_F(TouchCellsTest, ATapMarksTheCellAndTellsTheClient) {
    fakeSheet().texts[{4, 20}] = u"12";
    fakeSheet().formulas[{4, 20}] = u"=6*2";
    const auto view = openView(320, 480);
    view->scrollTo(100, 200);
    tap(*view, 100, 230); // 170, 415
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_CELL_TAPPED, 4, 20}}));
    EXPECT_EQ(cellText(*view), "E21|12|=6*2||90,215 40x20");
    EXPECT_EQ(edges(frameOf(*view)), (std::vector{89, 214, 131, 236}));
}

TEST_F(TouchCellsTest, TheFrameStaysOnItsCell) {
    const auto view = openView(320, 480);
    tap(*view, 100, 100); // 70, 85: B5
    view->scrollTo(33, 44);
    EXPECT_EQ(edges(frameOf(*view)), (std::vector{36, 50, 78, 72}));
    view->zoomTo(2.0, {0, 0});
    view->scrollTo(0, 0);
    EXPECT_EQ(edges(frameOf(*view)), (std::vector{139, 189, 221, 231}));
    view->zoomTo(1.0, {0, 0});
    view->scrollTo(60, 95); // the cell is half below the headers
    EXPECT_EQ(edges(frameOf(*view)), (std::vector{30, 15, 51, 21})) << "the headers cover it";
}

TEST_F(TouchCellsTest, TheFrameFollowsColumnsThatChange) {
    const auto view = openView(320, 480);
    tap(*view, 100, 100);
    fakeSheet().cellWidth = 50; // as if columns were resized by a command
    view->unhideAll();
    EXPECT_EQ(edges(frameOf(*view)), (std::vector{79, 94, 131, 116}));
    EXPECT_EQ(view->place().documentWidth, 2500);
    EXPECT_EQ(cellText(*view), "B5||||80,95 50x20");
}

TEST_F(TouchCellsTest, AMergedAreaIsMarkedWhole) {
    fakeSheet().merged = {{1, 4, 3, 2}};
    fakeSheet().texts[{1, 4}] = u"title";
    const auto view = openView(320, 480);
    tap(*view, 160, 120); // D6
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_CELL_TAPPED, 1, 4}}));
    EXPECT_EQ(cellText(*view), "B5|title|||70,95 120x40");
    EXPECT_EQ(edges(frameOf(*view)), (std::vector{69, 94, 191, 136}));
    EXPECT_EQ(cellText(*view, 2, 5), "B5|title|||70,95 120x40");
}

TEST_F(TouchCellsTest, ATapOnACommentIsToldAsEver) {
    fakeSheet().comments[{1, 4}] = u"look";
    const auto view = openView(320, 480);
    tap(*view, 100, 100);
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_CELL_TAPPED, 1, 4}, {_COMMENT_TAPPED, 0, 0}}));
    EXPECT_EQ(cellText(*view), "B5|||look|70,95 40x20");
    EXPECT_NE(view->GetLastClickComment().find("look"), std::string::npos);
}

TEST_F(TouchCellsTest, ATapBesideTheSheetIsUnused) {
    fakeSheet().sheets[0].columns = 3;
    const auto view = openView(320, 480);
    tap(*view, 100, 100);
    records(*view);
    view->handlePenDown(300, 100);
    EXPECT_FALSE(view->handleClick(300, 100));
    view->handlePenUp(300, 100);
    EXPECT_THAT(records(*view), IsEmpty());
    EXPECT_EQ(cellText(*view), "none");
    EXPECT_FALSE(view->handleClick(10, 5)) << "the corner between the headers";
    view->handlePenUp(10, 5);
}

TEST_F(TouchCellsTest, ATapThatStopsAGlideDoesNotMarkACell) {
    const auto view = openView(320, 480);
    view->handlePenDown(100, 200);
    view->handleFlick(0, -2000);
    view->handlePenUp(100, 200);
    TouchClock::advance(0.1);
    paint(*view);
    tap(*view, 100, 100);
    EXPECT_THAT(records(*view), IsEmpty());
    EXPECT_EQ(cellText(*view), "none");
}

TEST_F(TouchCellsTest, CellsOutOfRangeAreRefused) {
    const auto view = openView(320, 480);
    Cell cell;
    for (const bool optional : {true, false}) {
        EXPECT_EQ(view->cell(49, 199, cell), TouchResult::Ok);
        EXPECT_EQ(cell.address, "AX200");
        for (const auto& [column, row] : {std::pair(50, 0), {0, 200}, {-1, 0}, {0, -1}, {INT_MAX, INT_MAX}}) {
            EXPECT_EQ(view->cell(column, row, cell), TouchResult::OutOfRange) << column << ", " << row;
        }
        if (optional) {
            view->loseOptionalFunctions();
        }
    }
    EXPECT_EQ(view->cell(-1, -1, cell), TouchResult::NothingThere) << "nothing was tapped";
    fakeSheet().results["stg_get_cell"] = MODULE_FAILED;
    EXPECT_EQ(openView()->cell(3, 3, cell), TouchResult::Failed);
}

TEST_F(TouchCellsTest, WithoutTheModulesFunctionACellHasItsPlaceAndComment) {
    fakeSheet().texts[{1, 4}] = u"12";
    fakeSheet().comments[{1, 4}] = u"look";
    const auto view = openView(320, 480);
    view->loseOptionalFunctions();
    tap(*view, 100, 100);
    EXPECT_EQ(cellText(*view), "B5|||look|70,95 40x20");
    EXPECT_EQ(cellText(*view, 27, 100), "AB101||||1110,2015 40x20");
    std::vector<TextLine> lines;
    EXPECT_EQ(view->visibleText(lines), TouchResult::NotSupported);
    HitPlace hit;
    EXPECT_EQ(view->search("a", {true, false}, hit), TouchResult::NotSupported);
}

TEST_F(TouchCellsTest, TheVisibleTextsAreInReadingOrder) {
    fakeSheet().texts = {{{2, 3}, u"second"}, {{1, 3}, u"first"}, {{0, 4}, u"third"}, {{30, 3}, u"far"}};
    const auto view = openView(320, 480);
    std::vector<TextLine> lines;
    ASSERT_EQ(view->visibleText(lines), TouchResult::Ok);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text + " " + place(lines[0].place), "first 70,75 40x20");
    EXPECT_EQ(lines[1].text + " " + place(lines[1].place), "second 110,75 40x20");
    EXPECT_EQ(lines[2].text + " " + place(lines[2].place), "third 30,95 40x20");
    fakeSheet().arrayCount = 1 << 30;
    fakeSheet().nullArrays = true;
    lines.clear();
    ASSERT_EQ(view->visibleText(lines), TouchResult::Ok);
    EXPECT_TRUE(lines.empty());
}

TEST_F(TouchCellsTest, SelectsACellAndMovesItsEnds) {
    fakeSheet().selection = u"a\tb\nc\td";
    const auto view = openView(320, 480);
    calls();
    ASSERT_EQ(view->select(SelectUnit::Word, {100, 100}), TouchResult::Ok);
    const std::vector<std::string> made = calls();
    EXPECT_THAT(made, testing::Contains("stg_set_highlight_color(255, 245, 104)"));
    EXPECT_THAT(made, testing::Contains("stg_select_area(0, 40, 80, 40, 20)"));
    EXPECT_EQ(selected(*view), "a\tb\nc\td|70,95 40x20");
    ASSERT_EQ(view->moveSelectionEnd(SelectEnd::End, {200, 200}), TouchResult::Ok);
    EXPECT_THAT(calls(), testing::Contains("stg_select_area(0, 40, 80, 160, 120)"));
    ASSERT_EQ(view->moveSelectionEnd(SelectEnd::Start, {31, 16}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "a\tb\nc\td|30,15 200x200");
    ASSERT_EQ(view->moveSelectionEnd(SelectEnd::Start, {300, 300}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "a\tb\nc\td|190,195 120x120") << "the ends change places";
    ASSERT_EQ(view->select(SelectUnit::None, {0, 0}), TouchResult::Ok);
    EXPECT_EQ(selected(*view), "none");
    EXPECT_EQ(view->moveSelectionEnd(SelectEnd::End, {200, 200}), TouchResult::NothingThere);
}

TEST_F(TouchCellsTest, SelectsRowsAndTheWholeSheet) {
    const auto view = openView(320, 480);
    calls();
    ASSERT_EQ(view->select(SelectUnit::Line, {100, 100}), TouchResult::Ok);
    EXPECT_THAT(calls(), testing::Contains("stg_select_row(0, 80, 99)"));
    EXPECT_EQ(selected(*view), "|30,95 2000x20");
    ASSERT_EQ(view->moveSelectionEnd(SelectEnd::End, {100, 130}), TouchResult::Ok);
    EXPECT_THAT(calls(), testing::Contains("stg_select_row(0, 80, 119)"));
    view->hideSelection();
    EXPECT_THAT(calls(), testing::Contains("stg_hide_rows(0, 80, 119)"));
    ASSERT_EQ(view->select(SelectUnit::All, {0, 0}), TouchResult::Ok);
    EXPECT_THAT(calls(), testing::Contains("stg_select_area(0, 0, 0, 2000, 4000)"));
    EXPECT_EQ(selected(*view), "|30,15 2000x4000");
    tap(*view, 100, 100);
    EXPECT_EQ(selected(*view), "none") << "a tap ends it";
}

TEST_F(TouchCellsTest, StrokesOnTheHeadersSelect) {
    const auto view = openView(320, 480);
    view->scrollTo(100, 200);
    paint(*view);
    view->handlePenDown(60, 5);
    view->handlePenMove(150, 5);
    EXPECT_EQ(view->mScroll.x, 100) << "no drag";
    view->handlePenUp(150, 5);
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_TRACKS_SELECTED, 0, 0}}));
    EXPECT_EQ(selected(*view), "|50,-185 120x4000");
    view->zoomTo(2.0, {31, 16});
    calls();
    view->hideSelection();
    EXPECT_THAT(calls(), testing::Contains("stg_hide_columns(0, 240, 479)"))
        << "the same columns after a zoom";
    tap(*view, 10, 300);
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_TRACKS_SELECTED, 0, 0}}));
    EXPECT_NE(selected(*view).find(" 4000x40"), std::string::npos) << "one row";
    view->handlePenDown(100, 5);
    view->handleFlick(-3000, 0);
    EXPECT_FALSE(view->place().isMoving) << "a quick stroke is no flick";
    view->handlePenUp(150, 5);
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_TRACKS_SELECTED, 0, 0}}));
}

TEST_F(TouchCellsTest, StrokesInResizeModeShowAGuideAtThePen) {
    const auto view = openView(320, 480);
    view->scrollTo(1000, 0);
    view->setResizeMode(true);
    view->handlePenDown(100, 5);
    view->handlePenMove(140, 5);
    const Frame picture = paint(*view);
    EXPECT_EQ(picture.at(140, 5), 0xFF404040U);
    EXPECT_EQ(picture.at(140, 400), 0xFF404040U);
    calls();
    view->handlePenUp(160, 5);
    EXPECT_THAT(calls(), testing::Contains("stg_resize_column(0, 1070, 60)"));
    EXPECT_EQ(records(*view), (std::vector<TouchRecord>{{_TRACK_RESIZED, 0, 0}}));
    EXPECT_NE(paint(*view).at(160, 5), 0xFF404040U);
}

TEST_F(TouchCellsTest, AStrokeThatSelectsNothingKeepsTheSelection) {
    const auto view = openView(320, 480);
    ASSERT_EQ(view->select(SelectUnit::Word, {100, 100}), TouchResult::Ok);
    view->setResizeMode(true);
    view->handlePenDown(100, 5);
    view->handlePenMove(140, 5);
    view->handlePenUp(140, 5);
    view->setResizeMode(false);
    EXPECT_EQ(selected(*view), "|70,95 40x20");
    EXPECT_TRUE(view->mSelectionActive) << "a tap ends it";
}

TEST_F(TouchCellsTest, SheetsAreTheOutline) {
    fakeSheet().sheets = {{u"One", 50, 200}, {u"T\"wo", 10, 400}};
    const auto view = openView(320, 480);
    std::vector<OutlineEntry> entries;
    ASSERT_EQ(view->outline(entries), TouchResult::Ok);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[1].title, "T\"wo");
    EXPECT_EQ(entries[1].part, 1);
    EXPECT_EQ(view->goTo(2), TouchResult::OutOfRange);
    EXPECT_EQ(view->goTo(-1), TouchResult::OutOfRange);
    ASSERT_EQ(view->goTo(1), TouchResult::Ok);
    EXPECT_EQ(view->place().part, 1);
    EXPECT_EQ(view->place().parts, 2);
    EXPECT_EQ(view->place().documentWidth, 400);
    EXPECT_EQ(view->place().documentHeight, 8000);
    expectSheet(*view, paint(*view), 3);
}

TEST_F(TouchCellsTest, EachSheetIsShownWhereItStood) {
    fakeSheet().sheets = {{u"One", 50, 200}, {u"Two", 10, 400}};
    const auto view = openView(320, 480);
    view->scrollTo(500, 900);
    tap(*view, 100, 100);
    view->goTo(1);
    EXPECT_EQ(view->mScroll.y, 0);
    expectSheet(*view, paint(*view), 3);
    EXPECT_EQ(cellText(*view), "none") << "the tapped cell is on the other sheet";
    view->scrollTo(0, 3000);
    view->jumpToSheet(0);
    EXPECT_EQ(view->mScroll.x, 500);
    EXPECT_EQ(view->mScroll.y, 900);
    EXPECT_NE(cellText(*view), "none");
    view->zoomTo(2.0, {0, 0});
    view->jumpToSheet(1);
    EXPECT_EQ(view->mScroll.y, 6000);
    expectSheet(*view, paint(*view), 3);
}

TEST_F(TouchCellsTest, ASheetThatDoesNotExistIsNotRefusedByJumpToSheet) {
    const auto view = openView(320, 480);
    EXPECT_EQ(view->jumpToSheet(99), 99);
    paint(*view);
    EXPECT_EQ(view->jumpToSheet(0), 0);
    expectSheet(*view, paint(*view), 3);
}

TEST_F(TouchCellsTest, TheRecordsSheetIsCheckedWhenItIsReopened) {
    const auto view = openView(320, 480);
    view->scrollTo(300, 500);
    paint(*view);
    auto record = view->mDataStore;
    record->extra[1] = 77;
    const auto again = reopen(*view);
    EXPECT_EQ(again->place().part, 0);
    paint(*again);
}

} // namespace
