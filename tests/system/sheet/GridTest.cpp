// SPDX-License-Identifier: Apache-2.0
// Cells, their bounds and their headers match to the pixel at every position and zoom.

#include "tests/system/sheet/WorkbookView.h"
#include "tests/system/support/Python.h"

#include <map>
#include <random>
#include <sstream>

namespace lectern::test {
namespace {

constexpr std::int32_t SIZE = 600;
constexpr std::int32_t ZOOMS[] = {72, 126, 251};
constexpr std::uint32_t HEADER_LINE = 0xFF8C8C8C;
constexpr std::uint32_t GRID_LINE = 0xFFC0C0C0;

// Blocks of filled cells far apart; every cell has its own colour.
std::string colouredFile() {
    return generated("coloured.xlsx", {"coloured", "OUT"});
}

std::map<CellReference, std::uint32_t> readColours() {
    std::map<CellReference, std::uint32_t> ALL;
    for (const std::string& line : readWorkbook({"colours", colouredFile(), "Sheet"})) {
        std::istringstream in(line);
        CellReference cell;
        std::uint32_t colour = 0;
        in >> cell.column >> cell.row >> std::hex >> colour;
        ALL[cell] = 0xFF000000 | colour;
    }
    return ALL;
}

const std::map<CellReference, std::uint32_t>& colours() {
    static const std::map<CellReference, std::uint32_t> ALL = readColours();
    return ALL;
}

// The top left cells of the blocks, and cells further inside.
const CellReference CORNERS[] = {{0, 0}, {3, 11}, {490, 0}, {2, 10001}, {491, 10000}};

class GridTest : public testing::Test {
protected:
    // Number of random points of the window at (x, y) that showed their cell.
    int checkPoints(WorkbookView& view, std::int32_t x, std::int32_t y, int points);
    // In the window at (x, y), the strips have lines where the cells have them.
    static void checkLines(WorkbookView& view, std::int32_t x, std::int32_t y);

    std::mt19937 mChance{20260211};
};

int GridTest::checkPoints(WorkbookView& view, std::int32_t x, std::int32_t y, int points) {
    std::uniform_int_distribution<std::int32_t> place(0, SIZE - 1);
    int checked = 0;
    for (int i = 0; i < points; i++) {
        const std::int32_t across = place(mChance);
        const std::int32_t down = place(mChance);
        const CellReference cell = view.cellAt(x + across, y + down);
        const auto colour = colours().find(cell);
        if (colour == colours().end()) {
            continue;
        }
        EXPECT_EQ(view.cells().at(across, down), colour->second)
            << nameOf(cell) << " at " << x + across << ", " << y + down;
        const module_rect bounds = view.bounds(x + across, y + down);
        for (const auto& [right, bottom] :
             {std::pair(0, 0), std::pair(bounds.width - 1, bounds.height - 1)}) {
            const std::int32_t cornerX = bounds.x + right - x;
            const std::int32_t cornerY = bounds.y + bottom - y;
            if (cornerX >= 0 && cornerX < SIZE && cornerY >= 0 && cornerY < SIZE) {
                EXPECT_EQ(view.cells().at(cornerX, cornerY), colour->second) << "corner of " << nameOf(cell);
            }
        }
        checked++;
    }
    return checked;
}

TEST_F(GridTest, PointsShowTheCellTheyAreInAtEveryZoomAndFarAway) {
    WorkbookView view(colouredFile());
    for (const std::int32_t dpi : ZOOMS) {
        view.show(0, SIZE, SIZE, dpi);
        int checked = 0;
        for (const CellReference corner : CORNERS) {
            const module_rect at = view.place(corner);
            view.render(at.x + 7, at.y + 3);
            checked += checkPoints(view, at.x + 7, at.y + 3, 80);
        }
        EXPECT_GE(checked, 200) << dpi;
    }
}

TEST_F(GridTest, TheSameCellsArePaintedWhateverTheWindowBeginsWith) {
    WorkbookView view(colouredFile());
    view.show(0, SIZE, SIZE, 97);
    const module_rect at = view.place({491, 10001});
    view.render(at.x, at.y);
    const Picture before = view.cells();
    view.render(at.x + 13, at.y + 5);
    for (std::int32_t y = 0; y < SIZE - 5; y += 7) {
        for (std::int32_t x = 0; x < SIZE - 13; x += 3) {
            ASSERT_EQ(view.cells().at(x, y), before.at(x + 13, y + 5)) << x << ", " << y;
        }
    }
}

void GridTest::checkLines(WorkbookView& view, std::int32_t x, std::int32_t y) {
    view.render(x, y);
    const module_rect cell = view.bounds(x + SIZE / 2, y + SIZE / 2);
    const std::int32_t inside = cell.x + cell.width / 2 - x; // a column of pixels without a line
    const std::int32_t within = cell.y + cell.height / 2 - y;
    int lines = 0;
    for (std::int32_t i = 0; i < SIZE; i++) {
        const bool acrossLine = view.columnHeaders().at(i, 0) == HEADER_LINE;
        EXPECT_EQ(acrossLine, view.cells().at(i, within) == GRID_LINE) << "column of pixels " << x + i;
        const module_rect column = view.bounds(x + i, y);
        EXPECT_EQ(acrossLine, column.x == x + i);
        EXPECT_EQ(view.rowHeaders().at(0, i) == HEADER_LINE, view.cells().at(inside, i) == GRID_LINE)
            << "row of pixels " << y + i;
        lines += acrossLine ? 1 : 0;
    }
    EXPECT_GT(lines, 1);
}

TEST_F(GridTest, HeadersHaveTheirLinesWhereTheCellsHaveTheirs) {
    WorkbookView view(colouredFile());
    for (const std::int32_t dpi : ZOOMS) {
        view.show(0, SIZE, SIZE, dpi);
        // Between the blocks cells are empty.
        const module_rect near = view.place({100, 200});
        checkLines(view, near.x + 1, near.y + 1);
        const module_rect far = view.place({400, 9000});
        checkLines(view, far.x + 2, far.y);
    }
}

TEST_F(GridTest, LinesEndWhereATextRunsOverIntoEmptyCells) {
    WorkbookView view(generated("over.xlsx", {"plain", "OUT", "a text that runs over into the next cells",
                                              "short", "a text that ends at,x"}));
    for (const std::int32_t dpi : ZOOMS) {
        view.show(0, SIZE, SIZE, dpi);
        const module_rect cell = view.place({1, 1});
        // Twice, because the second picture must be like the first one.
        for (int i = 0; i < 2; i++) {
            view.render(0, 0);
            EXPECT_NE(view.cells().at(cell.x, 2), GRID_LINE) << dpi;
            EXPECT_EQ(view.cells().at(cell.x, cell.y + 2), GRID_LINE) << dpi;
            EXPECT_EQ(view.cells().at(cell.x, cell.y + cell.height + 2), GRID_LINE) << dpi;
            EXPECT_EQ(view.cells().at(cell.x + cell.width - 3, cell.y), GRID_LINE) << dpi;
        }
    }
}

TEST_F(GridTest, StripsAreAsThickAsTheLargestRowNumberAndTheFontNeed) {
    WorkbookView large(colouredFile());
    WorkbookView small(sample("tour.xlsx"));
    large.show(0, 10, 10, 72);
    small.show(0, 10, 10, 72);
    const module_rect five = large.bounds(-1, -1);
    const module_rect two = small.bounds(-1, -1);
    EXPECT_GT(five.width, two.width);
    EXPECT_EQ(five.height, two.height);
    small.show(0, 10, 10, 144);
    const module_rect zoomed = small.bounds(-1, -1);
    EXPECT_NEAR(zoomed.width, 2 * two.width, 4);
    EXPECT_NEAR(zoomed.height, 2 * two.height, 4);
}

TEST_F(GridTest, EveryHeaderHasALabelOfItsOwn) {
    WorkbookView view(sample("tour.xlsx"));
    view.show(4, SIZE, SIZE, 144);
    view.render(0, 0);
    const auto ink = [&](const Picture& strip, const module_rect& cell, bool rows) {
        std::vector<std::uint32_t> pixels;
        for (std::int32_t y = 2; y < (rows ? cell.height : strip.height) - 2; y++) {
            for (std::int32_t x = 2; x < (rows ? strip.width : cell.width) - 2; x++) {
                pixels.push_back(strip.at(rows ? x : cell.x + x, rows ? cell.y + y : y));
            }
        }
        return pixels;
    };
    for (std::int32_t i = 0; i < 4; i++) {
        const module_rect one = view.place({i, i});
        const module_rect next = view.place({i + 1, i + 1});
        EXPECT_NE(ink(view.columnHeaders(), one, false), ink(view.columnHeaders(), next, false));
        EXPECT_NE(ink(view.rowHeaders(), one, true), ink(view.rowHeaders(), next, true));
    }
}

TEST_F(GridTest, PointsOutsideGiveTheNearestCell) {
    WorkbookView view(sample("tour.xlsx"));
    view.show(4, 10, 10, 72);
    const auto [width, height] = view.dimensions();
    EXPECT_EQ(view.cellAt(-1, -1), (CellReference{0, 0}));
    EXPECT_EQ(view.cellAt(-5000, 0), (CellReference{0, 0}));
    EXPECT_EQ(view.cellAt(width, height), (CellReference{20, 50}));
    EXPECT_EQ(view.cellAt(INT32_MAX, INT32_MIN), (CellReference{20, 0}));
    const module_rect last = view.bounds(INT32_MAX, INT32_MAX);
    EXPECT_EQ(last.x + last.width, width);
    EXPECT_EQ(last.y + last.height, height);
}

TEST_F(GridTest, WindowsBeyondTheSheetAreWhiteThere) {
    WorkbookView view(sample("tour.xlsx"));
    view.show(4, 200, 100, 72);
    const auto [width, height] = view.dimensions();
    const module_rect last = view.bounds(width - 1, 0);
    view.render(last.x - 20, -40);
    EXPECT_EQ(view.cells().at(19, 35), 0xFFFFFFFF);
    EXPECT_EQ(view.cells().at(20, 39), 0xFFFFFFFF);
    EXPECT_EQ(view.cells().at(20, 60), GRID_LINE);
    EXPECT_EQ(view.cells().at(20 + last.width, 60), 0xFFFFFFFF);
    view.render(INT32_MAX - 10, INT32_MIN);
    EXPECT_EQ(view.cells().pixels, std::vector<std::uint32_t>(200 * 100, 0xFFFFFFFF));
    view.render(0, height);
    EXPECT_EQ(view.cells().pixels, std::vector<std::uint32_t>(200 * 100, 0xFFFFFFFF));
}

TEST_F(GridTest, TheSmallestSheetHas21ColumnsAnd51Rows) {
    WorkbookView view(sample("tour.xlsx"));
    view.show(4, 10, 10, 72);
    std::int32_t columns = 0;
    EXPECT_EQ(sheetModule().stg_get_column_count(view.get(), 4, &columns), MODULE_OK);
    EXPECT_EQ(columns, 21);
    EXPECT_EQ(view.visibleRows(1000).size(), 51U);
}

TEST_F(GridTest, ChartsAndMergedAreasBelongToTheSheet) {
    WorkbookView view(generated("spread.xlsx", {"spread", "OUT"}));
    view.show(0, 10, 10, 72);
    const auto [width, height] = view.dimensions();
    EXPECT_GE(view.cellAt(width, 0).column, 40);
    EXPECT_GE(view.cellAt(0, height).row, 3000);
    view.show(1, 10, 10, 72);
    EXPECT_EQ(view.cellAt(view.dimensions().first, view.dimensions().second), (CellReference{29, 99}));
}

} // namespace
} // namespace lectern::test
