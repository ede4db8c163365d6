// SPDX-License-Identifier: Apache-2.0
#include "TouchPptSession.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr uint32_t BLACK = 0xFF000000;
constexpr int BETWEEN_CHECKED_PIXELS = 17;

int reachableOn(int scroll, int surface, int view) {
    return surface < view ? (surface - view) / 2 : std::clamp(scroll, 0, surface - view);
}

} // namespace

TouchPptSession::TouchPptSession(unsigned seed, int width, int height, const std::string& path,
                                 const char* wanted, SlidePixel slidePixel)
    : mRandom(seed), mWidth(width), mHeight(height), mWanted(wanted), mSlidePixel(slidePixel) {
    mFrame.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
    mView = std::make_unique<TestTouchPpt>(width, height, 0, 0);
    check(mView->openFile(path.c_str(), nullptr) == 0, "open");
    atPaint("opening");
}

void TouchPptSession::check(bool good, const std::string& what) {
    if (!good) {
        ++mFailures[what];
    }
}

void TouchPptSession::dropRecords() {
    const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    ServerClientMessage message;
    while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE, 0, IPC_NOWAIT) >= 0) {
    }
}

CpPoint TouchPptSession::upright(const CpPoint& point) const {
    const int w = mView->width();
    const int h = mView->height();
    if (mMode == "right") {
        return {w - 1 - point.y, point.x};
    }
    if (mMode == "left") {
        return {point.y, h - 1 - point.x};
    }
    return mMode == "down" ? CpPoint(w - 1 - point.x, h - 1 - point.y) : point;
}

std::pair<double, double> TouchPptSession::shareAt(const CpPoint& point) const {
    const CpPoint at = upright(point);
    return {static_cast<double>(at.x + mView->mScroll.x) / mView->mSurface->Width(),
            static_cast<double>(at.y + mView->mScroll.y) / mView->mSurface->Height()};
}

CpPoint TouchPptSession::reachable(const CpPoint& scroll) const {
    return {reachableOn(scroll.x, mView->mSurface->Width(), mView->width()),
            reachableOn(scroll.y, mView->mSurface->Height(), mView->height())};
}

// Every pixel of the frame is the slide's or background.
void TouchPptSession::checkPixels(const char* what) {
    for (int y = 0; y < mHeight; y += BETWEEN_CHECKED_PIXELS) {
        for (int x = 0; x < mWidth; x += BETWEEN_CHECKED_PIXELS) {
            const CpPoint at = upright({x, y});
            const int column = at.x + mView->mScroll.x;
            const int row = at.y + mView->mScroll.y;
            const bool onSlide = column >= 0 && row >= 0 && column < mView->mSurface->Width() &&
                                 row < mView->mSurface->Height();
            const uint32_t expected = onSlide ? mSlidePixel(*mView, column, row) : BLACK;
            const uint32_t seen =
                mFrame[static_cast<size_t>(y) * static_cast<size_t>(mWidth) + static_cast<size_t>(x)];
            // Marks keep the highest byte.
            const bool good = mView->mCurrentResult < 0 ? seen == expected : seen >> 24 == expected >> 24;
            check(good, std::string("wrong pixel in ") + what);
        }
    }
}

void TouchPptSession::atPaint(const char* what) {
    mView->setDirty();
    mView->handlePaintRouter(mFrame.data());
    checkPixels(what);
    check(mView->mScroll == reachable(mView->mScroll), std::string("beside the slide in ") + what);
    const ViewPlace place = mView->place();
    check(place.zoom >= place.smallestZoom && place.zoom <= place.largestZoom,
          std::string("zoom beyond the limits in ") + what);
    dropRecords();
}

// At rest a paint asks for nothing.
void TouchPptSession::checkRest() {
    dropRecords();
    mView->setDirty();
    mView->handlePaintRouter(mFrame.data());
    const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    ServerClientMessage message;
    check(msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE, static_cast<long>(mView->dataStoreShmId()),
                 IPC_NOWAIT) < 0,
          "a record at rest");
}

// The part of the slide that was at a point is still there, as far as the slide reaches.
void TouchPptSession::checkKept(const CpPoint& point, const std::pair<double, double>& share,
                                const char* what) {
    const CpPoint at = upright(point);
    const double x = share.first * mView->mSurface->Width() - at.x;
    const double y = share.second * mView->mSurface->Height() - at.y;
    const CpPoint wanted = reachable({static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))});
    check(std::abs(wanted.x - mView->mScroll.x) <= 2 && std::abs(wanted.y - mView->mScroll.y) <= 2,
          std::string("the point under the fingers has moved in ") + what);
}

void TouchPptSession::drag() {
    const CpPoint from = anyPoint();
    mView->handlePenDown(from.x, from.y);
    const CpPoint scroll = mView->mScroll;
    for (int i = 0, count = number(1, 10); i < count; ++i) {
        const CpPoint to = anyPoint();
        mView->handlePenMove(to.x, to.y);
        const CpPoint a = upright(from);
        const CpPoint b = upright(to);
        // A straight drag keeps one axis.
        const CpPoint free = reachable({scroll.x + a.x - b.x, scroll.y + a.y - b.y});
        const CpPoint still = reachable(scroll);
        check(mView->mScroll.x == free.x || mView->mScroll.x == still.x, "a drag's column");
        check(mView->mScroll.y == free.y || mView->mScroll.y == still.y, "a drag's row");
        check(mView->mScroll.x == free.x || mView->mScroll.y == free.y, "a drag on no axis");
        atPaint("a drag");
    }
    const CpPoint to = anyPoint();
    mView->handlePenUp(to.x, to.y);
    atPaint("a drag's end");
    checkRest();
}

void TouchPptSession::fling() {
    mView->zoomTo(mView->place().largestZoom * number(5, 10) / 10, anyPoint());
    const CpPoint start = mView->mScroll;
    const CpPoint origin = upright({0, 0});
    const int way = number(-3000, 3000); // along one axis, which no lock changes
    const CpPoint flick = upright({way, 0});
    mView->handleFlick(way, 0);
    double elapsed = 0.0;
    const double vx = -(flick.x - origin.x);
    const double vy = -(flick.y - origin.y);
    while (mView->place().isMoving && elapsed < 5.0) {
        const double step = number(5, 70) / 1000.0;
        TouchClock::advance(step);
        elapsed += step;
        atPaint("a glide");
        if (mView->place().isMoving) {
            const double share = 0.33 * (1 - std::exp(-elapsed / 0.33));
            const CpPoint wanted = reachable({static_cast<int>(std::lround(start.x + vx * share)),
                                              static_cast<int>(std::lround(start.y + vy * share))});
            check(std::abs(wanted.x - mView->mScroll.x) <= 1 && std::abs(wanted.y - mView->mScroll.y) <= 1,
                  "a glide beside its formula");
        }
        if (chance(5)) {
            mView->handlePenDown(1, 1);
            check(!mView->place().isMoving, "a glide goes on below a finger");
            mView->handlePenUp(1, 1);
        }
    }
    check(elapsed < 5.0, "a glide without an end");
    checkRest();
    mView->handleFlick(number(-3000, 3000), number(-3000, 3000));
    mView->handlePenDown(1, 1);
    mView->handlePenUp(1, 1);
    atPaint("a stopped glide");
}

void TouchPptSession::pinch() {
    const CpPoint from = anyPoint();
    const auto share = shareAt(from);
    const CpPoint to = anyPoint();
    TouchPptTest::pinch(*mView, from.x, from.y, 1.0, _PINCH_BEGINS);
    double factor = 1.0;
    for (int i = 0, count = number(1, 6); i < count; ++i) {
        factor = std::exp2(number(-200, 200) / 100.0);
        TouchPptTest::pinch(*mView, to.x, to.y, factor, _PINCH_MOVES);
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
    }
    TouchPptTest::pinch(*mView, to.x, to.y, factor, _PINCH_ENDS);
    checkKept(to, share, "a pinch");
    atPaint("a pinch");
    checkRest();
}

void TouchPptSession::doubleTap() {
    const CpPoint point = anyPoint();
    const bool atFit = mView->mScale == mView->place().fit * 2;
    mView->handleDoubleClick(point.x, point.y);
    mView->handlePenUp(point.x, point.y);
    check(atFit || mView->place().zoom == mView->place().fit, "a double tap finds the way back");
    atPaint("a double tap");
}

void TouchPptSession::turnPage() {
    mView->zoomTo(mView->place().fit, {0, 0});
    const int before = mView->mCurrentSlide;
    const bool next = chance(60);
    const CpPoint origin = upright({0, 0});
    const CpPoint along = upright({1, 0});
    // A way to the left or right of the upright slide, on the device.
    const int dx = along.x - origin.x;
    const int dy = upright({0, 1}).x - origin.x;
    const int way = next ? -1000 : 1000;
    mView->handlePenDown(1, 1);
    mView->handleFlick(way * dx, way * dy);
    mView->handlePenUp(1, 1);
    const int last = mView->place().parts - 1;
    check(mView->mCurrentSlide == std::clamp(before + (next ? 1 : -1), 0, last), "a page turned");
    atPaint("a page turned");
}

void TouchPptSession::stepThroughHits() {
    HitPlace hit;
    if (mView->search(mWanted, {}, hit) != TouchResult::Ok) {
        check(mView->place().hits == 0, "hits that are not found");
        return;
    }
    for (int i = 0, count = number(0, 8); i < count; ++i) {
        const int before = hit.hit;
        const int way = chance(50) ? 1 : -1;
        mView->stepToHit(way, hit);
        check(hit.hit == (before + way + hit.hits) % hit.hits, "a step to a neighbouring hit");
        check(hit.part == mView->mCurrentSlide, "a hit on another slide");
        atPaint("a search");
        if (chance(30)) {
            pinch();
        }
    }
    if (chance(60)) {
        mView->stopFind();
    }
}

void TouchPptSession::turnDevice() {
    const char* const modes[] = {"", "left", "right", "down"};
    mMode = modes[number(0, 3)];
    mView->setFitWideMode(mMode.c_str());
    atPaint("a turned device");
    check(mView->place().zoom == mView->place().fit, "a turned device shows the whole slide");
}

void TouchPptSession::resize() {
    std::swap(mWidth, mHeight);
    mView->resize(mWidth, mHeight);
    atPaint("another size");
}

void TouchPptSession::jump() {
    mView->jumpToSlide(number(-2, 8));
    check(mView->place().zoom == mView->place().fit, "a jump shows the whole slide");
    atPaint("a jump");
}

void TouchPptSession::thumbnail() {
    std::vector<uint32_t> pixels(40 * 30);
    check(mView->thumbnail(number(0, mView->place().parts - 1), pixels.data(), 40, 30) == TouchResult::Ok,
          "a thumbnail");
    atPaint("a thumbnail");
}

void TouchPptSession::oddInput() {
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    mView->handlePenDown(MOST, LEAST);
    mView->handlePenMove(LEAST, MOST);
    mView->handlePenUp(LEAST, LEAST);
    mView->handleFlick(LEAST, LEAST);
    mView->handlePenDown(0, 0);
    mView->handlePenUp(0, 0);
    mView->scrollTo(MOST, LEAST);
    for (const double factor : {std::numeric_limits<double>::quiet_NaN(), 1e30, -1.0, 0.0}) {
        TouchPptTest::pinch(*mView, LEAST, MOST, 1.0, _PINCH_BEGINS);
        TouchPptTest::pinch(*mView, MOST, LEAST, factor, _PINCH_MOVES);
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
        TouchPptTest::pinch(*mView, MOST, LEAST, factor, _PINCH_ENDS);
        mView->handleGestureStart(factor, 0);
        mView->handleGestureChange(factor, 0);
        mView->handleGestureEnd(factor, 0);
    }
    mView->handleDoubleClick(LEAST, MOST);
    mView->handleClick(LEAST, MOST);
    mView->handlePenUp(0, 0);
    atPaint("odd input");
}

void TouchPptSession::play(int operations) {
    using Operation = void (TouchPptSession::*)();
    constexpr Operation OPERATIONS[] = {&TouchPptSession::drag,       &TouchPptSession::fling,
                                        &TouchPptSession::pinch,      &TouchPptSession::pinch,
                                        &TouchPptSession::doubleTap,  &TouchPptSession::turnPage,
                                        &TouchPptSession::turnPage,   &TouchPptSession::stepThroughHits,
                                        &TouchPptSession::turnDevice, &TouchPptSession::resize,
                                        &TouchPptSession::jump,       &TouchPptSession::thumbnail,
                                        &TouchPptSession::oddInput,   &TouchPptSession::drag};
    for (int i = 0; i < operations; ++i) {
        const auto which = static_cast<size_t>(number(0, static_cast<int>(std::size(OPERATIONS)) - 1));
        (this->*OPERATIONS[which])();
    }
}

void TouchPptSession::visitEnds() {
    mView->stopFind();
    mView->zoomTo(mView->place().largestZoom, {0, 0});
    const CpPoint end(mView->mSurface->Width() - mView->width(), mView->mSurface->Height() - mView->height());
    for (int i = 0; i < 200 && (mView->mScroll.x < end.x || mView->mScroll.y < end.y); ++i) {
        ClientServerMessage wheel(_SCROLL_BY, 0);
        const CpPoint origin = upright({0, 0});
        wheel.x = 100 * (upright({1, 0}).x - origin.x + upright({1, 0}).y - origin.y);
        wheel.y = 100 * (upright({0, 1}).x - origin.x + upright({0, 1}).y - origin.y);
        mView->handleRecord(wheel);
    }
    atPaint("the end");
    check(mView->mScroll == reachable(end), "the slide's end is out of reach");
}
