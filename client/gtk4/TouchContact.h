// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/FingerSpeed.h"
#include "client/gtk4/Taps.h"

#include <lectern-glib/lectern-glib.h>

namespace lectern::gtk4 {

// What fingers do to a view. Points are device pixels.
class TouchReceiver {
public:
    virtual ~TouchReceiver() = default;

    // A finger that drags what lies under it.
    virtual void penDown(Point at) = 0;
    virtual void penMove(Point at) = 0;
    virtual void penUp(Point at) = 0;
    // Comes right before the penUp that ends the drag. Pixels a second.
    virtual void flick(Point velocity) = 0;

    virtual void tap(Point at) = 0;
    virtual void doubleTap(Point at) = 0;

    // A finger that rests begins to select, goes on if it moves then, and ends.
    virtual void holdBegins(Point at) = 0;
    virtual void holdMoves(Point at) = 0;
    virtual void holdEnds(Point at) = 0;

    virtual void pinch(Point centre, double factor, LecternPinchPhase phase) = 0;
};

// Decides what the fingers on the screen mean.
class TouchContact {
public:
    static constexpr Milliseconds HOLD{500};
    static constexpr Milliseconds DOUBLE_TAP{300};
    // Ways at 160 dots per inch, as the measures of the touch manners are.
    static constexpr double SLOP = 8; // what a tap may move
    static constexpr double DOUBLE_TAP_RADIUS = 24;
    static constexpr double SLOWEST_FLICK = 50; // a second

    TouchContact(TouchReceiver& receiver, double dpi);

    // The first finger. Times are of one clock.
    void down(Point at, Milliseconds time);
    void move(Point at, Milliseconds time);
    void up(Point at, Milliseconds time);
    // The contact ends without an effect: another gesture has taken it.
    void cancel();
    // Call it HOLD after down(), if the finger is down.
    void hold();

    // Two fingers; the contact of the first one is over, whether it ends before or after.
    void pinchBegins(Point centre);
    void pinchMoves(Point centre, double factor);
    void pinchEnds(bool isGivenUp);

    bool isResting() const { return mState == State::Resting; }

private:
    enum class State { None, Resting, Dragging, Holding, Pinching, Over };

    TouchReceiver& mReceiver;
    double mUnit; // device pixels of one at 160 dots per inch
    State mState = State::None;
    Point mStart;
    Point mLast;
    double mFactor = 1;
    FingerSpeed mSpeed;
    Taps mTaps;
};

} // namespace lectern::gtk4
