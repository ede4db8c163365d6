// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/NewtonianMotion.h"

// A glide in a straight line that slows down by 215.6 pixels per second squared
// (9.8 * 22). There is no timer: the owner calls tick() to get the position at the
// current time. Not thread-safe.
class NewtonianSmoothScroll {
public:
    // Starts a glide. The velocities are those of the finger, in pixels per second.
    // The position moves in the opposite direction at half the velocity. Only the
    // vertical axis determines the end of the glide: a horizontal glide comes to
    // rest, but isMoving() stays true until Stop(). If both velocities are 0, the
    // glide ends at once.
    void Setup(int startX, int startY, int velocityX, int velocityY);
    // Stores the current position in x and y. Returns true if the glide has ended.
    // If it had ended before the call, x and y stay unchanged.
    bool tick(int& x, int& y);
    void get2DPosition(double secondsSinceStart, int& x, int& y) const;
    // Does nothing. It is part of the interface.
    void ScrollTo(int& x, int& y);
    void Stop() { mStopped = true; }
    bool isMoving() const { return !mStopped; }
    // Shifts the whole path of a running glide, when document rows are renumbered.
    void Offset(int dx, int dy);

    // The wall-clock time in seconds, with a resolution of a millisecond.
    static double getTime();
    // For tests: replaces the clock. Null restores the system clock.
    static void setClock(double (*clock)());

private:
    NewtonianMotion mMotionX;
    NewtonianMotion mMotionY;
    double mStartTime = 0.0;
    double mEndTime = 0.0;
    double mDuration = 0.0;
    bool mStopped = true;
};
