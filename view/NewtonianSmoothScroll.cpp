// SPDX-License-Identifier: Apache-2.0
#include "view/NewtonianSmoothScroll.h"

#include "raster/Saturate.h"

#include <cmath>
#include <ctime>

namespace {

constexpr double FRICTION_SCALE = 22.0;
// The document moves against the finger, at half its speed.
constexpr double VELOCITY_FACTOR = -0.5;
constexpr long NANOSECONDS_PER_MILLISECOND = 1000000;
constexpr double MILLISECONDS_PER_SECOND = 1000.0;

double prvSystemClock() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const long milliseconds = now.tv_nsec / NANOSECONDS_PER_MILLISECOND;
    return static_cast<double>(now.tv_sec) + static_cast<double>(milliseconds) / MILLISECONDS_PER_SECOND;
}

double (*gClock)() = prvSystemClock;

} // namespace

void NewtonianSmoothScroll::Setup(int startX, int startY, int velocityX, int velocityY) {
    const double vx = velocityX * VELOCITY_FACTOR;
    const double vy = velocityY * VELOCITY_FACTOR;
    const double speed = std::sqrt(vx * vx + vy * vy);
    mStartTime = getTime();
    if (speed == 0.0) {
        mDuration = 0.0;
        mEndTime = mStartTime;
        mStopped = true;
        return;
    }
    // The friction is divided between the axes in proportion to their speeds, so
    // that both stop at the same time and the path is a straight line.
    mMotionX.Initialize(mStartTime, startX, vx, FRICTION_SCALE * vx / speed);
    mMotionY.Initialize(mStartTime, startY, vy, FRICTION_SCALE * vy / speed);
    mDuration = mMotionY.duration();
    mEndTime = mStartTime + mDuration;
    mStopped = false;
}

bool NewtonianSmoothScroll::tick(int& x, int& y) {
    if (mStopped) {
        return true;
    }
    // The wall clock may be set back. Then the glide waits at its start.
    double elapsed = std::fmax(getTime() - mStartTime, 0.0);
    // Never true for a glide without vertical speed, because its duration is NaN.
    if (elapsed >= mDuration) {
        mStopped = true;
        elapsed = mDuration;
    }
    get2DPosition(elapsed, x, y);
    return mStopped;
}

void NewtonianSmoothScroll::get2DPosition(double secondsSinceStart, int& x, int& y) const {
    x = saturateToInt(mMotionX.getPosition(secondsSinceStart));
    y = saturateToInt(mMotionY.getPosition(secondsSinceStart));
}

void NewtonianSmoothScroll::ScrollTo(int& /*x*/, int& /*y*/) {}

void NewtonianSmoothScroll::Offset(int dx, int dy) {
    mMotionX.Offset(dx);
    mMotionY.Offset(dy);
}

double NewtonianSmoothScroll::getTime() {
    return gClock();
}

void NewtonianSmoothScroll::setClock(double (*clock)()) {
    gClock = clock != nullptr ? clock : prvSystemClock;
}
