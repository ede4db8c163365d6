// SPDX-License-Identifier: Apache-2.0
// Input from fingers, pens and keys.
#include "client/lib/DocumentParts.h"
#include "client/lib/ViewCalls.h"

namespace lectern {

Failure Document::penDown(int x, int y) {
    return mParts->sendPen(_PEN_DOWN, x, y);
}

Failure Document::penMove(int x, int y) {
    return mParts->sendPen(_PEN_MOVE, x, y);
}

Failure Document::penUp(int x, int y) {
    return mParts->sendPen(_PEN_UP, x, y);
}

Failure Document::keyDown(int key, int modifiers) {
    return mParts->sendPoint(_KEY_DOWN, key, modifiers);
}

Failure Document::keyUp(int key, int modifiers) {
    return mParts->sendPoint(_KEY_UP, key, modifiers);
}

Failure Document::gestureStart(double factor) {
    return mParts->sendFactor(_GESTURE_START, factor);
}

Failure Document::gestureChange(double factor) {
    return mParts->sendFactor(_GESTURE_CHANGE, factor);
}

Failure Document::gestureEnd(double factor) {
    return mParts->sendFactor(_GESTURE_END, factor);
}

Failure Document::pinchAt(int x, int y, double factor, PinchStep phase) {
    ClientServerMessage message(_PINCH, 0);
    message.x = x;
    message.y = y;
    message.setPinch(static_cast<float>(factor), static_cast<int32_t>(phase));
    return mParts->sendTouch(message);
}

Failure Document::scrollBy(int x, int y) {
    ClientServerMessage message(_SCROLL_BY, 0);
    message.setReals(0, 0); // initialise every byte that is sent
    message.x = x;
    message.y = y;
    return mParts->sendTouch(message);
}

Failure Document::wideMode(bool on) {
    ClientServerMessage message(_WIDE_MODE, 0);
    message.setReals(0, 0);
    message.setFlag(on);
    return mParts->send(message);
}

Failure Document::click(int x, int y, const CallLimits& limits) {
    return mParts->askAfterInput(events::handleClick(x, y), limits);
}

Failure Document::doubleClick(int x, int y, const CallLimits& limits) {
    return mParts->askAfterInput(events::handleDoubleClick(x, y), limits);
}

Failure Document::flick(int velocityX, int velocityY, const CallLimits& limits) {
    return mParts->flick(velocityX, velocityY, limits);
}

Failure Document::comeToRest(const CallLimits& limits) {
    return mParts->comeToRest(limits);
}

} // namespace lectern
