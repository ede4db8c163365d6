// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/touch/TouchWordSession.h"

#include "channel/ServiceQueue.h"

namespace {

constexpr int FRAMES_BETWEEN_PICTURES = 10;
constexpr double FRAME = 0.016;

size_t area(int width, int height) {
    return static_cast<size_t>(width) * static_cast<size_t>(height);
}

} // namespace

TouchWordSession::TouchWordSession(unsigned seed, int width, int height, int64_t rows, bool optional)
    : mRandom(seed), mOptional(optional), mFirstWidth(width), mFrame(area(width, height)) {
    FakeWordControl& module = fakeWord();
    module.reset();
    module.recording = false;
    module.rows = rows;
    module.characters = static_cast<uint32_t>(rows) * 3 + 50;
    module.lineHeight = 17;
    for (int i = 0, count = number(0, 30); i < count; ++i) {
        const auto start = static_cast<uint32_t>(number(0, static_cast<int>(module.characters) - 10));
        module.hits.push_back({start, start + 5, number(0, width / 2), 30, 1});
    }
    const auto before = [](const auto& a, const auto& b) { return a.start < b.start; };
    const auto same = [](const auto& a, const auto& b) { return a.start == b.start; };
    std::sort(module.hits.begin(), module.hits.end(), before);
    module.hits.erase(std::unique(module.hits.begin(), module.hits.end(), same), module.hits.end());
    mView = std::make_unique<TestTouchWord>(width, height);
    check(mView->openFile("/d/text.doc", nullptr) == 0, "open");
    if (!mOptional) {
        mView->forgetOptional();
    }
    atPaint("opening");
}

void TouchWordSession::check(bool good, const std::string& what) {
    if (!good) {
        ++mFailures[what];
    }
}

int64_t TouchWordSession::onText(int64_t row) const {
    return std::clamp<int64_t>(row, 0, TestTouchWord::lastTop(mView->height()));
}

int64_t TouchWordSession::rowOf(uint32_t character) const {
    const FakeWordLayout& text = fakeWord().layout;
    const int64_t lines = text.rows / text.lineRows;
    return std::min(lines - 1, int64_t{character} * lines / fakeWord().characters) * text.lineRows;
}

// The first character of the line at a row of the text.
uint32_t TouchWordSession::characterAt(int64_t row) const {
    const FakeWordLayout& text = fakeWord().layout;
    const int64_t lines = text.rows / text.lineRows;
    const int64_t line = std::clamp<int64_t>(row / text.lineRows, 0, lines - 1);
    return static_cast<uint32_t>((line * fakeWord().characters + lines - 1) / lines);
}

void TouchWordSession::atPaint(const char* what) {
    g_msgQueue.Drain(); // nobody reads the notifications
    if (++mPaints % FRAMES_BETWEEN_PICTURES == 0) {
        checkPixels(what);
    } else {
        mView->tick();
    }
    const std::string in = std::string(" in ") + what;
    check(mView->whiteRows() == 0, "white" + in);
    check(mView->firstTextRow() == onText(mView->firstTextRow()), "off the text" + in);
    check(mView->mScroll.x == 0, "sideways" + in);
    check(mView->mStretch.top() >= 0, "below row 0" + in);
    const ViewPlace place = mView->place();
    if (mOptional) {
        check(place.documentHeight == fakeWord().layout.rows, "another height" + in);
        check(place.view.Top() == mView->firstTextRow(), "another place" + in);
    }
    check(place.documentHeight >= place.view.Bottom() || fakeWord().layout.rows < mView->height(),
          "a text that is lower than its place" + in);
}

void TouchWordSession::checkPixels(const char* what) {
    mView->setDirty();
    mView->handlePaintRouter(mFrame.data());
    const FakeWordLayout& text = fakeWord().layout;
    const bool isMarked = mView->mCurrentResult >= 0;
    for (int y = 0; y < mView->height(); ++y) {
        const int64_t row = mView->firstTextRow() + y;
        for (const int x : {0, mView->width() - 1}) {
            const uint32_t page = row < text.rows ? fakeWordPixel(row, x) : FAKE_WORD_WHITE;
            const uint32_t seen = mFrame[area(mView->width(), y) + static_cast<size_t>(x)];
            check(seen == page || isMarked, std::string("wrong pixel in ") + what);
        }
    }
}

void TouchWordSession::drag() {
    const int height = mView->height();
    const int start = number(0, height - 1);
    const int64_t from = mView->firstTextRow();
    mView->handlePenDown(mView->width() / 2, start);
    int y = start;
    for (int i = 0; i < 20; ++i) {
        y = std::clamp(y + number(-height / 6, height / 6), -height, 2 * height);
        mView->handlePenMove(mView->width() / 2 + number(-40, 40), y);
        atPaint("a drag");
        check(mView->firstTextRow() == onText(from + start - y), "the finger leaves the text");
    }
    mView->handlePenUp(mView->width() / 2, y);
    atPaint("a drag's end");
}

void TouchWordSession::fling() {
    const int speed = number(100, 6000) * (chance(50) ? 1 : -1);
    const auto from = static_cast<double>(mView->firstTextRow());
    const double start = touchTime();
    mView->handlePenDown(10, 10);
    mView->handleFlick(number(-300, 300), speed);
    mView->handlePenUp(10, 10);
    const double frame = FRAME * number(1, 6) / 2.0;
    const double duration = 0.33 * std::log(std::abs(speed) / 10.0);
    while (mView->glide().isMoving()) {
        TouchClock::advance(frame);
        atPaint("a glide");
        const double time = std::min(touchTime() - start, duration);
        const double way = -speed * 0.33 * (1.0 - std::exp(-time / 0.33));
        const double end = static_cast<double>(TestTouchWord::lastTop(mView->height()));
        const double wanted = std::clamp(from + way, 0.0, end);
        check(std::abs(static_cast<double>(mView->firstTextRow()) - wanted) <= 1.0, "off the glide's path");
        if (chance(2)) {
            mView->handlePenDown(10, 10);
            mView->handlePenUp(10, 10);
        }
    }
    const int64_t rest = mView->firstTextRow();
    TouchClock::advance(1.0);
    atPaint("rest");
    check(mView->firstTextRow() == rest, "moves at rest");
}

// The place of a character's line in the view must be as wanted, unless an end of the
// text is there.
void TouchWordSession::checkHeld(uint32_t character, double wanted, double tolerance, const char* what) {
    const double top = static_cast<double>(rowOf(character)) - wanted; // of the view, if nothing ends
    const double end = static_cast<double>(TestTouchWord::lastTop(mView->height()));
    const double seen = static_cast<double>(mView->firstTextRow());
    check(std::abs(seen - std::clamp(top, 0.0, end)) <= tolerance, std::string("another line after ") + what);
}

// A view that has moved holds what is under the fingers, not what it held before.
bool TouchWordSession::moveALittle() {
    const int64_t before = mView->firstTextRow();
    for (const int way : {1, -1}) {
        ClientServerMessage record(_SCROLL_BY, 0);
        record.y = way;
        mView->handleRecord(record);
        if (mView->firstTextRow() != before) {
            return true;
        }
    }
    return false;
}

void TouchWordSession::pinch() {
    const bool moved = moveALittle();
    const int x = number(0, mView->width() - 1);
    const int y = number(0, mView->height() - 1);
    const int toY = std::clamp(y + number(-80, 80), 0, mView->height() - 1);
    const uint32_t character = characterAt(mView->firstTextRow() + y);
    const double before = static_cast<double>(rowOf(character) - mView->firstTextRow());
    const double zoom = mView->place().zoom;
    const auto factor = static_cast<float>(number(30, 300)) / 100.0F;
    mView->handleRecord(pinchRecord(x, y, 1.0F, _PINCH_BEGINS));
    for (int i = 1; i <= 3; ++i) {
        mView->handleRecord(pinchRecord(x, y + (toY - y) * i / 3,
                                        1.0F + (factor - 1.0F) * static_cast<float>(i) / 3.0F, _PINCH_MOVES));
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
    }
    const FakeWordLayout& text = fakeWord().layout;
    const bool inText =
        moved && mView->firstTextRow() + y < text.rows && (mOptional || text.rows > text.height);
    mView->handleRecord(pinchRecord(x, toY, factor, _PINCH_ENDS));
    atPaint("a pinch");
    if (inText) {
        const double ratio = mView->place().zoom / zoom;
        const double below = (y - before) * ratio;
        // Without the function it holds the next line, and a line before becomes `ratio` lines.
        const double lineRows = static_cast<double>(fakeWord().layout.lineRows);
        const double tolerance = mOptional ? 2.0 : (1.0 + std::max(1.0, ratio)) * lineRows + 2.0;
        checkHeld(character, toY - below, tolerance, "a pinch");
    }
}

void TouchWordSession::tap() {
    fakeWord().tapArea = chance(30) ? module_rect{0, 0, number(1, mView->width()), 20} : module_rect{};
    fakeWord().tapMostDpi = chance(50) ? number(10, 200) : 0;
    const double before = mView->place().zoom;
    mView->handleDoubleClick(number(0, mView->width() - 1), number(0, mView->height() - 1));
    atPaint("a double tap");
    check(std::abs(before - 1.0) < 1e-3 || mView->place().zoom == 1.0, "a double tap goes back to the fit");
}

void TouchWordSession::zoom() {
    const int64_t first =
        (mView->firstTextRow() + fakeWord().layout.lineRows - 1) / fakeWord().layout.lineRows;
    const uint32_t character = characterAt(first * fakeWord().layout.lineRows);
    const int64_t row = rowOf(character) - mView->firstTextRow();
    const bool moved = !mView->place().isMoving && mOptional;
    mView->scrollTo(0, static_cast<int>(mView->place().view.Top())); // nothing is held before it
    const double zoom = mView->place().zoom;
    for (int i = 0; i < 10; ++i) {
        mView->zoomTo(number(25, 800) / 100.0, mView->middle());
        atPaint("a zoom");
    }
    mView->zoomTo(zoom, mView->middle());
    atPaint("zooms");
    if (moved && row >= 0 && row < fakeWord().layout.lineRows) {
        checkHeld(character, static_cast<double>(row), static_cast<double>(fakeWord().layout.lineRows),
                  "zooms");
    }
}

void TouchWordSession::turn() {
    const int width = mView->width();
    mView->resize(mView->height(), width);
    mFrame.resize(area(mView->width(), mView->height()));
    atPaint("a turn");
}

void TouchWordSession::search() {
    HitPlace hit;
    const TouchResult result = mView->search("x", {}, hit);
    atPaint("a search");
    if (fakeWord().hits.empty()) {
        check(result == TouchResult::NothingThere, "no hit");
        return;
    }
    const auto count = static_cast<int>(fakeWord().hits.size());
    for (int i = 0; i < 12; ++i) {
        const int step = chance(60) ? 1 : -1;
        const int expected = (hit.hit + step + count) % count;
        mView->stepToHit(step, hit);
        atPaint("a step");
        check(hit.hit == expected && hit.hits == count, "a step to the neighbour");
        check(mView->mHitPosition == fakeWord().hits[static_cast<size_t>(expected)].start, "another hit");
        const int64_t row = rowOf(mView->mHitPosition) - mView->firstTextRow();
        check(row >= 0 && (row + fakeWord().layout.lineRows <= mView->height() || row == 0),
              "a hit out of view");
    }
    mView->stopFind();
}

void TouchWordSession::jump() {
    const auto target = static_cast<uint32_t>(number(0, static_cast<int>(fakeWord().characters) - 1));
    fakeWord().click = {7, 0, static_cast<intptr_t>(target), 0};
    mView->handlePenDown(5, 5);
    mView->handleClick(5, 5);
    mView->handlePenUp(5, 5);
    fakeWord().click = {};
    check(mView->firstTextRow() == onText(rowOf(target)), "a link's target is at the top");
    atPaint("a jump");
}

void TouchWordSession::popup() {
    fakeWord().click = {number(2, 5), 1, 2, 3};
    const int64_t before = mView->firstTextRow();
    mView->handlePenDown(5, 5);
    const bool shown = mView->handleClick(5, 5);
    mView->handlePenUp(5, 5);
    check(shown == (mView->width() > 40), "a reference is shown where there is room");
    const int64_t moves = fakeWord().repaints;
    for (int i = 0; shown && i < 5; ++i) {
        mView->handlePenDown(5, mView->height() / 2);
        mView->handlePenMove(5, mView->height() / 2 - number(-mView->height(), mView->height()));
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
        mView->handlePenUp(5, 5);
    }
    check(fakeWord().repaints == moves, "the stretch rests below a pop-up");
    check(!shown || mView->handleClick(5, 5), "a tap closes a pop-up");
    fakeWord().click = {};
    check(mView->firstTextRow() == before, "back on the page");
    atPaint("a pop-up");
}

void TouchWordSession::scrollFar() {
    const int64_t height = mView->place().documentHeight;
    mView->scrollTo(number(-5, 5), static_cast<int>(number(-100, 1100) * height / 1000));
    atPaint("a far move");
}

// Closes the view and opens another one with its state record. The fake's text has its
// length from the width at the open.
void TouchWordSession::reopen() {
    if (mView->width() != mFirstWidth) {
        turn();
    }
    mView->handlePenDown(1, 1);
    mView->handlePenUp(1, 1);
    const uint32_t character = characterAt(mView->firstTextRow());
    const double row = static_cast<double>(rowOf(character) - mView->firstTextRow());
    mView->SaveStateToDataStore();
    const std::unique_ptr<TestTouchWord> closed = std::move(mView); // keeps the segment
    mView = std::make_unique<TestTouchWord>(closed->width(), closed->height(), closed->dataStoreShmId());
    check(mView->openFile("/d/text.doc", nullptr) == 0, "reopen");
    if (!mOptional) {
        mView->forgetOptional();
    }
    atPaint("a restore");
    check(mView->place().zoom == closed->place().zoom, "another zoom after a restore");
    checkHeld(character, row, mOptional ? 0.0 : static_cast<double>(fakeWord().layout.lineRows), "a restore");
}

void TouchWordSession::play(int operations) {
    void (TouchWordSession::*const all[])() = {
        &TouchWordSession::drag,      &TouchWordSession::drag,  &TouchWordSession::fling,
        &TouchWordSession::fling,     &TouchWordSession::pinch, &TouchWordSession::pinch,
        &TouchWordSession::tap,       &TouchWordSession::zoom,  &TouchWordSession::turn,
        &TouchWordSession::search,    &TouchWordSession::jump,  &TouchWordSession::popup,
        &TouchWordSession::scrollFar, &TouchWordSession::reopen};
    for (int i = 0; i < operations; ++i) {
        (this->*all[number(0, static_cast<int>(std::size(all)) - 1)])();
    }
}

void TouchWordSession::visitEnds() {
    for (const int way : {1, -1, 1}) {
        int64_t last = -1;
        while (mView->firstTextRow() != last) {
            last = mView->firstTextRow();
            mView->handlePenDown(0, 0);
            mView->handlePenMove(0, -way * mView->height());
            atPaint("going to the ends");
            mView->handlePenUp(0, -way * mView->height());
        }
        check(last == (way > 0 ? TestTouchWord::lastTop(mView->height()) : 0), "an end is reached");
    }
}
