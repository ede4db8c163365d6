// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/NewtonianMotion.h"

// A glide in a straight line that slows down at 215.6 pixels per second squared.
// A value of state and clock: nothing runs by itself, tick() places it in time.
class NewtonianSmoothScroll {
public:
    // Starts a glide. Velocities are the finger's, in pixels per second; the
    // document moves the other way at half of them. The vertical axis alone
    // decides when the glide ends; one that is purely sideways comes to rest
    // but stays "moving" until Stop(). Both velocities 0: ends at once.
    void Setup(int startX, int startY, int velocityX, int velocityY);
    // Moves x and y to where the glide is now; true when stopped. Leaves them
    // alone when it had stopped before.
    bool tick(int& x, int& y);
    void get2DPosition(double secondsSinceStart, int& x, int& y) const;
    // Moves nothing; part of the interface.
    void ScrollTo(int& x, int& y);
    void Stop() { mStopped = true; }
    bool isMoving() const { return !mStopped; }
    // Moves the whole path of a running glide, for a document that is renumbered.
    void Offset(int dx, int dy);

    // Wall-clock seconds with millisecond resolution.
    static double getTime();
    // Replaces the clock; null puts the system's back. For tests.
    static void setClock(double (*clock)());

private:
    NewtonianMotion mMotionX;
    NewtonianMotion mMotionY;
    double mStartTime = 0.0;
    double mEndTime = 0.0;
    double mDuration = 0.0;
    bool mStopped = true;
};
