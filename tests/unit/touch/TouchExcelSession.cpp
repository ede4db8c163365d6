// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/touch/TouchExcelSession.h"

#include "channel/ServiceQueue.h"

#include <sys/ipc.h>
#include <sys/msg.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace {

constexpr double TIME_CONSTANT = 0.33; // of a glide, in seconds
constexpr int STEP = 29;               // pixels between those of a frame that are compared
constexpr int FRAMES_BETWEEN_CHECKS = 3;

int recordsWaiting(const OfficeBase& view) {
    const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    ServerClientMessage message;
    int count = 0;
    while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE, static_cast<long>(view.dataStoreShmId()),
                  IPC_NOWAIT) >= 0) {
        ++count;
    }
    return count;
}

} // namespace

TouchExcelSession::TouchExcelSession(unsigned seed, const char* path, int width, int height,
                                     double dotsPerInch, PixelCheck isRight)
    : mRandom(seed), mPath(path), mDotsPerInch(dotsPerInch), mIsRight(std::move(isRight)) {
    mView = std::make_unique<SessionExcel>(width, height, 0, 0, mDotsPerInch);
    open(0);
}

TouchExcelSession::~TouchExcelSession() = default;

void TouchExcelSession::open(unsigned int store) {
    if (store != 0) {
        mView = std::make_unique<SessionExcel>(mView->width(), mView->height(), 0, store, mDotsPerInch);
    }
    check(mView->openFile(mPath.c_str(), nullptr) == 0, "open");
    atPaint("opening");
}

void TouchExcelSession::check(bool good, const std::string& what) {
    if (!good) {
        ++mFailures[what];
    }
}

// A point between the headers and the view's other edges.
CpPoint TouchExcelSession::onCells() {
    const CpPoint header = mView->corner();
    return {number(std::min(header.x, mView->width() - 1), mView->width() - 1),
            number(std::min(header.y, mView->height() - 1), mView->height() - 1)};
}

void TouchExcelSession::atPaint(const char* what) {
    const std::string in = std::string(" in ") + what;
    g_msgQueue.Drain(); // nobody reads the notifications
    mFrame.resize(static_cast<size_t>(mView->width()) * static_cast<size_t>(mView->height()));
    mView->setDirty();
    mView->handlePaintRouter(mFrame.data());
    check(mView->renderResult() == 0, "rendered" + in);
    const CpRect shown = mView->shownCells();
    const CpRect& rendered = mView->rendered();
    check(rendered.Left() <= shown.Left() && rendered.Top() <= shown.Top() &&
              shown.Right() <= rendered.Right() && shown.Bottom() <= rendered.Bottom(),
          "uncovered" + in);
    const int furthest = std::max(0, mView->mSheetWidth - mView->width() + mView->corner().x);
    const int lowest = std::max(0, mView->mSheetHeight - mView->height() + mView->corner().y);
    check(mView->mScroll.x >= 0 && mView->mScroll.x <= furthest && mView->mScroll.y >= 0 &&
              mView->mScroll.y <= lowest,
          "beside the sheet" + in);
    if (mIsRight && ++mPaints % FRAMES_BETWEEN_CHECKS == 0) {
        check(isFrameRight(), "wrong pixels" + in);
    }
}

bool TouchExcelSession::isFrameRight() const {
    for (int y = 0; y < mView->height(); y += STEP) {
        for (int x = 0; x < mView->width(); x += STEP) {
            const size_t place = static_cast<size_t>(y) * static_cast<size_t>(mView->width());
            if (!mIsRight(*mView, x, y, mFrame[place + static_cast<size_t>(x)])) {
                return false;
            }
        }
    }
    return true;
}

bool TouchExcelSession::isAtEdge(bool sideways) const {
    const int sheet = sideways ? mView->mSheetWidth : mView->mSheetHeight;
    const int view = sideways ? mView->width() - mView->corner().x : mView->height() - mView->corner().y;
    const int scroll = sideways ? mView->mScroll.x : mView->mScroll.y;
    return scroll <= 0 || scroll >= sheet - view;
}

void TouchExcelSession::drag() {
    CpPoint pen = onCells();
    const CpPoint begun = mView->documentPoint(pen);
    const CpPoint before = mView->mScroll;
    mView->handlePenDown(pen.x, pen.y);
    for (int i = 0; i < 25; ++i) {
        pen.Offset(number(-30, 30), number(-30, 30));
        mView->handlePenMove(pen.x, pen.y);
        atPaint("a drag");
        const CpPoint now = mView->documentPoint(pen);
        check(std::abs(now.x - begun.x) <= 1 || isAtEdge(true) || mView->mScroll.x == before.x,
              "the finger's column in a drag");
        check(std::abs(now.y - begun.y) <= 1 || isAtEdge(false) || mView->mScroll.y == before.y,
              "the finger's row in a drag");
    }
    mView->handlePenUp(pen.x, pen.y);
    atPaint("a drag's end");
    rest();
}

void TouchExcelSession::flick(int vx, int vy) {
    const CpPoint pen = onCells();
    mView->handlePenDown(pen.x, pen.y);
    mView->handleFlick(vx, vy);
    mView->handlePenUp(pen.x, pen.y);
    const CpPoint from = mView->mScroll;
    const bool isLocked = std::abs(vx) >= 2.5 * std::abs(vy) || std::abs(vy) >= 2.5 * std::abs(vx);
    const double frame = number(8, 120) / 1000.0;
    double elapsed = 0.0;
    for (int i = 0; i < 2000 && mView->place().isMoving; ++i) {
        TouchClock::advance(frame);
        elapsed += frame;
        atPaint("a glide");
        const double share = TIME_CONSTANT * (1.0 - std::exp(-elapsed / TIME_CONSTANT));
        const auto follows = [&](int start, int speed, int other, int now, bool sideways) {
            const double velocity = isLocked && std::abs(other) > std::abs(speed) ? 0.0 : -speed;
            // Below 10 pixels/s an axis stands still; at an edge it stops.
            const double remaining = std::min(std::abs(velocity), 10.0) * TIME_CONSTANT;
            return isAtEdge(sideways) || std::abs(start + velocity * share - now) <= 1.0 + remaining;
        };
        check(follows(from.x, vx, vy, mView->mScroll.x, true), "a glide's way sideways");
        check(follows(from.y, vy, vx, mView->mScroll.y, false), "a glide's way");
        if (chance(2)) {
            mView->handlePenDown(pen.x, pen.y);
            check(!mView->place().isMoving, "a pen stops a glide");
            mView->handlePenUp(pen.x, pen.y);
        }
    }
    check(!mView->place().isMoving, "a glide ends");
    rest();
}

// What lies under `from` before must lie under `to` after, within 2 pixels, unless the
// sheet ends there.
void TouchExcelSession::checkZoomKeeps(const CpPoint& from, const CpPoint& to, const char* what,
                                       const std::function<void()>& zoom) {
    const CpPoint kept = mView->documentPoint(from);
    if (kept.x < 0 || kept.y < 0 || kept.x >= mView->mSheetWidth || kept.y >= mView->mSheetHeight) {
        zoom();
        atPaint(what);
        return;
    }
    mView->handleClick(std::max(from.x, mView->corner().x), std::max(from.y, mView->corner().y));
    Cell before;
    const bool found = mView->cell(-1, -1, before) == TouchResult::Ok && before.place.Width() > 0;
    const double right = found ? (from.x - before.place.Left() + 0.0) / before.place.Width() : 0.0;
    const double down = found ? (from.y - before.place.Top() + 0.0) / before.place.Height() : 0.0;
    zoom();
    atPaint(what);
    Cell after;
    if (found && mView->cell(before.column, before.row, after) == TouchResult::Ok) {
        const double x = after.place.Left() + right * after.place.Width();
        const double y = after.place.Top() + down * after.place.Height();
        check(std::abs(x - to.x) <= 2.0 || isAtEdge(true), std::string("the column under ") + what);
        check(std::abs(y - to.y) <= 2.0 || isAtEdge(false), std::string("the row under ") + what);
    }
}

void TouchExcelSession::pinch() {
    const CpPoint begun = onCells();
    CpPoint point = begun;
    double factor = 1.0;
    const auto send = [&](int phase) {
        ClientServerMessage message(_PINCH, 0);
        message.x = point.x;
        message.y = point.y;
        message.setPinch(static_cast<float>(factor), phase);
        mView->handleRecord(message);
    };
    checkZoomKeeps(begun, {begun.x, begun.y}, "a pinch", [&] {
        send(_PINCH_BEGINS);
        for (int i = 0, count = number(0, 6); i < count; ++i) {
            factor = std::clamp(factor * number(70, 140) / 100.0, 0.05, 20.0);
            mView->setDirty();
            mView->handlePaintRouter(mFrame.data());
            send(_PINCH_MOVES);
        }
        send(_PINCH_ENDS);
    });
    rest();
}

void TouchExcelSession::doubleTap() {
    const CpPoint point = somewhere();
    const double before = mView->mScale;
    mView->handlePenDown(point.x, point.y);
    mView->handleDoubleClick(point.x, point.y);
    mView->handlePenUp(point.x, point.y);
    atPaint("a double tap");
    const ViewPlace place = mView->place();
    check(std::abs(before / place.fit - 1.0) < 1e-3 || place.zoom == place.fit, "a double tap finds the fit");
    rest();
}

void TouchExcelSession::tap() {
    const CpPoint point = somewhere();
    mView->handlePenDown(point.x, point.y);
    mView->handleClick(point.x, point.y);
    mView->handlePenUp(point.x, point.y);
    atPaint("a tap");
    Cell cell;
    if (mView->cell(-1, -1, cell) == TouchResult::Ok) {
        check(cell.place.Contains(point), "the tapped cell");
    }
    rest();
}

void TouchExcelSession::stroke() {
    const bool columns = chance(50);
    CpPoint pen = onCells();
    (columns ? pen.y : pen.x) = 0;
    const CpPoint before = mView->mScroll;
    mView->setResizeMode(chance(20));
    mView->handlePenDown(pen.x, pen.y);
    for (int i = 0; i < 4; ++i) {
        (columns ? pen.x : pen.y) += number(-60, 90);
        mView->handlePenMove(pen.x, pen.y);
        atPaint("a stroke");
    }
    check(mView->mScroll.x == before.x && mView->mScroll.y == before.y, "a stroke does not scroll");
    mView->handlePenUp(pen.x, pen.y);
    mView->setResizeMode(false);
    atPaint("a stroke's end");
    const int what = number(0, 9);
    what < 2 ? mView->hideSelection() : what < 4 ? mView->unhideAll() : void();
    atPaint("hiding");
}

void TouchExcelSession::select() {
    const CpPoint point = onCells();
    const SelectUnit unit = chance(70) ? SelectUnit::Word : chance(70) ? SelectUnit::Line : SelectUnit::All;
    const bool isThere = mView->select(unit, point) == TouchResult::Ok;
    atPaint("a selection");
    for (int i = 0; i < 3; ++i) {
        const CpPoint to = onCells();
        const TouchResult moved = mView->moveSelectionEnd(chance(50) ? SelectEnd::End : SelectEnd::Start, to);
        check(moved == TouchResult::Ok || !isThere, "an end moves");
        atPaint("a moved end");
    }
    Selection selection;
    if (isThere) {
        check(mView->selection(selection) == TouchResult::Ok && selection.rectangles.size() == 1,
              "a selection can be read");
    }
    if (chance(50)) {
        mView->select(SelectUnit::None, point);
        check(mView->selection(selection) != TouchResult::Ok, "no selection");
    }
}

void TouchExcelSession::search() {
    HitPlace hit;
    if (mView->search(mWanted.c_str(), {}, hit) != TouchResult::Ok) {
        return;
    }
    atPaint("a search");
    check(hit.hit >= 0 && hit.hit < hit.hits, "a hit's number");
    for (int i = 0, count = number(0, 8); i < count; ++i) {
        const int way = chance(60) ? 1 : -1;
        const HitPlace before = hit;
        check(mView->stepToHit(way, hit) == TouchResult::Ok, "a step");
        check(hit.hit == (before.hit + way + hit.hits) % hit.hits, "hits in order");
        check(hit.part == mView->mCurrentSheet, "the hit's sheet is shown");
        atPaint("a step");
    }
    if (chance(50)) {
        mView->stopFind();
    }
}

void TouchExcelSession::jump() {
    const ViewPlace place = mView->place();
    const int sheet = number(0, place.parts - 1);
    chance(50) ? void(mView->goTo(sheet)) : void(mView->jumpToSheet(sheet));
    check(mView->place().part == sheet, "the sheet is current");
    atPaint("a jump");
    if (chance(50)) {
        mView->scrollTo(number(0, mView->mSheetWidth), number(0, mView->mSheetHeight));
        atPaint("a scroll");
    }
}

void TouchExcelSession::turn() {
    const CpPoint before = mView->mScroll;
    const CpPoint size(mView->width(), mView->height());
    mView->resize(size.y, size.x);
    atPaint("a turn");
    check(std::abs(mView->mScroll.x - before.x) <= 1 || isAtEdge(true), "the column after a turn");
    check(std::abs(mView->mScroll.y - before.y) <= 1 || isAtEdge(false), "the row after a turn");
    if (chance(60)) {
        mView->resize(size.x, size.y);
        atPaint("a turn back");
    }
}

void TouchExcelSession::reopen() {
    atPaint("closing");
    const ViewPlace before = mView->place();
    const std::unique_ptr<SessionExcel> closed = std::exchange(
        mView, std::make_unique<SessionExcel>(mView->width(), mView->height(), 0, mView->dataStoreShmId(),
                                              mDotsPerInch)); // keeps the segment
    open(0);
    check(mView->place().zoom == before.zoom && mView->place().part == before.part, "back at the same zoom");
}

// Nothing is asked for once nothing moves.
void TouchExcelSession::rest() {
    atPaint("coming to rest");
    g_msgQueue.Drain();
    for (int i = 0; i < 3; ++i) {
        TouchClock::advance(0.5);
        mView->setDirty();
        mView->handlePaintRouter(mFrame.data());
    }
    check(recordsWaiting(*mView) == 0, "a record at rest");
}

void TouchExcelSession::play(int operations) {
    for (int i = 0; i < operations; ++i) {
        const int what = number(0, 99);
        if (what < 18) {
            drag();
        } else if (what < 34) {
            flick(number(-4000, 4000), chance(30) ? number(-30000, 30000) : number(-4000, 4000));
        } else if (what < 50) {
            pinch();
        } else if (what < 58) {
            doubleTap();
        } else if (what < 68) {
            tap();
        } else if (what < 74) {
            stroke();
        } else if (what < 80) {
            select();
        } else if (what < 86) {
            search();
        } else if (what < 92) {
            jump();
        } else if (what < 97) {
            turn();
        } else {
            reopen();
        }
    }
}

void TouchExcelSession::visitEnds() {
    mView->zoomTo(1.0, {0, 0});
    for (const auto& [vx, vy] : {std::pair(-20000, 0), {0, -20000}, {20000, 0}, {0, 20000}}) {
        CpPoint last(-1, -1);
        for (int i = 0; i < 500 && (last.x != mView->mScroll.x || last.y != mView->mScroll.y); ++i) {
            last = mView->mScroll;
            flick(vx, vy);
        }
        check(isAtEdge(vx != 0), "an end is reached");
        const int end = vx != 0 ? mView->mSheetWidth - mView->width() + mView->corner().x
                                : mView->mSheetHeight - mView->height() + mView->corner().y;
        const int scroll = vx != 0 ? mView->mScroll.x : mView->mScroll.y;
        check(scroll == (vx + vy > 0 ? 0 : std::max(0, end)), "the end is the sheet's");
    }
}
