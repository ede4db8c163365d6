// SPDX-License-Identifier: Apache-2.0
// Where a surface of about 500,000 pixels has more than two steps and a view,
// scrolling is defined to the row and the call. An oracle that knows only this
// definition computes the calls and the end position of every pen event and
// tick; random sessions are compared with it.
#include "tests/unit/word/WordTest.h"

#include <random>

namespace {

class Oracle {
public:
    Oracle(int width, int height, int64_t rows)
        : mHeight(height), mRows(rows), mSurface(500000 / width), mStep(mSurface / 3) {
        mSurface += mSurface % 2;
        mBottom = static_cast<int>(std::min<int64_t>(mSurface, rows));
    }

    void penDown() { mPenDownScroll = scroll; }
    void penMove(int distance) { moveTo(mPenDownScroll + distance, distance > -1); }
    void moveTo(int wanted, bool down) {
        scroll = wanted;
        clamp();
        cache(down);
    }

    int scroll = 0;
    int top = 0;
    std::vector<std::string> calls;

private:
    void clamp() {
        const int max = mBottom - mHeight;
        scroll = std::clamp(scroll, std::min(0, max), std::max(0, max));
    }
    void cache(bool down) {
        if (down) {
            if (scroll < top + 2 * mStep) {
                return;
            }
            calls.emplace_back("wtg_get_bottom_right_character(0)");
            if (top + mSurface >= mRows) {
                return;
            }
            calls.push_back("wtg_scroll_down(0, " + std::to_string(mStep) + ")");
            calls.emplace_back("wtg_get_vertical_last_used_pixel(0)");
            top += mStep;
            mBottom = static_cast<int>(std::min<int64_t>(top + mSurface, mRows));
        } else {
            if (scroll > top + mStep) {
                return;
            }
            calls.emplace_back("wtg_get_top_left_character(0)");
            if (top == 0) {
                return;
            }
            calls.push_back("wtg_scroll_up(0, " + std::to_string(mStep) + ")");
            top -= mStep;
            mBottom -= mStep;
        }
    }

    int mHeight;
    int64_t mRows;
    int mSurface, mStep;
    int mBottom;
    int mPenDownScroll = 0;
};

struct Size {
    int width, height;
};

class WordFormulaTest : public WordTest, public testing::WithParamInterface<Size> {
protected:
    void compare(TestWord& view, Oracle& oracle) {
        ASSERT_EQ(calls(), std::exchange(oracle.calls, {}));
        ASSERT_EQ(view.mScroll.y, oracle.scroll);
        ASSERT_EQ(view.top(), oracle.top);
    }
};

// Contacts keep their direction and the last stretch stays full; in other cases
// only the view's own guarantees apply.
TEST_P(WordFormulaTest, DragsAndGlidesAskAndMoveAsAgreed) {
    const auto [width, height] = GetParam();
    const TestClock clock;
    for (unsigned seed = 1; seed <= 8; ++seed) {
        std::mt19937 random(seed);
        const auto number = [&random](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        const auto view = openView(width, height, 200000);
        Oracle oracle(width, height, 200000);
        for (int contact = 0; contact < 120; ++contact) {
            g_msgQueue.Drain();
            const int way = number(0, 2) == 0 ? -1 : 1;
            view->handlePenDown(50, 100);
            oracle.penDown();
            int distance = 0;
            for (int i = number(1, 12); i > 0; --i) {
                distance += way * number(0, 40);
                view->handlePenMove(50, 100 - distance);
                oracle.penMove(distance);
                view->tick();
                ASSERT_NO_FATAL_FAILURE(compare(*view, oracle)) << "seed " << seed;
            }
            if (number(0, 3) > 0) {
                view->handlePenUp(50, 100 - distance);
                oracle.penMove(distance);
                ASSERT_NO_FATAL_FAILURE(compare(*view, oracle)) << "seed " << seed;
                continue;
            }
            const int velocity = -way * number(50, 2000);
            view->handleFlick(0, velocity);
            view->handlePenUp(50, 100);
            NewtonianSmoothScroll expected;
            expected.Setup(0, oracle.scroll, 0, velocity);
            while (expected.isMoving()) {
                TestClock::advance(0.02);
                int x = 0;
                int y = 0;
                expected.tick(x, y);
                view->tick();
                oracle.moveTo(y, velocity < 0);
                ASSERT_NO_FATAL_FAILURE(compare(*view, oracle)) << "seed " << seed;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, WordFormulaTest,
                         testing::Values(Size{320, 480}, Size{300, 480}, Size{480, 320}, Size{240, 400}),
                         [](const auto& test) {
                             return std::to_string(test.param.width) + "x" +
                                    std::to_string(test.param.height);
                         });

} // namespace
