// SPDX-License-Identifier: Apache-2.0
#pragma once

// One axis of a glide: uniform deceleration until rest. Times are seconds,
// positions pixels, speeds pixels per second.
class NewtonianMotion {
public:
    // friction has the sign of startSpeed; the deceleration is 9.8 times it.
    void Initialize(double startTime, double startPosition, double startSpeed, double friction);
    double getSpeed(double secondsSinceStart) const;
    // Stays at the final position after the motion has ended.
    double getPosition(double secondsSinceStart) const;
    double duration() const { return mDuration; }
    void Offset(double distance) { mStartPosition += distance; }

private:
    double mStartPosition = 0.0;
    double mStartSpeed = 0.0;
    double mStartTime = 0.0;
    double mEndTime = 0.0;
    double mDuration = 0.0;
    double mFriction = 0.0;
};
