// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/Taps.h"

namespace lectern::gtk4 {

// What the main button of a mouse does to a view. Points are device pixels.
class MouseReceiver {
public:
    virtual ~MouseReceiver() = default;

    virtual void click(Point at) = 0;
    // The second and the third press of clicks that follow each other.
    virtual void pressTwice(Point at) = 0;
    virtual void pressThrice(Point at) = 0;
    // `from` is where the button was pressed.
    virtual void dragBegins(Point from) = 0;
    virtual void dragMoves(Point at) = 0;
    virtual void dragEnds(Point at) = 0;
};

// Decides what presses of a mouse's main button mean.
class MouseContact {
public:
    struct Limits {
        Milliseconds doubleClick{400}; // from one press to the next
        double doubleClickRadius = 5;  // how far apart they may be
        double dragThreshold = 8;      // how far a click may move
    };

    MouseContact(MouseReceiver& receiver, const Limits& limits)
        : mReceiver(receiver), mLimits(limits), mPresses(limits.doubleClick, limits.doubleClickRadius) {}

    void press(Point at, Milliseconds time) {
        mCount = mPresses.count(at, time);
        mState = State::Pressed;
        mStart = mLast = at;
        if (mCount == 2) {
            mReceiver.pressTwice(at);
        } else if (mCount == 3) {
            mReceiver.pressThrice(at);
            mPresses.forget();
        }
    }
    void move(Point at) {
        mLast = at;
        if (mState == State::Pressed && mCount == 1 && distance(at, mStart) > mLimits.dragThreshold) {
            mState = State::Dragging;
            mPresses.forget();
            mReceiver.dragBegins(mStart);
        }
        if (mState == State::Dragging) {
            mReceiver.dragMoves(at);
        }
    }
    void release(Point at) {
        if (mState == State::Pressed && mCount == 1) {
            mReceiver.click(at);
        }
        cancelAt(at);
    }
    void cancel() { cancelAt(mLast); }

private:
    enum class State { None, Pressed, Dragging };

    void cancelAt(Point at) {
        if (mState == State::Dragging) {
            mReceiver.dragEnds(at);
        }
        mState = State::None;
    }

    MouseReceiver& mReceiver;
    Limits mLimits;
    Taps mPresses;
    State mState = State::None;
    int mCount = 0;
    Point mStart;
    Point mLast;
};

} // namespace lectern::gtk4
