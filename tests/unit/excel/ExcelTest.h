// SPDX-License-Identifier: Apache-2.0
// Tests of views on the fake module; each test has its own queue and segments.
//
// A new view has zoom 2: cells are 80 x 40 pixels, row headers 60 pixels wide,
// column headers 30 pixels high, and the sheet has 4000 x 8000 pixels.
#pragma once

#include "tests/unit/excel/TestExcel.h"
#include "tests/unit/view/ViewTest.h"

#include <climits>
#include <limits>
#include <string>

class ExcelTest : public ViewTest<TestExcel> {
protected:
    static constexpr int ROW_HEADER_WIDTH = 60;
    static constexpr int COLUMN_HEADER_HEIGHT = 30;

    static Frame draw(TestExcel& view) {
        Frame picture(view.width(), view.height());
        view.drawScreen(picture.pixels());
        return picture;
    }
    static CpRect window(const TestExcel& view) {
        CpRect r;
        view.getOffscreenDocBounds(r);
        return r;
    }

    // The background beyond the sheet, at a document pixel.
    static uint32_t ground(int x, int y) { return (x >> 4 & 1) == (y >> 4 & 1) ? 0xFFFEDCBA : 0xFFABCDEF; }
    static constexpr uint32_t CORNER_BOX = 0xFFFEFEFE; // white as a fill leaves it

    // A screen pixel of a view whose window of cells covers it.
    static uint32_t sheetPixel(const TestExcel& view, int column, int row) {
        const int x = view.mScroll.x + column - ROW_HEADER_WIDTH;
        const int y = view.mScroll.y + row - COLUMN_HEADER_HEIGHT;
        if (column < ROW_HEADER_WIDTH && row < COLUMN_HEADER_HEIGHT) {
            return CORNER_BOX;
        }
        if (row < COLUMN_HEADER_HEIGHT) {
            return fakeColumnHeaderPixel(x, row);
        }
        return column < ROW_HEADER_WIDTH ? fakeRowHeaderPixel(column, y) : fakeCellPixel(x, y);
    }
    // Compares every `step`th pixel of both axes.
    static void expectSheet(const TestExcel& view, const Frame& picture, int step = 1) {
        for (int row = 0; row < view.height(); row += step) {
            for (int column = 0; column < view.width(); column += step) {
                ASSERT_EQ(picture.at(column, row), sheetPixel(view, column, row)) << column << ", " << row;
            }
        }
    }
};
