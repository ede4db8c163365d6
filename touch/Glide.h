// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPoint.h"

// The way a view takes after a flick. It starts at the finger's speed and slows down
// exponentially, each axis for itself:
//
//     position(t) = start + velocity * TIME_CONSTANT * (1 - exp(-t / TIME_CONSTANT))
//
// There is no timer: the owner asks for the position at a time. Times are in seconds,
// positions in document pixels, velocities in those per second.
class Glide {
public:
    static constexpr double TIME_CONSTANT = 0.33; // s: people know it from other devices
    static constexpr double REST_SPEED = 10.0;    // pixels/s: an axis below it has come to rest

    // The velocities are those of the position; a finger moves the other way.
    void start(const CpPoint& position, double velocityX, double velocityY, double now);
    void stop();
    bool isMoving() const { return mX.moving || mY.moving; }
    // The position at a time. An axis that has come to rest by then stops.
    CpPoint at(double now);
    // Stop an axis at a position, where the document ends.
    void stopX(int position) { mX.stopAt(position); }
    void stopY(int position) { mY.stopAt(position); }
    // Moves the whole way, when document pixels are renumbered.
    void shift(int dx, int dy);

private:
    struct Axis {
        double start = 0.0;
        double velocity = 0.0;
        bool moving = false;

        void begin(int position, double speed);
        void stopAt(int position);
        int at(double elapsed);
    };

    Axis mX;
    Axis mY;
    double mStartTime = 0.0;
};
