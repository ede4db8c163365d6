// SPDX-License-Identifier: Apache-2.0
// Header strips on a client's screen: they match the cells, and select them.
#include "tests/system/support/ServiceFixture.h"
#include "tests/system/support/SheetScreen.h"

#include <algorithm>
#include <functional>

namespace {

constexpr uint32_t HEADER_LINE = 0xFF8C8C8C;
constexpr uint32_t HEADER_GROUND = 0xFFCCCCCC;
constexpr uint32_t GRID_LINE = 0xFFC0C0C0;
constexpr uint32_t WHITE = 0xFFFFFFFF;
constexpr uint32_t SELECTED = 0xFFFFF568;

using Header = SheetScreen::Header;

class SheetHeaderTest : public ServiceTest {
protected:
    void open(const std::string& path) {
        screen = std::make_unique<SheetScreen>(*client, *queue, path);
        ASSERT_EQ(screen->document().openResult(), 0);
    }
    void openLabelled() { open(generated("labelled.xlsx", "make_xlsx.py", {"labelled", "OUT"})); }
    // Opens a sheet whose cells show only their lines.
    void openEmpty() { open(generated("empty.xlsx", "make_xlsx.py", {"plain", "OUT", ""})); }
    void TearDown() override {
        screen.reset();
        ServiceTest::TearDown();
    }
    // Every line of a strip continues among the cells, and there are no other lines.
    void expectLinesInStep() {
        const SheetScreen::Area cells = screen->cells();
        const std::vector<Header> columns = screen->columns();
        const std::vector<Header> rows = screen->rows();
        ASSERT_GE(columns.size(), 1U);
        ASSERT_GE(rows.size(), 4U);
        const int row = rows[0].middle(); // of pixels without a line
        const int column = columns[0].middle();
        for (int x = cells.left; x < screen->width(); ++x) {
            ASSERT_EQ(screen->at(x, 0) == HEADER_LINE, screen->at(x, row) == GRID_LINE)
                << "column of pixels " << x;
        }
        for (int y = cells.top; y < screen->height() - 1; ++y) {
            ASSERT_EQ(screen->at(0, y) == HEADER_LINE, screen->at(column, y) == GRID_LINE)
                << "row of pixels " << y;
        }
    }
    // Labels are centred between their lines: the distances differ by at most a
    // pixel and the blank beside a digit's strokes.
    void expectLabelsInTheirMiddle() const {
        const SheetScreen::Area cells = screen->cells();
        const auto hasInk = [&](int x, int y) { return (screen->at(x, y) & 0xFF) < 0x60; };
        const int labels = labelsInTheirMiddle(screen->columns(), cells.top - 1, hasInk) +
                           labelsInTheirMiddle(screen->rows(), cells.left - 1,
                                               [&](int along, int across) { return hasInk(across, along); });
        EXPECT_GE(labels, 8);
    }
    // Number of headers in a strip that have a label. The strip ends before
    // `thickness`. hasInk takes a pixel's position along and across the strip.
    static int labelsInTheirMiddle(const std::vector<Header>& headers, int thickness,
                                   const std::function<bool(int, int)>& hasInk) {
        constexpr int TOLERANCE = 4;
        int labels = 0;
        for (const Header& header : headers) {
            int first = header.end, last = header.begin;
            for (int along = header.begin + 1; along < header.end; ++along) {
                for (int across = 1; across < thickness; ++across) {
                    if (hasInk(along, across)) {
                        first = std::min(first, along);
                        last = along;
                    }
                }
            }
            if (last > header.begin) {
                EXPECT_NEAR(first - header.begin, header.end - last, TOLERANCE) << "at " << header.begin;
                ++labels;
            }
        }
        return labels;
    }
    // The screen has changed only inside a band; there white cells are selected
    // and the header is no longer grey.
    void expectSelected(const std::vector<uint32_t>& before, const SheetScreen::Area& band) const {
        const SheetScreen::Area cells = screen->cells();
        for (int y = 0; y < screen->height() - 1; ++y) {
            for (int x = 0; x < screen->width(); ++x) {
                const uint32_t old = before[static_cast<size_t>(y * screen->width() + x)];
                const uint32_t now = screen->at(x, y);
                if (!band.has(x, y) || (x < cells.left && y < cells.top)) {
                    ASSERT_EQ(now, old) << x << "," << y;
                } else if (old == WHITE) {
                    ASSERT_EQ(now, SELECTED) << x << "," << y;
                } else if (old == HEADER_GROUND) {
                    ASSERT_NE(now, HEADER_GROUND) << x << "," << y;
                } else if ((old & 0xFFFFFF) == 0) {
                    ASSERT_EQ(now, old) << "writing at " << x << "," << y;
                }
            }
        }
    }
    SheetScreen::Area columnBand(int begin, int end) const { return {begin, 0, end, screen->height()}; }
    SheetScreen::Area rowBand(int begin, int end) const { return {0, begin, screen->width(), end}; }

    std::unique_ptr<SheetScreen> screen;
};

TEST_F(SheetHeaderTest, LinesAndLabelsAreInStepWithTheCellsAtEveryZoomAndFarAway) {
    openLabelled();
    for (const double zoom : {2.0, 1.0, 3.25, 1.37}) {
        SCOPED_TRACE(zoom);
        screen->zoom(zoom);
        const double perInch = 72 * zoom;
        for (const double inches : {20.0, 60.0, 120.0}) { // between the blocks, where cells are empty
            SCOPED_TRACE(inches);
            screen->scrollTo(static_cast<int>(inches * perInch), static_cast<int>(2 * inches * perInch));
            expectLinesInStep();
            expectLabelsInTheirMiddle();
        }
    }
}

TEST_F(SheetHeaderTest, StripsStayInStepWhileThePenDrags) {
    openEmpty();
    for (int drag = 1; drag <= 6; ++drag) { // together shorter than the window of cells
        screen->stroke(300, 600, 300 - drag * 9, 600 - drag * 13);
        SCOPED_TRACE(drag);
        expectLinesInStep();
    }
}

TEST_F(SheetHeaderTest, ATapOnAColumnsHeaderSelectsThatColumnAndAnotherTapClearsIt) {
    openEmpty();
    for (const double zoom : {2.0, 1.0, 2.5}) {
        SCOPED_TRACE(zoom);
        screen->zoom(zoom);
        screen->scrollTo(static_cast<int>(100 * zoom), static_cast<int>(100 * zoom));
        const std::vector<uint32_t> before = screen->pixels();
        const Header column = screen->columns().at(1);
        EXPECT_EQ(screen->tapColumn(column), (std::set<int>{0, 4}));
        expectSelected(before, columnBand(column.begin, column.end));
        screen->document().tap(screen->cells().left + 30, screen->cells().top + 30);
        EXPECT_EQ(screen->pixels(), before);
    }
}

TEST_F(SheetHeaderTest, ATapOnARowsHeaderSelectsThatRow) {
    openEmpty();
    for (const double zoom : {2.0, 1.0, 2.5}) {
        SCOPED_TRACE(zoom);
        screen->zoom(zoom);
        screen->scrollTo(static_cast<int>(100 * zoom), static_cast<int>(100 * zoom));
        const std::vector<uint32_t> before = screen->pixels();
        const Header row = screen->rows().at(3);
        EXPECT_EQ(screen->tapRow(row), (std::set<int>{0, 5}));
        expectSelected(before, rowBand(row.begin, row.end));
        screen->call("clearSelection"); // not a method of this category
        screen->document().call("/common", "clearSelection");
        EXPECT_EQ(screen->pixels(), before);
    }
}

TEST_F(SheetHeaderTest, StrokesSelectTheColumnsAndRowsTheyPass) {
    openEmpty();
    const std::vector<uint32_t> before = screen->pixels();
    const std::vector<Header> columns = screen->columns();
    const std::vector<Header> rows = screen->rows();
    const SheetScreen::Area cells = screen->cells();
    // From the right to the left as well.
    EXPECT_EQ(
        screen->stroke(columns.at(2).middle(), cells.top / 2, columns.at(1).middle(), cells.top / 2).count(5),
        1U);
    expectSelected(before, columnBand(columns.at(1).begin, columns.at(2).end));
    EXPECT_EQ(
        screen->stroke(cells.left / 2, rows.at(2).middle(), cells.left / 2, rows.at(5).middle()).count(5),
        1U);
    expectSelected(before, rowBand(rows.at(2).begin, rows.at(5).end));
    EXPECT_EQ(screen->stroke(columns.at(1).begin + 10, cells.top / 2, columns.at(1).end - 10, cells.top / 2)
                  .count(4),
              1U);
    expectSelected(before, columnBand(columns.at(1).begin, columns.at(1).end));
}

TEST_F(SheetHeaderTest, BordersAndShortStrokesSelectNothing) {
    openEmpty();
    const std::vector<uint32_t> before = screen->pixels();
    const Header column = screen->columns().at(1);
    const int inHeader = screen->cells().top / 2;
    for (int beside = -4; beside <= 4; ++beside) {
        screen->document().tap(column.begin + beside, inHeader);
        EXPECT_EQ(screen->notices().count(4), 0U) << beside;
        EXPECT_EQ(screen->pixels(), before) << beside;
    }
    for (const int beside : {-5, 5}) {
        screen->document().tap(column.begin + beside, inHeader);
        EXPECT_EQ(screen->notices().count(4), 1U) << beside;
        screen->document().tap(column.begin, inHeader); // and clears
        EXPECT_EQ(screen->pixels(), before) << beside;
    }
    EXPECT_EQ(screen->stroke(column.middle(), inHeader, column.middle() + 5, inHeader).count(4), 0U);
    EXPECT_EQ(screen->pixels(), before);
}

TEST_F(SheetHeaderTest, ABorderFollowsThePenInResizeMode) {
    openEmpty();
    const std::vector<uint32_t> plain = screen->pixels();
    screen->call("resizeMode", R"(,"mode":"on")");
    EXPECT_NE(screen->pixels(), plain) << "cells are veiled";
    const std::vector<Header> columns = screen->columns();
    const std::vector<Header> rows = screen->rows();
    const SheetScreen::Area cells = screen->cells();
    // Drags the border before the second column and the one before the fifth
    // row. The headers' touch area is twice as deep as they are.
    EXPECT_EQ(screen->stroke(columns[1].begin, cells.top + 3, columns[1].begin + 37, cells.top + 3).count(6),
              1U);
    EXPECT_EQ(screen->stroke(cells.left + 3, rows[4].begin, cells.left + 3, rows[4].begin - 9).count(6), 1U);
    screen->call("resizeMode", R"(,"mode":"ON")");
    const std::vector<Header> wider = screen->columns();
    const std::vector<Header> lower = screen->rows();
    ASSERT_GE(wider.size(), 2U);
    EXPECT_EQ(wider[0].end, columns[0].end + 37);
    EXPECT_EQ(wider[1].end - wider[1].begin, columns[1].end - columns[1].begin);
    EXPECT_EQ(lower[3].begin, rows[3].begin);
    EXPECT_EQ(lower[3].end, rows[3].end - 9);
    expectLinesInStep();
    // A stroke that ends where it began is reported and changes nothing.
    const std::vector<uint32_t> resized = screen->pixels();
    screen->call("resizeMode", R"(,"mode":"on")");
    EXPECT_EQ(screen->stroke(wider[1].begin, 3, wider[1].begin, 3).count(6), 1U);
    screen->call("resizeMode", R"(,"mode":"off")");
    screen->rest(); // the next rendering removes the guides
    EXPECT_EQ(screen->pixels(), resized);
}

} // namespace
