// SPDX-License-Identifier: Apache-2.0
#include "view/NewtonianMotion.h"

namespace {
constexpr double GRAVITY = 9.8;
}

void NewtonianMotion::Initialize(double startTime, double startPosition, double startSpeed, double friction) {
    mStartPosition = startPosition;
    mStartSpeed = startSpeed;
    mStartTime = startTime;
    mFriction = friction;
    // For an axis at rest this is 0/0, that is NaN; see getPosition().
    mDuration = startSpeed / (friction * GRAVITY);
    mEndTime = startTime + mDuration;
}

double NewtonianMotion::getSpeed(double secondsSinceStart) const {
    return secondsSinceStart < mDuration ? mStartSpeed - GRAVITY * mFriction * secondsSinceStart : 0.0;
}

double NewtonianMotion::getPosition(double secondsSinceStart) const {
    // If the duration is NaN, the comparison is false and t is the elapsed time.
    // Speed and friction are 0 then, so the axis stays where it started.
    const double t = mDuration < secondsSinceStart ? mDuration : secondsSinceStart;
    return mStartPosition + mStartSpeed * t - GRAVITY * mFriction * 0.5 * t * t;
}
