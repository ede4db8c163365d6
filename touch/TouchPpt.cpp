// SPDX-License-Identifier: Apache-2.0
#include "touch/TouchPpt.h"

#include <string_view>

namespace {

using Turn = TurnedFrame::Turn;

// A device that is turned to the right needs a picture that is turned to the left.
Turn prvTurnFor(std::string_view mode) {
    if (mode == "right") {
        return Turn::Left;
    }
    if (mode == "left") {
        return Turn::Right;
    }
    return mode == "down" ? Turn::Half : Turn::None;
}

} // namespace

TouchPpt::TouchPpt(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch)
    : UprightPpt(width, height, docId, dataStoreId, dotsPerInch), mFrame(width, height) {}

void TouchPpt::setFitWideMode(const char* mode) {
    const char* const toAndFro = mFrame.isTurned() ? "" : "right";
    mFrame.setTurn(prvTurnFor(mode != nullptr ? mode : toAndFro));
    resize(mFrame.width(), mFrame.height());
    showWhole();
}

void TouchPpt::resize(int width, int height) {
    mFrame.resize(width, height);
    UprightPpt::resize(mFrame.uprightWidth(), mFrame.uprightHeight());
    mUpright = mFrame.isTurned() ? CpPixmap(mFrame.uprightWidth(), mFrame.uprightHeight()) : CpPixmap(0, 0);
}

std::vector<CpPixmap*> TouchPpt::pictures() {
    std::vector<CpPixmap*> all = UprightPpt::pictures();
    all.push_back(&mUpright);
    return all;
}

template<class Paint>
void TouchPpt::paintTurned(unsigned int* frameBuffer, Paint paint) {
    if (!mFrame.isTurned()) {
        paint(frameBuffer);
    } else if (mUpright.Pixels() == nullptr) {
        eraseBuffer(frameBuffer, framePixels()); // out of memory
    } else {
        paint(mUpright.Pixels());
        mFrame.copy(mUpright, frameBuffer);
    }
}

void TouchPpt::handlePaint(unsigned int* frameBuffer) {
    paintTurned(frameBuffer, [this](unsigned int* pixels) { UprightPpt::handlePaint(pixels); });
}

void TouchPpt::handlePaintGesture(unsigned int* frameBuffer) {
    paintTurned(frameBuffer, [this](unsigned int* pixels) { UprightPpt::handlePaintGesture(pixels); });
}

bool TouchPpt::handlePenDown(int x, int y) {
    const CpPoint point = upright(x, y);
    return UprightPpt::handlePenDown(point.x, point.y);
}

bool TouchPpt::handlePenMove(int x, int y) {
    const CpPoint point = upright(x, y);
    return UprightPpt::handlePenMove(point.x, point.y);
}

bool TouchPpt::handlePenUp(int x, int y) {
    const CpPoint point = upright(x, y);
    return UprightPpt::handlePenUp(point.x, point.y);
}

bool TouchPpt::handleClick(int x, int y) {
    const CpPoint point = upright(x, y);
    return UprightPpt::handleClick(point.x, point.y);
}

bool TouchPpt::handleDoubleClick(int x, int y) {
    const CpPoint point = upright(x, y);
    return UprightPpt::handleDoubleClick(point.x, point.y);
}

bool TouchPpt::handleFlick(int vx, int vy) {
    const CpPoint velocity = mFrame.wayToUpright({vx, vy});
    return UprightPpt::handleFlick(velocity.x, velocity.y);
}

bool TouchPpt::handleRecord(const ClientServerMessage& message) {
    const CpPoint sent(message.x, message.y);
    const CpPoint turned =
        message.type == _SCROLL_BY ? mFrame.wayToUpright(sent) : mFrame.pointToUpright(sent);
    ClientServerMessage record = message;
    record.x = turned.x;
    record.y = turned.y;
    return UprightPpt::handleRecord(record);
}

void TouchPpt::zoomTo(double zoom, const CpPoint& about) {
    UprightPpt::zoomTo(zoom, mFrame.pointToUpright(about));
}

TouchResult TouchPpt::select(SelectUnit unit, const CpPoint& point) {
    return UprightPpt::select(unit, mFrame.pointToUpright(point));
}

TouchResult TouchPpt::moveSelectionEnd(SelectEnd end, const CpPoint& point) {
    return UprightPpt::moveSelectionEnd(end, mFrame.pointToUpright(point));
}

TouchResult TouchPpt::selection(Selection& selection) {
    const TouchResult result = UprightPpt::selection(selection);
    for (CpRect& r : selection.rectangles) {
        r = mFrame.fromUpright(r);
    }
    return result;
}

TouchResult TouchPpt::visibleText(std::vector<TextLine>& lines) {
    const TouchResult result = UprightPpt::visibleText(lines);
    for (TextLine& line : lines) {
        line.place = mFrame.fromUpright(line.place);
    }
    return result;
}
