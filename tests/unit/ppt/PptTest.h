// SPDX-License-Identifier: Apache-2.0
// Tests of views on the fake module; each test has its own queue and segments.
//
// Slides have 640 x 480 units, the view 320 x 480 pixels. So the fitting zoom
// is 0.5, and the surface then has 320 x 240 pixels.
#pragma once

#include "tests/unit/ppt/TestPpt.h"
#include "tests/unit/view/ViewTest.h"

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

class PptTest : public ViewTest<TestPpt> {
protected:
    static constexpr uint32_t BLACK = 0xFF000000;

    static std::unique_ptr<TestPpt> openDeck(size_t slides, int width = 320, int height = 480) {
        fakeSlides().slides.resize(slides);
        return openView(width, height);
    }
    // Takes the records for a view's client, as "id value".
    static std::vector<std::string> notifications(const TestPpt& view) {
        std::vector<std::string> texts;
        for (const ServerClientMessage& record : takeRecords(view)) {
            texts.push_back(std::to_string(record.id) + " " + std::to_string(record.value));
        }
        return texts;
    }

    static CpPoint surfaceSize(const TestPpt& view) {
        return {view.mSurface->Width(), view.mSurface->Height()};
    }
    // The value of a view pixel in an upright paint without marks.
    static uint32_t slidePixel(const TestPpt& view, int column, int row) {
        const int x = column + view.mScroll.x;
        const int y = row + view.mScroll.y;
        const bool onSlide = x >= 0 && y >= 0 && x < view.mSurface->Width() && y < view.mSurface->Height();
        return onSlide ? fakeSlidePixel(view.mCurrentSlide, x, y) : BLACK;
    }
    static void expectSlide(const TestPpt& view, const Frame& frame) {
        for (int row = 0; row < view.height(); ++row) {
            for (int column = 0; column < view.width(); ++column) {
                ASSERT_EQ(frame[row * view.width() + column], slidePixel(view, column, row))
                    << column << ", " << row;
            }
        }
    }
};
