// SPDX-License-Identifier: Apache-2.0
// Charts and other drawings are on their cells in every window.

#include "tests/system/sheet/WorkbookView.h"

#include <algorithm>

namespace lectern::test {
namespace {

constexpr std::int32_t SIZE = 300;
constexpr std::uint32_t CELLS = 0xFF00AA00;

class DrawingsTest : public testing::Test {
protected:
    DrawingsTest() : mView(generated("charted.xlsx", {"charted", "OUT"})) {}

    // The document pixels of the first column and row, in the window at (x, y),
    // that the chart covers.
    module_rect chartIn(std::int32_t x, std::int32_t y) {
        constexpr std::int32_t MOST = 20; // fewer pixels than any side of the chart
        mView.render(x, y);
        const auto first = [&](auto pixel) {
            for (std::int32_t i = 0; i < SIZE; i++) {
                std::int32_t others = 0;
                for (std::int32_t k = 0; k < SIZE; k++) {
                    others += pixel(i, k) != CELLS ? 1 : 0;
                }
                if (others > MOST) {
                    return i;
                }
            }
            return SIZE;
        };
        const Picture& cells = mView.cells();
        return {x + first([&](std::int32_t i, std::int32_t k) { return cells.at(i, k); }),
                y + first([&](std::int32_t i, std::int32_t k) { return cells.at(k, i); }), 0, 0};
    }

    // The chart at a cell begins at the cell's corner, apart from its own border.
    void expectAt(CellReference cell) {
        const module_rect corner = mView.place(cell);
        const module_rect chart = chartIn(corner.x - 61, corner.y - 47);
        EXPECT_NEAR(chart.x, corner.x, 3) << nameOf(cell);
        EXPECT_NEAR(chart.y, corner.y, 3) << nameOf(cell);
    }

    WorkbookView mView;
};

TEST_F(DrawingsTest, ADrawingStaysInItsPlaceWhereverTheWindowBegins) {
    for (const std::int32_t dpi : {72, 97, 108, 126, 144, 180, 216, 234, 251, 287}) {
        mView.show(0, SIZE, SIZE, dpi);
        const module_rect cell = mView.place({7, 19});
        const module_rect first = chartIn(cell.x - 60, cell.y - 60);
        ASSERT_LT(first.x, cell.x + SIZE - 60) << dpi;
        for (const std::int32_t way : {13, 50, 71, 107, 149}) {
            const module_rect chart = chartIn(cell.x - 60 - way, cell.y - 60 - way);
            EXPECT_NEAR(chart.x, first.x, 2) << dpi << " dpi, " << way << " pixels on";
            EXPECT_NEAR(chart.y, first.y, 2) << dpi << " dpi, " << way << " pixels on";
        }
    }
}

TEST_F(DrawingsTest, DrawingsStandOnTheirCellsAtEveryZoom) {
    for (const std::int32_t dpi : {72, 97, 108, 126, 144, 180, 216, 234, 251, 287, 144}) {
        SCOPED_TRACE(dpi);
        mView.show(0, SIZE, SIZE, dpi);
        expectAt({7, 19});
        expectAt({7, 199});
    }
}

TEST_F(DrawingsTest, DrawingsGoWithTheirCells) {
    mView.show(0, SIZE, SIZE, 126);
    expectAt({7, 199});
    const module_rect row = mView.place({0, 3});
    EXPECT_EQ(sheetModule().stg_hide_rows(mView.get(), 0, row.y, row.y + 5 * row.height), MODULE_OK);
    expectAt({7, 19});
    expectAt({7, 199});
    EXPECT_EQ(sheetModule().stg_resize_column(mView.get(), 0, mView.place({2, 0}).x, 55), MODULE_OK);
    expectAt({7, 19});
    mView.show(0, SIZE, SIZE, 108);
    expectAt({7, 199});
    EXPECT_EQ(sheetModule().stg_unhide_all_rows(mView.get(), 0), MODULE_OK);
    expectAt({7, 19});
    expectAt({7, 199});
}

} // namespace
} // namespace lectern::test
