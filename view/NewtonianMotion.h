// SPDX-License-Identifier: Apache-2.0
#pragma once

// One axis of a glide: uniform deceleration until rest. Times are in seconds,
// positions in pixels, speeds in pixels per second.
class NewtonianMotion {
public:
    // friction must have the sign of startSpeed. The deceleration is 9.8 * friction,
    // in pixels per second squared.
    void Initialize(double startTime, double startPosition, double startSpeed, double friction);
    double getSpeed(double secondsSinceStart) const;
    // After the end of the motion, this is the final position.
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
