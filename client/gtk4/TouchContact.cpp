// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/TouchContact.h"

#include <utility>

namespace lectern::gtk4 {

TouchContact::TouchContact(TouchReceiver& receiver, double dpi)
    : mReceiver(receiver), mUnit(dpi / 160), mTaps(DOUBLE_TAP, DOUBLE_TAP_RADIUS * mUnit) {}

void TouchContact::down(Point at, Milliseconds time) {
    mState = State::Resting;
    mStart = mLast = at;
    mSpeed.begin(at, time);
    mReceiver.penDown(at); // stops a glide
}

void TouchContact::move(Point at, Milliseconds time) {
    mLast = at;
    mSpeed.add(at, time);
    if (mState == State::Resting && distance(at, mStart) > SLOP * mUnit) {
        mState = State::Dragging;
    }
    if (mState == State::Dragging) {
        mReceiver.penMove(at);
    } else if (mState == State::Holding) {
        mReceiver.holdMoves(at);
    }
}

void TouchContact::up(Point at, Milliseconds time) {
    if (mState == State::Pinching) {
        return; // of the first finger, when the second one has come
    }
    const State state = std::exchange(mState, State::None);
    switch (state) {
    case State::Resting:
        mReceiver.penUp(at);
        if (mTaps.count(at, time) % 2 == 0) {
            mReceiver.doubleTap(at);
        } else {
            mReceiver.tap(at);
        }
        return;
    case State::Dragging:
        if (const Point velocity = mSpeed.at(time); distance(velocity, {}) >= SLOWEST_FLICK * mUnit) {
            mReceiver.flick(velocity);
        }
        mReceiver.penUp(at);
        mTaps.forget();
        return;
    case State::Holding:
        mReceiver.holdEnds(at);
        return;
    case State::None:
    case State::Pinching:
    case State::Over:
        return;
    }
}

void TouchContact::cancel() {
    if (mState == State::Pinching) {
        return;
    }
    const State state = std::exchange(mState, State::None);
    if (state == State::Resting || state == State::Dragging) {
        mReceiver.penUp(mLast);
    } else if (state == State::Holding) {
        mReceiver.holdEnds(mLast);
    }
    mTaps.forget();
}

void TouchContact::hold() {
    if (mState == State::Resting) {
        mState = State::Holding;
        mReceiver.penUp(mLast);
        mReceiver.holdBegins(mLast);
    }
}

void TouchContact::pinchBegins(Point centre) {
    cancel();
    mState = State::Pinching;
    mLast = centre;
    mFactor = 1;
    mReceiver.pinch(centre, 1, LECTERN_PINCH_BEGINS);
}

void TouchContact::pinchMoves(Point centre, double factor) {
    if (mState == State::Pinching) {
        mLast = centre;
        mFactor = factor;
        mReceiver.pinch(centre, factor, LECTERN_PINCH_MOVES);
    }
}

void TouchContact::pinchEnds(bool isGivenUp) {
    if (mState == State::Pinching) {
        // The finger that stays on the screen means nothing any more.
        mState = State::Over;
        mReceiver.pinch(mLast, mFactor, isGivenUp ? LECTERN_PINCH_GIVEN_UP : LECTERN_PINCH_ENDS);
    }
}

} // namespace lectern::gtk4
