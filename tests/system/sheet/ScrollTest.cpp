// SPDX-License-Identifier: Apache-2.0
// Windows that move over a sheet show the same as windows that are painted alone.

#include "tests/system/sheet/WorkbookView.h"

namespace lectern::test {
namespace {

constexpr std::int32_t WIDTH = 700;
constexpr std::int32_t HEIGHT = 500;
constexpr std::int32_t DPI = 144;

class SheetScrollTest : public testing::Test {
protected:
    SheetScrollTest() : mView(generated("coloured.xlsx", {"coloured", "OUT"})) {
        mView.show(0, WIDTH, HEIGHT, DPI);
    }
    // The window is painted as it is by an engine that has painted no other.
    void expectAsAlone(std::int32_t x, std::int32_t y) {
        mView.render(x, y);
        WorkbookView alone(generated("coloured.xlsx", {"coloured", "OUT"}));
        alone.show(0, WIDTH, HEIGHT, DPI);
        alone.render(x, y);
        for (std::int32_t row = 0; row < HEIGHT; ++row) {
            for (std::int32_t column = 0; column < WIDTH; ++column) {
                ASSERT_EQ(mView.cells().at(column, row), alone.cells().at(column, row))
                    << column << "," << row << " of the window at " << x << "," << y;
            }
        }
    }

    WorkbookView mView;
};

TEST_F(SheetScrollTest, AWindowThatMovesShowsTheSame) {
    mView.render(0, 0);
    for (const std::int32_t y : {1, 113, 420, 260, 700, 699}) {
        expectAsAlone(0, y);
    }
    expectAsAlone(37, 650);
    expectAsAlone(37, 800);
}

TEST_F(SheetScrollTest, AWindowThatMovesShowsChangesOfTheSheet) {
    mView.render(0, 0);
    mView.render(0, 100);
    const Picture before = mView.cells();
    const module_rect row = mView.place({0, 8});
    ASSERT_EQ(sheetModule().stg_resize_row(mView.get(), 0, row.y, 31), MODULE_OK);
    mView.render(0, 100);
    EXPECT_NE(mView.cells().pixels, before.pixels);
    ASSERT_EQ(sheetModule().stg_resize_row(mView.get(), 0, row.y, -31), MODULE_OK);
    mView.render(0, 100);
    EXPECT_EQ(mView.cells().pixels, before.pixels);
}

TEST_F(SheetScrollTest, AMarkIsGoneFromAWindowThatHadIt) {
    mView.render(0, 100);
    mView.render(0, 140);
    const Picture before = mView.cells();
    std::int32_t count = 0;
    ASSERT_EQ(sheetModule().stg_select_column(mView.get(), 0, 5, 5, &count), MODULE_OK);
    mView.render(0, 140);
    EXPECT_NE(mView.cells().pixels, before.pixels);
    ASSERT_EQ(sheetModule().stg_clear_selection(mView.get()), MODULE_OK);
    mView.render(0, 140);
    EXPECT_EQ(mView.cells().pixels, before.pixels);
}

} // namespace
} // namespace lectern::test
