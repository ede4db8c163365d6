// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/word/WordSession.h"

#include "channel/ServiceQueue.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

// At the text's ends a view may lag behind the pen and catch up at the next move.
constexpr int LAG = 40;
constexpr int FRAMES_BETWEEN_CHECKS = 20;

uint32_t marked(uint32_t page) {
    const auto blend = [](uint32_t old, uint32_t colour) {
        return ((old * (255 - 0x40)) >> 8) + ((colour * 0x40) >> 8);
    };
    return (page & 0xFF000000) | blend(page >> 16 & 0xFF, 0xFF) << 16 | blend(page >> 8 & 0xFF, 0xFF) << 8 |
           blend(page & 0xFF, 0);
}

} // namespace

WordSession::WordSession(unsigned seed, int width, int height, int64_t rows, bool wide)
    : mRandom(seed), mWidth(width), mHeight(height),
      mFrame(static_cast<size_t>(width) * static_cast<size_t>(height)) {
    FakeWordControl& module = fakeWord();
    module.reset();
    module.recording = false;
    module.rows = rows;
    module.characters = static_cast<uint32_t>(rows) * 40 + 1000;
    module.lineHeight = chance(50) ? 1 : 17;
    for (int i = 0, count = number(0, 30); i < count; ++i) {
        const auto start = static_cast<uint32_t>(number(0, static_cast<int>(module.characters) - 10));
        module.hits.push_back({start, start + 5, number(0, width / 2), 30, number(1, 2)});
    }
    std::sort(module.hits.begin(), module.hits.end(),
              [](const auto& a, const auto& b) { return a.start < b.start; });
    const auto same = [](const auto& a, const auto& b) { return a.start == b.start; };
    module.hits.erase(std::unique(module.hits.begin(), module.hits.end(), same), module.hits.end());
    open(0);
    if (wide) {
        mView->setWideMode(true);
    }
    atPaint("opening");
}

WordSession::~WordSession() = default;

void WordSession::open(unsigned int store) {
    mView = std::make_unique<TestWord>(mWidth, mHeight, 0, store);
    check(mView->openFile("/d/text.doc", nullptr) == 0, "open");
}

void WordSession::check(bool good, const std::string& what) {
    if (!good) {
        ++mFailures[what];
    }
}

int64_t WordSession::rowOfCharacter(uint32_t position) const {
    const FakeWordLayout& text = fakeWord().layout;
    const int64_t lines = text.rows / text.lineRows;
    return std::min(lines - 1, int64_t{position} * lines / fakeWord().characters) * text.lineRows;
}

// The nearest row that the view may have at its top; a text shorter than the
// view moves freely inside it.
int64_t WordSession::onText(int64_t row) const {
    const int64_t overhang = fakeWord().layout.rows - mHeight;
    return std::clamp(row, std::min<int64_t>(0, overhang), std::max<int64_t>(0, overhang));
}

// The same for columns. A layout is never narrower than the view.
int WordSession::onLayout(int column) const {
    return std::clamp(column, 0, fakeWord().layout.width - mWidth);
}

// Index of the current hit in the order of the text; -1 when it is none of the hits.
int WordSession::hitIndex() const {
    const std::vector<FakeWordHit>& hits = fakeWord().hits;
    const auto own = std::find_if(hits.begin(), hits.end(),
                                  [this](const auto& hit) { return hit.start == mView->mHitPosition; });
    return own != hits.end() ? static_cast<int>(own - hits.begin()) : -1;
}

// Every paint ticks; some are compared pixel by pixel.
void WordSession::atPaint(const char* what) {
    if (++mPaints % FRAMES_BETWEEN_CHECKS == 0) {
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
        checkFrame(what);
    } else {
        mView->tick();
    }
    const std::string in = std::string(" in ") + what;
    check(mView->whiteRows() == 0, "white" + in);
    check(mView->top() >= 0, "top below row 0" + in);
    check(mView->mStretch.used() <= mView->mStretch.size().height, "more used than there is" + in);
}

void WordSession::checkFrame(const char* what) {
    const FakeWordLayout& text = fakeWord().layout;
    const int64_t firstRow = mView->firstTextRow();
    const int left = mView->mScroll.x; // after a tap the view may be beside the text
    const wtg_find_region* hit = mView->mCurrentResult >= 0 ? mView->currentRegion() : nullptr;
    const int64_t hitRow = hit != nullptr ? rowOfCharacter(hit->position) : -1;
    std::vector<int> columns = {0, mWidth / 2};
    if (hit != nullptr) { // and at both ends of the mark
        const int x = hit->rectangles[0].x - left;
        const int end = x + hit->rectangles[0].width;
        columns.insert(columns.end(), {x - 1, x, end - 1, end});
        std::erase_if(columns, [this](int column) { return column < 0 || column >= mWidth; });
    }
    for (int y = 0; y < mHeight; ++y) {
        const int64_t row = firstRow + y;
        const bool isRow = row >= 0 && row < text.rows;
        for (const int x : columns) {
            const int column = left + x;
            const bool isText = isRow && column >= 0 && column < text.width;
            const uint32_t page = isText ? fakeWordPixel(row, column) : FAKE_WORD_WHITE;
            const uint32_t seen =
                mFrame[static_cast<size_t>(y) * static_cast<size_t>(mWidth) + static_cast<size_t>(x)];
            bool inHit = false;
            if (hit != nullptr) {
                const module_rect& first = hit->rectangles[0];
                const int64_t rows = int64_t{hit->rectangle_count} * text.lineRows;
                inHit = row >= hitRow && row < hitRow + rows && column >= first.x &&
                        column < first.x + first.width;
            }
            check(seen == (inHit ? marked(page) : page), std::string("wrong pixel in ") + what);
        }
    }
}

void WordSession::checkMoved(int64_t from, int64_t input, const char* what) {
    if (fakeWord().layout.rows >= mHeight) {
        check(std::abs(mView->firstTextRow() - from) <= std::abs(input) + LAG,
              std::string("jumped in ") + what);
    }
}

// Outside of wide mode the layout is as wide as the view, so the only position is 0.
void WordSession::checkMovedSideways(int from, int input, const char* what) {
    check(std::abs(mView->mScroll.x - from) <= std::abs(input), std::string("jumped sideways in ") + what);
    check(mView->mScroll.x == onLayout(mView->mScroll.x), std::string("beside the layout in ") + what);
}

// A new layout keeps the line with the character at the stretch's top. The view
// must be `offset` rows from it, or at the text's end. After a tap beyond the
// end of a text shorter than the view, the text is at the view's lower edge.
void WordSession::checkKeptPlace(const FakeWordLayout& before, int64_t offset, const char* what) {
    const FakeWordLayout& text = fakeWord().layout;
    const int64_t row = before.top * text.rows / before.rows + offset;
    const int64_t seen = mView->firstTextRow();
    const int64_t few = 8 * text.lineRows;
    const int64_t places[] = {row, onText(row), std::min(row, text.rows - mHeight)};
    check(std::any_of(std::begin(places), std::end(places),
                      [=](int64_t place) { return std::abs(seen - place) <= few; }),
          std::string("another place after ") + what);
}

// One contact that changes direction: the moves drift, and the drift reverses.
void WordSession::drag() {
    const int start = number(0, mHeight - 1);
    mView->handlePenDown(mWidth / 2, start);
    int column = mWidth / 2;
    int way = 0;
    int lastWay = 0;
    int drift = 0;
    int64_t seen = onText(mView->firstTextRow()); // after a tap the view may be off the text
    for (int i = 0; i < 60; ++i) {
        if (i % 20 == 0) {
            drift = chance(50) ? 18 : -18;
        }
        way = std::clamp(way + number(-20, 20) + drift, -mHeight, mHeight);
        const int lastColumn = std::exchange(column, mWidth / 2 + number(-30, 30));
        const int seenColumn = onLayout(mView->mScroll.x);
        mView->handlePenMove(column, start - way);
        atPaint("a drag");
        checkMoved(seen, way - lastWay, "a drag");
        checkMovedSideways(seenColumn, column - lastColumn, "a drag");
        seen = mView->firstTextRow();
        lastWay = way;
    }
    mView->handlePenUp(column, start - way);
    atPaint("a drag's end");
    checkMoved(seen, 0, "a drag's end");
}

void WordSession::fling() {
    const int speed = number(100, 2400) * (chance(50) ? 1 : -1);
    mView->handlePenDown(10, 10);
    mView->handleFlick(chance(30) ? number(-300, 300) : 0, speed);
    mView->handlePenUp(10, 10);
    int64_t seen = onText(mView->firstTextRow());
    for (int i = 0; i < 80 && mView->mScroller.isMoving(); ++i) {
        TestClock::advance(0.016);
        const int seenColumn = onLayout(mView->mScroll.x);
        atPaint("a fling");
        checkMoved(seen, 20, "a fling");
        checkMovedSideways(seenColumn, 20, "a fling");
        seen = mView->firstTextRow();
    }
    if (chance(70)) {
        mView->handlePenDown(10, 10);
        check(!mView->mScroller.isMoving(), "a pen down stops a glide");
        mView->handlePenUp(10, 10);
    }
}

void WordSession::doubleTap() {
    mView->handlePenDown(number(0, mWidth - 1), number(0, mHeight - 1));
    const FakeWordLayout before = fakeWord().layout;
    const int tapped = number(0, mHeight - 1);
    const double row = mView->mScroll.y - mView->top() + tapped;
    const double scale = mView->mScale;
    const bool searching = mView->mCurrentResult >= 0; // then the hit comes into view
    mView->handleDoubleClick(number(0, mWidth - 1), tapped);
    mView->handlePenUp(0, 0);
    atPaint("a double tap");
    if (!searching) {
        const double centred = row * mView->mScale / scale - mHeight / 2;
        checkKeptPlace(before, static_cast<int64_t>(centred), "a double tap");
    }
}

void WordSession::pinch() {
    mView->handleGestureStart(1.0, 0.0);
    for (int i = 0, count = number(0, 3); i < count; ++i) {
        mView->handleGestureChange(number(30, 300) / 100.0, 0.0);
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
    }
    const FakeWordLayout before = fakeWord().layout;
    const int64_t row = mView->firstTextRow();
    const double top = mView->top();
    const double shown = mView->mGestureScroll.y;
    const double scale = mView->mScale;
    const bool searching = mView->mCurrentResult >= 0; // then the hit comes into view
    mView->handleGestureEnd(0.0, 0.0);
    check(mView->whiteRows() == 0, "white after a pinch");
    atPaint("a pinch");
    if (mView->mGestureAppliedScale == 1.0) {
        check(mView->firstTextRow() == row, "a pinch without a zoom goes nowhere");
    } else if (!searching) {
        checkKeptPlace(before, static_cast<int64_t>(shown - top * mView->mScale / scale), "a pinch");
    }
}

void WordSession::followLink() {
    const bool valid = chance(90);
    const auto target = static_cast<intptr_t>(number(0, static_cast<int>(fakeWord().characters) - 1));
    fakeWord().click = {7, valid ? 0 : 3, target, 0};
    const int64_t before = mView->firstTextRow();
    check(mView->handleClick(number(0, mWidth - 1), number(0, mHeight - 1)), "a link is used");
    mView->handlePenUp(0, 0);
    check(mView->whiteRows() == 0, "white after a jump");
    if (valid) {
        const int64_t row = rowOfCharacter(static_cast<uint32_t>(target));
        check(mView->firstTextRow() == onText(row), "a link's target is at the top");
    } else {
        check(mView->firstTextRow() == before, "a dead link goes nowhere");
    }
    atPaint("a jump");
}

void WordSession::stepThroughHits() {
    mView->doSearch("x");
    check(mView->whiteRows() == 0, "white after a search");
    for (int i = 0, count = number(0, 12); i < count; ++i) {
        stepToHit(chance(60));
        if (chance(20)) {
            drag();
        }
    }
    if (chance(30)) {
        mView->stopFind();
    }
}

// Steps to the neighbouring hit without wrapping around. The first two hits
// count as the beginning when they are outside of the stretch.
void WordSession::stepToHit(bool next) {
    const bool any = mView->mCurrentResult >= 0;
    const int from = hitIndex();
    next ? mView->nextResult() : mView->previousResult();
    check(mView->whiteRows() == 0, "white after a step");
    const int to = hitIndex();
    if (!any) {
        check(to == from, "a step without a hit goes nowhere");
    } else if (next) {
        check(to == std::min(from + 1, static_cast<int>(fakeWord().hits.size()) - 1),
              "a step to the next hit");
        const wtg_find_region* hit = mView->currentRegion();
        const int64_t below = mView->firstTextRow() + mHeight;
        const bool inView = hit != nullptr && rowOfCharacter(hit->position) < below;
        check(inView || to == from, "a next hit below the view");
    } else {
        check(to == from - 1 || (to == from && from <= 1), "a step to the previous hit");
        check(mView->currentRegion() != nullptr || to == from, "a previous hit outside of the stretch");
    }
    atPaint("a search");
}

void WordSession::popup() {
    fakeWord().click = {number(2, 5), 1, 2, 3};
    const int64_t before = mView->firstTextRow();
    const bool shown = mView->handleClick(5, 5);
    mView->handlePenUp(5, 5);
    check(shown == (mWidth > 40), "a reference is shown where there is room");
    if (!shown) {
        return;
    }
    const int64_t moves = fakeWord().repaints;
    for (int i = 0; i < 5; ++i) {
        mView->handlePenDown(5, mHeight / 2);
        mView->handlePenMove(5, mHeight / 2 - number(-mHeight, mHeight));
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
        mView->handlePenUp(5, 5);
    }
    check(fakeWord().repaints == moves, "the stretch rests below a pop-up");
    check(mView->handleClick(5, 5), "a tap closes a pop-up");
    mView->handlePenUp(5, 5);
    check(mView->firstTextRow() == onText(before), "back on the page");
    atPaint("a pop-up");
}

// Closes the view and reopens it from the state record, which does not include
// wide mode.
void WordSession::reopen() {
    mPaints = FRAMES_BETWEEN_CHECKS - 1;
    atPaint("closing");
    const bool wide = mView->mWideMode;
    const int64_t before = onText(mView->firstTextRow());
    mView->SaveStateToDataStore();
    const std::unique_ptr<TestWord> closed = std::move(mView); // keeps the segment
    open(closed->dataStoreShmId());
    check(mView->whiteRows() == 0, "white after a restore");
    if (!wide && mView->mScale == closed->mScale) {
        check(std::abs(mView->firstTextRow() - before) <= fakeWord().layout.lineRows,
              "back at the same place");
    }
    atPaint("a restore");
}

void WordSession::setWide(bool on) {
    mView->setWideMode(on);
    atPaint("wide mode");
}

void WordSession::play(int operations) {
    for (int i = 0; i < operations; ++i) {
        g_msgQueue.Drain(); // nobody reads the notifications
        const int what = number(0, 99);
        if (what < 30) {
            drag();
        } else if (what < 45) {
            fling();
        } else if (what < 55) {
            doubleTap();
        } else if (what < 65) {
            pinch();
        } else if (what < 72) {
            followLink();
        } else if (what < 82) {
            stepThroughHits();
        } else if (what < 88) {
            popup();
        } else if (what < 93) {
            reopen();
        } else {
            setWide(what < 95 ? mView->mWideMode : !mView->mWideMode);
        }
    }
}

void WordSession::visitEnds() {
    for (const int way : {1, -1, 1}) {
        int64_t last = -1;
        for (bool first = true; first || mView->firstTextRow() != last; first = false) {
            last = mView->firstTextRow();
            g_msgQueue.Drain();
            const int start = way > 0 ? mHeight : 0;
            mView->handlePenDown(0, start);
            for (int i = 1; i <= 8; ++i) {
                mView->handlePenMove(0, start - way * mHeight * i / 8);
                atPaint("going to the ends");
            }
            mView->handlePenUp(0, start - way * mHeight);
        }
        const int64_t overhang = fakeWord().layout.rows - mHeight;
        const int64_t end = way > 0 ? std::max<int64_t>(0, overhang) : std::min<int64_t>(0, overhang);
        check(last == end, way > 0 ? "the end is reached" : "the start is reached");
    }
}
