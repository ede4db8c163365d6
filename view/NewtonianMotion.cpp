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
    // An axis at rest gives 0/0 here; see getPosition().
    mDuration = startSpeed / (friction * GRAVITY);
    mEndTime = startTime + mDuration;
}

double NewtonianMotion::getSpeed(double secondsSinceStart) const {
    return secondsSinceStart < mDuration ? mStartSpeed - GRAVITY * mFriction * secondsSinceStart : 0.0;
}

double NewtonianMotion::getPosition(double secondsSinceStart) const {
    // Written so that a duration that is not a number leaves the time alone:
    // speed and friction are then zero and the axis stays where it started.
    const double t = mDuration < secondsSinceStart ? mDuration : secondsSinceStart;
    return mStartPosition + mStartSpeed * t - GRAVITY * mFriction * 0.5 * t * t;
}
