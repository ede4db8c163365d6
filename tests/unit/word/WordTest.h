// SPDX-License-Identifier: Apache-2.0
// Tests of views on the fake module; each test has its own queue and segments.
#pragma once

#include "tests/unit/view/ViewTest.h"
#include "tests/unit/word/TestWord.h"

#include <algorithm>
#include <memory>

class WordTest : public ViewTest<TestWord> {
protected:
    using ViewTest::openView;
    // A view of a text of `rows` rows; the calls of the opening are cleared.
    static std::unique_ptr<TestWord> openView(int width, int height, int64_t rows) {
        fakeWord().rows = rows;
        return ViewTest::openView(width, height);
    }

    // Moves the pen from one row to another in steps of at most `step` rows.
    static void dragTo(TestWord& view, int& y, int targetY, int step = 50) {
        while (y != targetY) {
            y += std::clamp(targetY - y, -step, step);
            view.handlePenMove(100, y);
            view.tick();
        }
    }
    // Moves down the text by `rows` (up if negative), contact by contact.
    static void scrollBy(TestWord& view, int rows) {
        while (rows != 0) {
            const int part = std::clamp(rows, -200, 200);
            int y = 300;
            view.handlePenDown(100, y);
            dragTo(view, y, 300 - part);
            view.handlePenUp(100, y);
            rows -= part;
        }
    }
};
